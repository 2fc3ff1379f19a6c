#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/Look/TimeLine.h>
#include <Gallery/Pages/PageView.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Controls/UIActivityIndicatorView.h>
#include <gmock/gmock.h>

#include <chrono>

using namespace zr;
using namespace zr::test;
using ::testing::ElementsAre;

namespace {

DeviceProfile deviceOfVersion(const char* version) {
    DeviceProfile profile;
    profile.systemVersion = version;
    return profile;
}

/// What the flags on the page's time line say, in the order they were put up.
std::vector<std::string> flags(const GalleryScreen& screen) {
    std::vector<std::string> names;
    for (UILabel* label : screen.all<UILabel>()) {
        if (dynamic_cast<gallery::TimeLine*>(label->superview()) && label->backgroundColor() == UIColor::whiteColor())
            names.push_back(label->text().utf8());
    }
    return names;
}

} // namespace

TEST(HUDPages, TheirButtonsHideAndShowTheHUD) {
    for (const char* name :
         {"hud-spinner", "hud-label", "hud-details", "hud-long", "hud-chinese", "hud-emoji", "hud-square",
          "hud-min-size", "hud-offsets", "hud-color", "hud-fade", "hud-shrink", "hud-grow", "hud-rotation"}) {
        SCOPED_TRACE(name);
        GalleryScreen screen(name);
        screen.host.advance(0.5);
        EXPECT_EQ(screen.seenAlpha(), 1);
        EXPECT_FALSE(screen.shows("hudWasHidden"));
        screen.tapButton("Hide HUD");
        screen.host.advance(0.5);
        EXPECT_FALSE(screen.hud());
        EXPECT_TRUE(screen.shows("hudWasHidden"));
        screen.tapButton("Show HUD");
        screen.host.advance(0.5);
        EXPECT_EQ(screen.seenAlpha(), 1);
        screen.tapButton("Show HUD");
        EXPECT_EQ(screen.all<ZRProgressHUD>().size(), 1u) << "it is there already";
    }
}

TEST(HUDPages, EachModeHasItsIndicator) {
    EXPECT_TRUE(GalleryScreen("hud-spinner").hud()->indicator()->isKindOfClass<UIActivityIndicatorView>());
    EXPECT_TRUE(GalleryScreen("hud-bar").hud()->indicator()->isKindOfClass<ZRBarProgressView>());
    EXPECT_FALSE(GalleryScreen("hud-text").hud()->indicator());
    for (const char* name : {"hud-pie", "hud-ring"}) {
        const GalleryScreen screen(name);
        const Ref<UIView> indicator = screen.hud()->indicator();
        const auto* round = dynamic_cast<ZRRoundProgressView*>(indicator.get());
        ASSERT_TRUE(round) << name;
        EXPECT_EQ(round->isAnnular(), std::string(name) == "hud-ring");
    }
    const GalleryScreen custom("hud-custom");
    EXPECT_EQ(custom.hud()->indicator().get(), custom.hud()->customView().get());
}

TEST(HUDPages, DeterminateIndicatorsFillAndTheHUDHidesWhenTheyAreFull) {
    for (const char* name : {"hud-pie", "hud-ring", "hud-bar", "hud-custom"}) {
        SCOPED_TRACE(name);
        GalleryScreen screen(name);
        EXPECT_EQ(screen.seenProgress(), 0);
        screen.host.advance(1);
        EXPECT_FLOAT_EQ(screen.seenProgress(), 0.4f);
        screen.host.advance(1.45);
        EXPECT_FLOAT_EQ(screen.seenProgress(), 0.98f);
        screen.host.advance(0.4);
        EXPECT_FALSE(screen.hud());
        screen.tapButton("Show HUD");
        screen.host.advance(0.5);
        EXPECT_FLOAT_EQ(screen.seenProgress(), 0.2f) << "it begins anew";
    }
}

TEST(HUDPages, AMessageGoesByItself) {
    GalleryScreen message("hud-text");
    message.host.advance(1.9);
    EXPECT_EQ(message.seenAlpha(), 1);
    message.host.advance(0.5);
    EXPECT_FALSE(message.hud());
}

