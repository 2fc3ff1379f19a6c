#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace zr {

TEST(NSLog, GoesToStandardErrorALineEach) {
    testing::internal::CaptureStderr();
    NSLog("%d of %s", 7, "nine");
    NSLog("done");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "7 of nine\ndone\n");
}

TEST(NSLog, GoesToTheHandlerInstead) {
    testing::internal::CaptureStderr();
    {
        LogLines log;
        NSLog("100%% of %s", std::string(2000, 'x').c_str());
        ASSERT_EQ(log.lines.size(), 1u);
        EXPECT_EQ(log.lines[0], "100% of " + std::string(2000, 'x'));
    }
    NSLog("back");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "back\n");
}

TEST(NSLog, AHandlerMayLogAndSetAnother) {
    std::vector<std::string> lines;
    setLogHandler([&](std::string_view line) {
        lines.emplace_back(line);
        setLogHandler([&](std::string_view inner) { lines.push_back("inner " + std::string(inner)); });
        NSLog("again");
    });
    NSLog("first");
    setLogHandler(nullptr);
    EXPECT_EQ(lines, (std::vector<std::string>{"first", "inner again"}));
}

TEST(NSLog, ThreadsMayLogAtOnce) {
    std::mutex mutex;
    int count = 0;
    setLogHandler([&](std::string_view) {
        const std::lock_guard lock(mutex);
        ++count;
    });
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int k = 0; k < 200; ++k)
                NSLog("line %d", k);
        });
    }
    for (auto& thread : threads)
        thread.join();
    setLogHandler(nullptr);
    EXPECT_EQ(count, 800);
}

TEST(NSFoundationVersionNumber, IsThatOfEightPointFourUntilSet) {
    EXPECT_EQ(NSFoundationVersionNumber(), 1144.17);
    setFoundationVersionNumber(993.00);
    EXPECT_EQ(NSFoundationVersionNumber(), 993.00);
    setFoundationVersionNumber(1144.17);
}

} // namespace zr
