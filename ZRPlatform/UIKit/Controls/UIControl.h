#pragma once

#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#pragma GCC visibility push(default)
namespace zr {

/// What targets are told of, to be added up. Inside reaches 70 points beyond the bounds.
enum UIControlEvents : NSUInteger {
    UIControlEventTouchDown = 1 << 0,
    UIControlEventTouchDownRepeat = 1 << 1,
    UIControlEventTouchDragInside = 1 << 2,
    UIControlEventTouchDragOutside = 1 << 3,
    UIControlEventTouchDragEnter = 1 << 4,
    UIControlEventTouchDragExit = 1 << 5,
    UIControlEventTouchUpInside = 1 << 6,
    UIControlEventTouchUpOutside = 1 << 7,
    UIControlEventTouchCancel = 1 << 8,
    UIControlEventValueChanged = 1 << 12,
    UIControlEventEditingDidBegin = 1 << 16,
    UIControlEventEditingChanged = 1 << 17,
    UIControlEventEditingDidEnd = 1 << 18,
    UIControlEventEditingDidEndOnExit = 1 << 19,
    UIControlEventAllTouchEvents = 0x00000FFF,
    UIControlEventAllEditingEvents = 0x000F0000,
    UIControlEventAllEvents = 0xFFFFFFFF,
};

/// What a control is in, to be added up.
enum UIControlState : NSUInteger {
    UIControlStateNormal = 0,
    UIControlStateHighlighted = 1 << 0,
    UIControlStateDisabled = 1 << 1,
    UIControlStateSelected = 1 << 2,
};

/// Where the contents lie between top and bottom.
enum UIControlContentVerticalAlignment : NSInteger {
    UIControlContentVerticalAlignmentCenter,
    UIControlContentVerticalAlignmentTop,
    UIControlContentVerticalAlignmentBottom,
    UIControlContentVerticalAlignmentFill,
};

/// Where the contents lie between left and right.
enum UIControlContentHorizontalAlignment : NSInteger {
    UIControlContentHorizontalAlignmentCenter,
    UIControlContentHorizontalAlignmentLeft,
    UIControlContentHorizontalAlignmentRight,
    UIControlContentHorizontalAlignmentFill,
};

/// A view that tracks a finger and tells its targets what happened. Unlike a plain view it keeps its touches to itself.
///
/// A finger stays inside until it is more than 70 points away from the bounds; a first touch must hit the bounds.
class UIControl : public UIView {
public:
    /// True at first. A disabled control takes the touches that hit it and does nothing with them; disabling cancels a
    /// running touch.
    bool isEnabled() const { return m_enabled; }
    virtual void setEnabled(bool enabled);
    /// A state for subclasses and their users; no touch changes it by itself. False at first.
    bool isSelected() const { return m_selected; }
    virtual void setSelected(bool selected);
    /// Whether it shows that it is pressed. The tracking sets it as the finger goes down, leaves and returns; false at
    /// first.
    bool isHighlighted() const { return m_highlighted; }
    virtual void setHighlighted(bool highlighted);
    /// Enabled, selected and highlighted in one, as a sum of `UIControlState` values.
    virtual NSUInteger state() const;
    /// Whether a finger is down that began here and is still followed.
    bool isTracking() const { return m_tracking; }
    /// Whether that finger is inside.
    bool isTouchInside() const { return m_touchInside; }
    /// Where a subclass puts what it shows; in the middle at first.
    UIControlContentHorizontalAlignment contentHorizontalAlignment() const { return m_horizontalAlignment; }
    virtual void setContentHorizontalAlignment(UIControlContentHorizontalAlignment alignment);
    /// Where a subclass puts what it shows; in the middle at first.
    UIControlContentVerticalAlignment contentVerticalAlignment() const { return m_verticalAlignment; }
    virtual void setContentVerticalAlignment(UIControlContentVerticalAlignment alignment);

    /// @name Target and action
    /// Targets are held weakly. The message takes (sender), (sender, event) or nothing; a nil target means
    /// whoever takes it upwards of the first responder, else of the control. Adding the same pair again adds its
    /// events.
    /// @{
    /// Sends the message to the target at each of the events, a sum of `UIControlEvents`. A nil action is ignored.
    void addTarget_action_forControlEvents(NSObject* target, SEL action, NSUInteger events);
    /// Takes events away from a pair; one without events is forgotten. A nil target stands for all, a nil action for
    /// all.
    void removeTarget_action_forControlEvents(NSObject* target, SEL action, NSUInteger events);
    /// Targets still alive, each once; null stands for the responder chain.
    std::vector<NSObject*> allTargets() const;
    /// The events that anybody is told of, as a sum.
    NSUInteger allControlEvents() const;
    /// What the target is sent at any of these events; nil is the responder chain.
    std::vector<SEL> actionsForTarget_forControlEvent(NSObject* target, NSUInteger events) const;
    /// Tells whoever is to be told of any of these events, once each, in the order of their being added; without an
    /// event.
    void sendActionsForControlEvents(NSUInteger events);
    /// Sends one message; every one goes through here. A nil target is the responder chain, and the event may be nil.
    virtual void sendAction_to_forEvent(SEL action, NSObject* target, UIEvent* event);
    /// @}

    /// @name Tracking
    /// For subclasses; false ends the tracking.
    /// @{
    /// A finger has gone down on the enabled control. False leaves it untracked; the base class says true.
    virtual bool beginTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event);
    /// The tracked finger has moved. False ends the tracking, and no event is sent; the base class says true.
    virtual bool continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event);
    /// The tracked finger has gone up, before the control is unhighlighted and the targets are told.
    virtual void endTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event);
    /// The tracked touch was cancelled, or the control disabled, when the event is nil.
    virtual void cancelTrackingWithEvent(UIEvent* event);
    /// @}

    /// An enabled control keeps its taps: a recogniser of one tap with one finger that is attached to a superview is
    /// refused.
    bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override;
    /// While it is enabled.
    bool canBecomeFocused() const override { return m_enabled; }
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;
    /// Called after enabled, selected or highlighted changed.
    virtual void stateChanged() {}

private:
    struct TargetAction {
        Weak<NSObject> target;
        bool hasTarget;
        SEL action;
        NSUInteger events;
    };

    void sendActionsForControlEvents_withEvent(NSUInteger events, UIEvent* event);
    void cancelTracking(UIEvent* event);

    std::vector<TargetAction> m_targetActions;
    Weak<UITouch> m_trackedTouch;
    UIControlContentHorizontalAlignment m_horizontalAlignment = UIControlContentHorizontalAlignmentCenter;
    UIControlContentVerticalAlignment m_verticalAlignment = UIControlContentVerticalAlignmentCenter;
    bool m_enabled = true;
    bool m_selected = false;
    bool m_highlighted = false;
    bool m_tracking = false;
    bool m_touchInside = false;
};

} // namespace zr
#pragma GCC visibility pop