TEST(HUDPages, TheDimmedScreenTakesNoTouchesUntilItIsOver) {
    GalleryScreen screen("hud-dim");
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.hud()->superview()->isKindOfClass<UIWindow>());
    screen.tapButton("Hide HUD");
    screen.host.advance(0.5);
    EXPECT_EQ(screen.seenAlpha(), 1);
    screen.host.advance(2.4);
    EXPECT_FALSE(screen.hud());
}

TEST(HUDPages, ShrinkingAndGrowingHUDsChangeTheirSizeOnTheWay) {
    const auto seenScale = [](const char* name) {
        GalleryScreen screen(name);
        screen.host.advance(0.15);
        return screen.hud()->layer()->presentationValues().transform.m11;
    };
    EXPECT_NEAR(seenScale("hud-fade"), 1, 1e-9);
    EXPECT_NEAR(seenScale("hud-shrink"), 1.25, 0.01);
    EXPECT_NEAR(seenScale("hud-grow"), 0.75, 0.01);
}

TEST(HUDPages, ATaskShorterThanTheGraceTimeShowsNoHUD) {
    GalleryScreen screen("hud-grace");
    screen.host.advance(0.4);
    EXPECT_EQ(screen.seenAlpha(), 0) << "the grace time is not over";
    screen.host.advance(0.5);
    EXPECT_EQ(screen.seenAlpha(), 1);
    EXPECT_THAT(flags(screen), ElementsAre("show called", "grace time over"));
    screen.host.advance(1);
    EXPECT_FALSE(screen.hud());
    EXPECT_THAT(flags(screen), ElementsAre("show called", "grace time over", "task over", "hidden"));

    screen.tapButton("0.3 s");
    for (int i = 0; i < 29; ++i) {
        EXPECT_EQ(screen.seenAlpha(), 0);
        screen.host.advance(0.01);
    }
    EXPECT_THAT(flags(screen), ElementsAre("show called"));
    screen.host.advance(0.02);
    EXPECT_FALSE(screen.hud());
    EXPECT_THAT(flags(screen), ElementsAre("show called", "task over", "hidden"));
}

TEST(HUDPages, TheTimersOfAnEarlierHUDLeaveTheTimeLineAlone) {
    GalleryScreen screen("hud-grace");
    screen.host.advance(2);
    screen.tapButton("0.3 s");
    screen.host.advance(0.4);
    screen.tapButton("1.5 s");
    screen.host.advance(0.3); // over the end of the first one's grace time
    EXPECT_THAT(flags(screen), ElementsAre("show called"));
    screen.host.advance(0.3);
    EXPECT_THAT(flags(screen), ElementsAre("show called", "grace time over"));
}

TEST(HUDPages, AHUDStaysForItsMinimumTime) {
    GalleryScreen screen("hud-min-show");
    screen.host.advance(1.2);
    EXPECT_EQ(screen.seenAlpha(), 1);
    EXPECT_THAT(flags(screen), ElementsAre("show called", "task over"));
    screen.host.advance(0.5);
    EXPECT_FALSE(screen.hud());
    EXPECT_THAT(flags(screen), ElementsAre("show called", "task over", "minimum over", "hidden"));

    screen.tapButton("1.8 s");
    screen.host.advance(1.7);
    EXPECT_EQ(screen.seenAlpha(), 1);
    screen.host.advance(0.5);
    EXPECT_FALSE(screen.hud());
    EXPECT_THAT(flags(screen), ElementsAre("show called", "task over", "hidden"));
}

TEST(HUDPages, EachOfTwoHUDsIsHiddenByItself) {
    GalleryScreen screen("hud-two");
    screen.host.advance(0.5);
    ASSERT_EQ(screen.all<ZRProgressHUD>().size(), 2u);
    screen.tapButton("Hide upper");
    screen.host.advance(0.5);
    ASSERT_EQ(screen.all<ZRProgressHUD>().size(), 1u);
    EXPECT_EQ(screen.hud()->labelText(), NSString("Comparing"));
    screen.tapButton("Show both");
    screen.tapButton("Hide lower");
    screen.host.advance(0.5);
    ASSERT_EQ(screen.all<ZRProgressHUD>().size(), 1u);
    EXPECT_EQ(screen.hud()->labelText(), NSString("Searching"));
    EXPECT_TRUE(screen.shows("hideAllHUDsForView_animated: 1\nhideAllHUDsForView_animated: 2"));
}

