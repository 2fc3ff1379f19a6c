#pragma once

#include <Gallery/Pages/PageScreen.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr::gallery {

/// The gallery as an application: a window with a navigation controller, at whose root is the list.
class GalleryApplication : public UIApplicationDelegate {
public:
    /// `page`: opened at once, with its component shown; null starts with the list.
    bool initWithPage(const Page* page);

    bool applicationDidFinishLaunching(UIApplication* application) override;
    /// Closes the page that is open, so that nothing of it goes on.
    void applicationWillTerminate(UIApplication* application) override;

private:
    const Page* m_page = nullptr;
    Ref<UIWindow> m_window;
    Ref<UINavigationController> m_navigation;
};

} // namespace zr::gallery
