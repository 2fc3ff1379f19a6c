#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>
#include <gtest/gtest.h>

namespace zr::test {

TEST(OwnAlertPages, AStarThatIsTouchedLetsTheRatingBeSent) {
    GalleryScreen screen("alert-own");
    screen.host.advance(0.5);
    screen.tapButton("Send");
    screen.host.advance(0.5);
    ASSERT_TRUE(screen.shows("How do you like it?")) << "it needs a star";
    // The stars stand in a row below the question, 44 points apart.
    const UIView* panel = screen.all<ZRBaseAlert>().back()->backgroundAlert();
    screen.host.tap(panel->convertPoint_toView({135 + 44, 74}, nullptr));
    screen.tapButton("Send");
    screen.host.advance(0.5);
    EXPECT_FALSE(screen.shows("How do you like it?"));
    EXPECT_TRUE(screen.shows("zrTAlertView_clickedButtonAtIndex: 1\nrating: 4"));
}

TEST(OwnAlertPages, AnAlertComesAndGoesAtOnceWithAnyIndex) {
    GalleryScreen screen("alert-at-once");
    screen.host.advance(0);
    const ZRTAlertView* alert = screen.all<ZRTAlertView>().at(0);
    const auto seen = alert->backgroundAlert()->layer()->presentationValues().transform;
    EXPECT_EQ(seen.m11, 1) << "it does not grow";
    screen.host.tap(GalleryScreen::middleOf(alert->titleLabel()));
    EXPECT_TRUE(screen.shows("Nothing yet.")) << "that is the panel";
    screen.host.tap({100, 620});
    screen.host.advance(0.02);
    EXPECT_TRUE(screen.all<ZRTAlertView>().empty());
    EXPECT_TRUE(
        screen.shows("zrTAlertViewCancelButtonClicked\nzrTAlertView_clickedButtonAtIndex: 2\ncancelButtonIndex: 2"));
    screen.tapButton("1");
    screen.host.tap({100, 620});
    EXPECT_TRUE(screen.shows("zrTAlertView_clickedButtonAtIndex: 2\ncancelButtonIndex: 2\n"
                             "zrTAlertView_clickedButtonAtIndex: 2\ncancelButtonIndex: 1"));
    screen.host.advance(0.02);
    screen.tapButton("1");
    screen.tapButton("Leave");
    EXPECT_TRUE(screen.shows("cancelButtonIndex: 1\nzrTAlertViewCancelButtonClicked\n"
                             "zrTAlertView_clickedButtonAtIndex: 1\ncancelButtonIndex: 1"));
}

} // namespace zr::test
