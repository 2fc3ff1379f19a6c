#include <Tests/ZRKitDynamic/ZRTAlertView/AlertTesting.h>

// What the delegate hears of taps and dismissals, whatever it does meanwhile.

namespace zr::testing {

TEST(AlertDelegate, HearsOfTheCancelButtonTwice) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(true);
    host.advance(0.3);
    host.tap(middleOnScreen(alert->cancelButton()));
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0"}));
    EXPECT_EQ(delegate->alerts, (std::vector<ZRBaseAlert*>{alert, alert}));
    EXPECT_TRUE(alert->superview()) << "told before the alert goes";
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertDelegate, HearsOfTheOKButtonOnce) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(true);
    host.advance(0.3);
    host.tap(middleOnScreen(alert->okButton()));
    EXPECT_EQ(delegate->messages, (Messages{"clicked 1"}));
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertDelegate, HearsOfAnOnlyOKButtonAsCancellingToo) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, nullptr, "OK");
    alert->showWithAnimation(true);
    host.advance(0.3);
    host.tap(middleOnScreen(alert->okButton()));
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0"}));
    host.advance(0.3);
}

TEST(AlertDelegate, HearsOfTheIndexThatCountsAsCancelling) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->setCancelButtonIndex(1);
    alert->showWithAnimation(false);
    host.advance(0);
    host.tap(middleOnScreen(alert->okButton()));
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 1"}));
    delegate->messages.clear();
    alert->dismissWithButtonIndex_animated(0, true);
    EXPECT_EQ(delegate->messages, (Messages{"clicked 0"}));
    host.advance(0.3);
}

TEST(AlertDelegate, HearsOfDismissalsByCode) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto dismissed = [&](auto dismiss) {
        delegate->messages.clear();
        const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
        alert->showWithAnimation(false);
        dismiss(alert.get());
        host.advance(0.3);
        EXPECT_FALSE(alert->superview());
        return delegate->messages;
    };
    EXPECT_EQ(dismissed([](ZRBaseAlert* alert) { alert->dismissAlertView(); }), (Messages{"cancel", "clicked 0"}));
    EXPECT_EQ(dismissed([](ZRBaseAlert* alert) { alert->dismissAlertViewWithoutAnimation(); }),
              (Messages{"cancel", "clicked 0"}));
    EXPECT_EQ(dismissed([](ZRBaseAlert* alert) { alert->dismissWithButtonIndex_animated(-5, true); }),
              (Messages{"clicked -5"}));
}

TEST(AlertDelegate, MayBeNil) {
    HeadlessHost host;
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->showWithAnimation(false);
    host.advance(0);
    host.tap(middleOnScreen(alert->cancelButton()));
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

namespace {

/// Answers neither message.
class SilentDelegate : public NSObject, public ZRTAlertViewDelegate {};

/// Answers the second message only.
class ClickDelegate : public NSObject, public ZRTAlertViewDelegate {
public:
    void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert*, NSInteger index) override { indices.push_back(index); }
    std::vector<NSInteger> indices;
};

} // namespace

TEST(AlertDelegate, NeedNotAnswer) {
    HeadlessHost host;
    const auto silent = make<SilentDelegate>();
    const auto click = make<ClickDelegate>();
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->setDelegate(silent);
    alert->dismissAlertView();
    alert->setDelegate(click);
    alert->dismissAlertView();
    EXPECT_EQ(click->indices, std::vector<NSInteger>{0});
    host.advance(0.3);
}

TEST(AlertDelegate, MayGoWhileTheAlertIsUp) {
    HeadlessHost host;
    auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(false);
    host.advance(0);
    delegate = nullptr;
    EXPECT_FALSE(alert->delegate().get());
    host.tap(middleOnScreen(alert->cancelButton()));
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertDelegate, MayGoWhileItIsTold) {
    HeadlessHost host;
    auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    bool toldOfClick = false;
    bool aliveAfterDropping = false;
    AlertDelegate* raw = delegate;
    raw->onClick = [&] { toldOfClick = true; };
    raw->onCancel = [&, raw] {
        delegate = nullptr;
        aliveAfterDropping = raw->messages.size() == 1; // reads the delegate that was just dropped
    };
    alert->dismissAlertView();
    EXPECT_TRUE(aliveAfterDropping);
    EXPECT_FALSE(toldOfClick) << "gone by then";
    EXPECT_FALSE(alert->delegate().get());
    host.advance(0.3);
}

TEST(AlertDelegate, MayBeReplacedWhileItIsTold) {
    HeadlessHost host;
    const auto first = make<AlertDelegate>();
    const auto second = make<AlertDelegate>();
    const auto alert = makeBaseAlert(first, "Cancel", "OK");
    first->onCancel = [&] { alert->setDelegate(second); };
    alert->dismissAlertView();
    EXPECT_EQ(first->messages, Messages{"cancel"});
    EXPECT_EQ(second->messages, Messages{"clicked 0"});
    host.advance(0.3);
}

