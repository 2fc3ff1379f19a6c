#include <Gallery/Pages/PageRowScreen.h>

namespace zr::gallery {

bool PageRowScreen::initWithPage(const Page& page) {
    m_page = &page;
    return initWithTitle(page.title);
}

void PageRowScreen::viewDidLoad() {
    RowScreen::viewDidLoad();
    setTextAboveRows(m_page->description);
    setSpaceBelowRows();
}

} // namespace zr::gallery
