#include <Tests/ZRKitDynamic/ZRImage/HelpTesting.h>

#include <ZRPlatform/UIKit/Images/UIGraphics.h>

namespace zr::testing {

// subImageWithRect

TEST(SubImage, CutsOutTheRectangle) {
    const auto image = subImageWithRect(numbered(100, 80), CGRectMake(20, 10, 30, 40));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{30, 40}));
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(widthOf(image), 30u);
    expectNumberedFrom(image, 20, 10);
}

TEST(SubImage, CutsInPointsAndKeepsTheScale) {
    const auto whole = numbered(200, 200, 2);
    const auto image = subImageWithRect(whole, CGRectMake(-10, -10, 50, 50));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{40, 40}));
    EXPECT_EQ(image->scale(), 2);
    EXPECT_EQ(widthOf(image), 80u);
    EXPECT_EQ(heightOf(image), 80u);
    expectNumberedFrom(image, 0, 0);
    const auto corner = subImageWithRect(whole, CGRectMake(90, 80, 50, 50));
    EXPECT_EQ(corner->size(), (CGSize{10, 20}));
    expectNumberedFrom(corner, 180, 160);
}

TEST(SubImage, GrowsToWholePixels) {
    const auto image = subImageWithRect(numbered(20, 20, 2), CGRectMake(0.25, 1, 1, 1.1));
    ASSERT_TRUE(image);
    EXPECT_EQ(widthOf(image), 3u); // from 0.5 to 2.5
    EXPECT_EQ(heightOf(image), 3u);
    expectNumberedFrom(image, 0, 2);
}

TEST(SubImage, WholePixelsOfAThirdOfAPointAreNotGrown) {
    constexpr NSUInteger kSide = 60;
    const auto whole = numbered(kSide, kSide, 3);
    const auto points = [](NSUInteger pixels) { return static_cast<CGFloat>(pixels) / 3; };
    for (NSUInteger from = 0; from < kSide; ++from) {
        for (NSUInteger length = 1; from + length <= kSide; ++length) {
            const auto across = subImageWithRect(whole, {{points(from), 1}, {points(length), 5}});
            ASSERT_EQ(widthOf(across), length) << from;
            ASSERT_EQ(heightOf(across), 15u);
            expectNumberedFrom(across, from, 3);
            const auto down = subImageWithRect(whole, {{1, points(from)}, {5, points(length)}});
            ASSERT_EQ(heightOf(down), length) << from;
            expectNumberedFrom(down, 3, from);
        }
    }
    EXPECT_EQ(subImageWithRect(whole, CGRectMake(1, 1, 5, 5))->scale(), 3);
}

TEST(SubImage, OfAllIsAnotherImageWithoutCaps) {
    const auto whole = plainImage(6, 6, kRed)
                           ->resizableImageWithCapInsets({1, 1, 1, 1})
                           ->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
    const auto image = subImageWithRect(whole, CGRectMake(0, 0, 6, 6));
    ASSERT_TRUE(image);
    EXPECT_NE(image.get(), whole.get());
    EXPECT_EQ(image->capInsets(), UIEdgeInsetsZero);
    EXPECT_EQ(image->renderingMode(), UIImageRenderingModeAutomatic);
}

TEST(SubImage, KeepsTheOrientationAndCutsWhatIsStored) {
    const auto turned = numbered(30, 20, 1, UIImageOrientationRight); // 20 x 30 points
    const auto image = subImageWithRect(turned, CGRectMake(5, 15, 20, 10));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->imageOrientation(), UIImageOrientationRight);
    EXPECT_EQ(widthOf(image), 15u); // cut to the 20 points that the image is wide
    EXPECT_EQ(heightOf(image), 5u); // cut to the 20 pixels that are stored
    EXPECT_EQ(image->size(), (CGSize{5, 15}));
    expectNumberedFrom(image, 5, 15);
    // Inside the upright image, but beside what is stored.
    EXPECT_FALSE(subImageWithRect(turned, CGRectMake(0, 22, 5, 5)));
}

TEST(SubImage, SharesThePixels) {
    const auto whole = numbered(10, 10);
    const auto image = subImageWithRect(whole, CGRectMake(2, 3, 4, 4));
    EXPECT_EQ(image->CGImage()->pixels(), whole->CGImage()->pixels() + 3 * 40 + 2 * 4);
}

