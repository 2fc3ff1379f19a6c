#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>
#include <gtest/gtest.h>

namespace zr::test {

TEST(SwipeResetPage, AnActionPinsItsRowAndClosesItAtOnceOrSoftly) {
    GalleryScreen screen("swipe-reset");
    screen.host.advance(0.5);
    const ZRTableView* table = screen.all<ZRTableView>().back();
    const auto* row =
        dynamic_cast<ZRTableViewCellSlip*>(table->cellForRowAtIndexPath(NSIndexPath::indexPathForRow_inSection(0, 0)));
    const auto seenX = [&] { return row->contentView()->layer()->presentationValues().position.x; };
    const CGFloat closed = row->bounds().size.width / 2;
    EXPECT_LT(seenX(), closed - 160);
    screen.tapButton("At once");
    EXPECT_EQ(seenX(), closed);
    EXPECT_TRUE(table->isScrollEnabled());
    EXPECT_EQ(row->zrDetailTextLabel()->text(), "Pinned");
    EXPECT_TRUE(screen.shows("resetSwipButton"));

    const CGPoint start = GalleryScreen::middleOf(row);
    screen.host.touchDown(start);
    screen.host.touchMove({start.x - 10, start.y});
    screen.host.touchMove({start.x - 110, start.y}, 0.2);
    screen.host.touchUp();
    screen.host.advance(0.5);
    screen.tapButton("Softly");
    screen.host.advance(0.1);
    EXPECT_LT(seenX(), closed);
    screen.host.advance(0.3);
    EXPECT_EQ(seenX(), closed);
    EXPECT_EQ(row->zrDetailTextLabel()->text(), "Not pinned");
    EXPECT_TRUE(screen.shows("resetSwipButton\nremoveCellSwipped"));
}

} // namespace zr::test
