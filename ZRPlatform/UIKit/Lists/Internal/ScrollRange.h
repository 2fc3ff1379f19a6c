#pragma once

#include <ZRPlatform/UIKit/Views/UIGeometry.h>

namespace zr {

/// What a scroll view shows of what, in points.
struct ScrollGeometry {
    CGSize visible;
    CGSize content;
    UIEdgeInsets inset;
};

/// Where an offset can rest along one axis: from `first` to `last`, which is never less.
struct ScrollRange {
    CGFloat first = 0;
    CGFloat last = 0;

    CGFloat length() const { return last - first; }
    bool contains(CGFloat offset) const { return offset >= first && offset <= last; }
    CGFloat nearest(CGFloat offset) const;
    friend bool operator==(const ScrollRange&, const ScrollRange&) = default;
};

/// Visible sizes that are not finite leave nothing to scroll.
ScrollRange horizontalScrollRange(const ScrollGeometry& geometry);
ScrollRange verticalScrollRange(const ScrollGeometry& geometry);
/// The offset cut to both ranges.
CGPoint nearestRest(const ScrollGeometry& geometry, CGPoint offset);
/// The offset, as near to the present one as possible, at which `rect` shows.
CGPoint offsetShowing(const ScrollGeometry& geometry, CGPoint present, CGRect rect);

bool isFinite(CGPoint point);
bool isFinite(CGSize size);
bool isFinite(UIEdgeInsets insets);

} // namespace zr
