#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

constexpr auto kFade = UITableViewRowAnimationFade;
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

using Table = TableOnScreen<>;
using UnevenTable = TableOnScreen<UnevenList>;

class BadTable : public Table {
protected:
    BadTable() {
        list->fill(30);
        showTable();
    }
    /// That the table shows what its list has.
    void expectWholeList() {
        host.advance(1);
        std::vector<int> wanted;
        for (const NSIndexPath& path : table->indexPathsForRowsInRect(table->bounds()))
            wanted.push_back(list->itemAt(path));
        EXPECT_EQ(shownItems(), wanted);
        EXPECT_EQ(table->numberOfSections(), static_cast<NSInteger>(list->sections.size()));
        EXPECT_EQ(table->subviews().size(), wanted.size());
    }

    LogLines log;
};

} // namespace

TEST_F(BadTable, ChangesThatDoNotAddUpBecomeAReload) {
    list->fill(20);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("section 0 had 30 rows, -1 by what is inserted, deleted and moved, and has 20"),
              std::string::npos);
    EXPECT_EQ(table->numberOfRowsInSection(0), 20);
    expectWholeList();
}

TEST_F(BadTable, ChangesOfRowsThatAreNotThereBecomeAReload) {
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 30)}, kFade);
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(2, 0)}, kFade);
    table->insertRowsAtIndexPaths_withRowAnimation({nullptr}, kFade);
    table->moveRowAtIndexPath_toIndexPath(rowPath(0, -1), rowPath(0, 0));
    table->deleteSections_withRowAnimation({-1}, kFade);
    table->moveSection_toSection(0, NSNotFound);
    EXPECT_EQ(log.lines.size(), 6u);
    expectWholeList();
}

TEST_F(BadTable, AnEndWithoutABeginningDoesNothing) {
    table->endUpdates();
    list->section(0).push_back(30);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 30)}, kFade);
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(table->numberOfRowsInSection(0), 31);
}

TEST_F(BadTable, ACountThatChangesWithoutAWordIsFoundOut) {
    list->fill(15);
    scrollTo(400);
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("section 0 had 30 rows and now has 15"), std::string::npos);
    EXPECT_EQ(table->contentSize().height, 15 * 44);
    EXPECT_EQ(table->contentOffset().y, 15 * 44 - 480);
    expectWholeList();
    list->sections.clear();
    table->setFrame(CGRectMake(0, 0, 320, 100));
    table->setContentOffset({0, 0});
    expectWholeList();
    EXPECT_EQ(table->numberOfSections(), 0);
}

TEST_F(BadTable, ADataSourceThatGoesLeavesAnEmptyTable) {
    list = nullptr;
    scrollTo(400);
    EXPECT_EQ(table->numberOfSections(), 0);
    EXPECT_TRUE(table->visibleCells().empty());
    host.advance(1);
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(BadTable, ARowWithoutACellIsEmpty) {
    class NoCells : public NumberList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* asked, const NSIndexPath& path) override {
            return path.row() == 1 ? nullptr : NumberList::tableView_cellForRowAtIndexPath(asked, path);
        }
    };
    const auto noCells = make<NoCells>();
    noCells->fill(3);
    table->setDataSource(noCells);
    host.advance(0);
    EXPECT_EQ(table->visibleCells().size(), 3u);
    EXPECT_EQ(cellAt(1), nullptr) << "none of the list's";
    EXPECT_EQ(table->cellForRowAtIndexPath(rowPath(0, 1))->frame(), CGRectMake(0, 44, 320, 44));
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(BadTable, OneCellForTwoRowsShowsOneOfThem) {
    class OneCell : public NumberList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override { return cell; }
        Ref<RowCell> cell = make<RowCell>();
    };
    const auto one = make<OneCell>();
    one->fill(3);
    table->setDataSource(one);
    host.advance(0);
    EXPECT_EQ(cellAt(0), one->cell.get());
    EXPECT_EQ(one->cell->frame(), CGRectMake(0, 0, 320, 44));
    EXPECT_EQ(table->visibleCells().size(), 3u);
    EXPECT_EQ(log.lines.size(), 2u);
}

TEST_F(UnevenTable, HeightsThatAreNoneAreTheTables) {
    const LogLines log;
    const std::vector<CGFloat> heights{kNaN, kInfinity, -kInfinity, -7, 0.3, 1e300, 50};
    list->heightOf = [&](int item) { return heights[static_cast<std::size_t>(item)]; };
    list->fill(7);
    showTable();
    const std::vector<CGFloat> wanted{44, 44, 44, 44, 0, 1'000'000, 50};
    for (NSInteger row = 0; row < 7; ++row)
        EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, row)).size.height, wanted[static_cast<std::size_t>(row)]);
    EXPECT_EQ(log.lines.size(), 1u) << "said once for all";
    EXPECT_TRUE(std::isfinite(table->contentSize().height));
    scrollTo(1'000'100);
    EXPECT_EQ(shownItems(), (std::vector<int>{5, 6}));
    table->setRowHeight(kNaN);
    table->setRowHeight(-3);
    EXPECT_EQ(table->rowHeight(), 44);
}

