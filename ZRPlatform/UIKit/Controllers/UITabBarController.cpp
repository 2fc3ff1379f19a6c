#include <ZRPlatform/UIKit/Controllers/UITabBarController.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

#include <algorithm>

namespace zr {

namespace {

constexpr CGFloat kBarHeight = 49;

template <class List>
NSUInteger indexOf(const List& list, const UIViewController* controller) {
    const auto found =
        std::find_if(list.begin(), list.end(), [controller](const auto& each) { return each.get() == controller; });
    return found == list.end() ? static_cast<NSUInteger>(NSNotFound) : static_cast<NSUInteger>(found - list.begin());
}

template <class List>
bool contains(const List& list, const UIViewController* controller) {
    return indexOf(list, controller) != static_cast<NSUInteger>(NSNotFound);
}

} // namespace

UITabBarController::UITabBarController() = default;
UITabBarController::~UITabBarController() = default;

const KeyTable& UITabBarController::keyTable() const {
    static const KeyTable table(
        UIViewController::keyTable(),
        {key<&UITabBarController::selectedIndex, &UITabBarController::setSelectedIndex>("selectedIndex"),
         key<&UITabBarController::selectedViewController, &UITabBarController::setSelectedViewController>(
             "selectedViewController")});
    return table;
}

// Screens

void UITabBarController::setViewControllers_animated(const std::vector<Ref<UIViewController>>& controllers, bool) {
    const ChangeQueue::Step step;
    const Ref<UITabBarController> keep = this;
    const NSUInteger formerIndex = selectedIndex();
    const auto former = std::exchange(m_controllers, {});
    for (const auto& controller : controllers) {
        const bool isOurs = controller && controller->parentViewController() == this;
        if (!controller || contains(m_controllers, controller) || !(isOurs || ControllerAccess::isFree(controller))) {
            NSLog("a screen cannot be a tab: it is nil, there twice, or shown elsewhere");
            continue;
        }
        m_controllers.push_back(controller);
    }
    std::vector<Ref<UIViewController>> entering, leaving;
    for (const auto& controller : former) {
        if (!contains(m_controllers, controller))
            leaving.push_back(controller);
    }
    for (const auto& controller : leaving)
        controller->willMoveToParentViewController(nullptr);
    const auto wanted = m_controllers;
    for (const auto& controller : wanted) {
        if (controller->parentViewController() == this)
            continue;
        addChildViewController(controller);
        if (controller->parentViewController() == this)
            entering.push_back(controller);
        else
            std::erase(m_controllers, controller);
    }
    const bool staysSelected = contains(m_controllers, m_selected);
    if (!staysSelected && m_controllers.empty())
        m_selected = nullptr;
    else if (!staysSelected)
        m_selected = m_controllers[formerIndex < m_controllers.size() ? formerIndex : 0];
    if (m_bar)
        showItems();
    showSelected();
    ChangeQueue::perform([entering, leaving, self = keep] {
        for (const auto& controller : leaving) {
            if (controller->parentViewController() == self)
                controller->removeFromParentViewController();
        }
        for (const auto& controller : entering) {
            if (controller->parentViewController() == self)
                controller->didMoveToParentViewController(self);
        }
    });
}

NSUInteger UITabBarController::selectedIndex() const { return indexOf(m_controllers, m_selected); }

void UITabBarController::setSelectedIndex(NSUInteger index) {
    if (index < m_controllers.size())
        setSelectedViewController(m_controllers[index]);
}

void UITabBarController::setSelectedViewController(UIViewController* controller) {
    if (!controller || !contains(m_controllers, controller))
        return;
    m_selected = controller;
    if (m_bar)
        m_bar->setSelectedItem(controller->tabBarItem());
    showSelected();
}

void UITabBarController::showSelected() {
    ChangeQueue::perform([self = Ref<UITabBarController>(this)] { self->showSelectedNow(); });
}

void UITabBarController::showSelectedNow() {
    if (m_shown == m_selected || !isViewLoaded())
        return;
    const Ref<UIViewController> former = std::exchange(m_shown, m_selected);
    const Ref<UIViewController> entering = m_shown;
    const bool isAppearing = ControllerAccess::isAppearing(this), hasAppeared = ControllerAccess::hasAppeared(this);
    if (former)
        ControllerAccess::finishTransitions(former);
    if (entering && (isAppearing || hasAppeared))
        entering->beginAppearanceTransition_animated(true, false);
    if (former)
        former->beginAppearanceTransition_animated(false, false);
    if (entering) {
        entering->loadViewIfNeeded(); // which may choose the edges
        ControllerAccess::putView(entering, m_content, 0, screenFrame(entering));
    }
    if (former) {
        ControllerAccess::takeView(former);
        ControllerAccess::endDisappearing(former);
    }
    if (entering && hasAppeared)
        ControllerAccess::endAppearing(entering);
}

// Bar

UITabBar* UITabBarController::tabBar() {
    view();
    return m_bar;
}

void UITabBarController::showItems() {
    std::vector<Ref<UITabBarItem>> items;
    for (const auto& controller : m_controllers)
        items.emplace_back(controller->tabBarItem());
    m_bar->setItems(items);
    m_bar->setSelectedItem(m_selected ? m_selected->tabBarItem() : nullptr);
}

void UITabBarController::tabBar_didSelectItem(UITabBar*, UITabBarItem* item) {
    const Ref<UITabBarController> keep = this;
    const auto found = std::find_if(m_controllers.begin(), m_controllers.end(),
                                    [item](const auto& each) { return each->tabBarItem() == item; });
    if (found == m_controllers.end())
        return;
    const Ref<UIViewController> controller = *found;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (m_delegate && !m_delegate->tabBarController_shouldSelectViewController(this, controller)) {
        m_bar->setSelectedItem(m_selected ? m_selected->tabBarItem() : nullptr);
        return;
    }
    auto* navigation = dynamic_cast<UINavigationController*>(controller.get());
    const bool wasSelected = controller == m_selected;
    // First, so that another tab that the screens ask for while they are popped has the last word.
    setSelectedViewController(controller);
    if (wasSelected && navigation)
        navigation->popToRootViewControllerAnimated(true);
    if (m_delegate)
        m_delegate->tabBarController_didSelectViewController(this, controller);
}

// Views and appearance

void UITabBarController::loadView() {
    UIViewController::loadView();
    UIView* whole = viewIfLoaded();
    whole->setClipsToBounds(true);
    const CGRect bounds = whole->bounds();
    m_content = make<UIView>(&UIView::initWithFrame, bounds);
    m_content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    whole->addSubview(m_content);
    m_bar = make<UITabBar>(&UITabBar::initWithFrame,
                           CGRectMake(0, bounds.size.height - kBarHeight, bounds.size.width, kBarHeight));
    m_bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleTopMargin);
    m_bar->setDelegate(this);
    whole->addSubview(m_bar);
    showItems();
}

