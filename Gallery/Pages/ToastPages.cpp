#include <Gallery/Look/Landscape.h>
#include <Gallery/Pages/OverlayDemo.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRTAlertView/ZRToastView.h>
#include <ZRPlatform/Foundation/NSTimer.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "TOASTS";

/// Long enough to be read, in seconds.
constexpr NSTimeInterval kShowTime = 3;

/// What an application does to a new toast before it shows it.
using ToastSetup = std::function<void(ZRToastView* toast)>;

/// Shows a toast. As a toast stays until it is dismissed, and takes every touch, the demo dismisses it.
class ToastDemo : public OverlayDemo {
public:
    ~ToastDemo() override { stop(); }

    /// `message`: null for none.
    virtual bool initWithPage_message_setup(PageView* page, const char* message, ToastSetup setup) {
        m_message = message;
        m_setup = std::move(setup);
        return initWithPage(page);
    }

protected:
    ZRToastView* toast() const { return static_cast<ZRToastView*>(overlay()); }

    const char* showTitle() const override { return "Show toast"; }
    Ref<ZRBaseAlert> makeOverlay() override {
        auto toast = make<ZRToastView>(&ZRToastView::initWithDelegate_message, this, SampleText::translated(m_message));
        if (m_setup)
            m_setup(toast);
        return toast;
    }
    void overlayIsShown() override {
        stop();
        m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(
            kShowTime, false, [this](NSTimer*) { toast()->dismissAlertView(); });
    }
    void overlayWillGo() override { stop(); }

private:
    void stop() {
        if (m_timer)
            m_timer->invalidate();
        m_timer = nullptr;
    }

    const char* m_message = nullptr;
    ToastSetup m_setup;
    Ref<NSTimer> m_timer;
};

/// In a view the rest of the page stays in use, so that buttons there can say what the toast does.
class ToastInViewDemo : public ToastDemo {
public:
    void buildPage() override {
        m_landscape = make<Landscape>(&UIView::initWithFrame, CGRectMake(0, 0, page()->contentWidth(), 250));
        page()->addView(m_landscape);
        page()->addButtons({{"Show", [this] { show(); }}, {"Dismiss", [this] { dismiss(); }}});
        page()->addButtons(
            {{"Start rotation", [this] { startRotation(); }}, {"Stop rotation", [this] { stopRotation(); }}});
        addLog();
    }

protected:
    UIView* hostView() const override { return m_landscape; }
    void overlayIsShown() override {}

private:
    void dismiss() {
        if (toast())
            toast()->dismissAlertView();
    }
    void startRotation() {
        if (toast())
            toast()->startRotation();
    }
    void stopRotation() {
        if (toast())
            toast()->stopRotation();
    }

    Ref<Landscape> m_landscape;
};

/// A demo of the class `Demo` on its own page: what `Page::build` asks for.
template <class Demo = ToastDemo>
std::function<void(PageView&)> showsToast(const char* message, const ToastSetup& setup = nullptr) {
    return [message, setup](PageView& page) {
        addOverlayDemo(page, make<Demo>(&ToastDemo::initWithPage_message_setup, &page, message, setup));
    };
}

} // namespace

std::vector<Page> toastPages() {
    return {
        {"toast-still", "Still", kFamily, "An icon above a short message", "icon_toast_still.png",
         "A small dark panel that says what has happened. It has no buttons and stays until the application dismisses "
         "it: here after three seconds.",
         showsToast("Contacts exported")},
        {"toast-spinning", "Spinning", kFamily, "The icon turns while work goes on", "icon_toast_spinning.png",
         "The icon turns once in 0.8 seconds, for as long as the work takes.",
         showsToast("Exporting contacts", [](ZRToastView* toast) { toast->startRotation(); })},
        {"toast-no-icon", "Without icon", kFamily, "Two lines of text", "icon_toast_no_icon.png",
         "Without an image the message moves up, and the application makes the panel lower. There is room for two "
         "lines.",
         showsToast("Copied to the album of last summer",
                    [](ZRToastView* toast) {
                        toast->rotationImageView()->setImage(nullptr);
                        toast->setAlertViewSize(CGSizeMake(200, 70));
                    })},
        {"toast-no-text", "Without text", kFamily, "Nothing but the icon", "icon_toast_no_text.png",
         "With a nil message only the icon shows, 43 points below the panel’s top; so a panel 153 points high has it "
         "in its middle.",
         showsToast(nullptr,
                    [](ZRToastView* toast) {
                        toast->setAlertViewSize(CGSizeMake(153, 153));
                        toast->startRotation();
                    })},
        {"toast-host-view", "In a view", kFamily, "Dims one view instead of the screen", "icon_toast_host_view.png",
         "In a view that the caller names, the toast leaves the rest of the screen in use. Its rotation can be started "
         "and stopped at any time.",
         showsToast<ToastInViewDemo>("Exporting contacts")},
    };
}

} // namespace zr::gallery
