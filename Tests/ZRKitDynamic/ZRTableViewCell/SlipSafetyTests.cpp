// Rows, cells and tables that change or go in the middle of a swipe, and actions that make no sense.

#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

#include <cmath>
#include <limits>

namespace zr::testing {

namespace {

/// Gives every row a cell that serves it alone.
class OneTimeList : public MessageList {
public:
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
        return make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    }
};

/// All rows are of one height, which changes.
class GrowingList : public MessageList {
public:
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath&) override { return height; }

    CGFloat height = 60;
};

class SlipSafety : public SwipeTest {
protected:
    /// Lets the row open onto one button that deletes its row.
    void openOntoDeletion(NSInteger row, UITableViewRowAnimation animation) {
        giveActions({action(70, "Delete", [this, animation](ZRTableViewRowAction*, const NSIndexPath& path) {
            list->messages.erase(list->messages.begin() + path.row());
            table->deleteRowsAtIndexPaths_withRowAnimation({path}, animation);
        })});
        swipe(row, 80);
        settle();
    }
    void dropTable() {
        table->removeFromSuperview();
        table = nullptr;
    }
};

} // namespace

// Rows that go

class SlipDeletion : public SlipSafety, public ::testing::WithParamInterface<UITableViewRowAnimation> {};

TEST_P(SlipDeletion, AnActionMayDeleteItsOwnRow) {
    openOntoDeletion(3, GetParam());
    tapButton(3, 0);
    EXPECT_TRUE(table->isScrollEnabled());
    host.advance(1);
    EXPECT_EQ(cell(3)->message, 4);
    expectFreeTable();
}

TEST_P(SlipDeletion, TheDeletedRowsCellComesBackClosed) {
    openOntoDeletion(3, GetParam());
    const Ref<MessageCell> deleted = cell(3);
    tapButton(3, 0);
    host.advance(1);
    EXPECT_EQ(deleted->superview(), nullptr);
    EXPECT_EQ(deleted->contentX(), kRest);
    EXPECT_EQ(deleted->strip(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Animations, SlipDeletion,
                         ::testing::Values(UITableViewRowAnimationFade, UITableViewRowAnimationRight,
                                           UITableViewRowAnimationLeft, UITableViewRowAnimationTop,
                                           UITableViewRowAnimationBottom, UITableViewRowAnimationNone,
                                           UITableViewRowAnimationMiddle));

TEST_F(SlipSafety, ADeletedRowStaysOpenWhileItFades) {
    openOntoDeletion(3, UITableViewRowAnimationFade);
    const Ref<MessageCell> deleted = cell(3);
    tapButton(3, 0);
    host.advance(0.2);
    EXPECT_EQ(deleted->contentX(), kRest - 70);
    EXPECT_NE(deleted->strip(), nullptr);
    EXPECT_TRUE(table->zrIsSwipped());
    host.advance(0.1);
    EXPECT_FALSE(table->zrIsSwipped());
}

TEST_F(SlipSafety, AnActionMayReloadTheList) {
    giveActions({action(70, "Reload", [this](ZRTableViewRowAction*, const NSIndexPath&) {
        list->fill(10);
        table->reloadData();
    })});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    host.advance(0);
    expectFreeTable();
}

TEST_F(SlipSafety, CodeMayDeleteTheOpenRow) {
    swipeOpen(3);
    list->messages.erase(list->messages.begin() + 3);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(3)}, UITableViewRowAnimationFade);
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, CodeMayDeleteARowThatOpensOrCloses) {
    for (const CGFloat distance : {100, 60}) {
        swipe(3, distance);
        host.advance(0.1);
        list->messages.erase(list->messages.begin() + 3);
        table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(3)}, UITableViewRowAnimationNone);
        host.advance(1);
        EXPECT_FALSE(table->zrIsSwipped());
        EXPECT_TRUE(table->isScrollEnabled());
    }
    expectFreeTable();
}

TEST_F(SlipSafety, CodeMayDeleteTheRowUnderTheFinger) {
    beginDrag(3);
    drag(100);
    list->messages.erase(list->messages.begin() + 3);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(3)}, UITableViewRowAnimationNone);
    drag(120);
    letGo();
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, CodeMayReloadTheListUnderTheFinger) {
    beginDrag(3);
    drag(100);
    table->reloadData();
    host.advance(0);
    drag(120);
    letGo();
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, AnOpenRowMovesWithTheChangesAroundIt) {
    giveActions({list->noting(70, "A"), list->noting(70, "B")});
    swipeOpen(3);
    list->messages.insert(list->messages.begin(), 100);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0)}, UITableViewRowAnimationTop);
    host.advance(1);
    expectOpen(4);
    tapButton(4, 0);
    EXPECT_EQ(news(), News{"A {0, 4}"});
}

