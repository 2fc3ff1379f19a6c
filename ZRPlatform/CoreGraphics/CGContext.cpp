#include <ZRPlatform/CoreGraphics/CGContext.h>

#include <algorithm>

namespace zr {

namespace {

bool isFinite(CGFloat value) { return std::isfinite(value); }
bool isFinite(CGPoint point) { return isFinite(point.x) && isFinite(point.y); }
bool isFinite(const CGAffineTransform& t) {
    return isFinite(t.a) && isFinite(t.b) && isFinite(t.c) && isFinite(t.d) && isFinite(t.tx) && isFinite(t.ty);
}

Ref<CGColor> rgbColor(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    const CGFloat components[] = {red, green, blue, alpha};
    return CGColorCreate(CGColorSpaceCreateDeviceRGB(), components);
}

Ref<CGColor> grayColor(CGFloat gray, CGFloat alpha) {
    const CGFloat components[] = {gray, alpha};
    return CGColorCreate(CGColorSpaceCreateDeviceGray(), components);
}

Ref<CGColor> opaqueBlack() {
    static const Ref<CGColor> black = grayColor(0, 1);
    return black;
}

bool isFiniteColor(CGColorRef color) {
    return std::all_of(color->components().begin(), color->components().end(),
                       [](CGFloat component) { return isFinite(component); });
}

/// Draws the current path with `paint` and begins a new one.
template <class Paint>
void usePath(CGContextRef context, Paint paint) {
    if (!context)
        return;
    CGMutablePath& path = context->path();
    if (path.isFinite() && !path.elements().empty() && context->canDraw())
        paint(path);
    path.clear();
}

/// Replaces the current path by what `build` makes of it, transformed into device space.
template <class Build>
void setPath(CGContextRef context, Build build) {
    if (!context)
        return;
    context->path().clear();
    build(&context->path(), &context->state().ctm);
}

void setRectPath(CGContextRef context, CGRect rect) {
    setPath(context, [&](CGMutablePathRef path, const CGAffineTransform* ctm) { CGPathAddRect(path, ctm, rect); });
}

void setEllipsePath(CGContextRef context, CGRect rect) {
    setPath(context,
            [&](CGMutablePathRef path, const CGAffineTransform* ctm) { CGPathAddEllipseInRect(path, ctm, rect); });
}

void clipToPath(CGContextRef context, bool evenOdd) {
    if (!context)
        return;
    if (!context->path().isFinite())
        context->path().clear();
    context->clip(context->path(), evenOdd);
    context->path().clear();
}

} // namespace

CGContext::CGContext() : m_states(1), m_path(CGPathCreateMutable()) {
    state().fillColor = opaqueBlack();
    state().strokeColor = opaqueBlack();
}

bool CGContext::canDraw() const {
    const CGAffineTransform& t = state().ctm;
    const CGFloat determinant = t.a * t.d - t.b * t.c;
    return isFinite(determinant) && isFinite(1 / determinant);
}

void CGContext::save() {
    m_states.push_back({state(), false});
    saveClip();
}

void CGContext::restore() {
    if (m_states.size() < 2 || m_states.back().startsLayer)
        return;
    m_states.pop_back();
    restoreClip();
}

void CGContext::beginLayer() {
    m_states.push_back({state(), true});
    state().alpha = 1;
    state().blendMode = kCGBlendModeNormal;
    state().shadowColor = nullptr;
    beginGroup();
}

void CGContext::endLayer() {
    if (std::none_of(m_states.begin(), m_states.end(), [](const SavedState& saved) { return saved.startsLayer; }))
        return;
    while (!m_states.back().startsLayer)
        restore();
    m_states.pop_back();
    endGroup();
}

void CGContextSaveGState(CGContextRef context) {
    if (context)
        context->save();
}

void CGContextRestoreGState(CGContextRef context) {
    if (context)
        context->restore();
}

void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform) {
    if (!context)
        return;
    const CGAffineTransform ctm = CGAffineTransformConcat(transform, context->state().ctm);
    if (isFinite(ctm))
        context->state().ctm = ctm;
}

void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty) {
    CGContextConcatCTM(context, CGAffineTransformMakeTranslation(tx, ty));
}

void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy) {
    CGContextConcatCTM(context, CGAffineTransformMakeScale(sx, sy));
}

void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
    CGContextConcatCTM(context, CGAffineTransformMakeRotation(angle));
}

CGAffineTransform CGContextGetCTM(CGContextRef context) {
    return context ? context->state().ctm : CGAffineTransformIdentity;
}

void CGContextSetBaseCTM(CGContextRef context, CGAffineTransform transform) {
    if (context && isFinite(transform))
        context->setBaseTransform(transform);
}

void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
    if (context && isFinite(width) && width >= 0)
        context->state().lineWidth = width;
}

void CGContextSetLineCap(CGContextRef context, CGLineCap cap) {
    if (context)
        context->state().lineCap = cap;
}

void CGContextSetLineJoin(CGContextRef context, CGLineJoin join) {
    if (context)
        context->state().lineJoin = join;
}

void CGContextSetMiterLimit(CGContextRef context, CGFloat limit) {
    if (context && isFinite(limit))
        context->state().miterLimit = limit;
}

void CGContextSetLineDash(CGContextRef context, CGFloat phase, const CGFloat* lengths, NSUInteger count) {
    if (!context || !isFinite(phase))
        return;
    if (!lengths || count == 0) {
        context->state().dashLengths.clear();
        return;
    }
    const auto isLength = [](CGFloat length) { return isFinite(length) && length >= 0; };
    const auto isZero = [](CGFloat length) { return length == 0; };
    if (!std::all_of(lengths, lengths + count, isLength) || std::all_of(lengths, lengths + count, isZero))
        return;
    context->state().dashPhase = phase;
    context->state().dashLengths.assign(lengths, lengths + count);
}

