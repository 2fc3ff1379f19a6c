// The bar and the place of the screen below it.

#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>
#include <ZRPlatform/UIKit/Gestures/UIScreenEdgePanGestureRecognizer.h>

#include <algorithm>

namespace zr {

namespace {

constexpr CGFloat kBarHeight = 44;
constexpr NSTimeInterval kBarDuration = 0.2;

} // namespace

void UINavigationController::loadView() {
    UIViewController::loadView();
    UIView* whole = viewIfLoaded();
    whole->setClipsToBounds(true);
    m_content = make<UIView>(&UIView::initWithFrame, whole->bounds());
    m_content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    whole->addSubview(m_content);
    whole->addSubview(navigationBar());
    layOut();
    interactivePopGestureRecognizer();
    whole->addGestureRecognizer(m_swipe);
}

UINavigationBar* UINavigationController::navigationBar() {
    if (m_bar)
        return m_bar;
    m_bar = make<UINavigationBar>(&UINavigationBar::initWithFrame,
                                  CGRectMake(0, 0, UIScreen::mainScreen()->bounds().size.width, kBarHeight));
    m_bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    m_bar->setBackTarget_action(this, selector<&UINavigationController::backButtonTapped>);
    m_bar->setItems(itemsOfStack());
    return m_bar;
}

std::vector<Ref<UINavigationItem>> UINavigationController::itemsOfStack() const {
    std::vector<Ref<UINavigationItem>> items;
    for (const auto& screen : m_stack)
        items.emplace_back(screen->navigationItem());
    return items;
}

CGRect UINavigationController::barFrame() const {
    const UIApplication* application = UIApplication::sharedApplication();
    const CGFloat below = application ? application->statusBarFrame().size.height : 0;
    const CGFloat width = m_content ? m_content->bounds().size.width : UIScreen::mainScreen()->bounds().size.width;
    return {{0, m_isBarHidden ? -kBarHeight : below}, {width, kBarHeight}};
}

CGRect UINavigationController::screenFrame(const UIViewController* controller) const {
    CGRect frame = m_content->bounds();
    if (controller->edgesForExtendedLayout() & UIRectEdgeTop)
        return frame;
    const CGFloat top = std::max<CGFloat>(0, CGRectGetMaxY(barFrame()));
    frame.origin.y += top;
    frame.size.height = std::max<CGFloat>(0, frame.size.height - top);
    return frame;
}

/// Not in the middle of a transition, whose end places the screens.
void UINavigationController::layOut() {
    if (!m_content)
        return;
    m_bar->setFrame(barFrame());
    // Here, so that it takes part in an animation of the change.
    m_bar->layoutSubviews();
    if (m_shown && m_shown->viewIfLoaded() && !m_transition)
        m_shown->view()->setFrame(screenFrame(m_shown));
}

void UINavigationController::statusBarChanged(NSNotification*) { layOut(); }

void UINavigationController::setNavigationBarHidden_animated(bool hidden, bool animated) {
    if (hidden == m_isBarHidden)
        return;
    m_isBarHidden = hidden;
    if (animated && isViewLoaded())
        UIView::animateWithDuration_animations(kBarDuration, [this] { layOut(); });
    else
        layOut();
}

void UINavigationController::backButtonTapped() { popViewControllerAnimated(true); }

} // namespace zr
