#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zr::detail {

/// What counts as lying outside of the source.
enum class BoxEdge {
    Extend,   ///< the nearest pixel of the border
    Colour,   ///< a colour
    Truncate, ///< nothing
};

/// How wide the numbers are that a convolution needs. All ways give the same bytes.
enum class BoxArithmetic {
    Copy,        ///< a kernel of one pixel
    Short,       ///< column sums of 16 bits, sums of 32 bits, divided by multiplication
    Long,        ///< column sums and sums of 32 bits, divided by multiplication
    Remainder,   ///< column sums of 32 bits; of the sums quotient and remainder are kept, which fit where they do not
    Covering,    ///< kernels that cover whole rows: of the sums the remainders, in 32 or 64 bits
    AnySize,     ///< 64 bits, quotient and remainder
    TruncatedAny ///< 64 bits, with a divisor of its own for each pixel
};

/// A checked box convolution, and where each row of it comes from. Sizes and places are in pixels of four bytes.
struct BoxConvolution {
    const std::uint8_t* source = nullptr;
    std::size_t sourceRowBytes = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;

    std::uint8_t* destination = nullptr;
    std::size_t destinationRowBytes = 0;
    std::int64_t destinationWidth = 0;
    std::int64_t destinationHeight = 0;
    /// Place of the destination's first pixel in the source.
    std::int64_t offsetX = 0;
    std::int64_t offsetY = 0;

    std::uint32_t kernelWidth = 1;
    std::uint32_t kernelHeight = 1;
    BoxEdge edge = BoxEdge::Extend;
    std::array<std::uint8_t, 4> colour{};
    /// What reaches outside is the source's, whatever `edge` gives.
    bool copiesBorder = false;
    bool keepsAlpha = false;

    std::int64_t radiusX() const { return kernelWidth / 2; }
    std::int64_t radiusY() const { return kernelHeight / 2; }
    std::uint64_t area() const { return std::uint64_t{kernelWidth} * kernelHeight; }

    /// The columns of the source that count for any pixel of the destination, and the one before.
    std::int64_t firstColumn() const;
    std::int64_t columnCount() const;

    std::uint8_t* destinationRow(std::int64_t y) const {
        return destination + destinationRowBytes * static_cast<std::size_t>(y);
    }
    /// The source's pixels below the destination's row `y`.
    const std::uint8_t* sourceUnder(std::int64_t y) const {
        return source + sourceRowBytes * static_cast<std::size_t>(offsetY + y) + 4 * offsetX;
    }
};

/// `count` places in a row of which `below` lie before the image, `above` behind it, and the others on it from `first`.
struct BoxSpan {
    std::int64_t below;
    std::int64_t first;
    std::int64_t inside;
    std::int64_t above;
};
/// Those of the places from `begin` on, `count` of them, for an image of `size` places.
BoxSpan spanOf(std::int64_t begin, std::int64_t count, std::int64_t size);

/// The rows of the source from its first needed column on, with rows made up above and below it.
class BoxRows {
public:
    /// `outsideRow` is memory for a row of the convolution's columns; it must stay as long as this.
    BoxRows(const BoxConvolution& convolution, std::uint8_t* outsideRow);

    /// Row `y` of the source, or what counts as it where there is none.
    const std::uint8_t* row(std::int64_t y) const;

private:
    const std::uint8_t* m_first;
    std::size_t m_rowBytes;
    std::int64_t m_height;
    const std::uint8_t* m_outside; // null where the border is repeated
};

BoxArithmetic arithmeticOf(const BoxConvolution& convolution);

/// Bytes of the memory that `convolveRows` needs, which must be aligned to kBoxAlignment.
std::size_t workspaceBytes(const BoxConvolution& convolution);
inline constexpr std::size_t kBoxAlignment = 64;

/// Makes the rows of the destination from `first` up to `end`.
void convolveRows(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first, std::int64_t end);

/// The same for every kernel, with the widest numbers and no vector instructions.
void convolveRowsOfAnySize(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first,
                           std::int64_t end);
/// The same for `BoxArithmetic::Short`, `Long` and `Remainder`, with the best instructions this machine
/// has.
void convolveRowsWithVectors(const BoxConvolution& convolution, BoxArithmetic arithmetic, std::byte* workspace,
                             std::int64_t first, std::int64_t end);

/// The same for `BoxArithmetic::Covering`.
void convolveCoveredRows(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first, std::int64_t end);

/// The instructions that takes, as a bit of those that hwy/targets.h names.
std::int64_t boxVectorTarget();

/// Puts the source's pixels and alpha where they belong into a row that is convolved.
void finishRow(const BoxConvolution& convolution, std::int64_t y);

/// What an odd number must be multiplied by to be 1, modulo 2^16.
std::uint16_t inverseOf(std::uint64_t odd);

/// The factor and the shift that divide sums by an odd area: for every sum of `area` bytes, rounded half of the area
/// included, sum * factor >> (32 + shift) is the quotient.
///
/// The factor is 2^(32 + shift) / area rounded up, too large by less than area / area. A quotient is exact as long as
/// that error times the sum, which is below 255.5 * area, stays below 2^(32 + shift). With 2^shift the largest power
/// not above the area, this holds for areas below 2^23; and the factor stays below 2^32.
struct BoxReciprocal {
    explicit BoxReciprocal(std::uint32_t area);
    std::uint32_t factor;
    int shift;
};
inline constexpr std::uint64_t kBoxReciprocalAreaEnd = 1u << 23;

} // namespace zr::detail
