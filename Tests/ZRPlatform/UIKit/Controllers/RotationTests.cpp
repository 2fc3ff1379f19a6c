#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

class Rotation : public Navigation {};
class StatusBar : public Navigation {};

class Choosy : public Screen {
public:
    bool prefersStatusBarHidden() const override { return hides; }
    UIStatusBarStyle preferredStatusBarStyle() const override { return style; }
    UIStatusBarAnimation preferredStatusBarUpdateAnimation() const override { return UIStatusBarAnimationNone; }

    bool hides = true;
    UIStatusBarStyle style = UIStatusBarStyleLightContent;
};

} // namespace

TEST_F(Rotation, TheScreensTurnWithTheDeviceAndAreTold) {
    show(navigation);
    a->logsLayout = true;
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(news(), (Log{"A will rotate to 4", "A will animate rotation to 4", "A will lay out", "A did lay out",
                           "A did rotate from 1"}));
    EXPECT_EQ(navigation->view()->frame(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(navigation->navigationBar()->frame(), CGRectMake(0, 20, 667, 44));
    EXPECT_EQ(a->interfaceOrientation(), UIInterfaceOrientationLandscapeLeft);
}

TEST_F(Rotation, TheSizesAreOldBeforeAndNewInTheMiddle) {
    showAlone(a);
    std::vector<CGFloat> widths;
    a->act = [&](const std::string&) { widths.push_back(a->view()->bounds().size.width); };
    host.rotate(UIInterfaceOrientationLandscapeRight);
    a->act = nullptr;
    EXPECT_EQ(widths, (std::vector<CGFloat>{375, 667, 667}));
}

TEST_F(Rotation, TheScreenInFrontDecides) {
    show(navigation);
    host.rotate(UIInterfaceOrientationPortraitUpsideDown);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationPortrait);
    EXPECT_EQ(news(), (Log{}));
    a->orientations = UIInterfaceOrientationMaskPortrait;
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationPortrait);
    auto m = makeScreen("M");
    m->rotates = false;
    a->orientations = UIInterfaceOrientationMaskAll;
    a->presentViewController_animated_completion(m, false, nullptr);
    host.rotate(UIInterfaceOrientationLandscapeRight);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationPortrait);
    a->dismissViewControllerAnimated_completion(false, nullptr);
    host.rotate(UIInterfaceOrientationPortraitUpsideDown);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationPortraitUpsideDown);
}

TEST_F(Rotation, WhatWasRefusedMayBeAttemptedAgain) {
    show(navigation);
    a->orientations = UIInterfaceOrientationMaskPortrait;
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    UIViewController::attemptRotationToDeviceOrientation();
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationPortrait);
    a->orientations = UIInterfaceOrientationMaskAll;
    UIViewController::attemptRotationToDeviceOrientation();
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(a->view()->bounds().size, CGSizeMake(667, 375));
}

TEST_F(Rotation, AllTabsMustAgree) {
    auto tabs = make<UITabBarController>();
    tabs->setViewControllers({b, c});
    show(tabs);
    c->orientations = UIInterfaceOrientationMaskPortrait;
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationPortrait);
    c->orientations = UIInterfaceOrientationMaskLandscape;
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(news(), (Log{"B will rotate to 4", "B will animate rotation to 4", "B did rotate from 1"}))
        << "only those on the screen are told";
}

TEST_F(Rotation, ASlideEndsFirst) {
    show(navigation);
    navigation->pushViewController_animated(b, true);
    host.advance(0.1);
    news();
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(news(), (Log{"A did disappear animated", "B did appear animated", "B will rotate to 4",
                           "B will animate rotation to 4", "B did rotate from 1"}));
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_EQ(b->view()->bounds().size, CGSizeMake(667, 375));
    navigation->popViewControllerAnimated(true);
    host.advance(0);
    EXPECT_EQ(a->view()->bounds().size, CGSizeMake(667, 375)) << "it was not there when the screen turned";
    EXPECT_NEAR(seenOrigin(a->view()).x, -200.1, 1e-3);
}

TEST_F(Rotation, ThePresenterComesBackInTheNewSize) {
    show(navigation);
    auto m = makeScreen("M");
    a->presentViewController_animated_completion(m, false, nullptr);
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(m->view()->frame(), CGRectMake(0, 0, 667, 375));
    a->dismissViewControllerAnimated_completion(true, nullptr);
    host.advance(0);
    EXPECT_EQ(navigation->view()->frame(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 667, 375));
    host.advance(1);
}

