#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

#include <random>

namespace zr::tests {

namespace {

using Table = TableOnScreen<>;
using UnevenTable = TableOnScreen<UnevenList>;

} // namespace

TEST_F(Table, RowsFollowOneAnotherAt44Points) {
    list->fill(20);
    showTable();
    EXPECT_EQ(table->rowHeight(), 44);
    EXPECT_EQ(table->numberOfSections(), 1);
    EXPECT_EQ(table->numberOfRowsInSection(0), 20);
    EXPECT_EQ(table->numberOfRowsInSection(1), 0);
    EXPECT_EQ(table->contentSize(), CGSizeMake(320, 880));
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 3)), CGRectMake(0, 132, 320, 44));
    EXPECT_EQ(table->rectForSection(0), CGRectMake(0, 0, 320, 880));
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 20)), CGRectZero);
    EXPECT_EQ(table->rectForHeaderInSection(4), CGRectZero);
}

TEST_F(Table, OnlyTheRowsInSightHaveCells) {
    list->fill(1000);
    showTable();
    EXPECT_EQ(shownItems(), NumberList::numbers(11));
    EXPECT_EQ(cellAt(10)->frame(), CGRectMake(0, 440, 320, 44));
    EXPECT_EQ(table->cellForRowAtIndexPath(rowPath(0, 11)), nullptr);
    EXPECT_EQ(table->indexPathForCell(cellAt(4)), rowPath(0, 4));
    EXPECT_EQ(table->indexPathsForVisibleRows().size(), 11u);
    EXPECT_EQ(RowCell::alive, 11);
}

TEST_F(Table, AScrollStepTouchesOnlyTheRowsThatEnterAndLeave) {
    list->fill(1000);
    showTable();
    const auto before = table->visibleCells();
    list->cellsAsked = 0;
    scrollTo(4);
    EXPECT_EQ(list->cellsAsked, 0) << "480 points end within the eleventh row";
    EXPECT_EQ(table->visibleCells(), before);
    scrollTo(10);
    EXPECT_EQ(list->cellsAsked, 1);
    EXPECT_EQ(shownItems(), NumberList::numbers(12));
    scrollTo(50);
    EXPECT_EQ(list->cellsAsked, 2) << "one leaves, one enters";
    EXPECT_EQ(shownItems(), NumberList::numbers(12, 1));
    EXPECT_EQ(before[1].get(), cellAt(1)) << "those that stay keep their cells";
    EXPECT_EQ(cellAt(12)->reuses, 1) << "the one that left";
    EXPECT_EQ(cellAt(12), before[0].get());
}

TEST_F(Table, NeverMoreCellsThanFitTheScreenAndTwo) {
    list->fill(100'000);
    showTable();
    std::mt19937 random{5};
    for (int step = 0; step < 200; ++step) {
        scrollTo(static_cast<CGFloat>(random() % 4'000'000));
        ASSERT_LE(RowCell::alive, 13);
    }
    scrollTo(44.0 * 50'000);
    EXPECT_EQ(shownItems(), NumberList::numbers(11, 50'000));
}

TEST_F(Table, WhatHasScrolledIsNotDrawnAgain) {
    class DrawnCell : public UITableViewCell {
    public:
        void drawRect(CGRect) override { ++*drawings; }
        int* drawings = nullptr;
    };
    class DrawingList : public NumberList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
            const auto cell = make<DrawnCell>();
            cell->drawings = &drawings;
            return cell;
        }
        int drawings = 0;
    };
    const auto drawing = make<DrawingList>();
    drawing->fill(100);
    showTable();
    table->setDataSource(drawing);
    host.advance(0);
    EXPECT_EQ(drawing->drawings, 11);
    scrollTo(3);
    EXPECT_EQ(drawing->drawings, 11);
    scrollTo(47);
    EXPECT_EQ(drawing->drawings, 12);
}

TEST_F(Table, HeightsOfTheTableCountWhereTheDelegateGivesNone) {
    list->fill(20);
    showTable();
    table->setRowHeight(60);
    host.advance(0);
    EXPECT_EQ(table->contentSize().height, 1200);
    EXPECT_EQ(cellAt(1)->frame(), CGRectMake(0, 60, 320, 60));
    EXPECT_EQ(shownItems(), NumberList::numbers(8));
}

TEST_F(UnevenTable, TheDelegateGivesHeights) {
    list->fill(9);
    showTable();
    EXPECT_EQ(table->contentSize().height, 450);
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 4)), CGRectMake(0, 190, 320, 50));
    EXPECT_EQ(cellAt(4)->frame(), CGRectMake(0, 190, 320, 50));
    EXPECT_EQ(table->indexPathForRowAtPoint({5, 239.5}), rowPath(0, 4));
    EXPECT_EQ(table->indexPathForRowAtPoint({5, 240}), rowPath(0, 5));
}

