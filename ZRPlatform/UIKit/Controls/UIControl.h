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
    bool isEnabled() const { return m_enabled; }
    /// A disabled control takes the touches that hit it and does nothing with them. Disabling cancels a running touch.
    virtual void setEnabled(bool enabled);
    /// For subclasses and targets: no touch changes it. False at first.
    bool isSelected() const { return m_selected; }
    virtual void setSelected(bool selected);
    bool isHighlighted() const { return m_highlighted; }
    /// Called by the tracking as the finger goes down, leaves and returns.
    virtual void setHighlighted(bool highlighted);
    /// A sum of `UIControlState` values.
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
    void addTarget_action_forControlEvents(NSObject* target, SEL action, NSUInteger events);
    /// A nil target stands for all, a nil action for all.
    void removeTarget_action_forControlEvents(NSObject* target, SEL action, NSUInteger events);
    /// Targets still alive, each once; `nullptr` stands for the responder chain.
    std::vector<NSObject*> allTargets() const;
    NSUInteger allControlEvents() const;
    std::vector<SEL> actionsForTarget_forControlEvent(NSObject* target, NSUInteger events) const;
    void sendActionsForControlEvents(NSUInteger events);
    virtual void sendAction_to_forEvent(SEL action, NSObject* target, UIEvent* event);
    /// @}

    /// @name Tracking
    /// For subclasses; false ends the tracking.
    /// @{
    virtual bool beginTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event);
    virtual bool continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event);
    virtual void endTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event);
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
