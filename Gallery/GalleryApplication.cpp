#include <Gallery/GalleryApplication.h>

#include <ZRPlatform/UIKit/Application/UIScreen.h>

namespace zr::gallery {

bool GalleryApplication::initWithPage(const Page* page) {
    m_page = page;
    return init();
}

bool GalleryApplication::applicationDidFinishLaunching(UIApplication*) {
    m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    m_gallery = make<GalleryView>(&GalleryView::initWithFrame, m_window->bounds());
    m_window->addSubview(m_gallery);
    m_window->makeKeyAndVisible();
    if (m_page) {
        m_gallery->openPage_animated(*m_page, false);
        m_gallery->openedPage()->showComponent();
    }
    return true;
}

void GalleryApplication::applicationWillTerminate(UIApplication*) {
    if (PageView* page = m_gallery ? m_gallery->openedPage() : nullptr)
        page->close();
}

} // namespace zr::gallery
