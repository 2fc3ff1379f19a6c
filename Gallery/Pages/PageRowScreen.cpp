#include <Gallery/Pages/PageRowScreen.h>

namespace zr::gallery {

void PageRowScreen::viewDidLoad() {
    ScreenOfPage::viewDidLoad();
    setTextAboveRows(page().description);
    setSpaceBelowRows();
}

} // namespace zr::gallery
