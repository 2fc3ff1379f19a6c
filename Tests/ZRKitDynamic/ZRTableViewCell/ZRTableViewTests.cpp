#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

namespace zr::testing {

namespace {

class ZRTableViewTest : public SwipeTest {
protected:
    Ref<ZRTableViewRowButton> buttonFor(ZRTableViewRowAction* action) {
        const auto button = UIButton::buttonWithType<ZRTableViewRowButton>(UIButtonTypeCustom);
        button->setAction(action);
        return button;
    }
    Ref<MessageCell> looseCell() {
        return make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    }
};

/// Knows nothing of swipes.
class PlainList : public NSObject, public UITableViewDataSource, public UIScrollViewDelegate {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return 3; }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
        return make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    }
};

/// Answers neither question about swipes.
class SilentList : public PlainList, public ZRTableViewDataSource {};

} // namespace

TEST_F(ZRTableViewTest, IsATableOfEitherStyle) {
    EXPECT_EQ(table->style(), UITableViewStylePlain);
    const auto grouped =
        make<ZRTableView>(&UITableView::initWithFrame_style, CGRectMake(0, 0, 320, 480), UITableViewStyleGrouped);
    EXPECT_EQ(grouped->style(), UITableViewStyleGrouped);
    EXPECT_TRUE(grouped->isScrollEnabled());
}

TEST_F(ZRTableViewTest, IsNotSwipedAtFirst) {
    EXPECT_FALSE(table->zrIsSwipped());
    table->setZrIsSwipped(true);
    EXPECT_TRUE(table->zrIsSwipped());
    table->setValue_forKey(false, "zrIsSwipped");
    EXPECT_FALSE(table->zrIsSwipped());
    EXPECT_FALSE(table->valueForKey("zrIsSwipped").as<bool>());
}

// What the data source says

TEST_F(ZRTableViewTest, AsksItsDataSourceForTheActionsOfTheCellsRow) {
    const Actions given{action(1, "A"), action(2, "B")};
    giveActions(given);
    EXPECT_EQ(table->tableViewSwippedActions(cell(3)), given);
    EXPECT_EQ(list->askedForActions, std::vector<NSIndexPath>{rowPath(3)});
}

TEST_F(ZRTableViewTest, AsksItsDataSourceWhetherTheCellsRowMayBeSwiped) {
    list->canEdit = [](const NSIndexPath& path) { return path.row() == 2; };
    EXPECT_TRUE(table->zrCanEditRowAtIndexPath(cell(2)));
    EXPECT_FALSE(table->zrCanEditRowAtIndexPath(cell(3)));
    EXPECT_EQ(list->askedWhether, (std::vector<NSIndexPath>{rowPath(2), rowPath(3)}));
}

TEST_F(ZRTableViewTest, GivesTheDataSourceItself) {
    ZRTableView* asking = nullptr;
    list->actions = [&](ZRTableView* sender, const NSIndexPath&) {
        asking = sender;
        return Actions();
    };
    table->tableViewSwippedActions(cell(0));
    EXPECT_EQ(asking, table.get());
}

TEST_F(ZRTableViewTest, AsksWithoutAnIndexPathForACellThatIsNotInTheTable) {
    const auto loose = looseCell();
    EXPECT_EQ(table->tableViewSwippedActions(loose).size(), 2u);
    EXPECT_TRUE(table->zrCanEditRowAtIndexPath(loose));
    EXPECT_TRUE(table->zrCanEditRowAtIndexPath(nullptr));
    EXPECT_EQ(list->askedForActions, std::vector<NSIndexPath>{nullptr});
    EXPECT_EQ(list->askedWhether, (std::vector<NSIndexPath>{nullptr, nullptr}));
}

TEST_F(ZRTableViewTest, SwipesNoRowsOfADataSourceThatDoesNotAnswer) {
    const auto silent = make<SilentList>();
    const auto plain = make<PlainList>();
    for (const auto& other : {makeTable(silent), makeTable(plain)}) {
        UITableViewCell* first = other->cellForRowAtIndexPath(rowPath(0));
        ASSERT_NE(first, nullptr);
        EXPECT_TRUE(other->tableViewSwippedActions(first).empty());
        EXPECT_FALSE(other->zrCanEditRowAtIndexPath(first));
    }
}

