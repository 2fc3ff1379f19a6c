#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/CoreGraphics/CGBitmapContext.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <limits>
#include <thread>

namespace zr::tests {

namespace {

Ref<UIImage> drawn(CGSize size, CGFloat scale, const std::function<void()>& draw) {
    UIGraphicsBeginImageContextWithOptions(size, false, scale);
    draw();
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

} // namespace

TEST(UIGraphics, FractionsOfAPixelAreRoundedUp) {
    const auto pixels = [](CGSize size, CGFloat scale) {
        const auto image = drawn(size, scale, [] {});
        return image ? CGSize{CGFloat(image->CGImage()->width()), CGFloat(image->CGImage()->height())} : CGSizeZero;
    };
    EXPECT_EQ(pixels({10.1, 9.9}, 1), (CGSize{11, 10}));
    EXPECT_EQ(pixels({10.25, 10.5}, 2), (CGSize{21, 21}));
    EXPECT_EQ(pixels({0.25, 4}, 1), (CGSize{1, 4}));
    EXPECT_EQ(pixels({0.1 * 3 * 10, 7}, 1), (CGSize{3, 7})); // 3.0000000000000004
}

TEST(UIGraphics, TheImageHasTheContextsScale) {
    const auto image = drawn({10, 5}, 2, [] {});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->scale(), 2);
    EXPECT_EQ(image->size(), (CGSize{10, 5}));
    EXPECT_EQ(image->CGImage()->width(), 20u);
}

TEST(UIGraphics, SizesThatCannotBeGiveNoContext) {
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN(), infinity = std::numeric_limits<CGFloat>::infinity();
    const CGSize sizes[] = {{0, 10},       {10, 0},      {-5, 5},    {nan, 5},    {5, nan},
                            {infinity, 1}, {1e30, 1e30}, {32768, 1}, {8001, 8000}};
    for (const CGSize& size : sizes) {
        UIGraphicsBeginImageContext(size);
        EXPECT_FALSE(UIGraphicsGetCurrentContext()) << size;
        UIColor::redColor()->set();
        UIRectFill({{0, 0}, {1, 1}});
        UIRectFrame({{0, 0}, {1, 1}});
        UIRectClip({{0, 0}, {1, 1}});
        plainImage(1, 1, kRed)->drawInRect({{0, 0}, {1, 1}});
        EXPECT_FALSE(UIGraphicsGetImageFromCurrentImageContext());
        UIGraphicsEndImageContext();
    }
}

TEST(UIGraphics, AFailedContextHidesTheOneBelowUntilItsEnd) {
    UIGraphicsBeginImageContext({4, 4});
    const CGContextRef outer = UIGraphicsGetCurrentContext();
    UIGraphicsBeginImageContext({0, 0});
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), outer);
    UIGraphicsEndImageContext();
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
}

TEST(UIGraphics, ContextsNest) {
    UIGraphicsBeginImageContext({4, 4});
    const Ref<CGContext> outer = UIGraphicsGetCurrentContext();
    UIGraphicsBeginImageContext({2, 2});
    EXPECT_NE(UIGraphicsGetCurrentContext(), outer.get());
    UIGraphicsPushContext(outer);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), outer.get());
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{4, 4}));
    UIGraphicsPopContext();
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{2, 2}));
    UIGraphicsPopContext(); // nothing was pushed in here
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{2, 2}));
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), outer.get());
    UIGraphicsEndImageContext();
}

TEST(UIGraphics, EndingTakesWhatWasPushedSince) {
    UIGraphicsBeginImageContext({4, 4});
    UIGraphicsPushContext(nullptr);
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
    UIGraphicsEndImageContext();
    EXPECT_FALSE(UIGraphicsGetCurrentContext());
    UIGraphicsEndImageContext();
    UIGraphicsPopContext();
}

TEST(UIGraphics, APushedBitmapIsNoImageContext) {
    const auto context = CGBitmapContextCreateForLayer(2, 2, false);
    UIGraphicsPushContext(context);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), context.get());
    EXPECT_FALSE(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsPopContext();
}

