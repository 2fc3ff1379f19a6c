#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <thread>

namespace zr::tests {

namespace {

RGBAColor rgbaOf(const UIColor* color) { return color->cgColor()->rgba(); }

CGColorSpaceModel modelOf(const UIColor* color) { return CGColorSpaceGetModel(color->cgColor()->colorSpace()); }

} // namespace

TEST(UIColor, FixedGraysLiveInTheGraySpace) {
    const std::pair<UIColor*, CGFloat> grays[] = {{UIColor::blackColor(), 0},
                                                  {UIColor::darkGrayColor(), CGFloat(1) / 3},
                                                  {UIColor::grayColor(), 0.5},
                                                  {UIColor::lightGrayColor(), CGFloat(2) / 3},
                                                  {UIColor::whiteColor(), 1}};
    for (const auto& [color, white] : grays) {
        EXPECT_EQ(modelOf(color), kCGColorSpaceModelMonochrome);
        EXPECT_EQ(color->cgColor()->components(), (std::vector<CGFloat>{white, 1}));
    }
    EXPECT_EQ(modelOf(UIColor::clearColor()), kCGColorSpaceModelMonochrome);
    EXPECT_EQ(UIColor::clearColor()->cgColor()->components(), (std::vector<CGFloat>{0, 0}));
}

TEST(UIColor, FixedColoursLiveInTheRGBSpace) {
    const std::pair<UIColor*, RGBAColor> colors[] = {
        {UIColor::redColor(), {1, 0, 0, 1}},         {UIColor::greenColor(), {0, 1, 0, 1}},
        {UIColor::blueColor(), {0, 0, 1, 1}},        {UIColor::cyanColor(), {0, 1, 1, 1}},
        {UIColor::yellowColor(), {1, 1, 0, 1}},      {UIColor::magentaColor(), {1, 0, 1, 1}},
        {UIColor::orangeColor(), {1, 0.5, 0, 1}},    {UIColor::purpleColor(), {0.5, 0, 0.5, 1}},
        {UIColor::brownColor(), {0.6, 0.4, 0.2, 1}},
    };
    for (const auto& [color, wanted] : colors) {
        EXPECT_EQ(modelOf(color), kCGColorSpaceModelRGB);
        EXPECT_EQ(rgbaOf(color), wanted);
    }
}

TEST(UIColor, FixedColoursAreSharedByAllThreads) {
    std::vector<UIColor*> seen(8);
    std::vector<std::thread> threads;
    for (UIColor*& color : seen)
        threads.emplace_back([&color] { color = UIColor::orangeColor(); });
    for (std::thread& thread : threads)
        thread.join();
    for (UIColor* color : seen)
        EXPECT_EQ(color, UIColor::orangeColor());
}

TEST(UIColor, ComponentsAreNotClamped) {
    const auto color = UIColor::colorWithRed_green_blue_alpha(2, -1, 0.25, 1.5);
    EXPECT_EQ(rgbaOf(color), (RGBAColor{2, -1, 0.25, 1.5}));
}

TEST(UIColor, HueSaturationAndBrightness) {
    const auto hsb = [](CGFloat hue, CGFloat saturation, CGFloat brightness) {
        return rgbaOf(UIColor::colorWithHue_saturation_brightness_alpha(hue, saturation, brightness, 0.5));
    };
    EXPECT_EQ(hsb(0, 1, 1), (RGBAColor{1, 0, 0, 0.5}));
    EXPECT_EQ(hsb(1, 1, 1), (RGBAColor{1, 0, 0, 0.5}));
    EXPECT_EQ(hsb(0.5, 1, 1), (RGBAColor{0, 1, 1, 0.5}));
    EXPECT_EQ(hsb(0.25, 1, 1), (RGBAColor{0.5, 1, 0, 0.5}));
    EXPECT_EQ(hsb(0.75, 0.5, 0.5), (RGBAColor{0.375, 0.25, 0.5, 0.5}));
    EXPECT_EQ(hsb(0.3, 0, 0.25), (RGBAColor{0.25, 0.25, 0.25, 0.5}));
}

TEST(UIColor, EqualColoursAreEqualObjects) {
    const auto red = UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 1);
    EXPECT_TRUE(red->isEqual(UIColor::redColor()));
    EXPECT_FALSE(red->isEqual(UIColor::blueColor()));
    EXPECT_FALSE(red->isEqual(nullptr));
    // Another space is another colour, even if it looks the same.
    EXPECT_FALSE(UIColor::whiteColor()->isEqual(UIColor::colorWithRed_green_blue_alpha(1, 1, 1, 1)));
}

