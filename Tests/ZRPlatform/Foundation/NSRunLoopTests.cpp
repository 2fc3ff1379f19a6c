#include <Tests/ZRPlatform/Foundation/ManualTime.h>
#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <latch>
#include <thread>

namespace zr {

namespace {

using NSRunLoopTest = ManualTime;

void timer(NSTimeInterval interval, std::function<void()> block) {
    NSTimer::scheduledTimerWithTimeInterval_repeats_block(interval, false,
                                                          [block = std::move(block)](NSTimer*) { block(); });
}

/// Notes the thread it is reached on.
class ThreadNoter : public NSObject {
public:
    void note(const NSValue& object) {
        thread = std::this_thread::get_id();
        isMain = NSThread::isMainThread();
        noted = object;
        reached.count_down();
    }

    std::latch reached{1};
    std::thread::id thread;
    bool isMain = false;
    NSValue noted;
};

} // namespace

TEST(NSRunLoop, TheMainThreadsIsTheMainOneAndOtherThreadsHaveTheirOwn) {
    NSRunLoop* mainLoop = NSRunLoop::mainRunLoop();
    EXPECT_EQ(NSRunLoop::currentRunLoop(), mainLoop);
    NSRunLoop *first = nullptr, *again = nullptr, *seenMain = nullptr;
    std::thread([&] {
        first = NSRunLoop::currentRunLoop();
        again = NSRunLoop::currentRunLoop();
        seenMain = NSRunLoop::mainRunLoop();
    }).join();
    EXPECT_EQ(first, again);
    EXPECT_NE(first, mainLoop);
    EXPECT_EQ(seenMain, mainLoop);
}

TEST_F(NSRunLoopTest, RunsBlocksInTheOrderTheyCameThenTimers) {
    std::string order;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    timer(0.1, [&] { order += 'c'; });
    loop->performBlock([&] { order += 'a'; });
    loop->performBlock([&] { order += 'b'; });
    loop->performBlock(nullptr);
    skip(0.1);
    EXPECT_TRUE(loop->runDue());
    EXPECT_EQ(order, "abc");
    EXPECT_FALSE(loop->runDue());
}

TEST_F(NSRunLoopTest, RunsWhatIsHandedOverWhileItRuns) {
    std::string order;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    loop->performBlock([&] {
        order += 'a';
        loop->performBlock([&] { order += 'b'; });
        loop->performBlock_afterDelay([&] { order += 'c'; }, 0);
    });
    loop->runDue();
    EXPECT_EQ(order, "abc");
}

TEST_F(NSRunLoopTest, AFloodFromAnotherThreadWaitsForTheNextTurn) {
    // Each block that runs makes another thread hand over one more, as a thread does that never rests.
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    int runs = 0;
    std::function<void()> another = [&] {
        ++runs;
        std::thread([&] { loop->performBlock(another); }).join();
    };
    another();
    for (int turn = 2; turn < 5; ++turn) {
        EXPECT_FALSE(loop->hasOwnWork());
        EXPECT_TRUE(loop->nextDueTime());
        EXPECT_TRUE(loop->runDue());
        EXPECT_EQ(runs, turn);
    }
    loop->removeAll();
}

TEST_F(NSRunLoopTest, WhatWaitsBeforeAnOwnBlockRunsWithIt) {
    std::string order;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    loop->performBlock([&] {
        order += 'a';
        std::thread([&] { loop->performBlock([&] { order += 'b'; }); }).join();
        loop->performBlock([&] { order += 'c'; });
        EXPECT_TRUE(loop->hasOwnWork());
    });
    loop->runDue();
    EXPECT_EQ(order, "abc");
    EXPECT_FALSE(loop->hasOwnWork());
}

TEST_F(NSRunLoopTest, ATimerThatIsDueIsOwnWork) {
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    timer(0.1, [] {});
    EXPECT_FALSE(loop->hasOwnWork());
    EXPECT_EQ(loop->nextTimerTime(), nanosecondsFromSeconds(0.1));
    skip(0.1);
    EXPECT_TRUE(loop->hasOwnWork());
}

TEST_F(NSRunLoopTest, MayBeRunByWhatItRuns) {
    std::string order;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    timer(0.1, [&] {
        order += 'a';
        loop->runDue();
        order += 'c';
    });
    timer(0.1, [&] { order += 'b'; });
    skip(0.1);
    loop->runDue();
    EXPECT_EQ(order, "abc");
}

TEST_F(NSRunLoopTest, ATimerWhoseTimeComesMeanwhileWaitsForTheNextTurn) {
    int beats = 0;
    NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.1, true, [&](NSTimer*) {
        ++beats;
        skip(0.1);
    });
    skip(0.1);
    EXPECT_TRUE(NSRunLoop::currentRunLoop()->runDue());
    EXPECT_EQ(beats, 1);
}

