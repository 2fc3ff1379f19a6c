#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>

namespace zr::tests {

namespace {

/// A cell whose content is dragged sideways by a recogniser of its own.
class DraggedCell : public RowCell, public UIGestureRecognizerDelegate {
public:
    bool initWithStyle_reuseIdentifier(UITableViewCellStyle, const NSString& identifier) override {
        if (!UITableViewCell::initWithStyle_reuseIdentifier(UITableViewCellStyleDefault, identifier))
            return false;
        const auto pan = make<UIPanGestureRecognizer>(&UIGestureRecognizer::initWithTarget_action, this,
                                                      selector<&DraggedCell::panned>);
        pan->setDelegate(this);
        addGestureRecognizer(pan);
        m_pan = pan.get();
        return true;
    }
    bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override {
        if (recognizer != m_pan)
            return true;
        const CGPoint way = m_pan->translationInView(superview());
        return std::fabs(way.y) <= std::fabs(way.x);
    }
    void panned(UIPanGestureRecognizer* pan) {
        contentView()->setCenter({160 + pan->translationInView(superview()).x, contentView()->center().y});
    }
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override {
        RowCell::touchesBegan_withEvent(touches, event);
        log.push_back("began");
    }
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override {
        RowCell::touchesCancelled_withEvent(touches, event);
        log.push_back("cancelled");
    }
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override {
        RowCell::touchesEnded_withEvent(touches, event);
        log.push_back("ended");
    }

    News log;

private:
    UIPanGestureRecognizer* m_pan = nullptr;
};

class DraggedList : public NumberList {
public:
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        const auto cell = dynamicCast<DraggedCell>(table->dequeueReusableCellWithIdentifier_forIndexPath("row", path));
        cell->item = itemAt(path);
        return cell;
    }
};

/// A table that keeps a touch to itself.
class GreedyTable : public UITableView {
public:
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override {
        if (!isGreedy)
            UITableView::touchesBegan_withEvent(touches, event);
    }
    bool isGreedy = false;
};

class DerivedTable : public TableOnScreen<DraggedList> {
protected:
    DerivedTable() {
        list->fill(100);
        greedy =
            make<GreedyTable>(&UITableView::initWithFrame_style, CGRectMake(0, 0, 320, 480), UITableViewStylePlain);
        table = greedy;
        table->registerClass_forCellReuseIdentifier<DraggedCell>("row");
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
        host.advance(0);
    }
    DraggedCell* draggedAt(NSInteger row) const { return dynamic_cast<DraggedCell*>(cellAt(row)); }

    Ref<GreedyTable> greedy;
};

} // namespace

TEST_F(DerivedTable, ACellsOwnRecogniserTakesTheDragsItWants) {
    host.touchDown({200, 66});
    host.touchMove({140, 68}, 0.1);
    EXPECT_EQ(cellAt(1)->contentView()->center().x, 100);
    EXPECT_EQ(table->contentOffset().y, 0);
    host.touchUp();
    host.advance(1);
    EXPECT_TRUE(table->indexPathForSelectedRow().isNil());
    EXPECT_EQ(cellAt(1)->contentView()->center().x, 100) << "it stays where it was put";

    host.touchDown({200, 300});
    host.touchMove({202, 240}, 0.1);
    EXPECT_GT(table->contentOffset().y, 40) << "the table takes the others";
    host.touchUp();
}

TEST_F(DerivedTable, ACellIsToldOfItsTouches) {
    host.tap({200, 66});
    EXPECT_EQ(draggedAt(1)->log, (News{"began", "ended"}));
    EXPECT_EQ(table->indexPathForSelectedRow(), rowPath(0, 1));
    const Ref<DraggedCell> third = draggedAt(2);
    host.touchDown({200, 110});
    host.advance(0.2);
    host.touchMove({200, 60}, 0.1);
    EXPECT_EQ(third->log, (News{"began", "cancelled"}));
    host.touchUp();
}

TEST_F(DerivedTable, ATableThatKeepsATouchToItselfSelectsNothing) {
    greedy->isGreedy = true;
    host.tap({200, 66});
    EXPECT_TRUE(table->indexPathForSelectedRow().isNil());
    greedy->isGreedy = false;
    host.tap({200, 110});
    EXPECT_EQ(table->indexPathForSelectedRow(), rowPath(0, 2));
}

TEST_F(DerivedTable, ATableThatMayNotScrollSelects) {
    table->setScrollEnabled(false);
    host.touchDown({200, 300});
    host.touchMove({200, 290}, 0.1);
    host.touchUp();
    EXPECT_EQ(table->contentOffset().y, 0);
    EXPECT_EQ(table->indexPathForSelectedRow(), rowPath(0, 6));
}

TEST_F(DerivedTable, AMovedContentIsPutBackForTheNextRow) {
    cellAt(0)->contentView()->setCenter({20, 22});
    scrollTo(1000);
    for (const auto& cell : table->visibleCells())
        EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 320, 44));
}

} // namespace zr::tests
