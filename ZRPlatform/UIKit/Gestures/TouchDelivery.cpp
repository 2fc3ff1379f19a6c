#include <ZRPlatform/UIKit/Gestures/Internal/TouchDelivery.h>

#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <algorithm>
#include <utility>

namespace zr {

void TouchDelivery::push(UIEvent* event) {
    m_lastEvent = event;
    if (m_isOff)
        return;
    const UITouch::Moment& now = m_touch->m_now;
    if (now.phase == UITouchPhaseCancelled) {
        cancel();
        return;
    }
    if (now.phase == UITouchPhaseMoved && !m_waiting.empty() && m_waiting.back().moment.phase == UITouchPhaseMoved) {
        const CGPoint start = m_waiting.back().moment.previousLocation;
        m_waiting.back() = {now, event};
        m_waiting.back().moment.previousLocation = start;
        return;
    }
    m_waiting.push_back({now, event});
}

void TouchDelivery::send(bool holdsBegan, bool holdsEnded) {
    while (!m_waiting.empty()) {
        const UITouchPhase phase = m_waiting.front().moment.phase;
        if ((phase == UITouchPhaseBegan && holdsBegan) || (phase == UITouchPhaseEnded && holdsEnded))
            return;
        const Waiting next = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_viewKnows = phase != UITouchPhaseEnded;
        sendMoment(next);
    }
}

void TouchDelivery::cancel() {
    if (std::exchange(m_isOff, true))
        return;
    m_waiting.clear();
    if (std::exchange(m_viewKnows, false)) {
        UITouch::Moment cancelled = m_touch->m_now;
        cancelled.phase = UITouchPhaseCancelled;
        sendMoment({cancelled, m_lastEvent});
    }
    m_touch->m_reachesView = false;
}

/// For as long as the view is told, the touch is what it was then.
void TouchDelivery::sendMoment(const Waiting& waiting) {
    const UITouch::Moment present = std::exchange(m_touch->m_now, waiting.moment);
    sendToView(m_touch, waiting.event);
    const bool wasChangedMeanwhile = m_touch->m_now.phase != waiting.moment.phase;
    if (!wasChangedMeanwhile)
        m_touch->m_now = present;
}

bool TouchDelivery::mayViewKnow(UITouch* touch, UIEvent* event) {
    const auto recognizers = touch->m_gestureRecognizers;
    return std::all_of(recognizers.begin(), recognizers.end(), [&](const auto& weak) {
        const Ref<UIGestureRecognizer> recognizer = weak.lock();
        return !recognizer || recognizer->letsViewKnow(touch, event);
    });
}

void TouchDelivery::sendToView(UITouch* touch, UIEvent* event) {
    const Ref<UIView> view = touch->view();
    if (!view || !touch->m_reachesView)
        return;
    const TouchSet changed{touch};
    switch (touch->phase()) {
    case UITouchPhaseBegan:
        touch->m_reachesView = mayViewKnow(touch, event);
        if (touch->m_reachesView)
            view->touchesBegan_withEvent(changed, event);
        break;
    case UITouchPhaseMoved:
        view->touchesMoved_withEvent(changed, event);
        break;
    case UITouchPhaseEnded:
        view->touchesEnded_withEvent(changed, event);
        break;
    case UITouchPhaseCancelled:
        view->touchesCancelled_withEvent(changed, event);
        break;
    case UITouchPhaseStationary:
        break;
    }
}

} // namespace zr
