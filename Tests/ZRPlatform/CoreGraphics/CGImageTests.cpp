#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

using namespace zr;

namespace {

Ref<CGImage> numbered() {
    std::vector<Pixel> pixels;
    for (int i = 0; i < 12; ++i)
        pixels.push_back({i * 20, 0, 255 - i * 20, 255});
    return imageOf(4, 3, pixels);
}

const std::vector<Pixel> kFourColours = {kRed, kGreen, kBlue, kBlack};

} // namespace

TEST(CGImage, APartSharesThePixels) {
    const auto image = numbered();
    const auto part = CGImageCreateWithImageInRect(image, CGRectMake(1, 1, 2, 2));
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(CGImageGetWidth(part), 2u);
    EXPECT_EQ(CGImageGetHeight(part), 2u);
    EXPECT_EQ(CGImageGetBytesPerRow(part), CGImageGetBytesPerRow(image));
    EXPECT_EQ(part->pixels(), image->pixels() + image->bytesPerRow() + 4);
    EXPECT_EQ(pixelOf(part, 1, 1), pixelOf(image, 2, 2));
    const auto partOfPart = CGImageCreateWithImageInRect(part, CGRectMake(1, 1, 9, 9));
    EXPECT_EQ(partOfPart->pixels(), image->pixels() + 2 * image->bytesPerRow() + 8);
    EXPECT_EQ(CGImageGetWidth(partOfPart), 1u);
}

TEST(CGImage, APartKeepsThePixelsAlive) {
    Ref<CGImage> part = CGImageCreateWithImageInRect(numbered(), CGRectMake(3, 2, 1, 1));
    EXPECT_EQ(pixelOf(part, 0, 0), (Pixel{220, 0, 35, 255}));
}

TEST(CGImage, APartGrowsToWholePixelsAndIsCutToTheImage) {
    const auto image = numbered();
    const auto grown = CGImageCreateWithImageInRect(image, CGRectMake(0.5, 0.5, 1, 1));
    EXPECT_EQ(CGImageGetWidth(grown), 2u);
    EXPECT_EQ(grown->pixels(), image->pixels());
    const auto cut = CGImageCreateWithImageInRect(image, CGRectMake(-5, 2, 100, 100));
    EXPECT_EQ(CGImageGetWidth(cut), 4u);
    EXPECT_EQ(CGImageGetHeight(cut), 1u);
    EXPECT_EQ(CGImageCreateWithImageInRect(image, CGRectMake(4, 0, 2, 2)), nullptr);
    EXPECT_EQ(CGImageCreateWithImageInRect(image, CGRectNull), nullptr);
    EXPECT_EQ(CGImageCreateWithImageInRect(image, CGRectMake(NAN, 0, 2, 2)), nullptr);
    EXPECT_EQ(CGImageCreateWithImageInRect(nullptr, CGRectMake(0, 0, 2, 2)), nullptr);
    EXPECT_EQ(CGImageGetWidth(nullptr), 0u);
}

TEST(CGImage, APartDoesNotGrowForAMillionthOfAPixel) {
    const auto image = numbered();
    const auto part = CGImageCreateWithImageInRect(image, CGRectMake(1 - 5e-7, 1 - 5e-7, 2 + 1e-6, 1 + 1e-6));
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(CGImageGetWidth(part), 2u);
    EXPECT_EQ(CGImageGetHeight(part), 1u);
    EXPECT_EQ(part->pixels(), image->pixels() + image->bytesPerRow() + 4);
    const auto grown = CGImageCreateWithImageInRect(image, CGRectMake(1 - 5e-6, 1, 2 + 1e-5, 1 + 5e-6));
    EXPECT_EQ(CGImageGetWidth(grown), 4u);
    EXPECT_EQ(CGImageGetHeight(grown), 2u);
    // What is smaller than that altogether still lies in a pixel.
    const auto speck = CGImageCreateWithImageInRect(image, CGRectMake(2, 1, 1e-7, 1e-7));
    ASSERT_NE(speck, nullptr);
    EXPECT_EQ(CGImageGetWidth(speck), 1u);
    EXPECT_EQ(pixelOf(speck, 0, 0), pixelOf(image, 2, 1));
}

