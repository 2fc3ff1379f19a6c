#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

namespace zr::tests {

namespace {

Ref<UIImage> drawn(CGSize size, const std::function<void()>& draw) {
    UIGraphicsBeginImageContext(size);
    draw();
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

/// Red, green, blue from the left, each one pixel wide.
Ref<UIImage> flag() { return UIImage::imageWithCGImage(bitmap(3, {kRed, kGreen, kBlue})); }

} // namespace

TEST(UIImage, SizeIsInPointsAndStandsUpright) {
    const auto tall = bitmap(2, std::vector<Pixel>(12, kRed));
    EXPECT_EQ(UIImage::imageWithCGImage(tall)->size(), (CGSize{2, 6}));
    const auto size = [&](UIImageOrientation orientation) {
        return UIImage::imageWithCGImage_scale_orientation(tall, 2, orientation)->size();
    };
    EXPECT_EQ(size(UIImageOrientationUp), (CGSize{1, 3}));
    EXPECT_EQ(size(UIImageOrientationDown), (CGSize{1, 3}));
    EXPECT_EQ(size(UIImageOrientationLeft), (CGSize{3, 1}));
    EXPECT_EQ(size(UIImageOrientationRight), (CGSize{3, 1}));
    EXPECT_EQ(size(UIImageOrientationUpMirrored), (CGSize{1, 3}));
    EXPECT_EQ(size(UIImageOrientationLeftMirrored), (CGSize{3, 1}));
}

TEST(UIImage, OfNilIsNilAndABadScaleIs1) {
    EXPECT_FALSE(UIImage::imageWithCGImage(nullptr));
    EXPECT_EQ(UIImage::imageWithCGImage_scale_orientation(quarters(), 0, UIImageOrientationUp)->scale(), 1);
    EXPECT_EQ(UIImage::imageWithCGImage_scale_orientation(quarters(), -2, UIImageOrientationUp)->scale(), 1);
}

TEST(UIImage, IsEqualToItselfOnly) {
    const auto cgImage = quarters();
    const auto image = UIImage::imageWithCGImage(cgImage);
    EXPECT_TRUE(image->isEqual(image));
    EXPECT_FALSE(image->isEqual(UIImage::imageWithCGImage(cgImage)));
    EXPECT_EQ(image->CGImage(), cgImage.get());
}

TEST(UIImage, DrawsUprightInEveryOrientation) {
    struct Case {
        UIImageOrientation orientation;
        Pixel corners[4]; // top left, top right, bottom left, bottom right
    };
    const Case cases[] = {
        {UIImageOrientationUp, {kRed, kGreen, kBlue, kWhite}},
        {UIImageOrientationDown, {kWhite, kBlue, kGreen, kRed}},
        {UIImageOrientationLeft, {kGreen, kWhite, kRed, kBlue}},
        {UIImageOrientationRight, {kBlue, kRed, kWhite, kGreen}},
        {UIImageOrientationUpMirrored, {kGreen, kRed, kWhite, kBlue}},
        {UIImageOrientationDownMirrored, {kBlue, kWhite, kRed, kGreen}},
        {UIImageOrientationLeftMirrored, {kRed, kBlue, kGreen, kWhite}},
        {UIImageOrientationRightMirrored, {kWhite, kGreen, kBlue, kRed}},
    };
    for (const Case& test : cases) {
        const auto image = UIImage::imageWithCGImage_scale_orientation(quarters(), 1, test.orientation);
        const auto picture = drawn({4, 3}, [&] { image->drawAtPoint({1, 1}); });
        const auto upright = image->uprightImage();
        for (NSUInteger i = 0; i < 4; ++i) {
            EXPECT_EQ(pixelOf(picture, 1 + i % 2, 1 + i / 2), test.corners[i]) << test.orientation << " corner " << i;
            EXPECT_EQ(pixelOf(upright, i % 2, i / 2), test.corners[i]) << test.orientation << " corner " << i;
        }
        EXPECT_EQ(pixelOf(picture, 0, 0), kNothing);
        EXPECT_EQ(pixelOf(picture, 3, 1), kNothing);
    }
}

TEST(UIImage, ATurnedImageFillsTheRectangle) {
    const auto image =
        UIImage::imageWithCGImage_scale_orientation(bitmap(2, {kRed, kGreen}), 1, UIImageOrientationRight);
    const auto picture = drawn({3, 8}, [&] {
        CGContextSetInterpolationQuality(UIGraphicsGetCurrentContext(), kCGInterpolationNone);
        image->drawInRect({{0, 0}, {3, 8}});
    });
    EXPECT_EQ(pixelOf(picture, 1, 0), kRed);
    EXPECT_EQ(pixelOf(picture, 1, 3), kRed);
    EXPECT_EQ(pixelOf(picture, 1, 4), kGreen);
    EXPECT_EQ(pixelOf(picture, 2, 7), kGreen);
}

TEST(UIImage, DrawsInPointsNotPixels) {
    const auto image = plainImage(4, 4, kRed, 2);
    const auto picture = drawn({4, 4}, [&] { image->drawAtPoint({1, 1}); });
    EXPECT_EQ(pixelOf(picture, 1, 1), kRed);
    EXPECT_EQ(pixelOf(picture, 2, 2), kRed);
    EXPECT_EQ(pixelOf(picture, 3, 3), kNothing);
    EXPECT_EQ(pixelOf(picture, 0, 0), kNothing);
}

TEST(UIImage, DrawsWithBlendModeAndAlphaAndLeavesTheStateAlone) {
    const auto image = plainImage(1, 1, kWhite);
    const auto picture = drawn({3, 1}, [&] {
        image->drawAtPoint_blendMode_alpha({0, 0}, kCGBlendModeNormal, 0.2);
        UIColor::redColor()->setFill();
        UIRectFill({{1, 0}, {1, 1}});
        image->drawInRect_blendMode_alpha({{1, 0}, {1, 1}}, kCGBlendModeMultiply, 1);
        image->drawAtPoint({2, 0});
    });
    EXPECT_EQ(pixelOf(picture, 0, 0), (Pixel{51, 51, 51, 51}));
    EXPECT_EQ(pixelOf(picture, 1, 0), kRed);
    EXPECT_EQ(pixelOf(picture, 2, 0), kWhite);
}

TEST(UIImage, DrawsNothingInAnImpossibleRectangle) {
    const auto image = plainImage(2, 2, kRed);
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    const auto picture = drawn({2, 2}, [&] {
        image->drawInRect({{nan, 0}, {2, 2}});
        image->drawInRect({{0, 0}, {std::numeric_limits<CGFloat>::infinity(), 2}});
        image->drawInRect({{0, 0}, {0, 2}});
        image->drawAtPoint({0, nan});
    });
    EXPECT_EQ(pixelOf(picture, 0, 0), kNothing);
    image->drawAtPoint({0, 0}); // no context at all
}

TEST(UIImage, CapsKeepTheirSizeAndTheMiddleStretches) {
    const auto image = flag()->resizableImageWithCapInsets({0, 1, 0, 1});
    const auto picture = drawn({9, 2}, [&] { image->drawInRect({{0, 0}, {9, 2}}); });
    for (NSUInteger y = 0; y < 2; ++y) {
        EXPECT_EQ(pixelOf(picture, 0, y), kRed);
        for (NSUInteger x = 1; x < 8; ++x)
            EXPECT_EQ(pixelOf(picture, x, y), kGreen) << x;
        EXPECT_EQ(pixelOf(picture, 8, y), kBlue);
    }
}

TEST(UIImage, CapsOfATurnedImageAreThoseOfTheUprightOne) {
    // Quarter turn clockwise: red on top.
    const auto turned = UIImage::imageWithCGImage_scale_orientation(flag()->CGImage(), 1, UIImageOrientationRight)
                            ->resizableImageWithCapInsets({1, 0, 1, 0});
    const auto picture = drawn({1, 9}, [&] { turned->drawInRect({{0, 0}, {1, 9}}); });
    EXPECT_EQ(pixelOf(picture, 0, 0), kRed);
    EXPECT_EQ(pixelOf(picture, 0, 1), kGreen);
    EXPECT_EQ(pixelOf(picture, 0, 7), kGreen);
    EXPECT_EQ(pixelOf(picture, 0, 8), kBlue);
}

TEST(UIImage, AStretchableImageStretchesOneColumnAndOneRow) {
    const auto image = plainImage(21, 11, kRed)->stretchableImageWithLeftCapWidth_topCapHeight(10, 4);
    EXPECT_EQ(image->capInsets(), (UIEdgeInsets{4, 10, 6, 10}));
    EXPECT_EQ(image->contentsCenter(), (CGRect{{10 / 21.0, 4 / 11.0}, {1 / 21.0, 1 / 11.0}}));
    const auto wholeHeight = plainImage(21, 11, kRed)->stretchableImageWithLeftCapWidth_topCapHeight(10, 0);
    EXPECT_EQ(wholeHeight->capInsets(), (UIEdgeInsets{0, 10, 0, 10}));
    EXPECT_EQ(plainImage(5, 5, kRed)->stretchableImageWithLeftCapWidth_topCapHeight(-3, 99)->capInsets(),
              (UIEdgeInsets{5, 0, 0, 0}));
}

TEST(UIImage, CapsBeyondTheImageAreCutAndSmallRectanglesAreShared) {
    const auto image = flag()->resizableImageWithCapInsets({0, 2, 0, 9});
    EXPECT_EQ(image->contentsCenter(), (CGRect{{2 / 3.0, 0}, {0, 1}}));
    const auto narrow = UIImage::imageWithCGImage(bitmap(5, {kRed, kRed, kGreen, kBlue, kBlue}))
                            ->resizableImageWithCapInsets({0, 2, 0, 2});
    const auto picture = drawn({2, 1}, [&] { narrow->drawInRect({{0, 0}, {2, 1}}); });
    EXPECT_EQ(pixelOf(picture, 0, 0), kRed);
    EXPECT_EQ(pixelOf(picture, 1, 0), kBlue);
}

TEST(UIImage, DerivedImagesKeepTheRest) {
    const auto image = UIImage::imageWithCGImage_scale_orientation(quarters(), 2, UIImageOrientationDown);
    const auto derived = image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate)
                             ->resizableImageWithCapInsets({0.25, 0.25, 0.25, 0.25});
    EXPECT_EQ(derived->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(derived->scale(), 2);
    EXPECT_EQ(derived->imageOrientation(), UIImageOrientationDown);
    EXPECT_EQ(derived->CGImage(), image->CGImage());
    EXPECT_EQ(image->renderingMode(), UIImageRenderingModeAutomatic);
    EXPECT_EQ(image->capInsets(), UIEdgeInsetsZero);
}

TEST(UIImage, TintFillsTheShape) {
    const auto image = UIImage::imageWithCGImage(bitmap(3, {kWhite, {64, 64, 64, 128}, kNothing}));
    const auto tinted = image->imageTintedWithColor(UIColor::redColor()->cgColor());
    EXPECT_EQ(pixelOf(tinted, 0, 0), kRed);
    EXPECT_EQ(pixelOf(tinted, 1, 0), (Pixel{128, 0, 0, 128}));
    EXPECT_EQ(pixelOf(tinted, 2, 0), kNothing);
}

} // namespace zr::tests
