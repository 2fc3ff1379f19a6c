#pragma once

#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>

#pragma GCC visibility push(default)
namespace zr {

/// Recognises taps: one or more, with one or more fingers at a time. Discrete.
///
/// A finger may stray 45 points from where it went down, and the next tap may be that far from the last one. A single
/// tap may last as long as it likes. Of several, each may last 0.75 s, from its first finger's going down to its last
/// one's going up, and the next tap must begin within 0.35 s of the last one's end.
///
/// Its location is the centre of the fingers of the last tap, where they went up.
///
/// One for a single tap does not prevent one for a double tap (and so on): the first tap is recognised at once, the
/// second one by the latter alone. To have the former wait, require the latter to fail.
class UITapGestureRecognizer : public UIGestureRecognizer {
public:
    ~UITapGestureRecognizer() override;

    /// Taps in a row: 1 at first; 0 is taken for 1.
    NSUInteger numberOfTapsRequired() const { return m_tapsRequired; }
    virtual void setNumberOfTapsRequired(NSUInteger count) { m_tapsRequired = count > 0 ? count : 1; }
    /// Fingers a tap: 1 at first; 0 is taken for 1.
    NSUInteger numberOfTouchesRequired() const { return m_touchesRequired; }
    virtual void setNumberOfTouchesRequired(NSUInteger count) { m_touchesRequired = count > 0 ? count : 1; }

    void reset() override;

    /// Yes, unless the other one is for more taps.
    bool canPreventGestureRecognizer(UIGestureRecognizer* other) override;
    /// Whether the other one is for more taps and in the last of them.
    bool shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer* other) override;
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;
    const std::vector<Ref<UITouch>>& locatedTouches() const override { return m_fingers; }

private:
    void fingerDown(UITouch* touch);
    void fingerUp();
    bool isInReach(CGPoint location) const;
    bool isInLastTap() const { return m_fingersDown > 0 && m_taps + 1 == m_tapsRequired; }
    void failAfter(NSTimeInterval seconds);
    void stopTimer();

    NSUInteger m_tapsRequired = 1;
    NSUInteger m_touchesRequired = 1;
    NSUInteger m_taps = 0;
    /// Of the present tap, or of the last one between two, and where each went down, in the window.
    std::vector<Ref<UITouch>> m_fingers;
    std::vector<CGPoint> m_starts;
    /// Where those of the tap before went down.
    std::vector<CGPoint> m_lastStarts;
    NSUInteger m_fingersDown = 0;
    Ref<NSTimer> m_timer;
};

} // namespace zr
#pragma GCC visibility pop
