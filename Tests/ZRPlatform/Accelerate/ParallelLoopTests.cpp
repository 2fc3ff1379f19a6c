#include <ZRPlatform/Accelerate/Internal/ParallelLoop.h>

#include <ZRPlatform/Dispatch/Dispatch.h>

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace zr::detail {

TEST(ParallelLoop, CallsForEveryIndexOnceAndReturnsWhenAllAreDone) {
    for (const bool isLarge : {false, true}) {
        for (const std::size_t count : {0u, 1u, 2u, 3u, 1000u}) {
            std::vector<std::atomic<int>> calls(count);
            parallelLoop(count, isLarge, [&](std::size_t index) { ++calls[index]; });
            for (std::size_t i = 0; i < count; ++i)
                ASSERT_EQ(calls[i], 1) << i << " of " << count;
        }
    }
}

TEST(ParallelLoop, ASmallOneStaysOnTheCallingThread) {
    parallelLoop(100, false,
                 [caller = std::this_thread::get_id()](std::size_t) { ASSERT_EQ(std::this_thread::get_id(), caller); });
}

TEST(ParallelLoop, ALargeOneIsSharedOut) {
    // As many as there are processors, that wait for one another, cannot be on fewer threads.
    const unsigned processors = std::max(1u, std::thread::hardware_concurrency());
    std::atomic<unsigned> arrived = 0;
    parallelLoop(processors, true, [&](std::size_t) {
        ++arrived;
        while (arrived < processors)
            std::this_thread::yield();
    });
    EXPECT_EQ(arrived, processors);
}

TEST(ParallelLoop, MayBeNestedAndUsedOnWorkersThemselves) {
    std::atomic<int> calls = 0;
    dispatch_sync(dispatch_get_global_queue(DISPATCH_QUEUE_PRIORITY_DEFAULT, 0), [&] {
        parallelLoop(20, true, [&](std::size_t) { parallelLoop(20, true, [&](std::size_t) { ++calls; }); });
    });
    EXPECT_EQ(calls, 400);
}

} // namespace zr::detail
