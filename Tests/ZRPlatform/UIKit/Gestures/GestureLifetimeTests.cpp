#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

namespace zr::tests {

namespace {

enum class Stage { Possible, Waiting, Began, Changed, Ended, Failed };

/// Ways in which a recogniser can be taken from its touches.
struct Interruption {
    const char* name;
    void (*interrupt)(Slide* slide, UIView* view);
    /// What its view, which has been told of the touch, is told if the recogniser has not taken the touch: the view
    /// goes with it, or stays and gets the rest of the touch.
    bool takesTheView;
};

constexpr Interruption kInterruptions[] = {
    {"disabled", [](Slide* slide, UIView*) { slide->setEnabled(false); }, false},
    {"disabled and enabled",
     [](Slide* slide, UIView*) {
         slide->setEnabled(false);
         slide->setEnabled(true);
     },
     false},
    {"removed", [](Slide* slide, UIView* view) { view->removeGestureRecognizer(slide); }, false},
    {"attached elsewhere", [](Slide* slide, UIView* view) { view->superview()->addGestureRecognizer(slide); }, false},
    {"view removed", [](Slide*, UIView* view) { view->removeFromSuperview(); }, true},
    {"view hidden", [](Slide*, UIView* view) { view->setHidden(true); }, true},
    {"superview removed", [](Slide*, UIView* view) { view->superview()->removeFromSuperview(); }, true},
    {"window hidden", [](Slide*, UIView* view) { view->window()->setHidden(true); }, true},
};

struct Row {
    Stage stage;
    const char* name;
    /// What targets are told of the interruption.
    Log told;
    bool hasTakenTouch;
};

class Interruptions : public Gestures {
protected:
    Interruptions() {
        slide->requireGestureRecognizerToFail(other);
        other->threshold = 1000;
    }

    void bring(Stage stage) {
        if (stage == Stage::Waiting) {
            // The other one has not failed yet.
            host.touchDown({150, 150});
            host.touchMove({170, 150});
            return;
        }
        slide->isDiscrete = stage == Stage::Ended;
        other->setEnabled(false);
        host.touchDown({150, 150});
        if (stage == Stage::Failed)
            slide->setState(UIGestureRecognizerStateFailed);
        else if (stage != Stage::Possible)
            host.touchMove({170, 150});
        if (stage == Stage::Changed)
            host.touchMove({180, 150});
    }

    Ref<LoggingView> child = addView("child", CGRectMake(0, 0, 200, 200), view);
    Ref<Slide> slide = attach<Slide>(child, "slide");
    Ref<Slide> other = attach<Slide>(child, "other");
};

} // namespace

TEST_F(Interruptions, AtEachStateCancelWhatIsUnderWayAndLetTheTouchBe) {
    const Row rows[] = {
        {Stage::Possible, "possible", {}, false},
        {Stage::Waiting, "waiting", {}, false},
        {Stage::Began, "began", {"slide cancelled"}, true},
        {Stage::Changed, "changed", {"slide cancelled"}, true},
        {Stage::Ended, "ended", {}, true},
        {Stage::Failed, "failed", {}, false},
    };
    for (const Row& row : rows) {
        for (const Interruption& interruption : kInterruptions) {
            SCOPED_TRACE(std::string(row.name) + ", " + interruption.name);
            bring(row.stage);
            news();
            const int resets = slide->resets;
            UIView* viewWhenTold = nullptr;
            reporterNamed("slide")->act = [&](UIGestureRecognizer* r) { viewWhenTold = r->view(); };
            interruption.interrupt(slide, child);
            reporterNamed("slide")->act = nullptr;
            EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
            EXPECT_EQ(slide->numberOfTouches(), 0u);
            EXPECT_EQ(slide->resets, resets + 1);
            EXPECT_EQ(viewWhenTold, row.told.empty() ? nullptr : child.get());
            Log expected = row.told;
            if (interruption.takesTheView && !row.hasTakenTouch)
                expected.push_back("child cancelled");
            EXPECT_EQ(news(), expected);

            const std::size_t seen = slide->seen.size();
            other->setEnabled(false); // it may still hold the end back
            host.touchMove({250, 150});
            host.touchUp();
            const bool viewHearsTheRest = !interruption.takesTheView && !row.hasTakenTouch;
            EXPECT_EQ(news(), viewHearsTheRest ? (Log{"child moved", "child ended"}) : Log());
            EXPECT_EQ(slide->seen.size(), seen);

            window->setHidden(false);
            window->addSubview(view);
            view->addSubview(child);
            child->setHidden(false);
            child->addGestureRecognizer(slide);
            slide->setEnabled(true);
            other->setEnabled(true);
        }
    }
}

namespace {

class GestureLifetime : public Gestures {
protected:
    void slideOver(CGFloat from = 110) {
        host.touchDown({from, 150});
        host.touchMove({from + 20, 150});
        host.touchUp();
    }
};

} // namespace

TEST_F(GestureLifetime, AnAncestorsRecognizerFollowsTheFingerWhenTheTouchedViewGoes) {
    auto child = addView("child", CGRectMake(0, 0, 50, 50), view);
    attach<Slide>(view, "slide");
    host.touchDown({110, 110});
    host.touchMove({130, 110});
    EXPECT_EQ(news(), (Log{"child began", "child cancelled", "slide began"}));
    child->removeFromSuperview();
    child = nullptr;
    host.touchMove({140, 110});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"slide changed", "slide ended"}));
}

