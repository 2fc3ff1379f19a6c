#include <Tests/ZRKitDynamic/ZRImage/HelpTesting.h>

#include <ZRPlatform/Accelerate/Accelerate.h>

namespace zr::testing {

namespace {

Ref<UIImage> boxBlurred(const UIImage* image, double blur, const UIColor* tint = nullptr) {
    return zr_boxblurImageWithBlur_withTintColor(image, blur, tint);
}

/// Noise, so that every kernel gives something else.
Ref<UIImage> noise(NSUInteger width, NSUInteger height) {
    std::vector<Pixel> pixels;
    std::uint32_t value = 7;
    const auto next = [&value] {
        value = value * 1664525 + 1013904223;
        return static_cast<int>(value >> 24);
    };
    for (NSUInteger i = 0; i < width * height; ++i)
        pixels.push_back({next(), next(), next(), 255});
    return UIImage::imageWithCGImage(bitmap(width, pixels));
}

/// Three convolutions with a box of `side` pixels, over red, green, blue and nothing.
std::vector<Pixel> convolved(const UIImage* image, std::uint32_t side) {
    const NSUInteger width = widthOf(image), height = heightOf(image);
    std::vector<std::uint8_t> first, second(width * height * 4);
    for (const Pixel& pixel : pixelsOf(image)) {
        for (const int value : {pixel.red, pixel.green, pixel.blue, 0})
            first.push_back(static_cast<std::uint8_t>(value));
    }
    const vImage_Buffer a{first.data(), height, width, width * 4}, b{second.data(), height, width, width * 4};
    for (const auto& [from, to] : {std::pair{&a, &b}, {&b, &a}, {&a, &b}})
        EXPECT_EQ(vImageBoxConvolve_ARGB8888(from, to, nullptr, 0, 0, side, side, nullptr, kvImageEdgeExtend),
                  kvImageNoError);
    std::vector<Pixel> pixels;
    for (std::size_t i = 0; i < second.size(); i += 4)
        pixels.push_back({second[i], second[i + 1], second[i + 2], 255});
    return pixels;
}

} // namespace

// Kernel

TEST(BoxBlur, TheKernelFollowsFromTheAmount) {
    const auto image = noise(70, 50);
    const std::pair<double, std::uint32_t> cases[] = {{1.5, 21},  {-0.2, 21}, {0.0, 1},    {-0.0, 1},   {0.99, 39},
                                                      {0.26, 11}, {0.5, 21},  {1.0, 41},   {0.024, 1},  {0.0499, 1},
                                                      {0.05, 3},  {0.1, 5},   {0.975, 39}, {0.9751, 39}};
    for (const auto& [blur, side] : cases) {
        const auto wanted = convolved(image, side);
        ASSERT_NE(wanted, convolved(image, side + 2));
        EXPECT_EQ(pixelsOf(boxBlurred(image, blur)), wanted) << blur;
    }
}

TEST(BoxBlur, AmountsThatAreNoNumberCountAsOutside) {
    const auto image = noise(40, 40);
    const auto wanted = convolved(image, 21);
    for (const double blur : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e300, 1.0000001, -1e-9})
        EXPECT_EQ(pixelsOf(boxBlurred(image, blur)), wanted) << blur;
}

TEST(BoxBlur, AnAmountOfNothingChangesNothing) {
    const auto image = noise(9, 7);
    EXPECT_EQ(pixelsOf(boxBlurred(image, 0)), pixelsOf(image));
}

TEST(BoxBlur, OfALargeImageIsTheSame) {
    const auto image = noise(1300, 900);
    EXPECT_TRUE(pixelsOf(boxBlurred(image, 0.3)) == convolved(image, 13));
}

TEST(BoxBlur, HasThreePasses) {
    std::vector<Pixel> pixels(21 * 21, kBlack);
    pixels[21 * 10 + 10] = kWhite;
    const auto image = boxBlurred(UIImage::imageWithCGImage(bitmap(21, pixels)), 0.05);
    // Three boxes of three after one another are 1 3 6 7 6 3 1 of 27.
    const int bell[] = {1, 3, 6, 7, 6, 3, 1};
    for (int y = -4; y <= 4; ++y) {
        for (int x = -4; x <= 4; ++x) {
            const bool isReached = std::abs(x) <= 3 && std::abs(y) <= 3;
            const double exact = isReached ? 255.0 * bell[x + 3] * bell[y + 3] / (27 * 27) : 0;
            EXPECT_NEAR(pixelOf(image, static_cast<NSUInteger>(10 + x), static_cast<NSUInteger>(10 + y)).red, exact, 1)
                << x << ", " << y;
        }
    }
}

TEST(BoxBlur, TheBorderGoesOnOutside) {
    for (const auto& [width, height] : {std::pair{1, 1}, {3, 2}, {50, 20}}) {
        const auto image = boxBlurred(
            plainImage(static_cast<NSUInteger>(width), static_cast<NSUInteger>(height), {10, 200, 90, 255}), 1);
        for (const Pixel& pixel : pixelsOf(image))
            ASSERT_EQ(pixel, (Pixel{10, 200, 90, 255})) << width << " x " << height;
    }
}

