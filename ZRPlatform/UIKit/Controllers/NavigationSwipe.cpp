// The swipe from the left edge that pops a screen.

#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/Internal/NavigationTransition.h>
#include <ZRPlatform/UIKit/Gestures/UIScreenEdgePanGestureRecognizer.h>

#include <algorithm>

namespace zr {

namespace {

/// Points a second that decide by themselves where a screen goes that is let go.
constexpr CGFloat kDecisiveSpeed = 300;

} // namespace

/// Lets the swipe begin only where there is a way back.
class SwipeBackDelegate : public NSObject, public UIGestureRecognizerDelegate {
public:
    bool gestureRecognizerShouldBegin(UIGestureRecognizer*) override {
        return controller.get() && controller->canPopByHand();
    }

    Weak<UINavigationController> controller;
};

UIGestureRecognizer* UINavigationController::interactivePopGestureRecognizer() {
    view();
    if (m_swipe)
        return m_swipe;
    m_swipe = make<UIScreenEdgePanGestureRecognizer>();
    m_swipe->setEdges(UIRectEdgeLeft);
    m_swipe->addTarget_action(this, selector<&UINavigationController::swiped>);
    auto judge = make<SwipeBackDelegate>();
    judge->controller = this;
    m_swipe->setDelegate(judge);
    m_swipeDelegate = judge;
    return m_swipe;
}

bool UINavigationController::canPopByHand() const {
    if (m_stack.size() < 2 || m_transition || m_isBarHidden)
        return false;
    const UINavigationItem* item = m_stack.back()->navigationItem();
    return !item->hidesBackButton() && !item->leftBarButtonItem();
}

void UINavigationController::swiped() {
    const CGFloat width = m_content->bounds().size.width;
    const CGFloat progress =
        width > 0 ? std::clamp<CGFloat>(m_swipe->translationInView(view()).x / width, 0, 1) : CGFloat(0);
    switch (m_swipe->state()) {
    case UIGestureRecognizerStateBegan:
        beginSwipe();
        [[fallthrough]];
    case UIGestureRecognizerStateChanged:
        if (m_transition)
            m_transition->carryTo(progress);
        break;
    default: {
        const CGFloat speed = m_swipe->velocityInView(view()).x;
        const bool completes = m_swipe->state() == UIGestureRecognizerStateEnded && speed > -kDecisiveSpeed &&
                               (progress > CGFloat(0.5) || speed > kDecisiveSpeed);
        if (m_transition)
            m_transition->letGo(completes);
    }
    }
}

/// Another delegate than ours may have let the swipe begin where there is nothing to pop, or not yet.
void UINavigationController::beginSwipe() {
    if (m_stack.size() < 2 || m_transition || m_shown != m_stack.back() || !ChangeQueue::isIdle() ||
        !ControllerAccess::hasAppeared(this))
        return;
    const ChangeQueue::Step step;
    const Ref<UINavigationController> keep = this;
    const Ref<UIViewController> popped = m_stack.back();
    m_stack.pop_back();
    m_leaving.push_back(popped);
    popped->willMoveToParentViewController(nullptr);
    m_shown = topViewController();
    m_transition = make<NavigationTransition>(&NavigationTransition::initWithController_from_to_isPush, this, popped,
                                              m_shown, false);
    m_transition->beginByHand();
}

} // namespace zr
