#include <ZRPlatform/UIKit/Controllers/Internal/NavigationTransition.h>

#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>

#include <algorithm>

namespace zr {

namespace {

constexpr NSTimeInterval kDuration = 0.35;
/// How far the lower screen moves, of the width.
constexpr CGFloat kParallax = 0.3;
/// Of the black over the lower screen.
constexpr CGFloat kShadeAlpha = 0.1;

} // namespace

bool NavigationTransition::initWithController_from_to_isPush(UINavigationController* controller, UIViewController* from,
                                                             UIViewController* to, bool isPush) {
    if (!init())
        return false;
    m_controller = controller;
    m_from = from;
    m_to = to;
    m_isPush = isPush;
    m_entering = std::exchange(controller->m_entering, {});
    m_leaving = std::exchange(controller->m_leaving, {});
    return true;
}

// Beginning

/// Whether it is still to be shown: a window that is hidden in one of the messages, for one, ends it at once.
bool NavigationTransition::tellBeginning(bool animated) {
    m_isAnimated = animated;
    if (m_from)
        m_from->beginAppearanceTransition_animated(false, animated);
    if (m_to && m_controller)
        m_to->loadViewIfNeeded();
    if (m_to && m_controller)
        m_to->beginAppearanceTransition_animated(true, animated);
    if (m_controller)
        m_controller->tellWillShow(m_to, animated);
    if (m_controller && m_to)
        putUpcoming(m_controller);
    return m_controller;
}

void NavigationTransition::putUpcoming(UINavigationController* controller) {
    // The lower one of the two goes below the other.
    UIView* content = controller->m_content;
    const NSInteger index = m_isPush ? static_cast<NSInteger>(content->subviews().size()) : 0;
    ControllerAccess::putView(m_to, content, index, controller->screenFrame(m_to));
}

void NavigationTransition::runAtOnce() {
    const ChangeQueue::Step step;
    const Ref<NavigationTransition> keep = this;
    if (!tellBeginning(false))
        return;
    m_controller->navigationBar()->setItems(m_controller->itemsOfStack());
    end();
}

void NavigationTransition::runAnimated() {
    const ChangeQueue::Step step;
    const Ref<NavigationTransition> keep = this;
    if (!tellBeginning(true))
        return;
    setUpGlide();
    glideOn(1, kDuration, UIViewAnimationCurveEaseInOut);
}

void NavigationTransition::beginByHand() {
    const ChangeQueue::Step step;
    const Ref<NavigationTransition> keep = this;
    m_isHeld = true;
    if (tellBeginning(true))
        setUpGlide();
}

void NavigationTransition::setUpGlide() {
    UIView* content = m_controller->m_content;
    const CGFloat width = content->bounds().size.width;
    UIView* upper = (m_isPush ? m_to : m_from)->view();
    UIView* lower = (m_isPush ? m_from : m_to)->view();
    // On a push forwards, on a pop backwards.
    const auto path = [&](UIView* view, CGPoint home, CGFloat away) {
        const CGPoint there{home.x + away, home.y};
        return view == m_to->view() ? ViewGlide::Path{view, there, home} : ViewGlide::Path{view, home, there};
    };
    const CGPoint upperHome = centerOfFrame(m_controller->screenFrame(m_isPush ? m_to : m_from));
    const CGPoint lowerHome = centerOfFrame(m_controller->screenFrame(m_isPush ? m_from : m_to));
    m_shade = make<UIView>(&UIView::initWithFrame, content->bounds());
    m_shade->setBackgroundColor(UIColor::blackColor());
    m_shade->setUserInteractionEnabled(false);
    content->insertSubview_belowSubview(m_shade, upper);
    content->setUserInteractionEnabled(false);
    m_glide = make<ViewGlide>();
    m_glide->addPath(path(upper, upperHome, width));
    m_glide->addPath(path(lower, lowerHome, -kParallax * width));
    const CGPoint middle = centerOfFrame(content->bounds());
    m_glide->addPath({m_shade, middle, middle, m_isPush ? 0 : kShadeAlpha, m_isPush ? kShadeAlpha : 0});
    m_controller->navigationBar()->setItems_glidingWith(m_controller->itemsOfStack(), m_isPush, m_glide);
    m_glide->showProgress(0);
}

// Under way

void NavigationTransition::carryTo(CGFloat progress) {
    if (m_isHeld)
        m_glide->showProgress(progress);
}

void NavigationTransition::letGo(bool completes) {
    if (!std::exchange(m_isHeld, false))
        return;
    const ChangeQueue::Step step;
    const Ref<NavigationTransition> keep = this;
    if (!completes)
        turnRound();
    const CGFloat left = m_isGoingBack ? m_glide->progress() : 1 - m_glide->progress();
    glideOn(m_isGoingBack ? 0 : 1, kDuration * left, UIViewAnimationCurveEaseOut);
}

/// The upper screen comes back to the stack, unless that has changed meanwhile: then the pop is completed.
void NavigationTransition::turnRound() {
    if (m_controller->topViewController() != m_to)
        return;
    m_isGoingBack = true;
    m_controller->m_stack.push_back(m_from);
    m_controller->m_shown = m_from;
    m_controller->m_toldWillShow = m_from;
    m_controller->m_toldDidShow = m_from;
    m_to->beginAppearanceTransition_animated(false, true);
    m_from->beginAppearanceTransition_animated(true, true);
}

void NavigationTransition::glideOn(CGFloat progress, NSTimeInterval duration, UIViewAnimationCurve curve) {
    const Weak<NavigationTransition> weakSelf = this;
    m_glide->glideTo(progress, duration, curve, [weakSelf] {
        if (const Ref<NavigationTransition> self = weakSelf.lock())
            self->end();
    });
}

void NavigationTransition::finish() {
    const ChangeQueue::Step step;
    const Ref<NavigationTransition> keep = this;
    if (std::exchange(m_isHeld, false))
        turnRound();
    end();
}

// The end

void NavigationTransition::end() {
    const ChangeQueue::Step step;
    const Ref<NavigationTransition> keep = this;
    const Ref<UINavigationController> controller = std::exchange(m_controller, nullptr);
    if (!controller)
        return;
    controller->m_transition = nullptr;
    if (m_glide) {
        m_glide->stop();
        m_shade->removeFromSuperview();
        controller->m_content->setUserInteractionEnabled(true);
        controller->navigationBar()->removeFormerContent();
    }
    const Ref<UIViewController> gone = m_isGoingBack ? m_to : m_from;
    const Ref<UIViewController> there = m_isGoingBack ? m_from : m_to;
    // It ended before it was shown.
    if (there && there == m_to && !(there->viewIfLoaded() && there->view()->isDescendantOfView(controller->m_content)))
        putUpcoming(controller);
    if (gone)
        ControllerAccess::takeView(gone);
    for (UIViewController* each : {gone.get(), there.get()}) {
        if (each && each->viewIfLoaded())
            placeAtOnce(each->view(), controller->screenFrame(each));
    }
    controller->navigationBar()->setItems(controller->itemsOfStack());
    if (gone)
        ControllerAccess::endDisappearing(gone);
    if (there)
        ControllerAccess::endAppearing(there);
    controller->flushMoves(m_entering, m_leaving);
    if (m_isGoingBack)
        there->didMoveToParentViewController(controller);
    else
        controller->tellDidShow(there, m_isAnimated);
}

} // namespace zr
