#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

namespace zr::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Answers as it is told to, and remembers the questions.
class AskingScrollView : public UIScrollView {
public:
    bool touchesShouldBegin_withEvent_inContentView(const TouchSet& touches, UIEvent*, UIView* content) override {
        questions.push_back(touches.size() == 1 && touches[0]->view() == content ? "begin?" : "wrong");
        return begins;
    }
    bool touchesShouldCancelInContentView(UIView*) override {
        questions.push_back("cancel?");
        return cancels;
    }
    Log questions;
    bool begins = true;
    bool cancels = true;
};

/// A scroll view with a view that covers its content, and a button beside that.
class ScrollTouches : public Scrolling {
protected:
    ScrollTouches() {
        view->removeFromSuperview();
        window->addSubview(asking);
        asking->setContentSize(CGSizeMake(200, 800));
        asking->setDelegate(delegate);
        asking->addSubview(content);
        asking->addSubview(button);
        button->addTarget_action_forControlEvents(button, selector<&CountingButton::pressed>,
                                                  UIControlEventTouchUpInside);
        host.advance(0);
    }

    class CountingButton : public UIControl {
    public:
        void pressed() { ++presses; }
        int presses = 0;
    };

    Ref<AskingScrollView> asking =
        make<AskingScrollView>(&AskingScrollView::initWithFrame, CGRectMake(50, 100, 200, 400));
    Ref<TouchedView> content = make<TouchedView>(&TouchedView::initWithFrame, CGRectMake(0, 0, 200, 800));
    Ref<CountingButton> button = make<CountingButton>(&CountingButton::initWithFrame, CGRectMake(0, 0, 200, 50));
};

} // namespace

TEST_F(ScrollTouches, TheContentHearsOfATouchAfterAWhile) {
    host.touchDown({150, 300});
    host.advance(0.149);
    EXPECT_THAT(content->log, IsEmpty());
    host.advance(0.001);
    EXPECT_THAT(content->log, ElementsAre("began"));
    host.touchMove({150, 305});
    host.touchUp();
    EXPECT_THAT(content->log, ElementsAre("began", "moved", "ended"));
}

TEST_F(ScrollTouches, AQuickTapIsToldAtItsEndAndWhole) {
    host.touchDown({150, 300});
    host.advance(0.05);
    EXPECT_THAT(content->log, IsEmpty());
    host.touchUp();
    EXPECT_THAT(content->log, ElementsAre("began", "ended"));
    host.advance(1);
    EXPECT_THAT(content->log, ElementsAre("began", "ended"));
    host.tap({150, 120});
    EXPECT_EQ(button->presses, 1);
}

TEST_F(ScrollTouches, TheContentHearsNothingOfAQuickDrag) {
    drag({150, 300}, {0, -50});
    host.touchUp();
    host.advance(5);
    EXPECT_THAT(content->log, IsEmpty());
}

TEST_F(ScrollTouches, ADragThatBeginsLaterTakesTheTouchAway) {
    host.touchDown({150, 300});
    host.advance(0.2);
    host.touchMove({150, 280});
    host.touchMove({150, 270});
    host.touchUp();
    EXPECT_THAT(content->log, ElementsAre("began", "cancelled"));
    EXPECT_THAT(asking->questions, ElementsAre("begin?", "cancel?"));
}

TEST_F(ScrollTouches, AButtonUnderADragIsNotPressed) {
    host.touchDown({150, 120});
    host.advance(0.2);
    EXPECT_TRUE(button->isHighlighted());
    host.touchMove({150, 108});
    EXPECT_FALSE(button->isHighlighted());
    EXPECT_TRUE(asking->isDragging());
    host.touchUp();
    EXPECT_EQ(button->presses, 0);
}

TEST_F(ScrollTouches, WithoutDelayTheContentHearsAtOnce) {
    asking->setDelaysContentTouches(false);
    host.touchDown({150, 300});
    EXPECT_THAT(content->log, ElementsAre("began"));
    host.touchMove({150, 280});
    EXPECT_THAT(content->log, ElementsAre("began", "cancelled"));
}

TEST_F(ScrollTouches, WhatCannotScrollDelaysNothing) {
    asking->setContentSize(CGSizeMake(200, 300));
    host.touchDown({150, 300});
    EXPECT_THAT(content->log, ElementsAre("began"));
    host.touchUp();
    asking->setContentSize(CGSizeMake(200, 800));
    asking->setScrollEnabled(false);
    content->log.clear();
    host.touchDown({150, 300});
    host.touchMove({150, 200});
    EXPECT_THAT(content->log, ElementsAre("began", "moved"));
    EXPECT_FALSE(asking->isTracking());
    EXPECT_EQ(asking->contentOffset(), CGPointZero);
}

