#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

namespace zr::tests {

namespace {

/// A control at (100, 100), 100 x 40 points, and someone who listens to all its touch events.
class ControlTracking : public OnScreen {
protected:
    ControlTracking() {
        control = place(make<UIControl>(), {{100, 100}, {100, 40}});
        listener->listenTo(control);
    }

    Ref<UIControl> control;
    Ref<Listener> listener = make<Listener>();
};

/// Does something in the middle of a touch, and tells what it found.
class Meddler : public NSObject {
public:
    void meddle(UIControl* sender) {
        wasHighlighted = sender->isHighlighted();
        wasTracking = sender->isTracking();
        if (act)
            act();
    }

    std::function<void()> act;
    bool wasHighlighted = false;
    bool wasTracking = false;
};

} // namespace

TEST_F(ControlTracking, ATapGoesDownAndUpInside) {
    host.touchDown({150, 120});
    EXPECT_EQ(listener->news(), (News{"down"}));
    EXPECT_TRUE(control->isTracking());
    EXPECT_TRUE(control->isTouchInside());
    EXPECT_TRUE(control->isHighlighted());
    host.touchUp();
    EXPECT_EQ(listener->news(), (News{"up inside"}));
    EXPECT_FALSE(control->isTracking());
    EXPECT_FALSE(control->isTouchInside());
    EXPECT_FALSE(control->isHighlighted());
}

TEST_F(ControlTracking, ASecondTapInARowRepeatsToo) {
    host.tap({150, 120});
    listener->news();
    host.advance(0.1);
    host.touchDown({150, 120});
    EXPECT_EQ(listener->news(), (News{"down", "repeat"}));
    host.touchUp();
}

TEST_F(ControlTracking, ATouchMustHitTheBounds) {
    host.tap({99, 120});
    host.tap({150, 141});
    EXPECT_EQ(listener->news(), News());
    host.tap({100, 100});
    EXPECT_EQ(listener->news(), (News{"down", "up inside"}));
}

TEST_F(ControlTracking, Exactly70PointsAwayIsInside) {
    host.touchDown({150, 120});
    listener->news();
    for (const CGPoint point : {CGPoint{30, 120}, {270, 120}, {150, 30}, {150, 210}}) {
        host.touchMove(point);
        EXPECT_EQ(listener->news(), (News{"drag inside"})) << point.x << ", " << point.y;
        EXPECT_TRUE(control->isHighlighted());
    }
    host.touchUp();
    EXPECT_EQ(listener->news(), (News{"up inside"}));
}

TEST_F(ControlTracking, BeyondThatIsOutsideUntilTheFingerReturns) {
    host.touchDown({150, 120});
    listener->news();
    host.touchMove({150, 211});
    EXPECT_EQ(listener->news(), (News{"exit", "drag outside"}));
    EXPECT_FALSE(control->isHighlighted());
    EXPECT_FALSE(control->isTouchInside());
    EXPECT_TRUE(control->isTracking());
    host.touchMove({150, 250});
    EXPECT_EQ(listener->news(), (News{"drag outside"}));
    host.touchMove({150, 200});
    EXPECT_EQ(listener->news(), (News{"enter", "drag inside"}));
    EXPECT_TRUE(control->isHighlighted());
    host.touchMove({29, 120});
    host.touchUp();
    EXPECT_EQ(listener->news(), (News{"exit", "drag outside", "up outside"}));
    EXPECT_FALSE(control->isHighlighted());
}

TEST_F(ControlTracking, ItIsAtRestWhenTheUpEventArrives) {
    auto meddler = make<Meddler>();
    control->addTarget_action_forControlEvents(meddler, selector<&Meddler::meddle>, UIControlEventTouchDown);
    host.touchDown({150, 120});
    EXPECT_TRUE(meddler->wasHighlighted);
    EXPECT_TRUE(meddler->wasTracking);
    control->removeTarget_action_forControlEvents(meddler, nullptr, UIControlEventAllEvents);
    control->addTarget_action_forControlEvents(meddler, selector<&Meddler::meddle>, UIControlEventTouchUpInside);
    host.touchUp();
    EXPECT_FALSE(meddler->wasHighlighted);
    EXPECT_FALSE(meddler->wasTracking);
}

TEST_F(ControlTracking, ACancelledTouchCancels) {
    host.touchDown({150, 120});
    host.touchCancel();
    EXPECT_EQ(listener->news(), (News{"down", "cancel"}));
    EXPECT_FALSE(control->isTracking());
    EXPECT_FALSE(control->isHighlighted());
}

TEST_F(ControlTracking, ADisabledControlTakesTheTouchAndDoesNothing) {
    auto below = place(make<UIControl>(), {{90, 90}, {150, 80}});
    window->bringSubviewToFront(control);
    auto other = make<Listener>();
    other->listenTo(below);
    control->setEnabled(false);
    host.tap({150, 120});
    EXPECT_EQ(listener->news(), News());
    EXPECT_EQ(other->news(), News());
    host.tap({95, 95});
    EXPECT_EQ(other->news(), (News{"down", "up inside"}));
}

TEST_F(ControlTracking, DisablingDuringATouchCancelsIt) {
    host.touchDown({150, 120});
    control->setEnabled(false);
    EXPECT_EQ(listener->news(), (News{"down", "cancel"}));
    EXPECT_FALSE(control->isHighlighted());
    control->setEnabled(true);
    host.touchMove({150, 125});
    host.touchUp();
    EXPECT_EQ(listener->news(), News());
}

TEST_F(ControlTracking, HidingDuringATouchCancelsIt) {
    host.touchDown({150, 120});
    control->setHidden(true);
    EXPECT_EQ(listener->news(), (News{"down", "cancel"}));
    host.touchUp();
    EXPECT_EQ(listener->news(), News());
}

TEST_F(ControlTracking, RemovingDuringATouchCancelsIt) {
    host.touchDown({150, 120});
    control->removeFromSuperview();
    EXPECT_EQ(listener->news(), (News{"down", "cancel"}));
    host.touchUp();
    EXPECT_EQ(listener->news(), News());
    EXPECT_FALSE(control->isTracking());
}

TEST_F(ControlTracking, ASecondFingerIsIgnored) {
    host.touchDown({120, 120}, 0);
    host.touchDown({180, 120}, 1);
    host.touchUp(1);
    EXPECT_EQ(listener->news(), (News{"down"}));
    EXPECT_TRUE(control->isTracking());
    host.touchUp(0);
    EXPECT_EQ(listener->news(), (News{"up inside"}));
}

TEST_F(ControlTracking, WithMultipleTouchTheLastFingerDownIsTracked) {
    control->setMultipleTouchEnabled(true);
    host.touchDown({120, 120}, 0);
    host.touchDown({180, 120}, 1);
    EXPECT_EQ(listener->news(), (News{"down", "down"}));
    host.touchUp(0);
    EXPECT_EQ(listener->news(), News());
    host.touchUp(1);
    EXPECT_EQ(listener->news(), (News{"up inside"}));
}

TEST_F(ControlTracking, AnActionMayDropTheControl) {
    auto meddler = make<Meddler>();
    meddler->act = [this] {
        control->removeFromSuperview();
        control = nullptr;
    };
    control->addTarget_action_forControlEvents(meddler, selector<&Meddler::meddle>, UIControlEventTouchUpInside);
    auto last = make<Listener>();
    control->addTarget_action_forControlEvents(last, selector<&Listener::upInside>, UIControlEventTouchUpInside);
    const Weak<UIControl> watched = control;
    host.tap({150, 120});
    EXPECT_EQ(last->news(), (News{"up inside"})); // the message goes to all who were promised it
    host.advance(0.1);
    EXPECT_FALSE(watched.get());
}

TEST_F(ControlTracking, AnActionMayDropItsTarget) {
    auto meddler = make<Meddler>();
    meddler->act = [&meddler] { meddler = nullptr; };
    control->addTarget_action_forControlEvents(meddler, selector<&Meddler::meddle>, UIControlEventTouchDown);
    host.touchDown({150, 120});
    EXPECT_FALSE(meddler);
    host.touchUp();
    EXPECT_EQ(listener->news(), (News{"down", "up inside"}));
}

namespace {

/// Decides for itself how long it follows a finger.
class Picky : public UIControl {
public:
    bool beginTrackingWithTouch_withEvent(UITouch*, UIEvent*) override { return begins; }
    bool continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent*) override {
        places.push_back(touch->locationInView(this).x);
        return goesOn;
    }
    void endTrackingWithTouch_withEvent(UITouch*, UIEvent*) override {
        log.push_back(isHighlighted() ? "end highlighted" : "end");
    }
    void cancelTrackingWithEvent(UIEvent*) override { log.push_back("cancel"); }

