#include <ZRPlatform/UIKit/Lists/Internal/Scroller.h>

#include <ZRPlatform/UIKit/Lists/Internal/ScrollIndicators.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollerMessages.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr Nanoseconds kTicksPerSecond = 60;
/// How long indicators show when nothing goes on moving.
constexpr NSTimeInterval kFlashTime = 0.5;

/// A tick's time is cut to whole nanoseconds, so the one that is due now may seem to be yet to come.
Nanoseconds tickAfter(Nanoseconds passed) {
    const Nanoseconds tick = (passed + 1) * kTicksPerSecond / kNanosecondsPerSecond + 1;
    return tick * kNanosecondsPerSecond / kTicksPerSecond;
}

} // namespace

Scroller::Scroller(UIScrollView& view) : m_view(view) {}

Scroller::~Scroller() {
    if (m_timer)
        m_timer->invalidate();
}

Scroller& Scroller::of(const UIScrollView* view) { return *view->m_scroller; }

ScrollGeometry Scroller::geometry() const {
    return {m_view.bounds().size, m_view.contentSize(), m_view.contentInset()};
}

CGFloat Scroller::scale() const { return m_view.contentScaleFactor(); }

// Placing

void Scroller::place(CGPoint offset) {
    if (offset == m_view.contentOffset())
        return;
    m_isPlacing = true;
    m_view.setBounds({offset, m_view.bounds().size});
    m_isPlacing = false;
}

namespace {

/// On a whole pixel, so that text and lines are as crisp as at rest; not so at an end, and never beyond it by that.
CGFloat crisp(CGFloat offset, const ScrollRange& range, CGFloat scale) {
    if (offset == range.first || offset == range.last)
        return offset;
    const CGFloat rounded = onWholePixel(offset, scale);
    return range.contains(offset) ? range.nearest(rounded) : rounded;
}

} // namespace

void Scroller::placeOnPixel(CGPoint offset) {
    place({crisp(offset.x, rangeX(), scale()), crisp(offset.y, rangeY(), scale())});
}

// By code

void Scroller::scrollTo(CGPoint offset, bool animated, Purpose purpose) {
    const Ref<UIScrollView> keep = &m_view;
    catchUpWithAnimation();
    if (animated && m_view.window() && !m_isDragging && !(offset == m_view.contentOffset())) {
        start(std::make_unique<EasedMotion>(m_view.contentOffset(), offset), purpose);
        return;
    }
    const bool wasMoving = m_motion != nullptr;
    ++m_changes;
    m_motion = nullptr;
    m_view.setBounds({offset, m_view.bounds().size});
    if (wasMoving)
        tellEnd(m_purpose, false);
    hideIndicatorsAtRest();
}

void Scroller::offsetChanged() {
    if (std::exchange(m_isPlacing, false))
        return;
    m_wheelRest = CGPointZero;
    if (m_isDragging)
        m_pull = pullFor(m_view.contentOffset());
    else if (isDecelerating())
        headForRangeAnew();
    else
        stop();
}

void Scroller::geometryChanged() {
    if (m_isDragging)
        m_pull = pullFor(m_view.contentOffset());
    else if (isDecelerating())
        headForRangeAnew();
    else if (!m_motion && !m_isTracking)
        m_view.setContentOffset(nearestRest(geometry(), m_view.contentOffset()));
}

void Scroller::windowChanges() {
    if (!m_motion)
        return;
    const Ref<UIScrollView> keep = &m_view;
    const CGPoint target = isDecelerating() ? CGPointMake(m_release.x.value_or(m_view.contentOffset().x),
                                                          m_release.y.value_or(m_view.contentOffset().y))
                                            : m_motion->target();
    const Purpose purpose = m_purpose;
    ++m_changes;
    m_motion = nullptr;
    place(purpose == Purpose::Decelerating ? nearestRest(geometry(), target) : target);
    tellEnd(purpose, true);
    hideIndicatorsAtRest();
}

void Scroller::scrollToTop() {
    const CGPoint top{m_view.contentOffset().x, rangeY().first};
    if (m_isDragging || m_view.contentOffset().y <= top.y)
        return;
    const Ref<UIScrollView> keep = &m_view;
    bool isWanted = true;
    tell([&](UIScrollViewDelegate* delegate) { isWanted = delegate->scrollViewShouldScrollToTop(&m_view); });
    if (isWanted)
        scrollTo({m_view.contentOffset().x, rangeY().first}, true, Purpose::ToTop);
}

// Coming to rest

Scroller::Release Scroller::releaseWith(CGPoint velocity) const {
    Release release;
    release.velocity = velocity;
    if (m_view.isPagingEnabled()) {
        const CGPoint offset = m_view.contentOffset();
        const CGSize page = m_view.bounds().size;
        release.x = pageTarget(offset.x, velocity.x, page.width, rangeX());
        release.y = pageTarget(offset.y, velocity.y, page.height, rangeY());
    }
    return release;
}

CGPoint Scroller::targetOf(const Release& release) const {
    const CGPoint offset = m_view.contentOffset();
    const CGFloat pace = paceOfRate(m_view.decelerationRate());
    return {release.x.value_or(coastTarget(offset.x, release.velocity.x, pace, rangeX(), scale())),
            release.y.value_or(coastTarget(offset.y, release.velocity.y, pace, rangeY(), scale()))};
}

