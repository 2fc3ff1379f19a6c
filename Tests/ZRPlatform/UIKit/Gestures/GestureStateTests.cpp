#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

#include <ZRPlatform/Foundation/NSLog.h>

namespace zr::tests {

namespace {

class GestureStates : public Gestures {
protected:
    GestureStates() {
        setLogHandler([this](std::string_view line) { lines.emplace_back(line); });
    }
    ~GestureStates() override { setLogHandler(nullptr); }

    std::vector<std::string> lines;
    Ref<Slide> slide = attach<Slide>(view, "slide");
};

} // namespace

TEST_F(GestureStates, AContinuousOneBeginsChangesAndEnds) {
    host.touchDown({150, 150});
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    host.touchMove({155, 150});
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
    host.touchMove({160, 150});
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(news(), (Log{"view cancelled", "slide began"}));
    host.touchMove({170, 150});
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateChanged);
    host.touchMove({180, 150});
    EXPECT_EQ(news(), (Log{"slide changed", "slide changed"}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{"slide ended"}));
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(slide->resets, 1);
}

TEST_F(GestureStates, AfterTheEndItCanBeginAgain) {
    for (int time = 0; time < 2; ++time) {
        host.touchDown({150, 150});
        host.touchMove({170, 150});
        host.touchUp();
        EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide ended"}));
    }
    EXPECT_EQ(slide->resets, 2);
}

TEST_F(GestureStates, ADiscreteOneIsRecognizedOnceASequence) {
    slide->isDiscrete = true;
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide ended"}));
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateRecognized);
    host.touchMove({190, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(slide->seen, (Log{"began", "moved"}));
    EXPECT_EQ(slide->resets, 0);
    host.touchUp();
    EXPECT_EQ(news(), Log());
    EXPECT_EQ(slide->resets, 1);
}

TEST_F(GestureStates, AFailedOneIsSilentAndSeesNoMoreOfTheSequence) {
    slide->onTouch = [this](const std::string& what) {
        if (what == "moved")
            slide->setState(UIGestureRecognizerStateFailed);
    };
    host.touchDown({150, 150}, 1);
    host.touchMove({155, 150}, 1);
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateFailed);
    host.touchMove({200, 150}, 1);
    host.touchDown({250, 250}, 2);
    EXPECT_EQ(slide->seen, (Log{"began", "moved"}));
    host.touchUp(2);
    EXPECT_EQ(slide->resets, 0);
    host.touchUp(1);
    EXPECT_EQ(slide->resets, 1);
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view moved", "view ended"}));
}