TEST(HUDPages, TheHUDTurnsWithItsWindowFromVersion8) {
    GalleryScreen screen("hud-rotation");
    screen.host.advance(0.5);
    EXPECT_EQ(UIScreen::mainScreen()->bounds().size, CGSizeMake(667, 375));
    EXPECT_EQ(screen.hud()->frame(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(screen.hud()->transform(), CGAffineTransformIdentity);
    EXPECT_EQ(screen.all<gallery::PageView>().at(0)->frame(), CGRectMake(0, 64, 667, 311));
    screen.tapButton("Turn");
    screen.host.advance(0.5);
    EXPECT_EQ(screen.hud()->frame(), CGRectMake(0, 0, 375, 667));
    screen.tapButton("Turn");
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_FALSE(screen.hud());
    EXPECT_EQ(UIScreen::mainScreen()->bounds().size, CGSizeMake(375, 667)) << "the list stands upright again";
}

TEST(HUDPages, TheHUDTurnsItselfBeforeVersion8) {
    GalleryScreen screen("hud-rotation", deviceOfVersion("7.1"));
    screen.host.advance(0.5);
    EXPECT_EQ(screen.hud()->superview()->bounds().size, CGSizeMake(375, 667));
    EXPECT_NEAR(screen.hud()->transform().b, 1, 1e-9);
    EXPECT_NEAR(screen.hud()->bounds().size.width, 667, 1e-9);
    screen.tapButton("Turn");
    screen.host.advance(0.5);
    EXPECT_NEAR(screen.hud()->transform().a, -1, 1e-9);
}

TEST(HUDPages, ACompletionBlockRunsBeforeTheDelegateIsTold) {
    GalleryScreen screen("hud-completion");
    screen.host.advance(1.9);
    EXPECT_TRUE(screen.shows("Nothing yet."));
    screen.host.advance(0.5);
    EXPECT_FALSE(screen.hud());
    EXPECT_TRUE(screen.shows("completionBlock\nhudWasHidden"));
}

TEST(HUDPages, AHUDOfTheWindowCoversTheBarAndGoesByItself) {
    GalleryScreen screen("hud-window");
    screen.host.advance(0.5);
    EXPECT_EQ(screen.hud()->frame(), CGRectMake(0, 0, 375, 667));
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("Signing in")) << "the way back is covered";
    screen.host.advance(2.4);
    EXPECT_FALSE(screen.hud());
    screen.tapBack();
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("Check box"));
}

TEST(HUDPages, TheSampleTextsLanguageReachesThem) {
    GalleryScreen screen("hud-spinner");
    screen.host.advance(0.5);
    EXPECT_TRUE(screen.shows("Loading"));
    screen.tapButton("Hide HUD");
    screen.host.advance(0.5);
    for (const auto& [language, text] : {std::pair(gallery::SampleText::Language::Arabic, "جارٍ التحميل"),
                                         {gallery::SampleText::Language::Chinese, "正在载入"}}) {
        gallery::SampleText::setLanguage(language);
        screen.tapButton("Show HUD");
        screen.host.advance(0.5);
        EXPECT_TRUE(screen.shows(text));
        screen.tapButton("Hide HUD");
        screen.host.advance(0.5);
    }
}

TEST(HUDPages, ATaskSpeaksTheSampleTextsLanguageToo) {
    GalleryScreen screen("hud-thread");
    screen.tapButton("Cancel");
    screen.host.advance(0.5);
    gallery::SampleText::setLanguage(gallery::SampleText::Language::Chinese);
    screen.tapButton("Start");
    screen.host.advance(1.8);
    EXPECT_TRUE(screen.shows("正在数质数"));
}

TEST(HUDPages, LeavingAPageLeavesNothingOfItBehind) {
    for (const gallery::Page& page : gallery::allPages()) {
        const std::string_view name = page.name;
        const bool coversTheBar = name == "hud-dim" || name == "hud-window";
        if (std::string_view(page.family).substr(0, 3) != "HUD" || coversTheBar)
            continue;
        SCOPED_TRACE(page.name);
        GalleryScreen screen(page.name);
        screen.host.advance(0.25);
        const Weak<gallery::PageView> opened = screen.all<gallery::PageView>().at(0);
        screen.tapBack();
        screen.host.advance(3);
        EXPECT_TRUE(opened == nullptr);
        EXPECT_FALSE(screen.hud());
        EXPECT_TRUE(screen.shows("ALERT STYLES"));
    }
}