TEST(CGContextDrawImage, StandsUprightWhereYGrowsUpwards) {
    Canvas canvas(4, 4);
    CGContextDrawImage(canvas, CGRectMake(1, 1, 2, 2), imageOf(2, 2, kFourColours));
    EXPECT_EQ(canvas.at(1, 1), kRed);
    EXPECT_EQ(canvas.at(2, 1), kGreen);
    EXPECT_EQ(canvas.at(1, 2), kBlue);
    EXPECT_EQ(canvas.at(2, 2), kBlack);
    EXPECT_EQ(canvas.at(0, 0), kClear);
    EXPECT_EQ(canvas.at(3, 3), kClear);
}

TEST(CGContextDrawImage, StandsOnItsHeadWhereYGrowsDownwards) {
    Canvas canvas = Canvas::downwards(2, 2);
    CGContextDrawImage(canvas, CGRectMake(2, 2, -2, -2), imageOf(2, 2, kFourColours));
    EXPECT_EQ(canvas.at(0, 0), kBlue);
    EXPECT_EQ(canvas.at(1, 0), kBlack);
    EXPECT_EQ(canvas.at(0, 1), kRed);
}

TEST(CGContextDrawImage, ScaledWithoutInterpolationItShowsSquares) {
    Canvas canvas(8, 8);
    CGContextSetInterpolationQuality(canvas, kCGInterpolationNone);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 8, 8), imageOf(2, 2, kFourColours));
    for (NSUInteger y = 0; y < 8; ++y) {
        for (NSUInteger x = 0; x < 8; ++x)
            EXPECT_EQ(canvas.at(x, y), kFourColours[y / 4 * 2 + x / 4]) << x << " " << y;
    }
}

TEST(CGContextDrawImage, ScaledUpItBlendsInsideAndKeepsFullEdges) {
    Canvas canvas(8, 2);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 8, 2), imageOf(2, 1, {kRed, kBlue}));
    // Pixel centres of the image lie at 2 and 6: straight in between, flat outside.
    for (NSUInteger x = 0; x < 8; ++x) {
        const double part = std::clamp((static_cast<double>(x) + 0.5 - 2) / 4, 0.0, 1.0);
        const auto blue = static_cast<int>(std::lround(255 * part));
        EXPECT_PIXEL_NEAR(canvas.at(x, 0), (Pixel{255 - blue, 0, blue, 255}), 3);
    }
}

TEST(CGContextDrawImage, FollowsAlphaAndTransparency) {
    Canvas canvas(2, 1);
    CGContextSetAlpha(canvas, 0.5);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 2, 1), imageOf(2, 1, {kRed, kClear}));
    EXPECT_PIXEL_NEAR(canvas.at(0, 0), (Pixel{128, 0, 0, 128}), 1);
    EXPECT_EQ(canvas.at(1, 0), kClear);
}

TEST(CGContextDrawImage, HopelessRectanglesDrawNothing) {
    Canvas canvas(4, 4);
    const auto image = imageOf(2, 2, kFourColours);
    const CGRect rects[] = {CGRectMake(NAN, 0, 2, 2),    CGRectMake(0, 0, INFINITY, 2), CGRectMake(0, 0, 0, 2),
                            CGRectMake(0, 0, 1e-320, 2), CGRectMake(1e300, 0, 2, 2),    CGRectNull};
    for (const CGRect rect : rects)
        CGContextDrawImage(canvas, rect, image);
    CGContextDrawImage(canvas, CGRectMake(0, 0, 4, 4), nullptr);
    CGContextDrawImage(nullptr, CGRectMake(0, 0, 4, 4), image);
    EXPECT_TRUE(canvas.isBlank());
    CGContextDrawImage(canvas, CGRectMake(0, 2, 2, 2), image);
    EXPECT_EQ(canvas.at(0, 0), kRed);
}
