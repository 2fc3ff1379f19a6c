#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/Foundation/Weak.h>

#include <functional>
#include <memory>

#pragma GCC visibility push(default)
namespace zr {

class NSRunLoop;

/// Fires once, or again and again, on the run loop it is scheduled on. A repeating timer skips the beats it missed.
/// A timer belongs to the thread of that run loop.
class NSTimer : public NSObject {
public:
    /// Scheduled on this thread's run loop, `interval` seconds from now (0.0001 when it is not above 0). The run loop
    /// keeps the timer, and the timer keeps `target` alive, until it is invalidated; one that does not repeat
    /// invalidates itself after firing. The message takes the timer as its argument.
    static Ref<NSTimer> scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(NSTimeInterval interval,
                                                                                        NSObject* target, SEL selector,
                                                                                        const NSValue& userInfo,
                                                                                        bool repeats);
    /// The same with a block in place of a target.
    static Ref<NSTimer> scheduledTimerWithTimeInterval_repeats_block(NSTimeInterval interval, bool repeats,
                                                                     std::function<void(NSTimer*)> block);

    /// Seconds from beat to beat.
    NSTimeInterval timeInterval() const { return secondsFromNanoseconds(m_interval); }
    /// As given; nil once the timer is invalid.
    const NSValue& userInfo() const { return m_userInfo; }
    /// Whether it will fire again.
    bool isValid() const { return m_valid; }
    /// Fires now, without changing the schedule of a repeating timer.
    void fire();
    /// Never fires again, and lets go of its target, its block and its information.
    void invalidate();

private:
    friend class NSObject;
    friend class NSRunLoop;

    static Ref<NSTimer> timerAfter(Nanoseconds interval);
    /// The first beat after `now`.
    void skipToBeatAfter(Nanoseconds now);

    Nanoseconds m_interval = 0;
    Nanoseconds m_fireTime = 0;
    std::uint64_t m_age = 0;
    bool m_repeats = false;
    bool m_valid = true;
    bool m_isDelayedPerform = false; // whose message takes the information instead of the timer
    Weak<NSRunLoop> m_runLoop;
    Ref<NSObject> m_target;
    SEL m_selector;
    NSValue m_userInfo;
    std::shared_ptr<std::function<void(NSTimer*)>> m_block; // shared, so that it survives its own invalidation
};

} // namespace zr
#pragma GCC visibility pop
