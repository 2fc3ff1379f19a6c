#pragma once

#include <Gallery/Pages/OverlayDemo.h>
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

    virtual Ref<ZRTAlertView> makeAlert();
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
