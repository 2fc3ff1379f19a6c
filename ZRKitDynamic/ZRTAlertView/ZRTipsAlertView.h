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
    /// The initialiser's; nil for none. Setting it leaves the label's text as it is.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title) { m_title = title; }
    /// The initialiser's; nil for none. Setting it leaves the label's text as it is, but its height is reckoned from
    /// the new message at the next show.
    const NSString& message() const { return m_message; }
    virtual void setMessage(const NSString& message) { m_message = message; }
    /// White, in bold 17 points, of two lines at most; nil without a title. Kept; setting one adds nothing to the
    /// panel.
    UILabel* titleLabel() const { return m_titleLabel; }
    virtual void setTitleLabel(UILabel* label) { m_titleLabel = label; }
    /// In 15 points, of as many lines as there is room for; nil without a message. Kept; setting one adds nothing to
    /// the panel.
    UILabel* messageLabel() const { return m_messageLabel; }
    virtual void setMessageLabel(UILabel* label) { m_messageLabel = label; }
    /// The picture in the band, nil at first; it is shown at once, and its size counts from the next show on.
    UIImage* tipImage() const { return m_tipImage; }
    virtual void setTipImage(UIImage* image);
    /// The band's colour. Nil at first, when the band is green; nil after another colour shows none.
    UIColor* tipBackgroundColor() const { return m_tipBackgroundColor; }
    virtual void setTipBackgroundColor(UIColor* color);
    /// @}

    /// @name Presentation
    /// Showing lays out.
    /// @{
    /// Lays out first.
    void showInView_animation(UIView* view, bool animated) override;
    /// Lays out first, and shows the alert in its own window.
    void showWithAnimation(bool animated) override;
    /// @}

    /// @name Layout
    /// `calculate…` compute and change nothing. Points, in the panel's coordinates but for the panel's own frame.
    /// @{
    /// Places everything: each part lies below the one before.
    virtual void reLayoutSubviews();
    /// As large as the picture, in the middle, 20 below the panel's top.
    virtual CGRect calculateTipImageViewFrame();
    /// The band: from the panel's top down to the title's bottom, as wide as the panel.
    virtual CGRect calculateTipBackgroundImageViewFrame();
    /// Centred, 15 points above the middle. The default size grows by what the panel holds.
    CGRect calculateAlertViewFrame() override;
    /// Below the picture, 45 high, whatever the title.
    virtual CGRect calculateTitleLabelFrame(const NSString& title);
    /// 10 below the title, as high as the message within the alert's size, and 5 more.
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
