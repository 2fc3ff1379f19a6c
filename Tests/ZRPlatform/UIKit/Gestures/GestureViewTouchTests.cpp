#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

namespace zr::tests {

namespace {

/// What the view is told of a touch that a recogniser follows.
class GestureViewTouches : public Gestures {
protected:
    Ref<Slide> slide = attach<Slide>(view, "slide");

    void failOnNextTouch(Slide* failing) {
        failing->onTouch = [failing](const std::string&) { failing->setState(UIGestureRecognizerStateFailed); };
    }
};

} // namespace

TEST_F(GestureViewTouches, TheRecognizerSeesATouchBeforeTheView) {
    slide->onTouch = [this](const std::string& what) { log.push_back("slide sees " + what); };
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"slide sees began", "view began", "slide sees ended", "view ended"}));
}

TEST_F(GestureViewTouches, ATouchThatNoRecognizerFollowsGoesStraightToTheView) {
    judge(slide)->receives = false;
    view->act = [this](const std::string& what) {
        if (what == "began")
            slide->setState(UIGestureRecognizerStateEnded);
        log.push_back("view has done");
    };
    host.tap({150, 150});
    // Nothing is put off until the end of a turn.
    EXPECT_EQ(news(), (Log{"view began", "slide ended", "view has done", "view ended", "view has done"}));
}

TEST_F(GestureViewTouches, TouchesAreCancelledOnceBeforeTheTargetsAreTold) {
    host.touchDown({150, 150});
    host.touchMove({155, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view cancelled", "slide began"}));
    EXPECT_EQ(view->phases.back(), UITouchPhaseCancelled);
    EXPECT_EQ(view->touchesOfEvent, 1u);
    EXPECT_EQ(slide->touchesSeen()[0]->view(), view.get());
    EXPECT_EQ(slide->touchesSeen()[0]->phase(), UITouchPhaseStationary);
    host.touchCancel();
    EXPECT_EQ(news(), (Log{"slide cancelled"}));
}

TEST_F(GestureViewTouches, TouchesGoOnWhenTheRecognizerLeavesThemAlone) {
    slide->setCancelsTouchesInView(false);
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchMove({180, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "slide began", "view moved", "slide changed", "view moved", "slide ended",
                           "view ended"}));
}

TEST_F(GestureViewTouches, TheTouchesOfAllItsFingersAreCancelled) {
    view->setMultipleTouchEnabled(true);
    host.touchDown({150, 150}, 1);
    host.touchDown({250, 150}, 2);
    host.touchMove({170, 150}, 1);
    EXPECT_EQ(news(), (Log{"view began", "view began", "view cancelled", "view cancelled", "slide began"}));
}

TEST_F(GestureViewTouches, AFingerThatComesLaterNeverReachesTheView) {
    view->setMultipleTouchEnabled(true);
    host.touchDown({150, 150}, 1);
    host.touchMove({170, 150}, 1);
    news();
    host.touchDown({250, 150}, 2);
    host.touchMove({260, 150}, 2);
    host.touchUp(2);
    EXPECT_EQ(news(), (Log{"slide changed"}));
}

TEST_F(GestureViewTouches, AViewWhoseFingerWasTakenIsFreeForAnother) {
    auto child = addView("child", CGRectMake(0, 0, 200, 200), view);
    slide->onTouch = [this](const std::string& what) {
        if (what == "began" && slide->numberOfTouches() == 2)
            slide->ignoreTouch_forEvent(slide->touchesSeen()[1], nullptr);
    };
    host.touchDown({150, 150}, 1);
    host.touchMove({170, 150}, 1);
    news();
    host.touchDown({250, 150}, 2);
    host.touchUp(2);
    EXPECT_EQ(news(), (Log{"child began", "child ended"}));
}

// Beginnings held back

TEST_F(GestureViewTouches, ABeginningIsHeldBackUntilTheRecognizerFails) {
    slide->setDelaysTouchesBegan(true);
    slide->threshold = 1000;
    host.touchDown({150, 150});
    host.touchMove({153, 150});
    host.touchMove({156, 150});
    EXPECT_EQ(news(), Log());
    host.advance(0.25);
    slide->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
    using Places = std::pair<CGPoint, CGPoint>;
    EXPECT_EQ(view->places, (std::vector<Places>{{{150, 150}, {150, 150}}, {{156, 150}, {150, 150}}}));
    EXPECT_EQ(view->phases, (std::vector{UITouchPhaseBegan, UITouchPhaseMoved}));
    host.touchMove({160, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view moved", "view ended"}));
    EXPECT_EQ(view->places[2], (Places{{160, 150}, {156, 150}}));
}

TEST_F(GestureViewTouches, AHeldBackTouchThatEndedIsToldFromBeginningToEnd) {
    slide->setDelaysTouchesBegan(true);
    slide->threshold = 1000;
    host.touchDown({150, 150});
    host.touchMove({155, 150});
    EXPECT_EQ(news(), Log());
    host.touchUp(); // with which the slide fails
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
}

TEST_F(GestureViewTouches, AHeldBackTouchThatIsTakenIsNeverToldOf) {
    slide->setDelaysTouchesBegan(true);
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"slide began", "slide ended"}));
}

