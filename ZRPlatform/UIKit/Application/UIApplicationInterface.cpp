#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>
#include <ZRPlatform/UIKit/Controls/UIControl.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollInput.h>

#include <algorithm>

namespace zr {

namespace {

constexpr CGFloat kStatusBarHeight = 20;
constexpr NSTimeInterval kStatusBarDuration = 0.35;
/// Controllers are not in one another deeper than this, unless they name each other in a ring.
constexpr int kDeepest = 100;

/// Who is asked in the end, when each may name another one in its stead.
const UIViewController* lastInStead(const UIViewController* controller,
                                    UIViewController* (UIViewController::*instead)() const) {
    for (int depth = 0; depth < kDeepest; ++depth) {
        const UIViewController* next = (controller->*instead)();
        if (!next)
            break;
        controller = next;
    }
    return controller;
}

} // namespace

// Orientation

UIInterfaceOrientation UIApplication::statusBarOrientation() const {
    return UIDevice::currentDevice()->profile().orientation;
}

void UIApplication::setStatusBarOrientation(UIInterfaceOrientation orientation) {
    m_deviceOrientation = orientation;
    rotateToDeviceOrientation();
}

void UIApplication::rotateToDeviceOrientation() {
    ChangeQueue::perform([self = Ref<UIApplication>(this)] {
        const UIInterfaceOrientation orientation = self->m_deviceOrientation;
        if (orientation == self->statusBarOrientation())
            return;
        for (const UIWindow* window : self->m_windows) {
            UIViewController* root = window->rootViewController();
            if (root && !root->frontmost()->allowsOrientation(orientation))
                return;
        }
        self->rotateTo(orientation);
    });
}

void UIApplication::rotateTo(UIInterfaceOrientation orientation) {
    const std::vector<Ref<UIWindow>> shown(m_windows.begin(), m_windows.end());
    const auto callOnScreen = [&](const std::function<void(UIViewController*)>& call) {
        for (const auto& window : shown) {
            const Ref<UIViewController> root = window->rootViewController();
            if (!root)
                continue;
            const auto controllers = window->topControllers();
            for (const auto& controller : controllers)
                controller->callOnScreen(call);
        }
    };
    for (const auto& window : shown) {
        if (const Ref<UIViewController> root = window->rootViewController())
            root->finishTransitions();
    }
    const UIInterfaceOrientation former = statusBarOrientation();
    callOnScreen(
        [&](UIViewController* controller) { controller->willRotateToInterfaceOrientation_duration(orientation, 0); });
    const CGRect oldBounds = UIScreen::mainScreen()->bounds();
    DeviceProfile profile = UIDevice::currentDevice()->profile();
    profile.orientation = orientation;
    UIDevice::currentDevice()->setProfile(profile);
    const CGRect newBounds = UIScreen::mainScreen()->bounds();
    CATransaction::setNeedsFrame();
    for (const auto& window : shown) {
        if (window->frame() == oldBounds)
            window->setFrame(newBounds);
    }
    NSNotificationCenter::defaultCenter()->postNotificationName_object(
        UIApplicationDidChangeStatusBarOrientationNotification, this);
    callOnScreen([&](UIViewController* controller) {
        controller->willAnimateRotationToInterfaceOrientation_duration(orientation, 0);
    });
    for (const auto& window : shown) {
        if (window->rootViewController())
            window->layoutIfNeeded();
    }
    callOnScreen([&](UIViewController* controller) { controller->didRotateFromInterfaceOrientation(former); });
}

// Status bar

CGRect UIApplication::statusBarFrame() const {
    if (m_statusBar.hidden)
        return CGRectZero;
    return {{0, 0}, {UIScreen::mainScreen()->bounds().size.width, kStatusBarHeight}};
}

void UIApplication::setStatusBarHidden_withAnimation(bool hidden, UIStatusBarAnimation animation) {
    if (hidden == m_statusBar.hidden)
        return;
    auto* center = NSNotificationCenter::defaultCenter();
    center->postNotificationName_object(UIApplicationWillChangeStatusBarFrameNotification, this);
    m_statusBar.hidden = hidden;
    const auto tell = [&] {
        center->postNotificationName_object(UIApplicationDidChangeStatusBarFrameNotification, this);
    };
    if (animation == UIStatusBarAnimationNone)
        tell();
    else
        UIView::animateWithDuration_animations(kStatusBarDuration, tell);
}

/// Whether the touch is none of a control's, nor of a window's that lies above the status bar.
bool UIApplication::isStatusBarTap(const UITouch* touch, CGPoint start, CGPoint end) const {
    const CGRect bar = statusBarFrame();
    if (touch->tapCount() == 0 || !CGRectContainsPoint(bar, start) || !CGRectContainsPoint(bar, end))
        return false;
    if (touch->window() && touch->window()->windowLevel() >= UIWindowLevelStatusBar)
        return false;
    for (const UIView* view = touch->view(); view; view = view->superview()) {
        if (view->isKindOfClass<UIControl>())
            return false;
    }
    return true;
}

void UIApplication::statusBarTapped() {
    std::vector<UIWindow*> below = m_windows;
    std::erase_if(below, [](const UIWindow* window) { return window->windowLevel() >= UIWindowLevelStatusBar; });
    scrollToTopInWindows(below);
}

/// What the controller in front of the lowest window that has one wishes counts, if it is not what was wished last.
void UIApplication::takeStatusBarWish() {
    const auto window = std::find_if(m_windows.begin(), m_windows.end(),
                                     [](const UIWindow* each) { return each->rootViewController() != nullptr; });
    if (window == m_windows.end())
        return;
    const UIViewController* front = (*window)->rootViewController()->frontmost();
    const UIViewController* forStyle = lastInStead(front, &UIViewController::childViewControllerForStatusBarStyle);
    const UIViewController* forHidden = lastInStead(front, &UIViewController::childViewControllerForStatusBarHidden);
    const StatusBar former = m_statusBarWish;
    m_statusBarWish = {forHidden->prefersStatusBarHidden(), forStyle->preferredStatusBarStyle()};
    if (m_statusBarWish.style != former.style)
        setStatusBarStyle(m_statusBarWish.style);
    if (m_statusBarWish.hidden != former.hidden)
        setStatusBarHidden_withAnimation(m_statusBarWish.hidden, forHidden->preferredStatusBarUpdateAnimation());
}

} // namespace zr
