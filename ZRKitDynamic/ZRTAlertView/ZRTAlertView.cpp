#include <ZRKitDynamic/ZRTAlertView/ZRTAlertView.h>

#include <ZRKitDynamic/ZRColor/KitColorsInternal.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Controls/UIProgressView.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>

#include <limits>
#include <numbers>

namespace zr {

namespace {

constexpr NSTimeInterval kAnimationDuration = 0.3;
constexpr CGFloat kKeyboardRoom = 250;
constexpr const char* kRotationKey = "transform";

CGRect frameOf(const UIView* view) { return view ? view->frame() : CGRectZero; }

CGFloat heightOf(const UIView* view) { return frameOf(view).size.height; }

CGFloat heightOf(const UIImage* image) { return image ? image->size().height : 0; }

void setFrameOf(UIView* view, CGRect frame) {
    if (view)
        view->setFrame(frame);
}

} // namespace

// Construction

ZRTAlertView::ZRTAlertView() = default;
ZRTAlertView::~ZRTAlertView() = default;

bool ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles(
    const NSString& title, const NSString& message, Delegate<ZRTAlertViewDelegate> delegate,
    const NSString& cancelTitle, const NSString& okTitle) {
    if (!ZRBaseAlert::initWithDelegate_cancelButtonTitle_okButtonTitles(delegate, cancelTitle, okTitle))
        return false;
    setTitle(title);
    setMessage(message);
    initViews();
    return true;
}

void ZRTAlertView::initViews() {
    if (!m_title.isNil()) {
        const auto label = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            calculateTitleLabelFrame(m_title), 2, UIFont::boldSystemFontOfSize(17), m_title, NSTextAlignmentCenter);
        label->setTextColor(kitTextColor());
        setTitleLabel(label);
        addToPanel(label);
    }
    if (!m_message.isNil()) {
        const auto label = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            calculateMessageLabelFrame(m_message), 127, UIFont::systemFontOfSize(15), m_message, NSTextAlignmentCenter);
        setMessageLabel(label);
        addToPanel(label);
    }
    addSubview(backgroundAlert());
    setFrameOf(backgroundAlert(), calculateAlertViewFrame());
}

void ZRTAlertView::alertViewStyle_detailMessage(std::int32_t style, const NSString& detailMessage) {
    m_alertViewStyle = style;
    setDetailMessage(detailMessage);
    switch (style) {
    case ZRTAlertViewStyleCheckBox:
        createCheckBoxAlertView();
        break;
    case ZRTAlertViewStyleProgress:
        createProgressAlertView();
        break;
    case ZRTAlertViewStyleRotation:
        createRotationAlertView();
        break;
    case ZRTAlertViewStyleSecureTextField:
        m_isSecureText = true;
        createTextFieldAlertView();
        break;
    case ZRTAlertViewStyleTextField:
        createTextFieldAlertView();
        break;
    default:
        break;
    }
}

void ZRTAlertView::createCheckBoxAlertView() {
    if (m_detailMessage.length() == 0)
        return;
    createDetailMessageLabel();
    if (!m_checkBoxButton) {
        m_checkBoxButton = UIButton::buttonWithType(UIButtonTypeCustom);
        m_checkBoxButton->setImage_forState(UIImage::imageNamed("checkbox_1_normal.png"), UIControlStateNormal);
        m_checkBoxButton->setImage_forState(UIImage::imageNamed("checkbox_1_press.png"), UIControlStateSelected);
        m_checkBoxButton->addTarget_action_forControlEvents(this, selector<&ZRTAlertView::checkBoxButtonClicked>,
                                                            UIControlEventTouchUpInside);
    }
    addToPanel(m_checkBoxButton);
}

void ZRTAlertView::createProgressAlertView() {
    if (!m_progressView) {
        m_progressView = make<UIProgressView>(&UIProgressView::initWithFrame, CGRectZero);
        m_progressView->setProgressTintColor(UIColor::redColor());
    }
    addToPanel(m_progressView);
    createDetailMessageLabel();
}

void ZRTAlertView::createRotationAlertView() {
    if (!m_rotationImageView)
        m_rotationImageView = make<UIImageView>(&UIImageView::initWithFrame, CGRectZero);
    m_rotationImageView->setImage(m_rotationImage);
    addToPanel(m_rotationImageView);
    createDetailMessageLabel();
}

void ZRTAlertView::createTextFieldAlertView() {
    if (!m_textField) {
        const auto field = make<UITextField>(&UITextField::initWithFrame, CGRectZero);
        field->setBorderStyle(UITextBorderStyleRoundedRect);
        field->setTextColor(kitTextColor());
        field->setClearButtonMode(UITextFieldViewModeWhileEditing);
        field->setFont(UIFont::systemFontOfSize(17));
        field->setAutocorrectionType(UITextAutocorrectionTypeNo);
        // Once made, the field stays as it is: secure text asked for later has no effect.
        if (m_isSecureText)
            field->setSecureTextEntry(true);
        setTextField(field);
    }
    if (!m_textField)
        return; // a subclass has its own idea of what to do with it
    m_textField->setPlaceholder(m_detailMessage);
    addToPanel(m_textField);
}

