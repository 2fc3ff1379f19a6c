#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>
#include <gtest/gtest.h>

namespace zr::test {

namespace {

ZRTableView* tableOf(const GalleryScreen& screen) { return screen.all<ZRTableView>().back(); }

/// The page at rest, with no row open.
class SwipeListPage : public ::testing::Test {
protected:
    SwipeListPage() {
        screen.host.advance(0.5);
        touchAnywhere();
    }
    /// A touch in the list closes what is open.
    void touchAnywhere() {
        screen.host.tap(GalleryScreen::middleOf(row(0)));
        screen.host.advance(0.5);
    }
    ZRTableViewCellSlip* row(NSInteger index) const {
        return dynamic_cast<ZRTableViewCellSlip*>(
            tableOf(screen)->cellForRowAtIndexPath(NSIndexPath::indexPathForRow_inSection(index, 0)));
    }
    std::string sender(NSInteger index) const { return row(index)->zrTextLabel()->text().utf8(); }
    bool isOpen(NSInteger index) const { return row(index)->contentView()->frame().origin.x < -10; }
    void swipe(NSInteger index) {
        const CGPoint start = GalleryScreen::middleOf(row(index));
        screen.host.touchDown(start);
        screen.host.touchMove({start.x - 10, start.y});
        screen.host.touchMove({start.x - 110, start.y}, 0.2);
        screen.host.touchUp();
        screen.host.advance(0.5);
    }
    void scrollTo(CGFloat y) {
        tableOf(screen)->setContentOffset({0, y});
        screen.host.advance(0);
    }

    GalleryScreen screen{"list-swipe"};
};

} // namespace

TEST(SwipeListPages, ShowsARowWithThreeActionsThatIsOpen) {
    GalleryScreen screen("list-swipe");
    screen.host.advance(1);
    for (const char* title : {"More", "Flag", "Delete"})
        EXPECT_TRUE(screen.shows(title)) << title;
    EXPECT_FALSE(tableOf(screen)->isScrollEnabled());
}

TEST_F(SwipeListPage, DeletingTakesTheRowAwayAndBringingBackBringsIt) {
    swipe(0);
    EXPECT_TRUE(isOpen(0));
    screen.tapButton("Delete");
    screen.host.advance(0.5);
    EXPECT_EQ(sender(0), "Ben Ito");
    EXPECT_TRUE(screen.shows("Delete: Anna Keller"));
    EXPECT_TRUE(tableOf(screen)->isScrollEnabled());
    screen.tapButton("Bring all back");
    EXPECT_EQ(sender(0), "Anna Keller");
}

TEST_F(SwipeListPage, AFlagComesAndGoesAndTheRowCloses) {
    swipe(1);
    screen.tapButton("Flag");
    screen.host.advance(0.5);
    EXPECT_FALSE(isOpen(1));
    EXPECT_EQ(row(1)->zrAccessoryLabel()->text(), "flagged");
    swipe(1);
    screen.tapButton("Flag");
    EXPECT_EQ(row(1)->zrAccessoryLabel()->text(), "9:30");
}

TEST_F(SwipeListPage, RowsWithoutActionsCannotBeSwiped) {
    scrollTo(200);
    ASSERT_EQ(sender(4), "Emma Jansen");
    swipe(4);
    EXPECT_FALSE(isOpen(4));
}

TEST_F(SwipeListPage, AnActionThatDoesNothingLeavesTheRowOpen) {
    scrollTo(280);
    swipe(5);
    screen.tapButton("Nothing");
    screen.host.advance(0.5);
    EXPECT_TRUE(isOpen(5));
    screen.host.tap(GalleryScreen::middleOf(row(4)));
    screen.host.advance(0.5);
    EXPECT_FALSE(isOpen(5));
}

TEST_F(SwipeListPage, TapsAreLoggedButForThoseThatCloseARow) {
    EXPECT_FALSE(screen.shows("Tap: Anna Keller")) << "that one has closed the row that the page shows";
    swipe(1);
    touchAnywhere();
    EXPECT_FALSE(screen.shows("Tap: Anna Keller"));
    touchAnywhere();
    EXPECT_TRUE(screen.shows("Tap: Anna Keller"));
}

} // namespace zr::test