TEST_F(GestureLifetime, AViewThatGoesBeforeTheGestureBeginsIsCancelledAtOnce) {
    auto child = addView("child", CGRectMake(0, 0, 50, 50), view);
    attach<Slide>(view, "slide");
    host.touchDown({110, 110});
    child->setHidden(true);
    EXPECT_EQ(news(), (Log{"child began", "child cancelled"}));
    host.touchMove({130, 110});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"slide began", "slide ended"}));
}

TEST_F(GestureLifetime, AWindowThatGoesCancelsAndLetsGo) {
    auto mortal = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 50, 50));
    mortal->makeKeyAndVisible();
    auto slide = attach<Slide>(mortal, "slide");
    host.touchDown({10, 10});
    host.touchMove({30, 10});
    EXPECT_EQ(news(), (Log{"slide began"}));
    mortal = nullptr;
    EXPECT_EQ(news(), (Log{"slide cancelled"}));
    EXPECT_EQ(slide->view(), nullptr);
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    host.touchUp();
}

TEST_F(GestureLifetime, AnActionMayDoAwayWithEverything) {
    auto slide = attach<Slide>(view, "slide");
    auto other = attach<Slide>(window, "other");
    auto says = judge(other);
    says->allowsBoth = true;
    const Weak<LoggingView> weakView = view;
    const Weak<Slide> weakSlide = slide;
    reporterNamed("slide")->act = [&](UIGestureRecognizer*) {
        view->removeFromSuperview();
        view = nullptr;
        slide = nullptr;
        window->removeGestureRecognizer(other);
        other = nullptr;
        reporters.clear();
    };
    slideOver();
    // The other one was about to tell when it was removed.
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide cancelled"}));
    EXPECT_EQ(weakView.get(), nullptr);
    EXPECT_EQ(weakSlide.get(), nullptr);
}

TEST_F(GestureLifetime, ADiscreteOneThatIsRemovedBeforeItIsToldOfIsNeverToldOf) {
    attach<Slide>(view, "slide");
    auto other = attach<Slide>(window, "other");
    other->isDiscrete = true;
    judge(other)->allowsBoth = true;
    reporterNamed("slide")->act = [&](UIGestureRecognizer*) { window->removeGestureRecognizer(other); };
    slideOver();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide ended"}));
}

TEST_F(GestureLifetime, AnActionMayRemoveAndAttachItsRecognizerAgain) {
    auto slide = attach<Slide>(view, "slide");
    reporterNamed("slide")->act = [&](UIGestureRecognizer* recognizer) {
        if (recognizer->state() != UIGestureRecognizerStateBegan)
            return;
        view->removeGestureRecognizer(recognizer);
        view->addGestureRecognizer(recognizer);
    };
    for (int time = 0; time < 2; ++time) {
        slideOver();
        EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide cancelled"}));
        EXPECT_EQ(slide->resets, time + 1);
    }
}

TEST_F(GestureLifetime, AnActionMayBeginAnotherRecognizerWhichThenTakesTheTouch) {
    // The one that sees the touch first, whose targets' turn is over when the action runs.
    auto first = attach<Slide>(view, "first");
    first->threshold = 1000;
    auto slide = attach<Slide>(view, "slide");
    slide->setCancelsTouchesInView(false);
    judge(slide)->allowsBoth = true;
    reporterNamed("slide")->act = [&](UIGestureRecognizer* recognizer) {
        if (recognizer->state() == UIGestureRecognizerStateBegan)
            first->setState(UIGestureRecognizerStateBegan);
    };
    host.touchDown({110, 150});
    host.touchMove({130, 150});
    EXPECT_EQ(news(), (Log{"view began", "slide began", "view cancelled", "first began"}));
}

