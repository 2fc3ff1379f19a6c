#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#include <atomic>
#include <mutex>

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

    /// The clock that everything reads now; the real one unless another was set.
    static Clock& current();
    /// Makes `clock` the current one; null brings the real clock back. The caller owns it, and keeps it until it has
    /// set another.
    static void setCurrent(Clock* clock);
};

/// Stands still until it is advanced. Starts at 0.
class ManualClock : public Clock {
public:
    Nanoseconds now() const override { return m_now.load(std::memory_order_relaxed); }
    /// Lets the time be this; going back is ignored.
    void advanceTo(Nanoseconds time);

private:
    std::atomic<Nanoseconds> m_now{0};
};

/// Goes as fast as another clock, or slower, so that what is timed by it can be watched. Its dates go slowly too, and
/// stay behind by what was lost.
class PacedClock : public Clock {
public:
    /// `source`: not owned; outlives this clock. Both show the same time at first.
    explicit PacedClock(const Clock& source);

    Nanoseconds now() const override;
    Nanoseconds offsetToReferenceDate() const override { return m_source.offsetToReferenceDate(); }

    /// The other clock.
    const Clock& source() const { return m_source; }
    /// How many of the source's seconds one of this clock's takes; 1 at first.
    int slowness() const;
    /// From now on; what is below 1 counts as 1. The time does not jump.
    void setSlowness(int slowness);
    /// What the source shows when this clock first shows `time`, if it goes on like this; for a time that is over, some
    /// moment that is over.
    Nanoseconds sourceTime(Nanoseconds time) const;

private:
    const Clock& m_source;
    mutable std::mutex m_mutex;
    /// What the two showed when the pace was set.
    Nanoseconds m_sourceStart;
    Nanoseconds m_start;
    Nanoseconds m_slowness = 1;
};

} // namespace zr
#pragma GCC visibility pop
