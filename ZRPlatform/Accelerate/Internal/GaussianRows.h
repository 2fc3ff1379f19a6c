#pragma once

#include <cstddef>
#include <cstdint>

namespace zr::detail {

// The arithmetic on rows of pixels as floats, four a pixel, with the best instructions that the processor has. Counts
// are in pixels.

/// Bytes to floats.
void loadRow(const std::uint8_t* pixels, std::size_t count, float* row);
/// Floats to the nearest bytes.
void storeRow(const float* row, std::size_t count, std::uint8_t* pixels);
/// The sum of `rows`, each times its weight.
void sumRows(const float* const* rows, const float* weights, std::size_t rowCount, std::size_t count, float* sum);

/// How `combineNeighbours` walks.
struct Walk {
    /// Of the neighbours of an output pixel, each four times; `taps` a phase, an even number.
    const float* weights;
    std::size_t taps;
    /// After `phases` outputs the weights begin anew and the neighbours are `advance` pixels on.
    std::size_t phases;
    std::size_t advance;
    /// That of the first output.
    std::size_t firstPhase;
};
/// Makes each output pixel from `taps` neighbouring pixels of `row`, which begins at the first output's first one. All
/// of `row` is 0 but the pixels from `begin` to before `end`; the others are passed over as far as that saves time.
void combineNeighbours(const float* row, std::size_t begin, std::size_t end, const Walk& walk, std::size_t outputCount,
                       float* outputs);

} // namespace zr::detail
