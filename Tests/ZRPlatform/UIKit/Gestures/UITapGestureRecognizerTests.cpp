#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

namespace zr::tests {

namespace {

class Taps : public Gestures {
protected:
    Ref<UITapGestureRecognizer> attachTap(UIView* to, const std::string& name, NSUInteger taps = 1,
                                          NSUInteger fingers = 1) {
        auto recognizer = attach<UITapGestureRecognizer>(to, name);
        recognizer->setNumberOfTapsRequired(taps);
        recognizer->setNumberOfTouchesRequired(fingers);
        return recognizer;
    }
    /// What the targets are told, without what the view is.
    Log told() {
        Log lines = news();
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("view"); });
        return lines;
    }
};

} // namespace

// One tap

TEST_F(Taps, ATapIsRecognizedAsTheFingerGoesUp) {
    auto tap = attachTap(view, "tap");
    host.touchDown({150, 150});
    EXPECT_EQ(news(), (Log{"view began"}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view cancelled", "tap ended"}));
    EXPECT_EQ(tap->state(), UIGestureRecognizerStatePossible);
    host.tap({160, 150});
    EXPECT_EQ(told(), (Log{"tap ended"}));
}

TEST_F(Taps, ASingleTapMayLastAsLongAsItLikes) {
    attachTap(view, "tap");
    host.touchDown({150, 150});
    host.advance(60);
    host.touchUp();
    EXPECT_EQ(told(), (Log{"tap ended"}));
}

TEST_F(Taps, AFingerMayStray45Points) {
    attachTap(view, "tap");
    host.touchDown({150, 150});
    host.touchMove({177, 186}); // 45 points away
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view cancelled", "tap ended"}));
    host.touchDown({150, 150});
    host.touchMove({177, 186.5});
    host.touchMove({150, 150});
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view moved", "view ended"}));
}

TEST_F(Taps, AFingerThatGoesUpTooFarAwayIsNoTap) {
    attachTap(view, "tap");
    host.touchDown({150, 150});
    host.application()->touchEnded(0, {196, 150}); // without a move before
    EXPECT_EQ(news(), (Log{"view began", "view ended"}));
}

TEST_F(Taps, ItsPlaceIsWhereTheFingerWentUp) {
    auto tap = attachTap(view, "tap");
    CGPoint place;
    NSUInteger fingers = 0;
    reporterNamed("tap")->act = [&](UIGestureRecognizer* recognizer) {
        place = recognizer->locationInView(view);
        fingers = recognizer->numberOfTouches();
    };
    host.touchDown({150, 150});
    host.touchMove({155, 150});
    host.touchUp();
    EXPECT_EQ(place, CGPointMake(55, 50));
    EXPECT_EQ(fingers, 1u);
    EXPECT_EQ(tap->numberOfTouches(), 0u);
}

TEST_F(Taps, ASecondFingerSpoilsATapOfOne) {
    attachTap(view, "tap");
    host.touchDown({150, 150}, 1);
    host.touchDown({200, 150}, 2);
    host.touchUp(2);
    host.touchUp(1);
    EXPECT_EQ(told(), Log());
}

TEST_F(Taps, ACancelledTouchIsNoTap) {
    auto tap = attachTap(view, "tap");
    host.touchDown({150, 150});
    host.touchCancel();
    EXPECT_EQ(news(), (Log{"view began", "view cancelled"}));
    EXPECT_EQ(tap->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Taps, NoTapsAndNoFingersAreOne) {
    auto tap = attachTap(view, "tap", 0, 0);
    EXPECT_EQ(tap->numberOfTapsRequired(), 1u);
    EXPECT_EQ(tap->numberOfTouchesRequired(), 1u);
    tap->setValue_forKey(2, "numberOfTapsRequired");
    tap->setValue_forKey(3, "numberOfTouchesRequired");
    EXPECT_EQ(tap->numberOfTapsRequired(), 2u);
    EXPECT_EQ(tap->numberOfTouchesRequired(), 3u);
}

TEST_F(Taps, TheDeepestRecognizerHasIt) {
    attachTap(window, "outer");
    attachTap(view, "inner");
    host.tap({150, 150});
    EXPECT_EQ(told(), (Log{"inner ended"}));
    host.tap({10, 10});
    EXPECT_EQ(told(), (Log{"outer ended"}));
}

// Several taps

TEST_F(Taps, ADoubleTapIsRecognizedAtItsSecondTap) {
    attachTap(view, "double", 2);
    host.tap({150, 150});
    EXPECT_EQ(news(), (Log{"view began"})); // whose end is held back
    host.advance(0.34);
    host.touchDown({150, 150});
    EXPECT_EQ(news(), (Log{"view began"}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view cancelled", "view cancelled", "double ended"}));
}

TEST_F(Taps, TheSecondTapMustBeginWithin350Milliseconds) {
    auto tap = attachTap(view, "double", 2);
    host.tap({150, 150});
    host.advance(0.349);
    EXPECT_EQ(news(), (Log{"view began"}));
    host.advance(0.001);
    EXPECT_EQ(news(), (Log{"view ended"}));
    EXPECT_EQ(tap->state(), UIGestureRecognizerStatePossible);
    host.tap({150, 150});
    EXPECT_EQ(told(), Log());
    host.tap({150, 150});
    EXPECT_EQ(told(), (Log{"double ended"}));
}

TEST_F(Taps, EachOfSeveralTapsMayLast750Milliseconds) {
    auto tap = attachTap(view, "double", 2);
    host.touchDown({150, 150});
    host.advance(0.749);
    host.touchUp();
    host.touchDown({150, 150});
    host.advance(0.749);
    host.touchUp();
    EXPECT_EQ(told(), (Log{"double ended"}));
    host.touchDown({150, 150});
    host.advance(0.75);
    EXPECT_EQ(tap->state(), UIGestureRecognizerStateFailed);
    host.touchUp();
    EXPECT_EQ(tap->state(), UIGestureRecognizerStatePossible);
    host.tap({150, 150});
    EXPECT_EQ(told(), Log());
}

TEST_F(Taps, TheSecondTapMustBeNearTheFirst) {
    attachTap(view, "double", 2);
    host.tap({150, 150});
    host.tap({195, 150});
    EXPECT_EQ(told(), (Log{"double ended"}));
    host.tap({150, 150});
    host.tap({195.5, 150});
    EXPECT_EQ(told(), Log());
    host.advance(1);
    host.tap({195.5, 150});
    EXPECT_EQ(told(), Log());
}

TEST_F(Taps, AFingerThatMovesTooFarInTheSecondTapSpoilsBoth) {
    attachTap(view, "double", 2);
    host.tap({150, 150});
    host.touchDown({150, 150});
    host.touchMove({200, 150});
    EXPECT_EQ(news(), (Log{"view began", "view began", "view ended", "view moved"}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view ended"}));
}

TEST_F(Taps, ASingleTapDoesNotWaitUnlessItIsAskedTo) {
    for (const bool singleFirst : {true, false}) {
        auto a = attachTap(view, singleFirst ? "single" : "double", singleFirst ? 1 : 2);
        auto b = attachTap(view, singleFirst ? "double" : "single", singleFirst ? 2 : 1);
        host.tap({150, 150});
        EXPECT_EQ(told(), (Log{"single ended"}));
        host.tap({150, 150});
        EXPECT_EQ(told(), (Log{"double ended"}));
        view->removeGestureRecognizer(a);
        view->removeGestureRecognizer(b);
    }
}

namespace {

/// A single tap that waits for a double tap to fail.
class SingleAndDouble : public Taps {
protected:
    SingleAndDouble() { single->requireGestureRecognizerToFail(twice); }
    /// When each message came, in seconds.
    void noteTimes() {
        for (const auto& known : reporters)
            known->act = [this](UIGestureRecognizer*) { times.push_back(host.time()); };
    }

    Ref<UITapGestureRecognizer> single = attachTap(view, "single");
    Ref<UITapGestureRecognizer> twice = attachTap(view, "double", 2);
    std::vector<NSTimeInterval> times;
};

} // namespace

TEST_F(SingleAndDouble, ASingleTapComesWhenNoSecondOneCanAnyMore) {
    noteTimes();
    CGPoint place;
    reporterNamed("single")->act = [&](UIGestureRecognizer* recognizer) {
        times.push_back(host.time());
        place = recognizer->locationInView(view);
    };
    host.advance(1);
    host.touchDown({150, 160});
    host.advance(0.1);
    host.touchUp();
    EXPECT_EQ(single->state(), UIGestureRecognizerStatePossible);
    host.advance(10);
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "single ended"}));
    EXPECT_EQ(times, (std::vector<NSTimeInterval>{1.45}));
    EXPECT_EQ(place, CGPointMake(50, 60));
    EXPECT_EQ(single->state(), UIGestureRecognizerStatePossible);
    EXPECT_EQ(twice->state(), UIGestureRecognizerStatePossible);
}

TEST_F(SingleAndDouble, ADoubleTapIsNoSingleTap) {
    noteTimes();
    host.tap({150, 150});
    host.advance(0.2);
    host.tap({150, 150});
    host.advance(10);
    EXPECT_EQ(told(), (Log{"double ended"}));
    EXPECT_EQ(times, (std::vector<NSTimeInterval>{0.2}));
    host.tap({150, 150});
    host.advance(1);
    EXPECT_EQ(told(), (Log{"single ended"}));
}

TEST_F(SingleAndDouble, ALongFirstTapIsASingleOneAsItEnds) {
    noteTimes();
    host.touchDown({150, 150});
    host.advance(2);
    host.touchUp();
    EXPECT_EQ(told(), (Log{"single ended"}));
    EXPECT_EQ(times, (std::vector<NSTimeInterval>{2}));
}

TEST_F(SingleAndDouble, ASecondTapElsewhereLetsTheFirstBeASingleOne) {
    host.tap({150, 150});
    host.touchDown({250, 150});
    EXPECT_EQ(told(), (Log{"single ended"}));
    host.touchUp();
}

TEST_F(SingleAndDouble, ATripleTapMakesAChain) {
    auto thrice = attachTap(view, "triple", 3);
    twice->requireGestureRecognizerToFail(thrice);
    single->requireGestureRecognizerToFail(thrice);
    const auto tapTimes = [this](int count) {
        for (int i = 0; i < count; ++i) {
            host.tap({150, 150});
            host.advance(0.1);
        }
        host.advance(2);
        return told();
    };
    EXPECT_EQ(tapTimes(1), (Log{"single ended"}));
    EXPECT_EQ(tapTimes(2), (Log{"double ended"}));
    EXPECT_EQ(tapTimes(3), (Log{"triple ended"}));
}

TEST_F(SingleAndDouble, TheDoubleTapsEndSetsTheSingleOneFree) {
    host.tap({150, 150});
    view->removeGestureRecognizer(twice);
    EXPECT_EQ(told(), (Log{"single ended"}));
    twice = nullptr;
    host.advance(1);
    EXPECT_EQ(told(), Log());
}

// Several fingers

TEST_F(Taps, TwoFingersTapTogether) {
    attachTap(view, "pair", 1, 2);
    CGPoint place, first;
    NSUInteger fingers = 0;
    reporterNamed("pair")->act = [&](UIGestureRecognizer* recognizer) {
        place = recognizer->locationInView(nullptr);
        first = recognizer->locationOfTouch_inView(0, view);
        fingers = recognizer->numberOfTouches();
    };
    host.touchDown({150, 150}, 1);
    host.touchDown({250, 170}, 2);
    host.touchUp(1);
    EXPECT_EQ(told(), Log());
    host.touchUp(2);
    EXPECT_EQ(told(), (Log{"pair ended"}));
    EXPECT_EQ(place, CGPointMake(200, 160));
    EXPECT_EQ(first, CGPointMake(50, 50));
    EXPECT_EQ(fingers, 2u);
}

TEST_F(Taps, TwoFingersAfterOneAnotherAreNoTapOfTwo) {
    attachTap(view, "pair", 1, 2);
    host.tap({150, 150});
    host.tap({250, 150});
    EXPECT_EQ(told(), Log());
}

TEST_F(Taps, AThirdFingerSpoilsATapOfTwo) {
    attachTap(view, "pair", 1, 2);
    for (int finger = 1; finger <= 3; ++finger)
        host.touchDown({120.0 + 40 * finger, 150}, finger);
    for (int finger = 1; finger <= 3; ++finger)
        host.touchUp(finger);
    EXPECT_EQ(told(), Log());
    host.touchDown({150, 150}, 1);
    host.touchDown({200, 150}, 2);
    host.touchUp(1);
    host.touchDown({150, 150}, 1); // one that has gone up does not come back
    host.touchUp(1);
    host.touchUp(2);
    EXPECT_EQ(told(), Log());
}

TEST_F(Taps, EitherFingerMovingTooFarSpoilsATapOfTwo) {
    attachTap(view, "pair", 1, 2);
    for (int moving = 1; moving <= 2; ++moving) {
        host.touchDown({150, 150}, 1);
        host.touchDown({200, 150}, 2);
        host.touchMove({150, 250}, moving);
        host.touchUp(1);
        host.touchUp(2);
        EXPECT_EQ(told(), Log());
    }
}

TEST_F(Taps, TwoFingersMayTapTwice) {
    attachTap(view, "pair", 2, 2);
    for (int tap = 0; tap < 2; ++tap) {
        EXPECT_EQ(told(), Log());
        host.touchDown({150, 150}, 1);
        host.touchDown({250, 150}, 2);
        host.touchUp(2);
        host.touchUp(1);
        host.advance(0.2);
    }
    EXPECT_EQ(told(), (Log{"pair ended"}));
}

TEST_F(Taps, TheTimeOfATapOfTwoFingersCountsFromTheFirstOne) {
    auto pair = attachTap(view, "pair", 2, 2);
    host.touchDown({150, 150}, 1);
    host.advance(0.5);
    host.touchDown({250, 150}, 2);
    host.advance(0.249);
    EXPECT_EQ(pair->state(), UIGestureRecognizerStatePossible);
    host.advance(0.001);
    EXPECT_EQ(pair->state(), UIGestureRecognizerStateFailed);
}

TEST_F(Taps, EachFingerOfTheSecondTapMustBeNearOneOfTheFirst) {
    auto pair = attachTap(view, "pair", 2, 2);
    const auto tapAt = [this](CGPoint first, CGPoint second) {
        host.touchDown(first, 1);
        host.touchDown(second, 2);
        host.touchUp(1);
        host.touchUp(2);
    };
    tapAt({150, 150}, {250, 150});
    tapAt({150, 150}, {250, 196});
    EXPECT_EQ(told(), Log());
    EXPECT_EQ(pair->state(), UIGestureRecognizerStatePossible);
    tapAt({150, 150}, {250, 150});
    tapAt({250, 190}, {150, 190}); // whichever comes first
    EXPECT_EQ(told(), (Log{"pair ended"}));
}

TEST_F(Taps, EachTapMustBeNearTheOneBeforeSoThatSeveralMayDrift) {
    attachTap(view, "triple", 3);
    for (const CGFloat x : {150.0, 190.0, 230.0})
        host.tap({x, 150});
    EXPECT_EQ(told(), (Log{"triple ended"}));
    for (const CGFloat x : {150.0, 190.0, 150.0})
        host.tap({x, 150});
    EXPECT_EQ(told(), (Log{"triple ended"}));
    for (const CGFloat x : {150.0, 110.0, 156.0}) // near the first, but not the second
        host.tap({x, 150});
    EXPECT_EQ(told(), Log());
}

// Taps and slides

TEST_F(Taps, ASlideIsNoTapEvenIfItIsShort) {
    attachTap(window, "tap");
    attach<Slide>(view, "slide");
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchUp();
    EXPECT_EQ(told(), (Log{"slide began", "slide ended"}));
    host.tap({150, 150});
    EXPECT_EQ(told(), (Log{"tap ended"}));
}

// Controls

namespace {

class TapsAndControls : public Taps {
protected:
    TapsAndControls() {
        button->setFrame(CGRectMake(0, 0, 100, 100));
        button->addTarget_action_forControlEvents(presses, selector<&Reporter::ping>, UIControlEventTouchUpInside);
        button->addTarget_action_forControlEvents(cancels, selector<&Reporter::ping>, UIControlEventTouchCancel);
        view->addSubview(button);
    }
    Ref<Reporter> presses = reporter("press"), cancels = reporter("cancel");
    Ref<UIButton> button = UIButton::buttonWithType<UIButton>(UIButtonTypeCustom);
};

} // namespace

TEST_F(TapsAndControls, AControlKeepsItsTapsFromItsSuperviews) {
    auto tap = attachTap(view, "tap"), outer = attachTap(window, "outer");
    host.tap({150, 150});
    EXPECT_EQ(told(), (Log{"press pinged"}));
    host.tap({250, 250});
    EXPECT_EQ(told(), (Log{"tap ended"}));
}

TEST_F(TapsAndControls, ADisabledControlKeepsNone) {
    attachTap(view, "tap");
    button->setEnabled(false);
    host.tap({150, 150});
    EXPECT_EQ(told(), (Log{"tap ended"}));
}

TEST_F(TapsAndControls, ARecognizerOnTheControlItselfCountsAsAnyOther) {
    attachTap(button, "tap");
    host.touchDown({150, 150});
    EXPECT_TRUE(button->isHighlighted());
    reporterNamed("tap")->act = [this](UIGestureRecognizer*) { EXPECT_FALSE(button->isHighlighted()); };
    host.touchUp();
    EXPECT_EQ(told(), (Log{"cancel pinged", "tap ended"}));
}

TEST_F(TapsAndControls, ARecognizerOnASubviewOfTheControlCountsAsAnyOther) {
    auto mark = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 50, 50));
    button->addSubview(mark);
    attachTap(mark, "tap");
    host.tap({110, 110});
    EXPECT_EQ(told(), (Log{"cancel pinged", "tap ended"}));
    host.tap({180, 180});
    EXPECT_EQ(told(), (Log{"press pinged"}));
}

TEST_F(TapsAndControls, ASubviewOfTheControlIsTheControlToItsSuperviews) {
    auto mark = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 50, 50));
    button->addSubview(mark);
    attachTap(view, "tap");
    host.tap({110, 110});
    EXPECT_EQ(told(), (Log{"press pinged"}));
}

TEST_F(TapsAndControls, OtherGesturesOfASuperviewHaveTheirWay) {
    attachTap(view, "double", 2);
    attachTap(view, "pair", 1, 2);
    attach<Slide>(view, "slide");
    host.tap({150, 150});
    EXPECT_EQ(told(), Log()); // a second tap might come
    host.tap({150, 150});
    EXPECT_EQ(told(), (Log{"cancel pinged", "double ended"}));
    host.touchDown({120, 150}, 1);
    host.touchDown({180, 150}, 2);
    host.touchUp(1);
    host.touchUp(2);
    EXPECT_EQ(told(), (Log{"cancel pinged", "pair ended"}));
    host.touchDown({120, 150});
    host.touchMove({140, 150});
    EXPECT_EQ(told(), (Log{"cancel pinged", "slide began"}));
    host.touchUp();
    told();
    host.tap({150, 150});
    host.advance(0.35);
    EXPECT_EQ(told(), (Log{"press pinged"}));
}

} // namespace zr::tests
