// What is around the text of a field: its border, what stands beside it, and the room that all of it takes.

#include <Tests/ZRPlatform/UIKit/Controls/TextFieldTesting.h>

#include <ZRPlatform/UIKit/Controls/UIButton.h>

#include <cmath>

namespace zr {

namespace {

using namespace tests;

constexpr FramePixel kBlackOnScreen{0, 0, 0}, kClearButton{179, 179, 179}, kPressedClearButton{115, 115, 115};
constexpr CGRect kInside{{12, 12}, {196, 26}};

class UITextFieldParts : public FieldOnScreen {
protected:
    UITextFieldParts() { field->setBackgroundColor(UIColor::whiteColor()); }

    static Ref<UIView> box(CGFloat width, CGFloat height) {
        return make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, width, height));
    }
    CGRect textRect() const { return field->textRectForBounds(field->bounds()); }
    /// In the disc of the clear button of a rounded field with nothing at its right, beside the cross.
    FramePixel clearButtonPixel() { return host.pixel({190.5, 25.5}); }
    CGSize fittingSize() const { return field->sizeThatFits(CGSizeZero); }
};

// Borders

TEST_F(UITextFieldParts, ALineIsBlackAndOnePointWide) {
    field->setBorderStyle(UITextBorderStyleLine);
    EXPECT_EQ(textRect(), CGRectMake(2, 2, 196, 26));
    for (const CGPoint edge : {CGPoint{10.2, 25}, {10.8, 25}, {209.2, 25}, {100, 10.2}, {100, 39.8}, {10.2, 10.2}})
        EXPECT_EQ(host.pixel(edge), kBlackOnScreen) << edge.x << ", " << edge.y;
    for (const CGPoint inside : {CGPoint{11.2, 25}, {208.8, 25}, {100, 11.2}, {100, 38.8}})
        EXPECT_EQ(host.pixel(inside), kWhiteOnScreen) << inside.x << ", " << inside.y;
}

TEST_F(UITextFieldParts, ABezelIsGreyAndDarkerAtItsUpperEdge) {
    field->setBorderStyle(UITextBorderStyleBezel);
    EXPECT_EQ(textRect(), CGRectMake(7, 2, 186, 26));
    EXPECT_EQ(host.pixel({100, 10.2}), (FramePixel{128, 128, 128}));
    EXPECT_EQ(host.pixel({100, 10.8}), (FramePixel{128, 128, 128}));
    for (const CGPoint edge : {CGPoint{10.2, 25}, {209.8, 25}, {100, 39.2}})
        EXPECT_EQ(host.pixel(edge), (FramePixel{191, 191, 191})) << edge.x << ", " << edge.y;
    EXPECT_EQ(host.pixel({100, 11.2}), kWhiteOnScreen);
    EXPECT_EQ(host.pixel({11.2, 25}), kWhiteOnScreen);
}

TEST_F(UITextFieldParts, WithoutABorderTheTextHasAllTheRoom) {
    field->setBorderStyle(UITextBorderStyleNone);
    EXPECT_EQ(textRect(), CGRectMake(0, 0, 200, 30));
    EXPECT_EQ(host.pixel({10.2, 10.2}), kWhiteOnScreen);
}

TEST_F(UITextFieldParts, ADisabledFieldsTextIsDimmed) {
    field->setText("■■■");
    EXPECT_GT(pixelsOf(kBlackOnScreen, kInside), 100);
    field->setEnabled(false);
    EXPECT_EQ(pixelsOf(kBlackOnScreen, kInside), 0);
    EXPECT_GT(pixelsOf({127, 127, 127}, kInside), 100);
}

// Beside the text

TEST_F(UITextFieldParts, ARightViewEndsTheText) {
    const auto view = box(24, 20);
    field->setRightView(view);
    host.advance(0);
    EXPECT_TRUE(view->isHidden());
    EXPECT_EQ(CGRectGetMaxX(textRect()), 193);
    field->setRightViewMode(UITextFieldViewModeUnlessEditing);
    host.advance(0);
    EXPECT_FALSE(view->isHidden());
    EXPECT_EQ(view->frame(), CGRectMake(176, 5, 24, 20));
    EXPECT_EQ(CGRectGetMaxX(textRect()), 176);
    edit("H");
    host.advance(0);
    EXPECT_TRUE(view->isHidden());
    EXPECT_EQ(CGRectGetMaxX(textRect()), 193);
    field->setRightViewMode(UITextFieldViewModeWhileEditing);
    host.advance(0);
    EXPECT_FALSE(view->isHidden());
    EXPECT_EQ(field->rightView(), view.get());
    EXPECT_EQ(field->rightViewMode(), UITextFieldViewModeWhileEditing);
}

