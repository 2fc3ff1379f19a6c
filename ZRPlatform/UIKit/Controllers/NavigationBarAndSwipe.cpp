#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/Internal/NavigationTransition.h>
#include <ZRPlatform/UIKit/Gestures/UIScreenEdgePanGestureRecognizer.h>

#include <algorithm>

namespace zr {

namespace {

constexpr CGFloat kBarHeight = 44;
constexpr NSTimeInterval kBarDuration = 0.2;
/// Points a second that decide by themselves where a screen goes that is let go.
constexpr CGFloat kDecisiveSpeed = 300;

} // namespace

// Views

void UINavigationController::loadView() {
    UIViewController::loadView();
    UIView* whole = viewIfLoaded();
    whole->setClipsToBounds(true);
    m_content = make<UIView>(&UIView::initWithFrame, whole->bounds());
    m_content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    whole->addSubview(m_content);
    whole->addSubview(navigationBar());
    layOut();
    interactivePopGestureRecognizer();
    whole->addGestureRecognizer(m_swipe);
}

UINavigationBar* UINavigationController::navigationBar() {
    if (m_bar)
        return m_bar;
    m_bar = make<UINavigationBar>(&UINavigationBar::initWithFrame,
                                  CGRectMake(0, 0, UIScreen::mainScreen()->bounds().size.width, kBarHeight));
    m_bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    m_bar->setBackTarget_action(this, selector<&UINavigationController::backButtonTapped>);
    m_bar->setItems(itemsOfStack());
    return m_bar;
}

std::vector<Ref<UINavigationItem>> UINavigationController::itemsOfStack() const {
    std::vector<Ref<UINavigationItem>> items;
    for (const auto& screen : m_stack)
        items.emplace_back(screen->navigationItem());
    return items;
}

CGRect UINavigationController::barFrame() const {
    const UIApplication* application = UIApplication::sharedApplication();
    const CGFloat below = application ? application->statusBarFrame().size.height : 0;
    const CGFloat width = m_content ? m_content->bounds().size.width : UIScreen::mainScreen()->bounds().size.width;
    return {{0, m_isBarHidden ? -kBarHeight : below}, {width, kBarHeight}};
}

CGRect UINavigationController::screenFrame(const UIViewController* controller) const {
    CGRect frame = m_content->bounds();
    if (controller->edgesForExtendedLayout() & UIRectEdgeTop)
        return frame;
    const CGFloat top = std::max<CGFloat>(0, CGRectGetMaxY(barFrame()));
    frame.origin.y += top;
    frame.size.height = std::max<CGFloat>(0, frame.size.height - top);
    return frame;
}

/// Not in the middle of a transition, whose end places the screens.
void UINavigationController::layOut() {
    if (!m_content)
        return;
    m_bar->setFrame(barFrame());
    // Here, so that it takes part in an animation of the change.
    m_bar->layoutSubviews();
    if (m_shown && m_shown->viewIfLoaded() && !m_transition)
        m_shown->view()->setFrame(screenFrame(m_shown));
}

void UINavigationController::statusBarChanged(NSNotification*) { layOut(); }

void UINavigationController::setNavigationBarHidden_animated(bool hidden, bool animated) {
    if (hidden == m_isBarHidden)
        return;
    m_isBarHidden = hidden;
    if (animated && isViewLoaded())
        UIView::animateWithDuration_animations(kBarDuration, [this] { layOut(); });
    else
        layOut();
}

void UINavigationController::backButtonTapped() { popViewControllerAnimated(true); }

// Swipe back

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