TEST_F(NSRunLoopTest, KnowsWhenTheNextThingIsDue) {
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    EXPECT_EQ(loop->nextDueTime(), std::nullopt);
    timer(0.5, [] {});
    timer(0.2, [] {});
    EXPECT_EQ(loop->nextDueTime(), nanosecondsFromSeconds(0.2));
    skip(0.1);
    loop->performBlock([] {});
    EXPECT_EQ(loop->nextDueTime(), nanosecondsFromSeconds(0.1));
}

TEST_F(NSRunLoopTest, ADelayedBlockRunsAtItsTime) {
    int runs = 0;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    loop->performBlock_afterDelay([&] { ++runs; }, 0.3);
    loop->performBlock_afterDelay(nullptr, 0.1);
    EXPECT_EQ(loop->nextDueTime(), nanosecondsFromSeconds(0.3));
    advance(0.2);
    EXPECT_EQ(runs, 0);
    advance(0.1);
    EXPECT_EQ(runs, 1);
}

TEST_F(NSRunLoopTest, RemoveAllDropsEverythingUnrun) {
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    const auto kept = make<NSObject>();
    bool hasRun = false;
    loop->performBlock([&, kept] { hasRun = true; });
    const auto repeating =
        NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.1, true, [&, kept](NSTimer*) { hasRun = true; });
    EXPECT_EQ(kept->retainCount(), 3u);
    loop->removeAll();
    EXPECT_EQ(kept->retainCount(), 1u);
    EXPECT_FALSE(repeating->isValid());
    advance(1);
    EXPECT_FALSE(hasRun);
}

TEST(NSRunLoop, TheWakeHandlerIsCalledOnTheThreadThatHandsOver) {
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    std::thread::id woken;
    int wakes = 0;
    loop->setWakeHandler([&] {
        woken = std::this_thread::get_id();
        ++wakes;
    });
    std::thread other([&] { loop->performBlock([] {}); });
    const auto expected = other.get_id();
    other.join();
    EXPECT_EQ(woken, expected);
    loop->performBlock_afterDelay([] {}, 10);
    EXPECT_EQ(wakes, 2);
    loop->setWakeHandler(nullptr);
    loop->performBlock([] {});
    EXPECT_EQ(wakes, 2);
    loop->removeAll();
}

TEST(NSRunLoop, AWakeHandlerMayHandOverAndTakeItselfAway) {
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    int runs = 0;
    loop->setWakeHandler([&, loop] {
        loop->setWakeHandler(nullptr);
        loop->performBlock([&] { ++runs; });
    });
    loop->performBlock([&] { ++runs; });
    loop->runDue();
    EXPECT_EQ(runs, 2);
}

TEST(NSRunLoop, WaitingEndsWhenAnotherThreadHandsOver) {
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    std::thread other([&] { loop->performBlock([] {}); });
    EXPECT_TRUE(loop->waitForWork(60));
    EXPECT_TRUE(loop->waitForWork(60)); // the block is still there
    other.join();
    EXPECT_TRUE(loop->runDue());
    EXPECT_FALSE(loop->waitForWork(0.001));
    std::thread later([&] { loop->performBlock_afterDelay([] {}, 60); });
    EXPECT_TRUE(loop->waitForWork(60));
    later.join();
    loop->removeAll();
    EXPECT_FALSE(loop->waitForWork(-1));
}

TEST(NSRunLoop, ManyThreadsHandOverAndEachKeepsItsOrder) {
    constexpr int kThreads = 4, kBlocks = 500;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    std::vector<int> last(kThreads, -1);
    int total = 0;
    bool isInOrder = true;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            for (int k = 0; k < kBlocks; ++k) {
                loop->performBlock([&, i, k] {
                    isInOrder = isInOrder && last[static_cast<std::size_t>(i)] == k - 1;
                    last[static_cast<std::size_t>(i)] = k;
                    ++total;
                });
            }
        });
    }
    while (total < kThreads * kBlocks) {
        ASSERT_TRUE(loop->waitForWork(60));
        loop->runDue();
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_TRUE(isInOrder);
}

TEST(NSRunLoop, RunUntilDateEndsWithNothingLeftToWaitFor) {
    int runs = 0;
    std::thread([&] {
        NSRunLoop* loop = NSRunLoop::currentRunLoop();
        loop->performBlock([&] { ++runs; });
        timer(0.002, [&] { ++runs; });
        loop->runUntilDate(NSDate::dateWithTimeIntervalSinceNow(600));
        EXPECT_EQ(loop->nextDueTime(), std::nullopt);
    }).join();
    EXPECT_EQ(runs, 2);
}

