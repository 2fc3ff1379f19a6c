#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

namespace zr::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The scroll view of `Scrolling`, which goes up and down, in a pager of 300 x 500 points with three pages, and in the
/// former a list of 200 x 200 points at its beginning.
class NestedScrolling : public Scrolling {
protected:
    NestedScrolling() {
        pager->setPagingEnabled(true);
        view->setContentSize(CGSizeMake(200, 800));
        pager->addSubview(view);
        view->setFrame(CGRectMake(50, 50, 200, 400));
        host.advance(0);
    }

    Ref<UIScrollView> pager = addScrollView(window, CGRectMake(0, 50, 300, 500), CGSizeMake(900, 500));
    Ref<UIScrollView> list = addScrollView(view, CGRectMake(0, 0, 200, 200), CGSizeMake(200, 600));
};

/// Refuses, or allows both.
class Rival : public NSObject, public UIGestureRecognizerDelegate {
public:
    bool gestureRecognizerShouldBegin(UIGestureRecognizer*) override { return begins; }
    bool gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(UIGestureRecognizer*,
                                                                              UIGestureRecognizer*) override {
        return allowsBoth;
    }
    void panned() { ++pans; }
    bool begins = true;
    bool allowsBoth = false;
    int pans = 0;
};

} // namespace

TEST_F(NestedScrolling, ADragGoesToTheOneThatScrollsThatWay) {
    drag({150, 420}, {-60, 5});
    EXPECT_TRUE(pager->isDragging());
    EXPECT_FALSE(view->isDragging());
    EXPECT_EQ(pager->contentOffset(), CGPointMake(50, 0));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
    host.touchUp();
    host.advance(2);
    pager->setContentOffset_animated(CGPointZero, false);
    drag({150, 420}, {5, -60});
    EXPECT_TRUE(view->isDragging());
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
    EXPECT_EQ(pager->contentOffset(), CGPointZero);
}

TEST_F(NestedScrolling, OneFastMoveGoesToTheWayThatIsLonger) {
    host.touchDown({150, 420});
    host.touchMove({90, 380});
    EXPECT_TRUE(pager->isDragging());
    EXPECT_FALSE(view->isDragging());
}

TEST_F(NestedScrolling, OfTwoThatScrollTheSameWayTheInnerOneGoesFirst) {
    drag({150, 220}, {0, -60});
    EXPECT_EQ(list->contentOffset(), CGPointMake(0, 50));
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(NestedScrolling, AnInnerOneAtItsEndLeavesTheDragToTheOuterOne) {
    list->setContentOffset(CGPointMake(0, 400));
    drag({150, 220}, {0, -60});
    EXPECT_EQ(list->contentOffset(), CGPointMake(0, 400));
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
}

TEST_F(NestedScrolling, WithNoRoomAnywhereTheInnerOneBounces) {
    drag({150, 120}, {0, 60});
    EXPECT_TRUE(list->isDragging());
    EXPECT_LT(list->contentOffset().y, 0);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(NestedScrolling, ADragThatBegunInsideStaysThereAtTheEnd) {
    list->setContentOffset(CGPointMake(0, 380));
    drag({150, 220}, {0, -60});
    EXPECT_GT(list->contentOffset().y, 400);
    EXPECT_EQ(view->contentOffset(), CGPointZero);
}

TEST_F(NestedScrolling, AnInnerOneThatIsOffLeavesTheDragToTheOuterOne) {
    list->setScrollEnabled(false);
    drag({150, 220}, {0, -60});
    EXPECT_EQ(list->contentOffset(), CGPointZero);
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 50));
}

TEST_F(NestedScrolling, TheContentOfBothIsDelayedOnce) {
    const auto content = make<TouchedView>(&TouchedView::initWithFrame, CGRectMake(0, 0, 200, 600));
    list->addSubview(content);
    host.touchDown({150, 200});
    host.advance(0.149);
    EXPECT_THAT(content->log, IsEmpty());
    host.advance(0.001);
    EXPECT_THAT(content->log, ElementsAre("began"));
    host.touchMove({100, 200});
    EXPECT_TRUE(pager->isDragging());
    EXPECT_THAT(content->log, ElementsAre("began", "cancelled"));
}

TEST_F(NestedScrolling, AFingerThatStopsTheOuterOneTouchesNothingInTheInnerOne) {
    const auto content = make<TouchedView>(&TouchedView::initWithFrame, CGRectMake(0, 0, 200, 600));
    list->addSubview(content);
    view->setContentOffset_animated(CGPointMake(0, 100), true);
    host.advance(0.1);
    host.tap({150, 130});
    EXPECT_THAT(content->log, IsEmpty());
}

// Other recognisers

TEST_F(NestedScrolling, ARecogniserFurtherInWinsUnlessItRefuses) {
    const auto row = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 200, 600));
    list->addSubview(row);
    const auto rival = make<Rival>();
    const auto pan =
        make<UIPanGestureRecognizer>(&UIPanGestureRecognizer::initWithTarget_action, rival, selector<&Rival::panned>);
    pan->setDelegate(rival);
    row->addGestureRecognizer(pan);
    drag({150, 220}, {0, -60});
    EXPECT_GT(rival->pans, 0);
    EXPECT_FALSE(list->isDragging());
    host.touchUp();
    rival->begins = false;
    drag({150, 220}, {0, -60});
    EXPECT_TRUE(list->isDragging());
    host.touchUp();
    host.advance(5);
    list->setContentOffset_animated(CGPointZero, false);
    rival->begins = true;
    rival->allowsBoth = true;
    rival->pans = 0;
    drag({150, 220}, {0, -60});
    EXPECT_GT(rival->pans, 0);
    EXPECT_TRUE(list->isDragging()) << "one yes is enough for both";
}

TEST_F(NestedScrolling, AScrollViewIsAskedAsTheDelegateOfItsPan) {
    class Generous : public UIScrollView {
    public:
        bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override {
            timesAsked += recognizer == panGestureRecognizer();
            return begins && UIScrollView::gestureRecognizerShouldBegin(recognizer);
        }
        bool gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(UIGestureRecognizer*,
                                                                                  UIGestureRecognizer*) override {
            return true;
        }
        int timesAsked = 0;
        bool begins = true;
    };
    const auto generous = make<Generous>(&Generous::initWithFrame, CGRectMake(0, 200, 200, 200));
    generous->setContentSize(CGSizeMake(200, 600));
    view->addSubview(generous);
    drag({150, 420}, {0, -60});
    EXPECT_EQ(generous->timesAsked, 1);
    EXPECT_TRUE(generous->isDragging());
    EXPECT_TRUE(view->isDragging()) << "both at once, as the inner one allows";
    host.touchUp();
    host.advance(5);
    generous->begins = false;
    drag({150, 300}, {0, -60});
    EXPECT_FALSE(generous->isDragging());
}

} // namespace zr::tests
