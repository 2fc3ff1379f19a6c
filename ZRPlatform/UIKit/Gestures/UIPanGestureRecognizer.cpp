#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// How far the fingers move before it is a drag.
constexpr CGFloat kThreshold = 10;
/// How far back the velocity looks.
constexpr NSTimeInterval kVelocityTime = 0.1;
/// What two times may differ by and be the same.
constexpr NSTimeInterval kClockStep = 1e-9;

bool isDown(const UITouch* touch) {
    return touch->phase() != UITouchPhaseEnded && touch->phase() != UITouchPhaseCancelled;
}

/// Of those that count, in the window; zero without any.
template <class Counts>
CGPoint centerOf(const std::vector<Ref<UITouch>>& touches, Counts counts) {
    CGPoint sum;
    CGFloat count = 0;
    for (const auto& touch : touches) {
        if (!counts(touch.get()))
            continue;
        const CGPoint location = touch->locationInView(nullptr);
        sum = {sum.x + location.x, sum.y + location.y};
        ++count;
    }
    return count > 0 ? CGPointMake(sum.x / count, sum.y / count) : CGPointZero;
}

NSUInteger downCount(const std::vector<Ref<UITouch>>& touches) {
    return static_cast<NSUInteger>(
        std::count_if(touches.begin(), touches.end(), [](const auto& touch) { return isDown(touch); }));
}

/// A way in the window's coordinates, in those of `view`.
CGPoint wayInView(CGPoint way, const UIView* view) {
    if (!view)
        return way;
    const CGPoint from = view->convertPoint_fromView(CGPointZero, nullptr);
    const CGPoint to = view->convertPoint_fromView(way, nullptr);
    return {to.x - from.x, to.y - from.y};
}

CGPoint wayFromView(CGPoint way, const UIView* view) {
    if (!view)
        return way;
    const CGPoint from = view->convertPoint_toView(CGPointZero, nullptr);
    const CGPoint to = view->convertPoint_toView(way, nullptr);
    return {to.x - from.x, to.y - from.y};
}

} // namespace

const KeyTable& UIPanGestureRecognizer::keyTable() const {
    static const KeyTable table(
        UIGestureRecognizer::keyTable(),
        {key<&UIPanGestureRecognizer::minimumNumberOfTouches, &UIPanGestureRecognizer::setMinimumNumberOfTouches>(
             "minimumNumberOfTouches"),
         key<&UIPanGestureRecognizer::maximumNumberOfTouches, &UIPanGestureRecognizer::setMaximumNumberOfTouches>(
             "maximumNumberOfTouches")});
    return table;
}

// Asking

CGPoint UIPanGestureRecognizer::translationInView(const UIView* view) const { return wayInView(m_translation, view); }

void UIPanGestureRecognizer::setTranslation_inView(CGPoint translation, const UIView* view) {
    const CGPoint way = wayFromView(translation, view);
    if (!std::isfinite(way.x) || !std::isfinite(way.y))
        return;
    m_translation = way;
    if (!m_samples.empty())
        m_samples = {{m_samples.back().time, way}};
}

CGPoint UIPanGestureRecognizer::velocityInView(const UIView* view) const {
    if (m_samples.empty() || m_samples.back().time <= m_samples.front().time)
        return CGPointZero;
    const Sample& first = m_samples.front();
    const Sample& last = m_samples.back();
    const NSTimeInterval time = last.time - first.time;
    return wayInView(
        {(last.translation.x - first.translation.x) / time, (last.translation.y - first.translation.y) / time}, view);
}

// Fingers

bool UIPanGestureRecognizer::isUnderWay() const {
    return state() == UIGestureRecognizerStateBegan || state() == UIGestureRecognizerStateChanged;
}

void UIPanGestureRecognizer::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    if (downCount(locatedTouches()) > m_maximumTouches) {
        if (!isUnderWay()) {
            setState(UIGestureRecognizerStateFailed);
            return;
        }
        for (UITouch* touch : touches)
            ignoreTouch_forEvent(touch, event);
    }
    m_center = centerOf(locatedTouches(), isDown);
    if (!isUnderWay() && downCount(locatedTouches()) <= m_minimumTouches)
        startAnew(touches.front()->timestamp());
}

bool UIPanGestureRecognizer::isDrag() const { return std::hypot(m_translation.x, m_translation.y) >= kThreshold; }

void UIPanGestureRecognizer::startAnew(NSTimeInterval time) {
    m_translation = CGPointZero;
    m_samples = {{time, CGPointZero}};
}

/// Adds the way of the fingers since the last event.
void UIPanGestureRecognizer::follow(NSTimeInterval time) {
    const CGPoint center = centerOf(locatedTouches(), [](const UITouch*) { return true; });
    m_translation.x += center.x - m_center.x;
    m_translation.y += center.y - m_center.y;
    m_center = center;
    const auto first = std::find_if(m_samples.begin(), m_samples.end(), [time](const Sample& sample) {
        return sample.time > time - kVelocityTime + kClockStep;
    });
    if (first != m_samples.begin())
        m_samples.erase(m_samples.begin(), first - 1);
    m_samples.push_back({time, m_translation});
}

void UIPanGestureRecognizer::touchesMoved_withEvent(const TouchSet& touches, UIEvent*) {
    follow(touches.front()->timestamp());
    if (isUnderWay()) {
        setState(UIGestureRecognizerStateChanged);
    } else if (locatedTouches().size() >= m_minimumTouches && isDrag()) {
        m_hasDragged = true;
        setState(UIGestureRecognizerStateBegan);
    }
}

void UIPanGestureRecognizer::touchesEnded_withEvent(const TouchSet& touches, UIEvent*) {
    loseFingers(touches, UIGestureRecognizerStateEnded);
}

void UIPanGestureRecognizer::touchesCancelled_withEvent(const TouchSet& touches, UIEvent*) {
    loseFingers(touches, UIGestureRecognizerStateCancelled);
}

void UIPanGestureRecognizer::loseFingers(const TouchSet& touches, UIGestureRecognizerState endState) {
    follow(touches.front()->timestamp());
    m_center = centerOf(locatedTouches(), isDown);
    const NSUInteger left = downCount(locatedTouches());
    if (isUnderWay() ? left < m_minimumTouches : left == 0)
        setState(m_hasDragged ? endState : UIGestureRecognizerStateFailed);
}

void UIPanGestureRecognizer::reset() {
    m_translation = CGPointZero;
    m_samples.clear();
    m_hasDragged = false;
}

} // namespace zr
