#include <ZRPlatform/UIKit/Lists/Internal/ScrollRecognizers.h>

#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>
#include <ZRPlatform/UIKit/Lists/Internal/Scroller.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

namespace zr {

namespace {

/// A finger that is to drag has moved by then.
constexpr NSTimeInterval kHoldTime = 0.15;

} // namespace

// The drag

bool ScrollPan::initWithScrollView_action(UIScrollView* scrollView, SEL action) {
    m_scrollView = scrollView;
    return initWithTarget_action(scrollView, action);
}

std::vector<Ref<UIView>> ScrollPan::informedViews() const {
    std::vector<Ref<UIView>> views;
    const GestureArbiter* arbiter = GestureArbiter::shared();
    for (const auto& touch : locatedTouches()) {
        UIView* view = touch->view();
        if (view && view != m_scrollView.get() && arbiter && arbiter->isKnownToView(touch))
            views.emplace_back(view);
    }
    return views;
}

void ScrollPan::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    UIPanGestureRecognizer::touchesBegan_withEvent(touches, event);
    if (const Ref<UIScrollView> scrollView = m_scrollView.lock())
        Scroller::of(scrollView).fingerDown();
}

bool ScrollPan::isDrag() const {
    const Ref<UIScrollView> scrollView = m_scrollView.lock();
    return scrollView && Scroller::of(scrollView).wantsDrag(translationInView(scrollView));
}

void ScrollPan::reset() {
    UIPanGestureRecognizer::reset();
    if (const Ref<UIScrollView> scrollView = m_scrollView.lock())
        Scroller::of(scrollView).fingersGone();
}

bool ScrollPan::letsViewKnow(UITouch* touch, UIEvent* event) {
    const Ref<UIScrollView> scrollView = m_scrollView.lock();
    if (!scrollView)
        return true;
    if (Scroller::of(scrollView).shutsContent())
        return false;
    const Ref<UIView> view = touch->view();
    return view == scrollView || scrollView->touchesShouldBegin_withEvent_inContentView({touch}, event, view);
}

// Holding touches back

ContentTouchHold::~ContentTouchHold() { stopTimer(); }

bool ContentTouchHold::initWithScrollView(UIScrollView* scrollView) {
    m_scrollView = scrollView;
    setDelaysTouchesBegan(true);
    setCancelsTouchesInView(false);
    return init();
}

void ContentTouchHold::touchesBegan_withEvent(const TouchSet&, UIEvent*) {
    const Ref<UIScrollView> scrollView = m_scrollView.lock();
    if (!scrollView || !scrollView->delaysContentTouches() || !Scroller::of(scrollView).canScroll()) {
        setState(UIGestureRecognizerStateFailed);
        return;
    }
    if (!m_timer)
        m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(
            kHoldTime, false, [this](NSTimer*) { setState(UIGestureRecognizerStateFailed); });
}

void ContentTouchHold::touchesEnded_withEvent(const TouchSet&, UIEvent*) { setState(UIGestureRecognizerStateFailed); }

void ContentTouchHold::reset() { stopTimer(); }

void ContentTouchHold::stopTimer() {
    if (const Ref<NSTimer> timer = std::exchange(m_timer, nullptr))
        timer->invalidate();
}

} // namespace zr