TEST(UIGraphics, EveryThreadHasItsOwnStack) {
    UIGraphicsBeginImageContext({4, 4});
    bool sawNone = false;
    CGSize size;
    std::thread([&] {
        sawNone = UIGraphicsGetCurrentContext() == nullptr;
        size = drawn({3, 3}, 1, [] {})->size();
    }).join();
    EXPECT_TRUE(sawNone);
    EXPECT_EQ(size, (CGSize{3, 3}));
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), (CGSize{4, 4}));
    UIGraphicsEndImageContext();
}

TEST(UIGraphics, YGrowsDownwardsInPoints) {
    const auto image = drawn({4, 4}, 2, [] {
        UIColor::redColor()->setFill();
        UIRectFill({{0, 0}, {1, 1}});
        UIColor::blueColor()->setFill();
        UIRectFill({{3, 3}, {1, 1}});
    });
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 1, 1), kRed);
    EXPECT_EQ(pixelOf(image, 2, 0), kNothing);
    EXPECT_EQ(pixelOf(image, 7, 7), kBlue);
    EXPECT_EQ(pixelOf(image, 0, 7), kNothing);
}

TEST(UIGraphics, OpaqueStartsBlack) {
    UIGraphicsBeginImageContextWithOptions({2, 2}, true, 1);
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixelOf(image, 0, 0), kBlack);
    EXPECT_TRUE(image->CGImage()->isOpaque());
    EXPECT_EQ(pixelOf(drawn({2, 2}, 1, [] {}), 0, 0), kNothing);
}

TEST(UIGraphics, AnImageTakenEarlyDoesNotChange) {
    UIGraphicsBeginImageContext({1, 1});
    UIColor::redColor()->setFill();
    UIRectFill({{0, 0}, {1, 1}});
    const auto early = UIGraphicsGetImageFromCurrentImageContext();
    UIColor::blueColor()->setFill();
    UIRectFill({{0, 0}, {1, 1}});
    const auto late = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixelOf(early, 0, 0), kRed);
    EXPECT_EQ(pixelOf(late, 0, 0), kBlue);
}

TEST(UIGraphics, RectFillReplacesAlphaToo) {
    const auto image = drawn({2, 1}, 1, [] {
        UIColor::redColor()->setFill();
        UIRectFill({{0, 0}, {2, 1}});
        UIColor::clearColor()->setFill();
        UIRectFill({{0, 0}, {1, 1}});
        UIRectFillUsingBlendMode({{1, 0}, {1, 1}}, kCGBlendModeNormal);
    });
    EXPECT_EQ(pixelOf(image, 0, 0), kNothing);
    EXPECT_EQ(pixelOf(image, 1, 0), kRed);
}

TEST(UIGraphics, RectFrameIsOnePointInside) {
    const auto image = drawn({6, 5}, 1, [] {
        UIColor::redColor()->setFill();
        UIRectFrame({{1, 1}, {4, 3}});
    });
    for (NSUInteger y = 0; y < 5; ++y) {
        for (NSUInteger x = 0; x < 6; ++x) {
            const bool inside = x >= 1 && x <= 4 && y >= 1 && y <= 3;
            const bool inner = x >= 2 && x <= 3 && y == 2;
            EXPECT_EQ(pixelOf(image, x, y), inside && !inner ? kRed : kNothing) << x << ", " << y;
        }
    }
}

TEST(UIGraphics, RectClipLimitsDrawing) {
    const auto image = drawn({4, 1}, 1, [] {
        UIRectClip({{1, 0}, {2, 1}});
        UIColor::redColor()->setFill();
        UIRectFill({{0, 0}, {4, 1}});
    });
    EXPECT_EQ(pixelOf(image, 0, 0), kNothing);
    EXPECT_EQ(pixelOf(image, 1, 0), kRed);
    EXPECT_EQ(pixelOf(image, 2, 0), kRed);
    EXPECT_EQ(pixelOf(image, 3, 0), kNothing);
}

} // namespace zr::tests
