#pragma once

#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBarDelegate.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>

#pragma GCC visibility push(default)
namespace zr {

/// A screen with the kit's navigation bar in place of the one of the navigation controller that it is in.
///
/// The bar is made when the view loads inside a navigation controller; a screen that is outside of one then, or whose
/// view was loaded before it was pushed, has none. It lies above the screen's other views whenever the screen appears,
/// and a screen places its content below `navigationBarMaxY`. The navigation controller's own bar keeps its place in
/// the layout, but its view is hidden. Main thread only.
class ZRTViewController : public UIViewController, public ZRTNavigationBarDelegate {
public:
    bool init() override;
    bool initWithNibName_bundle(const NSString& nibName, NSBundle* bundle) override;

    /// @name Bar
    /// @{
    /// The kit's bar; nil until the screen has one; kept. One that is replaced stays in the view, and the screen its
    /// delegate.
    ZRTNavigationBar* tNavigationBar() const { return m_tNavigationBar; }
    virtual void setTNavigationBar(ZRTNavigationBar* bar) { m_tNavigationBar = bar; }
    /// Makes the bar when there is a navigation controller and no bar yet, with the screen's title and the screen as
    /// its delegate, and adds it to the view. Then makes it, new or not, as wide as the screen and 64 points high (44
    /// on systems whose version sorts before "7.0" as text: 10.3 is one), and hides the navigation controller's bar.
    virtual void createNavigationBarIfNeed();
    /// Hides the navigation controller's own bar: the controller counts it as shown, but its view is hidden. The kit's
    /// bar stays.
    virtual void hiddenNavigationBar();
    /// Makes the kit's bar invisible, animated by a fade of 0.5 s.
    virtual void hiddenNavigationBarWithAnimated(bool animated);
    /// Makes the kit's bar visible again, animated by a fade of 0.5 s.
    virtual void showNavigationBarWithAnimated(bool animated);
    /// The bar's bottom edge in points of the view; 0 without a bar.
    virtual CGFloat navigationBarMaxY() const;
    /// @}

    /// Also sets the bar's title.
    void setTitle(const NSString& title) override;
    /// Pops the top screen where there are two or more. Else dismisses what this screen presents, or else the screen
    /// itself or the stack that it is in, animated whatever `animated` says; nothing happens where there is nothing to
    /// dismiss.
    virtual void popViewControllerWithAnimated(bool animated);
    /// Leaves the screen with `popViewControllerWithAnimated`, animated.
    void zrTNavigationBar_backButtonClicked(ZRTNavigationBar* bar, UIButton* button) override;
    /// Leaves the screen likewise, where there is something to pop or to dismiss.
    bool accessibilityPerformEscape() override;

    /// Gives the view a very light grey ground, and the screen its bar.
    void viewDidLoad() override;
    /// Hides the navigation controller's bar again, and brings the kit's to the front.
    void viewWillAppear(bool animated) override;

private:
    Ref<ZRTNavigationBar> m_tNavigationBar;
};

} // namespace zr
#pragma GCC visibility pop
