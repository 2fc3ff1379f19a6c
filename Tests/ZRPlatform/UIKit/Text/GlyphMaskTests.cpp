#include <Tests/ZRPlatform/UIKit/Text/TextPicture.h>

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Text/Internal/GlyphMasks.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <cmath>
#include <cstdlib>

namespace zr {
namespace {

using namespace tests;

/// Turned by less than any pixel shows: text so drawn is filled as shapes.
constexpr CGAffineTransform kTurnedByNothing{1, 1e-12, 0, 1, 0, 0};
/// Cairo samples fifteen rows in a pixel. A turned shape's points are rounded apart, and may fall to the next row.
constexpr int kOneRow = 255 / 15;
/// Half a quarter of a pixel beside its place, an upright edge covers an eighth more or less.
constexpr int kHalfAQuarter = 255 / 8 + 1;

Ref<UIFont> font(CGFloat size = 16) { return UIFont::systemFontOfSize(size); }

/// With its baseline 30 pixels down.
Ref<UIImage> drawn(const NSString& text, CGFloat x, const CGAffineTransform& transform = CGAffineTransformIdentity,
                   CGFloat size = 16) {
    return picture({240, 40}, 1, [&] {
        CGContextConcatCTM(UIGraphicsGetCurrentContext(), transform);
        UIColor::blackColor()->setFill();
        drawAtPoint_withFont(text, {x, 30 - font(size)->ascender()}, font(size));
    });
}

int furthestAlphas(const UIImage* a, const UIImage* b) {
    int furthest = 0;
    for (NSUInteger y = 0; y < a->CGImage()->height(); ++y)
        for (NSUInteger x = 0; x < a->CGImage()->width(); ++x)
            furthest = std::max(furthest, std::abs(pixelOf(a, x, y).alpha - pixelOf(b, x, y).alpha));
    return furthest;
}

TEST(GlyphMasks, AGlyphLooksAsItsShapeFilled) {
    for (const char* glyph : {"g", "W", "@", "ß", "永", "ب"}) {
        const auto mask = drawn(glyph, 4);
        const auto shape = drawn(glyph, 4, kTurnedByNothing);
        EXPECT_FALSE(inkOf(mask).isEmpty()) << glyph;
        EXPECT_LE(furthestAlphas(mask, shape), kOneRow) << glyph;
    }
}

TEST(GlyphMasks, GlyphsStandAtQuartersOfAPixel) {
    const auto quarter = drawn("l", 4.25);
    EXPECT_TRUE(samePixels(drawn("l", 4.13), quarter));
    EXPECT_TRUE(samePixels(drawn("l", 4.37), quarter));
    for (const CGFloat x : {4.0, 4.12, 4.38, 4.5, 4.75, 5.0})
        EXPECT_FALSE(samePixels(drawn("l", x), quarter)) << x;
    EXPECT_LE(furthestAlphas(quarter, drawn("l", 4.25, kTurnedByNothing)), kOneRow);
}

TEST(GlyphMasks, EachGlyphOfALineStandsWhereItsWidthPutsIt) {
    for (const char* text :
         {"Widths that do not add up to whole pixels", "مرحبا بالعالم", "字符的宽度", "e\u0301a\u0308"})
        EXPECT_LE(furthestAlphas(drawn(text, 3.1), drawn(text, 3.1, kTurnedByNothing)), kOneRow + kHalfAQuarter)
            << text;
}

TEST(GlyphMasks, FollowTheScaleOfTheDrawing) {
    const CGAffineTransform twice{2, 0, 0, 2, 0, -30};
    const CGAffineTransform shapes{2, 1e-12, 0, 2, 0, -30};
    const auto mask = drawn("Ag", 5, twice);
    EXPECT_EQ(inkOf(mask).bottom, inkOf(drawn("Ag", 5, shapes)).bottom);
    EXPECT_LE(furthestAlphas(mask, drawn("Ag", 5, shapes)), kOneRow + kHalfAQuarter);
    EXPECT_GT(inkOf(mask).height(), inkOf(drawn("Ag", 5)).height() * 19 / 10);
}

TEST(GlyphMasks, LargeGlyphsAreNotKept) {
    drawn("Q", 4, CGAffineTransformIdentity, 64);
    const std::size_t before = GlyphMasks::shared().count();
    drawn("R", 4, CGAffineTransformIdentity, 65);
    EXPECT_EQ(GlyphMasks::shared().count(), before);
    EXPECT_GT(before, 0U);
}

TEST(GlyphMasks, AGlyphIsKeptOnceForAllThatShowIt) {
    const std::size_t before = GlyphMasks::shared().count();
    drawn("aaaaaaaaaaaa", 4, CGAffineTransformIdentity, 17.3);
    const std::size_t after = GlyphMasks::shared().count();
    EXPECT_GT(after, before);
    EXPECT_LE(after, before + 4); // one a quarter
    drawn("aaaaaaaaaaaa", 104, CGAffineTransformIdentity, 17.3);
    EXPECT_EQ(GlyphMasks::shared().count(), after);
}

TEST(GlyphMasks, HowManyAreKeptIsBounded) {
    const auto before = drawn("The same", 4);
    bool forgotten = false;
    std::size_t last = 0;
    for (int size = 0; size < 600; ++size) {
        drawn("abcdefghijkl", 0, CGAffineTransformIdentity, 8 + size / 100.0);
        const std::size_t count = GlyphMasks::shared().count();
        ASSERT_LE(count, GlyphMasks::most + 12);
        forgotten |= count < last;
        last = count;
    }
    EXPECT_TRUE(forgotten);
    EXPECT_TRUE(samePixels(drawn("The same", 4), before));
}

TEST(GlyphMasks, StayWithinTheClip) {
    const auto clipped = picture({240, 40}, 1, [] {
        CGContextClipToRect(UIGraphicsGetCurrentContext(), {{10, 0}, {20, 40}});
        UIColor::blackColor()->setFill();
        drawAtPoint_withFont("MMMMMMMM", {0, 30 - font()->ascender()}, font());
    });
    const auto whole = drawn("MMMMMMMM", 0);
    for (NSUInteger y = 0; y < 40; ++y)
        for (NSUInteger x = 0; x < 240; ++x)
            ASSERT_EQ(pixelOf(clipped, x, y), x >= 10 && x < 30 ? pixelOf(whole, x, y) : Pixel{}) << x << ' ' << y;
}

TEST(GlyphMasks, WhatIsFarOutsideDrawsNothing) {
    for (const CGFloat x : {-1e4, 1e4, -1e9, 1e9, 1e300, -1e300})
        EXPECT_TRUE(inkOf(drawn("far", x)).isEmpty()) << x;
}

TEST(GlyphMasks, WithoutAntialiasingPixelsAreFullOrEmpty) {
    const auto image = picture({100, 40}, 1, [] {
        CGContextSetShouldAntialias(UIGraphicsGetCurrentContext(), false);
        UIColor::blackColor()->setFill();
        drawAtPoint_withFont("SO", {4.3, 4}, font());
    });
    EXPECT_FALSE(inkOf(image).isEmpty());
    for (NSUInteger y = 0; y < 40; ++y)
        for (NSUInteger x = 0; x < 100; ++x)
            ASSERT_TRUE(pixelOf(image, x, y).alpha == 0 || pixelOf(image, x, y).alpha == 255);
}

TEST(GlyphMasks, ATranslucentColourCoversEachPixelOnce) {
    const auto image = picture({100, 40}, 1, [] {
        UIColor::colorWithRed_green_blue_alpha(0, 0, 0, 0.5)->setFill();
        drawAtPoint_withFont("بيبيب", {4, 4}, UIFont::systemFontOfSize(24)); // joined letters lie upon one another
    });
    int most = 0;
    for (NSUInteger y = 0; y < 40; ++y)
        for (NSUInteger x = 0; x < 100; ++x)
            most = std::max<int>(most, pixelOf(image, x, y).alpha);
    EXPECT_NEAR(most, 128, 1);
}

} // namespace
} // namespace zr
