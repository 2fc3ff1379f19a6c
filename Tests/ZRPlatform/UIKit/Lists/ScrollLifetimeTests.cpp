#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

#include <cmath>
#include <limits>
#include <random>

namespace zr::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ScrollLifetimes : public Scrolling {
protected:
    /// Drags, throws, and lets everything come to rest.
    void throwIt() {
        drag({150, 450}, {0, -60});
        host.touchUp();
        host.advance(6);
    }
};

/// What a delegate does to its scroll view in the middle of a message.
struct Interference {
    const char* name;
    std::function<void(Ref<UIScrollView>& view)> interfere;
    friend void PrintTo(const Interference& interference, std::ostream* stream) { *stream << interference.name; }
};

class InterferingDelegate : public Scrolling, public testing::WithParamInterface<Interference> {};

} // namespace

// Leaving the window

TEST_F(ScrollLifetimes, RemovedInTheMiddleOfADragItIsAtRest) {
    drag({150, 200}, {0, 110});
    view->removeFromSuperview();
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end, goes on", "will decelerate", "at rest"));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_FALSE(view->isDragging() || view->isTracking() || view->isDecelerating());
    host.touchUp();
    host.advance(1);
    EXPECT_THAT(news(), IsEmpty());
    window->addSubview(view);
    throwIt();
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 349.5));
}

TEST_F(ScrollLifetimes, RemovedWhileItDeceleratesItStaysWhereItIs) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.2);
    const CGPoint offset = view->contentOffset();
    view->removeFromSuperview();
    EXPECT_EQ(view->contentOffset(), offset);
    EXPECT_FALSE(view->isDecelerating());
    EXPECT_EQ(news().back(), "at rest");
    host.advance(5);
    EXPECT_EQ(view->contentOffset(), offset);
}

TEST_F(ScrollLifetimes, RemovedBetweenPagesItIsOnThePageItWasGoingTo) {
    view->setPagingEnabled(true);
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.05);
    view->removeFromSuperview();
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 400));
}

TEST_F(ScrollLifetimes, RemovedDuringAnAnimatedChangeItIsAtItsEnd) {
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(0.1);
    view->removeFromSuperview();
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 300));
    EXPECT_THAT(news(), ElementsAre("animated"));
}

TEST_F(ScrollLifetimes, DisabledInTheMiddleOfADragItComesBack) {
    drag({150, 200}, {0, 110});
    view->setScrollEnabled(false);
    EXPECT_FALSE(view->isDragging());
    EXPECT_FALSE(view->isTracking());
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    host.touchMove({150, 100});
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    view->setScrollEnabled(true);
    host.touchUp();
    drag({150, 200}, {0, -60});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
}

TEST_F(ScrollLifetimes, AFingerThatStopsAFlightAndDragsLeavesItWhereTheDelegateSays) {
    view->setPagingEnabled(true);
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.05);
    ASSERT_TRUE(view->isDecelerating());
    delegate->onRelease = [this](CGPoint* chosen) { *chosen = view->contentOffset(); };
    dragAndHold({150, 400}, {0, -30});
    const CGPoint left = view->contentOffset();
    EXPECT_GT(left.y, 50);
    EXPECT_LT(left.y, 390);
    host.advance(2);
    EXPECT_EQ(view->contentOffset(), left);
}

TEST_F(ScrollLifetimes, ItMayGoAsItIsDisabled) {
    const Weak<UIScrollView> weak = view;
    delegate->act = [this](const std::string& what) {
        if (what != "did end")
            return;
        view->removeFromSuperview();
        view = nullptr;
    };
    drag({150, 450}, {0, -60});
    UIScrollView* const disabled = view.get();
    disabled->setScrollEnabled(false);
    EXPECT_EQ(weak.get(), nullptr);
    host.touchUp();
}

TEST_F(ScrollLifetimes, HiddenInTheMiddleOfADragItEndsTheDrag) {
    drag({150, 450}, {0, -60});
    view->setHidden(true);
    EXPECT_FALSE(view->isDragging());
    EXPECT_THAT(news(), ElementsAre("will drag", "will end", "did end"));
}

TEST_F(ScrollLifetimes, FreedInTheMiddleOfEverythingNobodyIsToldAndNothingIsLeft) {
    const Weak<UIScrollView> weak = view;
    const auto letGo = [&] {
        view->removeFromSuperview();
        view = nullptr;
        EXPECT_FALSE(weak.get());
        host.touchUp();
        host.advance(5);
    };
    drag({150, 450}, {0, -60});
    letGo();
}

TEST_F(ScrollLifetimes, FreedWhileItDecelerates) {
    const Weak<UIScrollView> weak = view;
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.1);
    view->setDelegate(nullptr);
    view->removeFromSuperview();
    view = nullptr;
    EXPECT_FALSE(weak.get());
    host.advance(5);
}

