#include <ZRPlatform/CoreGraphics/CGContext.h>

namespace zr {

namespace {

/// Runs `add` with the path and the transform that takes it to device space.
template <class Add>
void addToPath(CGContextRef context, Add add) {
    if (context)
        add(&context->path(), &context->state().ctm);
}

} // namespace

void CGContextBeginPath(CGContextRef context) {
    if (context)
        context->path().clear();
}

void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathMoveToPoint(path, ctm, x, y); });
}

void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddLineToPoint(path, ctm, x, y); });
}

void CGContextAddLines(CGContextRef context, const CGPoint* points, NSUInteger count) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddLines(path, ctm, points, count); });
}

void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddQuadCurveToPoint(path, ctm, cpx, cpy, x, y); });
}

void CGContextAddCurveToPoint(CGContextRef context, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y, CGFloat x,
                              CGFloat y) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddCurveToPoint(path, ctm, cp1x, cp1y, cp2x, cp2y, x, y); });
}

void CGContextAddRect(CGContextRef context, CGRect rect) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddRect(path, ctm, rect); });
}

void CGContextAddEllipseInRect(CGContextRef context, CGRect rect) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddEllipseInRect(path, ctm, rect); });
}

void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise) {
    addToPath(context, [&](auto* path, auto* ctm) {
        CGPathAddArc(path, ctm, x, y, radius, startAngle, endAngle, clockwise != 0);
    });
}

void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddArcToPoint(path, ctm, x1, y1, x2, y2, radius); });
}

void CGContextAddPath(CGContextRef context, CGPathRef added) {
    addToPath(context, [&](auto* path, auto* ctm) { CGPathAddPath(path, ctm, added); });
}

void CGContextClosePath(CGContextRef context) {
    addToPath(context, [](auto* path, auto*) { CGPathCloseSubpath(path); });
}

bool CGContextIsPathEmpty(CGContextRef context) { return !context || context->path().elements().empty(); }

CGPoint CGContextGetPathCurrentPoint(CGContextRef context) {
    if (CGContextIsPathEmpty(context))
        return CGPointZero;
    return CGPointApplyAffineTransform(context->path().currentPoint(), CGAffineTransformInvert(context->state().ctm));
}

} // namespace zr