TEST(AlertDelegate, MayDropTheAlertWhileItIsTold) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    const Weak<ZRBaseAlert> weak = alert;
    alert->showWithAnimation(false);
    host.advance(0);
    delegate->onCancel = [&] {
        alert->removeFromSuperview();
        alert = nullptr;
    };
    host.tap(middleOnScreen(alert->cancelButton()));
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0"}));
    host.advance(0.3);
    EXPECT_FALSE(weak.get());
    EXPECT_TRUE(host.application()->windows().empty());
}

TEST(AlertDelegate, MayGoWhileItIsToldOfATap) {
    HeadlessHost host;
    auto delegate = make<AlertDelegate>();
    const Weak<AlertDelegate> weak = delegate;
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(false);
    host.advance(0);
    bool aliveAfterDropping = false;
    delegate->onClick = [&] {
        delegate = nullptr;
        aliveAfterDropping = weak.get();
    };
    host.tap(middleOnScreen(alert->okButton()));
    EXPECT_TRUE(aliveAfterDropping) << "until its message returns";
    EXPECT_FALSE(weak.get());
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertDelegate, MayDismissTheAlertWhileItIsTold) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(false);
    host.advance(0);
    delegate->onCancel = [&] { alert->dismissAlertViewWithoutAnimation(); };
    delegate->onClick = [&] { alert->dismissWithButtonIndex_animated(0, false); };
    host.tap(middleOnScreen(alert->cancelButton()));
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0"}));
    host.advance(0);
    EXPECT_FALSE(alert->superview()) << "it asked for no animation";
    host.advance(0.3);
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window});
    alert->dismissAlertView();
    EXPECT_EQ(delegate->messages.size(), 4u) << "a later dismissal is told again";
    host.advance(0.3);
}

TEST(AlertDelegate, HearsOfAnotherIndexThatItDismissesWithWhileItIsTold) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    delegate->onClick = [&] {
        alert->dismissWithButtonIndex_animated(1, true);
        alert->dismissWithButtonIndex_animated(0, true);
    };
    alert->dismissAlertView();
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0", "clicked 1"}));
    host.advance(0.3);
}

TEST(AlertDelegate, MayShowTheNextAlertWhileItIsTold) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto first = makeBaseAlert(delegate, "Cancel", nullptr);
    const auto second = makeBaseAlert(nullptr, "Cancel", nullptr);
    delegate->onClick = [&] { second->showWithAnimation(true); };
    first->showWithAnimation(false);
    host.advance(0);
    host.tap(middleOnScreen(first->cancelButton()));
    host.advance(0.3);
    EXPECT_FALSE(first->superview());
    ASSERT_TRUE(second->window());
    EXPECT_TRUE(second->window()->isKeyWindow());
    EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{second->window()});
    endAlert(host, second);
}

// A second tap while the first is being carried out

TEST(AlertSecondTap, DoesNotReachAFadingWindow) {
    HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(false);
    host.advance(0);
    const CGPoint cancel = middleOnScreen(alert->cancelButton());
    host.tap(cancel);
    host.advance(0.05);
    host.tap(cancel);
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 0"}));
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(AlertSecondTap, ThatReachesAButtonIsHeardToo) {
    for (const bool inWindow : {true, false}) {
        HeadlessHost host;
        const auto window = showWindow(UIColor::whiteColor());
        const auto delegate = make<AlertDelegate>();
        const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
        const Ref<UIView> hostView = inWindow ? nullptr : window;
        alert->showInView_animation(hostView, false);
        host.advance(0);
        alert->okButton()->sendActionsForControlEvents(UIControlEventTouchUpInside);
        host.advance(0.1);
        alert->cancelButton()->sendActionsForControlEvents(UIControlEventTouchUpInside);
        EXPECT_EQ(delegate->messages, (Messages{"clicked 1", "cancel", "clicked 0"}));
        host.advance(0.4);
        EXPECT_FALSE(alert->superview());
        EXPECT_TRUE(window->isKeyWindow());
        EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window});
    }
}

TEST(AlertSecondTap, InAHostViewLeavesTheAlertsWindowForLater) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->showInView_animation(window, false);
    host.advance(0);
    alert->dismissAlertView();
    alert->dismissAlertViewWithoutAnimation();
    host.advance(0.3);
    alert->showWithAnimation(false);
    ASSERT_TRUE(alert->window());
    EXPECT_NE(alert->window(), window.get());
    endAlert(host, alert);
}

TEST(AlertSecondTap, ByTwoFingersAtOnceIsHeardFromBoth) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showInView_animation(window, false);
    host.advance(0);
    host.touchDown(middleOnScreen(alert->cancelButton()), 0);
    host.touchDown(middleOnScreen(alert->okButton()), 1);
    host.touchUp(0);
    host.touchUp(1);
    EXPECT_EQ(delegate->messages.front(), "cancel");
    host.advance(0.4);
    EXPECT_FALSE(alert->superview());
}

} // namespace zr::testing
