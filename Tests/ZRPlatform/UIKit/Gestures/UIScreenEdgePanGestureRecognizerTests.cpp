#include <Tests/ZRPlatform/UIKit/Gestures/GestureTesting.h>

namespace zr::tests {

namespace {

class EdgePans : public Gestures {
protected:
    Ref<UIScreenEdgePanGestureRecognizer> pan = attach<UIScreenEdgePanGestureRecognizer>(window, "pan");

    /// Whether a drag from one point by a way is recognised.
    bool recognises(CGPoint start, CGPoint way) {
        host.touchDown(start);
        host.touchMove({start.x + way.x, start.y + way.y});
        const bool began = pan->state() == UIGestureRecognizerStateBegan;
        host.touchUp();
        return began;
    }
};

} // namespace

TEST_F(EdgePans, ItHasNoEdgesAtFirst) {
    EXPECT_EQ(pan->edges(), UIRectEdgeNone);
    EXPECT_FALSE(recognises({1, 200}, {50, 0}));
}

TEST_F(EdgePans, AFingerComesInFromOneOfItsEdges) {
    const CGSize size = window->bounds().size;
    struct Case {
        NSUInteger edge;
        CGPoint start, way;
    };
    const CGFloat middle = 200;
    for (const Case& each :
         {Case{UIRectEdgeLeft, {20, middle}, {10, 9}}, Case{UIRectEdgeRight, {size.width - 20, middle}, {-10, 9}},
          Case{UIRectEdgeTop, {middle, 20}, {9, 10}}, Case{UIRectEdgeBottom, {middle, size.height - 20}, {9, -10}}}) {
        pan->setEdges(each.edge);
        EXPECT_TRUE(recognises(each.start, each.way)) << each.edge;
        EXPECT_FALSE(recognises(each.start, {-each.way.x, -each.way.y})) << each.edge << " outwards";
        EXPECT_FALSE(recognises(each.start, {each.way.y, each.way.x})) << each.edge << " along";
        EXPECT_FALSE(recognises({middle, middle}, each.way)) << each.edge << " from the middle";
        pan->setEdges(UIRectEdgeAll & ~each.edge);
        EXPECT_FALSE(recognises(each.start, each.way)) << each.edge << " is none of them";
    }
}

TEST_F(EdgePans, TheDirectionIsDecidedByTheFirstTenPoints) {
    pan->setEdges(UIRectEdgeLeft);
    host.touchDown({5, 200});
    host.touchMove({6, 209});
    EXPECT_EQ(pan->state(), UIGestureRecognizerStatePossible);
    host.touchMove({16, 209});
    EXPECT_EQ(pan->state(), UIGestureRecognizerStateBegan);
    host.touchMove({16, 400});
    EXPECT_EQ(pan->state(), UIGestureRecognizerStateChanged);
    host.touchUp();
}

TEST_F(EdgePans, ASecondFingerPreventsIt) {
    pan->setEdges(UIRectEdgeLeft);
    host.touchDown({5, 200}, 0);
    host.touchDown({5, 300}, 1);
    host.touchMove({50, 200}, 0);
    EXPECT_EQ(pan->state(), UIGestureRecognizerStateFailed);
    host.touchUp(0);
    host.touchUp(1);
}

} // namespace zr::tests
