#include <ZRPlatform/CoreGraphics/CGPath.h>

#include <algorithm>
#include <numbers>

namespace zr {

namespace {

constexpr CGFloat kPi = std::numbers::pi_v<CGFloat>;

bool isFinitePoint(CGPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

CGPoint transformed(CGPoint point, const CGAffineTransform* transform) {
    return transform ? CGPointApplyAffineTransform(point, *transform) : point;
}

/// The unit vector at an angle, exact on the axes, so that a circle's box has the numbers one expects.
CGPoint direction(CGFloat angle) {
    constexpr CGFloat rounding = 8 * std::numeric_limits<CGFloat>::epsilon();
    const auto onAxis = [](CGFloat value) {
        if (std::fabs(value) < rounding)
            return CGFloat(0);
        return 1 - std::fabs(value) < rounding ? std::copysign(CGFloat(1), value) : value;
    };
    return {onAxis(std::cos(angle)), onAxis(std::sin(angle))};
}

/// Curves along an ellipse from the current point, which lies at `start`. One cubic for 45 degrees at most keeps within
/// 4 millionths of the radius.
void addEllipticArc(CGMutablePathRef path, const CGAffineTransform* transform, CGPoint center, CGSize radii,
                    CGFloat start, CGFloat sweep) {
    const auto steps = static_cast<int>(std::ceil(std::fabs(sweep) / (kPi / 4) - CGFloat(1e-9)));
    const CGFloat step = sweep / static_cast<CGFloat>(std::max(steps, 1));
    const CGFloat handle = CGFloat(4) / 3 * std::tan(step / 4);
    const auto at = [&](CGFloat x, CGFloat y) {
        return CGPointMake(center.x + radii.width * x, center.y + radii.height * y);
    };
    CGPoint from = direction(start);
    for (int i = 1; i <= steps; ++i) {
        const CGPoint to = direction(start + step * static_cast<CGFloat>(i));
        const CGPoint control1 = at(from.x - handle * from.y, from.y + handle * from.x);
        const CGPoint control2 = at(to.x + handle * to.y, to.y - handle * to.x);
        const CGPoint end = at(to.x, to.y);
        CGPathAddCurveToPoint(path, transform, control1.x, control1.y, control2.x, control2.y, end.x, end.y);
        from = to;
    }
}

/// How far an arc goes, in radians with its sign: less than a turn in the asked direction when the end lies behind the
/// start, at most a turn and the rest when it lies far ahead.
CGFloat arcSweep(CGFloat startAngle, CGFloat endAngle, bool clockwise) {
    // More than angles in single precision are off by, less than anybody sees.
    constexpr CGFloat kAngleRounding = CGFloat(1e-6);
    CGFloat sweep = clockwise ? startAngle - endAngle : endAngle - startAngle;
    if (std::fabs(std::fabs(sweep) - 2 * kPi) < kAngleRounding)
        sweep = 2 * kPi; // a full circle in either direction, on whichever side the rounding falls
    else if (sweep < 0)
        sweep = std::fmod(sweep, 2 * kPi) + 2 * kPi;
    else if (sweep > 2 * kPi)
        sweep = std::fmod(sweep, 2 * kPi) + 2 * kPi;
    return clockwise ? -sweep : sweep;
}

} // namespace

NSUInteger CGPathElementPointCount(CGPathElementType type) {
    constexpr NSUInteger counts[] = {1, 1, 2, 3, 0};
    return counts[type];
}

bool CGPath::isEqual(const NSObject* other) const {
    const auto* path = dynamic_cast<const CGPath*>(other);
    return path && m_elements == path->m_elements;
}

void CGMutablePath::append(const CGPathElement& element) {
    const NSUInteger count = CGPathElementPointCount(element.type);
    if (!std::all_of(element.points, element.points + count, isFinitePoint)) {
        m_finite = false;
        return;
    }
    if (element.type != kCGPathElementMoveToPoint && m_elements.empty())
        return;
    if (element.type == kCGPathElementCloseSubpath) {
        m_currentPoint = m_subpathStart;
    } else {
        m_currentPoint = element.points[count - 1];
        if (element.type == kCGPathElementMoveToPoint)
            m_subpathStart = m_currentPoint;
    }
    m_elements.push_back(element);
}

void CGMutablePath::clear() {
    m_elements.clear();
    m_currentPoint = m_subpathStart = CGPointZero;
    m_finite = true;
}

Ref<CGMutablePath> CGPathCreateMutable() { return Ref<CGMutablePath>::adopt(new CGMutablePath()); }

Ref<CGPath> CGPathCreateWithRect(CGRect rect, const CGAffineTransform* transform) {
    const auto path = CGPathCreateMutable();
    CGPathAddRect(path, transform, rect);
    return path;
}

Ref<CGPath> CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* transform) {
    const auto path = CGPathCreateMutable();
    CGPathAddEllipseInRect(path, transform, rect);
    return path;
}

Ref<CGPath> CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                        const CGAffineTransform* transform) {
    const auto path = CGPathCreateMutable();
    CGPathAddRoundedRect(path, transform, rect, cornerWidth, cornerHeight);
    return path;
}

