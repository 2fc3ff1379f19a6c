#include <ZRPlatform/UIKit/Views/Internal/ViewDrawing.h>

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/QuartzCore/Layers/LayerValues.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

namespace zr {

namespace {

/// Pixels of the largest bitmap a view may have: 256 MB.
constexpr double kMaximalPixels = 64.0 * 1024 * 1024;

} // namespace

Ref<CGImage> drawIntoBitmap(CGRect bounds, CGFloat scale, const std::function<void(CGRect)>& draw) {
    const double width = bitmapLength(bounds.size.width, scale);
    const double height = bitmapLength(bounds.size.height, scale);
    if (!CGRectIsFinite(bounds) || !(width >= 1) || !(height >= 1) || width * height > kMaximalPixels)
        return nullptr;
    const Ref<CGContext> context = CGBitmapContextCreateForLayer(std::size_t(width), std::size_t(height), false);
    if (!context)
        return nullptr;
    CGContextTranslateCTM(context, 0, height);
    CGContextScaleCTM(context, scale, -scale);
    CGContextSetBaseCTM(context, CGContextGetCTM(context));
    CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
    UIGraphicsPushContext(context);
    draw(bounds);
    UIGraphicsPopContext();
    return CGBitmapContextTakeImage(context);
}

} // namespace zr
