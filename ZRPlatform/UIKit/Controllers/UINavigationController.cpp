#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/Internal/NavigationTransition.h>
#include <ZRPlatform/UIKit/Gestures/UIScreenEdgePanGestureRecognizer.h>

#include <algorithm>

namespace zr {

namespace {

template <class T>
bool contains(const std::vector<Ref<T>>& list, const T* object) {
    return std::any_of(list.begin(), list.end(), [object](const Ref<T>& each) { return each.get() == object; });
}

} // namespace

// Construction

UINavigationController::UINavigationController() = default;
UINavigationController::~UINavigationController() = default;

bool UINavigationController::initWithNibName_bundle(const NSString& nibName, NSBundle* bundle) {
    if (!UIViewController::initWithNibName_bundle(nibName, bundle))
        return false;
    auto* center = NSNotificationCenter::defaultCenter();
    center->removeObserver_name_object(this, UIApplicationDidChangeStatusBarFrameNotification, nullptr);
    center->addObserver_selector_name_object(this, selector<&UINavigationController::statusBarChanged>,
                                             UIApplicationDidChangeStatusBarFrameNotification, nullptr);
    return true;
}

bool UINavigationController::initWithRootViewController(UIViewController* root) {
    if (!initWithNibName_bundle(nullptr, nullptr))
        return false;
    if (root)
        pushViewController_animated(root, false);
    return true;
}

const KeyTable& UINavigationController::keyTable() const {
    static const KeyTable table(
        UIViewController::keyTable(),
        {key<&UINavigationController::topViewController>("topViewController"),
         key<&UINavigationController::visibleViewController>("visibleViewController"),
         key<&UINavigationController::isNavigationBarHidden, &UINavigationController::setNavigationBarHidden>(
             "navigationBarHidden")});
    return table;
}

// Stack

UIViewController* UINavigationController::topViewController() const {
    return m_stack.empty() ? nullptr : m_stack.back().get();
}

UIViewController* UINavigationController::visibleViewController() const {
    UIViewController* presented = presentedViewController();
    return presented ? presented : topViewController();
}

bool UINavigationController::canTake(const UIViewController* controller) const {
    const bool isOurs = controller && controller->parentViewController() == this;
    for (const UIViewController* ancestor = this; ancestor; ancestor = ancestor->parentViewController()) {
        if (ancestor == controller)
            return false;
    }
    return controller && !controller->isKindOfClass<UINavigationController>() &&
           (isOurs || ControllerAccess::isFree(controller));
}

void UINavigationController::pushViewController_animated(UIViewController* controller, bool animated) {
    const Ref<UINavigationController> keep = this;
    const Ref<UIViewController> keepController = controller;
    if (ChangeQueue::isIdle())
        finishOwnTransition();
    if (!canTake(controller) || contains(m_stack, controller)) {
        NSLog(
            "a screen cannot be pushed: it is nil, in the stack already, a navigation controller, or shown elsewhere");
        return;
    }
    auto stack = m_stack;
    stack.push_back(keepController);
    changeStack(std::move(stack), animated, true);
}

Ref<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
    const Ref<UINavigationController> keep = this;
    if (ChangeQueue::isIdle())
        finishOwnTransition();
    if (m_stack.size() < 2)
        return nullptr;
    const Ref<UIViewController> popped = m_stack.back();
    changeStack({m_stack.begin(), m_stack.end() - 1}, animated, false);
    return popped;
}

bool UINavigationController::accessibilityPerformEscape() {
    return popViewControllerAnimated(true) || UIViewController::accessibilityPerformEscape();
}

std::vector<Ref<UIViewController>> UINavigationController::popToViewController_animated(UIViewController* controller,
                                                                                        bool animated) {
    const Ref<UINavigationController> keep = this;
    const Ref<UIViewController> keepController = controller;
    if (ChangeQueue::isIdle())
        finishOwnTransition();
    const auto found = std::find_if(m_stack.begin(), m_stack.end(),
                                    [controller](const auto& screen) { return screen.get() == controller; });
    if (found == m_stack.end()) {
        NSLog("a screen that is not in the stack cannot be popped to");
        return {};
    }
    std::vector<Ref<UIViewController>> popped(found + 1, m_stack.end());
    if (!popped.empty())
        changeStack({m_stack.begin(), found + 1}, animated, false);
    return popped;
}

std::vector<Ref<UIViewController>> UINavigationController::popToRootViewControllerAnimated(bool animated) {
    const Ref<UINavigationController> keep = this;
    if (ChangeQueue::isIdle())
        finishOwnTransition();
    if (m_stack.empty())
        return {};
    return popToViewController_animated(m_stack.front(), animated);
}

void UINavigationController::setViewControllers_animated(const std::vector<Ref<UIViewController>>& controllers,
                                                         bool animated) {
    const Ref<UINavigationController> keep = this;
    if (ChangeQueue::isIdle())
        finishOwnTransition();
    std::vector<Ref<UIViewController>> stack;
    for (const auto& controller : controllers) {
        if (canTake(controller) && !contains(stack, controller.get()))
            stack.push_back(controller);
        else
            NSLog("a screen cannot be in the stack: it is nil, there twice, a navigation controller, or shown "
                  "elsewhere");
    }
    const bool isPop = !stack.empty() && topViewController() != stack.back() && contains(m_stack, stack.back().get());
    changeStack(std::move(stack), animated, !isPop);
}

