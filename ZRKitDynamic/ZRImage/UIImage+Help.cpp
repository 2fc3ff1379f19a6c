#include <ZRKitDynamic/ZRImage/UIImage+Help.h>

#include <ZRPlatform/Accelerate/Accelerate.h>
#include <ZRPlatform/CoreGraphics/CGDataProvider.h>
#include <ZRPlatform/CoreImage/CoreImage.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace zr {

namespace {

constexpr CGFloat kThumbnailSide = 200;
constexpr CGFloat kFuzzyScale = 0.4;
/// What is cut off around the blurred image, in points.
constexpr CGFloat kBlurredMargin = 150;
constexpr double kLargestBox = 40;
constexpr std::uint32_t kUsualBox = 20;

} // namespace

// Crops and sizes

Ref<UIImage> rectImage(const UIImage* image) {
    if (!image)
        return nullptr;
    const auto [width, height] = image->size();
    const CGFloat difference = (height - width) * 0.5;
    const CGFloat side = difference > 0 ? width : height;
    const CGFloat x = difference < 0 ? -difference : 0, y = difference > 0 ? difference : 0;
    return scaleToSize(subImageWithRect(image, CGRectMake(x, y, side, side)), {kThumbnailSide, kThumbnailSide});
}

Ref<UIImage> subImageWithRect(const UIImage* image, CGRect rect) {
    if (!image || !(rect.size.width > 0) || !(rect.size.height > 0))
        return nullptr;
    const CGRect part = CGRectIntersection(rect, {CGPointZero, image->size()});
    if (CGRectIsEmpty(part))
        return nullptr;
    const CGFloat scale = image->scale();
    const CGRect pixels =
        CGRectMake(part.origin.x * scale, part.origin.y * scale, part.size.width * scale, part.size.height * scale);
    const Ref<CGImage> bitmap = CGImageCreateWithImageInRect(image->CGImage(), pixels);
    return UIImage::imageWithCGImage_scale_orientation(bitmap, scale, image->imageOrientation());
}

Ref<UIImage> scaleToSize(const UIImage* image, CGSize size) {
    if (!image)
        return nullptr;
    UIGraphicsBeginImageContext(size);
    image->drawInRect({CGPointZero, size});
    Ref<UIImage> scaled = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return scaled;
}

Ref<UIImage> setFuzzyPhoto(const UIImage* image) {
    if (!image)
        return nullptr;
    const CGImageRef bitmap = image->CGImage();
    const CGFloat width = static_cast<CGFloat>(CGImageGetWidth(bitmap)) * kFuzzyScale;
    const CGFloat height = static_cast<CGFloat>(CGImageGetHeight(bitmap)) * kFuzzyScale;
    UIGraphicsBeginImageContext({width, height});
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, 0, height);
    CGContextScaleCTM(context, 1, -1);
    CGContextDrawImage(context, CGRectMake(0, 0, width, height), bitmap);
    CGContextRestoreGState(context);
    Ref<UIImage> reduced = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return reduced;
}

// Gaussian blur

Ref<UIImage> blurryImageWithBlurLevel_size(const UIImage* image, CGFloat blurLevel, CGSize size) {
    if (!image)
        return nullptr;
    const auto filter = CIFilter::filterWithName_keysAndValues(
        "CIGaussianBlur",
        {{kCIInputImageKey, CIImage::imageWithCGImage(image->CGImage())}, {kCIInputRadiusKey, blurLevel}});
    const Ref<CIImage> output = filter->outputImage();
    const auto context = CIContext::contextWithOptions({});
    const Ref<UIImage> blurred =
        UIImage::imageWithCGImage(output ? context->createCGImage_fromRect(output, output->extent()) : nullptr);
    if (size.width <= 0 || size.height <= 0)
        return blurred;
    const CGFloat side = (size.width < size.height ? size.height : size.width) + 2 * kBlurredMargin;
    // A wide part is not centred: so do the callers know it.
    const CGPoint origin{(size.height - size.width) * CGFloat(0.5) + kBlurredMargin, kBlurredMargin};
    return subImageWithRect(scaleToSize(blurred, {side, side}), {origin, size});
}

// Box blur

