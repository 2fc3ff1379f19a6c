#include <ZRPlatform/CoreGraphics/Cairo/Internal/CairoContext.h>

#include <algorithm>

namespace zr {

namespace {

bool goesOnBefore(CGGradientOptions options) { return options & kCGGradientDrawsBeforeStartLocation; }
bool goesOnAfter(CGGradientOptions options) { return options & kCGGradientDrawsAfterEndLocation; }

CGFloat distance(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// The distance from `point` to the farthest corner of `rect`.
CGFloat farthestCorner(CGPoint point, CGRect rect) {
    return std::hypot(std::max(std::fabs(CGRectGetMinX(rect) - point.x), std::fabs(CGRectGetMaxX(rect) - point.x)),
                      std::max(std::fabs(CGRectGetMinY(rect) - point.y), std::fabs(CGRectGetMaxY(rect) - point.y)));
}

CGRect circleBox(CGPoint center, CGFloat radius) {
    return CGRectMake(center.x - radius, center.y - radius, 2 * radius, 2 * radius);
}

} // namespace

CGRect CairoContext::userClip() const {
    return CGRectApplyAffineTransform(clipBounds(), CGAffineTransformInvert(state().ctm));
}

void CairoContext::addStop(cairo_pattern_t* pattern, CGFloat location, RGBAColor color) const {
    if (m_exchanged)
        std::swap(color.red, color.blue);
    cairo_pattern_add_color_stop_rgba(pattern, location, clampedToUnit(color.red), clampedToUnit(color.green),
                                      clampedToUnit(color.blue), clampedToUnit(color.alpha));
}

void CairoContext::paintGradient(cairo_pattern_t* pattern) {
    if (setUserSource(pattern))
        cairo_paint_with_alpha(m_cairo, state().alpha);
}

void CairoContext::drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end,
                                      CGGradientOptions options) {
    const CGRect visible = m_cairo ? userClip() : CGRectZero;
    const CGFloat length = distance(start, end);
    if (CGRectIsEmpty(visible) || !(length > 0) || !std::isfinite(length))
        return;
    const CGPoint along = {(end.x - start.x) / length, (end.y - start.y) / length};
    const CGFloat reach = farthestCorner(start, visible);
    const CGFloat from = goesOnBefore(options) ? -reach : 0;
    const CGFloat to = goesOnAfter(options) ? std::max(reach, length) : length;
    // The band across the gradient where it paints, wide enough to cover what is visible.
    const auto corner = [&](CGFloat forward, CGFloat aside) {
        return CGPointMake(start.x + along.x * forward - along.y * aside,
                           start.y + along.y * forward + along.x * aside);
    };
    const CGPoint corners[] = {corner(from, -reach), corner(to, -reach), corner(to, reach), corner(from, reach)};
    const auto band = CGPathCreateMutable();
    CGPathAddLines(band, &state().ctm, corners, 4);
    CGPathCloseSubpath(band);
    paint([&] {
        cairo_pattern_t* pattern = cairo_pattern_create_linear(start.x, start.y, end.x, end.y);
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
        for (const CGGradient::Stop& stop : gradient.stops())
            addStop(pattern, stop.location, stop.color);
        cairo_save(m_cairo);
        if (!goesOnBefore(options) || !goesOnAfter(options)) {
            emit(*band);
            cairo_clip(m_cairo);
        }
        paintGradient(pattern);
        cairo_restore(m_cairo);
    });
}

void CairoContext::drawRadialGradient(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius,
                                      CGPoint endCenter, CGFloat endRadius, CGGradientOptions options) {
    if (!m_cairo)
        return;
    if (distance(startCenter, endCenter) > std::fabs(endRadius - startRadius)) {
        paintCone(gradient, startCenter, startRadius, endCenter, endRadius, options);
        return;
    }
    // One circle lies in the other: beyond one end is the inside of the small circle, beyond the other the outside of
    // the large one.
    const bool grows = endRadius > startRadius;
    const bool paintsInside = grows ? goesOnBefore(options) : goesOnAfter(options);
    const bool paintsOutside = grows ? goesOnAfter(options) : goesOnBefore(options);
    const CGRect small = grows ? circleBox(startCenter, startRadius) : circleBox(endCenter, endRadius);
    const CGRect large = grows ? circleBox(endCenter, endRadius) : circleBox(startCenter, startRadius);
    const CGRect visible = userClip();
    const auto ring = CGPathCreateMutable();
    if (paintsOutside)
        CGPathAddRect(ring, &state().ctm, CGRectUnion(visible, large));
    else
        CGPathAddEllipseInRect(ring, &state().ctm, large);
    if (!paintsInside && !CGRectIsEmpty(small))
        CGPathAddEllipseInRect(ring, &state().ctm, small);
    paint([&] {
        cairo_pattern_t* pattern =
            cairo_pattern_create_radial(startCenter.x, startCenter.y, startRadius, endCenter.x, endCenter.y, endRadius);
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
        for (const CGGradient::Stop& stop : gradient.stops())
            addStop(pattern, stop.location, stop.color);
        cairo_save(m_cairo);
        if (!paintsInside || !paintsOutside) {
            cairo_set_fill_rule(m_cairo, CAIRO_FILL_RULE_EVEN_ODD);
            emit(*ring);
            cairo_clip(m_cairo);
        }
        paintGradient(pattern);
        cairo_restore(m_cairo);
    });
}

/// Neither circle lies in the other. An end that goes on is made by moving its circle along the cone, to the tip or
/// until it leaves what is visible, with the stops moved the other way.
void CairoContext::paintCone(const CGGradient& gradient, CGPoint startCenter, CGFloat startRadius, CGPoint endCenter,
                             CGFloat endRadius, CGGradientOptions options) {
    const CGRect visible = userClip();
    const CGFloat growth = endRadius - startRadius;
    const CGFloat reach =
        farthestCorner(startCenter, visible) + farthestCorner(endCenter, visible) + std::max(startRadius, endRadius);
    constexpr CGFloat kMostTurns = 1000;
    const CGFloat far = std::min(reach / (distance(startCenter, endCenter) - std::fabs(growth)), kMostTurns);
    CGFloat from = 0;
    CGFloat to = 1;
    if (goesOnBefore(options))
        from = growth > 0 ? std::max(-startRadius / growth, -far) : -far;
    if (goesOnAfter(options))
        to = 1 + (growth < 0 ? std::min(endRadius / -growth, far) : far);
    const auto center = [&](CGFloat t) {
        return CGPointMake(startCenter.x + (endCenter.x - startCenter.x) * t,
                           startCenter.y + (endCenter.y - startCenter.y) * t);
    };
    const auto radius = [&](CGFloat t) { return std::max(startRadius + growth * t, CGFloat(0)); };
    paint([&] {
        cairo_pattern_t* pattern = cairo_pattern_create_radial(center(from).x, center(from).y, radius(from),
                                                               center(to).x, center(to).y, radius(to));
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_NONE);
        // The end colours fill the parts beyond the first and last stop.
        const auto& stops = gradient.stops();
        addStop(pattern, 0, stops.front().color);
        for (const CGGradient::Stop& stop : stops)
            addStop(pattern, (stop.location - from) / (to - from), stop.color);
        addStop(pattern, 1, stops.back().color);
        paintGradient(pattern);
    });
}

} // namespace zr
