#include <Tests/ZRKitDynamic/ZRTAlertView/AlertTesting.h>

#include <limits>

namespace zr::testing {

// Construction

TEST(ZRBaseAlert, CoversTheScreenWithADimmingLayerBelowThePanel) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert();
    EXPECT_EQ(alert->frame(), CGRectMake(0, 0, 375, 667));
    ASSERT_EQ(alert->subviews().size(), 2u);
    EXPECT_EQ(alert->subviews()[0], alert->backgroundView());
    EXPECT_EQ(alert->subviews()[1], alert->backgroundAlert());

    EXPECT_EQ(alert->backgroundView()->frame(), CGRectMake(0, 0, 375, 667));
    EXPECT_EQ(alert->backgroundView()->backgroundColor(), UIColor::blackColor());
    EXPECT_FLOAT_EQ(alert->backgroundView()->alpha(), 0.45);
}

TEST(ZRBaseAlert, PanelIsRoundedAndCutsItsContents) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert();
    const UIView* panel = alert->backgroundAlert();
    EXPECT_EQ(rgba(panel->backgroundColor()), rgb(245, 245, 245));
    EXPECT_EQ(panel->layer()->cornerRadius(), 6);
    EXPECT_TRUE(panel->clipsToBounds());
    EXPECT_FLOAT_EQ(panel->alpha(), 0.93);
    EXPECT_EQ(panel->frame(), CGRectMake(52.5, 278.5, 270, 70));
}

TEST(ZRBaseAlert, KeepsWhatItIsMadeWith) {
    const HeadlessHost host;
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    EXPECT_EQ(alert->delegate().get(), delegate.get());
    EXPECT_EQ(alert->cancelTitle(), NSString("Cancel"));
    EXPECT_EQ(alert->okTitle(), NSString("OK"));
    EXPECT_EQ(alert->cancelButtonIndex(), 0);
    EXPECT_EQ(alert->alertViewSize(), CGSizeZero);
    EXPECT_EQ(delegate->retainCount(), 1u);
}

TEST(ZRBaseAlert, WithTwoTitlesHasACancelButton0AndAnOKButton1) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    ASSERT_TRUE(alert->cancelButton());
    ASSERT_TRUE(alert->okButton());
    EXPECT_EQ(alert->cancelButton()->title(), NSString("Cancel"));
    EXPECT_EQ(alert->cancelButton()->tag(), 0);
    EXPECT_EQ(alert->okButton()->title(), NSString("OK"));
    EXPECT_EQ(alert->okButton()->tag(), 1);
    EXPECT_EQ(alert->cancelButton()->superview(), alert->backgroundAlert());
    EXPECT_EQ(alert->okButton()->superview(), alert->backgroundAlert());
    for (const ZRTAlertViewButton* button : {alert->cancelButton(), alert->okButton()}) {
        const auto actions = button->actionsForTarget_forControlEvent(alert, UIControlEventTouchUpInside);
        EXPECT_EQ(actions, std::vector<SEL>{selector<&ZRBaseAlert::buttonClicked>});
        EXPECT_EQ(button->allControlEvents(), UIControlEventTouchUpInside);
    }
}

TEST(ZRBaseAlert, AnOnlyButtonHasTag0) {
    const HeadlessHost host;
    const auto cancelOnly = makeBaseAlert(nullptr, "Cancel", nullptr);
    EXPECT_EQ(cancelOnly->cancelButton()->tag(), 0);
    EXPECT_FALSE(cancelOnly->okButton());
    const auto okOnly = makeBaseAlert(nullptr, nullptr, "OK");
    EXPECT_EQ(okOnly->okButton()->tag(), 0);
    EXPECT_FALSE(okOnly->cancelButton());
}

