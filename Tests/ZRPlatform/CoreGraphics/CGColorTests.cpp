#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

using namespace zr;

namespace {

Ref<CGColor> rgb(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    const CGFloat components[] = {red, green, blue, alpha};
    return CGColorCreate(CGColorSpaceCreateDeviceRGB(), components);
}

} // namespace

TEST(CGColor, KeepsItsComponentsUnclamped) {
    const auto color = rgb(1.5, -0.25, 0.5, 2);
    ASSERT_EQ(CGColorGetNumberOfComponents(color), 4u);
    EXPECT_EQ(CGColorGetComponents(color)[0], 1.5);
    EXPECT_EQ(CGColorGetComponents(color)[1], -0.25);
    EXPECT_EQ(CGColorGetAlpha(color), 2);
    EXPECT_EQ(color->rgba(), (RGBAColor{1.5, -0.25, 0.5, 2}));
}

TEST(CGColor, ClampsOnlyWhenItIsDrawn) {
    Canvas canvas(2, 2);
    CGContextSetFillColorWithColor(canvas, rgb(1.5, -0.25, 0.5, 2));
    CGContextFillRect(canvas, CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(canvas.at(0, 0), (Pixel{255, 0, 128, 255}));
}

TEST(CGColor, GreyIsSpreadOverRedGreenAndBlue) {
    const CGFloat components[] = {0.25, 0.75};
    const auto gray = CGColorCreate(CGColorSpaceCreateDeviceGray(), components);
    EXPECT_EQ(CGColorGetNumberOfComponents(gray), 2u);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorGetColorSpace(gray)), kCGColorSpaceModelMonochrome);
    EXPECT_EQ(gray->rgba(), (RGBAColor{0.25, 0.25, 0.25, 0.75}));
}

TEST(CGColor, ACopyWithAlphaChangesNothingElse) {
    const auto copy = CGColorCreateCopyWithAlpha(rgb(0.1, 0.2, 0.3, 1), 0.5);
    EXPECT_EQ(copy->rgba(), (RGBAColor{0.1, 0.2, 0.3, 0.5}));
}

TEST(CGColor, EqualMeansSpaceComponentsAndPattern) {
    EXPECT_TRUE(CGColorEqualToColor(rgb(0.5, 0.5, 0.5, 1), rgb(0.5, 0.5, 0.5, 1)));
    EXPECT_FALSE(CGColorEqualToColor(rgb(0.5, 0.5, 0.5, 1), rgb(0.5, 0.5, 0.5, 0.5)));
    const CGFloat gray[] = {0.5, 1};
    EXPECT_FALSE(CGColorEqualToColor(rgb(0.5, 0.5, 0.5, 1), CGColorCreate(CGColorSpaceCreateDeviceGray(), gray)));
    const auto tile = imageOf(1, 1, {kRed});
    const auto other = imageOf(1, 1, {kRed});
    const auto pattern = Ref<CGColor>::adopt(new CGColor(tile.get()));
    EXPECT_TRUE(CGColorEqualToColor(pattern, Ref<CGColor>::adopt(new CGColor(tile.get()))));
    EXPECT_FALSE(CGColorEqualToColor(pattern, Ref<CGColor>::adopt(new CGColor(other.get()))));
    EXPECT_TRUE(CGColorEqualToColor(nullptr, nullptr));
    EXPECT_FALSE(CGColorEqualToColor(pattern, nullptr));
}

TEST(CGColor, APatternHasNoComponents) {
    const auto tile = imageOf(1, 1, {kRed});
    const auto pattern = Ref<CGColor>::adopt(new CGColor(tile.get()));
    EXPECT_EQ(pattern->pattern(), tile.get());
    EXPECT_EQ(CGColorGetNumberOfComponents(pattern), 0u);
    EXPECT_EQ(CGColorGetComponents(pattern), nullptr);
    EXPECT_EQ(CGColorGetAlpha(pattern), 1);
    EXPECT_EQ(pattern->rgba(), RGBAColor{});
    EXPECT_EQ(CGColorCreateCopyWithAlpha(pattern, 0.5), nullptr);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(pattern->colorSpace()), 0u);
}

TEST(CGColor, NilIsTolerated) {
    EXPECT_EQ(CGColorCreate(nullptr, nullptr), nullptr);
    EXPECT_EQ(CGColorCreate(CGColorSpaceCreateDeviceRGB(), nullptr), nullptr);
    EXPECT_EQ(CGColorGetComponents(nullptr), nullptr);
    EXPECT_EQ(CGColorGetNumberOfComponents(nullptr), 0u);
    EXPECT_EQ(CGColorGetColorSpace(nullptr), nullptr);
    EXPECT_EQ(CGColorGetAlpha(nullptr), 0);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(nullptr), 0u);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateDeviceRGB()), 3u);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateDeviceGray()), 1u);
}
