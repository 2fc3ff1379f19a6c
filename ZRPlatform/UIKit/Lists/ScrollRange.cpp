#include <ZRPlatform/UIKit/Lists/Internal/ScrollRange.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

ScrollRange rangeOf(CGFloat visible, CGFloat content, CGFloat before, CGFloat after) {
    const CGFloat first = -before;
    const CGFloat last = content + after - visible;
    return {first, std::isfinite(last) ? std::max(first, last) : first};
}

/// Along one axis, the offset nearest to `present` at which the span shows, or as much of it as there is room for.
CGFloat offsetShowing(CGFloat present, CGFloat visible, CGFloat start, CGFloat length) {
    const CGFloat end = start + length - visible;
    return std::clamp(present, std::min(start, end), std::max(start, end));
}

} // namespace

CGFloat ScrollRange::nearest(CGFloat offset) const { return std::clamp(offset, first, last); }

ScrollRange horizontalScrollRange(const ScrollGeometry& geometry) {
    return rangeOf(geometry.visible.width, geometry.content.width, geometry.inset.left, geometry.inset.right);
}

ScrollRange verticalScrollRange(const ScrollGeometry& geometry) {
    return rangeOf(geometry.visible.height, geometry.content.height, geometry.inset.top, geometry.inset.bottom);
}

CGPoint nearestRest(const ScrollGeometry& geometry, CGPoint offset) {
    return {horizontalScrollRange(geometry).nearest(offset.x), verticalScrollRange(geometry).nearest(offset.y)};
}

CGPoint offsetShowing(const ScrollGeometry& geometry, CGPoint present, CGRect rect) {
    rect = CGRectStandardize(rect);
    return nearestRest(geometry, {offsetShowing(present.x, geometry.visible.width, rect.origin.x, rect.size.width),
                                  offsetShowing(present.y, geometry.visible.height, rect.origin.y, rect.size.height)});
}

bool isFinite(CGPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }
bool isFinite(CGSize size) { return std::isfinite(size.width) && std::isfinite(size.height); }

bool isFinite(UIEdgeInsets insets) {
    return std::isfinite(insets.top) && std::isfinite(insets.left) && std::isfinite(insets.bottom) &&
           std::isfinite(insets.right);
}

} // namespace zr
