#pragma once

#include <Gallery/List/PageListView.h>
#include <Gallery/Pages/PageView.h>

namespace zr::gallery {

/// The whole of the gallery's window: the list, and the page that lies over it, if any.
class GalleryView : public UIView {
public:
    bool initWithFrame(CGRect frame) override;

    /// Animated, the page slides in from the right while the list moves a little to the left. Ignored while another
    /// page is open.
    void openPage_animated(const Page& page, bool animated);
    /// Back to the list.
    void closePageAnimated(bool animated);
    PageView* openedPage() const { return m_page; }
    PageListView* list() const { return m_list; }

private:
    void slide(bool animated, const std::function<void()>& places, std::function<void()> completion);

    Ref<PageListView> m_list;
    Ref<UIView> m_shade;
    Ref<PageView> m_page;
};

} // namespace zr::gallery
