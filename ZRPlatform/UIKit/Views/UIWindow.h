#pragma once

#include <ZRPlatform/UIKit/Views/UIView.h>

#pragma GCC visibility push(default)
namespace zr {

/// Windows are shown in the order of their levels; those of one level in the order in which they were shown.
using UIWindowLevel = CGFloat;

/// The level of windows at first.
inline constexpr UIWindowLevel UIWindowLevelNormal = 0;
/// In front of the application's windows, where a status bar lies.
inline constexpr UIWindowLevel UIWindowLevelStatusBar = 1000;
/// In front of both, where alerts lie.
inline constexpr UIWindowLevel UIWindowLevelAlert = 2000;

/// Posted by a window after it was shown.
inline constexpr const char* UIWindowDidBecomeVisibleNotification = "UIWindowDidBecomeVisibleNotification";
/// Posted by a window after it was hidden.
inline constexpr const char* UIWindowDidBecomeHiddenNotification = "UIWindowDidBecomeHiddenNotification";
/// Posted by a window after it was made key.
inline constexpr const char* UIWindowDidBecomeKeyNotification = "UIWindowDidBecomeKeyNotification";
/// Posted by a window after it ceased to be key.
inline constexpr const char* UIWindowDidResignKeyNotification = "UIWindowDidResignKeyNotification";

/// The root of a tree of views, on the screen. Hidden at first; `makeKeyAndVisible` shows it. Its owner keeps it: a
/// window whose last reference goes leaves the screen.
///
/// One window at most is the key window: typing goes to its first responder. When it resigns, hides or goes, the
/// topmost visible window that was key before becomes key again.
class UIWindow : public UIView {
public:
    UIWindow();
    ~UIWindow() override;
    bool initWithFrame(CGRect frame) override;

    /// @name Controller
    /// @{
    /// The controller whose view fills the window; nil at first.
    UIViewController* rootViewController() const { return m_rootViewController; }
    /// The controller whose view fills the window, below the window's other subviews, and follows its size. Kept; its
    /// view is loaded when the window is visible. The controllers whose views are in the window appear and disappear
    /// with it.
    ///
    /// What the old one presents is dismissed with it, without animation. One that has a parent or is presented is
    /// refused and logged; one that is another window's root is taken from that one.
    virtual void setRootViewController(UIViewController* controller);
    /// @}

    /// Windows of a higher level lie in front; of one level, the one shown last. 0 at first.
    UIWindowLevel windowLevel() const { return m_windowLevel; }
    void setWindowLevel(UIWindowLevel level);
    /// Whether typing goes to it.
    bool isKeyWindow() const;
    /// Shows it, in front of the others of its level, and sends typing to it.
    virtual void makeKeyAndVisible();
    /// Sends typing to it, which is no change to what is shown.
    virtual void makeKeyWindow();
    /// Called when the window becomes key. Calling it makes the window key, if it is not, without showing it.
    virtual void becomeKeyWindow();
    /// Called when the window stops being key. Calling it makes it stop, if it is key.
    virtual void resignKeyWindow();
    /// Hiding the window makes another one key, if it was, and tells its controllers of a disappearance; showing it
    /// puts it in front of the others of its level.
    void setHidden(bool hidden) override;
    /// Sends the touch that an event is about to the recognisers on its way, then to its view.
    virtual void sendEvent(UIEvent* event);

    /// The application.
    UIResponder* nextResponder() const override;

    /// The responder in this window that typing goes to while the window is key; nil when there is none.
    UIResponder* firstResponder() const { return m_firstResponder.get(); }

    /// The responder is first no more, whether it agrees or not. Nothing happens when it is not.
    void dropFirstResponder(UIResponder* responder);

protected:
    const KeyTable& keyTable() const override;

private:
    friend class UIApplication;
    friend class UIResponder;

    void showRootView();
    void takeRootViewAway();
    std::vector<Ref<UIViewController>> topControllers() const;

    Weak<UIResponder> m_firstResponder;
    /// What it filled when it was hidden; zero otherwise. A screen that turns meanwhile does not find it.
    CGRect m_filledScreen;
    Ref<UIViewController> m_rootViewController;
    /// The root controller whose view was put into the window last.
    Ref<UIViewController> m_shownRootViewController;
    UIWindowLevel m_windowLevel = UIWindowLevelNormal;
};

} // namespace zr
#pragma GCC visibility pop
