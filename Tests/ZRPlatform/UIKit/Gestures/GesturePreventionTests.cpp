#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

#include <ostream>

namespace zr::tests {

namespace {

/// Two recognisers of the same slide: which are told of it, and how they are kept from it.
struct Competitors {
    Slide *first, *second;
    Judge *firstJudge, *secondJudge;
};

enum class Winner { Nobody, First, Second, Both };

struct Answers {
    const char* name;
    void (*give)(const Competitors&);
    Winner winner;
};

/// The first is the one that sees touches first. What it does is its answers' effect alone.
constexpr Answers kAnswers[] = {
    {"none", [](const Competitors&) {}, Winner::First},
    {"first's delegate allows both", [](const Competitors& c) { c.firstJudge->allowsBoth = true; }, Winner::Both},
    {"second's delegate allows both", [](const Competitors& c) { c.secondJudge->allowsBoth = true; }, Winner::Both},
    {"first may not begin", [](const Competitors& c) { c.firstJudge->begins = false; }, Winner::Second},
    {"second may not begin", [](const Competitors& c) { c.secondJudge->begins = false; }, Winner::First},
    {"neither may begin", [](const Competitors& c) { c.firstJudge->begins = c.secondJudge->begins = false; },
     Winner::Nobody},
    {"first does not receive", [](const Competitors& c) { c.firstJudge->receives = false; }, Winner::Second},
    {"second does not receive", [](const Competitors& c) { c.secondJudge->receives = false; }, Winner::First},
    {"first's delegate requires the failure", [](const Competitors& c) { c.firstJudge->requiresFailure = true; },
     Winner::Second},
    {"second's delegate requires the failure", [](const Competitors& c) { c.secondJudge->requiresFailure = true; },
     Winner::First},
    {"first's delegate says it is required to fail",
     [](const Competitors& c) { c.firstJudge->isRequiredToFail = true; }, Winner::First},
    {"second's delegate says it is required to fail",
     [](const Competitors& c) { c.secondJudge->isRequiredToFail = true; }, Winner::Second},
    {"first requires the failure", [](const Competitors& c) { c.first->requiresFailure = true; }, Winner::Second},
    {"second says it is required to fail", [](const Competitors& c) { c.second->isRequiredToFail = true; },
     Winner::Second},
    {"first was asked to wait", [](const Competitors& c) { c.first->requireGestureRecognizerToFail(c.second); },
     Winner::Second},
    {"second was asked to wait", [](const Competitors& c) { c.second->requireGestureRecognizerToFail(c.first); },
     Winner::First},
    {"neither prevents", [](const Competitors& c) { c.first->canPrevent = c.second->canPrevent = false; },
     Winner::Both},
    {"neither can be prevented",
     [](const Competitors& c) { c.first->canBePrevented = c.second->canBePrevented = false; }, Winner::Both},
    {"second prevents nobody", [](const Competitors& c) { c.second->canPrevent = false; }, Winner::First},
    {"first cannot be prevented", [](const Competitors& c) { c.first->canBePrevented = false; }, Winner::First},
    {"first is disabled", [](const Competitors& c) { c.first->setEnabled(false); }, Winner::Second},
    {"a failure required and both allowed",
     [](const Competitors& c) {
         c.first->requireGestureRecognizerToFail(c.second);
         c.firstJudge->allowsBoth = true;
     },
     Winner::Second},
    {"a requirement whose object may not begin",
     [](const Competitors& c) {
         c.first->requireGestureRecognizerToFail(c.second);
         c.secondJudge->begins = false;
     },
     Winner::First},
    {"a requirement whose object receives nothing",
     [](const Competitors& c) {
         c.first->requireGestureRecognizerToFail(c.second);
         c.secondJudge->receives = false;
     },
     Winner::First},
};

struct Pair {
    const char* name;
    bool isFirstDiscrete, isSecondDiscrete, isOnAncestor;
};

constexpr Pair kPairs[] = {
    {"DiscreteAgainstDiscreteOnOneView", true, true, false},
    {"DiscreteAgainstContinuousOnOneView", true, false, false},
    {"ContinuousAgainstDiscreteOnOneView", false, true, false},
    {"ContinuousAgainstContinuousOnOneView", false, false, false},
    {"DiscreteAgainstDiscreteOfAnAncestor", true, true, true},
    {"DiscreteAgainstContinuousOfAnAncestor", true, false, true},
    {"ContinuousAgainstDiscreteOfAnAncestor", false, true, true},
    {"ContinuousAgainstContinuousOfAnAncestor", false, false, true},
};

std::ostream& operator<<(std::ostream& stream, const Pair& pair) { return stream << pair.name; }

class TwoRecognizers : public Gestures, public testing::WithParamInterface<Pair> {
protected:
    Competitors compete() {
        UIView* ancestor = GetParam().isOnAncestor ? static_cast<UIView*>(window) : view;
        Slide* first = attach<Slide>(view, "first");
        Slide* second = attach<Slide>(ancestor, "second");
        first->isDiscrete = GetParam().isFirstDiscrete;
        second->isDiscrete = GetParam().isSecondDiscrete;
        return {first, second, judge(first), judge(second)};
    }
    /// What the targets of one are told of a slide in three moves.
    Log storyOf(const std::string& name, bool isDiscrete) const {
        return isDiscrete ? Log{name + " ended"} : Log{name + " began", name + " changed", name + " ended"};
    }
    Log toldBy(const std::string& name) const {
        Log told;
        for (const auto& line : log) {
            if (line.starts_with(name))
                told.push_back(line);
        }
        return told;
    }
};

} // namespace

TEST_P(TwoRecognizers, TheAnswersDecideWhoIsRecognized) {
    for (const Answers& answers : kAnswers) {
        SCOPED_TRACE(answers.name);
        const Competitors competitors = compete();
        answers.give(competitors);
        host.touchDown({150, 150});
        host.touchMove({165, 150});
        host.touchMove({180, 150});
        host.touchUp();
        const bool firstWins = answers.winner == Winner::First || answers.winner == Winner::Both;
        const bool secondWins = answers.winner == Winner::Second || answers.winner == Winner::Both;
        EXPECT_EQ(toldBy("first"), firstWins ? storyOf("first", GetParam().isFirstDiscrete) : Log());
        EXPECT_EQ(toldBy("second"), secondWins ? storyOf("second", GetParam().isSecondDiscrete) : Log());
        EXPECT_EQ(log.back() == "view ended", answers.winner == Winner::Nobody);
        EXPECT_EQ(competitors.first->state(), UIGestureRecognizerStatePossible);
        EXPECT_EQ(competitors.second->state(), UIGestureRecognizerStatePossible);
        competitors.first->view()->removeGestureRecognizer(competitors.first);
        competitors.second->view()->removeGestureRecognizer(competitors.second);
        log.clear();
        reporters.clear();
    }
}

TEST_P(TwoRecognizers, TheOneThatIsPreventedFailsAtOnceAndIsNeverAsked) {
    const Competitors competitors = compete();
    host.touchDown({150, 150});
    host.touchMove({165, 150});
    EXPECT_EQ(competitors.second->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(competitors.second->seen, (Log{"began"}));
    host.touchUp();
    EXPECT_EQ(competitors.firstJudge->timesAskedToBegin, 1);
    EXPECT_EQ(competitors.secondJudge->timesAskedToBegin, 0);
}

INSTANTIATE_TEST_SUITE_P(Gestures, TwoRecognizers, testing::ValuesIn(kPairs),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

namespace {

class Prevention : public Gestures {};

} // namespace

TEST_F(Prevention, OneThatIsSlowerLosesEvenIfItSeesTouchesFirst) {
    auto deep = attach<Slide>(view, "deep");
    attach<Slide>(window, "outer");
    deep->threshold = 20;
    host.touchDown({150, 150});
    host.touchMove({165, 150});
    host.touchMove({180, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "outer began", "outer changed", "outer ended"}));
}

TEST_F(Prevention, OneUnderWayKeepsALaterFingersRecognizerFromBeginning) {
    auto child = addView("child", CGRectMake(100, 0, 100, 100), view);
    attach<Slide>(view, "outer");
    auto late = attach<Slide>(child, "late");
    auto lateJudge = judge(late);
    host.touchDown({110, 250}, 1);
    host.touchMove({130, 250}, 1);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "outer began"}));
    host.touchDown({210, 110}, 2);
    host.touchMove({230, 110}, 2);
    EXPECT_EQ(late->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(lateJudge->timesAskedToBegin, 0);
    // The finger that the one under way follows too is none of its view's any more.
    EXPECT_EQ(news(), (Log{"outer changed"}));
}

