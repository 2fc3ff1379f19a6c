#pragma once

#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>

namespace zr {

/// The eye's distance of 900 points, as a transform's m34. Computed in the precision that transforms have, so that it
/// is the same number wherever it is computed.
template <class Float>
inline constexpr Float kTiltPerspective = Float(-1) / Float(900);

/// Tilted back by 15 degrees about the horizontal axis at 0.95 of its size, seen in perspective.
CATransform3D tiltedTransform();
/// 40 points higher and scaled, facing the eye, in the perspective of `tiltedTransform`.
CATransform3D recededTransform(CGFloat scale);

} // namespace zr
