#include <ZRPlatform/UIKit/Lists/Internal/ScrollerMessages.h>

#include <ZRPlatform/UIKit/Lists/Internal/ScrollIndicators.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// How far fingers move before it is a drag; the content follows from there.
constexpr CGFloat kThreshold = 10;
/// Of the longer side of the way: a shorter one beyond that is diagonal.
constexpr CGFloat kDiagonal = 0.5;
/// Points a second: whoever lets go more slowly means to leave the content where it is.
constexpr CGFloat kSlowestThrow = 50;
/// Points a second: what is slower than that is as good as at rest for a finger that touches it.
constexpr CGFloat kCrawl = 20;
constexpr const char* kBoundsAnimation = "bounds";

/// Whether an offset can go that way and stay in the range.
bool hasRoom(const ScrollRange& range, CGFloat offset, CGFloat way) {
    return way > 0 ? offset < range.last : way < 0 && offset > range.first;
}

CGFloat pullBeyond(const ScrollRange& range, CGFloat pull) { return pull - range.nearest(pull); }

/// Where a content is that is pulled so far.
CGFloat shownFor(CGFloat pull, const ScrollRange& range, CGFloat length, bool bounces) {
    const CGFloat beyond = bounces ? pullBeyond(range, pull) : 0;
    return range.nearest(pull) + std::copysign(rubberBand(std::abs(beyond), length), beyond);
}

CGFloat pullFor(CGFloat shown, const ScrollRange& range, CGFloat length) {
    const CGFloat beyond = pullBeyond(range, shown);
    return range.nearest(shown) + std::copysign(rubberBandPull(std::abs(beyond), length), beyond);
}

/// Points that the content goes for each point of a finger.
CGFloat giveAt(CGFloat pull, const ScrollRange& range, CGFloat length, bool bounces) {
    const CGFloat beyond = std::abs(pullBeyond(range, pull));
    if (beyond == 0)
        return 1;
    return bounces ? rubberBandGive(beyond, length) : 0;
}

} // namespace

// Directions

/// Those in which a finger moves the content, be it that it only bounces.
Scroller::Axes Scroller::movableAxes() const {
    return {rangeX().length() > 0 || (m_view.bounces() && m_view.alwaysBounceHorizontal()),
            rangeY().length() > 0 || (m_view.bounces() && m_view.alwaysBounceVertical())};
}

bool Scroller::canScroll() const {
    const Axes axes = movableAxes();
    return m_view.isScrollEnabled() && (axes.x || axes.y);
}

Scroller::Axes Scroller::axesWithRoom(CGPoint way) const {
    const CGPoint offset = m_view.contentOffset();
    return {hasRoom(rangeX(), offset.x, way.x), hasRoom(rangeY(), offset.y, way.y)};
}

/// Those in which this content is at its end, and that of a scroll view further up is not.
Scroller::Axes Scroller::axesLeftToOthers(CGPoint way) const {
    const Axes own = axesWithRoom(way);
    Axes others;
    for (const UIView* view = m_view.superview(); view; view = view->superview()) {
        const auto* scrollView = dynamic_cast<const UIScrollView*>(view);
        if (!scrollView || !scrollView->isScrollEnabled())
            continue;
        const Axes room = of(scrollView).axesWithRoom(way);
        others.x |= !own.x && room.x;
        others.y |= !own.y && room.y;
    }
    return others;
}

bool Scroller::wantsDrag(CGPoint translation) const {
    const Axes movable = movableAxes();
    const Axes others = axesLeftToOthers({-translation.x, -translation.y});
    const Axes axes{movable.x && !others.x, movable.y && !others.y};
    const CGFloat x = std::abs(translation.x), y = std::abs(translation.y);
    if (axes.x && axes.y)
        return std::hypot(x, y) >= kThreshold;
    return (axes.x && x >= kThreshold && x >= y) || (axes.y && y >= kThreshold && y >= x);
}

// A finger

void Scroller::fingerDown() {
    if (std::exchange(m_isTracking, true))
        return;
    catchUpWithAnimation();
    const CGPoint velocity = m_motion ? m_motion->velocityAt(motionTime()) : CGPointZero;
    m_hasStopped = m_motion != nullptr;
    m_shutsContent = std::hypot(velocity.x, velocity.y) > kCrawl;
    stop();
}

/// A change inside an animation block is at its end already; what is seen is what a finger takes hold of.
void Scroller::catchUpWithAnimation() {
    CALayer* layer = m_view.layer();
    if (!layer->animationForKey(kBoundsAnimation))
        return;
    const CGPoint seen = layer->presentationValues().bounds.origin;
    if (seen == m_view.contentOffset())
        return;
    layer->removeAnimationForKey(kBoundsAnimation);
    placeOnPixel(seen);
}

