#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/Foundation/Ref.h>

#include <functional>

namespace zr {

/// Runs `draw` with a current graphics context that covers `bounds` at `scale` pixels a point, and gives the picture.
/// Nil when the bounds are empty, not finite, or too large to be on any screen.
Ref<CGImage> drawIntoBitmap(CGRect bounds, CGFloat scale, const std::function<void(CGRect)>& draw);

} // namespace zr
