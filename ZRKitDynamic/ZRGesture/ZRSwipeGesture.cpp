#include <ZRKitDynamic/ZRGesture/ZRSwipeGesture.h>

#include <ZRPlatform/UIKit/Events/UITouch.h>

#include <cmath>

namespace zr {

namespace {

constexpr float kDistance = 30;
constexpr double kSteepness = 0.5;

/// In single precision, so that a drag of what is meant to be 30 points is one.
float distance(CGFloat from, CGFloat to) { return std::abs(static_cast<float>(from - to)); }

} // namespace

void ZRSwipeGesture::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    UIGestureRecognizer::touchesBegan_withEvent(touches, event);
    reset();
    m_beginPoint = touches.front()->locationInView(view());
}

void ZRSwipeGesture::touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) {
    UIGestureRecognizer::touchesMoved_withEvent(touches, event);
    m_curPoint = touches.front()->locationInView(view());
    if (state() != UIGestureRecognizerStatePossible) {
        setState(UIGestureRecognizerStateChanged);
        return;
    }
    const float dx = distance(m_beginPoint.x, m_curPoint.x);
    const float dy = distance(m_beginPoint.y, m_curPoint.y);
    if (dx >= kDistance && dy <= dx * kSteepness)
        setState(UIGestureRecognizerStateFailed);
    else if (dy >= kDistance)
        setState(UIGestureRecognizerStateBegan);
}

void ZRSwipeGesture::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    UIGestureRecognizer::touchesEnded_withEvent(touches, event);
    const bool isUnderWay = state() == UIGestureRecognizerStateBegan || state() == UIGestureRecognizerStateChanged;
    setState(isUnderWay ? UIGestureRecognizerStateEnded : UIGestureRecognizerStateFailed);
}

void ZRSwipeGesture::touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) {
    UIGestureRecognizer::touchesCancelled_withEvent(touches, event);
    setState(UIGestureRecognizerStateCancelled);
}

void ZRSwipeGesture::reset() {
    UIGestureRecognizer::reset();
    m_beginPoint = CGPointZero;
    m_curPoint = CGPointZero;
}

} // namespace zr