TEST_F(UITextFieldParts, AButtonBesideTheTextKeepsItsTouches) {
    const auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setFrame(CGRectMake(0, 0, 24, 20));
    const auto listener = make<Listener>();
    listener->listenTo(button);
    field->setRightView(button);
    field->setRightViewMode(UITextFieldViewModeAlways);
    host.advance(0);
    host.tap({198, 25});
    EXPECT_EQ(listener->news(), (News{"down", "up inside"}));
    EXPECT_FALSE(field->isEditing());
    field->setRightViewMode(UITextFieldViewModeNever);
    host.advance(0);
    host.tap({198, 25});
    EXPECT_EQ(listener->news(), News{});
    EXPECT_TRUE(field->isEditing());
}

TEST_F(UITextFieldParts, AViewThatTakesTheWholeFieldLeavesNoText) {
    field->setLeftView(box(150, 20));
    field->setRightView(box(100, 20));
    field->setLeftViewMode(UITextFieldViewModeAlways);
    field->setRightViewMode(UITextFieldViewModeAlways);
    EXPECT_EQ(textRect(), CGRectMake(150, 2, 0, 26));
    EXPECT_EQ(field->leftViewMode(), UITextFieldViewModeAlways);
}

TEST_F(UITextFieldParts, AViewThatIsElsewhereNowIsLeftThere) {
    const auto left = box(24, 20), right = box(24, 20);
    field->setLeftView(left);
    field->setRightView(right);
    EXPECT_EQ(field->leftView(), left.get());
    window->addSubview(left);
    field->setLeftView(nullptr);
    field->setRightView(nullptr);
    EXPECT_EQ(left->superview(), window.get());
    EXPECT_EQ(right->superview(), nullptr);
}

TEST_F(UITextFieldParts, TheClearButtonShowsInItsModeWhereThereIsSomethingToClear) {
    const auto expectShown = [this](UITextFieldViewMode mode, bool isShown) {
        field->setClearButtonMode(mode);
        EXPECT_EQ(clearButtonPixel(), isShown ? kClearButton : kWhiteOnScreen) << mode;
    };
    expectShown(UITextFieldViewModeAlways, false);
    EXPECT_EQ(CGRectGetMaxX(textRect()), 176) << "room for it there is all the same";
    field->setText("H");
    expectShown(UITextFieldViewModeNever, false);
    expectShown(UITextFieldViewModeAlways, true);
    expectShown(UITextFieldViewModeUnlessEditing, true);
    expectShown(UITextFieldViewModeWhileEditing, false);
    edit("H");
    expectShown(UITextFieldViewModeWhileEditing, true);
    expectShown(UITextFieldViewModeUnlessEditing, false);
    expectShown(UITextFieldViewModeAlways, true);
    field->setEnabled(false);
    EXPECT_EQ(clearButtonPixel(), kWhiteOnScreen);
}

TEST_F(UITextFieldParts, TheClearButtonStandsLeftOfARightView) {
    field->setClearButtonMode(UITextFieldViewModeAlways);
    EXPECT_EQ(field->clearButtonRectForBounds(field->bounds()), CGRectMake(176, 6, 19, 19));
    field->setRightView(box(24, 20));
    EXPECT_EQ(field->clearButtonRectForBounds(field->bounds()), CGRectMake(176, 6, 19, 19));
    field->setRightViewMode(UITextFieldViewModeAlways);
    EXPECT_EQ(field->clearButtonRectForBounds(field->bounds()), CGRectMake(152, 6, 19, 19));
    EXPECT_EQ(CGRectGetMaxX(textRect()), 152);
    field->setBorderStyle(UITextBorderStyleNone);
    EXPECT_EQ(field->clearButtonRectForBounds(field->bounds()), CGRectMake(157, 6, 19, 19));
}