TEST_F(ScrollTouches, AContentThatKeepsItsTouchesIsNotScrolledByThem) {
    asking->setCanCancelContentTouches(false);
    host.touchDown({150, 300});
    host.advance(0.2);
    host.touchMove({150, 200});
    EXPECT_FALSE(asking->isDragging());
    EXPECT_THAT(content->log, ElementsAre("began", "moved"));
    EXPECT_THAT(asking->questions, ElementsAre("begin?"));
    host.touchUp();
    drag({150, 300}, {0, -50});
    EXPECT_TRUE(asking->isDragging()) << "the content has not heard of this one";
}

TEST_F(ScrollTouches, TheScrollViewMayLeaveTheTouchToTheContent) {
    asking->cancels = false;
    host.touchDown({150, 300});
    host.advance(0.2);
    host.touchMove({150, 200});
    host.touchMove({150, 100});
    EXPECT_FALSE(asking->isDragging());
    EXPECT_THAT(asking->questions, ElementsAre("begin?", "cancel?"));
    EXPECT_THAT(content->log, ElementsAre("began", "moved", "moved"));
}

TEST_F(ScrollTouches, TheScrollViewMayKeepTheContentFromATouch) {
    asking->begins = false;
    host.touchDown({150, 300});
    host.advance(1);
    host.touchMove({150, 295});
    host.touchUp();
    EXPECT_THAT(content->log, IsEmpty());
    EXPECT_THAT(asking->questions, ElementsAre("begin?"));
    host.touchDown({150, 300});
    host.advance(1);
    host.touchMove({150, 200});
    EXPECT_TRUE(asking->isDragging());
}

TEST_F(ScrollTouches, AFingerThatStopsMovingContentTouchesNothing) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(0.1);
    host.touchDown({150, 300});
    host.advance(1);
    host.touchUp();
    EXPECT_THAT(content->log, IsEmpty());
    host.touchDown({150, 300});
    host.touchUp();
    EXPECT_THAT(content->log, ElementsAre("began", "ended"));
}

TEST_F(ScrollTouches, AFingerOnAContentThatHardlyMovesAnyMoreTouchesIt) {
    drag({150, 450}, {0, -60});
    host.touchUp();
    host.advance(2.5); // 600 points a second have become 4
    ASSERT_TRUE(asking->isDecelerating());
    host.tap({150, 300});
    EXPECT_FALSE(asking->isDecelerating());
    EXPECT_THAT(content->log, ElementsAre("began", "ended"));
}

TEST_F(ScrollTouches, TheScrollViewItselfHearsWhatItsContentPassesUp) {
    class HearingScrollView : public UIScrollView {
    public:
        void touchesBegan_withEvent(const TouchSet&, UIEvent*) override { log.push_back("began"); }
        void touchesEnded_withEvent(const TouchSet&, UIEvent*) override { log.push_back("ended"); }
        void touchesCancelled_withEvent(const TouchSet&, UIEvent*) override { log.push_back("cancelled"); }
        Log log;
    };
    const auto hearing = make<HearingScrollView>(&HearingScrollView::initWithFrame, CGRectMake(0, 0, 100, 100));
    hearing->setContentSize(CGSizeMake(100, 1000));
    hearing->addSubview(make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 100, 1000)));
    window->addSubview(hearing);
    host.touchDown({50, 50});
    host.advance(0.2);
    EXPECT_THAT(hearing->log, ElementsAre("began"));
    host.touchMove({50, 30});
    EXPECT_THAT(hearing->log, ElementsAre("began", "cancelled"));
}

TEST_F(ScrollTouches, TapsOfTheContentAreStillRecognised) {
    class Target : public NSObject {
    public:
        void tapped() { ++taps; }
        int taps = 0;
    };
    const auto target = make<Target>();
    content->addGestureRecognizer(make<UITapGestureRecognizer>(&UITapGestureRecognizer::initWithTarget_action, target,
                                                               selector<&Target::tapped>));
    host.tap({150, 300});
    EXPECT_EQ(target->taps, 1);
    EXPECT_FALSE(asking->isTracking());
    drag({150, 300}, {0, -50});
    host.touchUp();
    EXPECT_EQ(target->taps, 1);
}

TEST_F(ScrollTouches, ThePanOfTheScrollViewWorksFromAnotherView) {
    const auto elsewhere = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 550, 300, 100));
    window->addSubview(elsewhere);
    elsewhere->addGestureRecognizer(asking->panGestureRecognizer());
    drag({150, 640}, {0, -60});
    EXPECT_EQ(asking->contentOffset(), CGPointMake(0, 50));
}

TEST_F(ScrollTouches, ASecondFingerDoesNotMakeTheContentJump) {
    drag({150, 300}, {0, -60});
    host.touchDown({100, 450}, 1);
    EXPECT_EQ(asking->contentOffset(), CGPointMake(0, 50));
    host.touchMove({100, 430}, 1);
    EXPECT_EQ(asking->contentOffset(), CGPointMake(0, 60)) << "their centre has moved by half of it";
    host.touchUp();
    EXPECT_TRUE(asking->isDragging());
    EXPECT_TRUE(asking->isTracking());
    host.touchUp(1);
    EXPECT_FALSE(asking->isTracking());
}

} // namespace zr::tests
