#include <Gallery/Pages/AlertDemo.h>

#include <Gallery/Look/Look.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>
#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "ALERT BUTTONS AND PLACES";

/// An alert that goes when it is touched anywhere.
class TouchableAlert : public ZRTAlertView {
public:
    void touchesEnded_withEvent(const TouchSet&, UIEvent*) override { dismissAlertView(); }
};

/// Without a button, the alert goes by itself after four seconds, or sooner when touched.
class NoButtonDemo : public AlertDemo {
public:
    ~NoButtonDemo() override { stop(); }

protected:
    Ref<ZRTAlertView> makeAlert() override {
        auto alert = makeAlertOf<TouchableAlert>();
        alert->setRotationImage(UIImage::imageNamed("gallery_spinner.png"));
        // The default size keeps room for buttons.
        alert->setAlertViewSize(CGSizeMake(220, 142));
        return alert;
    }
    void overlayIsShown() override {
        alert()->startRotation();
        stop();
        m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(
            4, false, [this](NSTimer*) { alert()->dismissAlertView(); });
    }
    void overlayWillGo() override { stop(); }

private:
    void stop() {
        if (m_timer)
            m_timer->invalidate();
        m_timer = nullptr;
    }

    Ref<NSTimer> m_timer;
};

Ref<UIView> makeHostView(CGFloat width) {
    auto host = Look::card(CGRectMake(0, 0, width, 250));
    host->setClipsToBounds(true);
    const auto label =
        Look::label("Host view", UIFont::systemFontOfSize(13), Look::titleColor(), 1, NSTextAlignmentCenter);
    label->setFrame(CGRectMake(0, 12, width, 18));
    host->addSubview(label);
    return host;
}

/// Shows the alert inside a view on the page instead of above everything.
class HostViewDemo : public AlertDemo {
public:
    void buildPage() override {
        m_hostView = makeHostView(page()->contentWidth());
        page()->addView(m_hostView);
        AlertDemo::buildPage();
    }

protected:
    UIView* hostView() const override { return m_hostView; }

private:
    Ref<UIView> m_hostView;
};

// The button itself

Ref<ZRTAlertViewButton> makeAlertButton(CGRect frame, const char* title) {
    auto button = make<ZRTAlertViewButton>(&UIControl::initWithFrame, frame);
    button->setTitle(title);
    return button;
}

/// In its three states. Only the first one can be touched.
void buildButtonPage(PageView& page) {
    constexpr CGFloat kHeight = 44, kGap = 12;
    const CGFloat width = page.contentWidth();
    const auto column = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, width, 3 * kHeight + 2 * kGap));
    const auto normal = makeAlertButton(CGRectMake(0, 0, width, kHeight), "Normal");
    const auto highlighted = makeAlertButton(CGRectMake(0, kHeight + kGap, width, kHeight), "Highlighted");
    const auto disabled = makeAlertButton(CGRectMake(0, 2 * (kHeight + kGap), width, kHeight), "Disabled");
    highlighted->setHighlighted(true);
    highlighted->setUserInteractionEnabled(false);
    disabled->setEnabled(false);
    for (const auto& button : {normal, highlighted, disabled})
        column->addSubview(button);
    page.addView(column);
}

} // namespace

std::vector<Page> alertButtonPages() {
    return {
        {"alert-one-button", "One button", kFamily, "As wide as the panel", "icon_alert_one_button.png",
         "With one title the single button is as wide as the panel. Its index is 0, so it counts as cancelling, "
         "whichever of the two titles it was given.",
         showsAlert({"Backup finished", "214 photos were copied.", nullptr, "OK"})},
        {"alert-two-buttons", "Two buttons", kFamily, "Index 0 and index 1", "icon_alert_two_buttons.png",
         "Two titles share the width. The cancel button has the index 0, the other one 1.",
         showsAlert({"Leave without saving?", "Your last changes will be lost.", "Stay", "Leave"})},
        {"alert-no-button", "No button", kFamily, "Dismissed by code", "icon_alert_no_button.png",
         "Without titles there are no buttons, and the application decides when the alert goes: here after four "
         "seconds, or as soon as the screen is touched.",
         showsAlert<NoButtonDemo>(
             {"One moment", nullptr, nullptr, nullptr, ZRTAlertViewStyleRotation, "Looking for printers"})},
        {"alert-button", "The button itself", kFamily, "Normal, highlighted, disabled", "icon_alert_one_button.png",
         "The flat button along an alert’s bottom edge is a control that can stand by itself.", buildButtonPage},
        {"alert-host-view", "In a view", kFamily, "Dims one view instead of the screen", "icon_alert_host_view.png",
         "Shown in a view that the caller names, the alert dims that view and leaves the rest of the screen in use.",
         showsAlert<HostViewDemo>({"Reload map?", "Only this view waits for the answer.", "Later", "Reload"})},
    };
}

} // namespace zr::gallery