TEST_F(GestureLifetime, AnActionMayDisableOneThatBeganAndEndedInOneEventBeforeItIsToldOfTheEnd) {
    auto slide = attach<Slide>(view, "slide");
    slide->onTouch = [&](const std::string& what) {
        if (what == "moved")
            slide->setState(UIGestureRecognizerStateEnded);
    };
    reporterNamed("slide")->act = [](UIGestureRecognizer* recognizer) { recognizer->setEnabled(false); };
    slideOver();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide cancelled"}));
    EXPECT_EQ(slide->resets, 1);
}

TEST_F(GestureLifetime, AnActionThatHearsOfTheMoveToAnotherViewMayChooseAThird) {
    auto slide = attach<Slide>(view, "slide");
    auto second = addView("second", CGRectMake(0, 0, 50, 50)), third = addView("third", CGRectMake(50, 0, 50, 50));
    reporterNamed("slide")->act = [&](UIGestureRecognizer* recognizer) {
        if (recognizer->state() == UIGestureRecognizerStateCancelled)
            third->addGestureRecognizer(recognizer);
    };
    host.touchDown({110, 150});
    host.touchMove({130, 150});
    second->addGestureRecognizer(slide);
    EXPECT_EQ(slide->view(), third.get());
    EXPECT_EQ(third->gestureRecognizers(), (std::vector<Ref<UIGestureRecognizer>>{slide}));
    EXPECT_TRUE(second->gestureRecognizers().empty());
    EXPECT_TRUE(view->gestureRecognizers().empty());
}

TEST_F(GestureLifetime, ADelegateMayStopTheOneThatAsks) {
    for (const bool answer : {false, true}) {
        auto slide = attach<Slide>(view, "slide");
        auto says = judge(slide);
        says->begins = answer;
        says->act = [&] { view->removeGestureRecognizer(slide); };
        slideOver();
        EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
        EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    }
}

TEST_F(GestureLifetime, ADelegateMayStopTheOneWhoseRequirementsItIsAskedFor) {
    auto slide = attach<Slide>(view, "slide");
    auto other = attach<Slide>(view, "other");
    other->threshold = 1000;
    auto says = judge(slide);
    for (const bool answer : {false, true}) {
        says->requiresFailure = answer;
        says->actOnRequirement = [&] { slide->setEnabled(false); };
        slideOver();
        EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
        EXPECT_EQ(says->timesAskedToBegin, 0);
        slide->setEnabled(true);
    }
}

TEST_F(GestureLifetime, ADelegateMayRemoveARecognizerThatItHidesNoTouchFrom) {
    auto slide = attach<Slide>(view, "slide");
    judge(slide)->actOnTouch = [&] { view->removeGestureRecognizer(slide); };
    slideOver();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
    EXPECT_TRUE(slide->seen.empty());
}

TEST_F(GestureLifetime, ADelegateMayKeepThoseAskedAfterItFromTheTouch) {
    auto slide = attach<Slide>(view, "slide");
    auto other = addView("other", CGRectMake(0, 0, 50, 50));
    Ref<Slide> next;
    const std::function<void()> ways[] = {
        [&] { next->setEnabled(false); },
        [&] { view->removeGestureRecognizer(next); },
        [&] { other->addGestureRecognizer(next); },
    };
    for (const auto& way : ways) {
        next = attach<Slide>(view, "next");
        auto says = judge(next);
        judge(slide)->actOnTouch = way;
        slideOver();
        EXPECT_EQ(says->touchedViews.size(), 0u);
        EXPECT_TRUE(next->seen.empty());
        EXPECT_EQ(log.back(), "slide ended");
    }
}

TEST_F(GestureLifetime, ATouchThatADelegatePutsAnEndToIsSeenByNobody) {
    auto slide = attach<Slide>(view, "slide"), outer = attach<Slide>(window, "outer");
    auto outerSays = judge(outer);
    const std::function<void()> ways[] = {
        [&] { host.touchCancel(); },
        [&] { view->removeFromSuperview(); },
    };
    for (const auto& way : ways) {
        judge(slide)->actOnTouch = way;
        slideOver();
        EXPECT_EQ(news(), Log());
        EXPECT_TRUE(slide->seen.empty());
        EXPECT_TRUE(outer->seen.empty());
        EXPECT_TRUE(outerSays->touchedViews.empty());
    }
}