// What it is made of and what comes of it

TEST(BoxBlur, DropsTransparency) {
    std::vector<Pixel> pixels(5 * 5, {64, 10, 0, 128});
    pixels[0] = kNothing;
    const auto image = boxBlurred(UIImage::imageWithCGImage(bitmap(5, pixels)), 0);
    ASSERT_TRUE(image);
    EXPECT_TRUE(image->CGImage()->isOpaque());
    EXPECT_EQ(pixelOf(image, 0, 0), kBlack);
    EXPECT_EQ(pixelOf(image, 3, 3), (Pixel{64, 10, 0, 255}));
}

TEST(BoxBlur, HasAPixelAPointAndStandsAsStored) {
    const auto turned = UIImage::imageWithCGImage_scale_orientation(quarters(), 2, UIImageOrientationRight);
    const auto image = boxBlurred(turned, 0);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(image->imageOrientation(), UIImageOrientationUp);
    EXPECT_EQ(image->size(), (CGSize{2, 2}));
    EXPECT_EQ(pixelsOf(image), (std::vector<Pixel>{kRed, kGreen, kBlue, kWhite}));
}

TEST(BoxBlur, OfAPartIsNotBlurredIntoByTheRest) {
    const auto whole = noise(60, 50);
    const auto part = subImageWithRect(whole, CGRectMake(20, 15, 17, 35));
    ASSERT_EQ(part->CGImage()->bytesPerRow(), 240u);
    const auto copy = UIImage::imageWithCGImage(bitmap(17, pixelsOf(part)));
    EXPECT_EQ(pixelsOf(boxBlurred(part, 0.3)), pixelsOf(boxBlurred(copy, 0.3)));
}

TEST(BoxBlur, LeavesTheImageAlone) {
    const auto image = noise(30, 30);
    const auto before = pixelsOf(image);
    EXPECT_NE(pixelsOf(boxBlurred(image, 0.5, UIColor::redColor())), before);
    EXPECT_EQ(pixelsOf(image), before);
}

// Tint

TEST(BoxBlur, AnOpaqueTintCoversAnImageOfScale1) {
    for (const Pixel& pixel : pixelsOf(boxBlurred(noise(9, 7), 0.5, UIColor::greenColor())))
        ASSERT_EQ(pixel, kGreen);
}

TEST(BoxBlur, ATintCoversTheLowerLeftQuarterOfAnImageOfScale2) {
    const auto image = boxBlurred(plainImage(8, 6, kBlue, 2), 0.1, UIColor::redColor());
    ASSERT_TRUE(image);
    for (NSUInteger y = 0; y < 6; ++y) {
        for (NSUInteger x = 0; x < 8; ++x)
            EXPECT_EQ(pixelOf(image, x, y), x < 4 && y >= 3 ? kRed : kBlue) << x << ", " << y;
    }
}

TEST(BoxBlur, ATintCoversTheLowerLeftNinthOfAnImageOfScale3) {
    const auto image = boxBlurred(plainImage(9, 6, kBlue, 3), 0, UIColor::redColor());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), 1);
    for (NSUInteger y = 0; y < 6; ++y) {
        for (NSUInteger x = 0; x < 9; ++x)
            EXPECT_EQ(pixelOf(image, x, y), x < 3 && y >= 4 ? kRed : kBlue) << x << ", " << y;
    }
}

TEST(BoxBlur, ATintCoversAsManyPixelsAsTheUprightImageHasPoints) {
    // 6 x 2 pixels that stand upright as 2 x 6 points.
    const auto turned = UIImage::imageWithCGImage_scale_orientation(bitmap(6, std::vector<Pixel>(12, kBlue)), 1,
                                                                    UIImageOrientationLeft);
    const auto image = boxBlurred(turned, 0, UIColor::redColor());
    for (NSUInteger x = 0; x < 6; ++x) {
        EXPECT_EQ(pixelOf(image, x, 0), x < 2 ? kRed : kBlue);
        EXPECT_EQ(pixelOf(image, x, 1), x < 2 ? kRed : kBlue);
    }
}

TEST(BoxBlur, ATranslucentTintIsAVeil) {
    const auto white = boxBlurred(plainImage(4, 4, kWhite), 0.2, UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 0.4));
    EXPECT_TRUE(isWithin(pixelOf(white, 2, 2), {255, 153, 153, 255}, 1)) << pixelOf(white, 2, 2);
    const auto clear = boxBlurred(plainImage(4, 4, kBlue), 0.2, UIColor::clearColor());
    EXPECT_EQ(pixelOf(clear, 2, 2), kBlue);
}

TEST(BoxBlur, AColourWithoutAValueTintsNothing) {
    const auto valueless = make<UIColor>();
    ASSERT_FALSE(valueless->cgColor());
    EXPECT_EQ(pixelOf(boxBlurred(plainImage(4, 4, kBlue), 0.2, valueless), 2, 2), kBlue);
}

} // namespace zr::testing
