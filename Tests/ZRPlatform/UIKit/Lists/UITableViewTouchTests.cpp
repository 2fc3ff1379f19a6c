#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

#include <ZRPlatform/UIKit/Controls/UIButton.h>

namespace zr::tests {

namespace {

/// Longer than a scroll view keeps a touch from its content.
constexpr double kContentDelay = 0.2;

/// Writes down what the table tells of touches, and answers as it is set.
class TappedList : public NumberList {
public:
    bool tableView_shouldHighlightRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("should highlight ", table, path);
        return mayHighlight;
    }
    void tableView_didHighlightRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("did highlight ", table, path);
    }
    void tableView_didUnhighlightRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("did unhighlight ", table, path);
    }
    NSIndexPath tableView_willSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("will select ", table, path);
        return willSelect ? willSelect(table, path) : path;
    }
    NSIndexPath tableView_willDeselectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("will deselect ", table, path);
        return mayDeselect ? path : NSIndexPath();
    }
    void tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("did select ", table, path);
    }
    void tableView_didDeselectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("did deselect ", table, path);
    }
    void tableView_accessoryButtonTappedForRowWithIndexPath(UITableView* table, const NSIndexPath& path) override {
        note("detail ", table, path);
    }
    News news() { return std::exchange(log, {}); }

    News log;
    bool mayHighlight = true;
    bool mayDeselect = true;
    std::function<NSIndexPath(UITableView*, const NSIndexPath&)> willSelect;
    /// Done when the line is written that begins with these words.
    std::string actsWhen;
    std::function<void(UITableView*, const NSIndexPath&)> act;

private:
    void note(const std::string& what, UITableView* table, const NSIndexPath& path) {
        log.push_back(what + written(path));
        if (act && what == actsWhen + " ")
            act(table, path);
    }
};

class TappedTable : public TableOnScreen<TappedList> {
protected:
    TappedTable() {
        list->fill(30);
        showTable();
    }
    void tapRow(NSInteger row) { host.tap({100, 44.0 * static_cast<CGFloat>(row) + 22}); }
    void when(const std::string& told, std::function<void(UITableView*, const NSIndexPath&)> act) {
        list->actsWhen = told;
        list->act = std::move(act);
    }
    Paths selected() const { return table->indexPathsForSelectedRows(); }
};

} // namespace

TEST_F(TappedTable, ATapSelects) {
    tapRow(2);
    EXPECT_EQ(list->news(), (News{"should highlight {0, 2}", "did highlight {0, 2}", "did unhighlight {0, 2}",
                                  "will select {0, 2}", "did select {0, 2}"}));
    EXPECT_EQ(table->indexPathForSelectedRow(), rowPath(0, 2));
    EXPECT_TRUE(cellAt(2)->isSelected());
    EXPECT_FALSE(cellAt(2)->isHighlighted());
}

TEST_F(TappedTable, AnotherTapSelectsAnother) {
    tapRow(2);
    list->news();
    tapRow(4);
    EXPECT_EQ(list->news(),
              (News{"should highlight {0, 4}", "did highlight {0, 4}", "did unhighlight {0, 4}", "will select {0, 4}",
                    "will deselect {0, 2}", "did deselect {0, 2}", "did select {0, 4}"}));
    EXPECT_EQ(selected(), Paths{rowPath(0, 4)});
    EXPECT_FALSE(cellAt(2)->isSelected());
}

TEST_F(TappedTable, ARowIsHighlightedWhileAFingerIsOnIt) {
    host.touchDown({100, 30});
    host.advance(kContentDelay);
    EXPECT_TRUE(cellAt(0)->isHighlighted());
    EXPECT_FALSE(cellAt(0)->isSelected());
    EXPECT_EQ(host.pixel({200, 22}), (FramePixel{217, 217, 217}));
    host.touchUp();
    EXPECT_TRUE(cellAt(0)->isSelected());
    EXPECT_EQ(list->log.size(), 5u);
}

