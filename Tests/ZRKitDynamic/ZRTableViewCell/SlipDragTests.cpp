// Which drags swipe a row, and how the row follows the finger.

#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

#include <cmath>

namespace zr::testing {

namespace {

class SlipDrag : public SwipeTest {
protected:
    using SwipeTest::SwipeTest;

    UIPanGestureRecognizer* pan(NSInteger row) const {
        return dynamic_cast<UIPanGestureRecognizer*>(cell(row)->gestureRecognizers().at(0).get());
    }
    /// The state of the row's drag after the finger has moved so far at once.
    UIGestureRecognizerState stateAfter(CGFloat x, CGFloat y) {
        host.touchDown({200, middleOfRow(3)});
        host.touchMove({200 + x, middleOfRow(3) + y});
        const UIGestureRecognizerState state = pan(3)->state();
        host.touchCancel();
        return state;
    }
};

class SlipDragOnSystem5 : public SlipDrag {
protected:
    SlipDragOnSystem5() : SlipDrag("5.1.1") {}
};

class SlipDragOnSystem6 : public SlipDrag {
protected:
    SlipDragOnSystem6() : SlipDrag("6.0") {}
};

class SlipDragOnSystem10 : public SlipDrag {
protected:
    SlipDragOnSystem10() : SlipDrag("10.3") {}
};

/// Notes its states, and lets any other one be recognised at the same time.
class Follower : public NSObject {
public:
    void moved(UIPanGestureRecognizer* recognizer) { states.push_back(recognizer->state()); }

