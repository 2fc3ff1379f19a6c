#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

#include <cmath>
#include <limits>

namespace zr::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ScrollViews : public Scrolling {};

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

/// Counts how often it draws.
class DrawnView : public UIView {
public:
    void drawRect(CGRect) override { ++draws; }
    int draws = 0;
};

/// Counts how often it is asked to place its subviews.
class TilingScrollView : public UIScrollView {
public:
    void layoutSubviews() override { places.push_back(contentOffset()); }
    std::vector<CGPoint> places;
};

class OffsetObserver : public NSObject {
public:
    void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject*,
                                                        const NSKeyValueChange& change, void*) override {
        keys.push_back(keyPath.utf8());
        before = change.oldValue.as<CGPoint>();
        after = change.newValue.as<CGPoint>();
    }
    Log keys;
    CGPoint before, after;
};

} // namespace

// Content

TEST_F(ScrollViews, TheOffsetIsTheOriginOfTheBounds) {
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_TRUE(view->clipsToBounds());
    view->setContentOffset(CGPointMake(30, 70));
    EXPECT_EQ(view->bounds(), CGRectMake(30, 70, 200, 400));
    EXPECT_EQ(view->frame(), CGRectMake(50, 100, 200, 400));
    view->setBounds(CGRectMake(10, 20, 200, 400));
    EXPECT_EQ(view->contentOffset(), CGPointMake(10, 20));
    EXPECT_THAT(delegate->offsets, ElementsAre(CGPointMake(30, 70), CGPointMake(10, 20)));
    view->setContentOffset(CGPointMake(10, 20));
    EXPECT_EQ(delegate->offsets.size(), 2u) << "the same offset is no news";
}

TEST_F(ScrollViews, WhatIsHitIsWhatShows) {
    const auto content = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 500, 200, 50));
    view->addSubview(content);
    EXPECT_EQ(window->hitTest_withEvent(CGPointMake(60, 110), nullptr), view);
    view->setContentOffset(CGPointMake(0, 400));
    EXPECT_EQ(window->hitTest_withEvent(CGPointMake(60, 205), nullptr), content);
    EXPECT_EQ(content->convertPoint_toView(CGPointMake(1, 2), nullptr), CGPointMake(51, 202));
    view->setContentOffset(CGPointMake(0, 700));
    EXPECT_EQ(window->hitTest_withEvent(CGPointMake(60, 50), nullptr), window) << "cut off above the bounds";
}

TEST_F(ScrollViews, CodeMayScrollBeyondTheEnds) {
    view->setContentOffset(CGPointMake(-50, 900));
    host.advance(5);
    EXPECT_EQ(view->contentOffset(), CGPointMake(-50, 900));
}

TEST_F(ScrollViews, NewEndsBringTheContentBack) {
    view->setContentOffset(CGPointMake(200, 400));
    view->setContentSize(CGSizeMake(300, 500));
    EXPECT_EQ(view->contentOffset(), CGPointMake(100, 100));
    view->setContentInset(UIEdgeInsetsMake(30, 0, 20, 0));
    EXPECT_EQ(view->contentOffset(), CGPointMake(100, 100));
    view->setContentOffset(CGPointMake(0, -30));
    view->setContentInset(UIEdgeInsetsZero);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    view->setContentOffset(CGPointMake(100, 100));
    view->setFrame(CGRectMake(50, 100, 250, 450));
    EXPECT_EQ(view->bounds(), CGRectMake(50, 50, 250, 450));
    view->setBounds(CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 10, 10));
}

TEST_F(ScrollViews, NumbersThatMakeNoSenseChangeNothing) {
    view->setContentOffset(CGPointMake(10, 20));
    delegate->offsets.clear();
    view->setContentOffset(CGPointMake(std::nan(""), 5));
    view->setContentOffset(CGPointMake(5, kInfinity));
    view->setContentOffset_animated(CGPointMake(kInfinity, 0), true);
    view->setContentOffset_animated(CGPointMake(0, std::nan("")), false);
    view->setContentSize(CGSizeMake(kInfinity, 10));
    view->setContentSize(CGSizeMake(10, std::nan("")));
    view->setContentInset(UIEdgeInsetsMake(0, std::nan(""), 0, 0));
    view->setScrollIndicatorInsets(UIEdgeInsetsMake(0, 0, -kInfinity, 0));
    view->setFrame(CGRectMake(0, 0, std::nan(""), 10));
    view->setBounds(CGRectMake(kInfinity, 0, 10, 10));
    view->scrollRectToVisible_animated(CGRectMake(0, 0, kInfinity, 1), false);
    view->scrollRectToVisible_animated(CGRectNull, false);
    for (const CGFloat rate : {0.0, 1.0, -0.5, 2.0, std::nan("")})
        view->setDecelerationRate(rate);
    host.advance(1);
    EXPECT_EQ(view->bounds(), CGRectMake(10, 20, 200, 400));
    EXPECT_EQ(view->frame(), CGRectMake(50, 100, 200, 400));
    EXPECT_EQ(view->contentSize(), CGSizeMake(400, 800));
    EXPECT_EQ(view->contentInset(), UIEdgeInsetsZero);
    EXPECT_EQ(view->scrollIndicatorInsets(), UIEdgeInsetsZero);
    EXPECT_EQ(view->decelerationRate(), 0.998);
    EXPECT_THAT(delegate->offsets, IsEmpty());
}

