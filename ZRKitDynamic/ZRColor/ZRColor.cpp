#include <ZRKitDynamic/ZRColor/ZRColor.h>

#include <ZRKitDynamic/ZRImage/ZRImage.h>
#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>

#include <algorithm>

namespace zr {

Ref<UIColor> ZRColor::zrColorWithRed_green_blue_alpha(std::int32_t red, std::int32_t green, std::int32_t blue,
                                                      CGFloat alpha) {
    return UIColor::colorWithRed_green_blue_alpha(static_cast<CGFloat>(red / 255.0),
                                                  static_cast<CGFloat>(green / 255.0),
                                                  static_cast<CGFloat>(blue / 255.0), alpha);
}

void ZRColor::getRGBComponents_forColor(std::int32_t components[3], UIColor* color) {
    if (!components)
        return;
    alignas(4) std::uint8_t pixel[4] = {};
    if (color) {
        const Ref<CGColorSpace> space = CGColorSpaceCreateDeviceRGB();
        const Ref<CGContext> context = CGBitmapContextCreate(pixel, 1, 1, 8, 4, space, kCGImageAlphaNoneSkipLast);
        CGContextSetFillColorWithColor(context, color->cgColor());
        CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    }
    std::copy_n(pixel, 3, components);
}

Ref<UIColor> ZRColor::shadowColorFromColors_size(const std::vector<Ref<UIColor>>& colors, CGSize size) {
    return UIColor::colorWithPatternImage(ZRImage::shadowImageFromColors_size(colors, size));
}

} // namespace zr
