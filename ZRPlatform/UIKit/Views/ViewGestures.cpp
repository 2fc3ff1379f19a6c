#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <algorithm>

namespace zr {

void UIView::addGestureRecognizer(UIGestureRecognizer* recognizer) {
    if (!recognizer || recognizer->m_view == this)
        return;
    const Ref<UIGestureRecognizer> keep = recognizer;
    if (recognizer->m_view)
        recognizer->m_view->removeGestureRecognizer(recognizer);
    if (recognizer->m_view)
        return; // its targets, told that it is cancelled, have attached it elsewhere
    recognizer->m_view = this;
    m_gestureRecognizers.push_back(keep);
}

void UIView::removeGestureRecognizer(UIGestureRecognizer* recognizer) {
    if (!recognizer || recognizer->m_view != this)
        return;
    const Ref<UIGestureRecognizer> keep = recognizer;
    if (GestureArbiter* arbiter = GestureArbiter::shared())
        arbiter->withdraw(recognizer);
    if (std::erase(m_gestureRecognizers, keep) > 0)
        recognizer->m_view = nullptr;
}

bool UIView::gestureRecognizerShouldBegin(UIGestureRecognizer*) { return true; }

/// The view goes; a window may do so in the middle of a touch.
void UIView::letGoOfGestureRecognizers() {
    const auto recognizers = std::exchange(m_gestureRecognizers, {});
    for (const auto& recognizer : recognizers) {
        recognizer->m_view = nullptr;
        if (GestureArbiter* arbiter = GestureArbiter::shared())
            arbiter->withdraw(recognizer);
    }
}

} // namespace zr
