#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::tests {

namespace {

class Button : public OnScreen {
protected:
    Ref<UIButton> placeButton(CGRect frame, UIButtonType type = UIButtonTypeCustom) {
        return place(UIButton::buttonWithType(type), frame);
    }
};

class SpecialButton : public UIButton {};

constexpr NSUInteger kNormal = UIControlStateNormal, kHighlighted = UIControlStateHighlighted,
                     kDisabled = UIControlStateDisabled, kSelected = UIControlStateSelected;

} // namespace

TEST_F(Button, ComesInTheClassAskedFor) {
    const Ref<SpecialButton> special = UIButton::buttonWithType<SpecialButton>(UIButtonTypeSystem);
    EXPECT_EQ(special->buttonType(), UIButtonTypeSystem);
    EXPECT_EQ(special->frame(), CGRectZero);
    EXPECT_EQ(make<UIButton>()->buttonType(), UIButtonTypeCustom);
}

TEST_F(Button, WhatAStateLacksIsTheNormalOnes) {
    auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    const auto normal = plainImage(2, 2, kRed), selected = plainImage(2, 2, kBlue);
    button->setTitle_forState("Normal", kNormal);
    button->setTitle_forState("Pressed", kHighlighted);
    button->setTitleColor_forState(UIColor::redColor(), kNormal);
    button->setImage_forState(normal, kNormal);
    button->setImage_forState(selected, kSelected);
    button->setBackgroundImage_forState(normal, kNormal);
    EXPECT_EQ(button->titleForState(kHighlighted), "Pressed");
    EXPECT_EQ(button->titleForState(kDisabled), "Normal");
    EXPECT_EQ(button->titleForState(kHighlighted | kSelected), "Normal");
    EXPECT_EQ(button->titleColorForState(kDisabled), UIColor::redColor());
    EXPECT_EQ(button->imageForState(kSelected), selected.get());
    EXPECT_EQ(button->imageForState(kHighlighted), normal.get());
    EXPECT_EQ(button->backgroundImageForState(kSelected), normal.get());
    button->setTitle_forState(nullptr, kHighlighted);
    EXPECT_EQ(button->titleForState(kHighlighted), "Normal");
    button->setTitle_forState("", kHighlighted);
    EXPECT_EQ(button->titleForState(kHighlighted), "");
}

TEST_F(Button, ShowsWhatItsStateAsksFor) {
    auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    const auto normal = plainImage(2, 2, kRed), both = plainImage(2, 2, kBlue);
    button->setTitle_forState("Normal", kNormal);
    button->setTitle_forState("Selected", kSelected);
    button->setTitleColor_forState(UIColor::greenColor(), kSelected);
    button->setImage_forState(normal, kNormal);
    button->setImage_forState(both, kSelected | kHighlighted);
    EXPECT_EQ(button->titleLabel()->text(), "Normal");
    EXPECT_EQ(button->titleLabel()->textColor(), UIColor::whiteColor());
    EXPECT_EQ(button->imageView()->image(), normal.get());
    button->setSelected(true);
    EXPECT_EQ(button->currentTitle(), "Selected");
    EXPECT_EQ(button->titleLabel()->text(), "Selected");
    EXPECT_EQ(button->titleLabel()->textColor(), UIColor::greenColor());
    EXPECT_EQ(button->imageView()->image(), normal.get());
    button->setHighlighted(true);
    EXPECT_EQ(button->titleLabel()->text(), "Normal");
    EXPECT_EQ(button->currentImage(), both.get());
    EXPECT_EQ(button->imageView()->image(), both.get());
}

TEST_F(Button, ACustomOneHasNoLookOfItsOwn) {
    auto button = placeButton({{100, 100}, {100, 40}});
    EXPECT_EQ(button->titleColorForState(kNormal), UIColor::whiteColor());
    EXPECT_EQ(button->titleColorForState(kDisabled), UIColor::whiteColor());
    EXPECT_EQ(button->titleShadowColorForState(kNormal), nullptr);
    EXPECT_EQ(button->subviews().size(), 0u);
    EXPECT_EQ(button->sizeThatFits({}), CGSizeZero);
    for (const CGPoint point : {CGPoint{100, 100}, {150, 120}, {199, 139}})
        EXPECT_EQ(host.pixel(point), (FramePixel{0, 0, 0}));
}

