#include <Tests/ZRPlatform/Foundation/ManualTime.h>
#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <cmath>

namespace zr {

namespace {

using NSTimerTest = ManualTime;
using DelayedPerform = ManualTime;
using Times = std::vector<double>;

class Ticker : public NSObject {
public:
    void tick(NSTimer* timer) {
        ++ticks;
        lastTimer = timer;
    }
    int ticks = 0;
    NSTimer* lastTimer = nullptr;
};

Ref<NSTimer> timer(NSTimeInterval interval, bool repeats, std::function<void(NSTimer*)> block) {
    return NSTimer::scheduledTimerWithTimeInterval_repeats_block(interval, repeats, std::move(block));
}

double seconds() { return secondsFromNanoseconds(Clock::current().now()); }

} // namespace

TEST_F(NSTimerTest, FiresOnceAtItsTime) {
    const auto ticker = make<Ticker>();
    const auto once = NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
        0.5, ticker, selector<&Ticker::tick>, "info", false);
    EXPECT_EQ(once->timeInterval(), 0.5);
    EXPECT_EQ(once->userInfo().stringValue(), "info");
    advance(0.499);
    EXPECT_EQ(ticker->ticks, 0);
    EXPECT_TRUE(once->isValid());
    advance(0.001);
    EXPECT_EQ(ticker->ticks, 1);
    EXPECT_EQ(ticker->lastTimer, once.get());
    EXPECT_FALSE(once->isValid());
    advance(5);
    EXPECT_EQ(ticker->ticks, 1);
}

TEST_F(NSTimerTest, RepeatsOnTheBeat) {
    Times times;
    timer(0.1, true, [&](NSTimer*) { times.push_back(seconds()); });
    advance(0.35);
    EXPECT_EQ(times, (Times{0.1, 0.2, 0.3}));
}

TEST_F(NSTimerTest, SkipsTheBeatsItMissedAndKeepsThePhase) {
    Times times;
    timer(0.1, true, [&](NSTimer*) { times.push_back(seconds()); });
    skip(0.35);
    advance(0.1);
    EXPECT_EQ(times, (Times{0.35, 0.4}));
}

TEST_F(NSTimerTest, ABeatThatIsDueNowIsFollowedByALaterOne) {
    int beats = 0;
    timer(0.1, true, [&](NSTimer*) { ++beats; });
    skip(0.2);
    EXPECT_TRUE(NSRunLoop::currentRunLoop()->runDue());
    EXPECT_FALSE(NSRunLoop::currentRunLoop()->runDue());
    EXPECT_EQ(beats, 1);
    EXPECT_EQ(NSRunLoop::currentRunLoop()->nextDueTime(), nanosecondsFromSeconds(0.3));
}

TEST_F(NSTimerTest, AnIntervalNotAboveZeroIsATenthOfAMillisecond) {
    for (const double interval : {0.0, -1.0, std::nan("")}) {
        const auto shortest = timer(interval, false, nullptr);
        EXPECT_EQ(shortest->timeInterval(), 0.0001) << interval;
    }
    EXPECT_EQ(NSRunLoop::currentRunLoop()->nextDueTime(), 100'000);
    const auto tiny = timer(1e-15, true, nullptr);
    advance(1e-8);
    EXPECT_TRUE(tiny->isValid());
}

TEST_F(NSTimerTest, FireInTimeOrderAndThenByAge) {
    std::string order;
    timer(0.2, false, [&](NSTimer*) { order += 'c'; });
    timer(0.1, false, [&](NSTimer*) { order += 'a'; });
    timer(0.1, false, [&](NSTimer*) { order += 'b'; });
    skip(1);
    NSRunLoop::currentRunLoop()->runDue();
    EXPECT_EQ(order, "abc");
}

TEST_F(NSTimerTest, KeepsItsTargetUntilItIsInvalidated) {
    auto ticker = make<Ticker>();
    const Weak<Ticker> weak(ticker);
    const auto repeating = NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
        0.1, ticker, selector<&Ticker::tick>, ticker, true);
    ticker = nullptr;
    ASSERT_NE(weak.get(), nullptr);
    repeating->invalidate();
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_FALSE(repeating->isValid());
    EXPECT_EQ(repeating->retainCount(), 1u);
    EXPECT_FALSE(NSRunLoop::currentRunLoop()->nextDueTime());
    repeating->fire();
    repeating->invalidate();
}

TEST_F(NSTimerTest, LetsGoOfItsTargetAfterFiringOnce) {
    auto ticker = make<Ticker>();
    const Weak<Ticker> weak(ticker);
    const Weak<NSTimer> once = NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
        0.1, ticker, selector<&Ticker::tick>, nullptr, false);
    ticker = nullptr;
    EXPECT_NE(once.get(), nullptr);
    advance(0.1);
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(once.get(), nullptr);
}

TEST_F(NSTimerTest, MayBeInvalidatedByItsOwnBlock) {
    int beats = 0;
    timer(0.1, true, [&beats, kept = make<NSObject>()](NSTimer* self) {
        if (++beats == 2)
            self->invalidate();
        EXPECT_EQ(kept->retainCount(), 1u);
    });
    advance(1);
    EXPECT_EQ(beats, 2);
}

TEST_F(NSTimerTest, TheBlockKeepsItsOwnState) {
    std::vector<int> counts;
    timer(0.1, true, [&counts, count = 0](NSTimer*) mutable { counts.push_back(++count); });
    advance(0.3);
    EXPECT_EQ(counts, (std::vector<int>{1, 2, 3}));
}