TEST_F(Prevention, FingersOnDifferentViewsAreIndependent) {
    auto other = addView("other", CGRectMake(0, 0, 50, 50));
    attach<Slide>(view, "one");
    auto two = attach<Slide>(other, "two");
    host.touchDown({150, 150}, 1);
    host.touchMove({170, 150}, 1);
    news();
    for (int time = 0; time < 2; ++time) {
        host.touchDown({10, 10}, 2);
        host.touchMove({30, 10}, 2);
        host.touchUp(2);
        EXPECT_EQ(news(), (Log{"other began", "other cancelled", "two began", "two ended"}));
    }
    host.touchUp(1);
    EXPECT_EQ(news(), (Log{"one ended"}));
}

TEST_F(Prevention, OneThatCannotKeepAnotherFromBeginningIsCancelledByIt) {
    auto slow = attach<Slide>(view, "slow");
    auto quick = attach<Slide>(window, "quick");
    slow->threshold = 30;
    quick->canPrevent = false;
    host.touchDown({150, 150});
    host.touchMove({165, 150});
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "quick began"}));
    host.touchMove({185, 150});
    EXPECT_EQ(quick->state(), UIGestureRecognizerStateCancelled);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"slow began", "quick cancelled", "slow ended"}));
}

TEST_F(Prevention, OneThatIsCancelledBeforeItWasToldOfIsNeverToldOf) {
    auto meek = attach<Slide>(view, "meek");
    attach<Slide>(window, "bold");
    meek->canPrevent = false;
    host.touchDown({150, 150});
    host.touchMove({165, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "bold began", "bold ended"}));
}