TEST_F(ZRTableViewTest, SwipesNoRowsWithoutADataSource) {
    UITableViewCell* first = cell(0);
    list = nullptr;
    EXPECT_TRUE(table->tableViewSwippedActions(first).empty());
    EXPECT_FALSE(table->zrCanEditRowAtIndexPath(first));
}

TEST_F(ZRTableViewTest, KeepsTheDataSourceWhileItIsAsked) {
    UITableViewCell* first = cell(0);
    const Weak<MessageList> weakList = list;
    bool wasAlive = false;
    list->canEdit = [&](const NSIndexPath&) {
        list = nullptr;
        wasAlive = weakList.get() != nullptr;
        return true;
    };
    EXPECT_TRUE(table->zrCanEditRowAtIndexPath(first));
    EXPECT_TRUE(wasAlive);
    EXPECT_EQ(weakList.get(), nullptr);
}

// The open cell

TEST_F(ZRTableViewTest, DoesNotScrollOnceACellHasOpened) {
    table->tableViewCellSwiped(cell(1));
    EXPECT_FALSE(table->isScrollEnabled());
    EXPECT_FALSE(table->zrIsSwipped()) << "that is the cell's to say";
}

TEST_F(ZRTableViewTest, DoesNotKeepTheOpenCell) {
    const auto count = cell(1)->retainCount();
    table->tableViewCellSwiped(cell(1));
    EXPECT_EQ(cell(1)->retainCount(), count);
}

TEST_F(ZRTableViewTest, ForgetsTheFirstOfTwoOpenCellsWithoutClosingIt) {
    swipeOpen(1);
    table->tableViewCellSwiped(cell(2));
    tapRow(5);
    settle();
    EXPECT_EQ(cell(1)->contentX(), kRest - 140);
    EXPECT_NE(cell(1)->strip(), nullptr);
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5)) << "none is known to be open";
}

// Touches

TEST_F(ZRTableViewTest, SelectsWhileNoCellIsOpen) {
    tapRow(4);
    EXPECT_EQ(news(), News{"selected {0, 4}"});
}

TEST_F(ZRTableViewTest, AnyTouchClosesTheOpenRowAndSelectsNothing) {
    swipeOpen(1);
    tapRow(5);
    EXPECT_EQ(cell(1)->contentX(), kRest);
    EXPECT_EQ(selectedRow(), NSIndexPath());
    settle();
    expectClosed(1);
    EXPECT_EQ(news(), News());
    tapRow(5);
    EXPECT_EQ(news(), News{"selected {0, 5}"});
}

TEST_F(ZRTableViewTest, ATouchClosesAsItBegins) {
    swipeOpen(1);
    host.touchDown({20, middleOfRow(5)});
    EXPECT_EQ(cell(1)->contentX(), kRest);
    EXPECT_FALSE(cell(5)->isHighlighted());
    host.touchUp();
}

TEST_F(ZRTableViewTest, ATouchOfTheOpenRowItselfClosesIt) {
    swipeOpen(1);
    tapRow(1);
    settle();
    expectClosed(1);
    EXPECT_EQ(news(), News());
}

TEST_F(ZRTableViewTest, ATouchBelowTheRowsClosesTheOpenRow) {
    list->fill(2);
    table->reloadData();
    host.advance(0);
    swipeOpen(1);
    host.tap({160, 400});
    settle();
    expectClosed(1);
}

TEST_F(ZRTableViewTest, TheTouchThatClosesStillReachesTheCellUnderTheFinger) {
    int taps = 0;
    cell(5)->setCellSelectedBlock([&taps] { ++taps; });
    swipeOpen(1);
    tapRow(5);
    EXPECT_EQ(taps, 1);
    EXPECT_EQ(selectedRow(), NSIndexPath());
}

TEST_F(ZRTableViewTest, ATouchTellsOnlyCellsThatCanClose) {
    const auto plain =
        make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, nullptr);
    table->tableViewCellSwiped(plain);
    tapRow(5);
    EXPECT_EQ(selectedRow(), NSIndexPath()) << "the touch has gone into forgetting the cell";
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5));
}

TEST_F(ZRTableViewTest, ATouchLeavesItToTheCellToLetTheTableScroll) {
    swipeOpen(1);
    tapRow(5);
    EXPECT_FALSE(table->isScrollEnabled());
    host.advance(0.19);
    EXPECT_FALSE(table->isScrollEnabled());
    host.advance(0.01);
    EXPECT_TRUE(table->isScrollEnabled());
}

