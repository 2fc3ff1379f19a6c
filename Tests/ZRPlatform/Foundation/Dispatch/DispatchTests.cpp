#include <Tests/ZRPlatform/Foundation/ManualTime.h>
#include <ZRPlatform/Dispatch/Dispatch.h>

#include <barrier>
#include <latch>
#include <set>
#include <thread>

namespace zr {

namespace {

using DispatchAfter = ManualTime;

constexpr long kPriorities[] = {DISPATCH_QUEUE_PRIORITY_HIGH, DISPATCH_QUEUE_PRIORITY_DEFAULT,
                                DISPATCH_QUEUE_PRIORITY_LOW, DISPATCH_QUEUE_PRIORITY_BACKGROUND};

dispatch_queue_t defaultQueue() { return dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_DEFAULT, 0); }

/// Runs the main run loop until `isDone`.
void runMainLoopUntil(const std::function<bool()>& isDone) {
    NSRunLoop* loop = NSRunLoop::mainRunLoop();
    loop->runDue();
    while (!isDone() && loop->waitForWork(60))
        loop->runDue();
    ASSERT_TRUE(isDone());
}

} // namespace

TEST(Dispatch, GlobalQueuesRunBlocksOnWorkerThreads) {
    for (const long priority : kPriorities) {
        std::latch done(1);
        std::atomic<bool> isMain{true};
        dispatch_async(dispatch_get_global_queue(priority, 0), [&] {
            isMain = NSThread::isMainThread();
            done.count_down();
        });
        done.wait();
        EXPECT_FALSE(isMain);
    }
}

TEST(Dispatch, GlobalQueuesAreDistinctAndUnknownOnesNil) {
    std::set<dispatch_queue_t> queues;
    for (const long priority : kPriorities) {
        queues.insert(dispatch_get_global_queue(priority, 0));
        EXPECT_EQ(dispatch_get_global_queue(priority, 0), dispatch_get_global_queue(priority, 0));
    }
    EXPECT_EQ(queues.size(), 4u);
    EXPECT_EQ(queues.count(nullptr), 0u);
    EXPECT_EQ(dispatch_get_global_queue(7, 0), nullptr);
}

TEST(Dispatch, BlocksOfAGlobalQueueRunSeveralAtATime) {
    constexpr int kBlocks = 8;
    std::barrier together(kBlocks); // which none passes unless all are running
    std::latch done(kBlocks);
    for (int i = 0; i < kBlocks; ++i) {
        dispatch_async(defaultQueue(), [&] {
            together.arrive_and_wait();
            done.count_down();
        });
    }
    done.wait();
}

TEST(Dispatch, EveryBlockRunsOnce) {
    constexpr int kBlocks = 2000;
    std::atomic<int> runs{0};
    std::latch done(kBlocks);
    for (int i = 0; i < kBlocks; ++i) {
        dispatch_async(dispatch_get_global_queue(kPriorities[i % 4], 0), [&] {
            ++runs;
            done.count_down();
        });
    }
    done.wait();
    EXPECT_EQ(runs, kBlocks);
}

