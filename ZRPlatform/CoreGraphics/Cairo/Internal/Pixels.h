#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <cairo.h>

namespace zr {

/// What Cairo calls ARGB32 is the platform's blue, green, red, alpha only where the low byte comes first.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "bitmaps are laid out for little-endian machines");

/// One pixel with its first and third colour byte exchanged.
inline std::uint32_t exchangedRedAndBlue(std::uint32_t pixel) {
    return (pixel & 0xFF00FF00u) | (pixel >> 16 & 0xFFu) | (pixel & 0xFFu) << 16;
}

/// A surface of the image's pixels: the very same memory, or a copy with red and blue exchanged. Null when Cairo cannot
/// read them (too large, or rows at odd addresses).
cairo_surface_t* surfaceWithImage(const CGImage& image, bool exchanged);

/// The alpha of `surface` (ARGB32), softened by a Gaussian of this standard deviation in pixels, of the same size.
cairo_surface_t* blurredAlpha(cairo_surface_t* surface, double deviation);
/// More softening than this looks no different and takes long.
inline constexpr double kLargestDeviation = 128;

} // namespace zr
