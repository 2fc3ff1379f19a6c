#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/Look/StepSlider.h>
#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zr::test {

namespace {

CGRect onScreen(const UIView* view) { return view->convertRect_toView(view->bounds(), nullptr); }

/// Drags the page's slider to its end.
void dragToTheEnd(GalleryScreen& screen) {
    const CGRect slider = onScreen(screen.all<gallery::StepSlider>().back());
    const CGPoint middle = CGPointMake(CGRectGetMidX(slider), CGRectGetMidY(slider));
    screen.host.touchDown(middle);
    screen.host.touchMove({CGRectGetMaxX(slider), middle.y}, 0.2);
    screen.host.touchUp();
}

} // namespace

TEST(ProgressPages, TheSliderMovesEveryRoundView) {
    GalleryScreen screen("progress-round");
    const auto views = screen.all<ZRRoundProgressView>();
    ASSERT_EQ(views.size(), 6u);
    for (std::size_t i = 0; i < views.size(); ++i) {
        EXPECT_EQ(views[i]->progress(), 0.65f);
        EXPECT_EQ(views[i]->isAnnular(), i >= 3);
    }
    const CGRect ring = onScreen(views[5]);
    // A bit before the ring closes, there is only its faint ground, and then the arc.
    const CGPoint late = {CGRectGetMidX(ring) - 4, CGRectGetMinY(ring) + 1};
    EXPECT_LT(screen.host.pixel(late).green, 150);
    dragToTheEnd(screen);
    for (const ZRRoundProgressView* view : views)
        EXPECT_EQ(view->progress(), 1);
    EXPECT_GT(screen.host.pixel(late).green, 150);
}

TEST(ProgressPages, TheSliderMovesEveryBar) {
    GalleryScreen screen("progress-bar");
    const auto views = screen.all<ZRBarProgressView>();
    ASSERT_EQ(views.size(), 3u);
    const CGRect bar = onScreen(views[1]);
    const CGPoint late = {CGRectGetMaxX(bar) - 12, CGRectGetMidY(bar)};
    EXPECT_NE(screen.host.pixel(late), (FramePixel{255, 255, 255}));
    dragToTheEnd(screen);
    for (const ZRBarProgressView* view : views)
        EXPECT_EQ(view->progress(), 1);
    EXPECT_EQ(screen.host.pixel(late), (FramePixel{255, 255, 255}));
}

TEST(ProgressPages, TheArrowKeysMoveASliderThatHasTheKeyboard) {
    GalleryScreen screen("progress-round");
    auto* slider = screen.all<gallery::StepSlider>().back();
    const ZRRoundProgressView* view = screen.all<ZRRoundProgressView>().front();
    for (int i = 0; i < 20 && !slider->isFocused(); ++i)
        screen.host.pressKey(UIKey::Tab);
    ASSERT_TRUE(slider->isFocused());
    EXPECT_TRUE(screen.host.pressKey(UIKey::Left));
    EXPECT_EQ(slider->step(), 12);
    EXPECT_EQ(view->progress(), 0.6f);
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(screen.host.pressKey(UIKey::Right));
    EXPECT_EQ(slider->step(), 20) << "there is none beyond the last";
    EXPECT_EQ(view->progress(), 1);
    EXPECT_TRUE(slider->isFocused());
}

TEST(AlertButtonPage, OneButtonStandsInEachStateAndOnlyTheFirstIsTouched) {
    GalleryScreen screen("alert-button");
    const auto buttons = screen.all<ZRTAlertViewButton>();
    ASSERT_EQ(buttons.size(), 3u);
    EXPECT_TRUE(buttons[1]->isHighlighted());
    EXPECT_FALSE(buttons[2]->isEnabled());
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        screen.host.touchDown(GalleryScreen::middleOf(buttons[i]));
        EXPECT_EQ(buttons[i]->isHighlighted(), i < 2) << i;
        screen.host.touchUp();
        EXPECT_EQ(buttons[i]->isHighlighted(), i == 1) << i;
    }
}

