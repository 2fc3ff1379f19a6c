// How a row that is let go opens and closes, and what an open one does to the others.

#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

namespace zr::testing {

namespace {

class SlipSettling : public SwipeTest {
protected:
    /// Whether a row is open that was let go there.
    bool opensAt(CGFloat distance) {
        swipe(3, distance);
        host.advance(1);
        const bool isOpen = table->zrIsSwipped();
        cell(3)->resetSwipButton();
        tapRow(0); // which the table takes for the end of what was open
        return isOpen;
    }
};

} // namespace

// Where the row goes

TEST_F(SlipSettling, ARowOpensWhenItIsDraggedFurtherThanOneButton) {
    EXPECT_FALSE(opensAt(0));
    EXPECT_FALSE(opensAt(-5));
    EXPECT_FALSE(opensAt(69.5));
    EXPECT_FALSE(opensAt(70));
    EXPECT_TRUE(opensAt(70.5));
    EXPECT_TRUE(opensAt(71));
    EXPECT_TRUE(opensAt(200));
}

TEST_F(SlipSettling, OneButtonCountsHoweverManyThereAre) {
    giveActions({action(80), action(80), action(80)});
    swipe(3, 80);
    host.advance(1);
    expectClosed(3);
    swipe(3, 81);
    host.advance(1);
    expectOpen(3, 240);
}

TEST_F(SlipSettling, TheLastButtonsWidthCounts) {
    giveActions({action(90), action(40)});
    swipe(3, 40);
    host.advance(1);
    expectClosed(3);
    swipe(3, 41);
    host.advance(1);
    expectOpen(3, 80);
}

TEST_F(SlipSettling, WhereTheFingerIsCountsNotWhereItWas) {
    beginDrag(3);
    drag(200);
    drag(70);
    letGo();
    host.advance(1);
    expectClosed(3);
}

TEST_F(SlipSettling, ARowWithoutButtonsOpensOntoNothing) {
    giveActions({});
    swipe(3, 1);
    host.advance(1);
    EXPECT_EQ(cell(3)->contentX(), kRest);
    EXPECT_TRUE(table->zrIsSwipped());
    EXPECT_FALSE(table->isScrollEnabled());
    tapRow(5);
    host.advance(1);
    expectClosed(3);
}

TEST_F(SlipSettling, ARowThatMayNotBeSwipedAnyMoreStaysWhereItIs) {
    beginDrag(3);
    drag(100);
    list->canEdit = [](const NSIndexPath&) { return false; };
    letGo();
    host.advance(1);
    EXPECT_EQ(cell(3)->contentX(), kRest - 100);
    EXPECT_FALSE(table->zrIsSwipped());
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(SlipSettling, AStripWithoutButtonsKeepsTheWidthThatCounts) {
    giveActions({action(70)});
    swipe(3, 60);
    settle();
    giveActions({});
    swipe(3, 60);
    host.advance(1);
    expectClosed(3);
    swipe(3, 71);
    host.advance(1);
    EXPECT_TRUE(table->zrIsSwipped());
}

// Opening

TEST_F(SlipSettling, OpensWithinAFifthOfASecond) {
    swipe(3, 90);
    EXPECT_EQ(cell(3)->contentX(), kRest - 140);
    EXPECT_EQ(cell(3)->stripX(), 250);
    EXPECT_EQ(cell(3)->seenContentX(), kRest - 90);
    EXPECT_EQ(cell(3)->seenStripX(), 320 - 90 + 70);
    host.advance(0.1);
    EXPECT_NEAR(cell(3)->seenContentX(), kRest - 115, 0.01);
    EXPECT_NEAR(cell(3)->seenStripX(), 275, 0.01);
    host.advance(0.099);
    EXPECT_GT(cell(3)->seenContentX(), kRest - 140);
    host.advance(0.001);
    EXPECT_EQ(cell(3)->seenContentX(), kRest - 140);
    EXPECT_EQ(cell(3)->seenStripX(), 250);
}

TEST_F(SlipSettling, LocksTheTableFromTheMomentItOpens) {
    swipe(3, 90);
    EXPECT_TRUE(table->zrIsSwipped());
    EXPECT_FALSE(table->isScrollEnabled());
    host.advance(10);
    expectOpen(3);
    EXPECT_FALSE(table->isScrollEnabled());
    host.touchDown({100, 400});
    host.touchMove({100, 200}, 0.2);
    EXPECT_EQ(table->contentOffset(), CGPointZero);
    host.touchUp();
}

TEST_F(SlipSettling, ARowThatIsPulledTooFarComesBack) {
    swipe(3, 200);
    settle();
    expectOpen(3);
    EXPECT_EQ(cell(3)->seenContentX(), kRest - 140);
}

// Closing after a short drag

TEST_F(SlipSettling, ClosesWithinAFifthOfASecond) {
    swipe(3, 60);
    EXPECT_EQ(cell(3)->contentX(), kRest);
    EXPECT_EQ(cell(3)->stripX(), 390);
    EXPECT_EQ(cell(3)->seenContentX(), kRest - 60);
    host.advance(0.1);
    EXPECT_NEAR(cell(3)->seenContentX(), kRest - 30, 0.01);
    EXPECT_NEAR(cell(3)->seenStripX(), 360, 0.01);
    host.advance(0.099);
    EXPECT_NE(cell(3)->strip(), nullptr);
    host.advance(0.001);
    expectClosed(3);
}

TEST_F(SlipSettling, ARowThatClosesAfterAShortDragHoldsNoOtherUp) {
    table->setZrIsSwipped(false);
    table->setScrollEnabled(false);
    swipe(3, 60);
    EXPECT_FALSE(table->zrIsSwipped());
    EXPECT_FALSE(table->isScrollEnabled()) << "it is let go at the end";
    host.advance(0.199);
    EXPECT_FALSE(table->isScrollEnabled());
    host.advance(0.001);
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(SlipSettling, ARowThatHasClosedLetsNoTableScrollInWhichAnotherOneHasOpened) {
    swipe(3, 60);
    host.advance(0.1);
    swipe(5, 100);
    host.advance(1);
    expectOpen(5);
    EXPECT_EQ(cell(3)->strip(), nullptr);
    EXPECT_FALSE(table->isScrollEnabled());
}

TEST_F(SlipSettling, AShortDragIsNotKnownToTheTable) {
    swipe(3, 60);
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5));
}

TEST_F(SlipSettling, ARowThatIsCaughtWhileItClosesKeepsItsStrip) {
    swipe(3, 60);
    host.advance(0.1);
    beginDrag(3);
    drag(100);
    UIView* strip = cell(3)->strip();
    ASSERT_NE(strip, nullptr);
    host.advance(0.1);
    EXPECT_EQ(cell(3)->seenContentX(), kRest - 100) << "it has caught up with the finger";
    host.advance(0.5);
    EXPECT_EQ(cell(3)->strip(), strip);
    letGo();
    host.advance(1);
    expectOpen(3);
    EXPECT_EQ(list->askedForActions.size(), 1u);
}

// Closing by the table

TEST_F(SlipSettling, ATouchClosesWithinAFifthOfASecond) {
    swipeOpen(3);
    tapRow(6);
    EXPECT_EQ(cell(3)->contentX(), kRest);
    EXPECT_EQ(cell(3)->stripX(), 390);
    EXPECT_EQ(cell(3)->seenContentX(), kRest - 140);
    host.advance(0.1);
    EXPECT_NEAR(cell(3)->seenContentX(), kRest - 70, 0.01);
    EXPECT_NEAR(cell(3)->seenStripX(), 320, 0.01);
    host.advance(0.099);
    EXPECT_NE(cell(3)->strip(), nullptr);
    EXPECT_TRUE(table->zrIsSwipped());
    EXPECT_FALSE(table->isScrollEnabled());
    host.advance(0.001);
    expectClosed(3);
}

TEST_F(SlipSettling, WhileARowClosesNoOtherOneCanBeSwiped) {
    swipeOpen(3);
    tapRow(6);
    beginDrag(5);
    drag(100);
    EXPECT_EQ(cell(5)->contentX(), kRest);
    letGo();
    host.advance(1);
    expectClosed(3);
    expectClosed(5);
    swipeOpen(5);
    expectOpen(5);
}

TEST_F(SlipSettling, ATouchWhileARowOpensTurnsItRound) {
    swipe(3, 90);
    host.advance(0.1);
    tapRow(6);
    EXPECT_NEAR(cell(3)->seenContentX(), kRest - 115, 0.01) << "it goes on from where it is";
    host.advance(0.199);
    EXPECT_TRUE(table->zrIsSwipped());
    host.advance(0.001);
    expectClosed(3);
}

// Closing at once

TEST_F(SlipSettling, AResetClosesAtOnce) {
    swipeOpen(3);
    cell(3)->resetSwipButton();
    expectClosed(3);
}

TEST_F(SlipSettling, AResetInsideAnAnimationClosesAtOnceToo) {
    swipeOpen(3);
    UIView::animateWithDuration_animations(1, [this] { cell(3)->resetSwipButton(); });
    expectClosed(3);
}

TEST_F(SlipSettling, AResetWhileTheRowMovesClosesAtOnce) {
    swipe(3);
    host.advance(0.1);
    cell(3)->resetSwipButton();
    expectClosed(3);
    host.advance(1);
    expectClosed(3);
    swipeOpen(4);
    tapRow(6);
    host.advance(0.1);
    cell(4)->resetSwipButton();
    expectClosed(4);
    swipeOpen(5);
    host.advance(1);
    expectOpen(5);
    EXPECT_FALSE(table->isScrollEnabled()) << "nothing is left of the row that was closing";
}

TEST_F(SlipSettling, AResetKeepsTheContentsHeight) {
    swipeOpen(3);
    cell(3)->contentView()->setCenter({20, 33});
    cell(3)->resetSwipButton();
    EXPECT_EQ(cell(3)->contentView()->center(), CGPointMake(kRest, 33));
}

TEST_F(SlipSettling, AfterAResetByTheApplicationTheNextTouchStillGoesIntoClosing) {
    swipeOpen(3);
    cell(3)->resetSwipButton();
    tapRow(5);
    EXPECT_EQ(selectedRow(), NSIndexPath());
    settle();
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5));
}

