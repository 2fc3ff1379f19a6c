// How changes look while they take place, and what is told of the cells that stay.

#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

constexpr auto kFade = UITableViewRowAnimationFade;

/// Keeps a cell for each number, and writes down what it is told of the cells.
class KeepingList : public NumberList {
public:
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        Ref<RowCell>& cell = cells[itemAt(path)];
        if (!cell)
            cell = make<RowCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, "kept");
        cell->item = itemAt(path);
        return cell;
    }
    void tableView_willDisplayCell_forRowAtIndexPath(UITableView* table, UITableViewCell*,
                                                     const NSIndexPath& path) override {
        news.push_back("+" + written(path));
        if (onDisplay)
            onDisplay(table);
    }
    void tableView_didEndDisplayingCell_forRowAtIndexPath(UITableView*, UITableViewCell* cell,
                                                          const NSIndexPath& path) override {
        news.push_back("-" + written(path) + (cell->superview() ? "!" : ""));
    }
    Ref<UIView> tableView_viewForHeaderInSection(UITableView*, NSInteger) override { return header; }

    std::map<int, Ref<RowCell>> cells;
    News news;
    std::function<void(UITableView*)> onDisplay;
    Ref<UIView> header;
};

class KeptCells : public TableOnScreen<KeepingList> {
protected:
    KeptCells() {
        list->fill(5);
        showTable();
        list->news.clear();
    }
};

class ChangedTable : public TableOnScreen<> {
protected:
    static CGFloat seenAlpha(const UIView* view) { return view->layer()->presentationValues().opacity; }
};

} // namespace

// Headers

TEST_F(ChangedTable, NewHeadersFadeIn) {
    list->sections = {{1, 2}};
    list->titles = {{0, "First"}, {1, "Second"}};
    showTable();
    list->sections.push_back({3, 4});
    table->insertSections_withRowAnimation({1}, kFade);
    const UIView* first = table->headerViewForSection(0);
    const UIView* second = table->headerViewForSection(1);
    host.advance(0);
    EXPECT_EQ(seenAlpha(first), 1);
    EXPECT_EQ(seenAlpha(second), 0);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(second), 0.5, 1e-6);
    host.advance(0.16);
    EXPECT_EQ(seenAlpha(second), 1);
}

TEST_F(ChangedTable, OldHeadersFadeOutAndAreAsBefore) {
    list->sections = {{1, 2}, {3, 4}};
    list->titles = {{0, "First"}, {1, "Second"}};
    showTable();
    const Ref<UIView> second = table->headerViewForSection(1);
    list->sections.pop_back();
    table->deleteSections_withRowAnimation({1}, kFade);
    EXPECT_EQ(second->superview(), table.get()) << "still to be seen";
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(second), 0.5, 1e-6);
    host.advance(0.16);
    EXPECT_EQ(second->superview(), nullptr);
    EXPECT_EQ(second->alpha(), 1);
}

// Rows

TEST_F(ChangedTable, TheLastRowOfAGroupHasItsLine) {
    list->fill(3);
    showTable(CGRectMake(0, 0, 320, 480), UITableViewStyleGrouped);
    list->section(0).pop_back();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 2)}, kFade);
    host.advance(1);
    EXPECT_EQ(host.pixel({0, 35 + 88 - 0.5}), (FramePixel{200, 199, 204}));
}

TEST_F(ChangedTable, RowsThatGoAreBelowTheOthers) {
    list->fill(30);
    showTable();
    const Ref<RowCell> second = cellAt(1);
    list->section(0).erase(list->section(0).begin() + 1);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kFade);
    EXPECT_EQ(table->subviews().front(), second.get());
}

TEST_F(KeptCells, LayoutInTheMiddleOfAChangeTakesNoRowsAnimation) {
    list->onDisplay = [](UITableView* showing) {
        showing->setNeedsLayout();
        showing->layoutIfNeeded();
    };
    list->sections[0].insert(list->sections[0].begin(), {10, 11});
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0), rowPath(0, 1)}, kFade);
    host.advance(0);
    for (const NSInteger row : {0, 1})
        EXPECT_EQ(cellAt(row)->layer()->presentationValues().opacity, 0);
    EXPECT_EQ(list->news, (News{"+{0, 0}", "+{0, 1}"}));
}

TEST_F(ChangedTable, AnotherRowHeightInTheMiddleOfAChangeIsPartOfIt) {
    list->fill(30);
    showTable();
    const Ref<RowCell> fourth = cellAt(3);
    const LogLines log;
    table->beginUpdates();
    list->section(0).erase(list->section(0).begin());
    table->setRowHeight(50);
    table->setSectionHeaderHeight(20);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 1)).origin.y, 44) << "not before the end";
    table->endUpdates();
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(table->indexPathForCell(fourth), rowPath(0, 2));
    EXPECT_EQ(fourth->frame(), CGRectMake(0, 100, 320, 50));
    EXPECT_EQ(fourth->layer()->presentationValues().position.y, 132 + 22) << "and on its way";
}

// Cells that come back

TEST_F(KeptCells, AReloadedRowsCellLeavesAndComesBack) {
    for (const auto animation : {kFade, UITableViewRowAnimationNone}) {
        table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, animation);
        EXPECT_EQ(std::exchange(list->news, {}), (News{"-{0, 1}", "+{0, 1}"}));
        EXPECT_EQ(cellAt(1), list->cells[1].get());
        host.advance(1);
        EXPECT_TRUE(list->news.empty()) << "it does not leave twice";
        EXPECT_EQ(cellAt(1), list->cells[1].get());
        EXPECT_EQ(cellAt(1)->superview(), table.get());
        EXPECT_EQ(cellAt(1)->alpha(), 1);
        EXPECT_EQ(cellAt(1)->frame(), CGRectMake(0, 28 + 44, 320, 44));
    }
}

TEST_F(KeptCells, ACellThatComesBackToAnotherRowHasLeftTheFirst) {
    list->sections[0] = {0, 2, 1, 3, 4};
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, kFade);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 2)}, kFade);
    table->endUpdates();
    host.advance(1);
    EXPECT_EQ(list->news, (News{"-{0, 1}", "+{0, 2}"}));
    EXPECT_EQ(cellAt(2), list->cells[1].get());
    EXPECT_EQ(cellAt(2)->superview(), table.get());
}

TEST_F(KeptCells, ACellOnShowDoesNotWaitToBeUsedAgain) {
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(cellAt(1)->superview(), table.get());
    EXPECT_EQ(table->dequeueReusableCellWithIdentifier("kept"), nullptr);
}

TEST_F(KeptCells, WhatWasFadingInATableThatIsGoneIsSeenInAnother) {
    list->header = make<UIView>();
    table->reloadData();
    host.advance(0);
    ASSERT_EQ(list->header->superview(), table.get());
    list->sections.insert(list->sections.begin(), {9});
    list->sections.pop_back();
    const Ref<UIView> header = std::exchange(list->header, nullptr);
    table->reloadSections_withRowAnimation({0}, kFade);
    host.advance(0.1);
    ASSERT_EQ(header->alpha(), 0);
    ASSERT_EQ(list->cells[1]->alpha(), 0);
    table->removeFromSuperview();
    list->header = header;
    list->fill(5);
    showTable();
    EXPECT_EQ(cellAt(1), list->cells[1].get());
    EXPECT_EQ(cellAt(1)->alpha(), 1);
    EXPECT_EQ(table->headerViewForSection(0), header.get());
    EXPECT_EQ(header->alpha(), 1);
}

} // namespace zr::tests