TEST_F(UnevenTable, AnAutomaticHeightIsTheTables) {
    list->heightOf = [](int item) -> CGFloat { return item == 0 ? UITableViewAutomaticDimension : 100; };
    list->fill(2);
    showTable();
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 0)).size.height, 44);
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 1)).size.height, 100);
}

TEST_F(UnevenTable, RowsWithoutHeightAreNotSeen) {
    list->heightOf = [](int item) -> CGFloat { return item % 2 == 0 ? 50 : 0; };
    list->fill(6);
    showTable();
    EXPECT_EQ(shownItems(), (std::vector<int>{0, 2, 4}));
    EXPECT_EQ(table->contentSize().height, 150);
}

TEST_F(Table, ADelegateThatGivesNoHeightsIsAskedOnce) {
    class Silent : public NumberList {
    public:
        CGFloat tableView_heightForHeaderInSection(UITableView*, NSInteger) override { return 10; }
    };
    // An override of something else answers nothing about rows: ten million questions would be noticed.
    const auto silent = make<Silent>();
    class Millions : public NSObject, public UITableViewDataSource {
    public:
        NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return 10'000'000; }
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
            return make<RowCell>();
        }
    };
    const auto millions = make<Millions>();
    showTable();
    table->setDataSource(millions);
    table->setDelegate(silent);
    host.advance(0);
    EXPECT_EQ(table->contentSize().height, 440'000'010);
    scrollTo(440'000'010 - 480);
    EXPECT_EQ(table->indexPathsForVisibleRows().back(), rowPath(0, 9'999'999));
    EXPECT_EQ(table->cellForRowAtIndexPath(rowPath(0, 9'999'999))->frame(), CGRectMake(0, 439'999'966, 320, 44));
}

TEST_F(Table, FindsRowsByPlaceAndPlacesByRow) {
    list->sections = {NumberList::numbers(3), NumberList::numbers(2, 10)};
    list->titles[1] = "Second";
    showTable();
    EXPECT_EQ(table->rectForHeaderInSection(1), CGRectMake(0, 132, 320, 28));
    EXPECT_EQ(table->rectForSection(1), CGRectMake(0, 132, 320, 116));
    EXPECT_EQ(table->indexPathForRowAtPoint({10, 100}), rowPath(0, 2));
    EXPECT_TRUE(table->indexPathForRowAtPoint({10, 140}).isNil());
    EXPECT_TRUE(table->indexPathForRowAtPoint({-1, 100}).isNil());
    EXPECT_EQ(table->indexPathsForRowsInRect(CGRectMake(0, 88, 10, 100)), (Paths{rowPath(0, 2), rowPath(1, 0)}));
    EXPECT_EQ(table->indexPathsForRowsInRect(CGRectMake(400, 88, 10, 100)), Paths{});
}

TEST_F(Table, APlainHeaderStaysInSightWithItsRows) {
    list->sections = {NumberList::numbers(10), NumberList::numbers(30, 10)};
    list->titles = {{0, "First"}, {1, "Second"}};
    showTable();
    EXPECT_EQ(table->headerViewForSection(0)->frame(), CGRectMake(0, 0, 320, 28));
    EXPECT_EQ(dynamic_cast<UITableViewHeaderFooterView*>(table->headerViewForSection(0))->textLabel()->text(),
              NSString("First"));
    scrollTo(100);
    EXPECT_EQ(table->headerViewForSection(0)->frame(), CGRectMake(0, 100, 320, 28));
    EXPECT_EQ(table->headerViewForSection(1)->frame(), CGRectMake(0, 468, 320, 28));
    scrollTo(460);
    EXPECT_EQ(table->headerViewForSection(0)->frame(), CGRectMake(0, 440, 320, 28)) << "pushed by the next one";
    scrollTo(500);
    EXPECT_EQ(table->headerViewForSection(0), nullptr);
    EXPECT_EQ(table->headerViewForSection(1)->frame(), CGRectMake(0, 500, 320, 28));
    table->setContentInset({64, 0, 0, 0});
    host.advance(0);
    EXPECT_EQ(table->headerViewForSection(1)->frame(), CGRectMake(0, 564, 320, 28)) << "below the inset";
}

