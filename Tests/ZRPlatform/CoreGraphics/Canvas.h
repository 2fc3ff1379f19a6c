#pragma once

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>

#include <gtest/gtest.h>

#include <numbers>
#include <ostream>

namespace zr {

inline constexpr CGFloat kPi = std::numbers::pi_v<CGFloat>;

/// One pixel as stored: colours premultiplied.
struct Pixel {
    int red = 0, green = 0, blue = 0, alpha = 0;
    friend bool operator==(const Pixel&, const Pixel&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Pixel& p) {
        return out << "(" << p.red << " " << p.green << " " << p.blue << " / " << p.alpha << ")";
    }
};

inline constexpr Pixel kClear{0, 0, 0, 0};
inline constexpr Pixel kBlack{0, 0, 0, 255};
inline constexpr Pixel kRed{255, 0, 0, 255};
inline constexpr Pixel kGreen{0, 255, 0, 255};
inline constexpr Pixel kBlue{0, 0, 255, 255};

/// A transparent bitmap to draw on, read with (0, 0) at the top left.
class Canvas {
public:
    Canvas(NSUInteger width, NSUInteger height) : m_context(CGBitmapContextCreateForLayer(width, height, false)) {}

    /// With y growing downwards from the top, as views draw.
    static Canvas downwards(NSUInteger width, NSUInteger height) {
        Canvas canvas(width, height);
        CGContextTranslateCTM(canvas, 0, static_cast<CGFloat>(height));
        CGContextScaleCTM(canvas, 1, -1);
        return canvas;
    }

    operator CGContextRef() const { return m_context; }

    Pixel at(NSUInteger x, NSUInteger y) const {
        const auto* data = static_cast<const std::uint8_t*>(CGBitmapContextGetData(m_context));
        const std::uint8_t* p = data + y * CGBitmapContextGetBytesPerRow(m_context) + 4 * x;
        return {p[2], p[1], p[0], p[3]};
    }
    /// How much of each pixel is covered, summed up, in pixels; for drawings in one opaque colour.
    double coverage() const {
        double sum = 0;
        for (NSUInteger y = 0; y < CGBitmapContextGetHeight(m_context); ++y) {
            for (NSUInteger x = 0; x < CGBitmapContextGetWidth(m_context); ++x)
                sum += at(x, y).alpha / 255.0;
        }
        return sum;
    }
    bool isBlank() const { return coverage() == 0; }

private:
    Ref<CGContext> m_context;
};

/// An image from pixels in rows.
inline Ref<CGImage> imageOf(NSUInteger width, NSUInteger height, const std::vector<Pixel>& pixels) {
    std::shared_ptr<std::uint8_t[]> bytes(new std::uint8_t[width * height * 4]);
    for (NSUInteger i = 0; i < width * height; ++i) {
        const int values[] = {pixels[i].blue, pixels[i].green, pixels[i].red, pixels[i].alpha};
        for (NSUInteger k = 0; k < 4; ++k)
            bytes[4 * i + k] = static_cast<std::uint8_t>(values[k]);
    }
    return Ref<CGImage>::adopt(new CGImage(width, height, width * 4, bytes, false));
}

inline Pixel pixelOf(const CGImage* image, NSUInteger x, NSUInteger y) {
    const std::uint32_t p = image->row(y)[x];
    return {static_cast<int>(p >> 16 & 255), static_cast<int>(p >> 8 & 255), static_cast<int>(p & 255),
            static_cast<int>(p >> 24)};
}

inline ::testing::AssertionResult isNear(const char*, const char*, const char*, Pixel a, Pixel b, int tolerance) {
    const int differences[] = {a.red - b.red, a.green - b.green, a.blue - b.blue, a.alpha - b.alpha};
    for (const int difference : differences) {
        if (difference > tolerance || difference < -tolerance)
            return ::testing::AssertionFailure() << a << " is not within " << tolerance << " of " << b;
    }
    return ::testing::AssertionSuccess();
}
#define EXPECT_PIXEL_NEAR(a, b, tolerance) EXPECT_PRED_FORMAT3(::zr::isNear, a, b, tolerance)

} // namespace zr
