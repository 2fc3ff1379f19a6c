#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#pragma GCC visibility push(default)
namespace zr {

class UIScrollView;

/// Follows what a scroll view does, and has a say in where it comes to rest. It may do anything to the scroll view
/// while it is told, let go of it included.
///
/// One drag is told in this order: it will begin, it scrolled (any number of times), it will end, it did end; and when
/// the content goes on by itself: it will decelerate, it scrolled (any number of times), it did come to rest. A drag
/// that is cancelled ends in the same way, with no velocity.
class UIScrollViewDelegate {
public:
    virtual ~UIScrollViewDelegate() = default;

    /// The content offset has changed, for whatever reason.
    virtual void scrollViewDidScroll(UIScrollView*) {}

    /// @name Dragging
    /// @{
    /// A finger has begun to drag.
    virtual void scrollViewWillBeginDragging(UIScrollView*) {}
    /// The finger has gone up. The velocity is the content offset's, in points a millisecond. `targetContentOffset` is
    /// where the content will come to rest, never nil; another one may be put there. It is cut to the range in which
    /// the content can rest; a coordinate that is not finite is ignored.
    virtual void scrollViewWillEndDragging_withVelocity_targetContentOffset(UIScrollView*, CGPoint /*velocity*/,
                                                                            CGPoint* /*targetContentOffset*/) {}
    /// The finger has gone up; whether the content goes on by itself.
    virtual void scrollViewDidEndDragging_willDecelerate(UIScrollView*, bool /*decelerate*/) {}
    /// The content goes on by itself.
    virtual void scrollViewWillBeginDecelerating(UIScrollView*) {}
    /// It has come to rest, or was stopped by a finger or by code.
    virtual void scrollViewDidEndDecelerating(UIScrollView*) {}
    /// @}

    /// An animated change of the content offset that code asked for is over, or was stopped on the way.
    virtual void scrollViewDidEndScrollingAnimation(UIScrollView*) {}

    /// @name A tap of the status bar
    /// @{
    /// No keeps the content where it is.
    virtual bool scrollViewShouldScrollToTop(UIScrollView*) { return true; }
    /// The content is at its beginning. Told in place of the end of an animation.
    virtual void scrollViewDidScrollToTop(UIScrollView*) {}
    /// @}
};

} // namespace zr
#pragma GCC visibility pop
