#include <Tests/ZRPlatform/Foundation/ManualTime.h>

#include <chrono>
#include <cmath>
#include <thread>

namespace zr {

namespace {

using NSDateOnManualClock = ManualTime;

Ref<NSDate> referenceDatePlus(NSTimeInterval seconds) {
    return make<NSDate>(&NSDate::initWithTimeIntervalSinceReferenceDate, seconds);
}

} // namespace

TEST(Clock, SecondsAreRoundedToTheNearestNanosecond) {
    EXPECT_EQ(nanosecondsFromSeconds(0.3), 300'000'000);
    EXPECT_EQ(nanosecondsFromSeconds(0.3) + nanosecondsFromSeconds(0.7), kNanosecondsPerSecond);
    EXPECT_EQ(nanosecondsFromSeconds(-0.1), -100'000'000);
    EXPECT_EQ(nanosecondsFromSeconds(1.4e-9), 1);
    EXPECT_EQ(secondsFromNanoseconds(300'000'000), 0.3);
}

TEST(Clock, NotANumberIsZeroAndBeyondACenturyIsACentury) {
    const double infinity = std::numeric_limits<double>::infinity();
    const Nanoseconds century = Nanoseconds{36525} * 86400 * kNanosecondsPerSecond;
    EXPECT_EQ(nanosecondsFromSeconds(std::nan("")), 0);
    EXPECT_EQ(nanosecondsFromSeconds(infinity), century);
    EXPECT_EQ(nanosecondsFromSeconds(-infinity), -century);
    EXPECT_EQ(nanosecondsFromSeconds(1e300), century);
}

TEST(Clock, TheRealOneIsCurrentUntilAnotherIsSet) {
    Clock& real = Clock::current();
    const Nanoseconds before = real.now();
    EXPECT_GE(real.now(), before);
    EXPECT_GT(before, 0);
    ManualClock manual;
    Clock::setCurrent(&manual);
    EXPECT_EQ(&Clock::current(), &manual);
    Clock::setCurrent(nullptr);
    EXPECT_EQ(&Clock::current(), &real);
}

TEST(ManualClock, StandsStillAndNeverGoesBack) {
    ManualClock clock;
    EXPECT_EQ(clock.now(), 0);
    clock.advanceTo(10);
    clock.advanceTo(5);
    EXPECT_EQ(clock.now(), 10);
}

TEST(ManualClock, TheLatestOfManyAdvancesWins) {
    ManualClock clock;
    std::vector<std::thread> threads;
    for (int i = 1; i <= 4; ++i) {
        threads.emplace_back([&clock, i] {
            for (int k = 0; k < 1000; ++k)
                clock.advanceTo(k * i);
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(clock.now(), 999 * 4);
}

TEST(NSDate, OfTheRealClockIsTheWallClocks) {
    const auto wall = [] {
        return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count() - 978307200.0;
    };
    const double before = wall();
    const double date = NSDate::date()->timeIntervalSinceReferenceDate();
    EXPECT_GT(date, before - 1);
    EXPECT_LT(date, wall() + 1);
}

TEST_F(NSDateOnManualClock, StartsAtTheReferenceDate) {
    EXPECT_EQ(NSDate::date()->timeIntervalSinceReferenceDate(), 0);
    skip(2.5);
    EXPECT_EQ(NSDate::date()->timeIntervalSinceReferenceDate(), 2.5);
}

TEST_F(NSDateOnManualClock, SpansAreExact) {
    skip(1234.7);
    const auto start = NSDate::date();
    skip(0.3);
    EXPECT_EQ(NSDate::date()->timeIntervalSinceDate(start), 0.3);
    EXPECT_EQ(start->timeIntervalSinceNow(), -0.3);
    EXPECT_EQ(start->timeIntervalSinceDate(NSDate::date()), -0.3);
    EXPECT_EQ(start->timeIntervalSinceDate(nullptr), 0);
    EXPECT_EQ(NSDate::dateWithTimeIntervalSinceNow(0.1)->timeIntervalSinceNow(), 0.1);
    EXPECT_EQ(NSDate::dateWithTimeIntervalSinceNow(-3)->timeIntervalSinceNow(), -3);
    EXPECT_EQ(start->dateByAddingTimeInterval(0.7)->timeIntervalSinceDate(start), 0.7);
}

TEST(NSDate, ComparesByTime) {
    const auto early = referenceDatePlus(1), late = referenceDatePlus(2);
    EXPECT_EQ(early->compare(late), NSOrderedAscending);
    EXPECT_EQ(late->compare(early), NSOrderedDescending);
    EXPECT_EQ(early->compare(referenceDatePlus(1)), NSOrderedSame);
    EXPECT_EQ(early->compare(nullptr), NSOrderedSame);
    EXPECT_TRUE(early->isEqual(referenceDatePlus(1)));
    EXPECT_FALSE(early->isEqual(late));
    EXPECT_FALSE(early->isEqual(nullptr));
    EXPECT_FALSE(early->isEqual(make<NSObject>()));
}

TEST(NSDate, FarDatesDoNotOverflow) {
    const double huge = std::numeric_limits<double>::infinity();
    auto far = referenceDatePlus(huge);
    auto past = referenceDatePlus(-huge);
    for (int i = 0; i < 5; ++i) {
        far = far->dateByAddingTimeInterval(huge);
        past = past->dateByAddingTimeInterval(-huge);
    }
    EXPECT_GT(far->timeIntervalSinceDate(past), 9e9);
    EXPECT_LT(past->timeIntervalSinceDate(far), -9e9);
    EXPECT_EQ(far->compare(past), NSOrderedDescending);
}

} // namespace zr