TEST_F(TappedTable, AFingerThatLeavesTheRowSelectsNothing) {
    table->setScrollEnabled(false);
    host.touchDown({100, 30});
    host.advance(kContentDelay);
    host.touchMove({100, 50}, 1.0);
    EXPECT_FALSE(cellAt(0)->isHighlighted());
    host.touchMove({100, 30}, 1.0);
    host.touchUp();
    EXPECT_EQ(list->news(), (News{"should highlight {0, 0}", "did highlight {0, 0}", "did unhighlight {0, 0}"}));
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, ACancelledTouchSelectsNothing) {
    host.touchDown({100, 30});
    host.advance(kContentDelay);
    host.touchCancel();
    EXPECT_FALSE(cellAt(0)->isHighlighted());
    EXPECT_EQ(list->log.back(), "did unhighlight {0, 0}");
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, ASecondFingerIsIgnored) {
    host.touchDown({100, 30});
    host.advance(kContentDelay);
    host.touchDown({100, 100}, 1);
    host.advance(kContentDelay);
    host.touchUp(1);
    EXPECT_EQ(selected(), Paths{});
    host.touchUp();
    EXPECT_EQ(selected(), Paths{rowPath(0, 0)});
}

TEST_F(TappedTable, WhatMayNotBeHighlightedIsNotSelected) {
    list->mayHighlight = false;
    tapRow(1);
    EXPECT_EQ(list->news(), News{"should highlight {0, 1}"});
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, TheDelegateMaySelectAnotherRowOrNone) {
    list->willSelect = [](UITableView*, const NSIndexPath&) { return rowPath(0, 7); };
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 7)});
    EXPECT_EQ(list->log.back(), "did select {0, 7}");
    list->willSelect = [](UITableView*, const NSIndexPath&) { return NSIndexPath(); };
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 7)});
    const LogLines log;
    list->willSelect = [](UITableView*, const NSIndexPath&) { return rowPath(3, 7); };
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 7)});
    EXPECT_EQ(log.lines.size(), 1u) << "there is no such row";
}

TEST_F(TappedTable, TheDelegateMayKeepARowSelected) {
    tapRow(1);
    list->mayDeselect = false;
    tapRow(2);
    EXPECT_EQ(selected(), (Paths{rowPath(0, 1), rowPath(0, 2)}));
}

TEST_F(TappedTable, WithoutSelectionNothingIsAsked) {
    table->setAllowsSelection(false);
    tapRow(1);
    EXPECT_TRUE(list->log.empty());
    table->setEditing(true);
    table->setAllowsSelectionDuringEditing(true);
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 1)});
    table->setAllowsSelectionDuringEditing(false);
    table->setAllowsSelection(true);
    tapRow(2);
    EXPECT_EQ(selected(), Paths{rowPath(0, 1)});
}

TEST_F(TappedTable, SeveralRowsAreTappedOnAndOff) {
    table->setAllowsMultipleSelection(true);
    tapRow(1);
    tapRow(3);
    EXPECT_EQ(selected(), (Paths{rowPath(0, 1), rowPath(0, 3)}));
    list->news();
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 3)});
    EXPECT_EQ(list->log.back(), "did deselect {0, 1}");
}

TEST_F(TappedTable, CodeSelectsWithoutTelling) {
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 20), false, UITableViewScrollPositionTop);
    host.advance(0);
    EXPECT_EQ(selected(), Paths{rowPath(0, 20)});
    EXPECT_EQ(table->contentOffset().y, 30 * 44 - 480);
    EXPECT_TRUE(cellAt(20)->isSelected());
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 22), false, UITableViewScrollPositionNone);
    EXPECT_EQ(selected(), Paths{rowPath(0, 22)});
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 99), false, UITableViewScrollPositionNone);
    EXPECT_EQ(selected(), Paths{rowPath(0, 22)}) << "no such row";
    table->deselectRowAtIndexPath_animated(rowPath(0, 22), false);
    EXPECT_EQ(selected(), Paths{});
    EXPECT_FALSE(cellAt(22)->isSelected());
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 21), false, UITableViewScrollPositionNone);
    table->selectRowAtIndexPath_animated_scrollPosition(nullptr, false, UITableViewScrollPositionNone);
    EXPECT_EQ(selected(), Paths{});
    EXPECT_TRUE(list->log.empty());
}

TEST_F(TappedTable, ASelectedRowIsSelectedWheneverItComesIntoSight) {
    tapRow(1);
    scrollTo(600);
    for (const auto& cell : table->visibleCells())
        EXPECT_FALSE(cell->isSelected());
    scrollTo(0);
    EXPECT_TRUE(cellAt(1)->isSelected());
    EXPECT_FALSE(cellAt(2)->isSelected());
}

