#pragma once

#include <Gallery/Pages/PageView.h>
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

/// Shows an alert on a page, as its delegate, and writes what it is told into the page's log. The kinds of alert that
/// need more than a look derive from it.
class AlertDemo : public NSObject, public ZRTAlertViewDelegate {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage_spec(PageView* page, const AlertSpec& spec);

    /// Ignored while the alert is still there.
    void show();

    void zrTAlertViewCancelButtonClicked(ZRBaseAlert* alert) override;
    void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert* alert, NSInteger index) override;

protected:
    PageView* page() const { return m_page; }
    /// Nil once it has been dismissed.
    ZRTAlertView* alert() const { return m_alert; }

    virtual Ref<ZRTAlertView> makeAlert();
    virtual void presentAlert(ZRTAlertView* alert);
    /// After the alert has come up.
    virtual void alertIsShown(ZRTAlertView*) {}
    /// Before the alert goes.
    virtual void alertWillGo(ZRTAlertView*) {}

    const AlertSpec& spec() const { return m_spec; }

private:
    void logContents(ZRTAlertView* alert);

    Weak<PageView> m_page;
    Weak<ZRTAlertView> m_alert;
    AlertSpec m_spec{};
};

/// Adds a "Show alert" button, the log, and the demo itself to a page.
void addAlertDemo(PageView& page, const Ref<AlertDemo>& demo);

/// A demo of the class `Demo` on its own page: what `Page::build` asks for.
template <class Demo = AlertDemo>
std::function<void(PageView&)> showsAlert(const AlertSpec& spec) {
    return [spec](PageView& page) { addAlertDemo(page, make<Demo>(&AlertDemo::initWithPage_spec, &page, spec)); };
}

} // namespace zr::gallery
