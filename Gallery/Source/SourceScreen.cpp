#include <Gallery/Source/SourceScreen.h>

#include <Gallery/Source/SourceView.h>

namespace zr::gallery {

bool SourceScreen::initWithPage(const Page& page) {
    m_page = &page;
    return initWithTitle(page.title);
}

void SourceScreen::viewDidLoad() {
    Screen::viewDidLoad();
    const CGSize size = view()->bounds().size;
    const auto source = make<SourceView>(
        &SourceView::initWithFrame_sections,
        CGRectMake(0, navigationBarMaxY(), size.width, size.height - navigationBarMaxY()), sourceOfPage(m_page->name));
    source->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    view()->addSubview(source);
}

} // namespace zr::gallery
