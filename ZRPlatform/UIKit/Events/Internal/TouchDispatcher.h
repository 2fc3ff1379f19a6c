#pragma once

#include <ZRPlatform/UIKit/Events/UIEvent.h>

#include <map>
#include <optional>
#include <vector>

namespace zr {

class GestureArbiter;

/// Follows the fingers: finds the view under each as it goes down, and sends the window an event whenever one of them
/// changes.
class TouchDispatcher {
public:
    /// `gestures` outlives the dispatcher.
    explicit TouchDispatcher(GestureArbiter& gestures) : m_gestures(gestures) {}

    /// Places are in points of the screen; `windows` lowest first.
    void began(std::int64_t identifier, CGPoint location, const std::vector<UIWindow*>& windows);
    void moved(std::int64_t identifier, CGPoint location);
    void ended(std::int64_t identifier, CGPoint location);
    void cancelled(std::int64_t identifier);
    /// The touches of the view and of those below it end as cancelled, for these views and for their recognisers. A
    /// finger that a recogniser further up follows is followed on; the others are not.
    void cancelTouchesInView(const UIView* view);

    /// A finger that is down, and where it went down, in points of the screen.
    struct Finger {
        Ref<UITouch> touch;
        CGPoint start;
    };
    std::optional<Finger> finger(std::int64_t identifier) const;
    /// The one that a finger there would touch, and its window; null for both when there is none.
    static UIView* viewAt(CGPoint location, const std::vector<UIWindow*>& windows, UIWindow** window = nullptr);

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
    bool isShutOut(const UIView* view) const;
    bool hasFinger(const UIView* view) const;

    GestureArbiter& m_gestures;
    std::map<std::int64_t, Ref<UITouch>> m_fingers;
    std::map<std::int64_t, CGPoint> m_starts;
    LastTap m_lastTap;
};

} // namespace zr
