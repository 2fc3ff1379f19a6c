// Headers and footers: where they stick, what is told of them, and who gives them.

#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

constexpr auto kFade = UITableViewRowAnimationFade;

/// Keeps a header and a footer for each section, and writes down what it is told of them.
class EdgeList : public NumberList {
public:
    Ref<UIView> tableView_viewForHeaderInSection(UITableView*, NSInteger section) override {
        return kept(headers[section]);
    }
    Ref<UIView> tableView_viewForFooterInSection(UITableView*, NSInteger section) override {
        return kept(footers[section]);
    }
    CGFloat tableView_heightForHeaderInSection(UITableView*, NSInteger) override { return 20; }
    CGFloat tableView_heightForFooterInSection(UITableView*, NSInteger) override { return 10; }
    void tableView_willDisplayHeaderView_forSection(UITableView*, UIView* view, NSInteger section) override {
        note("+header ", section, view == headers[section].get() && view->superview());
    }
    void tableView_willDisplayFooterView_forSection(UITableView*, UIView* view, NSInteger section) override {
        note("+footer ", section, view == footers[section].get() && view->superview());
    }
    void tableView_didEndDisplayingHeaderView_forSection(UITableView*, UIView* view, NSInteger section) override {
        note("-header ", section, view == headers[section].get() && !view->superview());
    }
    void tableView_didEndDisplayingFooterView_forSection(UITableView*, UIView* view, NSInteger section) override {
        note("-footer ", section, view == footers[section].get() && !view->superview());
    }
    News news() { return std::exchange(m_news, {}); }

    std::map<NSInteger, Ref<UIView>> headers;
    std::map<NSInteger, Ref<UIView>> footers;

private:
    static Ref<UIView> kept(Ref<UIView>& view) {
        if (!view)
            view = make<UIView>();
        return view;
    }
    void note(const std::string& what, NSInteger section, bool isRight) {
        m_news.push_back(what + std::to_string(section) + (isRight ? "" : "!"));
    }

    News m_news;
};

using EdgedTable = TableOnScreen<EdgeList>;

/// Gives one view for the headers of all sections, and nothing or the same for the footers.
class SharingList : public EdgeList {
public:
    Ref<UIView> tableView_viewForHeaderInSection(UITableView*, NSInteger section) override {
        return headers[section] = shared;
    }
    Ref<UIView> tableView_viewForFooterInSection(UITableView*, NSInteger section) override {
        return footers[section] = isFooterToo ? shared : nullptr;
    }

    Ref<UIView> shared = make<UIView>();
    bool isFooterToo = false;
};

class SharedTable : public TableOnScreen<SharingList> {
protected:
    void expectOnlyAt(NSInteger section) const {
        for (NSInteger each = 0; each < static_cast<NSInteger>(list->sections.size()); ++each)
            EXPECT_EQ(table->headerViewForSection(each), each == section ? list->shared.get() : nullptr) << each;
        EXPECT_EQ(list->shared->superview(), table.get());
        EXPECT_EQ(std::ranges::count(table->subviews(), list->shared), 1);
    }

    LogLines log;
};

using Table = TableOnScreen<>;

class CountedView : public UITableViewHeaderFooterView {
public:
    CountedView() { ++made; }

    inline static int made = 0;
};

/// Asks the table for its headers, which have the heights of the table.
class AskingList : public NumberList {
public:
    Ref<UIView> tableView_viewForHeaderInSection(UITableView* table, NSInteger) override {
        if (const auto once = std::exchange(onAsk, nullptr))
            once(table);
        return table->dequeueReusableHeaderFooterViewWithIdentifier("edge");
    }

    std::function<void(UITableView*)> onAsk;
};

class AskingTable : public TableOnScreen<AskingList> {
protected:
    AskingTable() {
        CountedView::made = 0;
        list->sections = {{1, 2}, {3, 4}};
        table = make<UITableView>(&UITableView::initWithFrame, CGRectMake(0, 0, 320, 480));
        table->registerClass_forHeaderFooterViewReuseIdentifier<CountedView>("edge");
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
    }
};

} // namespace

// Where footers are

TEST_F(EdgedTable, APlainFooterStaysInSightWithItsRows) {
    list->sections = {NumberList::numbers(10), NumberList::numbers(3, 10)};
    showTable(CGRectMake(0, 0, 320, 300));
    EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 290, 320, 10));
    scrollTo(100);
    EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 390, 320, 10));
    scrollTo(200);
    EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 460, 320, 10)) << "where its rows end";
    scrollTo(0);
    table->setContentInset({0, 0, 50, 0});
    host.advance(0);
    EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 240, 320, 10)) << "above the inset";
}

