#include <Tests/ZRKitDynamic/ZRImage/HelpTesting.h>

#include <thread>

namespace zr::testing {

TEST(BlurryImage, GrowsByThreeRadiusesAndHasAPixelAPoint) {
    const auto image = blurryImageWithBlurLevel_size(plainImage(40, 30, kRed, 2), 2.5, CGSizeZero);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{56, 46}));
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(pixelOf(image, 28, 23), kRed);
    EXPECT_TRUE(isWithin(pixelOf(image, 0, 0), kNothing, 1));
}

TEST(BlurryImage, SpreadsWhatItBlurs) {
    std::vector<Pixel> pixels(21 * 21, kBlack);
    pixels[21 * 10 + 10] = kWhite;
    const auto image = blurryImageWithBlurLevel_size(UIImage::imageWithCGImage(bitmap(21, pixels)), 1.5, CGSizeZero);
    ASSERT_EQ(widthOf(image), 31u);
    double sum = 0;
    for (int i = -30; i <= 30; ++i)
        sum += std::exp(-i * i / (2 * 1.5 * 1.5));
    for (int x = -3; x <= 3; ++x) {
        const double exact = 255 * std::exp(-x * x / (2 * 1.5 * 1.5)) / sum / sum;
        EXPECT_NEAR(pixelOf(image, static_cast<NSUInteger>(15 + x), 15).red, exact, 1) << x;
        EXPECT_NEAR(pixelOf(image, 15, static_cast<NSUInteger>(15 + x)).red, exact, 1) << x;
    }
}

TEST(BlurryImage, IsThatOfTheBitmapAsStored) {
    const auto turned = UIImage::imageWithCGImage_scale_orientation(quarters(), 3, UIImageOrientationLeft);
    const auto image = blurryImageWithBlurLevel_size(turned, 0, CGSizeZero);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->imageOrientation(), UIImageOrientationUp);
    EXPECT_EQ(pixelsOf(image), (std::vector<Pixel>{kRed, kGreen, kBlue, kWhite}));
    EXPECT_EQ(image->size(), (CGSize{2, 2}));
}

TEST(BlurryImage, WithASideOfNothingItIsNotCropped) {
    const auto whole = plainImage(40, 30, kRed);
    const auto wanted = pixelsOf(blurryImageWithBlurLevel_size(whole, 3, CGSizeZero));
    for (const CGSize size : {CGSize{0, 100},
                              {100, 0},
                              {-5, 100},
                              {100, -5},
                              {-1, -1},
                              {-kInfinity, 50},
                              {kNaN, 0},
                              {0, kNaN},
                              {kNaN, -1}}) {
        const auto image = blurryImageWithBlurLevel_size(whole, 3, size);
        ASSERT_TRUE(image) << size;
        EXPECT_EQ(image->size(), (CGSize{58, 48})) << size;
        EXPECT_EQ(pixelsOf(image), wanted) << size;
    }
}

// At level 0 and 500 x 500 pixels nothing is blurred and nothing scaled, so that the pixels tell the place.

TEST(BlurryImage, ATallPartIsTheMiddleOfTheSquare) {
    const auto image = blurryImageWithBlurLevel_size(numbered(500, 500), 0, {100, 200});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{100, 200}));
    EXPECT_EQ(image->scale(), 1);
    expectNumberedFrom(image, 200, 150);
}

TEST(BlurryImage, ASquarePartIsTheMiddle) {
    const auto image = blurryImageWithBlurLevel_size(numbered(500, 500), 0, {200, 200});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 200}));
    expectNumberedFrom(image, 150, 150);
}

TEST(BlurryImage, AWidePartLiesLeftOfTheMiddleAndAboveIt) {
    const auto image = blurryImageWithBlurLevel_size(numbered(500, 500), 0, {200, 100});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 100}));
    expectNumberedFrom(image, 100, 150);
}

TEST(BlurryImage, AVeryWidePartIsCutAtTheSquaresEdge) {
    // From -150 on, in a square of 1000.
    const auto image = blurryImageWithBlurLevel_size(numbered(1000, 1000), 0, {700, 100});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{550, 100}));
    expectNumberedFrom(image, 0, 150);
}

TEST(BlurryImage, TheWholeIsSqueezedIntoTheSquareItIsCutFrom) {
    // 80 x 40 blurred is 100 x 60; a square of 400 is 4 times as wide, and a pixel in its middle shows the middle.
    std::vector<Pixel> pixels(80 * 40, kBlue);
    for (int i = 0; i < 80 * 40; ++i)
        pixels[static_cast<std::size_t>(i)] = i % 80 < 40 ? kRed : kBlue;
    const auto image =
        blurryImageWithBlurLevel_size(UIImage::imageWithCGImage(bitmap(80, pixels)), 10.0 / 3, {100, 100});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{100, 100}));
    const Pixel left = pixelOf(image, 49, 50), right = pixelOf(image, 50, 50);
    EXPECT_NEAR(left.red, 130, 8);
    EXPECT_NEAR(right.blue, 130, 8);
    EXPECT_GT(pixelOf(image, 0, 50).red, 245);
    EXPECT_GT(pixelOf(image, 99, 50).blue, 245);
}

TEST(BlurryImage, LevelsThatAreNoneBlurNothing) {
    for (const CGFloat level : {CGFloat(0), CGFloat(-4), kNaN, -kInfinity})
        expectNumberedFrom(blurryImageWithBlurLevel_size(numbered(20, 20), level, CGSizeZero), 0, 0);
}

TEST(BlurryImage, WhatWouldBeTooLargeIsNil) {
    const auto image = plainImage(4, 4, kRed);
    for (const CGFloat level : {CGFloat(6000), CGFloat(1e300), kInfinity})
        EXPECT_FALSE(blurryImageWithBlurLevel_size(image, level, {10, 10})) << level;
    for (const CGSize size :
         {CGSize{kInfinity, 10}, {10, kInfinity}, {1e9, 1e9}, {40000, 10}, {kNaN, 10}, {10, kNaN}, {kNaN, kNaN}})
        EXPECT_FALSE(blurryImageWithBlurLevel_size(image, 1, size)) << size;
}

TEST(BlurryImage, LeavesTheImageAlone) {
    const auto image = numbered(30, 30);
    const auto before = pixelsOf(image);
    EXPECT_TRUE(blurryImageWithBlurLevel_size(image, 4, {10, 10}));
    EXPECT_EQ(pixelsOf(image), before);
}

TEST(ImageHelp, MayBeUsedOnSeveralThreadsAtOnce) {
    const auto image = numbered(300, 200, 2);
    const auto work = [&image] {
        std::vector<Pixel> all = pixelsOf(blurryImageWithBlurLevel_size(image, 5, {30, 40}));
        for (const auto& each : {rectImage(image), setFuzzyPhoto(image), scaleToSize(image, {50, 50}),
                                 zr_boxblurImageWithBlur_withTintColor(image, 0.3, UIColor::redColor())}) {
            const auto pixels = pixelsOf(each);
            all.insert(all.end(), pixels.begin(), pixels.end());
        }
        return all;
    };
    const auto wanted = work();
    std::vector<std::vector<Pixel>> results(4);
    std::vector<std::thread> threads;
    for (auto& result : results)
        threads.emplace_back([&] { result = work(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& result : results)
        EXPECT_EQ(result, wanted);
}

} // namespace zr::testing
