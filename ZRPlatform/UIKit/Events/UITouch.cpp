#include <ZRPlatform/UIKit/Events/UIEvent.h>
#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <algorithm>

namespace zr {

UIView* UITouch::view() const { return m_view.get(); }
UIWindow* UITouch::window() const { return m_window.get(); }

namespace {

CGPoint convert(CGPoint location, const UIWindow* window, const UIView* view) {
    return view && window ? view->convertPoint_fromView(location, window) : location;
}

} // namespace

CGPoint UITouch::locationInView(const UIView* view) const { return convert(m_now.location, m_window.get(), view); }

CGPoint UITouch::previousLocationInView(const UIView* view) const {
    return convert(m_now.previousLocation, m_window.get(), view);
}

std::vector<UIGestureRecognizer*> UITouch::gestureRecognizers() const {
    std::vector<UIGestureRecognizer*> recognizers;
    for (const auto& recognizer : m_gestureRecognizers) {
        if (recognizer.get())
            recognizers.push_back(recognizer.get());
    }
    return recognizers;
}

bool UITouch::isSeenBy(const UIGestureRecognizer* recognizer) const {
    return recognizer && std::any_of(m_gestureRecognizers.begin(), m_gestureRecognizers.end(),
                                     [recognizer](const auto& seeing) { return seeing.get() == recognizer; });
}

std::vector<UITouch*> UIEvent::touchesForView(const UIView* view) const {
    std::vector<UITouch*> touches;
    for (const auto& touch : m_touches) {
        if (touch->m_reachesView && touch->view() == view)
            touches.push_back(touch);
    }
    return touches;
}

std::vector<UITouch*> UIEvent::touchesForGestureRecognizer(const UIGestureRecognizer* recognizer) const {
    std::vector<UITouch*> touches;
    for (const auto& touch : m_touches) {
        if (touch->isSeenBy(recognizer))
            touches.push_back(touch);
    }
    return touches;
}

} // namespace zr