/// The screens are told before anything shows: what they ask for then waits. One that leaves and comes back meanwhile
/// is in both lists in the end; being in the stack decides.
void UINavigationController::changeStack(std::vector<Ref<UIViewController>> stack, bool animated, bool isPush) {
    const ChangeQueue::Step step;
    const Ref<UINavigationController> keep = this;
    const auto former = std::exchange(m_stack, stack);
    for (const auto& screen : former) {
        if (contains(stack, screen.get()))
            continue;
        std::erase(m_entering, screen);
        m_leaving.push_back(screen);
        screen->willMoveToParentViewController(nullptr);
    }
    for (const auto& screen : stack) {
        if (contains(former, screen.get()))
            continue;
        // One that is on its way out is a child still.
        if (screen->parentViewController() == this)
            screen->willMoveToParentViewController(this);
        else
            addChildViewController(screen);
        if (screen->parentViewController() == this)
            m_entering.push_back(screen);
        else
            std::erase(m_stack, screen);
    }
    showTop(animated, isPush);
}

// Showing

void UINavigationController::showTop(bool animated, bool isPush) {
    ChangeQueue::perform(
        [self = Ref<UINavigationController>(this), animated, isPush] { self->showTopNow(animated, isPush); });
}

void UINavigationController::showTopNow(bool animated, bool isPush) {
    finishOwnTransition();
    // The messages may change the stack again; what is shown follows that afterwards.
    const Ref<UIViewController> top = topViewController();
    const bool isOnScreen = isViewLoaded() && ControllerAccess::hasAppeared(this);
    if (isOnScreen && m_shown != top) {
        const Ref<UIViewController> former = std::exchange(m_shown, top);
        const auto transition = make<NavigationTransition>(&NavigationTransition::initWithController_from_to_isPush,
                                                           this, former, top, isPush);
        m_transition = transition;
        if (animated && former && top)
            transition->runAnimated();
        else
            transition->runAtOnce();
        return;
    }
    const auto entering = std::exchange(m_entering, {}), leaving = std::exchange(m_leaving, {});
    const Ref<UIViewController> former = m_shown;
    if (m_shown != top && isViewLoaded()) {
        const bool isAppearing = ControllerAccess::isAppearing(this);
        if (former)
            former->beginAppearanceTransition_animated(false, false);
        if (top && isAppearing) {
            top->beginAppearanceTransition_animated(true, false);
            tellWillShow(top, false);
        }
        put(top);
        if (former)
            ControllerAccess::endDisappearing(former);
    }
    if (m_bar)
        m_bar->setItems(itemsOfStack());
    flushMoves(entering, leaving);
}

/// The screen's view takes the place of the one that is there, whoever is told of it.
void UINavigationController::put(UIViewController* screen) {
    if (m_shown && m_shown != screen)
        ControllerAccess::takeView(m_shown);
    m_shown = screen;
    if (!screen)
        return;
    view();
    screen->loadViewIfNeeded(); // which may choose the edges
    ControllerAccess::putView(screen, m_content, 0, screenFrame(screen));
}

void UINavigationController::flushMoves(const std::vector<Ref<UIViewController>>& entering,
                                        const std::vector<Ref<UIViewController>>& leaving) {
    for (const auto& screen : leaving) {
        if (!contains(m_stack, screen.get()) && screen->parentViewController() == this)
            screen->removeFromParentViewController();
    }
    for (const auto& screen : entering) {
        if (contains(m_stack, screen.get()))
            screen->didMoveToParentViewController(this);
    }
}

void UINavigationController::finishOwnTransition() {
    if (const Ref<NavigationTransition> transition = m_transition)
        transition->finish();
}

void UINavigationController::finishTransitions() {
    const Ref<UINavigationController> keep = this;
    finishOwnTransition();
    UIViewController::finishTransitions();
}

void UINavigationController::tellWillShow(UIViewController* screen, bool animated) {
    if (!screen || m_toldWillShow.get() == screen)
        return;
    m_toldWillShow = screen;
    m_toldDidShow = nullptr;
    const Ref<NSObject> keep = m_delegate.object();
    if (m_delegate)
        m_delegate->navigationController_willShowViewController_animated(this, screen, animated);
}

void UINavigationController::tellDidShow(UIViewController* screen, bool animated) {
    if (!screen || m_toldDidShow.get() == screen)
        return;
    m_toldDidShow = screen;
    const Ref<NSObject> keep = m_delegate.object();
    if (m_delegate)
        m_delegate->navigationController_didShowViewController_animated(this, screen, animated);
}

// Appearance

void UINavigationController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    if (m_shown != topViewController())
        put(topViewController());
    layOut();
    const Ref<UIViewController> top = m_shown;
    if (!top)
        return;
    top->beginAppearanceTransition_animated(true, animated);
    tellWillShow(top, animated);
}

void UINavigationController::viewDidAppear(bool animated) {
    UIViewController::viewDidAppear(animated);
    const Ref<UIViewController> top = m_shown;
    if (!top)
        return;
    ControllerAccess::endAppearing(top);
    tellDidShow(top, animated);
}

void UINavigationController::viewWillDisappear(bool animated) {
    UIViewController::viewWillDisappear(animated);
    finishOwnTransition();
    if (const Ref<UIViewController> top = m_shown)
        top->beginAppearanceTransition_animated(false, animated);
}

void UINavigationController::viewDidDisappear(bool animated) {
    UIViewController::viewDidDisappear(animated);
    if (const Ref<UIViewController> top = m_shown)
        ControllerAccess::endDisappearing(top);
}

bool UINavigationController::shouldAutorotate() const {
    const UIViewController* top = topViewController();
    return !top || top->shouldAutorotate();
}

NSUInteger UINavigationController::supportedInterfaceOrientations() const {
    const UIViewController* top = topViewController();
    return top ? top->supportedInterfaceOrientations() : UIViewController::supportedInterfaceOrientations();
}

} // namespace zr
