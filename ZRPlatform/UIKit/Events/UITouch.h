#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/Weak.h>

namespace zr {

class UIView;
class UIWindow;

enum UITouchPhase : NSInteger {
    UITouchPhaseBegan,
    UITouchPhaseMoved,
    UITouchPhaseStationary,
    UITouchPhaseEnded,
    UITouchPhaseCancelled,
};

/// One finger (or the pressed mouse button), from its going down to its going up; the same object all the way.
class UITouch : public NSObject {
public:
    UITouchPhase phase() const { return m_phase; }
    /// Seconds, by the current clock.
    NSTimeInterval timestamp() const { return m_timestamp; }
    /// 2 for the second tap of a double tap, and so on; 0 once the finger has moved away from where it went down.
    NSUInteger tapCount() const { return m_tapCount; }
    /// The view hit when the finger went down. It gets all messages of this touch; nil once it is gone.
    UIView* view() const;
    UIWindow* window() const;
    /// In the coordinates of `view`; of the window when nil.
    CGPoint locationInView(const UIView* view) const;
    CGPoint previousLocationInView(const UIView* view) const;

private:
    friend class UIApplication;
    friend class TouchDispatcher;

    UITouchPhase m_phase = UITouchPhaseBegan;
    NSTimeInterval m_timestamp = 0;
    NSUInteger m_tapCount = 0;
    /// In the window's coordinates.
    CGPoint m_location;
    CGPoint m_previousLocation;
    Weak<UIView> m_view;
    Weak<UIWindow> m_window;
};

} // namespace zr