TEST_F(ZRTableViewTest, ACellThatIsGoneIsNotOpen) {
    auto loose = looseCell();
    table->tableViewCellSwiped(loose);
    loose = nullptr;
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5));
}

// Buttons

TEST_F(ZRTableViewTest, ATappedButtonRunsItsActionsBlockForTheRow) {
    const auto noting = list->noting(70, "Delete");
    table->tableViewCellSwipedButtonClicked_button(cell(3), buttonFor(noting));
    EXPECT_EQ(news(), News{"Delete {0, 3}"});
}

TEST_F(ZRTableViewTest, ATappedButtonDoesNotRunItsOwnBlock) {
    const auto button = buttonFor(list->noting(70, "Delete"));
    button->setActionBlock([this](ZRTableViewRowAction*, const NSIndexPath&) { list->news.push_back("own"); });
    table->tableViewCellSwipedButtonClicked_button(cell(3), button);
    EXPECT_EQ(news(), News{"Delete {0, 3}"});
}

TEST_F(ZRTableViewTest, AfterTheBlockTheTableForgetsTheCellAndScrolls) {
    bool scrolledMeanwhile = true;
    table->tableViewCellSwiped(cell(1));
    const auto looking = action(70, "A", [&](ZRTableViewRowAction*, const NSIndexPath&) {
        scrolledMeanwhile = table->isScrollEnabled();
        table->tableViewCellSwiped(cell(2));
    });
    table->tableViewCellSwipedButtonClicked_button(cell(1), buttonFor(looking));
    EXPECT_FALSE(scrolledMeanwhile);
    EXPECT_TRUE(table->isScrollEnabled());
    tapRow(5);
    EXPECT_EQ(selectedRow(), rowPath(5)) << "neither cell is known to be open";
}

TEST_F(ZRTableViewTest, WithoutABlockTheRowStaysOpenUntilTheNextTouch) {
    swipeOpen(1);
    tapButton(1, 0);
    host.advance(1);
    expectOpen(1);
    EXPECT_FALSE(table->isScrollEnabled());
    tapRow(5);
    EXPECT_EQ(selectedRow(), NSIndexPath());
    settle();
    expectClosed(1);
}

TEST_F(ZRTableViewTest, AButtonWithoutAnActionDoesNothing) {
    table->tableViewCellSwiped(cell(1));
    table->tableViewCellSwipedButtonClicked_button(cell(1), buttonFor(nullptr));
    table->tableViewCellSwipedButtonClicked_button(cell(1), nullptr);
    EXPECT_FALSE(table->isScrollEnabled());
}

TEST_F(ZRTableViewTest, ABlockOfACellThatIsNotInTheTableIsGivenNoRow) {
    table->tableViewCellSwipedButtonClicked_button(looseCell(), buttonFor(list->noting(70, "Delete")));
    EXPECT_EQ(news(), News{"Delete nil"});
}

TEST_F(ZRTableViewTest, TheBlockIsGivenTheRowWhereItIsNow) {
    swipeOpen(3);
    list->messages.erase(list->messages.begin());
    giveActions({});
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0)}, UITableViewRowAnimationFade);
    host.advance(1);
    expectOpen(2);
    table->tableViewCellSwipedButtonClicked_button(cell(2), buttonFor(list->noting(70, "Delete")));
    EXPECT_EQ(news(), News{"Delete {0, 2}"});
}

TEST_F(ZRTableViewTest, ABlockMayReplaceItselfAndDropTheTable) {
    const auto own = make<ZRTableViewRowAction>();
    const Weak<ZRTableView> weakTable = table;
    auto tag = std::make_shared<int>(7);
    int seen = 0;
    own->setActionBlock([&, tag](ZRTableViewRowAction* tapped, const NSIndexPath&) {
        tapped->setActionBlock(nullptr);
        table->removeFromSuperview();
        table = nullptr;
        seen = *tag;
    });
    const auto button = buttonFor(own);
    weakTable->tableViewCellSwipedButtonClicked_button(cell(1), button);
    EXPECT_EQ(seen, 7);
    EXPECT_EQ(weakTable.get(), nullptr);
}

} // namespace zr::testing
