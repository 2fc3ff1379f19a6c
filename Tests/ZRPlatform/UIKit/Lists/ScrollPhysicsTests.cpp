#include <ZRPlatform/UIKit/Lists/Internal/ScrollPhysics.h>

#include <cmath>
#include <gtest/gtest.h>

namespace zr::tests {

namespace {

constexpr ScrollRange kRange{-20, 1000};
constexpr CGFloat kScale = 2;
const CGFloat kPace = paceOfRate(0.998);

/// The largest step between two looks, a millisecond apart.
CGFloat largestStep(const ScrollCourse& course) {
    CGFloat largest = 0;
    for (int i = 0; i < course.duration * 1000 + 2; ++i)
        largest = std::max(largest, std::abs(course.positionAt((i + 1) / 1e3) - course.positionAt(i / 1e3)));
    return largest;
}

} // namespace

// Ranges

TEST(ScrollRanges, EndsAreThoseOfTheContentAndItsInset) {
    const ScrollGeometry geometry{{200, 400}, {300, 1000}, UIEdgeInsetsMake(64, 5, 50, 7)};
    EXPECT_EQ(verticalScrollRange(geometry), (ScrollRange{-64, 650}));
    EXPECT_EQ(horizontalScrollRange(geometry), (ScrollRange{-5, 107}));
}

TEST(ScrollRanges, WhatIsSmallerThanTheBoundsRestsAtItsBeginning) {
    const ScrollGeometry geometry{{200, 400}, {100, 100}, UIEdgeInsetsMake(10, 0, 0, 0)};
    EXPECT_EQ(verticalScrollRange(geometry), (ScrollRange{-10, -10}));
    EXPECT_EQ(horizontalScrollRange(geometry), (ScrollRange{0, 0}));
    EXPECT_EQ(nearestRest(geometry, {50, 50}), CGPointMake(0, -10));
}

TEST(ScrollRanges, NumbersThatAreNotFiniteLeaveNothingToScroll) {
    const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    const ScrollGeometry geometry{{std::nan(""), -infinity}, {100, 100}, {}};
    EXPECT_EQ(horizontalScrollRange(geometry), (ScrollRange{0, 0}));
    EXPECT_EQ(verticalScrollRange(geometry), (ScrollRange{0, 0}));
}

TEST(ScrollRanges, ARectangleIsShownByTheLeastMovement) {
    const ScrollGeometry geometry{{200, 400}, {1000, 1000}, {}};
    EXPECT_EQ(offsetShowing(geometry, {100, 100}, CGRectMake(150, 450, 10, 100)), CGPointMake(100, 150));
    EXPECT_EQ(offsetShowing(geometry, {100, 100}, CGRectMake(50, 20, 10, 10)), CGPointMake(50, 20));
    EXPECT_EQ(offsetShowing(geometry, {100, 100}, CGRectMake(120, 120, 10, 10)), CGPointMake(100, 100));
    EXPECT_EQ(offsetShowing(geometry, {100, 100}, CGRectMake(990, 990, 100, 100)), CGPointMake(800, 600));
    EXPECT_EQ(offsetShowing(geometry, {0, 0}, CGRectMake(0, 500, 10, 450)), CGPointMake(0, 500));
    EXPECT_EQ(offsetShowing(geometry, {0, 520}, CGRectMake(0, 500, 10, 450)), CGPointMake(0, 520));
}

// The rubber band

TEST(RubberBand, ItYieldsLessAndLessAndNeverTheWholeLength) {
    EXPECT_EQ(rubberBand(0, 400), 0);
    EXPECT_NEAR(rubberBand(100, 400), (1 - 1 / (100 * 0.55 / 400 + 1)) * 400, 1e-12);
    EXPECT_NEAR(rubberBand(1, 400), 0.55, 0.001);
    EXPECT_LT(rubberBand(1e9, 400), 400);
    EXPECT_EQ(rubberBand(100, 0), 0);
}

TEST(RubberBand, ThePullThatShowsAWayIsTheInverse) {
    for (const CGFloat pull : {0.0, 3.0, 100.0, 2000.0})
        EXPECT_NEAR(rubberBandPull(rubberBand(pull, 400), 400), pull, 1e-9);
    EXPECT_TRUE(std::isfinite(rubberBandPull(400, 400)));
    EXPECT_TRUE(std::isfinite(rubberBandPull(1e12, 400)));
}

TEST(RubberBand, TheGiveIsItsSlope) {
    for (const CGFloat pull : {1.0, 50.0, 300.0})
        EXPECT_NEAR(rubberBandGive(pull, 400), (rubberBand(pull + 1e-5, 400) - rubberBand(pull - 1e-5, 400)) / 2e-5,
                    1e-8);
}

// Coasting

TEST(Coasting, EachMillisecondLeavesThatMuchOfTheVelocity) {
    const ScrollCourse course = coast(0, 1000, kPace, kRange, true, kScale);
    // The target is on a pixel, so the velocity may differ by what that takes.
    EXPECT_NEAR(course.velocityAt(0), 1000, kPace * 0.25);
    for (const NSTimeInterval time : {0.0, 0.1, 0.5, 1.0})
        EXPECT_NEAR(course.velocityAt(time + 0.001) / course.velocityAt(time), 0.998, 1e-12);
}

TEST(Coasting, ItEndsExactlyWhereItSaidOnAPixel) {
    const ScrollCourse course = coast(10.5, 1000, kPace, kRange, true, kScale);
    const CGFloat target = coastTarget(10.5, 1000, kPace, kRange, kScale);
    EXPECT_EQ(target, 510); // 10.5 + 499.5
    EXPECT_EQ(course.target, target);
    EXPECT_EQ(course.positionAt(course.duration), target);
    EXPECT_NEAR(course.positionAt(course.duration - 1e-6), target, 0.2501);
    EXPECT_NEAR(course.duration, std::log(499.5 / 0.25) / kPace, 1e-9);
}

TEST(Coasting, WithoutVelocityItStaysWhereItIs) {
    const ScrollCourse course = coast(10.3, 0, kPace, kRange, true, kScale);
    EXPECT_EQ(course.duration, 0);
    EXPECT_EQ(course.target, 10.3);
}

TEST(Coasting, AtAnEndItSwingsOnceAndComesBack) {
    const ScrollCourse course = coast(900, 1000, kPace, kRange, true, kScale);
    EXPECT_EQ(course.target, 1000);
    EXPECT_NEAR(course.positionAt(course.turn), 1000, 1e-9);
    // A critically damped spring swings v / (e pace) far, 1 / pace after it was hit.
    const CGFloat velocity = course.velocityAt(course.turn);
    EXPECT_NEAR(velocity, 1000 - kPace * 100, 1e-6);
    EXPECT_NEAR(course.positionAt(course.turn + 0.1), 1000 + velocity / (10 * std::exp(1)), 1e-6);
    EXPECT_GT(course.positionAt(course.duration - 0.1), 1000);
    EXPECT_LE(std::abs(course.positionAt(course.duration - 1e-6) - 1000), 0.25);
    EXPECT_EQ(course.positionAt(course.duration), 1000);
    EXPECT_LT(largestStep(course), 1.01);
}

TEST(Coasting, WithoutBouncingItStopsAtTheEnd) {
    const ScrollCourse course = coast(900, 1000, kPace, kRange, false, kScale);
    EXPECT_EQ(course.duration, course.turn);
    EXPECT_EQ(course.positionAt(course.duration), 1000);
    EXPECT_LT(course.positionAt(course.duration - 0.01), 1000);
}

TEST(Coasting, FromBeyondAnEndItSpringsBack) {
    const ScrollCourse course = coast(-80, 0, kPace, kRange, true, kScale);
    EXPECT_EQ(course.positionAt(0), -80);
    EXPECT_EQ(course.target, -20);
    for (int i = 0; i < 100; ++i)
        EXPECT_LE(course.positionAt(i * 0.01), -20);
    EXPECT_NEAR(course.positionAt(0.1), -20 - 60 * 2 * std::exp(-1), 1e-9);
}

TEST(Coasting, ThrownBackFastEnoughFromBeyondAnEndItGoesOnInside) {
    EXPECT_EQ(coast(-80, 1000, kPace, kRange, true, kScale).target, 419.5);
    EXPECT_EQ(coast(-80, 60, kPace, kRange, true, kScale).target, -20);
    const ScrollCourse across = coast(-80, 4000, kPace, kRange, true, kScale);
    EXPECT_EQ(across.target, 1000);
    EXPECT_NEAR(across.positionAt(across.turn), 1000, 1e-9);
}

TEST(Coasting, AtAnEndAndThrownOutwardsItSwingsAtOnce) {
    const ScrollCourse course = coast(1000, 500, kPace, kRange, true, kScale);
    EXPECT_EQ(course.turn, 0);
    EXPECT_NEAR(course.positionAt(0.1), 1000 + 500 / (10 * std::exp(1)), 1e-9);
    EXPECT_EQ(coast(1000, 500, kPace, kRange, false, kScale).duration, 0);
}

TEST(Coasting, AnEndBetweenPixelsIsStillTheEnd) {
    const ScrollRange range{0, 100.3};
    const CGFloat velocity = 100.28 * kPace; // would rest 0.02 before the end, on the pixel behind it
    const ScrollCourse course = coast(0, velocity, kPace, range, true, kScale);
    EXPECT_EQ(course.target, 100.3);
    EXPECT_TRUE(std::isfinite(course.duration));
    for (int i = 0; i < 500; ++i)
        EXPECT_LE(course.positionAt(i * 0.01), 100.3);
}

// Settling and pages

TEST(Settling, ItDoesNotPassItsTarget) {
    for (const CGFloat velocity : {0.0, 100.0, 3000.0, 50000.0}) {
        const ScrollCourse course = settle(0, velocity, 320, kScale);
        EXPECT_NEAR(course.velocityAt(0), velocity, 1e-6);
        CGFloat last = 0;
        for (int i = 1; i < 1000; ++i) {
            const CGFloat position = course.positionAt(i * 0.001);
            ASSERT_GE(position, last) << velocity;
            ASSERT_LE(position, 320) << velocity;
            last = position;
        }
        EXPECT_LT(course.duration, 1.2) << velocity;
    }
}

TEST(Settling, ThrownAwayFromItsTargetItTurnsBack) {
    const ScrollCourse course = settle(100, -500, 320, kScale);
    EXPECT_LT(course.positionAt(0.02), 100);
    EXPECT_EQ(course.positionAt(course.duration), 320);
}

TEST(Pages, TheNearestOneOrTheNextOneInTheDirectionOfAThrow) {
    const ScrollRange range{0, 640};
    EXPECT_EQ(pageTarget(150, 0, 320, range), 0);
    EXPECT_EQ(pageTarget(170, 0, 320, range), 320);
    EXPECT_EQ(pageTarget(20, 300, 320, range), 320);
    EXPECT_EQ(pageTarget(300, -300, 320, range), 0);
    EXPECT_EQ(pageTarget(300, 100, 320, range), 320);
    EXPECT_EQ(pageTarget(650, 300, 320, range), 640);
    EXPECT_EQ(pageTarget(-10, -300, 320, range), 0);
    EXPECT_EQ(pageTarget(123, 300, 0, range), 123);
}

// Indicators

TEST(Indicators, TheyShowThePartAndThePlace) {
    const IndicatorSpan top = indicatorSpan(100, 400, {0, 400}, 0);
    EXPECT_EQ(top.start, 0);
    EXPECT_EQ(top.length, 50);
    EXPECT_EQ(indicatorSpan(100, 400, {0, 400}, 200).start, 25);
    EXPECT_EQ(indicatorSpan(100, 400, {0, 400}, 400).start, 50);
}

TEST(Indicators, TheyHaveALeastLengthAndAreSqueezedBeyondTheEnds) {
    EXPECT_EQ(indicatorSpan(100, 400, {0, 4e9}, 0).length, 36);
    EXPECT_EQ(indicatorSpan(20, 400, {0, 4e9}, 0).length, 20);
    const IndicatorSpan over = indicatorSpan(100, 400, {0, 400}, 430);
    EXPECT_EQ(over.length, 20);
    EXPECT_EQ(over.start, 80);
    EXPECT_EQ(indicatorSpan(100, 400, {0, 400}, -4000).length, 8);
    EXPECT_EQ(indicatorSpan(-5, 400, {0, 400}, 0).length, 0);
}

} // namespace zr::tests
