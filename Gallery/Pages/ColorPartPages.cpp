#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kRowHeight = 52;
constexpr CGFloat kSide = 32;
constexpr CGFloat kTextX = 12 + kSide + 12;

/// "red 0, green 195, blue 64 · #00C340"; a nil colour is black.
NSString describeComponents(UIColor* color) {
    std::int32_t parts[3];
    ZRColor::getRGBComponents_forColor(parts, color);
    return NSString::stringWithFormat("red %d, green %d, blue %d · #%02X%02X%02X", parts[0], parts[1], parts[2],
                                      parts[0], parts[1], parts[2]);
}

struct NamedColor {
    const char* name;
    Ref<UIColor> color;
};

void addColor(UIView* card, CGFloat top, const NamedColor& named) {
    const auto black =
        make<UIView>(&UIView::initWithFrame, CGRectMake(12, top + (kRowHeight - kSide) / 2, kSide, kSide));
    black->setBackgroundColor(UIColor::blackColor());
    black->setClipsToBounds(true);
    black->layer()->setCornerRadius(kSide / 2);
    const auto swatch = make<UIView>(&UIView::initWithFrame, black->bounds());
    swatch->setBackgroundColor(named.color);
    black->addSubview(swatch);
    card->addSubview(black);

    const CGFloat width = card->bounds().size.width - kTextX - 12;
    const auto name = Look::label(named.name, UIFont::systemFontOfSize(15), Look::titleColor());
    const auto parts = Look::label(describeComponents(named.color), UIFont::systemFontOfSize(13), Look::detailColor());
    name->setFrame(CGRectMake(kTextX, top + 7, width, 20));
    parts->setFrame(CGRectMake(kTextX, top + 27, width, 18));
    for (UILabel* label : {name.get(), parts.get()}) {
        label->setAdjustsFontSizeToFitWidth(true);
        label->setMinimumScaleFactor(0.7);
        card->addSubview(label);
    }
}

void addColors(PageView& page, const char* heading, const std::vector<NamedColor>& colors) {
    page.addHeading(heading);
    const auto card =
        Look::card(CGRectMake(0, 0, page.contentWidth(), static_cast<CGFloat>(colors.size()) * kRowHeight));
    CGFloat top = 0;
    for (const NamedColor& color : colors) {
        addColor(card, top, color);
        if (top > 0)
            card->addSubview(Look::line(CGRectMake(kTextX, top, page.contentWidth() - kTextX, Look::hairline())));
        top += kRowHeight;
    }
    page.addView(card);
}

void buildPartsPage(PageView& page) {
    std::vector<NamedColor> themes;
    for (const Look::Hue hue : Look::kHues)
        themes.push_back({Look::barColorName(hue), Look::barColor(hue)});
    addColors(page, "THE THEME’S BARS", themes);
    const auto orange = ZRColor::zrColorWithRed_green_blue_alpha(253, 131, 0, 1);
    addColors(page, "AN ORANGE",
              {{"alpha 1", orange},
               {"alpha 0.5", orange->colorWithAlphaComponent(0.5)},
               {"alpha 0", orange->colorWithAlphaComponent(0)}});
    addColors(page, "NO COLOUR", {{"nil", nullptr}});
}

} // namespace

std::vector<Page> colorPartPages() {
    return {
        {"color-parts", "Components", "COLOURS", "Red, green and blue of any colour", "icon_theme_colors.png",
         "The parts of a colour as it looks on black, each from 0 to 255. The theme’s colours are patterns, and have "
         "parts all the same.",
         buildPartsPage},
    };
}

} // namespace zr::gallery
