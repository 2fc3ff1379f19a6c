#pragma once

#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <cstdint>

#pragma GCC visibility push(default)
namespace zr {

class UIButton;
class UIImageView;
class UIProgressView;
class UITextField;

/// What an alert shows between its message and its buttons. Any other number is taken, and shows nothing.
enum ZRTAlertViewStyle : std::int32_t {
    ZRTAlertViewStyleDefault = 0,
    /// The same as the default.
    ZRTAlertViewStylePlain = 1,
    /// A box to tick and its caption; nothing without a caption.
    ZRTAlertViewStyleCheckBox = 2,
    /// A progress bar above its caption.
    ZRTAlertViewStyleProgress = 3,
    /// A picture that can spin, above its caption.
    ZRTAlertViewStyleRotation = 4,
    /// A text field with a placeholder.
    ZRTAlertViewStyleTextField = 5,
    /// The same, showing bullets.
    ZRTAlertViewStyleSecureTextField = 6,
};

/// The kit's modal alert: a bold title, a message of many lines, something by the style, and one or two buttons.
///
/// Make it, choose a style and set what the style shows, then show it. The panel grows with its contents, unless
/// `alertViewSize` says otherwise; one that would be taller than its host is 20 points lower than that instead.
class ZRTAlertView : public ZRBaseAlert {
public:
    ZRTAlertView();
    ~ZRTAlertView() override;

    /// @name Construction
    /// @{
    /// A nil title or message makes no label, a nil button title no button. `delegate`: may be nil, not kept.
    virtual bool initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles(
        const NSString& title, const NSString& message, Delegate<ZRTAlertViewDelegate> delegate,
        const NSString& cancelTitle, const NSString& okTitle);
    /// Makes the labels and places the panel; part of the initialiser.
    virtual void initViews();
    /// Chooses a style and makes what it shows. To be called before showing. What another style made stays.
    /// `detailMessage`: the caption, or the text field's placeholder; may be nil.
    virtual void alertViewStyle_detailMessage(std::int32_t style, const NSString& detailMessage);
    /// @}

    /// @name Properties
    /// Those that say nothing else only store: what is made already does not change.
    /// @{
    /// The initialiser's; nil for none. Setting it leaves the label's text as it is.
    const NSString& title() const { return m_title; }
    virtual void setTitle(const NSString& title) { m_title = title; }
    /// The initialiser's; nil for none. Setting it leaves the label's text as it is, but its height is reckoned from
    /// the new message at the next layout.
    const NSString& message() const { return m_message; }
    virtual void setMessage(const NSString& message) { m_message = message; }
    /// In bold 17 points, of two lines at most; nil without a title. Kept; setting one adds nothing to the panel.
    UILabel* titleLabel() const { return m_titleLabel; }
    virtual void setTitleLabel(UILabel* label) { m_titleLabel = label; }
    /// In 15 points, of as many lines as there is room for; nil without a message. Kept; setting one adds nothing to
    /// the panel.
    UILabel* messageLabel() const { return m_messageLabel; }
    virtual void setMessageLabel(UILabel* label) { m_messageLabel = label; }
    /// The caption of the style, or the placeholder; nil for none. Setting it changes the caption that shows, but no
    /// placeholder.
    const NSString& detailMessage() const { return m_detailMessage; }
    virtual void setDetailMessage(const NSString& detailMessage);
    /// The field of the style; nil unless a text field style was chosen.
    UITextField* textField() const { return m_textField; }
    virtual void setTextField(UITextField* textField);
    /// A place for a field of the application's; no style makes one.
    UITextField* passwordField() const { return m_passwordField; }
    virtual void setPasswordField(UITextField* passwordField);
    /// Per cent; 0 at first.
    std::int32_t progress() const { return m_progress; }
    /// The bar, if there is one, slides to so many per cent. Negative values are stored as 0; above 100 there is no
    /// limit but the bar's end.
    virtual void setProgress(std::int32_t progress);
    /// The `ZRTAlertViewStyle` that was chosen, or any other number.
    std::int32_t alertViewStyle() const { return m_alertViewStyle; }
    /// Lays out as that style from the next show on, but makes nothing of it; see `alertViewStyle_detailMessage`.
    virtual void setAlertViewStyle(std::int32_t style) { m_alertViewStyle = style; }
    /// Whether the box is ticked; false at first.
    bool checkBoxSelected() const { return m_checkBoxSelected; }
    /// Ticks the box, if there is one.
    virtual void setCheckBoxSelected(bool selected);
    /// The picture of the rotation style, nil at first; it is shown at once, and its size counts from the next layout
    /// on.
    UIImage* rotationImage() const { return m_rotationImage; }
    virtual void setRotationImage(UIImage* image);
    /// The caller's own; the alert never reads it.
    NSObject* aObject() const { return m_aObject; }
    virtual void setAObject(NSObject* object) { m_aObject = object; }
    /// @}

