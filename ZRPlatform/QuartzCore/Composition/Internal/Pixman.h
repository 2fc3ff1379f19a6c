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

/// The whole pixels inside a box whose corners are cut off by `radius`: there nothing of it is missing.
inline PixelRect insideOf(CGRect box, CGFloat radius) {
    const int left = wholePixel(std::ceil(box.origin.x + radius - kForgiven));
    const int top = wholePixel(std::ceil(box.origin.y + radius - kForgiven));
    const int right = wholePixel(std::floor(box.origin.x + box.size.width - radius + kForgiven));
    const int bottom = wholePixel(std::floor(box.origin.y + box.size.height - radius + kForgiven));
    return {left, top, std::max(right - left, 0), std::max(bottom - top, 0)};
}

/// Calls `paint` with the parts of `area` outside of `middle`, which lies in it.
template <class Paint>
void forEachPartAround(PixelRect middle, PixelRect area, Paint paint) {
    if (middle.isEmpty())
        middle = {area.x, area.y, 0, 0};
    const PixelRect parts[] = {{area.x, area.y, area.width, middle.y - area.y},
                               {area.x, middle.y, middle.x - area.x, middle.height},
                               {middle.right(), middle.y, area.right() - middle.right(), middle.height},
                               {area.x, middle.bottom(), area.width, area.bottom() - middle.bottom()}};
    for (const PixelRect& part : parts) {
        if (!part.isEmpty())
            paint(part);
    }
}

} // namespace zr
