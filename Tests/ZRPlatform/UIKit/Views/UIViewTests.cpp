#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <gtest/gtest.h>

#include <numbers>
#include <thread>

using namespace zr;

namespace {

class UIViewTest : public testing::Test {
protected:
    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());

    void SetUp() override {
        window->setBackgroundColor(UIColor::whiteColor());
        window->makeKeyAndVisible();
    }
    Ref<UIView> add(CGRect frame, UIView* parent = nullptr, UIColor* color = UIColor::blackColor()) {
        auto view = make<UIView>(&UIView::initWithFrame, frame);
        view->setBackgroundColor(color);
        (parent ? parent : static_cast<UIView*>(window))->addSubview(view);
        return view;
    }
};

/// Writes down what happens to it.
class RecordingView : public UIView {
public:
    void willMoveToSuperview(UIView* view) override { note(view ? "will move" : "will leave"); }
    void didMoveToSuperview() override { note(superview() ? "moved" : "left"); }
    void didMoveToWindow() override { note(window() ? "in window" : "out of window"); }
    void didAddSubview(UIView*) override { note("added"); }
    void willRemoveSubview(UIView*) override { note("removing"); }
    void layoutSubviews() override { note("layout"); }
    void note(const char* what) { log.push_back(what); }
    std::vector<std::string> log;
};

class DrawingView : public UIView {
public:
    void drawRect(CGRect rect) override {
        ++drawn;
        lastRect = rect;
        CGContextRef context = UIGraphicsGetCurrentContext();
        CGContextSetRGBFillColor(context, 1, 0, 0, 1);
        CGContextFillRect(context, CGRectMake(0, 0, 10, 10));
    }
    int drawn = 0;
    CGRect lastRect;
};

} // namespace

TEST_F(UIViewTest, DefaultsAreThoseOfAPlainView) {
    auto view = make<UIView>();
    EXPECT_EQ(view->frame(), CGRectZero);
    EXPECT_EQ(view->alpha(), 1);
    EXPECT_TRUE(view->isOpaque());
    EXPECT_FALSE(view->isHidden());
    EXPECT_TRUE(view->isUserInteractionEnabled());
    EXPECT_EQ(view->contentMode(), 0);
    EXPECT_TRUE(view->autoresizesSubviews());
    EXPECT_EQ(view->autoresizingMask(), 0u);
    EXPECT_FALSE(view->clipsToBounds());
    EXPECT_EQ(view->backgroundColor(), nullptr);
    EXPECT_EQ(view->superview(), nullptr);
}

TEST_F(UIViewTest, FrameCenterAndBoundsFollowOneAnother) {
    auto view = add(CGRectMake(10, 20, 30, 40));
    EXPECT_EQ(view->center(), CGPointMake(25, 40));
    view->setCenter({100, 100});
    EXPECT_EQ(view->frame(), CGRectMake(85, 80, 30, 40));
    view->setBounds(CGRectMake(5, 6, 10, 10));
    EXPECT_EQ(view->frame(), CGRectMake(95, 95, 10, 10));
    EXPECT_EQ(view->center(), CGPointMake(100, 100));
}

TEST_F(UIViewTest, FrameIsTheBoxAroundTheTransformedBounds) {
    auto view = add(CGRectMake(10, 20, 30, 40));
    view->setTransform(CGAffineTransformMakeScale(2, 0.5));
    EXPECT_EQ(view->frame(), CGRectMake(-5, 30, 60, 20));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 30, 40));
    EXPECT_EQ(view->center(), CGPointMake(25, 40));
    view->setFrame(CGRectMake(0, 0, 60, 20));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 30, 40));
    EXPECT_EQ(view->center(), CGPointMake(30, 10));
}

