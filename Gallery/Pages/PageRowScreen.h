#pragma once

#include <Gallery/Look/RowScreen.h>
#include <Gallery/Pages/ScreenOfPage.h>

namespace zr::gallery {

/// The screen of a page that is a list: the page's description, and rows below it.
class PageRowScreen : public ScreenOfPage<RowScreen> {
public:
    void viewDidLoad() override;
};

/// For `Page::makeScreen`.
template <class PageList>
Ref<ZRTViewController> makeRowScreen(const Page& page) {
    return make<PageList>(&PageRowScreen::initWithPage, page);
}

} // namespace zr::gallery
