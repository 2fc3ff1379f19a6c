#pragma once

#include <ZRPlatform/UIKit/Controllers/UITabBar.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>

#pragma GCC visibility push(default)
namespace zr {

/// Asked and told of the user's taps, not of selections by code.
class UITabBarControllerDelegate {
public:
    virtual ~UITabBarControllerDelegate() = default;
    /// Asked at a tap. No leaves the selection as it is.
    virtual bool tabBarController_shouldSelectViewController(UITabBarController*, UIViewController*) { return true; }
    /// Told of a tap, also when the screen was selected already.
    virtual void tabBarController_didSelectViewController(UITabBarController*, UIViewController*) {}
};

/// Several screens side by side, the selected one shown above a tab bar of 49 points. The change is at once: the new
/// screen will appear, the old one will and did disappear, the new one did appear.
///
/// A tap on the selected tab takes a navigation controller back to its first screen. The screens fill the controller's
/// view, below the bar, unless they do not extend to the lower edge.
class UITabBarController : public UIViewController, public UITabBarDelegate {
public:
    UITabBarController();
    ~UITabBarController() override;

    /// In the order of their tabs.
    const std::vector<Ref<UIViewController>>& viewControllers() const { return m_controllers; }
    /// The selected screen stays so when it is among them; else the one at its index is selected, else the first. Left
    /// out and logged: nil, one that is there twice, and what cannot be a child.
    virtual void setViewControllers_animated(const std::vector<Ref<UIViewController>>& controllers, bool animated);
    /// The same as `setViewControllers_animated`; nothing is animated.
    void setViewControllers(const std::vector<Ref<UIViewController>>& controllers) {
        setViewControllers_animated(controllers, false);
    }
    /// The selected screen's place among the tabs, from 0; `NSNotFound` when there are no screens.
    NSUInteger selectedIndex() const;
    /// Indices out of range are ignored.
    virtual void setSelectedIndex(NSUInteger index);
    /// The screen that is shown; nil when there are no screens.
    UIViewController* selectedViewController() const { return m_selected; }
    /// One that is not among them is ignored.
    virtual void setSelectedViewController(UIViewController* controller);
    /// The controller's own bar, at the lower edge. Its items are the screens'; its delegate is the controller.
    UITabBar* tabBar();
    /// Asked and told of taps; not kept. Nil at first.
    UITabBarControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(const Delegate<UITabBarControllerDelegate>& delegate) { m_delegate = delegate; }

    void loadView() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidDisappear(bool animated) override;
    /// No: the controller tells its screens itself.
    bool shouldAutomaticallyForwardAppearanceMethods() const override { return false; }
    /// Whether all screens would.
    bool shouldAutorotate() const override;
    /// What all screens support.
    NSUInteger supportedInterfaceOrientations() const override;
    /// The selected screen.
    UIViewController* childViewControllerForStatusBarStyle() const override { return m_selected; }
    /// The selected screen.
    UIViewController* childViewControllerForStatusBarHidden() const override { return m_selected; }
    /// Selects the tab's screen, if the delegate lets it.
    void tabBar_didSelectItem(UITabBar* bar, UITabBarItem* item) override;

protected:
    const KeyTable& keyTable() const override;

private:
    /// Which may take another item.
    friend class UIViewController;

    void placeChildren() override;
    void showSelected();
    void showSelectedNow();
    void showItems();
    CGRect screenFrame(const UIViewController* controller) const;

    std::vector<Ref<UIViewController>> m_controllers;
    Ref<UIViewController> m_selected;
    /// Whose view is in the content view.
    Ref<UIViewController> m_shown;
    Ref<UIView> m_content;
    Ref<UITabBar> m_bar;
    Delegate<UITabBarControllerDelegate> m_delegate;
};

} // namespace zr
#pragma GCC visibility pop