TEST_F(ScrollViews, NegativeSizesAreNone) {
    view->setContentSize(CGSizeMake(-5, 900));
    EXPECT_EQ(view->contentSize(), CGSizeMake(0, 900));
}

TEST_F(ScrollViews, ARectangleIsBroughtIntoSight) {
    view->scrollRectToVisible_animated(CGRectMake(250, 500, 10, 10), false);
    EXPECT_EQ(view->contentOffset(), CGPointMake(60, 110));
    view->scrollRectToVisible_animated(CGRectMake(100, 200, 10, 10), false);
    EXPECT_EQ(view->contentOffset(), CGPointMake(60, 110));
    view->scrollRectToVisible_animated(CGRectMake(390, 790, 100, 100), true);
    host.advance(0.3);
    EXPECT_EQ(view->contentOffset(), CGPointMake(200, 400));
}

TEST_F(ScrollViews, KeysReadWriteAndObserve) {
    const auto observer = make<OffsetObserver>();
    view->addObserver_forKeyPath_options_context(observer, "contentOffset",
                                                 NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld, nullptr);
    view->setContentOffset(CGPointMake(0, 40));
    EXPECT_THAT(observer->keys, ElementsAre("contentOffset"));
    EXPECT_EQ(observer->before, CGPointZero);
    EXPECT_EQ(observer->after, CGPointMake(0, 40));
    view->setValue_forKey(NSValue::valueWithStructure(CGSizeMake(500, 500)), "contentSize");
    EXPECT_EQ(view->contentSize(), CGSizeMake(500, 500));
    view->setValue_forKey(true, "pagingEnabled");
    EXPECT_TRUE(view->isPagingEnabled());
    view->removeObserver_forKeyPath(observer, "contentOffset");
}

// What scrolling costs

TEST_F(ScrollViews, ScrollingRedrawsNothingAndAsksForLayout) {
    const auto tiling = make<TilingScrollView>(&TilingScrollView::initWithFrame, CGRectMake(0, 0, 100, 100));
    tiling->setContentSize(CGSizeMake(100, 1000));
    const auto drawn = make<DrawnView>(&DrawnView::initWithFrame, CGRectMake(0, 0, 100, 50));
    tiling->addSubview(drawn);
    window->addSubview(tiling);
    host.advance(0);
    ASSERT_EQ(drawn->draws, 1);
    tiling->places.clear();
    for (int i = 1; i <= 5; ++i) {
        tiling->setContentOffset(CGPointMake(0, i));
        host.advance(0);
    }
    EXPECT_EQ(drawn->draws, 1);
    EXPECT_EQ(tiling->places.size(), 5u);
}

TEST_F(ScrollViews, AtRestThereAreNoFrames) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(10);
    ASSERT_FALSE(view->isDecelerating());
    const std::int64_t frames = host.framesComposed();
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextTimerTime());
    host.advance(100);
    EXPECT_EQ(host.framesComposed(), frames);
}

TEST_F(ScrollViews, OnlyWhatScrollsIsPaintedAgain) {
    view->setShowsVerticalScrollIndicator(false);
    view->setShowsHorizontalScrollIndicator(false);
    const auto content = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 100, 200, 20));
    content->setBackgroundColor(UIColor::redColor());
    view->addSubview(content);
    host.advance(0);
    view->setContentOffset(CGPointMake(0, 10));
    host.advance(0);
    for (const PixelRect& rect : host.damage()) {
        EXPECT_GE(rect.x, 100);
        EXPECT_LE(rect.right(), 500);
        EXPECT_GE(rect.y, 380);
        EXPECT_LE(rect.bottom(), 440);
    }
    EXPECT_EQ(host.pixel({60, 191}), (FramePixel{255, 0, 0}));
}

// Animated by code

TEST_F(ScrollViews, AnAnimatedChangeTakesThreeTenthsOfASecond) {
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_FALSE(view->isDecelerating());
    host.advance(0.15);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 150)) << "half way at half time";
    host.advance(0.149);
    EXPECT_THAT(news(), IsEmpty());
    host.advance(0.001);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 300));
    EXPECT_THAT(news(), ElementsAre("animated"));
    EXPECT_GE(delegate->offsets.size(), 17u);
}

TEST_F(ScrollViews, WithoutAnimationThereIsOneMessage) {
    delegate->logsScrolling = true;
    view->setContentOffset_animated(CGPointMake(0, 300), false);
    EXPECT_THAT(news(), ElementsAre("scrolled"));
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(1);
    EXPECT_THAT(news(), IsEmpty()) << "it is there already";
}

