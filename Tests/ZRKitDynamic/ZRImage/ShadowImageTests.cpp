#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRImage/ZRImage.h>

#include <limits>

namespace zr::testing {

namespace {

FramePixel pixelOf(const UIImage* image, NSUInteger x, NSUInteger y) {
    const std::uint32_t pixel = image->CGImage()->row(y)[x];
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

} // namespace

TEST(ZRImageShadow, IsNilWithoutColors) {
    EXPECT_FALSE(ZRImage::shadowImageFromColors_size({}, CGSizeMake(10, 10)));
    EXPECT_FALSE(ZRImage::shadowImageFromColors_size({nullptr, nullptr}, CGSizeMake(10, 10)));
}

TEST(ZRImageShadow, IsFlatWithOneColor) {
    const auto image =
        ZRImage::shadowImageFromColors_size({ZRColor::zrColorWithRed_green_blue_alpha(0, 195, 64, 1)}, {5, 9});
    ASSERT_TRUE(image);
    for (NSUInteger y = 0; y < 9; ++y) {
        for (NSUInteger x = 0; x < 5; ++x)
            EXPECT_EQ(pixelOf(image, x, y), (FramePixel{0, 195, 64})) << x << ", " << y;
    }
}

TEST(ZRImageShadow, HasTheFirstColorAtTheTopAndTheLastAtTheBottom) {
    const auto image = ZRImage::shadowImageFromColors_size({ZRColor::zrColorWithRed_green_blue_alpha(253, 131, 0, 1),
                                                            ZRColor::zrColorWithRed_green_blue_alpha(229, 119, 0, 1)},
                                                           {4, 200});
    ASSERT_TRUE(image);
    EXPECT_EQ(pixelOf(image, 0, 0), (FramePixel{253, 131, 0}));
    EXPECT_EQ(pixelOf(image, 3, 0), (FramePixel{253, 131, 0}));
    EXPECT_EQ(pixelOf(image, 0, 199), (FramePixel{229, 119, 0}));
    EXPECT_EQ(pixelOf(image, 3, 199), (FramePixel{229, 119, 0}));
}

TEST(ZRImageShadow, SpacesColorsEvenly) {
    const auto image = ZRImage::shadowImageFromColors_size(
        {UIColor::redColor(), UIColor::greenColor(), UIColor::blueColor()}, {1, 401});
    ASSERT_TRUE(image);
    EXPECT_EQ(pixelOf(image, 0, 200), (FramePixel{0, 255, 0}));
    EXPECT_NEAR(pixelOf(image, 0, 100).red, 127, 1);
    EXPECT_NEAR(pixelOf(image, 0, 100).green, 128, 1);
    EXPECT_EQ(pixelOf(image, 0, 100).blue, 0);
    EXPECT_EQ(pixelOf(image, 0, 300).red, 0);
    EXPECT_NEAR(pixelOf(image, 0, 300).blue, 127, 1);
}

TEST(ZRImageShadow, HasOnePixelAPointAndIsOpaque) {
    const HeadlessHost host(device(414, 736, 3));
    const auto image =
        ZRImage::shadowImageFromColors_size({UIColor::whiteColor(), UIColor::clearColor()}, CGSizeMake(20, 30));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), 1);
    EXPECT_EQ(image->size(), CGSizeMake(20, 30));
    EXPECT_EQ(CGImageGetWidth(image->CGImage()), 20u);
    EXPECT_EQ(CGImageGetHeight(image->CGImage()), 30u);
    EXPECT_TRUE(image->CGImage()->isOpaque());
}

TEST(ZRImageShadow, MixesColorSpaces) {
    const auto image = ZRImage::shadowImageFromColors_size(
        {ZRColor::zrColorWithRed_green_blue_alpha(255, 0, 0, 1), UIColor::colorWithWhite_alpha(1, 1)}, {1, 600});
    ASSERT_TRUE(image);
    EXPECT_EQ(pixelOf(image, 0, 0), (FramePixel{255, 0, 0}));
    EXPECT_EQ(pixelOf(image, 0, 599), (FramePixel{255, 255, 255}));
}

TEST(ZRImageShadow, LeavesNilColorsOut) {
    const auto image = ZRImage::shadowImageFromColors_size({nullptr, UIColor::redColor(), nullptr}, {2, 2});
    ASSERT_TRUE(image);
    EXPECT_EQ(pixelOf(image, 0, 0), (FramePixel{255, 0, 0}));
    EXPECT_EQ(pixelOf(image, 1, 1), (FramePixel{255, 0, 0}));
}

TEST(ZRImageShadow, LeavesColorsWithoutAValueOut) {
    const auto valueless = make<UIColor>();
    ASSERT_FALSE(valueless->cgColor());
    EXPECT_FALSE(ZRImage::shadowImageFromColors_size({valueless}, {2, 2}));
    const auto image = ZRImage::shadowImageFromColors_size({valueless, UIColor::redColor(), valueless}, {2, 2});
    ASSERT_TRUE(image);
    EXPECT_EQ(pixelOf(image, 0, 0), (FramePixel{255, 0, 0}));
    EXPECT_EQ(pixelOf(image, 1, 1), (FramePixel{255, 0, 0}));
}

TEST(ZRImageShadow, GoesOnBeyondItsEnd) {
    const auto image = ZRImage::shadowImageFromColors_size({UIColor::redColor(), UIColor::greenColor()}, {1, 10.2});
    ASSERT_TRUE(image);
    ASSERT_EQ(CGImageGetHeight(image->CGImage()), 11u);
    EXPECT_EQ(pixelOf(image, 0, 10), (FramePixel{0, 255, 0}));
}

TEST(ZRImageShadow, LeavesTheColorsTheirColorSpaces) {
    const auto color = ZRColor::zrColorWithRed_green_blue_alpha(0, 195, 64, 1);
    const CGColorSpaceRef space = CGColorGetColorSpace(color->cgColor());
    const NSUInteger count = space->retainCount();
    ASSERT_TRUE(ZRImage::shadowImageFromColors_size({color}, {2, 2}));
    EXPECT_EQ(CGColorGetColorSpace(color->cgColor()), space);
    EXPECT_EQ(space->retainCount(), count);
}

TEST(ZRImageShadow, IsNilForASizeOfNoImage) {
    const std::vector<Ref<UIColor>> colors = {UIColor::redColor()};
    EXPECT_FALSE(ZRImage::shadowImageFromColors_size(colors, CGSizeZero));
    EXPECT_FALSE(ZRImage::shadowImageFromColors_size(colors, {std::numeric_limits<CGFloat>::quiet_NaN(), 10}));
    EXPECT_FALSE(ZRImage::shadowImageFromColors_size(colors, {1e9, 1e9}));
}

TEST(ZRImageShadow, LeavesTheCurrentContextAsItWas) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(4, 4), false, 1);
    const CGContextRef before = UIGraphicsGetCurrentContext();
    ASSERT_TRUE(before);
    EXPECT_TRUE(ZRImage::shadowImageFromColors_size({UIColor::redColor()}, {2, 2}));
    EXPECT_EQ(UIGraphicsGetCurrentContext(), before);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->CGImage()->row(0)[0], 0u);
    UIGraphicsEndImageContext();
}

} // namespace zr::testing
