#include <ZRPlatform/CoreGraphics/CGGeometry.h>

namespace zr {

namespace {

CGRect rectBetween(CGFloat minX, CGFloat minY, CGFloat maxX, CGFloat maxY) {
    return CGRectMake(minX, minY, maxX - minX, maxY - minY);
}

bool hasNaN(CGRect rect) {
    return std::isnan(rect.origin.x) || std::isnan(rect.origin.y) || std::isnan(rect.size.width) ||
           std::isnan(rect.size.height);
}

} // namespace

CGRect CGRectStandardize(CGRect rect) {
    return CGRectMake(CGRectGetMinX(rect), CGRectGetMinY(rect), CGRectGetWidth(rect), CGRectGetHeight(rect));
}

bool CGRectIsNull(CGRect rect) {
    constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    return rect.origin.x == infinity || rect.origin.y == infinity;
}

bool CGRectIsEmpty(CGRect rect) {
    return CGRectIsNull(rect) || !(CGRectGetWidth(rect) > 0) || !(CGRectGetHeight(rect) > 0);
}

bool CGRectIsFinite(CGRect rect) {
    return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
           std::isfinite(rect.size.height);
}

bool CGRectEqualToRect(CGRect a, CGRect b) { return CGRectStandardize(a) == CGRectStandardize(b); }

CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(rect))
        return CGRectNull;
    const CGRect whole = CGRectStandardize(rect);
    const CGRect inset =
        CGRectMake(whole.origin.x + dx, whole.origin.y + dy, whole.size.width - 2 * dx, whole.size.height - 2 * dy);
    return inset.size.width < 0 || inset.size.height < 0 ? CGRectNull : inset;
}

CGRect CGRectOffset(CGRect rect, CGFloat dx, CGFloat dy) {
    if (CGRectIsNull(rect))
        return CGRectNull;
    CGRect moved = CGRectStandardize(rect);
    moved.origin.x += dx;
    moved.origin.y += dy;
    return moved;
}

CGRect CGRectIntegral(CGRect rect) {
    if (CGRectIsNull(rect))
        return CGRectNull;
    return rectBetween(std::floor(CGRectGetMinX(rect)), std::floor(CGRectGetMinY(rect)), std::ceil(CGRectGetMaxX(rect)),
                       std::ceil(CGRectGetMaxY(rect)));
}

CGRect CGRectUnion(CGRect a, CGRect b) {
    if (CGRectIsNull(a))
        return b;
    if (CGRectIsNull(b))
        return a;
    return rectBetween(std::fmin(CGRectGetMinX(a), CGRectGetMinX(b)), std::fmin(CGRectGetMinY(a), CGRectGetMinY(b)),
                       std::fmax(CGRectGetMaxX(a), CGRectGetMaxX(b)), std::fmax(CGRectGetMaxY(a), CGRectGetMaxY(b)));
}

CGRect CGRectIntersection(CGRect a, CGRect b) {
    if (CGRectIsNull(a) || CGRectIsNull(b) || hasNaN(a) || hasNaN(b))
        return CGRectNull;
    const CGFloat minX = std::fmax(CGRectGetMinX(a), CGRectGetMinX(b));
    const CGFloat minY = std::fmax(CGRectGetMinY(a), CGRectGetMinY(b));
    const CGFloat maxX = std::fmin(CGRectGetMaxX(a), CGRectGetMaxX(b));
    const CGFloat maxY = std::fmin(CGRectGetMaxY(a), CGRectGetMaxY(b));
    return minX <= maxX && minY <= maxY ? rectBetween(minX, minY, maxX, maxY) : CGRectNull;
}

bool CGRectIntersectsRect(CGRect a, CGRect b) {
    if (CGRectIsNull(a) || CGRectIsNull(b) || hasNaN(a) || hasNaN(b))
        return false;
    return CGRectGetMinX(a) < CGRectGetMaxX(b) && CGRectGetMinX(b) < CGRectGetMaxX(a) &&
           CGRectGetMinY(a) < CGRectGetMaxY(b) && CGRectGetMinY(b) < CGRectGetMaxY(a);
}

bool CGRectContainsPoint(CGRect rect, CGPoint point) {
    return !CGRectIsNull(rect) && point.x >= CGRectGetMinX(rect) && point.x < CGRectGetMaxX(rect) &&
           point.y >= CGRectGetMinY(rect) && point.y < CGRectGetMaxY(rect);
}

bool CGRectContainsRect(CGRect outer, CGRect inner) {
    if (CGRectIsNull(outer) || CGRectIsNull(inner) || hasNaN(outer) || hasNaN(inner))
        return false;
    return CGRectGetMinX(outer) <= CGRectGetMinX(inner) && CGRectGetMaxX(inner) <= CGRectGetMaxX(outer) &&
           CGRectGetMinY(outer) <= CGRectGetMinY(inner) && CGRectGetMaxY(inner) <= CGRectGetMaxY(outer);
}

} // namespace zr
