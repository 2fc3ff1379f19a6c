#include <Tests/ZRPlatform/UIKit/Controls/TextFieldTesting.h>

#include <ZRPlatform/Foundation/NSRunLoop.h>

namespace zr {

namespace {

using namespace tests;

constexpr FramePixel kCaretBlue{0, 122, 255};
constexpr CGRect kInside{{12, 12}, {196, 26}};

class UITextFieldLook : public FieldOnScreen {};

TEST_F(UITextFieldLook, StartsEmptyAndPlain) {
    const auto plain = make<UITextField>(&UIView::initWithFrame, CGRectMake(0, 0, 100, 30));
    EXPECT_EQ(plain->text(), "");
    EXPECT_FALSE(plain->text().isNil());
    EXPECT_TRUE(plain->font()->isEqual(UIFont::systemFontOfSize(17)));
    EXPECT_EQ(plain->borderStyle(), UITextBorderStyleNone);
    EXPECT_EQ(plain->clearButtonMode(), UITextFieldViewModeNever);
    EXPECT_EQ(plain->textRectForBounds(plain->bounds()), plain->bounds());
    plain->setText(nullptr);
    EXPECT_FALSE(plain->text().isNil());
    EXPECT_FALSE(plain->hasText());
    plain->setText("text");
    EXPECT_TRUE(plain->hasText());
}

TEST_F(UITextFieldLook, ARoundedFieldIsAWhitePlateWithRoundCorners) {
    EXPECT_EQ(host.pixel({100, 20}), kWhiteOnScreen);
    EXPECT_EQ(host.pixel({10.2, 10.2}), (FramePixel{0, 0, 0}));
    EXPECT_EQ(field->textRectForBounds(field->bounds()), CGRectMake(7, 2, 186, 26));
}

TEST_F(UITextFieldLook, ThePlaceholderShowsOnlyWhileThereIsNoText) {
    const int blank = pixelsOf(kWhiteOnScreen, kInside);
    field->setPlaceholder("Name");
    EXPECT_LT(pixelsOf(kWhiteOnScreen, kInside), blank);
    EXPECT_EQ(pixelsOf({0, 0, 0}, kInside), 0);
    field->setText(" ");
    EXPECT_EQ(pixelsOf(kWhiteOnScreen, kInside), blank);
}

TEST_F(UITextFieldLook, SecretTextLooksTheSameWhateverItSays) {
    field->setSecureTextEntry(true);
    field->setText("abc");
    const Ref<CGImage> first = host.snapshot();
    field->setText("W😀i");
    const Ref<CGImage> second = host.snapshot();
    for (NSUInteger y = 0; y < 80; ++y) {
        for (NSUInteger x = 0; x < 440; ++x)
            ASSERT_EQ(pixelOf(first.get(), x, y), pixelOf(second.get(), x, y));
    }
    EXPECT_GT(pixelsOf({0, 0, 0}, kInside), 0);
    EXPECT_EQ(field->text(), "W😀i");
}

TEST_F(UITextFieldLook, TheCaretIsTwoPointsWideAndBlinksTwiceASecond) {
    edit("");
    const int pixels = pixelsOf(kCaretBlue, kInside);
    EXPECT_GE(pixels, 4 * 40);
    EXPECT_EQ(pixels % 4, 0);
    EXPECT_EQ(host.pixel({16.2, 25}), kCaretBlue);
    EXPECT_EQ(host.pixel({17.8, 25}), kCaretBlue);
    host.advance(0.49);
    EXPECT_EQ(pixelsOf(kCaretBlue, kInside), pixels);
    host.advance(0.02);
    EXPECT_EQ(pixelsOf(kCaretBlue, kInside), 0);
    host.advance(0.5);
    EXPECT_EQ(pixelsOf(kCaretBlue, kInside), pixels);
}

TEST_F(UITextFieldLook, TypingShowsTheCaretAtOnce) {
    edit("");
    host.advance(0.6);
    EXPECT_EQ(pixelsOf(kCaretBlue, kInside), 0);
    host.typeText("H");
    EXPECT_GT(pixelsOf(kCaretBlue, kInside), 0);
}

TEST_F(UITextFieldLook, NothingWakesTheLoopUnlessTheFieldIsEditedOnScreen) {
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextDueTime());
    edit("text");
    EXPECT_TRUE(NSRunLoop::mainRunLoop()->nextDueTime());
    field->setHidden(true);
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextDueTime());
    field->setHidden(false);
    EXPECT_TRUE(NSRunLoop::mainRunLoop()->nextDueTime());
    field->resignFirstResponder();
    host.advance(0);
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextDueTime());
    edit("text");
    window->setHidden(true);
    host.advance(1);
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextDueTime());
}

