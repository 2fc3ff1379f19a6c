#include <Gallery/Pages/AlertDemo.h>

#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "ALERT STYLES";

/// Fills its bar within two and a half seconds and dismisses itself when it is full.
class ProgressDemo : public AlertDemo {
public:
    ~ProgressDemo() override { stop(); }

protected:
    void overlayIsShown() override {
        stop();
        m_percent = 0;
        m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.05, true, [this](NSTimer*) { step(); });
    }
    void overlayWillGo() override {
        AlertDemo::overlayWillGo();
        stop();
    }

private:
    void step() {
        m_percent += 2;
        alert()->setProgress(m_percent);
        alert()->setDetailMessage(
            NSString::stringWithFormat("%d %% %s", m_percent, SampleText::translated("of 24 MB")));
        if (m_percent == 100)
            alert()->dismissAlertView();
    }

    void stop() {
        if (m_timer)
            m_timer->invalidate();
        m_timer = nullptr;
    }

    Ref<NSTimer> m_timer;
    std::int32_t m_percent = 0;
};

class RotationDemo : public AlertDemo {
protected:
    Ref<ZRTAlertView> makeAlert() override {
        auto alert = AlertDemo::makeAlert();
        alert->setRotationImage(UIImage::imageNamed("gallery_spinner.png"));
        return alert;
    }
    void overlayIsShown() override { alert()->startRotation(); }
    void overlayWillGo() override { alert()->stopRotation(); }
};

} // namespace

std::vector<Page> alertStylePages() {
    return {
        {"alert-default", "Default", kFamily, "Title, message, two buttons", "icon_alert_default.png",
         "The plain modal alert: a bold title, a message below it, and a button at each side. It floats in a window "
         "of its own above everything else.",
         showsAlert({"Delete photo?", "It will be removed from all of your devices.", "Cancel", "Delete"})},
        {"alert-plain", "Plain", kFamily, "The default look by its other name", "icon_alert_plain.png",
         "The plain style shows a title and a message and nothing else, just as the default one does.",
         showsAlert({"Connection lost", "The server did not answer within ten seconds.", "Close", "Try again",
                     ZRTAlertViewStylePlain})},
        {"alert-checkbox", "Check box", kFamily, "A choice that goes with the answer", "icon_alert_checkbox.png",
         "A check box with a caption below the message. Its state can be read when a button is pressed.",
         showsAlert({"Remove from list?", "The file itself stays where it is.", "Cancel", "Remove",
                     ZRTAlertViewStyleCheckBox, "Do not ask again"})},
        {"alert-progress", "Progress", kFamily, "A bar that fills while one waits", "icon_alert_progress.png",
         "A bar and a caption that follow the work. The alert goes by itself when the bar is full.",
         showsAlert<ProgressDemo>(
             {"Downloading", "Mountains.zip", "Stop", nullptr, ZRTAlertViewStyleProgress, "of 24 MB"})},
        {"alert-rotation", "Rotation", kFamily, "An image that spins", "icon_alert_rotation.png",
         "An image of the application’s own turns twice a second above a caption.",
         showsAlert<RotationDemo>({"Synchronizing", "Your notes are being compared.", "Stop", nullptr,
                                   ZRTAlertViewStyleRotation, "Please wait"})},
        {"alert-textfield", "Text field", kFamily, "Asks for a line of text", "icon_alert_textfield.png",
         "A text field with a placeholder. It takes the focus at once, and the alert moves up to leave room for a "
         "keyboard.",
         showsAlert({"Rename album", "Everybody who shares it sees the new name.", "Cancel", "Rename",
                     ZRTAlertViewStyleTextField, "Name"})},
        {"alert-secure", "Secure field", kFamily, "Asks for a secret", "icon_alert_secure.png",
         "The same field for a password: what is typed shows as bullets.",
         showsAlert({"Unlock notes", "Enter the password of this notebook.", "Cancel", "Unlock",
                     ZRTAlertViewStyleSecureTextField, "Password"})},
    };
}

} // namespace zr::gallery