TEST_F(Table, AStuckHeaderCoversTheRowsBelowIt) {
    list->sections = {NumberList::numbers(30)};
    list->titles[0] = "Title";
    showTable();
    table->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
    scrollTo(100);
    const FramePixel header{247, 247, 247};
    EXPECT_EQ(host.pixel({300, 5}), header);
    EXPECT_EQ(host.pixel({300, 27.5}), header);
    EXPECT_EQ(host.pixel({300, 28}), kWhiteOnScreen);
}

TEST_F(Table, AGroupedSectionIsSetApart) {
    list->sections = {NumberList::numbers(2), NumberList::numbers(1, 2)};
    list->titles[1] = "Second";
    showTable(CGRectMake(0, 0, 320, 480), UITableViewStyleGrouped);
    EXPECT_EQ(table->rectForHeaderInSection(0), CGRectMake(0, 0, 320, 35));
    EXPECT_EQ(table->rectForFooterInSection(0), CGRectMake(0, 123, 320, 18));
    EXPECT_EQ(table->rectForHeaderInSection(1), CGRectMake(0, 141, 320, 38));
    EXPECT_EQ(table->contentSize().height, 241);
    const FramePixel ground{239, 239, 244};
    EXPECT_EQ(host.pixel({160, 20}), ground);
    EXPECT_EQ(host.pixel({160, 60}), kWhiteOnScreen);
    EXPECT_EQ(host.pixel({160, 400}), ground);
}

TEST_F(Table, AGroupedHeaderScrollsAway) {
    list->sections = {NumberList::numbers(40)};
    list->titles[0] = "First";
    showTable(CGRectMake(0, 0, 320, 480), UITableViewStyleGrouped);
    EXPECT_EQ(table->headerViewForSection(0)->frame(), CGRectMake(0, 0, 320, 55));
    scrollTo(60);
    EXPECT_EQ(table->headerViewForSection(0), nullptr);
}

namespace {

/// Headers and footers of the delegate's own.
class EdgeList : public NumberList {
public:
    Ref<UIView> tableView_viewForHeaderInSection(UITableView* table, NSInteger section) override {
        auto view = table->dequeueReusableHeaderFooterViewWithIdentifier("edge");
        view->setTag(section);
        return view;
    }
    Ref<UIView> tableView_viewForFooterInSection(UITableView*, NSInteger) override { return make<UIView>(); }
    CGFloat tableView_heightForFooterInSection(UITableView*, NSInteger section) override {
        return section == 0 ? 12 : 0;
    }
};

} // namespace

TEST_F(Table, TheDelegateGivesHeadersAndFooters) {
    const auto edges = make<EdgeList>();
    edges->sections = {NumberList::numbers(2), NumberList::numbers(2)};
    table = make<UITableView>(&UITableView::initWithFrame, CGRectMake(0, 0, 320, 480));
    table->registerClass_forHeaderFooterViewReuseIdentifier<UITableViewHeaderFooterView>("edge");
    table->setDataSource(edges);
    table->setDelegate(edges);
    window->addSubview(table);
    host.advance(0);
    EXPECT_EQ(table->rectForHeaderInSection(1), CGRectMake(0, 128, 320, 28));
    EXPECT_EQ(table->headerViewForSection(1)->tag(), 1);
    EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 116, 320, 12));
    EXPECT_EQ(table->footerViewForSection(1), nullptr) << "no height";
}

