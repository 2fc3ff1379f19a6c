#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

constexpr auto kFade = UITableViewRowAnimationFade;
constexpr auto kNone = UITableViewRowAnimationNone;

class UpdatedTable : public TableOnScreen<> {
protected:
    UpdatedTable() {
        list->fill(30);
        showTable();
    }
    void insert(int at, int item) {
        auto& items = list->section(0);
        items.insert(items.begin() + at, item);
    }
    void erase(int at) {
        auto& items = list->section(0);
        items.erase(items.begin() + at);
    }
    CGFloat seenTop(const UIView* view) const {
        const LayerValues values = view->layer()->presentationValues();
        return values.position.y - values.bounds.size.height / 2;
    }
};

using UnevenTable = TableOnScreen<UnevenList>;

} // namespace

TEST_F(UpdatedTable, AnInsertedRowPushesTheOthersDown) {
    const Ref<RowCell> third = cellAt(2);
    insert(2, 100);
    list->cellsAsked = 0;
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 2)}, kFade);
    EXPECT_EQ(list->cellsAsked, 1);
    EXPECT_EQ(table->indexPathForCell(third), rowPath(0, 3)) << "it keeps its cell";
    EXPECT_EQ(third->frame().origin.y, 132);
    EXPECT_EQ(seenTop(third), 88) << "and is on its way";
    EXPECT_EQ(cellAt(2)->item, 100);
    EXPECT_EQ(table->contentSize().height, 31 * 44);
    host.advance(0);
    EXPECT_EQ(cellAt(2)->layer()->presentationValues().opacity, 0);
    host.advance(0.15);
    EXPECT_EQ(seenTop(third), 110) << "half-way in half of the time";
    EXPECT_NEAR(cellAt(2)->layer()->presentationValues().opacity, 0.5, 1e-6);
    host.advance(0.16);
    EXPECT_EQ(seenTop(third), 132);
    EXPECT_EQ(shownItems(), (std::vector<int>{0, 1, 100, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(table->subviews().size(), 11u) << "the one pushed out is gone";
}

TEST_F(UpdatedTable, ADeletedRowGoesAndTheOthersCloseUp) {
    const Ref<RowCell> second = cellAt(1), third = cellAt(2);
    erase(1);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kFade);
    EXPECT_TRUE(table->indexPathForCell(second).isNil());
    EXPECT_EQ(second->superview(), table.get()) << "still to be seen";
    EXPECT_EQ(second->alpha(), 0);
    EXPECT_EQ(third->frame().origin.y, 44);
    EXPECT_EQ(cellAt(10)->item, 11);
    EXPECT_EQ(seenTop(cellAt(10)), 484) << "from below the screen";
    host.advance(0.31);
    EXPECT_EQ(second->superview(), nullptr);
    EXPECT_EQ(second->alpha(), 1) << "to be used again";
    EXPECT_EQ(table->visibleCells().size(), 11u);
}

TEST_F(UpdatedTable, RowsComeAndGoFromTheSideTheyAreTold) {
    const auto comesFrom = [&](UITableViewRowAnimation animation) {
        insert(3, 100);
        table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 3)}, animation);
        const LayerValues values = cellAt(3)->layer()->presentationValues();
        const CGRect frame{
            {values.position.x - values.bounds.size.width / 2, values.position.y - values.bounds.size.height / 2},
            values.bounds.size};
        host.advance(1);
        EXPECT_EQ(cellAt(3)->frame(), CGRectMake(0, 132, 320, 44));
        return frame;
    };
    EXPECT_EQ(comesFrom(UITableViewRowAnimationRight), CGRectMake(320, 132, 320, 44));
    EXPECT_EQ(comesFrom(UITableViewRowAnimationLeft), CGRectMake(-320, 132, 320, 44));
    EXPECT_EQ(comesFrom(UITableViewRowAnimationTop), CGRectMake(0, 88, 320, 44));
    EXPECT_EQ(comesFrom(UITableViewRowAnimationBottom), CGRectMake(0, 176, 320, 44));
    EXPECT_EQ(comesFrom(UITableViewRowAnimationMiddle), CGRectMake(0, 154, 320, 0));
    EXPECT_EQ(comesFrom(UITableViewRowAnimationNone), CGRectMake(0, 132, 320, 44));

    const Ref<RowCell> going = cellAt(3);
    erase(3);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 3)}, UITableViewRowAnimationRight);
    EXPECT_EQ(going->frame(), CGRectMake(320, 132, 320, 44));
}

