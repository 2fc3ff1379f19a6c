#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

class NavigationStack : public Navigation {};

} // namespace

TEST_F(NavigationStack, PushAndPopChangeTheStackAtOnce) {
    show(navigation);
    navigation->pushViewController_animated(b, true);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    EXPECT_EQ(navigation->topViewController(), b);
    EXPECT_EQ(navigation->visibleViewController(), b);
    EXPECT_EQ(b->parentViewController(), navigation);
    EXPECT_EQ(b->navigationController(), navigation);
    EXPECT_EQ(navigation->popViewControllerAnimated(true), b);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    EXPECT_EQ(b->navigationController(), navigation) << "until the slide has ended";
    host.advance(1);
    EXPECT_EQ(b->navigationController(), nullptr);
}

TEST_F(NavigationStack, TheLastScreenIsNotPopped) {
    show(navigation);
    EXPECT_EQ(navigation->popViewControllerAnimated(true), nullptr);
    EXPECT_EQ(navigation->popToRootViewControllerAnimated(true), Stack{});
    EXPECT_EQ(make<UINavigationController>()->popViewControllerAnimated(true), nullptr);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    host.advance(1);
    EXPECT_EQ(news(), (Log{}));
}

TEST_F(NavigationStack, PoppingToAScreenPopsAllAbove) {
    show(navigation);
    pushAtOnce(b);
    pushAtOnce(c);
    EXPECT_EQ(navigation->popToViewController_animated(makeScreen("X"), false), Stack{});
    EXPECT_EQ(navigation->popToViewController_animated(nullptr, false), Stack{});
    EXPECT_EQ(navigation->popToViewController_animated(c, false), Stack{});
    EXPECT_EQ(navigation->popToViewController_animated(a, false), (Stack{b, c}));
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    EXPECT_EQ(b->parentViewController(), nullptr);
    EXPECT_EQ(c->parentViewController(), nullptr);
    pushAtOnce(b);
    pushAtOnce(c);
    EXPECT_EQ(navigation->popToRootViewControllerAnimated(false), (Stack{b, c}));
}

TEST_F(NavigationStack, WhatCannotBePushedIsIgnored) {
    show(navigation);
    auto tabs = make<UITabBarController>();
    tabs->setViewControllers({navigation});
    auto taken = makeScreen("T"), parent = makeScreen("P");
    parent->addChildViewController(taken);
    navigation->pushViewController_animated(nullptr, false);
    navigation->pushViewController_animated(a, false);
    navigation->pushViewController_animated(navigation, false);
    navigation->pushViewController_animated(make<UINavigationController>(), false);
    navigation->pushViewController_animated(taken, false);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    window->setRootViewController(nullptr);
    tabs->setViewControllers({navigation});
    navigation->pushViewController_animated(tabs, false);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
}

TEST_F(NavigationStack, AWholeStackIsSetAtOnce) {
    show(navigation);
    pushAtOnce(b);
    logEverything();
    navigation->setViewControllers({a, nullptr, c, c});
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, c}));
    EXPECT_EQ(news(), (Log{"B will move out", "C will move in", "B will disappear", "C will appear", "will show C",
                           "B did disappear", "C did appear", "B did move out", "C did move in", "did show C"}));
    navigation->setViewControllers({});
    EXPECT_EQ(navigation->topViewController(), nullptr);
    EXPECT_EQ(c->view()->superview(), nullptr);
    host.advance(0);
    navigation->setViewControllers({b});
    EXPECT_NE(b->view()->window(), nullptr);
}

TEST_F(NavigationStack, ANewStackSlidesBackToAScreenThatWasBelow) {
    show(navigation);
    pushAtOnce(b);
    navigation->setViewControllers_animated({c, a}, true);
    host.advance(0.175);
    EXPECT_GT(seenOrigin(b->view()).x, 0) << "a pop";
    host.advance(1);
    navigation->setViewControllers_animated({c, a, b}, true);
    host.advance(0.175);
    EXPECT_LT(seenOrigin(a->view()).x, 0) << "a push";
}

TEST_F(NavigationStack, AScreenIsReleasedOnceItIsPopped) {
    show(navigation);
    bool gone = false;
    b->onDestruction = [&] { gone = true; };
    pushAtOnce(b);
    b = nullptr;
    navigation->popViewControllerAnimated(true);
    host.advance(0.34);
    EXPECT_FALSE(gone);
    host.advance(0.02);
    EXPECT_TRUE(gone);
}

TEST_F(NavigationStack, ItIsReleasedInTheMiddleOfASlide) {
    show(navigation);
    bool gone = false;
    b->onDestruction = [&] { gone = true; };
    navigation->pushViewController_animated(b, true);
    host.advance(0.1);
    b = nullptr;
    window->setRootViewController(nullptr);
    navigation = nullptr;
    EXPECT_TRUE(gone);
    host.advance(1);
}