TEST(SubImage, OfAnEmptyRectangleIsNil) {
    const auto image = numbered(10, 10);
    for (const CGSize size : {CGSizeZero, {5, 0}, {0, 5}, {-5, 5}, {5, -5}, {-5, -5}, {kNaN, 5}, {5, kNaN}})
        EXPECT_FALSE(subImageWithRect(image, {{5, 5}, size})) << size;
}

TEST(SubImage, OutsideTheImageIsNil) {
    const auto image = numbered(10, 10, 2);
    for (const CGPoint origin : {CGPoint{5, 0}, {0, 5}, {-3, 0}, {0, -3}, {1e300, 0}, {-1e300, 0}})
        EXPECT_FALSE(subImageWithRect(image, {origin, {3, 3}})) << origin.x << ", " << origin.y;
    EXPECT_TRUE(subImageWithRect(image, {{4.5, 4.5}, {3, 3}}));
}

TEST(SubImage, NumbersThatAreNotFinite) {
    const auto image = numbered(10, 10);
    const auto rest = subImageWithRect(image, {{4, 7}, {kInfinity, kInfinity}});
    ASSERT_TRUE(rest);
    EXPECT_EQ(rest->size(), (CGSize{6, 3}));
    EXPECT_TRUE(subImageWithRect(image, {{-1e308, -1e308}, {kInfinity, kInfinity}}));
    EXPECT_FALSE(subImageWithRect(image, {{-kInfinity, 0}, {kInfinity, 5}}));
    EXPECT_FALSE(subImageWithRect(image, {{-kInfinity, 0}, {5, 5}}));
    EXPECT_FALSE(subImageWithRect(image, {{kInfinity, 0}, {5, 5}}));
    EXPECT_FALSE(subImageWithRect(image, {{0, kNaN}, {5, 5}}));
    EXPECT_FALSE(subImageWithRect(image, CGRectNull));
}

// scaleToSize

TEST(ScaleToSize, DrawsTheWholeImageAPixelAPoint) {
    const auto image = scaleToSize(UIImage::imageWithCGImage(quarters()), {20, 40});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{20, 40}));
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(widthOf(image), 20u);
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 19, 0), kGreen);
    EXPECT_EQ(pixelOf(image, 0, 39), kBlue);
    EXPECT_EQ(pixelOf(image, 19, 39), kWhite);
}

TEST(ScaleToSize, AtItsOwnPixelsItIsTheSame) {
    const auto whole = numbered(30, 20, 2);
    EXPECT_EQ(pixelsOf(scaleToSize(whole, {30, 20})), pixelsOf(whole));
}

TEST(ScaleToSize, HasAPixelAPointOfScale3Too) {
    const auto image = scaleToSize(numbered(30, 60, 3), {30, 60});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(image->size(), (CGSize{30, 60}));
    expectNumberedFrom(image, 0, 0);
}

TEST(ScaleToSize, OfAnImageWithoutABitmapIsTransparent) {
    const auto image = scaleToSize(make<UIImage>(), {3, 2});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{3, 2}));
    EXPECT_EQ(pixelsOf(image), std::vector<Pixel>(6, kNothing));
}

TEST(ScaleToSize, StandsUpright) {
    const auto turned = UIImage::imageWithCGImage_scale_orientation(quarters(), 2, UIImageOrientationRight);
    const auto image = scaleToSize(turned, {2, 2});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->imageOrientation(), UIImageOrientationUp);
    EXPECT_EQ(pixelsOf(image), (std::vector<Pixel>{kBlue, kRed, kWhite, kGreen}));
}

TEST(ScaleToSize, KeepsTransparency) {
    const auto image = scaleToSize(plainImage(2, 2, {100, 0, 0, 128}), {5, 5});
    EXPECT_FALSE(image->CGImage()->isOpaque());
    EXPECT_EQ(pixelOf(image, 2, 2), (Pixel{100, 0, 0, 128}));
    EXPECT_EQ(pixelOf(scaleToSize(plainImage(2, 2, kNothing), {5, 5}), 0, 0), kNothing);
}

TEST(ScaleToSize, FractionsOfAPixelAreRoundedUp) {
    const auto image = scaleToSize(plainImage(2, 2, kRed), {4.5, 3});
    EXPECT_EQ(widthOf(image), 5u);
    EXPECT_EQ(pixelOf(image, 3, 0), kRed);
    EXPECT_TRUE(isWithin(pixelOf(image, 4, 0), {128, 0, 0, 128}, 1)) << pixelOf(image, 4, 0);
}

