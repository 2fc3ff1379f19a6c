#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>
#include <ZRPlatform/Accelerate/Internal/LongSum.h>

#include <algorithm>
#include <array>

namespace zr::detail {

namespace {

/// The column sums of one row, one number a channel, and what there is to the left and right of them.
struct Columns {
    const BoxConvolution& convolution;
    const std::uint64_t* sums;
    std::int64_t firstColumn;

    /// A column of the image, four channels.
    const std::uint64_t* pixel(std::int64_t column) const {
        return sums + 4 * static_cast<std::size_t>(column - firstColumn);
    }

    std::uint64_t at(std::int64_t column, std::size_t channel) const {
        if (column < 0 || column >= convolution.width) {
            if (convolution.edge == BoxEdge::Colour)
                return std::uint64_t{convolution.kernelHeight} * convolution.colour[channel];
            column = std::clamp<std::int64_t>(column, 0, convolution.width - 1);
        }
        return pixel(column)[channel];
    }
};

void makeFirstSums(const BoxConvolution& convolution, const BoxRows& rows, std::int64_t first, std::uint64_t* sums) {
    const auto channels = 4 * static_cast<std::size_t>(convolution.columnCount());
    const BoxSpan span =
        spanOf(convolution.offsetY + first - 1 - convolution.radiusY(), convolution.kernelHeight, convolution.height);
    const std::uint8_t* above = rows.row(-1);
    const std::uint8_t* below = rows.row(convolution.height);
    for (std::size_t i = 0; i < channels; ++i)
        sums[i] = static_cast<std::uint64_t>(span.below) * above[i] + static_cast<std::uint64_t>(span.above) * below[i];
    for (std::int64_t y = span.first; y < span.first + span.inside; ++y) {
        const std::uint8_t* row = rows.row(y);
        for (std::size_t i = 0; i < channels; ++i)
            sums[i] += row[i];
    }
}

void meansOfChannel(const BoxConvolution& convolution, const Columns& columns, std::size_t channel,
                    std::uint8_t* destination) {
    const std::int64_t radius = convolution.radiusX();
    const std::uint64_t area = convolution.area();
    const BoxSpan span = spanOf(convolution.offsetX - 1 - radius, convolution.kernelWidth, convolution.width);
    LongSum sum(area, area / 2);
    // The columns at the border are there only where the kernel reaches over it.
    if (span.below > 0)
        sum.addMultiple(columns.at(-1, channel), static_cast<std::uint64_t>(span.below));
    if (span.above > 0)
        sum.addMultiple(columns.at(convolution.width, channel), static_cast<std::uint64_t>(span.above));
    for (std::int64_t column = span.first; column < span.first + span.inside; ++column)
        sum.add(columns.at(column, channel));
    for (std::int64_t x = 0; x < convolution.destinationWidth; ++x) {
        const std::int64_t centre = convolution.offsetX + x;
        sum.add(columns.at(centre + radius, channel));
        sum.subtract(columns.at(centre - radius - 1, channel));
        destination[4 * static_cast<std::size_t>(x) + channel] = static_cast<std::uint8_t>(sum.quotient());
    }
}

/// `height`: of the part of the kernel that lies on the source.
void truncatedMeans(const BoxConvolution& convolution, const Columns& columns, std::int64_t height,
                    std::uint8_t* destination) {
    const std::int64_t radius = convolution.radiusX();
    const BoxSpan before = spanOf(convolution.offsetX - 1 - radius, convolution.kernelWidth, convolution.width);
    std::int64_t begin = before.first;
    std::int64_t end = before.first + before.inside;
    std::array<std::uint64_t, 4> sums{};
    for (std::int64_t column = begin; column < end; ++column) {
        for (std::size_t channel = 0; channel < 4; ++channel)
            sums[channel] += columns.pixel(column)[channel];
    }
    for (std::int64_t x = 0; x < convolution.destinationWidth; ++x) {
        const std::int64_t centre = convolution.offsetX + x;
        if (centre + radius < convolution.width) {
            for (std::size_t channel = 0; channel < 4; ++channel)
                sums[channel] += columns.pixel(end)[channel];
            ++end;
        }
        if (centre - radius - 1 >= 0) {
            for (std::size_t channel = 0; channel < 4; ++channel)
                sums[channel] -= columns.pixel(begin)[channel];
            ++begin;
        }
        // A sum and half of the count are a multiple of 0.5: with 0.25 more no quotient is so near to a whole number
        // that the rounding of the arithmetic would matter.
        const double count = static_cast<double>(end - begin) * static_cast<double>(height);
        const double factor = 1 / count;
        const double half = 0.5 * count + 0.25;
        for (std::size_t channel = 0; channel < 4; ++channel)
            destination[4 * static_cast<std::size_t>(x) + channel] = static_cast<std::uint8_t>(
                (static_cast<double>(static_cast<std::int64_t>(sums[channel])) + half) * factor);
    }
}

} // namespace

void convolveRowsOfAnySize(const BoxConvolution& convolution, std::byte* workspace, std::int64_t first,
                           std::int64_t end) {
    const auto channels = 4 * static_cast<std::size_t>(convolution.columnCount());
    auto* const sums = reinterpret_cast<std::uint64_t*>(workspace);
    const BoxRows rows(convolution, reinterpret_cast<std::uint8_t*>(sums + channels));
    const Columns columns{convolution, sums, convolution.firstColumn()};
    makeFirstSums(convolution, rows, first, sums);
    for (std::int64_t y = first; y < end; ++y) {
        const std::int64_t centre = convolution.offsetY + y;
        const std::uint8_t* entering = rows.row(centre + convolution.radiusY());
        const std::uint8_t* leaving = rows.row(centre - convolution.radiusY() - 1);
        for (std::size_t i = 0; i < channels; ++i)
            sums[i] = sums[i] + entering[i] - leaving[i];
        const std::int64_t height =
            spanOf(centre - convolution.radiusY(), convolution.kernelHeight, convolution.height).inside;
        if (convolution.edge == BoxEdge::Truncate) {
            truncatedMeans(convolution, columns, height, convolution.destinationRow(y));
        } else {
            for (std::size_t channel = 0; channel < 4; ++channel)
                meansOfChannel(convolution, columns, channel, convolution.destinationRow(y));
        }
        finishRow(convolution, y);
    }
}

} // namespace zr::detail
