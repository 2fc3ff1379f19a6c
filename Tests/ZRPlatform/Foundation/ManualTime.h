#pragma once

#include <ZRPlatform/Foundation/Foundation.h>

#include <gtest/gtest.h>

namespace zr {

/// A test whose clock stands still until `advance`, on an empty run loop.
class ManualTime : public testing::Test {
protected:
    ManualTime() { Clock::setCurrent(&m_clock); }
    ~ManualTime() override {
        NSRunLoop::currentRunLoop()->removeAll();
        Clock::setCurrent(nullptr);
    }

    Nanoseconds now() const { return m_clock.now(); }

    /// Goes from one due time to the next, and runs what is due at each.
    void advance(NSTimeInterval seconds) {
        const Nanoseconds end = now() + nanosecondsFromSeconds(seconds);
        NSRunLoop* loop = NSRunLoop::currentRunLoop();
        for (auto next = loop->nextDueTime(); next && *next <= end; next = loop->nextDueTime()) {
            m_clock.advanceTo(*next);
            loop->runDue();
        }
        m_clock.advanceTo(end);
    }

    /// Lets time pass without running anything.
    void skip(NSTimeInterval seconds) { m_clock.advanceTo(now() + nanosecondsFromSeconds(seconds)); }

private:
    ManualClock m_clock;
};

} // namespace zr
