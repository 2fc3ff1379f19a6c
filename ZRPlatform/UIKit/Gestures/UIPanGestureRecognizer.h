#pragma once

#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>

#include <limits>

#pragma GCC visibility push(default)
namespace zr {

/// Recognises fingers that drag. Continuous: it begins once they have moved 10 points, whichever way, and ends when
/// they go up. To take only one direction, answer `gestureRecognizerShouldBegin` by the translation at that moment.
///
/// Where several fingers drag, their centre counts. One that joins or leaves in the middle moves nothing.
class UIPanGestureRecognizer : public UIGestureRecognizer {
public:
    /// Fingers that must be down for it to begin; with fewer left it ends. 1 at first; 0 is taken for 1.
    NSUInteger minimumNumberOfTouches() const { return m_minimumTouches; }
    virtual void setMinimumNumberOfTouches(NSUInteger count) { m_minimumTouches = count > 0 ? count : 1; }
    /// With more fingers it does not begin; those that come later are ignored. No limit at first; 0 is taken for 1.
    NSUInteger maximumNumberOfTouches() const { return m_maximumTouches; }
    virtual void setMaximumNumberOfTouches(NSUInteger count) { m_maximumTouches = count > 0 ? count : 1; }

    /// How far the fingers have moved since as many as it needs went down, the first 10 points included, in the
    /// coordinates of `view` (of the window when nil); zero when there is no gesture.
    CGPoint translationInView(const UIView* view) const;
    /// From now on they have moved that far; ignored when a number is not finite. The velocity begins anew, at zero.
    virtual void setTranslation_inView(CGPoint translation, const UIView* view);
    /// Points a second over the last tenth of a second, or since the last move but one when that was longer ago; in the
    /// coordinates of `view` (of the window when nil). Zero while no time has passed, and for fingers that have rested
    /// for so long.
    CGPoint velocityInView(const UIView* view) const;

    void reset() override;
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    const KeyTable& keyTable() const override;
    /// Whether the way so far is a drag; asked at each move until it is. The base class asks for 10 points.
    virtual bool isDrag() const;

private:
    /// The translation at a moment.
    struct Sample {
        NSTimeInterval time;
        CGPoint translation;
    };

    bool isUnderWay() const;
    void startAnew(NSTimeInterval time);
    void follow(NSTimeInterval time);
    void loseFingers(const TouchSet& touches, UIGestureRecognizerState endState);

    NSUInteger m_minimumTouches = 1;
    NSUInteger m_maximumTouches = std::numeric_limits<NSUInteger>::max();
    /// All in the window's coordinates.
    CGPoint m_center;
    CGPoint m_translation;
    /// Of the last tenth of a second and the one before, the present one last.
    std::vector<Sample> m_samples;
    /// It has said that it begins, be it that it waits for another's failure.
    bool m_hasDragged = false;
};

} // namespace zr
#pragma GCC visibility pop
