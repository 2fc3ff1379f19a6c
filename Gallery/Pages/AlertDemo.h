#pragma once

#include <Gallery/Pages/OverlayDemo.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>

namespace zr::gallery {

/// What an alert is made of. Null texts are nil: no label, no button.
struct AlertSpec {
    const char* title;
    const char* message;
    const char* cancel;
    const char* ok;
    std::int32_t style = ZRTAlertViewStyleDefault;
    const char* detailMessage = nullptr;
};

/// Shows an alert from a page, and logs the state of what it contains when it goes. The kinds of alert that need more
/// than a look derive from it.
class AlertDemo : public OverlayDemo {
public:
    virtual bool initWithPage_spec(PageView* page, const AlertSpec& spec);

protected:
    const AlertSpec& spec() const { return m_spec; }
    /// Nil once it has been dismissed.
    ZRTAlertView* alert() const { return static_cast<ZRTAlertView*>(overlay()); }

    virtual Ref<ZRTAlertView> makeAlert() { return makeAlertOf<ZRTAlertView>(); }
    /// An alert of the class `Alert` with the texts of `spec`, in the language of the sample texts.
    template <class Alert>
    Ref<ZRTAlertView> makeAlertOf() {
        Ref<ZRTAlertView> alert =
            make<Alert>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                        SampleText::translated(m_spec.title), SampleText::translated(m_spec.message), this,
                        SampleText::translated(m_spec.cancel), SampleText::translated(m_spec.ok));
        alert->alertViewStyle_detailMessage(m_spec.style, SampleText::translated(m_spec.detailMessage));
        return alert;
    }
    const char* showTitle() const override { return "Show alert"; }
    Ref<ZRBaseAlert> makeOverlay() final { return makeAlert(); }
    void overlayWillGo() override;

private:
    AlertSpec m_spec{};
};

/// A demo of the class `Demo` on its own page: what `Page::build` asks for.
template <class Demo = AlertDemo>
std::function<void(PageView&)> showsAlert(const AlertSpec& spec) {
    return [spec](PageView& page) { addOverlayDemo(page, make<Demo>(&AlertDemo::initWithPage_spec, &page, spec)); };
}

} // namespace zr::gallery
