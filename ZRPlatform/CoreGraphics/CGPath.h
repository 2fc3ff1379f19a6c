#pragma once

#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>
#include <ZRPlatform/Foundation/NSObject.h>

#include <functional>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// The kinds of steps.
enum CGPathElementType {
    kCGPathElementMoveToPoint = 0,
    kCGPathElementAddLineToPoint = 1,
    kCGPathElementAddQuadCurveToPoint = 2,
    kCGPathElementAddCurveToPoint = 3,
    kCGPathElementCloseSubpath = 4,
};

/// One step of a path. `points`: 1 for a move or line, 2 for a quadratic curve, 3 for a cubic one (control points
/// first, end point last), none for a close.
struct CGPathElement {
    /// What the step does.
    CGPathElementType type = kCGPathElementMoveToPoint;
    /// Where to; see `CGPathElementPointCount`.
    CGPoint points[3] = {};
    friend bool operator==(const CGPathElement&, const CGPathElement&) = default;
};

/// How many of the element's points count.
NSUInteger CGPathElementPointCount(CGPathElementType type);

/// Lines and curves in a plane, in any number of subpaths. Arcs, ellipses and rectangles are stored as lines and cubic
/// curves, an arc of more than 45 degrees as several.
class CGPath : public NSObject {
public:
    /// In the order they were added.
    const std::vector<CGPathElement>& elements() const { return m_elements; }
    /// False once an element with a number that is not finite was offered. That element is not stored, and a context
    /// draws nothing of such a path.
    bool isFinite() const { return m_finite; }
    /// Where the next line starts; (0, 0) in a path without elements.
    CGPoint currentPoint() const { return m_currentPoint; }
    /// Equal elements.
    bool isEqual(const NSObject* other) const override;

protected:
    /// What `elements` gives; `CGMutablePath` builds it.
    std::vector<CGPathElement> m_elements;
    /// What `currentPoint` gives.
    CGPoint m_currentPoint;
    /// Where a close leads back to.
    CGPoint m_subpathStart;
    /// What `isFinite` gives.
    bool m_finite = true;
};
using CGPathRef = CGPath*;

/// A path that can be added to. The functions below are its usual face.
class CGMutablePath : public CGPath {
public:
    /// Adds one step. A line or curve needs a current point: without one it is ignored.
    void append(const CGPathElement& element);
    /// Marks the path as one that cannot be drawn.
    void setNotFinite() { m_finite = false; }
    /// Back to a new path.
    void clear();
};
using CGMutablePathRef = CGMutablePath*;

/// @name Making paths
/// A null `transform` is the identity everywhere; the points are transformed as they are added. A nil path is ignored.
/// @{
/// An empty path.
Ref<CGMutablePath> CGPathCreateMutable();
/// A closed rectangle, as `CGPathAddRect` adds it.
Ref<CGPath> CGPathCreateWithRect(CGRect rect, const CGAffineTransform* transform);
/// The ellipse that touches the rectangle's sides.
Ref<CGPath> CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* transform);
/// A rectangle whose corners are quarters of ellipses. Radii larger than half a side are cut down to it.
Ref<CGPath> CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                        const CGAffineTransform* transform);
/// A path of the same elements. Nil for a nil path.
Ref<CGPath> CGPathCreateCopy(CGPathRef path);
/// The same, to be added to.
Ref<CGMutablePath> CGPathCreateMutableCopy(CGPathRef path);
/// The same with every point transformed.
Ref<CGPath> CGPathCreateCopyByTransformingPath(CGPathRef path, const CGAffineTransform* transform);
/// @}

/// @name Adding to a path
/// @{
/// Begins a subpath at (x, y).
void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
/// A line from the current point. Ignored, as a curve is, while the path has none.
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
/// A quadratic curve from the current point to (x, y), bent towards the control point (cpx, cpy).
void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cpx, CGFloat cpy,
                               CGFloat x, CGFloat y);
/// A cubic curve from the current point to (x, y): it leaves towards the first control point and arrives from the
/// second.
void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cp1x, CGFloat cp1y,
                           CGFloat cp2x, CGFloat cp2y, CGFloat x, CGFloat y);
/// A line back to where the subpath began; the next line starts there.
void CGPathCloseSubpath(CGMutablePathRef path);
/// A closed subpath: origin, then along the width, counter-clockwise in a space whose y grows upwards.
void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect);
/// A closed subpath: a rectangle whose corners are quarters of ellipses, their radii cut down to half a side. Without a
/// radius it is a plain rectangle.
void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight);
/// A closed subpath: the ellipse that touches the rectangle's sides.
void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect);
/// Points joined by lines, the first one moved to.
void CGPathAddLines(CGMutablePathRef path, const CGAffineTransform* transform, const CGPoint* points, NSUInteger count);
/// An arc around (x, y), angles in radians from the x axis towards the y axis. `clockwise` true goes through decreasing
/// angles, false through increasing ones, before the transform (so it looks clockwise where y grows upwards). A line
/// leads from the current point, if any, to the start. A negative radius adds nothing.
void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise);
/// The arc of this radius that touches the line from the current point to (x1, y1) and the line from there to (x2, y2),
/// led to by a line. When the three points lie on one line, two are the same, or the radius is not positive, it is just
/// the line to (x1, y1).
void CGPathAddArcToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x1, CGFloat y1, CGFloat x2,
                         CGFloat y2, CGFloat radius);
/// The other path's elements, transformed. A nil path adds nothing; a path may be added to itself.
void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* transform, CGPathRef added);
/// @}

/// @name Asking
/// @{
/// Whether the path has no elements; true for nil.
bool CGPathIsEmpty(CGPathRef path);
/// Where the next line starts; (0, 0) for an empty path.
CGPoint CGPathGetCurrentPoint(CGPathRef path);
/// The box around all points, control points too. `CGRectNull` for an empty path.
CGRect CGPathGetBoundingBox(CGPathRef path);
/// The box around the drawn line: as above, without the control points that curves do not reach.
CGRect CGPathGetPathBoundingBox(CGPathRef path);
/// Whether a fill covers the point (`transform` is applied to the point first). Open subpaths count as closed.
/// `evenOdd`: by counting crossings; otherwise by winding number.
bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* transform, CGPoint point, bool evenOdd);
/// Equal elements. Nil equals nil alone.
bool CGPathEqualToPath(CGPathRef a, CGPathRef b);
/// Calls `block` with each element in order.
void CGPathApplyWithBlock(CGPathRef path, const std::function<void(const CGPathElement&)>& block);
/// @}

} // namespace zr
#pragma GCC visibility pop
