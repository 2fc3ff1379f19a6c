#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>

#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>

namespace zr {

namespace {

constexpr CGFloat kButtonSide = 40;
constexpr CGFloat kButtonMargin = 5;
constexpr CGFloat kButtonBottom = 1;
constexpr CGFloat kRightTextButtonWidth = 70;
constexpr CGFloat kTitleHeight = 30;
constexpr CGFloat kTitleBottom = kButtonBottom + 3;
constexpr NSTimeInterval kBarFade = 0.5;
constexpr NSTimeInterval kButtonFade = 0.3;

constexpr NSUInteger kFlexibleSize = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;
constexpr NSUInteger kFlexibleMargins = UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                                        UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin;

/// In no time, what fades already does not go on.
void fade(UIView* view, CGFloat alpha, NSTimeInterval duration, std::function<void(bool)> completion = nullptr) {
    if (duration == 0)
        view->layer()->removeAnimationForKey("opacity");
    UIView::animateWithDuration_animations_completion(
        duration, [view, alpha] { view->setAlpha(alpha); }, std::move(completion));
}

/// Within an animation of the caller's too.
void hideAtOnce(UIView* view) {
    view->layer()->removeAnimationForKey("opacity");
    UIView::performWithoutAnimation([view] { view->setAlpha(0); });
}

void styleScreenButton(UIButton* button) {
    const auto faint = UIColor::colorWithWhite_alpha(1, 0.3);
    button->setTitleColor_forState(UIColor::whiteColor(), UIControlStateNormal);
    button->setTitleColor_forState(faint, UIControlStateDisabled);
    button->setTitleColor_forState(faint, UIControlStateHighlighted);
    button->titleLabel()->setFont(UIFont::systemFontOfSize(15));
    button->titleLabel()->setTextAlignment(NSTextAlignmentRight);
    button->titleLabel()->setBackgroundColor(UIColor::clearColor());
    button->setBackgroundColor(UIColor::clearColor());
    button->setAutoresizingMask(kFlexibleMargins);
}

} // namespace

// Construction

bool ZRTNavigationBar::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setAutoresizesSubviews(true);
    initViews();
    return true;
}

void ZRTNavigationBar::initViews() {
    const CGSize size = frame().size;
    setBackgroundImageView(make<ZRShadowAnimationView>(&UIView::initWithFrame, bounds()));
    m_backgroundImageView->setAutoresizingMask(kFlexibleSize);
    defaultBackgroundColor();
    addSubview(m_backgroundImageView);
    sendSubviewToBack(m_backgroundImageView);

    setTitleLabel(
        make<UILabel>(&UIView::initWithFrame, CGRectMake(size.width * 0.25, size.height - kTitleHeight - kTitleBottom,
                                                         size.width * 0.5, kTitleHeight)));
    m_titleLabel->setAutoresizingMask(kFlexibleMargins);
    m_titleLabel->setTextColor(UIColor::whiteColor());
    m_titleLabel->setAdjustsFontSizeToFitWidth(true);
    m_titleLabel->setBackgroundColor(UIColor::clearColor());
    m_titleLabel->setFont(UIFont::boldSystemFontOfSize(17));
    m_titleLabel->setTextAlignment(NSTextAlignmentCenter);
    addSubview(m_titleLabel);

    setBackButton(make<UIButton>());
    m_backButton->setFrame(CGRectMake(kButtonMargin, buttonTop(), kButtonSide, kButtonSide));
    m_backButton->setBackgroundColor(UIColor::clearColor());
    m_backButton->setContentMode(UIViewContentModeLeft);
    const auto pressed = UIImage::imageNamed("icon_title_back_press.png");
    m_backButton->setImage_forState(pressed, UIControlStateHighlighted);
    m_backButton->setImage_forState(pressed, UIControlStateDisabled);
    m_backButton->setImage_forState(UIImage::imageNamed("icon_title_back.png"), UIControlStateNormal);
    m_backButton->setAutoresizingMask(kFlexibleMargins);
    m_backButton->addTarget_action_forControlEvents(this, selector<&ZRTNavigationBar::backButtonClicked>,
                                                    UIControlEventTouchUpInside);
    addSubview(m_backButton);
}

CGFloat ZRTNavigationBar::buttonTop() const { return frame().size.height - kButtonSide - kButtonBottom; }

// Contents

void ZRTNavigationBar::setNavTitle(const NSString& title) {
    if (m_titleLabel)
        m_titleLabel->setText(title);
}

void ZRTNavigationBar::defaultBackgroundColor() {
    if (m_backgroundImageView)
        m_backgroundImageView->setBackgroundColor(ZRColorInstance::Instance()->navigationBarShadowColor());
}

// Showing and hiding

