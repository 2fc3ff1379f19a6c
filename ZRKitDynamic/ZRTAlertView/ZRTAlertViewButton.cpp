#include <ZRKitDynamic/ZRTAlertView/ZRTAlertViewButton.h>

#include <ZRKitDynamic/ZRColor/KitColorsInternal.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>

namespace zr {

namespace {

CGFloat hairlineWidth() { return UIScreen::mainScreen()->scale() > 2 ? 0.4 : 0.5; }

} // namespace

// Construction

bool ZRTAlertViewButton::initWithFrame(CGRect frame) {
    if (!UIControl::initWithFrame(frame))
        return false;
    setBackgroundColor(UIColor::clearColor());
    layer()->setBorderWidth(hairlineWidth());
    layer()->setBorderColor(UIColor::lightGrayColor()->cgColor());

    m_titleLabel = make<UILabel>(&UILabel::initWithFrame, bounds());
    m_titleLabel->setBackgroundColor(UIColor::clearColor());
    m_titleLabel->setFont(UIFont::systemFontOfSize(17));
    m_titleLabel->setTextAlignment(NSTextAlignmentCenter);
    m_titleLabel->setTextColor(kitTextColor());
    addSubview(m_titleLabel);
    return true;
}

// Properties

void ZRTAlertViewButton::setTitle(const NSString& title) {
    m_title = title;
    if (m_titleLabel)
        m_titleLabel->setText(m_title);
}

// Layout

void ZRTAlertViewButton::setFrame(CGRect frame) {
    UIControl::setFrame(frame);
    layOutTitle();
}

void ZRTAlertViewButton::setBounds(CGRect bounds) {
    UIControl::setBounds(bounds);
    layOutTitle();
}

void ZRTAlertViewButton::layOutTitle() {
    if (m_titleLabel)
        m_titleLabel->setFrame(bounds());
}

// Events

void ZRTAlertViewButton::setEnabled(bool enabled) {
    UIControl::setEnabled(enabled);
    if (m_titleLabel)
        m_titleLabel->setTextColor(enabled ? kitTextColor()
                                           : ZRColor::zrColorWithRed_green_blue_alpha(228, 228, 228, 1));
    setBackgroundColor(enabled ? Ref<UIColor>(UIColor::clearColor())
                               : ZRColor::zrColorWithRed_green_blue_alpha(193, 198, 195, 1));
}

void ZRTAlertViewButton::setHighlighted(bool highlighted) {
    UIControl::setHighlighted(highlighted);
    if (m_titleLabel)
        m_titleLabel->setTextColor(highlighted ? ZRColor::zrColorWithRed_green_blue_alpha(45, 167, 5, 1)
                                               : kitTextColor());
    setBackgroundColor(highlighted ? ZRColor::zrColorWithRed_green_blue_alpha(233, 233, 233, 1)
                                   : Ref<UIColor>(UIColor::clearColor()));
}

} // namespace zr
