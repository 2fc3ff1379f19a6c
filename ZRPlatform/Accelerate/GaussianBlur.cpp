#include <ZRPlatform/Accelerate/Internal/GaussianBlur.h>

#include <ZRPlatform/Accelerate/Internal/GaussianRows.h>
#include <ZRPlatform/Accelerate/Internal/ParallelLoop.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <new>
#include <numbers>
#include <vector>

// A Gaussian of a large sigma is two of sigma / sqrt(2) after one another, and what the first leaves is smooth enough
// to be known from every k-th sample alone. So the source is gathered into a coarse grid, and the second Gaussian
// spreads the grid's samples over the pixels: each step needs some ten neighbours, whatever the sigma. A sine that the
// grid takes for another comes through with exp(-(pi sigma / k)^2 / 2) of its amplitude at most, 1/2200 at the largest
// k chosen here; the tails that are cut off, at 3.7 sigmas, are 1/4600.
//
// A small sigma takes the direct way, one Gaussian at every pixel.

namespace zr::detail {

namespace {

/// Sigmas.
constexpr double kTail = 3.7;
constexpr double kSigmasAStep = 1.25;
/// Weights differ at every pixel of a step, and should not be too many.
constexpr std::int64_t kLargestStep = 1024;
/// Pixels that are worked on at a time: the rows that a line down needs stay in the cache.
constexpr std::int64_t kTileColumns = 256;
constexpr std::int64_t kTileRows = 512;
constexpr std::int64_t kBandRows = 16;
/// From here on the work is shared out.
constexpr std::int64_t kManyPixels = 100'000;

std::int64_t floorOfQuotient(std::int64_t a, std::int64_t b) { return (a - (a < 0 ? b - 1 : 0)) / b; }

/// Samples on either side that count.
std::int64_t reachOf(double sigma) { return static_cast<std::int64_t>(std::ceil(kTail * sigma)); }

/// From a first to before a last.
struct Range {
    std::int64_t begin = 0;
    std::int64_t end = 0;

    std::int64_t count() const { return std::max<std::int64_t>(end - begin, 0); }
    Range cutTo(Range other) const { return {std::max(begin, other.begin), std::min(end, other.end)}; }
};

/// How the samples of one line are made from those of another: each from its `taps` neighbours there.
class Line {
public:
    /// Output i lies on input i * `step`: a sample of the inputs blurred.
    static Line gathering(double sigma, std::int64_t step) {
        const std::int64_t reach = reachOf(sigma);
        Line line(1, step, -reach, 2 * reach + 1);
        line.setWeights(0, [&](std::int64_t tap) { return static_cast<double>(tap - reach) / sigma; });
        return line;
    }
    /// Input i lies on output i * `step`: a bell around every input.
    static Line spreading(double sigma, std::int64_t step) {
        const std::int64_t reach = reachOf(sigma);
        const std::int64_t first = -(reach / step), last = (reach + step - 1) / step;
        Line line(step, 1, first, last - first + 1);
        for (std::int64_t phase = 0; phase < step; ++phase)
            line.setWeights(
                phase, [&](std::int64_t tap) { return static_cast<double>(phase - (first + tap) * step) / sigma; });
        return line;
    }

    std::int64_t taps() const { return m_taps; }
    std::int64_t firstInput(std::int64_t output) const {
        return floorOfQuotient(output, m_phases) * m_advance + m_firstInput;
    }
    /// Everything that these outputs are made of.
    Range inputs(Range outputs) const { return {firstInput(outputs.begin), firstInput(outputs.end - 1) + m_taps}; }
    const float* weights(std::int64_t output) const { return m_weights.data() + phase(output) * m_taps; }
    Walk walkFrom(std::int64_t output) const {
        return {m_weights4.data(), static_cast<std::size_t>(evenTaps()), static_cast<std::size_t>(m_phases),
                static_cast<std::size_t>(m_advance), static_cast<std::size_t>(phase(output))};
    }

private:
    Line(std::int64_t phases, std::int64_t advance, std::int64_t firstInput, std::int64_t taps) :
        m_phases(phases), m_advance(advance), m_firstInput(firstInput), m_taps(taps),
        m_weights(static_cast<std::size_t>(phases * taps)),
        m_weights4(static_cast<std::size_t>(4 * phases * evenTaps())) {}

    std::int64_t evenTaps() const { return m_taps + m_taps % 2; }
    std::int64_t phase(std::int64_t output) const { return output - floorOfQuotient(output, m_phases) * m_phases; }

