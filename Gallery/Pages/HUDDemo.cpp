#include <Gallery/Pages/HUDDemo.h>

#include <Gallery/Settings/SampleText.h>

namespace zr::gallery {

bool HUDDemo::initWithPage_setup(PageView* page, HUDSetup setup) {
    m_page = page;
    m_setup = std::move(setup);
    return init();
}

void HUDDemo::buildPage() {
    addLandscape(230);
    m_page->addButtons({{"Show HUD", [this] { show(); }}, {"Hide HUD", [this] { hide(); }}});
    addLog();
}

void HUDDemo::addLandscape(CGFloat height) {
    m_landscape = make<Landscape>(&UIView::initWithFrame, CGRectMake(0, 0, m_page->contentWidth(), height));
    m_page->addView(m_landscape);
}

void HUDDemo::addLog() { m_page->addLog("WHAT THE DELEGATE WAS TOLD"); }

void HUDDemo::show() {
    if (m_hud && m_hud->superview())
        return;
    const auto hud = makeHUD();
    m_hud = hud;
    hud->setDelegate(this);
    hud->setRemoveFromSuperViewOnHide(true);
    if (m_setup)
        m_setup(hud);
    translateTexts(hud);
    hostView()->addSubview(hud);
    presentHUD(hud);
    hudIsShown(hud);
}

void HUDDemo::translateTexts(ZRProgressHUD* hud) {
    const auto translated = [](const NSString& text) {
        return text.isNil() ? text : NSString(SampleText::translated(text.UTF8String()));
    };
    hud->setLabelText(translated(hud->labelText()));
    hud->setDetailsLabelText(translated(hud->detailsLabelText()));
}

Ref<ZRProgressHUD> HUDDemo::makeHUD() { return make<ZRProgressHUD>(&ZRProgressHUD::initWithView, hostView()); }

void HUDDemo::hide() { ZRProgressHUD::hideHUDForView_animated(hostView(), true); }

void HUDDemo::hudWasHidden(ZRProgressHUD*) {
    m_page->log("hudWasHidden");
    hudIsGone();
}

void ProgressHUDDemo::hudIsShown(ZRProgressHUD*) {
    stop();
    m_percent = 0;
    m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.05, true, [this](NSTimer*) { step(); });
}

void ProgressHUDDemo::step() {
    m_percent += 2;
    hud()->setProgress(static_cast<float>(m_percent) / 100);
    if (m_percent == 100) {
        stop();
        hide();
    }
}

void ProgressHUDDemo::stop() {
    if (m_timer)
        m_timer->invalidate();
    m_timer = nullptr;
}

void addHUDDemo(PageView& page, const Ref<HUDDemo>& demo) {
    page.keep(demo);
    page.setShowAction([demo = demo.get()] { demo->show(); });
    page.setCloseAction([demo = demo.get()] { demo->leave(); });
    demo->buildPage();
}

} // namespace zr::gallery
