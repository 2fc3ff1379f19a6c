#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#include <vector>

namespace zr {

class UIView;
class UIWindow;

/// Scrolls the first scroll view, from the view upwards, that has something to scroll in the direction of the larger
/// coordinate; false when there is none. `delta`, in points, is added to the content offset.
bool turnWheelOver(UIView* view, CGPoint delta);

/// The tap of the status bar: scrolls the one scroll view that shows in the windows and wants it; does nothing when
/// there are more.
void scrollToTopInWindows(const std::vector<UIWindow*>& windows);

} // namespace zr
