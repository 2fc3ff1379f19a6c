#pragma once

#include <ZRPlatform/UIKit/Events/UITouch.h>

#include <vector>

namespace zr { // not exported
class TouchDispatcher;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// What happened at one moment: every finger that is down or has just gone up.
class UIEvent : public NSObject {
public:
    /// Seconds, by the current clock.
    NSTimeInterval timestamp() const { return m_timestamp; }
    /// Each finger that is down or has just gone up, once.
    const std::vector<Ref<UITouch>>& allTouches() const { return m_touches; }
    /// Those that the view is told of.
    std::vector<UITouch*> touchesForView(const UIView* view) const;
    /// Those that the recogniser follows.
    std::vector<UITouch*> touchesForGestureRecognizer(const UIGestureRecognizer* recognizer) const;

private:
    friend class TouchDispatcher;
    friend class UIWindow;

    NSTimeInterval m_timestamp = 0;
    std::vector<Ref<UITouch>> m_touches;
    /// The finger that the event is about; the others are as they were.
    Weak<UITouch> m_changed;
};

/// Touches that changed in the same way, for one view.
using TouchSet = std::vector<UITouch*>;

} // namespace zr
#pragma GCC visibility pop
