#include <Gallery/Pages/HUDDemo.h>

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Images/UIBezierPath.h>

#include <algorithm>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "HUD INDICATORS";

/// A battery that charges. As it has a key "progress", a HUD whose custom view it is hands it the progress.
class BatteryGauge : public UIView {
public:
    bool init() override {
        if (!initWithFrame(CGRectMake(0, 0, 72, 36)))
            return false;
        setOpaque(false);
        return true;
    }

    float progress() const { return m_progress; }
    void setProgress(float progress) {
        m_progress = progress;
        setNeedsDisplay();
    }

    void drawRect(CGRect) override {
        UIColor::whiteColor()->setFill();
        UIColor::whiteColor()->setStroke();
        const auto shell = UIBezierPath::bezierPathWithRoundedRect_cornerRadius(CGRectMake(1, 1, 64, 34), 7);
        shell->setLineWidth(2);
        shell->stroke();
        UIBezierPath::bezierPathWithRoundedRect_byRoundingCorners_cornerRadii(
            CGRectMake(67, 12, 4, 12), UIRectCornerTopRight | UIRectCornerBottomRight, CGSizeMake(3, 3))
            ->fill();

        const CGFloat width = 56 * std::clamp(m_progress, 0.f, 1.f);
        UIColor::colorWithRed_green_blue_alpha(0.3, 0.85, 0.39, 1)->setFill();
        UIBezierPath::bezierPathWithRoundedRect_cornerRadius(CGRectMake(5, 5, width, 26), 3)->fill();
    }

protected:
    const KeyTable& keyTable() const override {
        static const KeyTable table(UIView::keyTable(),
                                    {key<&BatteryGauge::progress, &BatteryGauge::setProgress>("progress")});
        return table;
    }

private:
    float m_progress = 0;
};

} // namespace

std::vector<Page> hudIndicatorPages() {
    return {
        {"hud-spinner", "Spinner", kFamily, "Work of unknown length", "icon_hud_spinner.png",
         "A HUD covers a view while work is going on. The spinner says no more than that; it is what a HUD shows "
         "unless told otherwise.",
         showsHUD([](ZRProgressHUD* hud) { hud->setLabelText("Loading"); })},
        {"hud-pie", "Pie", kFamily, "A wedge that grows", "icon_hud_pie.png",
         "A white wedge grows clockwise inside a thin circle. The HUD hides when the work is done.",
         showsHUD<ProgressHUDDemo>([](ZRProgressHUD* hud) {
             hud->setMode(ZRProgressHUDModePie);
             hud->setLabelText("Downloading");
         })},
        {"hud-ring", "Ring", kFamily, "An arc that closes", "icon_hud_ring.png",
         "An arc runs clockwise along a faint ring, until the ring is closed.",
         showsHUD<ProgressHUDDemo>([](ZRProgressHUD* hud) {
             hud->setMode(ZRProgressHUDModeRing);
             hud->setLabelText("Uploading");
         })},
        {"hud-bar", "Bar", kFamily, "A bar that fills", "icon_hud_bar.png",
         "An outlined bar of 120 points that fills from the left.", showsHUD<ProgressHUDDemo>([](ZRProgressHUD* hud) {
             hud->setMode(ZRProgressHUDModeBar);
             hud->setLabelText("Copying");
         })},
        {"hud-custom", "Custom view", kFamily, "A view of the application’s own", "icon_hud_custom.png",
         "Any view may be the indicator. This one has a key “progress”, so the HUD hands it the progress.",
         showsHUD<ProgressHUDDemo>([](ZRProgressHUD* hud) {
             hud->setCustomView(make<BatteryGauge>());
             hud->setMode(ZRProgressHUDModeCustomView);
             hud->setLabelText("Charging");
         })},
        {"hud-text", "Text only", kFamily, "A short message that goes by itself", "icon_hud_text.png",
         "Without an indicator a HUD is a message. This one sits low in the view and hides by itself after two "
         "seconds.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setMode(ZRProgressHUDModeTextOnly);
             hud->setLabelText("Saved to the album");
             hud->setMargin(10);
             hud->setYOffset(75);
             hud->hide_afterDelay(true, 2);
         })},
    };
}

} // namespace zr::gallery
