#pragma once

#include <ZRPlatform/UIKit/Events/UIEvent.h>

#include <map>
#include <vector>

namespace zr {

/// Follows the fingers: finds the view under each as it goes down, and sends the window an event whenever one of them
/// changes.
class TouchDispatcher {
public:
    /// Places are in points of the screen; `windows` lowest first.
    void began(std::int64_t identifier, CGPoint location, const std::vector<UIWindow*>& windows);
    void moved(std::int64_t identifier, CGPoint location);
    void ended(std::int64_t identifier, CGPoint location);
    void cancelled(std::int64_t identifier);
    /// The touches of the view and of those below it end as cancelled; their fingers are followed no further.
    void cancelTouchesInView(const UIView* view);

private:
    /// The end of the last tap, to tell a double tap by.
    struct LastTap {
        NSTimeInterval time = 0;
        CGPoint location;
        NSUInteger count = 0;
    };

    void change(UITouch* touch, UITouchPhase phase);
    void finish(std::int64_t identifier, Ref<UITouch> touch, UITouchPhase phase);
    void setLocation(UITouch* touch, CGPoint screenLocation);
    bool isBlocked(const UIView* view) const;

    std::map<std::int64_t, Ref<UITouch>> m_fingers;
    std::map<std::int64_t, CGPoint> m_starts;
    LastTap m_lastTap;
};

} // namespace zr
