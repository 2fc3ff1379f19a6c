#pragma once

#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>

#pragma GCC visibility push(default)
namespace zr {

/// A 4 x 4 transform of row vectors: [x y z 1] times the matrix. m41, m42, m43 translate; m34 is the perspective.
struct CATransform3D {
    /// What x adds to each of the four results.
    CGFloat m11 = 1, m12 = 0, m13 = 0, m14 = 0;
    /// What y adds to each of them.
    CGFloat m21 = 0, m22 = 1, m23 = 0, m24 = 0;
    /// What z adds to each of them.
    CGFloat m31 = 0, m32 = 0, m33 = 1, m34 = 0;
    /// What is added to each of them whatever the point.
    CGFloat m41 = 0, m42 = 0, m43 = 0, m44 = 1;
    friend bool operator==(const CATransform3D&, const CATransform3D&) = default;
};

/// Changes nothing.
inline constexpr CATransform3D CATransform3DIdentity{};

/// Whether it changes nothing: number by number, exactly.
bool CATransform3DIsIdentity(const CATransform3D& t);
/// Number by number, exactly.
bool CATransform3DEqualToTransform(const CATransform3D& a, const CATransform3D& b);
/// A shift in points.
CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz);
/// A factor for each axis.
CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz);
/// A turn about the axis (x, y, z), in radians; the identity when the axis has no length.
CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z);
/// The shift happens first, then `t`.
CATransform3D CATransform3DTranslate(const CATransform3D& t, CGFloat tx, CGFloat ty, CGFloat tz);
/// The scaling happens first, then `t`.
CATransform3D CATransform3DScale(const CATransform3D& t, CGFloat sx, CGFloat sy, CGFloat sz);
/// The turn happens first, then `t`.
CATransform3D CATransform3DRotate(const CATransform3D& t, CGFloat angle, CGFloat x, CGFloat y, CGFloat z);
/// First `a`, then `b`.
CATransform3D CATransform3DConcat(const CATransform3D& a, const CATransform3D& b);
/// What takes points back to where they were. A transform that cannot be inverted is returned as it is.
CATransform3D CATransform3DInvert(const CATransform3D& t);
/// The same in the plane z = 0, without perspective.
CATransform3D CATransform3DMakeAffineTransform(const CGAffineTransform& t);
/// Whether it maps the plane z = 0 onto itself, without perspective, and leaves z alone.
bool CATransform3DIsAffine(const CATransform3D& t);
/// The two-dimensional part; the identity when `t` is not affine.
CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& t);

/// A transform taken apart: scale, then shear, then rotation, then translation, then perspective.
struct TransformParts {
    /// A factor for each axis.
    CGFloat scale[3] = {1, 1, 1};
    /// Of y along x, of z along x, and of z along y.
    CGFloat shear[3] = {0, 0, 0};
    /// The rotation: x, y, z and w.
    CGFloat quaternion[4] = {0, 0, 0, 1};
    /// In points.
    CGFloat translation[3] = {0, 0, 0};
    /// What is left of the matrix's last column; (0, 0, 0, 1) is no perspective.
    CGFloat perspective[4] = {0, 0, 0, 1};
};

/// Takes a transform apart. False when `t` is singular; `parts` is then left alone.
bool decomposeTransform(const CATransform3D& t, TransformParts& parts);
/// The transform of these parts.
CATransform3D composeTransform(const TransformParts& parts);
/// The transform a fraction `t` of the way: parts are interpolated, rotations along the shorter arc. Singular ends are
/// interpolated number by number.
CATransform3D interpolateTransforms(const CATransform3D& from, const CATransform3D& to, CGFloat t);

} // namespace zr
#pragma GCC visibility pop
