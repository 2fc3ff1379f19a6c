// The application and the test that the README shows.

#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <gtest/gtest.h>

using namespace zr;

namespace {

class App : public UIApplicationDelegate, public ZRTAlertViewDelegate {
public:
    bool applicationDidFinishLaunching(UIApplication*) override {
        m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        m_window->setBackgroundColor(ZRColorInstance::Instance()->backgroundShadowColor_green());
        m_window->makeKeyAndVisible();
        auto alert =
            make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                               "Delete photo?", "It will be removed from all devices.", this, "Cancel", "Delete");
        alert->showWithAnimation(true);
        return true;
    }
    void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert*, NSInteger index) override { clicked = index; }

    NSInteger clicked = NSNotFound;

private:
    Ref<UIWindow> m_window;
};

} // namespace

TEST(FirstApplication, ShowsItsAlertAndHearsTheTap) {
    HeadlessHost host;
    auto app = make<App>();
    host.launch(app);
    host.advance(0.3);
    host.tap({250, 372});
    EXPECT_EQ(app->clicked, 1);
    host.advance(0.3);
    EXPECT_EQ(host.pixel({187, 300}), (FramePixel{0, 191, 63}));
}
