#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zr {
namespace {

using Layout = std::shared_ptr<const TextLayout>;

Ref<UIFont> font17() { return UIFont::systemFontOfSize(17); }
Layout layOut(const TextRequest& request) { return TextEngine::current().layout(request); }
Layout layOut(const NSString& text, CGFloat width = TextRequest::unlimited) { return layOut({text, font17(), width}); }
CGFloat widthOf(const NSString& text) { return layOut(text)->size().width; }

/// What each line shows.
std::vector<NSString> linesOf(const NSString& text, const Layout& layout) {
    std::vector<NSString> lines;
    for (const TextLine& line : layout->lines())
        lines.push_back(text.substringWithRange(line.range));
    return lines;
}

TEST(TextLayout, LinesBreakBetweenWords) {
    const NSString text = "alpha beta gamma";
    const Layout layout = layOut(text, widthOf("alpha beta") + 2);
    EXPECT_EQ(linesOf(text, layout), (std::vector<NSString>{"alpha beta ", "gamma"}));
    EXPECT_NEAR(layout->lines()[0].width, widthOf("alpha beta"), 0.01);
    EXPECT_FALSE(layout->isTruncated());
}

TEST(TextLayout, AWordLongerThanTheLineBreaksByCharacter) {
    const NSString text = "mmmmmmmm";
    const Layout layout = layOut(text, widthOf("mmm") + 1);
    EXPECT_EQ(linesOf(text, layout), (std::vector<NSString>{"mmm", "mmm", "mm"}));
}

TEST(TextLayout, CharacterWrappingBreaksInsideWords) {
    TextRequest request{"ab mmmm", font17(), widthOf("ab mm") + 1};
    request.lineBreakMode = NSLineBreakByCharWrapping;
    EXPECT_EQ(linesOf(request.text, layOut(request)), (std::vector<NSString>{"ab mm", "mm"}));
    request.lineBreakMode = NSLineBreakByWordWrapping;
    EXPECT_EQ(linesOf(request.text, layOut(request)).front(), "ab ");
}

TEST(TextLayout, ChineseBreaksBetweenCharacters) {
    const NSString text = "删除照片";
    EXPECT_EQ(linesOf(text, layOut(text, widthOf("删除") + 1)), (std::vector<NSString>{"删除", "照片"}));
}

TEST(TextLayout, LinesLieOneLineHeightApart) {
    const Layout layout = layOut("one\n删除\n😀\nfour");
    ASSERT_EQ(layout->lines().size(), 4u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(layout->lines()[i].baseline,
                    font17()->ascender() + static_cast<CGFloat>(i) * font17()->lineHeight(), 1e-9);
}

TEST(TextLayout, ALineGrowsForGlyphsOfAnotherFontThatReachFurther) {
    const TextLine plain = layOut("x")->lines().front();
    const TextLine taller = layOut("عالم")->lines().front();
    EXPECT_GT(taller.ascent + taller.descent, plain.ascent + plain.descent + 1);
}

TEST(TextLayout, ALineLimitTruncatesTheLastLine) {
    const NSString text = "alpha beta gamma delta epsilon";
    TextRequest request{text, font17(), widthOf("alpha beta") + 2};
    request.lineLimit = 2;
    request.lineBreakMode = NSLineBreakByTruncatingTail;
    const Layout layout = layOut(request);
    ASSERT_EQ(layout->lines().size(), 2u);
    EXPECT_TRUE(layout->isTruncated());
    EXPECT_EQ(layout->lines()[1].range, NSMakeRange(11, text.length() - 11));
    EXPECT_LE(layout->lines()[1].width, request.width);
}

TEST(TextLayout, OfALineFarLongerThanTheRoomOnlyTheBeginningIsShaped) {
    // The cut comes in the middle of a character of three bytes.
    std::string text = "ab";
    while (text.size() < 1 << 20)
        text += "删";
    TextRequest request{text, font17(), 1000};
    request.lineLimit = 1;
    request.lineBreakMode = NSLineBreakByClipping;
    const Layout clipped = layOut(request);
    EXPECT_TRUE(clipped->isTruncated());
    EXPECT_GT(clipped->size().width, 5000 * 17);
    EXPECT_LT(clipped->size().width, 6000 * 17);
    request.lineBreakMode = NSLineBreakByTruncatingTail;
    const Layout truncated = layOut(request);
    EXPECT_TRUE(truncated->isTruncated());
    EXPECT_EQ(truncated->lines().front().range, NSMakeRange(0, request.text.length()));
    EXPECT_LE(truncated->size().width, 1000);
    EXPECT_GT(truncated->size().width, 950);
}

TEST(TextLayout, OfALineCutAtItsHeadOrInItsMiddleTheEndsThatShowAreKept) {
    std::string text(100'000, 'x');
    text.replace(0, 5, "Begin").replace(text.size() - 3, 3, "End");
    TextRequest request{text, font17(), 120};
    request.lineLimit = 1;
    const auto widthWith = [&](NSLineBreakMode mode, const std::string& whole) {
        request.lineBreakMode = mode;
        request.text = whole;
        return layOut(request)->size().width;
    };
    // As the same ends of a line that is short enough to be taken whole.
    const std::string shorter = text.substr(0, 2000) + text.substr(text.size() - 2000);
    for (const NSLineBreakMode mode :
         {NSLineBreakByTruncatingHead, NSLineBreakByTruncatingMiddle, NSLineBreakByTruncatingTail}) {
        EXPECT_EQ(widthWith(mode, text), widthWith(mode, shorter)) << mode;
        EXPECT_NE(widthWith(mode, text), widthWith(mode, std::string(100'000, 'x'))) << mode;
        EXPECT_TRUE(layOut(request)->isTruncated());
    }
}

TEST(TextLayout, OfATextOfFarMoreLinesThanTheRoomOnlyTheFirstAreBroken) {
    std::string words, chinese;
    while (words.size() < 1 << 20)
        words += "alpha beta gamma delta epsilon\n zeta ";
    while (chinese.size() < 1 << 20)
        chinese += "删除";
    for (const std::string& text : {words, chinese, std::string(1 << 20, 'x')}) {
        for (const NSUInteger count : {1, 2, 200}) {
            // As of a text that is taken whole, of so many lines without a limit.
            TextRequest request{text.substr(0, 6000), font17(), 120};
            const std::vector<TextLine> all = layOut(request)->lines();
            ASSERT_GT(all.size(), count + 2);
            request.text = text;
            request.lineLimit = count;
            const Layout limited = layOut(request);
            EXPECT_TRUE(limited->isTruncated());
            EXPECT_EQ(limited->lines(), std::vector<TextLine>(all.begin(), all.begin() + std::ptrdiff_t(count)));
            request.lineLimit = 0;
            request.height = all[count - 1].bottom() + 1;
            EXPECT_EQ(layOut(request)->lines(), limited->lines());
        }
    }
}

TEST(TextLayout, ALineLimitLargerThanTheTextChangesNothing) {
    TextRequest request{"alpha beta gamma", font17(), 60};
    const Layout all = layOut(request);
    request.lineLimit = 127;
    request.lineBreakMode = NSLineBreakByTruncatingTail;
    EXPECT_EQ(layOut(request)->lines(), all->lines());
    EXPECT_FALSE(layOut(request)->isTruncated());
}

TEST(TextLayout, AHeightLimitKeepsWholeLinesButAlwaysTheFirst) {
    TextRequest request{"one\ntwo\nthree", font17(), 100, font17()->lineHeight() * 2.5};
    EXPECT_EQ(layOut(request)->lines().size(), 2u);
    EXPECT_TRUE(layOut(request)->isTruncated());
    request.height = 1;
    EXPECT_EQ(layOut(request)->lines().size(), 1u);
}

TEST(TextLayout, ATextOfMoreParagraphsThanLinesEndsInAnEllipsis) {
    TextRequest request{"one\ntwo", font17(), 300};
    request.lineLimit = 1;
    request.lineBreakMode = NSLineBreakByTruncatingTail;
    EXPECT_TRUE(layOut(request)->isTruncated());
    EXPECT_NEAR(layOut(request)->size().width, widthOf("one…"), 0.01);
}

TEST(TextLayout, AnEllipsisTakesOnlyItsOwnWidth) {
    TextRequest request{"mmmmmmmmmmmm", font17(), 100};
    request.lineLimit = 1;
    for (const NSLineBreakMode mode :
         {NSLineBreakByTruncatingHead, NSLineBreakByTruncatingTail, NSLineBreakByTruncatingMiddle}) {
        request.lineBreakMode = mode;
        const CGFloat letters = (layOut(request)->size().width - widthOf("…")) / widthOf("m");
        EXPECT_NEAR(letters, std::round(letters), 0.1) << mode;
        EXPECT_GE(letters, 3) << mode;
    }
}

TEST(TextLayout, AlignmentPlacesLinesInTheWidth) {
    TextRequest request{"abc", font17(), 200};
    const CGFloat space = 200 - widthOf("abc");
    const std::pair<NSTextAlignment, CGFloat> cases[] = {{NSTextAlignmentLeft, 0},
                                                         {NSTextAlignmentCenter, space / 2},
                                                         {NSTextAlignmentRight, space},
                                                         {NSTextAlignmentJustified, 0},
                                                         {NSTextAlignmentNatural, 0}};
    for (const auto& [alignment, x] : cases) {
        request.alignment = alignment;
        EXPECT_NEAR(layOut(request)->lines()[0].x, x, 1e-9) << alignment;
    }
}

TEST(TextLayout, NaturalAlignmentPutsArabicAtTheRightAndLeftDoesNot) {
    TextRequest request{"مرحبا", font17(), 200};
    request.alignment = NSTextAlignmentNatural;
    EXPECT_NEAR(layOut(request)->lines()[0].x, 200 - widthOf("مرحبا"), 1e-9);
    request.alignment = NSTextAlignmentLeft;
    EXPECT_EQ(layOut(request)->lines()[0].x, 0);
}

TEST(TextLayout, JustifiedLinesButTheLastFillTheWidth) {
    TextRequest request{"alpha beta gamma delta", font17(), widthOf("alpha beta") + 20};
    request.alignment = NSTextAlignmentJustified;
    const auto& lines = layOut(request)->lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].width, request.width, 0.1);
    EXPECT_LT(lines[1].width, request.width);
}

TEST(TextLayout, CaretsGoRightInLatinAndLeftInArabic) {
    const Layout latin = layOut("abc");
    const Layout arabic = layOut("אבג");
    for (NSUInteger i = 0; i < 3; ++i) {
        EXPECT_LT(latin->caretRect(i).origin.x, latin->caretRect(i + 1).origin.x);
        EXPECT_GT(arabic->caretRect(i).origin.x, arabic->caretRect(i + 1).origin.x);
    }
    EXPECT_EQ(latin->caretRect(0).origin.x, 0);
    EXPECT_NEAR(latin->caretRect(3).origin.x, widthOf("abc"), 0.01);
    EXPECT_EQ(arabic->caretRect(3).origin.x, 0);
    EXPECT_EQ(latin->caretRect(99), latin->caretRect(3));
}

TEST(TextLayout, APointFindsTheNearestCaretPosition) {
    const Layout layout = layOut("HHHH\nHH");
    const CGFloat letter = widthOf("H");
    const CGFloat line = font17()->lineHeight();
    EXPECT_EQ(layout->indexAtPoint({-10, 5}), 0u);
    EXPECT_EQ(layout->indexAtPoint({letter * 1.4, 5}), 1u);
    EXPECT_EQ(layout->indexAtPoint({letter * 1.6, 5}), 2u);
    EXPECT_EQ(layout->indexAtPoint({1000, 5}), 4u);
    EXPECT_EQ(layout->indexAtPoint({letter * 0.9, line * 1.5}), 6u);
    EXPECT_EQ(layout->indexAtPoint({1000, 1000}), 7u);
    EXPECT_EQ(layout->characterAtPoint({letter * 1.6, 5}), 1u);
}

TEST(TextLayout, CaretPositionsKeepClustersWhole) {
    EXPECT_EQ(TextEngine::current().caretPositions("ae\u0301x"), (std::vector<NSUInteger>{0, 1, 3, 4}));
    EXPECT_EQ(TextEngine::current().caretPositions("👍🏽!"), (std::vector<NSUInteger>{0, 4, 5}));
    EXPECT_EQ(TextEngine::current().caretPositions("👨‍👩‍👧"), (std::vector<NSUInteger>{0, 8}));
    EXPECT_EQ(TextEngine::current().caretPositions(""), (std::vector<NSUInteger>{0}));
    const Layout layout = layOut("a👍🏽b");
    EXPECT_EQ(layout->nextIndex(1), 5u);
    EXPECT_EQ(layout->previousIndex(5), 1u);
    EXPECT_EQ(layout->nextIndex(6), 6u);
    EXPECT_EQ(layout->previousIndex(0), 0u);
}

TEST(TextLayout, ArrowsFollowTheEyeInBothDirections) {
    const Layout latin = layOut("ab");
    EXPECT_EQ(latin->indexRightOf(0), 1u);
    EXPECT_EQ(latin->indexLeftOf(1), 0u);
    EXPECT_EQ(latin->indexLeftOf(0), 0u);
    EXPECT_EQ(latin->indexRightOf(2), 2u);
    const Layout hebrew = layOut("אבג");
    EXPECT_EQ(hebrew->indexLeftOf(0), 1u);
    EXPECT_EQ(hebrew->indexRightOf(1), 0u);
}

TEST(TextLayout, SelectionRectsCoverWhatIsSelectedOnEveryLine) {
    const Layout layout = layOut("HHHH\nHHHH");
    const auto rects = layout->selectionRects({2, 5});
    const CGFloat letter = widthOf("H");
    ASSERT_EQ(rects.size(), 2u);
    EXPECT_NEAR(rects[0].origin.x, 2 * letter, 0.01);
    EXPECT_NEAR(rects[0].size.width, 2 * letter, 0.01);
    EXPECT_NEAR(rects[1].origin.x, 0, 0.01);
    EXPECT_NEAR(rects[1].size.width, 2 * letter, 0.01);
    EXPECT_NEAR(rects[1].origin.y, font17()->lineHeight(), 0.01);
    EXPECT_TRUE(layout->selectionRects({3, 0}).empty());
}

TEST(TextLayout, ASelectionAcrossDirectionsHasSeveralRects) {
    EXPECT_EQ(layOut("abc אבג")->selectionRects({2, 4}).size(), 2u);
}

TEST(TextLayout, WordsAreFoundAroundAnIndex) {
    const Layout layout = layOut("Hello,  wide world");
    EXPECT_EQ(layout->wordAtIndex(2), NSMakeRange(0, 5));
    EXPECT_EQ(layout->wordAtIndex(0), NSMakeRange(0, 5));
    EXPECT_EQ(layout->wordAtIndex(5), NSMakeRange(5, 1));
    EXPECT_EQ(layout->wordAtIndex(6), NSMakeRange(6, 2));
    EXPECT_EQ(layout->wordAtIndex(7), NSMakeRange(6, 2));
    EXPECT_EQ(layout->wordAtIndex(9), NSMakeRange(8, 4));
    EXPECT_EQ(layout->wordAtIndex(99), NSMakeRange(13, 5));
}

TEST(TextLayout, AComposedEmojiIsFoundWholeFromEachOfItsParts) {
    const Layout layout = layOut("a 👍🏽 b");
    for (NSUInteger index = 2; index < 6; ++index)
        EXPECT_EQ(layout->wordAtIndex(index), NSMakeRange(2, 4)) << index;
}

TEST(TextLayout, CaretsStandInTheLineOfTheirCharacter) {
    const Layout paragraphs = layOut("ab\ncd");
    ASSERT_EQ(paragraphs->lines().size(), 2u);
    const CGFloat first = paragraphs->lines()[0].top(), second = paragraphs->lines()[1].top();
    EXPECT_EQ(paragraphs->caretRect(0).origin, CGPointMake(0, first));
    EXPECT_EQ(paragraphs->caretRect(2).origin.y, first);
    EXPECT_NEAR(paragraphs->caretRect(2).origin.x, widthOf("ab"), 0.01);
    EXPECT_EQ(paragraphs->caretRect(3).origin, CGPointMake(0, second));
    EXPECT_NEAR(paragraphs->caretRect(4).origin.x, widthOf("c"), 0.01);
    EXPECT_EQ(paragraphs->caretRect(99).origin.y, second);

    const Layout wrapped = layOut("alpha beta gamma", widthOf("alpha beta") + 2);
    ASSERT_EQ(wrapped->lines().size(), 2u);
    EXPECT_EQ(wrapped->caretRect(10).origin.y, wrapped->lines()[0].top());
    EXPECT_EQ(wrapped->caretRect(11).origin, CGPointMake(0, wrapped->lines()[1].top()));
}

TEST(TextLayout, ZeroBytesAndBrokenTextShowReplacementCharacters) {
    EXPECT_NEAR(widthOf("a\xffz"), widthOf("a\uFFFDz"), 0.01);
    EXPECT_NEAR(widthOf(std::string_view("a\0z", 3)), widthOf("a\uFFFDz"), 0.01);
    EXPECT_GT(widthOf("\xff"), 5);
}

TEST(TextLayout, ALayoutAskedForAgainIsTheSameObject) {
    const TextRequest request{"remembered", font17(), 123};
    const Layout first = layOut(request);
    EXPECT_EQ(layOut({"remembered", UIFont::systemFontOfSize(17), 123}), first);
    EXPECT_NE(layOut({"remembered", UIFont::systemFontOfSize(18), 123}), first);
    EXPECT_NE(layOut({"remembered", font17(), 124}), first);
}

TEST(TextLayout, OnlySoManyLayoutsAreRemembered) {
    const TextRequest request{"soon forgotten", font17()};
    const std::weak_ptr<const TextLayout> first = layOut(request);
    EXPECT_FALSE(first.expired());
    for (int i = 0; i < 300; ++i)
        layOut(NSString::stringWithFormat("filler %d", i));
    EXPECT_TRUE(first.expired());
}

TEST(TextLayout, AnEmptyLayoutHasACaretOfTheFontsHeight) {
    const Layout layout = layOut("");
    EXPECT_TRUE(layout->lines().empty());
    EXPECT_EQ(layout->caretRect(0), CGRectMake(0, 0, 0, font17()->lineHeight()));
    EXPECT_EQ(layout->indexAtPoint({5, 5}), 0u);
    EXPECT_EQ(layout->wordAtIndex(3), NSMakeRange(0, 0));
}

} // namespace
} // namespace zr
