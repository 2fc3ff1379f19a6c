#pragma once

#include <Tests/ZRPlatform/CoreGraphics/GeometryPrinting.h>
#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace zr::tests {

/// A bitmap's pixel: premultiplied red, green, blue, and alpha, 0..255.
struct Pixel {
    int red = 0, green = 0, blue = 0, alpha = 0;
    friend bool operator==(const Pixel&, const Pixel&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Pixel& pixel) {
        return stream << pixel.red << " " << pixel.green << " " << pixel.blue << " / " << pixel.alpha;
    }
};

inline constexpr Pixel kRed{255, 0, 0, 255}, kGreen{0, 255, 0, 255}, kBlue{0, 0, 255, 255}, kWhite{255, 255, 255, 255},
    kBlack{0, 0, 0, 255}, kNothing{};

/// Those that photographs' metadata number 1 to 8.
inline constexpr UIImageOrientation kOrientations[] = {UIImageOrientationUp,
                                                       UIImageOrientationUpMirrored,
                                                       UIImageOrientationDown,
                                                       UIImageOrientationDownMirrored,
                                                       UIImageOrientationLeftMirrored,
                                                       UIImageOrientationRight,
                                                       UIImageOrientationRightMirrored,
                                                       UIImageOrientationLeft};

inline Pixel pixelOf(const CGImage* image, NSUInteger x, NSUInteger y) {
    if (!image || x >= image->width() || y >= image->height())
        return {-1, -1, -1, -1};
    const std::uint8_t* pixel = image->pixels() + y * image->bytesPerRow() + x * 4;
    return {pixel[2], pixel[1], pixel[0], pixel[3]};
}

inline Pixel pixelOf(const UIImage* image, NSUInteger x, NSUInteger y) {
    return pixelOf(image ? image->CGImage() : nullptr, x, y);
}

/// Whether a lossy file kept the colour.
inline bool isNearly(Pixel pixel, Pixel wanted) {
    const auto isClose = [](int a, int b) { return std::abs(a - b) <= 12; };
    return isClose(pixel.red, wanted.red) && isClose(pixel.green, wanted.green) && isClose(pixel.blue, wanted.blue) &&
           pixel.alpha == wanted.alpha;
}

/// A bitmap with these pixels, row by row from the top.
inline Ref<CGImage> bitmap(NSUInteger width, const std::vector<Pixel>& pixels) {
    const std::shared_ptr<std::uint8_t[]> bytes(new std::uint8_t[pixels.size() * 4]);
    bool opaque = true;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const Pixel& pixel = pixels[i];
        const int components[] = {pixel.blue, pixel.green, pixel.red, pixel.alpha};
        for (std::size_t c = 0; c < 4; ++c)
            bytes[i * 4 + c] = static_cast<std::uint8_t>(components[c]);
        opaque = opaque && pixel.alpha == 255;
    }
    return Ref<CGImage>::adopt(new CGImage(width, pixels.size() / width, width * 4, bytes, opaque));
}

/// One colour all over.
inline Ref<UIImage> plainImage(NSUInteger width, NSUInteger height, Pixel color, CGFloat scale = 1) {
    return UIImage::imageWithCGImage_scale_orientation(bitmap(width, std::vector<Pixel>(width * height, color)), scale,
                                                       UIImageOrientationUp);
}

/// 2 x 2 pixels: red, green; blue, white.
inline Ref<CGImage> quarters() { return bitmap(2, {kRed, kGreen, kBlue, kWhite}); }

using Bytes = std::vector<std::uint8_t>;

inline Bytes bytesOf(std::string_view text) { return Bytes(text.begin(), text.end()); }

inline Bytes bytesOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

inline Bytes testFile(const char* name) { return bytesOfFile(std::string(ZR_TEST_DATA "/Images/") + name); }

/// A folder that is there while the test runs.
class TemporaryFolder {
public:
    TemporaryFolder() {
        static int count = 0;
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        m_path = std::filesystem::path(ZR_TEST_OUTPUT) / "images" / test->test_suite_name() / test->name() /
                 std::to_string(++count);
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    std::string path() const { return m_path.string(); }
    std::string write(const std::string& name, const Bytes& bytes) const {
        const auto path = m_path / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path.string();
    }

private:
    std::filesystem::path m_path;
};

/// Builds PNG files chunk by chunk.
class PNGWriter {
public:
    PNGWriter() : m_bytes(bytesOf("\x89PNG\r\n\x1a\n")) {}

    void chunk(std::string_view type, const Bytes& data) {
        number(static_cast<std::uint32_t>(data.size()));
        Bytes checked = bytesOf(type);
        checked.insert(checked.end(), data.begin(), data.end());
        m_bytes.insert(m_bytes.end(), checked.begin(), checked.end());
        number(checksum(checked));
    }
    const Bytes& bytes() const { return m_bytes; }

    static void append(Bytes& bytes, std::uint32_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    }

private:
    void number(std::uint32_t value) { append(m_bytes, value); }

    static std::uint32_t checksum(const Bytes& bytes) {
        static const auto table = [] {
            std::array<std::uint32_t, 256> entries{};
            for (std::uint32_t i = 0; i < 256; ++i) {
                entries[i] = i;
                for (int bit = 0; bit < 8; ++bit)
                    entries[i] = entries[i] & 1 ? 0xEDB88320u ^ (entries[i] >> 1) : entries[i] >> 1;
            }
            return entries;
        }();
        std::uint32_t sum = 0xFFFFFFFFu;
        for (const std::uint8_t byte : bytes)
            sum = table[(sum ^ byte) & 0xFF] ^ (sum >> 8);
        return ~sum;
    }

    Bytes m_bytes;
};

/// `count` zero bytes, compressed: one literal, then runs that repeat it.
inline Bytes compressedZeros(std::uint64_t count) {
    Bytes bytes{0x78, 0x9C};
    unsigned buffer = 0, filled = 0;
    const auto put = [&](unsigned code, unsigned length) { // most significant bit first, as Huffman codes are
        for (unsigned bit = length; bit-- > 0;) {
            buffer |= ((code >> bit) & 1) << filled;
            if (++filled == 8) {
                bytes.push_back(static_cast<std::uint8_t>(buffer));
                buffer = filled = 0;
            }
        }
    };
    put(0b110, 3); // last block, fixed codes
    const auto literal = [&] { put(0b00110000, 8); };
    std::uint64_t left = count;
    if (left > 0) {
        literal();
        --left;
    }
    for (; left >= 258; left -= 258)
        put(0b1100010100000, 13); // 258 times what is 1 byte before
    for (; left > 0; --left)
        literal();
    put(0, 7);
    if (filled > 0)
        bytes.push_back(static_cast<std::uint8_t>(buffer));
    PNGWriter::append(bytes, static_cast<std::uint32_t>(count % 65521) << 16 | 1);
    return bytes;
}

/// A whole, valid, all black file of one bit a pixel: small however large the picture.
inline Bytes blackPNG(std::uint32_t width, std::uint32_t height) {
    Bytes header;
    PNGWriter::append(header, width);
    PNGWriter::append(header, height);
    const Bytes oneBitGray{1, 0, 0, 0, 0};
    header.insert(header.end(), oneBitGray.begin(), oneBitGray.end());
    PNGWriter png;
    png.chunk("IHDR", header);
    png.chunk("IDAT", compressedZeros(std::uint64_t{height} * (1 + (width + 7) / 8)));
    png.chunk("IEND", {});
    return png.bytes();
}

} // namespace zr::tests
