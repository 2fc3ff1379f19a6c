#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

#include <algorithm>

namespace zr::tests {

namespace {

/// What a screen asks for in the middle of any of its messages, on its way onto a stack and off it again.
class CallbackRequest : public Navigation {
protected:
    /// All that B is told between its push and its end, in this order for the first time.
    const std::vector<std::string> coming{"loaded",      "will move in",        "will appear animated", "will lay out",
                                          "did lay out", "did appear animated", "did move in"};
    const std::vector<std::string> turning{"will rotate to 3", "will animate rotation to 3", "did rotate from 1"};
    const std::vector<std::string> going{"will move out", "will disappear animated", "did disappear animated",
                                         "did move out"};

    Ref<UITabBarController> tabs = make<UITabBarController>();
    Ref<Screen> other = makeScreen("O");
    Ref<Screen> m = makeScreen("M");
    int asked = 0;

    void SetUp() override {
        Navigation::SetUp();
        logEverything();
    }
    std::vector<std::string> allMoments() const {
        auto moments = coming;
        moments.insert(moments.end(), turning.begin(), turning.end());
        moments.insert(moments.end(), going.begin(), going.end());
        return moments;
    }
    bool isGoing(const std::string& moment) const {
        return std::find(going.begin(), going.end(), moment) != going.end();
    }