TEST(HUDPages, FontsAndOpacityAreTheApplications) {
    const GalleryScreen fonts("hud-fonts");
    ASSERT_TRUE(fonts.hud());
    EXPECT_EQ(fonts.hud()->labelFont()->pointSize(), 28);
    EXPECT_TRUE(fonts.hud()->detailsLabelFont()->isItalic());

    // At one place below the box's black, which lets more or less of the same picture through.
    const auto seen = [](const char* page) {
        GalleryScreen screen(page);
        screen.host.advance(1);
        const CGPoint middle = GalleryScreen::middleOf(screen.hud());
        return screen.host.pixel({middle.x - 30, middle.y});
    };
    EXPECT_GT(seen("hud-opacity").green, seen("hud-spinner").green + 40);
}

TEST(GradientPage, ImagesColoursAndPatternsGoFromTheFirstColourToTheLast) {
    GalleryScreen screen("gradients");
    screen.host.advance(1);
    const auto pixelBelow = [&](const char* heading, CGFloat y) {
        for (const UILabel* label : screen.all<UILabel>()) {
            if (label->text() == NSString(heading))
                return screen.host.pixel({60, CGRectGetMaxY(onScreen(label)) + 7 + y});
        }
        return FramePixel();
    };
    constexpr const char *image = "AN IMAGE OF THREE COLOURS", *color = "A COLOUR OF THREE COLOURS",
                         *pattern = "THE SAME, A THIRD AS HIGH";
    const FramePixel first = pixelBelow(image, 0), last = pixelBelow(image, 110.5);
    EXPECT_GT(first.blue, first.red + 30);
    EXPECT_GT(last.red, last.blue + 30);
    for (const CGFloat y : {0.5, 40.5, 80.5, 110.5}) {
        const FramePixel ofImage = pixelBelow(image, y), ofColor = pixelBelow(color, y);
        EXPECT_NEAR(ofImage.red, ofColor.red, 3) << y;
        EXPECT_NEAR(ofImage.blue, ofColor.blue, 3) << y;
    }
    for (const CGFloat y : {0.5, 18.5, 36.5}) {
        EXPECT_EQ(pixelBelow(pattern, y), pixelBelow(pattern, y + 37)) << y;
        EXPECT_EQ(pixelBelow(pattern, y), pixelBelow(pattern, y + 74)) << y;
    }
    EXPECT_FALSE(pixelBelow(pattern, 0.5) == pixelBelow(pattern, 36.5));
}

TEST(OwnRowPage, ARowWithASwitchDarkensAndABadgeStandsAtTheRight) {
    GalleryScreen screen("list-own");
    screen.host.advance(1);
    auto rows = screen.all<ZRTableViewCell>();
    ASSERT_EQ(rows.size(), 4u);
    std::ranges::sort(rows, {}, [](const ZRTableViewCell* row) { return row->frame().origin.y; });
    const CGPoint beside = rows[0]->convertPoint_toView({300, 6}, nullptr);
    EXPECT_EQ(screen.host.pixel(beside), (FramePixel{255, 255, 255}));
    screen.host.touchDown(beside);
    screen.host.advance(0.2);
    EXPECT_NE(screen.host.pixel(beside), (FramePixel{255, 255, 255}));
    screen.host.touchUp();
    screen.host.advance(0.5);
    EXPECT_EQ(screen.host.pixel(beside), (FramePixel{255, 255, 255}));
    EXPECT_EQ(rows[1]->zrAccessoryView()->bounds().size, CGSizeMake(28, 28));
    EXPECT_EQ(CGRectGetMidY(rows[1]->zrAccessoryView()->frame()), 38);
}

TEST(SegmentsPage, CodeChangesTitlesSilently) {
    GalleryScreen screen("segments");
    const ZRSegmentedControl* control = screen.all<ZRSegmentedControl>().at(2);
    screen.tapButton("Other titles");
    EXPECT_EQ(control->titleForSegmentAtIndex(2), NSString("Later"));
    EXPECT_TRUE(screen.shows("Nothing yet."));
    screen.tapButton("Other titles");
    EXPECT_EQ(control->titleForSegmentAtIndex(2), NSString("Month"));
}

} // namespace zr::test
