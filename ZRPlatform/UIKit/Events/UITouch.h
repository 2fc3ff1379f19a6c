#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/Weak.h>

#include <vector>

namespace zr { // not exported
class GestureArbiter;
class TouchDelivery;
class TouchDispatcher;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class UIGestureRecognizer;
class UIView;
class UIWindow;

/// What a finger has just done.
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
    /// What the finger has done in the event that is being told.
    UITouchPhase phase() const { return m_now.phase; }
    /// When it did so, in seconds of the current clock.
    NSTimeInterval timestamp() const { return m_now.timestamp; }
    /// 2 for the second tap of a double tap, and so on; 0 once the finger has moved away from where it went down.
    NSUInteger tapCount() const { return m_now.tapCount; }
    /// The view hit when the finger went down. It gets all messages of this touch that no recogniser takes; nil once
    /// it is gone.
    UIView* view() const;
    /// The window where it went down; nil once that is gone.
    UIWindow* window() const;
    /// The recognisers that follow the touch, in the order in which they see it.
    std::vector<UIGestureRecognizer*> gestureRecognizers() const;
    /// Where the finger is, in the coordinates of `view`; of the window when nil.
    CGPoint locationInView(const UIView* view) const;
    /// Where it was before the event that is being told, likewise.
    CGPoint previousLocationInView(const UIView* view) const;

private:
    friend class UIApplication;
    friend class GestureArbiter;
    friend class TouchDelivery;
    friend class TouchDispatcher;
    friend class UIEvent;

    /// What changes along the way, the places in the window's coordinates.
    struct Moment {
        UITouchPhase phase = UITouchPhaseBegan;
        NSTimeInterval timestamp = 0;
        NSUInteger tapCount = 0;
        CGPoint location;
        CGPoint previousLocation;
    };

    bool isSeenBy(const UIGestureRecognizer* recognizer) const;

    Moment m_now;
    Weak<UIView> m_view;
    Weak<UIWindow> m_window;
    std::vector<Weak<UIGestureRecognizer>> m_gestureRecognizers;
    /// Whether the view is told of the touch: another finger may keep it from the view, or a recogniser take it.
    bool m_reachesView = false;
};

} // namespace zr
#pragma GCC visibility pop
