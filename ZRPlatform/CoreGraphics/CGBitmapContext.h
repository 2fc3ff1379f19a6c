#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>

#pragma GCC visibility push(default)
namespace zr {

/// Where a bitmap's pixels keep their alpha. "First" and "last" are said of the pixel as a number, most significant
/// byte first; which byte of memory that is, the byte order says.
enum CGImageAlphaInfo : std::uint32_t {
    kCGImageAlphaNone = 0,
    kCGImageAlphaPremultipliedLast = 1,
    kCGImageAlphaPremultipliedFirst = 2,
    kCGImageAlphaLast = 3,
    kCGImageAlphaFirst = 4,
    kCGImageAlphaNoneSkipLast = 5,
    kCGImageAlphaNoneSkipFirst = 6,
    kCGImageAlphaOnly = 7,
};

/// An alpha info plus a byte order.
using CGBitmapInfo = std::uint32_t;

/// The part of a bitmap info that is its `CGImageAlphaInfo`.
inline constexpr CGBitmapInfo kCGBitmapAlphaInfoMask = 0x1F;
/// The part of a bitmap info that is its byte order.
inline constexpr CGBitmapInfo kCGBitmapByteOrderMask = 0x7000;
/// The most significant byte first.
inline constexpr CGBitmapInfo kCGBitmapByteOrderDefault = 0;
/// The least significant byte of 32 bits first.
inline constexpr CGBitmapInfo kCGBitmapByteOrder32Little = 2 << 12;
/// The most significant byte of 32 bits first.
inline constexpr CGBitmapInfo kCGBitmapByteOrder32Big = 4 << 12;

/// A context that draws into memory. The first row of memory is the top of the picture.
///
/// Supported: 8 bits a component, RGB with premultiplied or skipped alpha, first or last, in either byte order (32 bits
/// a pixel); and 8-bit grey without alpha. `data` is the caller's and outlives the context, or null for memory of the
/// context's own, all zero at first. `bytesPerRow` 0 chooses. Nil for everything else: an unsupported combination, rows
/// too short, rows of 32-bit pixels that are not a multiple of 4 bytes or not so aligned, a width or height of 0 or
/// above 32767, or more memory than there is.
Ref<CGContext> CGBitmapContextCreate(void* data, NSUInteger width, NSUInteger height, NSUInteger bitsPerComponent,
                                     NSUInteger bytesPerRow, CGColorSpaceRef space, CGBitmapInfo bitmapInfo);
/// A context in the platform's own pixel form, transparent at first, or black with `opaque`. Nil as above.
Ref<CGContext> CGBitmapContextCreateForLayer(NSUInteger width, NSUInteger height, bool opaque);

/// A copy of what is drawn so far. Nil when this is no bitmap context, or its image was taken.
Ref<CGImage> CGBitmapContextCreateImage(CGContextRef context);
/// The image without a copy, where the context has memory of its own in the platform's form: the context hands over its
/// pixels and is empty from then on (0 x 0; drawing does nothing). Nil when this is no bitmap context or is empty.
Ref<CGImage> CGBitmapContextTakeImage(CGContextRef context);

/// The first pixel of the top row. The memory belongs to the context or its maker. Null for anything but a bitmap
/// context.
void* CGBitmapContextGetData(CGContextRef context);
/// Pixels in a row; 0 for anything but a bitmap context.
NSUInteger CGBitmapContextGetWidth(CGContextRef context);
/// How many rows there are; 0 likewise.
NSUInteger CGBitmapContextGetHeight(CGContextRef context);
/// Bytes from one row to the next; 0 likewise.
NSUInteger CGBitmapContextGetBytesPerRow(CGContextRef context);
/// How the pixels lie in memory; 0 likewise.
CGBitmapInfo CGBitmapContextGetBitmapInfo(CGContextRef context);
/// Where the pixels keep their alpha; none likewise.
CGImageAlphaInfo CGBitmapContextGetAlphaInfo(CGContextRef context);

} // namespace zr
#pragma GCC visibility pop
