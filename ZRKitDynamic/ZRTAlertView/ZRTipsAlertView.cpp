#include <ZRKitDynamic/ZRTAlertView/ZRTipsAlertView.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

namespace zr {

namespace {

constexpr CGFloat kPictureTop = 20;
constexpr CGFloat kSideMargin = 5;
constexpr CGFloat kMessageSideMargin = 10;
constexpr CGFloat kMessageSlack = 5;
constexpr CGFloat kHostMargin = 20;
constexpr CGFloat kAboveMiddle = 15;
constexpr CGFloat kTitleHeight = 45;
constexpr CGFloat kMessageGap = 10;
constexpr int kTitleLines = 2, kMessageLines = 127;

Ref<UIFont> messageFont() { return UIFont::systemFontOfSize(15); }

CGRect frameOf(const UIView* view) { return view ? view->frame() : CGRectZero; }

void setFrameOf(UIView* view, CGRect frame) {
    if (view)
        view->setFrame(frame);
}

} // namespace

// Construction

bool ZRTipsAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles(
    const NSString& title, const NSString& message, Delegate<ZRTAlertViewDelegate> delegate,
    const NSString& cancelTitle, const NSString& okTitle) {
    if (!initWithDelegate_cancelButtonTitle_okButtonTitles(delegate, cancelTitle, okTitle))
        return false;
    setTitle(title);
    setMessage(message);
    initViews();
    return true;
}

void ZRTipsAlertView::initViews() {
    UIView* panel = backgroundAlert();
    if (!panel)
        return;
    m_tipBackgoundImageView = make<UIImageView>(&UIImageView::initWithFrame, CGRectZero);
    m_tipBackgoundImageView->setBackgroundColor(ZRColor::zrColorWithRed_green_blue_alpha(45, 167, 5, 1));
    panel->addSubview(m_tipBackgoundImageView);

    m_tipImageView = make<UIImageView>(&UIImageView::initWithFrame, CGRectZero);
    m_tipImageView->setBackgroundColor(UIColor::clearColor());
    panel->addSubview(m_tipImageView);

    if (!m_title.isNil()) {
        setTitleLabel(ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            calculateTitleLabelFrame(m_title), kTitleLines, UIFont::boldSystemFontOfSize(17), m_title,
            NSTextAlignmentCenter));
        m_titleLabel->setTextColor(UIColor::whiteColor());
        panel->addSubview(m_titleLabel);
    }
    if (!m_message.isNil()) {
        setMessageLabel(ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            calculateMessageLabelFrame(m_message), kMessageLines, messageFont(), m_message, NSTextAlignmentCenter));
        panel->addSubview(m_messageLabel);
    }
    addSubview(panel);
    panel->setFrame(calculateAlertViewFrame());
}

// Properties

void ZRTipsAlertView::setTipImage(UIImage* image) {
    if (image == m_tipImage)
        return;
    m_tipImage = image;
    if (m_tipImageView)
        m_tipImageView->setImage(image);
}

void ZRTipsAlertView::setTipBackgroundColor(UIColor* color) {
    if (color == m_tipBackgroundColor)
        return;
    m_tipBackgroundColor = color;
    if (m_tipBackgoundImageView)
        m_tipBackgoundImageView->setBackgroundColor(color);
}

// Presentation

void ZRTipsAlertView::showInView_animation(UIView* view, bool animated) {
    reLayoutSubviews();
    ZRBaseAlert::showInView_animation(view, animated);
}

void ZRTipsAlertView::showWithAnimation(bool animated) {
    reLayoutSubviews();
    ZRBaseAlert::showWithAnimation(animated);
}

// Layout

void ZRTipsAlertView::reLayoutSubviews() {
    setFrameOf(m_tipImageView, calculateTipImageViewFrame());
    setFrameOf(m_titleLabel, calculateTitleLabelFrame(m_title));
    setFrameOf(m_messageLabel, calculateMessageLabelFrame(m_message));
    setFrameOf(m_tipBackgoundImageView, calculateTipBackgroundImageViewFrame());
    layoutAletViewAndButtons();
}

CGRect ZRTipsAlertView::calculateTipImageViewFrame() {
    const CGSize image = m_tipImage ? m_tipImage->size() : CGSizeZero;
    return CGRectMake((getAlertViewSize().width - image.width) * 0.5, kPictureTop, image.width, image.height);
}

CGRect ZRTipsAlertView::calculateTipBackgroundImageViewFrame() {
    return CGRectMake(0, 0, getAlertViewSize().width, CGRectGetMaxY(frameOf(m_titleLabel)));
}

CGRect ZRTipsAlertView::calculateTitleLabelFrame(const NSString&) {
    return CGRectMake(kSideMargin, CGRectGetMaxY(frameOf(m_tipImageView)), getAlertViewSize().width - 2 * kSideMargin,
                      kTitleHeight);
}

CGRect ZRTipsAlertView::calculateMessageLabelFrame(const NSString& message) {
    const CGSize panel = getAlertViewSize();
    const CGSize text = sizeWithFont_constrainedToSize(message, messageFont(),
                                                       CGSizeMake(panel.width - 2 * kMessageSideMargin, panel.height));
    return CGRectMake(kSideMargin, CGRectGetMaxY(frameOf(m_titleLabel)) + kMessageGap, panel.width - 2 * kSideMargin,
                      text.height + kMessageSlack);
}

CGRect ZRTipsAlertView::calculateAlertViewFrame() {
    const CGSize host = getSuperViewSize();
    const CGSize panel = getAlertViewSize();
    CGFloat height = panel.height;
    if (panel == defaultAlertViewSize()) {
        height += frameOf(m_titleLabel).size.height + frameOf(m_messageLabel).size.height +
                  CGRectGetMaxY(frameOf(m_tipImageView));
        if (height > host.height)
            height = host.height - kHostMargin;
    }
    return CGRectMake((host.width - panel.width) * 0.5, (host.height - height) * 0.5 - kAboveMiddle, panel.width,
                      height);
}

} // namespace zr