TEST(ZRBaseAlert, WithoutTitlesHasNoButtonsAndWithEmptyOnesItHas) {
    const HeadlessHost host;
    const auto none = makeBaseAlert();
    EXPECT_FALSE(none->cancelButton());
    EXPECT_FALSE(none->okButton());
    EXPECT_TRUE(none->backgroundAlert()->subviews().empty());
    const auto empty = makeBaseAlert(nullptr, "", "");
    EXPECT_TRUE(empty->cancelButton());
    EXPECT_TRUE(empty->okButton());
}

// Properties

TEST(ZRBaseAlert, PropertiesAreReadAndWritten) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    const auto delegate = make<AlertDelegate>();
    const auto button = make<ZRTAlertViewButton>();
    const auto view = make<UIView>();
    alert->setDelegate(delegate);
    alert->setCancelButton(button);
    alert->setOkButton(nullptr);
    alert->setCancelButtonIndex(7);
    alert->setBackgroundView(view);
    alert->setCancelTitle("No");
    alert->setOkTitle(nullptr);
    alert->setAlertViewSize(CGSizeMake(200, 240));
    EXPECT_EQ(alert->delegate().get(), delegate.get());
    EXPECT_EQ(alert->cancelButton(), button.get());
    EXPECT_EQ(button->retainCount(), 2u);
    EXPECT_EQ(alert->okButton(), nullptr);
    EXPECT_EQ(alert->cancelButtonIndex(), 7);
    EXPECT_EQ(alert->backgroundView(), view.get());
    EXPECT_EQ(alert->cancelTitle(), NSString("No"));
    EXPECT_TRUE(alert->okTitle().isNil());
    EXPECT_EQ(alert->alertViewSize(), CGSizeMake(200, 240));
    alert->setBackgroundAlert(view);
    EXPECT_EQ(alert->backgroundAlert(), view.get());
}

TEST(ZRBaseAlert, KeepsItsObjects) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert();
    const auto cancel = make<ZRTAlertViewButton>();
    const auto ok = make<ZRTAlertViewButton>();
    const auto panel = make<UIView>();
    const auto dimming = make<UIView>();
    const auto expectCounts = [&](NSUInteger count) {
        EXPECT_EQ(cancel->retainCount(), count);
        EXPECT_EQ(ok->retainCount(), count);
        EXPECT_EQ(panel->retainCount(), count);
        EXPECT_EQ(dimming->retainCount(), count);
    };
    alert->setCancelButton(cancel);
    alert->setOkButton(ok);
    alert->setBackgroundAlert(panel);
    alert->setBackgroundView(dimming);
    expectCounts(2);
    alert->setCancelButton(nullptr);
    alert->setOkButton(nullptr);
    alert->setBackgroundAlert(nullptr);
    alert->setBackgroundView(nullptr);
    expectCounts(1);
}

// Layout

TEST(ZRBaseAlert, LayingOutSetsFramesOnly) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert();
    const CGAffineTransform half = CGAffineTransformMakeScale(0.5, 0.5);
    alert->backgroundAlert()->setTransform(half);
    alert->layoutAletViewAndButtons();
    EXPECT_EQ(alert->backgroundAlert()->transform(), half);
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 278.5, 270, 70));
}

TEST(ZRBaseAlert, DefaultSizeIs50LessThanANarrowScreen) {
    const struct { CGFloat screen, panel; } cases[] = {{300, 250}, {320, 270}, {321, 270}, {375, 270}, {414, 270}};
    for (const auto& [screen, panel] : cases) {
        const HeadlessHost host(device(screen, 568));
        EXPECT_EQ(makeBaseAlert()->getAlertViewSize(), CGSizeMake(panel, 70)) << screen;
    }
}

TEST(ZRBaseAlert, ASizeWithOneZeroComponentIsASize) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert();
    alert->setAlertViewSize(CGSizeMake(200, 240));
    EXPECT_EQ(alert->getAlertViewSize(), CGSizeMake(200, 240));
    alert->setAlertViewSize(CGSizeMake(100, 0));
    EXPECT_EQ(alert->getAlertViewSize(), CGSizeMake(100, 0));
    alert->setAlertViewSize(CGSizeMake(0, 100));
    EXPECT_EQ(alert->getAlertViewSize(), CGSizeMake(0, 100));
    alert->setAlertViewSize(CGSizeZero);
    EXPECT_EQ(alert->getAlertViewSize(), CGSizeMake(270, 70));
}

