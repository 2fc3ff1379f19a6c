#pragma once

#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>
#include <ZRKitDynamic/ZRImage/UIImage+Help.h>

#include <cmath>
#include <limits>

namespace zr::testing {

using namespace tests;

inline constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
inline constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

/// The colour of a pixel of `numbered`, which tells where it is.
inline Pixel numberedPixel(NSUInteger x, NSUInteger y) {
    return {static_cast<int>(x % 250), static_cast<int>(y % 250), static_cast<int>(x / 250 * 16 + y / 250), 255};
}

/// Every pixel of another colour.
inline Ref<UIImage> numbered(NSUInteger width, NSUInteger height, CGFloat scale = 1,
                             UIImageOrientation orientation = UIImageOrientationUp) {
    std::vector<Pixel> pixels;
    pixels.reserve(width * height);
    for (NSUInteger y = 0; y < height; ++y) {
        for (NSUInteger x = 0; x < width; ++x)
            pixels.push_back(numberedPixel(x, y));
    }
    return UIImage::imageWithCGImage_scale_orientation(bitmap(width, pixels), scale, orientation);
}

inline NSUInteger widthOf(const UIImage* image) { return image ? image->CGImage()->width() : 0; }
inline NSUInteger heightOf(const UIImage* image) { return image ? image->CGImage()->height() : 0; }

/// Rows one after the other.
inline std::vector<Pixel> pixelsOf(const UIImage* image) {
    std::vector<Pixel> pixels;
    for (NSUInteger y = 0; y < heightOf(image); ++y) {
        for (NSUInteger x = 0; x < widthOf(image); ++x)
            pixels.push_back(pixelOf(image, x, y));
    }
    return pixels;
}

/// Whether `image` is the part of `numbered` from (x, y).
inline void expectNumberedFrom(const UIImage* image, NSUInteger x, NSUInteger y) {
    ASSERT_TRUE(image);
    const NSUInteger right = widthOf(image) - 1, bottom = heightOf(image) - 1;
    EXPECT_EQ(pixelOf(image, 0, 0), numberedPixel(x, y));
    EXPECT_EQ(pixelOf(image, right, 0), numberedPixel(x + right, y));
    EXPECT_EQ(pixelOf(image, 0, bottom), numberedPixel(x, y + bottom));
    EXPECT_EQ(pixelOf(image, right, bottom), numberedPixel(x + right, y + bottom));
    EXPECT_EQ(pixelOf(image, right / 3, bottom / 2), numberedPixel(x + right / 3, y + bottom / 2));
}

inline bool isWithin(Pixel a, Pixel b, int tolerance) {
    const int differences[] = {a.red - b.red, a.green - b.green, a.blue - b.blue, a.alpha - b.alpha};
    return std::all_of(std::begin(differences), std::end(differences),
                       [tolerance](int difference) { return std::abs(difference) <= tolerance; });
}

} // namespace zr::testing