TEST(HUDTaskPages, TheTasksDriveTheirHUDFromAnotherThread) {
    for (const char* name : {"hud-thread", "hud-queue"}) {
        SCOPED_TRACE(name);
        GalleryScreen screen(name);
        screen.host.advance(0.45);
        EXPECT_TRUE(screen.hud()->taskInProgress());
        EXPECT_EQ(screen.hud()->labelText(), NSString("Getting ready"));
        EXPECT_TRUE(screen.hud()->indicator()->isKindOfClass<UIActivityIndicatorView>());
        screen.host.advance(0.55);
        screen.host.advance(0); // shows what the thread has set in its last step
        EXPECT_TRUE(screen.shows("Counting primes"));
        EXPECT_TRUE(screen.shows("1229 below 10000"));
        EXPECT_FLOAT_EQ(screen.seenProgress(), 0.2f);
        EXPECT_FALSE(screen.shows("hudWasHidden"));
        // The last of the 60 steps is taken at 3 seconds.
        const Ref<ZRProgressHUD> hud = screen.hud();
        screen.host.advance(2.05);
        ASSERT_TRUE(screen.host.waitUntil([&] { return !hud->taskInProgress(); }));
        EXPECT_EQ(hud->detailsLabelText(), NSString("5133 below 50000"));
        screen.host.advance(0.4);
        EXPECT_FALSE(screen.hud());
        EXPECT_TRUE(screen.shows(std::string(name) == "hud-queue" ? "completionBlock\nhudWasHidden" : "hudWasHidden"));
    }
}

TEST(HUDTaskPages, ACancelledTaskEndsAndCanBeStartedAnew) {
    for (const char* name : {"hud-thread", "hud-queue"}) {
        SCOPED_TRACE(name);
        GalleryScreen screen(name);
        screen.host.advance(1);
        const Ref<ZRProgressHUD> hud = screen.hud();
        screen.tapButton("Cancel");
        ASSERT_TRUE(screen.host.waitUntil([&] { return !hud->taskInProgress(); }));
        EXPECT_LT(hud->progress(), 0.5f);
        screen.host.advance(0.5);
        EXPECT_FALSE(screen.hud());
        screen.tapButton("Start");
        screen.host.advance(1);
        screen.host.advance(0);
        EXPECT_FLOAT_EQ(screen.seenProgress(), 0.2f);
    }
}

TEST(HUDTaskPages, LeavingThePageInTheMiddleEndsTheTask) {
    for (const char* name : {"hud-thread", "hud-queue"}) {
        SCOPED_TRACE(name);
        GalleryScreen screen(name);
        screen.host.advance(1);
        Ref<ZRProgressHUD> hud = screen.hud();
        screen.tapBack();
        ASSERT_TRUE(screen.host.waitUntil([&] { return !hud->taskInProgress(); }));
        EXPECT_LT(hud->progress(), 0.5f);
        screen.host.advance(0.5);
        // The task's thread holds the HUD for as long as it runs.
        const Weak<ZRProgressHUD> held = std::exchange(hud, nullptr);
        EXPECT_TRUE(screen.host.waitUntil([&] { return held == nullptr; }));
    }
}

TEST(HUDTaskPages, TheEndOfTheApplicationEndsTheTask) {
    for (const char* name : {"hud-thread", "hud-queue"}) {
        SCOPED_TRACE(name);
        Weak<ZRProgressHUD> held;
        {
            GalleryScreen screen(name);
            screen.host.advance(1);
            held = screen.hud();
            ASSERT_TRUE(held);
        }
        // A thread that has said its last word still takes a moment to let go of the HUD.
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (held && std::chrono::steady_clock::now() < end)
            NSRunLoop::mainRunLoop()->waitForWork(0.01);
        EXPECT_FALSE(held);
        NSRunLoop::mainRunLoop()->runDue();
    }
}
