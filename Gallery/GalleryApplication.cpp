#include <Gallery/GalleryApplication.h>

#include <ZRPlatform/UIKit/Application/UIScreen.h>

namespace zr::gallery {

bool GalleryApplication::initWithPage(const Page* page) {
    m_page = page;
    return init();
}

bool GalleryApplication::applicationDidFinishLaunching(UIApplication*) {
    m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    const auto gallery = make<GalleryView>(&GalleryView::initWithFrame, m_window->bounds());
    m_window->addSubview(gallery);
    m_window->makeKeyAndVisible();
    if (m_page) {
        gallery->openPage_animated(*m_page, false);
        gallery->openedPage()->showComponent();
    }
    return true;
}

} // namespace zr::gallery
