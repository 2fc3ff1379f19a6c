// Open rows that are reloaded, in a list that gives the same cells again.

#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

namespace zr::testing {

namespace {

class SlipReload : public SwipeTest, public ::testing::WithParamInterface<UITableViewRowAnimation> {
protected:
    SlipReload() {
        showOther<KeepingList>();
        swipeOpen(3);
        open = cell(3);
    }
    /// Row 3 shows it still, or the one below.
    void expectClosedForGood(NSInteger row) {
        EXPECT_EQ(cell(row), open.get());
        expectClosed(row);
        host.advance(1);
        EXPECT_EQ(cell(row), open.get());
        expectClosed(row);
        expectFreeTable();
    }

    Ref<MessageCell> open;
};

} // namespace

TEST_P(SlipReload, ARowThatIsReloadedClosesAtOnce) {
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(3)}, GetParam());
    expectClosedForGood(3);
}

TEST_P(SlipReload, ARowWhoseSectionIsReloadedClosesAtOnce) {
    table->reloadSections_withRowAnimation({0}, GetParam());
    expectClosedForGood(3);
}

TEST_P(SlipReload, ACellThatServesAnotherRowAfterAReloadIsClosed) {
    std::swap(list->messages[3], list->messages[4]);
    table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(3), rowPath(4)}, GetParam());
    expectClosedForGood(4);
}

TEST_P(SlipReload, ACellThatIsDeletedAndInsertedIsClosed) {
    std::swap(list->messages[3], list->messages[4]);
    table->beginUpdates();
    table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(3)}, GetParam());
    table->insertRowsAtIndexPaths_withRowAnimation({rowPath(4)}, GetParam());
    table->endUpdates();
    expectClosedForGood(4);
}

INSTANTIATE_TEST_SUITE_P(Animations, SlipReload,
                         ::testing::Values(UITableViewRowAnimationFade, UITableViewRowAnimationLeft,
                                           UITableViewRowAnimationNone));

} // namespace zr::testing
