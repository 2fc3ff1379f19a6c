#include <Tests/ZRKitDynamic/ZRTAlertView/AlertTesting.h>

// How an alert comes and goes: windows, hosts, animations, and who keeps whom.

namespace zr::testing {

namespace {

UIWindow* showAndGetWindow(ZRBaseAlert* alert, bool animated = false) {
    alert->showWithAnimation(animated);
    return alert->window();
}

Ref<UIView> addHostView(UIView* window, CGRect frame) {
    auto view = make<UIView>(&UIView::initWithFrame, frame);
    window->addSubview(view);
    return view;
}

} // namespace

// The alert's own window

TEST(AlertWindow, LevelIsBelowAlertsBeforeVersion8) {
    for (const char* version : {"6.1", "7.0", "7.1.2"}) {
        HeadlessHost host(deviceOfVersion(version));
        const auto alert = makeBaseAlert();
        EXPECT_EQ(showAndGetWindow(alert)->windowLevel(), UIWindowLevelAlert - 1) << version;
        endAlert(host, alert);
    }
}

TEST(AlertWindow, LevelIs1047FromVersion8OnByNumber) {
    for (const char* version : {"8.0", "8.4", "10.0"}) {
        HeadlessHost host(deviceOfVersion(version));
        const auto alert = makeBaseAlert();
        EXPECT_EQ(showAndGetWindow(alert)->windowLevel(), 1047) << version;
        endAlert(host, alert);
    }
}

TEST(AlertWindow, CoversTheScreenIsClearAndBecomesKey) {
    HeadlessHost host;
    const auto application = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{application}) << "hidden until shown";
    UIWindow* window = showAndGetWindow(alert);
    ASSERT_TRUE(window);
    EXPECT_EQ(window->frame(), CGRectMake(0, 0, 375, 667));
    EXPECT_EQ(rgba(window->backgroundColor()), kClear);
    EXPECT_EQ(window->alpha(), 1);
    EXPECT_FALSE(window->isHidden());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(alert->superview(), window);
    EXPECT_EQ(host.application()->windows(), (std::vector<UIWindow*>{application, window}));
    endAlert(host, alert);
}

TEST(AlertWindow, GivesTheKeyBackAndGoesWhenDismissed) {
    HeadlessHost host;
    const auto application = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    const Weak<UIWindow> window = showAndGetWindow(alert);
    alert->dismissAlertView();
    host.advance(0.29);
    EXPECT_TRUE(window.get());
    EXPECT_EQ(alert->superview(), window.get());
    host.advance(0.01);
    EXPECT_FALSE(window.get());
    EXPECT_FALSE(alert->superview());
    EXPECT_TRUE(application->isKeyWindow());
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{application});
}

TEST(AlertWindow, ShowingAgainAfterDismissalDoesNothing) {
    HeadlessHost host;
    const auto application = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->showWithAnimation(true);
    host.advance(0.3);
    alert->dismissAlertView();
    host.advance(0.3);
    alert->showWithAnimation(true);
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
    EXPECT_TRUE(application->isKeyWindow());
    alert->dismissAlertView();
    host.advance(0.3);
    EXPECT_EQ(host.pixel({187, 313}), (FramePixel{255, 255, 255}));
}

TEST(AlertWindow, CanStillShowInAViewAfterwards) {
    HeadlessHost host;
    const auto application = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->showWithAnimation(true);
    alert->dismissAlertView();
    host.advance(0.3);
    alert->showInView_animation(application, true);
    host.advance(0.3);
    EXPECT_EQ(alert->superview(), application.get());
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 278.5, 270, 70));
    EXPECT_EQ(alert->cancelButton()->frame(), CGRectMake(-0.5, 26, 136, 45));
    endAlert(host, alert);
}

// Showing

TEST(AlertShow, GrowsThePanelFromNineTenthsWithinThreeTenthsOfASecond) {
    HeadlessHost host;
    const auto alert = makeBaseAlert();
    alert->showWithAnimation(true);
    host.advance(0);
    EXPECT_NEAR(seenScale(alert), 0.9, kSeenTolerance);
    host.advance(0.075);
    EXPECT_NEAR(seenScale(alert), 0.9 + 0.1 * easedAt(0.25), kSeenTolerance);
    host.advance(0.075);
    EXPECT_NEAR(seenScale(alert), 0.95, kSeenTolerance);
    host.advance(0.149);
    EXPECT_LT(seenScale(alert), 1);
    host.advance(0.001);
    EXPECT_EQ(seenScale(alert), 1);
    EXPECT_FALSE(alert->backgroundAlert()->layer()->hasAnimations());
    EXPECT_EQ(alert->backgroundAlert()->transform(), CGAffineTransformIdentity);
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 278.5, 270, 70));
    endAlert(host, alert);
}

