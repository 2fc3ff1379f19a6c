#include <Tests/ZRKitDynamic/ZRTNavigationController/NavigationBarTesting.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRPlatform/Foundation/NSBundle.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>

#include <cstdio>
#include <ctime>
#include <filesystem>

namespace zr::testing {

// Construction

TEST_F(ZRTNavigationBarTest, HasABackgroundATitleAndABackButton) {
    ASSERT_EQ(bar->subviews().size(), 3u);
    EXPECT_EQ(bar->subviews()[0], bar->backgroundImageView());
    EXPECT_EQ(bar->subviews()[1], bar->titleLabel());
    EXPECT_EQ(bar->subviews()[2], bar->backButton());
    EXPECT_TRUE(bar->autoresizesSubviews());
    EXPECT_EQ(bar->leftButton(), nullptr);
    EXPECT_EQ(bar->rightButton(), nullptr);
    EXPECT_EQ(bar->delegate(), nullptr);
}

TEST_F(ZRTNavigationBarTest, TheBackgroundFillsItInTheThemesColour) {
    const auto* background = bar->backgroundImageView();
    EXPECT_EQ(background->frame(), CGRectMake(0, 0, 320, 64));
    EXPECT_EQ(background->autoresizingMask(), 18u);
    EXPECT_EQ(background->backgroundColor(), ZRColorInstance::Instance()->navigationBarShadowColor());
    EXPECT_EQ(host.pixel({5, 5}), (FramePixel{0, 195, 64}));
}

TEST_F(ZRTNavigationBarTest, TheTitleIsAtTheBottomInTheMiddle) {
    const UILabel* title = bar->titleLabel();
    EXPECT_EQ(title->frame(), CGRectMake(80, 30, 160, 30));
    EXPECT_EQ(title->autoresizingMask(), 45u);
    EXPECT_EQ(rgba(title->textColor()), rgb(255, 255, 255));
    EXPECT_TRUE(title->adjustsFontSizeToFitWidth());
    EXPECT_EQ(title->backgroundColor(), UIColor::clearColor());
    EXPECT_TRUE(title->font()->isEqual(UIFont::boldSystemFontOfSize(17)));
    EXPECT_EQ(title->textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(makeBar(375, 44)->titleLabel()->frame(), CGRectMake(93.75, 10, 187.5, 30));
    bar->setNavTitle("Albums");
    EXPECT_EQ(title->text(), "Albums");
    bar->setNavTitle(nullptr);
    EXPECT_TRUE(title->text().isNil());
}

TEST_F(ZRTNavigationBarTest, TheBackButtonIsAtTheBottomOnTheLeft) {
    UIButton* back = bar->backButton();
    EXPECT_EQ(back->frame(), CGRectMake(5, 23, 40, 40));
    EXPECT_EQ(back->buttonType(), UIButtonTypeCustom);
    EXPECT_EQ(back->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(back->contentMode(), UIViewContentModeLeft);
    EXPECT_EQ(back->autoresizingMask(), 45u);
    EXPECT_EQ(back->imageForState(UIControlStateNormal), nullptr) << "there is no such image";
    EXPECT_EQ(makeBar(320, 44)->backButton()->frame(), CGRectMake(5, 3, 40, 40));
}

TEST_F(ZRTNavigationBarTest, TheBackButtonsImagesAreTheApplications) {
    const std::string folder = ZR_TEST_OUTPUT "/bar-images";
    std::filesystem::create_directories(folder);
    const auto write = [&](const char* name, CGFloat side) {
        UIGraphicsBeginImageContext(CGSizeMake(side, side));
        const auto bytes = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
        UIGraphicsEndImageContext();
        std::FILE* file = std::fopen((folder + "/" + name).c_str(), "wb");
        ASSERT_TRUE(file);
        EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
        std::fclose(file);
    };
    write("icon_title_back.png", 20);
    write("icon_title_back_press.png", 21);
    NSBundle::setMainBundlePath(folder);
    const auto withImages = makeBar(320, 64);
    NSBundle::setMainBundlePath(nullptr);
    const auto sideOf = [&](NSUInteger state) { return withImages->backButton()->imageForState(state)->size().width; };
    EXPECT_EQ(sideOf(UIControlStateNormal), 20);
    EXPECT_EQ(sideOf(UIControlStateHighlighted), 21);
    EXPECT_EQ(sideOf(UIControlStateDisabled), 21);
}

TEST_F(ZRTNavigationBarTest, ItsPartsShareTheRoomThatItGainsByTheirMargins) {
    const auto right = makeButton(70, 40);
    bar->setRightButton_animated(right, false);
    bar->setFrame(CGRectMake(0, 0, 640, 96));
    bar->layoutIfNeeded();
    EXPECT_EQ(bar->backgroundImageView()->frame(), CGRectMake(0, 0, 640, 96));
    // Twice as wide: each margin is twice what it was. Half as high again: 32 points more, shared as 30 and 4 are.
    const auto expectFrame = [](const UIView* view, CGFloat x, CGFloat y, CGSize size) {
        EXPECT_NEAR(view->frame().origin.x, x, 1e-9);
        EXPECT_NEAR(view->frame().origin.y, y, 1e-9);
        EXPECT_EQ(view->frame().size, size);
    };
    expectFrame(bar->titleLabel(), 240, 30 + 32.0 * 30 / 34, CGSizeMake(160, 30));
    expectFrame(bar->backButton(), 5 + 320.0 * 5 / 280, 23 + 32.0 * 23 / 24, CGSizeMake(40, 40));
    expectFrame(right, 245 + 320.0 * 245 / 250, 23 + 32.0 * 23 / 24, CGSizeMake(70, 40));
}

TEST_F(ZRTNavigationBarTest, NewButtonsStandAtTheEdgesThatTheBarHasNow) {
    bar->setFrame(CGRectMake(0, 0, 400, 50));
    const auto left = makeButton(60, 30), right = makeButton(60, 30);
    bar->setLeftButton_animated(left, false);
    bar->setRightButton_animated(right, false);
    EXPECT_EQ(left->frame(), CGRectMake(5, 9, 60, 30));
    EXPECT_EQ(right->frame(), CGRectMake(335, 9, 60, 30));
    bar->setLeftButtonTitle_target_action("Edit", nullptr, nullptr);
    bar->setRightButtonTitle_target_action("Done", nullptr, nullptr);
    EXPECT_EQ(bar->leftButton()->frame(), CGRectMake(5, 9, 40, 40));
    EXPECT_EQ(bar->rightButton()->frame(), CGRectMake(325, 9, 70, 40));
}

// The back button

TEST_F(ZRTNavigationBarTest, ATapOnTheBackButtonTellsTheDelegate) {
    bar->setDelegate(&delegate);
    EXPECT_EQ(bar->delegate(), &delegate);
    host.tap({25, 43});
    EXPECT_EQ(delegate.bars, (std::vector<ZRTNavigationBar*>{bar}));
    EXPECT_EQ(delegate.buttons, (std::vector<UIButton*>{bar->backButton()}));
    host.tap({160, 43});
    EXPECT_EQ(delegate.bars.size(), 1u);
}

TEST_F(ZRTNavigationBarTest, TheBackButtonTellsOnlyWhenTheFingerGoesUpInside) {
    bar->setDelegate(&delegate);
    host.touchDown({25, 43});
    EXPECT_TRUE(delegate.bars.empty());
    host.touchMove({25, 400});
    host.touchUp();
    EXPECT_TRUE(delegate.bars.empty());
}

TEST_F(ZRTNavigationBarTest, WithoutADelegateThatListensNothingHappens) {
    host.tap({25, 43});
    SilentDelegate silent;
    bar->setDelegate(&silent);
    host.tap({25, 43});
    {
        BarDelegate gone;
        bar->setDelegate(&gone);
    }
    EXPECT_EQ(bar->delegate(), nullptr);
    host.tap({25, 43});
}

TEST_F(ZRTNavigationBarTest, TheDelegateMayDropTheBar) {
    bar->setDelegate(&delegate);
    const Weak<ZRTNavigationBar> weak = bar;
    delegate.onClick = [this] {
        bar->removeFromSuperview();
        bar = nullptr;
    };
    host.tap({25, 43});
    host.advance(1);
    EXPECT_EQ(weak, nullptr);
}

// Showing and hiding

TEST_F(ZRTNavigationBarTest, TheWholeBarFadesInHalfASecondAndKeepsItsPlace) {
    bar->hiddenNavigationBarWithAnimated(true);
    EXPECT_EQ(bar->alpha(), 0);
    EXPECT_EQ(seenAlpha(bar), 1);
    host.advance(0.125);
    EXPECT_NEAR(seenAlpha(bar), 1 - kEasedQuarter, 1e-5);
    host.advance(0.125);
    EXPECT_NEAR(seenAlpha(bar), 0.5, 1e-6);
    host.advance(0.25 - 1e-6);
    EXPECT_TRUE(bar->layer()->hasAnimations());
    host.advance(1e-6);
    EXPECT_FALSE(bar->layer()->hasAnimations());
    EXPECT_EQ(bar->superview(), window);
    EXPECT_EQ(bar->frame(), CGRectMake(0, 0, 320, 64));
    bar->showNavigationBarWithAnimated(true);
    host.advance(0.25);
    EXPECT_NEAR(seenAlpha(bar), 0.5, 1e-6);
    host.advance(0.25);
    EXPECT_EQ(seenAlpha(bar), 1);
    bar->hiddenNavigationBarWithAnimated(false);
    EXPECT_EQ(seenAlpha(bar), 0);
    bar->showNavigationBarWithAnimated(false);
    EXPECT_EQ(seenAlpha(bar), 1);
}

TEST_F(ZRTNavigationBarTest, TheBackButtonFadesIn300Milliseconds) {
    const UIButton* back = bar->backButton();
    const auto expectFade = [&](CGFloat end) {
        EXPECT_EQ(back->alpha(), end);
        EXPECT_EQ(seenAlpha(back), 1 - end);
        host.advance(0.075);
        EXPECT_NEAR(seenAlpha(back), end == 0 ? 1 - kEasedQuarter : kEasedQuarter, 1e-5);
        host.advance(0.075);
        EXPECT_NEAR(seenAlpha(back), 0.5, 1e-6);
        host.advance(0.15);
        EXPECT_EQ(seenAlpha(back), end);
        EXPECT_FALSE(back->layer()->hasAnimations());
    };
    bar->hiddenBackButton_animated(true, true);
    expectFade(0);
    bar->hiddenBackButton_animated(false, true);
    expectFade(1);
    bar->hiddenBackButtonAnimated(true);
    expectFade(0);
    bar->showBackButtonAnimated(true);
    expectFade(1);
    bar->hiddenBackButtonAnimated(false);
    EXPECT_EQ(seenAlpha(back), 0);
    bar->showBackButtonAnimated(false);
    EXPECT_EQ(seenAlpha(back), 1);
    bar->hiddenBackButton_animated(true, false);
    EXPECT_EQ(seenAlpha(back), 0);
}

TEST_F(ZRTNavigationBarTest, WithoutPartsNothingHappens) {
    bar->setBackButton(nullptr);
    bar->setTitleLabel(nullptr);
    bar->setBackgroundImageView(nullptr);
    bar->hiddenBackButtonAnimated(true);
    bar->showBackButtonAnimated(false);
    bar->setLeftButton_animated(nullptr, true);
    bar->setNavTitle("Albums");
    bar->defaultBackgroundColor();
    bar->backButtonClicked(nullptr);
    EXPECT_EQ(bar->subviews().size(), 3u);
}

// The theme

TEST_F(ZRTNavigationBarTest, TakesTheThemesColourBackWhenAsked) {
    bar->backgroundImageView()->setBackgroundColor(UIColor::blueColor());
    bar->defaultBackgroundColor();
    EXPECT_EQ(bar->backgroundImageView()->backgroundColor(), ZRColorInstance::Instance()->navigationBarShadowColor());
}

TEST_F(ZRTNavigationBarTest, DoesNotFollowTheThemeByItself) {
    bar->backgroundImageView()->setBackgroundColor(UIColor::blueColor());
    NSNotificationCenter::defaultCenter()->postNotificationName_object(kChangeThemeNotification, nullptr);
    EXPECT_EQ(bar->backgroundImageView()->backgroundColor(), UIColor::blueColor());
}

// The left button

TEST_F(ZRTNavigationBarTest, ALeftButtonTakesTheBackButtonsPlaceAndFadesIn) {
    const auto left = makeButton(60, 30);
    left->setBackgroundColor(UIColor::redColor());
    bar->setLeftButton_animated(left, true);
    EXPECT_EQ(bar->leftButton(), left);
    EXPECT_EQ(left->superview(), bar);
    EXPECT_EQ(left->frame(), CGRectMake(5, 23, 60, 30));
    expectStyled(left);
    EXPECT_EQ(seenAlpha(bar->backButton()), 0) << "at once";
    EXPECT_EQ(seenAlpha(left), 0);
    host.advance(0.075);
    EXPECT_NEAR(seenAlpha(left), kEasedQuarter, 1e-5);
    host.advance(0.075);
    EXPECT_NEAR(seenAlpha(left), 0.5, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(seenAlpha(left), 1);
    EXPECT_FALSE(left->layer()->hasAnimations());
}

TEST_F(ZRTNavigationBarTest, WithoutAnimationALeftButtonIsThereAtOnce) {
    const auto left = makeButton(60, 30);
    bar->setLeftButton_animated(left, false);
    EXPECT_EQ(seenAlpha(left), 1);
}

TEST_F(ZRTNavigationBarTest, ANewLeftButtonReplacesTheOldOneAtOnce) {
    const auto first = makeButton(60, 30), second = makeButton(40, 40);
    bar->setLeftButton_animated(first, false);
    bar->setLeftButton_animated(second, true);
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(bar->leftButton(), second);
    EXPECT_EQ(second->frame(), CGRectMake(5, 23, 40, 40));
    EXPECT_EQ(seenAlpha(second), 0);
}

TEST_F(ZRTNavigationBarTest, TheLeftButtonThatIsThereDoesNotFlash) {
    const auto left = makeButton(60, 30);
    bar->setLeftButton_animated(left, false);
    host.advance(0);
    bar->backButton()->setAlpha(1);
    left->setFrame(CGRectMake(1, 2, 3, 4));
    const auto subviews = bar->subviews();
    bar->addSubview(make<UIView>());
    bar->setLeftButton_animated(left, true);
    EXPECT_EQ(bar->subviews()[3], left) << "it stays where it was among the others";
    EXPECT_EQ(bar->subviews().size(), subviews.size() + 1);
    EXPECT_EQ(bar->backButton()->alpha(), 0) << "it gives up the back button all the same";
    EXPECT_EQ(left->frame(), CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(seenAlpha(left), 1);
    EXPECT_FALSE(left->layer()->hasAnimations());
}

TEST_F(ZRTNavigationBarTest, NilWithoutALeftButtonHidesTheBackButton) {
    bar->setLeftButton_animated(nullptr, true);
    EXPECT_EQ(seenAlpha(bar->backButton()), 0);
    EXPECT_EQ(bar->leftButton(), nullptr);
    EXPECT_EQ(bar->subviews().size(), 3u);
}

TEST_F(ZRTNavigationBarTest, NilFadesTheLeftButtonOutAndTheBackButtonStaysAsItIs) {
    const auto left = makeButton(60, 30);
    bar->setLeftButton_animated(left, false);
    bar->backButton()->setAlpha(0.7);
    bar->setLeftButton_animated(nullptr, true);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(left), 0.5, 1e-6);
    EXPECT_EQ(bar->leftButton(), left);
    EXPECT_EQ(left->superview(), bar);
    host.advance(0.15);
    EXPECT_EQ(bar->leftButton(), nullptr);
    EXPECT_EQ(left->superview(), nullptr);
    EXPECT_NEAR(bar->backButton()->alpha(), 0.7, 1e-6);
    bar->setLeftButton_animated(left, false);
    bar->setLeftButton_animated(nullptr, false);
    EXPECT_EQ(seenAlpha(left), 0);
    host.advance(0);
    EXPECT_EQ(bar->leftButton(), nullptr);
}

TEST_F(ZRTNavigationBarTest, AButtonSetWhileTheOldOneFadesOutStays) {
    const auto first = makeButton(60, 30), second = makeButton(60, 30);
    for (const bool left : {true, false}) {
        const auto set = [&](UIButton* button, bool animated) {
            left ? bar->setLeftButton_animated(button, animated) : bar->setRightButton_animated(button, animated);
        };
        set(first, false);
        set(nullptr, true);
        host.advance(0.1);
        set(second, true);
        host.advance(1);
        EXPECT_EQ(left ? bar->leftButton() : bar->rightButton(), second);
        EXPECT_EQ(second->superview(), bar);
        EXPECT_EQ(first->superview(), nullptr);
    }
}

// The right button

TEST_F(ZRTNavigationBarTest, ARightButtonStandsAtTheRightEdgeAndLeavesTheBackButton) {
    const auto right = makeButton(60, 30);
    bar->setRightButton_animated(right, true);
    EXPECT_EQ(bar->rightButton(), right);
    EXPECT_EQ(right->frame(), CGRectMake(255, 23, 60, 30));
    expectStyled(right);
    EXPECT_EQ(seenAlpha(bar->backButton()), 1);
    EXPECT_EQ(seenAlpha(right), 0);
    host.advance(0.075);
    EXPECT_NEAR(seenAlpha(right), kEasedQuarter, 1e-5);
    host.advance(0.075);
    EXPECT_NEAR(seenAlpha(right), 0.5, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(seenAlpha(right), 1);
}

TEST_F(ZRTNavigationBarTest, ANewRightButtonReplacesTheOldOneAndTheSameOneIsLeftAlone) {
    const auto first = makeButton(60, 30), second = makeButton(40, 40);
    bar->setRightButton_animated(first, false);
    host.advance(0);
    bar->addSubview(make<UIView>());
    first->setFrame(CGRectMake(1, 2, 3, 4));
    bar->setRightButton_animated(first, true);
    EXPECT_EQ(seenAlpha(first), 1);
    EXPECT_EQ(first->frame(), CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(bar->subviews()[3], first);
    bar->setRightButton_animated(second, false);
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(second->frame(), CGRectMake(275, 23, 40, 40));
    EXPECT_EQ(seenAlpha(second), 1);
}

TEST_F(ZRTNavigationBarTest, NilFadesTheRightButtonOut) {
    bar->setRightButton_animated(nullptr, true); // nothing is there
    EXPECT_EQ(seenAlpha(bar->backButton()), 1);
    const auto right = makeButton(60, 30);
    bar->setRightButton_animated(right, false);
    bar->setRightButton_animated(nullptr, true);
    host.advance(0.3 - 1e-6);
    EXPECT_EQ(bar->rightButton(), right);
    EXPECT_EQ(right->superview(), bar);
    host.advance(1e-6);
    EXPECT_EQ(bar->rightButton(), nullptr);
    EXPECT_EQ(right->superview(), nullptr);
    bar->setRightButton_animated(right, false);
    bar->setRightButton_animated(nullptr, false);
    EXPECT_EQ(seenAlpha(right), 0);
    host.advance(0);
    EXPECT_EQ(bar->rightButton(), nullptr);
}

// Text buttons

TEST_F(ZRTNavigationBarTest, TextButtonsAre40And70PointsWide) {
    bar->setLeftButtonTitle_target_action("Edit", &target, selector<&Target::tapped>);
    bar->setRightButtonTitle_target_action("Done", &target, selector<&Target::tapped>);
    EXPECT_EQ(bar->leftButton()->frame(), CGRectMake(5, 23, 40, 40));
    EXPECT_EQ(bar->rightButton()->frame(), CGRectMake(245, 23, 70, 40));
    for (UIButton* button : {bar->leftButton(), bar->rightButton()}) {
        EXPECT_EQ(button->buttonType(), UIButtonTypeCustom);
        expectStyled(button);
        EXPECT_EQ(seenAlpha(button), 0) << "it fades in";
    }
    EXPECT_EQ(bar->leftButton()->titleForState(UIControlStateNormal), "Edit");
    EXPECT_EQ(bar->rightButton()->titleForState(UIControlStateNormal), "Done");
    host.advance(0.3);
    for (const CGPoint place : {CGPointMake(25, 43), CGPointMake(280, 43)}) {
        host.touchDown(place);
        host.touchMove({160, 500});
        host.touchUp();
    }
    EXPECT_TRUE(target.buttons.empty()) << "the fingers did not go up inside";
    host.tap({25, 43});
    host.tap({280, 43});
    EXPECT_EQ(target.buttons, (std::vector<UIButton*>{bar->leftButton(), bar->rightButton()}));
}

TEST_F(ZRTNavigationBarTest, TextButtonsMayLackATitleOrATarget) {
    bar->setLeftButtonTitle_target_action(nullptr, nullptr, nullptr);
    bar->setRightButtonTitle_target_action("", nullptr, nullptr);
    host.advance(1);
    host.tap({25, 43});
    host.tap({280, 43});
    EXPECT_TRUE(bar->leftButton()->titleForState(UIControlStateNormal).isNil());
}

TEST_F(ZRTNavigationBarTest, ButtonTitlesOfAMegabyteAreShownAsFarAsTheyGo) {
    const std::clock_t start = std::clock();
    bar->setLeftButtonTitle_target_action(std::string(1 << 20, 'x'), nullptr, nullptr);
    bar->setRightButtonTitle_target_action(std::string(1 << 20, 'x'), nullptr, nullptr);
    host.advance(1);
    // Shaping all of it takes more than ten times as long.
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
    EXPECT_EQ(bar->leftButton()->titleForState(UIControlStateNormal).length(), 1u << 20);
    int inked = 0;
    for (CGFloat x = 6; x < 44; ++x)
        inked += !(host.pixel({x, 43}) == host.pixel({160, 43}));
    EXPECT_GT(inked, 10) << "white letters on green";
}

TEST_F(ZRTNavigationBarTest, ABarThatGoesDuringAFadeIsNoHarm) {
    const auto left = makeButton(60, 30);
    bar->setLeftButton_animated(left, false);
    bar->setLeftButton_animated(nullptr, true);
    const Weak<ZRTNavigationBar> weak = bar;
    bar->removeFromSuperview();
    bar = nullptr;
    host.advance(1);
    EXPECT_EQ(weak, nullptr);
    EXPECT_EQ(left->superview(), nullptr);
}

} // namespace zr::testing
