#include <ZRPlatform/CoreGraphics/CGPath.h>

#include <algorithm>

namespace zr {

namespace {

struct Curve {
    CGPoint points[4];
};

CGPoint between(CGPoint a, CGPoint b, CGFloat t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t}; }

Curve lineCurve(CGPoint from, CGPoint to) { return {{from, from, to, to}}; }

Curve curveOf(const CGPathElement& element, CGPoint from, CGPoint subpathStart) {
    const CGPoint* p = element.points;
    switch (element.type) {
    case kCGPathElementAddQuadCurveToPoint:
        return {{from, between(from, p[0], CGFloat(2) / 3), between(p[1], p[0], CGFloat(2) / 3), p[1]}};
    case kCGPathElementAddCurveToPoint:
        return {{from, p[0], p[1], p[2]}};
    case kCGPathElementCloseSubpath:
        return lineCurve(from, subpathStart);
    default:
        return lineCurve(from, p[0]);
    }
}

class Box {
public:
    void include(CGPoint point) {
        m_low = {std::min(m_low.x, point.x), std::min(m_low.y, point.y)};
        m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
        m_any = true;
    }
    CGRect rect() const {
        return m_any ? CGRectMake(m_low.x, m_low.y, m_high.x - m_low.x, m_high.y - m_low.y) : CGRectNull;
    }

private:
    static constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
    CGPoint m_low{kInfinity, kInfinity};
    CGPoint m_high{-kInfinity, -kInfinity};
    bool m_any = false;
};

CGPoint pointAt(const Curve& curve, CGFloat t) {
    const CGFloat s = 1 - t;
    const CGFloat weights[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    CGPoint point;
    for (int i = 0; i < 4; ++i)
        point = {point.x + weights[i] * curve.points[i].x, point.y + weights[i] * curve.points[i].y};
    return point;
}

/// Includes the points where one coordinate, given at the four control points, turns back.
void includeExtremes(Box& box, const Curve& curve, CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3) {
    const CGFloat a = p3 - 3 * p2 + 3 * p1 - p0;
    const CGFloat b = 2 * (p2 - 2 * p1 + p0);
    const CGFloat c = p1 - p0;
    CGFloat roots[2] = {-1, -1};
    if (a == 0) {
        if (b != 0)
            roots[0] = -c / b;
    } else if (const CGFloat discriminant = b * b - 4 * a * c; discriminant >= 0) {
        // The form that does not subtract nearly equal numbers when `a` is small.
        const CGFloat q = -(b + std::copysign(std::sqrt(discriminant), b)) / 2;
        roots[0] = q / a;
        if (q != 0)
            roots[1] = c / q;
    }
    for (const CGFloat t : roots) {
        if (t > 0 && t < 1)
            box.include(pointAt(curve, t));
    }
}

/// How often the curve crosses the ray from `point` to the right, upwards crossings counted plus, downwards minus.
int winding(const Curve& curve, CGPoint point, int depth) {
    const auto isBelow = [&](CGPoint p) { return p.y <= point.y; };
    const auto isRight = [&](CGPoint p) { return p.x > point.x; };
    const auto& p = curve.points;
    const auto below = std::count_if(p, p + 4, isBelow);
    const auto right = std::count_if(p, p + 4, isRight);
    if (below == 0 || below == 4 || right == 0)
        return 0;
    if (right == 4 || depth == 0) {
        if (isBelow(p[0]) == isBelow(p[3]))
            return 0;
        const CGFloat x = p[0].x + (p[3].x - p[0].x) * (point.y - p[0].y) / (p[3].y - p[0].y);
        return right == 4 || x > point.x ? (isBelow(p[0]) ? 1 : -1) : 0;
    }
    const CGPoint ab = between(p[0], p[1], CGFloat(0.5));
    const CGPoint bc = between(p[1], p[2], CGFloat(0.5));
    const CGPoint cd = between(p[2], p[3], CGFloat(0.5));
    const CGPoint abc = between(ab, bc, CGFloat(0.5));
    const CGPoint bcd = between(bc, cd, CGFloat(0.5));
    const CGPoint middle = between(abc, bcd, CGFloat(0.5));
    return winding({{p[0], ab, abc, middle}}, point, depth - 1) + winding({{middle, bcd, cd, p[3]}}, point, depth - 1);
}

int lineWinding(CGPoint from, CGPoint to, CGPoint point) { return winding(lineCurve(from, to), point, 0); }

} // namespace

bool CGPathIsEmpty(CGPathRef path) { return !path || path->elements().empty(); }

CGPoint CGPathGetCurrentPoint(CGPathRef path) { return path ? path->currentPoint() : CGPointZero; }

CGRect CGPathGetBoundingBox(CGPathRef path) {
    Box box;
    if (path) {
        for (const CGPathElement& element : path->elements())
            std::for_each(element.points, element.points + CGPathElementPointCount(element.type),
                          [&](CGPoint point) { box.include(point); });
    }
    return box.rect();
}

CGRect CGPathGetPathBoundingBox(CGPathRef path) {
    Box box;
    if (!path)
        return box.rect();
    CGPoint current;
    CGPoint start;
    for (const CGPathElement& element : path->elements()) {
        const Curve curve = curveOf(element, current, start);
        const auto& p = curve.points;
        current = p[3];
        box.include(current);
        if (element.type == kCGPathElementMoveToPoint)
            start = current;
        if (CGPathElementPointCount(element.type) > 1) {
            includeExtremes(box, curve, p[0].x, p[1].x, p[2].x, p[3].x);
            includeExtremes(box, curve, p[0].y, p[1].y, p[2].y, p[3].y);
        }
    }
    return box.rect();
}

bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* transform, CGPoint point, bool evenOdd) {
    if (!path)
        return false;
    if (transform)
        point = CGPointApplyAffineTransform(point, *transform);
    // Enough halvings to reach the last bits of a coordinate.
    constexpr int kDepth = 40;
    int count = 0;
    CGPoint current;
    CGPoint start;
    for (const CGPathElement& element : path->elements()) {
        if (element.type == kCGPathElementMoveToPoint) {
            count += lineWinding(current, start, point);
            current = start = element.points[0];
            continue;
        }
        const Curve curve = curveOf(element, current, start);
        const bool isLine = CGPathElementPointCount(element.type) < 2;
        count += winding(curve, point, isLine ? 0 : kDepth);
        current = curve.points[3];
    }
    count += lineWinding(current, start, point);
    return evenOdd ? count % 2 != 0 : count != 0;
}

bool CGPathEqualToPath(CGPathRef a, CGPathRef b) { return a == b || (a && b && a->isEqual(b)); }

void CGPathApplyWithBlock(CGPathRef path, const std::function<void(const CGPathElement&)>& block) {
    if (!path || !block)
        return;
    for (const CGPathElement& element : path->elements())
        block(element);
}

} // namespace zr
