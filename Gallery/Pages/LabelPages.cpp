#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kInset = 12;
constexpr CGFloat kCaptionHeight = 18;

constexpr const char* kShortText = "It will be removed from all of your devices.";
constexpr const char* kText = "Every picture is kept twice: on this phone, and at home as soon as there is a network.";

/// A label of the factory's, and what is said of it.
struct Sample {
    const char* caption;
    std::int32_t lines;
    Ref<UIFont> font;
    const char* text;
    NSTextAlignment alignment = NSTextAlignmentNatural;
    CGFloat height = 24;
};

/// One sample below the other, each below its caption.
void addSamples(PageView& page, const char* heading, const std::vector<Sample>& samples) {
    page.addHeading(heading);
    const CGFloat width = page.contentWidth() - 2 * kInset;
    const auto card = Look::card(CGRectZero);
    CGFloat y = kInset;
    for (const Sample& sample : samples) {
        const auto caption = Look::label(sample.caption, UIFont::systemFontOfSize(13), Look::detailColor());
        caption->setFrame(CGRectMake(kInset, y, width, kCaptionHeight));
        card->addSubview(caption);
        y += kCaptionHeight;
        card->addSubview(ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            CGRectMake(kInset, y, width, sample.height), sample.lines, sample.font, SampleText::translated(sample.text),
            sample.alignment));
        y += sample.height + 10;
    }
    card->setFrame(CGRectMake(0, 0, page.contentWidth(), y));
    page.addView(card);
}

/// The label's ground is clear, so that it shows what it lies on.
void addColoredSamples(PageView& page) {
    constexpr CGFloat kHeight = 44, kGap = 8;
    page.addHeading("COLOURS OF ITS OWN, ON A COLOUR");
    const auto column = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 0, 3 * kHeight + 2 * kGap));
    CGFloat y = 0;
    for (const Look::Hue hue : Look::kHues) {
        const auto label = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            CGRectMake(0, 0, page.contentWidth(), kHeight), 1, UIFont::boldSystemFontOfSize(20),
            SampleText::translated(Look::name(hue)), NSTextAlignmentCenter);
        label->setTextColor(UIColor::whiteColor());
        const auto ground = make<UIView>(&UIView::initWithFrame, CGRectOffset(label->frame(), 0, y));
        ground->setBackgroundColor(Look::barColor(hue));
        ground->addSubview(label);
        column->addSubview(ground);
        y += kHeight + kGap;
    }
    page.addView(column);
}

void buildLabelPage(PageView& page) {
    const auto font = UIFont::systemFontOfSize(17);
    addSamples(page, "LINES",
               {{"1", 1, font, kText},
                {"2", 2, font, kText, NSTextAlignmentNatural, 46},
                {"0: as many as fit", 0, font, kText, NSTextAlignmentNatural, 68}});
    addSamples(
        page, "FONTS",
        {{"Bold, of 20 points", 1, UIFont::boldSystemFontOfSize(20), "Delete photo?", NSTextAlignmentNatural, 28},
         {"Italic, of 15 points", 1, UIFont::italicSystemFontOfSize(15), "Delete photo?"},
         {"nil: the platform’s", 1, nullptr, "Delete photo?"}});
    addSamples(page, "ALIGNMENTS",
               {{"Left", 1, UIFont::systemFontOfSize(15), kShortText, NSTextAlignmentLeft},
                {"Center", 1, UIFont::systemFontOfSize(15), kShortText, NSTextAlignmentCenter},
                {"Right", 1, UIFont::systemFontOfSize(15), kShortText, NSTextAlignmentRight}});
    addColoredSamples(page);
}

} // namespace

std::vector<Page> labelPages() {
    return {
        {"label", "Label", "LABELS", "Made in one call", "icon_text_latin.png",
         "One call makes a label with its place, lines, font, text and alignment. Everything else is set afterwards.",
         buildLabelPage},
    };
}

} // namespace zr::gallery