TEST_F(Prevention, ThreeMayWorkTogetherIfEachPairIsAllowed) {
    auto a = attach<Slide>(view, "a"), b = attach<Slide>(view, "b"), c = attach<Slide>(window, "c");
    judge(b)->allowsBoth = true;
    host.touchDown({150, 150});
    host.touchMove({165, 150});
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "a began", "b began"}));
    host.touchUp();
    judge(c)->allowsBoth = true;
    news();
    host.touchDown({150, 150});
    host.touchMove({165, 150});
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "a began", "b began", "c began"}));
}

TEST_F(Prevention, OneThatWasAllowedBesideARecognizedOneIsExcludedByALaterNo) {
    auto quick = attach<Slide>(view, "quick"), slow = attach<Slide>(view, "slow");
    slow->threshold = 30;
    auto says = judge(slow);
    for (const bool isDiscrete : {true, false}) {
        quick->isDiscrete = isDiscrete;
        says->allowsBoth = true;
        host.touchDown({110, 150});
        host.touchMove({130, 150});
        EXPECT_EQ(slow->state(), UIGestureRecognizerStatePossible);
        says->allowsBoth = false;
        host.touchMove({150, 150});
        EXPECT_EQ(slow->state(), UIGestureRecognizerStateFailed);
        host.touchUp();
    }
    EXPECT_EQ(says->timesAskedToBegin, 0);
}

// Who is asked

TEST_F(Prevention, TheViewsAreAskedFromTheOneHitUpwardsAndThenTheDelegate) {
    auto child = addView("child", CGRectMake(0, 0, 100, 100), view);
    auto grandchild = addView("grandchild", CGRectMake(0, 0, 100, 100), child);
    auto slide = attach<Slide>(view, "slide");
    Log asked;
    for (LoggingView* each : {view.get(), child.get(), grandchild.get()})
        each->actOnQuestion = [&asked, each] { asked.push_back(each->name); };
    judge(slide)->act = [&] { asked.push_back("delegate"); };
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(asked, (Log{"grandchild", "child", "view", "delegate"}));
}

