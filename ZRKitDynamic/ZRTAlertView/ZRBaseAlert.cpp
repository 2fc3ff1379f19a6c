#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>

#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

#include <algorithm>

namespace zr {

namespace {

constexpr NSTimeInterval kAnimationDuration = 0.3;
constexpr CGFloat kButtonHeight = 45;

CGRect screenBounds() { return UIScreen::mainScreen()->bounds(); }

UIWindowLevel alertWindowLevel() {
    if (UIDevice::currentDevice()->systemVersion().intValue() >= 8)
        return 1047;
    return UIWindowLevelAlert - 1;
}

} // namespace

// Construction

bool ZRBaseAlert::initWithDelegate_cancelButtonTitle_okButtonTitles(Delegate<ZRTAlertViewDelegate> delegate,
                                                                    const NSString& cancelTitle,
                                                                    const NSString& okTitle) {
    if (!UIView::initWithFrame(screenBounds()))
        return false;
    setDelegate(delegate);
    setCancelTitle(cancelTitle);
    setOkTitle(okTitle);
    setAlertViewSize(CGSizeZero);
    makeWindow();
    makeBackground();
    setCancelButtonIndex(0);
    if (m_backgroundAlert) {
        m_backgroundAlert->setFrame(calculateAlertViewFrame());
        addSubview(m_backgroundAlert);
    }
    makeButtons();
    return true;
}

void ZRBaseAlert::makeWindow() {
    m_backgroundWindow = make<UIWindow>(&UIWindow::initWithFrame, screenBounds());
    m_backgroundWindow->setWindowLevel(alertWindowLevel());
    m_backgroundWindow->setBackgroundColor(UIColor::clearColor());
}

void ZRBaseAlert::makeBackground() {
    const auto dimming = make<UIView>(&UIView::initWithFrame, screenBounds());
    dimming->setBackgroundColor(UIColor::blackColor());
    dimming->setAlpha(0.45);
    addSubview(dimming);
    setBackgroundView(dimming);

    const auto panel = make<UIView>(&UIView::initWithFrame, CGRectZero);
    panel->setBackgroundColor(ZRColor::zrColorWithRed_green_blue_alpha(245, 245, 245, 1));
    panel->layer()->setCornerRadius(6);
    panel->setClipsToBounds(true);
    panel->setAlpha(0.93);
    setBackgroundAlert(panel);
}

void ZRBaseAlert::makeButtons() {
    if (!m_cancelTitle.isNil())
        setCancelButton(makeButton(calculateCancelButtonFrame(), m_cancelTitle, 0));
    if (!m_okTitle.isNil())
        setOkButton(makeButton(calculateOKButtonFrame(), m_okTitle, m_cancelTitle.isNil() ? 0 : 1));
}

Ref<ZRTAlertViewButton> ZRBaseAlert::makeButton(CGRect frame, const NSString& title, NSInteger tag) {
    auto button = make<ZRTAlertViewButton>(&ZRTAlertViewButton::initWithFrame, frame);
    button->setTitle(title);
    button->setTag(tag);
    button->addTarget_action_forControlEvents(this, selector<&ZRBaseAlert::buttonClicked>, UIControlEventTouchUpInside);
    if (m_backgroundAlert)
        m_backgroundAlert->addSubview(button);
    return button;
}

// Presentation

void ZRBaseAlert::showInView_animation(UIView* view, bool animated) {
    const Ref<ZRBaseAlert> self(this); // whoever hears of the new key window may drop the alert
    m_superView = view == this ? nullptr : view;
    // A dismissal leaves the panel small; in a host view the alert can be shown again, and frames are set at scale 1.
    if (m_backgroundAlert)
        m_backgroundAlert->setTransform(CGAffineTransformIdentity);
    layoutAletViewAndButtons();
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDuration(animated ? kAnimationDuration : 0);
    if (m_superView) {
        m_superView->addSubview(this);
    } else if (const Ref<UIWindow> window = m_backgroundWindow) {
        window->addSubview(this);
        window->makeKeyAndVisible();
        window->becomeKeyWindow();
        window->setAlpha(1);
    }
    if (animated && m_backgroundAlert) {
        // Each starts where the one before it ended, and takes its place: the panel is seen to grow from 0.9 to 1.
        for (const CGFloat scale : {0.9, 1.1, 0.9, 1.0})
            m_backgroundAlert->setTransform(CGAffineTransformMakeScale(scale, scale));
    }
    UIView::commitAnimations();
}

void ZRBaseAlert::showWithAnimation(bool animated) {
    const Ref<ZRBaseAlert> self(this);
    showInView_animation(nullptr, animated);
}

void ZRBaseAlert::dismissAlertView() { dismissWithButtonIndex_animated(cancelButtonIndex(), true); }

void ZRBaseAlert::dismissAlertViewWithoutAnimation() { dismissWithButtonIndex_animated(cancelButtonIndex(), false); }

void ZRBaseAlert::dismissWithButtonIndex_animated(NSInteger index, bool animated) {
    const Ref<ZRBaseAlert> self(this);
    tellDelegateOfDismissal(index);
    UIView::animateWithDuration_animations_completion(
        animated ? kAnimationDuration : 0,
        [this, animated] {
            if (animated && m_backgroundAlert)
                m_backgroundAlert->setTransform(CGAffineTransformMakeScale(0.1, 0.1));
            if (m_backgroundWindow)
                m_backgroundWindow->setAlpha(0);
        },
        [self, hostView = m_superView](bool) { self->finishDismissal(hostView); });
}

void ZRBaseAlert::tellDelegateOfDismissal(NSInteger index) {
    // A delegate that answers a dismissal with the same one would hear of it without end.
    if (std::find(m_indicesBeingTold.begin(), m_indicesBeingTold.end(), index) != m_indicesBeingTold.end())
        return;
    m_indicesBeingTold.push_back(index);
    // Either message may drop the delegate, and the first may set another one.
    if (const Ref<NSObject> kept = m_delegate.object(); kept && index == m_cancelButtonIndex)
        m_delegate->zrTAlertViewCancelButtonClicked(this);
    if (const Ref<NSObject> kept = m_delegate.object())
        m_delegate->zrTAlertView_clickedButtonAtIndex(this, index);
    m_indicesBeingTold.pop_back();
}

/// Two dismissals may overlap, so this may run a second time, with nothing left to do; and the alert may have been
/// shown elsewhere since the dismissal began, which takes it from there too. A window that is not on the screen stays
/// after a dismissal from a host view, for later.
void ZRBaseAlert::finishDismissal(UIView* hostView) {
    removeFromSuperview();
    m_superView = nullptr;
    if (m_backgroundWindow && (!hostView || !m_backgroundWindow->isHidden())) {
        m_backgroundWindow->resignKeyWindow();
        m_backgroundWindow = nullptr;
    }
}

// Layout

void ZRBaseAlert::layoutAletViewAndButtons() {
    if (m_backgroundAlert)
        m_backgroundAlert->setFrame(calculateAlertViewFrame());
    if (m_cancelButton)
        m_cancelButton->setFrame(calculateCancelButtonFrame());
    if (m_okButton)
        m_okButton->setFrame(calculateOKButtonFrame());
}

CGSize ZRBaseAlert::defaultAlertViewSize() {
    const CGFloat screenWidth = screenBounds().size.width;
    return CGSizeMake(screenWidth > 320 ? 270 : screenWidth - 50, 70);
}

CGSize ZRBaseAlert::getSuperViewSize() { return m_superView ? m_superView->frame().size : screenBounds().size; }

CGSize ZRBaseAlert::getAlertViewSize() {
    return m_alertViewSize == CGSizeZero ? defaultAlertViewSize() : m_alertViewSize;
}

CGRect ZRBaseAlert::calculateAlertViewFrame() {
    const CGSize host = getSuperViewSize();
    const CGSize panel = getAlertViewSize();
    return CGRectMake((host.width - panel.width) * 0.5, (host.height - panel.height) * 0.5 - 20, panel.width,
                      panel.height);
}

CGRect ZRBaseAlert::calculateCancelButtonFrame() {
    const CGFloat panelWidth = m_backgroundAlert ? m_backgroundAlert->frame().size.width : 0;
    return calculateButtonFrame(-0.5, m_okTitle.isNil() ? panelWidth + 2 : panelWidth * 0.5 + 1);
}

CGRect ZRBaseAlert::calculateOKButtonFrame() {
    const CGFloat panelWidth = m_backgroundAlert ? m_backgroundAlert->frame().size.width : 0;
    if (m_cancelTitle.isNil())
        return calculateButtonFrame(-0.5, panelWidth + 2);
    return calculateButtonFrame(panelWidth * 0.5, panelWidth * 0.5 + 1);
}

CGRect ZRBaseAlert::calculateButtonFrame(CGFloat x, CGFloat width) {
    const CGFloat panelHeight = m_backgroundAlert ? m_backgroundAlert->frame().size.height : 0;
    return CGRectMake(x, panelHeight - kButtonHeight + 1, width, kButtonHeight);
}

// Events

void ZRBaseAlert::buttonClicked(UIControl* button) {
    dismissWithButtonIndex_animated(button ? button->tag() : 0, true);
}

bool ZRBaseAlert::accessibilityPerformEscape() {
    if (m_cancelButton || m_okButton)
        dismissAlertView();
    return true;
}

} // namespace zr
