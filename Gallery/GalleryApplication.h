#pragma once

#include <Gallery/GalleryView.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>

namespace zr::gallery {

/// The gallery as an application: one window as large as the screen.
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
    Ref<GalleryView> m_gallery;
};

} // namespace zr::gallery
