#pragma once

#include <ZRPlatform/Foundation/NSObject.h>

#include <condition_variable>
#include <mutex>

namespace zr::gallery {

/// Lets a task on another thread take one short step at a time, as the main thread says. So the task's progress follows
/// the main thread's clock, be it real or manual, and the task sleeps in one place only, where it can be woken to end.
class TaskPace : public NSObject {
public:
    /// @name On the task's thread
    /// @{
    /// Sleeps until the next step may be taken. False when the task is to end instead.
    bool waitForStep();
    /// Said once, when nothing of the task is left to do.
    void leave();
    /// @}

    /// @name On the main thread
    /// @{
    /// Lets the task take a step, and returns when it has taken it.
    void step();
    /// Makes the task end, and returns when it has left.
    void end();
    /// @}

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_steps = 0; // that may be taken
    bool m_isWaiting = false;
    bool m_isEnding = false;
    bool m_hasLeft = false;
};

} // namespace zr::gallery
