// A program with a button and a text field, which says on standard output what happens to it:
// "button" and, from a thread that the button starts, "thread"; "text …" after each edit; "end".

#include <ZRPlatform/Dispatch/Dispatch.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <iostream>

using namespace zr;

namespace {

class Probe : public UIApplicationDelegate {
public:
    bool applicationDidFinishLaunching(UIApplication*) override {
        m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        m_window->setBackgroundColor(UIColor::whiteColor());

        const auto button = UIButton::buttonWithType(UIButtonTypeCustom);
        button->setFrame({{50, 100}, {200, 60}});
        button->setBackgroundColor(UIColor::redColor());
        button->setTitle_forState("Press", UIControlStateNormal);
        button->addTarget_action_forControlEvents(this, selector<&Probe::pressed>, UIControlEventTouchUpInside);
        m_window->addSubview(button);

        m_field = make<UITextField>(&UITextField::initWithFrame, CGRect{{50, 200}, {275, 40}});
        m_field->setBorderStyle(UITextBorderStyleRoundedRect);
        m_field->addTarget_action_forControlEvents(this, selector<&Probe::edited>, UIControlEventEditingChanged);
        m_window->addSubview(m_field);

        m_lamp = make<UIView>(&UIView::initWithFrame, CGRect{{50, 300}, {20, 20}});
        m_lamp->setBackgroundColor(UIColor::blackColor());
        m_window->addSubview(m_lamp);
        m_window->makeKeyAndVisible();
        return true;
    }

    void applicationWillTerminate(UIApplication*) override { say("end"); }

private:
    static void say(const std::string& line) { std::cout << line << std::endl; }

    void pressed() {
        say("button");
        dispatch_async(dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_DEFAULT, 0),
                       [this] { dispatch_async(dispatch_get_main_queue(), [this] { lightLamp(); }); });
    }
    void lightLamp() {
        say("thread");
        UIView::animateWithDuration_animations_completion(
            0.3, [this] { m_lamp->setBackgroundColor(UIColor::greenColor()); }, [](bool) { say("lit"); });
    }
    void edited() { say("text " + m_field->text().utf8()); }

    Ref<UIWindow> m_window;
    Ref<UITextField> m_field;
    Ref<UIView> m_lamp;
};

} // namespace

int main(int argc, char** argv) { return UIApplicationMain<Probe>(argc, argv); }