TEST_F(EdgedTable, AGroupedFooterDoesNot) {
    list->sections = {NumberList::numbers(10)};
    showTable(CGRectMake(0, 0, 320, 300), UITableViewStyleGrouped);
    EXPECT_EQ(table->footerViewForSection(0), nullptr);
    scrollTo(170);
    EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 460, 320, 10));
}

// What the delegate is told

TEST_F(EdgedTable, TellsWhatComesIntoSightAndWhatHasLeft) {
    list->sections = {{1, 2, 3}, {4, 5, 6}, NumberList::numbers(30, 7)};
    showTable(CGRectMake(0, 0, 320, 150));
    EXPECT_EQ(list->news(), (News{"+header 0", "+footer 0"}));
    scrollTo(162);
    EXPECT_EQ(list->news(), (News{"-header 0", "+header 1", "-footer 0", "+footer 1"}));
    table->reloadData();
    host.advance(0);
    EXPECT_EQ(list->news(), (News{"-header 1", "-footer 1", "+header 1", "+footer 1"}));
}

TEST_F(EdgedTable, ReloadedSectionsGetTheSameViewsAgain) {
    list->sections = {{1, 2}, {3, 4}};
    showTable();
    list->news();
    const Ref<UIView> header = table->headerViewForSection(0), footer = table->footerViewForSection(0);
    for (const auto animation : {kFade, UITableViewRowAnimationNone}) {
        table->reloadSections_withRowAnimation({0}, animation);
        EXPECT_EQ(list->news(), (News{"-header 0", "+header 0", "-footer 0", "+footer 0"}));
        host.advance(1);
        EXPECT_EQ(list->news(), News{});
        EXPECT_EQ(table->headerViewForSection(0), header.get());
        EXPECT_EQ(table->footerViewForSection(0), footer.get());
        EXPECT_EQ(header->superview(), table.get());
        EXPECT_EQ(footer->superview(), table.get());
        EXPECT_EQ(header->alpha(), 1);
    }
}

TEST_F(EdgedTable, ViewsThatSomebodyTakesOutAreReplaced) {
    list->sections = {{1, 2}};
    showTable();
    table->headerViewForSection(0)->removeFromSuperview();
    table->footerViewForSection(0)->removeFromSuperview();
    EXPECT_EQ(table->headerViewForSection(0), nullptr);
    EXPECT_EQ(table->footerViewForSection(0), nullptr);
    host.advance(0);
    ASSERT_NE(table->headerViewForSection(0), nullptr);
    ASSERT_NE(table->footerViewForSection(0), nullptr);
    EXPECT_EQ(table->headerViewForSection(0)->superview(), table.get());
    EXPECT_EQ(table->footerViewForSection(0)->superview(), table.get());
}

// Who gives them

TEST_F(AskingTable, AViewThatWasOnlyToBeSeenWhetherThereAreAnyIsUsedAgain) {
    host.advance(0);
    EXPECT_EQ(table->headerViewForSection(1)->frame(), CGRectMake(0, 116, 320, 28));
    EXPECT_EQ(CountedView::made, 2);
}

TEST_F(AskingTable, AViewThatWasAskedForInVainIsUsedAgain) {
    ASSERT_EQ(table->numberOfSections(), 2);
    list->onAsk = [](UITableView* asking) { asking->reloadData(); };
    host.advance(0);
    EXPECT_EQ(table->headerViewForSection(1)->frame(), CGRectMake(0, 116, 320, 28));
    EXPECT_EQ(CountedView::made, 2);
}

TEST_F(Table, AnotherDelegateMayGiveViewsOrNone) {
    class Giving : public NumberList {
    public:
        Ref<UIView> tableView_viewForHeaderInSection(UITableView*, NSInteger) override { return make<UIView>(); }
        Ref<UIView> tableView_viewForFooterInSection(UITableView*, NSInteger) override { return make<UIView>(); }
    };
    list->fill(3);
    showTable();
    const auto expectHeights = [this](CGFloat height) {
        EXPECT_EQ(table->rectForHeaderInSection(0).size.height, height);
        EXPECT_EQ(table->rectForFooterInSection(0).size.height, height);
    };
    expectHeights(0);
    const auto giving = make<Giving>();
    table->setDelegate(giving);
    expectHeights(28);
    table->setDelegate(list);
    expectHeights(0);
}

