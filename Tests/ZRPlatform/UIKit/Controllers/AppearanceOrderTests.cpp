#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

/// The table of what is told, and in which order, for each change of screens. What is told at once stands before
/// "---", what is told when the movement has ended behind it.
class AppearanceOrder : public Navigation {
protected:
    void SetUp() override {
        Navigation::SetUp();
        for (Screen* screen : {a.get(), b.get(), c.get(), m.get(), n.get()})
            screen->logsLayout = true;
    }
    /// What is told from now on, with a mark between the present and what time brings.
    Log told(const std::function<void()>& change) {
        host.advance(0);
        news();
        change();
        log.emplace_back("---");
        for (int i = 0; i < 100; ++i)
            host.advance(0.01);
        return news();
    }
    void push(UIViewController* screen, bool animated) { navigation->pushViewController_animated(screen, animated); }
    std::function<void()> noting(const char* line) {
        return [this, line] { log.emplace_back(line); };
    }

    Ref<Screen> m = makeScreen("M");
    Ref<Screen> n = makeScreen("N");
};

} // namespace

TEST_F(AppearanceOrder, Push) {
    logEverything();
    show(navigation);
    EXPECT_EQ(told([&] { push(b, true); }),
              (Log{"B will move in", "A will disappear animated", "B will appear animated", "will show B animated",
                   "---", "B will lay out", "B did lay out", "A did disappear animated", "B did appear animated",
                   "B did move in", "did show B animated"}));
    EXPECT_EQ(told([&] { push(c, false); }),
              (Log{"C will move in", "B will disappear", "C will appear", "will show C", "B did disappear",
                   "C will lay out", "C did lay out", "C did appear", "C did move in", "did show C", "---"}));
}

TEST_F(AppearanceOrder, Pop) {
    logEverything();
    show(navigation);
    push(b, false);
    push(c, false);
    EXPECT_EQ(
        told([&] { navigation->popViewControllerAnimated(true); }),
        (Log{"C will move out", "C will disappear animated", "B will appear animated", "will show B animated", "---",
             "C did disappear animated", "B did appear animated", "C did move out", "did show B animated"}));
    EXPECT_EQ(told([&] { navigation->popViewControllerAnimated(false); }),
              (Log{"B will move out", "B will disappear", "A will appear", "will show A", "B did disappear",
                   "A did appear", "B did move out", "did show A", "---"}));
}

TEST_F(AppearanceOrder, PopToRootTellsTheScreensInBetweenOnlyThatTheyMove) {
    logEverything();
    show(navigation);
    push(b, false);
    push(c, false);
    EXPECT_EQ(told([&] { navigation->popToRootViewControllerAnimated(true); }),
              (Log{"B will move out", "C will move out", "C will disappear animated", "A will appear animated",
                   "will show A animated", "---", "C did disappear animated", "A did appear animated", "B did move out",
                   "C did move out", "did show A animated"}));
}

TEST_F(AppearanceOrder, PopToRootWithoutAnimation) {
    logEverything();
    show(navigation);
    push(b, false);
    push(c, false);
    EXPECT_EQ(told([&] { navigation->popToRootViewControllerAnimated(false); }),
              (Log{"B will move out", "C will move out", "C will disappear", "A will appear", "will show A",
                   "C did disappear", "A did appear", "B did move out", "C did move out", "did show A", "---"}));
}

TEST_F(AppearanceOrder, ANewStackIsAPushOrAPop) {
    logEverything();
    show(navigation);
    push(b, false);
    EXPECT_EQ(told([&] {
                  navigation->setViewControllers_animated({b, c}, true);
              }),
              (Log{"A will move out", "C will move in", "B will disappear animated", "C will appear animated",
                   "will show C animated", "---", "C will lay out", "C did lay out", "B did disappear animated",
                   "C did appear animated", "A did move out", "C did move in", "did show C animated"}));
    EXPECT_EQ(told([&] {
                  navigation->setViewControllers_animated({a, b}, true);
              }),
              (Log{"C will move out", "A will move in", "C will disappear animated", "B will appear animated",
                   "will show B animated", "---", "C did disappear animated", "B did appear animated", "C did move out",
                   "A did move in", "did show B animated"}));
    EXPECT_EQ(told([&] { navigation->setViewControllers_animated({b}, true); }),
              (Log{"A will move out", "A did move out", "---"}))
        << "the same screen on top";
}

