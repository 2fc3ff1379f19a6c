#include <ZRPlatform/CoreGraphics/Cairo/Internal/CairoContext.h>

#include <ZRPlatform/CoreGraphics/Cairo/Internal/Pixels.h>

#include <algorithm>
#include <utility>

namespace zr {

namespace {

/// Where a shadow falls, in pixels, y downwards, and how soft it is.
struct ShadowPlace {
    double dx = 0;
    double dy = 0;
    double deviation = 0;
};

ShadowPlace placeOf(const CGGraphicsState& state, CGAffineTransform base) {
    const CGSize offset = CGSizeApplyAffineTransform(state.shadowOffset, base);
    const double scale = std::hypot(base.c, base.d);
    return {std::round(std::clamp<double>(offset.width, -kFarthest, kFarthest)),
            std::round(std::clamp<double>(-offset.height, -kFarthest, kFarthest)),
            std::min<double>(state.shadowBlur * scale / 2, kLargestDeviation)};
}

} // namespace

void CairoContext::paintWithShadow(const std::function<void()>& painting) {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(m_cairo, &left, &top, &right, &bottom);
    const ShadowPlace place = placeOf(state(), baseTransform());
    const double margin = std::ceil(3 * place.deviation) + 1;
    // What is drawn outside the clip can still throw a shadow into it.
    const double originX = std::floor(left - std::max(place.dx, 0.0) - margin);
    const double originY = std::floor(top - std::max(place.dy, 0.0) - margin);
    const double width = std::ceil(right - std::min(place.dx, 0.0) + margin) - originX;
    const double height = std::ceil(bottom - std::min(place.dy, 0.0) + margin) - originY;
    constexpr double kLargestSide = 32767;
    if (right <= left || bottom <= top || width > kLargestSide || height > kLargestSide)
        return painting();

    cairo_surface_t* drawing =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height));
    cairo_surface_set_device_offset(drawing, -originX, -originY);
    cairo_t* outside = std::exchange(m_cairo, cairo_create(drawing));
    cairo_set_tolerance(m_cairo, cairo_get_tolerance(outside));
    cairo_set_antialias(m_cairo, cairo_get_antialias(outside));
    painting();
    cairo_destroy(std::exchange(m_cairo, outside));
    cairo_surface_set_device_offset(drawing, 0, 0);

    // The drawing's alpha has the state's alpha in it already.
    cairo_surface_t* shadow = blurredAlpha(drawing, place.deviation);
    setColor(state().shadowColor->rgba(), 1);
    cairo_mask_surface(m_cairo, shadow, originX + place.dx, originY + place.dy);
    cairo_set_source_surface(m_cairo, drawing, originX, originY);
    cairo_paint(m_cairo);
    cairo_surface_destroy(shadow);
    cairo_surface_destroy(drawing);
}

} // namespace zr