namespace {

/// Pixels a side, odd.
std::uint32_t boxSide(double blur) {
    const bool isInRange = blur >= 0 && blur <= 1;
    return (isInRange ? static_cast<std::uint32_t>(blur * kLargestBox) : kUsualBox) | 1;
}

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<void, Free>;

/// Three passes from `input` to `output`, by way of `input`.
void blurWithBox(const vImage_Buffer& input, const vImage_Buffer& output, std::uint32_t side) {
    const auto pass = [side](const vImage_Buffer& from, const vImage_Buffer& to) {
        return vImageBoxConvolve_ARGB8888(&from, &to, nullptr, 0, 0, side, side, nullptr, kvImageEdgeExtend);
    };
    vImage_Error error = pass(input, output);
    if (error == kvImageNoError)
        error = pass(output, input);
    if (error == kvImageNoError)
        error = pass(input, output);
    if (error != kvImageNoError)
        NSLog("error from convolution %ld", static_cast<long>(error));
}

/// The bitmap's pixels blurred, with its rows; null when there is not enough memory.
Memory blurredPixels(CGImageRef bitmap, std::uint32_t side) {
    const NSUInteger width = CGImageGetWidth(bitmap), height = CGImageGetHeight(bitmap);
    const NSUInteger rowBytes = CGImageGetBytesPerRow(bitmap);
    const Ref<CFData> copy = CGDataProviderCopyData(CGImageGetDataProvider(bitmap));
    Memory pixels(std::calloc(height, rowBytes)); // black, should the blur fail
    if (!pixels)
        NSLog("No pixelbuffer");
    blurWithBox({CFDataGetMutableBytePtr(copy), height, width, rowBytes}, {pixels.get(), height, width, rowBytes},
                side);
    return pixels;
}

/// What is laid over the picture.
struct Tint {
    CGColorRef color = nullptr;
    CGSize size;

    void draw(CGContextRef context) const {
        if (!color)
            return;
        CGContextSaveGState(context);
        CGContextSetFillColorWithColor(context, color);
        CGContextFillRect(context, {CGPointZero, size});
        CGContextRestoreGState(context);
    }
};

/// A context without transparency over pixels laid out like the bitmap's.
Ref<CGContext> opaqueContext(void* pixels, CGImageRef bitmap) {
    const NSUInteger width = CGImageGetWidth(bitmap), height = CGImageGetHeight(bitmap);
    // The blur treats all four channels alike, so there was no need to bring them into another order.
    const CGBitmapInfo order = CGImageGetBitmapInfo(bitmap) & kCGBitmapByteOrderMask;
    return CGBitmapContextCreate(pixels, width, height, 8, CGImageGetBytesPerRow(bitmap), CGColorSpaceCreateDeviceRGB(),
                                 order | kCGImageAlphaNoneSkipFirst);
}

/// Black under the tint, where there is no memory for more: of as few pixels as it takes to get the memory, a half a
/// side each time.
Ref<UIImage> blackImage(CGImageRef bitmap, const Tint& tint) {
    const NSUInteger width = CGImageGetWidth(bitmap), height = CGImageGetHeight(bitmap);
    for (NSUInteger pointsPerPixel = 1; pointsPerPixel < 2 * std::max(width, height); pointsPerPixel *= 2) {
        const auto pixelsFor = [&](NSUInteger points) { return (points + pointsPerPixel - 1) / pointsPerPixel; };
        const Ref<CGContext> context = CGBitmapContextCreateForLayer(pixelsFor(width), pixelsFor(height), true);
        if (!context)
            continue;
        const CGFloat scale = CGFloat(1) / static_cast<CGFloat>(pointsPerPixel);
        CGContextScaleCTM(context, scale, scale);
        tint.draw(context);
        // Taken, not copied: there may be no memory for a second one.
        return UIImage::imageWithCGImage_scale_orientation(CGBitmapContextTakeImage(context), scale,
                                                           UIImageOrientationUp);
    }
    return nullptr;
}

} // namespace

Ref<UIImage> zr_boxblurImageWithBlur_withTintColor(const UIImage* image, double blur, const UIColor* tintColor) {
    if (!image || !image->CGImage())
        return nullptr;
    const CGImageRef bitmap = image->CGImage();
    const Tint tint{tintColor ? tintColor->cgColor() : nullptr, image->size()}; // points taken for pixels
    const Memory pixels = blurredPixels(bitmap, boxSide(blur));
    if (!pixels)
        return blackImage(bitmap, tint);
    const Ref<CGContext> context = opaqueContext(pixels.get(), bitmap);
    tint.draw(context);
    return UIImage::imageWithCGImage(CGBitmapContextCreateImage(context));
}

} // namespace zr
