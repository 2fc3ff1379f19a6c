#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>
#include <ZRKitDynamic/ZRGesture/ZRSwipeGesture.h>

namespace zr::tests {

namespace {

/// On a view at (100, 100), 200 x 200 points; the finger goes down at (110, 110) of the screen.
class ZRSwipeGestureTest : public Gestures {
protected:
    static constexpr CGPoint kStart{110, 110};

    void press() { host.touchDown(kStart); }
    void dragTo(CGFloat dx, CGFloat dy) { host.touchMove({kStart.x + dx, kStart.y + dy}); }
    UIGestureRecognizerState stateAfter(CGFloat dx, CGFloat dy) {
        press();
        dragTo(dx, dy);
        const UIGestureRecognizerState state = swipe->state();
        host.touchUp();
        return state;
    }

    Ref<ZRSwipeGesture> swipe = attach<ZRSwipeGesture>(view, "swipe");
};

} // namespace

TEST_F(ZRSwipeGestureTest, BeginsAtThirtyPointsUpOrDown) {
    EXPECT_EQ(stateAfter(0, 29.9), UIGestureRecognizerStatePossible);
    EXPECT_EQ(stateAfter(0, 30), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(0, -29.9), UIGestureRecognizerStatePossible);
    EXPECT_EQ(stateAfter(0, -30), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(10, 30), UIGestureRecognizerStateBegan);
}

TEST_F(ZRSwipeGestureTest, FailsWhenTheFingerIsThirtyPointsAsideAndNotSteepEnough) {
    EXPECT_EQ(stateAfter(29.9, 0), UIGestureRecognizerStatePossible);
    EXPECT_EQ(stateAfter(30, 0), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(-30, 0), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(30, 15), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(-30, -15), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(30, 15.1), UIGestureRecognizerStatePossible);
    EXPECT_EQ(stateAfter(40, 20), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(40, 21), UIGestureRecognizerStatePossible);
    EXPECT_EQ(stateAfter(40, -21), UIGestureRecognizerStatePossible);
}

TEST_F(ZRSwipeGestureTest, TestsTheSidewaysDragFirst) {
    EXPECT_EQ(stateAfter(60, 30), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(60, 31), UIGestureRecognizerStateBegan);
}

TEST_F(ZRSwipeGestureTest, MeasuresInSinglePrecision) {
    // In double precision both are a little too little, or too much.
    EXPECT_EQ(stateAfter(0, 30 - 1e-9), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(40, 20 + 1e-9), UIGestureRecognizerStateFailed);
}

TEST_F(ZRSwipeGestureTest, RoundsTheDistanceAndNotThePlaces) {
    // Far from the view's corner a single-precision place is off by more than the distance is.
    view->setBounds(CGRectMake(0, 1e6, 200, 200));
    press();
    dragTo(0, 30 - 1e-3);
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
    host.touchUp();
}

TEST_F(ZRSwipeGestureTest, MayTurnFromAsideToSteepOnTheWay) {
    press();
    dragTo(40, 21);
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
    dragTo(40, 30);
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStateBegan);
    host.touchUp();
}

TEST_F(ZRSwipeGestureTest, FollowsTheFingerAnywhereOnceItHasBegunAndEndsWithIt) {
    press();
    dragTo(0, 30);
    dragTo(80, 2);
    dragTo(-5, -60);
    host.touchUp();
    EXPECT_EQ(news(),
              (Log{"view began", "view cancelled", "swipe began", "swipe changed", "swipe changed", "swipe ended"}));
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
}

TEST_F(ZRSwipeGestureTest, FailsWithoutAWordWhenTheFingerGoesUpTooEarly) {
    const auto follower = attach<UITapGestureRecognizer>(view, "tap");
    follower->requireGestureRecognizerToFail(swipe);
    press();
    host.touchUp();
    // The tap waits for a failure: an end would have stopped it.
    EXPECT_EQ(news(), (Log{"view began", "view cancelled", "tap ended"}));
}

TEST_F(ZRSwipeGestureTest, AFailedOneSeesNothingMoreOfTheDrag) {
    press();
    dragTo(30, 0);
    dragTo(0, 60);
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view moved", "view ended"}));
}

TEST_F(ZRSwipeGestureTest, IsCancelledWithItsTouch) {
    press();
    dragTo(0, 30);
    news();
    host.touchCancel();
    EXPECT_EQ(news(), (Log{"swipe cancelled"}));
}

TEST_F(ZRSwipeGestureTest, ATouchCancelledBeforeItHasBegunIsNoSwipe) {
    press();
    dragTo(0, 20);
    host.touchCancel();
    EXPECT_EQ(news(), (Log{"view began", "view moved", "view cancelled"}));
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
}

TEST_F(ZRSwipeGestureTest, OneOfTwoTouchesThatIsCancelledCancelsIt) {
    press();
    host.touchDown({200, 250}, 1);
    host.touchMove({200, 220}, 1);
    news();
    host.touchCancel(1);
    EXPECT_EQ(news(), (Log{"swipe cancelled"}));
    host.touchUp();
}

TEST_F(ZRSwipeGestureTest, KeepsItsPointsInItsViewAndForgetsThem) {
    EXPECT_EQ(swipe->beginPoint(), CGPointZero);
    EXPECT_EQ(swipe->curPoint(), CGPointZero);
    press();
    EXPECT_EQ(swipe->beginPoint(), (CGPoint{10, 10}));
    EXPECT_EQ(swipe->curPoint(), CGPointZero);
    dragTo(3, 40);
    EXPECT_EQ(swipe->beginPoint(), (CGPoint{10, 10}));
    EXPECT_EQ(swipe->curPoint(), (CGPoint{13, 50}));
    dragTo(4, 60);
    EXPECT_EQ(swipe->curPoint(), (CGPoint{14, 70})) << "it follows";
    host.touchUp();
    EXPECT_EQ(swipe->beginPoint(), CGPointZero);
    EXPECT_EQ(swipe->curPoint(), CGPointZero);
}

TEST_F(ZRSwipeGestureTest, AnotherFingerStartsTheMeasuringAnew) {
    press();
    dragTo(0, 25);
    host.touchDown({200, 250}, 1);
    EXPECT_EQ(swipe->beginPoint(), (CGPoint{100, 150}));
    EXPECT_EQ(swipe->curPoint(), CGPointZero);
    host.touchMove({200, 221}, 1);
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
    host.touchMove({200, 220}, 1);
    EXPECT_EQ(swipe->state(), UIGestureRecognizerStateBegan);
    host.touchUp(1);
    host.touchUp();
}

} // namespace zr::tests