TEST_F(GestureLifetime, ADelegateMayStopEitherOfTwoWhileItIsAskedAboutBoth) {
    for (const bool stopsFirst : {true, false}) {
        auto first = attach<Slide>(view, "first"), second = attach<Slide>(view, "second");
        auto says = judge(first);
        says->actOnBoth = [&] { (stopsFirst ? first : second)->setEnabled(false); };
        slideOver();
        EXPECT_EQ(news(), stopsFirst ? (Log{"view began", "view cancelled", "second began", "second ended"})
                                     : (Log{"view began", "view cancelled", "first began", "first ended"}));
        view->removeGestureRecognizer(first);
        view->removeGestureRecognizer(second);
        reporters.clear();
    }
}

TEST_F(GestureLifetime, ADelegateThatIsGoneIsNotAsked) {
    auto slide = attach<Slide>(view, "slide");
    judge(slide)->begins = false;
    judges.clear();
    EXPECT_EQ(slide->delegate(), nullptr);
    slideOver();
    EXPECT_EQ(log.back(), "slide ended");
}

TEST_F(GestureLifetime, ADelegateMayGoWhileItIsAsked) {
    auto slide = attach<Slide>(view, "slide");
    judge(slide)->act = [&] { judges.clear(); };
    slideOver();
    EXPECT_EQ(log.back(), "slide ended");
}

TEST_F(GestureLifetime, AViewMayDoAwayWithTheRecognizersOfItsTouch) {
    auto slide = attach<Slide>(view, "slide");
    view->act = [&](const std::string&) {
        view->removeGestureRecognizer(slide);
        slide = nullptr;
    };
    slideOver();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
}

TEST_F(GestureLifetime, AViewThatGoesAsItsTouchEndsIsToldNoMore) {
    attach<Slide>(window, "outer");
    view->act = [&](const std::string& what) {
        if (what == "ended")
            view->removeFromSuperview();
    };
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"view began", "view ended"}));
}

TEST_F(GestureLifetime, AViewThatGoesAsItIsToldOfAHeldBackBeginningCancelsTheTouchForGood) {
    auto slide = attach<Slide>(view, "slide");
    slide->setDelaysTouchesBegan(true);
    host.touchDown({150, 150});
    const Ref<UITouch> touch = slide->touchesSeen()[0];
    host.touchMove({155, 150});
    view->act = [&](const std::string& what) {
        if (what == "began")
            view->removeFromSuperview();
    };
    slide->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled"}));
    EXPECT_EQ(touch->phase(), UITouchPhaseCancelled);
}

TEST_F(GestureLifetime, AViewMayEndARecognizerThatHasNoFingerLeft) {
    auto slide = attach<Slide>(view, "slide");
    slide->setDelaysTouchesEnded(false);
    view->act = [&](const std::string& what) {
        if (what == "ended")
            slide->setState(UIGestureRecognizerStateEnded);
    };
    slide->fingers = 1; // so that it does not fail with its finger
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"view began", "view ended", "slide ended"}));
    EXPECT_EQ(slide->resets, 1);
}

TEST_F(GestureLifetime, ATouchMethodMayRemoveTheView) {
    auto slide = attach<Slide>(view, "slide");
    attach<Slide>(window, "outer");
    slide->threshold = 1000;
    slide->onTouch = [&](const std::string& what) {
        if (what == "moved")
            view->removeFromSuperview();
    };
    slideOver();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "outer began", "outer ended"}));
}

TEST(GestureHosts, TheHostsEndInTheMiddleOfAGestureLeavesItsRecognizerAsNew) {
    auto slide = make<Slide>();
    Ref<UIWindow> window;
    {
        HeadlessHost host;
        window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        window->addGestureRecognizer(slide);
        window->makeKeyAndVisible();
        host.touchDown({150, 150});
        host.touchMove({170, 150});
        EXPECT_EQ(slide->state(), UIGestureRecognizerStateBegan);
    }
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(slide->numberOfTouches(), 0u);
    EXPECT_EQ(slide->resets, 1);
    slide->setState(UIGestureRecognizerStateEnded); // nobody is there to hear it
    window->removeGestureRecognizer(slide);
}

} // namespace zr::tests