TEST_F(UIViewTest, SubviewsAreOrderedAsInserted) {
    auto parent = add(CGRectMake(0, 0, 100, 100));
    auto a = add(CGRectZero, parent), b = add(CGRectZero, parent);
    auto c = make<UIView>(), d = make<UIView>(), e = make<UIView>();
    parent->insertSubview_atIndex(c, 0);
    parent->insertSubview_belowSubview(d, b);
    parent->insertSubview_aboveSubview(e, a);
    const auto order = [&] {
        std::vector<UIView*> views(parent->subviews().begin(), parent->subviews().end());
        return views;
    };
    EXPECT_EQ(order(), (std::vector<UIView*>{c, a, e, d, b}));
    parent->bringSubviewToFront(a);
    parent->sendSubviewToBack(b);
    EXPECT_EQ(order(), (std::vector<UIView*>{b, c, e, d, a}));
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(parent->layer()->sublayers()[i].get(), parent->subviews()[i]->layer());
    parent->insertSubview_atIndex(make<UIView>(), 99);
    EXPECT_EQ(parent->subviews().size(), 6u);
    parent->insertSubview_atIndex(c, -5);
    EXPECT_EQ(parent->subviews()[0].get(), c.get());
}

TEST_F(UIViewTest, AViewMovesFromOneSuperviewToAnother) {
    auto first = add(CGRectZero), second = add(CGRectZero);
    auto view = make<UIView>();
    first->addSubview(view);
    second->addSubview(view);
    EXPECT_TRUE(first->subviews().empty());
    EXPECT_EQ(view->superview(), second.get());
    EXPECT_EQ(view->window(), window.get());
    view->removeFromSuperview();
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_EQ(view->window(), nullptr);
    view->removeFromSuperview();
}

TEST_F(UIViewTest, NilItselfAndAncestorsAreNotAdded) {
    auto parent = add(CGRectZero);
    auto child = add(CGRectZero, parent);
    child->addSubview(nullptr);
    child->addSubview(child);
    child->addSubview(parent);
    EXPECT_TRUE(child->subviews().empty());
    EXPECT_EQ(parent->superview(), window.get());
}

TEST_F(UIViewTest, TellsOfItsMovesInOrder) {
    auto view = make<RecordingView>();
    window->addSubview(view);
    EXPECT_EQ(view->log, (std::vector<std::string>{"will move", "in window", "moved"}));
    view->log.clear();
    view->removeFromSuperview();
    EXPECT_EQ(view->log, (std::vector<std::string>{"will leave", "out of window", "left"}));
}

TEST_F(UIViewTest, LayoutRunsOnceATurnFromTheTopDown) {
    auto outer = make<RecordingView>(), inner = make<RecordingView>();
    outer->addSubview(inner);
    window->addSubview(outer);
    host.advance(0);
    outer->log.clear();
    inner->log.clear();
    inner->setNeedsLayout();
    inner->setNeedsLayout();
    EXPECT_TRUE(inner->log.empty());
    host.advance(0);
    EXPECT_EQ(inner->log, (std::vector<std::string>{"layout"}));
    EXPECT_TRUE(outer->log.empty());
    outer->setFrame(CGRectMake(0, 0, 10, 10));
    outer->layoutIfNeeded();
    EXPECT_EQ(outer->log, (std::vector<std::string>{"layout"}));
}

TEST_F(UIViewTest, MovingAloneAsksForNoLayout) {
    auto view = make<RecordingView>();
    window->addSubview(view);
    host.advance(0);
    view->log.clear();
    view->setCenter({50, 50});
    host.advance(0);
    EXPECT_TRUE(view->log.empty());
}

