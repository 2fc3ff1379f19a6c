#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>
#include <gtest/gtest.h>

namespace zr::test {

namespace {

CGFloat seenAlphaOf(const UIView* view) { return view->layer()->presentationValues().opacity; }

} // namespace

TEST(BarPages, TheBackButtonGoesWhileSomethingIsSaved) {
    GalleryScreen screen("bar-back");
    const ZRTNavigationBar* bar = screen.all<ZRTNavigationBar>().back();
    screen.host.advance(0.5);
    EXPECT_EQ(seenAlphaOf(bar->backButton()), 0);
    EXPECT_TRUE(screen.shows("Saving"));
    screen.tapBack();
    screen.host.advance(2.5);
    EXPECT_FALSE(screen.shows("Saving"));
    EXPECT_EQ(seenAlphaOf(bar->backButton()), 1);
    screen.tapButton("Hide at once");
    EXPECT_EQ(seenAlphaOf(bar->backButton()), 0);
    screen.tapButton("Show");
    screen.host.advance(0.15);
    EXPECT_GT(seenAlphaOf(bar->backButton()), 0);
    EXPECT_LT(seenAlphaOf(bar->backButton()), 1);
    screen.tapButton("Show at once");
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("Check box")) << "the list";
}

TEST(BarPages, TheBackgroundFadesByItself) {
    GalleryScreen screen("bar-shadow");
    screen.host.advance(2);
    constexpr CGPoint inField = {100, 200};
    screen.tapButton("3");
    screen.tapButton("Green"); // the pattern's, as the last button of that title
    const FramePixel before = screen.host.pixel(inField);
    screen.host.advance(1.5);
    const FramePixel between = screen.host.pixel(inField);
    screen.host.advance(1.5);
    const FramePixel after = screen.host.pixel(inField);
    EXPECT_FALSE(before == between);
    EXPECT_FALSE(between == after);
    screen.tapButton("0");
    screen.tapButton("Red");
    EXPECT_EQ(screen.host.pixel(inField), (FramePixel{255, 87, 48}));
}

} // namespace zr::test
