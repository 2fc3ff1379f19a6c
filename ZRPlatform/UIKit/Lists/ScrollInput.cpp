#include <ZRPlatform/UIKit/Lists/Internal/ScrollInput.h>

#include <ZRPlatform/UIKit/Lists/Internal/Scroller.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

namespace zr {

bool turnWheelOver(UIView* view, CGPoint delta) {
    if (!isFinite(delta))
        return false;
    const Ref<UIView> keep = view;
    for (; view; view = view->superview()) {
        const auto* scrollView = dynamic_cast<const UIScrollView*>(view);
        if (scrollView && scrollView->isScrollEnabled() && Scroller::of(scrollView).turnWheel(delta))
            return true;
    }
    return false;
}

namespace {

/// Those that go to the top when asked, of what shows of `view` within `shown`, in the window's coordinates.
void collect(UIView* view, CGRect shown, std::vector<Ref<UIScrollView>>& found) {
    if (view->isHidden() || view->alpha() < CGFloat(0.01f))
        return;
    const CGRect frame = view->convertRect_toView(view->bounds(), nullptr);
    auto* scrollView = dynamic_cast<UIScrollView*>(view);
    if (scrollView && scrollView->scrollsToTop() && !CGRectIsEmpty(CGRectIntersection(frame, shown)))
        found.emplace_back(scrollView);
    if (view->clipsToBounds())
        shown = CGRectIntersection(frame, shown);
    if (CGRectIsEmpty(shown))
        return;
    for (const auto& subview : view->subviews())
        collect(subview, shown, found);
}

} // namespace

void scrollToTopInWindows(const std::vector<UIWindow*>& windows) {
    std::vector<Ref<UIScrollView>> found;
    for (UIWindow* window : windows)
        collect(window, window->bounds(), found);
    if (found.size() == 1)
        Scroller::of(found.front()).scrollToTop();
}

} // namespace zr
