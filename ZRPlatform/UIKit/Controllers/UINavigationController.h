#pragma once

#include <ZRPlatform/UIKit/Controllers/UINavigationBar.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>

namespace zr { // not exported
class NavigationTransition;
class SwipeBackDelegate;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class UIGestureRecognizer;
class UIScreenEdgePanGestureRecognizer;

/// Told of the screens that come to the top. Nothing is told when a swipe back is let go and the screen stays.
class UINavigationControllerDelegate {
public:
    virtual ~UINavigationControllerDelegate() = default;
    /// A screen comes to the top: told after its `viewWillAppear`.
    virtual void navigationController_willShowViewController_animated(UINavigationController*, UIViewController*,
                                                                      bool /*animated*/) {}
    /// It has come: told after its `viewDidAppear`.
    virtual void navigationController_didShowViewController_animated(UINavigationController*, UIViewController*,
                                                                     bool /*animated*/) {}
};

/// A stack of screens, the top one shown. A new one comes in from the right in 0.35 s while the one below moves left by
/// 30 % of the width under a shade; a pop goes the same way back. Touches are ignored meanwhile.
///
/// `viewControllers`, parents and the bar's items change at once, and the messages "will move to parent" are sent; "did
/// move" once the movement has ended. A change while another one glides shows the end of that one first, with all its
/// messages. While the controller is not on the screen, or still coming or going, nothing glides.
///
/// The screens fill the controller's view, below the bar, but for the edges that they do not extend to.
class UINavigationController : public UIViewController {
public:
    UINavigationController();
    ~UINavigationController() override;
    bool initWithNibName_bundle(const NSString& nibName, NSBundle* bundle) override;
    /// Nil makes an empty one.
    virtual bool initWithRootViewController(UIViewController* root);

    /// @name Stack
    /// @{
    /// The stack, lowest first.
    const std::vector<Ref<UIViewController>>& viewControllers() const { return m_stack; }
    /// Screens that are not in the new stack leave, new ones come. Animated, it is a pop when the new top was in the
    /// stack below the old one, else a push. What `pushViewController` ignores is left out.
    virtual void setViewControllers_animated(const std::vector<Ref<UIViewController>>& controllers, bool animated);
    /// The same as `setViewControllers_animated`, not animated.
    void setViewControllers(const std::vector<Ref<UIViewController>>& controllers) {
        setViewControllers_animated(controllers, false);
    }
    /// The screen that was pushed last; nil when the stack is empty.
    UIViewController* topViewController() const;
    /// What the top screen, or this controller, presents; else the top screen.
    UIViewController* visibleViewController() const;
    /// Puts the screen on top of the stack and shows it. Ignored and logged: nil, a screen that is in the stack
    /// already, a navigation controller (this one included), a controller that contains this one, one that has another
    /// parent, is presented or is a window's root.
    virtual void pushViewController_animated(UIViewController* controller, bool animated);
    /// Takes the top screen off the stack and returns it; nil when there is only one, which stays.
    virtual Ref<UIViewController> popViewControllerAnimated(bool animated);
    /// Takes the screens above this one off the stack and returns them, lowest first. A screen that is not in the stack
    /// is logged, and pops nothing.
    virtual std::vector<Ref<UIViewController>> popToViewController_animated(UIViewController* controller,
                                                                            bool animated);
    /// Takes all screens but the lowest off the stack and returns them, lowest first.
    virtual std::vector<Ref<UIViewController>> popToRootViewControllerAnimated(bool animated);
    /// Pops, animated.
    bool accessibilityPerformEscape() override;
    /// @}

    /// @name Bar
    /// @{
    /// The controller's own bar, 44 points high below the status bar; never nil.
    UINavigationBar* navigationBar();
    /// Whether the bar is away; false at first. The screens that do not extend below the bar use its room then. Hiding
    /// the bar's view (`setHidden`) instead changes no layout.
    bool isNavigationBarHidden() const { return m_isBarHidden; }
    void setNavigationBarHidden(bool hidden) { setNavigationBarHidden_animated(hidden, false); }
    /// Animated, the bar slides over the upper edge in 0.2 s.
    virtual void setNavigationBarHidden_animated(bool hidden, bool animated);
    /// @}

    /// Told of the screens that come to the top; not kept. Nil at first.
    UINavigationControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(const Delegate<UINavigationControllerDelegate>& delegate) { m_delegate = delegate; }
    /// Attached to this controller's view, which it loads. A finger that comes in from the left edge of the window
    /// carries the top screen away; let go beyond the half or with more than 300 points a second to the right, the
    /// screen is popped, otherwise (or with that speed to the left) it stays. It then gets the messages of a
    /// disappearance that turns round, and `didMoveToParentViewController` with this controller. Until then the stack
    /// is without it.
    ///
    /// By its delegate it begins only while the top screen has a back button: not on the last screen, while the bar is
    /// hidden, when the item hides the back button or has a left one. A change by code while the finger holds the
    /// screen lets it stay first.
    UIGestureRecognizer* interactivePopGestureRecognizer();

    void loadView() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidDisappear(bool animated) override;
    /// No: the controller tells its screens itself.
    bool shouldAutomaticallyForwardAppearanceMethods() const override { return false; }
    /// The top screen's answer; yes without one.
    bool shouldAutorotate() const override;
    /// The top screen's answer.
    NSUInteger supportedInterfaceOrientations() const override;
    /// The top screen.
    UIViewController* childViewControllerForStatusBarStyle() const override { return topViewController(); }
    /// The top screen.
    UIViewController* childViewControllerForStatusBarHidden() const override { return topViewController(); }

protected:
    const KeyTable& keyTable() const override;
    void finishTransitions() override;

private:
    friend class NavigationTransition;
    friend class SwipeBackDelegate;

    bool canTake(const UIViewController* controller) const;
    bool canPopByHand() const;
    void changeStack(std::vector<Ref<UIViewController>> stack, bool animated, bool isPush);
    void showTop(bool animated, bool isPush);
    void showTopNow(bool animated, bool isPush);
    void put(UIViewController* screen);
    void finishOwnTransition();
    void flushMoves(const std::vector<Ref<UIViewController>>& entering,
                    const std::vector<Ref<UIViewController>>& leaving);
    void placeChildren() override { layOut(); }
    void layOut();
    CGRect barFrame() const;
    CGRect screenFrame(const UIViewController* controller) const;
    std::vector<Ref<UINavigationItem>> itemsOfStack() const;
    void tellWillShow(UIViewController* screen, bool animated);
    void tellDidShow(UIViewController* screen, bool animated);
    void backButtonTapped();
    void swiped();
    void beginSwipe();
    void statusBarChanged(NSNotification* notification);

    std::vector<Ref<UIViewController>> m_stack;
    /// Whose view is in the content view.
    Ref<UIViewController> m_shown;
    /// Told that they will move, and not yet that they did.
    std::vector<Ref<UIViewController>> m_entering;
    std::vector<Ref<UIViewController>> m_leaving;
    Ref<NavigationTransition> m_transition;
    Ref<UIView> m_content;
    Ref<UINavigationBar> m_bar;
    Ref<UIScreenEdgePanGestureRecognizer> m_swipe;
    Ref<NSObject> m_swipeDelegate;
    Delegate<UINavigationControllerDelegate> m_delegate;
    Weak<UIViewController> m_toldWillShow;
    Weak<UIViewController> m_toldDidShow;
    bool m_isBarHidden = false;
};

} // namespace zr
#pragma GCC visibility pop