TEST_F(Button, ASystemOneIsTintedAndDims) {
    auto button = placeButton({{100, 100}, {100, 40}}, UIButtonTypeSystem);
    button->setTitle_forState("Button", kNormal);
    window->setTintColor(UIColor::greenColor());
    button->removeFromSuperview();
    window->addSubview(button);
    EXPECT_EQ(button->titleLabel()->textColor(), UIColor::greenColor());
    EXPECT_EQ(button->titleLabel()->font()->pointSize(), 15);
    host.touchDown({150, 120});
    EXPECT_NEAR(button->titleLabel()->alpha(), 0.2, 1e-6);
    host.touchUp();
    EXPECT_EQ(button->titleLabel()->alpha(), 1);
    button->setEnabled(false);
    EXPECT_FALSE(button->titleLabel()->textColor()->isEqual(UIColor::greenColor()));
    button->setTintColor(UIColor::redColor());
    button->setEnabled(true);
    EXPECT_EQ(button->titleLabel()->textColor(), UIColor::redColor());
    EXPECT_EQ(UIButton::buttonWithType(UIButtonTypeCustom)->titleLabel()->font()->pointSize(), 18);
}

TEST_F(Button, AFingerPicksTheHighlightedLook) {
    auto button = placeButton({{100, 100}, {100, 40}});
    button->setBackgroundImage_forState(plainImage(2, 2, kRed), kNormal);
    button->setBackgroundImage_forState(plainImage(2, 2, kGreen), kHighlighted);
    EXPECT_EQ(host.pixel({110, 110}), kRedOnScreen);
    host.touchDown({150, 120});
    EXPECT_EQ(host.pixel({110, 110}), kGreenOnScreen);
    host.touchMove({150, 300});
    EXPECT_EQ(host.pixel({110, 110}), kRedOnScreen);
    host.touchMove({150, 120});
    EXPECT_EQ(host.pixel({110, 110}), kGreenOnScreen);
    host.touchUp();
    EXPECT_EQ(host.pixel({110, 110}), kRedOnScreen);
}

TEST_F(Button, TheNormalImageDarkensUnderAFinger) {
    auto button = placeButton({{100, 100}, {40, 40}});
    button->setImage_forState(plainImage(40, 40, kWhite), kNormal);
    host.touchDown({120, 120});
    const FramePixel dark = host.pixel({120, 120});
    EXPECT_NEAR(dark.red, 128, 1);
    EXPECT_EQ(dark.red, dark.blue);
    EXPECT_EQ(button->currentImage()->size(), button->imageView()->image()->size());
    host.touchUp();
    EXPECT_EQ(host.pixel({120, 120}), kWhiteOnScreen);
    button->setAdjustsImageWhenHighlighted(false);
    host.touchDown({120, 120});
    EXPECT_EQ(host.pixel({120, 120}), kWhiteOnScreen);
    host.touchUp();
}

TEST_F(Button, ADisabledOnesImageFades) {
    auto button = placeButton({{100, 100}, {40, 40}});
    button->setImage_forState(plainImage(40, 40, kWhite), kNormal);
    button->setEnabled(false);
    EXPECT_NEAR(host.pixel({120, 120}).red, 128, 1);
    button->setAdjustsImageWhenDisabled(false);
    EXPECT_EQ(host.pixel({120, 120}), kWhiteOnScreen);
    button->setAdjustsImageWhenDisabled(true);
    button->setImage_forState(plainImage(40, 40, kRed), kDisabled);
    EXPECT_EQ(host.pixel({120, 120}), kRedOnScreen);
}

TEST_F(Button, AnImageAloneIsInTheMiddleUnlessAligned) {
    auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setImage_forState(plainImage(40, 20, kRed, 2), kNormal);
    const CGRect content{{0, 0}, {100, 40}};
    EXPECT_EQ(button->imageRectForContentRect(content), CGRectMake(40, 15, 20, 10));
    button->setContentHorizontalAlignment(UIControlContentHorizontalAlignmentLeft);
    button->setContentVerticalAlignment(UIControlContentVerticalAlignmentTop);
    EXPECT_EQ(button->imageRectForContentRect(content), CGRectMake(0, 0, 20, 10));
    button->setContentHorizontalAlignment(UIControlContentHorizontalAlignmentRight);
    button->setContentVerticalAlignment(UIControlContentVerticalAlignmentBottom);
    EXPECT_EQ(button->imageRectForContentRect(content), CGRectMake(80, 30, 20, 10));
    button->setContentHorizontalAlignment(UIControlContentHorizontalAlignmentFill);
    button->setContentVerticalAlignment(UIControlContentVerticalAlignmentFill);
    EXPECT_EQ(button->imageRectForContentRect(content), content);
}

TEST_F(Button, TheTitleStandsRightOfTheImage) {
    auto button = placeButton({{0, 0}, {300, 40}});
    button->setTitle_forState("Title", kNormal);
    const CGSize title = button->titleLabel()->sizeThatFits({1000, 1000});
    button->setImage_forState(plainImage(20, 20, kRed), kNormal);
    button->layoutIfNeeded();
    const CGRect imageFrame = button->imageView()->frame(), titleFrame = button->titleLabel()->frame();
    EXPECT_EQ(imageFrame.size, (CGSize{20, 20}));
    EXPECT_EQ(titleFrame.size, title);
    EXPECT_EQ(titleFrame.origin.x, CGRectGetMaxX(imageFrame));
    EXPECT_EQ(imageFrame.origin.y, 10);
    EXPECT_NEAR(imageFrame.origin.x, 300 - CGRectGetMaxX(titleFrame), 0.5);
    EXPECT_NEAR(CGRectGetMidY(titleFrame), 20, 0.25);
}

