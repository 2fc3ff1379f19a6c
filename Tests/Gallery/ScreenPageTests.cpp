#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/Settings/SampleText.h>
#include <Gallery/Settings/SettingsScreen.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>
#include <gtest/gtest.h>

namespace zr::test {

namespace {

/// The one in front.
ZRTNavigationBar* bar(const GalleryScreen& screen) { return screen.all<ZRTNavigationBar>().back(); }

CGFloat seenAlpha(const UIView* view) { return view->layer()->presentationValues().opacity; }

/// How many screens' bars are there to be seen.
std::size_t barCount(const GalleryScreen& screen) { return screen.all<ZRTNavigationBar>().size(); }

/// The label of the field for vertical drags.
UILabel* wordsOf(const GalleryScreen& screen) {
    for (UILabel* label : screen.all<UILabel>()) {
        if (label->text().hasPrefix("state: "))
            return label;
    }
    return nullptr;
}

void tapRow(GalleryScreen& screen, const std::string& title) {
    screen.tapButton(title);
    screen.host.advance(0.5);
}

} // namespace

// The application

TEST(GalleryScreens, TheListLeadsToAPageAndBackByTheBar) {
    GalleryScreen screen("");
    tapRow(screen, "Default");
    EXPECT_TRUE(screen.shows("Show alert"));
    EXPECT_FALSE(screen.shows("Check box"));
    EXPECT_EQ(bar(screen)->titleLabel()->text(), "Default");
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_FALSE(screen.shows("Show alert"));
    EXPECT_TRUE(screen.shows("Check box"));
}

TEST(GalleryScreens, AFingerFromTheLeftEdgeLeadsBackToo) {
    GalleryScreen screen("alert-default");
    screen.host.advance(0.5);
    screen.tapButton("Cancel");
    screen.host.advance(0.5);
    screen.host.touchDown({1, 300});
    screen.host.touchMove({300, 310}, 0.2);
    screen.host.touchUp();
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("Check box"));
}

TEST(GalleryScreens, TheListHasNoWayBackButOneToTheSettings) {
    GalleryScreen screen("");
    screen.host.advance(0.5);
    EXPECT_EQ(seenAlpha(bar(screen)->backButton()), 0);
    tapRow(screen, "Settings");
    EXPECT_TRUE(screen.shows("SAMPLE TEXT"));
    EXPECT_EQ(seenAlpha(bar(screen)->backButton()), 1);
}

// Settings

TEST(GallerySettings, AHueIsSeenAtOnceAndOnEveryScreen) {
    GalleryScreen screen("");
    tapRow(screen, "Settings");
    const FramePixel green = screen.host.pixel({4, 4});
    tapRow(screen, "Orange");
    const FramePixel orange = screen.host.pixel({4, 4});
    EXPECT_FALSE(orange == green);
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.host.pixel({4, 4}) == orange);
    tapRow(screen, "Check box");
    EXPECT_TRUE(screen.host.pixel({4, 4}) == orange);
}

TEST(GallerySettings, ALanguageIsThatOfTheSampleTexts) {
    GalleryScreen screen("");
    tapRow(screen, "Settings");
    tapRow(screen, "中文");
    EXPECT_EQ(gallery::SampleText::language(), gallery::SampleText::Language::Chinese);
    screen.tapBack();
    screen.host.advance(0.5);
    tapRow(screen, "Default");
    screen.tapButton("Show alert");
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("要删除照片吗？"));
    EXPECT_TRUE(screen.shows("取消"));
    EXPECT_FALSE(screen.shows("Delete photo?"));
}

TEST(GallerySettings, WhatHasNoTranslationStaysAndNothingStaysNothing) {
    gallery::SampleText::setLanguage(gallery::SampleText::Language::Arabic);
    EXPECT_STREQ(gallery::SampleText::translated("Cancel"), "إلغاء");
    EXPECT_STREQ(gallery::SampleText::translated("no such text"), "no such text");
    EXPECT_EQ(gallery::SampleText::translated(nullptr), nullptr);
}

TEST(GallerySettings, TheDeviceAndItsVersionAreChosenForAReopening) {
    std::vector<DeviceProfile> reopened;
    gallery::SettingsScreen::setReopenAction([&](const DeviceProfile& profile) { reopened.push_back(profile); });
    {
        GalleryScreen screen("");
        tapRow(screen, "Settings");
        screen.host.touchDown({180, 600});
        screen.host.touchMove({180, -4000}, 0.3);
        screen.host.touchUp();
        screen.host.advance(0.5);
        tapRow(screen, "375x667@2"); // which it is
        tapRow(screen, "320x568@2");
        tapRow(screen, "6.1");
    }
    gallery::SettingsScreen::setReopenAction(nullptr);
    ASSERT_EQ(reopened.size(), 2u);
    EXPECT_TRUE(reopened[0].screenSize == CGSizeMake(320, 568));
    EXPECT_EQ(reopened[0].systemVersion, "8.4");
    EXPECT_TRUE(reopened[1].screenSize == CGSizeMake(375, 667));
    EXPECT_EQ(reopened[1].systemVersion, "6.1");
}

// The bar

