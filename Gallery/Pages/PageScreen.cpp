#include <Gallery/Pages/PageScreen.h>

namespace zr::gallery {

Ref<ZRTViewController> makeScreenOfPage(const Page& page) {
    if (page.makeScreen)
        return page.makeScreen(page);
    return make<PageScreen>(&PageScreen::initWithPage, page);
}

PageView* PageScreen::pageView() {
    loadViewIfNeeded();
    return m_pageView;
}

void PageScreen::viewDidLoad() {
    ScreenOfPage::viewDidLoad();
    const CGSize size = view()->bounds().size;
    m_pageView =
        make<PageView>(&PageView::initWithFrame_screen,
                       CGRectMake(0, navigationBarMaxY(), size.width, size.height - navigationBarMaxY()), this);
    m_pageView->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    view()->addSubview(m_pageView);
    m_pageView->build(page());
}

void PageScreen::viewWillDisappear(bool animated) {
    ScreenOfPage::viewWillDisappear(animated);
    if (isMovingFromParentViewController())
        m_pageView->close();
}

} // namespace zr::gallery
