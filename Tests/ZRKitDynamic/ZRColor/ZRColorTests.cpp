#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>

namespace zr::testing {

namespace {

struct Components {
    std::int32_t red = -1, green = -1, blue = -1;
    friend bool operator==(const Components&, const Components&) = default;
};

std::ostream& operator<<(std::ostream& stream, const Components& c) {
    return stream << c.red << ", " << c.green << ", " << c.blue;
}

Components componentsOf(UIColor* color) {
    std::int32_t out[3] = {-1, -1, -1};
    ZRColor::getRGBComponents_forColor(out, color);
    return {out[0], out[1], out[2]};
}

} // namespace

TEST(ZRColor, DividesComponentsBy255AndTakesAlphaAsItIs) {
    EXPECT_EQ(rgba(ZRColor::zrColorWithRed_green_blue_alpha(255, 0, 0, 0.5)), (RGBAColor{1, 0, 0, 0.5}));
    EXPECT_EQ(rgba(ZRColor::zrColorWithRed_green_blue_alpha(55, 63, 58, 1)),
              (RGBAColor{55 / 255.0, 63 / 255.0, 58 / 255.0, 1}));
}

TEST(ZRColor, DoesNotClampComponents) {
    EXPECT_EQ(rgba(ZRColor::zrColorWithRed_green_blue_alpha(300, -51, 510, 1)), (RGBAColor{300 / 255.0, -0.2, 2, 1}));
}

TEST(ZRColor, AnswersThePlatformsNamedColors) { EXPECT_EQ(ZRColor::whiteColor(), UIColor::whiteColor()); }

TEST(ZRColor, ReadsBackTheComponentsOfAnOpaqueColor) {
    EXPECT_EQ(componentsOf(ZRColor::zrColorWithRed_green_blue_alpha(0, 195, 64, 1)), (Components{0, 195, 64}));
    EXPECT_EQ(componentsOf(ZRColor::zrColorWithRed_green_blue_alpha(1, 2, 254, 1)), (Components{1, 2, 254}));
}

TEST(ZRColor, ReadsComponentsBeyondTheirRangeAsItsEnds) {
    EXPECT_EQ(componentsOf(ZRColor::zrColorWithRed_green_blue_alpha(300, -51, 0, 1)), (Components{255, 0, 0}));
}

TEST(ZRColor, ReadsAPatternOfNothingAsBlack) {
    const auto nothing = ZRColor::shadowColorFromColors_size({}, CGSizeMake(7, 11));
    EXPECT_EQ(componentsOf(nothing), (Components{0, 0, 0}));
}

TEST(ZRColor, ReadsBackGreys) {
    EXPECT_EQ(componentsOf(UIColor::whiteColor()), (Components{255, 255, 255}));
    EXPECT_EQ(componentsOf(UIColor::blackColor()), (Components{0, 0, 0}));
}

TEST(ZRColor, ReadsATranslucentColorAsItLooksOnBlack) {
    const Components half = componentsOf(ZRColor::zrColorWithRed_green_blue_alpha(255, 0, 255, 0.5));
    EXPECT_NEAR(half.red, 128, 1);
    EXPECT_EQ(half.green, 0);
    EXPECT_EQ(half.blue, half.red);
    EXPECT_EQ(componentsOf(UIColor::clearColor()), (Components{0, 0, 0}));
}

TEST(ZRColor, ReadsNoColorAsBlackAndToleratesNoArray) {
    EXPECT_EQ(componentsOf(nullptr), (Components{0, 0, 0}));
    ZRColor::getRGBComponents_forColor(nullptr, UIColor::redColor());
}

TEST(ZRColor, ReadsAPatternByItsFirstPixel) {
    const HeadlessHost host;
    const auto pattern = ZRColor::shadowColorFromColors_size({UIColor::redColor()}, CGSizeMake(3, 3));
    EXPECT_EQ(componentsOf(pattern), (Components{255, 0, 0}));
}

TEST(ZRColor, MakesAPatternOfTheGradientImage) {
    const HeadlessHost host;
    const auto color =
        ZRColor::shadowColorFromColors_size({UIColor::whiteColor(), UIColor::blackColor()}, CGSizeMake(7, 11));
    ASSERT_TRUE(color && color->cgColor()->pattern());
    EXPECT_EQ(color->cgColor()->pattern()->width(), 7u);
    EXPECT_EQ(color->cgColor()->pattern()->height(), 11u);
}

TEST(ZRColor, MakesAPatternOfNothingWithoutColors) {
    const auto color = ZRColor::shadowColorFromColors_size({}, CGSizeMake(7, 11));
    ASSERT_TRUE(color);
    EXPECT_EQ(color->cgColor()->pattern(), nullptr);
    EXPECT_EQ(CGColorSpaceGetModel(color->cgColor()->colorSpace()), kCGColorSpaceModelPattern);
}

} // namespace zr::testing