    /// @name Presentation
    /// Showing lays out, makes room for the keyboard below a text field, and puts the caret there.
    /// @{
    /// Lays out first. Then makes room for the keyboard below a text field, and puts the caret there.
    void showInView_animation(UIView* view, bool animated) override;
    /// Likewise, in the alert's own window.
    void showWithAnimation(bool animated) override;
    void dismissAlertView() override;
    /// The text field resigns first.
    void dismissWithButtonIndex_animated(NSInteger index, bool animated) override;
    /// Spins the picture, a turn each half second, until it is stopped. Nothing without the rotation style.
    virtual void startRotation();
    /// The picture stands still at once, upright.
    virtual void stopRotation();
    /// @}

    /// @name Layout
    /// `calculate…` compute and change nothing. Points, in the panel's coordinates but for the panel's own frame.
    /// @{
    /// Places everything.
    virtual void reLayoutSubviews();
    /// Centred, 15 points above the middle. The default size grows by what the panel holds.
    CGRect calculateAlertViewFrame() override;
    /// Along the panel's top, 45 high, whatever the title.
    virtual CGRect calculateTitleLabelFrame(const NSString& title);
    /// Below the title, as high as the message, within 300 points or what a size set by the caller leaves, and 5 more.
    virtual CGRect calculateMessageLabelFrame(const NSString& message);
    /// Moves the panel up until there are 250 points for the keyboard between it and the screen's bottom. Nothing
    /// happens without a text field.
    virtual void fixAlertViewFrame();
    /// @}

    /// @name Events
    /// @{
    /// Ticks or unticks the box.
    virtual void checkBoxButtonClicked(NSObject* sender);
    /// @}

protected:
    /// @name Making what a style shows
    /// Called again, each takes what is there to the front of the panel instead of making it anew.
    /// @{
    /// The box and its caption; nothing without a caption.
    virtual void createCheckBoxAlertView();
    /// The bar, red and empty, and its caption.
    virtual void createProgressAlertView();
    /// The picture and its caption.
    virtual void createRotationAlertView();
    /// The text field, with a border and a clear button; secure when that style was chosen before the field was made.
    virtual void createTextFieldAlertView();
    /// @}

    /// @name Placing what a style shows
    /// @{
    /// Box and caption side by side, below the message.
    virtual void layoutCheckBoxAlertView();
    /// The bar 10 points below the message, 20 from the panel's sides, and the caption below it.
    virtual void layoutProgressAlertView();
    /// The picture 10 points below the message, in the middle, and the caption below it. It is a square of the image's
    /// height, or of 40 points where that is not 20..100.
    virtual void layoutRotationAlertView();
    /// The field 5 points below the message, 30 high, 20 from the panel's sides.
    virtual void layoutTextFieldAlertView();
    /// @}

private:
    void createDetailMessageLabel();
    void addToPanel(UIView* view);
    void makeRoomAndFocusTextField(bool animated);
    CGFloat calculateMaximumMessageHeight();
    /// Where the message, or without one the title, ends; 0 without either.
    CGFloat contentTop() const;
    /// The same, 10 when that is too close to the panel's edge.
    CGFloat insetContentTop() const;

    NSString m_title;
    NSString m_message;
    Ref<UILabel> m_titleLabel;
    Ref<UILabel> m_messageLabel;
    NSString m_detailMessage;
    Ref<UILabel> m_detailMessageLabel;
    Ref<UITextField> m_textField;
    Ref<UITextField> m_passwordField;
    Ref<UIButton> m_checkBoxButton;
    Ref<UIProgressView> m_progressView;
    Ref<UIImageView> m_rotationImageView;
    Ref<UIImage> m_rotationImage;
    Ref<NSObject> m_aObject;
    std::int32_t m_progress = 0;
    std::int32_t m_alertViewStyle = ZRTAlertViewStyleDefault;
    bool m_checkBoxSelected = false;
    bool m_isSecureText = false;
};

} // namespace zr
#pragma GCC visibility pop
