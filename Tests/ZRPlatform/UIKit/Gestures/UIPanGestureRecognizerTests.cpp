#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

#include <limits>

namespace zr::tests {

namespace {

class Pans : public Gestures {
protected:
    Ref<UIPanGestureRecognizer> pan = attach<UIPanGestureRecognizer>(view, "pan");

    /// What the targets are told, without what the view is.
    Log told() {
        Log lines = news();
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("view"); });
        return lines;
    }
};

} // namespace

// Beginning and ending

TEST_F(Pans, ItBeginsAfterTenPointsAndTakesTheTouchFromTheView) {
    host.touchDown({150, 150});
    host.touchMove({156, 157.9}); // 9.92 points away
    EXPECT_EQ(news(), (Log{"view began", "view moved"}));
    host.touchMove({156, 158}); // 10 points
    EXPECT_EQ(news(), (Log{"view cancelled", "pan began"}));
    host.touchMove({156, 159});
    EXPECT_EQ(news(), (Log{"pan changed"}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{"pan ended"}));
    EXPECT_EQ(pan->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Pans, AFingerThatComesBackHasNotDragged) {
    host.touchDown({150, 150});
    host.touchMove({159, 150});
    host.touchMove({141, 150});
    host.touchMove({150, 150});
    EXPECT_EQ(told(), (Log{}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{"view ended"}));
}

TEST_F(Pans, ACancelledTouchCancelsTheDrag) {
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchCancel();
    EXPECT_EQ(told(), (Log{"pan began", "pan cancelled"}));
    host.touchDown({150, 150});
    host.touchMove({155, 150});
    host.touchCancel();
    EXPECT_EQ(told(), (Log{}));
    EXPECT_EQ(pan->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Pans, ItsDelegateIsAskedOnceWithTheTranslationOfTheTenPoints) {
    auto answer = judge(pan);
    CGPoint asked;
    answer->act = [&] { asked = pan->translationInView(view); };
    answer->begins = false;
    host.touchDown({150, 150});
    host.touchMove({153, 138});
    EXPECT_EQ(asked, CGPointMake(3, -12));
    host.touchMove({200, 100});
    host.touchUp();
    EXPECT_EQ(answer->timesAskedToBegin, 1);
    EXPECT_EQ(told(), (Log{}));
}

TEST_F(Pans, ATapNextToItIsStillATap) {
    attach<UITapGestureRecognizer>(view, "tap");
    host.touchDown({150, 150});
    host.touchMove({154, 150});
    host.touchUp();
    EXPECT_EQ(told(), (Log{"tap ended"}));
    host.touchDown({150, 150});
    host.touchMove({162, 150});
    host.touchUp();
    EXPECT_EQ(told(), (Log{"pan began", "pan ended"}));
}

// Translation

TEST_F(Pans, TheTranslationCountsFromWhereTheFingerWentDown) {
    EXPECT_EQ(pan->translationInView(view), CGPointZero);
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    EXPECT_EQ(pan->translationInView(view), CGPointMake(20, 0));
    EXPECT_EQ(pan->locationInView(view), CGPointMake(70, 50));
    host.touchMove({160, 190});
    EXPECT_EQ(pan->translationInView(nullptr), CGPointMake(10, 40));
    CGPoint atEnd;
    reporterNamed("pan")->act = [&](UIGestureRecognizer*) { atEnd = pan->translationInView(view); };
    host.touchUp();
    EXPECT_EQ(atEnd, CGPointMake(10, 40));
    EXPECT_EQ(pan->translationInView(view), CGPointZero);
}

TEST_F(Pans, TheTranslationIsInTheCoordinatesOfTheViewAskedFor) {
    view->setTransform(CGAffineTransformMakeScale(2, 0.5));
    host.touchDown({150, 200});
    host.touchMove({170, 210});
    EXPECT_EQ(pan->translationInView(view), CGPointMake(10, 20));
    EXPECT_EQ(pan->translationInView(view->superview()), CGPointMake(20, 10));
    pan->setTranslation_inView(CGPointMake(1, 2), view);
    EXPECT_EQ(pan->translationInView(nullptr), CGPointMake(2, 1));
}

TEST_F(Pans, ASetTranslationGoesOnFromThere) {
    host.touchDown({150, 150});
    host.touchMove({170, 150}, 0.1);
    EXPECT_NE(pan->velocityInView(view), CGPointZero);
    pan->setTranslation_inView(CGPointMake(0, 100), view);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(0, 100));
    EXPECT_EQ(pan->velocityInView(view), CGPointZero);
    host.touchMove({171, 152});
    EXPECT_EQ(pan->translationInView(view), CGPointMake(1, 102));
    EXPECT_EQ(pan->velocityInView(view), CGPointZero);
    host.advance(0.05);
    host.touchMove({171, 162});
    EXPECT_NEAR(pan->velocityInView(view).y, 240, 1e-9) << "12 points since it was set";
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    pan->setTranslation_inView(CGPointMake(nan, 0), view);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(1, 112));
}

