#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRButton/ZRButton.h>
#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <gtest/gtest.h>

using namespace zr;
using namespace zr::test;

TEST(ButtonPages, ShowAllStylesInTheirThreeStates) {
    for (const char* name : {"button-light", "button-color"}) {
        SCOPED_TRACE(name);
        const GalleryScreen screen(name);
        const auto buttons = screen.all<ZRButton>();
        ASSERT_EQ(buttons.size(), 24u);
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            const auto colors = ZRButton::colorsWithStyle(static_cast<std::int32_t>(i / 3));
            const char* keys[] = {botton_BG_Color_N, botton_BG_Color_H, botton_BG_Color_D};
            const auto expected = colors.find(keys[i % 3]);
            ASSERT_NE(expected, colors.end());
            EXPECT_TRUE(buttons[i]->backgroundColor()->isEqual(expected->second)) << i;
        }
    }
}

TEST(ButtonPages, WhatIsMadeForColouredGroundsStandsOnOne) {
    GalleryScreen screen("button-light");
    for (const ZRButton* button : screen.all<ZRButton>()) {
        const CGPoint beside = button->convertPoint_toView({-3, 17}, nullptr);
        const bool isOnWhite = screen.host.pixel(beside) == FramePixel{255, 255, 255};
        EXPECT_EQ(isOnWhite, button->style() != 4 && button->style() != 5) << button->style();
    }
}

TEST(ButtonPages, OnlyTheNormalOnesCanBeTappedAndCount) {
    GalleryScreen screen("button-light");
    const auto buttons = screen.all<ZRButton>();
    for (ZRButton* button : buttons)
        screen.host.tap(GalleryScreen::middleOf(button));
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const std::string title = "Style " + std::to_string(i / 3);
        EXPECT_EQ(buttons[i]->currentTitle(), NSString(i % 3 == 0 ? title + " · 1" : title));
    }
}

TEST(SwitchPage, TapsAndDragsToggleAndAreLogged) {
    GalleryScreen screen("switch");
    const auto switches = screen.all<ZRSwitch>();
    ASSERT_EQ(switches.size(), 5u);
    screen.host.tap(GalleryScreen::middleOf(switches[0]));
    EXPECT_TRUE(switches[0]->isOn());
    EXPECT_TRUE(screen.shows("Off: on"));

    // Across, from the right end of the switch that is on to its left end; the page does not scroll meanwhile.
    const CGPoint start = switches[1]->convertPoint_toView({45, 15}, nullptr);
    screen.host.touchDown(start);
    screen.host.touchMove({start.x - 43, start.y + 12}, 0.2);
    screen.host.touchUp();
    EXPECT_FALSE(switches[1]->isOn());
    EXPECT_TRUE(screen.shows("Off: on\nOn: off"));
    EXPECT_EQ(switches[1]->convertPoint_toView({45, 15}, nullptr), start);

    screen.host.tap(GalleryScreen::middleOf(switches[4]));
    EXPECT_TRUE(switches[4]->isOn()) << "it is disabled";
    EXPECT_TRUE(screen.shows("Off: on\nOn: off"));
}

TEST(SwitchPage, CodeSetsItSilently) {
    GalleryScreen screen("switch");
    ZRSwitch* code = screen.all<ZRSwitch>().at(3);
    const CALayer* knob = code->subviews().back()->layer();
    screen.tapButton("Set animated");
    EXPECT_TRUE(code->isOn());
    screen.host.advance(0.15);
    const CGFloat atRest = code->subviews().back()->center().x;
    EXPECT_LT(knob->presentationValues().position.x, atRest);
    screen.host.advance(0.3);
    EXPECT_EQ(knob->presentationValues().position.x, atRest);
    screen.tapButton("Set at once");
    EXPECT_FALSE(code->isOn());
    EXPECT_EQ(knob->presentationValues().position.x, code->subviews().back()->center().x);
    EXPECT_TRUE(screen.shows("Nothing yet."));
}

TEST(SegmentsPage, EachControlSelectsTheSegmentThatIsTapped) {
    GalleryScreen screen("segments");
    const auto controls = screen.all<ZRSegmentedControl>();
    ASSERT_EQ(controls.size(), 5u);
    for (std::size_t count = 1; count <= 5; ++count) {
        ZRSegmentedControl* control = controls[count - 1];
        ASSERT_EQ(control->titleLabels().size(), count);
        EXPECT_LE(control->frame().size.width, 345);
        for (std::size_t index = 0; index < count; ++index) {
            screen.host.tap(GalleryScreen::middleOf(control->titleLabels()[index]));
            EXPECT_EQ(control->selectedSegmentIndex(), static_cast<std::int64_t>(index));
        }
    }
    EXPECT_TRUE(screen.shows("selectedSegmentIndex: 1, “Tue”\nselectedSegmentIndex: 2, “Wed”\n"
                             "selectedSegmentIndex: 3, “Thu”\nselectedSegmentIndex: 4, “Fri”"));
}

TEST(SegmentsPage, ADragThatBeginsOnAControlScrollsAndSelectsNothing) {
    GalleryScreen screen("segments", {.screenSize = {320, 480}});
    const auto controls = screen.all<ZRSegmentedControl>();
    const CGPoint start = GalleryScreen::middleOf(controls[2]->titleLabels()[2]);
    screen.host.touchDown(start);
    screen.host.touchMove({start.x, start.y - 60}, 0.2);
    screen.host.touchUp();
    EXPECT_EQ(controls[2]->selectedSegmentIndex(), 1);
    // The first ten points are those by which a drag is told from a touch.
    EXPECT_EQ(GalleryScreen::middleOf(controls[2]->titleLabels()[2]), CGPointMake(start.x, start.y - 50));
}
