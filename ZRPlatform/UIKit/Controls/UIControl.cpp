#include <ZRPlatform/UIKit/Controls/UIControl.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Gestures/UITapGestureRecognizer.h>

#include <algorithm>

namespace zr {

namespace {

/// Points that a finger may stray from the bounds before it counts as outside.
constexpr CGFloat kTrackingMargin = 70;

bool isWithinTrackingMargin(CGRect bounds, CGPoint point) {
    return point.x >= CGRectGetMinX(bounds) - kTrackingMargin && point.x <= CGRectGetMaxX(bounds) + kTrackingMargin &&
           point.y >= CGRectGetMinY(bounds) - kTrackingMargin && point.y <= CGRectGetMaxY(bounds) + kTrackingMargin;
}

bool contains(const TouchSet& touches, const UITouch* touch) {
    return touch && std::find(touches.begin(), touches.end(), touch) != touches.end();
}

} // namespace

const KeyTable& UIControl::keyTable() const {
    static const KeyTable table(UIView::keyTable(),
                                {key<&UIControl::isEnabled, &UIControl::setEnabled>("enabled"),
                                 key<&UIControl::isSelected, &UIControl::setSelected>("selected"),
                                 key<&UIControl::isHighlighted, &UIControl::setHighlighted>("highlighted"),
                                 key<&UIControl::state>("state"), key<&UIControl::isTracking>("tracking"),
                                 key<&UIControl::isTouchInside>("touchInside")});
    return table;
}

// State

void UIControl::setEnabled(bool enabled) {
    const bool changes = enabled != m_enabled;
    setObservable(m_enabled, enabled, "enabled");
    if (!enabled)
        cancelTracking(nullptr);
    if (changes)
        stateChanged();
}

void UIControl::setSelected(bool selected) {
    const bool changes = selected != m_selected;
    setObservable(m_selected, selected, "selected");
    if (changes)
        stateChanged();
}

void UIControl::setHighlighted(bool highlighted) {
    const bool changes = highlighted != m_highlighted;
    setObservable(m_highlighted, highlighted, "highlighted");
    if (changes)
        stateChanged();
}

NSUInteger UIControl::state() const {
    NSUInteger state = UIControlStateNormal;
    if (m_highlighted)
        state |= UIControlStateHighlighted;
    if (!m_enabled)
        state |= UIControlStateDisabled;
    if (m_selected)
        state |= UIControlStateSelected;
    return state;
}

void UIControl::setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment) {
    m_horizontalAlignment = alignment;
    setNeedsLayout();
}

void UIControl::setContentVerticalAlignment(UIControlContentVerticalAlignment alignment) {
    m_verticalAlignment = alignment;
    setNeedsLayout();
}

// Target and action

void UIControl::addTarget_action_forControlEvents(NSObject* target, SEL action, NSUInteger events) {
    if (!action)
        return;
    std::erase_if(m_targetActions, [](const TargetAction& entry) { return entry.hasTarget && !entry.target; });
    const auto known = std::find_if(m_targetActions.begin(), m_targetActions.end(), [&](const TargetAction& entry) {
        return entry.target.get() == target && entry.action == action;
    });
    if (known != m_targetActions.end())
        known->events |= events;
    else
        m_targetActions.push_back({target, target != nullptr, action, events});
}

void UIControl::removeTarget_action_forControlEvents(NSObject* target, SEL action, NSUInteger events) {
    for (TargetAction& entry : m_targetActions) {
        if ((!target || entry.target.get() == target) && (!action || entry.action == action))
            entry.events &= ~events;
    }
    std::erase_if(m_targetActions, [](const TargetAction& entry) { return entry.events == 0; });
}

std::vector<NSObject*> UIControl::allTargets() const {
    std::vector<NSObject*> targets;
    for (const TargetAction& entry : m_targetActions) {
        NSObject* target = entry.target.get();
        const bool isDead = entry.hasTarget && !target;
        if (!isDead && std::find(targets.begin(), targets.end(), target) == targets.end())
            targets.push_back(target);
    }
    return targets;
}

NSUInteger UIControl::allControlEvents() const {
    NSUInteger events = 0;
    for (const TargetAction& entry : m_targetActions) {
        if (!entry.hasTarget || entry.target)
            events |= entry.events;
    }
    return events;
}

std::vector<SEL> UIControl::actionsForTarget_forControlEvent(NSObject* target, NSUInteger events) const {
    std::vector<SEL> actions;
    for (const TargetAction& entry : m_targetActions) {
        if (entry.hasTarget == (target != nullptr) && entry.target.get() == target && (entry.events & events))
            actions.push_back(entry.action);
    }
    return actions;
}

void UIControl::sendActionsForControlEvents(NSUInteger events) {
    sendActionsForControlEvents_withEvent(events, nullptr);
}

