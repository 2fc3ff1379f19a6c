#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

constexpr double kContentDelay = 0.2;

class ScrolledTable : public TableOnScreen<> {
protected:
    ScrolledTable() {
        list->fill(1000);
        showTable();
    }
    /// Upwards, fast enough to go on for a while.
    void fling() {
        host.touchDown({100, 400});
        host.touchMove({100, 100}, 0.1);
        host.touchUp();
    }
};

} // namespace

TEST_F(ScrolledTable, ADragScrollsAndSelectsNothing) {
    host.touchDown({100, 300});
    host.touchMove({100, 200}, 0.1);
    EXPECT_GT(table->contentOffset().y, 80);
    host.touchUp();
    host.advance(5);
    EXPECT_TRUE(table->indexPathForSelectedRow().isNil());
    EXPECT_EQ(shownItems().front(), static_cast<int>(table->contentOffset().y / 44));
    for (const auto& cell : table->visibleCells())
        EXPECT_FALSE(cell->isHighlighted());
}

TEST_F(ScrolledTable, ADragTakesTheHighlightAway) {
    host.touchDown({100, 300});
    host.advance(kContentDelay);
    EXPECT_TRUE(cellAt(6)->isHighlighted());
    host.touchMove({100, 280}, 0.1);
    EXPECT_FALSE(cellAt(6)->isHighlighted());
    host.touchUp();
    EXPECT_TRUE(table->indexPathForSelectedRow().isNil());
}

TEST_F(ScrolledTable, AShortTouchIsHighlightedOnlyAsItSelects) {
    host.touchDown({100, 300});
    host.advance(0.1);
    EXPECT_FALSE(cellAt(6)->isHighlighted()) << "it may become a drag";
    host.touchUp();
    EXPECT_TRUE(cellAt(6)->isSelected());
}

TEST_F(ScrolledTable, AFingerThatStopsAFlightSelectsNothing) {
    fling();
    host.advance(0.1);
    EXPECT_TRUE(table->isDecelerating());
    host.tap({100, 300});
    host.advance(1);
    EXPECT_FALSE(table->isDecelerating());
    EXPECT_TRUE(table->indexPathForSelectedRow().isNil());
}

TEST_F(ScrolledTable, AFlightShowsEveryRowItComesTo) {
    fling();
    for (int frame = 0; frame < 120; ++frame) {
        host.advance(1 / 60.0);
        const CGFloat offset = table->contentOffset().y;
        const auto items = shownItems();
        ASSERT_EQ(items.front(), static_cast<int>(std::floor(offset / 44)));
        ASSERT_EQ(items.back(), static_cast<int>(std::ceil((offset + 480) / 44)) - 1);
        ASSERT_LE(RowCell::alive, 13);
    }
    EXPECT_GT(table->contentOffset().y, 500);
}

TEST_F(ScrolledTable, ATableMayGoInTheMiddleOfAFlight) {
    fling();
    host.advance(0.1);
    const Weak<UITableView> weak = table;
    table->removeFromSuperview();
    table = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
    host.advance(1);
    EXPECT_EQ(RowCell::alive, 0);
}

TEST_F(ScrolledTable, AListMayBecomeShortInTheMiddleOfAFlight) {
    fling();
    host.advance(0.1);
    list->fill(3);
    table->reloadData();
    host.advance(5);
    EXPECT_EQ(table->contentOffset().y, 0);
    EXPECT_EQ(shownItems(), NumberList::numbers(3));
}

TEST_F(ScrolledTable, ScrollsToARowInTime) {
    table->scrollToRowAtIndexPath_atScrollPosition_animated(rowPath(0, 100), UITableViewScrollPositionTop, true);
    EXPECT_LT(table->contentOffset().y, 4400);
    host.advance(0.35);
    EXPECT_EQ(table->contentOffset().y, 4400);
    EXPECT_EQ(shownItems().front(), 100);
}

TEST_F(ScrolledTable, TheDelegateFollowsTheScrolling) {
    class Following : public NumberList {
    public:
        void scrollViewDidScroll(UIScrollView*) override { ++scrolls; }
        int scrolls = 0;
    };
    const auto following = make<Following>();
    table->setDelegate(following);
    EXPECT_EQ(table->delegate(), following.get());
    scrollTo(30);
    EXPECT_EQ(following->scrolls, 1);
}

TEST_F(ScrolledTable, IsAtRestWhenNothingHappens) {
    host.advance(1);
    const auto frames = host.framesComposed();
    host.advance(10);
    EXPECT_EQ(host.framesComposed(), frames);
}

TEST_F(ScrolledTable, AnIndicatorIsNotCoveredByTheRows) {
    host.touchDown({100, 300});
    host.touchMove({100, 200}, 0.1);
    bool isSeen = false;
    for (CGFloat y = 0; y < 480 && !isSeen; y += 4)
        isSeen = host.pixel({315, y}) != kWhiteOnScreen && host.pixel({315, y}) != FramePixel{200, 199, 204};
    EXPECT_TRUE(isSeen);
}

} // namespace zr::tests