TEST_F(Pans, ATranslationThatIsSetBackAtEachMoveLeavesTheVelocity) {
    CGPoint seen;
    reporterNamed("pan")->act = [&](UIGestureRecognizer*) {
        seen = pan->velocityInView(view);
        pan->setTranslation_inView(CGPointZero, view);
    };
    host.touchDown({110, 150});
    host.touchMove({150, 150}, 0.2);
    EXPECT_NEAR(seen.x, 200, 1e-6);
    reporterNamed("pan")->act = nullptr;
}

TEST_F(Pans, ATranslationSetBeforehandDoesNotCount) {
    pan->setTranslation_inView(CGPointMake(100, 0), view);
    host.touchDown({150, 150});
    host.touchMove({152, 150});
    EXPECT_EQ(told(), (Log{}));
    EXPECT_EQ(pan->translationInView(view), CGPointMake(2, 0));
}

// Velocity

TEST_F(Pans, TheVelocityIsThatOfTheLastTenthOfASecond) {
    host.touchDown({110, 150});
    host.touchMove({150, 150}, 1.0);
    EXPECT_NEAR(pan->velocityInView(view).x, 40, 1e-6);
    EXPECT_NEAR(pan->velocityInView(view).y, 0, 1e-6);
    host.touchMove({170, 130}, 0.1);
    EXPECT_NEAR(pan->velocityInView(view).x, 200, 1e-6);
    EXPECT_NEAR(pan->velocityInView(view).y, -200, 1e-6);
    view->setTransform(CGAffineTransformMakeScale(2, 2));
    EXPECT_NEAR(pan->velocityInView(view).x, 100, 1e-6);
}

TEST_F(Pans, AFingerThatHasRestedHasNoVelocity) {
    CGPoint atEnd{1, 1};
    host.touchDown({110, 150});
    host.touchMove({150, 150}, 0.1);
    host.advance(0.11);
    reporterNamed("pan")->act = [&](UIGestureRecognizer*) { atEnd = pan->velocityInView(view); };
    host.touchUp();
    EXPECT_EQ(atEnd, CGPointZero);
}

TEST_F(Pans, AFingerThatLeavesAtOnceKeepsItsVelocity) {
    CGPoint atEnd;
    host.touchDown({110, 150});
    host.touchMove({150, 150}, 0.1);
    reporterNamed("pan")->act = [&](UIGestureRecognizer*) { atEnd = pan->velocityInView(view); };
    host.touchUp();
    EXPECT_NEAR(atEnd.x, 400, 1e-6);
}

TEST_F(Pans, FingersThatAreSeldomHeardOfHaveAVelocityAllTheSame) {
    for (const NSTimeInterval pause : {0.1, 0.15, 1.0}) {
        host.touchDown({110, 150});
        for (int i = 1; i <= 5; ++i) {
            host.advance(pause);
            host.touchMove({110 + 20.0 * i, 150});
            EXPECT_NEAR(pan->velocityInView(view).x, 20 / pause, 1e-6) << pause << ' ' << i;
        }
        host.touchUp();
    }
}

TEST_F(Pans, TheVelocityOfOneDragSaysNothingOfTheNext) {
    host.touchDown({110, 150});
    host.touchMove({150, 150}, 0.05);
    host.touchUp();
    EXPECT_EQ(pan->velocityInView(view), CGPointZero);
    host.advance(0.01);
    host.touchDown({110, 150});
    host.touchMove({140, 150});
    EXPECT_EQ(pan->velocityInView(view), CGPointZero);
}

TEST_F(Pans, AJumpInNoTimeHasNoVelocity) {
    host.touchDown({110, 150});
    host.touchMove({150, 150});
    EXPECT_EQ(pan->velocityInView(view), CGPointZero);
}

// Several fingers

TEST_F(Pans, TheCentreOfTheFingersCountsAndNoneMovesItByComingOrGoing) {
    host.touchDown({150, 150}, 0);
    host.touchMove({170, 150}, 0);
    host.touchDown({210, 190}, 1);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(20, 0));
    EXPECT_EQ(pan->locationInView(nullptr), CGPointMake(190, 170));
    host.touchMove({210, 210}, 1);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(20, 10));
    EXPECT_EQ(told(), (Log{"pan began", "pan changed"}));
    host.touchUp(0);
    EXPECT_EQ(told(), (Log{})) << "one finger is enough to go on";
    host.touchMove({215, 210}, 1);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(25, 10));
    host.touchUp(1);
    EXPECT_EQ(told(), (Log{"pan changed", "pan ended"}));
}

