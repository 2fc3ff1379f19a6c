#pragma once

#include <Gallery/Look/Screen.h>
#include <Gallery/Pages/Page.h>

namespace zr::gallery {

/// The gallery's first screen: all pages by family, and the way to the settings.
class ListScreen : public Screen {
public:
    void viewDidLoad() override;

    /// Shows the page's screen.
    void openPage(const Page& page);

private:
    void openSettings();
};

} // namespace zr::gallery
