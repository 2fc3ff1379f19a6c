#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <cstdint>
#include <memory>

namespace zr {

/// A rectangle of whole pixels, y upwards.
struct PixelArea {
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;

    bool isEmpty() const { return width <= 0 || height <= 0; }
    std::int64_t right() const { return x + width; }
    std::int64_t top() const { return y + height; }
    bool contains(const PixelArea& other) const;
    /// Empty and zero when they do not meet.
    PixelArea intersection(const PixelArea& other) const;
    PixelArea grownBy(std::int64_t margin) const;
    CGRect rect() const;
    /// A finite rectangle grown outwards to whole pixels, and cut where it reaches farther than 2^40.
    static PixelArea around(CGRect rect);
};

/// What a picture is made of.
class ImageRecipe {
public:
    virtual ~ImageRecipe() = default;
    /// Where there may be something to see; empty and zero for nothing.
    virtual PixelArea extent() const = 0;
    /// The pixels of an area that is not empty, transparent outside the extent. Nil when memory runs out.
    Ref<CGImage> draw(const PixelArea& area) const;

protected:
    /// The same for an area within the extent.
    virtual Ref<CGImage> drawInside(const PixelArea& area) const = 0;
};

std::shared_ptr<const ImageRecipe> bitmapRecipe(CGImageRef image);
std::shared_ptr<const ImageRecipe> cropRecipe(std::shared_ptr<const ImageRecipe> input, const PixelArea& area);
/// `radius`: the standard deviation in pixels, any number.
std::shared_ptr<const ImageRecipe> blurRecipe(std::shared_ptr<const ImageRecipe> input, double radius);

/// Zero-filled pixels, rows of width * 4 bytes, both sides at least 1; null when there is not enough memory, or for
/// more than 2^28 pixels.
std::shared_ptr<std::uint8_t[]> blankPixels(std::int64_t width, std::int64_t height);
Ref<CGImage> imageOfPixels(std::shared_ptr<const std::uint8_t[]> pixels, std::int64_t width, std::int64_t height);

} // namespace zr
