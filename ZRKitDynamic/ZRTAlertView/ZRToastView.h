#pragma once

#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#pragma GCC visibility push(default)
namespace zr {

/// A small dark panel over the dimmed screen: an icon, which can spin, above a message of at most two lines. It has no
/// buttons, and stays until the caller dismisses it. Main thread only.
class ZRToastView : public ZRBaseAlert {
public:
    /// @name Construction
    /// @{
    /// `delegate`: may be nil, not kept. A nil message leaves the icon alone. The icon is the application's image
    /// "toast_icon_daorudaochu.png"; without one, there is no icon.
    virtual bool initWithDelegate_message(Delegate<ZRTAlertViewDelegate> delegate, const NSString& message);
    /// @}

    /// @name Properties
    /// What is replaced stays in the panel.
    /// @{
    /// Shows the icon; what can spin. Kept.
    UIImageView* rotationImageView() const { return m_rotationImageView; }
    virtual void setRotationImageView(UIImageView* view) { m_rotationImageView = view; }
    /// White and centred, of two lines at most. Kept.
    UILabel* messageLabel() const { return m_messageLabel; }
    virtual void setMessageLabel(UILabel* label) { m_messageLabel = label; }
    /// @}

    /// @name Presentation
    /// @{
    /// Lays out first.
    void showInView_animation(UIView* view, bool animated) override;
    /// Lays out first, and shows the panel in its own window.
    void showWithAnimation(bool animated) override;
    /// Spins the icon, a turn each 0.8 seconds, until it is stopped, whether it shows or not.
    virtual void startRotation();
    /// The icon stands still at once, upright.
    virtual void stopRotation();
    /// @}

    /// @name Layout
    /// `get…` and `calculate…` compute and change nothing. Points, in the panel's coordinates.
    /// @{
    /// Places the icon, then the message.
    virtual void reLayoutSubviews();
    /// Square and centred: 67 wide and 43 below the top at first, later with the width and top that it has. Zero
    /// without an image.
    virtual CGRect calculateRotationImageViewFrame();
    /// 10 below the icon, 50 high. Zero without a text.
    virtual CGRect calculateMessageLabelFrame();
    /// `alertViewSize`, or 168 x 200.
    CGSize getAlertViewSize() override;
    /// @}

private:
    Ref<UIImageView> m_rotationImageView;
    Ref<UILabel> m_messageLabel;
};

} // namespace zr
#pragma GCC visibility pop