TEST_F(TappedTable, ScrollsToTheNearestSelectedRow) {
    table->setAllowsMultipleSelection(true);
    for (const NSInteger row : {1, 16, 29})
        table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, row), false, UITableViewScrollPositionNone);
    scrollTo(400);
    table->scrollToNearestSelectedRowAtScrollPosition_animated(UITableViewScrollPositionTop, false);
    EXPECT_EQ(table->contentOffset().y, 704);
}

TEST_F(TappedTable, AControlInARowKeepsItsTouches) {
    const auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setFrame(CGRectMake(200, 0, 100, 44));
    const auto listener = make<Listener>();
    listener->listenTo(button);
    cellAt(1)->contentView()->addSubview(button);
    host.tap({250, 66});
    EXPECT_EQ(listener->news().back(), "up inside");
    EXPECT_TRUE(list->log.empty());
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 1)}) << "beside the button";
}

TEST_F(TappedTable, TheDetailButtonIsToldByItself) {
    cellAt(2)->setAccessoryType(UITableViewCellAccessoryDetailDisclosureButton);
    host.advance(0);
    host.tap({270, 110});
    EXPECT_EQ(list->news(), News{"detail {0, 2}"});
}

TEST_F(TappedTable, ATapBesideTheRowsSelectsNothing) {
    list->fill(2);
    list->titles[0] = "Title";
    table->reloadData();
    host.advance(0);
    host.tap({100, 10});
    host.tap({100, 300});
    EXPECT_TRUE(list->log.empty());
}

TEST_F(TappedTable, AReloadWhileAFingerIsDownEndsTheTouch) {
    host.touchDown({100, 30});
    host.advance(kContentDelay);
    list->news();
    table->reloadData();
    EXPECT_EQ(list->news(), News{"did unhighlight {0, 0}"});
    host.advance(0);
    EXPECT_FALSE(cellAt(0)->isHighlighted());
    host.touchUp();
    EXPECT_EQ(selected(), Paths{});
    EXPECT_EQ(list->news(), News{});
    tapRow(1);
    EXPECT_EQ(selected(), Paths{rowPath(0, 1)}) << "the next one counts";
}

TEST_F(TappedTable, ARowThatMovesUnderTheFingerIsTheOneThatIsSelected) {
    host.touchDown({100, 66});
    host.advance(kContentDelay);
    auto& items = list->section(0);
    items.insert(items.begin(), 100);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(0, 0)}, UITableViewRowAnimationNone);
    EXPECT_TRUE(cellAt(2)->isHighlighted());
    EXPECT_EQ(cellAt(2)->item, 1);
    EXPECT_EQ(list->log.back(), "did highlight {0, 1}");
    host.touchUp();
    EXPECT_EQ(selected(), Paths{rowPath(0, 2)});
}

TEST_F(TappedTable, ARowThatIsDeletedUnderTheFingerSelectsNothing) {
    host.touchDown({100, 66});
    host.advance(kContentDelay);
    auto& items = list->section(0);
    items.erase(items.begin() + 1);
    list->news();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, UITableViewRowAnimationFade);
    EXPECT_EQ(list->news(), News{"did unhighlight {0, 1}"});
    host.advance(1);
    host.touchUp();
    EXPECT_EQ(selected(), Paths{});
    EXPECT_EQ(list->news(), News{});
}

