#include <Gallery/Pages/HUDDemo.h>

#include <Gallery/Settings/SampleText.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "HUD BOX AND PLACE";

/// Over the whole window.
class WindowHUDDemo : public HUDDemo {
public:
    void leave() override {
        if (hud())
            hud()->hide(true);
    }

protected:
    UIView* hostView() const override { return page()->window(); }
};

/// Made for the window, so that its box may stand over the bar.
class HUDOfWindowDemo : public WindowHUDDemo {
protected:
    Ref<ZRProgressHUD> makeHUD() override {
        UIWindow* window = page()->window();
        auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithWindow, window);
        hud->setYOffset(static_cast<float>(80 - window->bounds().size.height / 2));
        return hud;
    }
};

/// With a button that turns the device by a quarter, as its owner would.
class RotationHUDDemo : public WindowHUDDemo {
public:
    void buildPage() override {
        page()->addButtons(
            {{"Show HUD", [this] { show(); }}, {"Hide HUD", [this] { hide(); }}, {"Turn", [] { turn(); }}});
        addLandscape(270);
        addLog();
        page()->setShowAction([this] {
            show();
            turn();
        });
    }
    void leave() override {
        WindowHUDDemo::leave();
        UIApplication::sharedApplication()->setStatusBarOrientation(UIInterfaceOrientationPortrait);
    }

    static void turn() {
        UIApplication* application = UIApplication::sharedApplication();
        application->setStatusBarOrientation(orientationAfter(application->statusBarOrientation()));
    }

private:
    static UIInterfaceOrientation orientationAfter(UIInterfaceOrientation orientation) {
        switch (orientation) {
        case UIInterfaceOrientationPortrait:
            return UIInterfaceOrientationLandscapeRight;
        case UIInterfaceOrientationLandscapeRight:
            return UIInterfaceOrientationPortraitUpsideDown;
        case UIInterfaceOrientationPortraitUpsideDown:
            return UIInterfaceOrientationLandscapeLeft;
        default:
            return UIInterfaceOrientationPortrait;
        }
    }
};

void buildRotationPage(PageView& page) {
    showsHUD<RotationHUDDemo>([](ZRProgressHUD* hud) {
        hud->setLabelText("Loading");
        hud->setYOffset(75);
        // Touches go through to the page below.
        hud->setUserInteractionEnabled(false);
    })(page);
}

/// Two views, each with a HUD of its own.
void buildTwoHUDsPage(PageView& page) {
    const CGRect frame = CGRectMake(0, 0, page.contentWidth(), 130);
    const auto upper = make<Landscape>(&UIView::initWithFrame, frame);
    const auto lower = make<Landscape>(&UIView::initWithFrame, frame);
    const auto show = [upper, lower] {
        const auto searching = ZRProgressHUD::showHUDAddedTo_animated(upper, true);
        searching->setLabelText(SampleText::translated("Searching"));
        const auto comparing = ZRProgressHUD::showHUDAddedTo_animated(lower, true);
        comparing->setMode(ZRProgressHUDModeRing);
        comparing->setProgress(0.7f);
        comparing->setLabelText(SampleText::translated("Comparing"));
    };
    const auto hide = [&page](UIView* view) {
        const auto count = ZRProgressHUD::hideAllHUDsForView_animated(view, true);
        page.log(NSString::stringWithFormat("hideAllHUDsForView_animated: %zu", static_cast<std::size_t>(count)));
    };
    page.addView(upper);
    page.addView(lower);
    page.addButtons({{"Show both", show}, {"Hide upper", [hide, upper] { hide(upper); }}, {"Hide lower", [hide, lower] {
                                                                                               hide(lower);
                                                                                           }}});
    page.addLog("HOW MANY WERE HIDDEN");
    page.setShowAction(show);
}

} // namespace

std::vector<Page> hudBoxPages() {
    return {
        {"hud-square", "Square", kFamily, "As high as it is wide", "icon_hud_square.png",
         "The box is made as high as it is wide, or the other way round, where it fits.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Sorting pictures");
             hud->setSquare(true);
         })},
        {"hud-min-size", "Minimum size", kFamily, "No smaller than asked for", "icon_hud_min_size.png",
         "However little there is in the box, it is 220 points wide and 150 high.", showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setMinSize(CGSizeMake(220, 150));
         })},
        {"hud-offsets", "Offsets", kFamily, "Away from the middle", "icon_hud_offsets.png",
         "The box stands 70 points to the left of the middle and 45 points above it.", showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Loading");
             hud->setXOffset(-70);
             hud->setYOffset(-45);
         })},
        {"hud-color", "Colour", kFamily, "A box that is not black", "icon_hud_color.png",
         "The box, the texts and the spinner each have a colour of their own, and the corners a radius.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Watering");
             hud->setDetailsLabelText("Two more rows of tulips");
             hud->setColor(UIColor::colorWithRed_green_blue_alpha(0.98, 0.95, 0.86, 0.95));
             hud->setLabelColor(UIColor::colorWithRed_green_blue_alpha(0.10, 0.36, 0.22, 1));
             hud->setDetailsLabelColor(UIColor::colorWithRed_green_blue_alpha(0.35, 0.45, 0.38, 1));
             hud->setActivityIndicatorColor(UIColor::colorWithRed_green_blue_alpha(0.88, 0.28, 0.15, 1));
             hud->setCornerRadius(24);
         })},
        {"hud-opacity", "Opacity", kFamily, "A box that one sees through", "icon_hud_fade.png",
         "The black box lets a fifth of what is behind it through; here it is more than half.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Listening");
             hud->setOpacity(0.4f);
         })},
        {"hud-dim", "Dimming", kFamily, "Darker towards the edges", "icon_hud_dim.png",
         "What is behind the HUD is darkened, the more the farther from the middle. This HUD covers the whole window, "
         "and hides by itself after three seconds.",
         showsHUD<WindowHUDDemo>([](ZRProgressHUD* hud) {
             hud->setLabelText("Closing the accounts");
             hud->setDimBackground(true);
             hud->hide_afterDelay(true, 3);
         })},
        {"hud-window", "In the window", kFamily, "Over the bar too", "icon_hud_dim.png",
         "A HUD made for the window covers the bar as well, so that nothing can be touched while it works. This one "
         "hides by itself after three seconds.",
         showsHUD<HUDOfWindowDemo>([](ZRProgressHUD* hud) {
             hud->setLabelText("Signing in");
             hud->hide_afterDelay(true, 3);
         })},
        {"hud-two", "Two at once", kFamily, "Each view has its own", "icon_hud_two.png",
         "HUDs belong to the views they cover. Shown again and again they pile up; all of a view’s can be hidden "
         "in one go.",
         buildTwoHUDsPage},
        {"hud-rotation", "Rotation", kFamily, "It turns with the device", "icon_hud_rotation.png",
         "The HUD turns with its window. Before system version 8, it turns itself.", buildRotationPage},
    };
}

} // namespace zr::gallery