TEST(ZRBaseAlert, PanelIs20PointsAboveTheMiddle) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert();
    EXPECT_EQ(alert->getSuperViewSize(), CGSizeMake(375, 667));
    EXPECT_EQ(alert->calculateAlertViewFrame(), CGRectMake(52.5, 278.5, 270, 70));
    alert->setAlertViewSize(CGSizeMake(100, 101));
    EXPECT_EQ(alert->calculateAlertViewFrame(), CGRectMake(137.5, 263, 100, 101));
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(52.5, 278.5, 270, 70)) << "calculating places nothing";
}

TEST(ZRBaseAlert, TwoButtonsShareTheBottom) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    EXPECT_EQ(alert->cancelButton()->frame(), CGRectMake(-0.5, 26, 136, 45));
    EXPECT_EQ(alert->okButton()->frame(), CGRectMake(135, 26, 136, 45));
}

TEST(ZRBaseAlert, AnOnlyButtonTakesTheWholeBottom) {
    const HeadlessHost host;
    EXPECT_EQ(makeBaseAlert(nullptr, nullptr, "OK")->okButton()->frame(), CGRectMake(-0.5, 26, 272, 45));
    EXPECT_EQ(makeBaseAlert(nullptr, "Cancel", nullptr)->cancelButton()->frame(), CGRectMake(-0.5, 26, 272, 45));
}

TEST(ZRBaseAlert, ButtonsFollowThePanelsCurrentFrame) {
    const HeadlessHost host;
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    alert->setAlertViewSize(CGSizeMake(301, 200));
    EXPECT_EQ(alert->calculateCancelButtonFrame(), CGRectMake(-0.5, 26, 136, 45)) << "the panel is not placed yet";
    alert->layoutAletViewAndButtons();
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(37, 213.5, 301, 200));
    EXPECT_EQ(alert->cancelButton()->frame(), CGRectMake(-0.5, 156, 151.5, 45));
    EXPECT_EQ(alert->okButton()->frame(), CGRectMake(150.5, 156, 151.5, 45));
    alert->setOkTitle(nullptr);
    EXPECT_EQ(alert->calculateCancelButtonFrame(), CGRectMake(-0.5, 156, 303, 45));
}

namespace {

/// Replaces links of the chain and writes down the order in which they are asked for.
class OverridingAlert : public ZRBaseAlert {
public:
    void layoutAletViewAndButtons() override {
        calls.push_back("layout");
        ZRBaseAlert::layoutAletViewAndButtons();
    }
    CGRect calculateAlertViewFrame() override {
        calls.push_back("panel");
        return ZRBaseAlert::calculateAlertViewFrame();
    }
    CGRect calculateCancelButtonFrame() override {
        calls.push_back("cancel");
        return ZRBaseAlert::calculateCancelButtonFrame();
    }
    CGRect calculateOKButtonFrame() override {
        calls.push_back("ok");
        return ZRBaseAlert::calculateOKButtonFrame();
    }
    CGSize getSuperViewSize() override { return CGSizeMake(500, 400); }
    CGSize getAlertViewSize() override { return CGSizeMake(100, 80); }
    void showInView_animation(UIView* view, bool animated) override {
        calls.push_back("show");
        shownIn = view;
        shownAnimated = animated;
        ZRBaseAlert::showInView_animation(view, animated);
    }
    void dismissWithButtonIndex_animated(NSInteger index, bool animated) override {
        calls.push_back("dismiss " + std::to_string(index) + (animated ? " animated" : ""));
        ZRBaseAlert::dismissWithButtonIndex_animated(index, animated);
    }
    void buttonClicked(UIControl* button) override {
        calls.push_back("button");
        ZRBaseAlert::buttonClicked(button);
    }

