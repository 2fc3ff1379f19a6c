#include <ZRPlatform/Foundation/Clock.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace zr {

namespace {

constexpr Nanoseconds kCentury = Nanoseconds{36525} * 86400 * kNanosecondsPerSecond;
/// From 1 January 1970, where the system's wall clock starts, to 1 January 2001.
constexpr Nanoseconds kReferenceDateSince1970 = 978'307'200 * kNanosecondsPerSecond;

template <class SystemClock>
Nanoseconds systemNow() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(SystemClock::now().time_since_epoch()).count();
}

class RealClock final : public Clock {
public:
    Nanoseconds now() const override { return systemNow<std::chrono::steady_clock>(); }
    Nanoseconds offsetToReferenceDate() const override { return m_offset; }

private:
    // Taken once: dates go on steadily even when somebody sets the wall clock.
    const Nanoseconds m_offset =
        systemNow<std::chrono::system_clock>() - systemNow<std::chrono::steady_clock>() - kReferenceDateSince1970;
};

Clock& realClock() {
    static const auto clock = new RealClock; // never destroyed: worker threads read it until the very end
    return *clock;
}

std::atomic<Clock*> currentClock{nullptr};

} // namespace

Nanoseconds nanosecondsFromSeconds(NSTimeInterval seconds) {
    if (std::isnan(seconds))
        return 0;
    const double limit = secondsFromNanoseconds(kCentury);
    if (std::abs(seconds) >= limit)
        return seconds > 0 ? kCentury : -kCentury;
    return std::llround(seconds * 1e9);
}

Clock& Clock::current() {
    Clock* clock = currentClock.load(std::memory_order_acquire);
    return clock ? *clock : realClock();
}

void Clock::setCurrent(Clock* clock) { currentClock.store(clock, std::memory_order_release); }

void ManualClock::advanceTo(Nanoseconds time) {
    Nanoseconds now = m_now.load(std::memory_order_relaxed);
    while (time > now && !m_now.compare_exchange_weak(now, time, std::memory_order_relaxed)) {
    }
}

PacedClock::PacedClock(const Clock& source) : m_source(source), m_sourceStart(source.now()), m_start(m_sourceStart) {}

Nanoseconds PacedClock::now() const {
    const std::lock_guard lock(m_mutex);
    return m_start + (m_source.now() - m_sourceStart) / m_slowness;
}

int PacedClock::slowness() const {
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_slowness);
}

void PacedClock::setSlowness(int slowness) {
    const std::lock_guard lock(m_mutex);
    const Nanoseconds source = m_source.now();
    m_start += (source - m_sourceStart) / m_slowness;
    m_sourceStart = source;
    m_slowness = std::max(1, slowness);
}

Nanoseconds PacedClock::sourceTime(Nanoseconds time) const {
    const std::lock_guard lock(m_mutex);
    constexpr Nanoseconds kNever = std::numeric_limits<Nanoseconds>::max();
    const Nanoseconds span = time - m_start;
    // What is over need not be exact.
    if (span < 0)
        return m_sourceStart + span;
    if (span > (kNever - m_sourceStart) / m_slowness)
        return kNever;
    return m_sourceStart + span * m_slowness;
}

} // namespace zr
