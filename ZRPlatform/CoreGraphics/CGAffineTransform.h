#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#pragma GCC visibility push(default)
namespace zr {

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
    CGFloat a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;
    friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

/// Changes nothing.
inline constexpr CGAffineTransform CGAffineTransformIdentity{};

/// Of its six numbers; a shift in units; a factor for each axis.
CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty);
CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
/// Radians; positive turns the x axis towards the y axis.
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);
bool CGAffineTransformIsIdentity(CGAffineTransform t);
bool CGAffineTransformEqualToTransform(CGAffineTransform a, CGAffineTransform b);
/// The translation, scale or rotation happens first, then `t`.
CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty);
CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy);
CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle);
/// First `t1`, then `t2`.
CGAffineTransform CGAffineTransformConcat(CGAffineTransform t1, CGAffineTransform t2);
/// A transform that cannot be inverted is returned as it is.
CGAffineTransform CGAffineTransformInvert(CGAffineTransform t);
CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform t);
CGSize CGSizeApplyAffineTransform(CGSize size, CGAffineTransform t);
/// The box around the transformed corners.
CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t);

} // namespace zr
#pragma GCC visibility pop
