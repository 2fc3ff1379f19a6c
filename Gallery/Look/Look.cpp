#include <Gallery/Look/Look.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

#include <cmath>

namespace zr::gallery::Look {

namespace {

Hue currentHue = Hue::Green;

Ref<UIColor> rgb(int red, int green, int blue) { return ZRColor::zrColorWithRed_green_blue_alpha(red, green, blue, 1); }

} // namespace

Hue hue() { return currentHue; }

void setHue(Hue hue) {
    currentHue = hue;
    NSNotificationCenter::defaultCenter()->postNotificationName_object(kChangeThemeNotification, nullptr);
}

UIColor* barColor(Hue hue) {
    ZRColorInstance* theme = ZRColorInstance::Instance();
    switch (hue) {
    case Hue::Red:
        return theme->navigationBarShadowColor_red();
    case Hue::Orange:
        return theme->navigationBarShadowColor_orange();
    case Hue::Green:
        break;
    }
    return theme->navigationBarShadowColor();
}

UIColor* backgroundColor(Hue hue) {
    ZRColorInstance* theme = ZRColorInstance::Instance();
    switch (hue) {
    case Hue::Red:
        return theme->backgroundShadowColor_red();
    case Hue::Orange:
        return theme->backgroundShadowColor_orange();
    case Hue::Green:
        break;
    }
    return theme->backgroundShadowColor_green();
}

const char* barColorName(Hue hue) {
    constexpr const char* names[] = {"navigationBarShadowColor", "navigationBarShadowColor_red",
                                     "navigationBarShadowColor_orange"};
    return names[static_cast<int>(hue)];
}

const char* backgroundColorName(Hue hue) {
    constexpr const char* names[] = {"backgroundShadowColor_green", "backgroundShadowColor_red",
                                     "backgroundShadowColor_orange"};
    return names[static_cast<int>(hue)];
}

const char* name(Hue hue) {
    constexpr const char* names[] = {"Green", "Red", "Orange"};
    return names[static_cast<int>(hue)];
}

UIColor* titleColor() {
    static const Ref<UIColor> color = rgb(55, 63, 58);
    return color;
}

UIColor* detailColor() {
    static const Ref<UIColor> color = rgb(134, 141, 137);
    return color;
}

UIColor* separatorColor() {
    static const Ref<UIColor> color = rgb(215, 217, 215);
    return color;
}

UIColor* highlightColor() { return separatorColor(); }

UIColor* pageColor() {
    static const Ref<UIColor> color = rgb(245, 245, 245);
    return color;
}

UIColor* green() {
    static const Ref<UIColor> color = rgb(0, 195, 64);
    return color;
}

UIColor* pressedGreen() {
    static const Ref<UIColor> color = rgb(0, 165, 54);
    return color;
}

UIColor* cursorColor() {
    static const Ref<UIColor> color = rgb(255, 87, 48);
    return color;
}

CGFloat hairline() { return 1 / UIScreen::mainScreen()->scale(); }

CGFloat wholePixels(CGFloat points) {
    const CGFloat scale = UIScreen::mainScreen()->scale();
    return std::round(points * scale) / scale;
}

Ref<UILabel> label(const NSString& text, UIFont* font, UIColor* color, NSInteger lines, NSTextAlignment alignment) {
    auto label = make<UILabel>();
    label->setFont(font);
    label->setTextColor(color);
    label->setBackgroundColor(UIColor::clearColor());
    label->setNumberOfLines(lines);
    label->setTextAlignment(alignment);
    label->setText(text);
    return label;
}

CGFloat heightOfLabel(const UILabel* label, CGFloat width) {
    const CGFloat scale = UIScreen::mainScreen()->scale();
    constexpr CGFloat unlimited = 10000;
    return std::ceil(label->sizeThatFits(CGSizeMake(width, unlimited)).height * scale) / scale;
}

Ref<UIView> line(CGRect frame) {
    auto line = make<UIView>(&UIView::initWithFrame, frame);
    line->setBackgroundColor(separatorColor());
    line->setUserInteractionEnabled(false);
    return line;
}

Ref<UIView> card(CGRect frame) {
    auto card = make<UIView>(&UIView::initWithFrame, frame);
    card->setBackgroundColor(UIColor::whiteColor());
    card->setOpaque(false);
    card->layer()->setCornerRadius(kCornerRadius);
    card->layer()->setBorderWidth(hairline());
    card->layer()->setBorderColor(separatorColor()->cgColor());
    return card;
}

} // namespace zr::gallery::Look
