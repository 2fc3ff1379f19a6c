#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>

namespace zr {

UIWindow::~UIWindow() {
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
    UIView::setHidden(hidden);
    UIApplication* application = UIApplication::sharedApplication();
    if (!application)
        return;
    const Ref<UIWindow> keep = this;
    if (hidden)
        application->windowHidden(this);
    else
        application->windowShown(this);
    NSNotificationCenter::defaultCenter()->postNotificationName_object(
        hidden ? UIWindowDidBecomeHiddenNotification : UIWindowDidBecomeVisibleNotification, this);
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
