#include <Gallery/Look/Landscape.h>

#include <Gallery/Look/Look.h>
#include <ZRPlatform/CoreGraphics/CGGradient.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

namespace zr::gallery {

namespace {

/// Heights are parts of the picture's: of the ridge at the left edge, in the middle, and at the right edge.
struct Hill {
    CGFloat left, middle, right;
    CGFloat red, green, blue;
};
constexpr Hill kHills[] = {
    {0.50, 0.72, 0.34, 0.52, 0.73, 0.80},
    {0.22, 0.34, 0.56, 0.33, 0.66, 0.58},
    {0.36, 0.14, 0.24, 0.16, 0.55, 0.35},
};

void drawSky(CGContext* context, CGSize size) {
    const CGFloat components[] = {0.33, 0.63, 0.90, 1, 0.96, 0.91, 0.82, 1};
    const auto space = CGColorSpaceCreateDeviceRGB();
    const auto gradient = CGGradientCreateWithColorComponents(space, components, nullptr, 2);
    CGContextDrawLinearGradient(context, gradient, CGPointZero, CGPointMake(0, size.height),
                                kCGGradientDrawsAfterEndLocation);
}

void drawSun(CGContext* context, CGSize size) {
    const CGFloat radius = size.height * 0.09;
    CGContextSetRGBFillColor(context, 1, 0.95, 0.72, 1);
    CGContextFillEllipseInRect(
        context, CGRectMake(size.width * 0.78 - radius, size.height * 0.24 - radius, 2 * radius, 2 * radius));
}

void drawHill(CGContext* context, CGSize size, const Hill& hill) {
    const auto y = [&](CGFloat part) { return size.height * (1 - part); };
    CGContextSetRGBFillColor(context, hill.red, hill.green, hill.blue, 1);
    CGContextMoveToPoint(context, 0, size.height);
    CGContextAddLineToPoint(context, 0, y(hill.left));
    CGContextAddCurveToPoint(context, size.width * 0.3, y(hill.middle), size.width * 0.6, y(hill.middle), size.width,
                             y(hill.right));
    CGContextAddLineToPoint(context, size.width, size.height);
    CGContextClosePath(context);
    CGContextFillPath(context);
}

void drawLandscape(CGContext* context, CGSize size) {
    drawSky(context, size);
    drawSun(context, size);
    for (const Hill& hill : kHills)
        drawHill(context, size, hill);
}

} // namespace

bool Landscape::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setClipsToBounds(true);
    setContentMode(UIViewContentModeRedraw);
    layer()->setCornerRadius(Look::kCornerRadius);
    return true;
}

void Landscape::drawRect(CGRect) { drawLandscape(UIGraphicsGetCurrentContext(), bounds().size); }

Ref<UIImage> Landscape::image(CGSize size, CGFloat scale) {
    UIGraphicsBeginImageContextWithOptions(size, true, scale);
    drawLandscape(UIGraphicsGetCurrentContext(), size);
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

} // namespace zr::gallery
