#pragma once

#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>

#include <optional>

#pragma GCC visibility push(default)
namespace zr {

/// A map of the plane z = 0 onto the screen, perspective included: (x, y, 1) times the matrix, divided by the third
/// number.
struct Homography {
    /// How much of x goes into the results x, y and the divisor w.
    double xx = 1, xy = 0, xw = 0;
    /// How much of y goes into each of them.
    double yx = 0, yy = 1, yw = 0;
    /// What is added to each of them whatever the point.
    double tx = 0, ty = 0, tw = 1;

    /// What a transform does to the plane: its third row and column do not count.
    static Homography fromTransform(const CATransform3D& t) {
        return {t.m11, t.m12, t.m14, t.m21, t.m22, t.m24, t.m41, t.m42, t.m44};
    }

    friend bool operator==(const Homography&, const Homography&) = default;

    /// Whether it has no perspective.
    bool isAffine() const { return xw == 0 && yw == 0 && tw == 1; }
    /// Whether straight rectangles stay straight, the right way up.
    bool isScaleAndTranslation() const { return isAffine() && xy == 0 && yx == 0 && xx > 0 && yy > 0; }
    /// Whether every number is.
    bool isFinite() const;

    /// Where the point goes; nothing for a point behind the eye.
    std::optional<CGPoint> apply(CGPoint point) const;
    /// The box around the mapped corners; `CGRectNull` when a corner lies behind the eye.
    CGRect boundingBox(CGRect rect) const;
    /// What takes points back; nothing when there is no such map.
    std::optional<Homography> inverse() const;
};

} // namespace zr
#pragma GCC visibility pop