TEST_F(GestureViewTouches, AHeldBackTouchThatIsCancelledIsNeverToldOf) {
    slide->setDelaysTouchesBegan(true);
    host.touchDown({150, 150});
    host.touchCancel();
    EXPECT_EQ(news(), Log());
}

TEST_F(GestureViewTouches, AHeldBackTouchThatIsLeftAloneIsToldWhenTheGestureBegins) {
    slide->setDelaysTouchesBegan(true);
    slide->setCancelsTouchesInView(false);
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(news(), (Log{"slide began", "view began", "view moved"}));
}

TEST_F(GestureViewTouches, TwoThatHoldABeginningBackMustBothFail) {
    auto outer = attach<Slide>(window, "outer");
    slide->setDelaysTouchesBegan(true);
    outer->setDelaysTouchesBegan(true);
    host.touchDown({150, 150});
    slide->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), Log());
    outer->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began"}));
}

TEST_F(GestureViewTouches, OneThatWaitsStillHoldsTheBeginningBack) {
    auto other = attach<Slide>(view, "other");
    other->threshold = 1000;
    slide->setDelaysTouchesBegan(true);
    slide->requireGestureRecognizerToFail(other);
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(news(), Log());
    other->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"slide began"}));
}

// Ends held back

TEST_F(GestureViewTouches, AnEndIsHeldBackUntilTheRecognizerFails) {
    slide->fingers = 1; // so that it does not fail with its finger
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"view began"}));
    slide->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view ended"}));
    EXPECT_EQ(view->phases.back(), UITouchPhaseEnded);
}

TEST_F(GestureViewTouches, AnEndHeldBackIsACancellationWhenTheGestureIsRecognized) {
    slide->fingers = 1;
    host.tap({150, 150});
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide ended"}));
    EXPECT_EQ(view->phases.back(), UITouchPhaseCancelled);
}

TEST_F(GestureViewTouches, AnEndIsNotHeldBackUnlessAskedFor) {
    slide->fingers = 1;
    slide->setDelaysTouchesEnded(false);
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"view began", "view ended"}));
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"slide ended"}));
}

TEST_F(GestureViewTouches, AnEndHeldBackIsToldWhenTheRecognizerIsDisabled) {
    slide->fingers = 1;
    host.tap({150, 150});
    slide->setEnabled(false);
    EXPECT_EQ(news(), (Log{"view began", "view ended"}));
}

TEST_F(GestureViewTouches, AViewThatLeavesLosesAnEndHeldBack) {
    auto child = addView("child", CGRectMake(0, 0, 50, 50), view);
    slide->fingers = 1;
    host.tap({110, 110});
    EXPECT_EQ(news(), (Log{"child began"}));
    child->removeFromSuperview();
    EXPECT_EQ(news(), (Log{"child cancelled"}));
    slide->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), Log());
}

// Windows that look on

TEST_F(GestureViewTouches, AFingerThatNobodyFollowsAnyMoreGoesWithItsView) {
    class Watching : public UIWindow {
    public:
        void sendEvent(UIEvent* event) override {
            phases.push_back(event->allTouches()[0]->phase());
            UIWindow::sendEvent(event);
        }
        std::vector<UITouchPhase> phases;
    };
    auto watching = make<Watching>(&Watching::initWithFrame, CGRectMake(0, 0, 50, 50));
    auto logger = addView("logger", CGRectMake(0, 0, 50, 50), watching);
    auto own = attach<Slide>(watching, "own");
    own->onTouch = [&](const std::string&) { own->ignoreTouch_forEvent(own->touchesSeen()[0], nullptr); };
    watching->makeKeyAndVisible();
    host.touchDown({10, 10});
    logger->removeFromSuperview();
    host.touchMove({30, 10});
    host.touchUp();
    EXPECT_EQ(watching->phases, (std::vector{UITouchPhaseBegan, UITouchPhaseCancelled}));
    EXPECT_EQ(news(), (Log{"logger began", "logger cancelled"}));
}

TEST_F(GestureViewTouches, AWindowThatKeepsEventsToItselfKeepsThemFromRecognizersToo) {
    class Deaf : public UIWindow {
    public:
        void sendEvent(UIEvent* event) override {
            if (event->allTouches()[0]->phase() != deafTo)
                UIWindow::sendEvent(event);
        }
        UITouchPhase deafTo = UITouchPhaseBegan;
    };
    auto deaf = make<Deaf>(&Deaf::initWithFrame, CGRectMake(0, 0, 50, 50));
    auto logger = addView("logger", CGRectMake(0, 0, 50, 50), deaf);
    auto own = attach<Slide>(logger, "own");
    deaf->makeKeyAndVisible();
    host.tap({10, 10});
    EXPECT_TRUE(own->seen.empty());
    EXPECT_EQ(news(), (Log{"logger ended"}));
    deaf->deafTo = UITouchPhaseEnded;
    host.touchDown({10, 10});
    host.touchMove({30, 10});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"logger began", "logger cancelled", "own began", "own cancelled"}));
    EXPECT_EQ(own->state(), UIGestureRecognizerStatePossible);
}

} // namespace zr::tests
