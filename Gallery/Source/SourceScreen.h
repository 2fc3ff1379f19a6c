#pragma once

#include <Gallery/Look/Screen.h>
#include <Gallery/Pages/Page.h>

namespace zr::gallery {

/// Shows the code that made a page.
class SourceScreen : public Screen {
public:
    /// `page`: outlives the screen.
    bool initWithPage(const Page& page);

    void viewDidLoad() override;

private:
    const Page* m_page = nullptr;
};

} // namespace zr::gallery
