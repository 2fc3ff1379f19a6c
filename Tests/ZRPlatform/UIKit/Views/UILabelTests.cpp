#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>
#include <Tests/ZRPlatform/UIKit/Text/TextPicture.h>

#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <cmath>

namespace zr {
namespace {

using namespace tests;

Ref<UILabel> label(const NSString& text, CGSize size = {200, 40}) {
    auto made = make<UILabel>(&UIView::initWithFrame, CGRectMake(0, 0, size.width, size.height));
    made->setText(text);
    return made;
}

Ref<UIImage> drawn(UILabel* label, CGFloat scale = 2) {
    return picture(label->bounds().size, scale, [&] { label->drawRect(label->bounds()); });
}

TEST(UILabel, StartsAsOneLeftAlignedBlackLineThatTakesNoTouches) {
    const auto made = label(nullptr);
    EXPECT_TRUE(made->text().isNil());
    EXPECT_TRUE(made->font()->isEqual(UIFont::systemFontOfSize(17)));
    EXPECT_TRUE(made->textColor()->isEqual(UIColor::blackColor()));
    EXPECT_EQ(made->textAlignment(), NSTextAlignmentLeft);
    EXPECT_EQ(made->lineBreakMode(), NSLineBreakByTruncatingTail);
    EXPECT_EQ(made->numberOfLines(), 1);
    EXPECT_EQ(made->contentMode(), UIViewContentModeRedraw);
    EXPECT_TRUE(made->isEnabled());
    EXPECT_FALSE(made->isUserInteractionEnabled());
    EXPECT_FALSE(made->isOpaque());
    EXPECT_TRUE(inkOf(drawn(made)).isEmpty());
}

TEST(UILabel, NilFontAndColourBringTheDefaultsBack) {
    const auto made = label("x");
    made->setFont(UIFont::boldSystemFontOfSize(30));
    made->setFont(nullptr);
    made->setTextColor(UIColor::redColor());
    made->setTextColor(nullptr);
    EXPECT_TRUE(made->font()->isEqual(UIFont::systemFontOfSize(17)));
    EXPECT_TRUE(made->textColor()->isEqual(UIColor::blackColor()));
}

TEST(UILabel, TextStandsInTheMiddleOfTheHeight) {
    const auto made = label("H", {40, 60});
    const UIFont* font = made->font();
    const CGFloat baseline = (60 - font->lineHeight()) / 2 + font->ascender();
    EXPECT_EQ(inkOf(drawn(made)).bottom, std::floor(baseline * 2 + 0.5));
}

TEST(UILabel, CentredTextStandsInTheMiddleOfTheWidth) {
    const auto made = label("HH");
    made->setTextAlignment(NSTextAlignmentCenter);
    const InkBox ink = inkOf(drawn(made));
    EXPECT_NEAR(ink.left, 400 - ink.right, 2);
}

TEST(UILabel, DrawsInItsColourAndInAnotherWhileHighlighted) {
    const auto made = label("■");
    made->setFont(UIFont::systemFontOfSize(30));
    const auto middle = [&] {
        const auto image = drawn(made);
        const InkBox ink = inkOf(image);
        return pixelOf(image, static_cast<NSUInteger>(ink.left + ink.right) / 2,
                       static_cast<NSUInteger>(ink.top + ink.bottom) / 2);
    };
    made->setTextColor(UIColor::redColor());
    EXPECT_EQ(middle(), kRed);
    made->setHighlighted(true);
    EXPECT_EQ(middle(), kRed);
    made->setHighlightedTextColor(UIColor::blueColor());
    EXPECT_EQ(middle(), kBlue);
    made->setHighlighted(false);
    EXPECT_EQ(middle(), kRed);
}

TEST(UILabel, ADisabledLabelIsDimmed) {
    const auto made = label("■");
    made->setFont(UIFont::systemFontOfSize(30));
    const InkBox ink = inkOf(drawn(made));
    made->setEnabled(false);
    const Pixel pixel = pixelOf(drawn(made), static_cast<NSUInteger>(ink.left + ink.right) / 2,
                                static_cast<NSUInteger>(ink.top + ink.bottom) / 2);
    EXPECT_NEAR(pixel.alpha, 128, 1);
}

TEST(UILabel, TheShadowLiesAtItsOffset) {
    const auto made = label("H", {60, 60});
    const InkBox plain = inkOf(drawn(made));
    made->setShadowColor(UIColor::blackColor());
    made->setShadowOffset({5, 7});
    const InkBox shaded = inkOf(drawn(made));
    EXPECT_EQ(shaded.left, plain.left);
    EXPECT_EQ(shaded.right, plain.right + 10);
    EXPECT_EQ(shaded.bottom, plain.bottom + 14);
}

TEST(UILabel, OneLineNeedsItsWholeWidthAndSeveralWrap) {
    const NSString text = "Some words that are wider than a narrow column";
    const auto made = label(text);
    EXPECT_EQ(made->sizeThatFits({50, 10}), sizeWithFont(text, made->font()));
    made->setNumberOfLines(0);
    EXPECT_EQ(made->sizeThatFits({100, 10}), sizeWithFont_constrainedToSize(text, made->font(), {100, 10000}));
    made->setNumberOfLines(2);
    EXPECT_EQ(made->sizeThatFits({100, 10}).height, std::ceil(2 * made->font()->lineHeight()));
    made->setPreferredMaxLayoutWidth(120);
    EXPECT_EQ(made->sizeThatFits({0, 0}), made->sizeThatFits({120, 0}));
}

TEST(UILabel, SizeToFitFitsTheText) {
    const auto made = label("Fitting");
    made->sizeToFit();
    EXPECT_EQ(made->bounds().size, sizeWithFont("Fitting", made->font()));
}

TEST(UILabel, TextRectIsTheRoomTheTextTakes) {
    const auto made = label("Some words that wrap");
    const CGRect rect = made->textRectForBounds_limitedToNumberOfLines(CGRectMake(10, 20, 120, 500), 1);
    EXPECT_EQ(rect.origin, CGPointMake(10, 20));
    EXPECT_LE(rect.size.width, 120);
    EXPECT_EQ(rect.size.height, 21);
    EXPECT_EQ(made->textRectForBounds_limitedToNumberOfLines(CGRectMake(10, 20, 120, 500), 0).size.height, 42);
}

TEST(UILabel, MoreLinesAreDrawnThanOne) {
    const auto made = label("HHH HHH HHH", {50, 80});
    made->setNumberOfLines(127);
    const InkBox three = inkOf(drawn(made));
    EXPECT_NEAR(three.height(), (2 * made->font()->lineHeight() + made->font()->capHeight()) * 2, 2);
    made->setNumberOfLines(1);
    EXPECT_LT(inkOf(drawn(made)).height(), made->font()->lineHeight() * 2);
}

TEST(UILabel, ShrinkingFitsTheTextIntoTheWidth) {
    const auto made = label("Wider than its label", {90, 30});
    made->setLineBreakMode(NSLineBreakByClipping);
    const int full = inkOf(drawn(made)).height();
    made->setAdjustsFontSizeToFitWidth(true);
    const InkBox shrunk = inkOf(drawn(made));
    EXPECT_LE(shrunk.right, 180);
    EXPECT_GT(shrunk.right, 160);
    EXPECT_LT(shrunk.height(), full);
}

TEST(UILabel, ShrinkingStopsAtTheMinimum) {
    const auto made = label("HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH", {90, 30});
    made->setLineBreakMode(NSLineBreakByClipping);
    made->setAdjustsFontSizeToFitWidth(true);
    made->setMinimumScaleFactor(0.5);
    EXPECT_NEAR(inkOf(drawn(made)).height(), made->font()->capHeight(), 1);
    made->setMinimumFontSize(12);
    EXPECT_NEAR(inkOf(drawn(made)).height(), UIFont::systemFontOfSize(12)->capHeight() * 2, 1);
}

TEST(UILabel, AShrunkTextKeepsItsBaselineItsMiddleOrItsTop) {
    const auto made = label("HHHHHHHHHHHHHHHHHH", {100, 40});
    made->setFont(UIFont::systemFontOfSize(30));
    made->setLineBreakMode(NSLineBreakByClipping);
    const InkBox full = inkOf(drawn(made));
    made->setAdjustsFontSizeToFitWidth(true);
    EXPECT_EQ(inkOf(drawn(made)).bottom, full.bottom);
    made->setBaselineAdjustment(UIBaselineAdjustmentAlignCenters);
    const InkBox centred = inkOf(drawn(made));
    EXPECT_NEAR((centred.top + centred.bottom) / 2.0, (full.top + full.bottom) / 2.0, 2);
    made->setBaselineAdjustment(UIBaselineAdjustmentNone);
    EXPECT_LT(inkOf(drawn(made)).top, full.top);
}

TEST(UILabel, ALabelWithoutRoomDrawsNothing) {
    const auto made = label("text");
    const auto image = picture({50, 50}, 1, [&] {
        made->drawTextInRect({{0, 0}, {0, 20}});
        made->drawTextInRect({{0, 0}, {20, std::nan("")}});
        made->drawTextInRect({{std::nan(""), 0}, {20, 20}});
    });
    EXPECT_TRUE(inkOf(image).isEmpty());
    EXPECT_EQ(made->sizeThatFits({std::nan(""), 0}), sizeWithFont("text", made->font()));
}

TEST(UILabel, TheTextIsAnObservableKey) {
    const auto made = label(nullptr);
    made->setValue_forKey("set", "text");
    EXPECT_EQ(made->text(), "set");
    EXPECT_EQ(made->valueForKey("text").stringValue(), "set");
    EXPECT_TRUE(made->respondsToSelector("setTextColor:"));
}

TEST(UILabel, ItsPropertiesAreKeys) {
    const auto made = label("text");
    made->setValue_forKey(UIFont::boldSystemFontOfSize(20), "font");
    made->setValue_forKey(UIColor::redColor(), "textColor");
    made->setValue_forKey(UIColor::greenColor(), "highlightedTextColor");
    made->setValue_forKey(UIColor::blueColor(), "shadowColor");
    made->setValue_forKey(NSValue::valueWithStructure(CGSizeMake(2, 3)), "shadowOffset");
    made->setValue_forKey(NSTextAlignmentCenter, "textAlignment");
    made->setValue_forKey(NSLineBreakByClipping, "lineBreakMode");
    made->setValue_forKey(3, "numberOfLines");
    made->setValue_forKey(false, "enabled");
    made->setValue_forKey(true, "highlighted");
    made->setValue_forKey(true, "adjustsFontSizeToFitWidth");
    made->setValue_forKey(0.5, "minimumScaleFactor");
    made->setValue_forKey(9, "minimumFontSize");
    made->setValue_forKey(UIBaselineAdjustmentNone, "baselineAdjustment");
    made->setValue_forKey(70, "preferredMaxLayoutWidth");
    EXPECT_TRUE(made->font()->isEqual(UIFont::boldSystemFontOfSize(20)));
    EXPECT_EQ(made->textColor(), UIColor::redColor());
    EXPECT_EQ(made->highlightedTextColor(), UIColor::greenColor());
    EXPECT_EQ(made->shadowColor(), UIColor::blueColor());
    EXPECT_EQ(made->shadowOffset(), CGSizeMake(2, 3));
    EXPECT_EQ(made->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(made->lineBreakMode(), NSLineBreakByClipping);
    EXPECT_EQ(made->numberOfLines(), 3);
    EXPECT_FALSE(made->isEnabled());
    EXPECT_TRUE(made->isHighlighted());
    EXPECT_TRUE(made->adjustsFontSizeToFitWidth());
    EXPECT_EQ(made->minimumScaleFactor(), 0.5);
    EXPECT_EQ(made->minimumFontSize(), 9);
    EXPECT_EQ(made->baselineAdjustment(), UIBaselineAdjustmentNone);
    EXPECT_EQ(made->preferredMaxLayoutWidth(), 70);
    EXPECT_EQ(*made->valueForKey("shadowOffset").structure<CGSize>(), CGSizeMake(2, 3));
    EXPECT_EQ(made->valueForKey("numberOfLines").integerValue(), 3);
}

class UILabelOnScreen : public OnScreen {};

TEST_F(UILabelOnScreen, AnEqualTextIsNotDrawnAgain) {
    const auto made = place(label("same"), CGRectMake(10, 10, 100, 30));
    const std::int64_t frames = host.framesComposed();
    made->setText("same");
    host.advance(0.1);
    EXPECT_EQ(host.framesComposed(), frames);
    made->setText("other");
    host.advance(0.1);
    EXPECT_EQ(host.framesComposed(), frames + 1);
}

TEST_F(UILabelOnScreen, AResizedLabelDrawsItsTextAnewUnstretched) {
    const auto made = place(label("H"), CGRectMake(0, 0, 40, 40));
    made->setTextColor(UIColor::whiteColor());
    const Ref<CGImage> before = host.snapshot();
    made->setFrame(CGRectMake(0, 0, 300, 40));
    const Ref<CGImage> after = host.snapshot();
    for (NSUInteger y = 0; y < 80; ++y) {
        for (NSUInteger x = 0; x < 80; ++x)
            ASSERT_EQ(pixelOf(before.get(), x, y), pixelOf(after.get(), x, y)) << x << ", " << y;
        for (NSUInteger x = 80; x < 600; ++x)
            ASSERT_EQ(pixelOf(after.get(), x, y), kBlack) << x << ", " << y;
    }
}

} // namespace
} // namespace zr
