#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <gtest/gtest.h>

using namespace zr;

TEST(AlertTyping, GoesBackToTheFieldBehindWhenTheAlertHasGone) {
    HeadlessHost host;
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    auto field = make<UITextField>(&UITextField::initWithFrame, CGRectMake(20, 100, 200, 30));
    window->addSubview(field);
    window->makeKeyAndVisible();
    EXPECT_TRUE(field->becomeFirstResponder());
    auto alert = make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                                    "Name", nullptr, nullptr, "Cancel", nullptr);
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Album");
    alert->showWithAnimation(false);
    host.advance(0);
    EXPECT_TRUE(host.typeText("a"));
    EXPECT_EQ(alert->textField()->text(), NSString("a"));

    alert->dismissAlertViewWithoutAnimation();
    host.advance(0);
    EXPECT_TRUE(host.isTextInputActive());
    EXPECT_TRUE(host.typeText("b"));
    EXPECT_EQ(field->text(), NSString("b"));
}
