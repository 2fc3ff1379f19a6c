#pragma once

#include <ZRPlatform/UIKit/Images/Internal/FileBytes.h>

namespace zr {

/// How a photograph is to be turned, 1..8, by the metadata in a PNG or WebP file; 1, upright, when they do not say so.
/// @{
int orientationInPNG(FileBytes bytes);
int orientationInWebP(FileBytes bytes);
/// @}

struct PixelSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

/// The most that a WebP file states for its canvas and its picture; zero when it states nothing.
PixelSize sizeInWebP(FileBytes bytes);

} // namespace zr
