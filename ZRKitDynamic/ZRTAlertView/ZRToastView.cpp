#include <ZRKitDynamic/ZRTAlertView/ZRToastView.h>

#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <limits>
#include <numbers>

namespace zr {

namespace {

constexpr const char* kIconName = "toast_icon_daorudaochu.png";
constexpr const char* kRotationKey = "transform";
constexpr CGSize kDefaultSize{168, 200};
constexpr CGFloat kIconSide = 67;
constexpr CGFloat kIconTop = 43;
constexpr CGFloat kMargin = 10;
constexpr CGFloat kMessageHeight = 50;

} // namespace

// Construction

bool ZRToastView::initWithDelegate_message(Delegate<ZRTAlertViewDelegate> delegate, const NSString& message) {
    if (!initWithDelegate_cancelButtonTitle_okButtonTitles(delegate, nullptr, nullptr))
        return false;
    UIView* panel = backgroundAlert();
    panel->setBackgroundColor(UIColor::colorWithWhite_alpha(0.1, 0.9));

    const auto icon = make<UIImageView>(&UIImageView::initWithFrame, CGRectZero);
    icon->setBackgroundColor(UIColor::clearColor());
    icon->setImage(UIImage::imageNamed(kIconName));
    panel->addSubview(icon);
    setRotationImageView(icon);

    const auto label = make<UILabel>(&UILabel::initWithFrame, CGRectZero);
    label->setBackgroundColor(UIColor::clearColor());
    label->setTextColor(UIColor::whiteColor());
    label->setNumberOfLines(2);
    label->setTextAlignment(NSTextAlignmentCenter);
    if (!message.isNil())
        label->setText(message);
    panel->addSubview(label);
    setMessageLabel(label);
    return true;
}

// Presentation

void ZRToastView::showInView_animation(UIView* view, bool animated) {
    reLayoutSubviews();
    ZRBaseAlert::showInView_animation(view, animated);
}

void ZRToastView::showWithAnimation(bool animated) {
    reLayoutSubviews();
    ZRBaseAlert::showWithAnimation(animated);
}

void ZRToastView::startRotation() {
    if (!m_rotationImageView)
        return;
    const auto rotation = CAKeyframeAnimation::animationWithKeyPath("transform.rotation.z");
    rotation->setValues({-std::numbers::pi_v<float>, std::numbers::pi_v<float>});
    rotation->setDuration(0.8);
    rotation->setRepeatCount(std::numeric_limits<float>::max());
    rotation->setRemovedOnCompletion(false);
    m_rotationImageView->layer()->addAnimation_forKey(rotation, kRotationKey);
}

void ZRToastView::stopRotation() {
    if (m_rotationImageView)
        m_rotationImageView->layer()->removeAnimationForKey(kRotationKey);
}

// Layout

void ZRToastView::reLayoutSubviews() {
    if (m_rotationImageView)
        m_rotationImageView->setFrame(calculateRotationImageViewFrame());
    if (m_messageLabel)
        m_messageLabel->setFrame(calculateMessageLabelFrame());
}

CGRect ZRToastView::calculateRotationImageViewFrame() {
    if (!m_rotationImageView || !m_rotationImageView->image())
        return CGRectZero;
    const CGRect present = m_rotationImageView->frame();
    const CGFloat side = present.size.width > 0 ? present.size.width : kIconSide;
    const CGFloat top = CGRectGetMinY(present) > 0 ? CGRectGetMinY(present) : kIconTop;
    return CGRectMake((getAlertViewSize().width - side) * 0.5, top, side, side);
}

CGRect ZRToastView::calculateMessageLabelFrame() {
    if (!m_messageLabel || m_messageLabel->text().length() == 0)
        return CGRectZero;
    const CGFloat iconBottom = m_rotationImageView ? CGRectGetMaxY(m_rotationImageView->frame()) : 0;
    return CGRectMake(kMargin, iconBottom + kMargin, getAlertViewSize().width - 2 * kMargin, kMessageHeight);
}

CGSize ZRToastView::getAlertViewSize() { return alertViewSize() == CGSizeZero ? kDefaultSize : alertViewSize(); }

} // namespace zr