TEST_F(Button, ALongTitleEndsAtTheContent) {
    auto button = placeButton({{0, 0}, {60, 40}});
    button->setTitle_forState("A title that is much too long", kNormal);
    button->setImage_forState(plainImage(20, 20, kRed), kNormal);
    button->layoutIfNeeded();
    EXPECT_EQ(button->imageView()->frame().origin.x, 0);
    EXPECT_EQ(button->titleLabel()->frame().origin.x, 20);
    EXPECT_EQ(button->titleLabel()->frame().size.width, 40);
}

TEST_F(Button, InsetsMoveWhatTheyBelongTo) {
    auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setImage_forState(plainImage(20, 10, kRed), kNormal);
    const CGRect bounds{{0, 0}, {100, 40}};
    button->setContentEdgeInsets({10, 20, 0, 0});
    EXPECT_EQ(button->contentRectForBounds(bounds), CGRectMake(20, 10, 80, 30));
    EXPECT_EQ(button->backgroundRectForBounds(bounds), bounds);
    EXPECT_EQ(button->imageRectForContentRect({{20, 10}, {80, 30}}), CGRectMake(50, 20, 20, 10));
    button->setImageEdgeInsets({0, 10, 0, -10});
    EXPECT_EQ(button->imageRectForContentRect(bounds), CGRectMake(50, 15, 20, 10));
    button->setImageEdgeInsets({0, 10, 0, 0});
    EXPECT_EQ(button->imageRectForContentRect(bounds), CGRectMake(45, 15, 20, 10));
    button->setImageEdgeInsets({0, 0, 0, 90});
    EXPECT_EQ(button->imageRectForContentRect(bounds), CGRectMake(0, 15, 10, 10));
}

TEST_F(Button, InsetsOfTheTitleMoveItAlone) {
    auto button = placeButton({{0, 0}, {200, 60}});
    button->setTitle_forState("Title", kNormal);
    button->setImage_forState(plainImage(20, 20, kRed), kNormal);
    host.advance(0);
    const CGRect title = button->titleLabel()->frame(), image = button->imageView()->frame();
    button->setTitleEdgeInsets({10, 20, 0, -20});
    host.advance(0);
    EXPECT_EQ(button->titleEdgeInsets(), (UIEdgeInsets{10, 20, 0, -20}));
    EXPECT_EQ(button->titleLabel()->frame(), CGRectOffset(title, 20, 5));
    EXPECT_EQ(button->imageView()->frame(), image);
    button->setTitleEdgeInsets({0, 150, 0, 0});
    EXPECT_EQ(button->titleRectForContentRect({{0, 0}, {200, 60}}).size.width, 30) << "the room that is left";
}

TEST_F(Button, ATitleMayFillItsRoom) {
    auto button = placeButton({{0, 0}, {200, 60}});
    button->setTitle_forState("Title", kNormal);
    button->setImage_forState(plainImage(20, 20, kRed), kNormal);
    button->setContentHorizontalAlignment(UIControlContentHorizontalAlignmentFill);
    button->setContentVerticalAlignment(UIControlContentVerticalAlignmentFill);
    host.advance(0);
    EXPECT_EQ(button->imageView()->frame(), CGRectMake(0, 0, 20, 60));
    EXPECT_EQ(button->titleLabel()->frame(), CGRectMake(20, 0, 180, 60));
}

TEST_F(Button, ATitleMayHaveSeveralLines) {
    auto button = placeButton({{0, 0}, {60, 80}});
    button->setTitle_forState("Two words", kNormal);
    host.advance(0);
    const CGFloat line = button->titleLabel()->frame().size.height;
    button->titleLabel()->setNumberOfLines(2);
    host.advance(0);
    EXPECT_NEAR(button->titleLabel()->frame().size.height, 2 * line, 1);
    EXPECT_NEAR(CGRectGetMidY(button->titleLabel()->frame()), 40, 0.25);
}

