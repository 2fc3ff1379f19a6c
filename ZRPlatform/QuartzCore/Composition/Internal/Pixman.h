#pragma once

#include <ZRPlatform/QuartzCore/Composition/Internal/Scene.h>

#include <pixman.h>

#include <algorithm>
#include <cmath>
#include <memory>

/// What all parts of the painter need: pixman's images, and geometry in pixels.
namespace zr {

/// How far, in pixels, a drawn arc may be from the true one.
inline constexpr double kArcTolerance = 0.05;
/// Less than this many pixels is a rounding error.
inline constexpr double kForgiven = 1.0 / 1024;

using ImagePointer = std::shared_ptr<pixman_image_t>;

inline ImagePointer managed(pixman_image_t* image) {
    return {image, [](pixman_image_t* i) {
                if (i)
                    pixman_image_unref(i);
            }};
}

inline ImagePointer solid(const PaintColor& color, float factor = 1) {
    const auto number = [factor](float x) { return static_cast<std::uint16_t>(x * factor * 65535 + 0.5f); };
    const pixman_color_t pixmanColor{number(color.red), number(color.green), number(color.blue), number(color.alpha)};
    return managed(pixman_image_create_solid_fill(&pixmanColor));
}

/// A whole pixel; far outside of every screen for numbers that no integer holds.
inline int wholePixel(double x) { return static_cast<int>(std::clamp(x, -1e8, 1e8)); }

inline bool contains(CGRect box, PixelRect area) {
    return box.origin.x <= area.x && box.origin.y <= area.y && box.origin.x + box.size.width >= area.right() &&
           box.origin.y + box.size.height >= area.bottom();
}

} // namespace zr
