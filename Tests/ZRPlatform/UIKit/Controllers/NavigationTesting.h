#pragma once

#include <Tests/ZRPlatform/UIKit/Controllers/ControllerTesting.h>

namespace zr::tests {

/// Writes down what a navigation controller tells its delegate.
class NavigationListener : public NSObject, public UINavigationControllerDelegate {
public:
    void navigationController_willShowViewController_animated(UINavigationController*, UIViewController* screen,
                                                              bool animated) override {
        note("will show ", screen, animated);
    }
    void navigationController_didShowViewController_animated(UINavigationController*, UIViewController* screen,
                                                             bool animated) override {
        note("did show ", screen, animated);
    }

    Log* log = nullptr;

private:
    void note(const char* what, UIViewController* screen, bool animated) {
        log->push_back(what + dynamic_cast<Screen*>(screen)->name + (animated ? " animated" : ""));
    }
};

/// Does not extend below bars.
class CarefulScreen : public Screen {
public:
    void viewDidLoad() override {
        Screen::viewDidLoad();
        setEdgesForExtendedLayout(UIRectEdgeNone);
    }
};

/// A navigation controller in a window, with the screen A in it.
class Navigation : public Controllers {
protected:
    using Stack = std::vector<Ref<UIViewController>>;

    Ref<Screen> a = makeScreen("A");
    Ref<Screen> b = makeScreen("B");
    Ref<Screen> c = makeScreen("C");
    Ref<UINavigationController> navigation =
        make<UINavigationController>(&UINavigationController::initWithRootViewController, a);
    Ref<NavigationListener> listener = make<NavigationListener>();

    void SetUp() override {
        listener->log = &log;
        a->color = UIColor::redColor();
        b->color = UIColor::greenColor();
        c->color = UIColor::blueColor();
    }

    /// From here on the delegate and moves between parents are written down too.
    void logEverything() {
        navigation->setDelegate(listener);
        for (Screen* screen : {a.get(), b.get(), c.get()})
            screen->logsMoves = true;
    }

    /// In the window without the navigation controller.
    void showAlone(UIViewController* screen) {
        navigation->setViewControllers({});
        show(screen);
    }

    /// Pushed and there, nothing of it written down.
    void pushAtOnce(UIViewController* screen) {
        navigation->pushViewController_animated(screen, false);
        host.advance(0);
        news();
    }
};

} // namespace zr::tests
