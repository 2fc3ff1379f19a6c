#pragma once

#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationItem.h>
#include <ZRPlatform/UIKit/Controllers/UITabBarItem.h>
#include <ZRPlatform/UIKit/Views/UIGeometry.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr { // not exported
class ControllerAccess;
class Presentation;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

class NSBundle;
class NSNotification;
class UINavigationController;
class UITabBarController;

/// How a presented screen comes and goes.
enum UIModalTransitionStyle : NSInteger {
    /// From below; the way back is down. The two that are not drawn here, flip and curl, look like it.
    UIModalTransitionStyleCoverVertical = 0,
    UIModalTransitionStyleFlipHorizontal,
    UIModalTransitionStyleCrossDissolve,
    UIModalTransitionStylePartialCurl,
};

/// On a phone all but the three that leave the presenting view in place fill the screen and take it away.
enum UIModalPresentationStyle : NSInteger {
    UIModalPresentationFullScreen = 0,
    UIModalPresentationPageSheet,
    UIModalPresentationFormSheet,
    UIModalPresentationCurrentContext,
    UIModalPresentationCustom,
    UIModalPresentationOverFullScreen,
    UIModalPresentationOverCurrentContext,
};

/// A screen: it makes a view on first use, is told when that comes and goes, and may hold other controllers.
///
/// A controller keeps its view; the view knows its controller, but does not keep it. It appears when its view comes
/// into a visible window, and disappears when the view leaves it or the window hides. The four messages about that come
/// in pairs, will and did; one that is turned round half way (an appearance becomes a disappearance) gets the other
/// pair at once, without the first "did". Overrides call their superclass's.
///
/// What is asked for inside one of these messages, or of a delegate's or a completion's (a push, a pop, a presentation,
/// a dismissal, another tab, another root) begins when all messages of the change under way have been sent, and in the
/// order asked. A container whose views still glide shows their end at once when the next change begins.
/// A window that is hidden in a message, and a view that is taken out of it by hand, are gone at once: what was about
/// to glide is then at its end.
///
/// Main thread only, but for the last release.
class UIViewController : public UIResponder {
public:
    UIViewController();
    ~UIViewController() override;
    /// The same as `initWithNibName_bundle` with nil for both.
    bool init() override;
    /// There are no nibs: the names are not used.
    virtual bool initWithNibName_bundle(const NSString& nibName, NSBundle* bundle);

    /// @name View
    /// @{
    /// The screen's view; never nil. It is loaded the first time, without animating it, be it in the middle of an
    /// animation block.
    UIView* view();
    /// Sets the view; one of another controller is taken from it. Nil: the next use loads the view anew. The old view
    /// stays where it is.
    virtual void setView(UIView* view);
    /// Nil before the view was loaded.
    UIView* viewIfLoaded() const { return m_view; }
    /// Whether the view is there.
    bool isViewLoaded() const { return m_view != nullptr; }
    /// Loads the view, if that was not done.
    void loadViewIfNeeded() { view(); }
    /// Makes the view and hands it to `setView`. The base class makes a plain one as large as the screen, with flexible
    /// width and height; where an override sets none, `view` makes that one.
    virtual void loadView();
    /// Called once a view is loaded.
    virtual void viewDidLoad() {}
    /// Called before the view lays itself out. The base class does nothing.
    virtual void viewWillLayoutSubviews() {}
    /// Called after it did. The base class does nothing.
    virtual void viewDidLayoutSubviews() {}
    /// @}

    /// @name Appearance
    /// @{
    /// Called before the view comes onto the screen.
    virtual void viewWillAppear(bool animated);
    /// Called once it is there, after any animation.
    virtual void viewDidAppear(bool animated);
    /// Called before it leaves the screen.
    virtual void viewWillDisappear(bool animated);
    /// Called once it has left, after any animation.
    virtual void viewDidDisappear(bool animated);
    /// For the four messages above: whether they come from this controller's presentation.
    bool isBeingPresented() const;
    /// Whether they come from its dismissal.
    bool isBeingDismissed() const;
    /// Whether they come from its being added to its parent.
    bool isMovingToParentViewController() const { return m_isMovingToParent; }
    /// Whether they come from its leaving its parent.
    bool isMovingFromParentViewController() const { return m_isMovingFromParent; }
    /// @}

    /// @name Names
    /// @{
    /// The screen's name. Setting it sets the titles of the navigation item and of the tab bar item too.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title);
    /// What a navigation bar shows of the screen; made on first use, with the title.
    virtual UINavigationItem* navigationItem();
    /// The screen's tab; made on first use, with the title. Another one shows at once in the tab bar that the screen is
    /// in; nil brings a new one.
    UITabBarItem* tabBarItem();
    virtual void setTabBarItem(UITabBarItem* item);
    /// @}

