#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ChangeQueue.h>
#include <ZRPlatform/UIKit/Controllers/Internal/ControllerAccess.h>
#include <ZRPlatform/UIKit/Controllers/Internal/Presentation.h>

#include <algorithm>

namespace zr {

namespace {

bool isAncestor(const UIViewController* ancestor, const UIViewController* controller) {
    for (; controller; controller = controller->parentViewController()) {
        if (controller == ancestor)
            return true;
    }
    return false;
}

} // namespace

void UIViewController::addChildViewController(UIViewController* child) {
    if (!child || isAncestor(child, this) || child->m_presentedBy || child->m_rootOfWindow) {
        NSLog("a controller that is nil, contains the other, is presented or a window's root becomes no child");
        return;
    }
    if (child->m_parent == this)
        return;
    const Ref<UIViewController> keep = child;
    child->removeFromParentViewController();
    child->willMoveToParentViewController(this);
    // The message may have found it another place.
    if (!ControllerAccess::isFree(child) || isAncestor(child, this))
        return;
    m_children.push_back(keep);
    child->m_parent = this;
}

void UIViewController::removeFromParentViewController() {
    if (!m_parent)
        return;
    const ChangeQueue::Step step;
    const Ref<UIViewController> keep = this;
    const bool wasToldByParent = m_parent->shouldAutomaticallyForwardAppearanceMethods();
    std::erase(m_parent->m_children, keep);
    m_parent = nullptr;
    // The parent may be coming or going; what it has begun it cannot end any more.
    const bool isInWindow = m_view && m_view->window();
    if (wasToldByParent && isInWindow == (m_appearance == Appearance::Appearing))
        viewDidMoveToWindow();
    didMoveToParentViewController(nullptr);
}

void UIViewController::willMoveToParentViewController(UIViewController* parent) {
    m_isMovingToParent = parent != nullptr;
    m_isMovingFromParent = !parent;
}

void UIViewController::didMoveToParentViewController(UIViewController*) {
    m_isMovingToParent = false;
    m_isMovingFromParent = false;
}

void UIViewController::transitionFromViewController_toViewController_duration_options_animations_completion(
    UIViewController* from, UIViewController* to, NSTimeInterval duration, NSUInteger options,
    const std::function<void()>& animations, std::function<void(bool)> completion) {
    if (!from || !to || from == to || from->m_parent != this || to->m_parent != this) {
        NSLog("a change from one child to another needs two children");
        return;
    }
    const Ref<UIViewController> old = from, entering = to;
    UIView* superview = old->m_view ? old->m_view->superview() : nullptr;
    if (!superview)
        superview = view();
    const bool isShown = m_appearance == Appearance::Appeared;
    if (isShown) {
        old->beginAppearanceTransition_animated(false, duration > 0);
        entering->beginAppearanceTransition_animated(true, duration > 0);
    }
    const auto count = static_cast<NSInteger>(superview->subviews().size());
    ++entering->m_viewIsMoved;
    UIView::performWithoutAnimation([&] { superview->insertSubview_atIndex(entering->view(), count); });
    --entering->m_viewIsMoved;
    UIView::animateWithDuration_delay_options_animations_completion(
        duration, 0, options, animations, [old, entering, isShown, completion = std::move(completion)](bool finished) {
            ControllerAccess::takeView(old);
            if (isShown) {
                ControllerAccess::endDisappearing(old);
                ControllerAccess::endAppearing(entering);
            }
            if (completion)
                completion(finished);
        });
}

/// Ends what glides in the children, and the coming or going of what this controller presents.
void UIViewController::finishTransitions() {
    const Ref<UIViewController> keep = this;
    const auto children = m_children;
    for (const auto& child : children)
        child->finishTransitions();
    if (const Ref<Presentation> presentation = m_presentation)
        presentation->finish();
}

} // namespace zr