// One at a time

TEST_F(SlipSettling, WhileARowIsOpenADragOfAnotherDoesNothingButCloseIt) {
    swipeOpen(3);
    beginDrag(5);
    drag(100);
    EXPECT_EQ(cell(5)->contentX(), kRest);
    EXPECT_EQ(cell(5)->strip(), nullptr);
    letGo();
    host.advance(1);
    expectClosed(3);
    expectClosed(5);
    EXPECT_EQ(selectedRow(), NSIndexPath());
}

TEST_F(SlipSettling, ADragOfTheOpenRowItselfDoesNothingButCloseIt) {
    swipeOpen(3);
    beginDrag(3, 150);
    drag(40);
    EXPECT_EQ(cell(3)->contentX(), kRest);
    letGo();
    host.advance(1);
    expectClosed(3);
}

// Buttons

TEST_F(SlipSettling, ATapOfAButtonRunsItsBlockAndLeavesTheRowOpen) {
    giveActions({list->noting(70, "A"), list->noting(70, "B")});
    swipeOpen(3);
    tapButton(3, 1);
    EXPECT_EQ(news(), News{"B {0, 3}"});
    host.advance(1);
    expectOpen(3);
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(SlipSettling, AfterATapOfAButtonTheTableIsFreeButForSwipes) {
    giveActions({list->noting(70, "A")});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    tapRow(5);
    EXPECT_EQ(news(), (News{"A {0, 3}", "selected {0, 5}"}));
    expectOpen(3, 70);
    swipe(6);
    host.advance(1);
    EXPECT_EQ(cell(6)->contentX(), kRest) << "no row can be swiped";
    cell(3)->resetSwipButton();
    expectClosed(3);
    swipe(6);
    settle();
    expectOpen(6, 70);
}

TEST_F(SlipSettling, AfterATapOfAButtonRowsCanBeDraggedToScroll) {
    giveActions({list->noting(70, "A")});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    host.touchDown({20, 400});
    host.touchMove({20, 350}, 0.2);
    EXPECT_EQ(table->contentOffset().y, 40);
    host.touchUp();
    expectOpen(3, 70);
}

TEST_F(SlipSettling, AButtonCanBeTappedAgainAndAgain) {
    giveActions({list->noting(70, "A")});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    tapButton(3, 0);
    EXPECT_EQ(news(), (News{"A {0, 3}", "A {0, 3}"}));
}

TEST_F(SlipSettling, ABlockMayResetItsRow) {
    giveActions({action(70, "A", [this](ZRTableViewRowAction*, const NSIndexPath& path) {
        dynamic_cast<ZRTableViewCellSlip*>(table->cellForRowAtIndexPath(path))->resetSwipButton();
    })});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    expectClosed(3);
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5));
}

TEST_F(SlipSettling, ABlockMayReloadItsRow) {
    giveActions({action(70, "A", [this](ZRTableViewRowAction*, const NSIndexPath& path) {
        table->reloadRowsAtIndexPaths_withRowAnimation({path}, UITableViewRowAnimationFade);
    })});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    host.advance(1);
    expectClosed(3);
    swipe(3, 80);
    settle();
    expectOpen(3, 70);
}

TEST_F(SlipSettling, ATouchBetweenButtonsClosesTheRow) {
    giveActions({action(30), action(70)});
    swipe(3, 80);
    settle();
    host.tap({180 + 50, middleOfRow(3)});
    host.advance(1);
    expectClosed(3);
}

} // namespace zr::testing