TEST_F(ScrollLifetimes, FreedWhileItIsNotInAWindow) {
    view->removeFromSuperview();
    view->flashScrollIndicators();
    view->setContentOffset_animated(CGPointMake(0, 10), true);
    const Weak<UIScrollView> weak = view;
    view = nullptr;
    EXPECT_FALSE(weak.get());
}

TEST_F(ScrollLifetimes, FreedWhileItHoldsATouchBack) {
    const auto content = make<TouchedView>(&TouchedView::initWithFrame, CGRectMake(0, 0, 200, 800));
    view->addSubview(content);
    host.touchDown({150, 300});
    host.advance(0.1);
    view->removeFromSuperview();
    view = nullptr;
    host.advance(1);
    EXPECT_THAT(content->log, IsEmpty());
    host.touchUp();
}

TEST_F(ScrollLifetimes, ADelegateThatIsGoneIsToldNothing) {
    drag({150, 450}, {0, -60});
    delegate = nullptr;
    host.touchUp();
    host.advance(5);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 349.5));
}

// Delegates that interfere

INSTANTIATE_TEST_SUITE_P(
    Each, InterferingDelegate,
    testing::Values(
        Interference{"LetGo",
                     [](Ref<UIScrollView>& view) {
                         view->removeFromSuperview();
                         view = nullptr;
                     }},
        Interference{"Removed", [](Ref<UIScrollView>& view) { view->removeFromSuperview(); }},
        Interference{"Disabled", [](Ref<UIScrollView>& view) { view->setScrollEnabled(false); }},
        Interference{"Hidden", [](Ref<UIScrollView>& view) { view->setHidden(true); }},
        Interference{"Emptied", [](Ref<UIScrollView>& view) { view->setContentSize(CGSizeZero); }},
        Interference{"Resized", [](Ref<UIScrollView>& view) { view->setFrame(CGRectMake(0, 0, 10, 10)); }},
        Interference{"ScrolledAtOnce",
                     [](Ref<UIScrollView>& view) { view->setContentOffset_animated(CGPointMake(0, 77), false); }},
        Interference{"Scrolled",
                     [](Ref<UIScrollView>& view) { view->setContentOffset_animated(CGPointMake(0, 77), true); }},
        Interference{"Moved", [](Ref<UIScrollView>& view) { view->setContentOffset(CGPointMake(0, 77)); }},
        Interference{"WithoutDelegate", [](Ref<UIScrollView>& view) { view->setDelegate(nullptr); }}),
    [](const auto& each) { return each.param.name; });

/// At each message in turn: the scroll view comes to rest, within its ends, and works afterwards.
TEST_P(InterferingDelegate, MayDoItAtAnyMessage) {
    for (const char* message :
         {"will drag", "scrolled", "will end", "did end, goes on", "will decelerate", "at rest"}) {
        SCOPED_TRACE(message);
        view = make<UIScrollView>(&UIScrollView::initWithFrame, CGRectMake(50, 100, 200, 400));
        view->setContentSize(CGSizeMake(200, 800));
        delegate->logsScrolling = true;
        view->setDelegate(delegate);
        window->addSubview(view);
        bool hasInterfered = false;
        delegate->act = [&](const std::string& what) {
            if (what == message && !std::exchange(hasInterfered, true))
                GetParam().interfere(view);
        };
        drag({150, 450}, {0, -60});
        host.touchMove({150, 380});
        host.touchUp();
        host.advance(8);
        EXPECT_TRUE(hasInterfered);
        if (!view)
            continue;
        EXPECT_FALSE(view->isTracking() || view->isDragging() || view->isDecelerating());
        EXPECT_GE(view->contentOffset().y, 0);
        EXPECT_LE(view->contentOffset().y,
                  std::max<CGFloat>(view->contentSize().height - view->bounds().size.height, 0));
        delegate->act = nullptr;
        view->setDelegate(delegate);
        view->setFrame(CGRectMake(50, 100, 200, 400));
        view->setContentSize(CGSizeMake(200, 800));
        view->setScrollEnabled(true);
        view->setHidden(false);
        window->addSubview(view);
        view->setContentOffset_animated(CGPointZero, false);
        drag({150, 450}, {0, -60});
        EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
        host.touchUp();
        host.advance(8);
        EXPECT_EQ(view->contentOffset(), CGPointMake(0, 349.5));
        view->removeFromSuperview();
    }
}

TEST_F(ScrollLifetimes, ADelegateThatHoldsTheContentAtItsEndIsObeyed) {
    delegate->onScroll = [](UIScrollView* scrolled) {
        if (scrolled->contentOffset().y < 0)
            scrolled->setContentOffset(CGPointZero);
    };
    drag({150, 200}, {0, 110}, 0.05);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    host.touchMove({150, 300});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 10)) << "the drag goes on from there";
    host.touchMove({150, 320});
    host.touchUp();
    host.advance(5);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_FALSE(view->isDecelerating());
}

