#include <ZRPlatform/UIKit/Text/UIFont.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zr {
namespace {

TEST(UIFont, SystemFontsAreOneFamilyInThreeFaces) {
    EXPECT_EQ(UIFont::systemFontOfSize(17)->fontName(), "Inter-Regular");
    EXPECT_EQ(UIFont::boldSystemFontOfSize(17)->fontName(), "Inter-Bold");
    EXPECT_EQ(UIFont::italicSystemFontOfSize(17)->fontName(), "Inter-Italic");
    EXPECT_EQ(UIFont::boldSystemFontOfSize(17)->familyName(), "Inter");
}

TEST(UIFont, StandardSizes) {
    EXPECT_EQ(UIFont::labelFontSize(), 17);
    EXPECT_EQ(UIFont::systemFontSize(), 14);
    EXPECT_EQ(UIFont::buttonFontSize(), 18);
    EXPECT_EQ(UIFont::smallSystemFontSize(), 12);
}

TEST(UIFont, MeasuresGrowInProportionToTheSizeAndAreNotRounded) {
    const auto small = UIFont::systemFontOfSize(10);
    const auto large = UIFont::systemFontOfSize(25);
    EXPECT_DOUBLE_EQ(large->ascender(), small->ascender() * 2.5);
    EXPECT_DOUBLE_EQ(large->descender(), small->descender() * 2.5);
    EXPECT_DOUBLE_EQ(large->capHeight(), small->capHeight() * 2.5);
    EXPECT_DOUBLE_EQ(large->xHeight(), small->xHeight() * 2.5);
    EXPECT_NE(large->lineHeight(), std::round(large->lineHeight()));
}

TEST(UIFont, MeasuresStandInTheirOrder) {
    const auto font = UIFont::systemFontOfSize(17);
    EXPECT_LT(font->descender(), 0);
    EXPECT_GT(font->xHeight(), 0);
    EXPECT_GT(font->capHeight(), font->xHeight());
    EXPECT_GT(font->ascender(), font->capHeight());
    EXPECT_DOUBLE_EQ(font->lineHeight(), font->ascender() - font->descender());
}

TEST(UIFont, AFontIsFoundByItsNameOrItsFamilyWhateverTheCapitals) {
    EXPECT_EQ(UIFont::fontWithName_size("Inter-Bold", 12)->fontName(), "Inter-Bold");
    EXPECT_EQ(UIFont::fontWithName_size("inter bold", 12)->fontName(), "Inter-Bold");
    const auto family = UIFont::fontWithName_size("INTER", 12);
    EXPECT_EQ(family->fontName(), "Inter-Regular");
    EXPECT_EQ(family->pointSize(), 12);
}

TEST(UIFont, AnUnknownEmptyOrNilNameGivesNil) {
    EXPECT_EQ(UIFont::fontWithName_size("No Such Typeface", 12), nullptr);
    EXPECT_EQ(UIFont::fontWithName_size("", 12), nullptr);
    EXPECT_EQ(UIFont::fontWithName_size(nullptr, 12), nullptr);
}

TEST(UIFont, FontWithSizeKeepsTheFace) {
    const auto font = UIFont::boldSystemFontOfSize(17)->fontWithSize(9);
    EXPECT_EQ(font->fontName(), "Inter-Bold");
    EXPECT_EQ(font->pointSize(), 9);
}

TEST(UIFont, EqualFontsHaveTheSameFaceAndSize) {
    const auto font = UIFont::systemFontOfSize(17);
    EXPECT_TRUE(font->isEqual(UIFont::systemFontOfSize(17)));
    EXPECT_TRUE(font->isEqual(UIFont::fontWithName_size("Inter", 17)));
    EXPECT_FALSE(font->isEqual(UIFont::systemFontOfSize(18)));
    EXPECT_FALSE(font->isEqual(UIFont::boldSystemFontOfSize(17)));
    EXPECT_FALSE(font->isEqual(UIFont::italicSystemFontOfSize(17)));
    EXPECT_FALSE(font->isEqual(nullptr));
}

TEST(UIFont, SizesOutOfRangeAreCut) {
    EXPECT_EQ(UIFont::systemFontOfSize(-3)->pointSize(), 0);
    EXPECT_EQ(UIFont::systemFontOfSize(std::nan(""))->pointSize(), 0);
    EXPECT_EQ(UIFont::systemFontOfSize(std::numeric_limits<CGFloat>::infinity())->pointSize(), 2048);
}

} // namespace
} // namespace zr