TEST_F(Prevention, TheViewsOnTheWayAreAskedToo) {
    auto outer = addView("outer", CGRectMake(0, 0, 375, 667));
    outer->addSubview(view);
    auto child = addView("child", CGRectMake(0, 0, 100, 100), view);
    auto slide = attach<Slide>(view, "slide");
    auto says = judge(slide);
    for (LoggingView* refusing : {view.get(), child.get()}) {
        refusing->allowsGestures = false;
        host.touchDown({150, 150});
        host.touchMove({170, 150});
        EXPECT_EQ(slide->state(), UIGestureRecognizerStateFailed);
        host.touchUp();
        refusing->allowsGestures = true;
    }
    EXPECT_EQ(says->timesAskedToBegin, 0);
    outer->allowsGestures = false;
    view->timesAsked = child->timesAsked = 0;
    news();
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchMove({180, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"child began", "child cancelled", "slide began", "slide changed", "slide ended"}));
    EXPECT_EQ(view->timesAsked, 1);
    EXPECT_EQ(child->timesAsked, 1);
    EXPECT_EQ(outer->timesAsked, 0);
    EXPECT_EQ(says->timesAskedToBegin, 1);
}

TEST_F(Prevention, AViewThatIsTheDelegateIsAskedOnce) {
    class SelfJudged : public LoggingView, public UIGestureRecognizerDelegate {
    public:
        bool gestureRecognizerShouldBegin(UIGestureRecognizer*) override {
            ++timesAsked;
            return allowsGestures;
        }
    };
    auto self = make<SelfJudged>(&SelfJudged::initWithFrame, CGRectMake(0, 0, 100, 100));
    self->log = &log;
    self->name = "self";
    window->addSubview(self);
    auto slide = attach<Slide>(self, "slide");
    slide->setDelegate(self);
    host.touchDown({10, 10});
    host.touchMove({30, 10});
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(self->timesAsked, 1);
    host.touchUp();
    self->allowsGestures = false;
    host.touchDown({10, 10});
    host.touchMove({30, 10});
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateFailed);
}

TEST_F(Prevention, TheDelegateIsAskedAboutEachFinger) {
    auto child = addView("child", CGRectMake(0, 0, 100, 100), view);
    auto slide = attach<Slide>(view, "slide");
    auto says = judge(slide);
    host.touchDown({150, 150}, 1);
    says->receives = false;
    host.touchDown({250, 250}, 2);
    EXPECT_EQ(says->touchedViews, (std::vector<UIView*>{child, view}));
    EXPECT_EQ(slide->seen, (Log{"began"}));
    EXPECT_EQ(slide->numberOfTouches(), 1u);
}

TEST_F(Prevention, TheDelegateIsNotAskedAboutAFingerThatTheDecidedRecognizerWouldNotSee) {
    auto slide = attach<Slide>(view, "slide"), other = attach<Slide>(view, "other");
    auto says = judge(slide);
    judge(other)->allowsBoth = true;
    other->threshold = 1000;
    slide->isWaiting = true;
    const std::function<void()> ways[] = {
        [&] { slide->setState(UIGestureRecognizerStateFailed); },
        [&] { slide->setState(UIGestureRecognizerStateEnded); },
        [&] {
            slide->setState(UIGestureRecognizerStateBegan);
            slide->setState(UIGestureRecognizerStateCancelled);
        },
        [&] { // it would be recognised, but waits
            slide->requireGestureRecognizerToFail(other);
            slide->setState(UIGestureRecognizerStateEnded);
            EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
        },
    };
    for (const auto& decide : ways) {
        host.touchDown({150, 150}, 1);
        EXPECT_EQ(says->touchedViews.size(), 1u);
        decide();
        host.touchDown({250, 250}, 2);
        EXPECT_EQ(says->touchedViews.size(), 1u);
        EXPECT_EQ(slide->seen, (Log{"began"}));
        host.touchUp(2);
        host.touchUp(1);
        says->touchedViews.clear();
        slide->seen.clear();
    }
}

} // namespace zr::tests