void UIControl::sendActionsForControlEvents_withEvent(NSUInteger events, UIEvent* event) {
    const Ref<UIControl> keep = this;
    const auto entries = m_targetActions; // an action may add and remove targets
    for (const TargetAction& entry : entries) {
        const bool isStillThere =
            std::any_of(m_targetActions.begin(), m_targetActions.end(), [&](const TargetAction& present) {
                return present.hasTarget == entry.hasTarget && present.target.get() == entry.target.get() &&
                       present.action == entry.action && (present.events & events);
            });
        const Ref<NSObject> target = entry.target.lock();
        if (isStillThere && (target || !entry.hasTarget))
            sendAction_to_forEvent(entry.action, target, event);
    }
}

void UIControl::sendAction_to_forEvent(SEL action, NSObject* target, UIEvent* event) {
    if (UIApplication* application = UIApplication::sharedApplication()) {
        application->sendAction_to_from_forEvent(action, target, this, event);
        return;
    }
    for (UIResponder* responder = this; !target && responder; responder = responder->nextResponder()) {
        if (action.isAcceptedBy(responder))
            target = responder;
    }
    const NSValue arguments[] = {this, event};
    action.send(target, arguments);
}

// Tracking

bool UIControl::beginTrackingWithTouch_withEvent(UITouch*, UIEvent*) { return true; }
bool UIControl::continueTrackingWithTouch_withEvent(UITouch*, UIEvent*) { return true; }
void UIControl::endTrackingWithTouch_withEvent(UITouch*, UIEvent*) {}
void UIControl::cancelTrackingWithEvent(UIEvent*) {}

bool UIControl::gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) {
    const auto* tap = dynamic_cast<const UITapGestureRecognizer*>(recognizer);
    const bool isPlainTap = tap && tap->numberOfTapsRequired() == 1 && tap->numberOfTouchesRequired() == 1;
    if (m_enabled && isPlainTap && tap->view() != this)
        return false;
    return UIView::gestureRecognizerShouldBegin(recognizer);
}

void UIControl::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    const bool isBusy = m_tracking && !isMultipleTouchEnabled();
    if (!m_enabled || isBusy || touches.empty())
        return;
    const Ref<UIControl> keep = this;
    UITouch* touch = touches.front();
    const NSUInteger tapCount = touch->tapCount();
    if (!beginTrackingWithTouch_withEvent(touch, event) || !m_enabled)
        return;
    m_trackedTouch = touch;
    m_tracking = true;
    m_touchInside = true;
    setHighlighted(true);
    NSUInteger events = UIControlEventTouchDown;
    if (tapCount > 1)
        events |= UIControlEventTouchDownRepeat;
    sendActionsForControlEvents_withEvent(events, event);
}

void UIControl::touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) {
    UITouch* touch = m_trackedTouch;
    if (!m_tracking || !contains(touches, touch))
        return;
    const Ref<UIControl> keep = this;
    const bool wasInside = m_touchInside;
    m_touchInside = isWithinTrackingMargin(bounds(), touch->locationInView(this));
    const bool isInside = m_touchInside;
    const bool goesOn = continueTrackingWithTouch_withEvent(touch, event);
    if (!m_tracking)
        return;
    if (!goesOn) {
        m_tracking = false;
        m_touchInside = false;
        m_trackedTouch = nullptr;
        setHighlighted(false);
        return;
    }
    NSUInteger events = isInside ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside;
    if (isInside != wasInside) {
        setHighlighted(isInside);
        events |= isInside ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit;
    }
    sendActionsForControlEvents_withEvent(events, event);
}

void UIControl::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    UITouch* touch = m_trackedTouch;
    if (!m_tracking || !contains(touches, touch))
        return;
    const Ref<UIControl> keep = this;
    m_touchInside = isWithinTrackingMargin(bounds(), touch->locationInView(this));
    const bool isInside = m_touchInside;
    m_tracking = false;
    m_trackedTouch = nullptr;
    endTrackingWithTouch_withEvent(touch, event);
    m_touchInside = false;
    setHighlighted(false); // before the message, so that the target finds the control at rest
    sendActionsForControlEvents_withEvent(isInside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside, event);
}

void UIControl::touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) {
    if (contains(touches, m_trackedTouch))
        cancelTracking(event);
}

void UIControl::cancelTracking(UIEvent* event) {
    if (!m_tracking)
        return;
    const Ref<UIControl> keep = this;
    m_tracking = false;
    m_touchInside = false;
    m_trackedTouch = nullptr;
    cancelTrackingWithEvent(event);
    setHighlighted(false);
    sendActionsForControlEvents_withEvent(UIControlEventTouchCancel, event);
}

} // namespace zr