TEST_F(AppearanceOrder, APushBelowAPresentationUnderWay) {
    logEverything();
    show(navigation);
    navigation->presentViewController_animated_completion(m, true, noting("done"));
    host.advance(0.1);
    EXPECT_EQ(told([&] { push(b, true); }), (Log{"B will move in", "A did disappear animated", "B did move in", "---",
                                                 "B will lay out", "B did lay out", "M did appear animated", "done"}));
    EXPECT_EQ(told([&] { navigation->dismissViewControllerAnimated_completion(true, noting("gone")); }),
              (Log{"M will disappear animated", "B will appear animated", "will show B animated", "---",
                   "B did appear animated", "did show B animated", "M did disappear animated", "gone"}));
}

TEST_F(AppearanceOrder, APushWhileADismissalIsUnderWay) {
    logEverything();
    show(navigation);
    navigation->presentViewController_animated_completion(m, false, nullptr);
    navigation->dismissViewControllerAnimated_completion(true, noting("gone"));
    host.advance(0.1);
    EXPECT_EQ(told([&] { push(b, true); }),
              (Log{"B will move in", "A will disappear", "B will appear", "will show B", "A did disappear",
                   "B did move in", "---", "B will lay out", "B did lay out", "B did appear", "did show B animated",
                   "M did disappear animated", "gone"}));
}

TEST_F(AppearanceOrder, APushBeforeTheLastOneHasEnded) {
    logEverything();
    show(navigation);
    push(b, true);
    host.advance(0.1);
    EXPECT_EQ(told([&] { push(c, true); }),
              (Log{"A did disappear animated", "B did appear animated", "B did move in", "did show B animated",
                   "C will move in", "B will disappear animated", "C will appear animated", "will show C animated",
                   "---", "C will lay out", "C did lay out", "B did disappear animated", "C did appear animated",
                   "C did move in", "did show C animated"}));
}

TEST_F(AppearanceOrder, APopBeforeThePushHasEnded) {
    logEverything();
    show(navigation);
    push(b, true);
    host.advance(0.1);
    EXPECT_EQ(
        told([&] { navigation->popViewControllerAnimated(true); }),
        (Log{"A did disappear animated", "B did appear animated", "B did move in", "did show B animated",
             "B will move out", "B will disappear animated", "A will appear animated", "will show A animated", "---",
             "B did disappear animated", "A did appear animated", "B did move out", "did show A animated"}));
}

TEST_F(AppearanceOrder, APopBeforeThePushedScreenWasEverLaidOut) {
    show(navigation);
    EXPECT_EQ(told([&] {
                  push(b, true);
                  navigation->popViewControllerAnimated(false);
              }),
              (Log{"A will disappear animated", "B will appear animated", "A did disappear animated", "B will lay out",
                   "B did lay out", "B did appear animated", "B will disappear", "A will appear", "B did disappear",
                   "A did appear", "---"}));
}

TEST_F(AppearanceOrder, Present) {
    showAlone(a);
    EXPECT_EQ(told([&] { a->presentViewController_animated_completion(m, true, noting("done")); }),
              (Log{"A will disappear animated", "M will appear animated", "---", "M will lay out", "M did lay out",
                   "M did appear animated", "A did disappear animated", "done"}));
    EXPECT_EQ(told([&] { m->presentViewController_animated_completion(n, false, noting("done")); }),
              (Log{"M will disappear", "N will appear", "N will lay out", "N did lay out", "N did appear",
                   "M did disappear", "done", "---"}));
}

TEST_F(AppearanceOrder, PresentInFrontOfOneThatStays) {
    showAlone(a);
    m->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    EXPECT_EQ(
        told([&] { a->presentViewController_animated_completion(m, true, noting("done")); }),
        (Log{"M will appear animated", "---", "M will lay out", "M did lay out", "M did appear animated", "done"}));
    EXPECT_EQ(told([&] { a->dismissViewControllerAnimated_completion(true, noting("gone")); }),
              (Log{"M will disappear animated", "---", "M did disappear animated", "gone"}));
}

