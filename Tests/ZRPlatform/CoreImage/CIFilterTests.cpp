#include <Tests/ZRPlatform/CoreImage/PictureTesting.h>

#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <cmath>
#include <limits>

namespace zr {

namespace {

double bell(double distance, double sigma) { return std::exp(-distance * distance / (2 * sigma * sigma)); }

/// The share of a Gaussian, sampled at whole numbers, that lies at `distance`.
double bellShare(int distance, double sigma) {
    double sum = 0;
    for (int i = -1000; i <= 1000; ++i)
        sum += bell(i, sigma);
    return bell(distance, sigma) / sum;
}

} // namespace

TEST(CIFilter, IsFoundByItsName) {
    const auto filter = CIFilter::filterWithName("CIGaussianBlur");
    ASSERT_TRUE(filter);
    EXPECT_EQ(filter->name(), "CIGaussianBlur");
    EXPECT_FALSE(CIFilter::filterWithName("CIGaussian"));
    EXPECT_FALSE(CIFilter::filterWithName(""));
    EXPECT_FALSE(CIFilter::filterWithName(nullptr));
    EXPECT_FALSE(CIFilter::filterWithName_keysAndValues("CINone", {{kCIInputRadiusKey, 3.0}}));
    EXPECT_NE(CIFilter::filterWithName("CIGaussianBlur").get(), filter.get());
}

TEST(CIFilter, ParametersAreReadAndWrittenByKey) {
    const auto image = CIImage::imageWithCGImage(quarters());
    const auto filter = CIFilter::filterWithName("CIGaussianBlur");
    EXPECT_EQ(filter->valueForKey(kCIInputRadiusKey).doubleValue(), 10);
    EXPECT_TRUE(filter->valueForKey(kCIInputImageKey).isNil());
    filter->setValue_forKey(4.5, kCIInputRadiusKey);
    filter->setValue_forKey(image, kCIInputImageKey);
    EXPECT_EQ(filter->valueForKey("inputRadius").doubleValue(), 4.5);
    EXPECT_EQ(filter->valueForKey("inputImage").objectValue(), image.get());
    EXPECT_EQ(filter->valueForKey("name").stringValue(), "CIGaussianBlur");
    const auto output = filter->valueForKey("outputImage").as<Ref<CIImage>>();
    ASSERT_TRUE(output);
    EXPECT_EQ(output->extent(), CGRectMake(-14, -14, 30, 30));
}

TEST(CIFilter, DefaultsComeBackAndLeaveTheImage) {
    const auto filter = CIFilter::filterWithName_keysAndValues(
        "CIGaussianBlur", {{kCIInputImageKey, CIImage::imageWithCGImage(quarters())}, {kCIInputRadiusKey, 2}});
    ASSERT_TRUE(filter);
    EXPECT_EQ(filter->outputImage()->extent(), CGRectMake(-6, -6, 14, 14));
    filter->setDefaults();
    EXPECT_EQ(filter->outputImage()->extent(), CGRectMake(-30, -30, 62, 62));
}

TEST(CIFilter, UnknownKeysAreLoggedAndIgnored) {
    LogLines log;
    const auto filter = CIFilter::filterWithName_keysAndValues(
        "CIGaussianBlur",
        {{"inputFlavour", 1}, {kCIInputImageKey, CIImage::imageWithCGImage(quarters())}, {kCIInputRadiusKey, 1}});
    ASSERT_TRUE(filter);
    EXPECT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(filter->outputImage()->extent(), CGRectMake(-3, -3, 8, 8));
}

TEST(CIFilter, WithoutAnImageThereIsNoOutput) {
    const auto filter = CIFilter::filterWithName("CIGaussianBlur");
    EXPECT_FALSE(filter->outputImage());
    filter->setValue_forKey(CIImage::imageWithCGImage(quarters()), kCIInputImageKey);
    EXPECT_TRUE(filter->outputImage());
    filter->setValue_forKey("no image", kCIInputImageKey);
    EXPECT_FALSE(filter->outputImage());
    filter->setValue_forKey(quarters(), kCIInputImageKey);
    EXPECT_FALSE(filter->outputImage());
    filter->setValue_forKey(make<CIImage>(), kCIInputImageKey);
    EXPECT_FALSE(filter->outputImage());
    filter->setValue_forKey(nullptr, kCIInputImageKey);
    EXPECT_FALSE(filter->outputImage());
}

TEST(CIFilter, AnOutputKeepsTheParametersItWasMadeWith) {
    const auto filter = CIFilter::filterWithName_keysAndValues(
        "CIGaussianBlur", {{kCIInputImageKey, CIImage::imageWithCGImage(plain(4, 4, kRed))}, {kCIInputRadiusKey, 1}});
    const auto output = filter->outputImage();
    filter->setValue_forKey(5, kCIInputRadiusKey);
    filter->setValue_forKey(nullptr, kCIInputImageKey);
    EXPECT_EQ(output->extent(), CGRectMake(-3, -3, 10, 10));
    EXPECT_GT(pixelOf(drawn(output), 5, 5).red, 200);
}

TEST(CIGaussianBlur, ExtentGrowsByThreeRadiusesRoundedUp) {
    const auto image = plain(5, 4, kRed);
    EXPECT_EQ(blurred(image, 0.1)->extent(), CGRectMake(-1, -1, 7, 6));
    EXPECT_EQ(blurred(image, 1)->extent(), CGRectMake(-3, -3, 11, 10));
    EXPECT_EQ(blurred(image, 1.01)->extent(), CGRectMake(-4, -4, 13, 12));
    EXPECT_EQ(blurred(blurred(image, 1), 2)->extent(), CGRectMake(-9, -9, 23, 22));
}

TEST(CIGaussianBlur, BeyondItsExtentNothingWouldShow) {
    // The worst there is: white as far as it goes.
    Pixel white{255, 255, 255, 255};
    for (const double radius : {0.5, 1.0, 4.0}) {
        const auto image = blurred(plain(80, 80, white), radius);
        const auto margin = static_cast<int>(std::ceil(3 * radius));
        double beyond = 0;
        for (int i = margin + 1; i < margin + 80; ++i)
            beyond += bellShare(i, radius);
        EXPECT_LT(255 * beyond, 0.5) << radius;
        EXPECT_EQ(image->extent().size.width, 80 + 2 * margin) << radius;
    }
}

TEST(CIGaussianBlur, SpreadsAPixelAsTheBellDoes) {
    Pixel opaqueWhite{255, 255, 255, 255};
    for (const double radius : {0.3, 0.7, 1.0}) {
        const auto image = drawn(blurred(plain(1, 1, opaqueWhite), radius), CGRectMake(-4, -4, 9, 9));
        ASSERT_TRUE(image);
        for (int y = -4; y <= 4; ++y) {
            for (int x = -4; x <= 4; ++x) {
                const double exact = 255 * bellShare(x, radius) * bellShare(y, radius);
                const Pixel pixel = pixelOf(image, static_cast<NSUInteger>(x + 4), static_cast<NSUInteger>(y + 4));
                const bool isShown = std::max(std::abs(x), std::abs(y)) <= std::ceil(3 * radius);
                EXPECT_NEAR(pixel.red, isShown ? exact : 0, 0.7) << radius << ": " << x << ", " << y;
                EXPECT_EQ(pixel.alpha, pixel.red);
            }
        }
    }
}

TEST(CIGaussianBlur, LargeOnesFollowTheBellToo) {
    constexpr int kWidth = 170, kHeight = 130;
    for (const double radius : {7.0, 10.0, 40.0, 100.0}) {
        const auto margin = static_cast<int>(3 * radius);
        const auto image = drawn(blurred(plain(kWidth, kHeight, {255, 255, 255, 255}), radius));
        ASSERT_TRUE(image);
        std::vector<double> bellUpTo{0};
        for (int i = -1000; i <= 1000; ++i)
            bellUpTo.push_back(bellUpTo.back() + bell(i, radius));
        // The share of the bell around `place` that lies on 0 .. length - 1.
        const auto share = [&](int place, int length) {
            const auto upTo = [&](int i) { return bellUpTo[static_cast<std::size_t>(i + 1000)]; };
            return (upTo(length - place) - upTo(-place)) / bellUpTo.back();
        };
        for (int y = -margin; y < kHeight + margin; y += 7) {
            for (int x = -margin; x < kWidth + margin; x += 7) {
                const double exact = 255 * share(x, kWidth) * share(y, kHeight);
                const Pixel pixel =
                    pixelOf(image, static_cast<NSUInteger>(x + margin), static_cast<NSUInteger>(y + margin));
                ASSERT_NEAR(pixel.green, exact, 1) << radius << ": " << x << ", " << y;
            }
        }
    }
}

TEST(CIGaussianBlur, FadesToNothingAtTheEdges) {
    const auto image = drawn(blurred(plain(60, 60, kRed), 3), CGRectMake(0, 0, 60, 60));
    EXPECT_EQ(pixelOf(image, 30, 30), kRed);
    // The edge's first pixel has a little more than half of the bell's weight inside the picture.
    const double half = 0.5 + bellShare(0, 3) / 2;
    EXPECT_NEAR(pixelOf(image, 0, 30).alpha, 255 * half, 1);
    EXPECT_NEAR(pixelOf(image, 59, 30).alpha, 255 * half, 1);
    EXPECT_NEAR(pixelOf(image, 30, 0).red, 255 * half, 1);
    EXPECT_NEAR(pixelOf(image, 0, 59).red, 255 * half * half, 1);
}

TEST(CIGaussianBlur, StandsUpright) {
    const auto image = drawn(blurred(imageOf(2, 2, {kRed, kGreen, kBlue, kClear}), 0.25), CGRectMake(0, 0, 2, 2));
    EXPECT_GT(pixelOf(image, 0, 0).red, 200);
    EXPECT_GT(pixelOf(image, 1, 0).green, 200);
    EXPECT_GT(pixelOf(image, 0, 1).blue, 200);
    EXPECT_LT(pixelOf(image, 1, 1).alpha, 50);
}

TEST(CIGaussianBlur, ARadiusThatIsNoneChangesNothing) {
    for (const double radius : {0.0, -0.0, -5.0, -HUGE_VAL, std::nan("")}) {
        const auto image = blurred(quarters(), radius);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->extent(), CGRectMake(0, 0, 2, 2));
        EXPECT_EQ(pixelOf(drawn(image), 1, 0), kGreen);
    }
}