TEST(AlertShow, DoesNotAnimateTheDimming) {
    HeadlessHost host;
    const auto alert = makeBaseAlert();
    UIWindow* window = showAndGetWindow(alert, true);
    host.advance(0);
    EXPECT_FLOAT_EQ(seenAlpha(alert->backgroundView()), 0.45);
    EXPECT_EQ(seenAlpha(alert), 1);
    EXPECT_EQ(seenAlpha(window), 1);
    for (const UIView* view :
         {alert->backgroundView(), static_cast<UIView*>(alert.get()), static_cast<UIView*>(window)})
        EXPECT_FALSE(view->layer()->hasAnimations());
    endAlert(host, alert);
}

TEST(AlertShow, NotAnimatedIsThereAtOnce) {
    HeadlessHost host;
    const auto alert = makeBaseAlert();
    alert->showWithAnimation(false);
    host.advance(0);
    EXPECT_EQ(seenScale(alert), 1);
    EXPECT_FALSE(alert->backgroundAlert()->layer()->hasAnimations());
    endAlert(host, alert);
}

TEST(AlertShow, DrawsThePanelOverTheDimmedApplication) {
    HeadlessHost host;
    const auto application = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert(nullptr, "Cancel", nullptr);
    alert->showWithAnimation(true);
    host.advance(0.3);
    // White under 45 % of black is 140; 93 % of 245 over that is 238.
    EXPECT_NEAR(host.pixel({10, 10}).red, 140, 1);
    EXPECT_NEAR(host.pixel({100, 290}).red, 238, 1);
    EXPECT_NEAR(host.pixel({53, 279}).red, 140, 1) << "the corner is cut off";
    EXPECT_NEAR(host.pixel({52.25, 313}).red, 140, 1) << "just left of the panel";
    EXPECT_NEAR(host.pixel({52.75, 290}).red, 238, 1) << "the panel's first pixel";
    // The button's border: above it, and not at the panel's sides, where it is cut off.
    EXPECT_NEAR(host.pixel({100, 304.75}).red, 168, 1);
    EXPECT_NEAR(host.pixel({52.75, 330}).red, 238, 1);
    host.touchDown({100, 330});
    EXPECT_NEAR(host.pixel({60, 315}).red, 227, 1) << "233 while touched";
    host.touchCancel();
    endAlert(host, alert);
}

// Dismissing

TEST(AlertDismissal, ShrinksThePanelWhileTheWindowFades) {
    HeadlessHost host;
    const auto alert = makeBaseAlert();
    const Ref<UIWindow> window = showAndGetWindow(alert);
    host.advance(0);
    alert->dismissAlertView();
    host.advance(0);
    EXPECT_NEAR(seenScale(alert), 1, kSeenTolerance);
    EXPECT_NEAR(seenAlpha(window), 1, kSeenTolerance);
    host.advance(0.075);
    EXPECT_NEAR(seenScale(alert), 1 - 0.9 * easedAt(0.25), kSeenTolerance);
    EXPECT_NEAR(seenAlpha(window), 1 - easedAt(0.25), kSeenTolerance);
    host.advance(0.075);
    EXPECT_NEAR(seenScale(alert), 0.55, kSeenTolerance);
    EXPECT_NEAR(seenAlpha(window), 0.5, kSeenTolerance);
    EXPECT_FLOAT_EQ(seenAlpha(alert->backgroundView()), 0.45) << "the dimming fades with the window only";
    EXPECT_TRUE(alert->superview());
    host.advance(0.15);
    EXPECT_FALSE(alert->superview());
    EXPECT_FALSE(window->isKeyWindow()) << "even where somebody else keeps it";
}

TEST(AlertDismissal, FadesOnTheScreen) {
    HeadlessHost host;
    const auto application = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    alert->showWithAnimation(false);
    host.advance(0);
    alert->dismissAlertView();
    host.advance(0.15);
    EXPECT_NEAR(host.pixel({10, 10}).red, 198, 1);
    host.advance(0.15);
    EXPECT_EQ(host.pixel({10, 10}), (FramePixel{255, 255, 255}));
}

TEST(AlertDismissal, WithoutAnimationIsOverInTheNextTurn) {
    HeadlessHost host;
    const auto alert = makeBaseAlert();
    UIWindow* window = showAndGetWindow(alert);
    host.advance(0);
    alert->dismissAlertViewWithoutAnimation();
    EXPECT_EQ(window->alpha(), 0);
    EXPECT_EQ(alert->backgroundAlert()->transform(), CGAffineTransformIdentity) << "the panel does not shrink";
    EXPECT_TRUE(alert->superview());
    host.advance(0);
    EXPECT_FALSE(alert->superview());
    EXPECT_TRUE(host.application()->windows().empty());
}