TEST_F(UITextFieldParts, TheClearButtonDarkensUnderAFinger) {
    field->setText("text");
    field->setClearButtonMode(UITextFieldViewModeAlways);
    host.touchDown({195, 25});
    EXPECT_EQ(clearButtonPixel(), kPressedClearButton);
    host.touchMove({195, 300});
    EXPECT_EQ(clearButtonPixel(), kClearButton);
    host.touchMove({195, 25});
    EXPECT_EQ(clearButtonPixel(), kPressedClearButton);
    host.touchCancel();
    EXPECT_EQ(clearButtonPixel(), kClearButton);
    EXPECT_EQ(field->text(), "text") << "a touch that is taken away clears nothing";
    host.tap({195, 25});
    EXPECT_EQ(field->text(), "");
    EXPECT_TRUE(field->isEditing());
}

// Size

TEST_F(UITextFieldParts, FitsItsTextAndWhatIsBesideIt) {
    field->setBorderStyle(UITextBorderStyleNone);
    field->setText("HHH");
    const CGSize plain{std::ceil(3 * letterWidth()) + 2, std::ceil(field->font()->lineHeight())};
    EXPECT_EQ(fittingSize(), plain);
    field->setBorderStyle(UITextBorderStyleLine);
    EXPECT_EQ(fittingSize(), (CGSize{plain.width + 4, plain.height + 4}));
    field->setBorderStyle(UITextBorderStyleRoundedRect);
    EXPECT_EQ(fittingSize(), (CGSize{plain.width + 14, 30})) << "as high as a button";
    field->setClearButtonMode(UITextFieldViewModeAlways);
    EXPECT_EQ(fittingSize(), (CGSize{plain.width + 7 + 24, 30}));
    field->setLeftView(box(40, 20));
    field->setLeftViewMode(UITextFieldViewModeAlways);
    EXPECT_EQ(fittingSize(), (CGSize{plain.width + 40 + 24, 30}));
    field->setFont(UIFont::systemFontOfSize(40));
    EXPECT_EQ(fittingSize().height, std::ceil(field->font()->lineHeight()) + 4);
}

TEST_F(UITextFieldParts, FitsItsPlaceholderWhileThereIsNoText) {
    field->setBorderStyle(UITextBorderStyleNone);
    field->setPlaceholder("HHHHH");
    field->setSecureTextEntry(true);
    EXPECT_EQ(fittingSize().width, std::ceil(5 * letterWidth()) + 2) << "which is no secret";
    field->setText("W");
    const CGFloat bullet = fittingSize().width;
    field->setText("i");
    EXPECT_EQ(fittingSize().width, bullet);
}

TEST_F(UITextFieldParts, ShrinkingStopsAtTheMinimum) {
    field->setFont(UIFont::systemFontOfSize(12));
    edit("H");
    const CGFloat height = field->caretRectOnScreen().size.height;
    field->setFont(nullptr);
    field->setAdjustsFontSizeToFitWidth(true);
    field->setText(std::string(60, 'H'));
    EXPECT_LT(field->caretRectOnScreen().size.height, height);
    field->setMinimumFontSize(12);
    EXPECT_EQ(field->caretRectOnScreen().size.height, height);
    EXPECT_NEAR(field->caretRectOnScreen().origin.x, 10 + 193 - 2, 1) << "it scrolls instead";
    field->setMinimumFontSize(20);
    EXPECT_EQ(field->caretRectOnScreen().size.height, std::round(2 * field->font()->lineHeight()) / 2)
        << "nothing grows";
}

TEST_F(UITextFieldParts, TextStandsAtTheTopInTheMiddleOrAtTheBottom) {
    field->setFrame(CGRectMake(10, 10, 200, 60));
    edit("H");
    const CGFloat height = field->caretRectOnScreen().size.height;
    EXPECT_NEAR(CGRectGetMidY(field->caretRectOnScreen()), 40, 0.5);
    field->setContentVerticalAlignment(UIControlContentVerticalAlignmentTop);
    EXPECT_EQ(field->caretRectOnScreen().origin.y, 12);
    field->setContentVerticalAlignment(UIControlContentVerticalAlignmentBottom);
    EXPECT_NEAR(field->caretRectOnScreen().origin.y + height, 68, 0.5);
}

