#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

namespace zr::tests {

namespace {

/// Three recognisers of one view, all allowed at the same time, so that only their requirements are between them.
class Requirements : public Gestures {
protected:
    Requirements() {
        for (Slide* slide : {a.get(), b.get(), c.get()})
            judge(slide)->allowsBoth = true;
    }
    void slideTo(CGFloat x) { host.touchMove({x, 150}); }

    Ref<Slide> a = attach<Slide>(view, "a"), b = attach<Slide>(view, "b"), c = attach<Slide>(view, "c");
};

} // namespace

TEST_F(Requirements, AWaitingOneStaysPossibleAndBeginsWhenTheOtherFails) {
    a->requireGestureRecognizerToFail(b);
    b->threshold = 1000;
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(a->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(judges[0]->timesAskedToBegin, 0);
    slideTo(140);
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view moved"}));
    b->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(judges[0]->timesAskedToBegin, 1);
    EXPECT_EQ(news(), (Log{"view cancelled", "a began"}));
    slideTo(150);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"a changed", "a ended"}));
}

TEST_F(Requirements, AWaitingOneFailsWhenTheOtherIsRecognized) {
    a->requireGestureRecognizerToFail(b);
    b->threshold = 30;
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(a->state(), UIGestureRecognizerStatePossible);
    slideTo(145);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view cancelled", "b began"}));
}

TEST_F(Requirements, AWaitingOneThatSaysItFailsFails) {
    a->requireGestureRecognizerToFail(b);
    b->threshold = 1000;
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    a->setState(UIGestureRecognizerStateFailed);
    b->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
}

TEST_F(Requirements, AWaitingOneThatSaysItIsCancelledFails) {
    a->requireGestureRecognizerToFail(b);
    b->threshold = 1000;
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    a->setState(UIGestureRecognizerStateCancelled);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    b->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
}

TEST_F(Requirements, OneThatBeganAndEndedWhileItWaitedIsToldOfBoth) {
    a->requireGestureRecognizerToFail(b);
    a->isWaiting = true;
    b->threshold = 1000;
    b->isWaiting = true;
    b->fingers = 100; // so that it does not fail with its finger
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
    host.touchDown({150, 150});
    EXPECT_EQ(a->seen, (Log{"began", "moved", "ended"}));
    host.touchUp();
    b->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "a began", "a ended", "view ended"}));
    EXPECT_EQ(a->resets, 1);
}

TEST_F(Requirements, AnAncestorsOneSeesTheEventInWhichItIsAllowedToBegin) {
    auto outer = attach<Slide>(window, "outer");
    outer->requireGestureRecognizerToFail(a);
    b->setEnabled(false);
    c->setEnabled(false);
    a->threshold = 1000;
    a->onTouch = [this](const std::string& what) {
        if (what == "moved")
            a->setState(UIGestureRecognizerStateFailed);
    };
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "outer began"}));
}

TEST_F(Requirements, AChainIsSettledFromItsEnd) {
    a->requireGestureRecognizerToFail(b);
    b->requireGestureRecognizerToFail(c);
    c->threshold = 1000;
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
    c->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(b->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(news(), (Log{"view cancelled", "b began"}));
}

TEST_F(Requirements, AChainWhoseEndIsRecognizedLetsTheFirstGo) {
    a->requireGestureRecognizerToFail(b);
    b->requireGestureRecognizerToFail(c);
    c->threshold = 30;
    host.touchDown({110, 150});
    slideTo(130);
    slideTo(145);
    EXPECT_EQ(b->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(log, (Log{"view began", "view moved", "view cancelled", "a began", "c began"}));
}

TEST_F(Requirements, ADiscreteOneInTheMiddleOfAChainFailsTheFirstForGood) {
    a->requireGestureRecognizerToFail(b);
    b->requireGestureRecognizerToFail(c);
    a->isWaiting = b->isWaiting = c->isWaiting = true;
    a->isDiscrete = b->isDiscrete = true;
    c->threshold = 1000;
    c->fingers = 100;
    host.touchDown({110, 150});
    slideTo(130);
    host.touchUp();
    news();
    c->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view cancelled", "b ended"}));
    EXPECT_EQ(a->resets, 1);
    EXPECT_EQ(b->resets, 1);
}

TEST_F(Requirements, OneMayWaitForSeveral) {
    a->requireGestureRecognizerToFail(b);
    a->requireGestureRecognizerToFail(c);
    b->threshold = c->threshold = 1000;
    host.touchDown({110, 150});
    slideTo(130);
    b->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStatePossible);
    c->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
}

TEST_F(Requirements, ThoseThatWaitForEachOtherDoNotWaitForEver) {
    a->requireGestureRecognizerToFail(b);
    b->requireGestureRecognizerToFail(c);
    c->requireGestureRecognizerToFail(a);
    a->requireGestureRecognizerToFail(a);
    a->requireGestureRecognizerToFail(nullptr);
    host.touchDown({110, 150});
    slideTo(130);
    host.touchUp();
    EXPECT_EQ(log.back(), "c ended");
    for (const Slide* slide : {a.get(), b.get(), c.get()})
        EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Requirements, OneOutsideOfARingWaitsForThoseInItThatWaitForEachOther) {
    // In the order in which they see the touch: b and c wait for each other, c for d as well, and a for b.
    auto d = attach<Slide>(view, "d");
    judge(d)->allowsBoth = true;
    view->removeGestureRecognizer(a);
    view->addGestureRecognizer(a);
    b->requireGestureRecognizerToFail(c);
    c->requireGestureRecognizerToFail(b);
    c->requireGestureRecognizerToFail(d);
    a->requireGestureRecognizerToFail(b);
    d->threshold = 1000;
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(b->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(c->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "b began"}));
}

