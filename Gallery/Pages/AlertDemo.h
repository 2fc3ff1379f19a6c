#pragma once

#include <Gallery/Pages/OverlayDemo.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>

namespace zr::gallery {

/// What an alert is made of. Null texts are nil: no label, no button.
struct AlertContent {
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
    virtual bool initWithPage_content(PageView* page, const AlertContent& content);

protected:
    const AlertContent& content() const { return m_content; }
    /// Nil once it has been dismissed.
    ZRTAlertView* alert() const { return static_cast<ZRTAlertView*>(overlay()); }

    virtual Ref<ZRTAlertView> makeAlert() { return makeAlertOf<ZRTAlertView>(); }
    /// An alert of the class `Alert` with the texts of `content`, in the language of the sample texts.
    template <class Alert>
    Ref<ZRTAlertView> makeAlertOf() {
        Ref<ZRTAlertView> alert =
            make<Alert>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                        SampleText::translated(m_content.title), SampleText::translated(m_content.message), this,
                        SampleText::translated(m_content.cancel), SampleText::translated(m_content.ok));
        alert->alertViewStyle_detailMessage(m_content.style, SampleText::translated(m_content.detailMessage));
        return alert;
    }
    const char* showTitle() const override { return "Show alert"; }
    Ref<ZRBaseAlert> makeOverlay() final { return makeAlert(); }
    void overlayWillGo() override;

private:
    AlertContent m_content{};
};

/// A demo of the class `Demo` on its own page: what `Page::build` asks for.
template <class Demo = AlertDemo>
std::function<void(PageView&)> showsAlert(const AlertContent& content) {
    return [content](PageView& page) {
        addOverlayDemo(page, make<Demo>(&AlertDemo::initWithPage_content, &page, content));
    };
}

} // namespace zr::gallery
