#include <ZRPlatform/UIKit/Events/UIEvent.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

namespace zr {

UIView* UITouch::view() const { return m_view.get(); }
UIWindow* UITouch::window() const { return m_window.get(); }

namespace {

CGPoint convert(CGPoint location, const UIWindow* window, const UIView* view) {
    return view && window ? view->convertPoint_fromView(location, window) : location;
}

} // namespace

CGPoint UITouch::locationInView(const UIView* view) const { return convert(m_location, m_window.get(), view); }

CGPoint UITouch::previousLocationInView(const UIView* view) const {
    return convert(m_previousLocation, m_window.get(), view);
}

std::vector<UITouch*> UIEvent::touchesForView(const UIView* view) const {
    std::vector<UITouch*> touches;
    for (const auto& touch : m_touches) {
        if (touch->view() == view)
            touches.push_back(touch);
    }
    return touches;
}

} // namespace zr