TEST(Dispatch, ASerialQueueRunsOneBlockAtATimeInOrder) {
    constexpr int kBlocks = 1000;
    const auto queue = dispatch_queue_create("serial");
    EXPECT_EQ(queue->label(), "serial");
    std::vector<int> order; // written by the blocks alone, without a lock
    std::latch done(1);
    for (int i = 0; i < kBlocks; ++i)
        dispatch_async(queue, [&, i] { order.push_back(i); });
    dispatch_async(queue, [&] { done.count_down(); });
    done.wait();
    ASSERT_EQ(order.size(), static_cast<std::size_t>(kBlocks));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(Dispatch, SyncOnASerialQueueWaitsForWhatCameBefore) {
    const auto queue = dispatch_queue_create(nullptr);
    EXPECT_TRUE(queue->label().isNil());
    for (int round = 0; round < 100; ++round) {
        std::string order;
        dispatch_async(queue, [&] { order += 'a'; });
        dispatch_async(queue, [&] { order += 'b'; });
        dispatch_sync(queue, [&] { order += 'c'; });
        ASSERT_EQ(order, "abc");
    }
}

TEST(Dispatch, SyncFromManyThreadsExcludesOneAnother) {
    const auto queue = dispatch_queue_create("counter");
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 200; ++k) {
                dispatch_sync(queue, [&] { ++count; });
                dispatch_async(queue, [&] { ++count; });
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    dispatch_sync(queue, [&] { EXPECT_EQ(count, 1600); });
}

TEST(Dispatch, SyncOnTheQueueThatIsCallingRunsAtOnce) {
    const auto queue = dispatch_queue_create("nested");
    std::string order;
    dispatch_sync(queue, [&] {
        order += 'a';
        dispatch_sync(queue, [&] { order += 'b'; });
        order += 'c';
    });
    EXPECT_EQ(order, "abc");
}

TEST(Dispatch, AQueueLivesUntilItsBlocksHaveRun) {
    std::latch mayRun(1), done(1);
    auto queue = dispatch_queue_create("short-lived");
    dispatch_async(queue, [&] { mayRun.wait(); });
    dispatch_async(queue, [&] { done.count_down(); });
    queue = nullptr;
    mayRun.count_down();
    done.wait();
}

TEST(Dispatch, SyncOnAGlobalQueueReturnsWhenTheBlockHasRun) {
    bool hasRun = false;
    dispatch_sync(defaultQueue(), [&] { hasRun = true; });
    EXPECT_TRUE(hasRun);
}

TEST(Dispatch, TheMainQueueRunsBlocksInLaterTurnsOfTheMainRunLoop) {
    std::string order;
    dispatch_async(dispatch_get_main_queue(), [&] { order += NSThread::isMainThread() ? 'b' : '?'; });
    dispatch_async(dispatch_get_main_queue(), [&] { order += 'c'; });
    order += 'a';
    NSRunLoop::mainRunLoop()->runDue();
    EXPECT_EQ(order, "abc");
}

TEST(Dispatch, SyncOnTheMainQueueFromTheMainThreadRunsAtOnce) {
    bool hasRun = false;
    dispatch_sync(dispatch_get_main_queue(), [&] { hasRun = true; });
    EXPECT_TRUE(hasRun);
}

TEST(Dispatch, SyncOnTheMainQueueFromAWorkerWaits) {
    int step = 0; // handed to and fro without a lock of its own
    bool isDone = false;
    dispatch_async(defaultQueue(), [&] {
        step = 1;
        dispatch_sync(dispatch_get_main_queue(), [&] { step = NSThread::isMainThread() && step == 1 ? 2 : -1; });
        step = step == 2 ? 3 : -1;
        dispatch_async(dispatch_get_main_queue(), [&] { isDone = true; });
    });
    runMainLoopUntil([&] { return isDone; });
    EXPECT_EQ(step, 3);
}

TEST(Dispatch, SyncEndsWhenTheBlockIsDropped) {
    bool hasRun = false;
    std::thread worker([&] { dispatch_sync(dispatch_get_main_queue(), [&] { hasRun = true; }); });
    ASSERT_TRUE(NSRunLoop::mainRunLoop()->waitForWork(60));
    NSRunLoop::mainRunLoop()->removeAll();
    worker.join();
    EXPECT_FALSE(hasRun);
}

TEST_F(DispatchAfter, RunsAtItsTimeOnTheCurrentClock) {
    std::vector<double> times;
    const auto note = [&] { times.push_back(secondsFromNanoseconds(now())); };
    dispatch_after(0.3, dispatch_get_main_queue(), note);
    dispatch_after(0.1, dispatch_get_main_queue(), note);
    dispatch_after(-1, dispatch_get_main_queue(), note);
    EXPECT_TRUE(times.empty());
    advance(1);
    EXPECT_EQ(times, (std::vector<double>{0, 0.1, 0.3}));
}

TEST_F(DispatchAfter, HandsOverToTheQueueAndKeepsItUntilThen) {
    std::latch done(1);
    std::atomic<bool> isMain{true};
    auto queue = dispatch_queue_create("later");
    const Weak<DispatchQueue> weak(queue);
    dispatch_after(0.2, queue, [&] {
        isMain = NSThread::isMainThread();
        done.count_down();
    });
    queue = nullptr;
    EXPECT_TRUE(weak.lock());
    advance(0.2);
    done.wait();
    EXPECT_FALSE(isMain);
}

TEST_F(DispatchAfter, MayBeAskedForByAnyThread) {
    int runs = 0;
    std::thread([&] { dispatch_after(0.1, dispatch_get_main_queue(), [&] { ++runs; }); }).join();
    EXPECT_EQ(NSRunLoop::mainRunLoop()->nextDueTime(), nanosecondsFromSeconds(0.1));
    advance(0.1);
    EXPECT_EQ(runs, 1);
}

TEST_F(DispatchAfter, NilQueuesAndEmptyBlocksAreIgnored) {
    dispatch_after(0, nullptr, [] {});
    dispatch_after(0, dispatch_get_main_queue(), nullptr);
    dispatch_async(nullptr, [] {});
    dispatch_async(dispatch_get_main_queue(), nullptr);
    dispatch_sync(nullptr, [] { ADD_FAILURE(); });
    dispatch_sync(dispatch_get_main_queue(), nullptr);
    dispatch_async(defaultQueue(), nullptr);
    EXPECT_EQ(NSRunLoop::mainRunLoop()->nextDueTime(), std::nullopt);
}

TEST(DispatchOnce, RunsTheFirstTimeOnlyAndEverybodyReturnsAfterwards) {
    dispatch_once_t once;
    int runs = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            dispatch_once(&once, [&] { ++runs; });
            EXPECT_EQ(runs, 1);
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(runs, 1);
    dispatch_once(nullptr, [&] { ++runs; });
    dispatch_once_t unused;
    dispatch_once(&unused, nullptr);
    EXPECT_EQ(runs, 1);
}

} // namespace zr