TEST_F(UIViewTest, DrawRectDrawsIntoTheViewsOwnBitmapAtTheScreensScale) {
    auto view = make<DrawingView>(&DrawingView::initWithFrame, CGRectMake(100, 50, 20, 30));
    window->addSubview(view);
    host.advance(0);
    EXPECT_EQ(view->drawn, 1);
    EXPECT_EQ(view->lastRect, CGRectMake(0, 0, 20, 30));
    EXPECT_EQ(view->layer()->contents()->width(), 40u);
    EXPECT_EQ(host.pixel({109.5, 59.5}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({110, 59.5}), (FramePixel{255, 255, 255}));
    view->setCenter({10, 10});
    host.advance(0);
    EXPECT_EQ(view->drawn, 1);
    view->setNeedsDisplay();
    host.advance(0);
    EXPECT_EQ(view->drawn, 2);
}

TEST_F(UIViewTest, ABoundsOriginShiftsWhatIsDrawn) {
    auto view = make<DrawingView>(&DrawingView::initWithFrame, CGRectMake(0, 0, 20, 20));
    view->setBounds(CGRectMake(5, 5, 20, 20));
    view->setCenter({10, 10});
    window->addSubview(view);
    EXPECT_EQ(host.pixel({4.5, 4.5}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({5, 4.5}), (FramePixel{255, 255, 255}));
}

TEST_F(UIViewTest, AViewThatDoesNotDrawHasNoBitmap) {
    auto view = add(CGRectMake(0, 0, 300, 300));
    view->setNeedsDisplay();
    host.advance(0);
    EXPECT_EQ(view->layer()->contents(), nullptr);
}

TEST_F(UIViewTest, UndefinedAndHugeFramesDrawNothingAndHarmNobody) {
    auto view = make<DrawingView>(&DrawingView::initWithFrame, CGRectMake(NAN, 0, NAN, 10));
    window->addSubview(view);
    host.advance(0);
    view->setFrame(CGRectMake(0, 0, 1e9, 1e9));
    host.advance(0);
    EXPECT_EQ(view->layer()->contents(), nullptr);
    view->setFrame(CGRectMake(0, 0, INFINITY, 10));
    view->setTransform(CGAffineTransformMakeScale(0, 0));
    EXPECT_EQ(host.pixel({5, 5}), (FramePixel{255, 255, 255}));
}

// Autoresizing

TEST_F(UIViewTest, FlexiblePartsShareTheChangeInProportion) {
    auto parent = add(CGRectMake(0, 0, 100, 100));
    auto view = add(CGRectMake(10, 20, 30, 40), parent);
    view->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth |
                              UIViewAutoresizingFlexibleBottomMargin);
    parent->setFrame(CGRectMake(0, 0, 140, 300));
    // 40 more, shared 10 : 30 between the left margin and the width; all of the height goes to the bottom margin.
    EXPECT_EQ(view->frame(), CGRectMake(20, 20, 60, 40));
}

TEST_F(UIViewTest, RigidViewsStayWhereTheyAre) {
    auto parent = add(CGRectMake(0, 0, 100, 100));
    auto view = add(CGRectMake(10, 20, 30, 40), parent);
    parent->setFrame(CGRectMake(0, 0, 140, 300));
    EXPECT_EQ(view->frame(), CGRectMake(10, 20, 30, 40));
    view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleTopMargin);
    parent->setAutoresizesSubviews(false);
    parent->setFrame(CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(view->frame(), CGRectMake(10, 20, 30, 40));
}

TEST_F(UIViewTest, MarginsOnBothSidesKeepTheMiddle) {
    auto parent = add(CGRectMake(0, 0, 100, 100));
    auto view = add(CGRectMake(35, 40, 30, 20), parent);
    view->setAutoresizingMask(45);
    parent->setBounds(CGRectMake(0, 0, 200, 60));
    EXPECT_EQ(view->frame(), CGRectMake(85, 20, 30, 20));
}

// Hit testing and conversion

TEST_F(UIViewTest, TheTopmostViewIsHit) {
    auto below = add(CGRectMake(0, 0, 100, 100)), above = add(CGRectMake(50, 50, 100, 100));
    EXPECT_EQ(window->hitTest_withEvent({60, 60}, nullptr), above.get());
    EXPECT_EQ(window->hitTest_withEvent({49.9, 60}, nullptr), below.get());
    EXPECT_EQ(window->hitTest_withEvent({150, 150}, nullptr), window.get());
    EXPECT_EQ(window->hitTest_withEvent({375, 10}, nullptr), nullptr);
}

TEST_F(UIViewTest, HiddenFaintAndDisabledViewsAreNotHit) {
    auto view = add(CGRectMake(0, 0, 100, 100));
    const auto isHit = [&] { return window->hitTest_withEvent({10, 10}, nullptr) == view.get(); };
    EXPECT_TRUE(isHit());
    view->setHidden(true);
    EXPECT_FALSE(isHit());
    view->setHidden(false);
    view->setAlpha(0.009);
    EXPECT_FALSE(isHit());
    view->setAlpha(0.01);
    EXPECT_TRUE(isHit());
    view->setUserInteractionEnabled(false);
    EXPECT_FALSE(isHit());
}

TEST_F(UIViewTest, SubviewsOutsideTheBoundsAreNotHit) {
    auto parent = add(CGRectMake(0, 0, 50, 50));
    add(CGRectMake(40, 40, 50, 50), parent);
    EXPECT_EQ(window->hitTest_withEvent({60, 60}, nullptr), window.get());
}

TEST_F(UIViewTest, PointsConvertThroughTransforms) {
    auto parent = add(CGRectMake(100, 100, 100, 100));
    auto view = add(CGRectMake(10, 10, 20, 20), parent);
    EXPECT_EQ(view->convertPoint_toView({1, 2}, nullptr), CGPointMake(111, 112));
    EXPECT_EQ(view->convertPoint_fromView({111, 112}, window), CGPointMake(1, 2));
    parent->setTransform(CGAffineTransformMakeScale(2, 2));
    EXPECT_EQ(view->convertPoint_toView({1, 2}, window), CGPointMake(72, 74));
    EXPECT_EQ(view->convertRect_toView(CGRectMake(0, 0, 10, 10), window), CGRectMake(70, 70, 20, 20));
    EXPECT_EQ(view->convertRect_fromView(CGRectMake(70, 70, 20, 20), window), CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(view->convertRect_fromView(CGRectMake(70, 70, 20, 40), nullptr), CGRectMake(0, 0, 10, 20));
    parent->setTransform(CGAffineTransformMakeRotation(std::numbers::pi / 2));
    const CGRect turned = view->convertRect_toView(CGRectMake(0, 0, 10, 5), window);
    EXPECT_NEAR(turned.origin.x, 185, 1e-9);
    EXPECT_NEAR(turned.size.width, 5, 1e-9);
    EXPECT_NEAR(turned.size.height, 10, 1e-9);
}

TEST_F(UIViewTest, TagsAreSoughtInTheWholeTree) {
    auto parent = add(CGRectZero);
    auto child = add(CGRectZero, parent);
    child->setTag(7);
    EXPECT_EQ(window->viewWithTag(7), child.get());
    EXPECT_EQ(window->viewWithTag(8), nullptr);
}

namespace {

std::thread::id destroyedOn;

/// Says on which thread it was destroyed.
class Mortal : public UIView {
public:
    ~Mortal() override { destroyedOn = std::this_thread::get_id(); }
};

} // namespace

TEST(UIViewThreads, AViewDroppedElsewhereGoesWithTheHostAtTheLatest) {
    {
        HeadlessHost host;
        std::thread([kept = make<Mortal>()]() mutable { kept = nullptr; }).join();
        EXPECT_EQ(destroyedOn, std::thread::id());
    }
    EXPECT_EQ(destroyedOn, std::this_thread::get_id());
}

TEST_F(UIViewTest, TheLastReferenceMayGoOnAnyThread) {
    auto view = make<Mortal>();
    const Weak<UIView> weak = view;
    std::thread([kept = std::move(view)]() mutable { kept = nullptr; }).join();
    EXPECT_EQ(weak.get(), nullptr);
    host.advance(0);
    EXPECT_EQ(destroyedOn, std::this_thread::get_id());
}