void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color) {
    if (context && color && isFiniteColor(color))
        context->state().fillColor = color;
}

void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
    if (context && color && isFiniteColor(color))
        context->state().strokeColor = color;
}

void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    CGContextSetFillColorWithColor(context, rgbColor(red, green, blue, alpha));
}

void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    CGContextSetStrokeColorWithColor(context, rgbColor(red, green, blue, alpha));
}

void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
    CGContextSetFillColorWithColor(context, grayColor(gray, alpha));
}

void CGContextSetGrayStrokeColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
    CGContextSetStrokeColorWithColor(context, grayColor(gray, alpha));
}

void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
    if (context && isFinite(alpha))
        context->state().alpha = std::clamp(alpha, CGFloat(0), CGFloat(1));
}

void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode) {
    if (context)
        context->state().blendMode = mode;
}

void CGContextSetShouldAntialias(CGContextRef context, bool antialias) {
    if (context)
        context->state().shouldAntialias = antialias;
}

void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality) {
    if (context)
        context->state().interpolationQuality = quality;
}

void CGContextSetShadow(CGContextRef context, CGSize offset, CGFloat blur) {
    CGContextSetShadowWithColor(context, offset, blur, grayColor(0, CGFloat(1) / 3));
}

void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color) {
    if (!context || !isFinite(offset.width) || !isFinite(offset.height) || !isFinite(blur))
        return;
    if (color && !isFiniteColor(color))
        return;
    CGGraphicsState& state = context->state();
    state.shadowOffset = offset;
    state.shadowBlur = std::max(blur, CGFloat(0));
    state.shadowColor = color;
}

void CGContextFillPath(CGContextRef context) { CGContextDrawPath(context, kCGPathFill); }

void CGContextEOFillPath(CGContextRef context) { CGContextDrawPath(context, kCGPathEOFill); }

void CGContextStrokePath(CGContextRef context) { CGContextDrawPath(context, kCGPathStroke); }

void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode) {
    const bool evenOdd = mode == kCGPathEOFill || mode == kCGPathEOFillStroke;
    const bool strokes = mode == kCGPathStroke || mode == kCGPathFillStroke || mode == kCGPathEOFillStroke;
    usePath(context, [&](const CGPath& path) {
        if (mode != kCGPathStroke)
            context->fill(path, evenOdd);
        if (strokes)
            context->stroke(path);
    });
}

void CGContextClip(CGContextRef context) { clipToPath(context, false); }

void CGContextEOClip(CGContextRef context) { clipToPath(context, true); }

void CGContextFillRect(CGContextRef context, CGRect rect) {
    setRectPath(context, rect);
    CGContextFillPath(context);
}

void CGContextClearRect(CGContextRef context, CGRect rect) {
    setRectPath(context, rect);
    usePath(context, [&](const CGPath& path) { context->clear(path); });
}

void CGContextStrokeRect(CGContextRef context, CGRect rect) {
    setRectPath(context, rect);
    CGContextStrokePath(context);
}

void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width) {
    if (!context || !isFinite(width) || width < 0)
        return;
    const CGFloat lineWidth = context->state().lineWidth;
    context->state().lineWidth = width;
    CGContextStrokeRect(context, rect);
    context->state().lineWidth = lineWidth;
}

void CGContextFillEllipseInRect(CGContextRef context, CGRect rect) {
    setEllipsePath(context, rect);
    CGContextFillPath(context);
}

void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect) {
    setEllipsePath(context, rect);
    CGContextStrokePath(context);
}

void CGContextClipToRect(CGContextRef context, CGRect rect) {
    setRectPath(context, rect);
    CGContextClip(context);
}

CGRect CGContextGetClipBoundingBox(CGContextRef context) {
    if (!context || !context->canDraw())
        return CGRectZero;
    return CGRectApplyAffineTransform(context->clipBounds(), CGAffineTransformInvert(context->state().ctm));
}

void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image) {
    if (!context || !image || !CGRectIsFinite(rect) || CGRectIsEmpty(rect) || !context->canDraw())
        return;
    if (image->width() > 0 && image->height() > 0 && image->pixels())
        context->drawImage(CGRectStandardize(rect), *image);
}

void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint startPoint, CGPoint endPoint,
                                 CGGradientOptions options) {
    if (!context || !gradient || gradient->stops().empty() || !context->canDraw())
        return;
    if (isFinite(startPoint) && isFinite(endPoint) && startPoint != endPoint)
        context->drawLinearGradient(*gradient, startPoint, endPoint, options);
}

void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter, CGFloat startRadius,
                                 CGPoint endCenter, CGFloat endRadius, CGGradientOptions options) {
    if (!context || !gradient || gradient->stops().empty() || !context->canDraw())
        return;
    if (!isFinite(startCenter) || !isFinite(endCenter) || !isFinite(startRadius) || !isFinite(endRadius))
        return;
    if (startRadius < 0 || endRadius < 0 || (startCenter == endCenter && startRadius == endRadius))
        return;
    context->drawRadialGradient(*gradient, startCenter, startRadius, endCenter, endRadius, options);
}

void CGContextBeginTransparencyLayer(CGContextRef context) {
    if (context)
        context->beginLayer();
}

void CGContextEndTransparencyLayer(CGContextRef context) {
    if (context)
        context->endLayer();
}

} // namespace zr