std::unique_ptr<ScrollMotion> Scroller::motionAfter(const Release& release) const {
    const CGFloat pace = paceOfRate(m_view.decelerationRate());
    const auto course = [&](CGFloat offset, CGFloat velocity, std::optional<CGFloat> target, const ScrollRange& range) {
        return target ? settle(offset, velocity, *target, scale())
                      : coast(offset, velocity, pace, range, m_view.bounces(), scale());
    };
    const CGPoint offset = m_view.contentOffset();
    return std::make_unique<CoastingMotion>(course(offset.x, release.velocity.x, release.x, rangeX()),
                                            course(offset.y, release.velocity.y, release.y, rangeY()));
}

void Scroller::decelerate(const Release& release) {
    m_release = release;
    start(motionAfter(release), Purpose::Decelerating);
    tell([&](UIScrollViewDelegate* delegate) { delegate->scrollViewWillBeginDecelerating(&m_view); });
}

/// The same velocity from another place, or between other ends.
void Scroller::headForRangeAnew() {
    m_release.velocity = m_motion->velocityAt(motionTime());
    if (m_release.x)
        m_release.x = rangeX().nearest(*m_release.x);
    if (m_release.y)
        m_release.y = rangeY().nearest(*m_release.y);
    ++m_changes;
    m_motion = motionAfter(m_release);
    m_motionStart = Clock::current().now();
    waitForTick();
}

// Motion

/// What moved before is replaced before anybody is told of its end: the latest wish counts.
void Scroller::start(std::unique_ptr<ScrollMotion> motion, Purpose purpose) {
    const bool wasMoving = m_motion != nullptr;
    const Purpose former = std::exchange(m_purpose, purpose);
    ++m_changes;
    m_motion = std::move(motion);
    m_motionStart = Clock::current().now();
    waitForTick();
    m_view.m_indicators->show();
    if (wasMoving)
        tellEnd(former, false);
}

void Scroller::stop() {
    if (!m_motion)
        return;
    ++m_changes;
    m_motion = nullptr;
    hideIndicatorsAtRest();
    tellEnd(m_purpose, false);
}

void Scroller::tellEnd(Purpose purpose, bool hasArrived) {
    tell([&](UIScrollViewDelegate* delegate) {
        if (purpose == Purpose::Decelerating)
            delegate->scrollViewDidEndDecelerating(&m_view);
        else if (purpose == Purpose::Animating)
            delegate->scrollViewDidEndScrollingAnimation(&m_view);
        else if (hasArrived)
            delegate->scrollViewDidScrollToTop(&m_view);
    });
}

void Scroller::hideIndicatorsAtRest() {
    if (!m_motion && !m_isDragging)
        m_view.m_indicators->fade(0);
}

void Scroller::flashIndicators() {
    m_view.m_indicators->show();
    if (!m_motion && !m_isDragging)
        m_view.m_indicators->fade(kFlashTime);
}

NSTimeInterval Scroller::motionTime() const { return secondsFromNanoseconds(Clock::current().now() - m_motionStart); }

/// A tick for each frame, counted from the start, and one at the very end.
void Scroller::waitForTick() {
    if (m_timer)
        m_timer->invalidate();
    const Nanoseconds passed = Clock::current().now() - m_motionStart;
    const Nanoseconds next = std::min(tickAfter(passed), motionEnd());
    m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(secondsFromNanoseconds(next - passed), false,
                                                                    [view = Weak<UIScrollView>(&m_view)](NSTimer*) {
                                                                        if (const Ref<UIScrollView> alive = view.lock())
                                                                            alive->m_scroller->tick();
                                                                    });
}

/// From the motion's start.
Nanoseconds Scroller::motionEnd() const { return nanosecondsFromSeconds(m_motion->duration()); }

void Scroller::tick() {
    if (!m_motion)
        return;
    const bool isOver = Clock::current().now() - m_motionStart >= motionEnd();
    const std::uint64_t change = m_changes;
    if (isOver)
        place(m_motion->target());
    else
        placeOnPixel(m_motion->positionAt(motionTime()));
    if (m_changes != change)
        return; // whoever was told of the scrolling has stopped it or started another
    if (!isOver) {
        waitForTick();
        return;
    }
    ++m_changes;
    m_motion = nullptr;
    hideIndicatorsAtRest();
    tellEnd(m_purpose, true);
}

// Wheels

bool Scroller::turnWheel(CGPoint delta) {
    const Axes room = axesWithRoom(delta);
    if (std::abs(delta.x) > std::abs(delta.y) ? !room.x : !room.y)
        return false;
    if (m_isTracking)
        return true;
    const Ref<UIScrollView> keep = &m_view;
    if (m_view.isPagingEnabled()) {
        turnPage(delta);
        return true;
    }
    stop();
    const CGPoint offset = m_view.contentOffset();
    const CGPoint wanted = nearestRest(geometry(), {offset.x + m_wheelRest.x + (room.x ? delta.x : 0),
                                                    offset.y + m_wheelRest.y + (room.y ? delta.y : 0)});
    placeOnPixel(wanted);
    const CGPoint reached = m_view.contentOffset();
    m_wheelRest = {wanted.x - reached.x, wanted.y - reached.y};
    flashIndicators();
    return true;
}

/// One page, whatever the wheel says until it is turned.
void Scroller::turnPage(CGPoint delta) {
    if (m_motion)
        return;
    const CGSize page = m_view.bounds().size;
    CGPoint offset = m_view.contentOffset();
    if (std::abs(delta.x) > std::abs(delta.y))
        offset.x += std::copysign(page.width, delta.x);
    else
        offset.y += std::copysign(page.height, delta.y);
    scrollTo({pageTarget(offset.x, 0, page.width, rangeX()), pageTarget(offset.y, 0, page.height, rangeY())}, true);
}

} // namespace zr
