#pragma once

#include <Gallery/Look/RowScreen.h>
#include <Gallery/Pages/Page.h>

namespace zr::gallery {

/// The screen of a page that is a list: the page's description, and rows below it.
class PageRowScreen : public RowScreen {
public:
    /// `page`: outlives the screen.
    bool initWithPage(const Page& page);

    void viewDidLoad() override;

private:
    const Page* m_page = nullptr;
};

/// For `Page::makeScreen`.
template <class PageList>
Ref<ZRTViewController> makeRowScreen(const Page& page) {
    return make<PageList>(&PageRowScreen::initWithPage, page);
}

} // namespace zr::gallery
