#pragma once

#include <cstddef>
#include <cstdint>

namespace zr::detail {

/// The largest standard deviation, in pixels.
inline constexpr double kLargestSigma = 10'000;

/// Rows of pixels of four 8-bit channels; `width` and `height` at least 1, at most 2^30.
struct BlurSource {
    const std::uint8_t* pixels;
    std::size_t rowBytes;
    std::int64_t width;
    std::int64_t height;
};

/// The part of the result that is wanted.
struct BlurTarget {
    std::uint8_t* pixels;
    std::size_t rowBytes;
    std::int64_t width;
    std::int64_t height;
    /// Where its first pixel lies in the source's grid; outside the source too. At most 2^30 away.
    std::int64_t x;
    std::int64_t y;
};

/// Convolves the source, which is 0 all around, with the Gaussian of standard deviation `sigma` (pixels, above 0, at
/// most `kLargestSigma`), sampled at whole pixels with a sum of 1. All four channels alike, as they are. The result is
/// within 0.7 of the exact one, so within 1 of that one rounded, and the same whatever part of it is asked for.
///
/// The cost of a pixel does not grow with `sigma`. Large targets are shared out among the processors. False, with the
/// target in any state, when there is not enough memory.
bool gaussianBlur(const BlurSource& source, const BlurTarget& target, double sigma);

/// How far away a pixel of the source can be and still count. A source may be cut down to that, at a multiple of
/// `blurStep` from its left and upper border, without a change of the result.
std::int64_t blurReach(double sigma);
std::int64_t blurStep(double sigma);

} // namespace zr::detail
