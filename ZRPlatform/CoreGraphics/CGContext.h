#pragma once

#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>
#include <ZRPlatform/CoreGraphics/CGColor.h>
#include <ZRPlatform/CoreGraphics/CGGradient.h>
#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/CoreGraphics/CGPath.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// How a stroke ends: at its end, round beyond it, or square beyond it, by half its width.
enum CGLineCap { kCGLineCapButt = 0, kCGLineCapRound = 1, kCGLineCapSquare = 2 };
/// How two lines of a stroke meet.
enum CGLineJoin { kCGLineJoinMiter = 0, kCGLineJoinRound = 1, kCGLineJoinBevel = 2 };
/// What is painted of a path; EO is the even-odd rule.
enum CGPathDrawingMode {
    kCGPathFill = 0,
    kCGPathEOFill = 1,
    kCGPathStroke = 2,
    kCGPathFillStroke = 3,
    kCGPathEOFillStroke = 4,
};
/// How images are sampled that are drawn larger or smaller.
enum CGInterpolationQuality {
    kCGInterpolationDefault = 0,
    kCGInterpolationNone = 1,
    kCGInterpolationLow = 2,
    kCGInterpolationHigh = 3,
    kCGInterpolationMedium = 4,
};

/// How what is drawn (S) meets what is there (D). All act inside the drawn shape only, except that a stroke with one of
/// SourceIn, SourceOut, DestinationIn and DestinationAtop acts on everything inside the clip.
enum CGBlendMode {
    kCGBlendModeNormal = 0,
    kCGBlendModeMultiply = 1,
    kCGBlendModeScreen = 2,
    kCGBlendModeOverlay = 3,
    kCGBlendModeDarken = 4,
    kCGBlendModeLighten = 5,
    kCGBlendModeColorDodge = 6,
    kCGBlendModeColorBurn = 7,
    kCGBlendModeSoftLight = 8,
    kCGBlendModeHardLight = 9,
    kCGBlendModeDifference = 10,
    kCGBlendModeExclusion = 11,
    kCGBlendModeHue = 12,
    kCGBlendModeSaturation = 13,
    kCGBlendModeColor = 14,
    kCGBlendModeLuminosity = 15,
    kCGBlendModeClear = 16,
    kCGBlendModeCopy = 17,
    kCGBlendModeSourceIn = 18,
    kCGBlendModeSourceOut = 19,
    kCGBlendModeSourceAtop = 20,
    kCGBlendModeDestinationOver = 21,
    kCGBlendModeDestinationIn = 22,
    kCGBlendModeDestinationOut = 23,
    kCGBlendModeDestinationAtop = 24,
    kCGBlendModeXOR = 25,
    kCGBlendModePlusLighter = 27,
};

/// What `CGContextSaveGState` saves, the clip apart, which the drawing engine keeps.
struct CGGraphicsState {
    /// From user space to device space.
    CGAffineTransform ctm;
    /// Of fills; never nil, opaque black at first.
    Ref<CGColor> fillColor;
    /// Of strokes; never nil, opaque black at first.
    Ref<CGColor> strokeColor;
    /// 0..1, multiplied into everything drawn.
    CGFloat alpha = 1;
    /// How what is drawn meets what is there.
    CGBlendMode blendMode = kCGBlendModeNormal;
    /// User space units.
    CGFloat lineWidth = 1;
    /// How strokes end.
    CGLineCap lineCap = kCGLineCapButt;
    /// How the lines of a stroke meet.
    CGLineJoin lineJoin = kCGLineJoinMiter;
    /// In line widths: where a mitre would be longer, the join is bevelled.
    CGFloat miterLimit = 10;
    /// How far into the dashes a stroke begins, in user space units.
    CGFloat dashPhase = 0;
    /// Dashes and gaps in turn, in user space units; empty for a solid line.
    std::vector<CGFloat> dashLengths;
    /// Whether edges are softened.
    bool shouldAntialias = true;
    /// How images are sampled that are drawn larger or smaller.
    CGInterpolationQuality interpolationQuality = kCGInterpolationDefault;
    /// Nil: no shadow.
    Ref<CGColor> shadowColor;
    /// In base space units.
    CGSize shadowOffset;
    /// Twice the standard deviation of the softening, in base space units.
    CGFloat shadowBlur = 0;
};