TEST_F(SlipSafety, AButtonOfARowThatIsGoneIsGivenNoRow) {
    giveActions({list->noting(70, "A"), list->noting(70, "B")});
    swipeOpen(3);
    const Ref<ZRTableViewRowButton> button = cell(3)->button(0);
    const Ref<MessageCell> open = cell(3);
    list->messages.erase(list->messages.begin() + 3);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(3)}, UITableViewRowAnimationFade);
    open->zrEditingButtonClicked(button);
    EXPECT_EQ(news(), News{"A nil"});
}

// Cells that go, or serve another row

TEST_F(SlipSafety, AnOpenCellMayBeFreed) {
    showOther<OneTimeList>();
    swipeOpen(3);
    const Weak<MessageCell> open = cell(3);
    table->reloadData();
    EXPECT_EQ(open.get(), nullptr);
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, ACellMayBeFreedWhileItCloses) {
    showOther<OneTimeList>();
    swipeOpen(3);
    tapRow(6);
    host.advance(0.1);
    const Weak<MessageCell> closing = cell(3);
    table->reloadData();
    EXPECT_EQ(closing.get(), nullptr);
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, SomebodyMayTakeTheOpenCellOutOfTheTable) {
    swipeOpen(3);
    const Ref<MessageCell> open = cell(3);
    open->removeFromSuperview();
    EXPECT_EQ(open->contentX(), kRest);
    host.advance(0);
    expectFreeTable();
}

TEST_F(SlipSafety, ACellIsClosedWhenItServesAnotherRow) {
    swipeOpen(3);
    const Ref<MessageCell> open = cell(3);
    table->setContentOffset({0, 600});
    host.advance(0);
    EXPECT_TRUE(open->superview()) << "it is used again";
    EXPECT_NE(open->message, 3);
    for (const auto& each : table->visibleCells())
        EXPECT_EQ(each->contentView()->center().x, kRest);
    table->setContentOffset({0, 0});
    host.advance(0);
    expectFreeTable();
}

TEST_F(SlipSafety, ARowWithACellOfItsOwnComesBackClosed) {
    showOther<KeepingList>();
    swipeOpen(3);
    const Ref<MessageCell> open = cell(3);
    table->setContentOffset({0, 600});
    host.advance(0);
    table->setContentOffset({0, 0});
    host.advance(0);
    EXPECT_EQ(cell(3), open.get());
    expectFreeTable();
}

