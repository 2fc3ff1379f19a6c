#include <ZRPlatform/Foundation/NSDate.h>
#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

#include <gtest/gtest.h>

namespace zr {

namespace {

void setSlowMotion(HeadlessHost& host, int factor) {
    DebugAids aids = host.application()->debugAids();
    aids.slowMotion = factor;
    host.application()->setDebugAids(aids);
}

Ref<UIWindow> shownWindow() {
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->makeKeyAndVisible();
    return window;
}

} // namespace

TEST(SlowMotion, TimersFireLaterByTheFactor) {
    HeadlessHost host;
    setSlowMotion(host, 4);
    std::vector<NSTimeInterval> times;
    const auto timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(
        0.1, true, [&](NSTimer*) { times.push_back(host.time()); });
    host.advance(1.25);
    timer->invalidate();
    EXPECT_EQ(times, (std::vector<NSTimeInterval>{0.4, 0.8, 1.2}));
    EXPECT_EQ(CACurrentMediaTime(), 1.25 / 4);
}

TEST(SlowMotion, BeginsAndEndsInTheMiddleOfAnAnimationWithoutAJump) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 10, 10));
    window->addSubview(view);
    host.advance(0);
    UIView::animateWithDuration_delay_options_animations_completion(
        1, 0, UIViewAnimationOptionCurveLinear,
        [&] {
            view->setCenter({105, 5});
        },
        nullptr);
    const auto seen = [&] { return view->layer()->presentationValues().position.x; };
    host.advance(0.2);
    EXPECT_NEAR(seen(), 25, 1e-6);
    setSlowMotion(host, 10);
    EXPECT_NEAR(seen(), 25, 1e-6);
    host.advance(4);
    EXPECT_NEAR(seen(), 65, 1e-6);
    setSlowMotion(host, 1);
    EXPECT_NEAR(seen(), 65, 1e-6);
    host.advance(0.2);
    EXPECT_NEAR(seen(), 85, 1e-6);
}

TEST(SlowMotion, ScrollingTakesTheSameWayInMoreTime) {
    const auto waysOf = [](int factor) {
        HeadlessHost host;
        const auto window = shownWindow();
        const auto scroll = make<UIScrollView>(&UIScrollView::initWithFrame, window->bounds());
        scroll->setContentSize({375, 100'000});
        window->addSubview(scroll);
        setSlowMotion(host, factor);
        host.touchDown({100, 500});
        host.touchMove({100, 300}, 0.2 * factor);
        host.touchUp();
        std::vector<CGFloat> ways;
        for (int i = 0; i < 5; ++i) {
            host.advance(0.25 * factor);
            ways.push_back(scroll->contentOffset().y);
        }
        return ways;
    };
    const auto ways = waysOf(1);
    EXPECT_GT(ways.back(), 400);
    const auto slowWays = waysOf(4);
    for (std::size_t i = 0; i < ways.size(); ++i)
        EXPECT_NEAR(slowWays[i], ways[i], 0.5) << i;
}

TEST(SlowMotion, DatesGoSlowlyToo) {
    HeadlessHost host;
    setSlowMotion(host, 10);
    const auto date = NSDate::date();
    host.advance(5);
    EXPECT_NEAR(date->timeIntervalSinceNow(), -0.5, 1e-9);
}

TEST(SlowMotion, NothingIsDueNothingIsComposed) {
    HeadlessHost host;
    const auto window = shownWindow();
    setSlowMotion(host, 10);
    host.advance(1);
    const auto frames = host.framesComposed();
    host.advance(100);
    EXPECT_EQ(host.framesComposed(), frames);
}

TEST(SlowMotion, FactorsOutOfRangeAreCutToIt) {
    HeadlessHost host;
    setSlowMotion(host, 0);
    EXPECT_EQ(host.application()->debugAids().slowMotion, 1);
    setSlowMotion(host, 1'000'000);
    EXPECT_EQ(host.application()->debugAids().slowMotion, 1000);
    host.advance(1);
    EXPECT_NEAR(CACurrentMediaTime(), 0.001, 1e-12);
}

} // namespace zr
