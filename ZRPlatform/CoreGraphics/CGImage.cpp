#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <cmath>

namespace zr {

namespace {

/// Points times a scale of 3 miss the whole pixel that they mean by a little, to either side.
CGFloat withoutRoundingError(CGFloat edge) {
    const CGFloat whole = std::round(edge);
    return std::abs(edge - whole) <= 1e-6 ? whole : edge;
}

/// Grown outwards to whole pixels.
CGRect wholePixels(CGRect rect) {
    const CGFloat left = withoutRoundingError(CGRectGetMinX(rect)), right = withoutRoundingError(CGRectGetMaxX(rect));
    const CGFloat top = withoutRoundingError(CGRectGetMinY(rect)), bottom = withoutRoundingError(CGRectGetMaxY(rect));
    const bool isVisible = left < right && top < bottom;
    return CGRectIntegral(isVisible ? CGRectMake(left, top, right - left, bottom - top) : rect);
}

} // namespace

CGImage::CGImage(NSUInteger width, NSUInteger height, NSUInteger bytesPerRow,
                 std::shared_ptr<const std::uint8_t[]> pixels, bool opaque) :
    m_width(width),
    m_height(height), m_bytesPerRow(bytesPerRow), m_pixels(std::move(pixels)), m_opaque(opaque) {}

NSUInteger CGImageGetWidth(CGImageRef image) { return image ? image->width() : 0; }

NSUInteger CGImageGetHeight(CGImageRef image) { return image ? image->height() : 0; }

NSUInteger CGImageGetBytesPerRow(CGImageRef image) { return image ? image->bytesPerRow() : 0; }

Ref<CGImage> CGImageCreateWithImageInRect(CGImageRef image, CGRect rect) {
    if (!image)
        return nullptr;
    const CGRect bounds = CGRectMake(0, 0, static_cast<CGFloat>(image->width()), static_cast<CGFloat>(image->height()));
    const CGRect part = CGRectIntersection(wholePixels(rect), bounds);
    if (CGRectIsEmpty(part))
        return nullptr;
    const auto x = static_cast<NSUInteger>(part.origin.x);
    const auto y = static_cast<NSUInteger>(part.origin.y);
    std::shared_ptr<const std::uint8_t[]> pixels(image->m_pixels, image->pixels() + y * image->bytesPerRow() + x * 4);
    return Ref<CGImage>::adopt(new CGImage(static_cast<NSUInteger>(part.size.width),
                                           static_cast<NSUInteger>(part.size.height), image->bytesPerRow(),
                                           std::move(pixels), image->isOpaque()));
}

} // namespace zr
