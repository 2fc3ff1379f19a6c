#pragma once

#include <ZRPlatform/Accelerate/vImage.h>

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <vector>

namespace zr::testing {

/// A picture of four channels in memory that begins at an odd address, whose rows are further apart than they are long,
/// and which lies between guards. What is outside of the pixels holds a pattern.
class Picture {
public:
    Picture(std::size_t width, std::size_t height, std::size_t gap = 13);

    std::size_t width() const { return m_width; }
    std::size_t height() const { return m_height; }
    std::uint8_t* pixel(std::size_t x, std::size_t y) { return &m_memory[kGuard + y * m_rowBytes + 4 * x]; }
    const std::uint8_t* pixel(std::size_t x, std::size_t y) const { return &m_memory[kGuard + y * m_rowBytes + 4 * x]; }
    vImage_Buffer buffer() { return {pixel(0, 0), m_height, m_width, m_rowBytes}; }

    /// Every byte of the pixels by itself.
    Picture& fillWithNoise(unsigned seed);
    /// Of bytes that are either 0 or 255.
    Picture& fillWithExtremes(unsigned seed);
    Picture& fillWith(std::uint8_t value);

    /// Whether all that is no pixel still holds the pattern.
    bool hasItsGuards() const;
    /// Of the pixels alone.
    friend bool operator==(const Picture& one, const Picture& other);
    /// The size, and the first pixels.
    friend void PrintTo(const Picture& picture, std::ostream* stream);

private:
    static constexpr std::size_t kGuard = 67;
    std::size_t m_width;
    std::size_t m_height;
    std::size_t m_rowBytes;
    std::vector<std::uint8_t> m_memory;
};

struct Kernel {
    std::uint32_t width;
    std::uint32_t height;
};

struct Place {
    std::size_t x = 0;
    std::size_t y = 0;
};

inline constexpr Pixel_8888 kColour = {255, 0, 37, 200};

/// The function under test, with `kColour` where a colour is asked for.
vImage_Error convolve(Picture& source, Picture& destination, Kernel kernel, vImage_Flags flags, Place place = {},
                      void* tempBuffer = nullptr);

/// What it should give: each pixel of `like`'s size from a sum of its own, over all the pixels of the source with the
/// numbers of times that the kernel meets them.
Picture expected(const Picture& source, const Picture& like, Kernel kernel, vImage_Flags flags, Place place = {});

} // namespace zr::testing