TEST(UIColor, GettersTakeNullAndGiveGraysAsRGB) {
    CGFloat red = -1, green = -1, blue = -1, alpha = -1, white = -1;
    EXPECT_TRUE(UIColor::lightGrayColor()->getRed_green_blue_alpha(&red, &green, &blue, &alpha));
    EXPECT_EQ(red, CGFloat(2) / 3);
    EXPECT_EQ(green, CGFloat(2) / 3);
    EXPECT_EQ(blue, CGFloat(2) / 3);
    EXPECT_EQ(alpha, 1);
    EXPECT_TRUE(UIColor::redColor()->getRed_green_blue_alpha(nullptr, nullptr, &blue, nullptr));
    EXPECT_EQ(blue, 0);
    EXPECT_TRUE(UIColor::grayColor()->getWhite_alpha(&white, nullptr));
    EXPECT_EQ(white, 0.5);
    EXPECT_TRUE(UIColor::greenColor()->getWhite_alpha(&white, &alpha));
    EXPECT_NEAR(white, 0.587, 1e-12);
}

TEST(UIColor, APatternHasNoComponents) {
    const auto pattern = UIColor::colorWithPatternImage(plainImage(2, 2, kRed));
    CGFloat red = -1, alpha = -1;
    EXPECT_FALSE(pattern->getRed_green_blue_alpha(&red, nullptr, nullptr, &alpha));
    EXPECT_FALSE(pattern->getWhite_alpha(&red, &alpha));
    EXPECT_EQ(red, -1);
    EXPECT_EQ(alpha, -1);
    EXPECT_TRUE(UIColor::colorWithPatternImage(nullptr)->cgColor());
}

TEST(UIColor, APatternIsTiledInPoints) {
    const auto twice = UIImage::imageWithCGImage_scale_orientation(
        bitmap(4, {kRed, kRed, kBlue, kBlue, kRed, kRed, kBlue, kBlue}), 2, UIImageOrientationUp);
    UIGraphicsBeginImageContext({4, 1});
    UIColor::colorWithPatternImage(twice)->setFill();
    UIRectFill({{0, 0}, {4, 1}});
    const auto drawn = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixelOf(drawn, 0, 0), kRed);
    EXPECT_EQ(pixelOf(drawn, 1, 0), kBlue);
    EXPECT_EQ(pixelOf(drawn, 2, 0), kRed);
    EXPECT_EQ(pixelOf(drawn, 3, 0), kBlue);
}

TEST(UIColor, OfNilIsNil) { EXPECT_FALSE(UIColor::colorWithCGColor(nullptr)); }

TEST(UIColor, WithAnotherAlphaTheRestStays) {
    const auto faint = UIColor::redColor()->colorWithAlphaComponent(0.25);
    EXPECT_EQ(rgbaOf(faint), (RGBAColor{1, 0, 0, 0.25}));
    EXPECT_EQ(modelOf(UIColor::whiteColor()->colorWithAlphaComponent(0.5)), kCGColorSpaceModelMonochrome);
    const auto pattern = UIColor::colorWithPatternImage(plainImage(2, 2, kRed));
    EXPECT_TRUE(pattern->colorWithAlphaComponent(0.5)->isEqual(pattern));
}

TEST(UIColor, SetsTheCurrentContextsColours) {
    UIGraphicsBeginImageContext({4, 4});
    const CGContextRef context = UIGraphicsGetCurrentContext();
    UIColor::redColor()->set();
    UIColor::greenColor()->setStroke();
    EXPECT_TRUE(CGColorEqualToColor(context->state().fillColor, UIColor::redColor()->cgColor()));
    EXPECT_TRUE(CGColorEqualToColor(context->state().strokeColor, UIColor::greenColor()->cgColor()));
    UIColor::blueColor()->setFill();
    EXPECT_TRUE(CGColorEqualToColor(context->state().fillColor, UIColor::blueColor()->cgColor()));
    UIGraphicsEndImageContext();
    UIColor::redColor()->set(); // no context: nothing happens
}

} // namespace zr::tests