TEST_F(SlipSafety, ARowWhoseDragWasCancelledComesBackClosed) {
    beginDrag(3);
    drag(90);
    host.touchCancel();
    swipeOpen(5);
    list->messages.erase(list->messages.begin() + 3);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(3)}, UITableViewRowAnimationNone);
    host.advance(0);
    expectOpen(4);
    EXPECT_FALSE(table->isScrollEnabled()) << "another row is open, whatever goes";
    tapRow(6);
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, AnOpenCellMayGoToAnotherTable) {
    showOther<KeepingList>();
    swipeOpen(3);
    const auto other = make<KeepingList>();
    other->fill(1);
    std::swap(other->cells[0], dynamicCast<KeepingList>(list)->cells[3]);
    const auto otherTable = makeTable(other);
    EXPECT_EQ(other->cells[0]->superview(), otherTable.get());
    EXPECT_EQ(other->cells[0]->contentX(), kRest);
    EXPECT_FALSE(otherTable->zrIsSwipped());
    EXPECT_FALSE(table->zrIsSwipped());
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(SlipSafety, ARowThatHasClosedLeavesTheTableToTheOneThatIsOpenNow) {
    giveActions({action(70)});
    swipe(3, 80);
    settle();
    cell(3)->finishedCellSwipedAnimationWithPoint(CGPointZero); // as near to closed as one button is wide
    swipe(5, 80);
    expectOpen(5, 70);
    cell(3)->removeFromSuperview();
    host.advance(1);
    expectOpen(5, 70);
    EXPECT_FALSE(table->isScrollEnabled());
}

// Tables that go

TEST_F(SlipSafety, ATableMayGoAtAnyMomentOfASwipe) {
    const auto atMoment = [this](const std::function<void()>& swipeAway) {
        showOther<MessageList>();
        swipeAway();
        dropTable();
        host.advance(1);
        host.touchUp();
        host.advance(1);
        EXPECT_EQ(MessageCell::alive, 0);
        table = makeTable(list);
    };
    atMoment([this] { beginDrag(3); });
    atMoment([this] {
        beginDrag(3);
        drag(100);
    });
    atMoment([this] { swipe(3); });
    atMoment([this] {
        swipe(3);
        host.advance(0.1);
    });
    atMoment([this] { swipeOpen(3); });
    atMoment([this] { swipe(3, 60); });
    atMoment([this] {
        swipeOpen(3);
        tapRow(6);
    });
    atMoment([this] {
        swipeOpen(3);
        host.touchDown(middleOnScreen(cell(3)->button(0)));
    });
}

TEST_F(SlipSafety, ACellMayOutliveItsTable) {
    showOther<KeepingList>();
    swipeOpen(3);
    const Ref<MessageCell> open = cell(3);
    dropTable();
    list = make<MessageList>();
    EXPECT_FALSE(open->zrCanEditing());
    open->cellSwipedAction();
    open->removeCellSwipped();
    open->resetSwipButton();
    open->zrEditingButtonClicked(nullptr);
    EXPECT_EQ(open->contentX(), kRest);
    EXPECT_EQ(open->strip(), nullptr);
}

TEST_F(SlipSafety, ABlockMayDropTheTable) {
    giveActions({action(70, "A", [this](ZRTableViewRowAction*, const NSIndexPath&) {
        dropTable();
        list = make<MessageList>();
    })});
    swipe(3, 80);
    settle();
    tapButton(3, 0);
    host.advance(1);
    EXPECT_EQ(MessageCell::alive, 0);
}

TEST_F(SlipSafety, TheDataSourceMayDropTheTableWhenItIsAsked) {
    dropTable();
    for (int moves = 0; moves < 3; ++moves) {
        table = makeTable(list);
        list->canEdit = [](const NSIndexPath&) { return true; };
        beginDrag(3);
        for (int i = 0; i < moves; ++i)
            drag(static_cast<CGFloat>(100 + i));
        list->canEdit = [this](const NSIndexPath&) {
            if (table)
                dropTable();
            return true;
        };
        drag(200);
        letGo();
        host.advance(1);
        EXPECT_EQ(MessageCell::alive, 0);
    }
}

TEST_F(SlipSafety, TheDataSourceMayDropTheTableAtTheEndOfADrag) {
    beginDrag(3);
    drag(100);
    list->canEdit = [this](const NSIndexPath&) {
        dropTable();
        return true;
    };
    letGo();
    host.advance(1);
    EXPECT_EQ(MessageCell::alive, 0);
}

TEST_F(SlipSafety, TheDataSourceMayReloadTheTableWhenItIsAsked) {
    list->actions = [](ZRTableView* asking, const NSIndexPath&) {
        asking->reloadData();
        return Actions{action(70), action(70)};
    };
    swipe(3);
    host.advance(1);
    expectFreeTable();
}

// Rows of other sizes

TEST_F(SlipSafety, ARowThatBecomesWiderClosesAtOnce) {
    swipeOpen(3);
    table->setFrame(CGRectMake(0, 0, 300, 480));
    host.advance(0);
    expectFreeTable();
}

TEST_F(SlipSafety, ARowThatBecomesWiderUnderTheFingerClosesAtOnce) {
    beginDrag(3);
    drag(100);
    table->setFrame(CGRectMake(0, 0, 300, 480));
    host.advance(0);
    EXPECT_EQ(cell(3)->contentX(), 150);
    host.touchCancel();
    expectFreeTable();
}

TEST_F(SlipSafety, AResetAfterAnotherWidthLeavesTheContentAlone) {
    table->setFrame(CGRectMake(0, 0, 300, 480));
    host.advance(0);
    cell(3)->resetSwipButton();
    EXPECT_EQ(cell(3)->contentX(), 150);
}

TEST_F(SlipSafety, ARowThatBecomesHigherStaysOpen) {
    showOther<GrowingList>();
    swipeOpen(3);
    dynamicCast<GrowingList>(list)->height = 100;
    table->beginUpdates();
    table->endUpdates();
    host.advance(1);
    expectOpen(3);
    EXPECT_EQ(cell(3)->strip()->frame(), CGRectMake(180, 0, 140, 100));
    EXPECT_EQ(cell(3)->button(1)->frame(), CGRectMake(70, 0, 70, 100));
    EXPECT_EQ(cell(3)->contentView()->frame(), CGRectMake(-140, 0, 320, 100));
}

// Fingers

TEST_F(SlipSafety, TwoFingersOpenOneRow) {
    const auto dragOther = [this](CGFloat distance) { host.touchMove({290 - distance, middleOfRow(5)}, 1); };
    host.touchDown({300, middleOfRow(5)}, 1);
    dragOther(0);
    dragOther(90);
    for (const CGFloat distance : {50, 100}) {
        beginDrag(3);
        drag(distance);
        host.touchUp(1);
        settle();
        expectOpen(5);
        drag(120);
        EXPECT_EQ(cell(3)->contentX(), kRest - distance) << "it follows no more";
        letGo();
        settle();
        EXPECT_EQ(cell(3)->contentX(), kRest);
        EXPECT_EQ(cell(3)->strip(), nullptr);
        expectOpen(5);
        EXPECT_FALSE(table->isScrollEnabled());
        tapRow(0);
        settle();
        host.touchDown({300, middleOfRow(5)}, 1);
        dragOther(0);
        dragOther(90);
    }
    host.touchUp(1);
}

TEST_F(SlipSafety, PointsThatAreNoNumbersAreIgnored) {
    beginDrag(3);
    drag(50);
    cell(3)->cellSwipedAnimationWithPoint({std::nan(""), 0});
    cell(3)->cellSwipedAnimationWithPoint({std::numeric_limits<CGFloat>::infinity(), 0});
    EXPECT_EQ(cell(3)->contentX(), kRest - 50);
    letGo();
}

// Actions that make no sense

TEST_F(SlipSafety, WidthsThatAreNoneCountAsZero) {
    for (const CGFloat width : {std::nan(""), std::numeric_limits<double>::infinity(), -50.0}) {
        giveActions({action(width), action(70)});
        swipeOpen(3);
        EXPECT_EQ(cell(3)->button(0)->frame(), CGRectMake(0, 0, 0, kRowHeight));
        EXPECT_EQ(cell(3)->button(1)->frame(), CGRectMake(70, 0, 70, kRowHeight));
        expectOpen(3);
        tapRow(6);
        host.advance(1);
    }
}

TEST_F(SlipSafety, AStripWhoseLastWidthIsNoneHasNone) {
    giveActions({action(70), action(std::nan(""))});
    swipeOpen(3);
    EXPECT_EQ(cell(3)->strip()->frame(), CGRectMake(320, 0, 0, kRowHeight));
    EXPECT_EQ(cell(3)->contentX(), kRest);
    EXPECT_TRUE(table->zrIsSwipped());
    tapRow(6);
    host.advance(1);
    expectFreeTable();
}

TEST_F(SlipSafety, AButtonAsWideAsTheWorldCannotBeReached) {
    giveActions({action(1e300)});
    swipeOpen(3);
    expectClosed(3);
}

TEST_F(SlipSafety, ActionsNeedNoTitlesAndNoColours) {
    giveActions(
        {make<ZRTableViewRowAction>(),
         ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(nullptr, 70, nullptr, nullptr)});
    swipeOpen(3);
    expectOpen(3);
    EXPECT_EQ(host.pixel({280, 202}), (FramePixel{255, 255, 255})) << "the row's own ground";
}

TEST_F(SlipSafety, ACellOfAPlainTableIsAPlainCell) {
    const auto plain = make<UITableView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 480));
    plain->setRowHeight(kRowHeight);
    plain->setDataSource(list);
    dropTable();
    window->addSubview(plain);
    host.advance(0);
    host.touchDown({300, 210});
    host.touchMove({290, 210});
    host.touchMove({100, 210});
    host.touchUp();
    host.advance(1);
    auto* row = dynamic_cast<MessageCell*>(plain->cellForRowAtIndexPath(rowPath(3)));
    EXPECT_EQ(row->contentX(), kRest);
    EXPECT_EQ(row->strip(), nullptr);
    EXPECT_FALSE(row->zrCanEditing());
    row->cellSwipedAction();
    row->resetSwipButton();
    EXPECT_TRUE(plain->isScrollEnabled());
}

} // namespace zr::testing
