#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSObject.h>

#include <cstdint>
#include <memory>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// An immutable bitmap: rows of 32-bit pixels, blue, green, red, alpha in memory order, colours premultiplied by alpha.
/// Every bitmap of the platform (images, layers, frames) has this form.
class CGImage : public NSObject {
public:
    /// `pixels`: height rows of `bytesPerRow` bytes, kept alive by the pointer. `opaque`: every alpha is 255.
    CGImage(NSUInteger width, NSUInteger height, NSUInteger bytesPerRow, std::shared_ptr<const std::uint8_t[]> pixels,
            bool opaque);

    /// Pixels in a row.
    NSUInteger width() const { return m_width; }
    /// How many rows there are.
    NSUInteger height() const { return m_height; }
    /// Bytes from one row to the next; may be more than its pixels need.
    NSUInteger bytesPerRow() const { return m_bytesPerRow; }
    /// The first pixel of the first (top) row.
    const std::uint8_t* pixels() const { return m_pixels.get(); }
    /// `width` pixels of that row, the top one being row 0.
    const std::uint32_t* row(NSUInteger y) const {
        return reinterpret_cast<const std::uint32_t*>(m_pixels.get() + y * m_bytesPerRow);
    }
    /// Whether every pixel is known to be opaque.
    bool isOpaque() const { return m_opaque; }

private:
    friend Ref<CGImage> CGImageCreateWithImageInRect(CGImage* image, CGRect rect);

    NSUInteger m_width;
    NSUInteger m_height;
    NSUInteger m_bytesPerRow;
    std::shared_ptr<const std::uint8_t[]> m_pixels;
    bool m_opaque;
};
using CGImageRef = CGImage*;

/// Pixels in a row; 0 for nil.
NSUInteger CGImageGetWidth(CGImageRef image);
/// How many rows there are; 0 for nil.
NSUInteger CGImageGetHeight(CGImageRef image);
/// Bytes from one row to the next; 0 for nil.
NSUInteger CGImageGetBytesPerRow(CGImageRef image);
/// The part of the image inside `rect` (pixels from the top left, grown outwards to whole ones, but for a millionth of
/// one, which is a rounding error). It shares the pixels. Nil when the rectangle misses the image.
Ref<CGImage> CGImageCreateWithImageInRect(CGImageRef image, CGRect rect);

} // namespace zr
#pragma GCC visibility pop
