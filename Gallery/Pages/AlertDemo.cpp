#include <Gallery/Pages/AlertDemo.h>

#include <ZRPlatform/UIKit/Controls/UITextField.h>

namespace zr::gallery {

bool AlertDemo::initWithPage_spec(PageView* page, const AlertSpec& spec) {
    m_page = page;
    m_spec = spec;
    return init();
}

void AlertDemo::show() {
    if (m_alert && m_alert->superview())
        return;
    const auto alert = makeAlert();
    m_alert = alert;
    presentAlert(alert);
    alertIsShown(alert);
}

Ref<ZRTAlertView> AlertDemo::makeAlert() {
    auto alert = make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                                    m_spec.title, m_spec.message, this, m_spec.cancel, m_spec.ok);
    alert->alertViewStyle_detailMessage(m_spec.style, m_spec.detailMessage);
    return alert;
}

void AlertDemo::presentAlert(ZRTAlertView* alert) { alert->showWithAnimation(true); }

void AlertDemo::zrTAlertViewCancelButtonClicked(ZRBaseAlert*) { m_page->log("zrTAlertViewCancelButtonClicked"); }

void AlertDemo::zrTAlertView_clickedButtonAtIndex(ZRBaseAlert*, NSInteger index) {
    m_page->log(NSString::stringWithFormat("zrTAlertView_clickedButtonAtIndex: %td", index));
    if (const Ref<ZRTAlertView> alert = m_alert.lock()) {
        logContents(alert);
        alertWillGo(alert);
    }
}

void AlertDemo::logContents(ZRTAlertView* alert) {
    switch (m_spec.style) {
    case ZRTAlertViewStyleCheckBox:
        m_page->log(alert->checkBoxSelected() ? "checkBoxSelected: true" : "checkBoxSelected: false");
        break;
    case ZRTAlertViewStyleProgress:
        m_page->log(NSString::stringWithFormat("progress: %d", static_cast<int>(alert->progress())));
        break;
    case ZRTAlertViewStyleTextField:
        m_page->log(NSString::stringWithFormat("textField: “%s”", alert->textField()->text().UTF8String()));
        break;
    case ZRTAlertViewStyleSecureTextField:
        m_page->log(NSString::stringWithFormat("textField: %zu secret characters",
                                               static_cast<std::size_t>(alert->textField()->text().length())));
        break;
    default:
        break;
    }
}

void addAlertDemo(PageView& page, const Ref<AlertDemo>& demo) {
    page.keep(demo);
    const auto show = [demo = demo.get()] { demo->show(); };
    page.addButton("Show alert", show);
    page.addLog("WHAT THE DELEGATE WAS TOLD");
    page.setShowAction(show);
}

} // namespace zr::gallery
