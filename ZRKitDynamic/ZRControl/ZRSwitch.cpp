#include <ZRKitDynamic/ZRControl/ZRSwitch.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Events/UITouch.h>

#include <utility>

namespace zr {

namespace {

constexpr CGSize kSize{50, 31};
constexpr CGFloat kTrackRadius = 15.5;
constexpr CGFloat kBorderWidth = 1.5;
constexpr CGRect kKnob{{1.5, 1.5}, {28, 28}};
constexpr CGFloat kKnobRadius = 14;
constexpr CGFloat kStretchedWidth = 38;
constexpr CGFloat kStretch = 10;
constexpr CGFloat kKnobOff = 15.5, kKnobOn = 34.5;
/// The middles of a stretched knob at either end.
constexpr CGFloat kStretchedOff = 20.5, kStretchedOn = 29.5;
/// Beyond these a finger takes the knob to the end.
constexpr CGFloat kDraggedOff = 10, kDraggedOn = 40;
constexpr NSTimeInterval kStretchDuration = 0.3;
constexpr NSTimeInterval kMoveDuration = 0.4;

Ref<UIColor> trackColor(bool on) {
    return on ? ZRColor::zrColorWithRed_green_blue_alpha(0, 195, 64, 1)
              : ZRColor::zrColorWithRed_green_blue_alpha(228, 228, 228, 1);
}

} // namespace

bool ZRSwitch::initWithFrame(CGRect frame) {
    if (!UIControl::initWithFrame({frame.origin, kSize}))
        return false;
    const Ref<UIColor> color = trackColor(false);
    setBackgroundColor(color);
    layer()->setBorderColor(color->cgColor());
    layer()->setBorderWidth(kBorderWidth);
    layer()->setCornerRadius(kTrackRadius);
    setClipsToBounds(true);

    m_circleView = make<UIView>(&UIView::initWithFrame, kKnob);
    m_circleView->setBackgroundColor(UIColor::whiteColor());
    m_circleView->layer()->setCornerRadius(kKnobRadius);
    addSubview(m_circleView);
    return true;
}

const KeyTable& ZRSwitch::keyTable() const {
    static const KeyTable table(UIControl::keyTable(), {key<&ZRSwitch::isOn, &ZRSwitch::setOn>("on")});
    return table;
}

// State

void ZRSwitch::setOn(bool on) { setOn_animated(on, true); }

void ZRSwitch::setOn_animated(bool on, bool animated) {
    const Ref<ZRSwitch> keep = this; // an observer may drop it
    m_animationOn = animated;
    reSizeCirCleWithHighLight_fromRight(false, on);
    const bool changes = on != m_on;
    setObservable(m_on, on, "on");
    if (changes)
        moveCircleViewWithStatus(on);
}

void ZRSwitch::setEnabled(bool enabled) {
    UIControl::setEnabled(enabled);
    if (enabled)
        return;
    m_touched = false;
    reSizeCirCleWithHighLight_fromRight(false, m_on);
    moveCircleViewWithStatus(m_on);
}

// Movement

void ZRSwitch::reSizeCirCleWithHighLight_fromRight(bool highlight, bool fromRight) {
    const CGRect knob = m_circleView->frame();
    CGFloat offset = 0;
    if (fromRight && knob.size.width > kKnob.size.width)
        offset = highlight ? kStretch : -kStretch;
    beginAnimations_context(nullptr, nullptr);
    setAnimationDuration(m_animationOn ? kStretchDuration : 0);
    m_circleView->setFrame(CGRectMake(CGRectGetMinX(knob) - offset, CGRectGetMinY(knob),
                                      highlight ? kStretchedWidth : kKnob.size.width, kKnob.size.height));
    commitAnimations();
}

void ZRSwitch::moveCircleViewToPoint(CGFloat x) {
    const CGFloat half = m_circleView->frame().size.width / 2;
    if (x <= half)
        x = kStretchedOff;
    if (x >= kSize.width - half)
        x = kStretchedOn;
    beginAnimations_context(nullptr, nullptr);
    setAnimationDuration(m_animationOn ? kMoveDuration : 0);
    m_circleView->setCenter(CGPointMake(x, m_circleView->center().y));
    commitAnimations();
}

void ZRSwitch::moveCircleViewWithStatus(bool on) {
    const Ref<UIColor> color = trackColor(on);
    beginAnimations_context(nullptr, nullptr);
    setAnimationDuration(m_animationOn ? kMoveDuration : 0);
    setBackgroundColor(color);
    layer()->setBorderColor(color->cgColor());
    commitAnimations();
    moveCircleViewToPoint(on ? kKnobOn : kKnobOff);
}

// Touches

void ZRSwitch::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    UIControl::touchesBegan_withEvent(touches, event);
    m_touched = isEnabled();
    if (!m_touched)
        return;
    m_moved = false;
    reSizeCirCleWithHighLight_fromRight(true, isOn());
}

void ZRSwitch::touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) {
    UIControl::touchesMoved_withEvent(touches, event);
    if (!m_touched || touches.empty())
        return;
    const CGFloat x = touches.front()->locationInView(this).x;
    if (x < kDraggedOff)
        dragTo(false);
    if (x > kDraggedOn)
        dragTo(true);
}

void ZRSwitch::dragTo(bool on) {
    moveCircleViewWithStatus(on);
    m_moveOn = on;
    m_moved = true;
}

void ZRSwitch::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    UIControl::touchesEnded_withEvent(touches, event);
    finishTouch();
}

void ZRSwitch::touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) {
    UIControl::touchesCancelled_withEvent(touches, event);
    finishTouch();
}

void ZRSwitch::finishTouch() {
    if (std::exchange(m_touched, false))
        sendAction();
}

void ZRSwitch::sendAction() {
    const Ref<ZRSwitch> keep = this; // a target may drop it
    if (m_moved) {
        const bool before = m_on;
        setOn(m_moveOn);
        if (m_moveOn == before)
            return;
    } else {
        setOn(!m_on);
    }
    sendActionsForControlEvents(UIControlEventValueChanged);
}

} // namespace zr
