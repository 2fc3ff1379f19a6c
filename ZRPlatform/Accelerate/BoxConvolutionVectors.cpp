// Box convolution, vectorised.
//
// The vertical sums of a row's columns follow from those of the row above: one row enters, one leaves. The sum of a
// kernel follows from that of the pixel before: one column sum enters, one leaves. So the time does not depend on the
// kernel.
//
// The second step is a chain: each pixel waits for the one before. Hence as many rows as a vector has blocks of 128
// bits are convolved side by side, a pixel of four channels in each block, and the column sums are stored so that the
// pixels of these rows lie together. What comes out is packed within the blocks, which are then sixteen bytes of each
// row.

#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>
#include <ZRPlatform/Accelerate/Internal/FixedSizeVectors.h>

#include <algorithm>
#include <array>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "ZRPlatform/Accelerate/BoxConvolutionVectors.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace zr::detail {
namespace HWY_NAMESPACE {

std::int64_t vectorTarget() { return HWY_TARGET; }

#if HWY_TARGET == HWY_SCALAR || HWY_TARGET == HWY_EMU128

void convolveVectors(const BoxConvolution& convolution, BoxArithmetic, std::byte* workspace, std::int64_t first,
                     std::int64_t end) {
    convolveRowsOfAnySize(convolution, workspace, first, end);
}

#else

namespace hn = hwy::HWY_NAMESPACE;

/// 128-bit blocks in a vector, and rows that are convolved side by side.
constexpr std::size_t kBlocks = HWY_MIN(HWY_MAX_BYTES, 64) / 16;

using RowPointers = std::array<std::uint8_t*, kBlocks>;
using ConstRowPointers = std::array<const std::uint8_t*, kBlocks>;

constexpr hn::FixedTag<std::uint8_t, 16 * kBlocks> kBytes;
constexpr hn::FixedTag<std::uint16_t, 8 * kBlocks> kShorts;
constexpr hn::FixedTag<std::uint32_t, 4 * kBlocks> kLongs;
constexpr hn::FixedTag<std::int32_t, 4 * kBlocks> kSigned;
constexpr hn::FixedTag<std::uint64_t, 2 * kBlocks> kPairs;
using Bytes = hn::Vec<decltype(kBytes)>;
using Shorts = hn::Vec<decltype(kShorts)>;
using Longs = hn::Vec<decltype(kLongs)>;
using Signed = hn::Vec<decltype(kSigned)>;

/// A vector of column sums, of type T.
template <class T>
constexpr hn::FixedTag<T, 16 * kBlocks / sizeof(T)> kColumns;
template <class T>
using ColumnVector = hn::Vec<hn::FixedTag<T, 16 * kBlocks / sizeof(T)>>;
/// Bytes of a row that make one vector of column sums.
template <class T>
constexpr std::size_t kChunk = 16 * kBlocks / sizeof(T);

/// A chunk of a row, widened.
template <class T>
HWY_INLINE ColumnVector<T> widened(const std::uint8_t* bytes) {
    return hn::PromoteTo(kColumns<T>, hn::LoadU(hn::FixedTag<std::uint8_t, kChunk<T>>(), bytes));
}

/// A chunk of which only `count` bytes may be read.
template <class T>
HWY_INLINE ColumnVector<T> widenedPart(const std::uint8_t* bytes, std::size_t count) {
    std::uint8_t whole[kChunk<T>] = {};
    std::memcpy(whole, bytes, count);
    return widened<T>(whole);
}

template <class T>
void weightRows(T* columns, const std::uint8_t* above, T aboveWeight, const std::uint8_t* below, T belowWeight,
                std::size_t channels) {
    const auto weightAbove = hn::Set(kColumns<T>, aboveWeight);
    const auto weightBelow = hn::Set(kColumns<T>, belowWeight);
    std::size_t i = 0;
    for (; i + kChunk<T> <= channels; i += kChunk<T>)
        hn::Store(hn::Add(hn::Mul(widened<T>(above + i), weightAbove), hn::Mul(widened<T>(below + i), weightBelow)),
                  kColumns<T>, columns + i);
    if (const std::size_t rest = channels - i)
        hn::Store(hn::Add(hn::Mul(widenedPart<T>(above + i, rest), weightAbove),
                          hn::Mul(widenedPart<T>(below + i, rest), weightBelow)),
                  kColumns<T>, columns + i);
}

template <class T>
void addRows(T* columns, const std::array<const std::uint8_t*, 4>& rows, std::size_t channels) {
    std::size_t i = 0;
    for (; i + kChunk<T> <= channels; i += kChunk<T>) {
        const auto one = hn::Add(widened<T>(rows[0] + i), widened<T>(rows[1] + i));
        const auto other = hn::Add(widened<T>(rows[2] + i), widened<T>(rows[3] + i));
        hn::Store(hn::Add(hn::Load(kColumns<T>, columns + i), hn::Add(one, other)), kColumns<T>, columns + i);
    }
    for (; i < channels; ++i)
        columns[i] = static_cast<T>(columns[i] + rows[0][i] + rows[1][i] + rows[2][i] + rows[3][i]);
}

/// The column sums for the row above `first`.
template <class T>
void makeFirstSums(const BoxConvolution& convolution, const BoxRows& rows, std::int64_t first, T* columns) {
    const auto channels = 4 * static_cast<std::size_t>(convolution.columnCount());
    const BoxSpan span =
        spanOf(convolution.offsetY + first - 1 - convolution.radiusY(), convolution.kernelHeight, convolution.height);
    weightRows(columns, rows.row(-1), static_cast<T>(span.below), rows.row(convolution.height),
               static_cast<T>(span.above), channels);
    const std::int64_t end = span.first + span.inside;
    std::int64_t y = span.first;
    for (; y + 4 <= end; y += 4)
        addRows(columns, {rows.row(y), rows.row(y + 1), rows.row(y + 2), rows.row(y + 3)}, channels);
    for (; y < end; ++y) {
        const std::uint8_t* row = rows.row(y);
        for (std::size_t i = 0; i < channels; ++i)
            columns[i] = static_cast<T>(columns[i] + row[i]);
    }
}

/// Vectors of blocks become vectors of all the first blocks, all the second blocks, and so on.
template <class V>
HWY_INLINE void transposeBlocks(V (&vectors)[kBlocks]) {
    if constexpr (kBlocks == 2) {
        const hn::DFromV<V> d;
        const V first = hn::ConcatLowerLower(d, vectors[1], vectors[0]);
        vectors[1] = hn::ConcatUpperUpper(d, vectors[1], vectors[0]);
        vectors[0] = first;
    } else if constexpr (kBlocks == 4) {
        const hn::DFromV<V> d;
        const V lower02 = hn::ConcatLowerLower(d, vectors[2], vectors[0]);
        const V lower13 = hn::ConcatLowerLower(d, vectors[3], vectors[1]);
        const V upper02 = hn::ConcatUpperUpper(d, vectors[2], vectors[0]);
        const V upper13 = hn::ConcatUpperUpper(d, vectors[3], vectors[1]);
        vectors[0] = hn::OddEvenBlocks(hn::SwapAdjacentBlocks(lower13), lower02);
        vectors[1] = hn::OddEvenBlocks(lower13, hn::SwapAdjacentBlocks(lower02));
        vectors[2] = hn::OddEvenBlocks(hn::SwapAdjacentBlocks(upper13), upper02);
        vectors[3] = hn::OddEvenBlocks(upper13, hn::SwapAdjacentBlocks(upper02));
    }
}

/// A vector of each row becomes as many vectors of whole pixels, the rows' first pixels first.
HWY_INLINE void transposePixels(Longs (&rows)[kBlocks]) { transposeBlocks(rows); }

/// Here a block holds two pixels of a row.
HWY_INLINE void transposePixels(Shorts (&rows)[kBlocks]) {
    if constexpr (kBlocks > 1) {
        hn::Vec<decltype(kPairs)> pairs[kBlocks];
        HWY_UNROLL(2)
        for (std::size_t row = 0; row < kBlocks; row += 2) {
            const auto upper = hn::BitCast(kPairs, rows[row]);
            const auto lower = hn::BitCast(kPairs, rows[row + 1]);
            pairs[row / 2] = hn::InterleaveLower(kPairs, upper, lower);
            pairs[kBlocks / 2 + row / 2] = hn::InterleaveUpper(kPairs, upper, lower);
        }
        transposeBlocks(pairs);
        HWY_UNROLL(4)
        for (std::size_t i = 0; i < kBlocks; ++i)
            rows[i] = hn::BitCast(kShorts, pairs[i]);
    }
}

/// Goes on to the sums of the next `kBlocks` rows, for a chunk of them; `widen(row)` gives a chunk of a row.
template <class T, class Widen>
HWY_INLINE void nextChunk(T* columns, T* pixels, const ConstRowPointers& entering, const ConstRowPointers& leaving,
                          std::size_t offset, const Widen& widen) {
    ColumnVector<T> rows[kBlocks];
    ColumnVector<T> sum = hn::Load(kColumns<T>, columns + offset);
    HWY_UNROLL(4)
    for (std::size_t row = 0; row < kBlocks; ++row) {
        sum = hn::Add(sum, hn::Sub(widen(entering[row] + offset), widen(leaving[row] + offset)));
        rows[row] = sum;
    }
    hn::Store(sum, kColumns<T>, columns + offset);
    transposePixels(rows);
    HWY_UNROLL(4)
    for (std::size_t i = 0; i < kBlocks; ++i)
        hn::Store(rows[i], kColumns<T>, pixels + offset * kBlocks + i * kChunk<T>);
}

template <class T>
void nextRows(T* columns, T* pixels, const ConstRowPointers& entering, const ConstRowPointers& leaving,
              std::size_t channels) {
    struct Whole {
        HWY_INLINE ColumnVector<T> operator()(const std::uint8_t* bytes) const { return widened<T>(bytes); }
    };
    struct Part {
        std::size_t count;
        HWY_INLINE ColumnVector<T> operator()(const std::uint8_t* bytes) const { return widenedPart<T>(bytes, count); }
    };
    std::size_t i = 0;
    for (; i + kChunk<T> <= channels; i += kChunk<T>)
        nextChunk(columns, pixels, entering, leaving, i, Whole{});
    if (i < channels)
        nextChunk(columns, pixels, entering, leaving, i, Part{channels - i});
}

/// A pixel's column sums, one of each row.
template <class T>
HWY_INLINE Signed columnSums(const T* pixel) {
    const hn::FixedTag<T, 4 * kBlocks> d;
    if constexpr (sizeof(T) == sizeof(std::int32_t))
        return hn::BitCast(kSigned, hn::LoadU(d, pixel));
    else
        return hn::PromoteTo(kSigned, hn::LoadU(d, pixel));
}

template <class T>
HWY_INLINE Signed difference(const T* entering, const T* leaving) {
    return hn::Sub(columnSums(entering), columnSums(leaving));
}
/// The column sums of the rows side by side: before them what lies to the left of the image, behind them what lies to
/// its right.
template <class T>
struct PixelSums {
    const T* slots;
    std::int64_t firstColumn;
    std::int64_t columnCount;

