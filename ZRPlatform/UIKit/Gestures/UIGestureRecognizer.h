#pragma once

#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/UIKit/Events/UIEvent.h>
#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizerDelegate.h>

#include <vector>

namespace zr { // not exported
class GestureArbiter;
class TouchDelivery;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class UIView;

/// Discrete recognisers go from possible to recognized (which is ended) or to failed. Continuous ones go from possible
/// to began, by any number of changed, to ended or cancelled; or from possible to failed.
enum UIGestureRecognizerState : NSInteger {
    UIGestureRecognizerStatePossible,
    UIGestureRecognizerStateBegan,
    UIGestureRecognizerStateChanged,
    UIGestureRecognizerStateEnded,
    UIGestureRecognizerStateCancelled,
    UIGestureRecognizerStateFailed,
    UIGestureRecognizerStateRecognized = UIGestureRecognizerStateEnded,
};

/// Watches the touches of the view it is attached to, and of the views below that one, and tells its targets when they
/// add up to a gesture.
///
/// It sees a touch before the view that was hit: recognisers of that view first, then those of its superview and so on,
/// on each view in the order in which they were added. The first one to begin (or, a discrete one, to be recognised)
/// makes the others that share a touch with it fail, unless either delegate allows both.
///
/// One that failed, ended or was cancelled sees nothing until the fingers it followed have gone up; then it is reset
/// to possible. One that stays possible with no finger down holds back whatever waits for it, so it must decide by
/// itself, by a timer for example. Main thread only.
class UIGestureRecognizer : public NSObject {
public:
    ~UIGestureRecognizer() override;
    bool init() override;
    /// As `init`, then `addTarget_action`.
    virtual bool initWithTarget_action(NSObject* target, SEL action);

    /// @name Target and action
    /// Targets are held weakly. The message takes the recogniser or nothing. It is sent once for each event in which
    /// the state became (or stayed) began, changed, ended or cancelled, after all recognisers have seen the event and
    /// before the view does; never for a failure.
    /// @{
    /// Tells the target of the gesture from now on. Nil for either is ignored, and so is a pair that is there already.
    void addTarget_action(NSObject* target, SEL action);
    /// Tells the target no more. A nil target stands for all, a nil action for all.
    void removeTarget_action(NSObject* target, SEL action);
    /// @}

    /// Where the gesture is; possible at first, and again after every gesture.
    UIGestureRecognizerState state() const { return m_state; }
    /// The view it is attached to by `addGestureRecognizer`, which keeps it; nil without.
    UIView* view() const { return m_view; }
    /// Asked before it sees a touch or begins; not kept. Nil at first.
    UIGestureRecognizerDelegate* delegate() const { return m_delegate; }
    void setDelegate(const Delegate<UIGestureRecognizerDelegate>& delegate) { m_delegate = delegate; }
    /// True at first. A disabled recogniser sees nothing; disabling one that is under way cancels it, and it follows
    /// the fingers that are down no further, even if it is enabled again at once.
    bool isEnabled() const { return m_enabled; }
    virtual void setEnabled(bool enabled);

    /// @name Touches
    /// @{
    /// Fingers that it follows, those that went up in this event included.
    NSUInteger numberOfTouches() const { return locatedTouches().size(); }
    /// The centre of its fingers, in the coordinates of `view` (of the window when nil); where the last one was when
    /// there is none any more.
    virtual CGPoint locationInView(const UIView* view) const;
    /// The place of one finger, in the order in which they went down; zero when there is no such finger.
    virtual CGPoint locationOfTouch_inView(NSUInteger index, const UIView* view) const;
    /// @}

