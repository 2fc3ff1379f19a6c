#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSTypes.h>

#pragma GCC visibility push(default)
namespace zr {

/// Distances from the four edges of a rectangle, in points; positive ones go inwards.
struct UIEdgeInsets {
    /// In points; a negative one goes outwards.
    CGFloat top = 0, left = 0, bottom = 0, right = 0;
    friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

/// Edges, to be added up.
enum UIRectEdge : NSUInteger {
    UIRectEdgeNone = 0,
    UIRectEdgeTop = 1,
    UIRectEdgeLeft = 2,
    UIRectEdgeBottom = 4,
    UIRectEdgeRight = 8,
    UIRectEdgeAll = 15,
};

/// All four are 0.
inline constexpr UIEdgeInsets UIEdgeInsetsZero{};

/// The four distances, counter-clockwise from the top.
inline constexpr UIEdgeInsets UIEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    return {top, left, bottom, right};
}
/// The rectangle inside the insets. Insets that overlap give negative sizes, as they are.
inline constexpr CGRect UIEdgeInsetsInsetRect(CGRect rect, UIEdgeInsets insets) {
    return {{rect.origin.x + insets.left, rect.origin.y + insets.top},
            {rect.size.width - (insets.left + insets.right), rect.size.height - (insets.top + insets.bottom)}};
}

} // namespace zr
#pragma GCC visibility pop
