#include <ZRPlatform/UIKit/Gestures/UIScreenEdgePanGestureRecognizer.h>

#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kEdgeWidth = 20;
/// After this much it is decided.
constexpr CGFloat kThreshold = 10;

NSUInteger edgesAt(CGPoint point, CGSize size) {
    const auto edgeIf = [](bool isNear, UIRectEdge edge) { return isNear ? edge : UIRectEdgeNone; };
    return edgeIf(point.x <= kEdgeWidth, UIRectEdgeLeft) | edgeIf(point.x >= size.width - kEdgeWidth, UIRectEdgeRight) |
           edgeIf(point.y <= kEdgeWidth, UIRectEdgeTop) | edgeIf(point.y >= size.height - kEdgeWidth, UIRectEdgeBottom);
}

bool goesInwards(CGPoint way, NSUInteger edges) {
    const CGFloat x = std::abs(way.x), y = std::abs(way.y);
    return ((edges & UIRectEdgeLeft) && way.x > y) || ((edges & UIRectEdgeRight) && -way.x > y) ||
           ((edges & UIRectEdgeTop) && way.y > x) || ((edges & UIRectEdgeBottom) && -way.y > x);
}

} // namespace

bool UIScreenEdgePanGestureRecognizer::initWithTarget_action(NSObject* target, SEL action) {
    if (!UIPanGestureRecognizer::initWithTarget_action(target, action))
        return false;
    setMaximumNumberOfTouches(1);
    return true;
}

void UIScreenEdgePanGestureRecognizer::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    const UITouch* touch = touches.front();
    if (state() == UIGestureRecognizerStatePossible && numberOfTouches() == 1 && touch->window()) {
        m_start = touch->locationInView(nullptr);
        m_startEdges = edgesAt(m_start, touch->window()->bounds().size) & m_edges;
        if (m_startEdges == UIRectEdgeNone) {
            setState(UIGestureRecognizerStateFailed);
            return;
        }
    }
    UIPanGestureRecognizer::touchesBegan_withEvent(touches, event);
}

void UIScreenEdgePanGestureRecognizer::touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) {
    const CGPoint now = touches.front()->locationInView(nullptr);
    const CGPoint way{now.x - m_start.x, now.y - m_start.y};
    if (state() == UIGestureRecognizerStatePossible && std::hypot(way.x, way.y) >= kThreshold &&
        !goesInwards(way, m_startEdges)) {
        setState(UIGestureRecognizerStateFailed);
        return;
    }
    UIPanGestureRecognizer::touchesMoved_withEvent(touches, event);
}

bool UIScreenEdgePanGestureRecognizer::shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer* other) {
    return other->isKindOfClass<UIPanGestureRecognizer>() && !other->isKindOfClass<UIScreenEdgePanGestureRecognizer>();
}

} // namespace zr