    /// @name Parent and children
    /// A container adds a child, adds its view, and tells it that it has moved; and the other way round to remove it.
    /// @{
    /// The controller that this one is a child of; nil for none.
    UIViewController* parentViewController() const { return m_parent; }
    /// In the order of their being added; kept.
    const std::vector<Ref<UIViewController>>& childViewControllers() const { return m_children; }
    /// Tells the child that it will move, then keeps it. A child of another controller is removed from that one first.
    /// Ignored and logged: nil, the controller itself, a controller that contains it, one that is presented or a
    /// window's root. One that is a child already stays where it is.
    virtual void addChildViewController(UIViewController* child);
    /// Does nothing without a parent. Ends with `didMoveToParentViewController(nullptr)`. The view stays where it is.
    /// An appearance that the parent has begun, and cannot end any more, ends now, unless the container tells by
    /// itself.
    virtual void removeFromParentViewController();
    /// Called before the parent changes, with the new one; nil for none.
    virtual void willMoveToParentViewController(UIViewController* parent);
    /// Called after it has changed, and after the movement of the views.
    virtual void didMoveToParentViewController(UIViewController* parent);
    /// Both are children of this one. Takes the second's view in for the first's, in `duration` seconds while
    /// `animations` change what they like, and tells both of their appearance. Ignored and logged when either is no
    /// child; `completion` is then not called.
    void transitionFromViewController_toViewController_duration_options_animations_completion(
        UIViewController* from, UIViewController* to, NSTimeInterval duration, NSUInteger options,
        const std::function<void()>& animations, std::function<void(bool)> completion);
    /// Whether children are told of the appearance with this controller, and of their views' coming into its view and
    /// leaving it; the base class says yes. A container that says no does so by the two operations below.
    virtual bool shouldAutomaticallyForwardAppearanceMethods() const { return true; }
    /// For containers: the controller is about to (dis)appear. Beginning what is under way or done already does
    /// nothing.
    void beginAppearanceTransition_animated(bool isAppearing, bool animated);
    /// Ends what was begun; nothing without that.
    void endAppearanceTransition();
    /// The nearest navigation controller that contains this one; nil for none.
    UINavigationController* navigationController() const;
    /// The nearest tab bar controller that contains this one; nil for none.
    UITabBarController* tabBarController() const;
    /// @}

    /// @name Presentation
    /// The outermost parent presents: that is the presenting controller, whichever of its children was asked.
    /// @{
    /// Shows `controller` over the whole window of this one, in 0.3 s when animated; `completion` is called once it has
    /// appeared. Both are told, the presenting one unless it stays in place.
    ///
    /// Ignored and logged, and `completion` not called: nil; a controller that has a parent, is presented already or is
    /// a window's root; any while this one presents one already; and when this one's view is in no window.
    virtual void presentViewController_animated_completion(UIViewController* controller, bool animated,
                                                           std::function<void()> completion);
    /// Takes away what this controller presents, and whatever that presents in turn, in one movement of the foremost;
    /// when it presents nothing, itself. `completion` is called once that is gone, and at once when there is nothing to
    /// take away.
    virtual void dismissViewControllerAnimated_completion(bool animated, std::function<void()> completion);
    /// What this one or a controller that contains it presents; until its dismissal has ended.
    UIViewController* presentedViewController() const;
    /// Who presents this one or a controller that contains it.
    UIViewController* presentingViewController() const;
    /// How this controller comes and goes when it is presented; from below at first.
    UIModalTransitionStyle modalTransitionStyle() const { return m_modalTransitionStyle; }
    virtual void setModalTransitionStyle(UIModalTransitionStyle style) { m_modalTransitionStyle = style; }
    /// Whether it takes the presenting view away when it is presented; full screen, which does, at first.
    UIModalPresentationStyle modalPresentationStyle() const { return m_modalPresentationStyle; }
    virtual void setModalPresentationStyle(UIModalPresentationStyle style) { m_modalPresentationStyle = style; }
    /// @}

    /// @name Rotation
    /// The screen turns at once: the durations told are 0. Asked is the controller in front in each visible window;
    /// told are those whose views are on the screen, each parent before its children.
    /// @{
    /// Whether the interface may turn at all while this one is in front; the base class says yes.
    virtual bool shouldAutorotate() const { return true; }
    /// How the interface may stand while this one is in front, as a sum of `UIInterfaceOrientationMask` values. The
    /// base class says all but upside down.
    virtual NSUInteger supportedInterfaceOrientations() const { return UIInterfaceOrientationMaskAllButUpsideDown; }
    /// The interface's present one, whether or not this one is shown.
    UIInterfaceOrientation interfaceOrientation() const;
    /// Told before anything has turned.
    virtual void willRotateToInterfaceOrientation_duration(UIInterfaceOrientation, NSTimeInterval) {}
    /// Told when the views have their new sizes, but are not laid out yet.
    virtual void willAnimateRotationToInterfaceOrientation_duration(UIInterfaceOrientation, NSTimeInterval) {}
    /// Told when all is laid out.
    virtual void didRotateFromInterfaceOrientation(UIInterfaceOrientation) {}
    /// Turns the interface as the user holds the device, if that is allowed now and was not before.
    static void attemptRotationToDeviceOrientation();
    /// @}

