#pragma once

#include <cstddef>
#include <cstdint>

#pragma GCC visibility push(default)
namespace zr {

/// @file
/// Arithmetic on whole images in memory: buffers of interleaved pixels that the caller owns. Nothing here keeps a
/// buffer, and everything may be called on any thread, from several at once as well.

/// A count of pixels, or a distance in pixels.
using vImagePixelCount = std::size_t;

/// A picture in the caller's memory: `height` rows of `width` pixels, the first rows topmost. `rowBytes` is the
/// distance in bytes from one row to the next, at least the length of a row; what lies between is never touched.
/// Neither `data` nor `rowBytes` need be aligned.
struct vImage_Buffer {
    /// The first pixel of the first row; not owned.
    void* data = nullptr;
    /// How many rows there are.
    vImagePixelCount height = 0;
    /// How many pixels are in a row.
    vImagePixelCount width = 0;
    /// Bytes from one row to the next; at least the length of a row.
    std::size_t rowBytes = 0;
};

/// A pixel of four 8-bit channels, alpha first.
using Pixel_8888 = std::uint8_t[4];

/// kvImageNoError, one of the negative codes below, or a size in bytes where a function is asked for one.
using vImage_Error = std::ptrdiff_t;

/// All went well.
inline constexpr vImage_Error kvImageNoError = 0;
/// The part asked for reaches over the right or lower border of the source.
inline constexpr vImage_Error kvImageRoiLargerThanInputBuffer = -21766;
/// A side of the kernel is even, or zero.
inline constexpr vImage_Error kvImageInvalidKernelSize = -21767;
/// The flags hold no edge style, or more than one.
inline constexpr vImage_Error kvImageInvalidEdgeStyle = -21768;
/// The part asked for begins to the right of the source.
inline constexpr vImage_Error kvImageInvalidOffset_X = -21769;
/// The part asked for begins below the source.
inline constexpr vImage_Error kvImageInvalidOffset_Y = -21770;
/// There is not enough memory for the temporary buffer.
inline constexpr vImage_Error kvImageMemoryAllocationError = -21771;
/// A buffer, its data, or a colour that is asked for is null.
inline constexpr vImage_Error kvImageNullPointerArgument = -21772;
/// A width or height is zero, or `rowBytes` too small.
inline constexpr vImage_Error kvImageInvalidParameter = -21773;
/// Never returned: a destination larger than the source is kvImageRoiLargerThanInputBuffer, a smaller one is a part.
inline constexpr vImage_Error kvImageBufferSizeMismatch = -21774;
/// The flags hold one that is none of those below.
inline constexpr vImage_Error kvImageUnknownFlagsBit = -21775;

/// Options, added up.
using vImage_Flags = std::uint32_t;

/// None of them.
inline constexpr vImage_Flags kvImageNoFlags = 0;
/// Works on the last three channels only; the first is the source's.
inline constexpr vImage_Flags kvImageLeaveAlphaUnchanged = 1;
/// Edge style: where the kernel reaches over a border the pixel is the source's.
inline constexpr vImage_Flags kvImageCopyInPlace = 2;
/// Edge style: outside the source everything has a given colour.
inline constexpr vImage_Flags kvImageBackgroundColorFill = 4;
/// Edge style: outside the source everything is as the nearest pixel of the border.
inline constexpr vImage_Flags kvImageEdgeExtend = 8;
/// Works on the calling thread alone.
inline constexpr vImage_Flags kvImageDoNotTile = 16;
/// Means nothing to the functions here.
inline constexpr vImage_Flags kvImageHighQualityResampling = 32;
/// Edge style: only the part of the kernel that lies on the source counts.
inline constexpr vImage_Flags kvImageTruncateKernel = 64;
/// Does nothing but return the size of the temporary buffer, in bytes.
inline constexpr vImage_Flags kvImageGetTempBufferSize = 128;

/// Blurs: each pixel of `dest` becomes the mean of the `kernel_width` x `kernel_height` pixels around its place in
/// `src`, each of the four channels by itself, rounded to the nearest value. The mean is exact: that of the whole sum,
/// divided once.
///
/// `dest` receives the part of `src` of its own size whose top left pixel is at (`srcOffsetToROI_X`,
/// `srcOffsetToROI_Y`); pixels of `src` around that part count as any others. The two must not share memory, but for
/// rows or columns that neither reads nor writes.
///
/// The kernel's sides are odd, and may be larger than the image; the time does not depend on them. Only kernels of 2^23
/// pixels and more that are narrower than 255, and of 2^30 and more, take many times as long where they do not cover
/// whole rows from every place. One of the edge styles must be among the `flags`, and one only:
/// - kvImageEdgeExtend, the border repeated;
/// - kvImageBackgroundColorFill, with the colour in `backgroundColor` (not read otherwise, and may be nil);
/// - kvImageTruncateKernel, where the sum is divided by the number of pixels that count; a mean half way between two
///   values, which the other styles cannot give, becomes the greater one (takes several times as long as the others);
/// - kvImageCopyInPlace.
///
/// With kvImageLeaveAlphaUnchanged the first byte of each pixel is that of the source's pixel at its place.
/// kvImageHighQualityResampling means nothing here, and changes nothing.
///
/// Large images are shared out to the threads of the global queues, the calling one among them, unless kvImageDoNotTile
/// is given. `tempBuffer` is memory to work in, of any alignment, whose size in bytes this function returns when called
/// with kvImageGetTempBufferSize and otherwise the same sizes, offsets, kernel and flags (`data` may be nil then). With
/// nil it is allocated for the time of the call; nothing else is, but for what handing work to other threads takes.
///
/// Returns kvImageNoError, or the first of these errors, and then writes nothing:
/// - kvImageNullPointerArgument: a buffer, its data, or the colour that kvImageBackgroundColorFill asks for is nil;
/// - kvImageUnknownFlagsBit;
/// - kvImageInvalidEdgeStyle: no edge style or more than one;
/// - kvImageInvalidKernelSize: a side of the kernel is even, or zero;
/// - kvImageInvalidParameter: a width or height is zero, or `rowBytes` less than four times the width;
/// - kvImageInvalidOffset_X, kvImageInvalidOffset_Y;
/// - kvImageRoiLargerThanInputBuffer;
/// - kvImageMemoryAllocationError: the temporary buffer cannot be had.
vImage_Error vImageBoxConvolve_ARGB8888(const vImage_Buffer* src, const vImage_Buffer* dest, void* tempBuffer,
                                        vImagePixelCount srcOffsetToROI_X, vImagePixelCount srcOffsetToROI_Y,
                                        std::uint32_t kernel_height, std::uint32_t kernel_width,
                                        const std::uint8_t* backgroundColor, vImage_Flags flags);

} // namespace zr
#pragma GCC visibility pop