TEST_F(AppearanceOrder, Dismiss) {
    showAlone(a);
    a->presentViewController_animated_completion(m, false, nullptr);
    m->presentViewController_animated_completion(n, false, nullptr);
    EXPECT_EQ(told([&] { n->dismissViewControllerAnimated_completion(true, noting("gone")); }),
              (Log{"N will disappear animated", "M will appear animated", "---", "M did appear animated",
                   "N did disappear animated", "gone"}));
    EXPECT_EQ(told([&] { a->dismissViewControllerAnimated_completion(false, noting("gone")); }),
              (Log{"M will disappear", "A will appear", "A did appear", "M did disappear", "gone", "---"}));
}

TEST_F(AppearanceOrder, DismissOfSeveralTellsThoseInBetweenNothing) {
    showAlone(a);
    a->presentViewController_animated_completion(m, false, nullptr);
    m->presentViewController_animated_completion(n, false, nullptr);
    EXPECT_EQ(told([&] { a->dismissViewControllerAnimated_completion(true, noting("gone")); }),
              (Log{"N will disappear animated", "A will appear animated", "---", "A did appear animated",
                   "N did disappear animated", "gone"}));
}

TEST_F(AppearanceOrder, ADismissalBeforeThePresentationHasEnded) {
    showAlone(a);
    a->presentViewController_animated_completion(m, true, noting("done"));
    host.advance(0.1);
    EXPECT_EQ(told([&] { a->dismissViewControllerAnimated_completion(true, noting("gone")); }),
              (Log{"M did appear animated", "A did disappear animated", "done", "M will disappear animated",
                   "A will appear animated", "---", "A did appear animated", "M did disappear animated", "gone"}));
}

TEST_F(AppearanceOrder, APresentationBeforeADismissalHasEnded) {
    showAlone(a);
    a->presentViewController_animated_completion(m, false, nullptr);
    a->dismissViewControllerAnimated_completion(true, noting("gone"));
    host.advance(0.1);
    EXPECT_EQ(told([&] { a->presentViewController_animated_completion(n, true, noting("done")); }),
              (Log{"A did appear animated", "M did disappear animated", "gone", "A will disappear animated",
                   "N will appear animated", "---", "N will lay out", "N did lay out", "N did appear animated",
                   "A did disappear animated", "done"}));
}

TEST_F(AppearanceOrder, PresentOverANavigationControllerWhosePushIsUnderWay) {
    show(navigation);
    push(b, true);
    host.advance(0.1);
    EXPECT_EQ(
        told([&] { b->presentViewController_animated_completion(m, true, nullptr); }),
        (Log{"A did disappear animated", "B did appear animated", "B will disappear animated", "M will appear animated",
             "---", "M will lay out", "M did lay out", "M did appear animated", "B did disappear animated"}));
    EXPECT_EQ(m->presentingViewController(), navigation);
    EXPECT_EQ(told([&] { m->dismissViewControllerAnimated_completion(false, nullptr); }),
              (Log{"M will disappear", "B will appear", "B did appear", "M did disappear", "---"}));
}

TEST_F(AppearanceOrder, WindowShowAndHide) {
    window->setRootViewController(navigation);
    EXPECT_EQ(told([&] { window->makeKeyAndVisible(); }),
              (Log{"A will appear", "A will lay out", "A did lay out", "A did appear", "---"}));
    EXPECT_EQ(told([&] { window->setHidden(true); }), (Log{"A will disappear", "A did disappear", "---"}));
    EXPECT_EQ(told([&] { window->setHidden(false); }), (Log{"A will appear", "A did appear", "---"}));
    push(b, true);
    host.advance(0.1);
    EXPECT_EQ(told([&] { window->setHidden(true); }),
              (Log{"A did disappear animated", "B did appear animated", "B will disappear", "B did disappear", "---"}));
}

