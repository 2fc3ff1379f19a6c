#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>

#include <ZRPlatform/CoreGraphics/Cairo/Internal/BitmapContext.h>

#include <limits>
#include <optional>

namespace zr {

namespace {

constexpr NSUInteger kLargestSide = 32767;
constexpr CGBitmapInfo kLayerInfo = kCGBitmapByteOrder32Little;

BitmapContext* bitmapOf(CGContextRef context) { return dynamic_cast<BitmapContext*>(context); }

std::optional<PixelLayout> rgbLayout(CGBitmapInfo info) {
    const CGBitmapInfo order = info & kCGBitmapByteOrderMask;
    const bool little = order == kCGBitmapByteOrder32Little;
    if (!little && order != kCGBitmapByteOrder32Big && order != kCGBitmapByteOrderDefault)
        return std::nullopt;
    // Cairo's pixel is alpha, red, green, blue from the most significant byte down: "first", in little order.
    switch (info & kCGBitmapAlphaInfoMask) {
    case kCGImageAlphaPremultipliedLast:
        return PixelLayout{.exchanged = true, .reversed = little};
    case kCGImageAlphaNoneSkipLast:
        return PixelLayout{.exchanged = true, .reversed = little, .opaque = true};
    case kCGImageAlphaPremultipliedFirst:
        return PixelLayout{.reversed = !little};
    case kCGImageAlphaNoneSkipFirst:
        return PixelLayout{.reversed = !little, .opaque = true};
    default:
        return std::nullopt;
    }
}

std::optional<PixelLayout> layoutFor(CGColorSpaceRef space, CGBitmapInfo info) {
    if (info & ~(kCGBitmapAlphaInfoMask | kCGBitmapByteOrderMask))
        return std::nullopt;
    switch (CGColorSpaceGetNumberOfComponents(space)) {
    case 3:
        return rgbLayout(info);
    case 1:
        if (info == kCGImageAlphaNone)
            return PixelLayout{.gray = true, .opaque = true};
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

Ref<CGContext> CGBitmapContextCreate(void* data, NSUInteger width, NSUInteger height, NSUInteger bitsPerComponent,
                                     NSUInteger bytesPerRow, CGColorSpaceRef space, CGBitmapInfo bitmapInfo) {
    const std::optional<PixelLayout> layout = layoutFor(space, bitmapInfo);
    if (!layout || bitsPerComponent != 8 || width == 0 || height == 0 || width > kLargestSide || height > kLargestSide)
        return nullptr;
    const NSUInteger pixelBytes = width * layout->bytesPerPixel();
    const NSUInteger rowBytes = bytesPerRow == 0 ? pixelBytes : bytesPerRow;
    if (rowBytes < pixelBytes || rowBytes > static_cast<NSUInteger>(std::numeric_limits<int>::max()) ||
        rowBytes > std::numeric_limits<NSUInteger>::max() / height)
        return nullptr;
    constexpr NSUInteger kPixelAlignment = alignof(std::uint32_t);
    const bool aligned =
        rowBytes % kPixelAlignment == 0 && reinterpret_cast<std::uintptr_t>(data) % kPixelAlignment == 0;
    if (!layout->needsCopy() && !aligned)
        return nullptr;
    return BitmapContext::create(static_cast<std::uint8_t*>(data), width, height, rowBytes, *layout, bitmapInfo);
}

Ref<CGContext> CGBitmapContextCreateForLayer(NSUInteger width, NSUInteger height, bool opaque) {
    const CGBitmapInfo alpha = opaque ? kCGImageAlphaNoneSkipFirst : kCGImageAlphaPremultipliedFirst;
    return CGBitmapContextCreate(nullptr, width, height, 8, 0, CGColorSpaceCreateDeviceRGB(), kLayerInfo | alpha);
}

Ref<CGImage> CGBitmapContextCreateImage(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->copyImage() : nullptr;
}

Ref<CGImage> CGBitmapContextTakeImage(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->takeImage() : nullptr;
}

void* CGBitmapContextGetData(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->data() : nullptr;
}

NSUInteger CGBitmapContextGetWidth(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->width() : 0;
}

NSUInteger CGBitmapContextGetHeight(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->height() : 0;
}

NSUInteger CGBitmapContextGetBytesPerRow(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->bytesPerRow() : 0;
}

CGBitmapInfo CGBitmapContextGetBitmapInfo(CGContextRef context) {
    BitmapContext* bitmap = bitmapOf(context);
    return bitmap ? bitmap->info() : 0;
}

CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef context) {
    return static_cast<CGImageAlphaInfo>(CGBitmapContextGetBitmapInfo(context) & kCGBitmapAlphaInfoMask);
}

} // namespace zr
