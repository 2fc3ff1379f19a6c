#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Foundation/NSDate.h>
#include <ZRPlatform/Foundation/NSTimer.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// A thread's list of things to do: blocks handed over by any thread, and timers. The host runs the main thread's;
/// another thread runs its own with `runUntilDate`.
class NSRunLoop : public NSObject {
public:
    /// The main thread's, from any thread.
    static NSRunLoop* mainRunLoop();
    /// This thread's own, made on first use.
    static NSRunLoop* currentRunLoop();

    /// The timer is kept until it has fired for the last time, and fires on the thread of this run loop. A timer that
    /// is not valid, or on a run loop already, is ignored.
    void addTimer(NSTimer* timer);
    /// It fires no more; one that is not here is ignored.
    void removeTimer(NSTimer* timer);
    /// Hands `block` over, from any thread; it runs in a later step of this loop. Wakes the loop.
    void performBlock(std::function<void()> block);
    /// The same, `delay` seconds from now on the current clock; at once due when the delay is not above 0, but after
    /// the blocks that wait already.
    void performBlock_afterDelay(std::function<void()> block, NSTimeInterval delay);
    /// Drops the pending delayed performs of `target`; with a selector, only those of it with an equal argument.
    void cancelPerformRequests(const NSObject* target, SEL selector, const NSValue& argument);

    /// The host's side: runs everything that is due now, in order (blocks in the order they came, then timers by fire
    /// time and by age). What this hands over meanwhile, on the loop's own thread, is run too. What other threads hand
    /// over meanwhile waits for the next call, as does a timer whose time comes only while this runs: so a flood of
    /// them does not keep the host from its frames. Returns whether anything ran.
    bool runDue();
    /// Whether `runDue` would run anything that was not handed over by another thread since its last call.
    bool hasOwnWork() const;
    /// When the next timer is due; the present when a block waits; nothing when there is nothing to wait for.
    std::optional<Nanoseconds> nextDueTime() const;
    /// When the next timer is due, whatever blocks wait.
    std::optional<Nanoseconds> nextTimerTime() const;
    /// Called, on the thread that hands something over, when the loop has new work. May be empty. Once this returns,
    /// the handler set before is not running on any other thread.
    void setWakeHandler(std::function<void()> handler);
    /// Sleeps, in real time, until another thread hands something over or the time is up; false when the time is up.
    /// Returns at once when a block waits.
    bool waitForWork(NSTimeInterval seconds);
    /// Runs this loop on its own thread until nothing is left to wait for, or as much real time has passed as there is
    /// left to the date when it is called. A nil date runs what is due now.
    void runUntilDate(NSDate* date);
    /// Drops every block and timer, unrun; the timers are invalidated.
    void removeAll();

private:
    bool runNextBlock();
    bool runNextTimer(Nanoseconds now);
    bool isOfThisThread() const;
    void wake();

    mutable std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_hasNewTimer = false;       // from another thread, which `waitForWork` has not seen
    std::recursive_mutex m_wakeMutex; // recursive, as a wake handler may hand something over
    std::function<void()> m_wakeHandler;
    std::deque<std::function<void()>> m_blocks;
    std::size_t m_blocksToRun = 0; // of those in front, by the present or last `runDue`
    std::vector<Ref<NSTimer>> m_timers;
};

} // namespace zr
#pragma GCC visibility pop