TEST_F(Table, AViewOnShowDoesNotWaitToBeUsedAgain) {
    class Keeping : public NumberList {
    public:
        Ref<UIView> tableView_viewForHeaderInSection(UITableView*, NSInteger) override { return header; }
        Ref<UITableViewHeaderFooterView> header =
            make<UITableViewHeaderFooterView>(&UITableViewHeaderFooterView::initWithReuseIdentifier, "kept");
    };
    const auto keeping = make<Keeping>();
    keeping->fill(3);
    showTable();
    table->setDataSource(keeping);
    table->setDelegate(keeping);
    host.advance(0);
    table->beginUpdates();
    table->endUpdates();
    EXPECT_EQ(keeping->header->superview(), table.get());
    EXPECT_EQ(table->dequeueReusableHeaderFooterViewWithIdentifier("kept"), nullptr);
}

// One view for two sections

TEST_F(SharedTable, AViewOfTwoSectionsIsShownAtTheOneThatAskedLast) {
    list->sections = {{1, 2}, {3, 4}, {5, 6}};
    showTable();
    EXPECT_EQ(list->news(), (News{"+header 0", "-header 0", "+header 1", "-header 1", "+header 2"}));
    EXPECT_EQ(log.lines.size(), 2u);
    expectOnlyAt(2);
    EXPECT_EQ(list->shared->frame(), CGRectMake(0, 236, 320, 20));

    table->setNeedsLayout();
    host.advance(0);
    EXPECT_EQ(list->news(), News{}) << "and stays there";
    EXPECT_EQ(list->shared->frame(), CGRectMake(0, 236, 320, 20));
}

TEST_F(SharedTable, AViewThatLeavesOneSectionGoesToAnother) {
    list->sections = {NumberList::numbers(10), NumberList::numbers(10), NumberList::numbers(10)};
    showTable();
    expectOnlyAt(1);
    table->setFrame(CGRectMake(0, 0, 320, 200));
    host.advance(0);
    expectOnlyAt(0);
    scrollTo(380);
    expectOnlyAt(1);
    scrollTo(600);
    expectOnlyAt(1);
    scrollTo(100);
    expectOnlyAt(0);
    list->shared->removeFromSuperview();
    host.advance(0);
    expectOnlyAt(0);
}

TEST_F(SharedTable, AChangeOfOneOfItsSectionsLosesNoView) {
    list->sections = {{1, 2}, {3, 4}, {5, 6}};
    showTable();
    for (const auto animation : {kFade, UITableViewRowAnimationNone}) {
        table->reloadSections_withRowAnimation({0}, animation);
        host.advance(1);
        expectOnlyAt(0);
        EXPECT_EQ(list->shared->alpha(), 1);
        table->reloadSections_withRowAnimation({2}, animation);
        host.advance(1);
        expectOnlyAt(2);
    }
    list->sections.pop_back();
    table->deleteSections_withRowAnimation({2}, kFade);
    host.advance(1);
    expectOnlyAt(1);
    EXPECT_EQ(list->shared->alpha(), 1);
    table->reloadData();
    host.advance(0);
    expectOnlyAt(1);
}

TEST_F(SharedTable, AHeaderThatIsAFooterTooIsShownAsTheFooter) {
    list->isFooterToo = true;
    list->sections = {{1, 2}, {3, 4}};
    showTable();
    EXPECT_EQ(list->news(),
              (News{"+header 0", "-header 0", "+header 1", "-header 1", "+footer 0", "-footer 0", "+footer 1"}));
    EXPECT_EQ(table->headerViewForSection(1), nullptr);
    EXPECT_EQ(table->footerViewForSection(0), nullptr);
    EXPECT_EQ(table->footerViewForSection(1), list->shared.get());
    EXPECT_EQ(list->shared->frame(), CGRectMake(0, 226, 320, 10));
}

// The table's own

TEST_F(Table, AHeaderViewThatIsElsewhereNowIsLeftThere) {
    list->fill(3);
    showTable();
    const auto header = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 50));
    const auto other = make<UIView>();
    table->setTableHeaderView(header);
    other->addSubview(header);
    table->setTableHeaderView(nullptr);
    EXPECT_EQ(header->superview(), other.get());
}

} // namespace zr::tests
