#include <Gallery/GalleryView.h>

#include <ZRPlatform/UIKit/Application/UIApplication.h>

namespace zr::gallery {

namespace {

constexpr NSTimeInterval kSlideDuration = 0.35;
/// The part of its width by which the list gives way to a page.
constexpr CGFloat kListShift = 0.3;
constexpr CGFloat kShadeAlpha = 0.12;
constexpr NSUInteger kFillsSuperview = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;

} // namespace

bool GalleryView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setAutoresizingMask(kFillsSuperview);
    m_list = make<PageListView>(&PageListView::initWithFrame_open, bounds(),
                                [this](const Page& page) { openPage_animated(page, true); });
    m_list->setAutoresizingMask(kFillsSuperview);
    addSubview(m_list);
    m_shade = make<UIView>(&UIView::initWithFrame, bounds());
    m_shade->setAutoresizingMask(kFillsSuperview);
    m_shade->setBackgroundColor(UIColor::blackColor());
    m_shade->setAlpha(0);
    m_shade->setUserInteractionEnabled(false);
    addSubview(m_shade);
    return true;
}

void GalleryView::openPage_animated(const Page& page, bool animated) {
    if (m_page)
        return;
    m_page = make<PageView>(&PageView::initWithFrame_page, bounds(), page);
    m_page->setAutoresizingMask(kFillsSuperview);
    m_page->setBackAction([this] { closePageAnimated(true); });
    const CGFloat width = bounds().size.width;
    m_page->setFrame(CGRectOffset(bounds(), width, 0));
    addSubview(m_page);
    const auto places = [this, width] {
        m_page->setFrame(bounds());
        m_list->setFrame(CGRectOffset(bounds(), -width * kListShift, 0));
        m_shade->setAlpha(kShadeAlpha);
    };
    slide(animated, places, [this] { m_list->setHidden(true); });
}

void GalleryView::closePageAnimated(bool animated) {
    if (!m_page)
        return;
    m_page->close();
    m_list->setHidden(false);
    const auto places = [this] {
        m_page->setFrame(CGRectOffset(bounds(), bounds().size.width, 0));
        m_list->setFrame(bounds());
        m_shade->setAlpha(0);
    };
    slide(animated, places, [this] {
        m_page->removeFromSuperview();
        m_page = nullptr;
    });
}

void GalleryView::slide(bool animated, const std::function<void()>& places, std::function<void()> completion) {
    if (!animated) {
        places();
        completion();
        return;
    }
    UIApplication* application = UIApplication::sharedApplication();
    application->beginIgnoringInteractionEvents();
    UIView::animateWithDuration_animations_completion(kSlideDuration, places,
                                                      [self = Ref<GalleryView>(this), application, completion](bool) {
                                                          application->endIgnoringInteractionEvents();
                                                          completion();
                                                      });
}

} // namespace zr::gallery
