#include <ZRPlatform/QuartzCore/Layers/Homography.h>

#include <algorithm>
#include <cmath>

namespace zr {

bool Homography::isFinite() const {
    for (double number : {xx, xy, xw, yx, yy, yw, tx, ty, tw}) {
        if (!std::isfinite(number))
            return false;
    }
    return true;
}

std::optional<CGPoint> Homography::apply(CGPoint point) const {
    const double w = point.x * xw + point.y * yw + tw;
    if (!(w > 1e-9))
        return std::nullopt;
    return CGPoint{CGFloat((point.x * xx + point.y * yx + tx) / w), CGFloat((point.x * xy + point.y * yy + ty) / w)};
}

CGRect Homography::boundingBox(CGRect rect) const {
    const CGFloat left = CGRectGetMinX(rect), right = CGRectGetMaxX(rect);
    const CGFloat top = CGRectGetMinY(rect), bottom = CGRectGetMaxY(rect);
    CGFloat minX = INFINITY, minY = INFINITY, maxX = -INFINITY, maxY = -INFINITY;
    for (CGPoint corner : {CGPoint{left, top}, {right, top}, {right, bottom}, {left, bottom}}) {
        const auto mapped = apply(corner);
        if (!mapped)
            return CGRectNull;
        minX = std::min(minX, mapped->x);
        maxX = std::max(maxX, mapped->x);
        minY = std::min(minY, mapped->y);
        maxY = std::max(maxY, mapped->y);
    }
    return {{minX, minY}, {maxX - minX, maxY - minY}};
}

std::optional<Homography> Homography::inverse() const {
    Homography r{yy * tw - yw * ty, xw * ty - xy * tw, xy * yw - xw * yy, yw * tx - yx * tw, xx * tw - xw * tx,
                 xw * yx - xx * yw, yx * ty - yy * tx, xy * tx - xx * ty, xx * yy - xy * yx};
    const double determinant = xx * r.xx + xy * r.yx + xw * r.tx;
    if (!(std::fabs(determinant) > 0) || !std::isfinite(determinant))
        return std::nullopt;
    for (double* number : {&r.xx, &r.xy, &r.xw, &r.yx, &r.yy, &r.yw, &r.tx, &r.ty, &r.tw})
        *number /= determinant;
    return r;
}

} // namespace zr
