#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <gtest/gtest.h>

using namespace zr;

namespace {

class TouchLogger : public UIView {
public:
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent*) override { note("began", touches); }
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent*) override { note("moved", touches); }
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent*) override { note("ended", touches); }
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent*) override { note("cancelled", touches); }
    void note(const char* what, const TouchSet& touches) {
        log.push_back(what);
        location = touches[0]->locationInView(this);
        previous = touches[0]->previousLocationInView(this);
        tapCount = touches[0]->tapCount();
        object = touches[0];
    }
    std::vector<std::string> log;
    CGPoint location, previous;
    NSUInteger tapCount = 0;
    Ref<UITouch> object;
};

class TouchTest : public testing::Test {
protected:
    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<TouchLogger> view = add(CGRectMake(100, 100, 50, 50));

    void SetUp() override { window->makeKeyAndVisible(); }
    Ref<TouchLogger> add(CGRect frame, UIView* parent = nullptr) {
        auto logger = make<TouchLogger>(&TouchLogger::initWithFrame, frame);
        (parent ? parent : static_cast<UIView*>(window))->addSubview(logger);
        return logger;
    }
    using Log = std::vector<std::string>;
};

} // namespace

TEST_F(TouchTest, TheViewHitGetsTheTouchUntilItEnds) {
    host.touchDown({110, 120});
    EXPECT_EQ(view->location, CGPointMake(10, 20));
    const Ref<UITouch> touch = view->object;
    host.touchMove({300, 300});
    EXPECT_EQ(view->location, CGPointMake(200, 200));
    EXPECT_EQ(view->previous, CGPointMake(10, 20));
    EXPECT_EQ(view->object, touch);
    host.touchUp();
    EXPECT_EQ(view->log, (Log{"began", "moved", "ended"}));
    EXPECT_EQ(touch->phase(), UITouchPhaseEnded);
}

TEST_F(TouchTest, APlainViewPassesTouchesUp) {
    auto child = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 20, 20));
    view->addSubview(child);
    host.tap({105, 105});
    EXPECT_EQ(view->log, (Log{"began", "ended"}));
}

TEST_F(TouchTest, TheWindowInFrontGetsTheTouch) {
    auto front = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 375, 110));
    front->setWindowLevel(UIWindowLevelAlert);
    front->makeKeyAndVisible();
    host.tap({110, 105});
    EXPECT_TRUE(view->log.empty());
    host.tap({110, 115});
    EXPECT_EQ(view->log.size(), 2u);
}

TEST_F(TouchTest, AWindowsOriginCounts) {
    auto moved = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(20, 30, 100, 100));
    auto logger = make<TouchLogger>(&TouchLogger::initWithFrame, CGRectMake(0, 0, 100, 100));
    moved->addSubview(logger);
    moved->makeKeyAndVisible();
    host.tap({25, 37});
    EXPECT_EQ(logger->location, CGPointMake(5, 7));
}

TEST_F(TouchTest, CancelledTouchesSaySo) {
    host.touchDown({110, 110});
    host.touchCancel();
    EXPECT_EQ(view->log, (Log{"began", "cancelled"}));
    host.touchUp();
    EXPECT_EQ(view->log.size(), 2u);
}

TEST_F(TouchTest, AViewTakenAwayIsCancelled) {
    host.touchDown({110, 110});
    view->removeFromSuperview();
    EXPECT_EQ(view->log, (Log{"began", "cancelled"}));
    host.touchMove({120, 120});
    host.touchUp();
    EXPECT_EQ(view->log.size(), 2u);
}

TEST_F(TouchTest, AViewDroppedDuringItsTouchHarmsNobody) {
    host.touchDown({110, 110});
    view->removeFromSuperview();
    view = nullptr;
    host.touchMove({120, 120});
    host.touchUp();
}

