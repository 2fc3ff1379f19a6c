#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

#include <cmath>

namespace zr::tests {

using testing::ElementsAre;

namespace {

class ScrollDrags : public Scrolling {};

/// Where a rubber band shows a pull of so many points.
CGFloat banded(CGFloat pull, CGFloat length) { return (1 - 1 / (pull * 0.55 / length + 1)) * length; }
CGFloat onHalfPoint(CGFloat offset) { return std::floor(offset * 2 + 0.5) / 2; }

} // namespace

TEST_F(ScrollDrags, TheContentFollowsFromTheTenPointsOn) {
    host.touchDown({150, 400});
    host.touchMove({150, 391});
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_FALSE(view->isDragging());
    host.touchMove({150, 390});
    EXPECT_TRUE(view->isDragging());
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    host.touchMove({150, 380});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 10));
    host.touchMove({140, 300});
    EXPECT_EQ(view->contentOffset(), CGPointMake(10, 90));
    EXPECT_EQ(view->bounds(), CGRectMake(10, 90, 200, 400));
}

TEST_F(ScrollDrags, OneFastMoveLosesTheSameTenPoints) {
    host.touchDown({150, 400});
    host.touchMove({150, 300});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 90));
    host.touchCancel();
    view->setContentOffset_animated(CGPointMake(0, 100), false);
    host.touchDown({150, 400});
    host.touchMove({190, 430}); // 50 points on, of which 8 and 6 are the first ten
    EXPECT_EQ(view->contentOffset(), CGPointMake(onHalfPoint(-banded(32, 200)), 76));
}

TEST_F(ScrollDrags, WithoutVelocityTheDelegateIsToldOfTheDragAlone) {
    delegate->logsScrolling = true;
    host.touchDown({150, 400});
    EXPECT_TRUE(view->isTracking());
    EXPECT_FALSE(view->isDragging());
    host.touchMove({150, 380});
    EXPECT_THAT(news(), ElementsAre("will drag", "scrolled"));
    host.advance(0.2);
    host.touchUp();
    EXPECT_THAT(news(), ElementsAre("will end", "did end"));
    EXPECT_EQ(delegate->releaseVelocity, CGPointZero);
    EXPECT_EQ(delegate->target, CGPointMake(0, 10));
    EXPECT_FALSE(view->isTracking());
    EXPECT_FALSE(view->isDragging());
    EXPECT_FALSE(view->isDecelerating());
}

TEST_F(ScrollDrags, ThrownItDeceleratesToWhereTheDelegateWasTold) {
    delegate->act = [&](const std::string& what) {
        EXPECT_EQ(view->isDragging(), what == "will drag" || what == "will end") << what;
        EXPECT_EQ(view->isDecelerating(), what == "will decelerate") << what;
    };
    drag({150, 450}, {0, -60}); // 600 points a second
    host.touchUp();
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end, goes on", "will decelerate"));
    EXPECT_NEAR(delegate->releaseVelocity.y, 0.6, 1e-9);
    EXPECT_EQ(delegate->releaseVelocity.x, 0);
    EXPECT_EQ(delegate->target, CGPointMake(0, 349.5)); // 50 + 600 / 2.002
    host.advance(0.5);
    const CGFloat pace = -1000 * std::log(0.998);
    // Whole ticks are looked at: the last one was at 0.5 s exactly.
    EXPECT_EQ(view->contentOffset().y, onHalfPoint(349.5 - 299.5 * std::exp(-0.5 * pace)));
    EXPECT_THAT(news(), ElementsAre());
    host.advance(5);
    EXPECT_THAT(news(), ElementsAre("at rest"));
    EXPECT_EQ(view->contentOffset(), delegate->target);
}

TEST_F(ScrollDrags, AFingerThatRestsBeforeItGoesUpDoesNotThrow) {
    drag({150, 450}, {0, -60});
    host.advance(0.1);
    host.touchUp();
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end"));
}

