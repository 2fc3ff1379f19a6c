#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#pragma GCC visibility push(default)
namespace zr {

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
    /// The numbers of x' = a x + c y + tx and y' = b x + d y + ty; those of the identity at first.
    CGFloat a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;
    friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

/// Changes nothing.
inline constexpr CGAffineTransform CGAffineTransformIdentity{};

/// A transform of its six numbers.
CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty);
/// A shift, in units.
CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
/// A factor for each axis.
CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
/// A turn about the origin, in radians; positive turns the x axis towards the y axis.
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);
/// Whether it changes nothing: number by number, exactly.
bool CGAffineTransformIsIdentity(CGAffineTransform t);
/// Number by number, exactly.
bool CGAffineTransformEqualToTransform(CGAffineTransform a, CGAffineTransform b);
/// The shift happens first, then `t`.
CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty);
/// The scaling happens first, then `t`.
CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy);
/// The turn (radians) happens first, then `t`.
CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle);
/// First `t1`, then `t2`.
CGAffineTransform CGAffineTransformConcat(CGAffineTransform t1, CGAffineTransform t2);
/// What takes points back to where they were. A transform that cannot be inverted is returned as it is.
CGAffineTransform CGAffineTransformInvert(CGAffineTransform t);
/// Where the point goes.
CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform t);
/// What becomes of a distance: without the shift.
CGSize CGSizeApplyAffineTransform(CGSize size, CGAffineTransform t);
/// The box around the transformed corners.
CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t);

} // namespace zr
#pragma GCC visibility pop