TEST_F(Requirements, ARequirementThatFollowsAnotherFingerElsewhereHoldsBackToo) {
    auto elsewhere = addView("elsewhere", CGRectMake(0, 0, 50, 50));
    auto busy = attach<Slide>(elsewhere, "busy");
    a->requireGestureRecognizerToFail(busy);
    b->setEnabled(false);
    c->setEnabled(false);
    host.touchDown({10, 10}, 2);
    host.touchDown({110, 150}, 1);
    host.touchMove({130, 150}, 1);
    EXPECT_EQ(a->state(), UIGestureRecognizerStatePossible);
    host.touchUp(2);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
}

TEST_F(Requirements, NobodyIsAskedAboutOneThatFollowsAnotherFinger) {
    auto elsewhere = addView("elsewhere", CGRectMake(0, 0, 50, 50));
    auto busy = attach<Slide>(elsewhere, "busy");
    int questions = 0;
    judges[0]->actOnRequirement = [&] { ++questions; };
    judges[0]->requiresFailure = true;
    judge(busy)->isRequiredToFail = true;
    busy->isRequiredToFail = a->requiresFailure = true;
    b->setEnabled(false);
    c->setEnabled(false);
    host.touchDown({10, 10}, 2);
    host.touchDown({110, 150}, 1);
    host.touchMove({130, 150}, 1);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(questions, 0);
}

TEST_F(Requirements, ARequirementThatSeesNothingHoldsNothingBack) {
    auto elsewhere = addView("elsewhere", CGRectMake(0, 0, 50, 50));
    auto idle = attach<Slide>(elsewhere, "idle");
    a->requireGestureRecognizerToFail(idle);
    b->setEnabled(false);
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
}

TEST_F(Requirements, ARequirementThatIgnoresItsTouchHoldsNothingBack) {
    a->requireGestureRecognizerToFail(b);
    b->onTouch = [this](const std::string&) { b->ignoreTouch_forEvent(b->touchesSeen()[0], nullptr); };
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
}

TEST_F(Requirements, ARequirementThatGoesHoldsNothingBack) {
    a->requireGestureRecognizerToFail(b);
    b->threshold = 1000;
    c->setEnabled(false);
    host.touchDown({110, 150});
    slideTo(130);
    const Weak<Slide> weak = b;
    view->removeGestureRecognizer(b);
    b = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
    host.touchUp();
    host.touchDown({110, 150});
    slideTo(130);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateBegan);
}

TEST_F(Requirements, ARefusalAfterTheWaitIsAFailure) {
    a->requireGestureRecognizerToFail(b);
    b->threshold = 1000;
    c->setEnabled(false);
    judges[0]->begins = false;
    host.touchDown({110, 150});
    slideTo(130);
    b->setState(UIGestureRecognizerStateFailed);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
}

TEST_F(Requirements, OneThatIsPreventedWhileItWaitsHasFailed) {
    a->requireGestureRecognizerToFail(b);
    judges[0]->allowsBoth = judges[1]->allowsBoth = judges[2]->allowsBoth = false;
    b->threshold = 1000;
    c->threshold = 30;
    host.touchDown({110, 150});
    slideTo(130);
    slideTo(145);
    EXPECT_EQ(a->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(log.back(), "c began");
}

} // namespace zr::tests