TEST(AlertDismissal, WhileStillGrowingStartsFromWhatIsSeen) {
    HeadlessHost host;
    const auto alert = makeBaseAlert();
    alert->showWithAnimation(true);
    host.advance(0.15);
    alert->dismissAlertView();
    host.advance(0);
    EXPECT_NEAR(seenScale(alert), 0.95, kSeenTolerance);
    host.advance(0.15);
    EXPECT_NEAR(seenScale(alert), 0.525, kSeenTolerance);
    host.advance(0.15);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertDismissal, OfAnAlertNeverShownTellsTheDelegateAndEnds) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    const Weak<ZRBaseAlert> weak = alert;
    alert->dismissAlertView();
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0"}));
    alert = nullptr;
    EXPECT_TRUE(weak.get());
    host.advance(0.3);
    EXPECT_FALSE(weak.get());
}

// In a host view

TEST(AlertInHostView, GoesByTheHostsFrame) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto view = addHostView(window, CGRectMake(0, 0, 300, 600));
    view->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    const auto alert = makeBaseAlert();
    alert->showInView_animation(view, false);
    EXPECT_EQ(alert->getSuperViewSize(), CGSizeMake(150, 300));
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(-60, 95, 270, 70));
    endAlert(host, alert);
}

TEST(AlertInHostView, IsCenteredOnTheHost) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto view = addHostView(window, CGRectMake(20, 40, 335, 500));
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->showInView_animation(view, false);
    EXPECT_EQ(alert->superview(), view.get());
    EXPECT_EQ(alert->getSuperViewSize(), CGSizeMake(335, 500));
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(32.5, 195, 270, 70));
    EXPECT_EQ(alert->frame(), CGRectMake(0, 0, 375, 667));
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window});
    endAlert(host, alert);
}

TEST(AlertInHostView, GrowsLikeInAWindow) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    alert->showInView_animation(window, true);
    host.advance(0.15);
    EXPECT_NEAR(seenScale(alert), 0.95, kSeenTolerance);
    endAlert(host, alert);
}

TEST(AlertInHostView, OnlyThePanelShrinksAndTheDimmingVanishesAtTheEnd) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    alert->showInView_animation(window, false);
    host.advance(0);
    alert->dismissAlertView();
    host.advance(0.15);
    EXPECT_NEAR(seenScale(alert), 0.55, kSeenTolerance);
    EXPECT_EQ(seenAlpha(alert), 1);
    EXPECT_EQ(seenAlpha(window), 1);
    EXPECT_NEAR(host.pixel({10, 10}).red, 140, 1);
    host.advance(0.149);
    EXPECT_NEAR(host.pixel({10, 10}).red, 140, 1);
    host.advance(0.001);
    EXPECT_EQ(host.pixel({10, 10}), (FramePixel{255, 255, 255}));
    EXPECT_FALSE(alert->superview());
}

TEST(AlertInHostView, KeepsTheHostUntilDismissed) {
    HeadlessHost host;
    auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 300, 300));
    const Weak<UIView> weak = view;
    const auto alert = makeBaseAlert();
    alert->showInView_animation(view, false);
    view = nullptr;
    EXPECT_TRUE(weak.get());
    alert->dismissAlertView();
    host.advance(0.29);
    EXPECT_TRUE(weak.get());
    host.advance(0.01);
    EXPECT_FALSE(weak.get());
    EXPECT_EQ(alert->getSuperViewSize(), CGSizeMake(375, 667));
}

TEST(AlertInHostView, CanBeShownAgain) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    for (int round = 0; round < 2; ++round) {
        alert->showInView_animation(window, true);
        host.advance(0);
        EXPECT_NEAR(seenScale(alert), 0.9, kSeenTolerance);
        host.advance(0.3);
        EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 278.5, 270, 70));
        EXPECT_EQ(alert->okButton()->frame(), CGRectMake(135, 26, 136, 45));
        alert->dismissAlertView();
        host.advance(0.3);
        EXPECT_FALSE(alert->superview());
    }
}

TEST(AlertInHostView, ThenInItsOwnWindow) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    alert->showInView_animation(window, false);
    alert->dismissAlertViewWithoutAnimation();
    host.advance(0);
    UIWindow* own = showAndGetWindow(alert);
    ASSERT_TRUE(own);
    EXPECT_NE(own, window.get());
    EXPECT_EQ(own->alpha(), 1);
    EXPECT_TRUE(own->isKeyWindow());
    endAlert(host, alert);
}

