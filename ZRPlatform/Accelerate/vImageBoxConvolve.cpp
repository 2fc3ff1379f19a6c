#include <ZRPlatform/Accelerate/vImage.h>

#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>
#include <ZRPlatform/Accelerate/Internal/ParallelLoop.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <thread>

namespace zr {

namespace {

using detail::BoxConvolution;
using detail::BoxEdge;

constexpr vImage_Flags kEdgeStyles =
    kvImageCopyInPlace | kvImageBackgroundColorFill | kvImageEdgeExtend | kvImageTruncateKernel;
constexpr vImage_Flags kKnownFlags = kEdgeStyles | kvImageLeaveAlphaUnchanged | kvImageDoNotTile |
                                     kvImageHighQualityResampling | kvImageGetTempBufferSize;

/// Below this many pixels waking another thread takes longer than it saves.
constexpr std::int64_t kPixelsForThreads = 128 * 1024;

bool isKernelSide(std::uint32_t side) { return side % 2 == 1; }

/// Whether the buffer has pixels, and rows that hold them.
bool hasShape(const vImage_Buffer& buffer) {
    constexpr auto kMostRows = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    return buffer.width > 0 && buffer.height > 0 && buffer.height <= kMostRows && buffer.width <= buffer.rowBytes / 4 &&
           buffer.rowBytes <= static_cast<std::size_t>(PTRDIFF_MAX) / buffer.height;
}

vImage_Error errorIn(const vImage_Buffer* src, const vImage_Buffer* dest, vImagePixelCount x, vImagePixelCount y,
                     std::uint32_t kernelHeight, std::uint32_t kernelWidth, const std::uint8_t* colour,
                     vImage_Flags flags) {
    const bool needsData = !(flags & kvImageGetTempBufferSize);
    if (!src || !dest || (needsData && (!src->data || !dest->data)))
        return kvImageNullPointerArgument;
    if ((flags & kvImageBackgroundColorFill) && !colour)
        return kvImageNullPointerArgument;
    if (flags & ~kKnownFlags)
        return kvImageUnknownFlagsBit;
    if (std::popcount(flags & kEdgeStyles) != 1)
        return kvImageInvalidEdgeStyle;
    if (!isKernelSide(kernelHeight) || !isKernelSide(kernelWidth))
        return kvImageInvalidKernelSize;
    if (!hasShape(*src) || !hasShape(*dest))
        return kvImageInvalidParameter;
    if (x >= src->width)
        return kvImageInvalidOffset_X;
    if (y >= src->height)
        return kvImageInvalidOffset_Y;
    if (dest->width > src->width - x || dest->height > src->height - y)
        return kvImageRoiLargerThanInputBuffer;
    return kvImageNoError;
}

BoxConvolution convolutionOf(const vImage_Buffer& src, const vImage_Buffer& dest, vImagePixelCount x,
                             vImagePixelCount y, std::uint32_t kernelHeight, std::uint32_t kernelWidth,
                             const std::uint8_t* colour, vImage_Flags flags) {
    BoxConvolution convolution;
    convolution.source = static_cast<const std::uint8_t*>(src.data);
    convolution.sourceRowBytes = src.rowBytes;
    convolution.width = static_cast<std::int64_t>(src.width);
    convolution.height = static_cast<std::int64_t>(src.height);
    convolution.destination = static_cast<std::uint8_t*>(dest.data);
    convolution.destinationRowBytes = dest.rowBytes;
    convolution.destinationWidth = static_cast<std::int64_t>(dest.width);
    convolution.destinationHeight = static_cast<std::int64_t>(dest.height);
    convolution.offsetX = static_cast<std::int64_t>(x);
    convolution.offsetY = static_cast<std::int64_t>(y);
    convolution.kernelWidth = kernelWidth;
    convolution.kernelHeight = kernelHeight;
    convolution.copiesBorder = flags & kvImageCopyInPlace;
    convolution.keepsAlpha = flags & kvImageLeaveAlphaUnchanged;
    if (flags & kvImageTruncateKernel)
        convolution.edge = BoxEdge::Truncate;
    if (flags & kvImageBackgroundColorFill) {
        convolution.edge = BoxEdge::Colour;
        std::copy_n(colour, 4, convolution.colour.begin());
    }
    return convolution;
}

/// How a convolution is shared out: strips of rows, taken one after the other by whoever is free.
struct Strips {
    std::int64_t count = 1;
    std::size_t threads = 1;
};

Strips stripsOf(const BoxConvolution& convolution, vImage_Flags flags) {
    static const std::int64_t processors = std::max(1u, std::thread::hardware_concurrency());
    const std::int64_t rows = convolution.destinationHeight;
    if ((flags & kvImageDoNotTile) || rows * convolution.destinationWidth < kPixelsForThreads)
        return {};
    const std::int64_t threads = std::min(processors, rows);
    // The first row of a strip costs a whole kernel of rows: strips are a few times as high as that, or there is no
    // more than one for each thread.
    const std::int64_t kernelRows = std::min<std::int64_t>(convolution.kernelHeight, convolution.height);
    const std::int64_t perThread = std::clamp<std::int64_t>(rows / (threads * (4 * kernelRows + 64)), 1, 4);
    return {std::min(threads * perThread, rows), static_cast<std::size_t>(threads)};
}

/// Each of the threads has a workspace of its own; the strips they take as they come to them.
void convolveTogether(const BoxConvolution& convolution, const Strips& strips, std::byte* workspaces,
                      std::size_t workspaceBytes) {
    std::atomic<std::int64_t> next = 0;
    const auto work = [&](std::size_t thread) {
        const std::int64_t rows = convolution.destinationHeight;
        for (std::int64_t strip = next++; strip < strips.count; strip = next++)
            detail::convolveRows(convolution, workspaces + thread * workspaceBytes, rows * strip / strips.count,
                                 rows * (strip + 1) / strips.count);
    };
    try {
        detail::parallelLoop(strips.threads, true, std::ref(work));
    } catch (const std::bad_alloc&) {
        // The work could not be handed over.
        work(0);
    }
}

} // namespace

vImage_Error vImageBoxConvolve_ARGB8888(const vImage_Buffer* src, const vImage_Buffer* dest, void* tempBuffer,
                                        vImagePixelCount srcOffsetToROI_X, vImagePixelCount srcOffsetToROI_Y,
                                        std::uint32_t kernel_height, std::uint32_t kernel_width,
                                        const std::uint8_t* backgroundColor, vImage_Flags flags) {
    if (const vImage_Error error =
            errorIn(src, dest, srcOffsetToROI_X, srcOffsetToROI_Y, kernel_height, kernel_width, backgroundColor, flags))
        return error;
    const BoxConvolution convolution = convolutionOf(*src, *dest, srcOffsetToROI_X, srcOffsetToROI_Y, kernel_height,
                                                     kernel_width, backgroundColor, flags);
    const Strips strips = stripsOf(convolution, flags);
    const std::size_t workspaceBytes = (detail::workspaceBytes(convolution) + detail::kBoxAlignment - 1) /
                                       detail::kBoxAlignment * detail::kBoxAlignment;
    const std::size_t bytes = strips.threads * workspaceBytes + detail::kBoxAlignment;
    if (flags & kvImageGetTempBufferSize)
        return static_cast<vImage_Error>(bytes);

    const std::unique_ptr<std::byte[]> own(tempBuffer ? nullptr : new (std::nothrow) std::byte[bytes]);
    if (!tempBuffer && !own)
        return kvImageMemoryAllocationError;
    void* memory = tempBuffer ? tempBuffer : own.get();
    std::size_t space = bytes;
    auto* const workspaces =
        static_cast<std::byte*>(std::align(detail::kBoxAlignment, bytes - detail::kBoxAlignment, memory, space));
    if (strips.threads == 1)
        detail::convolveRows(convolution, workspaces, 0, convolution.destinationHeight);
    else
        convolveTogether(convolution, strips, workspaces, workspaceBytes);
    return kvImageNoError;
}

} // namespace zr