    const T* slot(std::int64_t index) const { return slots + 4 * kBlocks * static_cast<std::size_t>(index); }
    std::int64_t indexOf(std::int64_t column) const {
        return std::clamp<std::int64_t>(column - firstColumn + 1, 0, columnCount + 1);
    }
};

/// A row's sums as such, each divided by itself.
class DividedSums {
public:
    DividedSums(const BoxConvolution& convolution) :
        m_reciprocal(static_cast<std::uint32_t>(convolution.area())),
        m_half(static_cast<std::uint32_t>(convolution.area() / 2)) {}

    struct State {
        Longs sum;
        Longs factor;
        int shift;

        HWY_INLINE Signed next(Signed change) {
            sum = hn::Add(sum, hn::BitCast(kLongs, change));
            const auto even = hn::MulEven(sum, factor);
            const auto odd = hn::MulEven(hn::BitCast(kLongs, hn::ShiftRight<32>(hn::BitCast(kPairs, sum))), factor);
            const auto high = hn::OddEven(hn::BitCast(kLongs, odd), hn::BitCast(kLongs, hn::ShiftRight<32>(even)));
            return hn::BitCast(kSigned, hn::ShiftRightSame(high, shift));
        }
    };

    /// The state before the first pixel of a row.
    template <class T>
    State begin(const PixelSums<T>& pixels, const BoxSpan& span) const {
        Signed sum = hn::BitCast(kSigned, hn::Set(kLongs, m_half));
        sum = hn::Add(sum, times(columnSums(pixels.slot(0)), span.below));
        sum = hn::Add(sum, times(columnSums(pixels.slot(pixels.columnCount + 1)), span.above));
        Signed other = hn::Zero(kSigned);
        const T* slot = pixels.slot(pixels.indexOf(span.first));
        std::int64_t rest = span.inside;
        for (; rest >= 2; rest -= 2, slot += 8 * kBlocks) {
            sum = hn::Add(sum, columnSums(slot));
            other = hn::Add(other, columnSums(slot + 4 * kBlocks));
        }
        if (rest > 0)
            sum = hn::Add(sum, columnSums(slot));
        sum = hn::Add(sum, other);
        return {hn::BitCast(kLongs, sum), hn::Set(kLongs, m_reciprocal.factor), m_reciprocal.shift};
    }

private:
    static HWY_INLINE Signed times(Signed value, std::int64_t count) {
        return hn::Mul(value, hn::Set(kSigned, static_cast<std::int32_t>(count)));
    }