void ZRTAlertView::createDetailMessageLabel() {
    if (!m_detailMessageLabel)
        m_detailMessageLabel = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            CGRectZero, 1, UIFont::systemFontOfSize(15), m_detailMessage, NSTextAlignmentCenter);
    m_detailMessageLabel->setText(m_detailMessage);
    addToPanel(m_detailMessageLabel);
}

void ZRTAlertView::addToPanel(UIView* view) {
    const Ref<UIView> kept(view); // a text field that leaves the panel tells its delegate, which may drop it
    view->removeFromSuperview();
    if (backgroundAlert())
        backgroundAlert()->addSubview(view);
}

// Properties

void ZRTAlertView::setDetailMessage(const NSString& detailMessage) {
    m_detailMessage = detailMessage;
    if (m_detailMessageLabel)
        m_detailMessageLabel->setText(m_detailMessage);
}

void ZRTAlertView::setTextField(UITextField* textField) { m_textField = textField; }

void ZRTAlertView::setPasswordField(UITextField* passwordField) { m_passwordField = passwordField; }

void ZRTAlertView::setProgress(std::int32_t progress) {
    m_progress = progress < 0 ? 0 : progress;
    // The bar receives the value as it came; its own limits are its own business.
    if (m_progressView)
        m_progressView->setProgress_animated(static_cast<float>(progress / 100.0), true);
}

void ZRTAlertView::setCheckBoxSelected(bool selected) {
    m_checkBoxSelected = selected;
    if (m_checkBoxButton)
        m_checkBoxButton->setSelected(selected);
}

void ZRTAlertView::setRotationImage(UIImage* image) {
    m_rotationImage = image;
    if (m_rotationImageView)
        m_rotationImageView->setImage(m_rotationImage);
}

// Presentation

void ZRTAlertView::showInView_animation(UIView* view, bool animated) {
    const Ref<ZRTAlertView> self(this); // the field's own delegate may drop the alert
    reLayoutSubviews();
    ZRBaseAlert::showInView_animation(view, animated);
    makeRoomAndFocusTextField(animated);
}

/// The superclass's shows through `showInView_animation`, so the steps around it run twice; the second time they find
/// everything in place.
void ZRTAlertView::showWithAnimation(bool animated) {
    const Ref<ZRTAlertView> self(this);
    reLayoutSubviews();
    ZRBaseAlert::showWithAnimation(animated);
    makeRoomAndFocusTextField(animated);
}

void ZRTAlertView::makeRoomAndFocusTextField(bool animated) {
    UIView::animateWithDuration_animations(animated ? kAnimationDuration : 0, [this] { fixAlertViewFrame(); });
    if (const Ref<UITextField> field = m_textField)
        field->becomeFirstResponder();
}

void ZRTAlertView::dismissAlertView() { dismissWithButtonIndex_animated(cancelButtonIndex(), true); }

void ZRTAlertView::dismissWithButtonIndex_animated(NSInteger index, bool animated) {
    const Ref<ZRTAlertView> self(this); // the field's own delegate may drop the alert
    if (const Ref<UITextField> field = m_textField)
        field->resignFirstResponder();
    ZRBaseAlert::dismissWithButtonIndex_animated(index, animated);
}

void ZRTAlertView::startRotation() {
    if (!m_rotationImageView)
        return;
    const auto rotation = CAKeyframeAnimation::animationWithKeyPath("transform.rotation.z");
    rotation->setValues({std::numbers::pi_v<float>, -std::numbers::pi_v<float>});
    rotation->setDuration(0.5);
    rotation->setRepeatCount(std::numeric_limits<float>::max());
    m_rotationImageView->layer()->addAnimation_forKey(rotation, kRotationKey);
}

void ZRTAlertView::stopRotation() {
    if (m_rotationImageView)
        m_rotationImageView->layer()->removeAnimationForKey(kRotationKey);
}

// Layout

void ZRTAlertView::reLayoutSubviews() {
    setFrameOf(m_titleLabel, calculateTitleLabelFrame(m_title));
    setFrameOf(m_messageLabel, calculateMessageLabelFrame(m_message));
    switch (m_alertViewStyle) {
    case ZRTAlertViewStyleCheckBox:
        layoutCheckBoxAlertView();
        break;
    case ZRTAlertViewStyleRotation:
        layoutRotationAlertView();
        break;
    case ZRTAlertViewStyleProgress:
        layoutProgressAlertView();
        break;
    case ZRTAlertViewStyleTextField:
    case ZRTAlertViewStyleSecureTextField:
        layoutTextFieldAlertView();
        break;
    default:
        break;
    }
    layoutAletViewAndButtons();
}

