#include <Tests/ZRKitDynamic/ZRTAlertView/AlertTesting.h>
#include <Tests/ZRKitDynamic/ZRTableViewCell/CellTesting.h>
#include <ZRKitDynamic/ZRKitDynamic.h>

// The kit's components without a finger: what the tab, return and escape keys do to them.

namespace zr::testing {

TEST(Keyboard, TabAndReturnPressAnAlertsButtons) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->showWithAnimation(true);
    host.advance(0.3);
    host.pressKey(UIKey::Tab);
    EXPECT_TRUE(alert->cancelButton()->isFocused());
    host.pressKey(UIKey::Tab);
    EXPECT_TRUE(alert->okButton()->isFocused());
    EXPECT_TRUE(host.pressKey(UIKey::Return));
    EXPECT_EQ(delegate->messages, (Messages{"clicked 1"}));
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
}

TEST(Keyboard, EscapeCancelsAnAlert) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto delegate = make<AlertDelegate>();
    const auto alert = makeBaseAlert(delegate, "Cancel", "OK");
    alert->setCancelButtonIndex(1);
    alert->showWithAnimation(false);
    host.advance(0);
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_EQ(delegate->messages, (Messages{"cancel", "clicked 1"}));
    EXPECT_TRUE(alert->superview()) << "it goes as it does by its button";
    host.advance(0.3);
    EXPECT_FALSE(alert->superview());
    EXPECT_FALSE(host.pressKey(UIKey::Escape));
}

TEST(Keyboard, EscapeLeavesAnAlertsTextFieldFirst) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert =
        make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles, "Name",
                           nullptr, nullptr, "Cancel", "OK");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "placeholder");
    alert->showWithAnimation(false);
    host.advance(0);
    ASSERT_TRUE(alert->textField()->isFirstResponder());
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_FALSE(alert->textField()->isFirstResponder());
    host.advance(1);
    EXPECT_TRUE(alert->superview());
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    host.advance(1);
    EXPECT_FALSE(alert->superview());
}

TEST(Keyboard, EscapeLeavesNothingBehindAnOverlayWithoutButtons) {
    HeadlessHost host;
    auto root = make<ZRTViewController>();
    auto top = make<ZRTViewController>();
    auto navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, root);
    const auto window = showWindow(UIColor::whiteColor());
    window->setRootViewController(navigation);
    navigation->pushViewController_animated(top, false);
    host.advance(0);
    const auto alert = makeBaseAlert(nullptr, nullptr, nullptr);
    alert->showInView_animation(top->view(), false);
    host.advance(0);
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_TRUE(alert->superview());
    EXPECT_EQ(navigation->topViewController(), top);
    alert->dismissAlertViewWithoutAnimation();
    host.advance(0.1);
    const Ref<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(top->view(), false);
    host.advance(0);
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_EQ(navigation->topViewController(), top);
    hud->hide(false);
    host.advance(0);
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    EXPECT_EQ(navigation->topViewController(), root);
    host.advance(1);
    EXPECT_FALSE(host.pressKey(UIKey::Escape));
    EXPECT_EQ(navigation->viewControllers().size(), 1u);
}

TEST(Keyboard, EscapeDismissesAScreenThatIsPresented) {
    HeadlessHost host;
    auto root = make<ZRTViewController>();
    auto presented = make<ZRTViewController>();
    const auto window = showWindow(UIColor::whiteColor());
    window->setRootViewController(root);
    host.advance(0);
    EXPECT_FALSE(host.pressKey(UIKey::Escape));
    root->presentViewController_animated_completion(presented, false, nullptr);
    host.advance(0.1);
    EXPECT_TRUE(host.pressKey(UIKey::Escape));
    host.advance(1);
    EXPECT_EQ(root->presentedViewController(), nullptr);
}

TEST(Keyboard, ReturnTurnsASwitch) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    auto toggle = make<ZRSwitch>(&UIView::initWithFrame, CGRectMake(20, 100, 60, 30));
    window->addSubview(toggle);
    host.pressKey(UIKey::Tab);
    ASSERT_TRUE(toggle->isFocused());
    const bool before = toggle->isOn();
    host.pressKey(UIKey::Return);
    host.advance(1);
    EXPECT_NE(toggle->isOn(), before);
}

TEST(Keyboard, ArrowsAcrossSelectTheSegmentBeside) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::greenColor());
    auto segments = make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"a", "b", "c"});
    segments->setFrame({{20, 100}, segments->frame().size});
    window->addSubview(segments);
    auto below = make<ZRSwitch>(&UIView::initWithFrame, CGRectMake(20, 200, 60, 30));
    window->addSubview(below);
    host.pressKey(UIKey::Tab);
    ASSERT_TRUE(segments->isFocused());
    for (const std::int64_t index : {1, 2, 2}) {
        EXPECT_TRUE(host.pressKey(UIKey::Right));
        EXPECT_EQ(segments->selectedSegmentIndex(), index);
    }
    for (const std::int64_t index : {1, 0, 0}) {
        EXPECT_TRUE(host.pressKey(UIKey::Left));
        EXPECT_EQ(segments->selectedSegmentIndex(), index);
    }
    EXPECT_TRUE(host.pressKey(UIKey::Down));
    EXPECT_TRUE(below->isFocused());
    host.pressKey(UIKey::Right);
    EXPECT_TRUE(segments->isFocused()) << "elsewhere arrows move the keyboard";
}

} // namespace zr::testing
