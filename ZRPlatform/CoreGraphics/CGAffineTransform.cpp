#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>

#include <algorithm>

namespace zr {

CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty) {
    return {a, b, c, d, tx, ty};
}

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) { return {1, 0, 0, 1, tx, ty}; }

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) { return {sx, 0, 0, sy, 0, 0}; }

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
    const CGFloat sine = std::sin(angle);
    const CGFloat cosine = std::cos(angle);
    return {cosine, sine, -sine, cosine, 0, 0};
}

bool CGAffineTransformIsIdentity(CGAffineTransform t) { return t == CGAffineTransformIdentity; }

bool CGAffineTransformEqualToTransform(CGAffineTransform a, CGAffineTransform b) { return a == b; }

CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty) {
    return CGAffineTransformConcat(CGAffineTransformMakeTranslation(tx, ty), t);
}

CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy) {
    return CGAffineTransformConcat(CGAffineTransformMakeScale(sx, sy), t);
}

CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle) {
    return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), t);
}

CGAffineTransform CGAffineTransformConcat(CGAffineTransform t1, CGAffineTransform t2) {
    return {t1.a * t2.a + t1.b * t2.c, t1.a * t2.b + t1.b * t2.d,           t1.c * t2.a + t1.d * t2.c,
            t1.c * t2.b + t1.d * t2.d, t1.tx * t2.a + t1.ty * t2.c + t2.tx, t1.tx * t2.b + t1.ty * t2.d + t2.ty};
}

CGAffineTransform CGAffineTransformInvert(CGAffineTransform t) {
    const CGFloat determinant = t.a * t.d - t.b * t.c;
    if (!std::isfinite(determinant) || !std::isfinite(1 / determinant))
        return t;
    return {t.d / determinant,
            -t.b / determinant,
            -t.c / determinant,
            t.a / determinant,
            (t.c * t.ty - t.d * t.tx) / determinant,
            (t.b * t.tx - t.a * t.ty) / determinant};
}

CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform t) {
    return {t.a * point.x + t.c * point.y + t.tx, t.b * point.x + t.d * point.y + t.ty};
}

CGSize CGSizeApplyAffineTransform(CGSize size, CGAffineTransform t) {
    return {t.a * size.width + t.c * size.height, t.b * size.width + t.d * size.height};
}

CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform t) {
    if (CGRectIsNull(rect))
        return CGRectNull;
    const CGPoint corners[] = {
        CGPointApplyAffineTransform({CGRectGetMinX(rect), CGRectGetMinY(rect)}, t),
        CGPointApplyAffineTransform({CGRectGetMaxX(rect), CGRectGetMinY(rect)}, t),
        CGPointApplyAffineTransform({CGRectGetMaxX(rect), CGRectGetMaxY(rect)}, t),
        CGPointApplyAffineTransform({CGRectGetMinX(rect), CGRectGetMaxY(rect)}, t),
    };
    CGPoint low = corners[0];
    CGPoint high = corners[0];
    for (const CGPoint corner : corners) {
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    return CGRectMake(low.x, low.y, high.x - low.x, high.y - low.y);
}

} // namespace zr
