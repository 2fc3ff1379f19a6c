#include <Tests/ZRPlatform/CoreImage/PictureTesting.h>

#include <cmath>
#include <limits>
#include <thread>

namespace zr {

namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

} // namespace

TEST(CIImage, OfABitmapLiesAtTheOrigin) {
    EXPECT_EQ(CIImage::imageWithCGImage(plain(7, 3, kRed))->extent(), CGRectMake(0, 0, 7, 3));
    EXPECT_FALSE(CIImage::imageWithCGImage(nullptr));
    EXPECT_EQ(make<CIImage>()->extent(), CGRectZero);
}

TEST(CIImage, IsDrawnUprightWithYUpwards) {
    const auto image = CIImage::imageWithCGImage(quarters());
    const auto whole = drawn(image);
    ASSERT_TRUE(whole);
    EXPECT_EQ(pixelOf(whole, 0, 0), kRed);
    EXPECT_EQ(pixelOf(whole, 1, 1), kBlack);
    const auto lower = drawn(image, CGRectMake(0, 0, 2, 1));
    ASSERT_EQ(CGImageGetHeight(lower), 1u);
    EXPECT_EQ(pixelOf(lower, 0, 0), kBlue);
    EXPECT_EQ(pixelOf(lower, 1, 0), kBlack);
    const auto upperRight = drawn(image, CGRectMake(1, 1, 1, 1));
    EXPECT_EQ(pixelOf(upperRight, 0, 0), kGreen);
}

TEST(CIImage, IsTransparentAroundItsExtent) {
    const auto image = drawn(CIImage::imageWithCGImage(quarters()), CGRectMake(-1, -2, 4, 5));
    ASSERT_EQ(CGImageGetWidth(image), 4u);
    ASSERT_EQ(CGImageGetHeight(image), 5u);
    const Pixel wanted[5][4] = {{kClear, kClear, kClear, kClear},
                                {kClear, kRed, kGreen, kClear},
                                {kClear, kBlue, kBlack, kClear},
                                {kClear, kClear, kClear, kClear},
                                {kClear, kClear, kClear, kClear}};
    for (NSUInteger y = 0; y < 5; ++y) {
        for (NSUInteger x = 0; x < 4; ++x)
            EXPECT_EQ(pixelOf(image, x, y), wanted[y][x]) << x << ", " << y;
    }
    const auto beside = drawn(CIImage::imageWithCGImage(quarters()), CGRectMake(10, 10, 1, 1));
    EXPECT_EQ(pixelOf(beside, 0, 0), kClear);
}

TEST(CIImage, ABitmapsPartsRowsNeedNotBeTogether) {
    const auto part = CGImageCreateWithImageInRect(imageOf(3, 2, {kBlack, kRed, kGreen, kBlack, kBlue, kRed}),
                                                   CGRectMake(1, 0, 2, 2));
    const auto image = drawn(CIImage::imageWithCGImage(part), CGRectMake(0, 0, 3, 2));
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 1, 0), kGreen);
    EXPECT_EQ(pixelOf(image, 0, 1), kBlue);
    EXPECT_EQ(pixelOf(image, 1, 1), kRed);
    EXPECT_EQ(pixelOf(image, 2, 0), kClear);
}