    std::vector<UIGestureRecognizerState> states;
};

} // namespace

// The recogniser

TEST_F(SlipDrag, IsRecognisedByTheCellAsAWhole) {
    const MessageCell* first = cell(0);
    ASSERT_EQ(first->gestureRecognizers().size(), 1u);
    EXPECT_TRUE(first->contentView()->gestureRecognizers().empty());
    EXPECT_EQ(pan(0)->delegate(), static_cast<const UIGestureRecognizerDelegate*>(first));
    EXPECT_EQ(pan(0)->retainCount(), 1u) << "the view alone keeps it";
}

TEST_F(SlipDrag, ANewCellRestsWhereItsContentIs) {
    const auto loose =
        make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    loose->contentView()->setCenter({30, 22});
    loose->resetSwipButton();
    EXPECT_EQ(loose->contentView()->center(), CGPointMake(160, 22));
}

// Whether a drag begins

TEST_F(SlipDrag, BeginsWhenItIsAtLeastAsHorizontalAsVertical) {
    EXPECT_EQ(stateAfter(-20, 0), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(20, 0), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(-20, 20), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(20, -20), UIGestureRecognizerStateBegan);
    EXPECT_EQ(stateAfter(-20, 20.5), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(-20, -20.5), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(0, 20), UIGestureRecognizerStateFailed);
}

TEST_F(SlipDrag, BeginsWithoutAWayToo) { EXPECT_TRUE(cell(1)->gestureRecognizerShouldBegin(pan(1))); }

TEST_F(SlipDrag, DirectionsAreThoseOfTheTable) {
    // Turned by a quarter, what is horizontal in the table is vertical on the screen.
    table->setTransform(CGAffineTransformMakeRotation(M_PI_2));
    host.advance(0);
    const CGPoint start = cell(3)->convertPoint_toView({200, 30}, nullptr);
    host.touchDown(start);
    host.touchMove({start.x, start.y - 20});
    EXPECT_EQ(pan(3)->state(), UIGestureRecognizerStateBegan);
    host.touchCancel();
    host.touchDown(start);
    host.touchMove({start.x - 20, start.y});
    EXPECT_EQ(pan(3)->state(), UIGestureRecognizerStateFailed);
    host.touchCancel();
}

TEST_F(SlipDrag, DirectionsAreNotThoseOfTheRow) {
    cell(3)->setTransform(CGAffineTransformMakeRotation(M_PI_2));
    const CGPoint start{kRest, middleOfRow(3)};
    host.touchDown(start);
    host.touchMove({start.x - 20, start.y});
    EXPECT_EQ(pan(3)->state(), UIGestureRecognizerStateBegan);
    host.touchCancel();
    host.touchDown(start);
    host.touchMove({start.x, start.y - 20});
    EXPECT_EQ(pan(3)->state(), UIGestureRecognizerStateFailed);
    host.touchCancel();
}

TEST_F(SlipDrag, LetsEveryOtherRecogniserBegin) {
    const auto tap = make<UITapGestureRecognizer>();
    const auto otherPan = make<UIPanGestureRecognizer>();
    EXPECT_TRUE(cell(1)->gestureRecognizerShouldBegin(tap));
    EXPECT_TRUE(cell(1)->gestureRecognizerShouldBegin(otherPan));
    EXPECT_TRUE(cell(1)->gestureRecognizerShouldBegin(nullptr));
    cell(1)->removeGestureRecognizer(pan(1));
    EXPECT_TRUE(cell(1)->gestureRecognizerShouldBegin(nullptr)) << "none is not the row's, now that it has none";
}

TEST_F(SlipDrag, LetsNoneBeginWhileARowIsSwiped) {
    const auto tap = make<UITapGestureRecognizer>();
    table->setZrIsSwipped(true);
    EXPECT_FALSE(cell(1)->gestureRecognizerShouldBegin(pan(1)));
    EXPECT_FALSE(cell(1)->gestureRecognizerShouldBegin(tap));
    EXPECT_EQ(stateAfter(-20, 0), UIGestureRecognizerStateFailed);
    table->setZrIsSwipped(false);
    EXPECT_TRUE(cell(1)->gestureRecognizerShouldBegin(tap));
}

TEST_F(SlipDragOnSystem6, LetsNoneBeginWhileARowIsSwiped) {
    table->setZrIsSwipped(true);
    EXPECT_EQ(stateAfter(-20, 0), UIGestureRecognizerStateFailed);
}

TEST_F(SlipDragOnSystem10, LetsNoneBeginWhileARowIsSwiped) {
    table->setZrIsSwipped(true);
    EXPECT_EQ(stateAfter(-20, 0), UIGestureRecognizerStateFailed) << "the version is a number here, not a text";
}

TEST_F(SlipDragOnSystem5, BeginsWhileARowIsSwipedButMovesNothing) {
    swipeOpen(1);
    const bool cancels = pan(3)->cancelsTouchesInView();
    beginDrag(3);
    EXPECT_EQ(pan(3)->state(), UIGestureRecognizerStateBegan);
    EXPECT_EQ(pan(3)->cancelsTouchesInView(), cancels);
    drag(100);
    EXPECT_EQ(cell(3)->contentX(), kRest);
    EXPECT_EQ(cell(3)->strip(), nullptr);
    letGo();
    host.advance(1);
    expectClosed(1);
    expectClosed(3);
}

TEST_F(SlipDragOnSystem5, TheEndOfADragThatMovedNothingFreesTheTable) {
    table->setZrIsSwipped(true);
    table->setScrollEnabled(false);
    swipe(3);
    EXPECT_FALSE(table->zrIsSwipped());
    settle();
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(SlipDragOnSystem5, ADirectionStillCounts) {
    EXPECT_EQ(stateAfter(-20, 20.5), UIGestureRecognizerStateFailed);
    EXPECT_EQ(stateAfter(-20, 20), UIGestureRecognizerStateBegan);
}

// Together with other gestures

TEST_F(SlipDrag, GoesTogetherWithOthersWhileItHasNoVerticalSpeed) {
    const auto other = make<UIPanGestureRecognizer>();
    const auto goesTogetherAt = [&](CGFloat down) {
        host.touchDown({300, middleOfRow(3)});
        host.touchMove({280, middleOfRow(3) + down}, 0.1);
        const bool both = cell(3)->gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(pan(3), other);
        EXPECT_NEAR(std::abs(pan(3)->velocityInView(cell(3)).y), std::abs(down) * 10, 1e-6);
        host.touchCancel();
        return both;
    };
    EXPECT_TRUE(goesTogetherAt(0));
    EXPECT_TRUE(goesTogetherAt(0.0199));
    EXPECT_TRUE(goesTogetherAt(-0.0199));
    EXPECT_FALSE(goesTogetherAt(0.0201));
    EXPECT_FALSE(goesTogetherAt(-0.0201));
    EXPECT_FALSE(goesTogetherAt(5));
}

TEST_F(SlipDrag, ASpeedOfAFifthOfAPointGoesTogether) {
    // At the screen's upper edge, where the numbers are exact.
    host.touchDown({300, 0});
    host.touchMove({280, 0});
    host.advance(0.5);
    host.touchMove({270, 0.1});
    ASSERT_EQ(pan(0)->velocityInView(cell(0)).y, 0.2);
    EXPECT_TRUE(cell(0)->gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(pan(0), nullptr));
    host.touchCancel();
}

TEST_F(SlipDrag, SpeedCountsInTheRecognisersOwnView) {
    // Turned by an eighth, what is diagonal for the table is horizontal for the row.
    cell(3)->setTransform(CGAffineTransformMakeRotation(M_PI_4));
    const CGPoint start{kRest, middleOfRow(3)};
    host.touchDown(start);
    host.touchMove({start.x - 40, start.y - 40}, 0.1);
    ASSERT_GT(std::abs(pan(3)->velocityInView(table).y), 100);
    EXPECT_TRUE(cell(3)->gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(pan(3), nullptr));
    host.touchCancel();
}

TEST_F(SlipDrag, OtherRecognisersGoTogetherWithAll) {
    const auto tap = make<UITapGestureRecognizer>();
    host.touchDown({300, 200});
    host.touchMove({280, 210}, 0.1);
    EXPECT_TRUE(cell(3)->gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(tap, pan(3)));
    host.touchUp();
}

TEST_F(SlipDrag, APanOfTheTableGoesAlongWithAnEvenSwipeOnly) {
    const auto follower = make<Follower>();
    const auto other = make<UIPanGestureRecognizer>(&UIGestureRecognizer::initWithTarget_action, follower.get(),
                                                    selector<&Follower::moved>);
    table->addGestureRecognizer(other);
    host.touchDown({300, 200});
    host.touchMove({240, 200}, 0.1);
    host.touchUp();
    EXPECT_FALSE(follower->states.empty());
    follower->states.clear();
    cell(3)->resetSwipButton();
    host.touchDown({300, 200});
    host.touchMove({240, 205}, 0.1);
    host.touchUp();
    EXPECT_TRUE(follower->states.empty());
}

TEST_F(SlipDrag, WhatBeginsAsASwipeDoesNotScroll) {
    beginDrag(3);
    drag(50);
    host.touchMove({240, 50}, 0.5);
    EXPECT_EQ(table->contentOffset(), CGPointZero);
    EXPECT_EQ(cell(3)->contentX(), kRest - 50) << "vertical moves do not count";
    letGo();
    host.advance(1);
    EXPECT_EQ(table->contentOffset(), CGPointZero);
}

TEST_F(SlipDrag, WhatBeginsAsAScrollDoesNotSwipe) {
    host.touchDown({300, 400});
    host.touchMove({300, 300}, 0.2);
    host.touchMove({100, 300}, 0.2);
    EXPECT_GT(table->contentOffset().y, 50);
    EXPECT_TRUE(list->askedWhether.empty());
    EXPECT_TRUE(list->askedForActions.empty());
    for (const auto& each : table->visibleCells())
        EXPECT_EQ(each->contentView()->center().x, kRest);
    host.touchUp();
}

TEST_F(SlipDrag, ASwipeTapsNothing) {
    int taps = 0;
    cell(3)->setCellSelectedBlock([&taps] { ++taps; });
    host.touchDown({300, middleOfRow(3)});
    host.advance(0.3); // the row knows of the finger by now
    EXPECT_TRUE(cell(3)->isHighlighted());
    host.touchMove({200, middleOfRow(3)}, 0.2);
    EXPECT_FALSE(cell(3)->isHighlighted());
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(taps, 0);
    EXPECT_EQ(selectedRow(), NSIndexPath());
    expectOpen(3);
}

// Following the finger

TEST_F(SlipDrag, ContentAndStripFollowTheFinger) {
    beginDrag(3);
    for (const CGFloat distance : {1.0, 50.0, 139.0, 20.0}) {
        drag(distance);
        EXPECT_EQ(cell(3)->contentX(), kRest - distance);
        EXPECT_EQ(cell(3)->stripX(), 320 - distance + 70) << "its left edge is the content's right one";
        EXPECT_EQ(cell(3)->seenContentX(), kRest - distance) << "at once";
    }
    letGo();
}

TEST_F(SlipDrag, DistancesCountFromWhereTheDragBegins) {
    host.touchDown({300, middleOfRow(3)});
    host.touchMove({250, middleOfRow(3)});
    EXPECT_EQ(cell(3)->contentX(), kRest);
    host.touchMove({240, middleOfRow(3)});
    EXPECT_EQ(cell(3)->contentX(), kRest - 10);
    host.touchUp();
}

TEST_F(SlipDrag, VerticalPlacesAreKept) {
    beginDrag(3);
    drag(10);
    cell(3)->contentView()->setCenter({kRest, 33});
    drag(20, 12);
    EXPECT_EQ(cell(3)->contentView()->center(), CGPointMake(kRest - 20, 33));
    EXPECT_EQ(cell(3)->strip()->center().y, 33);
    letGo();
}

TEST_F(SlipDrag, TheStripStaysAtTheEdgeWhileTheContentGoesOn) {
    beginDrag(3);
    drag(140);
    EXPECT_EQ(cell(3)->contentX(), kRest - 140);
    EXPECT_EQ(cell(3)->stripX(), 250);
    drag(200);
    EXPECT_EQ(cell(3)->contentX(), kRest - 200);
    EXPECT_EQ(cell(3)->stripX(), 250) << "a gap between them";
    drag(100);
    EXPECT_EQ(cell(3)->stripX(), 290);
    letGo();
}

TEST_F(SlipDrag, TheContentGoesEightPointsToTheRight) {
    beginDrag(3, 200);
    drag(-5);
    EXPECT_EQ(cell(3)->contentX(), kRest + 5);
    EXPECT_EQ(cell(3)->stripX(), 320 + 5 + 70);
    drag(-8);
    EXPECT_EQ(cell(3)->contentX(), kRest + 8);
    drag(-60);
    EXPECT_EQ(cell(3)->contentX(), kRest + 8);
    EXPECT_EQ(cell(3)->stripX(), 320 + 8 + 70);
    drag(-1);
    EXPECT_EQ(cell(3)->contentX(), kRest + 1) << "and comes back";
    letGo();
    settle();
    expectClosed(3);
}

TEST_F(SlipDrag, ContentThatIsFurtherRightThanThatIsLeftAlone) {
    beginDrag(3);
    cell(3)->contentView()->setCenter({kRest + 8.5, 30});
    drag(40);
    EXPECT_EQ(cell(3)->contentX(), kRest + 8.5);
    EXPECT_NE(cell(3)->strip(), nullptr) << "the strip is built all the same";
    EXPECT_EQ(cell(3)->stripX(), 320 + 70);
    cell(3)->contentView()->setCenter({kRest + 8, 30});
    drag(41);
    EXPECT_EQ(cell(3)->contentX(), kRest - 41);
    letGo();
}

TEST_F(SlipDrag, ARowThatMayNotBeSwipedDoesNotMove) {
    list->canEdit = [](const NSIndexPath& path) { return path.row() != 3; };
    beginDrag(3);
    drag(100);
    EXPECT_EQ(cell(3)->contentX(), kRest);
    EXPECT_EQ(cell(3)->strip(), nullptr);
    letGo();
    host.advance(1);
    expectClosed(3);
    EXPECT_TRUE(list->askedForActions.empty());
    swipeOpen(4);
    expectOpen(4);
}

TEST_F(SlipDrag, MovesAreIgnoredWhileTheTableSaysThatARowIsSwiped) {
    beginDrag(3);
    drag(30);
    table->setZrIsSwipped(true);
    drag(60);
    EXPECT_EQ(cell(3)->contentX(), kRest - 30);
    table->setZrIsSwipped(false);
    drag(61);
    EXPECT_EQ(cell(3)->contentX(), kRest - 61);
    letGo();
}

TEST_F(SlipDrag, ACancelledDragLeavesTheContentWhereItIs) {
    beginDrag(3);
    drag(90);
    host.touchCancel();
    host.advance(1);
    EXPECT_EQ(cell(3)->contentX(), kRest - 90);
    EXPECT_EQ(cell(3)->stripX(), 320 - 90 + 70);
    EXPECT_FALSE(table->zrIsSwipped());
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(SlipDrag, TheDragAfterACancelledOneTakesThatForThePlaceOfRest) {
    beginDrag(3);
    drag(50);
    host.touchCancel();
    const CGFloat rest = kRest - 50;
    beginDrag(3);
    drag(20);
    EXPECT_EQ(cell(3)->contentX(), rest - 20);
    EXPECT_EQ(cell(3)->stripX(), rest - 20 + rest + 70);
    drag(150);
    EXPECT_EQ(cell(3)->stripX(), 250) << "beyond the strip it is at the edge all the same";
    drag(20);
    letGo();
    EXPECT_EQ(cell(3)->stripX(), 2 * rest + 70) << "as far from the content as it can be seen to go";
    settle();
    EXPECT_EQ(cell(3)->contentX(), rest);
    EXPECT_EQ(cell(3)->strip(), nullptr);
}

TEST_F(SlipDrag, AFingerThatDoesNotMoveAfterTheBeginningClosesNothingOpen) {
    beginDrag(3);
    letGo();
    host.advance(1);
    expectClosed(3);
    EXPECT_TRUE(list->askedForActions.empty());
}

} // namespace zr::testing
