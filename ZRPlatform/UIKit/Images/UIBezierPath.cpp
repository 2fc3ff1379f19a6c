#include <ZRPlatform/UIKit/Images/UIBezierPath.h>

#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zr {

namespace {

constexpr CGFloat kPi = std::numbers::pi_v<CGFloat>;

/// From one move (or close) to the next.
struct Subpath {
    CGPoint start;
    std::vector<CGPathElement> segments;
    bool closed = false;
};

std::vector<Subpath> subpathsOf(const CGPath& path) {
    std::vector<Subpath> subpaths;
    for (const CGPathElement& element : path.elements()) {
        if (element.type == kCGPathElementMoveToPoint) {
            subpaths.push_back({element.points[0], {}, false});
            continue;
        }
        // What follows a close without a move goes on from where the closed subpath began.
        if (subpaths.back().closed)
            subpaths.push_back({subpaths.back().start, {}, false});
        if (element.type == kCGPathElementCloseSubpath)
            subpaths.back().closed = true;
        else
            subpaths.back().segments.push_back(element);
    }
    return subpaths;
}

CGPoint endOf(const CGPathElement& segment) { return segment.points[CGPathElementPointCount(segment.type) - 1]; }

void appendSubpath(CGMutablePath& path, const Subpath& subpath) {
    CGPathMoveToPoint(&path, nullptr, subpath.start.x, subpath.start.y);
    for (const CGPathElement& segment : subpath.segments)
        path.append(segment);
    if (subpath.closed)
        CGPathCloseSubpath(&path);
}

/// The same segment from its end back to `start`.
CGPathElement reversedSegment(CGPathElement segment, CGPoint start) {
    const NSUInteger controls = CGPathElementPointCount(segment.type) - 1;
    std::reverse(segment.points, segment.points + controls);
    segment.points[controls] = start;
    return segment;
}

Subpath reversedSubpath(const Subpath& subpath) {
    const auto& segments = subpath.segments;
    Subpath reversed{segments.empty() ? subpath.start : endOf(segments.back()), {}, subpath.closed};
    for (std::size_t i = segments.size(); i-- > 0;)
        reversed.segments.push_back(reversedSegment(segments[i], i == 0 ? subpath.start : endOf(segments[i - 1])));
    return reversed;
}

/// Puts a path in the place of the context's own, which comes back at the end.
class PathInContext {
public:
    PathInContext(CGContextRef context, CGPathRef path) : m_context(context) {
        if (!m_context)
            return;
        m_saved = CGPathCreateCopy(&m_context->path());
        CGContextBeginPath(m_context);
        CGContextAddPath(m_context, path);
    }
    PathInContext(const PathInContext&) = delete;
    PathInContext& operator=(const PathInContext&) = delete;
    ~PathInContext() {
        // Drawing has used the other path up; this one is in device space already.
        if (m_context)
            CGPathAddPath(&m_context->path(), nullptr, m_saved);
    }

private:
    CGContextRef m_context;
    Ref<CGPath> m_saved;
};

/// Keeps the context's state until the end.
class SavedState {
public:
    explicit SavedState(CGContextRef context) : m_context(context) { CGContextSaveGState(m_context); }
    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;
    ~SavedState() { CGContextRestoreGState(m_context); }

private:
    CGContextRef m_context;
};

/// The width of one pixel of the context, in its points.
CGFloat hairlineWidth(CGContextRef context) {
    const CGAffineTransform ctm = CGContextGetCTM(context);
    return 1 / std::sqrt(std::fabs(ctm.a * ctm.d - ctm.b * ctm.c));
}

bool isLength(CGFloat value) { return std::isfinite(value) && value >= 0; }

} // namespace

// Making paths

Ref<UIBezierPath> UIBezierPath::bezierPath() { return make<UIBezierPath>(); }

