#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <ZRPlatform/Foundation/NSThread.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace zr;
using namespace zr::testing;

namespace {

using ZRProgressHUDTask = HUDTest;

/// A door that a task waits at until the test opens it.
class Gate {
public:
    void open() {
        const std::lock_guard lock(m_mutex);
        m_open = true;
        m_changed.notify_all();
    }
    void pass() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_open; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_open = false;
};

/// Work to be done by a message.
class Worker : public NSObject {
public:
    void work(const NSValue& object) {
        onMainThread = NSThread::isMainThread();
        received = object.stringValue();
        gate.pass();
        finished = true;
    }

    Gate gate;
    std::atomic<bool> onMainThread{true};
    std::atomic<bool> finished{false};
    NSString received;
};

} // namespace

// By a message on a thread of its own

TEST_F(ZRProgressHUDTask, AMessageIsSentOnAThreadOfItsOwnWhileTheHUDShows) {
    HUDDelegate delegate;
    const auto worker = make<Worker>();
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->showWhileExecuting_onTarget_withObject_animated(selector<&Worker::work>, worker, "the object", false);
    EXPECT_TRUE(hud->taskInProgress());
    EXPECT_EQ(hud->alpha(), 1);
    EXPECT_FALSE(worker->finished);
    worker->gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return delegate.count == 1; }));
    EXPECT_TRUE(worker->finished);
    EXPECT_FALSE(worker->onMainThread);
    EXPECT_EQ(worker->received, "the object");
    EXPECT_FALSE(hud->taskInProgress());
    EXPECT_EQ(hud->alpha(), 0);
}

TEST_F(ZRProgressHUDTask, TargetAndObjectAreKeptUntilTheTaskIsOver) {
    auto worker = make<Worker>();
    auto object = make<NSObject>();
    const Weak<Worker> weakWorker = worker;
    const Weak<NSObject> weakObject = object;
    const auto hud = addHUD();
    hud->showWhileExecuting_onTarget_withObject_animated(selector<&Worker::work>, worker, object, false);
    Gate& gate = worker->gate;
    worker = nullptr;
    object = nullptr;
    EXPECT_NE(weakWorker, nullptr);
    EXPECT_NE(weakObject, nullptr);
    gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    ASSERT_TRUE(host.waitUntil([&] { return weakWorker == nullptr; }));
    EXPECT_EQ(weakObject, nullptr);
}

TEST_F(ZRProgressHUDTask, TheHideIsAnimatedAsTheShowWas) {
    const auto worker = make<Worker>();
    const auto hud = addHUD();
    worker->gate.open();
    hud->showWhileExecuting_onTarget_withObject_animated(selector<&Worker::work>, worker, nullptr, true);
    EXPECT_EQ(seenAlpha(hud), 0);
    ASSERT_TRUE(host.waitUntil([&] { return !hud->taskInProgress(); }));
    EXPECT_FALSE(hud->isFinished());
    host.advance(0.3);
    EXPECT_TRUE(hud->isFinished());
}

TEST_F(ZRProgressHUDTask, AMessageToNobodyIsOverAtOnce) {
    const auto hud = addHUD();
    hud->showWhileExecuting_onTarget_withObject_animated(selector<&Worker::work>, nullptr, nullptr, false);
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    hud->showWhileExecuting_onTarget_withObject_animated(nullptr, make<Worker>(), nullptr, false);
    EXPECT_TRUE(hud->taskInProgress());
    ASSERT_TRUE(host.waitUntil([&] { return !hud->taskInProgress(); }));
}

TEST_F(ZRProgressHUDTask, TheHUDLivesAsLongAsItsTask) {
    const auto worker = make<Worker>();
    auto hud = make<ZRProgressHUD>();
    const Weak<ZRProgressHUD> weak = hud;
    hud->showWhileExecuting_onTarget_withObject_animated(selector<&Worker::work>, worker, nullptr, false);
    hud = nullptr;
    EXPECT_NE(weak, nullptr);
    worker->gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return weak == nullptr; }));
}

TEST_F(ZRProgressHUDTask, TargetAndObjectAreLetGoBeforeTheHUDHides) {
    class IdleHUD : public ZRProgressHUD {
    public:
        void launchExecution() override {}
    };
    const auto hud = make<IdleHUD>();
    auto worker = make<Worker>();
    auto object = make<NSObject>();
    const Weak<Worker> weakWorker = worker;
    const Weak<NSObject> weakObject = object;
    hud->showWhileExecuting_onTarget_withObject_animated(selector<&Worker::work>, worker, object, false);
    worker = nullptr;
    object = nullptr;
    ASSERT_NE(weakWorker, nullptr);
    bool wereGone = false;
    hud->setCompletionBlock(
        [&] { wereGone = weakWorker == nullptr && weakObject == nullptr && !hud->taskInProgress(); });
    hud->cleanUp();
    EXPECT_TRUE(wereGone);
}

// By a block on a queue