TEST(NSRunLoop, RunUntilDateEndsAtTheDate) {
    std::thread([] {
        NSRunLoop* loop = NSRunLoop::currentRunLoop();
        bool hasRun = false, isTooEarly = false;
        timer(600, [&] { isTooEarly = true; });
        loop->performBlock([&] { hasRun = true; });
        loop->runUntilDate(nullptr);
        EXPECT_TRUE(hasRun);
        const auto date = NSDate::dateWithTimeIntervalSinceNow(0.01);
        loop->runUntilDate(date);
        EXPECT_LE(date->timeIntervalSinceNow(), 0);
        EXPECT_FALSE(isTooEarly);
        EXPECT_TRUE(loop->nextDueTime());
        loop->removeAll();
    }).join();
}

TEST_F(NSRunLoopTest, RunUntilDateEndsThoughTheClockStandsStill) {
    bool hasRun = false;
    timer(0.001, [&] { hasRun = true; });
    NSRunLoop::currentRunLoop()->runUntilDate(NSDate::dateWithTimeIntervalSinceNow(0.005));
    EXPECT_FALSE(hasRun);
}

TEST(NSThread, KnowsTheMainThread) {
    EXPECT_TRUE(NSThread::isMainThread());
    bool isMain = true;
    std::thread([&] { isMain = NSThread::isMainThread(); }).join();
    EXPECT_FALSE(isMain);
}

TEST(NSThread, ADetachedThreadIsSentTheMessageAndKeepsTargetAndObject) {
    const auto noter = make<ThreadNoter>();
    NSThread::detachNewThreadSelector_toTarget_withObject(selector<&ThreadNoter::note>, noter, "object");
    noter->reached.wait();
    EXPECT_NE(noter->thread, std::this_thread::get_id());
    EXPECT_FALSE(noter->isMain);
    EXPECT_EQ(noter->noted.stringValue(), "object");
    NSThread::detachNewThreadSelector_toTarget_withObject(selector<&ThreadNoter::note>, nullptr, nullptr);
    NSThread::detachNewThreadSelector_toTarget_withObject(nullptr, noter, nullptr);
}

TEST(PerformOnMainThread, WithWaitFromTheMainThreadRunsAtOnce) {
    Recorder recorder;
    recorder.performSelectorOnMainThread_withObject_waitUntilDone(selector<&Recorder::with>, 1, true);
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"with 1"});
}

TEST(PerformOnMainThread, WithoutWaitRunsInALaterTurnEvenFromTheMainThread) {
    auto recorder = make<Recorder>();
    const Weak<Recorder> weak(recorder);
    std::size_t messages = 99;
    recorder->onDestruction = [&, object = recorder.get()] { messages = object->messages.size(); };
    recorder->performSelectorOnMainThread_withObject_waitUntilDone(selector<&Recorder::with>, 1, false);
    EXPECT_TRUE(recorder->messages.empty());
    recorder = nullptr;
    EXPECT_NE(weak.get(), nullptr);
    NSRunLoop::mainRunLoop()->runDue();
    EXPECT_EQ(messages, 1u);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST(PerformOnMainThread, WithWaitFromAnotherThreadReturnsWhenItHasRun) {
    const auto noter = make<ThreadNoter>();
    std::atomic<bool> hasReturned{false};
    std::thread worker([&] {
        noter->performSelectorOnMainThread_withObject_waitUntilDone(selector<&ThreadNoter::note>, 5, true);
        EXPECT_TRUE(noter->isMain);
        EXPECT_EQ(noter->noted.intValue(), 5);
        hasReturned = true;
    });
    ASSERT_TRUE(NSRunLoop::mainRunLoop()->waitForWork(60));
    EXPECT_FALSE(hasReturned);
    NSRunLoop::mainRunLoop()->runDue();
    worker.join();
    EXPECT_TRUE(hasReturned);
}

TEST(PerformOnMainThread, TheWaitEndsWhenTheMessageIsDropped) {
    const auto noter = make<ThreadNoter>();
    std::thread worker(
        [&] { noter->performSelectorOnMainThread_withObject_waitUntilDone(selector<&ThreadNoter::note>, 5, true); });
    ASSERT_TRUE(NSRunLoop::mainRunLoop()->waitForWork(60));
    NSRunLoop::mainRunLoop()->removeAll();
    worker.join();
    EXPECT_TRUE(noter->noted.isNil());
}

} // namespace zr