TEST_F(UpdatedTable, WithoutAnimationAllIsDoneAtOnce) {
    const Ref<RowCell> second = cellAt(1);
    erase(1);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kNone);
    EXPECT_EQ(second->superview(), nullptr);
    EXPECT_EQ(seenTop(cellAt(1)), 44);
    EXPECT_EQ(shownItems(), (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST_F(UpdatedTable, SeveralChangesAreOne) {
    // 0 1 2 3 4 … less 0 and 3, with 100 in front of 2, and 1 behind 4.
    const Ref<RowCell> one = cellAt(1), four = cellAt(4);
    list->section(0) = NumberList::numbers(30);
    auto& items = list->section(0);
    items.erase(items.begin(), items.begin() + 5);
    items.insert(items.begin(), {100, 2, 4, 1});
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 3)}, kFade);
    table->endUpdates();
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    table->moveRowAtIndexPath_toIndexPath(rowPath(0, 1), rowPath(0, 3));
    EXPECT_EQ(table->indexPathForCell(one), rowPath(0, 1)) << "nothing happens before the end";
    table->endUpdates();
    EXPECT_EQ(table->indexPathForCell(one), rowPath(0, 3));
    EXPECT_EQ(table->indexPathForCell(four), rowPath(0, 2));
    host.advance(0.31);
    EXPECT_EQ(shownItems(), (std::vector<int>{100, 2, 4, 1, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(table->subviews().size(), 11u);
}

TEST_F(UpdatedTable, AReloadedRowGetsAnotherCell) {
    const Ref<RowCell> second = cellAt(1);
    list->section(0)[1] = 77;
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kNone);
    EXPECT_NE(cellAt(1), second.get());
    EXPECT_EQ(cellAt(1)->item, 77);
    EXPECT_EQ(second->superview(), nullptr);
}

TEST_F(UpdatedTable, SectionsComeGoAndMove) {
    list->sections.push_back({200, 201});
    table->insertSections_withRowAnimation({1}, kFade);
    host.advance(0.31);
    EXPECT_EQ(table->numberOfRowsInSection(1), 2);

    std::swap(list->sections[0], list->sections[1]);
    table->moveSection_toSection(1, 0);
    host.advance(0.31);
    EXPECT_EQ(shownItems(), (std::vector<int>{200, 201, 0, 1, 2, 3, 4, 5, 6, 7, 8}));

    list->sections[0] = {300};
    table->reloadSections_withRowAnimation({0}, kFade);
    host.advance(0.31);
    EXPECT_EQ(shownItems(), (std::vector<int>{300, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));

    list->sections.erase(list->sections.begin());
    table->deleteSections_withRowAnimation({0}, kFade);
    host.advance(0.31);
    EXPECT_EQ(shownItems(), NumberList::numbers(11));
    EXPECT_EQ(table->subviews().size(), 11u);
}

TEST_F(UpdatedTable, HeadersGoWithTheirSections) {
    list->sections = {{1, 2}, {3, 4}};
    list->titles = {{0, "First"}, {1, "Second"}};
    table->reloadData();
    host.advance(0);
    const Ref<UIView> second = table->headerViewForSection(1);
    list->sections.erase(list->sections.begin());
    list->titles = {{0, "Second"}};
    table->deleteSections_withRowAnimation({0}, kFade);
    EXPECT_EQ(table->headerViewForSection(0), second.get());
    EXPECT_EQ(second->frame().origin.y, 0);
    EXPECT_EQ(seenTop(second), 116);
    host.advance(0.31);
    EXPECT_EQ(table->subviews().size(), 3u);
}

TEST_F(UpdatedTable, TheSelectionGoesWhereTheRowsGo) {
    table->setAllowsMultipleSelection(true);
    for (const NSInteger row : {1, 2, 20})
        table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, row), false, UITableViewScrollPositionNone);
    erase(2);
    insert(0, 100);
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 2)}, kFade);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    table->endUpdates();
    EXPECT_EQ(table->indexPathsForSelectedRows(), (Paths{rowPath(0, 2), rowPath(0, 20)}));
    EXPECT_TRUE(cellAt(2)->isSelected());
    EXPECT_EQ(cellAt(2)->item, 1);
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 2)}, kFade);
    EXPECT_TRUE(cellAt(2)->isSelected()) << "a reloaded row is the same row";
}

