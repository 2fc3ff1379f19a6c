#include <Tests/ZRPlatform/UIKit/Text/TextPicture.h>

#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <cmath>

namespace zr {
namespace {

using namespace tests;

Ref<UIFont> font20() { return UIFont::systemFontOfSize(20); }

Ref<UIImage> drawn(const NSString& text, NSLineBreakMode mode = NSLineBreakByWordWrapping,
                   NSTextAlignment alignment = NSTextAlignmentLeft, CGSize size = {160, 60}) {
    return picture(size, 2, [&] {
        UIColor::blackColor()->setFill();
        drawInRect_withFont_lineBreakMode_alignment(text, {{0, 0}, size}, font20(), mode, alignment);
    });
}

TEST(TextDrawing, CapitalsStandOnTheBaselineAsHighAsTheFontSays) {
    const InkBox ink = inkOf(drawn("H"));
    EXPECT_EQ(ink.bottom, std::floor(font20()->ascender() * 2 + 0.5));
    EXPECT_NEAR(ink.height(), font20()->capHeight() * 2, 1);
}

TEST(TextDrawing, UsesTheFillColour) {
    const auto image = picture({60, 30}, 2, [] {
        UIColor::redColor()->setFill();
        drawAtPoint_withFont("■", {0, 0}, font20());
    });
    const InkBox ink = inkOf(image);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_EQ(pixelOf(image, static_cast<NSUInteger>(ink.left + ink.right) / 2,
                      static_cast<NSUInteger>(ink.top + ink.bottom) / 2),
              kRed);
}

TEST(TextDrawing, EmojiKeepTheirColours) {
    EXPECT_EQ(colouredPixels(drawn("Latin")), 0);
    EXPECT_GT(colouredPixels(drawn("😀")), 400);
}

TEST(TextDrawing, AlignmentMovesTheInk) {
    const InkBox left = inkOf(drawn("HH", NSLineBreakByWordWrapping, NSTextAlignmentLeft));
    const InkBox center = inkOf(drawn("HH", NSLineBreakByWordWrapping, NSTextAlignmentCenter));
    const InkBox right = inkOf(drawn("HH", NSLineBreakByWordWrapping, NSTextAlignmentRight));
    EXPECT_LT(left.left, 6);
    EXPECT_NEAR(center.left, 320 - center.right, 2);
    EXPECT_GT(right.right, 320 - 6);
    EXPECT_NEAR(left.width(), right.width(), 1);
}

TEST(TextDrawing, EachTruncationDrawsTheEndsItKeeps) {
    const NSString text = "iiiiiiiiiiiiiiiiiiiiiiiiiiiiiiMMMMMMMMMMMMMMMMMMM";
    // The picture of a text that was shortened by hand.
    const auto width = [](const NSString& line) { return sizeWithFont(line, font20()).width; };
    const CGSize room{width("iiiii…MMM") + 2, 30};
    const auto narrow = [&](const NSString& line, NSLineBreakMode mode) {
        return drawn(line, mode, NSTextAlignmentLeft, room);
    };
    const auto head = narrow(text, NSLineBreakByTruncatingHead);
    const auto tail = narrow(text, NSLineBreakByTruncatingTail);
    const auto middle = narrow(text, NSLineBreakByTruncatingMiddle);
    const auto clipped = narrow(text, NSLineBreakByClipping);
    for (const auto& image : {head, tail, middle})
        EXPECT_LE(inkOf(image).right, room.width * 2);
    const NSUInteger baseline = static_cast<NSUInteger>(std::floor(font20()->ascender() * 2 + 0.5));
    // Half way up, dots of an ellipsis are not to be seen, and stems are.
    const auto stemsAt = [&](const UIImage* image, CGFloat from, CGFloat to) {
        int count = 0;
        for (NSUInteger x = static_cast<NSUInteger>(from * 2); x < static_cast<NSUInteger>(to * 2); ++x)
            count += pixelOf(image, x, baseline - 12).alpha > 128 ? 1 : 0;
        return count;
    };
    const CGFloat dots = width("…") - 1;
    EXPECT_EQ(stemsAt(head, 0, dots), 0);
    EXPECT_GT(stemsAt(head, room.width - 20, room.width), 0);
    EXPECT_GT(stemsAt(tail, 0, dots), 0);
    const CGFloat tailEnd = inkOf(tail).right / 2.0;
    EXPECT_EQ(stemsAt(tail, tailEnd - dots + 3, room.width), 0);
    EXPECT_GT(stemsAt(middle, 0, 8), 0);
    EXPECT_GT(stemsAt(middle, room.width - 20, room.width), 0);
    EXPECT_FALSE(samePixels(middle, clipped));
}

TEST(TextDrawing, ArabicIsDrawnFromTheRight) {
    // A wide letter after a narrow one stands to its left.
    const InkBox both = inkOf(drawn("اب"));
    const InkBox first = inkOf(drawn("ا"));
    EXPECT_GT(both.width(), first.width() * 2);
    const auto image = drawn("اب");
    int rightmostHeight = 0;
    for (NSUInteger y = 0; y < 120; ++y)
        rightmostHeight += pixelOf(image, static_cast<NSUInteger>(both.right - first.width()), y).alpha > 128 ? 1 : 0;
    EXPECT_GT(rightmostHeight, first.height() / 2);
}

TEST(TextDrawing, BrokenBytesDrawTheReplacementCharacter) {
    EXPECT_TRUE(samePixels(drawn("\xff"), drawn("\uFFFD")));
    EXPECT_FALSE(inkOf(drawn("\xff")).isEmpty());
}

TEST(TextDrawing, LinesBelowTheRectangleAreLeftOut) {
    const NSString text = "HHH\nHHH\nHHH";
    const CGFloat line = font20()->lineHeight();
    const InkBox two = inkOf(drawn(text, NSLineBreakByWordWrapping, NSTextAlignmentLeft, {100, line * 2.9}));
    EXPECT_NEAR(two.bottom, (line + font20()->ascender()) * 2, 1);
}

TEST(TextDrawing, ReturnsTheSizeDrawn) {
    picture({100, 100}, 1, [] {
        EXPECT_EQ(drawAtPoint_withFont("word", {10, 10}, font20()), sizeWithFont("word", font20()));
        EXPECT_EQ(drawInRect_withFont("a few more words", {{0, 0}, {60, 90}}, font20()),
                  sizeWithFont_constrainedToSize("a few more words", font20(), {60, 90}));
        EXPECT_EQ(drawInRect_withFont("word", {{0, 0}, {0, 90}}, font20()), CGSizeZero);
    });
}

TEST(TextDrawing, WithoutAContextOrAFinitePlaceNothingHappens) {
    drawAtPoint_withFont("word", {0, 0}, font20());
    const auto image = picture({50, 50}, 1, [] {
        UIColor::blackColor()->setFill();
        drawAtPoint_withFont("word", {std::nan(""), 0}, font20());
        drawInRect_withFont("word", {{0, std::nan("")}, {50, 50}}, font20());
    });
    EXPECT_TRUE(inkOf(image).isEmpty());
}

TEST(TextDrawing, TheSameTextIsAsWideOnEveryScreen) {
    const auto inkWidth = [](CGFloat scale) {
        const auto image = picture({200, 40}, scale, [] {
            UIColor::blackColor()->setFill();
            drawAtPoint_withFont("HamburgefontsivH", {0, 0}, font20());
        });
        return inkOf(image).width() / scale;
    };
    EXPECT_NEAR(inkWidth(1), inkWidth(4), 1.5);
    EXPECT_NEAR(inkWidth(2), inkWidth(4), 0.75);
}

} // namespace
} // namespace zr