/// A place to draw. The class keeps the graphics state and the path; an engine (bitmaps, later a browser's canvas)
/// derives from it and supplies the few painting operations. Drawing code uses the functions below.
///
/// Device space is measured in pixels from the bottom left corner, y upwards.
class CGContext : public NSObject {
public:
    CGContext();

    /// What colours, line, transform and such are at this moment; a save stores it.
    CGGraphicsState& state() { return m_states.back().state; }
    const CGGraphicsState& state() const { return m_states.back().state; }
    /// The path being built, in device space.
    CGMutablePath& path() { return *m_path; }
    /// What shadow offsets and blurs are measured in: the identity, unless the maker of the context scaled or flipped
    /// it.
    CGAffineTransform baseTransform() const { return m_baseTransform; }
    void setBaseTransform(CGAffineTransform transform) { m_baseTransform = transform; }
    /// Whether anything can be drawn: the transform has an inverse.
    bool canDraw() const;

    /// Puts a copy of the state, clip included, on a stack.
    void save();
    /// Ignored when there is nothing to restore, also inside a transparency layer that was begun after the save.
    void restore();
    /// What follows is drawn as one group, with alpha, blend mode and shadow of this moment.
    void beginLayer();
    /// Also undoes the saves made inside. Ignored without a layer.
    void endLayer();

    /// @name The engine
    /// Paths arrive finite and in device space; rectangles, points and radii finite and in user space. The transform
    /// can be inverted. Everything else is read from `state`.
    /// @{
    /// Paints the inside with the fill colour: what the path winds around, or encloses by the even-odd rule.
    virtual void fill(const CGPath& path, bool evenOdd) = 0;
    /// Paints the path's line with the stroke colour.
    virtual void stroke(const CGPath& path) = 0;
    /// Makes the inside transparent (black where there is no alpha), whatever the colour, alpha and blend mode.
    virtual void clear(const CGPath& path) = 0;
    /// Cuts the clip down to the inside of the path.
    virtual void clip(const CGPath& path, bool evenOdd) = 0;
    /// The box around the clip, in device space; empty when everything is clipped away.
    virtual CGRect clipBounds() const = 0;
    /// Scales the image to fill the rectangle, its top row at the largest y.
    virtual void drawImage(CGRect rect, const CGImage& image) = 0;
    /// Paints the clip with the gradient from point to point, which are two.
    virtual void drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end,
                                    CGGradientOptions options) = 0;
    /// Paints the clip with the gradient from circle to circle; no radius is negative, and the circles are two.
    virtual void drawRadialGradient(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius,
                                    CGPoint endCenter, CGFloat endRadius, CGGradientOptions options) = 0;
    /// @}

protected:
    /// The clip's part of a save and a restore, which come in pairs.
    virtual void saveClip() = 0;
    /// Back to the clip of the last `saveClip`.
    virtual void restoreClip() = 0;
    /// From here on everything is drawn into a transparent group; the state is that of the inside.
    virtual void beginGroup() = 0;
    /// Draws the group as a whole; the state is that of the outside again.
    virtual void endGroup() = 0;

private:
    struct SavedState {
        CGGraphicsState state;
        bool startsLayer = false;
    };

    std::vector<SavedState> m_states;
    Ref<CGMutablePath> m_path;
    CGAffineTransform m_baseTransform;
};
using CGContextRef = CGContext*;

/// Every function below ignores a nil context. A number that is not finite makes a drawing call draw nothing, a path
/// undrawable until the next one is begun, and a setter do nothing.