Ref<CGPath> CGPathCreateCopy(CGPathRef path) { return CGPathCreateMutableCopy(path); }

Ref<CGMutablePath> CGPathCreateMutableCopy(CGPathRef path) {
    if (!path)
        return nullptr;
    auto copy = CGPathCreateMutable();
    CGPathAddPath(copy, nullptr, path);
    return copy;
}

Ref<CGPath> CGPathCreateCopyByTransformingPath(CGPathRef path, const CGAffineTransform* transform) {
    if (!path)
        return nullptr;
    const auto copy = CGPathCreateMutable();
    CGPathAddPath(copy, transform, path);
    return copy;
}

void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y) {
    if (path)
        path->append({kCGPathElementMoveToPoint, {transformed({x, y}, transform)}});
}

void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y) {
    if (path)
        path->append({kCGPathElementAddLineToPoint, {transformed({x, y}, transform)}});
}

void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cpx, CGFloat cpy,
                               CGFloat x, CGFloat y) {
    if (path)
        path->append(
            {kCGPathElementAddQuadCurveToPoint, {transformed({cpx, cpy}, transform), transformed({x, y}, transform)}});
}

void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cp1x, CGFloat cp1y,
                           CGFloat cp2x, CGFloat cp2y, CGFloat x, CGFloat y) {
    if (path)
        path->append({kCGPathElementAddCurveToPoint,
                      {transformed({cp1x, cp1y}, transform), transformed({cp2x, cp2y}, transform),
                       transformed({x, y}, transform)}});
}

void CGPathCloseSubpath(CGMutablePathRef path) {
    if (path)
        path->append({kCGPathElementCloseSubpath, {}});
}

void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect) {
    if (!path)
        return;
    if (!CGRectIsFinite(rect))
        return path->setNotFinite();
    CGPathMoveToPoint(path, transform, CGRectGetMinX(rect), CGRectGetMinY(rect));
    CGPathAddLineToPoint(path, transform, CGRectGetMaxX(rect), CGRectGetMinY(rect));
    CGPathAddLineToPoint(path, transform, CGRectGetMaxX(rect), CGRectGetMaxY(rect));
    CGPathAddLineToPoint(path, transform, CGRectGetMinX(rect), CGRectGetMaxY(rect));
    CGPathCloseSubpath(path);
}

void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight) {
    if (!path)
        return;
    if (!CGRectIsFinite(rect) || !std::isfinite(cornerWidth) || !std::isfinite(cornerHeight))
        return path->setNotFinite();
    const CGSize radii = {std::clamp(cornerWidth, CGFloat(0), CGRectGetWidth(rect) / 2),
                          std::clamp(cornerHeight, CGFloat(0), CGRectGetHeight(rect) / 2)};
    if (radii.width == 0 || radii.height == 0)
        return CGPathAddRect(path, transform, rect);
    const CGFloat left = CGRectGetMinX(rect) + radii.width;
    const CGFloat right = CGRectGetMaxX(rect) - radii.width;
    const CGFloat low = CGRectGetMinY(rect) + radii.height;
    const CGFloat high = CGRectGetMaxY(rect) - radii.height;
    CGPathMoveToPoint(path, transform, left, CGRectGetMinY(rect));
    CGPathAddLineToPoint(path, transform, right, CGRectGetMinY(rect));
    addEllipticArc(path, transform, {right, low}, radii, -kPi / 2, kPi / 2);
    CGPathAddLineToPoint(path, transform, CGRectGetMaxX(rect), high);
    addEllipticArc(path, transform, {right, high}, radii, 0, kPi / 2);
    CGPathAddLineToPoint(path, transform, left, CGRectGetMaxY(rect));
    addEllipticArc(path, transform, {left, high}, radii, kPi / 2, kPi / 2);
    CGPathAddLineToPoint(path, transform, CGRectGetMinX(rect), low);
    addEllipticArc(path, transform, {left, low}, radii, kPi, kPi / 2);
    CGPathCloseSubpath(path);
}