    template <class Distance>
    void setWeights(std::int64_t phase, Distance distanceInSigmas) {
        std::vector<double> values(static_cast<std::size_t>(m_taps));
        double sum = 0;
        for (std::size_t tap = 0; tap < values.size(); ++tap) {
            const double distance = distanceInSigmas(static_cast<std::int64_t>(tap));
            sum += values[tap] = std::exp(-0.5 * distance * distance);
        }
        float* weights = m_weights.data() + phase * m_taps;
        float* weights4 = m_weights4.data() + 4 * phase * evenTaps();
        for (std::size_t tap = 0; tap < values.size(); ++tap) {
            weights[tap] = static_cast<float>(values[tap] / sum);
            std::fill_n(weights4 + 4 * tap, 4, weights[tap]);
        }
    }

    std::int64_t m_phases;
    std::int64_t m_advance;
    std::int64_t m_firstInput;
    std::int64_t m_taps;
    std::vector<float> m_weights;
    /// Each weight four times, and a 0 after an odd number of them.
    std::vector<float> m_weights4;
};

/// Pixels as floats, not set to anything.
class Floats {
public:
    explicit Floats(std::int64_t pixels) : m_floats(new (std::nothrow) float[static_cast<std::size_t>(4 * pixels)]) {
        if (!m_floats)
            throw std::bad_alloc();
    }
    float* at(std::int64_t pixel) const { return m_floats.get() + 4 * pixel; }

private:
    std::unique_ptr<float[]> m_floats;
};

/// Reads rows of the source through a line across. Keeps the last ones, as many as a line down needs at a time.
class RowWindow {
public:
    RowWindow(const BlurSource& source, const Line& across, Range columns, std::int64_t rowsKept) :
        m_source(source), m_across(across), m_columns(columns), m_inputs(across.inputs(columns)),
        m_kept(std::min(rowsKept, source.height)), m_input(m_inputs.count() + 1), m_rows(m_kept * columns.count()) {
        std::fill_n(m_input.at(0), 4 * (m_inputs.count() + 1), 0.0f);
    }

    /// The source's row `y`; rows are asked for in groups that move downwards.
    const float* row(std::int64_t y) {
        if (m_next < 0)
            m_next = y;
        for (; m_next <= y; ++m_next)
            read(m_next);
        return slot(y);
    }

private:
    float* slot(std::int64_t y) const { return m_rows.at(y % m_kept * m_columns.count()); }

    void read(std::int64_t y) {
        const Range present = m_inputs.cutTo({0, m_source.width});
        const std::int64_t begin = present.begin - m_inputs.begin;
        if (present.count() > 0)
            loadRow(m_source.pixels + static_cast<std::size_t>(y) * m_source.rowBytes + 4 * present.begin,
                    static_cast<std::size_t>(present.count()), m_input.at(begin));
        combineNeighbours(m_input.at(0), static_cast<std::size_t>(begin),
                          static_cast<std::size_t>(begin + present.count()), m_across.walkFrom(m_columns.begin),
                          static_cast<std::size_t>(m_columns.count()), slot(y));
    }

    const BlurSource& m_source;
    const Line& m_across;
    const Range m_columns;
    const Range m_inputs;
    const std::int64_t m_kept;
    std::int64_t m_next = -1;
    Floats m_input;
    Floats m_rows;
};

/// The rows of a column's neighbours that there are, with their weights.
struct Neighbours {
    std::vector<const float*> rows;
    const float* weights = nullptr;

