// Lists that ask for a reload while they are being asked themselves.

#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

constexpr auto kNone = UITableViewRowAnimationNone;

/// Two sections. Has something to do, the first few times that it is asked for the rows of the second one.
class ReloadingList : public NumberList {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView* asking, NSInteger section) override {
        if (section == 1 && times > 0) {
            --times;
            onCount(asking);
        }
        return NumberList::tableView_numberOfRowsInSection(asking, section);
    }

    std::function<void(UITableView*)> onCount;
    int times = 0;
};

class ReloadedTable : public TableOnScreen<ReloadingList> {
protected:
    ReloadedTable() {
        list->sections = {{0, 1, 2}, {3, 4}};
        showTable();
        list->countQuestions = 0;
    }
    /// What the table was told first is wrong by the time that it asks for the rest.
    void growWhenAsked() {
        list->times = 1;
        list->onCount = [this](UITableView* asking) {
            list->section(0).push_back(100);
            asking->reloadData();
        };
    }
    void expectItems(const std::vector<int>& items) {
        host.advance(0);
        EXPECT_EQ(shownItems(), items);
        EXPECT_TRUE(log.lines.empty());
    }

    LogLines log;
};

} // namespace

TEST_F(ReloadedTable, AReloadInTheMiddleOfLoadingAsksAgain) {
    growWhenAsked();
    table->reloadData();
    EXPECT_EQ(table->numberOfRowsInSection(0), 4);
    EXPECT_EQ(list->countQuestions, 4) << "twice for two sections";
    expectItems({0, 1, 2, 100, 3, 4});
}

TEST_F(ReloadedTable, AReloadInTheMiddleOfAChangeTakesItsPlace) {
    growWhenAsked();
    list->section(1).push_back(5);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(1, 2)}, kNone);
    EXPECT_EQ(table->numberOfRowsInSection(0), 4);
    EXPECT_EQ(table->numberOfRowsInSection(1), 3);
    expectItems({0, 1, 2, 100, 3, 4, 5});
}

TEST_F(ReloadedTable, AReloadWhileACountIsSeenToHoldShowsTheNewList) {
    list->sections = {NumberList::numbers(10), NumberList::numbers(3, 10)};
    table->reloadData();
    host.advance(0);
    growWhenAsked();
    scrollTo(44);
    expectItems({1, 2, 3, 4, 5, 6, 7, 8, 9, 100, 10});
    EXPECT_EQ(table->contentSize().height, 14 * 44);
}

TEST_F(ReloadedTable, AListThatAlwaysReloadsIsBelievedTheThirdTime) {
    list->times = 1'000'000;
    list->onCount = [](UITableView* asking) { asking->reloadData(); };
    table->reloadData();
    EXPECT_EQ(list->countQuestions, 6);
    expectItems({0, 1, 2, 3, 4});

    list->countQuestions = 0;
    host.advance(1);
    EXPECT_EQ(list->countQuestions, 0) << "and the table is at rest";
    list->section(1).push_back(5);
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(1, 2)}, kNone);
    expectItems({0, 1, 2, 3, 4, 5});
}

} // namespace zr::tests