    bool begins = true, goesOn = true;
    std::vector<CGFloat> places;
    News log;
};

} // namespace

TEST_F(ControlTracking, ASubclassMayDecline) {
    auto picky = place(make<Picky>(), {{0, 200}, {100, 100}});
    listener->listenTo(picky);
    picky->begins = false;
    host.touchDown({50, 250});
    EXPECT_FALSE(picky->isTracking());
    EXPECT_FALSE(picky->isHighlighted());
    host.touchMove({60, 250});
    host.touchUp();
    EXPECT_EQ(listener->news(), News());
    EXPECT_TRUE(picky->places.empty());
}

TEST_F(ControlTracking, ASubclassMayStopFollowing) {
    auto picky = place(make<Picky>(), {{0, 200}, {100, 100}});
    listener->listenTo(picky);
    host.touchDown({50, 250});
    host.touchMove({60, 250});
    EXPECT_EQ(listener->news(), (News{"down", "drag inside"}));
    picky->goesOn = false;
    host.touchMove({70, 250});
    EXPECT_FALSE(picky->isTracking());
    EXPECT_FALSE(picky->isHighlighted());
    host.touchMove({80, 250});
    host.touchUp();
    EXPECT_EQ(listener->news(), News());
    EXPECT_EQ(picky->places, (std::vector<CGFloat>{60, 70}));
}

TEST_F(ControlTracking, TheEndIsToldBeforeTheHighlightGoes) {
    auto picky = place(make<Picky>(), {{0, 200}, {100, 100}});
    host.tap({50, 250});
    host.touchDown({50, 250});
    host.touchCancel();
    EXPECT_EQ(picky->log, (News{"end highlighted", "cancel"}));
}

} // namespace zr::tests