TEST_F(ScrollDrags, AFingerThatGoesUpSlowlyLeavesTheContentWhereItIs) {
    drag({150, 450}, {0, -60});
    host.touchMove({150, 386}, 0.1); // 40 points a second
    host.touchUp();
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end"));
    EXPECT_EQ(delegate->releaseVelocity, CGPointZero);
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 54));
}

TEST_F(ScrollDrags, ADragEndsAnAnimatedChangeThatBeganUnderTheFinger) {
    host.touchDown({150, 400});
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(0.15);
    host.touchMove({150, 390});
    EXPECT_THAT(news(), ElementsAre("animated", "will drag"));
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 150));
    host.touchMove({150, 380});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 160));
}

TEST_F(ScrollDrags, BeyondAnEndItResistsAndSpringsBack) {
    drag({150, 200}, {0, 110});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, onHalfPoint(-banded(100, 400))));
    host.advance(0.2);
    host.touchUp();
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end, goes on", "will decelerate"));
    EXPECT_EQ(delegate->target, CGPointZero);
    host.advance(0.1);
    const CGFloat start = -onHalfPoint(banded(100, 400));
    EXPECT_EQ(view->contentOffset().y, onHalfPoint(start * 2 * std::exp(-1)));
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_THAT(news(), ElementsAre("at rest"));
}

TEST_F(ScrollDrags, BackToTheEndTheFingerIsWhereItWas) {
    drag({150, 200}, {0, 110});
    host.touchMove({150, 200});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 10));
}

TEST_F(ScrollDrags, WithoutBouncingItStopsAtItsEnds) {
    view->setBounces(false);
    drag({150, 200}, {0, 110});
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    host.touchMove({150, 100}, 0.1);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 110));
    host.touchMove({150, -900}, 0.5);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 400));
    host.touchUp();
    EXPECT_FALSE(view->isDecelerating());
}

TEST_F(ScrollDrags, WhatFitsDoesNotMoveUnlessItAlwaysBounces) {
    view->setContentSize(CGSizeMake(200, 400));
    drag({150, 200}, {0, 60});
    EXPECT_FALSE(view->isDragging());
    EXPECT_TRUE(view->isTracking());
    host.touchUp();
    EXPECT_FALSE(view->isTracking());
    EXPECT_THAT(news(), ElementsAre());
    view->setAlwaysBounceVertical(true);
    drag({150, 200}, {30, 60});
    EXPECT_TRUE(view->isDragging());
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, onHalfPoint(-banded(50, 400))));
    view->setBounces(false);
    host.touchCancel();
    drag({150, 200}, {0, 60});
    EXPECT_FALSE(view->isDragging());
    host.touchCancel();
    host.advance(1);
    view->setBounces(true);
    view->setAlwaysBounceVertical(false);
    view->setAlwaysBounceHorizontal(true);
    drag({150, 200}, {60, 30});
    EXPECT_TRUE(view->isDragging());
    EXPECT_LT(view->contentOffset().x, 0);
    EXPECT_EQ(view->contentOffset().y, 0);
}

TEST_F(ScrollDrags, OneWayOnlyItTakesDragsThatGoMoreThatWay) {
    view->setContentSize(CGSizeMake(200, 800));
    host.touchDown({150, 300});
    host.touchMove({180, 280});
    EXPECT_FALSE(view->isDragging());
    host.touchMove({180, 270});
    EXPECT_TRUE(view->isDragging());
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 20));
    host.touchMove({100, 260});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 30));
}

TEST_F(ScrollDrags, ALockedDragStaysOnItsAxisUnlessItIsDiagonal) {
    view->setDirectionalLockEnabled(true);
    drag({150, 400}, {-5, -50});
    host.touchMove({50, 350});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 40));
    host.touchCancel();
    host.advance(1);
    view->setContentOffset_animated(CGPointZero, false);
    host.touchDown({150, 400});
    host.touchMove({110, 370}); // 40 and 30: 50 points
    EXPECT_EQ(view->contentOffset(), CGPointMake(32, 24));
}