TEST_F(BadTable, TheTablesHeightsHaveBoundsToo) {
    table->setRowHeight(0.01);
    EXPECT_EQ(table->rowHeight(), 0);
    host.advance(0);
    EXPECT_TRUE(table->visibleCells().empty());
    table->setRowHeight(1e308);
    EXPECT_EQ(table->rowHeight(), 1'000'000);
    EXPECT_EQ(table->contentSize().height, 30'000'000);
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 29)), CGRectMake(0, 29'000'000, 320, 1'000'000));
    table->setSectionHeaderHeight(0.49);
    table->setSectionFooterHeight(1e7);
    EXPECT_EQ(table->sectionHeaderHeight(), 0);
    EXPECT_EQ(table->sectionFooterHeight(), 1'000'000);
    table->setRowHeight(0.5);
    EXPECT_EQ(table->rowHeight(), 0.5);
}

TEST_F(BadTable, WhatIsAddedToAGroupsHeightsIsWithinTheBounds) {
    table->removeFromSuperview();
    list->titles[0] = "Title";
    showTable(CGRectMake(0, 0, 320, 480), UITableViewStyleGrouped);
    table->setSectionHeaderHeight(999'990);
    EXPECT_EQ(table->rectForHeaderInSection(0).size.height, 1'000'000);
}

TEST_F(BadTable, AHeaderViewOfNoHeightCostsNoRows) {
    for (const CGFloat height : {kNaN, kInfinity, -kInfinity}) {
        table->setTableHeaderView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, height)));
        table->setTableFooterView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, height)));
        host.advance(0);
        EXPECT_EQ(shownItems(), NumberList::numbers(11));
        EXPECT_EQ(cellAt(1)->frame(), CGRectMake(0, 44, 320, 44));
        EXPECT_EQ(table->contentSize(), CGSizeMake(320, 30 * 44));
        EXPECT_EQ(table->tableHeaderView()->frame(), CGRectMake(0, 0, 320, 0));
        table->reloadData();
        EXPECT_EQ(table->contentSize(), CGSizeMake(320, 30 * 44));
    }
}

TEST_F(BadTable, AHeaderViewAsHighAsTheWorldHasAnEnd) {
    table->setTableHeaderView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 1e300)));
    table->setTableFooterView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 1e300)));
    EXPECT_EQ(table->contentSize(), CGSizeMake(320, 2'000'000 + 30 * 44));
    scrollTo(1'000'000);
    EXPECT_EQ(shownItems(), NumberList::numbers(11));
    EXPECT_EQ(table->tableFooterView()->frame(), CGRectMake(0, 1'000'000 + 30 * 44, 320, 1'000'000));
}

TEST_F(BadTable, ACountThatIsNeverTheSameIsTakenAsItWasLast) {
    class Growing : public NumberList {
    public:
        NSInteger tableView_numberOfRowsInSection(UITableView* asking, NSInteger section) override {
            if (grows)
                sections[0].push_back(static_cast<int>(sections[0].size()));
            return NumberList::tableView_numberOfRowsInSection(asking, section);
        }
        bool grows = true;
    };
    const auto growing = make<Growing>();
    growing->fill(30);
    table->setDataSource(growing);
    host.advance(0);
    EXPECT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(shownItems(), NumberList::numbers(11));
    scrollTo(400);
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 9));
    EXPECT_EQ(log.lines.size(), 1u) << "once for all";
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(log.lines.size(), 2u) << "a list that is loaded anew is another one";
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 9));
    growing->grows = false;
    const NSInteger rows = table->numberOfRowsInSection(0);
    growing->fill(static_cast<int>(rows) + 1);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, rows)}, kFade);
    growing->fill(15);
    scrollTo(0);
    EXPECT_EQ(log.lines.size(), 3u) << "and so is one that tells of a change";
    EXPECT_EQ(table->numberOfRowsInSection(0), 15);
}

TEST_F(BadTable, EveryCountThatChangesOnceIsFoundOut) {
    for (const int count : {25, 20, 15}) {
        list->fill(count);
        table->setContentOffset({0, 0});
        scrollTo(400);
        EXPECT_EQ(table->numberOfRowsInSection(0), count);
        scrollTo(0);
    }
    EXPECT_EQ(log.lines.size(), 3u);
    list->fill(14);
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    table->endUpdates();
    EXPECT_EQ(log.lines.size(), 3u);
}

TEST_F(BadTable, ACellThatWasAskedForInVainIsUsedAgain) {
    class Reloading : public NumberList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* asking, const NSIndexPath& path) override {
            const auto cell = NumberList::tableView_cellForRowAtIndexPath(asking, path);
            if (!first) {
                first = cell;
                asking->reloadData();
            }
            return cell;
        }
        Ref<UITableViewCell> first;
    };
    const auto reloading = make<Reloading>();
    reloading->fill(30);
    table->removeFromSuperview();
    list = reloading;
    showTable();
    EXPECT_EQ(table->cellForRowAtIndexPath(rowPath(0, 0)), reloading->first.get());
}

