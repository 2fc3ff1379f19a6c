#pragma once

#include <Gallery/Pages/PageView.h>
#include <Gallery/Pages/ScreenOfPage.h>

namespace zr::gallery {

/// A page's own screen, or a `PageScreen`. `page`: outlives the screen.
Ref<ZRTViewController> makeScreenOfPage(const Page& page);

/// The screen of a page that is a column of components.
class PageScreen : public ScreenOfPage<Screen> {
public:
    /// Loads it.
    PageView* pageView();

    void viewDidLoad() override;
    /// Closes the page when it is left, though a finger that carries it away may yet let it stay.
    void viewWillDisappear(bool animated) override;

private:
    Ref<PageView> m_pageView;
};

} // namespace zr::gallery
