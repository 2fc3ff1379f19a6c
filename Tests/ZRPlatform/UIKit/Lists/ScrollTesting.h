#pragma once

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace zr::tests {

using Log = std::vector<std::string>;

/// Writes down what it is told; each scrolling only when asked to.
class ScrollLog : public NSObject, public UIScrollViewDelegate {
public:
    void scrollViewDidScroll(UIScrollView* view) override {
        offsets.push_back(view->contentOffset());
        if (logsScrolling)
            note("scrolled");
        if (onScroll)
            onScroll(view);
    }
    void scrollViewWillBeginDragging(UIScrollView*) override { note("will drag"); }
    void scrollViewWillEndDragging_withVelocity_targetContentOffset(UIScrollView*, CGPoint velocity,
                                                                    CGPoint* chosen) override {
        releaseVelocity = velocity;
        target = *chosen;
        note("will end");
        if (onRelease)
            onRelease(chosen);
    }
    void scrollViewDidEndDragging_willDecelerate(UIScrollView*, bool decelerate) override {
        note(decelerate ? "did end, goes on" : "did end");
    }
    void scrollViewWillBeginDecelerating(UIScrollView*) override { note("will decelerate"); }
    void scrollViewDidEndDecelerating(UIScrollView*) override { note("at rest"); }
    void scrollViewDidEndScrollingAnimation(UIScrollView*) override { note("animated"); }
    bool scrollViewShouldScrollToTop(UIScrollView*) override {
        note("to top?");
        return allowsTop;
    }
    void scrollViewDidScrollToTop(UIScrollView*) override { note("at top"); }

    Log log;
    std::vector<CGPoint> offsets;
    CGPoint releaseVelocity;
    CGPoint target;
    bool logsScrolling = false;
    bool allowsTop = true;
    std::function<void(UIScrollView*)> onScroll;
    std::function<void(CGPoint*)> onRelease;
    /// Called with each line, once it is written.
    std::function<void(const std::string& what)> act;

private:
    void note(const std::string& what) {
        log.push_back(what);
        if (act)
            act(what);
    }
};

/// A view that writes down its touches.
class TouchedView : public UIView {
public:
    void touchesBegan_withEvent(const TouchSet&, UIEvent*) override { note("began"); }
    void touchesMoved_withEvent(const TouchSet&, UIEvent*) override { note("moved"); }
    void touchesEnded_withEvent(const TouchSet&, UIEvent*) override { note("ended"); }
    void touchesCancelled_withEvent(const TouchSet&, UIEvent*) override { note("cancelled"); }

    Log log;
    std::vector<NSTimeInterval> times;

private:
    void note(const std::string& what) {
        log.push_back(what);
        times.push_back(CACurrentMediaTime());
    }
};

/// A scroll view of 200 x 400 points at (50, 100) with a content twice as large each way, and a delegate that logs.
class Scrolling : public testing::Test {
protected:
    Scrolling() {
        window->makeKeyAndVisible();
        view->setContentSize(CGSizeMake(400, 800));
        view->setDelegate(delegate);
        window->addSubview(view);
        host.advance(0);
    }

    Ref<UIScrollView> addScrollView(UIView* parent, CGRect frame, CGSize content) {
        auto added = make<UIScrollView>(&UIScrollView::initWithFrame, frame);
        added->setContentSize(content);
        parent->addSubview(added);
        return added;
    }
    /// Down there, moved by `way` in steps over so many seconds, and still down.
    void drag(CGPoint from, CGPoint way, NSTimeInterval seconds = 0.1) {
        host.touchDown(from);
        host.touchMove({from.x + way.x, from.y + way.y}, seconds);
    }
    /// Dragged, then held long enough to have no velocity, and let go of.
    void dragAndHold(CGPoint from, CGPoint way) {
        drag(from, way);
        host.advance(0.2);
        host.touchUp();
    }
    Log news() { return std::exchange(delegate->log, {}); }

    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<ScrollLog> delegate = make<ScrollLog>();
    Ref<UIScrollView> view = make<UIScrollView>(&UIScrollView::initWithFrame, CGRectMake(50, 100, 200, 400));
};

} // namespace zr::tests