TEST_F(GestureStates, IllegalTransitionsAreIgnoredAndLogged) {
    struct Row {
        UIGestureRecognizerState from, to;
        bool isLegal;
    };
    constexpr auto kPossible = UIGestureRecognizerStatePossible, kBegan = UIGestureRecognizerStateBegan,
                   kChanged = UIGestureRecognizerStateChanged, kEnded = UIGestureRecognizerStateEnded,
                   kCancelled = UIGestureRecognizerStateCancelled, kFailed = UIGestureRecognizerStateFailed;
    const Row rows[] = {
        {kPossible, kPossible, false}, {kPossible, kBegan, true},  {kPossible, kChanged, false},
        {kPossible, kEnded, true},     {kPossible, kFailed, true}, {kBegan, kPossible, false},
        {kBegan, kBegan, false},       {kBegan, kChanged, true},   {kBegan, kEnded, true},
        {kBegan, kCancelled, true},    {kBegan, kFailed, false},   {kChanged, kPossible, false},
        {kChanged, kBegan, false},     {kChanged, kChanged, true}, {kChanged, kEnded, true},
        {kChanged, kCancelled, true},  {kChanged, kFailed, false}, {kEnded, kPossible, false},
        {kEnded, kBegan, false},       {kEnded, kChanged, false},  {kEnded, kCancelled, false},
        {kEnded, kFailed, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(stateName(row.from) + " to " + stateName(row.to));
        // Nothing is recognised by itself: the finger rests while the states are set.
        host.touchDown({150, 150});
        if (row.from == kBegan || row.from == kChanged)
            slide->setState(kBegan);
        if (row.from == kChanged || row.from == kEnded)
            slide->setState(row.from);
        ASSERT_EQ(slide->state(), row.from);
        lines.clear();
        slide->setState(row.to);
        EXPECT_EQ(slide->state(), row.isLegal ? row.to : row.from);
        EXPECT_EQ(lines.size(), row.isLegal ? 0u : 1u);
        slide->setEnabled(false);
        slide->setEnabled(true);
        host.touchUp();
        ASSERT_EQ(slide->state(), kPossible);
    }
}

TEST_F(GestureStates, ANumberThatIsNoStateIsRefusedAndLoggedAtEveryState) {
    auto other = attach<Slide>(view, "other");
    other->threshold = 1000;
    const auto refuses = [this](UIGestureRecognizerState present) {
        for (const NSInteger number : {-1, 6, 42}) {
            lines.clear();
            slide->setState(static_cast<UIGestureRecognizerState>(number));
            EXPECT_EQ(slide->state(), present);
            ASSERT_EQ(lines.size(), 1u);
            EXPECT_NE(lines[0].find(" cannot become " + std::to_string(number)), std::string::npos) << lines[0];
        }
    };
    refuses(UIGestureRecognizerStatePossible);
    host.touchDown({150, 150});
    refuses(UIGestureRecognizerStatePossible);
    slide->requireGestureRecognizerToFail(other);
    host.touchMove({170, 150});
    refuses(UIGestureRecognizerStatePossible); // it waits
    other->setState(UIGestureRecognizerStateFailed);
    refuses(UIGestureRecognizerStateBegan);
    host.touchMove({180, 150});
    refuses(UIGestureRecognizerStateChanged);
    slide->setState(UIGestureRecognizerStateCancelled);
    refuses(UIGestureRecognizerStateCancelled);
    host.touchUp();
    EXPECT_EQ(news(),
              (Log{"view began", "view moved", "view cancelled", "slide began", "slide changed", "slide cancelled"}));
    host.touchDown({150, 150});
    slide->setState(UIGestureRecognizerStateFailed);
    refuses(UIGestureRecognizerStateFailed);
}

TEST_F(GestureStates, CancelledFromPossibleIsAFailure) {
    host.touchDown({150, 150});
    slide->setState(UIGestureRecognizerStateCancelled);
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateFailed);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view ended"}));
    EXPECT_TRUE(lines.empty());
}

TEST_F(GestureStates, OneThatWasRefusedMayGoOnUnaware) {
    judge(slide)->begins = false;
    slide->onTouch = [this](const std::string& what) {
        if (what == "moved")
            slide->setState(UIGestureRecognizerStateChanged);
    };
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateFailed);
    EXPECT_TRUE(lines.empty());
}

TEST_F(GestureStates, SeveralChangesInOneEventAreOneMessage) {
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    news();
    slide->onTouch = [this](const std::string&) { slide->setState(UIGestureRecognizerStateChanged); };
    host.touchMove({180, 150});
    EXPECT_EQ(news(), (Log{"slide changed"}));
}

TEST_F(GestureStates, ABeginningIsToldAsSuchWhateverFollowsInTheSameEvent) {
    slide->onTouch = [this](const std::string& what) {
        if (what == "moved" && slide->state() == UIGestureRecognizerStateBegan)
            slide->setState(UIGestureRecognizerStateChanged);
    };
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began"}));
    host.touchUp();
    news();
    slide->onTouch = [this](const std::string& what) {
        if (what == "moved")
            slide->setState(UIGestureRecognizerStateEnded);
    };
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide ended"}));
}

TEST_F(GestureStates, ItMaySpeakOutsideOfAnyTouch) {
    slide->setState(UIGestureRecognizerStateBegan);
    EXPECT_EQ(news(), (Log{"slide began"}));
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"slide ended"}));
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(slide->resets, 1);
}

TEST_F(GestureStates, ACancelledTouchCancelsOneThatDoesNotSaySoItself) {
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchCancel();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "slide began", "slide cancelled"}));
    EXPECT_EQ(slide->seen.back(), "cancelled");
    host.touchDown({150, 150});
    host.touchCancel();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled"}));
    EXPECT_EQ(slide->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(slide->resets, 2);
}

TEST_F(GestureStates, OneOfTwoFingersCancelledCancelsNothing) {
    host.touchDown({150, 150}, 1);
    host.touchDown({250, 150}, 2);
    host.touchMove({170, 150}, 1);
    host.touchCancel(1);
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateBegan);
    host.touchCancel(2);
    EXPECT_EQ(log.back(), "slide cancelled");
}

// Targets