TEST_F(UITextFieldLook, ASelectionIsShownInsteadOfTheCaret) {
    edit("HHHH");
    field->selectAll();
    EXPECT_EQ(pixelsOf(kCaretBlue, kInside), 0);
    const FramePixel shade = host.pixel({above(4).x - 0.4, 15});
    EXPECT_LT(shade.red, 220);
    EXPECT_EQ(shade.blue, 255);
}

TEST_F(UITextFieldLook, LongTextScrollsSoThatTheCaretStaysInSight) {
    edit("HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH");
    const CGRect atEnd = field->caretRectOnScreen();
    EXPECT_LE(CGRectGetMaxX(atEnd), 10 + 193);
    EXPECT_GT(atEnd.origin.x, 180);
    host.pressKey(UIKey::Home);
    EXPECT_EQ(CGRectGetMidX(field->caretRectOnScreen()), 17);
    EXPECT_EQ(host.pixel({205, 25}), kWhiteOnScreen); // text stays inside its rectangle
    host.pressKey(UIKey::End);
    EXPECT_EQ(field->caretRectOnScreen(), atEnd);
}

TEST_F(UITextFieldLook, TextAlignmentMovesTheCaret) {
    edit("HH");
    field->setTextAlignment(NSTextAlignmentRight);
    host.advance(0);
    EXPECT_NEAR(CGRectGetMidX(field->caretRectOnScreen()), 201, 0.5);
    field->setTextAlignment(NSTextAlignmentCenter);
    host.advance(0);
    EXPECT_NEAR(CGRectGetMidX(field->caretRectOnScreen()), 10 + 100 - 1 + letterWidth(), 0.5);
}

TEST_F(UITextFieldLook, NaturalAlignmentPutsArabicAtTheRight) {
    field->setTextAlignment(NSTextAlignmentNatural);
    edit("مرحبا");
    host.pressKey(UIKey::Home);
    EXPECT_GT(field->caretRectOnScreen().origin.x, 195);
}

TEST_F(UITextFieldLook, TheHostKnowsWhereTheCaretIs) {
    EXPECT_FALSE(host.isTextInputActive());
    edit("HHH");
    EXPECT_TRUE(host.isTextInputActive());
    EXPECT_EQ(host.caretRect(), field->caretRectOnScreen());
    EXPECT_NEAR(CGRectGetMidX(host.caretRect()), above(3).x, 0.5);
    host.typeText("H");
    EXPECT_NEAR(CGRectGetMidX(host.caretRect()), above(4).x, 0.5);
    field->resignFirstResponder();
    EXPECT_FALSE(host.isTextInputActive());
}

TEST_F(UITextFieldLook, TheCaretIsWhereTheScreenShowsItWhereverTheWindowLies) {
    edit("HHH");
    const CGRect before = field->caretRectOnScreen();
    EXPECT_NEAR(CGRectGetMidX(before), above(3).x, 0.5);
    window->setFrame(CGRectMake(30, 40, 260, 300));
    EXPECT_EQ(field->caretRectOnScreen(), CGRectOffset(before, 30, 40));
    EXPECT_EQ(host.pixel({CGRectGetMidX(field->caretRectOnScreen()), CGRectGetMidY(field->caretRectOnScreen())}),
              kCaretBlue);
    host.typeText("H");
    EXPECT_NEAR(CGRectGetMidX(host.caretRect()), above(4).x + 30, 0.5);
    EXPECT_EQ(host.caretRect().origin.y, before.origin.y + 40);
}

TEST_F(UITextFieldLook, SideViewsShowInTheirModesAndTakeRoom) {
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 24, 20));
    field->setLeftView(view);
    host.advance(0);
    EXPECT_TRUE(view->isHidden());
    field->setLeftViewMode(UITextFieldViewModeAlways);
    host.advance(0);
    EXPECT_FALSE(view->isHidden());
    EXPECT_EQ(view->frame(), CGRectMake(0, 5, 24, 20));
    EXPECT_EQ(field->textRectForBounds(field->bounds()).origin.x, 24);
    field->setLeftViewMode(UITextFieldViewModeWhileEditing);
    host.advance(0);
    EXPECT_TRUE(view->isHidden());
    field->setLeftView(nullptr);
    EXPECT_EQ(view->superview(), nullptr);
}

TEST_F(UITextFieldLook, ShrinkingFitsTheTextBeforeItScrolls) {
    field->setAdjustsFontSizeToFitWidth(true);
    edit("HHHHHHHHHHHHHHHHHHHH");
    EXPECT_LT(CGRectGetMaxX(field->caretRectOnScreen()), 203);
    host.pressKey(UIKey::Home);
    EXPECT_LT(field->caretRectOnScreen().size.height, 20);
}

} // namespace
} // namespace zr