/// All have gone up. What they stopped between its places of rest goes to the nearest.
void Scroller::fingersGone() {
    m_isTracking = false;
    m_shutsContent = false;
    if (!std::exchange(m_hasStopped, false) || m_motion || m_isDragging || !m_view.window())
        return;
    const Release release = releaseWith(CGPointZero);
    if (motionAfter(release)->duration() > 0)
        decelerate(release);
}

// A drag

void Scroller::panned(UIPanGestureRecognizer* pan) {
    const Ref<UIScrollView> keep = &m_view;
    switch (pan->state()) {
    case UIGestureRecognizerStateBegan:
        beginDrag(pan);
        break;
    case UIGestureRecognizerStateChanged:
        followDrag(pan);
        break;
    case UIGestureRecognizerStateEnded:
        followDrag(pan);
        endDrag(releaseVelocity(pan));
        break;
    default:
        endDrag(CGPointZero);
        break;
    }
}

void Scroller::beginDrag(UIPanGestureRecognizer* pan) {
    const CGPoint way = pan->translationInView(&m_view);
    const CGFloat x = std::abs(way.x), y = std::abs(way.y);
    m_draggedAxes = movableAxes();
    if (m_view.isDirectionalLockEnabled() && m_draggedAxes.x && m_draggedAxes.y) {
        m_draggedAxes = {x > y * kDiagonal, y > x * kDiagonal};
    }
    const CGPoint own{m_draggedAxes.x ? way.x : 0, m_draggedAxes.y ? way.y : 0};
    const CGFloat length = std::max(std::hypot(own.x, own.y), kThreshold);
    m_followed = {own.x * kThreshold / length, own.y * kThreshold / length};
    stop();
    m_pull = pullFor(m_view.contentOffset());
    m_hasStopped = false;
    m_isDragging = true;
    ++m_changes;
    m_view.m_indicators->show();
    tell([&](UIScrollViewDelegate* delegate) { delegate->scrollViewWillBeginDragging(&m_view); });
    followDrag(pan);
}

void Scroller::followDrag(UIPanGestureRecognizer* pan) {
    if (!m_isDragging)
        return;
    const CGPoint way = pan->translationInView(&m_view);
    if (m_draggedAxes.x)
        m_pull.x -= way.x - m_followed.x;
    if (m_draggedAxes.y)
        m_pull.y -= way.y - m_followed.y;
    m_followed = way;
    placeOnPixel(shownFor(m_pull));
}

CGPoint Scroller::shownFor(CGPoint pull) const {
    const CGSize size = m_view.bounds().size;
    return {zr::shownFor(pull.x, rangeX(), size.width, m_view.bounces()),
            zr::shownFor(pull.y, rangeY(), size.height, m_view.bounces())};
}

CGPoint Scroller::pullFor(CGPoint shown) const {
    const CGSize size = m_view.bounds().size;
    return {zr::pullFor(shown.x, rangeX(), size.width), zr::pullFor(shown.y, rangeY(), size.height)};
}

/// The content's, in points a second.
CGPoint Scroller::releaseVelocity(UIPanGestureRecognizer* pan) const {
    const CGPoint finger = pan->velocityInView(&m_view);
    const CGSize size = m_view.bounds().size;
    const bool bounces = m_view.bounces();
    const CGPoint velocity{m_draggedAxes.x ? -finger.x * giveAt(m_pull.x, rangeX(), size.width, bounces) : 0,
                           m_draggedAxes.y ? -finger.y * giveAt(m_pull.y, rangeY(), size.height, bounces) : 0};
    return std::hypot(velocity.x, velocity.y) < kSlowestThrow ? CGPointZero : velocity;
}

void Scroller::endDrag(CGPoint velocity) {
    if (!m_isDragging)
        return;
    m_isTracking = false;
    Release release = releaseWith(velocity);
    const CGPoint target = targetOf(release);
    CGPoint chosen = target;
    tell([&](UIScrollViewDelegate* delegate) {
        delegate->scrollViewWillEndDragging_withVelocity_targetContentOffset(
            &m_view, {velocity.x / 1000, velocity.y / 1000}, &chosen);
    });
    if (chosen.x != target.x && std::isfinite(chosen.x))
        release.x = rangeX().nearest(chosen.x);
    if (chosen.y != target.y && std::isfinite(chosen.y))
        release.y = rangeY().nearest(chosen.y);

    m_isDragging = false;
    const std::uint64_t change = ++m_changes;
    const auto motion = motionAfter(release);
    const bool goesOn = motion->duration() > 0 && m_view.window();
    if (!goesOn)
        place(motion->target());
    tell([&](UIScrollViewDelegate* delegate) { delegate->scrollViewDidEndDragging_willDecelerate(&m_view, goesOn); });
    if (goesOn && m_changes == change && m_view.window())
        decelerate(release);
    else
        hideIndicatorsAtRest();
}

} // namespace zr
