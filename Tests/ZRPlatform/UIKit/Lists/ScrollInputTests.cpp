#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

#include <ZRPlatform/Hosts/Headless/TouchScript.h>

#include <cmath>

namespace zr::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Wheels : public Scrolling {};
class StatusBarTaps : public Scrolling {
protected:
    StatusBarTaps() { view->setContentOffset(CGPointMake(30, 200)); }
};

} // namespace

// Wheels

TEST_F(Wheels, TheyScrollWhatIsUnderThem) {
    EXPECT_TRUE(host.wheel({150, 300}, {0, 50}));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
    EXPECT_TRUE(host.wheel({150, 300}, {30, 10}));
    EXPECT_EQ(view->contentOffset(), CGPointMake(30, 60));
    EXPECT_FALSE(host.wheel({20, 300}, {0, 50})) << "beside the scroll view";
    EXPECT_FALSE(host.wheel({5000, 300}, {0, 50})) << "beside the window";
    EXPECT_EQ(view->contentOffset(), CGPointMake(30, 60));
    EXPECT_THAT(news(), IsEmpty()) << "scrolling aside, the delegate is told of fingers only";
    EXPECT_EQ(delegate->offsets.size(), 2u);
}

TEST_F(Wheels, TheyStopAtTheEnds) {
    EXPECT_TRUE(host.wheel({150, 300}, {0, 5000}));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 400));
    EXPECT_FALSE(host.wheel({150, 300}, {0, 50}));
    EXPECT_TRUE(host.wheel({150, 300}, {0, -5000}));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_FALSE(host.wheel({150, 300}, {0, -1}));
}

TEST_F(Wheels, PartsOfAPixelAddUp) {
    for (int i = 0; i < 10; ++i)
        host.wheel({150, 300}, {0, 0.2});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 2));
}

TEST_F(Wheels, APartOfAPixelIsForgottenWhenCodeMovesTheContent) {
    host.wheel({150, 300}, {0, 0.2});
    view->setContentOffset(CGPointMake(0, 100));
    host.wheel({150, 300}, {0, 0.2});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 100));
}

TEST_F(Wheels, AnInnerViewGoesFirstAndThenTheOuterOne) {
    const auto inner = addScrollView(view, CGRectMake(0, 0, 200, 300), CGSizeMake(200, 350));
    EXPECT_TRUE(host.wheel({150, 200}, {0, 80}));
    EXPECT_EQ(inner->contentOffset(), CGPointMake(0, 50));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    EXPECT_TRUE(host.wheel({150, 200}, {0, 80}));
    EXPECT_EQ(inner->contentOffset(), CGPointMake(0, 50));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 80));
    inner->setContentOffset(CGPointZero);
    inner->setScrollEnabled(false);
    view->setContentOffset(CGPointZero);
    EXPECT_TRUE(host.wheel({150, 200}, {0, 80}));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 80));
}

TEST_F(Wheels, TheyStopWhatMovesAndLeaveAFingerAlone) {
    drag({150, 450}, {0, -60});
    EXPECT_TRUE(host.wheel({150, 300}, {0, 40}));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
    host.touchUp();
    host.advance(0.1);
    news();
    const CGFloat offset = view->contentOffset().y;
    EXPECT_TRUE(host.wheel({150, 300}, {0, -40}));
    EXPECT_THAT(news(), ElementsAre("at rest"));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, offset - 40));
}

