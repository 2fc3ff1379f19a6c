#include <Gallery/Pages/PageScreen.h>

namespace zr::gallery {

bool PageScreen::initWithPage(const Page& page) {
    m_page = &page;
    return initWithTitle(page.title);
}

PageView* PageScreen::pageView() {
    loadViewIfNeeded();
    return m_pageView;
}

void PageScreen::viewDidLoad() {
    Screen::viewDidLoad();
    m_pageView = make<PageView>(&PageView::initWithFrame_screen, contentFrame(), this);
    m_pageView->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    view()->addSubview(m_pageView);
    m_pageView->build(*m_page);
}

void PageScreen::viewWillDisappear(bool animated) {
    Screen::viewWillDisappear(animated);
    if (isMovingFromParentViewController())
        m_pageView->close();
}

} // namespace zr::gallery