TEST_F(Button, ATitlesShadowBelongsToAState) {
    auto button = placeButton({{0, 0}, {200, 60}});
    button->setTitle_forState("Title", kNormal);
    button->setTitleShadowColor_forState(UIColor::redColor(), kNormal);
    button->setTitleShadowColor_forState(UIColor::blueColor(), kHighlighted);
    EXPECT_EQ(button->titleShadowColorForState(kSelected), UIColor::redColor());
    EXPECT_EQ(button->titleLabel()->shadowColor(), UIColor::redColor());
    host.touchDown({100, 30});
    EXPECT_EQ(button->currentTitleShadowColor(), UIColor::blueColor());
    EXPECT_EQ(button->titleLabel()->shadowColor(), UIColor::blueColor());
    host.touchUp();
    EXPECT_EQ(button->titleLabel()->shadowColor(), UIColor::redColor());
}

TEST_F(Button, ItsPropertiesAreKeys) {
    auto button = UIButton::buttonWithType(UIButtonTypeSystem);
    const UIEdgeInsets content{1, 2, 3, 4}, image{5, 6, 7, 8}, title{9, 10, 11, 12};
    button->setTitle_forState("Normal", kNormal);
    button->setTitle_forState("Selected", kSelected);
    button->setValue_forKey(NSValue::valueWithStructure(content), "contentEdgeInsets");
    button->setValue_forKey(NSValue::valueWithStructure(image), "imageEdgeInsets");
    button->setValue_forKey(NSValue::valueWithStructure(title), "titleEdgeInsets");
    button->setValue_forKey(false, "adjustsImageWhenHighlighted");
    button->setValue_forKey(false, "adjustsImageWhenDisabled");
    EXPECT_EQ(button->contentEdgeInsets(), content);
    EXPECT_EQ(button->imageEdgeInsets(), image);
    EXPECT_EQ(button->titleEdgeInsets(), title);
    EXPECT_FALSE(button->adjustsImageWhenHighlighted());
    EXPECT_FALSE(button->adjustsImageWhenDisabled());
    EXPECT_EQ(button->valueForKey("buttonType").integerValue(), UIButtonTypeSystem);
    EXPECT_EQ(*button->valueForKey("titleEdgeInsets").structure<UIEdgeInsets>(), title);
    EXPECT_EQ(button->valueForKey("currentTitle").stringValue(), "Normal");
    button->setValue_forKey(true, "selected");
    EXPECT_EQ(button->valueForKey("currentTitle").stringValue(), "Selected");
    button->setValue_forKey(false, "enabled");
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(button->valueForKey("state").integerValue(), NSInteger(kSelected | kDisabled));
}

TEST_F(Button, FitsItsContent) {
    auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setTitle_forState("Title", kNormal);
    const CGSize title = button->titleLabel()->sizeThatFits({1000, 1000});
    EXPECT_EQ(button->sizeThatFits({}), title);
    button->setImage_forState(plainImage(30, 50, kRed), kNormal);
    EXPECT_EQ(button->sizeThatFits({}), (CGSize{title.width + 30, 50}));
    button->setContentEdgeInsets({1, 2, 3, 4});
    EXPECT_EQ(button->sizeThatFits({}), (CGSize{title.width + 36, 54}));
    button->setBackgroundImage_forState(plainImage(200, 20, kRed), kNormal);
    EXPECT_EQ(button->sizeThatFits({}), (CGSize{200, 54}));
}

TEST_F(Button, AnotherFontLaysItOutAnew) {
    auto button = placeButton({{0, 0}, {300, 60}});
    button->setTitle_forState("Title", kNormal);
    host.advance(0);
    const CGFloat width = button->titleLabel()->frame().size.width;
    button->titleLabel()->setFont(UIFont::systemFontOfSize(36));
    host.advance(0);
    EXPECT_NEAR(button->titleLabel()->frame().size.width, 2 * width, 2);
}

TEST_F(Button, PartsLieInOrderWhateverComesFirst) {
    auto button = placeButton({{0, 0}, {300, 60}});
    button->setTitle_forState("Title", kNormal);
    button->setImage_forState(plainImage(20, 10, kRed), kNormal);
    button->setBackgroundImage_forState(plainImage(20, 10, kBlue), kNormal);
    ASSERT_EQ(button->subviews().size(), 3u);
    EXPECT_EQ(button->subviews()[1].get(), button->imageView());
    EXPECT_EQ(button->subviews()[2].get(), button->titleLabel());
    host.advance(0);
    EXPECT_EQ(button->subviews()[0]->frame(), CGRectMake(0, 0, 300, 60));
}

TEST_F(Button, ATapOnItsPartsIsATapOnIt) {
    auto button = placeButton({{0, 0}, {300, 60}});
    button->setTitle_forState("Title", kNormal);
    button->setImage_forState(plainImage(100, 50, kRed), kNormal);
    auto listener = make<Listener>();
    listener->listenTo(button);
    host.tap({CGRectGetMidX(button->titleLabel()->frame()), 30});
    host.tap({CGRectGetMidX(button->imageView()->frame()), 30});
    EXPECT_EQ(listener->news(), (News{"down", "up inside", "down", "up inside"}));
}

} // namespace zr::tests