TEST_F(ScrollDrags, TheDelegateChoosesTheTargetWithinTheRange) {
    delegate->onRelease = [](CGPoint* target) { *target = CGPointMake(120, 5000); };
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(3);
    EXPECT_EQ(view->contentOffset(), CGPointMake(120, 400));
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end, goes on", "will decelerate", "at rest"));
}

TEST_F(ScrollDrags, AChosenTargetThatIsNoNumberIsIgnored) {
    delegate->onRelease = [](CGPoint* target) { *target = CGPointMake(std::nan(""), HUGE_VAL); };
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(5);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 349.5));
}

TEST_F(ScrollDrags, ATargetChosenForARestingFingerIsHeadedForToo) {
    delegate->onRelease = [](CGPoint* target) { target->y = 200; };
    dragAndHold({150, 450}, {0, -60});
    EXPECT_TRUE(view->isDecelerating());
    host.advance(3);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 200));
}

TEST_F(ScrollDrags, PagesTurnOneAtATime) {
    view->setPagingEnabled(true);
    view->setContentSize(CGSizeMake(1000, 400));
    drag({240, 300}, {-60, 0});
    host.touchUp();
    EXPECT_EQ(delegate->target, CGPointMake(200, 0));
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointMake(200, 0));
    dragAndHold({240, 300}, {-60, 0});
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointMake(200, 0)) << "not half way";
    dragAndHold({240, 300}, {-120, 0});
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointMake(400, 0)) << "more than half way";
    drag({100, 300}, {60, 0});
    host.touchUp();
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointMake(200, 0)) << "thrown back";
}

TEST_F(ScrollDrags, ACancelledDragEndsWithoutVelocityAndComesBack) {
    drag({150, 200}, {0, 110});
    host.touchCancel();
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end, goes on", "will decelerate"));
    EXPECT_EQ(delegate->releaseVelocity, CGPointZero);
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(ScrollDrags, AFingerStopsWhatMoves) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.1);
    news();
    const CGPoint offset = view->contentOffset();
    host.touchDown({150, 300});
    EXPECT_THAT(news(), ElementsAre("at rest"));
    EXPECT_FALSE(view->isDecelerating());
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), offset);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), offset);
    EXPECT_THAT(news(), ElementsAre());
}

TEST_F(ScrollDrags, WhatAFingerStopsBeyondAnEndGoesBackWhenItIsLetGoOf) {
    drag({150, 200}, {0, 110});
    host.touchUp();
    host.advance(0.05);
    host.touchDown({150, 300});
    const CGPoint offset = view->contentOffset();
    EXPECT_LT(offset.y, 0);
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), offset);
    news();
    host.touchUp();
    EXPECT_THAT(news(), ElementsAre("will decelerate"));
    host.advance(2);
    EXPECT_THAT(news(), ElementsAre("at rest"));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(ScrollDrags, ADragFromBeyondAnEndTakesUpTheBandWhereItIs) {
    drag({150, 200}, {0, 110});
    host.touchUp();
    host.advance(0.05);
    host.touchDown({150, 300});
    const CGPoint held = view->contentOffset();
    host.touchMove({150, 310});
    EXPECT_EQ(view->contentOffset(), held);
    host.touchMove({150, 311});
    EXPECT_LE(view->contentOffset().y, held.y);
    EXPECT_GE(view->contentOffset().y, held.y - 1);
}

TEST_F(ScrollDrags, TheFrameRateDoesNotChangeTheWay) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    std::vector<CGFloat> offsets;
    delegate->onScroll = [&](UIScrollView* scrolled) { offsets.push_back(scrolled->contentOffset().y); };
    host.advance(6);
    EXPECT_EQ(offsets.back(), 349.5);
    const CGFloat pace = -1000 * std::log(0.998);
    // One tick a sixtieth of a second, each where the formula says.
    for (std::size_t i = 0; i < 80; ++i) {
        const NSTimeInterval time = static_cast<double>((i + 1) * 1'000'000'000 / 60) / 1e9;
        ASSERT_EQ(offsets[i], onHalfPoint(349.5 - 299.5 * std::exp(-time * pace))) << i;
    }
}

} // namespace zr::tests
