#pragma once

#include <Gallery/Look/ScrollBox.h>
#include <Gallery/Pages/Page.h>

namespace zr::gallery {

/// The gallery's first screen: a bar, and all pages by family.
class PageListView : public UIView {
public:
    /// `open`: runs when a page's row is tapped.
    bool initWithFrame_open(CGRect frame, std::function<void(const Page&)> open);

    ScrollBox* scrollBox() const { return m_scrollBox; }

private:
    void addSectionHeading(const NSString& family);
    void addRow(const Page& page, bool isLast);

    Ref<ScrollBox> m_scrollBox;
    std::function<void(const Page&)> m_open;
    CGFloat m_nextY = 0;
};

} // namespace zr::gallery