TEST_F(AppearanceOrder, TheWindowOfAPresentedScreenTellsThatOneOnly) {
    showAlone(a);
    a->presentViewController_animated_completion(m, false, nullptr);
    EXPECT_EQ(told([&] { window->setHidden(true); }), (Log{"M will disappear", "M did disappear", "---"}));
    EXPECT_EQ(told([&] { window->setHidden(false); }), (Log{"M will appear", "M did appear", "---"}));
    m->presentViewController_animated_completion(n, true, noting("done"));
    host.advance(0.1);
    EXPECT_EQ(told([&] { window->setHidden(true); }), (Log{"N did appear animated", "M did disappear animated", "done",
                                                           "N will disappear", "N did disappear", "---"}));
}

TEST_F(AppearanceOrder, Tabs) {
    auto tabs = make<UITabBarController>();
    tabs->setViewControllers({m, n});
    show(tabs);
    EXPECT_EQ(told([&] { tabs->setSelectedIndex(1); }),
              (Log{"N will appear", "M will disappear", "M did disappear", "N will lay out", "N did lay out",
                   "N did appear", "---"}));
    EXPECT_EQ(told([&] { tabs->setSelectedIndex(1); }), (Log{"---"}));
    EXPECT_EQ(told([&] { tabs->setSelectedViewController(m); }),
              (Log{"M will appear", "N will disappear", "N did disappear", "M did appear", "---"}));
}

TEST_F(AppearanceOrder, ATabChangedWhileItsScreensSlide) {
    auto tabs = make<UITabBarController>();
    tabs->setViewControllers({navigation, m});
    show(tabs);
    push(b, true);
    host.advance(0.1);
    EXPECT_EQ(told([&] { tabs->setSelectedIndex(1); }),
              (Log{"A did disappear animated", "B did appear animated", "M will appear", "B will disappear",
                   "B did disappear", "M will lay out", "M did lay out", "M did appear", "---"}));
}

TEST_F(AppearanceOrder, WhatCallbacksAskForBeginsWhenAllAreTold) {
    show(navigation);
    b->act = [&](const std::string& what) {
        if (what == "will appear animated")
            push(c, true);
    };
    c->act = [&](const std::string& what) {
        if (what == "did appear animated")
            c->presentViewController_animated_completion(m, false, nullptr);
    };
    EXPECT_EQ(
        told([&] { push(b, true); }),
        (Log{"A will disappear animated", "B will appear animated", "A did disappear animated", "B will lay out",
             "B did lay out", "B did appear animated", "B will disappear animated", "C will appear animated", "---",
             "C will lay out", "C did lay out", "B did disappear animated", "C did appear animated", "C will disappear",
             "M will appear", "M will lay out", "M did lay out", "M did appear", "C did disappear"}));
}

TEST_F(AppearanceOrder, FlagsSayWhereAMessageComesFrom) {
    Log flags;
    const auto watch = [&](Screen* screen) {
        screen->logsLayout = false;
        screen->act = [&flags, screen](const std::string& what) {
            std::string line = screen->name + " " + what;
            line += screen->isBeingPresented() ? " presented" : "";
            line += screen->isBeingDismissed() ? " dismissed" : "";
            line += screen->isMovingToParentViewController() ? " moving in" : "";
            line += screen->isMovingFromParentViewController() ? " moving out" : "";
            flags.push_back(line);
        };
    };
    show(navigation);
    watch(a);
    watch(b);
    watch(m);
    push(b, false);
    b->presentViewController_animated_completion(m, false, nullptr);
    b->dismissViewControllerAnimated_completion(false, nullptr);
    navigation->popViewControllerAnimated(false);
    for (Screen* screen : {a.get(), b.get(), m.get()})
        screen->act = nullptr;
    EXPECT_EQ(flags,
              (Log{"A will disappear", "B will appear moving in", "A did disappear", "B did appear moving in",
                   "B will disappear", "M will appear presented", "M did appear presented", "B did disappear",
                   "M will disappear dismissed", "B will appear", "B did appear", "M did disappear dismissed",
                   "B will disappear moving out", "A will appear", "B did disappear moving out", "A did appear"}));
}

} // namespace zr::tests
