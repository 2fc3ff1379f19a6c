#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTipsAlertView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRToastView.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <gtest/gtest.h>

#include <regex>

using namespace zr;
using namespace zr::test;

namespace {

/// Nil when there is none.
template <class Overlay>
Overlay* overlayOn(const GalleryScreen& screen) {
    const auto overlays = screen.all<Overlay>();
    return overlays.empty() ? nullptr : overlays.back();
}

bool isSpinning(ZRToastView* toast) { return toast->rotationImageView()->layer()->animationForKey("transform"); }

/// The first word of the overlay in Latin letters that is neither a unit nor the end of a file's name; empty when there
/// is none.
std::string firstLatinWord(const GalleryScreen& screen) {
    static const std::regex word("[A-Za-z]+");
    const auto* overlay = overlayOn<ZRBaseAlert>(screen);
    for (const UILabel* label : screen.all<UILabel>()) {
        if (!overlay || !label->isDescendantOfView(overlay))
            continue;
        const std::string text = label->text().UTF8String();
        for (std::sregex_iterator found(text.begin(), text.end(), word), end; found != end; ++found) {
            if (const std::string each = found->str(); each != "MB" && each != "GB" && each != "zip")
                return each;
        }
    }
    return "";
}

} // namespace

TEST(OverlayPages, SampleTextsAreAllOfThemInTheChosenLanguage) {
    using gallery::SampleText::Language;
    for (const gallery::Page& page : gallery::allPages()) {
        const std::string name = page.name;
        const bool hasTextsOfItsOwn = name.starts_with("alert-long-") || name == "alert-button";
        if (hasTextsOfItsOwn ||
            !(name.starts_with("alert-") || name.starts_with("toast-") || name.starts_with("tips-")))
            continue;
        SCOPED_TRACE(name);
        for (const Language language : {Language::Chinese, Language::Arabic, Language::Emoji}) {
            GalleryScreen screen(name, {}, language);
            screen.host.advance(0.5);
            EXPECT_TRUE(overlayOn<ZRBaseAlert>(screen));
            EXPECT_EQ(firstLatinWord(screen), "");
        }
    }
}

TEST(ToastPages, AToastIsDismissedAfterThreeSecondsAndCanBeShownAgain) {
    for (const char* name : {"toast-still", "toast-spinning", "toast-no-icon", "toast-no-text"}) {
        SCOPED_TRACE(name);
        GalleryScreen screen(name);
        screen.host.advance(2.9);
        EXPECT_TRUE(overlayOn<ZRToastView>(screen));
        EXPECT_TRUE(screen.shows("Nothing yet."));
        screen.host.advance(0.5);
        EXPECT_FALSE(overlayOn<ZRToastView>(screen));
        EXPECT_TRUE(screen.shows("zrTAlertViewCancelButtonClicked\nzrTAlertView_clickedButtonAtIndex: 0"));
        screen.tapButton("Show toast");
        EXPECT_TRUE(overlayOn<ZRToastView>(screen));
    }
}

TEST(ToastPages, EachShowsItsVariant) {
    struct Variant {
        const char* name;
        bool hasImage, hasText, spins;
        CGSize panel;
    };
    for (const Variant& variant : {Variant{"toast-still", true, true, false, {168, 200}},
                                   Variant{"toast-spinning", true, true, true, {168, 200}},
                                   Variant{"toast-no-icon", false, true, false, {200, 70}},
                                   Variant{"toast-no-text", true, false, true, {153, 153}},
                                   Variant{"toast-host-view", true, true, false, {168, 200}}}) {
        SCOPED_TRACE(variant.name);
        const GalleryScreen screen(variant.name);
        ZRToastView* toast = overlayOn<ZRToastView>(screen);
        ASSERT_TRUE(toast);
        EXPECT_EQ(toast->rotationImageView()->frame().size.width, variant.hasImage ? 67 : 0);
        EXPECT_EQ(toast->messageLabel()->frame().size.height, variant.hasText ? 50 : 0);
        EXPECT_EQ(isSpinning(toast), variant.spins);
        EXPECT_EQ(toast->backgroundAlert()->bounds().size, variant.panel);
    }
}

