#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// Corners, to be added up.
enum UIRectCorner : NSUInteger {
    UIRectCornerTopLeft = 1 << 0,
    UIRectCornerTopRight = 1 << 1,
    UIRectCornerBottomLeft = 1 << 2,
    UIRectCornerBottomRight = 1 << 3,
    UIRectCornerAllCorners = ~NSUInteger(0),
};

/// A path and how its line is drawn: subpaths of lines and curves, in points with y downwards, drawn into the current
/// graphics context. "Clockwise" is what it looks like there.
///
/// A number that is not finite makes the path one that draws nothing. Belongs to one thread at a time.
class UIBezierPath : public NSObject {
public:
    /// @name Making paths
    /// @{
    /// Empty.
    static Ref<UIBezierPath> bezierPath();
    /// Closed, clockwise from the origin.
    static Ref<UIBezierPath> bezierPathWithRect(CGRect rect);
    /// Closed and clockwise; the ellipse that touches the four sides.
    static Ref<UIBezierPath> bezierPathWithOvalInRect(CGRect rect);
    /// Closed and clockwise. A radius of 0 or less leaves the corners square, one beyond half a side is cut to it.
    static Ref<UIBezierPath> bezierPathWithRoundedRect_cornerRadius(CGRect rect, CGFloat cornerRadius);
    /// `corners`: a sum of `UIRectCorner` values; the others stay square. Width and height of the radii are each cut to
    /// half a side.
    static Ref<UIBezierPath> bezierPathWithRoundedRect_byRoundingCorners_cornerRadii(CGRect rect, NSUInteger corners,
                                                                                     CGSize cornerRadii);
    /// Open; see `addArcWithCenter_radius_startAngle_endAngle_clockwise`.
    static Ref<UIBezierPath>
    bezierPathWithArcCenter_radius_startAngle_endAngle_clockwise(CGPoint center, CGFloat radius, CGFloat startAngle,
                                                                 CGFloat endAngle, bool clockwise);
    /// A copy of `path`; empty for nil.
    static Ref<UIBezierPath> bezierPathWithCGPath(CGPathRef path);
    /// A path of its own with the same elements and the same way of drawing them.
    Ref<UIBezierPath> copy() const;
    /// A copy that runs the other way, subpath by subpath in the same order: holes and dashes may change.
    Ref<UIBezierPath> bezierPathByReversingPath() const;
    /// @}

    /// @name Building
    /// Lines and curves start at the current point and are ignored while there is none.
    /// @{
    /// Begins a subpath at the point.
    void moveToPoint(CGPoint point);
    /// A straight line.
    void addLineToPoint(CGPoint point);
    /// A cubic curve that leaves towards the first control point and arrives from the second.
    void addCurveToPoint_controlPoint1_controlPoint2(CGPoint endPoint, CGPoint controlPoint1, CGPoint controlPoint2);
    /// A quadratic curve, bent towards the control point.
    void addQuadCurveToPoint_controlPoint(CGPoint endPoint, CGPoint controlPoint);
    /// Angles in radians, from the x axis towards the y axis, so `clockwise` goes through increasing ones. A line leads
    /// from the current point, if any, to the start. An end that lies behind the start is reached the long way round; a
    /// whole turn or more draws the full circle. A negative radius adds nothing.
    void addArcWithCenter_radius_startAngle_endAngle_clockwise(CGPoint center, CGFloat radius, CGFloat startAngle,
                                                               CGFloat endAngle, bool clockwise);
    /// A line back to where the subpath began; the next line starts there.
    void closePath();
    /// Empties the path; how it is drawn stays.
    void removeAllPoints();
    /// The elements as they are: nothing connects the two. Nil is ignored.
    void appendPath(const UIBezierPath* path);
    /// Moves every point to where the transform takes it; the line width stays.
    void applyTransform(const CGAffineTransform& transform);
    /// @}