TEST_F(GestureStates, SeveralTargetsAreToldInTheOrderInWhichTheyWereAdded) {
    auto other = reporter("other");
    slide->addTarget_action(other, selector<&Reporter::ping>);
    slide->addTarget_action(other, selector<&Reporter::report>);
    slide->addTarget_action(other, selector<&Reporter::ping>);
    slide->addTarget_action(nullptr, selector<&Reporter::ping>);
    slide->addTarget_action(other, nullptr);
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"slide ended", "other pinged", "other ended"}));
}

TEST_F(GestureStates, TargetsCanBeRemovedByPairByTargetAndByAction) {
    auto other = reporter("other");
    const auto addAll = [&] {
        slide->removeTarget_action(nullptr, nullptr);
        slide->addTarget_action(reporterNamed("slide"), selector<&Reporter::report>);
        slide->addTarget_action(other, selector<&Reporter::report>);
        slide->addTarget_action(other, selector<&Reporter::ping>);
    };
    addAll();
    slide->removeTarget_action(other, selector<&Reporter::ping>);
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"slide ended", "other ended"}));
    addAll();
    slide->removeTarget_action(other, nullptr);
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"slide ended"}));
    addAll();
    slide->removeTarget_action(nullptr, selector<&Reporter::report>);
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"other pinged"}));
    slide->removeTarget_action(nullptr, nullptr);
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), Log());
}

TEST_F(GestureStates, ATargetThatIsGoneOrRemovedMeanwhileIsNotTold) {
    auto mortal = make<Reporter>();
    mortal->log = &log;
    slide->addTarget_action(mortal, selector<&Reporter::report>);
    auto removed = reporter("removed");
    slide->addTarget_action(removed, selector<&Reporter::report>);
    reporterNamed("slide")->act = [&](UIGestureRecognizer* recognizer) {
        mortal = nullptr;
        recognizer->removeTarget_action(removed, nullptr);
    };
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(news(), (Log{"slide ended"}));
}

// Touches

TEST_F(GestureStates, LocationIsTheCentreOfTheFingers) {
    host.touchDown({150, 150}, 1);
    EXPECT_EQ(slide->numberOfTouches(), 1u);
    EXPECT_EQ(slide->locationInView(view), CGPointMake(50, 50));
    host.touchDown({250, 170}, 2);
    EXPECT_EQ(slide->numberOfTouches(), 2u);
    EXPECT_EQ(slide->locationInView(view), CGPointMake(100, 60));
    EXPECT_EQ(slide->locationInView(nullptr), CGPointMake(200, 160));
    EXPECT_EQ(slide->locationOfTouch_inView(0, nullptr), CGPointMake(150, 150));
    EXPECT_EQ(slide->locationOfTouch_inView(1, view), CGPointMake(150, 70));
    EXPECT_EQ(slide->locationOfTouch_inView(2, view), CGPointZero);
    host.touchUp(1);
    EXPECT_EQ(slide->numberOfTouches(), 1u);
    EXPECT_EQ(slide->locationInView(nullptr), CGPointMake(250, 170));
}

TEST_F(GestureStates, AtTheEndTheLastFingerIsStillThere) {
    NSUInteger count = 0;
    CGPoint place;
    reporterNamed("slide")->act = [&](UIGestureRecognizer* recognizer) {
        count = recognizer->numberOfTouches();
        place = recognizer->locationInView(recognizer->view());
    };
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchMove({180, 160});
    host.touchUp();
    EXPECT_EQ(log.back(), "slide ended");
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(place, CGPointMake(80, 60));
    EXPECT_EQ(slide->numberOfTouches(), 0u);
}

TEST_F(GestureStates, WithoutFingersThePlaceIsThatOfTheLastOne) {
    slide->onTouch = [this](const std::string& what) {
        if (what == "began")
            slide->fingers = 100; // so that it does not end with its finger
    };
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchUp();
    EXPECT_EQ(slide->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(slide->numberOfTouches(), 0u);
    EXPECT_EQ(slide->locationInView(view), CGPointMake(70, 50));
    slide->setState(UIGestureRecognizerStateEnded);
    EXPECT_EQ(slide->locationInView(view), CGPointZero);
}

TEST_F(GestureStates, AnIgnoredTouchIsNoneOfItsBusiness) {
    slide->onTouch = [this](const std::string& what) {
        if (what == "began" && slide->numberOfTouches() == 2)
            slide->ignoreTouch_forEvent(slide->touchesSeen()[1], nullptr);
    };
    auto other = addView("other", CGRectMake(100, 0, 50, 50), view);
    host.touchDown({150, 150}, 1);
    host.touchDown({210, 110}, 2);
    EXPECT_EQ(slide->numberOfTouches(), 1u);
    news();
    host.touchMove({170, 150}, 1);
    host.touchMove({215, 110}, 2);
    EXPECT_EQ(slide->seen, (Log{"began", "began", "moved"}));
    EXPECT_EQ(slide->followed, 1u);
    host.touchUp(2);
    EXPECT_EQ(news(), (Log{"view cancelled", "slide began", "other moved", "other ended"}));
}

TEST_F(GestureStates, OneThatIgnoresItsOnlyTouchHoldsNothingBack) {
    slide->setDelaysTouchesBegan(true);
    slide->onTouch = [this](const std::string& what) {
        if (what == "began")
            slide->ignoreTouch_forEvent(slide->touchesSeen()[0], nullptr);
    };
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"view began", "view ended"}));
}

