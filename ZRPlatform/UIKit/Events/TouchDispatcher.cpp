#include <ZRPlatform/UIKit/Events/Internal/TouchDispatcher.h>

#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// A second tap counts as a double tap within this time and distance of the first.
constexpr NSTimeInterval kMultipleTapInterval = 0.35;
constexpr CGFloat kMultipleTapDistance = 25;
/// A finger that moves further than this from where it went down taps no more.
constexpr CGFloat kTapDistance = 10;

CGFloat distance(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

} // namespace

/// Whether another finger keeps this one from the view and its recognisers: a view that is touched exclusively is
/// touched alone.
bool TouchDispatcher::isShutOut(const UIView* view) const {
    return std::any_of(m_fingers.begin(), m_fingers.end(), [view](const auto& finger) {
        const UIView* other = finger.second->m_reachesView ? finger.second->view() : nullptr;
        return other && other != view && (other->isExclusiveTouch() || view->isExclusiveTouch());
    });
}

/// Whether the view is told of a finger already.
bool TouchDispatcher::hasFinger(const UIView* view) const {
    return std::any_of(m_fingers.begin(), m_fingers.end(), [view](const auto& finger) {
        return finger.second->m_reachesView && finger.second->view() == view;
    });
}

UIView* TouchDispatcher::viewAt(CGPoint location, const std::vector<UIWindow*>& windows, UIWindow** window) {
    for (auto candidate = windows.rbegin(); candidate != windows.rend(); ++candidate) {
        const CGPoint inWindow = (*candidate)->layer()->convertPoint_fromLayer(location, nullptr);
        UIView* hit = (*candidate)->hitTest_withEvent(inWindow, nullptr);
        if (!hit)
            continue;
        if (window)
            *window = *candidate;
        return hit;
    }
    return nullptr;
}

std::optional<TouchDispatcher::Finger> TouchDispatcher::finger(std::int64_t identifier) const {
    const auto found = m_fingers.find(identifier);
    if (found == m_fingers.end())
        return std::nullopt;
    return Finger{found->second, m_starts.at(identifier)};
}

void TouchDispatcher::began(std::int64_t identifier, CGPoint location, const std::vector<UIWindow*>& windows) {
    cancelled(identifier);
    auto touch = make<UITouch>();
    UIWindow* window = nullptr;
    UIView* hit = viewAt(location, windows, &window);
    if (hit) {
        touch->m_window = window;
        touch->m_now.location = touch->m_now.previousLocation =
            window->layer()->convertPoint_fromLayer(location, nullptr);
    }
    if (hit && !isShutOut(hit)) {
        touch->m_view = hit;
        touch->m_reachesView = hit->isMultipleTouchEnabled() || !hasFinger(hit);
    }
    const bool again = CACurrentMediaTime() - m_lastTap.time <= kMultipleTapInterval && m_lastTap.count > 0 &&
                       distance(location, m_lastTap.location) <= kMultipleTapDistance;
    touch->m_now.tapCount = again ? m_lastTap.count + 1 : 1;
    m_fingers[identifier] = touch;
    m_starts[identifier] = location;
    change(touch, UITouchPhaseBegan);
}

void TouchDispatcher::moved(std::int64_t identifier, CGPoint location) {
    const auto finger = m_fingers.find(identifier);
    if (finger == m_fingers.end())
        return;
    const Ref<UITouch> touch = finger->second;
    setLocation(touch, location);
    if (touch->m_now.location == touch->m_now.previousLocation)
        return;
    if (distance(location, m_starts[identifier]) > kTapDistance)
        touch->m_now.tapCount = 0;
    change(touch, UITouchPhaseMoved);
}

void TouchDispatcher::ended(std::int64_t identifier, CGPoint location) {
    const auto finger = m_fingers.find(identifier);
    if (finger == m_fingers.end())
        return;
    const Ref<UITouch> touch = finger->second;
    setLocation(touch, location);
    m_lastTap = {CACurrentMediaTime(), location, touch->m_now.tapCount};
    finish(identifier, touch, UITouchPhaseEnded);
}

void TouchDispatcher::cancelled(std::int64_t identifier) {
    const auto finger = m_fingers.find(identifier);
    if (finger == m_fingers.end())
        return;
    finish(identifier, finger->second, UITouchPhaseCancelled);
}

/// The finger is followed no further by the time its view is told, so that whatever the view does then, it is told of
/// the end only once.
void TouchDispatcher::finish(std::int64_t identifier, Ref<UITouch> touch, UITouchPhase phase) {
    m_fingers.erase(identifier);
    m_starts.erase(identifier);
    change(touch, phase);
}

void TouchDispatcher::cancelTouchesInView(const UIView* view) {
    m_gestures.viewLeaves(view);
    const auto fingers = m_fingers;
    for (const auto& [identifier, touch] : fingers) {
        const UIView* touched = touch->view();
        if (!touched || !touched->isDescendantOfView(view))
            continue;
        if (!m_gestures.isFollowed(touch))
            cancelled(identifier);
        touch->m_view = nullptr;
    }
}

void TouchDispatcher::setLocation(UITouch* touch, CGPoint screenLocation) {
    touch->m_now.previousLocation = touch->m_now.location;
    const UIWindow* window = touch->window();
    touch->m_now.location = window ? window->layer()->convertPoint_fromLayer(screenLocation, nullptr) : screenLocation;
}

void TouchDispatcher::change(UITouch* touch, UITouchPhase phase) {
    touch->m_now.phase = phase;
    touch->m_now.timestamp = CACurrentMediaTime();
    auto event = make<UIEvent>();
    event->m_timestamp = touch->m_now.timestamp;
    event->m_touches.push_back(touch);
    for (const auto& [identifier, finger] : m_fingers) {
        if (finger != touch)
            event->m_touches.push_back(finger);
    }
    event->m_changed = touch;
    if (const Ref<UIWindow> window = touch->window())
        window->sendEvent(event);
    if (phase == UITouchPhaseEnded || phase == UITouchPhaseCancelled)
        m_gestures.touchIsOver(touch, event);
    if (touch->m_now.phase == UITouchPhaseBegan || touch->m_now.phase == UITouchPhaseMoved)
        touch->m_now.phase = UITouchPhaseStationary;
}

} // namespace zr
