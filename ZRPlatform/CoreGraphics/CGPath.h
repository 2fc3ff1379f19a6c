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
    CGPathElementType type = kCGPathElementMoveToPoint;
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
    /// What `CGMutablePath` builds.
    std::vector<CGPathElement> m_elements;
    CGPoint m_currentPoint;
    CGPoint m_subpathStart;
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
Ref<CGMutablePath> CGPathCreateMutable();
Ref<CGPath> CGPathCreateWithRect(CGRect rect, const CGAffineTransform* transform);
Ref<CGPath> CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* transform);
/// Corner radii larger than half a side are cut down to it.
Ref<CGPath> CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                        const CGAffineTransform* transform);
/// Nil for a nil path; so are the next two.
Ref<CGPath> CGPathCreateCopy(CGPathRef path);
Ref<CGMutablePath> CGPathCreateMutableCopy(CGPathRef path);
Ref<CGPath> CGPathCreateCopyByTransformingPath(CGPathRef path, const CGAffineTransform* transform);
/// @}

/// @name Adding to a path
/// @{
void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
/// Ignored, as a curve is, while the path has no current point.
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cpx, CGFloat cpy,
                               CGFloat x, CGFloat y);
void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cp1x, CGFloat cp1y,
                           CGFloat cp2x, CGFloat cp2y, CGFloat x, CGFloat y);
/// A line back to where the subpath began; the next line starts there.
void CGPathCloseSubpath(CGMutablePathRef path);
/// A closed subpath: origin, then along the width, counter-clockwise in a space whose y grows upwards.
void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect);
void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight);
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
void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* transform, CGPathRef added);
/// @}

/// @name Asking
/// @{
/// True for nil.
bool CGPathIsEmpty(CGPathRef path);
/// (0, 0) for an empty path.
CGPoint CGPathGetCurrentPoint(CGPathRef path);
/// The box around all points, control points too. `CGRectNull` for an empty path.
CGRect CGPathGetBoundingBox(CGPathRef path);
/// The box around the drawn line: as above, without the control points that curves do not reach.
CGRect CGPathGetPathBoundingBox(CGPathRef path);
/// Whether a fill covers the point (`transform` is applied to the point first). Open subpaths count as closed.
/// `evenOdd`: by counting crossings; otherwise by winding number.
bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* transform, CGPoint point, bool evenOdd);
bool CGPathEqualToPath(CGPathRef a, CGPathRef b);
/// Calls `block` with each element in order.
void CGPathApplyWithBlock(CGPathRef path, const std::function<void(const CGPathElement&)>& block);
/// @}

} // namespace zr
#pragma GCC visibility pop