    BoxReciprocal m_reciprocal;
    std::uint32_t m_half;
};

/// A row's sums as remainders, from which those of the next pixel follow without a division: what enters and leaves is
/// no more than one area. Of the sums themselves 32 bits are enough: sum less remainder is a multiple of the area, and
/// quotients below 2^16 of an odd number are the product, modulo 2^16, with its inverse there.
class RemainderSums {
public:
    RemainderSums(const BoxConvolution& convolution) : m_area(static_cast<std::uint32_t>(convolution.area())) {}

    struct State {
        Longs sum;
        Longs remainder;
        Longs area;
        Longs inverse; // 16 bits, and zero above

        HWY_INLINE Signed next(Signed change) {
            sum = hn::Add(sum, hn::BitCast(kLongs, change));
            // Of a number and one that has wrapped around below zero the former is the less.
            const Longs next = hn::Add(remainder, hn::BitCast(kLongs, change));
            const Longs positive = hn::Min(next, hn::Add(next, area));
            remainder = hn::Min(positive, hn::Sub(positive, area));
            const auto multiple = hn::BitCast(kShorts, hn::Sub(sum, remainder));
            return hn::BitCast(kSigned, hn::Mul(multiple, hn::BitCast(kShorts, inverse)));
        }
    };

    template <class T>
    State begin(const PixelSums<T>& pixels, const BoxSpan& span) const {
        Longs low = hn::Zero(kLongs);
        Longs high = hn::Zero(kLongs);
        const T* slot = pixels.slot(pixels.indexOf(span.first));
        for (std::int64_t i = 0; i < span.inside; ++i, slot += 4 * kBlocks) {
            const Longs sums = hn::BitCast(kLongs, columnSums(slot));
            low = hn::Add(low, hn::And(sums, hn::Set(kLongs, 0xFFFF)));
            high = hn::Add(high, hn::ShiftRight<16>(sums));
        }
        HWY_ALIGN std::uint32_t lows[4 * kBlocks];
        HWY_ALIGN std::uint32_t highs[4 * kBlocks];
        HWY_ALIGN std::uint32_t remainders[4 * kBlocks];
        hn::Store(low, kLongs, lows);
        hn::Store(high, kLongs, highs);
        const T* left = pixels.slot(0);
        const T* right = pixels.slot(pixels.columnCount + 1);
        for (std::size_t i = 0; i < 4 * kBlocks; ++i) {
            const std::uint64_t sum = m_area / 2 + lows[i] + (std::uint64_t{highs[i]} << 16) +
                                      static_cast<std::uint64_t>(span.below) * left[i] +
                                      static_cast<std::uint64_t>(span.above) * right[i];
            lows[i] = static_cast<std::uint32_t>(sum);
            remainders[i] = static_cast<std::uint32_t>(sum % m_area);
        }
        return {hn::Load(kLongs, lows), hn::Load(kLongs, remainders), hn::Set(kLongs, m_area),
                hn::Set(kLongs, inverseOf(m_area))};
    }

private:
    std::uint32_t m_area;
};

/// Four pixels of each row, still 32 bits a channel, as 16 bytes of each row.
HWY_INLINE Bytes packed(Signed first, Signed second, Signed third, Signed fourth) {
    const hn::FixedTag<std::int16_t, 8 * kBlocks> d16;
    const auto low = hn::BitCast(kShorts, hn::ReorderDemote2To(d16, first, second));
    const auto high = hn::BitCast(kShorts, hn::ReorderDemote2To(d16, third, fourth));
    const auto mixed = hn::BitCast(kBytes, hn::Or(low, hn::ShiftLeft<8>(high)));
    HWY_ALIGN static constexpr std::uint8_t kOrder[16] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
    return hn::TableLookupBytes(mixed, hn::LoadDup128(kBytes, kOrder));
}

template <class V>
HWY_INLINE void storeBlocks(V bytes, std::uint8_t* const* rows, std::size_t offset) {
    const hn::DFromV<V> d;
    if constexpr (hn::MaxLanes(d) == 16) {
        hn::StoreU(bytes, d, rows[0] + offset);
    } else {
        const hn::Half<decltype(d)> half;
        storeBlocks(hn::LowerHalf(half, bytes), rows, offset);
        storeBlocks(hn::UpperHalf(half, bytes), rows + hn::MaxLanes(half) / 16, offset);
    }
}

/// Pixels of which some reach over a border, or fewer than four: their differences are looked up one by one.
template <class T, class State>
HWY_INLINE void fourPixels(const PixelSums<T>& pixels, State& state, std::int64_t entering, std::int64_t leaving,
                           std::int64_t count, const RowPointers& rows, std::size_t offset) {
    Signed means[4];
    for (std::int64_t i = 0; i < 4; ++i)
        means[i] =
            state.next(difference(pixels.slot(pixels.indexOf(entering + i)), pixels.slot(pixels.indexOf(leaving + i))));
    HWY_ALIGN std::uint8_t bytes[16 * kBlocks];
    hn::Store(packed(means[0], means[1], means[2], means[3]), kBytes, bytes);
    for (std::size_t row = 0; row < kBlocks; ++row)
        std::memcpy(rows[row] + offset, bytes + 16 * row, static_cast<std::size_t>(4 * count));
}

/// Four pixels at a time, `count` times; where a border is repeated, a step is 0.
template <class T, class State>
HWY_INLINE void manyPixels(State& stateBefore, const T* entering, std::size_t enteringStep, const T* leaving,
                           std::size_t leavingStep, std::int64_t count, const RowPointers& rows, std::size_t offset) {
    State state = stateBefore;
    const RowPointers to = rows;
    for (; count > 0; --count, offset += 16) {
        const Signed first = state.next(difference(entering, leaving));
        const Signed second = state.next(difference(entering + enteringStep, leaving + leavingStep));
        const Signed third = state.next(difference(entering + 2 * enteringStep, leaving + 2 * leavingStep));
        const Signed fourth = state.next(difference(entering + 3 * enteringStep, leaving + 3 * leavingStep));
        entering += 4 * enteringStep;
        leaving += 4 * leavingStep;
        storeBlocks(packed(first, second, third, fourth), to.data(), offset);
    }
    stateBefore = state;
}

template <class T, class Sums>
void meansOfRows(const BoxConvolution& convolution, const PixelSums<T>& pixels, const Sums& sums,
                 const RowPointers& rows) {
    const std::int64_t radius = convolution.radiusX();
    const std::int64_t width = convolution.destinationWidth;
    auto state =
        sums.begin(pixels, spanOf(convolution.offsetX - 1 - radius, convolution.kernelWidth, convolution.width));
    for (std::int64_t x = 0; x < width;) {
        const std::int64_t entering = convolution.offsetX + x + radius;
        const std::int64_t leaving = convolution.offsetX + x - radius - 1;
        const bool enters = entering < convolution.width;
        const bool leaves = leaving >= -1;
        std::int64_t run = width - x;
        if (enters)
            run = std::min(run, convolution.width - entering);
        if (!leaves)
            run = std::min(run, -1 - leaving);
        const auto offset = static_cast<std::size_t>(4 * x);
        if (run < 4) {
            fourPixels(pixels, state, entering, leaving, std::min<std::int64_t>(4, width - x), rows, offset);
            x += 4;
            continue;
        }
        manyPixels(state, pixels.slot(pixels.indexOf(entering)), enters ? 4 * kBlocks : 0,
                   pixels.slot(pixels.indexOf(leaving)), leaves ? 4 * kBlocks : 0, run / 4, rows, offset);
        x += run / 4 * 4;
    }
}

/// What lies to the left and to the right of the columns, for the rows side by side.
template <class T>
void makeOutside(const BoxConvolution& convolution, T* slots, std::size_t columns) {
    T* const left = slots;
    T* const right = slots + 4 * kBlocks * (columns + 1);
    for (std::size_t i = 0; i < 4 * kBlocks; ++i) {
        const bool isColour = convolution.edge == BoxEdge::Colour;
        const T colour = static_cast<T>(convolution.kernelHeight * convolution.colour[i % 4]);
        left[i] = isColour ? colour : left[4 * kBlocks + i];
        right[i] = isColour ? colour : slots[4 * kBlocks * columns + i];
    }
}

template <class T, class Sums>
void convolve(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first, std::int64_t end) {
    const auto columnCount = static_cast<std::size_t>(convolution.columnCount());
    const std::size_t channels = 4 * columnCount;
    const std::size_t columnBytes = (sizeof(T) * channels + kBoxAlignment - 1) / kBoxAlignment * kBoxAlignment;
    T* const columns = reinterpret_cast<T*>(workspace);
    T* const pixels = reinterpret_cast<T*>(workspace + columnBytes + kBoxAlignment);
    T* const slots = pixels - 4 * kBlocks;
    // Behind the slot to the right, and what the last chunk writes there.
    auto* const outsideRow = reinterpret_cast<std::uint8_t*>(pixels + kBlocks * channels) + 4 * kBoxAlignment;

    const BoxRows source(convolution, outsideRow);
    const PixelSums<T> sums{slots, convolution.firstColumn(), convolution.columnCount()};
    const Sums division(convolution);
    makeFirstSums(convolution, source, first, columns);
    ConstRowPointers entering{};
    ConstRowPointers leaving{};
    RowPointers rows{};
    for (std::int64_t y = first; y < end; y += static_cast<std::int64_t>(kBlocks)) {
        const std::size_t count = static_cast<std::size_t>(std::min(end - y, static_cast<std::int64_t>(kBlocks)));
        for (std::size_t i = 0; i < kBlocks; ++i) {
            // Rows that are not there repeat the last one, and write the same into it once more.
            const bool isThere = i < count;
            const std::int64_t row = y + static_cast<std::int64_t>(std::min(i, count - 1));
            entering[i] = source.row(convolution.offsetY + row + convolution.radiusY());
            leaving[i] = isThere ? source.row(convolution.offsetY + row - convolution.radiusY() - 1) : entering[i];
            rows[i] = convolution.destinationRow(row);
        }
        nextRows(columns, pixels, entering, leaving, channels);
        makeOutside(convolution, slots, columnCount);
        meansOfRows(convolution, sums, division, rows);
        for (std::size_t i = 0; i < count; ++i)
            finishRow(convolution, y + static_cast<std::int64_t>(i));
    }
}

void convolveVectors(const BoxConvolution& convolution, BoxArithmetic arithmetic, std::byte* workspace,
                     std::int64_t first, std::int64_t end) {
    if (arithmetic == BoxArithmetic::Short)
        convolve<std::uint16_t, DividedSums>(convolution, workspace, first, end);
    else if (arithmetic == BoxArithmetic::Long)
        convolve<std::uint32_t, DividedSums>(convolution, workspace, first, end);
    else
        convolve<std::uint32_t, RemainderSums>(convolution, workspace, first, end);
}

#endif

} // namespace HWY_NAMESPACE
} // namespace zr::detail
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace zr::detail {

HWY_EXPORT(convolveVectors);
HWY_EXPORT(vectorTarget);

std::int64_t boxVectorTarget() { return HWY_DYNAMIC_DISPATCH(vectorTarget)(); }

void convolveRowsWithVectors(const BoxConvolution& convolution, BoxArithmetic arithmetic, std::byte* workspace,
                             std::int64_t first, std::int64_t end) {
    HWY_DYNAMIC_DISPATCH(convolveVectors)(convolution, arithmetic, workspace, first, end);
}

} // namespace zr::detail
#endif