TEST_F(UpdatedTable, AListThatGetsShortComesBackIntoSight) {
    scrollTo(30 * 44 - 480);
    EXPECT_EQ(shownItems().back(), 29);
    list->fill(12);
    Paths gone;
    for (int row = 12; row < 30; ++row)
        gone.push_back(rowPath(0, row));
    table->deleteRowsAtIndexPaths_withRowAnimation(gone, kFade);
    EXPECT_EQ(table->contentOffset().y, 12 * 44 - 480);
    host.advance(0.31);
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 1));
    EXPECT_EQ(table->subviews().size(), 11u);
    EXPECT_EQ(cellAt(11)->frame().origin.y, 484);
}

TEST_F(UnevenTable, AnEmptyChangeAsksForHeightsAgain) {
    list->fill(30);
    showTable();
    const Ref<RowCell> second = cellAt(1);
    EXPECT_EQ(second->frame(), CGRectMake(0, 40, 320, 50));
    list->heightOf = [](int item) -> CGFloat { return item == 0 ? 100 : 40; };
    table->beginUpdates();
    table->endUpdates();
    EXPECT_EQ(cellAt(1), second.get());
    EXPECT_EQ(second->frame(), CGRectMake(0, 100, 320, 40));
    EXPECT_EQ(second->layer()->presentationValues().position.y, 65) << "animated";
}

TEST_F(UpdatedTable, ChangesInTheMiddleOfAChangeGoOnFromWhatIsSeen) {
    const Ref<RowCell> third = cellAt(2);
    insert(0, 100);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    host.advance(0.15);
    const CGFloat seen = seenTop(third);
    EXPECT_EQ(seen, 110);
    insert(0, 101);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    EXPECT_EQ(seenTop(third), seen);
    EXPECT_EQ(third->frame().origin.y, 176);
    host.advance(1);
    EXPECT_EQ(seenTop(third), 176);
    EXPECT_EQ(table->subviews().size(), 11u);
}

TEST_F(UpdatedTable, ScrollingInTheMiddleOfAChangeLosesNothing) {
    erase(1);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kFade);
    host.advance(0.1);
    scrollTo(400);
    host.advance(0.3);
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 10));
    EXPECT_EQ(table->subviews().size(), 11u);
}

TEST_F(UpdatedTable, AReloadInTheMiddleOfAChangeEndsIt) {
    erase(1);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kFade);
    host.advance(0.1);
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(table->subviews().size(), 11u);
    host.advance(1);
    EXPECT_EQ(shownItems(), (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST_F(UpdatedTable, NothingComesIntoSightInTheMiddleOfSeveralChanges) {
    const LogLines log;
    table->beginUpdates();
    list->section(0).erase(list->section(0).begin());
    table->setContentOffset({0, 100});
    host.advance(0);
    EXPECT_EQ(shownItems(), NumberList::numbers(11)) << "the list is between two states";
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    table->endUpdates();
    host.advance(1);
    EXPECT_EQ(shownItems(), NumberList::numbers(12, 3));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(UpdatedTable, AReloadInTheMiddleOfSeveralChangesIsAllThereIsToDo) {
    const LogLines log;
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    list->fill(5);
    table->reloadData();
    table->endUpdates();
    host.advance(1);
    EXPECT_EQ(shownItems(), NumberList::numbers(5));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(UpdatedTable, AnotherRowHeightKeepsCellsAndSelection) {
    const Ref<RowCell> second = cellAt(1);
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 1), false, UITableViewScrollPositionNone);
    table->setRowHeight(50);
    EXPECT_EQ(cellAt(1), second.get());
    EXPECT_EQ(second->frame(), CGRectMake(0, 50, 320, 50));
    EXPECT_FALSE(second->layer()->hasAnimations());
    EXPECT_EQ(table->indexPathForSelectedRow(), rowPath(0, 1));
}

TEST_F(UpdatedTable, ATableWithoutAWindowChangesAtOnce) {
    table->removeFromSuperview();
    insert(0, 100);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    EXPECT_EQ(table->numberOfRowsInSection(0), 31);
    EXPECT_EQ(cellAt(0)->item, 100);
    EXPECT_FALSE(cellAt(1)->layer()->hasAnimations());
}

TEST_F(UpdatedTable, ATableThatHasLoadedNothingFindsTheChangeMade) {
    const auto fresh = make<UITableView>(&UITableView::initWithFrame, CGRectMake(0, 0, 320, 480));
    fresh->setDataSource(list);
    insert(0, 100);
    const LogLines log;
    fresh->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    EXPECT_EQ(fresh->numberOfRowsInSection(0), 31);
    EXPECT_TRUE(log.lines.empty());
}

} // namespace zr::tests