TEST_F(Rotation, AHiddenWindowTurnsWhenItIsShown) {
    show(navigation);
    window->setHidden(true);
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    window->setHidden(false);
    EXPECT_EQ(window->frame(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(a->view()->frame(), CGRectMake(0, 0, 667, 375));
    window->setFrame(CGRectMake(0, 0, 100, 100));
    window->setHidden(true);
    host.rotate(UIInterfaceOrientationPortrait);
    window->setHidden(false);
    EXPECT_EQ(window->frame(), CGRectMake(0, 0, 100, 100)) << "it did not fill the screen";
}

// Status bar

TEST_F(StatusBar, ItIsTwentyPointsHighAcrossTheScreen) {
    EXPECT_EQ(host.application()->statusBarFrame(), CGRectMake(0, 0, 375, 20));
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(host.application()->statusBarFrame(), CGRectMake(0, 0, 667, 20));
    host.application()->setStatusBarHidden(true);
    EXPECT_TRUE(host.application()->isStatusBarHidden());
    EXPECT_EQ(host.application()->statusBarFrame(), CGRectZero);
}

TEST_F(StatusBar, ItsStyleIsStored) {
    EXPECT_EQ(host.application()->statusBarStyle(), UIStatusBarStyleDefault);
    host.application()->setStatusBarStyle_animated(UIStatusBarStyleLightContent, true);
    EXPECT_EQ(host.application()->statusBarStyle(), UIStatusBarStyleLightContent);
}

TEST_F(StatusBar, AChangeOfItsFrameIsTold) {
    class Witness : public NSObject {
    public:
        void told(NSNotification* notification) {
            log->push_back(notification->name().utf8() +
                           (UIApplication::sharedApplication()->isStatusBarHidden() ? " hidden" : " shown"));
        }
        Log* log = nullptr;
    };
    auto witness = make<Witness>();
    witness->log = &log;
    for (const char* name :
         {UIApplicationWillChangeStatusBarFrameNotification, UIApplicationDidChangeStatusBarFrameNotification})
        NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(witness, selector<&Witness::told>, name,
                                                                                nullptr);
    host.application()->setStatusBarHidden(true);
    host.application()->setStatusBarHidden(true);
    EXPECT_EQ(news(), (Log{"UIApplicationWillChangeStatusBarFrameNotification shown",
                           "UIApplicationDidChangeStatusBarFrameNotification hidden"}));
}

TEST_F(StatusBar, TheScreenInFrontMayHideIt) {
    auto choosy = makeScreen<Choosy>("X");
    show(navigation);
    navigation->pushViewController_animated(choosy, false);
    EXPECT_TRUE(host.application()->isStatusBarHidden());
    EXPECT_EQ(host.application()->statusBarStyle(), UIStatusBarStyleLightContent);
    EXPECT_EQ(navigation->navigationBar()->frame(), CGRectMake(0, 0, 375, 44));
    choosy->hides = false;
    EXPECT_TRUE(host.application()->isStatusBarHidden());
    choosy->setNeedsStatusBarAppearanceUpdate();
    EXPECT_FALSE(host.application()->isStatusBarHidden());
    navigation->popViewControllerAnimated(false);
    EXPECT_EQ(host.application()->statusBarStyle(), UIStatusBarStyleDefault);
}

TEST_F(StatusBar, ScreensWithoutWishesLeaveWhatTheApplicationSet) {
    host.application()->setStatusBarHidden(true);
    show(navigation);
    navigation->pushViewController_animated(b, false);
    EXPECT_TRUE(host.application()->isStatusBarHidden());
}

TEST_F(StatusBar, APresentedScreenIsAskedUntilItGoes) {
    auto choosy = makeScreen<Choosy>("X");
    showAlone(a);
    a->presentViewController_animated_completion(choosy, true, nullptr);
    EXPECT_TRUE(host.application()->isStatusBarHidden());
    host.advance(1);
    a->dismissViewControllerAnimated_completion(true, nullptr);
    EXPECT_FALSE(host.application()->isStatusBarHidden());
    host.advance(1);
}

} // namespace zr::tests
