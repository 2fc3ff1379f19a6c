#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>
#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>
#include <vector>

namespace zr {
namespace {

constexpr CGFloat kUnlimited = TextRequest::unlimited;
const char* const kSentence = "It will be removed from all of your devices, and from everybody else's as well.";

Ref<UIFont> font17() { return UIFont::systemFontOfSize(17); }

CGFloat exactWidth(const NSString& text, UIFont* font) {
    TextRequest request{text, font};
    return TextEngine::current().layout(request)->size().width;
}

TEST(TextMeasuring, AWidthIsTheSumOfTheAdvances) {
    const auto font = font17();
    EXPECT_NEAR(exactWidth("HHHHHHHH", font), 8 * exactWidth("H", font), 0.01);
    EXPECT_NEAR(exactWidth("HnHn", font), 2 * exactWidth("H", font) + 2 * exactWidth("n", font), 0.01);
}

TEST(TextMeasuring, AWidthGrowsInProportionToTheSize) {
    const CGFloat large = exactWidth(kSentence, UIFont::systemFontOfSize(1000));
    for (const CGFloat size : {9.0, 12.0, 14.5, 17.0, 40.0})
        EXPECT_NEAR(exactWidth(kSentence, UIFont::systemFontOfSize(size)), large * size / 1000, 0.1) << size;
}

TEST(TextMeasuring, BoldIsWiderThanRegular) {
    EXPECT_GT(exactWidth(kSentence, UIFont::boldSystemFontOfSize(17)), exactWidth(kSentence, font17()));
}

TEST(TextMeasuring, OneLineIsRoundedUpToWholePoints) {
    const CGSize size = sizeWithFont(kSentence, font17());
    EXPECT_EQ(size.width, std::ceil(exactWidth(kSentence, font17())));
    EXPECT_EQ(size.height, std::ceil(font17()->lineHeight()));
}

TEST(TextMeasuring, OneLineEndsAtTheFirstLineBreak) {
    EXPECT_EQ(sizeWithFont("one\nand much more", font17()), sizeWithFont("one", font17()));
}

TEST(TextMeasuring, NothingHasNoSize) {
    EXPECT_EQ(sizeWithFont("", font17()), CGSizeZero);
    EXPECT_EQ(sizeWithFont(nullptr, font17()), CGSizeZero);
    EXPECT_EQ(sizeWithFont("text", nullptr), CGSizeZero);
    EXPECT_EQ(sizeWithFont("text", UIFont::systemFontOfSize(0)), CGSizeZero);
    const CGFloat nan = std::nan("");
    for (const CGSize box :
         {CGSizeMake(0, 100), CGSizeMake(100, 0), CGSizeMake(-5, 100), CGSizeMake(nan, 100), CGSizeMake(100, nan)})
        EXPECT_EQ(sizeWithFont_constrainedToSize("text", font17(), box), CGSizeZero);
}

TEST(TextMeasuring, WrappedTextTakesWholeLinesWithinTheWidth) {
    const auto font = font17();
    const CGSize wrapped = sizeWithFont_constrainedToSize(kSentence, font, {200, kUnlimited});
    const CGFloat lines = std::floor(wrapped.height / font->lineHeight());
    EXPECT_LE(wrapped.width, 200);
    EXPECT_GE(lines, std::ceil(exactWidth(kSentence, font) / 200));
    EXPECT_EQ(wrapped.height, std::ceil(lines * font->lineHeight()));
}

TEST(TextMeasuring, TheMeasuredSizeIsLargeEnoughForTheText) {
    const auto font = font17();
    for (CGFloat width = 60; width < 400; width += 13) {
        const CGSize size = sizeWithFont_constrainedToSize(kSentence, font, {width, kUnlimited});
        EXPECT_EQ(sizeWithFont_constrainedToSize(kSentence, font, size), size) << width;
        TextRequest request{kSentence, font, size.width, size.height};
        EXPECT_FALSE(TextEngine::current().layout(request)->isTruncated()) << width;
    }
}

TEST(TextMeasuring, OnlyLinesThatFitTheHeightWholeCount) {
    const auto font = font17();
    const CGFloat line = font->lineHeight();
    const CGSize size = sizeWithFont_constrainedToSize(kSentence, font, {100, 2.9 * line});
    EXPECT_EQ(size.height, std::ceil(2 * line));
}

TEST(TextMeasuring, ABoxLowerThanALineIsFilledAndNeverExceeded) {
    EXPECT_EQ(sizeWithFont_constrainedToSize(kSentence, font17(), {100, 7.5}).height, 7.5);
    EXPECT_EQ(sizeWithFont_constrainedToSize("WWWWWWWW", font17(), {3.25, kUnlimited}).width, 3.25);
}

TEST(TextMeasuring, ATruncatedTextIsNoWiderThanTheBox) {
    for (const NSLineBreakMode mode : {NSLineBreakByClipping, NSLineBreakByTruncatingHead, NSLineBreakByTruncatingTail,
                                       NSLineBreakByTruncatingMiddle}) {
        const CGSize size = sizeWithFont_constrainedToSize_lineBreakMode(kSentence, font17(), {120, 25}, mode);
        EXPECT_LE(size.width, 120) << mode;
        EXPECT_GT(size.width, 90) << mode;
        EXPECT_EQ(size.height, 21) << mode;
    }
}

TEST(TextMeasuring, ChineseAndEmojiLinesAreAsHighAsLatinOnes) {
    const CGFloat height = sizeWithFont("Latin", font17()).height;
    EXPECT_EQ(sizeWithFont("删除照片", font17()).height, height);
    EXPECT_EQ(sizeWithFont("😀👍🏽", font17()).height, height);
}

TEST(TextMeasuring, AnyThreadMayMeasure) {
    const auto font = font17();
    const CGSize expected = sizeWithFont_constrainedToSize(kSentence, font, {150, kUnlimited});
    std::vector<CGSize> measured(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < measured.size(); ++i) {
        threads.emplace_back([&, i] {
            for (int k = 0; k < 50; ++k) {
                sizeWithFont_constrainedToSize(NSString::stringWithFormat("%zu %d", i, k), font, {150, kUnlimited});
                measured[i] = sizeWithFont_constrainedToSize(kSentence, font, {150, kUnlimited});
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const CGSize& size : measured)
        EXPECT_EQ(size, expected);
}

} // namespace
} // namespace zr
