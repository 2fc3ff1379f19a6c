#pragma once

#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#pragma GCC visibility push(default)
namespace zr {

/// An alert with a coloured header: a band across the top of the panel with a picture and a bold white title, and the
/// message below it. The panel grows with what it holds, unless `alertViewSize` says otherwise; one that would be
/// taller than its host is 20 points lower than that instead. Main thread only.
class ZRTipsAlertView : public ZRBaseAlert {
public:
    /// @name Construction
    /// @{
    /// A nil title or message makes no label, a nil button title no button. `delegate`: may be nil, not kept.
    virtual bool initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles(
        const NSString& title, const NSString& message, Delegate<ZRTAlertViewDelegate> delegate,
        const NSString& cancelTitle, const NSString& okTitle);
    /// Makes band, picture and labels, and places the panel; part of the initialiser. Nothing without a panel.
    virtual void initViews();
    /// @}

    /// @name Properties
    /// Those that say nothing else only store: what is made already does not change.
    /// @{
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title) { m_title = title; }
    const NSString& message() const { return m_message; }
    virtual void setMessage(const NSString& message) { m_message = message; }
    UILabel* titleLabel() const { return m_titleLabel; }
    virtual void setTitleLabel(UILabel* label) { m_titleLabel = label; }
    UILabel* messageLabel() const { return m_messageLabel; }
    virtual void setMessageLabel(UILabel* label) { m_messageLabel = label; }
    /// The picture, nil at first; it is shown at once, and its size counts from the next show on.
    UIImage* tipImage() const { return m_tipImage; }
    virtual void setTipImage(UIImage* image);
    /// Of the band. Nil at first, when the band is green; nil after another colour shows none.
    UIColor* tipBackgroundColor() const { return m_tipBackgroundColor; }
    virtual void setTipBackgroundColor(UIColor* color);
    /// @}

    /// @name Presentation
    /// Showing lays out.
    /// @{
    void showInView_animation(UIView* view, bool animated) override;
    void showWithAnimation(bool animated) override;
    /// @}

    /// @name Layout
    /// `calculate…` compute and change nothing. Points, in the panel's coordinates but for the panel's own frame.
    /// @{
    /// Places everything: each part lies below the one before.
    virtual void reLayoutSubviews();
    virtual CGRect calculateTipImageViewFrame();
    virtual CGRect calculateTipBackgroundImageViewFrame();
    /// Centred, 15 points above the middle.
    CGRect calculateAlertViewFrame() override;
    virtual CGRect calculateTitleLabelFrame(const NSString& title);
    /// As high as the message within the alert's size, and 5 points more.
    virtual CGRect calculateMessageLabelFrame(const NSString& message);
    /// @}

private:
    NSString m_title;
    NSString m_message;
    Ref<UILabel> m_titleLabel;
    Ref<UILabel> m_messageLabel;
    Ref<UIImage> m_tipImage;
    Ref<UIColor> m_tipBackgroundColor;
    Ref<UIImageView> m_tipImageView;
    Ref<UIImageView> m_tipBackgoundImageView;
};

} // namespace zr
#pragma GCC visibility pop