TEST(ToastPages, InAViewTheButtonsOfThePageSpinAndDismissIt) {
    GalleryScreen screen("toast-host-view");
    ZRToastView* toast = overlayOn<ZRToastView>(screen);
    ASSERT_TRUE(toast);
    screen.tapButton("Start rotation");
    EXPECT_TRUE(isSpinning(toast));
    screen.tapButton("Stop rotation");
    EXPECT_FALSE(isSpinning(toast));
    screen.tapButton("Show");
    EXPECT_EQ(screen.all<ZRToastView>().size(), 1u) << "it is there already";
    screen.host.advance(60);
    EXPECT_TRUE(overlayOn<ZRToastView>(screen)) << "it never leaves by itself";
    screen.tapButton("Dismiss");
    screen.host.advance(0.4);
    EXPECT_FALSE(overlayOn<ZRToastView>(screen));
    for (const char* title : {"Start rotation", "Stop rotation", "Dismiss"})
        screen.tapButton(title); // nothing is there
    screen.tapButton("Show");
    EXPECT_TRUE(overlayOn<ZRToastView>(screen));
}

TEST(ToastPages, LeavingThePageTakesTheToastInItsViewAlong) {
    GalleryScreen screen("toast-host-view");
    screen.tapButton("Start rotation");
    const Weak<gallery::PageView> opened = screen.all<gallery::PageView>().at(0);
    screen.tapBack();
    screen.host.advance(1);
    EXPECT_TRUE(opened == nullptr);
    EXPECT_FALSE(overlayOn<ZRToastView>(screen));
}

TEST(TipsPages, EachShowsItsVariant) {
    struct Variant {
        const char* name;
        bool hasImage, hasTitle, hasMessage;
    };
    for (const Variant& variant :
         {Variant{"tips-image", true, true, true}, Variant{"tips-no-image", false, true, true},
          Variant{"tips-no-title", false, false, true}, Variant{"tips-no-message", true, true, false},
          Variant{"tips-long", true, true, true}, Variant{"tips-size", true, true, true}}) {
        SCOPED_TRACE(variant.name);
        const GalleryScreen screen(variant.name);
        ZRTipsAlertView* alert = overlayOn<ZRTipsAlertView>(screen);
        ASSERT_TRUE(alert);
        EXPECT_EQ(alert->tipImage() != nullptr, variant.hasImage);
        EXPECT_EQ(alert->titleLabel() != nullptr, variant.hasTitle);
        EXPECT_EQ(alert->messageLabel() != nullptr, variant.hasMessage);
    }
}

TEST(TipsPages, ALongTextIsCutUnlessTheAlertIsGivenASize) {
    // The default size lets a message have 70 points.
    const GalleryScreen cut("tips-long");
    const ZRTipsAlertView* alert = overlayOn<ZRTipsAlertView>(cut);
    ASSERT_TRUE(alert);
    EXPECT_LE(alert->messageLabel()->frame().size.height, 75);
    EXPECT_EQ(alert->backgroundAlert()->frame().size.height, 70 + 45 + alert->messageLabel()->frame().size.height + 80);

    const GalleryScreen whole("tips-size");
    alert = overlayOn<ZRTipsAlertView>(whole);
    ASSERT_TRUE(alert);
    const CGRect message = alert->messageLabel()->frame();
    EXPECT_EQ(alert->backgroundAlert()->frame().size, CGSizeMake(290, 480));
    EXPECT_GT(message.size.height, 200);
    EXPECT_LT(CGRectGetMaxY(message), 480 - 45) << "it ends above the buttons";
}

TEST(TipsPages, ARoomyPanelStaysWithinASmallScreen) {
    const GalleryScreen screen("tips-size", {.screenSize = {320, 480}});
    const ZRTipsAlertView* alert = overlayOn<ZRTipsAlertView>(screen);
    ASSERT_TRUE(alert);
    const CGRect panel = alert->backgroundAlert()->frame();
    EXPECT_EQ(panel.size, CGSizeMake(290, 440));
    EXPECT_GE(panel.origin.y, 0);
    EXPECT_LE(CGRectGetMaxY(alert->messageLabel()->frame()), 440 - 45) << "it ends above the buttons";
}

TEST(TipsPages, TheirButtonsDismissAndAreLogged) {
    GalleryScreen screen("tips-image");
    screen.host.advance(0.4);
    screen.tapButton("Next tip");
    screen.host.advance(0.4);
    EXPECT_FALSE(overlayOn<ZRTipsAlertView>(screen));
    EXPECT_TRUE(screen.shows("zrTAlertView_clickedButtonAtIndex: 1"));
    screen.tapButton("Show alert");
    screen.host.advance(0.4);
    screen.tapButton("Close");
    EXPECT_TRUE(screen.shows("zrTAlertView_clickedButtonAtIndex: 1\nzrTAlertViewCancelButtonClicked\n"
                             "zrTAlertView_clickedButtonAtIndex: 0"));
}