TEST_F(ZRProgressHUDTask, ABlockRunsOnAWorkerThreadAndTheCompletionOnTheMainOne) {
    Gate gate;
    std::atomic<bool> blockOnMainThread{true};
    bool completed = false;
    const auto hud = addHUD();
    hud->showAnimated_whileExecutingBlock_completionBlock(
        false,
        [&] {
            blockOnMainThread = NSThread::isMainThread();
            gate.pass();
        },
        [&] {
            completed = NSThread::isMainThread();
            EXPECT_FALSE(hud->taskInProgress());
            EXPECT_EQ(hud->alpha(), 0);
        });
    EXPECT_TRUE(hud->taskInProgress());
    EXPECT_TRUE(hud->completionBlock());
    EXPECT_EQ(hud->alpha(), 1);
    gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    EXPECT_TRUE(completed);
    EXPECT_FALSE(blockOnMainThread);
    EXPECT_FALSE(hud->completionBlock());
}

TEST_F(ZRProgressHUDTask, ABlockRunsOnTheQueueThatIsGiven) {
    const Ref<DispatchQueue> queue = dispatch_queue_create("tasks");
    std::vector<int> order;
    Gate gate;
    dispatch_async(queue, [&] {
        gate.pass();
        order.push_back(1);
    });
    const auto hud = addHUD();
    hud->showAnimated_whileExecutingBlock_onQueue(
        false, [&] { order.push_back(2); }, queue);
    EXPECT_FALSE(hud->completionBlock());
    gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    EXPECT_EQ(order, (std::vector<int>{1, 2})); // a serial queue keeps the order
}

TEST_F(ZRProgressHUDTask, OnTheMainQueueABlockRunsInTheNextTurn) {
    std::vector<std::string> order;
    const auto hud = addHUD();
    hud->showAnimated_whileExecutingBlock_onQueue_completionBlock(
        false, [&] { order.push_back("block"); }, dispatch_get_main_queue(), [&] { order.push_back("completion"); });
    EXPECT_TRUE(order.empty());
    EXPECT_EQ(hud->alpha(), 1);
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    EXPECT_EQ(order, (std::vector<std::string>{"block", "completion"}));
}

TEST_F(ZRProgressHUDTask, ABlockAloneShowsAndHides) {
    std::atomic<int> runs{0};
    const auto hud = addHUD();
    hud->setCompletionBlock([] { FAIL() << "replaced by none"; });
    hud->showAnimated_whileExecutingBlock(false, [&] { ++runs; });
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    EXPECT_EQ(runs, 1);
}

TEST_F(ZRProgressHUDTask, NoBlockAndNoQueueAreATaskThatIsOver) {
    const auto hud = addHUD();
    hud->showAnimated_whileExecutingBlock_onQueue_completionBlock(true, nullptr, nullptr, nullptr);
    EXPECT_TRUE(hud->taskInProgress());
    ASSERT_TRUE(host.waitUntil([&] { return !hud->taskInProgress(); }));
    host.advance(0.3);
    EXPECT_TRUE(hud->isFinished());
}

TEST_F(ZRProgressHUDTask, TheBlockKeepsTheHUD) {
    Gate gate;
    auto hud = make<ZRProgressHUD>();
    const Weak<ZRProgressHUD> weak = hud;
    hud->showAnimated_whileExecutingBlock(false, [&] { gate.pass(); });
    hud = nullptr;
    EXPECT_NE(weak, nullptr);
    gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return weak == nullptr; }));
}

// With grace time and minimum show time

TEST_F(ZRProgressHUDTask, ATaskShorterThanTheGraceTimeIsDoneUnseen) {
    HUDDelegate delegate;
    int completions = 0;
    Gate gate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->setGraceTime(0.5f);
    hud->showAnimated_whileExecutingBlock_completionBlock(
        true, [&] { gate.pass(); }, [&] { ++completions; });
    host.advance(0.2);
    EXPECT_EQ(hud->alpha(), 0);
    gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return hud->isFinished(); }));
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(delegate.count, 1);
    host.advance(1);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->showStarted(), nullptr);
}

TEST_F(ZRProgressHUDTask, ATaskLongerThanTheGraceTimeIsSeenAfterIt) {
    Gate gate;
    const auto hud = addHUD();
    hud->setGraceTime(0.5f);
    hud->showAnimated_whileExecutingBlock(true, [&] { gate.pass(); });
    host.advance(0.5);
    EXPECT_EQ(seenAlpha(hud), 0);
    EXPECT_EQ(hud->alpha(), 1);
    host.advance(0.5);
    EXPECT_EQ(seenAlpha(hud), 1);
    gate.open();
    ASSERT_TRUE(host.waitUntil([&] { return !hud->taskInProgress(); }));
    EXPECT_FALSE(hud->isFinished());
    host.advance(0.3);
    EXPECT_TRUE(hud->isFinished());
}

TEST_F(ZRProgressHUDTask, AShortTaskIsHeldByTheMinimumShowTime) {
    const auto hud = addHUD();
    hud->setMinShowTime(2);
    hud->showAnimated_whileExecutingBlock(false, [] {});
    ASSERT_TRUE(host.waitUntil([&] { return !hud->taskInProgress(); }));
    EXPECT_EQ(hud->alpha(), 1);
    host.advance(2);
    EXPECT_TRUE(hud->isFinished());
}
