#include <ZRPlatform/CoreGraphics/Cairo/Internal/CairoContext.h>

#include <ZRPlatform/CoreGraphics/Cairo/Internal/Pixels.h>

#include <algorithm>

namespace zr {

namespace {

cairo_operator_t operatorFor(CGBlendMode mode) {
    switch (mode) {
    case kCGBlendModeNormal:
        return CAIRO_OPERATOR_OVER;
    case kCGBlendModeMultiply:
        return CAIRO_OPERATOR_MULTIPLY;
    case kCGBlendModeScreen:
        return CAIRO_OPERATOR_SCREEN;
    case kCGBlendModeOverlay:
        return CAIRO_OPERATOR_OVERLAY;
    case kCGBlendModeDarken:
        return CAIRO_OPERATOR_DARKEN;
    case kCGBlendModeLighten:
        return CAIRO_OPERATOR_LIGHTEN;
    case kCGBlendModeColorDodge:
        return CAIRO_OPERATOR_COLOR_DODGE;
    case kCGBlendModeColorBurn:
        return CAIRO_OPERATOR_COLOR_BURN;
    case kCGBlendModeSoftLight:
        return CAIRO_OPERATOR_SOFT_LIGHT;
    case kCGBlendModeHardLight:
        return CAIRO_OPERATOR_HARD_LIGHT;
    case kCGBlendModeDifference:
        return CAIRO_OPERATOR_DIFFERENCE;
    case kCGBlendModeExclusion:
        return CAIRO_OPERATOR_EXCLUSION;
    case kCGBlendModeHue:
        return CAIRO_OPERATOR_HSL_HUE;
    case kCGBlendModeSaturation:
        return CAIRO_OPERATOR_HSL_SATURATION;
    case kCGBlendModeColor:
        return CAIRO_OPERATOR_HSL_COLOR;
    case kCGBlendModeLuminosity:
        return CAIRO_OPERATOR_HSL_LUMINOSITY;
    case kCGBlendModeClear:
        return CAIRO_OPERATOR_CLEAR;
    case kCGBlendModeCopy:
        return CAIRO_OPERATOR_SOURCE;
    case kCGBlendModeSourceIn:
        return CAIRO_OPERATOR_IN;
    case kCGBlendModeSourceOut:
        return CAIRO_OPERATOR_OUT;
    case kCGBlendModeSourceAtop:
        return CAIRO_OPERATOR_ATOP;
    case kCGBlendModeDestinationOver:
        return CAIRO_OPERATOR_DEST_OVER;
    case kCGBlendModeDestinationIn:
        return CAIRO_OPERATOR_DEST_IN;
    case kCGBlendModeDestinationOut:
        return CAIRO_OPERATOR_DEST_OUT;
    case kCGBlendModeDestinationAtop:
        return CAIRO_OPERATOR_DEST_ATOP;
    case kCGBlendModeXOR:
        return CAIRO_OPERATOR_XOR;
    case kCGBlendModePlusLighter:
        return CAIRO_OPERATOR_ADD;
    }
    return CAIRO_OPERATOR_OVER;
}

/// Whether Cairo lets this mode act outside the drawn shape too.
bool reachesOutside(CGBlendMode mode) {
    return mode == kCGBlendModeSourceIn || mode == kCGBlendModeSourceOut || mode == kCGBlendModeDestinationIn ||
           mode == kCGBlendModeDestinationAtop;
}

cairo_filter_t filterFor(CGInterpolationQuality quality) {
    switch (quality) {
    case kCGInterpolationNone:
        return CAIRO_FILTER_NEAREST;
    case kCGInterpolationLow:
        return CAIRO_FILTER_BILINEAR;
    case kCGInterpolationHigh:
        return CAIRO_FILTER_BEST;
    default:
        return CAIRO_FILTER_GOOD;
    }
}

cairo_line_cap_t capFor(CGLineCap cap) {
    if (cap == kCGLineCapRound)
        return CAIRO_LINE_CAP_ROUND;
    return cap == kCGLineCapSquare ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t joinFor(CGLineJoin join) {
    if (join == kCGLineJoinRound)
        return CAIRO_LINE_JOIN_ROUND;
    return join == kCGLineJoinBevel ? CAIRO_LINE_JOIN_BEVEL : CAIRO_LINE_JOIN_MITER;
}

} // namespace

CairoContext::~CairoContext() { closeSurface(); }

void CairoContext::setSurface(cairo_surface_t* surface, CGFloat height, bool exchanged) {
    m_cairo = cairo_create(surface);
    m_height = height;
    m_exchanged = exchanged;
    // A curve is flattened to within a hundredth of a pixel, which is two steps of coverage in 255.
    cairo_set_tolerance(m_cairo, 0.01);
}

void CairoContext::closeSurface() {
    if (m_cairo)
        cairo_destroy(m_cairo);
    m_cairo = nullptr;
}

void CairoContext::begin() {
    willDraw();
    cairo_identity_matrix(m_cairo);
    cairo_new_path(m_cairo);
    cairo_set_operator(m_cairo, operatorFor(state().blendMode));
    cairo_set_antialias(m_cairo, state().shouldAntialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
}

void CairoContext::finish() {
    cairo_new_path(m_cairo);
    cairo_set_source_rgb(m_cairo, 0, 0, 0);
    didDraw();
}

cairo_matrix_t CairoContext::userMatrix() const {
    const CGAffineTransform& t = state().ctm;
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, t.a, -t.b, t.c, -t.d, t.tx, m_height - t.ty);
    return matrix;
}

void CairoContext::emit(CGPoint point, void (*add)(cairo_t*, double, double)) {
    add(m_cairo, std::clamp<double>(point.x, -kFarthest, kFarthest),
        std::clamp<double>(m_height - point.y, -kFarthest, kFarthest));
}

void CairoContext::emit(const CGPath& path) {
    const auto far = [](double value) { return std::clamp(value, -kFarthest, kFarthest); };
    const auto curve = [&](CGPoint control1, CGPoint control2, CGPoint end) {
        cairo_curve_to(m_cairo, far(control1.x), far(m_height - control1.y), far(control2.x),
                       far(m_height - control2.y), far(end.x), far(m_height - end.y));
    };
    CGPoint current;
    CGPoint start;
    for (const CGPathElement& element : path.elements()) {
        const CGPoint* p = element.points;
        switch (element.type) {
        case kCGPathElementMoveToPoint:
            emit(p[0], cairo_move_to);
            current = start = p[0];
            break;
        case kCGPathElementAddLineToPoint:
            emit(p[0], cairo_line_to);
            current = p[0];
            break;
        case kCGPathElementAddQuadCurveToPoint:
            curve({current.x + (p[0].x - current.x) * 2 / 3, current.y + (p[0].y - current.y) * 2 / 3},
                  {p[1].x + (p[0].x - p[1].x) * 2 / 3, p[1].y + (p[0].y - p[1].y) * 2 / 3}, p[1]);
            current = p[1];
            break;
        case kCGPathElementAddCurveToPoint:
            curve(p[0], p[1], p[2]);
            current = p[2];
            break;
        case kCGPathElementCloseSubpath:
            cairo_close_path(m_cairo);
            current = start;
            break;
        }
    }
}

void CairoContext::setColor(const RGBAColor& color, CGFloat alpha) {
    const double red = clampedToUnit(color.red);
    const double blue = clampedToUnit(color.blue);
    cairo_set_source_rgba(m_cairo, m_exchanged ? blue : red, clampedToUnit(color.green), m_exchanged ? red : blue,
                          clampedToUnit(color.alpha) * alpha);
}

cairo_pattern_t* CairoContext::imagePattern(const CGImage& image) const {
    cairo_surface_t* surface = surfaceWithImage(image, m_exchanged);
    if (!surface)
        return nullptr;
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(surface);
    cairo_surface_destroy(surface);
    cairo_pattern_set_filter(pattern, filterFor(state().interpolationQuality));
    return pattern;
}

bool CairoContext::setUserSource(cairo_pattern_t* pattern) {
    cairo_matrix_t placed;
    cairo_pattern_get_matrix(pattern, &placed);
    cairo_matrix_t user = userMatrix();
    cairo_matrix_t inverse = user;
    bool placeable = cairo_matrix_invert(&inverse) == CAIRO_STATUS_SUCCESS;
    if (placeable) {
        cairo_matrix_t whole;
        cairo_matrix_multiply(&whole, &inverse, &placed);
        placeable = cairo_matrix_invert(&whole) == CAIRO_STATUS_SUCCESS;
    }
    if (placeable) {
        cairo_matrix_t current;
        cairo_get_matrix(m_cairo, &current);
        cairo_set_matrix(m_cairo, &user);
        cairo_set_source(m_cairo, pattern);
        cairo_set_matrix(m_cairo, &current);
    }
    cairo_pattern_destroy(pattern);
    return placeable;
}

void CairoContext::setSource(CGColorRef color) {
    if (!color || !color->pattern()) {
        setColor(color ? color->rgba() : RGBAColor{}, state().alpha);
        return;
    }
    const CGImage& tile = *color->pattern();
    cairo_pattern_t* pattern = imagePattern(tile);
    if (!pattern) {
        setColor({}, 0);
        return;
    }
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
    const CGAffineTransform& t = state().ctm;
    if (t.a * t.d - t.b * t.c > 0) {
        cairo_matrix_t upright;
        cairo_matrix_init(&upright, 1, 0, 0, -1, 0, static_cast<double>(tile.height()));
        cairo_pattern_set_matrix(pattern, &upright);
    }
    if (!setUserSource(pattern))
        setColor({}, 0);
}

void CairoContext::paint(const std::function<void()>& painting) {
    if (!m_cairo)
        return;
    begin();
    if (state().shadowColor)
        paintWithShadow(painting);
    else
        painting();
    finish();
}

void CairoContext::paintInside(const CGPath& path, bool evenOdd, CGFloat alpha) {
    cairo_set_fill_rule(m_cairo, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    emit(path);
    if (alpha == 1 && !reachesOutside(state().blendMode)) {
        cairo_fill(m_cairo);
        return;
    }
    cairo_save(m_cairo);
    cairo_clip(m_cairo);
    cairo_paint_with_alpha(m_cairo, alpha);
    cairo_restore(m_cairo);
}

void CairoContext::fill(const CGPath& path, bool evenOdd) {
    paint([&] {
        CGColorRef color = state().fillColor;
        setSource(color);
        paintInside(path, evenOdd, color && color->pattern() ? state().alpha : 1);
    });
}

void CairoContext::stroke(const CGPath& path) {
    paint([&] {
        cairo_matrix_t user = userMatrix();
        const double scale = std::max({std::fabs(user.xx), std::fabs(user.xy), std::fabs(user.yx), std::fabs(user.yy)});
        cairo_set_line_width(m_cairo, std::min<double>(state().lineWidth, kFarthest / 2 / scale));
        cairo_set_line_cap(m_cairo, capFor(state().lineCap));
        cairo_set_line_join(m_cairo, joinFor(state().lineJoin));
        cairo_set_miter_limit(m_cairo, state().miterLimit);
        const std::vector<double> dashes(state().dashLengths.begin(), state().dashLengths.end());
        cairo_set_dash(m_cairo, dashes.data(), static_cast<int>(dashes.size()), state().dashPhase);
        CGColorRef color = state().strokeColor;
        const bool fades = color && color->pattern() && state().alpha < 1;
        if (fades)
            cairo_push_group(m_cairo);
        setSource(color);
        emit(path);
        cairo_set_matrix(m_cairo, &user);
        cairo_stroke(m_cairo);
        cairo_identity_matrix(m_cairo);
        if (fades) {
            cairo_pop_group_to_source(m_cairo);
            cairo_paint_with_alpha(m_cairo, state().alpha);
        }
    });
}

void CairoContext::clear(const CGPath& path) {
    if (!m_cairo)
        return;
    begin();
    cairo_set_operator(m_cairo, CAIRO_OPERATOR_CLEAR);
    cairo_set_fill_rule(m_cairo, CAIRO_FILL_RULE_WINDING);
    emit(path);
    cairo_fill(m_cairo);
    finish();
}

void CairoContext::clip(const CGPath& path, bool evenOdd) {
    if (!m_cairo)
        return;
    cairo_identity_matrix(m_cairo);
    cairo_new_path(m_cairo);
    cairo_set_antialias(m_cairo, state().shouldAntialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    cairo_set_fill_rule(m_cairo, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    emit(path);
    cairo_clip(m_cairo);
}

CGRect CairoContext::clipBounds() const {
    if (!m_cairo)
        return CGRectZero;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_identity_matrix(m_cairo);
    cairo_clip_extents(m_cairo, &left, &top, &right, &bottom);
    return CGRectMake(left, m_height - bottom, right - left, bottom - top);
}

void CairoContext::drawImage(CGRect rect, const CGImage& image) {
    paint([&] {
        cairo_pattern_t* pattern = imagePattern(image);
        if (!pattern)
            return;
        // The edge pixels go on outside, so that scaling does not fade them into nothing.
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
        const double sx = static_cast<double>(image.width()) / rect.size.width;
        const double sy = static_cast<double>(image.height()) / rect.size.height;
        cairo_matrix_t placed;
        cairo_matrix_init(&placed, sx, 0, 0, -sy, -rect.origin.x * sx, (rect.origin.y + rect.size.height) * sy);
        cairo_matrix_t inverse = placed;
        if (cairo_matrix_invert(&inverse) != CAIRO_STATUS_SUCCESS) {
            cairo_pattern_destroy(pattern);
            return;
        }
        cairo_pattern_set_matrix(pattern, &placed);
        if (setUserSource(pattern))
            paintInside(*CGPathCreateWithRect(rect, &state().ctm), false, state().alpha);
    });
}

void CairoContext::saveClip() {
    if (m_cairo)
        cairo_save(m_cairo);
}

void CairoContext::restoreClip() {
    if (m_cairo)
        cairo_restore(m_cairo);
}

void CairoContext::beginGroup() {
    if (!m_cairo)
        return;
    cairo_identity_matrix(m_cairo);
    cairo_push_group(m_cairo);
}

void CairoContext::endGroup() {
    if (!m_cairo)
        return;
    cairo_identity_matrix(m_cairo);
    cairo_pattern_t* group = cairo_pop_group(m_cairo);
    paint([&] {
        cairo_set_source(m_cairo, group);
        cairo_paint_with_alpha(m_cairo, state().alpha);
    });
    cairo_pattern_destroy(group);
}

} // namespace zr
