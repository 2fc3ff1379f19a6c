// Box convolution with kernels that cover whole rows of the image wherever they are.
//
// From one pixel of a row to the next the last column enters once more and the first one leaves: the sum changes by the
// same amount all along the row. So no column sums are needed but for those two, and no pixel waits for the one before.
// The sums may have far more bits than a lane, which therefore holds their remainder: what is added to it is that of
// the change.

#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>
#include <ZRPlatform/Accelerate/Internal/FixedSizeVectors.h>
#include <ZRPlatform/Accelerate/Internal/LongSum.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "ZRPlatform/Accelerate/BoxConvolutionCovering.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

#ifndef ZR_BOX_COVERING_TYPES
#define ZR_BOX_COVERING_TYPES
namespace zr::detail {

using Channels = std::array<std::uint64_t, 4>;

/// The sums of a row's first pixel, and by how much those of the next are greater: the last bits, and the remainders on
/// division by the area.
struct CoveredRow {
    std::uint64_t area;
    Channels sums;
    Channels remainders;
    Channels changes;
    Channels changeRemainders;
};

} // namespace zr::detail
#endif

HWY_BEFORE_NAMESPACE();
namespace zr::detail {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR || HWY_TARGET == HWY_EMU128

void addPixels(const std::uint8_t* pixels, std::size_t count, Channels& sums) {
    for (std::size_t i = 0; i < 4 * count; ++i)
        sums[i % 4] += pixels[i];
}

void meansOfCoveredRow(const CoveredRow& row, std::size_t width, std::uint8_t* destination) {
    const std::uint64_t inverse = inverseOf(row.area);
    for (std::size_t channel = 0; channel < 4; ++channel) {
        std::uint64_t sum = row.sums[channel];
        std::uint64_t remainder = row.remainders[channel];
        for (std::size_t x = 0; x < width; ++x) {
            destination[4 * x + channel] = static_cast<std::uint8_t>((sum - remainder) * inverse);
            sum += row.changes[channel];
            remainder += row.changeRemainders[channel];
            remainder = std::min(remainder, remainder - row.area);
        }
    }
}

#else

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t kVectorBytes = HWY_MIN(HWY_MAX_BYTES, 64);
/// Pixels of the result that make a vector.
constexpr std::size_t kStep = kVectorBytes / 4;
constexpr hn::FixedTag<std::uint8_t, kVectorBytes> kBytes;
constexpr hn::FixedTag<std::uint16_t, kVectorBytes / 2> kShorts;

void addPixels(const std::uint8_t* pixels, std::size_t count, Channels& sums) {
    // So many bytes fit into 16 bits.
    constexpr std::size_t kMost = 65535 / 255;
    const auto low = hn::Set(kShorts, 0xFF);
    while (count >= kStep) {
        auto even = hn::Zero(kShorts);
        auto odd = hn::Zero(kShorts);
        std::size_t vectors = std::min(count / kStep, kMost);
        count -= vectors * kStep;
        for (; vectors > 0; --vectors, pixels += kVectorBytes) {
            const auto pair = hn::BitCast(kShorts, hn::LoadU(kBytes, pixels));
            even = hn::Add(even, hn::And(pair, low));
            odd = hn::Add(odd, hn::ShiftRight<8>(pair));
        }
        HWY_ALIGN std::uint16_t evens[kVectorBytes / 2];
        HWY_ALIGN std::uint16_t odds[kVectorBytes / 2];
        hn::Store(even, kShorts, evens);
        hn::Store(odd, kShorts, odds);
        for (std::size_t i = 0; i < kVectorBytes / 2; i += 2) {
            sums[0] += evens[i];
            sums[1] += odds[i];
            sums[2] += evens[i + 1];
            sums[3] += odds[i + 1];
        }
    }
    for (std::size_t i = 0; i < 4 * count; ++i)
        sums[i % 4] += pixels[i];
}

/// Lanes of type T hold remainders: twice an area must fit. A vector of means is made byte by byte: of `sizeof(T)`
/// vectors each has one byte of every lane to give.
template <class T>
HWY_INLINE void meansInLanes(const CoveredRow& row, std::size_t width, std::uint8_t* destination) {
    constexpr std::size_t kLanes = kVectorBytes / sizeof(T);
    constexpr std::size_t kVectors = sizeof(T);
    const hn::FixedTag<T, kLanes> d;
    using V = hn::Vec<decltype(d)>;

    const V area = hn::Set(d, static_cast<T>(row.area));
    V sum[kVectors];
    V remainder[kVectors];
    V sumStep[4];
    V remainderStep[4];
    HWY_UNROLL(4)
    for (std::size_t channel = 0; channel < 4; ++channel) {
        HWY_UNROLL(2)
        for (std::size_t i = channel; i < kVectors; i += 4) {
            sum[i] = hn::Set(d, static_cast<T>(row.sums[channel]));
            remainder[i] = hn::Set(d, static_cast<T>(row.remainders[channel]));
        }
        // Each lane as many pixels along the row as it is, by binary digits.
        std::uint64_t change = row.changes[channel];
        std::uint64_t changeRemainder = row.changeRemainders[channel];
        HWY_UNROLL(4)
        for (std::size_t digit = 1; digit < kStep; digit *= 2) {
            const V changes = hn::Set(d, static_cast<T>(change));
            const V changeRemainders = hn::Set(d, static_cast<T>(changeRemainder));
            HWY_UNROLL(2)
            for (std::size_t i = channel; i < kVectors; i += 4) {
                const V pixels = hn::Add(hn::ShiftLeft<(kVectors > 4 ? 1 : 0)>(hn::Iota(d, T{0})),
                                         hn::Set(d, static_cast<T>(i / 4)));
                const auto isFurther = hn::TestBit(pixels, hn::Set(d, static_cast<T>(digit)));
                sum[i] = hn::Add(sum[i], hn::IfThenElseZero(isFurther, changes));
                const V next = hn::Add(remainder[i], hn::IfThenElseZero(isFurther, changeRemainders));
                remainder[i] = hn::Min(next, hn::Sub(next, area));
            }
            change *= 2;
            changeRemainder *= 2;
            changeRemainder = std::min(changeRemainder, changeRemainder - row.area);
        }
        sumStep[channel] = hn::Set(d, static_cast<T>(change));
        remainderStep[channel] = hn::Set(d, static_cast<T>(changeRemainder));
    }
    // 16 bits, and zero above: so are the products.
    const auto inverse = hn::BitCast(kShorts, hn::Set(d, T{inverseOf(row.area)}));

    for (std::size_t x = 0; x < width; x += kStep) {
        V means = hn::Zero(d);
        HWY_UNROLL(8)
        for (std::size_t i = 0; i < kVectors; ++i) {
            const auto multiple = hn::BitCast(kShorts, hn::Sub(sum[i], remainder[i]));
            const V mean = hn::BitCast(d, hn::Mul(multiple, inverse));
            means = hn::Or(means, hn::ShiftLeftSame(mean, static_cast<int>(8 * i)));
            sum[i] = hn::Add(sum[i], sumStep[i % 4]);
            const V next = hn::Add(remainder[i], remainderStep[i % 4]);
            // Less than the area is less than the same wrapped around below zero.
            remainder[i] = hn::Min(next, hn::Sub(next, area));
        }
        if (width - x >= kStep) {
            hn::StoreU(hn::BitCast(kBytes, means), kBytes, destination + 4 * x);
        } else {
            HWY_ALIGN std::uint8_t bytes[kVectorBytes];
            hn::Store(hn::BitCast(kBytes, means), kBytes, bytes);
            std::memcpy(destination + 4 * x, bytes, 4 * (width - x));
        }
    }
}

void meansOfCoveredRow(const CoveredRow& row, std::size_t width, std::uint8_t* destination) {
    if (row.area < std::uint64_t{1} << 31)
        meansInLanes<std::uint32_t>(row, width, destination);
    else
        meansInLanes<std::uint64_t>(row, width, destination);
}

#endif

} // namespace HWY_NAMESPACE
} // namespace zr::detail
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace zr::detail {

HWY_EXPORT(addPixels);
HWY_EXPORT(meansOfCoveredRow);

namespace {

/// The sums of whole rows, each pixel as often as the kernel meets it around the destination's first column, and the
/// last pixel less the first: what enters less what leaves, from a column to the next.
struct RowSum {
    const std::uint8_t* row = nullptr;
    Channels sums{};
    std::array<std::int64_t, 4> changes{};
};

RowSum sumOf(const BoxConvolution& convolution, const std::uint8_t* row) {
    RowSum sum;
    sum.row = row;
    const auto width = static_cast<std::size_t>(convolution.width);
    HWY_DYNAMIC_DISPATCH(addPixels)(row, width, sum.sums);
    const BoxSpan span =
        spanOf(convolution.offsetX - convolution.radiusX(), convolution.kernelWidth, convolution.width);
    const bool isColour = convolution.edge == BoxEdge::Colour;
    for (std::size_t channel = 0; channel < 4; ++channel) {
        const std::uint8_t left = isColour ? convolution.colour[channel] : row[channel];
        const std::uint8_t right = isColour ? convolution.colour[channel] : row[4 * (width - 1) + channel];
        sum.sums[channel] +=
            static_cast<std::uint64_t>(span.below) * left + static_cast<std::uint64_t>(span.above) * right;
        sum.changes[channel] = right - left;
    }
    return sum;
}

/// The sums of the rows that a kernel covers.
class CoveredSums {
public:
    /// For the row above `first`.
    CoveredSums(const BoxConvolution& convolution, const BoxRows& rows, std::int64_t first) :
        m_convolution(convolution), m_rows(rows) {
        const std::uint64_t area = convolution.area();
        m_sums.fill(LongSum(area, area / 2));
        const BoxSpan span = spanOf(convolution.offsetY + first - 1 - convolution.radiusY(), convolution.kernelHeight,
                                    convolution.height);
        m_entering = sumOf(convolution, rows.row(convolution.height));
        m_leaving = sumOf(convolution, rows.row(-1));
        addMultiple(m_leaving, span.below);
        addMultiple(m_entering, span.above);
        for (std::int64_t y = span.first; y < span.first + span.inside; ++y)
            add(sumOf(convolution, rows.row(y)));
    }

    CoveredRow next(std::int64_t y) {
        const std::int64_t centre = m_convolution.offsetY + y;
        update(m_entering, centre + m_convolution.radiusY());
        update(m_leaving, centre - m_convolution.radiusY() - 1);
        CoveredRow row{};
        row.area = m_convolution.area();
        add(m_entering);
        for (std::size_t channel = 0; channel < 4; ++channel) {
            m_sums[channel].subtract(m_leaving.sums[channel]);
            m_changes[channel] -= m_leaving.changes[channel];
            row.sums[channel] = m_sums[channel].lowBits();
            row.remainders[channel] = m_sums[channel].rest();
            row.changes[channel] = static_cast<std::uint64_t>(m_changes[channel]);
            auto size = static_cast<std::uint64_t>(std::abs(m_changes[channel]));
            if (size >= row.area)
                size %= row.area;
            row.changeRemainders[channel] = m_changes[channel] < 0 && size != 0 ? row.area - size : size;
        }
        return row;
    }

private:
    void add(const RowSum& row) {
        for (std::size_t channel = 0; channel < 4; ++channel) {
            m_sums[channel].add(row.sums[channel]);
            m_changes[channel] += row.changes[channel];
        }
    }

    void addMultiple(const RowSum& row, std::int64_t times) {
        for (std::size_t channel = 0; channel < 4; ++channel) {
            m_sums[channel].addMultiple(row.sums[channel], static_cast<std::uint64_t>(times));
            m_changes[channel] += row.changes[channel] * times;
        }
    }

    /// Where rows are repeated, the last one is the next one.
    void update(RowSum& sum, std::int64_t y) const {
        if (const std::uint8_t* row = m_rows.row(y); row != sum.row)
            sum = sumOf(m_convolution, row);
    }

    const BoxConvolution& m_convolution;
    const BoxRows& m_rows;
    std::array<LongSum, 4> m_sums{LongSum(1, 0), LongSum(1, 0), LongSum(1, 0), LongSum(1, 0)};
    std::array<std::int64_t, 4> m_changes{};
    RowSum m_entering;
    RowSum m_leaving;
};

} // namespace

void convolveCoveredRows(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first,
                         std::int64_t end) {
    const BoxRows rows(convolution, reinterpret_cast<std::uint8_t*>(workspace));
    CoveredSums sums(convolution, rows, first);
    for (std::int64_t y = first; y < end; ++y) {
        const CoveredRow row = sums.next(y);
        HWY_DYNAMIC_DISPATCH(meansOfCoveredRow)
        (row, static_cast<std::size_t>(convolution.destinationWidth), convolution.destinationRow(y));
        finishRow(convolution, y);
    }
}

} // namespace zr::detail
#endif