Ref<UIBezierPath> UIBezierPath::bezierPathWithRect(CGRect rect) {
    auto path = bezierPath();
    CGPathAddRect(path->m_path, nullptr, rect);
    return path;
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithOvalInRect(CGRect rect) {
    auto path = bezierPath();
    CGPathAddEllipseInRect(path->m_path, nullptr, rect);
    return path;
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithRoundedRect_cornerRadius(CGRect rect, CGFloat cornerRadius) {
    return bezierPathWithRoundedRect_byRoundingCorners_cornerRadii(rect, UIRectCornerAllCorners,
                                                                   {cornerRadius, cornerRadius});
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithRoundedRect_byRoundingCorners_cornerRadii(CGRect rect, NSUInteger corners,
                                                                                        CGSize cornerRadii) {
    rect = CGRectStandardize(rect);
    const CGFloat radiusX = std::clamp(cornerRadii.width, CGFloat(0), rect.size.width / 2);
    const CGFloat radiusY = std::clamp(cornerRadii.height, CGFloat(0), rect.size.height / 2);
    if (radiusX == 0 || radiusY == 0 || !CGRectIsFinite(rect))
        return bezierPathWithRect(rect);

    struct Corner {
        UIRectCorner corner;
        /// Where it is, -1 the left or top side; a quarter turn begins at the angle.
        CGFloat sideX, sideY, startAngle;
    };
    static constexpr Corner kClockwise[] = {{UIRectCornerTopLeft, -1, -1, -kPi},
                                            {UIRectCornerTopRight, 1, -1, -kPi / 2},
                                            {UIRectCornerBottomRight, 1, 1, 0},
                                            {UIRectCornerBottomLeft, -1, 1, kPi / 2}};
    auto path = bezierPath();
    for (const Corner& each : kClockwise) {
        const CGFloat x = each.sideX < 0 ? CGRectGetMinX(rect) : CGRectGetMaxX(rect);
        const CGFloat y = each.sideY < 0 ? CGRectGetMinY(rect) : CGRectGetMaxY(rect);
        const CGAffineTransform unitCircle{radiusX, 0, 0, radiusY, x - each.sideX * radiusX, y - each.sideY * radiusY};
        if (corners & each.corner)
            CGPathAddArc(path->m_path, &unitCircle, 0, 0, 1, each.startAngle, each.startAngle + kPi / 2, false);
        else if (path->isEmpty())
            path->moveToPoint({x, y});
        else
            path->addLineToPoint({x, y});
    }
    path->closePath();
    return path;
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithArcCenter_radius_startAngle_endAngle_clockwise(
    CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle, bool clockwise) {
    auto path = bezierPath();
    path->addArcWithCenter_radius_startAngle_endAngle_clockwise(center, radius, startAngle, endAngle, clockwise);
    return path;
}

Ref<UIBezierPath> UIBezierPath::bezierPathWithCGPath(CGPathRef cgPath) {
    auto path = bezierPath();
    path->setCGPath(cgPath);
    return path;
}

Ref<UIBezierPath> UIBezierPath::copy() const {
    auto copy = bezierPathWithCGPath(m_path);
    copy->m_dashPattern = m_dashPattern;
    copy->m_dashPhase = m_dashPhase;
    copy->m_lineWidth = m_lineWidth;
    copy->m_miterLimit = m_miterLimit;
    copy->m_lineCapStyle = m_lineCapStyle;
    copy->m_lineJoinStyle = m_lineJoinStyle;
    copy->m_usesEvenOddFillRule = m_usesEvenOddFillRule;
    return copy;
}

Ref<UIBezierPath> UIBezierPath::bezierPathByReversingPath() const {
    auto reversed = copy();
    if (!m_path->isFinite())
        return reversed;
    reversed->removeAllPoints();
    for (const Subpath& subpath : subpathsOf(*m_path))
        appendSubpath(*reversed->m_path, reversedSubpath(subpath));
    return reversed;
}

// Building

CGMutablePathRef UIBezierPath::pathToChange() {
    m_snapshot = nullptr;
    return m_path;
}

void UIBezierPath::changePath(const Ref<CGMutablePath>& path) {
    m_snapshot = nullptr;
    m_path = path;
}

void UIBezierPath::moveToPoint(CGPoint point) { CGPathMoveToPoint(pathToChange(), nullptr, point.x, point.y); }

void UIBezierPath::addLineToPoint(CGPoint point) { CGPathAddLineToPoint(pathToChange(), nullptr, point.x, point.y); }

void UIBezierPath::addCurveToPoint_controlPoint1_controlPoint2(CGPoint endPoint, CGPoint controlPoint1,
                                                               CGPoint controlPoint2) {
    CGPathAddCurveToPoint(pathToChange(), nullptr, controlPoint1.x, controlPoint1.y, controlPoint2.x, controlPoint2.y,
                          endPoint.x, endPoint.y);
}

void UIBezierPath::addQuadCurveToPoint_controlPoint(CGPoint endPoint, CGPoint controlPoint) {
    CGPathAddQuadCurveToPoint(pathToChange(), nullptr, controlPoint.x, controlPoint.y, endPoint.x, endPoint.y);
}

void UIBezierPath::addArcWithCenter_radius_startAngle_endAngle_clockwise(CGPoint center, CGFloat radius,
                                                                         CGFloat startAngle, CGFloat endAngle,
                                                                         bool clockwise) {
    // Paths name the direction as it looks where y grows upwards.
    CGPathAddArc(pathToChange(), nullptr, center.x, center.y, radius, startAngle, endAngle, !clockwise);
}

void UIBezierPath::closePath() { CGPathCloseSubpath(pathToChange()); }

void UIBezierPath::removeAllPoints() { pathToChange()->clear(); }

void UIBezierPath::appendPath(const UIBezierPath* path) {
    if (path)
        CGPathAddPath(pathToChange(), nullptr, path->m_path);
}

void UIBezierPath::applyTransform(const CGAffineTransform& transform) {
    auto transformed = CGPathCreateMutable();
    CGPathAddPath(transformed, &transform, m_path);
    changePath(transformed);
}

// Asking

bool UIBezierPath::containsPoint(CGPoint point) const {
    const auto closedPart = CGPathCreateMutable();
    for (const Subpath& subpath : subpathsOf(*m_path)) {
        if (subpath.closed)
            appendSubpath(*closedPart, subpath);
    }
    return CGPathContainsPoint(closedPart, nullptr, point, m_usesEvenOddFillRule);
}

CGPathRef UIBezierPath::cgPath() const {
    if (!m_snapshot)
        m_snapshot = CGPathCreateCopy(m_path);
    return m_snapshot;
}

void UIBezierPath::setCGPath(CGPathRef path) {
    changePath(path ? CGPathCreateMutableCopy(path) : CGPathCreateMutable());
}

// How it is drawn

void UIBezierPath::setLineWidth(CGFloat width) {
    if (isLength(width))
        m_lineWidth = width;
}

void UIBezierPath::setMiterLimit(CGFloat limit) {
    if (isLength(limit))
        m_miterLimit = limit;
}

void UIBezierPath::setLineDash_count_phase(const CGFloat* pattern, NSInteger count, CGFloat phase) {
    if (!pattern || count <= 0) {
        m_dashPattern.clear();
        m_dashPhase = 0;
        return;
    }
    const auto isZero = [](CGFloat length) { return length == 0; };
    if (!std::isfinite(phase) || !std::all_of(pattern, pattern + count, isLength) ||
        std::all_of(pattern, pattern + count, isZero))
        return;
    m_dashPattern.assign(pattern, pattern + count);
    m_dashPhase = phase;
}

void UIBezierPath::getLineDash_count_phase(CGFloat* pattern, NSInteger* count, CGFloat* phase) const {
    if (pattern)
        std::copy(m_dashPattern.begin(), m_dashPattern.end(), pattern);
    if (count)
        *count = static_cast<NSInteger>(m_dashPattern.size());
    if (phase)
        *phase = m_dashPhase;
}

void UIBezierPath::applyLineStyle(CGContextRef context) const {
    CGContextSetLineWidth(context, m_lineWidth > 0 ? m_lineWidth : hairlineWidth(context));
    CGContextSetLineCap(context, m_lineCapStyle);
    CGContextSetLineJoin(context, m_lineJoinStyle);
    CGContextSetMiterLimit(context, m_miterLimit);
    CGContextSetLineDash(context, m_dashPhase, m_dashPattern.data(), m_dashPattern.size());
}

// Drawing

void UIBezierPath::fill() const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    const PathInContext path(context, m_path);
    CGContextDrawPath(context, m_usesEvenOddFillRule ? kCGPathEOFill : kCGPathFill);
}

void UIBezierPath::stroke() const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    const SavedState state(context);
    const PathInContext path(context, m_path);
    applyLineStyle(context);
    CGContextStrokePath(context);
}

void UIBezierPath::fillWithBlendMode_alpha(CGBlendMode mode, CGFloat alpha) const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    const SavedState state(context);
    CGContextSetBlendMode(context, mode);
    CGContextSetAlpha(context, alpha);
    fill();
}

void UIBezierPath::strokeWithBlendMode_alpha(CGBlendMode mode, CGFloat alpha) const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    const SavedState state(context);
    CGContextSetBlendMode(context, mode);
    CGContextSetAlpha(context, alpha);
    stroke();
}

void UIBezierPath::addClip() const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    const PathInContext path(context, m_path);
    if (m_usesEvenOddFillRule)
        CGContextEOClip(context);
    else
        CGContextClip(context);
}

} // namespace zr
