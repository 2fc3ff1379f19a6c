#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace zr::detail {

std::int64_t BoxConvolution::firstColumn() const {
    return std::clamp<std::int64_t>(offsetX - radiusX() - 1, 0, width - 1);
}

std::int64_t BoxConvolution::columnCount() const {
    return std::min(offsetX + destinationWidth + radiusX(), width) - firstColumn();
}

BoxSpan spanOf(std::int64_t begin, std::int64_t count, std::int64_t size) {
    const std::int64_t end = begin + count;
    const std::int64_t first = std::clamp<std::int64_t>(begin, 0, size);
    const std::int64_t inside = std::clamp<std::int64_t>(end, 0, size) - first;
    const std::int64_t below = std::clamp<std::int64_t>(-begin, 0, count);
    return {below, first, inside, count - below - inside};
}

BoxRows::BoxRows(const BoxConvolution& convolution, std::uint8_t* outsideRow) :
    m_first(convolution.source + 4 * convolution.firstColumn()), m_rowBytes(convolution.sourceRowBytes),
    m_height(convolution.height), m_outside(nullptr) {
    if (convolution.edge == BoxEdge::Extend)
        return;
    constexpr std::array<std::uint8_t, 4> nothing{};
    const auto& pixel = convolution.edge == BoxEdge::Colour ? convolution.colour : nothing;
    for (std::int64_t column = 0; column < convolution.columnCount(); ++column)
        std::memcpy(outsideRow + 4 * column, pixel.data(), pixel.size());
    m_outside = outsideRow;
}

const std::uint8_t* BoxRows::row(std::int64_t y) const {
    if (m_outside && (y < 0 || y >= m_height))
        return m_outside;
    return m_first + m_rowBytes * static_cast<std::size_t>(std::clamp<std::int64_t>(y, 0, m_height - 1));
}

std::uint16_t inverseOf(std::uint64_t odd) {
    // Each step doubles the number of bits that are right, of which there are three at first.
    std::uint64_t inverse = odd;
    for (int bits = 3; bits < 16; bits *= 2)
        inverse *= 2 - odd * inverse;
    return static_cast<std::uint16_t>(inverse);
}

BoxReciprocal::BoxReciprocal(std::uint32_t area) : factor(0), shift(std::bit_width(area) - 1) {
    factor = static_cast<std::uint32_t>((std::uint64_t{1} << (32 + shift)) / area + 1);
}

namespace {

/// So many bytes add up to a number of 16 bits.
constexpr std::uint32_t kShortHeight = 65535 / 255;

/// The remainder way keeps numbers below three areas in 32 bits. What enters or leaves, a column of bytes, must be no
/// more than the area.
constexpr std::uint64_t kRemainderAreaEnd = 1u << 30;
constexpr std::uint32_t kRemainderKernelWidth = 255;
/// It adds up the first sum of a row in two halves of 16 bits a column.
constexpr std::int64_t kRemainderColumns = 65536;

/// The covering way keeps numbers below two areas in 64 bits.
constexpr std::uint64_t kCoveringAreaEnd = std::uint64_t{1} << 63;

constexpr std::size_t aligned(std::size_t bytes) { return (bytes + kBoxAlignment - 1) / kBoxAlignment * kBoxAlignment; }

bool reachesOutside(const BoxConvolution& convolution, std::int64_t y) {
    const std::int64_t centre = convolution.offsetY + y;
    return centre < convolution.radiusY() || centre + convolution.radiusY() >= convolution.height;
}

void copyPixels(const BoxConvolution& convolution, std::int64_t y, std::int64_t begin, std::int64_t end) {
    if (begin < end)
        std::memcpy(convolution.destinationRow(y) + 4 * begin, convolution.sourceUnder(y) + 4 * begin,
                    static_cast<std::size_t>(4 * (end - begin)));
}

void convolveWholeRows(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first, std::int64_t end) {
    if (first >= end)
        return;
    switch (const BoxArithmetic arithmetic = arithmeticOf(convolution)) {
    case BoxArithmetic::Copy:
        for (std::int64_t y = first; y < end; ++y)
            copyPixels(convolution, y, 0, convolution.destinationWidth);
        break;
    case BoxArithmetic::Short:
    case BoxArithmetic::Long:
    case BoxArithmetic::Remainder:
        convolveRowsWithVectors(convolution, arithmetic, workspace, first, end);
        break;
    case BoxArithmetic::Covering:
        convolveCoveredRows(convolution, workspace, first, end);
        break;
    case BoxArithmetic::AnySize:
    case BoxArithmetic::TruncatedAny:
        convolveRowsOfAnySize(convolution, workspace, first, end);
        break;
    }
}

} // namespace