TEST_F(Wheels, TheyTurnOnePageAtATime) {
    view->setPagingEnabled(true);
    EXPECT_TRUE(host.wheel({150, 300}, {0, 10}));
    EXPECT_TRUE(host.wheel({150, 300}, {0, 10}));
    host.advance(0.3);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 400));
    EXPECT_TRUE(host.wheel({150, 300}, {0, -10}));
    host.advance(0.3);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(Wheels, WhatIsNoNumberOrIgnoredScrollsNothing) {
    EXPECT_FALSE(host.wheel({150, 300}, {0, std::nan("")}));
    EXPECT_FALSE(host.wheel({150, 300}, {HUGE_VAL, 0}));
    EXPECT_FALSE(host.wheel({150, 300}, {0, 0}));
    host.application()->beginIgnoringInteractionEvents();
    EXPECT_FALSE(host.wheel({150, 300}, {0, 50}));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(Wheels, ScriptsTurnThem) {
    std::string error;
    const auto script = TouchScript::parse("wheel 150 300 20 50.5", error);
    ASSERT_TRUE(script) << error;
    EXPECT_TRUE(script->run(host, error)) << error;
    EXPECT_EQ(view->contentOffset(), CGPointMake(20, 50.5));
    EXPECT_FALSE(TouchScript::parse("wheel 150 300 1", error));
    EXPECT_EQ(error, "line 1: \"wheel\" needs X, Y and how far it turns across and down");
    EXPECT_FALSE(TouchScript::parse("wheel 20 300 0 5", error)->run(host, error));
    EXPECT_EQ(error, "line 1: nothing scrolls there");
}

// The status bar

TEST_F(StatusBarTaps, ATapScrollsToTheTop) {
    view->setContentInset(UIEdgeInsetsMake(64, 0, 0, 0));
    host.tap({100, 10});
    EXPECT_THAT(news(), ElementsAre("to top?"));
    host.advance(0.15);
    EXPECT_EQ(view->contentOffset(), CGPointMake(30, 68));
    host.advance(0.15);
    EXPECT_EQ(view->contentOffset(), CGPointMake(30, -64));
    EXPECT_THAT(news(), ElementsAre("at top"));
    host.tap({100, 10});
    host.advance(1);
    EXPECT_THAT(news(), IsEmpty()) << "it is there already";
}

TEST_F(StatusBarTaps, TheDelegateMayForbidIt) {
    delegate->allowsTop = false;
    host.tap({100, 10});
    host.advance(1);
    EXPECT_THAT(news(), ElementsAre("to top?"));
    EXPECT_EQ(view->contentOffset(), CGPointMake(30, 200));
}

TEST_F(StatusBarTaps, OneThatIsStoppedIsNotToldToHaveArrived) {
    host.tap({100, 10});
    host.advance(0.1);
    host.tap({150, 300});
    host.advance(1);
    EXPECT_THAT(news(), ElementsAre("to top?"));
    EXPECT_GT(view->contentOffset().y, 0);
}

TEST_F(StatusBarTaps, OnlyATapOfTheBarCounts) {
    host.tap({100, 20});
    host.touchDown({100, 10});
    host.touchMove({130, 10});
    host.touchUp();
    host.touchDown({100, 10});
    host.touchCancel();
    host.touchDown({100, 15});
    host.touchMove({100, 22});
    host.touchUp();
    host.application()->setStatusBarHidden(true);
    host.tap({100, 10});
    host.advance(1);
    EXPECT_THAT(news(), IsEmpty());
}

TEST_F(StatusBarTaps, WithMoreThanOneOnTheScreenNothingHappens) {
    const auto other = addScrollView(window, CGRectMake(0, 550, 100, 50), CGSizeMake(100, 500));
    host.tap({100, 10});
    EXPECT_THAT(news(), IsEmpty());
    const auto tapped = [&] {
        host.tap({100, 10});
        return news() == Log{"to top?"};
    };
    delegate->allowsTop = false;
    other->setScrollsToTop(false);
    EXPECT_TRUE(tapped());
    other->setScrollsToTop(true);
    other->setHidden(true);
    EXPECT_TRUE(tapped());
    other->setHidden(false);
    other->setFrame(CGRectMake(5000, 0, 100, 50));
    EXPECT_TRUE(tapped()) << "off the screen";
    other->removeFromSuperview();
    other->setFrame(CGRectMake(0, 780, 100, 50));
    view->addSubview(other);
    view->setContentOffset(CGPointMake(0, 200));
    EXPECT_TRUE(tapped()) << "cut off by the one that it is in";
    view->setContentOffset(CGPointMake(0, 400));
    EXPECT_FALSE(tapped());
}

TEST_F(StatusBarTaps, AControlOrAWindowAboveKeepsItsTap) {
    const auto control = make<UIControl>(&UIControl::initWithFrame, CGRectMake(0, 0, 100, 44));
    window->addSubview(control);
    host.tap({50, 10});
    EXPECT_THAT(news(), IsEmpty());
    const auto alert = make<UIWindow>(&UIWindow::initWithFrame, window->frame());
    alert->setWindowLevel(UIWindowLevelAlert);
    alert->makeKeyAndVisible();
    host.tap({150, 10});
    EXPECT_THAT(news(), IsEmpty());
    alert->setHidden(true);
    host.tap({150, 10});
    EXPECT_THAT(news(), ElementsAre("to top?"));
}

} // namespace zr::tests
