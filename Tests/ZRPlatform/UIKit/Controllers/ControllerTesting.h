#pragma once

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace zr::tests {

using Log = std::vector<std::string>;

/// Writes down what `Base` is told of its appearance; a movement to or from a parent only when asked to.
template <class Base>
class Logging : public Base {
public:
    ~Logging() override {
        if (onDestruction)
            onDestruction();
    }
    void viewDidLoad() override {
        Base::viewDidLoad();
        if (logsLoading)
            note("loaded");
    }
    void viewWillAppear(bool animated) override {
        Base::viewWillAppear(animated);
        note(animated ? "will appear animated" : "will appear");
    }
    void viewDidAppear(bool animated) override {
        Base::viewDidAppear(animated);
        note(animated ? "did appear animated" : "did appear");
    }
    void viewWillDisappear(bool animated) override {
        Base::viewWillDisappear(animated);
        note(animated ? "will disappear animated" : "will disappear");
    }
    void viewDidDisappear(bool animated) override {
        Base::viewDidDisappear(animated);
        note(animated ? "did disappear animated" : "did disappear");
    }
    void willMoveToParentViewController(UIViewController* parent) override {
        Base::willMoveToParentViewController(parent);
        if (logsMoves)
            note(parent ? "will move in" : "will move out");
    }
    void didMoveToParentViewController(UIViewController* parent) override {
        Base::didMoveToParentViewController(parent);
        if (logsMoves)
            note(parent ? "did move in" : "did move out");
    }
    void viewWillLayoutSubviews() override {
        Base::viewWillLayoutSubviews();
        if (logsLayout)
            note("will lay out");
    }
    void viewDidLayoutSubviews() override {
        Base::viewDidLayoutSubviews();
        if (logsLayout)
            note("did lay out");
    }
    void didReceiveMemoryWarning() override {
        Base::didReceiveMemoryWarning();
        note("memory warning");
    }
    void willRotateToInterfaceOrientation_duration(UIInterfaceOrientation to, NSTimeInterval duration) override {
        Base::willRotateToInterfaceOrientation_duration(to, duration);
        note("will rotate to " + std::to_string(to));
    }
    void willAnimateRotationToInterfaceOrientation_duration(UIInterfaceOrientation to,
                                                            NSTimeInterval duration) override {
        Base::willAnimateRotationToInterfaceOrientation_duration(to, duration);
        note("will animate rotation to " + std::to_string(to));
    }
    void didRotateFromInterfaceOrientation(UIInterfaceOrientation from) override {
        Base::didRotateFromInterfaceOrientation(from);
        note("did rotate from " + std::to_string(from));
    }
    NSUInteger supportedInterfaceOrientations() const override { return orientations; }
    bool shouldAutorotate() const override { return rotates; }

    std::string name = "?";
    Log* log = nullptr;
    bool logsMoves = false;
    bool logsLoading = false;
    bool logsLayout = false;
    NSUInteger orientations = UIInterfaceOrientationMaskAllButUpsideDown;
    bool rotates = true;
    /// Called with each line, once it is written.
    std::function<void(const std::string& what)> act;
    std::function<void()> onDestruction;

private:
    void note(const std::string& what) {
        if (log)
            log->push_back(name + " " + what);
        if (act)
            act(what);
    }
};

class Screen : public Logging<UIViewController> {
public:
    void loadView() override {
        Logging<UIViewController>::loadView();
        viewIfLoaded()->setBackgroundColor(color);
    }

    Ref<UIColor> color = UIColor::whiteColor();
};

/// A phone with a window that is not shown yet.
class Controllers : public testing::Test {
protected:
    HeadlessHost host;
    Log log;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());

    template <class T = Screen>
    Ref<T> makeScreen(const std::string& name) {
        auto screen = make<T>();
        screen->name = name;
        screen->log = &log;
        return screen;
    }

    /// What was written since the last call.
    Log news() { return std::exchange(log, {}); }

    void show(UIViewController* root) {
        window->setRootViewController(root);
        window->makeKeyAndVisible();
        host.advance(0);
        news();
    }
};

/// Where a view's upper left corner is seen now, in points of the window.
inline CGPoint seenOrigin(const UIView* view) {
    const LayerValues values = view->layer()->presentationValues();
    return {values.position.x - values.bounds.size.width / 2, values.position.y - values.bounds.size.height / 2};
}

} // namespace zr::tests
