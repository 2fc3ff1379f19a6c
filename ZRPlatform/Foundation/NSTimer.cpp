#include <ZRPlatform/Foundation/NSTimer.h>

#include <ZRPlatform/Foundation/NSRunLoop.h>

namespace zr {

namespace {

/// What an interval that is not above 0 stands for.
constexpr NSTimeInterval kShortestInterval = 0.0001;

Nanoseconds timerInterval(NSTimeInterval interval) {
    return nanosecondsFromSeconds(interval > 0 ? std::max(interval, 1e-9) : kShortestInterval);
}

std::atomic<std::uint64_t> lastAge{0};

} // namespace

Ref<NSTimer> NSTimer::timerAfter(Nanoseconds interval) {
    auto timer = make<NSTimer>();
    timer->m_interval = interval;
    timer->m_fireTime = Clock::current().now() + interval;
    timer->m_age = lastAge.fetch_add(1, std::memory_order_relaxed);
    return timer;
}

Ref<NSTimer> NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(NSTimeInterval interval,
                                                                                      NSObject* target, SEL selector,
                                                                                      const NSValue& userInfo,
                                                                                      bool repeats) {
    auto timer = timerAfter(timerInterval(interval));
    timer->m_repeats = repeats;
    timer->m_target = target;
    timer->m_selector = selector;
    timer->m_userInfo = userInfo;
    NSRunLoop::currentRunLoop()->addTimer(timer);
    return timer;
}

Ref<NSTimer> NSTimer::scheduledTimerWithTimeInterval_repeats_block(NSTimeInterval interval, bool repeats,
                                                                   std::function<void(NSTimer*)> block) {
    auto timer = timerAfter(timerInterval(interval));
    timer->m_repeats = repeats;
    if (block)
        timer->m_block = std::make_shared<std::function<void(NSTimer*)>>(std::move(block));
    NSRunLoop::currentRunLoop()->addTimer(timer);
    return timer;
}

void NSTimer::fire() {
    if (!m_valid)
        return;
    const Ref<NSTimer> keptAlive(this);
    if (const auto block = m_block) {
        (*block)(this);
    } else {
        const NSValue arguments[] = {m_isDelayedPerform ? m_userInfo : NSValue(this)};
        m_selector.send(m_target, arguments);
    }
    if (!m_repeats)
        invalidate();
}

void NSTimer::skipToBeatAfter(Nanoseconds now) {
    if (m_fireTime <= now)
        m_fireTime += ((now - m_fireTime) / m_interval + 1) * m_interval;
}

void NSTimer::invalidate() {
    if (!m_valid)
        return;
    const Ref<NSTimer> keptAlive(this);
    m_valid = false;
    if (const Ref<NSRunLoop> runLoop = m_runLoop.lock())
        runLoop->removeTimer(this);
    // Out of the members first: what they let go of may ask for this timer again.
    const Ref<NSObject> target = std::move(m_target);
    const NSValue userInfo = std::exchange(m_userInfo, nullptr);
    const auto block = std::exchange(m_block, nullptr);
}

} // namespace zr
