#pragma once

#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollMotion.h>
#include <ZRPlatform/UIKit/Lists/UIScrollViewDelegate.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace zr {

class UIPanGestureRecognizer;
class UIScrollView;

/// What moves a scroll view's content: fingers, wheels, and its own motion afterwards. Tells the delegate of it.
///
/// It holds at most one motion. Each message may change anything; what goes on after one looks at what is there then.
class Scroller {
public:
    /// What a motion is for, and so who is told of its end.
    enum class Purpose { Decelerating, Animating, ToTop };

    /// Part of `view`.
    explicit Scroller(UIScrollView& view);
    Scroller(const Scroller&) = delete;
    Scroller& operator=(const Scroller&) = delete;
    ~Scroller();
    static Scroller& of(const UIScrollView* view);

    ScrollGeometry geometry() const;
    /// Whether there is a direction in which a finger moves the content.
    bool canScroll() const;

    /// @name Fingers
    /// @{
    bool isTracking() const { return m_isTracking; }
    bool isDragging() const { return m_isDragging; }
    bool isDecelerating() const { return m_motion && m_purpose == Purpose::Decelerating; }
    void fingerDown();
    /// Whether the finger has stopped something, and so touches nothing.
    bool shutsContent() const { return m_shutsContent; }
    /// Whether fingers that have moved so far drag this content.
    bool wantsDrag(CGPoint translation) const;
    void panned(UIPanGestureRecognizer* pan);
    void fingersGone();
    /// Moves the content by so many points; false when there is nothing to scroll in that direction.
    bool turnWheel(CGPoint delta);
    /// For a moment; while something moves, until it is at rest.
    void flashIndicators();
    /// Unless the delegate does not want it.
    void scrollToTop();
    /// @}

    /// @name Code
    /// @{
    void scrollTo(CGPoint offset, bool animated, Purpose purpose = Purpose::Animating);
    /// The content offset is another one.
    void offsetChanged();
    /// Size, inset or bounds are others.
    void geometryChanged();
    /// It comes into another window, or leaves its own: what moves is at rest.
    void windowChanges();
    /// @}

private:
    struct Axes {
        bool x = false;
        bool y = false;
    };
    /// How the content comes to rest.
    struct Release {
        /// Points a second.
        CGPoint velocity;
        /// Where that is, if somebody has chosen.
        std::optional<CGFloat> x, y;
    };

    template <class Message>
    void tell(Message message);
    CGFloat scale() const;
    ScrollRange rangeX() const { return horizontalScrollRange(geometry()); }
    ScrollRange rangeY() const { return verticalScrollRange(geometry()); }
    void place(CGPoint offset);
    void placeOnPixel(CGPoint offset);

    Axes movableAxes() const;
    Axes axesWithRoom(CGPoint way) const;
    Axes axesLeftToOthers(CGPoint way) const;
    void catchUpWithAnimation();
    void beginDrag(UIPanGestureRecognizer* pan);
    void followDrag(UIPanGestureRecognizer* pan);
    void endDrag(CGPoint velocity);
    CGPoint shownFor(CGPoint pull) const;
    CGPoint pullFor(CGPoint shown) const;
    CGPoint releaseVelocity(UIPanGestureRecognizer* pan) const;
    void turnPage(CGPoint delta);

    Release releaseWith(CGPoint velocity) const;
    CGPoint targetOf(const Release& release) const;
    std::unique_ptr<ScrollMotion> motionAfter(const Release& release) const;
    void decelerate(const Release& release);
    void headForRangeAnew();
    void start(std::unique_ptr<ScrollMotion> motion, Purpose purpose);
    void stop();
    void tellEnd(Purpose purpose, bool hasArrived);
    void hideIndicatorsAtRest();
    void waitForTick();
    void tick();
    NSTimeInterval motionTime() const;
    Nanoseconds motionEnd() const;

    UIScrollView& m_view;
    bool m_isTracking = false;
    bool m_isDragging = false;
    bool m_shutsContent = false;
    bool m_hasStopped = false;
    /// The change under way is the scroller's own.
    bool m_isPlacing = false;

    /// @name A drag
    /// @{
    Axes m_draggedAxes;
    /// Where the content would be if it did not resist beyond its ends.
    CGPoint m_pull;
    /// The part of the fingers' way that it has followed.
    CGPoint m_followed;
    /// @}

    /// @name A motion
    /// @{
    std::unique_ptr<ScrollMotion> m_motion;
    Purpose m_purpose = Purpose::Decelerating;
    Release m_release;
    Nanoseconds m_motionStart = 0;
    Ref<NSTimer> m_timer;
    /// Counts motions and drags, to tell whether a message has made another one.
    std::uint64_t m_changes = 0;
    /// @}

    /// What wheels have turned beyond the last whole pixel.
    CGPoint m_wheelRest;
};

} // namespace zr
