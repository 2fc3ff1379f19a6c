#include <ZRPlatform/Foundation/NSRunLoop.h>

#include <ZRPlatform/Foundation/NSThread.h>

#include <algorithm>
#include <chrono>
#include <tuple>

namespace zr {

namespace {

thread_local Ref<NSRunLoop> loopOfThisThread;

} // namespace

NSRunLoop* NSRunLoop::mainRunLoop() {
    static NSRunLoop* const loop = make<NSRunLoop>().leak(); // never destroyed: other threads hand over until the end
    return loop;
}

NSRunLoop* NSRunLoop::currentRunLoop() {
    if (NSThread::isMainThread())
        return mainRunLoop();
    if (!loopOfThisThread)
        loopOfThisThread = make<NSRunLoop>();
    return loopOfThisThread;
}

void NSRunLoop::addTimer(NSTimer* timer) {
    if (!timer || !timer->isValid() || timer->m_runLoop)
        return;
    timer->m_runLoop = this;
    {
        const std::lock_guard lock(m_mutex);
        m_timers.emplace_back(timer);
        m_hasNewTimer = m_hasNewTimer || !isOfThisThread();
    }
    wake();
}

void NSRunLoop::removeTimer(NSTimer* timer) {
    Ref<NSTimer> removed; // let go of outside the lock
    const std::lock_guard lock(m_mutex);
    const auto place = std::ranges::find(m_timers, timer, &Ref<NSTimer>::get);
    if (place == m_timers.end())
        return;
    removed = std::move(*place);
    m_timers.erase(place);
    removed->m_runLoop = nullptr;
}

void NSRunLoop::performBlock(std::function<void()> block) {
    if (!block)
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_blocks.push_back(std::move(block));
        if (isOfThisThread())
            m_blocksToRun = m_blocks.size();
    }
    wake();
}

void NSRunLoop::performBlock_afterDelay(std::function<void()> block, NSTimeInterval delay) {
    if (!block)
        return;
    auto timer = NSTimer::timerAfter(std::max<Nanoseconds>(nanosecondsFromSeconds(delay), 0));
    timer->m_block = std::make_shared<std::function<void(NSTimer*)>>([block = std::move(block)](NSTimer*) { block(); });
    addTimer(timer);
}

void NSRunLoop::cancelPerformRequests(const NSObject* target, SEL selector, const NSValue& argument) {
    std::vector<Ref<NSTimer>> cancelled;
    {
        const std::lock_guard lock(m_mutex);
        cancelled = m_timers;
    }
    // Compared outside the lock: `isEqual` is anybody's.
    std::erase_if(cancelled, [&](const Ref<NSTimer>& timer) {
        const bool isMeant = timer->m_isDelayedPerform && timer->m_target.get() == target &&
                             (!selector || (timer->m_selector == selector && timer->m_userInfo.isEqual(argument)));
        return !isMeant;
    });
    for (const Ref<NSTimer>& timer : cancelled)
        timer->invalidate();
}

bool NSRunLoop::runDue() {
    // The time is read once, so that a timer whose work takes as long as its interval cannot hold the loop forever.
    const Nanoseconds now = Clock::current().now();
    {
        const std::lock_guard lock(m_mutex);
        m_hasNewTimer = false; // it is seen from here on
        m_blocksToRun = m_blocks.size();
    }
    bool hasRun = false;
    while (runNextBlock() || runNextTimer(now))
        hasRun = true;
    return hasRun;
}

bool NSRunLoop::runNextBlock() {
    std::function<void()> block;
    {
        const std::lock_guard lock(m_mutex);
        if (m_blocksToRun == 0)
            return false;
        block = std::move(m_blocks.front());
        m_blocks.pop_front();
        --m_blocksToRun;
    }
    block();
    return true;
}

bool NSRunLoop::runNextTimer(Nanoseconds now) {
    Ref<NSTimer> timer;
    {
        const std::lock_guard lock(m_mutex);
        const auto next = std::ranges::min_element(
            m_timers, {}, [](const Ref<NSTimer>& each) { return std::tuple(each->m_fireTime, each->m_age); });
        if (next == m_timers.end() || (*next)->m_fireTime > now)
            return false;
        timer = *next;
        if (timer->m_repeats)
            timer->skipToBeatAfter(std::max(now, Clock::current().now()));
    }
    if (!timer->m_repeats)
        removeTimer(timer); // before it fires, as it may run this loop
    timer->fire();
    return true;
}

bool NSRunLoop::hasOwnWork() const {
    {
        const std::lock_guard lock(m_mutex);
        if (m_blocksToRun > 0)
            return true;
    }
    const std::optional<Nanoseconds> timer = nextTimerTime();
    return timer && *timer <= Clock::current().now();
}

std::optional<Nanoseconds> NSRunLoop::nextDueTime() const {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_blocks.empty())
            return Clock::current().now();
    }
    return nextTimerTime();
}

std::optional<Nanoseconds> NSRunLoop::nextTimerTime() const {
    const std::lock_guard lock(m_mutex);
    if (m_timers.empty())
        return std::nullopt;
    return (*std::ranges::min_element(m_timers, {}, &NSTimer::m_fireTime))->m_fireTime;
}

void NSRunLoop::setWakeHandler(std::function<void()> handler) {
    const std::lock_guard lock(m_wakeMutex);
    m_wakeHandler = std::move(handler);
}

bool NSRunLoop::isOfThisThread() const {
    return this == (NSThread::isMainThread() ? mainRunLoop() : loopOfThisThread.get());
}

void NSRunLoop::wake() {
    m_condition.notify_all();
    const std::lock_guard lock(m_wakeMutex);
    if (const auto handler = m_wakeHandler) // a copy, as it may set another
        handler();
}

bool NSRunLoop::waitForWork(NSTimeInterval seconds) {
    const std::chrono::nanoseconds time(std::max<Nanoseconds>(nanosecondsFromSeconds(seconds), 0));
    std::unique_lock lock(m_mutex);
    const bool hasWork = m_condition.wait_for(lock, time, [this] { return m_hasNewTimer || !m_blocks.empty(); });
    m_hasNewTimer = false;
    return hasWork;
}

void NSRunLoop::runUntilDate(NSDate* date) {
    using RealTime = std::chrono::steady_clock;
    const Nanoseconds left = date ? nanosecondsFromSeconds(date->timeIntervalSinceNow()) : 0;
    const auto deadline = RealTime::now() + std::chrono::nanoseconds(left);
    for (;;) {
        runDue();
        const std::optional<Nanoseconds> next = nextDueTime();
        const auto now = RealTime::now();
        if (!next || now >= deadline)
            return;
        const Nanoseconds untilDeadline = std::chrono::nanoseconds(deadline - now).count();
        waitForWork(secondsFromNanoseconds(std::min(untilDeadline, *next - Clock::current().now())));
    }
}

void NSRunLoop::removeAll() {
    std::deque<std::function<void()>> blocks;
    std::vector<Ref<NSTimer>> timers;
    {
        const std::lock_guard lock(m_mutex);
        blocks.swap(m_blocks);
        m_blocksToRun = 0;
        timers.swap(m_timers);
        m_hasNewTimer = false;
    }
    for (const Ref<NSTimer>& timer : timers)
        timer->invalidate();
}

} // namespace zr
