// A program with a button, a text field and a scroll view, which says on standard output what happens to it:
// "button" and, from a thread that the button starts, "thread"; "text …" after each edit; "scrolled X Y"; "end".

#include <ZRPlatform/Dispatch/Dispatch.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <cmath>
#include <iostream>

using namespace zr;

namespace {

class Probe : public UIApplicationDelegate, public UIScrollViewDelegate {
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

        const auto scrollView = make<UIScrollView>(&UIScrollView::initWithFrame, CGRect{{50, 400}, {200, 200}});
        scrollView->setContentSize({400, 400});
        scrollView->setDelegate(this);
        m_window->addSubview(scrollView);
        m_window->makeKeyAndVisible();
        return true;
    }

    void applicationWillTerminate(UIApplication*) override { say("end"); }
    void scrollViewDidScroll(UIScrollView* view) override {
        const CGPoint offset = view->contentOffset();
        say("scrolled " + std::to_string(std::lround(offset.x)) + " " + std::to_string(std::lround(offset.y)));
    }

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
