#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

namespace zr {

/// Distances from the four edges of a rectangle, in points; positive ones go inwards.
struct UIEdgeInsets {
    CGFloat top = 0, left = 0, bottom = 0, right = 0;
    friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

inline constexpr UIEdgeInsets UIEdgeInsetsZero{};

inline constexpr UIEdgeInsets UIEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    return {top, left, bottom, right};
}
/// The rectangle inside the insets. Insets that overlap give negative sizes, as they are.
inline constexpr CGRect UIEdgeInsetsInsetRect(CGRect rect, UIEdgeInsets insets) {
    return {{rect.origin.x + insets.left, rect.origin.y + insets.top},
            {rect.size.width - (insets.left + insets.right), rect.size.height - (insets.top + insets.bottom)}};
}

} // namespace zr
