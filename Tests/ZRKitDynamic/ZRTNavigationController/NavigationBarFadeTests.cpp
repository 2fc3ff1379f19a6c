#include <Tests/ZRKitDynamic/ZRTNavigationController/NavigationBarTesting.h>

namespace zr::testing {

TEST_F(ZRTNavigationBarTest, WhatIsAskedForWithoutAnimationEndsAFade) {
    bar->hiddenNavigationBarWithAnimated(true);
    host.advance(0.25);
    bar->hiddenNavigationBarWithAnimated(false);
    EXPECT_EQ(seenAlpha(bar), 0);
    bar->hiddenBackButtonAnimated(true);
    host.advance(0.15);
    bar->hiddenBackButtonAnimated(false);
    EXPECT_EQ(seenAlpha(bar->backButton()), 0);
}

TEST_F(ZRTNavigationBarTest, ALeftButtonHidesTheBackButtonAtOnceWhateverIsAnimated) {
    bar->hiddenBackButtonAnimated(true);
    host.advance(0.1);
    bar->setLeftButton_animated(nullptr, true);
    EXPECT_EQ(seenAlpha(bar->backButton()), 0);
    bar->showBackButtonAnimated(false);
    const auto left = makeButton(60, 30);
    UIView::animateWithDuration_animations(2, [&] { bar->setLeftButton_animated(left, true); });
    EXPECT_EQ(seenAlpha(bar->backButton()), 0);
    EXPECT_EQ(left->layer()->presentationValues().position, CGPointMake(35, 38));
    EXPECT_EQ(seenAlpha(left), 0);
}

TEST_F(ZRTNavigationBarTest, AskingTwiceForARemovalChangesNothing) {
    const auto left = makeButton(60, 30);
    bar->setLeftButton_animated(left, false);
    bar->setLeftButton_animated(nullptr, true);
    host.advance(0.1);
    bar->setLeftButton_animated(nullptr, true);
    host.advance(0.19);
    EXPECT_EQ(bar->leftButton(), left);
    host.advance(0.01);
    EXPECT_EQ(bar->leftButton(), nullptr);
    bar->setLeftButton_animated(left, false);
    bar->setLeftButton_animated(nullptr, true);
    bar->setLeftButton_animated(nullptr, false);
    EXPECT_EQ(seenAlpha(left), 0);
    host.advance(0);
    EXPECT_EQ(bar->leftButton(), nullptr);
    EXPECT_EQ(left->superview(), nullptr);
}

TEST_F(ZRTNavigationBarTest, AButtonThatIsSetAgainWhileItFadesOutStays) {
    const auto first = makeButton(60, 30), second = makeButton(60, 30);
    bar->setLeftButton_animated(first, false);
    bar->setLeftButton_animated(nullptr, true);
    host.advance(0.1);
    bar->setLeftButton_animated(second, true);
    bar->setLeftButton_animated(first, true);
    EXPECT_EQ(seenAlpha(first), 0) << "it fades in from nothing";
    host.advance(1);
    EXPECT_EQ(bar->leftButton(), first);
    EXPECT_EQ(first->superview(), bar);
    EXPECT_EQ(seenAlpha(first), 1);
    EXPECT_EQ(second->superview(), nullptr);
}

TEST_F(ZRTNavigationBarTest, AButtonIsOnOneSideOnly) {
    const auto button = makeButton(60, 30);
    bar->setLeftButton_animated(button, false);
    bar->setLeftButton_animated(nullptr, true);
    host.advance(0.1);
    bar->setRightButton_animated(button, true);
    EXPECT_EQ(bar->leftButton(), nullptr);
    EXPECT_EQ(seenAlpha(button), 0);
    host.advance(1);
    EXPECT_EQ(bar->rightButton(), button);
    EXPECT_EQ(button->superview(), bar);
    bar->setLeftButton_animated(button, false);
    EXPECT_EQ(bar->rightButton(), nullptr);
    EXPECT_EQ(button->frame(), CGRectMake(5, 23, 60, 30));
}

TEST_F(ZRTNavigationBarTest, AFadingButtonThatWasReplacedByTheSetterGoes) {
    const auto first = makeButton(60, 30), second = makeButton(60, 30);
    bar->setLeftButton_animated(first, false);
    bar->setLeftButton_animated(nullptr, true);
    bar->setLeftButton(second);
    host.advance(1);
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(bar->leftButton(), second);
}

} // namespace zr::testing