TEST_F(NavigationStack, WhatHappensOffTheScreenShowsWhenItAppears) {
    logEverything();
    b->logsLoading = true;
    navigation->pushViewController_animated(b, true);
    EXPECT_EQ(news(), (Log{"B will move in", "B did move in"}));
    window->setRootViewController(navigation);
    window->makeKeyAndVisible();
    EXPECT_EQ(news(), (Log{"B loaded", "B will appear", "will show B", "B did appear", "did show B"}));
    EXPECT_FALSE(a->isViewLoaded());
    window->setHidden(true);
    news();
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(news(), (Log{"B will move out", "B did move out"}));
    window->setHidden(false);
    EXPECT_EQ(news(), (Log{"A will appear", "will show A", "A did appear", "did show A"}));
    EXPECT_EQ(b->view()->superview(), nullptr);
}

TEST_F(NavigationStack, ATitleOfAMegabyteShowsItsBeginning) {
    b->setTitle(std::string(1 << 20, 'w'));
    show(navigation);
    pushAtOnce(b);
    EXPECT_EQ(b->title().length(), std::size_t(1) << 20);
    std::function<std::size_t(UIView*)> longestLabel = [&](UIView* view) {
        const auto* label = dynamic_cast<UILabel*>(view);
        std::size_t length = label ? label->text().length() : 0;
        for (const auto& subview : view->subviews())
            length = std::max(length, longestLabel(subview));
        return length;
    };
    EXPECT_EQ(longestLabel(navigation->navigationBar()), 100u);
    EXPECT_LE(navigation->navigationBar()->frame().size.width, 375);
    pushAtOnce(c);
    EXPECT_LE(longestLabel(navigation->navigationBar()), 22u);
}

TEST_F(NavigationStack, AScreenMayRemoveItselfInItsOwnCallbacks) {
    show(navigation);
    for (const char* moment : {"will appear animated", "did appear animated"}) {
        auto brief = makeScreen("X");
        brief->act = [&, moment](const std::string& what) {
            if (what == moment)
                navigation->popViewControllerAnimated(false);
        };
        bool gone = false;
        brief->onDestruction = [&] { gone = true; };
        navigation->pushViewController_animated(brief, true);
        brief = nullptr;
        host.advance(1);
        EXPECT_TRUE(gone) << moment;
        EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
        EXPECT_NE(a->view()->window(), nullptr);
        EXPECT_EQ(news(), (Log{"A will disappear animated", "X will appear animated", "A did disappear animated",
                               "X did appear animated", "X will disappear", "A will appear", "X did disappear",
                               "A did appear"}))
            << moment;
    }
}

TEST_F(NavigationStack, AScreenThatPopsItselfWhileTheControllerComesLeavesTheOtherThere) {
    auto m = makeScreen("M");
    show(navigation);
    navigation->presentViewController_animated_completion(m, false, nullptr);
    navigation->dismissViewControllerAnimated_completion(true, nullptr);
    host.advance(0.1);
    b->act = [&](const std::string& what) {
        if (what == "will appear")
            navigation->popViewControllerAnimated(true);
    };
    news();
    logEverything();
    navigation->pushViewController_animated(b, true);
    host.advance(1);
    EXPECT_EQ(news(), (Log{"B will move in", "A will disappear", "B will appear", "B will move out", "will show B",
                           "A did disappear", "B will disappear", "A will appear", "will show A", "B did disappear",
                           "B did move out", "A did appear", "did show A animated", "M did disappear animated"}));
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    EXPECT_EQ(a->view()->window(), window);
    EXPECT_EQ(b->view()->window(), nullptr);
}

TEST_F(NavigationStack, AScreenPushedAgainWhileItLeavesStays) {
    show(navigation);
    pushAtOnce(b);
    b->act = [&](const std::string& what) {
        if (what == "will disappear animated")
            navigation->pushViewController_animated(b, false);
    };
    navigation->popViewControllerAnimated(true);
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    EXPECT_EQ(b->parentViewController(), navigation);
    EXPECT_NE(b->view()->window(), nullptr);
}

TEST_F(NavigationStack, ItMayBeDroppedWhenAChangeEndsTheSlideBeforeIt) {
    const std::function<void(UINavigationController*, UIViewController*)> changes[] = {
        [](auto* stack, auto* screen) { stack->pushViewController_animated(screen, true); },
        [](auto* stack, auto*) { stack->popViewControllerAnimated(true); },
        [](auto* stack, auto* screen) { stack->popToViewController_animated(screen, true); },
        [](auto* stack, auto*) { stack->popToRootViewControllerAnimated(true); },
        [](auto* stack, auto* screen) { stack->setViewControllers_animated({screen}, true); },
    };
    for (const auto& change : changes) {
        auto dropped =
            make<UINavigationController>(&UINavigationController::initWithRootViewController, makeScreen("X"));
        show(dropped);
        const auto pushed = makeScreen("Y");
        pushed->act = [&](const std::string& what) {
            if (what == "did appear animated")
                window->setRootViewController(nullptr);
        };
        dropped->pushViewController_animated(pushed, true);
        host.advance(0.1);
        UINavigationController* stack = dropped;
        const Weak<UINavigationController> weak = std::exchange(dropped, nullptr);
        change(stack, makeScreen("Z"));
        host.advance(1);
        EXPECT_EQ(weak, nullptr);
    }
}

TEST_F(NavigationStack, KeysReadIt) {
    show(navigation);
    EXPECT_EQ(navigation->valueForKey("topViewController").objectValue(), a);
    navigation->setValue_forKey(true, "navigationBarHidden");
    EXPECT_TRUE(navigation->isNavigationBarHidden());
}

} // namespace zr::tests
