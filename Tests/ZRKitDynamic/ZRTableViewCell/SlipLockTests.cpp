// Which row it is that holds its table, and what opening one tells in which order.

#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

namespace zr::testing {

namespace {

constexpr auto kNone = UITableViewRowAnimationNone;

class SlipLock : public SwipeTest {
protected:
    using SwipeTest::SwipeTest;
};

class SlipLockOnSystem5 : public SlipLock {
protected:
    SlipLockOnSystem5() : SlipLock("5.1.1") {}
};

} // namespace

// Tables that the application has freed

TEST_F(SlipLock, ARowThatLeavesATableHarmsNoneThatHasOpenedSince) {
    swipeOpen(3);
    cell(5)->resetSwipButton();
    swipeOpen(6);
    expectOpen(6);
    EXPECT_EQ(cell(3)->contentX(), kRest - 140) << "nobody has closed it";
    deleteRow(3, kNone);
    host.advance(1);
    expectOpen(5);
    EXPECT_FALSE(table->isScrollEnabled());
    tapRow(1);
    settle();
    expectClosed(5);
    expectFreeTable();
}

TEST_F(SlipLock, ARowThatLeavesATableThatIsFreeDoesNotFreeItAgain) {
    swipeOpen(3);
    cell(5)->resetSwipButton();
    table->setScrollEnabled(false);
    deleteRow(3, kNone);
    EXPECT_FALSE(table->isScrollEnabled()) << "the application wants that";
    tapRow(6);
    EXPECT_EQ(selectedRow(), rowPath(6)) << "and no touch goes into closing what is not there";
}

TEST_F(SlipLock, ARowThatLeavesTheTableIsForgottenButNoOther) {
    swipeOpen(3);
    table->tableViewCellSwiped(cell(5));
    deleteRow(3, kNone);
    tapRow(7);
    EXPECT_EQ(selectedRow(), NSIndexPath()) << "the touch closes the other one";
    settle();
    tapRow(7);
    EXPECT_EQ(selectedRow(), rowPath(7));
}

// Systems on which an open row can be dragged

TEST_F(SlipLockOnSystem5, ADragOfTheOpenRowItselfFreesTheTable) {
    swipeOpen(3);
    swipe(3);
    EXPECT_FALSE(table->zrIsSwipped());
    EXPECT_FALSE(table->isScrollEnabled()) << "until it has closed";
    settle();
    EXPECT_TRUE(table->isScrollEnabled());
    EXPECT_EQ(cell(3)->strip(), nullptr);
    EXPECT_EQ(cell(3)->contentX(), kRest - 140) << "a drag begins where the content rests, and that was here";
}

TEST_F(SlipLockOnSystem5, ARowThatADragHasClosedHoldsTheTableNoMore) {
    giveActions({list->noting(70, "A"), list->noting(70, "B")});
    swipeOpen(3);
    tapButton(3, 0); // the table forgets the row, so that no touch closes it
    swipe(3);
    settle();
    table->setScrollEnabled(false);
    beginDrag(3);
    drag(30);
    host.touchCancel();
    ASSERT_NE(cell(3)->strip(), nullptr);
    deleteRow(3, kNone);
    EXPECT_FALSE(table->isScrollEnabled());
}

// The order of things

namespace {

/// Writes down where its content is when it tells the table.
class NotingCell : public MessageCell {
public:
    void cellSwipedAction() override {
        notes.push_back("tells at " + std::to_string(static_cast<int>(contentX())));
        MessageCell::cellSwipedAction();
    }

    inline static News notes;
};

class NotingList : public MessageList {
public:
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
        return make<NotingCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    }
};

/// Writes down where row 3 is when it is told of the swipe.
class NotingTable : public ZRTableView {
public:
    void setZrIsSwipped(bool swiped) override {
        auto* cell = dynamic_cast<NotingCell*>(cellForRowAtIndexPath(rowPath(3)));
        NotingCell::notes.push_back("locked at " + std::to_string(static_cast<int>(cell->contentX())));
        ZRTableView::setZrIsSwipped(swiped);
    }
};

} // namespace

TEST_F(SlipLock, ARowThatOpensLocksTheTableThenMovesThenTells) {
    table->removeFromSuperview();
    list = make<NotingList>();
    list->fill(20);
    table = makeTable<NotingTable>(list);
    NotingCell::notes.clear();
    swipe(3, 100);
    EXPECT_EQ(NotingCell::notes, (News{"locked at 60", "tells at 20"}));
    EXPECT_FALSE(table->isScrollEnabled());
}

} // namespace zr::testing