void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect) {
    if (!path)
        return;
    if (!CGRectIsFinite(rect))
        return path->setNotFinite();
    const CGPoint center = {CGRectGetMidX(rect), CGRectGetMidY(rect)};
    CGPathMoveToPoint(path, transform, CGRectGetMaxX(rect), center.y);
    addEllipticArc(path, transform, center, {CGRectGetWidth(rect) / 2, CGRectGetHeight(rect) / 2}, 0, 2 * kPi);
    CGPathCloseSubpath(path);
}

void CGPathAddLines(CGMutablePathRef path, const CGAffineTransform* transform, const CGPoint* points,
                    NSUInteger count) {
    if (!points || count == 0)
        return;
    CGPathMoveToPoint(path, transform, points[0].x, points[0].y);
    for (NSUInteger i = 1; i < count; ++i)
        CGPathAddLineToPoint(path, transform, points[i].x, points[i].y);
}

void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise) {
    if (!path)
        return;
    if (!isFinitePoint({x, y}) || !std::isfinite(radius) || !std::isfinite(endAngle - startAngle) ||
        !std::isfinite(startAngle))
        return path->setNotFinite();
    if (radius < 0)
        return;
    const CGPoint unit = direction(startAngle);
    const CGPoint start = {x + radius * unit.x, y + radius * unit.y};
    if (path->elements().empty())
        CGPathMoveToPoint(path, transform, start.x, start.y);
    else
        CGPathAddLineToPoint(path, transform, start.x, start.y);
    addEllipticArc(path, transform, {x, y}, {radius, radius}, startAngle, arcSweep(startAngle, endAngle, clockwise));
}

void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x1, CGFloat y1, CGFloat x2,
                         CGFloat y2, CGFloat radius) {
    if (!path)
        return;
    if (!isFinitePoint({x1, y1}) || !isFinitePoint({x2, y2}) || !std::isfinite(radius))
        return path->setNotFinite();
    if (path->elements().empty())
        return;
    const CGPoint current = transform
                                ? CGPointApplyAffineTransform(path->currentPoint(), CGAffineTransformInvert(*transform))
                                : path->currentPoint();
    const CGFloat lengthBack = std::hypot(current.x - x1, current.y - y1);
    const CGFloat lengthOn = std::hypot(x2 - x1, y2 - y1);
    // Unit vectors from the corner, back to the current point and on to the second one.
    const CGPoint back = {(current.x - x1) / lengthBack, (current.y - y1) / lengthBack};
    const CGPoint on = {(x2 - x1) / lengthOn, (y2 - y1) / lengthOn};
    const CGFloat cross = back.x * on.y - back.y * on.x;
    const CGFloat dot = back.x * on.x + back.y * on.y;
    constexpr CGFloat straight = std::numeric_limits<CGFloat>::epsilon() * 64;
    if (radius <= 0 || lengthBack == 0 || lengthOn == 0 || std::fabs(cross) < straight)
        return CGPathAddLineToPoint(path, transform, x1, y1);
    // Half the corner's angle has the tangent |cross| / (1 + dot); the arc touches at radius / tangent from the corner.
    const CGFloat reach = radius * (1 + dot) / std::fabs(cross);
    const CGPoint touch = {x1 + back.x * reach, y1 + back.y * reach};
    // The centre lies on the inner side of the line that leads to the corner.
    const CGFloat side = cross > 0 ? 1 : -1;
    const CGPoint inward = {-back.y * side, back.x * side};
    const CGPoint center = {touch.x + inward.x * radius, touch.y + inward.y * radius};
    const CGFloat turn = kPi - std::atan2(std::fabs(cross), dot);
    const CGFloat startAngle = std::atan2(-inward.y, -inward.x);
    CGPathAddLineToPoint(path, transform, touch.x, touch.y);
    addEllipticArc(path, transform, center, {radius, radius}, startAngle, -side * turn);
}

void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* transform, CGPathRef added) {
    if (!path || !added)
        return;
    const bool finite = added->isFinite();
    const std::vector<CGPathElement> elements = added->elements();
    for (CGPathElement element : elements) {
        for (NSUInteger i = 0; i < CGPathElementPointCount(element.type); ++i)
            element.points[i] = transformed(element.points[i], transform);
        path->append(element);
    }
    if (!finite)
        path->setNotFinite();
}

} // namespace zr