/// @name State
/// @{
/// Puts a copy of the state, clip included, on a stack.
void CGContextSaveGState(CGContextRef context);
/// Takes the last copy back. Ignored when nothing was saved.
void CGContextRestoreGState(CGContextRef context);
/// The transform happens before what was there: it takes new coordinates to the present ones. Ignored when the result
/// is not finite.
void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform);
/// Moves the origin to (tx, ty).
void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty);
/// Makes a unit sx times as long along x, and sy times along y.
void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy);
/// Turns the axes about the origin, in radians; positive turns the x axis towards the y axis.
void CGContextRotateCTM(CGContextRef context, CGFloat angle);
/// From user space to device space; the identity at first, and for nil.
CGAffineTransform CGContextGetCTM(CGContextRef context);
/// The transform that shadow offsets and blurs go through; for makers of contexts in points with y downwards.
void CGContextSetBaseCTM(CGContextRef context, CGAffineTransform transform);
/// User space units, 1 at first; a negative width is ignored.
void CGContextSetLineWidth(CGContextRef context, CGFloat width);
/// How strokes end; butt at first.
void CGContextSetLineCap(CGContextRef context, CGLineCap cap);
/// How the lines of a stroke meet; mitred at first.
void CGContextSetLineJoin(CGContextRef context, CGLineJoin join);
/// At sharper corners, where the mitre would be longer than `limit` line widths, the join is bevelled; 10 at first.
void CGContextSetMiterLimit(CGContextRef context, CGFloat limit);
/// Lengths of dashes and gaps in turn, in user space units; null or a count of 0 gives a solid line. Negative lengths,
/// or lengths that are all 0, are ignored.
void CGContextSetLineDash(CGContextRef context, CGFloat phase, const CGFloat* lengths, NSUInteger count);
/// The colour of fills, opaque black at first. Nil is ignored. A pattern is tiled from the origin of user space, a
/// pixel a unit, and stands upright whether y grows upwards or downwards: tiles start at the top left where it grows
/// downwards, at the bottom left where it grows upwards.
void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color);
/// The colour of strokes, likewise.
void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color);
/// The colour of fills, of components 0..1, not clamped.
void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
/// The colour of strokes, of components 0..1, not clamped.
void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
/// The colour of fills, a grey from 0 (black) to 1 (white), not clamped.
void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha);
/// The colour of strokes, a grey from 0 (black) to 1 (white), not clamped.
void CGContextSetGrayStrokeColor(CGContextRef context, CGFloat gray, CGFloat alpha);
/// 0 to 1 (clamped), multiplied into everything drawn; 1 at first.
void CGContextSetAlpha(CGContextRef context, CGFloat alpha);
/// How what is drawn meets what is there; normal at first.
void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode);
/// Whether edges are softened; true at first.
void CGContextSetShouldAntialias(CGContextRef context, bool antialias);
/// How images are sampled that are drawn larger or smaller.
void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality);
/// A shadow under everything drawn, black at a third of full opacity. `offset` and `blur` in base space, not turned or
/// scaled by the current transform; `blur` is twice the standard deviation of the softening.
void CGContextSetShadow(CGContextRef context, CGSize offset, CGFloat blur);
/// The same in another colour; a nil one takes the shadow away.
void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color);
/// @}

/// @name The current path
/// Points are transformed as they are added; see `CGPath` for what each adds. The path is not part of the saved state.
/// @{
/// Drops the current path and begins an empty one.
void CGContextBeginPath(CGContextRef context);
/// Begins a subpath at (x, y).
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
/// A line from the current point. Ignored, as a curve is, while the path has none.
void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y);
/// Points joined by lines, the first one moved to.
void CGContextAddLines(CGContextRef context, const CGPoint* points, NSUInteger count);
/// A quadratic curve from the current point to (x, y), bent towards the control point (cpx, cpy).
void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cpx, CGFloat cpy, CGFloat x, CGFloat y);
/// A cubic curve from the current point to (x, y): it leaves towards the first control point and arrives from the
/// second.
void CGContextAddCurveToPoint(CGContextRef context, CGFloat cp1x, CGFloat cp1y, CGFloat cp2x, CGFloat cp2y, CGFloat x,
                              CGFloat y);
