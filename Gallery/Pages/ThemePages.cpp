#include <Gallery/Look/Look.h>
#include <Gallery/Look/TapControl.h>
#include <Gallery/Pages/PageView.h>
#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

#include <cmath>

namespace zr::gallery {

namespace {

constexpr CGFloat kPreviewGap = 12;
constexpr CGFloat kCaptionHeight = 24;
constexpr CGFloat kRowHeight = 52;

/// A view of `size` shrunk or stretched to fill `frame`.
Ref<UIView> scaledView(CGSize size, CGRect frame) {
    auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, size.width, size.height));
    view->setTransform(CGAffineTransformMakeScale(frame.size.width / size.width, frame.size.height / size.height));
    view->setCenter(CGPointMake(CGRectGetMidX(frame), CGRectGetMidY(frame)));
    view->setUserInteractionEnabled(false);
    return view;
}

/// A whole screen in one hue, made small: its bar over its background. A tap gives the gallery that hue.
class ThemePreview : public TapControl {
public:
    bool initWithFrame_hue(CGRect frame, Look::Hue hue) {
        if (!initWithFrame(frame))
            return false;
        setOpaque(false);
        const CGSize screenSize = UIScreen::mainScreen()->bounds().size;
        const CGRect place = CGRectMake(0, 0, frame.size.width, frame.size.height - kCaptionHeight);
        m_frame = make<UIView>(&UIView::initWithFrame, place);
        m_frame->setClipsToBounds(true);
        m_frame->layer()->setCornerRadius(Look::kCornerRadius);
        m_frame->setUserInteractionEnabled(false);
        const auto screen = scaledView(screenSize, place);
        screen->setBackgroundColor(Look::backgroundColor(hue));
        addBar(screen, hue);
        m_frame->addSubview(screen);
        addSubview(m_frame);

        const auto caption =
            Look::label(Look::name(hue), UIFont::systemFontOfSize(13), Look::titleColor(), 1, NSTextAlignmentCenter);
        caption->setFrame(CGRectMake(0, place.size.height, frame.size.width, kCaptionHeight));
        addSubview(caption);
        setAction([hue] { Look::setHue(hue); });
        return true;
    }

    void setHighlighted(bool highlighted) override {
        TapControl::setHighlighted(highlighted);
        m_frame->setAlpha(highlighted ? 0.6 : 1);
    }

private:
    static void addBar(UIView* screen, Look::Hue hue) {
        const CGFloat width = screen->bounds().size.width;
        const auto bar = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, width, Look::kBarHeight));
        bar->setBackgroundColor(Look::barColor(hue));
        const auto title =
            Look::label("Title", UIFont::boldSystemFontOfSize(30), UIColor::whiteColor(), 1, NSTextAlignmentCenter);
        title->setFrame(CGRectMake(0, 14, width, 44));
        bar->addSubview(title);
        const auto edge = make<UIView>(&UIView::initWithFrame, CGRectMake(0, Look::kBarHeight, width, 3));
        edge->setBackgroundColor(UIColor::colorWithWhite_alpha(1, 0.5));
        screen->addSubview(bar);
        screen->addSubview(edge);
    }

    Ref<UIView> m_frame;
};

/// "red, green, blue" of one row of a pattern's image.
NSString componentsOfRow(const CGImage* image, NSUInteger row) {
    const std::uint32_t pixel = image->row(row)[0];
    return NSString::stringWithFormat("%u, %u, %u", pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255);
}

/// The colours as the pattern's pixels have them: one, or the top and the bottom one.
NSString describePattern(const CGImage* image) {
    if (!image)
        return "no image";
    const NSString top = componentsOfRow(image, 0);
    const NSString bottom = componentsOfRow(image, image->height() - 1);
    if (top == bottom)
        return top;
    return NSString::stringWithFormat("%s to %s", top.UTF8String(), bottom.UTF8String());
}

/// A swatch that shows the whole pattern, the property's name, and its colours.
void addColorRow(UIView* card, CGFloat y, const char* name, UIColor* color) {
    const CGImage* pattern = color->cgColor()->pattern();
    const CGRect place = CGRectMake(0, 0, 44, 32);
    const auto swatch = make<UIView>(&UIView::initWithFrame, CGRectOffset(place, 12, y + (kRowHeight - 32) / 2));
    swatch->setClipsToBounds(true);
    swatch->layer()->setCornerRadius(Look::kCornerRadius);
    if (pattern) {
        const CGSize size = CGSizeMake(static_cast<CGFloat>(pattern->width()), static_cast<CGFloat>(pattern->height()));
        const auto whole = scaledView(size, place);
        whole->setBackgroundColor(color);
        swatch->addSubview(whole);
    }
    card->addSubview(swatch);

    const CGFloat textWidth = card->bounds().size.width - 68 - 8;
    const auto title = Look::label(name, UIFont::systemFontOfSize(15), Look::titleColor());
    title->setFrame(CGRectMake(68, y + 7, textWidth, 20));
    title->setAdjustsFontSizeToFitWidth(true);
    title->setMinimumScaleFactor(0.8);
    card->addSubview(title);
    const auto detail = Look::label(describePattern(pattern), UIFont::systemFontOfSize(13), Look::detailColor());
    detail->setFrame(CGRectMake(68, y + 27, textWidth, 18));
    card->addSubview(detail);
}

Ref<UIView> makePreviews(CGFloat width) {
    const CGSize screen = UIScreen::mainScreen()->bounds().size;
    const CGFloat previewWidth = std::floor((width - 2 * kPreviewGap) / 3);
    const CGFloat height = std::round(previewWidth * screen.height / screen.width) + kCaptionHeight;
    auto previews = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, width, height));
    CGFloat x = 0;
    for (const Look::Hue hue : Look::kHues) {
        previews->addSubview(
            make<ThemePreview>(&ThemePreview::initWithFrame_hue, CGRectMake(x, 0, previewWidth, height), hue));
        x += previewWidth + kPreviewGap;
    }
    return previews;
}

Ref<UIView> makeColorCard(CGFloat width) {
    auto card = Look::card(CGRectMake(0, 0, width, 6 * kRowHeight));
    CGFloat y = 0;
    for (const Look::Hue hue : Look::kHues) {
        addColorRow(card, y, Look::barColorName(hue), Look::barColor(hue));
        addColorRow(card, y + kRowHeight, Look::backgroundColorName(hue), Look::backgroundColor(hue));
        y += 2 * kRowHeight;
    }
    for (int row = 1; row < 6; ++row)
        card->addSubview(Look::line(CGRectMake(68, row * kRowHeight, width - 68, Look::hairline())));
    return card;
}

void buildThemePage(PageView& page) {
    page.addView(makePreviews(page.contentWidth()));
    page.addHeading("THE SIX COLOURS");
    page.addView(makeColorCard(page.contentWidth()));
}

} // namespace

std::vector<Page> themePages() {
    return {
        {"theme-colors", "Theme colours", "COLOURS", "Three hues for bars and backgrounds", "icon_theme_colors.png",
         "Each hue has a flat colour for navigation bars and a gradient for whole screens. Tap one to give it to the "
         "gallery.",
         buildThemePage},
    };
}

} // namespace zr::gallery
