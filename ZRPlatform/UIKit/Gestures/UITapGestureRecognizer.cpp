#include <ZRPlatform/UIKit/Gestures/UITapGestureRecognizer.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// How far a finger may move, and how far apart taps may be.
constexpr CGFloat kAllowedMovement = 45;
/// From the end of a tap to the beginning of the next one.
constexpr NSTimeInterval kTapInterval = 0.35;
/// How long each of several taps may last.
constexpr NSTimeInterval kTapDuration = 0.75;

bool isNear(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y) <= kAllowedMovement; }

} // namespace

UITapGestureRecognizer::~UITapGestureRecognizer() { stopTimer(); }

const KeyTable& UITapGestureRecognizer::keyTable() const {
    static const KeyTable table(
        UIGestureRecognizer::keyTable(),
        {key<&UITapGestureRecognizer::numberOfTapsRequired, &UITapGestureRecognizer::setNumberOfTapsRequired>(
             "numberOfTapsRequired"),
         key<&UITapGestureRecognizer::numberOfTouchesRequired, &UITapGestureRecognizer::setNumberOfTouchesRequired>(
             "numberOfTouchesRequired")});
    return table;
}

// Fingers

void UITapGestureRecognizer::touchesBegan_withEvent(const TouchSet& touches, UIEvent*) {
    for (UITouch* touch : touches)
        fingerDown(touch);
}

void UITapGestureRecognizer::fingerDown(UITouch* touch) {
    const bool isNextTap = m_fingersDown == 0 && m_fingers.size() == m_touchesRequired;
    if (isNextTap) {
        m_lastStarts = std::exchange(m_starts, {});
        m_fingers.clear();
    }
    const CGPoint location = touch->locationInView(nullptr);
    if (m_fingers.size() == m_touchesRequired || !isInReach(location)) {
        setState(UIGestureRecognizerStateFailed);
        return;
    }
    if (m_fingersDown == 0 && m_tapsRequired > 1)
        failAfter(kTapDuration);
    m_fingers.push_back(touch);
    m_starts.push_back(location);
    ++m_fingersDown;
}

/// Whether a finger that goes down there belongs to the taps before.
bool UITapGestureRecognizer::isInReach(CGPoint location) const {
    return m_taps == 0 || std::any_of(m_lastStarts.begin(), m_lastStarts.end(),
                                      [location](CGPoint start) { return isNear(start, location); });
}

void UITapGestureRecognizer::touchesMoved_withEvent(const TouchSet& touches, UIEvent*) {
    for (std::size_t i = 0; i < m_fingers.size(); ++i) {
        const bool moves = std::find(touches.begin(), touches.end(), m_fingers[i].get()) != touches.end();
        if (moves && !isNear(m_starts[i], m_fingers[i]->locationInView(nullptr))) {
            setState(UIGestureRecognizerStateFailed);
            return;
        }
    }
}

void UITapGestureRecognizer::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    touchesMoved_withEvent(touches, event); // where it goes up counts too
    for (std::size_t i = 0; i < touches.size() && state() == UIGestureRecognizerStatePossible; ++i)
        fingerUp();
}

void UITapGestureRecognizer::fingerUp() {
    if (m_fingers.size() < m_touchesRequired) {
        setState(UIGestureRecognizerStateFailed); // before the other fingers came
        return;
    }
    if (--m_fingersDown > 0)
        return;
    stopTimer();
    if (++m_taps >= m_tapsRequired)
        setState(UIGestureRecognizerStateEnded);
    else
        failAfter(kTapInterval);
}

void UITapGestureRecognizer::touchesCancelled_withEvent(const TouchSet&, UIEvent*) {
    setState(UIGestureRecognizerStateFailed);
}

// Time

void UITapGestureRecognizer::failAfter(NSTimeInterval seconds) {
    stopTimer();
    m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(
        seconds, false, [this](NSTimer*) { setState(UIGestureRecognizerStateFailed); });
}

void UITapGestureRecognizer::stopTimer() {
    if (const Ref<NSTimer> timer = std::exchange(m_timer, nullptr))
        timer->invalidate();
}

void UITapGestureRecognizer::reset() {
    stopTimer();
    m_taps = 0;
    m_fingersDown = 0;
    m_fingers.clear();
    m_starts.clear();
    m_lastStarts.clear();
}

// Others

bool UITapGestureRecognizer::canPreventGestureRecognizer(UIGestureRecognizer* other) {
    const auto* tap = dynamic_cast<const UITapGestureRecognizer*>(other);
    return !tap || tap->m_tapsRequired <= m_tapsRequired;
}

/// Of two that would be recognised at the same moment, the one for more taps has it.
bool UITapGestureRecognizer::shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer* other) {
    const auto* tap = dynamic_cast<const UITapGestureRecognizer*>(other);
    return tap && tap->m_tapsRequired > m_tapsRequired && tap->isInLastTap();
}

} // namespace zr
