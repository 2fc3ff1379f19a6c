#pragma once

#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewDelegate.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// What every overlay of the kit is built on: a dimmed screen, a rounded panel a little above the middle, and up to two
/// buttons along the panel's bottom edge. It shows itself in a window of its own, above the application's, or in a view
/// that the caller names.
///
/// Make it, set its properties, show it, and let a button or the caller dismiss it. While it is shown, its window or
/// host view keeps it, and its dismissal keeps it until that is over; so the caller need not. An alert dismissed from
/// its own window is not shown again: the window is gone.
///
/// Every call between the operations below goes through dynamic dispatch, so that a subclass can replace any one of
/// them. Main thread only.
class ZRBaseAlert : public UIView {
public:
    /// @name Construction
    /// @{
    /// The alert covers the main screen. A nil title makes no button. The cancel button has tag 0; the OK button 1
    /// beside a cancel button, else 0. `delegate`: may be nil, not kept.
    virtual bool initWithDelegate_cancelButtonTitle_okButtonTitles(Delegate<ZRTAlertViewDelegate> delegate,
                                                                   const NSString& cancelTitle,
                                                                   const NSString& okTitle);
    /// @}

    /// @name Properties
    /// Objects are kept; what is replaced stays in the view tree where it was.
    /// @{
    /// Told of dismissals; not kept, and nil once it is gone.
    Delegate<ZRTAlertViewDelegate> delegate() const { return m_delegate; }
    virtual void setDelegate(Delegate<ZRTAlertViewDelegate> delegate) { m_delegate = delegate; }
    /// At the left of the panel's bottom; nil without a cancel title.
    ZRTAlertViewButton* cancelButton() const { return m_cancelButton; }
    virtual void setCancelButton(ZRTAlertViewButton* button) { m_cancelButton = button; }
    /// At the right of it, or alone; nil without an OK title.
    ZRTAlertViewButton* okButton() const { return m_okButton; }
    virtual void setOkButton(ZRTAlertViewButton* button) { m_okButton = button; }
    /// The index that counts as cancelling; 0 at first, which is also the index of an only OK button.
    NSInteger cancelButtonIndex() const { return m_cancelButtonIndex; }
    virtual void setCancelButtonIndex(NSInteger index) { m_cancelButtonIndex = index; }
    /// The visible panel; contents are added to it.
    UIView* backgroundAlert() const { return m_backgroundAlert; }
    virtual void setBackgroundAlert(UIView* view) { m_backgroundAlert = view; }
    /// The view that dims what is behind: black of alpha 0.45, over the whole screen.
    UIView* backgroundView() const { return m_backgroundView; }
    virtual void setBackgroundView(UIView* view) { m_backgroundView = view; }
    /// The title that the cancel button was made with; nil for none. It decides how the buttons share the panel's
    /// width. Setting it neither makes nor renames a button.
    const NSString& cancelTitle() const { return m_cancelTitle; }
    virtual void setCancelTitle(const NSString& title) { m_cancelTitle = title; }
    /// The title that the OK button was made with; nil for none. It counts and is set as the cancel title is.
    const NSString& okTitle() const { return m_okTitle; }
    virtual void setOkTitle(const NSString& title) { m_okTitle = title; }
    /// The panel's size in points; zero, as at first, stands for the default size.
    CGSize alertViewSize() const { return m_alertViewSize; }
    virtual void setAlertViewSize(CGSize size) { m_alertViewSize = size; }
    /// @}

    /// @name Presentation
    /// @{
    /// Shows the alert in `view`, or in its own window when that is nil or the alert itself, wherever it was before.
    /// Animated, the panel grows to its size within 0.3 s; the dimming is there at once.
    virtual void showInView_animation(UIView* view, bool animated);
    /// The same as `showInView_animation` in its own window.
    virtual void showWithAnimation(bool animated);
    /// Dismisses with `cancelButtonIndex`, animated.
    virtual void dismissAlertView();
    /// Dismisses with `cancelButtonIndex`, not animated: gone in the next turn of the run loop, before the next frame.
    virtual void dismissAlertViewWithoutAnimation();
    /// Tells the delegate, then hides the alert and takes it off the screen. Animated, the panel shrinks within 0.3 s,
    /// and the alert's own window fades with it. Each call tells the delegate, one during a running dismissal too; not
    /// one that the delegate makes while it is told of the same index.
    virtual void dismissWithButtonIndex_animated(NSInteger index, bool animated);
    /// @}

    /// @name Layout
    /// `get…` and `calculate…` compute and change nothing. Points.
    /// @{
    /// Places the panel, the cancel button and the OK button, in this order.
    virtual void layoutAletViewAndButtons();
    /// The size of the host view, or of the main screen.
    virtual CGSize getSuperViewSize();
    /// The size of the panel: `alertViewSize`, or the default size.
    virtual CGSize getAlertViewSize();
    /// The panel in the alert's coordinates: centred, 20 points above the middle.
    virtual CGRect calculateAlertViewFrame();
    /// In the panel's coordinates: all of its width, or the left half beside an OK title; 45 high. The outer edges lie
    /// beyond the panel's, which cuts them off, so that only the borders between the buttons and above them show.
    virtual CGRect calculateCancelButtonFrame();
    /// Likewise: all of the panel's width, or the right half beside a cancel title.
    virtual CGRect calculateOKButtonFrame();
    /// @}

    /// @name Events
    /// @{
    /// Dismisses with the button's tag (0 for nil), animated.
    virtual void buttonClicked(UIControl* button);
    /// Dismisses with `cancelButtonIndex`, animated, if there is a button. What is behind the alert is not left.
    bool accessibilityPerformEscape() override;
    /// @}

protected:
    /// 270 x 70; on a screen no more than 320 wide, 50 narrower than the screen.
    static CGSize defaultAlertViewSize();

private:
    void makeWindow();
    void makeBackground();
    void makeButtons();
    Ref<ZRTAlertViewButton> makeButton(CGRect frame, const NSString& title, NSInteger tag);
    CGRect calculateButtonFrame(CGFloat x, CGFloat width);
    void tellDelegateOfDismissal(NSInteger index);
    void finishDismissal(UIView* hostView);

    Ref<UIWindow> m_backgroundWindow;
    Ref<UIView> m_superView;
    Delegate<ZRTAlertViewDelegate> m_delegate;
    Ref<ZRTAlertViewButton> m_cancelButton;
    Ref<ZRTAlertViewButton> m_okButton;
    NSInteger m_cancelButtonIndex = 0;
    Ref<UIView> m_backgroundAlert;
    Ref<UIView> m_backgroundView;
    NSString m_cancelTitle;
    NSString m_okTitle;
    CGSize m_alertViewSize;
    /// More than one when the delegate dismisses again, with another index, while it is told.
    std::vector<NSInteger> m_indicesBeingTold;
};

} // namespace zr
#pragma GCC visibility pop