TEST_F(GestureStates, SeesEveryFingerWhateverTheViewAsksFor) {
    host.touchDown({150, 150}, 1);
    host.touchDown({250, 150}, 2);
    EXPECT_EQ(slide->numberOfTouches(), 2u);
    host.touchMove({152, 150}, 1);
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
    EXPECT_EQ(view->touchesOfEvent, 1u);
}

TEST_F(GestureStates, SeesNothingOfAFingerThatAnExclusiveViewShutsOut) {
    auto exclusive = addView("exclusive", CGRectMake(0, 0, 50, 50));
    exclusive->setExclusiveTouch(true);
    host.touchDown({10, 10}, 1);
    host.touchDown({150, 150}, 2);
    EXPECT_TRUE(slide->seen.empty());
}

TEST_F(GestureStates, ATouchNamesThoseThatFollowItDeepestFirst) {
    auto outer = attach<Slide>(window, "outer");
    auto second = attach<Slide>(view, "second");
    std::vector<UIGestureRecognizer*> following;
    view->act = [&](const std::string& what) {
        if (what == "began")
            following = slide->touchesSeen()[0]->gestureRecognizers();
    };
    host.touchDown({150, 150});
    host.touchUp();
    EXPECT_EQ(following, (std::vector<UIGestureRecognizer*>{slide, second, outer}));
}

TEST_F(GestureStates, ADisabledOneSeesNothing) {
    slide->setEnabled(false);
    auto says = judge(slide);
    host.touchDown({150, 150});
    EXPECT_TRUE(says->touchedViews.empty());
    slide->setEnabled(true);
    host.touchMove({170, 150});
    host.touchUp();
    EXPECT_TRUE(slide->seen.empty());
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view ended"}));
}

// The view that it is attached to

TEST_F(GestureStates, BelongsToOneViewAtATime) {
    auto other = addView("other", CGRectMake(0, 0, 50, 50));
    EXPECT_EQ(slide->view(), view.get());
    view->addGestureRecognizer(slide);
    EXPECT_EQ(view->gestureRecognizers().size(), 1u);
    other->addGestureRecognizer(slide);
    EXPECT_TRUE(view->gestureRecognizers().empty());
    EXPECT_EQ(slide->view(), other.get());
    view->removeGestureRecognizer(slide);
    EXPECT_EQ(slide->view(), other.get());
    other->removeGestureRecognizer(slide);
    EXPECT_EQ(slide->view(), nullptr);
    other->addGestureRecognizer(nullptr);
    other->removeGestureRecognizer(nullptr);
    EXPECT_TRUE(other->gestureRecognizers().empty());
}

TEST_F(GestureStates, TheViewKeepsIt) {
    const Weak<Slide> weak = slide;
    slide = nullptr;
    EXPECT_NE(weak.get(), nullptr);
    view->removeGestureRecognizer(weak);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(GestureStates, ItOutlivesItsView) {
    view->removeFromSuperview();
    view = nullptr;
    EXPECT_EQ(slide->view(), nullptr);
}

TEST_F(GestureStates, PropertiesCanBeReachedByKey) {
    slide->setValue_forKey(false, "enabled");
    slide->setValue_forKey(true, "delaysTouchesBegan");
    slide->setValue_forKey(false, "cancelsTouchesInView");
    slide->setValue_forKey(false, "delaysTouchesEnded");
    EXPECT_FALSE(slide->isEnabled());
    EXPECT_TRUE(slide->delaysTouchesBegan());
    EXPECT_FALSE(slide->cancelsTouchesInView());
    EXPECT_FALSE(slide->delaysTouchesEnded());
    EXPECT_EQ(slide->valueForKey("state").integerValue(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(slide->valueForKey("view").objectValue(), view.get());
}

} // namespace zr::tests
