#pragma once

#include <ZRPlatform/Foundation/NSDate.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr::gallery {

/// What happens when: a horizontal axis of seconds along which a cursor runs, above it lanes with bars for what lasts,
/// and over these a flag for every moment that counts. Everything is put down at the present time.
class TimeLine : public UIView {
public:
    static constexpr CGFloat kHeight = 156;

    /// `lanes`: their names, from the top. `duration`: seconds from one end of the axis to the other; what comes later
    /// is put at its end.
    bool initWithFrame_lanes_duration(CGRect frame, const std::vector<NSString>& lanes, NSTimeInterval duration);

    /// Wipes the line and lets the cursor run from the start.
    void start();
    /// Up to four flags have room.
    void mark(const NSString& name);
    /// A bar that grows with the time, until it is ended. Nothing is ended that was not begun.
    void beginBar(std::size_t lane);
    void endBar(std::size_t lane);

private:
    struct Lane {
        CGFloat y;
        /// Of the bar, while it grows.
        CGFloat start;
        Ref<UIView> growingBar;
    };

    void addLane(const NSString& name, CGFloat y);
    void addAxis();
    CGFloat axisWidth() const;
    CGFloat xOfTime(NSTimeInterval time) const;
    CGFloat presentX() const;
    NSTimeInterval secondsLeft() const;
    void addBelowCursor(UIView* view);

    NSTimeInterval m_duration = 0;
    Ref<NSDate> m_started;
    Ref<UIView> m_cursor;
    std::vector<Lane> m_lanes;
    /// What `start` wipes.
    std::vector<Ref<UIView>> m_markers;
    std::size_t m_markCount = 0;
};

} // namespace zr::gallery