TEST(ScaleToSize, OfASizeThatCannotBeIsNil) {
    const auto image = plainImage(2, 2, kRed);
    for (const CGSize size : {CGSizeZero, {0, 5}, {-5, 5}, {5, -5}, {kNaN, 5}, {5, kInfinity}, {1e9, 1e9}, {32768, 1}})
        EXPECT_FALSE(scaleToSize(image, size)) << size;
}

TEST(ScaleToSize, LeavesTheCurrentContextAsItWas) {
    UIGraphicsBeginImageContext({3, 3});
    const CGContextRef before = UIGraphicsGetCurrentContext();
    EXPECT_TRUE(scaleToSize(plainImage(2, 2, kRed), {2, 2}));
    EXPECT_FALSE(scaleToSize(plainImage(2, 2, kRed), {0, 2}));
    EXPECT_TRUE(setFuzzyPhoto(plainImage(9, 9, kRed)));
    EXPECT_EQ(UIGraphicsGetCurrentContext(), before);
    EXPECT_EQ(pixelOf(UIGraphicsGetImageFromCurrentImageContext(), 1, 1), kNothing);
    UIGraphicsEndImageContext();
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
}

// rectImage

TEST(RectImage, OfAWideImageIsItsMiddle) {
    const auto image = rectImage(numbered(300, 200));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 200}));
    EXPECT_EQ(image->scale(), 1);
    expectNumberedFrom(image, 50, 0);
}

TEST(RectImage, OfATallImageIsItsMiddle) {
    const auto image = rectImage(numbered(200, 300));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 200}));
    expectNumberedFrom(image, 0, 50);
}

TEST(RectImage, OfASquareIsAllOfIt) { expectNumberedFrom(rectImage(numbered(200, 200)), 0, 0); }

TEST(RectImage, CutsInPoints) {
    const auto image = rectImage(numbered(300, 200, 2));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 200}));
    EXPECT_EQ(image->scale(), 1);
    expectNumberedFrom(image, 50, 0);
}

TEST(RectImage, OfScale3IsASquareOfPixels) {
    // The first and the last row are not in the middle; a part of them would blend into the thumbnail's edges.
    for (NSUInteger width = 20; width < 60; ++width) {
        std::vector<Pixel> pixels(width * (width + 2), kBlue);
        std::fill_n(pixels.begin(), width, kRed);
        std::fill_n(pixels.end() - static_cast<std::ptrdiff_t>(width), width, kRed);
        const auto whole = UIImage::imageWithCGImage_scale_orientation(bitmap(width, pixels), 3, UIImageOrientationUp);
        const auto image = rectImage(whole);
        for (const NSUInteger y : {0, 1, 198, 199})
            ASSERT_EQ(pixelOf(image, 100, y), kBlue) << width << " at " << y;
    }
}

TEST(RectImage, IsScaledTo200) {
    const auto image = rectImage(UIImage::imageWithCGImage(quarters()));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 200}));
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 199, 199), kWhite);
    const auto large = rectImage(plainImage(500, 1000, kBlue));
    EXPECT_EQ(large->size(), (CGSize{200, 200}));
    EXPECT_EQ(pixelOf(large, 100, 100), kBlue);
}

TEST(RectImage, OfATurnedImageCutsWhatIsStored) {
    // 200 x 300 points upright; the square from (0, 50) is cut out of 300 x 200 stored pixels, which leaves 200 x 150
    // of them, and those stand upright in the thumbnail.
    const auto image = rectImage(numbered(300, 200, 1, UIImageOrientationRight));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize{200, 200}));
    EXPECT_TRUE(isWithin(pixelOf(image, 0, 0), numberedPixel(0, 199), 1)) << pixelOf(image, 0, 0);
    EXPECT_TRUE(isWithin(pixelOf(image, 199, 0), numberedPixel(0, 50), 1)) << pixelOf(image, 199, 0);
    EXPECT_TRUE(isWithin(pixelOf(image, 0, 199), numberedPixel(199, 199), 1)) << pixelOf(image, 0, 199);
    EXPECT_TRUE(isWithin(pixelOf(image, 199, 199), numberedPixel(199, 50), 1)) << pixelOf(image, 199, 199);
}

// setFuzzyPhoto

