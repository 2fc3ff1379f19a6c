#pragma once

#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>

#include <optional>

#pragma GCC visibility push(default)
namespace zr {

/// A map of the plane z = 0 onto the screen, perspective included: (x, y, 1) times the matrix, divided by the third
/// number.
struct Homography {
    double xx = 1, xy = 0, xw = 0;
    double yx = 0, yy = 1, yw = 0;
    double tx = 0, ty = 0, tw = 1;

    /// What a transform does to the plane: its third row and column do not count.
    static Homography fromTransform(const CATransform3D& t) {
        return {t.m11, t.m12, t.m14, t.m21, t.m22, t.m24, t.m41, t.m42, t.m44};
    }

    friend bool operator==(const Homography&, const Homography&) = default;

    /// Without perspective.
    bool isAffine() const { return xw == 0 && yw == 0 && tw == 1; }
    /// Straight rectangles stay straight, the right way up.
    bool isScaleAndTranslation() const { return isAffine() && xy == 0 && yx == 0 && xx > 0 && yy > 0; }
    bool isFinite() const;

    /// Nothing for a point behind the eye.
    std::optional<CGPoint> apply(CGPoint point) const;
    /// The box around the mapped corners; `CGRectNull` when a corner lies behind the eye.
    CGRect boundingBox(CGRect rect) const;
    std::optional<Homography> inverse() const;
};

} // namespace zr
#pragma GCC visibility pop