    /// @name Asking
    /// @{
    /// Whether the path has no elements.
    bool isEmpty() const { return CGPathIsEmpty(m_path); }
    /// The box around all points, control points too; `CGRectNull` when empty.
    CGRect bounds() const { return CGPathGetBoundingBox(m_path); }
    /// Where the next line starts; (0, 0) when empty.
    CGPoint currentPoint() const { return m_path->currentPoint(); }
    /// Whether a closed subpath encloses the point, by `usesEvenOddFillRule`. Open subpaths enclose nothing, although a
    /// fill paints them: close them first.
    bool containsPoint(CGPoint point) const;
    /// The path by now. It belongs to this object and does not change when more is added.
    CGPathRef cgPath() const;
    /// Copied; nil gives an empty path.
    void setCGPath(CGPathRef path);
    /// @}

    /// @name How it is drawn
    /// These count instead of the context's. Numbers that are negative or not finite are ignored.
    /// @{
    /// How wide the line is, in points; 1 at first. 0 is the thinnest line there is: one pixel.
    CGFloat lineWidth() const { return m_lineWidth; }
    void setLineWidth(CGFloat width);
    /// How the line ends; butt at first.
    CGLineCap lineCapStyle() const { return m_lineCapStyle; }
    void setLineCapStyle(CGLineCap style) { m_lineCapStyle = style; }
    /// How the lines meet; mitred at first.
    CGLineJoin lineJoinStyle() const { return m_lineJoinStyle; }
    void setLineJoinStyle(CGLineJoin style) { m_lineJoinStyle = style; }
    /// At sharper corners, where the mitre would be longer than so many line widths, the join is bevelled; 10 at first.
    CGFloat miterLimit() const { return m_miterLimit; }
    void setMiterLimit(CGFloat limit);
    /// Whether crossings decide what is inside; false at first: what the path winds around is.
    bool usesEvenOddFillRule() const { return m_usesEvenOddFillRule; }
    void setUsesEvenOddFillRule(bool flag) { m_usesEvenOddFillRule = flag; }
    /// `pattern`: `count` lengths of dashes and gaps in turn, copied; null or a count of 0 gives a solid line, which it
    /// is at first. Ignored when a length is negative or all are 0. `phase`: where in the pattern the line begins; it
    /// may be negative.
    void setLineDash_count_phase(const CGFloat* pattern, NSInteger count, CGFloat phase);
    /// Tells the dashes. Any of the three may be null; `pattern` has room for the `count` of an earlier call.
    void getLineDash_count_phase(CGFloat* pattern, NSInteger* count, CGFloat* phase) const;
    /// @}

    /// @name Drawing
    /// In the current context with its colours. Its state and its current path are as before afterwards.
    /// @{
    /// Paints the inside. Open subpaths are filled as if they were closed.
    void fill() const;
    /// Draws the line, which lies to both sides of the path.
    void stroke() const;
    /// Paints the inside with this blend mode and alpha (0..1, clamped) instead of the context's.
    void fillWithBlendMode_alpha(CGBlendMode mode, CGFloat alpha) const;
    /// Draws the line, likewise.
    void strokeWithBlendMode_alpha(CGBlendMode mode, CGFloat alpha) const;
    /// Leaves of the context's clip the part inside the path; an empty path leaves nothing. Stays until the context's
    /// state is restored.
    void addClip() const;
    /// @}

private:
    void changePath(const Ref<CGMutablePath>& path);
    CGMutablePathRef pathToChange();
    void applyLineStyle(CGContextRef context) const;

    Ref<CGMutablePath> m_path = CGPathCreateMutable();
    /// What was handed out, until the next change.
    mutable Ref<CGPath> m_snapshot;
    std::vector<CGFloat> m_dashPattern;
    CGFloat m_dashPhase = 0;
    CGFloat m_lineWidth = 1;
    CGFloat m_miterLimit = 10;
    CGLineCap m_lineCapStyle = kCGLineCapButt;
    CGLineJoin m_lineJoinStyle = kCGLineJoinMiter;
    bool m_usesEvenOddFillRule = false;
};

} // namespace zr
#pragma GCC visibility pop