TEST_F(NSTimerTest, FiringByHandLeavesTheScheduleOfARepeatingTimer) {
    Times times;
    const auto repeating = timer(0.1, true, [&](NSTimer*) { times.push_back(seconds()); });
    advance(0.05);
    repeating->fire();
    advance(0.1);
    EXPECT_EQ(times, (Times{0.05, 0.1}));
}

TEST_F(NSTimerTest, FiringByHandUsesUpATimerThatDoesNotRepeat) {
    int beats = 0;
    const auto once = timer(0.1, false, [&](NSTimer*) { ++beats; });
    once->fire();
    EXPECT_FALSE(once->isValid());
    advance(1);
    EXPECT_EQ(beats, 1);
}

TEST_F(NSTimerTest, CanBeTakenOffTheRunLoopAndPutBack) {
    int beats = 0;
    NSRunLoop* loop = NSRunLoop::currentRunLoop();
    const auto repeating = timer(0.1, true, [&](NSTimer*) { ++beats; });
    loop->addTimer(repeating);
    loop->removeTimer(repeating);
    advance(0.5);
    EXPECT_EQ(beats, 0);
    loop->addTimer(repeating);
    advance(0.1);
    EXPECT_EQ(beats, 2); // the missed ones, as one, and that of 0.6 s
    repeating->invalidate();
    loop->addTimer(repeating);
    loop->addTimer(nullptr);
    loop->removeTimer(nullptr);
    EXPECT_FALSE(loop->nextDueTime());
}

TEST_F(DelayedPerform, SendsTheMessageAfterTheDelay) {
    Recorder recorder;
    recorder.performSelector_withObject_afterDelay(selector<&Recorder::with>, 7, 0.3);
    advance(0.299);
    EXPECT_TRUE(recorder.messages.empty());
    advance(0.001);
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"with 7"});
    advance(1);
    EXPECT_EQ(recorder.messages.size(), 1u);
}

TEST_F(DelayedPerform, WithoutADelayComesInALaterTurnAfterTheWaitingBlocks) {
    for (const double delay : {0.0, -1.0, std::nan("")}) {
        Recorder recorder;
        recorder.performSelector_withObject_afterDelay(selector<&Recorder::plain>, nullptr, delay);
        bool isFirst = false;
        NSRunLoop::currentRunLoop()->performBlock([&] { isFirst = recorder.messages.empty(); });
        EXPECT_TRUE(recorder.messages.empty());
        advance(0);
        EXPECT_EQ(recorder.messages.size(), 1u) << delay;
        EXPECT_TRUE(isFirst);
    }
}

TEST_F(DelayedPerform, KeepsTargetAndObjectUntilThen) {
    auto recorder = make<Recorder>();
    auto object = make<NSObject>();
    const Weak<NSObject> weakRecorder(recorder), weakObject(object);
    recorder->performSelector_withObject_afterDelay(selector<&Recorder::with>, object, 0.1);
    recorder = nullptr;
    object = nullptr;
    EXPECT_TRUE(weakRecorder.get() && weakObject.get());
    advance(0.1);
    EXPECT_FALSE(weakRecorder.get() || weakObject.get());
}

TEST_F(DelayedPerform, CancellingATargetCancelsAllOfItsAndNoOthers) {
    const auto recorder = make<Recorder>();
    const auto other = make<Recorder>();
    recorder->performSelector_withObject_afterDelay(selector<&Recorder::plain>, nullptr, 0.1);
    recorder->performSelector_withObject_afterDelay(selector<&Recorder::with>, 1, 0.2);
    other->performSelector_withObject_afterDelay(selector<&Recorder::plain>, nullptr, 0.1);
    NSObject::cancelPreviousPerformRequestsWithTarget(recorder);
    EXPECT_EQ(recorder->retainCount(), 1u);
    advance(1);
    EXPECT_TRUE(recorder->messages.empty());
    EXPECT_EQ(other->messages.size(), 1u);
}

TEST_F(DelayedPerform, CancellingByMessageTakesThoseWithAnEqualArgument) {
    Recorder recorder;
    const auto later = [&](SEL message, const NSValue& object) {
        recorder.performSelector_withObject_afterDelay(message, object, 0.1);
    };
    later(selector<&Recorder::with>, "a");
    later(selector<&Recorder::with>, "a");
    later(selector<&Recorder::with>, "b");
    later(selector<&Recorder::with>, nullptr);
    later(selector<&Recorder::other>, "a");
    NSObject::cancelPreviousPerformRequestsWithTarget_selector_object(&recorder, selector<&Recorder::with>, "a");
    NSObject::cancelPreviousPerformRequestsWithTarget_selector_object(&recorder, selector<&Recorder::with>, nullptr);
    NSObject::cancelPreviousPerformRequestsWithTarget_selector_object(&recorder, nullptr, "b");
    NSObject::cancelPreviousPerformRequestsWithTarget_selector_object(nullptr, selector<&Recorder::with>, "b");
    advance(1);
    EXPECT_EQ(recorder.messages, (std::vector<std::string>{"with b", "other a"}));
}

TEST_F(DelayedPerform, CancellingLeavesTimersOfTheTarget) {
    const auto ticker = make<Ticker>();
    NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(0.1, ticker, selector<&Ticker::tick>,
                                                                             nullptr, false);
    NSObject::cancelPreviousPerformRequestsWithTarget(ticker);
    advance(1);
    EXPECT_EQ(ticker->ticks, 1);
}

TEST_F(DelayedPerform, WithoutAMessageIsNothing) {
    Recorder recorder;
    recorder.performSelector_withObject_afterDelay(nullptr, nullptr, 0);
    EXPECT_FALSE(NSRunLoop::currentRunLoop()->nextDueTime());
}

} // namespace zr
