#pragma once

#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>
#include <ZRPlatform/UIKit/Lists/UIScrollViewDelegate.h>
#include <ZRPlatform/UIKit/Views/UIGeometry.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <memory>

namespace zr { // not exported
class ContentTouchHold;
class ScrollIndicators;
class ScrollPan;
class Scroller;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// The colour of the indicators.
enum UIScrollViewIndicatorStyle : NSInteger {
    UIScrollViewIndicatorStyleDefault,
    UIScrollViewIndicatorStyleBlack,
    UIScrollViewIndicatorStyleWhite,
};

/// The part of a velocity that is left after a millisecond.
inline constexpr CGFloat UIScrollViewDecelerationRateNormal = 0.998;
inline constexpr CGFloat UIScrollViewDecelerationRateFast = 0.99;

/// A window onto a larger content: its subviews, which a finger, a wheel or code moves. It cuts them to its bounds.
///
/// The content offset is the origin of the bounds: scrolling moves nothing else and redraws nothing. Every change asks
/// for layout, so that a subclass can bring in what comes into sight.
///
/// The content rests between its ends: an offset from (-left, -top) of the content inset to where the content's end,
/// with the inset, meets that of the bounds. When size, inset or bounds change, an offset beyond the ends is brought
/// back at once, unless a finger holds the content or it is moving, which then heads for the new end. Code may set an
/// offset beyond the ends.
///
/// It does not zoom. Numbers that are not finite are ignored, and whatever they came with; negative sizes are 0.
class UIScrollView : public UIView, public UIGestureRecognizerDelegate {
public:
    UIScrollView();
    ~UIScrollView() override;
    bool initWithFrame(CGRect frame) override;

    /// Follows the scrolling; not kept. Nil at first.
    UIScrollViewDelegate* delegate() const { return m_delegate; }
    virtual void setDelegate(const Delegate<UIScrollViewDelegate>& delegate) { m_delegate = delegate; }

    /// @name Content, in points
    /// @{
    /// The point of the content that is at the top left corner of the bounds; their origin.
    CGPoint contentOffset() const { return bounds().origin; }
    /// Scrolls there at once; inside an animation block, with its animation. What a finger or a deceleration does to
    /// the content goes on from there; an animated change ends there.
    virtual void setContentOffset(CGPoint offset);
    /// Scrolls there and stops what moves. Animated, it takes 0.3 s, and the delegate is told of the end; not so when
    /// the content is there already, while a finger drags it, or in no window: then it is there at once.
    virtual void setContentOffset_animated(CGPoint offset, bool animated);
    /// How large the content is; zero at first. It begins at (0, 0).
    CGSize contentSize() const { return m_contentSize; }
    virtual void setContentSize(CGSize size);
    /// Room around the content; zero at first.
    UIEdgeInsets contentInset() const { return m_contentInset; }
    virtual void setContentInset(UIEdgeInsets inset);
    /// Scrolls until the rectangle shows, by no more than it takes, and not beyond the ends. What is larger than the
    /// bounds shows its beginning, unless some of it shows already and more would not.
    virtual void scrollRectToVisible_animated(CGRect rect, bool animated);
    /// @}

    /// @name What a finger may do
    /// @{
    /// Whether a finger or a wheel can scroll; true at first. False ends a drag, and lets touches go to the content as
    /// in any view; what moves runs on.
    bool isScrollEnabled() const { return m_scrollEnabled; }
    virtual void setScrollEnabled(bool enabled);
    /// Whether the content can be drawn beyond its ends, and springs back; true at first.
    bool bounces() const { return m_bounces; }
    virtual void setBounces(bool bounces) { m_bounces = bounces; }
    /// Whether it bounces up and down when there is nothing to scroll there; false at first.
    bool alwaysBounceVertical() const { return m_alwaysBounceVertical; }
    virtual void setAlwaysBounceVertical(bool always) { m_alwaysBounceVertical = always; }
    /// Whether it bounces sideways when there is nothing to scroll there; false at first.
    bool alwaysBounceHorizontal() const { return m_alwaysBounceHorizontal; }
    virtual void setAlwaysBounceHorizontal(bool always) { m_alwaysBounceHorizontal = always; }
    /// Whether it comes to rest at multiples of the bounds' size; false at first.
    bool isPagingEnabled() const { return m_pagingEnabled; }
    virtual void setPagingEnabled(bool paging) { m_pagingEnabled = paging; }
    /// Whether a drag that begins along one axis stays on it; one that begins diagonally (its shorter side more than
    /// half of the longer one) does not. False at first.
    bool isDirectionalLockEnabled() const { return m_directionalLockEnabled; }
    virtual void setDirectionalLockEnabled(bool lock) { m_directionalLockEnabled = lock; }
    /// What is left of the velocity after a millisecond: more than 0 and less than 1, others are ignored. Normal at
    /// first.
    CGFloat decelerationRate() const { return m_decelerationRate; }
    virtual void setDecelerationRate(CGFloat rate);
    /// Whether a tap of the status bar scrolls up to the beginning; true at first. With more than one such scroll view
    /// on the screen a tap does nothing.
    bool scrollsToTop() const { return m_scrollsToTop; }
    virtual void setScrollsToTop(bool flag) { m_scrollsToTop = flag; }
    /// What drags the content. Begins when the fingers have moved 10 points, and more along a direction in which there
    /// is something to scroll than across; the content follows from there. A direction in which this view is at its end
    /// is left to a scroll view further up that is not. The scroll view is its delegate.
    UIPanGestureRecognizer* panGestureRecognizer() const;
    /// @}

