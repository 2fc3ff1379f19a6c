#include <ZRPlatform/UIKit/Images/UIColor.h>

#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

CGColorSpaceRef deviceRGB() {
    static CGColorSpaceRef const space = CGColorSpaceCreateDeviceRGB().leak();
    return space;
}

CGColorSpaceRef deviceGray() {
    static CGColorSpaceRef const space = CGColorSpaceCreateDeviceGray().leak();
    return space;
}

Ref<CGColor> rgbColor(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    const CGFloat components[] = {red, green, blue, alpha};
    return CGColorCreate(deviceRGB(), components);
}

Ref<CGColor> grayColorOf(CGFloat white, CGFloat alpha) {
    const CGFloat components[] = {white, alpha};
    return CGColorCreate(deviceGray(), components);
}

RGBAColor rgbFromHSB(CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
    const auto component = [&](CGFloat offset) {
        const CGFloat sector = std::fmod(offset + hue * 6, CGFloat(6));
        const CGFloat share = std::clamp(std::min(sector, 4 - sector), CGFloat(0), CGFloat(1));
        return brightness * (1 - saturation * share);
    };
    return {component(5), component(3), component(1), alpha};
}

void store(CGFloat* to, CGFloat value) {
    if (to)
        *to = value;
}

/// A pattern's tile is one pixel a unit and upright.
Ref<CGImage> tileOf(const UIImage& image) {
    if (image.scale() == 1)
        return image.uprightImage();
    UIGraphicsBeginImageContext(image.size());
    image.drawInRect({{0, 0}, image.size()});
    const Ref<UIImage> tile = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return tile ? tile->CGImage() : nullptr;
}

} // namespace

Ref<UIColor> UIColor::colorWithRed_green_blue_alpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return make<UIColor>(&UIColor::initWithRed_green_blue_alpha, red, green, blue, alpha);
}

Ref<UIColor> UIColor::colorWithWhite_alpha(CGFloat white, CGFloat alpha) {
    return make<UIColor>(&UIColor::initWithWhite_alpha, white, alpha);
}

Ref<UIColor> UIColor::colorWithHue_saturation_brightness_alpha(CGFloat hue, CGFloat saturation, CGFloat brightness,
                                                               CGFloat alpha) {
    const auto unit = [](CGFloat value) { return std::clamp(value, CGFloat(0), CGFloat(1)); };
    const RGBAColor color = rgbFromHSB(unit(hue), unit(saturation), unit(brightness), alpha);
    return colorWithRed_green_blue_alpha(color.red, color.green, color.blue, color.alpha);
}

Ref<UIColor> UIColor::colorWithPatternImage(UIImage* image) {
    auto color = make<UIColor>();
    color->m_color = Ref<CGColor>::adopt(new CGColor(image ? tileOf(*image).get() : nullptr));
    return color;
}

Ref<UIColor> UIColor::colorWithCGColor(CGColorRef cgColor) {
    if (!cgColor)
        return nullptr;
    auto color = make<UIColor>();
    color->m_color = cgColor;
    return color;
}

// The fixed colours are never destroyed: any thread may hold one while the program ends.
#define ZR_FIXED_COLOR(name, color)                                                                                    \
    UIColor* UIColor::name() {                                                                                         \
        static UIColor* const shared = color.leak();                                                                   \
        return shared;                                                                                                 \
    }

ZR_FIXED_COLOR(blackColor, colorWithWhite_alpha(0, 1))
ZR_FIXED_COLOR(darkGrayColor, colorWithWhite_alpha(CGFloat(1) / 3, 1))
ZR_FIXED_COLOR(lightGrayColor, colorWithWhite_alpha(CGFloat(2) / 3, 1))
ZR_FIXED_COLOR(whiteColor, colorWithWhite_alpha(1, 1))
ZR_FIXED_COLOR(grayColor, colorWithWhite_alpha(0.5, 1))
ZR_FIXED_COLOR(redColor, colorWithRed_green_blue_alpha(1, 0, 0, 1))
ZR_FIXED_COLOR(greenColor, colorWithRed_green_blue_alpha(0, 1, 0, 1))
ZR_FIXED_COLOR(blueColor, colorWithRed_green_blue_alpha(0, 0, 1, 1))
ZR_FIXED_COLOR(cyanColor, colorWithRed_green_blue_alpha(0, 1, 1, 1))
ZR_FIXED_COLOR(yellowColor, colorWithRed_green_blue_alpha(1, 1, 0, 1))
ZR_FIXED_COLOR(magentaColor, colorWithRed_green_blue_alpha(1, 0, 1, 1))
ZR_FIXED_COLOR(orangeColor, colorWithRed_green_blue_alpha(1, 0.5, 0, 1))
ZR_FIXED_COLOR(purpleColor, colorWithRed_green_blue_alpha(0.5, 0, 0.5, 1))
ZR_FIXED_COLOR(brownColor, colorWithRed_green_blue_alpha(CGFloat(0.6), CGFloat(0.4), CGFloat(0.2), 1))
ZR_FIXED_COLOR(clearColor, colorWithWhite_alpha(0, 0))

#undef ZR_FIXED_COLOR

bool UIColor::initWithRed_green_blue_alpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    m_color = rgbColor(red, green, blue, alpha);
    return init();
}

bool UIColor::initWithWhite_alpha(CGFloat white, CGFloat alpha) {
    m_color = grayColorOf(white, alpha);
    return init();
}

Ref<UIColor> UIColor::colorWithAlphaComponent(CGFloat alpha) const {
    if (m_color && m_color->components().empty()) // a pattern has no alpha to change
        return colorWithCGColor(m_color);
    return colorWithCGColor(CGColorCreateCopyWithAlpha(m_color, alpha));
}

bool UIColor::getRed_green_blue_alpha(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const {
    if (!m_color || m_color->components().empty())
        return false;
    const RGBAColor color = m_color->rgba();
    store(red, color.red);
    store(green, color.green);
    store(blue, color.blue);
    store(alpha, color.alpha);
    return true;
}

bool UIColor::getWhite_alpha(CGFloat* white, CGFloat* alpha) const {
    RGBAColor color;
    if (!getRed_green_blue_alpha(&color.red, &color.green, &color.blue, &color.alpha))
        return false;
    const bool isGray = CGColorSpaceGetModel(m_color->colorSpace()) == kCGColorSpaceModelMonochrome;
    // How bright red, green and blue light look.
    constexpr CGFloat kRed = CGFloat(0.299), kGreen = CGFloat(0.587), kBlue = CGFloat(0.114);
    store(white, isGray ? color.red : kRed * color.red + kGreen * color.green + kBlue * color.blue);
    store(alpha, color.alpha);
    return true;
}

bool UIColor::isEqual(const NSObject* other) const {
    const auto* color = dynamic_cast<const UIColor*>(other);
    return color && CGColorEqualToColor(m_color, color->m_color);
}

void UIColor::set() const {
    setFill();
    setStroke();
}

void UIColor::setFill() const { CGContextSetFillColorWithColor(UIGraphicsGetCurrentContext(), m_color); }

void UIColor::setStroke() const { CGContextSetStrokeColorWithColor(UIGraphicsGetCurrentContext(), m_color); }

} // namespace zr