/// A closed subpath: the rectangle.
void CGContextAddRect(CGContextRef context, CGRect rect);
/// A closed subpath: the ellipse that touches the rectangle's sides.
void CGContextAddEllipseInRect(CGContextRef context, CGRect rect);
/// As `CGPathAddArc`; `clockwise`: 1 goes through decreasing angles in user space, 0 through increasing ones.
void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise);
/// As `CGPathAddArcToPoint`: an arc that touches the two lines by way of (x1, y1).
void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius);
/// Adds the path's elements, its points in user space.
void CGContextAddPath(CGContextRef context, CGPathRef path);
/// A line back to where the subpath began; the next line starts there.
void CGContextClosePath(CGContextRef context);
/// Whether the current path has no elements; true for nil.
bool CGContextIsPathEmpty(CGContextRef context);
/// Where the next line starts, in user space; (0, 0) without a point.
CGPoint CGContextGetPathCurrentPoint(CGContextRef context);
/// @}

/// @name Drawing the current path
/// Each uses the path up: a new one begins.
/// @{
/// Fills what the path winds around.
void CGContextFillPath(CGContextRef context);
/// Fills what the path encloses by the even-odd rule.
void CGContextEOFillPath(CGContextRef context);
/// Draws the path's line.
void CGContextStrokePath(CGContextRef context);
/// Fills, then strokes, as the mode says.
void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode);
/// Cuts the clip down to what the path winds around; an empty path leaves nothing. Saved with the state.
void CGContextClip(CGContextRef context);
/// The same with what the path encloses by the even-odd rule.
void CGContextEOClip(CGContextRef context);
/// @}

/// @name Drawing at once
/// These leave nothing of the current path.
/// @{
/// Fills the rectangle.
void CGContextFillRect(CGContextRef context, CGRect rect);
/// Makes the rectangle transparent (black where there is no alpha), whatever the colour, alpha and blend mode.
void CGContextClearRect(CGContextRef context, CGRect rect);
/// Draws the rectangle's outline.
void CGContextStrokeRect(CGContextRef context, CGRect rect);
/// The same with a line of this width, the state's left as it is; nothing when it is negative.
void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width);
/// Fills the ellipse that touches the rectangle's sides.
void CGContextFillEllipseInRect(CGContextRef context, CGRect rect);
/// Draws the outline of that ellipse.
void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect);
/// Cuts the clip down to the rectangle.
void CGContextClipToRect(CGContextRef context, CGRect rect);
/// The box around the clip in user space; empty for nil.
CGRect CGContextGetClipBoundingBox(CGContextRef context);
/// Scales the image to fill `rect`. The image's top row lies at the largest y: upright where y grows upwards.
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);
/// Fills the clip, across the line from point to point. A line of no length paints nothing.
void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint startPoint, CGPoint endPoint,
                                 CGGradientOptions options);
/// Fills the clip between two circles, and beyond them as the options say. Negative radii, or two equal circles, paint
/// nothing.
void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter, CGFloat startRadius,
                                 CGPoint endCenter, CGFloat endRadius, CGGradientOptions options);
/// What follows, until the end, is drawn on its own and then put down as one, with the alpha, blend mode and shadow of
/// now; inside, alpha is 1, the blend mode normal, and there is no shadow. Layers nest.
void CGContextBeginTransparencyLayer(CGContextRef context);
/// Puts the last layer down. Ignored without one.
void CGContextEndTransparencyLayer(CGContextRef context);
/// @}

} // namespace zr
#pragma GCC visibility pop