TEST_F(UITextFieldParts, WhatIsShownStandsWhereItIsTold) {
    field->setFrame(CGRectMake(10, 10, 200, 80));
    const CGRect upper{{12, 12}, {196, 38}}, lower{{12, 50}, {196, 38}};
    const auto inkIn = [this](CGRect half) { return 4 * 196 * 38 - pixelsOf(kWhiteOnScreen, half); };
    field->setPlaceholder("HHH");
    for (const char* text : {"", "HHH"}) {
        field->setText(text);
        field->setContentVerticalAlignment(UIControlContentVerticalAlignmentCenter);
        const int top = inkIn(upper), bottom = inkIn(lower);
        EXPECT_GT(top, 0);
        EXPECT_GT(bottom, 0);
        field->setContentVerticalAlignment(UIControlContentVerticalAlignmentTop);
        EXPECT_NEAR(inkIn(upper), top + bottom, 40) << "a row of pixels may be mixed otherwise";
        EXPECT_EQ(inkIn(lower), 0);
        field->setContentVerticalAlignment(UIControlContentVerticalAlignmentBottom);
        EXPECT_EQ(inkIn(upper), 0);
        EXPECT_GT(inkIn(lower), 0);
    }
}

// Keys

TEST_F(UITextFieldParts, ItsPropertiesAreKeys) {
    const auto left = box(24, 20), right = box(30, 20);
    field->setValue_forKey("typed", "text");
    field->setValue_forKey("Name", "placeholder");
    field->setValue_forKey(UIFont::boldSystemFontOfSize(20), "font");
    field->setValue_forKey(UIColor::redColor(), "textColor");
    field->setValue_forKey(NSTextAlignmentRight, "textAlignment");
    field->setValue_forKey(UITextBorderStyleLine, "borderStyle");
    field->setValue_forKey(UITextFieldViewModeAlways, "clearButtonMode");
    field->setValue_forKey(true, "secureTextEntry");
    field->setValue_forKey(true, "clearsOnBeginEditing");
    field->setValue_forKey(true, "adjustsFontSizeToFitWidth");
    field->setValue_forKey(9.5, "minimumFontSize");
    field->setValue_forKey(left, "leftView");
    field->setValue_forKey(UITextFieldViewModeAlways, "leftViewMode");
    field->setValue_forKey(right, "rightView");
    field->setValue_forKey(UITextFieldViewModeWhileEditing, "rightViewMode");
    EXPECT_EQ(field->text(), "typed");
    EXPECT_EQ(field->placeholder(), "Name");
    EXPECT_TRUE(field->font()->isEqual(UIFont::boldSystemFontOfSize(20)));
    EXPECT_EQ(field->textColor(), UIColor::redColor());
    EXPECT_EQ(field->textAlignment(), NSTextAlignmentRight);
    EXPECT_EQ(field->borderStyle(), UITextBorderStyleLine);
    EXPECT_EQ(field->clearButtonMode(), UITextFieldViewModeAlways);
    EXPECT_TRUE(field->isSecureTextEntry());
    EXPECT_TRUE(field->clearsOnBeginEditing());
    EXPECT_TRUE(field->adjustsFontSizeToFitWidth());
    EXPECT_EQ(field->minimumFontSize(), 9.5);
    EXPECT_EQ(field->leftView(), left.get());
    EXPECT_EQ(field->leftViewMode(), UITextFieldViewModeAlways);
    EXPECT_EQ(field->rightView(), right.get());
    EXPECT_EQ(field->rightViewMode(), UITextFieldViewModeWhileEditing);
    EXPECT_FALSE(field->valueForKey("editing").boolValue());
    EXPECT_FALSE(field->respondsToSelector("setEditing:")) << "it begins with a message of its own";
    field->becomeFirstResponder();
    EXPECT_TRUE(field->valueForKey("editing").boolValue());
    EXPECT_EQ(field->valueForKey("text").stringValue(), "") << "as it was told";
}

} // namespace
} // namespace zr