TEST_F(TouchTest, OneFingerAViewUnlessItAsksForMore) {
    host.touchDown({110, 110}, 1);
    host.touchDown({120, 120}, 2);
    EXPECT_EQ(view->log, (Log{"began"}));
    host.touchUp(2);
    host.touchUp(1);
    view->log.clear();
    view->setMultipleTouchEnabled(true);
    host.touchDown({110, 110}, 1);
    host.touchDown({120, 120}, 2);
    EXPECT_EQ(view->log, (Log{"began", "began"}));
}

TEST_F(TouchTest, AnExclusiveViewIsTouchedAlone) {
    auto exclusive = add(CGRectMake(200, 200, 50, 50));
    exclusive->setExclusiveTouch(true);
    host.touchDown({110, 110}, 1);
    host.touchDown({210, 210}, 2);
    EXPECT_TRUE(exclusive->log.empty());
    host.touchUp(1);
    host.touchUp(2);
    host.touchDown({210, 210}, 2);
    view->log.clear();
    host.touchDown({110, 110}, 1);
    EXPECT_TRUE(view->log.empty());
    EXPECT_EQ(exclusive->log, (Log{"began"}));
}

TEST_F(TouchTest, TapsInQuickSuccessionAreCounted) {
    host.tap({110, 110});
    EXPECT_EQ(view->tapCount, 1u);
    host.advance(0.2);
    host.tap({112, 110});
    EXPECT_EQ(view->tapCount, 2u);
    host.advance(0.2);
    host.tap({110, 110});
    EXPECT_EQ(view->tapCount, 3u);
    host.advance(0.4);
    host.tap({110, 110});
    EXPECT_EQ(view->tapCount, 1u);
}

TEST_F(TouchTest, AFingerThatMovesAwayTapsNoMore) {
    host.touchDown({110, 110});
    host.touchMove({120, 110});
    EXPECT_EQ(view->tapCount, 1u);
    host.touchMove({120.5, 110});
    EXPECT_EQ(view->tapCount, 0u);
}

TEST_F(TouchTest, IgnoredWhileInteractionIsIgnored) {
    host.application()->beginIgnoringInteractionEvents();
    host.tap({110, 110});
    EXPECT_TRUE(view->log.empty());
    host.application()->endIgnoringInteractionEvents();
    host.application()->endIgnoringInteractionEvents();
    host.tap({110, 110});
    EXPECT_EQ(view->log.size(), 2u);
}

TEST_F(TouchTest, AMoveToTheSamePlaceIsNoMove) {
    host.touchDown({110, 110});
    host.touchMove({110, 110});
    EXPECT_EQ(view->log, (Log{"began"}));
}

namespace {

/// Takes itself away whenever its touch ends, in whichever way.
class ShyView : public TouchLogger {
public:
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override {
        TouchLogger::touchesEnded_withEvent(touches, event);
        removeFromSuperview();
    }
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override {
        TouchLogger::touchesCancelled_withEvent(touches, event);
        removeFromSuperview();
    }
};

/// Hides another view when it is touched.
class HidingView : public TouchLogger {
public:
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override {
        TouchLogger::touchesBegan_withEvent(touches, event);
        other->setHidden(true);
    }
    Weak<UIView> other;
};

} // namespace

TEST_F(TouchTest, ATouchEndsOnceWhateverItsViewDoesThen) {
    auto shy = make<ShyView>(&ShyView::initWithFrame, CGRectMake(200, 100, 50, 50));
    window->addSubview(shy);
    host.tap({210, 110});
    EXPECT_EQ(shy->log, (Log{"began", "ended"}));
    window->addSubview(shy);
    shy->log.clear();
    host.touchDown({210, 110});
    shy->removeFromSuperview();
    EXPECT_EQ(shy->log, (Log{"began", "cancelled"}));
}

TEST_F(TouchTest, OneFingersEndTellsNobodyOfTheOther) {
    auto hiding = make<HidingView>(&HidingView::initWithFrame, CGRectMake(200, 100, 50, 50));
    hiding->other = view;
    window->addSubview(hiding);
    host.touchDown({110, 110}, 1);
    host.touchDown({210, 110}, 2);
    EXPECT_EQ(hiding->log, (Log{"began"}));
    EXPECT_EQ(view->log, (Log{"began", "cancelled"}));
}
