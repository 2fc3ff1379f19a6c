#include <Gallery/Pages/AlertDemo.h>

#include <ZRPlatform/UIKit/Controls/UITextField.h>

namespace zr::gallery {

bool AlertDemo::initWithPage_content(PageView* page, const AlertContent& content) {
    m_content = content;
    return initWithPage(page);
}

void AlertDemo::overlayWillGo() {
    switch (m_content.style) {
    case ZRTAlertViewStyleCheckBox:
        page()->log(alert()->checkBoxSelected() ? "checkBoxSelected: true" : "checkBoxSelected: false");
        break;
    case ZRTAlertViewStyleProgress:
        page()->log(NSString::stringWithFormat("progress: %d", static_cast<int>(alert()->progress())));
        break;
    case ZRTAlertViewStyleTextField:
        page()->log(NSString::stringWithFormat("textField: “%s”", alert()->textField()->text().UTF8String()));
        break;
    case ZRTAlertViewStyleSecureTextField:
        page()->log(NSString::stringWithFormat("textField: %zu secret characters",
                                               static_cast<std::size_t>(alert()->textField()->text().length())));
        break;
    default:
        break;
    }
}

} // namespace zr::gallery
