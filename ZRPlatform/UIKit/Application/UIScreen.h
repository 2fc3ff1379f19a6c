#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSObject.h>

#pragma GCC visibility push(default)
namespace zr {

/// The screen, as the device profile describes it.
class UIScreen : public NSObject {
public:
    /// The one of the device.
    static UIScreen* mainScreen();
    /// Points; origin (0, 0). Follows the orientation from system version 8 on.
    CGRect bounds() const;
    /// Pixels a point.
    CGFloat scale() const;
};

} // namespace zr
#pragma GCC visibility pop