    void sum(std::int64_t pixels, float* result) const {
        sumRows(rows.data(), weights, rows.size(), static_cast<std::size_t>(pixels), result);
    }
};

template <class RowAt>
void findNeighbours(Neighbours& neighbours, const Line& down, std::int64_t output, Range present, RowAt rowAt) {
    const std::int64_t first = down.firstInput(output);
    const Range found = Range{first, first + down.taps()}.cutTo(present);
    neighbours.rows.clear();
    for (std::int64_t y = found.begin; y < found.end; ++y)
        neighbours.rows.push_back(rowAt(y));
    neighbours.weights = found.count() > 0 ? down.weights(output) + (found.begin - first) : nullptr;
}

/// Blurs a part of the outputs, across and then down, and hands each row to `finish(y, row)`.
template <class Finish>
void blurTile(const BlurSource& source, const Line& across, const Line& down, Range columns, Range rows,
              Finish finish) {
    RowWindow window(source, across, columns, down.taps());
    const Floats result(columns.count());
    Neighbours neighbours;
    for (std::int64_t y = rows.begin; y < rows.end; ++y) {
        findNeighbours(neighbours, down, y, {0, source.height}, [&](std::int64_t row) { return window.row(row); });
        neighbours.sum(columns.count(), result.at(0));
        finish(y, result.at(0));
    }
}

/// Cuts a plane into tiles and works on several at a time. False when memory ran out at one.
template <class Body>
bool forEachTile(Range columns, Range rows, std::int64_t tileColumns, std::int64_t tileRows, bool isLarge, Body body) {
    const std::int64_t across = (columns.count() + tileColumns - 1) / tileColumns;
    const std::int64_t down = (rows.count() + tileRows - 1) / tileRows;
    std::atomic<bool> succeeded = true;
    parallelLoop(static_cast<std::size_t>(across * down), isLarge, [&](std::size_t index) {
        const std::int64_t x = columns.begin + static_cast<std::int64_t>(index) % across * tileColumns;
        const std::int64_t y = rows.begin + static_cast<std::int64_t>(index) / across * tileRows;
        try {
            body(Range{x, x + tileColumns}.cutTo(columns), Range{y, y + tileRows}.cutTo(rows));
        } catch (const std::bad_alloc&) {
            succeeded = false;
        }
    });
    return succeeded;
}

std::uint8_t* targetPixel(const BlurTarget& target, std::int64_t x, std::int64_t y) {
    return target.pixels + static_cast<std::size_t>(y - target.y) * target.rowBytes + 4 * (x - target.x);
}

bool blurDirectly(const BlurSource& source, const BlurTarget& target, double sigma, bool isLarge) {
    const Line line = Line::gathering(sigma, 1);
    const Range columns{target.x, target.x + target.width}, rows{target.y, target.y + target.height};
    return forEachTile(columns, rows, kTileColumns, kTileRows, isLarge, [&](Range tileColumns, Range tileRows) {
        blurTile(source, line, line, tileColumns, tileRows, [&](std::int64_t y, const float* row) {
            storeRow(row, static_cast<std::size_t>(tileColumns.count()), targetPixel(target, tileColumns.begin, y));
        });
    });
}

bool blurThroughGrid(const BlurSource& source, const BlurTarget& target, double sigma, std::int64_t step,
                     bool isLarge) {
    const double half = sigma / std::numbers::sqrt2;
    const Line gather = Line::gathering(half, step), spread = Line::spreading(half, step);
    const Range columns{target.x, target.x + target.width}, rows{target.y, target.y + target.height};
    const Range gridColumns = spread.inputs(columns), gridRows = spread.inputs(rows);

    const Floats grid(gridColumns.count() * gridRows.count());
    const auto gridRow = [&](std::int64_t y) { return grid.at((y - gridRows.begin) * gridColumns.count()); };
    const std::int64_t gridTile = std::max<std::int64_t>(kTileColumns / step, 8);
    const bool gathered =
        forEachTile(gridColumns, gridRows, gridTile, gridRows.count(), isLarge, [&](Range tileColumns, Range tileRows) {
            blurTile(source, gather, gather, tileColumns, tileRows, [&](std::int64_t y, const float* row) {
                std::copy_n(row, 4 * tileColumns.count(), gridRow(y) + 4 * (tileColumns.begin - gridColumns.begin));
            });
        });
    if (!gathered)
        return false;

    const auto width = static_cast<std::size_t>(columns.count());
    return forEachTile(columns, rows, columns.count(), kBandRows, isLarge, [&](Range, Range band) {
        const Floats gridSum(gridColumns.count() + 1), result(columns.count());
        std::fill_n(gridSum.at(gridColumns.count()), 4, 0.0f);
        Neighbours neighbours;
        for (std::int64_t y = band.begin; y < band.end; ++y) {
            findNeighbours(neighbours, spread, y, gridRows, gridRow);
            neighbours.sum(gridColumns.count(), gridSum.at(0));
            combineNeighbours(gridSum.at(0), 0, static_cast<std::size_t>(gridColumns.count()),
                              spread.walkFrom(columns.begin), width, result.at(0));
            storeRow(result.at(0), width, targetPixel(target, columns.begin, y));
        }
    });
}

} // namespace

std::int64_t blurStep(double sigma) {
    const double step = std::min(sigma / kSigmasAStep, static_cast<double>(kLargestStep));
    return std::max<std::int64_t>(static_cast<std::int64_t>(step), 1);
}

std::int64_t blurReach(double sigma) {
    const std::int64_t step = blurStep(sigma);
    return step < 2 ? reachOf(sigma) : 2 * reachOf(sigma / std::numbers::sqrt2) + step;
}

bool gaussianBlur(const BlurSource& source, const BlurTarget& target, double sigma) {
    const std::int64_t step = blurStep(sigma);
    const bool isLarge = target.width * target.height >= kManyPixels;
    try {
        return step < 2 ? blurDirectly(source, target, sigma, isLarge)
                        : blurThroughGrid(source, target, sigma, step, isLarge);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace zr::detail
