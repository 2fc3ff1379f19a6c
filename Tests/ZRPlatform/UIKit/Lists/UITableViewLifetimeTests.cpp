// Tables that are let go of by whoever they ask and tell, and what these do to their lists meanwhile.

#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

/// Does something, once, when it is asked for its counts or told of a scrolling.
class ActingList : public NumberList {
public:
    NSInteger numberOfSectionsInTableView(UITableView* asking) override {
        act(onCount, asking);
        return NumberList::numberOfSectionsInTableView(asking);
    }
    void scrollViewDidScroll(UIScrollView* view) override { act(onScroll, dynamic_cast<UITableView*>(view)); }

    std::function<void(UITableView*)> onCount;
    std::function<void(UITableView*)> onScroll;

private:
    static void act(std::function<void(UITableView*)>& what, UITableView* table) {
        if (const auto once = std::exchange(what, nullptr))
            once(table);
    }
};

class LeftTable : public TableOnScreen<ActingList> {
protected:
    void letGo() {
        table->removeFromSuperview();
        table = nullptr;
    }
    /// Of a table that has asked nothing yet, and is gone when it has asked.
    template <class Question>
    auto answerOf(const Question& question) {
        list->fill(3);
        list->titles[0] = "Title";
        table = make<UITableView>(&UITableView::initWithFrame, CGRectMake(0, 0, 320, 480));
        table->setDataSource(list);
        const Weak<UITableView> weak = table;
        list->onCount = [this](UITableView*) { letGo(); };
        struct Check {
            ~Check() { EXPECT_EQ(weak.get(), nullptr); }
            const Weak<UITableView>& weak;
        } const check{weak};
        return question(table.get());
    }
    /// Lets go of a table at the end of its list when it scrolls because of the change.
    template <class Change>
    void expectGoneBy(const Change& change) {
        list->fill(30);
        showTable();
        table->setTableHeaderView(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 200)));
        scrollTo(30 * 44 + 200 - 480);
        const Weak<UITableView> weak = table;
        list->onScroll = [this](UITableView*) { letGo(); };
        change(table.get());
        EXPECT_EQ(weak.get(), nullptr);
    }
};

} // namespace

// Questions

TEST_F(LeftTable, ADataSourceMayLetGoOfATableThatIsAskedForItsCounts) {
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->numberOfSections(); }), 1);
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->numberOfRowsInSection(0); }), 3);
}

TEST_F(LeftTable, ADataSourceMayLetGoOfATableThatIsAskedForPlaces) {
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->rectForSection(0); }), CGRectMake(0, 0, 320, 160));
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->rectForHeaderInSection(0); }), CGRectMake(0, 0, 320, 28));
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->rectForFooterInSection(0); }),
              CGRectMake(0, 160, 320, 0));
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->rectForRowAtIndexPath(rowPath(0, 1)); }),
              CGRectMake(0, 72, 320, 44));
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->indexPathForRowAtPoint({5, 100}); }), rowPath(0, 1));
    EXPECT_EQ(answerOf([](UITableView* asked) { return asked->indexPathsForRowsInRect(CGRectMake(0, 0, 9, 80)); }),
              (Paths{rowPath(0, 0), rowPath(0, 1)}));
}

TEST_F(LeftTable, ADataSourceMayLetGoOfATableThatIsToldToScrollOrSelect) {
    answerOf([](UITableView* asked) {
        asked->scrollToRowAtIndexPath_atScrollPosition_animated(rowPath(0, 2), UITableViewScrollPositionTop, false);
    });
    answerOf([](UITableView* asked) {
        asked->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 2), false, UITableViewScrollPositionTop);
    });
}

TEST_F(LeftTable, ACellsMakerMayLetGoOfTheTable) {
    list->fill(3);
    showTable();
    static std::function<void()> onMake;
    class MadeCell : public UITableViewCell {
    public:
        MadeCell() { onMake(); }
    };
    onMake = [this] { letGo(); };
    table->registerClass_forCellReuseIdentifier<MadeCell>("made");
    UITableView* const asked = table.get();
    EXPECT_EQ(asked->dequeueReusableCellWithIdentifier_forIndexPath("made", rowPath(0, 2))->frame(),
              CGRectMake(0, 88, 320, 44));
    EXPECT_EQ(table, nullptr);
}

// Changes that scroll

TEST_F(LeftTable, ADelegateMayLetGoOfATableWhoseOwnViewsChange) {
    expectGoneBy([](UITableView* changed) { changed->setTableHeaderView(nullptr); });
}

TEST_F(LeftTable, ADelegateMayLetGoOfATableWhoseInsetChanges) {
    expectGoneBy([](UITableView* changed) {
        changed->setContentInset({0, 0, 50, 0});
        changed->setContentInset({-300, 0, -100, 0});
    });
}

// Other lists and changes in the middle of loading

TEST_F(LeftTable, ADataSourceMayBeReplacedWhileItIsAsked) {
    list->fill(30);
    const auto other = make<NumberList>();
    other->fill(5, 100);
    list->onCount = [&other](UITableView* asking) { asking->setDataSource(other); };
    const LogLines log;
    showTable();
    EXPECT_EQ(shownItems(), NumberList::numbers(5, 100));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LeftTable, TheSameDataSourceAndDelegateAgainAreNoReasonToLoad) {
    list->fill(30);
    showTable();
    table->selectRowAtIndexPath_animated_scrollPosition(rowPath(0, 1), false, UITableViewScrollPositionNone);
    table->setDataSource(list);
    table->setDelegate(list);
    host.advance(0);
    EXPECT_EQ(table->indexPathForSelectedRow(), rowPath(0, 1));
}

TEST_F(LeftTable, AChangeInTheMiddleOfLoadingIsNotLost) {
    list->fill(3);
    showTable();
    list->onCount = [this](UITableView* asking) {
        list->section(0)[1] = 77;
        asking->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 1)}, UITableViewRowAnimationFade);
    };
    list->section(0)[2] = 78;
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(0, 2)}, UITableViewRowAnimationFade);
    host.advance(1);
    EXPECT_EQ(shownItems(), (std::vector<int>{0, 77, 78}));
}

} // namespace zr::tests