void ZRTAlertView::layoutCheckBoxAlertView() {
    const CGFloat width = getAlertViewSize().width;
    const CGFloat textWidth =
        sizeWithFont_constrainedToSize(m_detailMessage, UIFont::systemFontOfSize(15), CGSizeMake(width - 40, 30)).width;
    setFrameOf(m_detailMessageLabel, CGRectMake((width - textWidth) * 0.5 + 15, contentTop() + 10, textWidth, 30));
    const CGRect caption = frameOf(m_detailMessageLabel);
    setFrameOf(m_checkBoxButton, CGRectMake(CGRectGetMinX(caption) - 32, CGRectGetMinY(caption), 30, 30));
}

void ZRTAlertView::layoutProgressAlertView() {
    const CGFloat width = getAlertViewSize().width - 40;
    setFrameOf(m_progressView, CGRectMake(20, insetContentTop() + 10, width, 20));
    // The bar keeps a height of its own, so the caption asks where it ends.
    setFrameOf(m_detailMessageLabel, CGRectMake(20, CGRectGetMaxY(frameOf(m_progressView)), width, 30));
}

void ZRTAlertView::layoutRotationAlertView() {
    const CGFloat width = getAlertViewSize().width;
    const CGFloat imageHeight = heightOf(m_rotationImage);
    const CGFloat side = imageHeight < 20 || imageHeight > 100 ? 40 : imageHeight;
    setFrameOf(m_rotationImageView, CGRectMake((width - side) * 0.5, insetContentTop() + 10, side, side));
    setFrameOf(m_detailMessageLabel, CGRectMake(20, CGRectGetMaxY(frameOf(m_rotationImageView)), width - 40, 30));
}

void ZRTAlertView::layoutTextFieldAlertView() {
    setFrameOf(m_textField, CGRectMake(20, contentTop() + 5, getAlertViewSize().width - 40, 30));
}

CGFloat ZRTAlertView::contentTop() const {
    return CGRectGetMaxY(m_messageLabel ? m_messageLabel->frame() : frameOf(m_titleLabel));
}

CGFloat ZRTAlertView::insetContentTop() const {
    const CGFloat top = contentTop();
    return top < 5 ? 10 : top;
}

CGRect ZRTAlertView::calculateAlertViewFrame() {
    const CGSize host = getSuperViewSize();
    CGSize panel = getAlertViewSize();
    if (panel == defaultAlertViewSize()) {
        panel.height += heightOf(m_titleLabel) + heightOf(m_messageLabel) + heightOf(m_detailMessageLabel) +
                        heightOf(m_textField) + heightOf(m_rotationImageView) + heightOf(m_progressView);
        if (panel.height > host.height)
            panel.height = host.height - 20;
    }
    return CGRectMake((host.width - panel.width) * 0.5, (host.height - panel.height) * 0.5 - 15, panel.width,
                      panel.height);
}

CGRect ZRTAlertView::calculateTitleLabelFrame(const NSString& /*title*/) {
    return CGRectMake(5, 7, getAlertViewSize().width - 10, 45);
}

CGRect ZRTAlertView::calculateMessageLabelFrame(const NSString& message) {
    const CGFloat width = getAlertViewSize().width;
    const CGFloat titleBottom = CGRectGetMaxY(frameOf(m_titleLabel));
    const CGSize text = sizeWithFont_constrainedToSize(message, UIFont::systemFontOfSize(15),
                                                       CGSizeMake(width - 20, calculateMaximumMessageHeight()));
    return CGRectMake(5, titleBottom == 0 ? 10 : titleBottom, width - 10, text.height + 5);
}

CGFloat ZRTAlertView::calculateMaximumMessageHeight() {
    if (alertViewSize() == CGSizeZero)
        return 300;
    const CGFloat height = getAlertViewSize().height - 100;
    switch (m_alertViewStyle) {
    case ZRTAlertViewStyleRotation:
        return height - (heightOf(m_rotationImage) + 30);
    case ZRTAlertViewStyleCheckBox:
    case ZRTAlertViewStyleProgress:
    case ZRTAlertViewStyleTextField:
    case ZRTAlertViewStyleSecureTextField:
        return m_detailMessage.length() == 0 ? height : height - (heightOf(m_detailMessageLabel) + 10);
    default:
        return height;
    }
}

void ZRTAlertView::fixAlertViewFrame() {
    if (!m_textField || !backgroundAlert())
        return;
    const CGFloat screenHeight = UIScreen::mainScreen()->bounds().size.height;
    const CGFloat overflow = CGRectGetMaxY(backgroundAlert()->frame()) + kKeyboardRoom - screenHeight;
    if (!(overflow > 0)) // nor where a size is no number
        return;
    const CGPoint center = backgroundAlert()->center();
    backgroundAlert()->setCenter(CGPointMake(center.x, center.y - overflow));
}

// Events

void ZRTAlertView::checkBoxButtonClicked(NSObject* /*sender*/) { setCheckBoxSelected(!m_checkBoxSelected); }

} // namespace zr