TEST(CIImage, CroppingKeepsThePlace) {
    const auto image = CIImage::imageWithCGImage(quarters())->imageByCroppingToRect(CGRectMake(0.5, 1, 8, 8));
    EXPECT_EQ(image->extent(), CGRectMake(0, 1, 2, 1));
    const auto all = drawn(image, CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(pixelOf(all, 0, 0), kRed);
    EXPECT_EQ(pixelOf(all, 1, 0), kGreen);
    EXPECT_EQ(pixelOf(all, 0, 1), kClear);
    const auto right = image->imageByCroppingToRect(CGRectMake(2, 2, -1, -2));
    EXPECT_EQ(right->extent(), CGRectMake(1, 1, 1, 1));
    EXPECT_EQ(pixelOf(drawn(right), 0, 0), kGreen);
}

TEST(CIImage, CroppedToNothingItIsEmpty) {
    const auto image = CIImage::imageWithCGImage(quarters());
    for (const CGRect rect : {CGRectMake(5, 5, 1, 1), CGRectMake(1, 1, 0, 0), CGRectMake(1e300, 0, 1, 1)}) {
        const auto nothing = image->imageByCroppingToRect(rect);
        EXPECT_EQ(nothing->extent(), CGRectZero);
        EXPECT_EQ(pixelOf(drawn(nothing, CGRectMake(0, 0, 1, 1)), 0, 0), kClear);
        EXPECT_EQ(blurred(nothing, 3)->extent(), CGRectZero);
        EXPECT_EQ(pixelOf(drawn(blurred(nothing, 3), CGRectMake(0, 0, 1, 1)), 0, 0), kClear);
    }
    for (const CGRect rect : {CGRectNull, CGRectMake(NAN, 0, 1, 1), CGRectMake(-kInfinity, 0, kInfinity, 1)})
        EXPECT_EQ(image->imageByCroppingToRect(rect)->extent(), image->extent());
    EXPECT_EQ(image->imageByCroppingToRect(CGRectMake(-1e300, -1e300, 2e300, 2e300))->extent(), image->extent());
    EXPECT_EQ(make<CIImage>()->imageByCroppingToRect(CGRectMake(0, 0, 1, 1))->extent(), CGRectZero);
}

TEST(CIContext, RectanglesGrowToWholePixels) {
    const auto image = drawn(CIImage::imageWithCGImage(quarters()), CGRectMake(0.25, 0.75, 0.5, 0.5));
    EXPECT_EQ(CGImageGetWidth(image), 1u);
    EXPECT_EQ(CGImageGetHeight(image), 2u);
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 0, 1), kBlue);
    const auto turned = drawn(CIImage::imageWithCGImage(quarters()), CGRectMake(2, 2, -2, -2));
    EXPECT_EQ(pixelOf(turned, 0, 0), kRed);
}

TEST(CIContext, WhatCannotBeDrawnIsNil) {
    const auto context = CIContext::contextWithOptions({});
    const auto image = CIImage::imageWithCGImage(quarters());
    const CGRect rects[] = {
        CGRectZero,
        CGRectNull,
        CGRectMake(0, 0, 5, 0),
        CGRectMake(NAN, 0, 1, 1),
        CGRectMake(0, 0, 1, NAN),
        CGRectMake(-kInfinity, -kInfinity, kInfinity, kInfinity),
        CGRectMake(-1e308, 0, 1e308, 1),
        CGRectMake(0, 0, 32768, 1),
        CGRectMake(0, 0, 1, 32768),
        CGRectMake(0, 0, 8001, 8000),
        CGRectMake(0, 1.1e9, 1, 1),
        CGRectMake(-1e18, 0, 1, 1),
    };
    for (const CGRect rect : rects)
        EXPECT_FALSE(context->createCGImage_fromRect(image, rect)) << rect;
    EXPECT_TRUE(context->createCGImage_fromRect(image, CGRectMake(-5, 0, 32767, 1)));
    EXPECT_TRUE(context->createCGImage_fromRect(image, CGRectMake(1e9, -1e9, 1, 1)));
    EXPECT_FALSE(context->createCGImage_fromRect(nullptr, CGRectMake(0, 0, 1, 1)));
    EXPECT_FALSE(context->createCGImage_fromRect(make<CIImage>(), CGRectMake(0, 0, 1, 1)));
}

TEST(CIContext, OnlyWhatIsAskedForIsComputed) {
    // All of it would be refused, and would take minutes.
    const auto image = blurred(plain(2000, 2000, kRed), 9000);
    EXPECT_EQ(image->extent(), CGRectMake(-27000, -27000, 56000, 56000));
    EXPECT_FALSE(drawn(image));
    EXPECT_TRUE(drawn(image, CGRectMake(1000, 1000, 2, 2)));
}

TEST(CIContext, WhatNeedsTooMuchInBetweenIsNil) {
    // To blur one pixel of the blurred picture takes all of that, three thousand million pixels.
    EXPECT_FALSE(drawn(blurred(blurred(quarters(), 9000), 9000), CGRectMake(0, 0, 1, 1)));
}

TEST(CIContext, APictureMayBeDrawnOnSeveralThreadsAtOnce) {
    const auto image = blurred(plain(300, 400, kRed), 6);
    const auto wanted = drawn(image);
    std::vector<Ref<CGImage>> results(3);
    std::vector<std::thread> threads;
    for (Ref<CGImage>& result : results)
        threads.emplace_back([&] { result = drawn(image); });
    for (std::thread& thread : threads)
        thread.join();
    for (const Ref<CGImage>& result : results) {
        ASSERT_TRUE(result);
        EXPECT_TRUE(std::equal(wanted->pixels(), wanted->pixels() + wanted->bytesPerRow() * wanted->height(),
                               result->pixels()));
    }
}

} // namespace zr