TEST_F(BadTable, AbsurdCountsAreCut) {
    class Absurd : public NSObject, public UITableViewDataSource {
    public:
        NSInteger numberOfSectionsInTableView(UITableView*) override { return sections; }
        NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return rows; }
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
            return make<RowCell>();
        }
        NSInteger sections = 1, rows = 1;
    };
    const auto absurd = make<Absurd>();
    const auto show = [&](NSInteger sections, NSInteger rows) {
        absurd->sections = sections;
        absurd->rows = rows;
        table->reloadData();
        host.advance(0);
    };
    table->setDataSource(absurd);
    show(1, -5);
    EXPECT_EQ(table->numberOfRowsInSection(0), 0);
    show(-3, 5);
    EXPECT_EQ(table->numberOfSections(), 0);
    EXPECT_TRUE(log.lines.empty());
    show(2, std::numeric_limits<NSInteger>::max());
    EXPECT_EQ(table->numberOfRowsInSection(0), 100'000'000);
    EXPECT_EQ(table->numberOfRowsInSection(1), 0);
    scrollTo(table->contentSize().height - 480);
    EXPECT_EQ(table->indexPathsForVisibleRows().back(), rowPath(0, 99'999'999));
    show(std::numeric_limits<NSInteger>::max(), 1);
    EXPECT_EQ(table->numberOfSections(), 1'000'000);
    EXPECT_EQ(log.lines.size(), 2u);
    EXPECT_EQ(table->visibleCells().size(), 11u);
}

TEST_F(BadTable, ACellThatSomebodyTakesOutIsReplaced) {
    const Ref<RowCell> taken = cellAt(1);
    taken->removeFromSuperview();
    expectWholeList();
    EXPECT_NE(cellAt(1), taken.get());
    window->addSubview(cellAt(2));
    host.advance(0);
    EXPECT_EQ(table->visibleCells().size(), 11u);
    EXPECT_EQ(cellAt(2)->superview(), table.get());
}

TEST_F(BadTable, ADataSourceThatReloadsWhileItIsAskedComesToAnEnd) {
    class Restless : public NumberList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* asking, const NSIndexPath& path) override {
            if (path.row() == 3 && reloads-- > 0)
                asking->reloadData();
            return NumberList::tableView_cellForRowAtIndexPath(asking, path);
        }
        NSInteger tableView_numberOfRowsInSection(UITableView* asking, NSInteger section) override {
            if (countReloads-- > 0)
                asking->reloadData();
            return NumberList::tableView_numberOfRowsInSection(asking, section);
        }
        int reloads = 5;
        int countReloads = 50;
    };
    const auto restless = make<Restless>();
    restless->fill(30, 100);
    table->setDataSource(restless);
    host.advance(0);
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 100)) << "in a few rounds of layout";
    EXPECT_TRUE(log.lines.empty());

    restless->reloads = 1'000'000;
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(log.lines.size(), 1u) << "the rounds have an end";
    restless->reloads = 0;
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 100));
}

TEST_F(BadTable, ADataSourceMayLetGoOfTheTable) {
    class Deserter : public NumberList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* asking, const NSIndexPath& path) override {
            if (path.row() == 2) {
                asking->removeFromSuperview();
                *held = nullptr;
            }
            return NumberList::tableView_cellForRowAtIndexPath(asking, path);
        }
        Ref<UITableView>* held = nullptr;
    };
    const Weak<UITableView> weak = table;
    const auto deserter = make<Deserter>();
    deserter->held = &table;
    deserter->fill(30);
    table->setDataSource(deserter);
    host.advance(0);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(BadTable, ATableMayGoInTheMiddleOfAChange) {
    list->section(0).erase(list->section(0).begin());
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, kFade);
    host.advance(0.1);
    const Weak<UITableView> weak = table;
    table->removeFromSuperview();
    table = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
    host.advance(1);
    EXPECT_EQ(RowCell::alive, 0);
}

TEST_F(BadTable, AHugeTableShowsItsFirstRows) {
    list->fill(100'000);
    table->reloadData();
    table->setFrame(CGRectMake(0, 0, 320, 1e12));
    host.advance(0);
    EXPECT_EQ(table->visibleCells().size(), 2273u);
    table->setFrame(CGRectMake(0, 0, 320, 480));
    expectWholeList();
}

TEST_F(BadTable, IndexPathsOfNothingAreIgnored) {
    table->scrollToRowAtIndexPath_atScrollPosition_animated(nullptr, UITableViewScrollPositionTop, false);
    table->deselectRowAtIndexPath_animated(rowPath(9, 9), false);
    EXPECT_EQ(table->cellForRowAtIndexPath(nullptr), nullptr);
    EXPECT_TRUE(table->indexPathForCell(nullptr).isNil());
    EXPECT_EQ(table->headerViewForSection(NSNotFound), nullptr);
    EXPECT_EQ(table->indexPathsForRowsInRect(CGRectMake(0, kNaN, 10, 10)), Paths{});
    EXPECT_TRUE(table->indexPathForRowAtPoint({kNaN, kNaN}).isNil());
}

} // namespace zr::tests