TEST(BarPages, ButtonsComeIntoTheBarAreTappedAndGo) {
    GalleryScreen screen("bar-buttons");
    screen.host.advance(1);
    EXPECT_EQ(seenAlpha(bar(screen)->backButton()), 0);
    screen.host.tap(GalleryScreen::middleOf(bar(screen)->leftButton()));
    EXPECT_TRUE(screen.shows("button with an image"));
    EXPECT_EQ(bar(screen)->rightButton()->titleForState(UIControlStateNormal), NSString("Source"));
    // The second row is for the right button.
    std::vector<UILabel*> texts = screen.all<UILabel>();
    std::erase_if(texts, [](const UILabel* label) { return !(label->text() == NSString("Text")); });
    ASSERT_EQ(texts.size(), 2u);
    screen.host.tap(GalleryScreen::middleOf(texts.back()));
    screen.host.advance(0.5);
    screen.tapButton("Done");
    EXPECT_TRUE(screen.shows("button with an image\nright button"));
    screen.tapButton("Source");
    EXPECT_EQ(bar(screen)->rightButton()->titleForState(UIControlStateNormal), NSString("Source"));
    screen.tapButton("None");
    screen.host.advance(0.5);
    EXPECT_EQ(bar(screen)->leftButton(), nullptr);
    screen.tapButton("Back");
    screen.host.advance(0.5);
    EXPECT_EQ(seenAlpha(bar(screen)->backButton()), 1);
    screen.tapButton("Long");
    const UILabel* title = bar(screen)->titleLabel();
    EXPECT_GT(title->sizeThatFits(CGSizeMake(1000, 30)).width, title->frame().size.width);
}

TEST(BarPages, TheBarFadesAndComesBack) {
    GalleryScreen screen("bar-fade");
    const UIView* fading = bar(screen);
    screen.host.advance(0.25);
    EXPECT_NEAR(seenAlpha(fading), 0.5, 1e-6);
    screen.host.advance(0.25);
    EXPECT_EQ(seenAlpha(fading), 0);
    screen.tapButton("Show at once");
    EXPECT_EQ(seenAlpha(fading), 1);
}

TEST(BarPages, TheHuesFadeIntoOneAnother) {
    GalleryScreen screen("bar-hues");
    screen.host.advance(1);
    const FramePixel red = screen.host.pixel({4, 4});
    screen.tapButton("Orange");
    screen.host.advance(0.5);
    const FramePixel between = screen.host.pixel({4, 4});
    screen.host.advance(0.5);
    const FramePixel orange = screen.host.pixel({4, 4});
    EXPECT_FALSE(red == between);
    EXPECT_FALSE(between == orange);
    screen.tapButton("Red");
    screen.host.advance(1);
    EXPECT_TRUE(screen.host.pixel({4, 4}) == red);
}

// Screens

TEST(ScreenPages, ScreensArePushedAndPopped) {
    GalleryScreen screen("screen-stack");
    tapRow(screen, "Push another");
    tapRow(screen, "Push another");
    EXPECT_EQ(barCount(screen), 1u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(screen.shows("Push another"));
        EXPECT_TRUE(screen.shows("Screen " + std::to_string(3 - i)));
        screen.tapBack();
        screen.host.advance(0.5);
    }
    EXPECT_TRUE(screen.shows("Check box"));
}

TEST(ScreenPages, APresentedStackLeadsBackByItsFirstScreensBar) {
    GalleryScreen screen("screen-stack");
    tapRow(screen, "Present a stack");
    tapRow(screen, "Push another");
    screen.tapBack();
    screen.host.advance(0.5);
    screen.tapBack();
    screen.host.advance(0.5);
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("Check box"));
}

TEST(ScreenPages, AScreenPresentedWithoutABarLeadsBackByAButton) {
    GalleryScreen screen("screen-stack");
    tapRow(screen, "Present a screen without a bar");
    EXPECT_EQ(barCount(screen), 0u);
    tapRow(screen, "Back");
    EXPECT_EQ(barCount(screen), 1u);
}

TEST(ScreenPages, AVerticalDragShowsItsStateAndPoints) {
    GalleryScreen screen("vertical-drag");
    EXPECT_TRUE(screen.shows("state: possible\nbegan at 0, 0\nnow at 0, 0"));
    const CGPoint corner = wordsOf(screen)->superview()->convertPoint_toView(CGPointZero, nullptr);
    const auto at = [&](CGFloat x, CGFloat y) { return CGPointMake(corner.x + x, corner.y + y); };
    screen.host.touchDown(at(100, 90));
    screen.host.touchMove(at(100, 110));
    EXPECT_EQ(wordsOf(screen)->text(), "state: possible\nbegan at 100, 90\nnow at 100, 110");
    screen.host.touchMove(at(101, 120));
    EXPECT_EQ(wordsOf(screen)->text(), "state: began\nbegan at 100, 90\nnow at 101, 120");
    screen.host.touchMove(at(150, 125));
    EXPECT_EQ(wordsOf(screen)->text(), "state: changed\nbegan at 100, 90\nnow at 150, 125");
    screen.host.touchUp();
    EXPECT_EQ(wordsOf(screen)->text(), "state: ended\nbegan at 100, 90\nnow at 150, 125");
}

TEST(ScreenPages, AFailedDragIsSeenToo) {
    GalleryScreen screen("vertical-drag");
    const CGPoint start = GalleryScreen::middleOf(wordsOf(screen));
    screen.host.touchDown(start);
    screen.host.touchMove({start.x + 30, start.y + 10});
    EXPECT_TRUE(wordsOf(screen)->text().hasPrefix("state: failed\n"));
    screen.host.touchUp();
}

} // namespace zr::test