    std::vector<std::string> calls;
    UIView* shownIn = nullptr;
    bool shownAnimated = false;
};

Ref<OverridingAlert> makeOverridingAlert() {
    return make<OverridingAlert>(&OverridingAlert::initWithDelegate_cancelButtonTitle_okButtonTitles, nullptr, "Cancel",
                                 "OK");
}

} // namespace

TEST(ZRBaseAlert, AsksASubclassForEveryFrame) {
    const HeadlessHost host;
    const auto alert = makeOverridingAlert();
    EXPECT_EQ(alert->calls, (Messages{"panel", "cancel", "ok"}));
    EXPECT_EQ(alert->backgroundAlert()->frame(), CGRectMake(200, 140, 100, 80));
    EXPECT_EQ(alert->cancelButton()->frame(), CGRectMake(-0.5, 36, 51, 45));
    alert->calls.clear();
    alert->layoutAletViewAndButtons();
    EXPECT_EQ(alert->calls, (Messages{"layout", "panel", "cancel", "ok"}));
}

TEST(ZRBaseAlert, ShowsThroughTheSubclass) {
    HeadlessHost host;
    const auto alert = makeOverridingAlert();
    alert->calls.clear();
    alert->showWithAnimation(true);
    EXPECT_EQ(alert->calls, (Messages{"show", "layout", "panel", "cancel", "ok"}));
    EXPECT_EQ(alert->shownIn, nullptr);
    EXPECT_TRUE(alert->shownAnimated);
    alert->dismissAlertView();
    host.advance(0.3);
}

TEST(ZRBaseAlert, DismissesThroughTheSubclass) {
    HeadlessHost host;
    const auto alert = makeOverridingAlert();
    alert->setCancelButtonIndex(3);
    alert->showWithAnimation(false);
    host.advance(0);
    alert->calls.clear();
    alert->dismissAlertView();
    alert->dismissAlertViewWithoutAnimation();
    alert->buttonClicked(nullptr);
    EXPECT_EQ(alert->calls, (Messages{"dismiss 3 animated", "dismiss 3", "button", "dismiss 0 animated"}));
    host.advance(0.3);
}

TEST(ZRBaseAlert, ATapCallsTheSubclass) {
    HeadlessHost host;
    const auto alert = makeOverridingAlert();
    alert->showWithAnimation(false);
    host.advance(0);
    alert->calls.clear();
    host.tap(middleOnScreen(alert->okButton()));
    EXPECT_EQ(alert->calls, (Messages{"button", "dismiss 1 animated"}));
    host.advance(0.3);
}

TEST(ZRBaseAlert, PlainInitGivesAnAlertThatDoesNothing) {
    HeadlessHost host;
    const auto alert = make<ZRBaseAlert>();
    alert->layoutAletViewAndButtons();
    EXPECT_EQ(alert->calculateOKButtonFrame(), CGRectMake(-0.5, -44, 2, 45));
    EXPECT_EQ(alert->calculateCancelButtonFrame(), CGRectMake(-0.5, -44, 2, 45));
    alert->showWithAnimation(true);
    EXPECT_FALSE(alert->window());
    alert->dismissAlertView();
    host.advance(0.3);
}

TEST(ZRBaseAlert, ASizeThatIsNoNumberShowsNothingAndHarmsNothing) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    alert->setAlertViewSize(CGSizeMake(nan, nan));
    alert->showWithAnimation(true);
    host.advance(0.3);
    EXPECT_NEAR(host.pixel({187, 313}).red, 140, 1) << "only dimmed";
    alert->dismissAlertView();
    host.advance(0.3);
    EXPECT_EQ(host.pixel({187, 313}), (FramePixel{255, 255, 255}));
}

} // namespace zr::testing
