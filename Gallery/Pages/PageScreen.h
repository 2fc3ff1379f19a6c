#pragma once

#include <Gallery/Look/Screen.h>
#include <Gallery/Pages/PageView.h>

namespace zr::gallery {

/// The screen of one page.
class PageScreen : public Screen {
public:
    /// `page`: outlives the screen.
    bool initWithPage(const Page& page);

    /// Loads it.
    PageView* pageView();

    void viewDidLoad() override;
    /// Closes the page when it is left, though a finger that carries it away may yet let it stay.
    void viewWillDisappear(bool animated) override;

private:
    const Page* m_page = nullptr;
    Ref<PageView> m_pageView;
};

} // namespace zr::gallery
