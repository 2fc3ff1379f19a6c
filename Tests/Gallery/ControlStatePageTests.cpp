#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRButton/ZRButton.h>
#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>
#include <gtest/gtest.h>

namespace zr::test {

TEST(ButtonPages, AButtonTakesAnotherStyle) {
    GalleryScreen screen("button-update");
    const auto buttons = screen.all<ZRButton>();
    ASSERT_EQ(buttons.size(), 2u);
    screen.host.tap(GalleryScreen::middleOf(buttons[0]));
    EXPECT_EQ(buttons[0]->currentTitle(), NSString("Following"));
    EXPECT_TRUE(buttons[0]->backgroundColor()->isEqual(ZRButton::colorsWithStyle(2)[botton_BG_Color_N]));
    screen.host.tap(GalleryScreen::middleOf(buttons[0]));
    EXPECT_EQ(buttons[0]->currentTitle(), NSString("Follow"));
    for (int style = 0; style < 8; ++style) {
        screen.tapButton(std::to_string(style));
        auto colors = ZRButton::colorsWithStyle(style);
        EXPECT_EQ(buttons[1]->style(), style);
        EXPECT_TRUE(buttons[1]->backgroundColor()->isEqual(colors[botton_BG_Color_N])) << style;
        EXPECT_TRUE(buttons[1]->titleColorForState(UIControlStateNormal)->isEqual(colors[botton_Title_Color_N]));
    }
}

TEST(SegmentsPage, ADisabledControlIsLeftToCode) {
    GalleryScreen screen("segments-disabled");
    const ZRSegmentedControl* control = screen.all<ZRSegmentedControl>().at(0);
    const auto tapLast = [&] { screen.host.tap(GalleryScreen::middleOf(control->titleLabels()[2])); };
    tapLast();
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    screen.tapButton("Select the next by code");
    EXPECT_TRUE(screen.shows("selectedSegmentIndex: 1, “Week”"));
    screen.tapButton("Enable");
    tapLast();
    EXPECT_TRUE(screen.shows("selectedSegmentIndex: 1, “Week”\nselectedSegmentIndex: 2, “Month”"));
    screen.tapButton("Disable");
    screen.host.tap(GalleryScreen::middleOf(control->titleLabels()[0]));
    EXPECT_EQ(control->selectedSegmentIndex(), 2);
}

} // namespace zr::test