TEST_F(TappedTable, ARowThatIsReloadedUnderTheFingerSelectsNothing) {
    host.touchDown({100, 66});
    host.advance(kContentDelay);
    list->news();
    const Ref<RowCell> touched = cellAt(1);
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, UITableViewRowAnimationFade);
    EXPECT_FALSE(touched->isHighlighted());
    EXPECT_FALSE(cellAt(1)->isHighlighted());
    host.touchUp();
    EXPECT_EQ(list->news(), News{"did unhighlight {0, 1}"});
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, AChangeWhileATouchEndsBecauseOfAChangeIsNotLost) {
    const LogLines log;
    host.touchDown({100, 66});
    host.advance(kContentDelay);
    list->section(0)[1] = 77;
    when("did unhighlight", [this](UITableView* told, const NSIndexPath&) {
        list->fill(5, 100);
        told->reloadData();
    });
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, UITableViewRowAnimationFade);
    host.advance(1);
    host.touchUp();
    EXPECT_EQ(shownItems(), NumberList::numbers(5, 100));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(TappedTable, ATapMayDeleteItsOwnRow) {
    when("did select", [this](UITableView* tapped, const NSIndexPath& path) {
        auto& items = list->section(0);
        items.erase(items.begin() + path.row());
        tapped->deleteRowsAtIndexPaths_withRowAnimation({path}, UITableViewRowAnimationFade);
    });
    tapRow(1);
    host.advance(0.5);
    EXPECT_EQ(shownItems(), (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, AReloadInTheMiddleOfASelectionStopsIt) {
    list->willSelect = [](UITableView* tapped, const NSIndexPath& path) {
        tapped->reloadData();
        return path;
    };
    tapRow(1);
    EXPECT_EQ(list->log.back(), "will select {0, 1}");
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, AReloadAsTheHighlightEndsStopsTheSelection) {
    when("did unhighlight", [](UITableView* tapped, const NSIndexPath&) { tapped->reloadData(); });
    tapRow(1);
    EXPECT_EQ(list->log.back(), "did unhighlight {0, 1}");
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, AReloadAsAnotherRowIsDeselectedStopsTheSelection) {
    tapRow(1);
    when("did deselect", [](UITableView* tapped, const NSIndexPath&) { tapped->reloadData(); });
    tapRow(2);
    EXPECT_EQ(list->log.back(), "did deselect {0, 1}");
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, ARowThatGoesWhileItIsAskedForIsNotHighlighted) {
    when("should highlight", [this](UITableView* touched, const NSIndexPath&) {
        list->fill(5, 100);
        touched->reloadData();
    });
    tapRow(1);
    EXPECT_EQ(list->news(), News{"should highlight {0, 1}"});
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, WhatMayBeSelectedCountsAsTheFingerGoesUp) {
    host.touchDown({100, 66});
    host.advance(kContentDelay);
    table->setAllowsSelection(false);
    host.touchUp();
    EXPECT_EQ(list->log.back(), "did unhighlight {0, 1}");
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, ARowThatLeavesTheSightUnderAFingerComesBackWithoutHighlight) {
    class Keeping : public TappedList {
    public:
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
            Ref<RowCell>& cell = cells[path.row()];
            if (!cell)
                cell = make<RowCell>();
            return cell;
        }
        std::map<NSInteger, Ref<RowCell>> cells;
    };
    table->removeFromSuperview();
    list = make<Keeping>();
    list->fill(30);
    showTable();
    host.touchDown({100, 66});
    host.advance(kContentDelay);
    ASSERT_TRUE(cellAt(1)->isHighlighted());
    scrollTo(600);
    EXPECT_EQ(list->log.back(), "did unhighlight {0, 1}") << "the finger has lost it";
    scrollTo(0);
    EXPECT_FALSE(cellAt(1)->isHighlighted());
    host.touchUp();
    EXPECT_EQ(selected(), Paths{});
}

TEST_F(TappedTable, CodeSelectsInATableThatHasNotLoadedYet) {
    const auto fresh = make<UITableView>(&UITableView::initWithFrame, CGRectMake(0, 0, 320, 480));
    fresh->setDataSource(list);
    fresh->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 2), false, UITableViewScrollPositionNone);
    EXPECT_EQ(fresh->indexPathForSelectedRow(), rowPath(0, 2));
}

TEST_F(TappedTable, ATapMayLetGoOfTheTable) {
    const Weak<UITableView> weak = table;
    when("did select", [this](UITableView* tapped, const NSIndexPath&) {
        table = nullptr;
        tapped->removeFromSuperview();
    });
    tapRow(1);
    host.advance(1);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(TappedTable, ATapMayLetGoOfTheDelegate) {
    const Weak<TappedList> weak = list;
    when("did select", [this](UITableView*, const NSIndexPath&) { list = nullptr; });
    tapRow(1);
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(table->delegate(), nullptr);
    EXPECT_EQ(table->dataSource(), nullptr);
}

} // namespace zr::tests
