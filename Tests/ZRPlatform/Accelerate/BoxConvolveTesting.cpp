#include <Tests/ZRPlatform/Accelerate/BoxConvolveTesting.h>

#include <algorithm>
#include <random>

namespace zr::testing {

namespace {

__extension__ using Wide = __int128;

std::uint8_t patternAt(std::size_t index) { return static_cast<std::uint8_t>(0xA5 ^ (index * 31)); }

/// How often a kernel of `size` around `centre` meets each of `count` places, those outside counted at the nearest one
/// where the border is repeated.
std::vector<std::int64_t> weights(std::size_t centre, std::uint32_t size, std::size_t count, bool repeatsBorder) {
    const auto last = static_cast<std::int64_t>(count) - 1;
    const std::int64_t begin = static_cast<std::int64_t>(centre) - size / 2;
    const std::int64_t end = static_cast<std::int64_t>(centre) + size / 2;
    std::vector<std::int64_t> result(count);
    for (std::int64_t i = std::max<std::int64_t>(begin, 0); i <= std::min(end, last); ++i)
        result[static_cast<std::size_t>(i)] = 1;
    if (repeatsBorder) {
        result.front() += std::max<std::int64_t>(-begin, 0);
        result.back() += std::max<std::int64_t>(end - last, 0);
    }
    return result;
}

std::int64_t sumOf(const std::vector<std::int64_t>& numbers) {
    std::int64_t sum = 0;
    for (const std::int64_t number : numbers)
        sum += number;
    return sum;
}

bool reachesOutside(std::size_t centre, std::uint32_t size, std::size_t count) {
    return centre < size / 2 || centre + size / 2 >= count;
}

std::uint8_t roundedQuotient(Wide sum, Wide count) {
    return static_cast<std::uint8_t>((2 * sum + count) / (2 * count));
}

} // namespace

Picture::Picture(std::size_t width, std::size_t height, std::size_t gap) :
    m_width(width), m_height(height), m_rowBytes(4 * width + gap), m_memory(2 * kGuard + height * m_rowBytes) {
    for (std::size_t i = 0; i < m_memory.size(); ++i)
        m_memory[i] = patternAt(i);
}

Picture& Picture::fillWithNoise(unsigned seed) {
    std::minstd_rand random(seed + 1);
    for (std::size_t y = 0; y < m_height; ++y)
        std::generate_n(pixel(0, y), 4 * m_width, [&] { return static_cast<std::uint8_t>(random() >> 8); });
    return *this;
}

Picture& Picture::fillWithExtremes(unsigned seed) {
    fillWithNoise(seed);
    for (std::size_t y = 0; y < m_height; ++y)
        std::transform(pixel(0, y), pixel(0, y) + 4 * m_width, pixel(0, y),
                       [](std::uint8_t byte) { return byte & 1 ? std::uint8_t{255} : std::uint8_t{0}; });
    return *this;
}

Picture& Picture::fillWith(std::uint8_t value) {
    for (std::size_t y = 0; y < m_height; ++y)
        std::fill_n(pixel(0, y), 4 * m_width, value);
    return *this;
}

bool Picture::hasItsGuards() const {
    for (std::size_t i = 0; i < m_memory.size(); ++i) {
        const bool isInRows = i >= kGuard && i < m_memory.size() - kGuard;
        if (isInRows && (i - kGuard) % m_rowBytes < 4 * m_width)
            continue;
        if (m_memory[i] != patternAt(i))
            return false;
    }
    return true;
}

bool operator==(const Picture& one, const Picture& other) {
    if (one.m_width != other.m_width || one.m_height != other.m_height)
        return false;
    for (std::size_t y = 0; y < one.m_height; ++y) {
        if (!std::equal(one.pixel(0, y), one.pixel(0, y) + 4 * one.m_width, other.pixel(0, y)))
            return false;
    }
    return true;
}

void PrintTo(const Picture& picture, std::ostream* stream) {
    *stream << picture.m_width << " x " << picture.m_height << ":";
    for (std::size_t i = 0; i < std::min<std::size_t>(4 * picture.m_width, 16); ++i)
        *stream << ' ' << int{picture.pixel(0, 0)[i]};
}

vImage_Error convolve(Picture& source, Picture& destination, Kernel kernel, vImage_Flags flags, Place place,
                      void* tempBuffer) {
    const vImage_Buffer from = source.buffer();
    const vImage_Buffer to = destination.buffer();
    return vImageBoxConvolve_ARGB8888(&from, &to, tempBuffer, place.x, place.y, kernel.height, kernel.width,
                                      flags & kvImageBackgroundColorFill ? kColour : nullptr, flags);
}

Picture expected(const Picture& source, const Picture& like, Kernel kernel, vImage_Flags flags, Place place) {
    const bool repeatsBorder = flags & (kvImageEdgeExtend | kvImageCopyInPlace);
    const Wide area = Wide{kernel.width} * kernel.height;
    Picture result(like.width(), like.height());
    std::vector<Wide> columns(4 * source.width());
    for (std::size_t y = 0; y < like.height(); ++y) {
        const auto rows = weights(place.y + y, kernel.height, source.height(), repeatsBorder);
        std::fill(columns.begin(), columns.end(), Wide{0});
        for (std::size_t j = 0; j < source.height(); ++j) {
            for (std::size_t i = 0; rows[j] != 0 && i < columns.size(); ++i)
                columns[i] += Wide{rows[j]} * source.pixel(0, j)[i];
        }
        for (std::size_t x = 0; x < like.width(); ++x) {
            const auto weight = weights(place.x + x, kernel.width, source.width(), repeatsBorder);
            const Wide inside = Wide{sumOf(weight)} * sumOf(rows);
            const bool isCopied =
                (flags & kvImageCopyInPlace) && (reachesOutside(place.x + x, kernel.width, source.width()) ||
                                                 reachesOutside(place.y + y, kernel.height, source.height()));
            for (std::size_t channel = 0; channel < 4; ++channel) {
                Wide sum = 0;
                for (std::size_t i = 0; i < source.width(); ++i)
                    sum += Wide{weight[i]} * columns[4 * i + channel];
                if (flags & kvImageBackgroundColorFill)
                    sum += (area - inside) * kColour[channel];
                const bool isKept = isCopied || (channel == 0 && (flags & kvImageLeaveAlphaUnchanged));
                result.pixel(x, y)[channel] = isKept
                                                  ? source.pixel(place.x + x, place.y + y)[channel]
                                                  : roundedQuotient(sum, flags & kvImageTruncateKernel ? inside : area);
            }
        }
    }
    return result;
}

} // namespace zr::testing
