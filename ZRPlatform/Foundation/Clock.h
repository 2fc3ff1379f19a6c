#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#include <atomic>

#pragma GCC visibility push(default)
namespace zr {

/// A moment or a span, in nanoseconds; whole numbers, so that 0.3 s and 0.7 s make exactly one second.
using Nanoseconds = std::int64_t;

/// As many as a second has.
inline constexpr Nanoseconds kNanosecondsPerSecond = 1'000'000'000;
/// Rounded to the nearest nanosecond; not-a-number is 0 and spans beyond a century are a century.
Nanoseconds nanosecondsFromSeconds(NSTimeInterval seconds);
/// As near as a number of that precision comes.
inline NSTimeInterval secondsFromNanoseconds(Nanoseconds time) { return static_cast<double>(time) / 1e9; }

/// What every timer, animation, date and delayed perform reads. One clock is current at a time: the real one, or a
/// manual one while a test drives the time. May be read on any thread.
class Clock {
public:
    virtual ~Clock() = default;
    /// Time since an arbitrary moment; never goes back.
    virtual Nanoseconds now() const = 0;
    /// What to add to `now` to get the time since 1 January 2001; 0 for a clock that starts there.
    virtual Nanoseconds offsetToReferenceDate() const { return 0; }

    static Clock& current();
    /// Null brings the real clock back. The caller owns `clock`, and keeps it until it has set another.
    static void setCurrent(Clock* clock);
};

/// Stands still until it is advanced. Starts at 0.
class ManualClock : public Clock {
public:
    Nanoseconds now() const override { return m_now.load(std::memory_order_relaxed); }
    /// Going back is ignored.
    void advanceTo(Nanoseconds time);

private:
    std::atomic<Nanoseconds> m_now{0};
};

} // namespace zr
#pragma GCC visibility pop