TEST(CIGaussianBlur, AHugeRadiusCountsAsTenThousand) {
    for (const double radius : {10'000.0, 10'001.0, 1e300, HUGE_VAL}) {
        const auto image = blurred(quarters(), radius);
        EXPECT_EQ(image->extent(), CGRectMake(-30000, -30000, 60002, 60002));
        EXPECT_FALSE(drawn(image));
        EXPECT_EQ(pixelOf(drawn(image, CGRectMake(0, 0, 1, 1)), 0, 0), kClear);
    }
    EXPECT_EQ(blurred(quarters(), 9999)->extent(), CGRectMake(-29997, -29997, 59996, 59996));
}

TEST(CIGaussianBlur, PartsFitTogether) {
    std::vector<Pixel> pixels;
    for (int i = 0; i < 200 * 90; ++i)
        pixels.push_back((i * 7919 / 64) % 3 == 0 ? kRed : kBlue);
    for (const double radius : {1.5, 6.0, 17.0}) {
        const auto image = blurred(imageOf(200, 90, pixels), radius);
        const auto whole = drawn(image, CGRectMake(0, 0, 200, 90));
        for (const CGRect rect : {CGRectMake(0, 0, 20, 20), CGRectMake(93, 31, 20, 20), CGRectMake(180, 70, 20, 20)}) {
            const auto part = drawn(image, rect);
            const auto left = static_cast<NSUInteger>(rect.origin.x);
            const auto top = static_cast<NSUInteger>(90 - CGRectGetMaxY(rect));
            for (NSUInteger y = 0; y < 20; ++y) {
                for (NSUInteger x = 0; x < 20; ++x)
                    ASSERT_EQ(pixelOf(part, x, y), pixelOf(whole, left + x, top + y))
                        << radius << ": " << x << ", " << y;
            }
        }
    }
}

TEST(CIGaussianBlur, BlursOfBlursAddTheirSquares) {
    const auto image = plain(90, 90, kRed);
    const auto twice = drawn(blurred(blurred(image, 3), 4), CGRectMake(0, 0, 90, 90));
    const auto once = drawn(blurred(image, 5), CGRectMake(0, 0, 90, 90));
    for (NSUInteger i = 0; i < 90; i += 3)
        EXPECT_PIXEL_NEAR(pixelOf(twice, i, i), pixelOf(once, i, i), 2);
}

} // namespace zr