BoxArithmetic arithmeticOf(const BoxConvolution& convolution) {
    if (convolution.area() == 1)
        return BoxArithmetic::Copy;
    if (convolution.edge == BoxEdge::Truncate)
        return BoxArithmetic::TruncatedAny;
    if (convolution.radiusX() >= convolution.width - 1 && convolution.area() < kCoveringAreaEnd)
        return BoxArithmetic::Covering;
    if (convolution.area() < kBoxReciprocalAreaEnd)
        return convolution.kernelHeight <= kShortHeight ? BoxArithmetic::Short : BoxArithmetic::Long;
    if (convolution.area() < kRemainderAreaEnd && convolution.kernelWidth >= kRemainderKernelWidth &&
        convolution.columnCount() <= kRemainderColumns)
        return BoxArithmetic::Remainder;
    return BoxArithmetic::AnySize;
}

std::size_t workspaceBytes(const BoxConvolution& convolution) {
    const auto channels = 4 * static_cast<std::size_t>(convolution.columnCount());
    const std::size_t outsideRow = aligned(channels);
    // Column sums, to the end of a vector; and the sums of the rows that are convolved side by side, four at most, with
    // what lies to the left before them, and behind them to the end of four vectors.
    const auto vectors = [=](std::size_t size) {
        return aligned(size * channels) + kBoxAlignment + 4 * size * channels + 4 * kBoxAlignment;
    };
    switch (arithmeticOf(convolution)) {
    case BoxArithmetic::Copy:
        return 0;
    case BoxArithmetic::Covering:
        return outsideRow;
    case BoxArithmetic::Short:
        return outsideRow + vectors(sizeof(std::int16_t));
    case BoxArithmetic::Long:
    case BoxArithmetic::Remainder:
        return outsideRow + vectors(sizeof(std::int32_t));
    case BoxArithmetic::AnySize:
    case BoxArithmetic::TruncatedAny:
        break;
    }
    return outsideRow + aligned(sizeof(std::uint64_t) * channels);
}

void convolveRows(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first, std::int64_t end) {
    if (!convolution.copiesBorder) {
        convolveWholeRows(convolution, workspace, first, end);
        return;
    }
    std::int64_t begin = first;
    while (begin < end && reachesOutside(convolution, begin))
        copyPixels(convolution, begin++, 0, convolution.destinationWidth);
    std::int64_t last = end;
    while (last > begin && reachesOutside(convolution, last - 1))
        copyPixels(convolution, --last, 0, convolution.destinationWidth);
    convolveWholeRows(convolution, workspace, begin, last);
}

void finishRow(const BoxConvolution& convolution, std::int64_t y) {
    const std::int64_t width = convolution.destinationWidth;
    if (convolution.copiesBorder) {
        const std::int64_t left = convolution.radiusX() - convolution.offsetX;
        const std::int64_t right = convolution.width - convolution.radiusX() - convolution.offsetX;
        copyPixels(convolution, y, 0, std::min(left, width));
        copyPixels(convolution, y, std::max<std::int64_t>(right, 0), width);
    }
    if (!convolution.keepsAlpha)
        return;
    const std::uint8_t* from = convolution.sourceUnder(y);
    std::uint8_t* to = convolution.destinationRow(y);
    for (std::int64_t x = 0; x < width; ++x)
        to[4 * x] = from[4 * x];
}

} // namespace zr::detail