    void startAgain() {
        window->setRootViewController(nullptr);
        window->setHidden(true);
        host.rotate(UIInterfaceOrientationPortrait);
        b = makeScreen("B");
        c = makeScreen("C");
        m = makeScreen("M");
        for (Screen* screen : {b.get(), c.get(), m.get()})
            screen->logsMoves = screen->logsLayout = screen->logsLoading = true;
        tabs->setViewControllers({});
        navigation->setViewControllers({a});
        tabs->setViewControllers({navigation, other});
        tabs->setSelectedIndex(0);
        show(tabs);
        asked = 0;
    }
    /// B comes, the device turns, B goes; at the moment it asks, once.
    void live(const std::string& moment, const std::function<void()>& request) {
        startAgain();
        b->act = [&](const std::string& what) {
            if (what == moment && asked++ == 0)
                request();
        };
        navigation->pushViewController_animated(b, true);
        host.advance(1);
        host.rotate(UIInterfaceOrientationLandscapeRight);
        host.advance(1);
        navigation->popToRootViewControllerAnimated(true);
        host.advance(1);
        EXPECT_GE(asked, 1) << "B was never told";
    }
    /// The messages of each screen follow from one another, and say in the end whether it is there.
    void expectMessagesFollow() {
        for (Screen* screen : {a.get(), b.get(), c.get(), m.get(), other.get()}) {
            std::string state = screen == a ? "did appear" : "did disappear";
            for (const std::string& line : log) {
                if (line.rfind(screen->name + " ", 0) != 0)
                    continue;
                const std::string message = line.substr(2, line.find(" animated") - 2);
                const bool isDid = message == "did appear" || message == "did disappear";
                if (isDid) {
                    EXPECT_EQ(state, "will" + message.substr(3)) << line;
                } else if (message == "will appear") {
                    EXPECT_THAT(state, testing::EndsWith("disappear")) << line;
                } else if (message == "will disappear") {
                    EXPECT_THAT(state, testing::EndsWith(" appear")) << line;
                }
                if (isDid || message == "will appear" || message == "will disappear")
                    state = message;
            }
            const UIView* view = screen->viewIfLoaded();
            EXPECT_EQ(state, view && view->window() ? "did appear" : "did disappear") << screen->name;
        }
    }
    /// Of the controllers that can be seen, this one and no other.
    void expectOnly(UIViewController* screen) {
        for (Screen* each : {a.get(), b.get(), c.get(), m.get(), other.get()}) {
            const UIView* view = each->viewIfLoaded();
            EXPECT_EQ(view && view->window(), each == screen) << each->name;
        }
        ASSERT_NE(screen->view()->window(), nullptr);
        EXPECT_EQ(screen->view()->convertRect_toView(screen->view()->bounds(), nullptr), window->bounds());
        EXPECT_TRUE(screen->view()->superview()->isUserInteractionEnabled());
        EXPECT_FALSE(screen->view()->layer()->hasAnimations());
    }
    void expectReleased() {
        bool isGone = false;
        b->onDestruction = [&] { isGone = true; };
        b->act = nullptr;
        b = nullptr;
        EXPECT_TRUE(isGone);
        b = makeScreen("B");
    }
    /// At each moment, animated and not.
    void forEachMoment(const std::function<void(const std::string& moment, bool animated)>& run) {
        for (const std::string& moment : allMoments()) {
            for (const bool animated : {true, false}) {
                SCOPED_TRACE(moment + (animated ? ", animated" : ""));
                run(moment, animated);
            }
        }
    }
};

} // namespace

TEST_F(CallbackRequest, APush) {
    forEachMoment([&](const std::string& moment, bool animated) {
        live(moment, [&] { navigation->pushViewController_animated(c, animated); });
        EXPECT_EQ(navigation->viewControllers(), isGoing(moment) ? (Stack{a, c}) : Stack{a});
        expectOnly(navigation->topViewController());
        expectMessagesFollow();
        expectReleased();
    });
}

TEST_F(CallbackRequest, APop) {
    forEachMoment([&](const std::string& moment, bool animated) {
        live(moment, [&] { navigation->popViewControllerAnimated(animated); });
        EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
        expectOnly(a);
        expectMessagesFollow();
        expectReleased();
    });
}

TEST_F(CallbackRequest, AnotherStack) {
    forEachMoment([&](const std::string& moment, bool animated) {
        live(moment, [&] { navigation->setViewControllers_animated({c, b, a}, animated); });
        EXPECT_EQ(navigation->viewControllers(), isGoing(moment) ? (Stack{c, b, a}) : Stack{c});
        expectOnly(navigation->topViewController());
        expectMessagesFollow();
    });
}

TEST_F(CallbackRequest, APresentation) {
    forEachMoment([&](const std::string& moment, bool animated) {
        int done = 0;
        live(moment, [&] { b->presentViewController_animated_completion(m, animated, [&] { ++done; }); });
        // When it is its turn the screen has left its parent, and is in no window: it cannot present.
        const bool isAlone = moment == "did disappear animated" || moment == "did move out";
        EXPECT_EQ(done, isAlone ? 0 : 1);
        EXPECT_EQ(tabs->presentedViewController(), isAlone ? nullptr : m.get());
        EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
        expectOnly(isAlone ? a.get() : m.get());
        expectMessagesFollow();
        tabs->dismissViewControllerAnimated_completion(false, nullptr);
    });
}

TEST_F(CallbackRequest, ADismissalOfAScreenThatComesPresented) {
    for (const char* moment : {"loaded", "will appear animated", "will lay out", "did lay out", "did appear animated",
                               "will disappear animated", "did disappear animated"}) {
        for (const bool animated : {true, false}) {
            SCOPED_TRACE(std::string(moment) + (animated ? ", animated" : ""));
            startAgain();
            int gone = 0;
            m->act = [&](const std::string& what) {
                if (what == moment && asked++ == 0)
                    m->dismissViewControllerAnimated_completion(animated, [&] { ++gone; });
            };
            tabs->presentViewController_animated_completion(m, true, nullptr);
            host.advance(1);
            tabs->dismissViewControllerAnimated_completion(true, nullptr);
            host.advance(1);
            EXPECT_EQ(gone, 1);
            EXPECT_EQ(tabs->presentedViewController(), nullptr);
            expectOnly(a);
            expectMessagesFollow();
        }
    }
}

TEST_F(CallbackRequest, AnotherTab) {
    forEachMoment([&](const std::string& moment, bool) {
        live(moment, [&] { tabs->setSelectedIndex(1); });
        EXPECT_EQ(tabs->selectedIndex(), 1u);
        EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
        expectOnly(other);
        expectMessagesFollow();
        expectReleased();
    });
}

TEST_F(CallbackRequest, AnotherRoot) {
    forEachMoment([&](const std::string& moment, bool) {
        live(moment, [&] { window->setRootViewController(m); });
        EXPECT_EQ(window->rootViewController(), m);
        EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
        expectOnly(m);
        expectMessagesFollow();
        expectReleased();
    });
}

TEST_F(CallbackRequest, AHiddenWindow) {
    forEachMoment([&](const std::string& moment, bool) {
        live(moment, [&] { window->setHidden(true); });
        EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
        EXPECT_TRUE(window->isHidden());
        window->setHidden(false);
        expectOnly(a);
        expectMessagesFollow();
        expectReleased();
    });
}

TEST_F(CallbackRequest, AHiddenWindowWhileAScreenIsPresented) {
    for (const char* moment : {"will disappear animated", "will disappear"}) {
        startAgain();
        const bool animated = std::string(moment) != "will disappear";
        a->act = [&](const std::string& what) {
            if (what == moment && asked++ == 0)
                window->setHidden(true);
        };
        tabs->presentViewController_animated_completion(m, animated, nullptr);
        host.advance(1);
        a->act = nullptr;
        EXPECT_EQ(asked, 1);
        EXPECT_THAT(log, testing::Not(testing::Contains(testing::StartsWith("M will appear"))));
        window->setHidden(false);
        expectOnly(m);
        expectMessagesFollow();
        tabs->dismissViewControllerAnimated_completion(false, nullptr);
    }
}

TEST_F(CallbackRequest, ANavigationControllerTakenOutByHand) {
    forEachMoment([&](const std::string& moment, bool) {
        startAgain();
        window->setRootViewController(nullptr);
        tabs->setViewControllers({});
        window->addSubview(navigation->view());
        news();
        b->act = [&](const std::string& what) {
            if (what == moment && asked++ == 0)
                navigation->view()->removeFromSuperview();
        };
        navigation->pushViewController_animated(b, true);
        host.advance(1);
        navigation->popToRootViewControllerAnimated(true);
        host.advance(1);
        window->addSubview(navigation->view());
        expectOnly(a);
        expectMessagesFollow();
        expectReleased();
        navigation->view()->removeFromSuperview();
    });
}

/// Nobody but the stack keeps it.
TEST_F(CallbackRequest, TheEndOfTheScreenThatAsks) {
    for (const std::string& moment : allMoments()) {
        if (isGoing(moment))
            continue;
        SCOPED_TRACE(moment);
        startAgain();
        int gone = 0;
        Screen* screen = b;
        screen->onDestruction = [&] { ++gone; };
        screen->act = [&](const std::string& what) {
            if (what == moment && asked++ == 0)
                navigation->setViewControllers({a});
        };
        navigation->pushViewController_animated(std::exchange(b, nullptr), true);
        host.advance(1);
        host.rotate(UIInterfaceOrientationLandscapeRight);
        host.advance(1);
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(gone, 1);
        b = makeScreen("B");
        expectOnly(a);
    }
}

TEST_F(CallbackRequest, APushByThoseWhoAreToldOfScreens) {
    class Eager : public NSObject, public UINavigationControllerDelegate {
    public:
        void navigationController_willShowViewController_animated(UINavigationController*, UIViewController* screen,
                                                                  bool) override {
            if (onWillShow)
                onWillShow(screen);
        }
        void navigationController_didShowViewController_animated(UINavigationController*, UIViewController* screen,
                                                                 bool) override {
            if (onDidShow)
                onDidShow(screen);
        }
        std::function<void(UIViewController*)> onWillShow, onDidShow;
    };
    for (const bool before : {true, false}) {
        startAgain();
        auto eager = make<Eager>();
        const auto push = [&](UIViewController* screen) {
            if (screen == b)
                navigation->pushViewController_animated(c, true);
        };
        (before ? eager->onWillShow : eager->onDidShow) = push;
        navigation->setDelegate(eager);
        navigation->pushViewController_animated(b, true);
        host.advance(1);
        EXPECT_EQ(navigation->viewControllers(), (Stack{a, b, c}));
        expectOnly(c);
        expectMessagesFollow();
        navigation->setDelegate(nullptr);
    }
}

TEST_F(CallbackRequest, APushByThoseWhoWaitForAPresentation) {
    startAgain();
    tabs->presentViewController_animated_completion(m, true, [&] { navigation->pushViewController_animated(b, true); });
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    expectOnly(m);
    tabs->dismissViewControllerAnimated_completion(true, [&] { navigation->pushViewController_animated(c, true); });
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b, c}));
    expectOnly(c);
    expectMessagesFollow();
}

} // namespace zr::tests
