#include <ZRPlatform/Accelerate/Internal/GaussianRows.h>

#include <algorithm>

// Compiled once for every instruction set; this file includes itself.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE <ZRPlatform/Accelerate/GaussianRows.cpp>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace zr::detail {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR

// Processors without any vectors that are known here.

void LoadRow(const std::uint8_t* pixels, std::size_t count, float* row) {
    for (std::size_t i = 0; i < 4 * count; ++i)
        row[i] = pixels[i];
}

void StoreRow(const float* row, std::size_t count, std::uint8_t* pixels) {
    for (std::size_t i = 0; i < 4 * count; ++i)
        pixels[i] = static_cast<std::uint8_t>(std::clamp(row[i], 0.0f, 255.0f) + 0.5f);
}

void SumRows(const float* const* rows, const float* weights, std::size_t rowCount, std::size_t count, float* sum) {
    std::fill_n(sum, 4 * count, 0.0f);
    for (std::size_t r = 0; r < rowCount; ++r) {
        for (std::size_t i = 0; i < 4 * count; ++i)
            sum[i] += weights[r] * rows[r][i];
    }
}

HWY_INLINE void CombinePixels(const float* row, const float* weights, std::size_t first, std::size_t last,
                              float* output) {
    std::fill_n(output, 4, 0.0f);
    for (std::size_t i = 4 * first; i < 4 * last; ++i)
        output[i % 4] += weights[i] * row[i];
}

#else

namespace hn = hwy::HWY_NAMESPACE;

// One pixel, or two: wider vectors than that gain nothing, as there are hardly more than ten neighbours.
using OnePixel = hn::FixedTag<float, 4>;
#if HWY_MAX_BYTES >= 32 && !HWY_HAVE_SCALABLE
constexpr std::size_t kPixelsAVector = 2;
#else
constexpr std::size_t kPixelsAVector = 1;
#endif
using Pixels = hn::FixedTag<float, 4 * kPixelsAVector>;

template <class D>
HWY_INLINE void LoadPixels(D d, const std::uint8_t* from, float* to) {
    const hn::Rebind<std::uint8_t, D> bytes;
    const hn::Rebind<std::int32_t, D> integers;
    hn::StoreU(hn::ConvertTo(d, hn::PromoteTo(integers, hn::LoadU(bytes, from))), d, to);
}

void LoadRow(const std::uint8_t* pixels, std::size_t count, float* row) {
    std::size_t x = 0;
    for (; x + kPixelsAVector <= count; x += kPixelsAVector)
        LoadPixels(Pixels(), pixels + 4 * x, row + 4 * x);
    for (; x < count; ++x)
        LoadPixels(OnePixel(), pixels + 4 * x, row + 4 * x);
}

template <class D>
HWY_INLINE void StorePixels(D d, const float* from, std::uint8_t* to) {
    const hn::Rebind<std::uint8_t, D> bytes;
    hn::StoreU(hn::DemoteTo(bytes, hn::NearestInt(hn::LoadU(d, from))), bytes, to);
}

void StoreRow(const float* row, std::size_t count, std::uint8_t* pixels) {
    std::size_t x = 0;
    for (; x + kPixelsAVector <= count; x += kPixelsAVector)
        StorePixels(Pixels(), row + 4 * x, pixels + 4 * x);
    for (; x < count; ++x)
        StorePixels(OnePixel(), row + 4 * x, pixels + 4 * x);
}

/// `kVectors` vectors of each row at a time, so that a weight is fetched once for all of them.
template <std::size_t kVectors, class D>
HWY_INLINE void SumPixels(D d, const float* const* rows, const float* weights, std::size_t rowCount, std::size_t at,
                          float* sum) {
    const std::size_t lanes = hn::Lanes(d);
    hn::Vec<D> sums[kVectors];
    for (auto& each : sums)
        each = hn::Zero(d);
    for (std::size_t i = 0; i < rowCount; ++i) {
        const auto weight = hn::Set(d, weights[i]);
        for (std::size_t v = 0; v < kVectors; ++v)
            sums[v] = hn::MulAdd(weight, hn::LoadU(d, rows[i] + at + v * lanes), sums[v]);
    }
    for (std::size_t v = 0; v < kVectors; ++v)
        hn::StoreU(sums[v], d, sum + at + v * lanes);
}

void SumRows(const float* const* rows, const float* weights, std::size_t rowCount, std::size_t count, float* sum) {
    constexpr std::size_t kVectors = 4;
    std::size_t x = 0;
    for (; x + kVectors * kPixelsAVector <= count; x += kVectors * kPixelsAVector)
        SumPixels<kVectors>(Pixels(), rows, weights, rowCount, 4 * x, sum);
    for (; x < count; ++x)
        SumPixels<1>(OnePixel(), rows, weights, rowCount, 4 * x, sum);
}

/// `first` and `last` are even.
HWY_INLINE void CombinePixels(const float* row, const float* weights, std::size_t first, std::size_t last,
                              float* output) {
    const Pixels d;
    const OnePixel one;
    auto sum = hn::Zero(d);
    for (std::size_t i = first; i < last; i += kPixelsAVector)
        sum = hn::MulAdd(hn::LoadU(d, weights + 4 * i), hn::LoadU(d, row + 4 * i), sum);
#if HWY_MAX_BYTES >= 32 && !HWY_HAVE_SCALABLE
    hn::StoreU(hn::Add(hn::LowerHalf(one, sum), hn::UpperHalf(one, sum)), one, output);
#else
    hn::StoreU(sum, one, output);
#endif
}

#endif

void CombineNeighbours(const float* row, std::size_t begin, std::size_t end, const Walk& walk, std::size_t outputCount,
                       float* outputs) {
    std::size_t phase = walk.firstPhase, at = 0;
    for (std::size_t output = 0; output < outputCount; ++output) {
        const std::size_t first = begin > at ? (begin - at) & ~std::size_t{1} : 0;
        const std::size_t last = end > at ? std::min(walk.taps, (end - at + 1) & ~std::size_t{1}) : 0;
        const float* weights = walk.weights + 4 * walk.taps * phase;
        CombinePixels(row + 4 * at, weights, first, last, outputs + 4 * output);
        if (++phase == walk.phases) {
            phase = 0;
            at += walk.advance;
        }
    }
}

} // namespace HWY_NAMESPACE
} // namespace zr::detail
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace zr::detail {

HWY_EXPORT(LoadRow);
HWY_EXPORT(StoreRow);
HWY_EXPORT(SumRows);
HWY_EXPORT(CombineNeighbours);

void loadRow(const std::uint8_t* pixels, std::size_t count, float* row) {
    HWY_DYNAMIC_DISPATCH(LoadRow)(pixels, count, row);
}

void storeRow(const float* row, std::size_t count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(StoreRow)(row, count, pixels);
}

void sumRows(const float* const* rows, const float* weights, std::size_t rowCount, std::size_t count, float* sum) {
    HWY_DYNAMIC_DISPATCH(SumRows)(rows, weights, rowCount, count, sum);
}

void combineNeighbours(const float* row, std::size_t begin, std::size_t end, const Walk& walk, std::size_t outputCount,
                       float* outputs) {
    HWY_DYNAMIC_DISPATCH(CombineNeighbours)(row, begin, end, walk, outputCount, outputs);
}

} // namespace zr::detail

#endif