void ZRTNavigationBar::hiddenNavigationBarWithAnimated(bool animated) { fade(this, 0, animated ? kBarFade : 0); }

void ZRTNavigationBar::showNavigationBarWithAnimated(bool animated) { fade(this, 1, animated ? kBarFade : 0); }

void ZRTNavigationBar::hiddenBackButton_animated(bool hidden, bool animated) {
    if (m_backButton)
        fade(m_backButton, hidden ? 0 : 1, animated ? kButtonFade : 0);
}

void ZRTNavigationBar::hiddenBackButtonAnimated(bool animated) { hiddenBackButton_animated(true, animated); }

void ZRTNavigationBar::showBackButtonAnimated(bool animated) { hiddenBackButton_animated(false, animated); }

// The screen's buttons

void ZRTNavigationBar::setLeftButton(UIButton* button) { m_left = {button, m_left.installation + 1, false}; }

void ZRTNavigationBar::setRightButton(UIButton* button) { m_right = {button, m_right.installation + 1, false}; }

void ZRTNavigationBar::setLeftButton_animated(UIButton* button, bool animated) {
    if (m_left.button && !button) {
        fadeOut(m_left, animated, [this] { setLeftButton(nullptr); });
        return;
    }
    // The two never stand side by side, whatever comes of this call.
    if (m_backButton)
        hideAtOnce(m_backButton);
    if (button == m_left.button)
        return;
    if (button == m_right.button)
        setRightButton(nullptr);
    if (m_left.button)
        m_left.button->removeFromSuperview();
    setLeftButton(button);
    fadeIn(button, button->frame().size.width * 0.5 + kButtonMargin, animated);
}

void ZRTNavigationBar::setRightButton_animated(UIButton* button, bool animated) {
    if (m_right.button && !button) {
        fadeOut(m_right, animated, [this] { setRightButton(nullptr); });
        return;
    }
    if (button == m_right.button)
        return;
    if (button == m_left.button)
        setLeftButton(nullptr);
    if (m_right.button)
        m_right.button->removeFromSuperview();
    setRightButton(button);
    fadeIn(button, frame().size.width - button->frame().size.width * 0.5 - kButtonMargin, animated);
}

/// A button that is set meanwhile, that one again included, has the place then.
void ZRTNavigationBar::fadeOut(Slot& slot, bool animated, const std::function<void()>& empty) {
    if (slot.isLeaving && animated)
        return;
    slot.isLeaving = true;
    fade(slot.button, 0, animated ? kButtonFade : 0,
         [this, &slot, button = slot.button, installation = slot.installation, empty,
          keep = Ref<ZRTNavigationBar>(this)](bool) {
             const bool isStillLeaving = slot.installation == installation;
             if (isStillLeaving || (button != m_left.button && button != m_right.button))
                 button->removeFromSuperview();
             if (isStillLeaving)
                 empty();
         });
}

void ZRTNavigationBar::fadeIn(UIButton* button, CGFloat centerX, bool animated) {
    UIView::performWithoutAnimation(
        [&] { button->setCenter(CGPointMake(centerX, buttonTop() + button->frame().size.height * 0.5)); });
    hideAtOnce(button);
    styleScreenButton(button);
    addSubview(button);
    fade(button, 1, animated ? kButtonFade : 0);
}

void ZRTNavigationBar::setLeftButtonTitle_target_action(const NSString& title, NSObject* target, SEL action) {
    const CGRect frame = CGRectMake(kButtonMargin, buttonTop(), kButtonSide, kButtonSide);
    setLeftButton_animated(makeTextButton(frame, title, target, action), true);
}

void ZRTNavigationBar::setRightButtonTitle_target_action(const NSString& title, NSObject* target, SEL action) {
    const CGFloat x = frame().size.width - kRightTextButtonWidth - kButtonMargin;
    const CGRect frame = CGRectMake(x, buttonTop(), kRightTextButtonWidth, kButtonSide);
    setRightButton_animated(makeTextButton(frame, title, target, action), true);
}

Ref<UIButton> ZRTNavigationBar::makeTextButton(CGRect frame, const NSString& title, NSObject* target, SEL action) {
    auto button = UIButton::buttonWithType(UIButtonTypeCustom);
    button->setTitle_forState(title, UIControlStateNormal);
    button->setFrame(frame);
    button->addTarget_action_forControlEvents(target, action, UIControlEventTouchUpInside);
    return button;
}

// Events

void ZRTNavigationBar::backButtonClicked(UIButton* button) {
    const Ref<NSObject> keep = m_delegate.object();
    if (keep)
        m_delegate->zrTNavigationBar_backButtonClicked(this, button);
}

void ZRTNavigationBar::layoutSubviews() { UIView::layoutSubviews(); }

} // namespace zr