TEST_F(Pans, ItWaitsForAsManyFingersAsItNeedsAndEndsWithoutThem) {
    pan->setMinimumNumberOfTouches(2);
    host.touchDown({150, 150}, 0);
    host.touchMove({190, 150}, 0);
    EXPECT_EQ(told(), (Log{}));
    host.touchDown({200, 200}, 1);
    host.touchMove({191, 150}, 0);
    EXPECT_EQ(told(), (Log{})) << "the way of one finger alone does not count";
    host.touchMove({211, 150}, 0);
    EXPECT_EQ(told(), (Log{"pan began"}));
    EXPECT_EQ(pan->translationInView(view), CGPointMake(10.5, 0));
    host.touchUp(1);
    EXPECT_EQ(told(), (Log{"pan ended"}));
    pan->setMinimumNumberOfTouches(0);
    EXPECT_EQ(pan->minimumNumberOfTouches(), 1u);
}

TEST_F(Pans, OneOfTwoFingersMayLeaveBeforeItBegins) {
    host.touchDown({150, 150}, 0);
    host.touchDown({200, 200}, 1);
    host.touchUp(0);
    host.touchMove({215, 200}, 1);
    EXPECT_EQ(told(), (Log{"pan began"}));
    EXPECT_EQ(pan->translationInView(view), CGPointMake(15, 0));
}

TEST_F(Pans, OneOfTwoFingersMayBeCancelled) {
    host.touchDown({150, 150}, 0);
    host.touchDown({200, 200}, 1);
    host.touchMove({190, 150}, 0);
    host.touchCancel(0);
    EXPECT_EQ(told(), (Log{"pan began"}));
    host.touchMove({205, 200}, 1);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(25, 0));
    host.touchCancel(1);
    EXPECT_EQ(told(), (Log{"pan changed", "pan cancelled"}));
}

TEST_F(Pans, ADragThatWaitsUntilItsEndIsToldAsOne) {
    auto tap = attach<UITapGestureRecognizer>(view, "tap");
    pan->requireGestureRecognizerToFail(tap);
    host.touchDown({150, 150});
    host.touchMove({170, 150}); // a tap may stray that far
    EXPECT_EQ(told(), (Log{}));
    host.touchMove({210, 150});
    host.touchUp();
    EXPECT_EQ(told(), (Log{"pan began", "pan ended"}));
    tap->setNumberOfTapsRequired(2);
    host.touchDown({150, 150});
    host.touchMove({170, 150});
    host.touchUp();
    host.advance(1); // no second tap
    EXPECT_EQ(told(), (Log{"pan began", "pan ended"}));
}

TEST_F(Pans, WithMoreFingersThanItTakesItDoesNotBegin) {
    pan->setMaximumNumberOfTouches(1);
    host.touchDown({150, 150}, 0);
    host.touchDown({200, 200}, 1);
    host.touchMove({190, 150}, 0);
    host.touchUp(0);
    host.touchUp(1);
    EXPECT_EQ(told(), (Log{}));
    pan->setMaximumNumberOfTouches(0);
    EXPECT_EQ(pan->maximumNumberOfTouches(), 1u);
}

TEST_F(Pans, AFingerBeyondTheMostIsIgnoredOnceItIsUnderWay) {
    pan->setMaximumNumberOfTouches(1);
    host.touchDown({150, 150}, 0);
    host.touchMove({170, 150}, 0);
    host.touchDown({200, 200}, 1);
    EXPECT_EQ(pan->numberOfTouches(), 1u);
    host.touchMove({200, 280}, 1);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(20, 0));
    host.touchMove({171, 150}, 0);
    EXPECT_EQ(pan->translationInView(view), CGPointMake(21, 0));
    host.touchUp(1);
    EXPECT_EQ(told(), (Log{"pan began", "pan changed"}));
    host.touchUp(0);
    EXPECT_EQ(told(), (Log{"pan ended"}));
}

// Keys

TEST_F(Pans, ItsNumbersOfFingersCanBeSetByKey) {
    pan->setValue_forKey(NSUInteger(2), "minimumNumberOfTouches");
    pan->setValue_forKey(NSUInteger(3), "maximumNumberOfTouches");
    EXPECT_EQ(pan->minimumNumberOfTouches(), 2u);
    EXPECT_EQ(pan->maximumNumberOfTouches(), 3u);
}

} // namespace zr::tests