TEST_F(Table, ViewsOfItsOwnComeBeforeAndAfterTheRows) {
    list->fill(3);
    showTable();
    const auto above = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 50, 100));
    const auto below = make<UIView>(&UIView::initWithFrame, CGRectMake(7, 7, 50, 60));
    table->setTableHeaderView(above);
    table->setTableFooterView(below);
    host.advance(0);
    EXPECT_EQ(above->frame(), CGRectMake(0, 0, 320, 100));
    EXPECT_EQ(cellAt(0)->frame(), CGRectMake(0, 100, 320, 44));
    EXPECT_EQ(below->frame(), CGRectMake(0, 232, 320, 60));
    EXPECT_EQ(table->contentSize().height, 292);
    above->setFrame(CGRectMake(0, 0, 320, 10));
    table->setTableHeaderView(above);
    EXPECT_EQ(cellAt(0)->frame(), CGRectMake(0, 10, 320, 44));
    table->setTableHeaderView(nullptr);
    EXPECT_EQ(above->superview(), nullptr);
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 0)).origin.y, 0);
}

TEST_F(Table, ItsBackgroundStaysBehindTheRows) {
    list->fill(30);
    showTable();
    const auto background = make<UIView>();
    background->setBackgroundColor(UIColor::redColor());
    table->setBackgroundView(background);
    scrollTo(77);
    EXPECT_EQ(background->frame(), CGRectMake(0, 77, 320, 480));
    EXPECT_EQ(table->subviews().front().get(), background.get());
    EXPECT_EQ(host.pixel({160, 50}), kWhiteOnScreen);
}

TEST_F(Table, CellsFollowTheTablesWidth) {
    list->fill(3);
    showTable();
    table->setFrame(CGRectMake(0, 0, 200, 480));
    host.advance(0);
    EXPECT_EQ(cellAt(1)->frame(), CGRectMake(0, 44, 200, 44));
    EXPECT_EQ(table->contentSize().width, 200);
}

TEST_F(Table, ReloadingMakesEverythingAnew) {
    list->fill(30);
    showTable();
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 1), false, UITableViewScrollPositionNone);
    list->fill(5, 100);
    table->reloadData();
    EXPECT_EQ(table->contentSize().height, 220) << "at once";
    EXPECT_TRUE(table->indexPathForSelectedRow().isNil());
    host.advance(0);
    EXPECT_EQ(shownItems(), NumberList::numbers(5, 100));
    EXPECT_FALSE(cellAt(1)->isSelected());
    EXPECT_LE(RowCell::alive, 11);
}

TEST_F(Table, ScrollsToRows) {
    list->sections = {NumberList::numbers(100)};
    list->titles[0] = "Title";
    showTable();
    const auto offsetAfter = [&](NSInteger row, UITableViewScrollPosition position) {
        table->scrollToRowAtIndexPath_atScrollPosition_animated(rowPath(0, row), position, false);
        return table->contentOffset().y;
    };
    // Row n is at 28 + 44 n.
    EXPECT_EQ(offsetAfter(50, UITableViewScrollPositionTop), 2200) << "below the header that sticks";
    EXPECT_EQ(offsetAfter(50, UITableViewScrollPositionBottom), 28 + 44 * 51 - 480);
    EXPECT_EQ(offsetAfter(50, UITableViewScrollPositionMiddle), (2200 + 28 + 44 * 51 - 480) / 2.0);
    EXPECT_EQ(offsetAfter(50, UITableViewScrollPositionNone), (2200 + 28 + 44 * 51 - 480) / 2.0) << "it is in sight";
    EXPECT_EQ(offsetAfter(10, UITableViewScrollPositionNone), 440);
    EXPECT_EQ(offsetAfter(40, UITableViewScrollPositionNone), 28 + 44 * 41 - 480);
    EXPECT_EQ(offsetAfter(99, UITableViewScrollPositionTop), 28 + 4400 - 480) << "not beyond the end";
    EXPECT_EQ(offsetAfter(0, UITableViewScrollPositionBottom), 0);
    EXPECT_EQ(offsetAfter(500, UITableViewScrollPositionTop), 0) << "no such row";
}

