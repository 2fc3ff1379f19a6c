#pragma once

#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>

#pragma GCC visibility push(default)
namespace zr {

/// Recognises a mainly vertical drag: it begins once the finger is 30 points above or below where it went down, and
/// then follows it. It fails first when the finger is 30 points to the side and has risen or sunk by no more than half
/// of that, and when the finger goes up too early. For one finger; one more starts the measuring anew.
class ZRSwipeGesture : public UIGestureRecognizer {
public:
    /// @name Points
    /// Where the finger went down and where it was last seen to move, in the coordinates of `view`; zero before.
    /// @{
    /// Where the finger went down, in the coordinates of `view`; zero while none is down.
    CGPoint beginPoint() const { return m_beginPoint; }
    /// Where the finger was last seen to move, in the coordinates of `view`; zero before it has moved.
    CGPoint curPoint() const { return m_curPoint; }
    /// @}

    /// Begins to measure here, also for a second finger.
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Begins, fails or, once begun, changes, as said of the class.
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Ends what has begun; else fails.
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Cancels.
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Forgets both points.
    void reset() override;

private:
    CGPoint m_beginPoint;
    CGPoint m_curPoint;
};

} // namespace zr
#pragma GCC visibility pop
