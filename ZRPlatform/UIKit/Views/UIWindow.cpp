#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/Internal/Presentation.h>
#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>

namespace zr {

UIWindow::UIWindow() = default;

UIWindow::~UIWindow() {
    if (m_rootViewController)
        m_rootViewController->m_rootOfWindow = nullptr;
    takeRootViewAway();
    if (UIApplication* application = UIApplication::sharedApplication())
        application->windowHidden(this);
    for (const auto& subview : subviews())
        subview->moveToWindow(nullptr);
    m_window = nullptr;
}

bool UIWindow::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    m_window = this;
    UIView::setHidden(true);
    return true;
}

void UIWindow::setWindowLevel(UIWindowLevel level) {
    m_windowLevel = level;
    if (UIApplication* application = UIApplication::sharedApplication())
        application->windowLevelChanged();
}

void UIWindow::setHidden(bool hidden) {
    if (hidden == isHidden())
        return;
    const ChangeQueue::Step step;
    const Ref<UIWindow> keep = this;
    UIApplication* application = UIApplication::sharedApplication();
    const CGRect screen = UIScreen::mainScreen()->bounds();
    const CGRect filledScreen = std::exchange(m_filledScreen, hidden && frame() == screen ? screen : CGRectZero);
    if (!hidden && frame() == filledScreen)
        setFrame(screen);
    // Those whose views come now are told by that.
    const auto controllers = topControllers();
    for (const auto& controller : controllers) {
        ControllerAccess::finishTransitions(controller);
        controller->beginAppearanceTransition_animated(!hidden, false);
    }
    UIView::setHidden(hidden);
    if (application && hidden)
        application->windowHidden(this);
    else if (application)
        application->windowShown(this);
    if (!hidden)
        showRootView();
    for (const auto& controller : controllers)
        hidden ? ControllerAccess::endDisappearing(controller) : ControllerAccess::endAppearing(controller);
    if (!application)
        return;
    NSNotificationCenter::defaultCenter()->postNotificationName_object(
        hidden ? UIWindowDidBecomeHiddenNotification : UIWindowDidBecomeVisibleNotification, this);
}

// Controllers

namespace {

void collectTopControllers(const UIView* view, std::vector<Ref<UIViewController>>& controllers) {
    for (const auto& subview : view->subviews()) {
        if (auto* controller = dynamic_cast<UIViewController*>(subview->nextResponder()))
            controllers.emplace_back(controller);
        else
            collectTopControllers(subview, controllers);
    }
}

} // namespace

/// Those whose views are in the window and in no other controller's view.
std::vector<Ref<UIViewController>> UIWindow::topControllers() const {
    std::vector<Ref<UIViewController>> controllers;
    collectTopControllers(this, controllers);
    return controllers;
}

const KeyTable& UIWindow::keyTable() const {
    static const KeyTable table(
        UIView::keyTable(), {key<&UIWindow::rootViewController, &UIWindow::setRootViewController>("rootViewController"),
                             key<&UIWindow::windowLevel, &UIWindow::setWindowLevel>("windowLevel")});
    return table;
}

void UIWindow::setRootViewController(UIViewController* controller) {
    if (controller == m_rootViewController)
        return;
    if (controller && !ControllerAccess::isFree(controller) && !controller->m_rootOfWindow) {
        NSLog("a controller that has a parent or is presented becomes no window's root");
        return;
    }
    const Ref<UIViewController> keep = controller;
    if (controller && controller->m_rootOfWindow)
        controller->m_rootOfWindow->setRootViewController(nullptr);
    if (m_rootViewController)
        m_rootViewController->m_rootOfWindow = nullptr;
    m_rootViewController = controller;
    if (controller)
        controller->m_rootOfWindow = this;
    const Weak<UIWindow> weakSelf = this;
    ChangeQueue::perform([weakSelf] {
        if (const Ref<UIWindow> self = weakSelf.lock())
            self->showRootView();
    });
}

/// Brings the view of the root controller into the window, if that is visible, and the former one's out of it.
void UIWindow::showRootView() {
    if (m_shownRootViewController == m_rootViewController)
        return;
    takeRootViewAway();
    const Ref<UIViewController> root = m_rootViewController;
    if (!root || isHidden())
        return;
    m_shownRootViewController = root;
    UIView* view = root->view();
    placeAtOnce(view, bounds());
    view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    insertSubview_atIndex(view, 0);
}

void UIWindow::takeRootViewAway() {
    const Ref<UIViewController> former = std::exchange(m_shownRootViewController, nullptr);
    if (!former)
        return;
    former->finishTransitions();
    if (const Ref<Presentation> presentation = former->m_presentation)
        presentation->takeAway();
    if (former->m_view && former->m_view->superview() == this)
        former->m_view->removeFromSuperview();
}

bool UIWindow::isKeyWindow() const {
    UIApplication* application = UIApplication::sharedApplication();
    return application && application->keyWindow() == this;
}

void UIWindow::makeKeyAndVisible() {
    UIApplication* application = UIApplication::sharedApplication();
    if (application && !isHidden())
        application->windowShown(this);
    setHidden(false);
    makeKeyWindow();
}

void UIWindow::makeKeyWindow() {
    if (UIApplication* application = UIApplication::sharedApplication())
        application->setKeyWindow(this);
}

void UIWindow::becomeKeyWindow() {
    if (!isKeyWindow())
        makeKeyWindow();
}

void UIWindow::resignKeyWindow() {
    if (isKeyWindow())
        UIApplication::sharedApplication()->keyWindowLost(this);
}

void UIWindow::dropFirstResponder(UIResponder* responder) {
    if (m_firstResponder.get() != responder)
        return;
    m_firstResponder = nullptr;
    responder->firstResponderWasTaken();
}

void UIWindow::sendEvent(UIEvent* event) {
    const Ref<UITouch> touch = event->m_changed.lock();
    GestureArbiter* gestures = GestureArbiter::shared();
    if (gestures && touch && touch->window() == this)
        gestures->touchChanged(touch, event);
}

UIResponder* UIWindow::nextResponder() const { return UIApplication::sharedApplication(); }

} // namespace zr
