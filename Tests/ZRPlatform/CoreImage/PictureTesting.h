#pragma once

#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>
#include <Tests/ZRPlatform/CoreGraphics/GeometryPrinting.h>
#include <ZRPlatform/CoreImage/CoreImage.h>

namespace zr {

/// 2 x 2 pixels: red, green; blue, black.
inline Ref<CGImage> quarters() { return imageOf(2, 2, {kRed, kGreen, kBlue, kBlack}); }

inline Ref<CGImage> plain(NSUInteger width, NSUInteger height, Pixel color) {
    return imageOf(width, height, std::vector<Pixel>(width * height, color));
}

inline Ref<CGImage> drawn(const CIImage* image, CGRect rect) {
    return CIContext::contextWithOptions({})->createCGImage_fromRect(image, rect);
}

inline Ref<CGImage> drawn(const CIImage* image) { return drawn(image, image->extent()); }

inline Ref<CIImage> blurred(CIImage* image, double radius) {
    return CIFilter::filterWithName_keysAndValues("CIGaussianBlur",
                                                  {{kCIInputImageKey, image}, {kCIInputRadiusKey, radius}})
        ->outputImage();
}

inline Ref<CIImage> blurred(CGImageRef image, double radius) {
    return blurred(CIImage::imageWithCGImage(image), radius);
}

} // namespace zr
