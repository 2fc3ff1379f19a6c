#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>

#pragma GCC visibility push(default)
namespace zr {

/// The kit's toggle, 50 x 31 points: a track, grey when off and green when on, and a white knob that stretches while a
/// finger is down. A tap toggles it; a finger dragged past 10 or 40 points takes the knob to that end, and what it
/// shows counts when the finger goes.
///
/// Sends UIControlEventValueChanged when a touch has changed it, never when code has. A cancelled touch counts as one
/// that ended. Durations follow the last `setOn_animated`: all are 0 before the first one. Main thread only.
class ZRSwitch : public UIControl {
public:
    /// The frame's origin counts; its size does not.
    bool initWithFrame(CGRect frame) override;

    /// The state that it rests in; false at first.
    bool isOn() const { return m_on; }
    /// The same as `setOn_animated`, animated.
    virtual void setOn(bool on);
    /// Takes a stretched knob back and, when that is a change, moves it to the other end, animated within 0.4 s. The
    /// targets are not told. What touches move from now on is animated, or not, likewise.
    virtual void setOn_animated(bool on, bool animated);
    /// A disabled switch leaves touches alone, to their end even if it is enabled meanwhile. One that is disabled
    /// during a touch rests in its state, and that touch comes to nothing.
    void setEnabled(bool enabled) override;

    /// @name Parts of the movement
    /// @{
    /// Stretches the knob to the right, or takes it back. `fromRight` counts for a knob that is stretched already:
    /// taken back it keeps its right edge, stretched again it moves 10 points to the left.
    virtual void reSizeCirCleWithHighLight_fromRight(bool highlight, bool fromRight);
    /// Moves the knob's middle there; at the ends, as far as a stretched knob can go.
    virtual void moveCircleViewToPoint(CGFloat x);
    /// Shows a state without being in it.
    virtual void moveCircleViewWithStatus(bool on);
    /// The end of a touch: takes over what it did, and tells the targets if that is a change.
    virtual void sendAction();
    /// @}

    /// Stretches the knob, if the switch is enabled.
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Takes the knob to an end that the finger is dragged past.
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Ends the touch with `sendAction`.
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Ends the touch with `sendAction`, as if the finger had been lifted.
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;

private:
    void dragTo(bool on);
    void finishTouch();

    Ref<UIView> m_circleView;
    bool m_on = false;
    /// A touch is under way that began while the switch was enabled.
    bool m_touched = false;
    bool m_moved = false;
    bool m_moveOn = false;
    bool m_animationOn = false;
};

} // namespace zr
#pragma GCC visibility pop
