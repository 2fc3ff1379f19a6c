#include <ZRKitDynamic/ZRImage/ZRImage.h>

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

namespace zr {

Ref<UIImage> ZRImage::shadowImageFromColors_size(const std::vector<Ref<UIColor>>& colors, CGSize size) {
    std::vector<Ref<CGColor>> stops;
    for (const Ref<UIColor>& color : colors) {
        if (color && color->cgColor())
            stops.push_back(color->cgColor());
    }
    if (stops.empty())
        return nullptr;

    UIGraphicsBeginImageContextWithOptions(size, true, 1);
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    const Ref<CGColorSpace> space = CGColorGetColorSpace(stops.back());
    const Ref<CGGradient> gradient = CGGradientCreateWithColors(space, stops, nullptr);
    CGContextDrawLinearGradient(context, gradient, CGPointZero, CGPointMake(0, size.height),
                                kCGGradientDrawsBeforeStartLocation | kCGGradientDrawsAfterEndLocation);
    Ref<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
    CGContextRestoreGState(context);
    UIGraphicsEndImageContext();
    return image;
}

} // namespace zr
