#include <Gallery/Pages/OverlayDemo.h>

namespace zr::gallery {

bool OverlayDemo::initWithPage(PageView* page) {
    m_page = page;
    return init();
}

void OverlayDemo::buildPage() {
    m_page->addButton(showTitle(), [this] { show(); });
    addLog();
}

void OverlayDemo::addLog() { m_page->addLog("WHAT THE DELEGATE WAS TOLD"); }

void OverlayDemo::show() {
    if (m_overlay && m_overlay->superview())
        return;
    const auto overlay = makeOverlay();
    m_overlay = overlay;
    presentOverlay(overlay);
    overlayIsShown();
}

void OverlayDemo::presentOverlay(ZRBaseAlert* overlay) { overlay->showInView_animation(hostView(), true); }

void OverlayDemo::leave() {
    if (hostView() && m_overlay && m_overlay->superview())
        m_overlay->dismissAlertViewWithoutAnimation();
}

void OverlayDemo::zrTAlertViewCancelButtonClicked(ZRBaseAlert*) { m_page->log("zrTAlertViewCancelButtonClicked"); }

void OverlayDemo::zrTAlertView_clickedButtonAtIndex(ZRBaseAlert*, NSInteger index) {
    m_page->log(NSString::stringWithFormat("zrTAlertView_clickedButtonAtIndex: %td", index));
    if (m_overlay)
        overlayWillGo();
}

void addOverlayDemo(PageView& page, const Ref<OverlayDemo>& demo) {
    page.keep(demo);
    page.setShowAction([demo = demo.get()] { demo->show(); });
    page.setCloseAction([demo = demo.get()] { demo->leave(); });
    demo->buildPage();
}

} // namespace zr::gallery
