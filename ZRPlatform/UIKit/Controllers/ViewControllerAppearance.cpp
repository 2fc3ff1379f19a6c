#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/Internal/Presentation.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ViewGlide.h>

namespace zr {

// The four messages, and who is told

void UIViewController::viewWillAppear(bool) {}
void UIViewController::viewDidAppear(bool) {}
void UIViewController::viewWillDisappear(bool) {}
void UIViewController::viewDidDisappear(bool) {}

void UIViewController::beginAppearanceTransition_animated(bool isAppearing, bool animated) {
    const bool isSo = m_appearance == Appearance::Appearing || m_appearance == Appearance::Appeared;
    if (isSo == isAppearing)
        return;
    const ChangeQueue::Step step;
    const Ref<UIViewController> keep = this;
    m_appearance = isAppearing ? Appearance::Appearing : Appearance::Disappearing;
    m_appearanceIsAnimated = animated;
    if (isAppearing) {
        const UIView* loaded = view();
        viewWillAppear(animated);
        if (UIApplication* application = UIApplication::sharedApplication())
            application->takeStatusBarWish();
        if (!shouldAutomaticallyForwardAppearanceMethods())
            return;
        const auto children = m_children;
        for (const auto& child : children) {
            if (child->m_parent == this && child->m_view && child->m_view->isDescendantOfView(loaded))
                child->beginAppearanceTransition_animated(true, animated);
        }
        return;
    }
    viewWillDisappear(animated);
    if (!shouldAutomaticallyForwardAppearanceMethods())
        return;
    const auto children = m_children;
    for (const auto& child : children)
        child->beginAppearanceTransition_animated(false, animated);
}

void UIViewController::endAppearanceTransition() {
    if (m_appearance == Appearance::Disappeared || m_appearance == Appearance::Appeared)
        return;
    const ChangeQueue::Step step;
    const Ref<UIViewController> keep = this;
    if (m_appearance == Appearance::Appearing) {
        m_appearance = Appearance::Appeared;
        viewDidAppear(m_appearanceIsAnimated);
    } else {
        m_appearance = Appearance::Disappeared;
        viewDidDisappear(m_appearanceIsAnimated);
    }
    if (!shouldAutomaticallyForwardAppearanceMethods())
        return;
    const auto children = m_children;
    for (const auto& child : children)
        child->endAppearanceTransition();
}

// The view comes and goes

/// Whether a container, or the change under way, tells this controller of its appearance, so that its view's moving
/// does not.
bool UIViewController::isToldByOthers() const {
    if (m_viewIsMoved > 0)
        return true;
    if (!m_parent)
        return false;
    return !m_parent->shouldAutomaticallyForwardAppearanceMethods() ||
           m_parent->m_appearance == Appearance::Disappeared || m_parent->m_appearance == Appearance::Disappearing;
}

void UIViewController::viewWillMoveToWindow(UIWindow* window) {
    if (!isToldByOthers())
        beginAppearanceTransition_animated(window && !window->isHidden(), false);
}

void UIViewController::viewDidMoveToWindow() {
    if (isToldByOthers() ||
        (m_parent && m_parent->m_appearance == Appearance::Appearing && m_appearance == Appearance::Appearing))
        return;
    if (m_appearance == Appearance::Appearing && m_view)
        m_view->layoutIfNeeded();
    endAppearanceTransition();
}

// What containers do

void ControllerAccess::putView(UIViewController* controller, UIView* superview, NSInteger index, CGRect frame) {
    const Ref<UIViewController> keep = controller;
    const Ref<UIView> view = controller->view();
    ++controller->m_viewIsMoved;
    UIView::performWithoutAnimation([&] {
        view->setFrame(frame);
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        superview->insertSubview_atIndex(view, index);
    });
    --controller->m_viewIsMoved;
}

void ControllerAccess::takeView(UIViewController* controller) {
    const Ref<UIViewController> keep = controller;
    ++controller->m_viewIsMoved;
    if (controller->m_view)
        controller->m_view->removeFromSuperview();
    --controller->m_viewIsMoved;
}

void ControllerAccess::endAppearing(UIViewController* controller) {
    if (controller->m_appearance != UIViewController::Appearance::Appearing)
        return;
    if (controller->m_view)
        controller->m_view->layoutIfNeeded();
    controller->endAppearanceTransition();
}

void ControllerAccess::endDisappearing(UIViewController* controller) {
    if (controller->m_appearance == UIViewController::Appearance::Disappearing)
        controller->endAppearanceTransition();
}

bool ControllerAccess::hasAppeared(const UIViewController* controller) {
    return controller->m_appearance == UIViewController::Appearance::Appeared;
}

bool ControllerAccess::isAppearing(const UIViewController* controller) {
    return controller->m_appearance == UIViewController::Appearance::Appearing;
}

bool ControllerAccess::isFree(const UIViewController* controller) {
    return !controller->m_parent && !controller->m_presentedBy && !controller->m_rootOfWindow;
}

} // namespace zr