TEST(FuzzyPhoto, HasTwoFifthsOfThePixelsOnEachSide) {
    const auto sizeOf = [](NSUInteger width, NSUInteger height, CGFloat scale) {
        const auto image = setFuzzyPhoto(plainImage(width, height, kRed, scale));
        EXPECT_TRUE(image);
        EXPECT_EQ(image->scale(), 1);
        return CGSizeMake(static_cast<CGFloat>(widthOf(image)), static_cast<CGFloat>(heightOf(image)));
    };
    EXPECT_EQ(sizeOf(100, 50, 1), (CGSize{40, 20}));
    EXPECT_EQ(sizeOf(100, 50, 2), (CGSize{40, 20}));
    EXPECT_EQ(sizeOf(101, 1, 1), (CGSize{41, 1})); // 40.4 x 0.4
    EXPECT_EQ(sizeOf(1, 1, 3), (CGSize{1, 1}));
}

TEST(FuzzyPhoto, FractionsOfAPixelAreCoveredInPart) {
    const auto image = setFuzzyPhoto(plainImage(101, 6, kRed)); // 40.4 x 2.4
    ASSERT_EQ(widthOf(image), 41u);
    ASSERT_EQ(heightOf(image), 3u);
    EXPECT_EQ(pixelOf(image, 39, 1), kRed);
    EXPECT_TRUE(isWithin(pixelOf(image, 40, 1), {102, 0, 0, 102}, 2)) << pixelOf(image, 40, 1);
    EXPECT_TRUE(isWithin(pixelOf(image, 39, 2), {102, 0, 0, 102}, 2)) << pixelOf(image, 39, 2);
}

TEST(FuzzyPhoto, StandsAsStored) {
    std::vector<Pixel> pixels;
    for (int i = 0; i < 10 * 10; ++i)
        pixels.push_back(i / 10 < 5 ? (i % 10 < 5 ? kRed : kGreen) : (i % 10 < 5 ? kBlue : kWhite));
    for (const auto orientation : {UIImageOrientationUp, UIImageOrientationRight, UIImageOrientationDownMirrored}) {
        const auto whole = UIImage::imageWithCGImage_scale_orientation(bitmap(10, pixels), 2, orientation);
        const auto image = setFuzzyPhoto(whole);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->imageOrientation(), UIImageOrientationUp);
        EXPECT_EQ(pixelOf(image, 0, 0), kRed);
        EXPECT_EQ(pixelOf(image, 3, 0), kGreen);
        EXPECT_EQ(pixelOf(image, 0, 3), kBlue);
        EXPECT_EQ(pixelOf(image, 3, 3), kWhite);
    }
}

TEST(FuzzyPhoto, KeepsTransparencyAndSetsNothing) {
    const auto whole = plainImage(10, 10, {0, 90, 0, 120});
    const auto before = pixelsOf(whole);
    const auto image = setFuzzyPhoto(whole);
    EXPECT_EQ(pixelOf(image, 2, 2), (Pixel{0, 90, 0, 120}));
    EXPECT_EQ(pixelsOf(whole), before);
    EXPECT_EQ(whole->size(), (CGSize{10, 10}));
}

// All

TEST(ImageHelp, OfNilIsNil) {
    EXPECT_FALSE(rectImage(nullptr));
    EXPECT_FALSE(subImageWithRect(nullptr, CGRectMake(0, 0, 1, 1)));
    EXPECT_FALSE(scaleToSize(nullptr, {1, 1}));
    EXPECT_FALSE(setFuzzyPhoto(nullptr));
    EXPECT_FALSE(blurryImageWithBlurLevel_size(nullptr, 1, {1, 1}));
    EXPECT_FALSE(zr_boxblurImageWithBlur_withTintColor(nullptr, 0.5, nullptr));
}

TEST(ImageHelp, OfAnImageWithoutABitmapIsNil) {
    const auto image = make<UIImage>();
    EXPECT_FALSE(rectImage(image));
    EXPECT_FALSE(subImageWithRect(image, CGRectMake(0, 0, 1, 1)));
    EXPECT_FALSE(setFuzzyPhoto(image));
    EXPECT_FALSE(blurryImageWithBlurLevel_size(image, 1, {1, 1}));
    EXPECT_FALSE(zr_boxblurImageWithBlur_withTintColor(image, 0.5, nullptr));
}

} // namespace zr::testing
