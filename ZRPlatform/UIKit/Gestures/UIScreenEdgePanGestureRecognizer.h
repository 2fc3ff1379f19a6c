#pragma once

#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>
#include <ZRPlatform/UIKit/Views/UIGeometry.h>

#pragma GCC visibility push(default)
namespace zr {

/// Recognises one finger that comes in from an edge of the window: down within 20 points of it, and its first 10 points
/// more inwards than along. Any other drag fails, and other drags wait until this one has.
class UIScreenEdgePanGestureRecognizer : public UIPanGestureRecognizer {
public:
    bool initWithTarget_action(NSObject* target, SEL action) override;
    /// Where the finger may come in: a sum of `UIRectEdge` values; none at first.
    NSUInteger edges() const { return m_edges; }
    virtual void setEdges(NSUInteger edges) { m_edges = edges; }

    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    /// Other drags wait, but for those from edges.
    bool shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer* other) override;

private:
    NSUInteger m_edges = UIRectEdgeNone;
    CGPoint m_start;
    /// Those among the edges at which the finger went down.
    NSUInteger m_startEdges = UIRectEdgeNone;
};

} // namespace zr
#pragma GCC visibility pop