TEST_F(ScrollLifetimes, WhatADelegateAsksForAtTheEndOfADragTakesTheDecelerationsPlace) {
    for (const bool animated : {false, true}) {
        delegate->act = [&](const std::string& what) {
            if (what == "did end, goes on")
                view->setContentOffset_animated(CGPointMake(0, 77), animated);
        };
        throwIt();
        EXPECT_EQ(view->contentOffset(), CGPointMake(0, 77)) << animated;
        Log expected{"will drag", "will end", "did end, goes on"};
        if (animated)
            expected.push_back("animated");
        EXPECT_EQ(news(), expected) << animated;
        view->setContentOffset_animated(CGPointZero, false);
    }
}

TEST_F(ScrollLifetimes, WhatADelegateAsksForAtTheLastStepIsCarriedOut) {
    delegate->onScroll = [](UIScrollView* scrolled) {
        if (scrolled->contentOffset().y == 300)
            scrolled->setContentOffset_animated(CGPointMake(0, 50), true);
    };
    view->setContentOffset_animated(CGPointMake(0, 300), true);
    host.advance(0.3);
    EXPECT_THAT(news(), ElementsAre("animated"));
    host.advance(0.3);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
    EXPECT_THAT(news(), ElementsAre("animated"));
}

// Anything at all

/// Whatever is done in whatever order, what is left alone comes to rest between its ends.
TEST_F(ScrollLifetimes, ItComesToRestAfterAnything) {
    std::mt19937 random(7);
    const auto number = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    const auto length = [&]() -> CGFloat {
        switch (number(12)) {
        case 0:
            return std::nan("");
        case 1:
            return std::numeric_limits<CGFloat>::infinity();
        case 2:
            return -1e300;
        case 3:
            return 1e300;
        default:
            return number(1200) - 200;
        }
    };
    const std::function<void()> actions[] = {
        [&] {
            host.touchDown({CGFloat(number(300)), CGFloat(number(600))});
        },
        [&] {
            host.touchMove({CGFloat(number(300)), CGFloat(number(600))}, 0.05);
        },
        [&] {
            host.touchMove({CGFloat(number(300)), CGFloat(number(600))});
        },
        [&] { host.touchUp(); },
        [&] { host.touchCancel(); },
        [&] { host.advance(number(20) * 0.01); },
        [&] { view->setContentOffset(CGPointMake(length(), length())); },
        [&] { view->setContentOffset_animated(CGPointMake(length(), length()), number(2)); },
        [&] { view->setContentSize(CGSizeMake(length(), length())); },
        [&] { view->setContentInset(UIEdgeInsetsMake(length(), length(), length(), length())); },
        [&] { view->setFrame(CGRectMake(number(50), number(50), length(), length())); },
        [&] { view->setPagingEnabled(number(2)); },
        [&] { view->setBounces(number(4)); },
        [&] { view->setAlwaysBounceVertical(number(2)); },
        [&] { view->setScrollEnabled(number(4)); },
        [&] { view->setHidden(number(4) == 0); },
        [&] { view->setDecelerationRate(length() / 1000); },
        [&] { number(2) ? view->removeFromSuperview() : window->addSubview(view); },
        [&] {
            host.wheel({150, 300}, CGPointMake(length(), length()));
        },
        [&] { view->flashScrollIndicators(); },
    };
    for (int round = 0; round < 300; ++round) {
        for (int i = 0; i < 30; ++i) {
            actions[number(std::size(actions))]();
            ASSERT_TRUE(std::isfinite(view->contentOffset().x) && std::isfinite(view->contentOffset().y)) << round;
        }
        host.touchUp();
        view->setContentInset(UIEdgeInsetsZero);
        view->setContentSize(CGSizeMake(400, 800));
        view->setFrame(CGRectMake(50, 100, 200, 400));
        view->setDecelerationRate(0.99);
        view->setContentOffset_animated(CGPointMake(100, 100), false);
        view->setHidden(false);
        view->setScrollEnabled(true);
        view->setBounces(true);
        window->addSubview(view);
        host.advance(0);
        drag({150, 300}, {40, 50});
        host.touchUp();
        host.advance(10);
        ASSERT_FALSE(view->isTracking() || view->isDragging() || view->isDecelerating()) << round;
        ASSERT_GE(view->contentOffset().y, 0) << round;
        ASSERT_LT(view->contentOffset().y, 100) << round;
        ASSERT_FALSE(NSRunLoop::mainRunLoop()->nextTimerTime()) << round;
    }
}

} // namespace zr::tests