CGRect UITabBarController::screenFrame(const UIViewController* controller) const {
    CGRect frame = m_content->bounds();
    if (!(controller->edgesForExtendedLayout() & UIRectEdgeBottom))
        frame.size.height = std::max<CGFloat>(0, frame.size.height - kBarHeight);
    return frame;
}

void UITabBarController::placeChildren() {
    if (m_shown && m_shown->viewIfLoaded() && m_content)
        m_shown->view()->setFrame(screenFrame(m_shown));
}

void UITabBarController::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    showSelectedNow();
    if (const Ref<UIViewController> shown = m_shown)
        shown->beginAppearanceTransition_animated(true, animated);
}

void UITabBarController::viewDidAppear(bool animated) {
    UIViewController::viewDidAppear(animated);
    if (const Ref<UIViewController> shown = m_shown)
        ControllerAccess::endAppearing(shown);
}

void UITabBarController::viewWillDisappear(bool animated) {
    UIViewController::viewWillDisappear(animated);
    if (const Ref<UIViewController> shown = m_shown)
        shown->beginAppearanceTransition_animated(false, animated);
}

void UITabBarController::viewDidDisappear(bool animated) {
    UIViewController::viewDidDisappear(animated);
    if (const Ref<UIViewController> shown = m_shown)
        ControllerAccess::endDisappearing(shown);
}

bool UITabBarController::shouldAutorotate() const {
    return std::all_of(m_controllers.begin(), m_controllers.end(),
                       [](const auto& controller) { return controller->shouldAutorotate(); });
}

NSUInteger UITabBarController::supportedInterfaceOrientations() const {
    NSUInteger orientations = m_controllers.empty() ? UIViewController::supportedInterfaceOrientations()
                                                    : NSUInteger(UIInterfaceOrientationMaskAll);
    for (const auto& controller : m_controllers)
        orientations &= controller->supportedInterfaceOrientations();
    return orientations;
}

} // namespace zr