TEST_F(ScrollViews, InNoWindowAnAnimatedChangeHappensAtOnce) {
    view->removeFromSuperview();
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 300));
    host.advance(1);
    EXPECT_THAT(news(), IsEmpty());
}

TEST_F(ScrollViews, TheLatestAnimatedChangeCounts) {
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(0.1);
    const CGPoint half = view->contentOffset();
    view->setContentOffset_animated(CGPointMake(0, 100), true);
    EXPECT_THAT(news(), ElementsAre("animated"));
    EXPECT_EQ(view->contentOffset(), half);
    host.advance(0.3);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 100));
    EXPECT_THAT(news(), ElementsAre("animated"));
}

TEST_F(ScrollViews, AnAnimatedChangeAskedForAtTheEndOfAnotherIsCarriedOut) {
    delegate->act = [&](const std::string& what) {
        if (what == "animated" && view->contentOffset().y == 300)
            view->setContentOffset_animated(CGPointMake(0, 50), true);
    };
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
    EXPECT_THAT(news(), ElementsAre("animated", "animated"));
}

TEST_F(ScrollViews, AFingerStopsAnAnimatedChange) {
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(0.1);
    host.touchDown({150, 300});
    EXPECT_THAT(news(), ElementsAre("animated"));
    const CGPoint offset = view->contentOffset();
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), offset);
}

TEST_F(ScrollViews, SettingTheOffsetEndsAnAnimatedChange) {
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(0.1);
    view->setContentOffset(CGPointMake(0, 20));
    host.advance(1);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 20));
    EXPECT_THAT(news(), ElementsAre("animated"));
}

TEST_F(ScrollViews, AnAnimationBlockScrollsWithItsOwnPace) {
    UIView::animateWithDuration_animations(1, [&] { view->setContentOffset(CGPointMake(0, 300)); });
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 300));
    host.advance(0.5);
    EXPECT_NEAR(view->layer()->presentationValues().bounds.origin.y, 150, 1e-6);
    host.touchDown({150, 300});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 150)) << "a finger takes hold of what is seen";
    EXPECT_EQ(view->layer()->presentationValues().bounds.origin.y, 150);
}

// Changes while it decelerates

TEST_F(ScrollViews, AnAnimatedChangeBeginsWhereAnAnimationBlockIsSeenToBe) {
    UIView::animateWithDuration_animations(1, [&] { view->setContentOffset(CGPointMake(0, 300)); });
    host.advance(0.5);
    view->setContentOffset_animated(CGPointZero, true);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 150));
    host.advance(0.3);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(ScrollViews, ADecelerationGoesOnFromAnotherOffset) {
    view->setContentSize(CGSizeMake(200, 5000));
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.2);
    const CGFloat left = delegate->target.y - view->contentOffset().y;
    view->setContentOffset(CGPointMake(0, view->contentOffset().y + 1000));
    EXPECT_TRUE(view->isDecelerating());
    host.advance(6);
    EXPECT_NEAR(view->contentOffset().y, delegate->target.y + 1000, 0.75);
    EXPECT_GT(left, 100);
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end, goes on", "will decelerate", "at rest"));
}

TEST_F(ScrollViews, SettingTheOffsetWithoutAnimationStopsADeceleration) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.1);
    news();
    view->setContentOffset_animated(view->contentOffset(), false);
    EXPECT_FALSE(view->isDecelerating());
    EXPECT_THAT(news(), ElementsAre("at rest"));
}

TEST_F(ScrollViews, AContentThatGrowsIsNotBouncedAtItsOldEnd) {
    view->setContentSize(CGSizeMake(200, 500));
    drag({150, 450}, {0, -60}); // would go on to 349.5, the end is at 100
    host.touchUp();
    EXPECT_EQ(delegate->target, CGPointMake(0, 100));
    view->setContentSize(CGSizeMake(200, 2000));
    host.advance(6);
    EXPECT_NEAR(view->contentOffset().y, 349.5, 0.75);
}

TEST_F(ScrollViews, AContentThatShrinksIsBroughtBackToItsNewEnd) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.5);
    view->setContentSize(CGSizeMake(200, 450));
    EXPECT_TRUE(view->isDecelerating());
    host.advance(6);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
}

TEST_F(ScrollViews, AContentThatShrinksUnderAFingerStaysThereUntilItIsLetGoOf) {
    drag({150, 450}, {0, -210});
    ASSERT_EQ(view->contentOffset(), CGPointMake(0, 200));
    view->setContentSize(CGSizeMake(200, 450));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 200));
    host.touchMove({150, 241});
    EXPECT_NEAR(view->contentOffset().y, 200, 1);
    host.touchUp();
    host.advance(6);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
}

TEST_F(ScrollViews, AnOffsetSetUnderAFingerIsWhereTheDragGoesOn) {
    drag({150, 450}, {0, -60});
    view->setContentOffset(CGPointMake(0, 300));
    host.touchMove({150, 380});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 310));
    view->setContentOffset_animated(CGPointMake(0, 100), true);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 100));
    host.touchMove({150, 370});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 110));
}

} // namespace zr::tests
