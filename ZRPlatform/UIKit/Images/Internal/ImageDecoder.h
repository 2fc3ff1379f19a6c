#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zr {

/// What an image, decoded or drawn, may measure.
inline constexpr NSUInteger kMaximumImageSide = 32767;
inline constexpr NSUInteger kMaximumImagePixels = 64'000'000;

/// False for a side or a pixel count that is 0 or beyond the limits.
bool imageSizeIsAllowed(NSUInteger width, NSUInteger height);

/// The content of an image file.
struct DecodedImage {
    Ref<CGImage> image;
    /// How the bitmap is to be turned, numbered as in photographs' metadata: 1..8, 1 is upright.
    int orientation = 1;
};

/// Nothing for bytes that are no complete image of a known format, or one beyond the limits; those are refused from the
/// header alone.
std::optional<DecodedImage> decodeImage(std::span<const std::uint8_t> bytes);
/// The same for a regular file of at most 512 MiB.
std::optional<DecodedImage> decodeImageFile(const std::string& path);
/// A PNG file with the bitmap's pixels; empty when memory runs out.
std::vector<std::uint8_t> encodePNG(const CGImage& image);

} // namespace zr