TEST_F(Table, ScrollsToRowsBetweenTheInsets) {
    list->fill(100);
    showTable();
    table->setContentInset({64, 0, 50, 0});
    const auto offsetAfter = [&](NSInteger row, UITableViewScrollPosition position) {
        table->scrollToRowAtIndexPath_atScrollPosition_animated(rowPath(0, row), position, false);
        return table->contentOffset().y;
    };
    EXPECT_EQ(offsetAfter(50, UITableViewScrollPositionTop), 44 * 50 - 64);
    EXPECT_EQ(offsetAfter(50, UITableViewScrollPositionBottom), 44 * 51 - 480 + 50);
    EXPECT_EQ(offsetAfter(0, UITableViewScrollPositionTop), -64);
    EXPECT_EQ(offsetAfter(99, UITableViewScrollPositionTop), 4400 - 480 + 50);
}

TEST_F(Table, RegisteredClassesAndWaitingCells) {
    list->fill(3);
    showTable();
    EXPECT_EQ(table->dequeueReusableCellWithIdentifier("other"), nullptr);
    table->registerClass_forCellReuseIdentifier<RowCell>("other");
    const auto cell = table->dequeueReusableCellWithIdentifier("other");
    ASSERT_NE(dynamicCast<RowCell>(cell), nullptr);
    EXPECT_EQ(cell->reuseIdentifier(), NSString("other"));
    EXPECT_EQ(table->dequeueReusableCellWithIdentifier_forIndexPath("other", rowPath(0, 2))->frame(),
              CGRectMake(0, 88, 320, 44));
    const CGRect own = table->dequeueReusableCellWithIdentifier("other")->frame();
    for (const NSIndexPath& nowhere : {rowPath(0, 3), rowPath(9, 0), NSIndexPath()})
        EXPECT_EQ(table->dequeueReusableCellWithIdentifier_forIndexPath("other", nowhere)->frame(), own);
}

TEST_F(Table, WithoutARegisteredClassACellIsPlain) {
    list->fill(3);
    showTable();
    const LogLines log;
    EXPECT_EQ(table->dequeueReusableCellWithIdentifier("unknown"), nullptr);
    EXPECT_TRUE(log.lines.empty());
    const auto cell = table->dequeueReusableCellWithIdentifier_forIndexPath("unknown", rowPath(0, 2));
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->reuseIdentifier(), "unknown");
    EXPECT_EQ(cell->frame(), CGRectMake(0, 88, 320, 44));
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("\"unknown\""), std::string::npos);
    EXPECT_EQ(table->dequeueReusableCellWithIdentifier_forIndexPath("unknown", rowPath(0, 3))->frame().origin,
              CGPointZero);
}

TEST_F(Table, ItsPropertiesAreKeys) {
    list->fill(30);
    showTable();
    const auto header = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 50)), behind = make<UIView>();
    table->setValue_forKey(60, "rowHeight");
    table->setValue_forKey(header, "tableHeaderView");
    table->setValue_forKey(behind, "backgroundView");
    table->setValue_forKey(false, "allowsSelection");
    table->setValue_forKey(true, "allowsMultipleSelection");
    table->setValue_forKey(UITableViewCellSeparatorStyleNone, "separatorStyle");
    table->setValue_forKey(true, "editing");
    host.advance(0);
    EXPECT_EQ(table->rectForRowAtIndexPath(rowPath(0, 1)), CGRectMake(0, 110, 320, 60));
    EXPECT_EQ(header->superview(), table.get());
    EXPECT_EQ(table->backgroundView(), behind.get());
    EXPECT_FALSE(table->allowsSelection());
    EXPECT_TRUE(table->allowsMultipleSelection());
    EXPECT_EQ(table->separatorStyle(), UITableViewCellSeparatorStyleNone);
    EXPECT_TRUE(table->isEditing());
    EXPECT_TRUE(cellAt(0)->isEditing());
    EXPECT_EQ(table->valueForKey("rowHeight").doubleValue(), 60);
    EXPECT_EQ(table->valueForKey("tableHeaderView").objectValue(), header.get());
}