TEST(AlertInHostView, TakenOffByHandItGoesToItsOwnWindow) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    auto view = addHostView(window, CGRectMake(20, 40, 335, 500));
    const Weak<UIView> weak = view;
    const auto alert = makeBaseAlert();
    alert->showInView_animation(view, false);
    alert->removeFromSuperview();
    UIWindow* own = showAndGetWindow(alert);
    ASSERT_TRUE(own);
    EXPECT_NE(own, window.get());
    EXPECT_TRUE(own->isKeyWindow());
    EXPECT_EQ(alert->getSuperViewSize(), CGSizeMake(375, 667));
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 278.5, 270, 70));
    view->removeFromSuperview();
    view = nullptr;
    EXPECT_FALSE(weak.get()) << "no longer the alert's host";
    endAlert(host, alert);
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window});
}

TEST(AlertInHostView, ThatIsTheAlertItselfIsItsOwnWindow) {
    HeadlessHost host;
    auto alert = makeBaseAlert();
    const Weak<ZRBaseAlert> weak = alert;
    alert->showInView_animation(alert, false);
    ASSERT_TRUE(alert->window());
    EXPECT_EQ(alert->superview(), alert->window());
    EXPECT_TRUE(alert->window()->isKeyWindow());
    endAlert(host, alert);
    alert = nullptr;
    EXPECT_FALSE(weak.get());
}

TEST(AlertInHostView, ShownThereWhileItsWindowFadesLetsTheHostGoAtTheEnd) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    auto view = addHostView(window, CGRectMake(20, 40, 335, 500));
    const Weak<UIView> weak = view;
    const auto alert = makeBaseAlert();
    alert->showWithAnimation(false);
    host.advance(0);
    alert->dismissAlertView();
    host.advance(0.1);
    alert->showInView_animation(view, false);
    host.advance(0.2);
    EXPECT_FALSE(alert->superview());
    EXPECT_EQ(alert->getSuperViewSize(), CGSizeMake(375, 667));
    view->removeFromSuperview();
    view = nullptr;
    EXPECT_FALSE(weak.get());
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window});
}

TEST(AlertInHostView, ShownInItsWindowWhileThePanelShrinksLeavesNoWindow) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert();
    alert->showInView_animation(window, false);
    host.advance(0);
    alert->dismissAlertView();
    host.advance(0.1);
    ASSERT_TRUE(showAndGetWindow(alert));
    host.advance(0.2);
    EXPECT_FALSE(alert->superview());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window});
}

// Who keeps whom

TEST(AlertLife, TheWindowKeepsAShownAlert) {
    HeadlessHost host;
    auto alert = makeBaseAlert();
    const Weak<ZRBaseAlert> weak = alert;
    alert->showWithAnimation(true);
    alert = nullptr;
    host.advance(10);
    ASSERT_TRUE(weak.get());
    weak->dismissAlertView();
    host.advance(0.29);
    EXPECT_TRUE(weak.get());
    host.advance(0.01);
    EXPECT_FALSE(weak.get());
}

TEST(AlertLife, TheHostViewKeepsAShownAlert) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    auto alert = makeBaseAlert();
    const Weak<ZRBaseAlert> weak = alert;
    alert->showInView_animation(window, true);
    alert = nullptr;
    host.advance(10);
    ASSERT_TRUE(weak.get());
    weak->dismissAlertView();
    host.advance(0.3);
    EXPECT_FALSE(weak.get());
}

TEST(AlertLife, ADismissalKeepsAnAlertThatItsOwnersDrop) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    auto alert = makeBaseAlert();
    const Weak<ZRBaseAlert> weak = alert;
    alert->showInView_animation(window, false);
    host.advance(0);
    alert->dismissAlertView();
    host.advance(0.1);
    alert->removeFromSuperview();
    alert = nullptr;
    host.advance(0.1);
    EXPECT_TRUE(weak.get());
    host.advance(0.1);
    EXPECT_FALSE(weak.get());
}

TEST(AlertLife, AnAlertNeverShownGoesWithItsOwner) {
    const HeadlessHost host;
    auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    const Weak<ZRBaseAlert> weak = alert;
    alert = nullptr;
    EXPECT_FALSE(weak.get());
}

TEST(AlertLife, LeavesItsButtonsAndViewsToWhoeverKeepsThem) {
    const HeadlessHost host;
    auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    const Ref<ZRTAlertViewButton> button = alert->okButton();
    const Weak<UIView> panel = alert->backgroundAlert();
    alert = nullptr;
    EXPECT_FALSE(panel.get());
    EXPECT_EQ(button->retainCount(), 1u);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
}

} // namespace zr::testing
