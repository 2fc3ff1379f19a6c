#include <Gallery/GalleryApplication.h>

#include <Gallery/List/ListScreen.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

namespace zr::gallery {

bool GalleryApplication::initWithPage(const Page* page) {
    m_page = page;
    return init();
}

bool GalleryApplication::applicationDidFinishLaunching(UIApplication*) {
    m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    const auto list = make<ListScreen>();
    m_navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, list);
    m_window->setRootViewController(m_navigation);
    m_window->makeKeyAndVisible();
    if (m_page) {
        const Ref<ZRTViewController> screen = makeScreenOfPage(*m_page);
        m_navigation->pushViewController_animated(screen, false);
        if (const auto pageScreen = dynamicCast<PageScreen>(screen))
            pageScreen->pageView()->showComponent();
    }
    return true;
}

/// The pages stay where they are: what is still shown in them goes with their window.
void GalleryApplication::applicationWillTerminate(UIApplication*) {
    if (!m_navigation)
        return;
    for (const auto& screen : m_navigation->viewControllers()) {
        if (auto* pageScreen = dynamic_cast<PageScreen*>(screen.get()))
            pageScreen->pageView()->close();
    }
}

} // namespace zr::gallery