TEST_F(Table, TellsWhatComesIntoSightAndWhatHasLeft) {
    class Watching : public NumberList {
    public:
        void tableView_willDisplayCell_forRowAtIndexPath(UITableView*, UITableViewCell* cell,
                                                         const NSIndexPath& path) override {
            log.push_back("+" + written(path) + (cell->superview() ? "" : "!"));
        }
        void tableView_didEndDisplayingCell_forRowAtIndexPath(UITableView*, UITableViewCell* cell,
                                                              const NSIndexPath& path) override {
            log.push_back("-" + written(path) + (cell->superview() ? "!" : ""));
        }
        std::vector<std::string> log;
    };
    const auto watching = make<Watching>();
    watching->fill(100);
    showTable(CGRectMake(0, 0, 320, 88));
    table->setDataSource(watching);
    table->setDelegate(watching);
    host.advance(0);
    EXPECT_EQ(std::exchange(watching->log, {}), (News{"+{0, 0}", "+{0, 1}"}));
    scrollTo(44);
    EXPECT_EQ(watching->log, (News{"-{0, 0}", "+{0, 2}"}));
}

TEST_F(Table, SeparatorsAreHairlines) {
    list->fill(3);
    showTable();
    const FramePixel line{200, 199, 204};
    EXPECT_EQ(host.pixel({15, 43.5}), line);
    EXPECT_EQ(host.pixel({319, 43.5}), line);
    EXPECT_EQ(host.pixel({14, 43.5}), kWhiteOnScreen);
    EXPECT_EQ(host.pixel({160, 43}), kWhiteOnScreen);
    table->setSeparatorColor(UIColor::redColor());
    table->setSeparatorInset({0, 0, 0, 100});
    EXPECT_EQ(host.pixel({0, 43.5}), kRedOnScreen);
    EXPECT_EQ(host.pixel({220, 43.5}), kWhiteOnScreen);
    cellAt(0)->setSeparatorInset({0, 50, 0, 0});
    EXPECT_EQ(host.pixel({49, 43.5}), kWhiteOnScreen);
    EXPECT_EQ(host.pixel({300, 43.5}), kRedOnScreen);
    table->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
    EXPECT_EQ(host.pixel({160, 43.5}), kWhiteOnScreen);
}

TEST_F(Table, LinesAroundAGroupGoFromSideToSide) {
    list->fill(2);
    showTable(CGRectMake(0, 0, 320, 480), UITableViewStyleGrouped);
    const FramePixel line{200, 199, 204};
    EXPECT_EQ(host.pixel({0, 35}), line) << "above the first row";
    EXPECT_EQ(host.pixel({0, 78.5}), kWhiteOnScreen) << "between them";
    EXPECT_EQ(host.pixel({15, 78.5}), line);
    EXPECT_EQ(host.pixel({0, 122.5}), line) << "below the last row";
}

TEST_F(Table, TheEditingFlagReachesTheCells) {
    list->fill(100);
    showTable();
    table->setEditing(true);
    EXPECT_TRUE(cellAt(3)->isEditing());
    scrollTo(1000);
    for (const auto& cell : table->visibleCells())
        EXPECT_TRUE(cell->isEditing());
    table->setEditing(false);
    EXPECT_FALSE(table->visibleCells().front()->isEditing());
}

TEST_F(Table, IndentationIsAskedForAsTheRowComesIntoSight) {
    class Indented : public NumberList {
    public:
        NSInteger tableView_indentationLevelForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
            return path.row();
        }
    };
    const auto indented = make<Indented>();
    indented->fill(3);
    showTable();
    table->setDataSource(indented);
    table->setDelegate(indented);
    host.advance(0);
    EXPECT_EQ(cellAt(2)->indentationLevel(), 2);
    list->fill(3);
    table->setDelegate(list);
    host.advance(0);
    EXPECT_EQ(cellAt(0)->indentationLevel(), 2) << "nobody answers: the cell's own, which showed the last row";
}

TEST_F(Table, CellsKnowTheirTable) {
    list->fill(1);
    showTable();
    const Ref<UITableViewCell> cell = cellAt(0);
    EXPECT_EQ(cell->_tableView(), table.get());
    EXPECT_EQ(cell->valueForKey("_tableView").as<UITableView*>(), table.get());
    list->fill(0);
    table->reloadData();
    EXPECT_EQ(cell->_tableView(), table.get()) << "it still waits there";
    table->removeFromSuperview();
    table = nullptr;
    EXPECT_EQ(cell->_tableView(), nullptr);
}

} // namespace zr::tests
