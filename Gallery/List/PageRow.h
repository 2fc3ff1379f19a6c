#pragma once

#include <Gallery/Look/TapControl.h>
#include <Gallery/Pages/Page.h>

namespace zr::gallery {

/// One line of the list: icon, title, detail, an arrow, and the hairline to the next row. Grey while pressed.
class PageRow : public TapControl {
public:
    static constexpr CGFloat kHeight = 56;

    /// The hairline spans the whole width under the last row of a section, else it begins below the title.
    bool initWithFrame_page_isLast(CGRect frame, const Page& page, bool isLast);

    void setHighlighted(bool highlighted) override;
};

} // namespace zr::gallery
