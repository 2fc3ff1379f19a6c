#pragma once

#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/Controls/UIControl.h>

#include <string>
#include <vector>

namespace zr::tests {

inline constexpr FramePixel kRedOnScreen{255, 0, 0}, kGreenOnScreen{0, 255, 0}, kBlueOnScreen{0, 0, 255},
    kWhiteOnScreen{255, 255, 255};

/// A black window on a screen of 320 x 480 points at 2 pixels a point.
class OnScreen : public ::testing::Test {
protected:
    explicit OnScreen(const NSString& systemVersion = "8.4") :
        host({{320, 480}, 2, systemVersion, UIInterfaceOrientationPortrait}) {
        window = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 320, 480));
        window->setBackgroundColor(UIColor::blackColor());
        window->makeKeyAndVisible();
    }

    template <class T>
    Ref<T> place(Ref<T> view, CGRect frame) {
        view->setFrame(frame);
        window->addSubview(view);
        host.advance(0);
        return view;
    }

    HeadlessHost host;
    Ref<UIWindow> window;
};

/// Writes down the messages it is sent.
class Listener : public NSObject {
public:
    void down() { log.push_back("down"); }
    void repeat() { log.push_back("repeat"); }
    void dragInside() { log.push_back("drag inside"); }
    void dragOutside() { log.push_back("drag outside"); }
    void enter() { log.push_back("enter"); }
    void exit() { log.push_back("exit"); }
    void upInside() { log.push_back("up inside"); }
    void upOutside() { log.push_back("up outside"); }
    void cancel() { log.push_back("cancel"); }

    void listenTo(UIControl* control) {
        const auto add = [&](SEL action, NSUInteger event) {
            control->addTarget_action_forControlEvents(this, action, event);
        };
        add(selector<&Listener::down>, UIControlEventTouchDown);
        add(selector<&Listener::repeat>, UIControlEventTouchDownRepeat);
        add(selector<&Listener::enter>, UIControlEventTouchDragEnter);
        add(selector<&Listener::exit>, UIControlEventTouchDragExit);
        add(selector<&Listener::dragInside>, UIControlEventTouchDragInside);
        add(selector<&Listener::dragOutside>, UIControlEventTouchDragOutside);
        add(selector<&Listener::upInside>, UIControlEventTouchUpInside);
        add(selector<&Listener::upOutside>, UIControlEventTouchUpOutside);
        add(selector<&Listener::cancel>, UIControlEventTouchCancel);
    }
    /// What came since the last call.
    std::vector<std::string> news() { return std::exchange(log, {}); }

    std::vector<std::string> log;
};

using News = std::vector<std::string>;

} // namespace zr::tests
