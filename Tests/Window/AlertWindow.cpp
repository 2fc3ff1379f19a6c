// A program that shows the alert with a text field, and says on standard output what happens: "ready X Y" when it has
// opened, with the middle of its OK button; "text …" after each edit; "clicked N"; "gone".

#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <iostream>

using namespace zr;

namespace {

class AlertProgram : public UIApplicationDelegate, public ZRTAlertViewDelegate {
public:
    bool applicationDidFinishLaunching(UIApplication*) override {
        m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        m_window->setBackgroundColor(UIColor::whiteColor());
        m_window->makeKeyAndVisible();
        m_alert = make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                                     "Name", "Of the new album", this, "Cancel", "Save");
        m_alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Album");
        m_alert->showWithAnimation(true);
        m_alert->textField()->addTarget_action_forControlEvents(this, selector<&AlertProgram::edited>,
                                                                UIControlEventEditingChanged);
        performSelector_withObject_afterDelay(selector<&AlertProgram::opened>, nullptr, 0.3);
        return true;
    }

    void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert*, NSInteger index) override {
        say("clicked " + std::to_string(index));
        m_alert = nullptr;
        performSelector_withObject_afterDelay(selector<&AlertProgram::gone>, nullptr, 0.4);
    }

private:
    static void say(const std::string& line) { std::cout << line << std::endl; }

    void opened() {
        const UIView* button = m_alert->okButton();
        const CGPoint middle = button->convertPoint_toView({button->bounds().size.width / 2, 20}, nullptr);
        say("ready " + std::to_string(std::lround(middle.x)) + " " + std::to_string(std::lround(middle.y)));
    }
    void edited() { say("text " + m_alert->textField()->text().utf8()); }
    void gone() { say(m_window->isKeyWindow() ? "gone" : "still there"); }

    Ref<UIWindow> m_window;
    Ref<ZRTAlertView> m_alert;
};

} // namespace

int main(int argc, char** argv) { return UIApplicationMain<AlertProgram>(argc, argv); }
