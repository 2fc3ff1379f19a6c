#include <Gallery/Icons/Pen.h>

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zr::icons {

Pen::Pen(double width, double height, int scale) : m_width(width), m_height(height), m_scale(scale) {
    const auto pixelWidth = static_cast<NSUInteger>(width * scale);
    const auto pixelHeight = static_cast<NSUInteger>(height * scale);
    m_context = CGBitmapContextCreateForLayer(pixelWidth, pixelHeight, false);
    CGContextTranslateCTM(m_context, 0, static_cast<CGFloat>(pixelHeight));
    CGContextScaleCTM(m_context, scale, -scale);
}

double Pen::wholePixels(double points) const { return std::max(1.0, std::round(points * m_scale)) / m_scale; }

void Pen::setFill(Ink ink) {
    CGContextSetRGBFillColor(m_context, ink.red / 255.0, ink.green / 255.0, ink.blue / 255.0, ink.alpha);
}

void Pen::setStroke(Ink ink, double lineWidth) {
    CGContextSetRGBStrokeColor(m_context, ink.red / 255.0, ink.green / 255.0, ink.blue / 255.0, ink.alpha);
    CGContextSetLineWidth(m_context, lineWidth);
    CGContextSetLineCap(m_context, kCGLineCapRound);
    CGContextSetLineJoin(m_context, kCGLineJoinRound);
}

void Pen::addRounded(CGRect rect, double radius) {
    CGContextAddPath(m_context, CGPathCreateWithRoundedRect(rect, radius, radius, nullptr));
}

void Pen::fillRounded(CGRect rect, double radius, Ink ink) {
    setFill(ink);
    addRounded(rect, radius);
    CGContextFillPath(m_context);
}

void Pen::fillRoundedGradient(CGRect rect, double radius, Ink top, Ink bottom) {
    const CGFloat components[] = {top.red / 255.0,    top.green / 255.0,    top.blue / 255.0,    top.alpha,
                                  bottom.red / 255.0, bottom.green / 255.0, bottom.blue / 255.0, bottom.alpha};
    const auto space = CGColorSpaceCreateDeviceRGB();
    const auto gradient = CGGradientCreateWithColorComponents(space, components, nullptr, 2);
    CGContextSaveGState(m_context);
    addRounded(rect, radius);
    CGContextClip(m_context);
    CGContextDrawLinearGradient(m_context, gradient, {0, CGRectGetMinY(rect)}, {0, CGRectGetMaxY(rect)}, 0);
    CGContextRestoreGState(m_context);
}

void Pen::strokeRounded(CGRect rect, double radius, double lineWidth, Ink ink) {
    const double width = wholePixels(lineWidth);
    setStroke(ink, width);
    addRounded(CGRectInset(rect, width / 2, width / 2), std::max(0.0, radius - width / 2));
    CGContextStrokePath(m_context);
}

void Pen::fillCircle(CGPoint center, double radius, Ink ink) {
    setFill(ink);
    CGContextFillEllipseInRect(m_context, CGRectMake(center.x - radius, center.y - radius, 2 * radius, 2 * radius));
}

void Pen::strokeLines(const std::vector<CGPoint>& points, double lineWidth, Ink ink) {
    setStroke(ink, lineWidth);
    CGContextAddLines(m_context, points.data(), points.size());
    CGContextStrokePath(m_context);
}

void Pen::fillPolygon(const std::vector<CGPoint>& points, Ink ink) {
    setFill(ink);
    CGContextAddLines(m_context, points.data(), points.size());
    CGContextClosePath(m_context);
    CGContextFillPath(m_context);
}

void Pen::strokeArc(CGPoint center, double radius, double fromDegrees, double toDegrees, double lineWidth, Ink ink) {
    setStroke(ink, lineWidth);
    const double radians = std::numbers::pi / 180;
    // With y downwards, growing angles go clockwise as seen.
    CGContextAddArc(m_context, center.x, center.y, radius, fromDegrees * radians, toDegrees * radians, 0);
    CGContextStrokePath(m_context);
}

void Pen::strokeCurve(const std::vector<CGPoint>& points, double lineWidth, Ink ink) {
    setStroke(ink, lineWidth);
    CGContextMoveToPoint(m_context, points[0].x, points[0].y);
    for (std::size_t i = 1; i + 2 < points.size(); i += 3)
        CGContextAddCurveToPoint(m_context, points[i].x, points[i].y, points[i + 1].x, points[i + 1].y, points[i + 2].x,
                                 points[i + 2].y);
    CGContextStrokePath(m_context);
}

Ref<CGImage> Pen::image() const { return CGBitmapContextCreateImage(m_context); }

} // namespace zr::icons