    /// @name Status bar
    /// @{
    /// What letters the status bar should have; the base class says dark ones.
    virtual UIStatusBarStyle preferredStatusBarStyle() const { return UIStatusBarStyleDefault; }
    /// Whether the status bar should be away; the base class says no.
    virtual bool prefersStatusBarHidden() const { return false; }
    /// How what lies below it moves when that changes; the base class says by a fade.
    virtual UIStatusBarAnimation preferredStatusBarUpdateAnimation() const { return UIStatusBarAnimationFade; }
    /// The child that is asked for the style in this one's stead; nil for itself.
    virtual UIViewController* childViewControllerForStatusBarStyle() const { return nullptr; }
    /// The child that is asked whether to hide it in this one's stead; nil for itself.
    virtual UIViewController* childViewControllerForStatusBarHidden() const { return nullptr; }
    /// To be called when the answers have changed.
    void setNeedsStatusBarAppearanceUpdate();
    /// @}

    /// @name Layout in containers
    /// @{
    /// The edges at which the view lies below the bars of a container; all at first. At the others it ends there. A
    /// container that shows the view places it anew at once.
    NSUInteger edgesForExtendedLayout() const { return m_edgesForExtendedLayout; }
    virtual void setEdgesForExtendedLayout(NSUInteger edges);
    /// Stored; true at first.
    bool automaticallyAdjustsScrollViewInsets() const { return m_automaticallyAdjustsScrollViewInsets; }
    virtual void setAutomaticallyAdjustsScrollViewInsets(bool flag) { m_automaticallyAdjustsScrollViewInsets = flag; }
    /// @}

    /// Called on `UIApplicationDidReceiveMemoryWarningNotification`. Views are never unloaded for it.
    virtual void didReceiveMemoryWarning() {}

    /// The view's superview; of a window's root the window, of a presented controller the presenting one.
    UIResponder* nextResponder() const override;

protected:
    const KeyTable& keyTable() const override;
    void destroy() override;
    /// Ends what glides under this controller, its children included, where it was heading.
    virtual void finishTransitions();

private:
    friend class ControllerAccess;
    friend class Presentation;
    friend class UIApplication;
    friend class UIResponder;
    friend class UIView;
    friend class UIWindow;

    enum class Appearance { Disappeared, Appearing, Appeared, Disappearing };

    /// @name From the view
    /// @{
    void viewWillMoveToWindow(UIWindow* window);
    void viewDidMoveToWindow();
    /// @}
    /// A container's: a child has other wishes where its view is to be.
    virtual void placeChildren() {}
    bool isToldByOthers() const;
    void letGoOfView();
    void handleMemoryWarning(NSNotification* notification);
    UIViewController* outermost();
    /// The one in front of everything in this one's window.
    UIViewController* frontmost();
    void callOnScreen(const std::function<void(UIViewController*)>& call);
    bool allowsOrientation(UIInterfaceOrientation orientation) const;

    Ref<UIView> m_view;
    NSString m_title;
    Ref<UINavigationItem> m_navigationItem;
    Ref<UITabBarItem> m_tabBarItem;
    UIViewController* m_parent = nullptr;
    std::vector<Ref<UIViewController>> m_children;
    /// The window whose root this is.
    UIWindow* m_rootOfWindow = nullptr;
    /// What this one presents, and what it is presented by; the latter's presenter keeps it.
    Ref<Presentation> m_presentation;
    Presentation* m_presentedBy = nullptr;
    UIModalTransitionStyle m_modalTransitionStyle = UIModalTransitionStyleCoverVertical;
    UIModalPresentationStyle m_modalPresentationStyle = UIModalPresentationFullScreen;
    NSUInteger m_edgesForExtendedLayout = UIRectEdgeAll;
    Appearance m_appearance = Appearance::Disappeared;
    /// As told by the last "will".
    bool m_appearanceIsAnimated = false;
    /// Somebody else tells of the appearance while the view is moved.
    int m_viewIsMoved = 0;
    bool m_isMovingToParent = false;
    bool m_isMovingFromParent = false;
    bool m_isLoadingView = false;
    bool m_automaticallyAdjustsScrollViewInsets = true;
};

} // namespace zr
#pragma GCC visibility pop