    /// @name State
    /// @{
    /// Whether a finger is on the content, dragging or not.
    bool isTracking() const;
    /// Whether a finger has begun to drag.
    bool isDragging() const;
    /// Whether the content moves by itself after a drag.
    bool isDecelerating() const;
    /// @}

    /// @name Touches of the content
    /// A finger that stops moving content touches nothing in it.
    /// @{
    /// Whether views in the scroll view are told of a touch only when it has lasted 0.15 s or ends (then of all of it),
    /// so that they hear nothing of a drag; true at first.
    bool delaysContentTouches() const { return m_delaysContentTouches; }
    virtual void setDelaysContentTouches(bool delays) { m_delaysContentTouches = delays; }
    /// Whether a drag may begin, and take the touch away, once a view in the scroll view has been told of it; true at
    /// first.
    bool canCancelContentTouches() const { return m_canCancelContentTouches; }
    virtual void setCanCancelContentTouches(bool can) { m_canCancelContentTouches = can; }
    /// Asked before a view in the scroll view is told of a touch; no keeps it from the view. The base class says yes.
    virtual bool touchesShouldBegin_withEvent_inContentView(const TouchSet& touches, UIEvent* event, UIView* view);
    /// Asked before a drag takes a touch away from a view that was told of it; no keeps the content where it is. The
    /// base class says yes, for controls too: those that are dragged themselves say no.
    virtual bool touchesShouldCancelInContentView(UIView* view);
    /// @}

    /// @name Scroll indicators
    /// Thin bars at the right and the lower edge, which show while the content moves. None in a direction in which
    /// there is nothing to scroll.
    /// @{
    /// Whether the bar at the lower edge shows; true at first.
    bool showsHorizontalScrollIndicator() const { return m_showsHorizontalIndicator; }
    virtual void setShowsHorizontalScrollIndicator(bool shows);
    /// Whether the bar at the right edge shows; true at first.
    bool showsVerticalScrollIndicator() const { return m_showsVerticalIndicator; }
    virtual void setShowsVerticalScrollIndicator(bool shows);
    /// Distances of the bars' ways from the edges of the bounds; zero at first.
    UIEdgeInsets scrollIndicatorInsets() const { return m_indicatorInsets; }
    virtual void setScrollIndicatorInsets(UIEdgeInsets insets);
    /// The bars are dark unless this is white.
    UIScrollViewIndicatorStyle indicatorStyle() const { return m_indicatorStyle; }
    virtual void setIndicatorStyle(UIScrollViewIndicatorStyle style);
    /// Shows the bars for a moment.
    virtual void flashScrollIndicators();
    /// @}

    void setFrame(CGRect frame) override;
    /// Another origin is another content offset.
    void setBounds(CGRect bounds) override;
    void willMoveToWindow(UIWindow* window) override;

    /// Its own drag begins when the views that were told of its touches may lose them; see
    /// `touchesShouldCancelInContentView`.
    bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override;

protected:
    const KeyTable& keyTable() const override;

private:
    friend class Scroller;

    void panned(UIPanGestureRecognizer* pan);
    void offsetChanged(CGPoint before);
    void geometryChanged();

    Delegate<UIScrollViewDelegate> m_delegate;
    CGSize m_contentSize;
    UIEdgeInsets m_contentInset;
    UIEdgeInsets m_indicatorInsets;
    CGFloat m_decelerationRate = UIScrollViewDecelerationRateNormal;
    UIScrollViewIndicatorStyle m_indicatorStyle = UIScrollViewIndicatorStyleDefault;
    bool m_scrollEnabled = true;
    bool m_bounces = true;
    bool m_alwaysBounceVertical = false;
    bool m_alwaysBounceHorizontal = false;
    bool m_pagingEnabled = false;
    bool m_directionalLockEnabled = false;
    bool m_scrollsToTop = true;
    bool m_delaysContentTouches = true;
    bool m_canCancelContentTouches = true;
    bool m_showsHorizontalIndicator = true;
    bool m_showsVerticalIndicator = true;
    std::unique_ptr<Scroller> m_scroller;
    std::unique_ptr<ScrollIndicators> m_indicators;
    Ref<ScrollPan> m_pan;
    Ref<ContentTouchHold> m_touchHold;
};

} // namespace zr
#pragma GCC visibility pop
