#include <ZRPlatform/Foundation/Clock.h>

#include <gtest/gtest.h>

#include <limits>

namespace zr {

namespace {

class PacedClockTest : public testing::Test {
protected:
    PacedClockTest() { source.advanceTo(1'000); }

    ManualClock source;
};

} // namespace

TEST_F(PacedClockTest, ShowsTheSourcesTimeUntilItIsSlowed) {
    const PacedClock clock(source);
    EXPECT_EQ(clock.now(), 1'000);
    source.advanceTo(1'777);
    EXPECT_EQ(clock.now(), 1'777);
    EXPECT_EQ(clock.slowness(), 1);
}

TEST_F(PacedClockTest, NeverJumpsWhenItsPaceChanges) {
    PacedClock clock(source);
    source.advanceTo(2'000);
    clock.setSlowness(4);
    EXPECT_EQ(clock.now(), 2'000);
    source.advanceTo(2'403);
    EXPECT_EQ(clock.now(), 2'100);
    clock.setSlowness(10);
    EXPECT_EQ(clock.now(), 2'100);
    source.advanceTo(2'503);
    EXPECT_EQ(clock.now(), 2'110);
    clock.setSlowness(1);
    source.advanceTo(2'603);
    EXPECT_EQ(clock.now(), 2'210);
}

TEST_F(PacedClockTest, CannotGoFasterOrBackwards) {
    PacedClock clock(source);
    for (const int slowness : {0, -4}) {
        clock.setSlowness(slowness);
        EXPECT_EQ(clock.slowness(), 1);
    }
    source.advanceTo(1'100);
    EXPECT_EQ(clock.now(), 1'100);
}

TEST_F(PacedClockTest, TellsWhenTheSourceShowsAMoment) {
    for (const int slowness : {1, 4, 10, 1'000}) {
        ManualClock other;
        PacedClock clock(other);
        clock.setSlowness(slowness);
        for (const Nanoseconds moment : {Nanoseconds{1}, Nanoseconds{333'333'333}, 86'400 * kNanosecondsPerSecond}) {
            const Nanoseconds there = clock.sourceTime(moment);
            other.advanceTo(there - 1);
            EXPECT_EQ(clock.now(), moment - 1) << slowness;
            other.advanceTo(there);
            EXPECT_EQ(clock.now(), moment) << slowness;
        }
        EXPECT_LE(clock.sourceTime(5), other.now());
    }
}

TEST_F(PacedClockTest, AMomentBeyondAllTimesNeverComes) {
    PacedClock clock(source);
    clock.setSlowness(10);
    constexpr Nanoseconds kNever = std::numeric_limits<Nanoseconds>::max();
    EXPECT_EQ(clock.sourceTime(kNever / 2), kNever);
    EXPECT_EQ(clock.sourceTime(nanosecondsFromSeconds(1e30)), kNever);
}

} // namespace zr