    /// @name What the view is told of the touches
    /// @{
    /// Whether, once the gesture has begun or is recognised, its touches are cancelled in the view; true at first.
    bool cancelsTouchesInView() const { return m_cancelsTouchesInView; }
    virtual void setCancelsTouchesInView(bool flag) { m_cancelsTouchesInView = flag; }
    /// Whether the view is told of touches only after this one has failed; false at first. Moves in between are told
    /// as one.
    bool delaysTouchesBegan() const { return m_delaysTouchesBegan; }
    virtual void setDelaysTouchesBegan(bool flag) { m_delaysTouchesBegan = flag; }
    /// Whether the end of a touch is held back while this one is still possible: the view is then told of the end
    /// (this one failed) or of a cancellation (it was recognised). True at first.
    bool delaysTouchesEnded() const { return m_delaysTouchesEnded; }
    virtual void setDelaysTouchesEnded(bool flag) { m_delaysTouchesEnded = flag; }
    /// @}

    /// This one stays possible, whatever it has seen, until the other one has failed; if that one begins or is
    /// recognised, this one fails. Another one that has seen no touch holds nothing back, and neither does one that
    /// waits for this one itself. Held weakly; nil and the recogniser itself are ignored.
    void requireGestureRecognizerToFail(UIGestureRecognizer* other);

    /// @name For subclasses
    /// @{
    /// Says what the subclass has seen. Leaving possible may come to nothing (a refusal: the state is failed
    /// afterwards) or be put off (a failure is waited for: it is still possible). A transition that is not allowed is
    /// ignored and logged, and so is a number that is no state; cancelled, from possible, is a failure.
    virtual void setState(UIGestureRecognizerState state);
    /// Called once when the gesture is over and the recogniser is about to become possible again: forget what was seen.
    /// The base class does nothing.
    virtual void reset() {}
    /// To be called from the touch methods: the touch is none of the gesture's. It is followed no further, and is
    /// neither cancelled nor held back on this one's account.
    virtual void ignoreTouch_forEvent(UITouch* touch, UIEvent* event);
    /// Whether this one, by beginning, makes the other one fail; the base class says yes.
    virtual bool canPreventGestureRecognizer(UIGestureRecognizer* other);
    /// Whether the other one, by beginning, makes this one fail; the base class says yes.
    virtual bool canBePreventedByGestureRecognizer(UIGestureRecognizer* other);
    /// Whether this one waits for the other one to fail, asked when this one would begin; the base class says no.
    virtual bool shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer* other);
    /// Whether the other one waits for this one to fail, asked when the other one would begin; the base class says no.
    virtual bool shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer* other);
    /// Fingers went down that it follows from now on. The base class does nothing, as in the three below.
    virtual void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event);
    /// Fingers that it follows have moved.
    virtual void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event);
    /// Fingers that it follows went up.
    virtual void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event);
    /// Touches that it follows are over without the fingers' going up. If the last one is, and the recogniser does not
    /// decide by itself, it fails or is cancelled afterwards.
    virtual void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event);
    /// @}

protected:
    const KeyTable& keyTable() const override;
    /// The touches that number and locations are told of; those followed, unless a class remembers others.
    virtual const std::vector<Ref<UITouch>>& locatedTouches() const { return m_touches; }

private:
    friend class GestureArbiter;
    friend class TouchDelivery;
    friend class UIView;

    /// Asked of each one that follows the touch, before the touch's view is told of its beginning; a no keeps all of
    /// the touch from the view.
    virtual bool letsViewKnow(UITouch*, UIEvent*) { return true; }

    struct TargetAction {
        Weak<NSObject> target;
        SEL action;
        bool operator==(const TargetAction& other) const {
            return target.get() == other.target.get() && action == other.action;
        }
    };

    void sendActions();

    std::vector<TargetAction> m_targetActions;
    Delegate<UIGestureRecognizerDelegate> m_delegate;
    std::vector<Weak<UIGestureRecognizer>> m_failureRequirements;
    /// Followed now.
    std::vector<Ref<UITouch>> m_touches;
    /// The last one that went up.
    Ref<UITouch> m_lastTouch;
    UIView* m_view = nullptr;
    UIGestureRecognizerState m_state = UIGestureRecognizerStatePossible;
    bool m_enabled = true;
    bool m_cancelsTouchesInView = true;
    bool m_delaysTouchesBegan = false;
    bool m_delaysTouchesEnded = true;
};

} // namespace zr
#pragma GCC visibility pop
