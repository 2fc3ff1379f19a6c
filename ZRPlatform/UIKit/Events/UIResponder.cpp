#include <ZRPlatform/UIKit/Events/UIResponder.h>

#include <ZRPlatform/UIKit/Controllers/UIViewController.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

namespace zr {

namespace {

/// The window in which a responder can be first: that of the first view upwards of it, of a controller that of its own.
UIWindow* windowOf(const UIResponder* responder) {
    for (; responder; responder = responder->nextResponder()) {
        if (const auto* view = dynamic_cast<const UIView*>(responder))
            return view->window();
        if (const auto* controller = dynamic_cast<const UIViewController*>(responder))
            return controller->viewIfLoaded() ? controller->viewIfLoaded()->window() : nullptr;
    }
    return nullptr;
}

} // namespace

void UIResponder::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    if (const Ref<UIResponder> next = nextResponder())
        next->touchesBegan_withEvent(touches, event);
}

void UIResponder::touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) {
    if (const Ref<UIResponder> next = nextResponder())
        next->touchesMoved_withEvent(touches, event);
}

void UIResponder::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    if (const Ref<UIResponder> next = nextResponder())
        next->touchesEnded_withEvent(touches, event);
}

void UIResponder::touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) {
    if (const Ref<UIResponder> next = nextResponder())
        next->touchesCancelled_withEvent(touches, event);
}

bool UIResponder::becomeFirstResponder() {
    if (isFirstResponder())
        return true;
    UIWindow* window = windowOf(this);
    if (!window || !canBecomeFirstResponder())
        return false;
    if (const Ref<UIResponder> old = window->firstResponder()) {
        if (!old->resignFirstResponder())
            return false;
    }
    // Resigning may have moved this responder elsewhere, or made another one first.
    window = windowOf(this);
    if (!window || window->firstResponder())
        return false;
    window->m_firstResponder = this;
    return true;
}

bool UIResponder::resignFirstResponder() {
    if (!isFirstResponder())
        return true;
    if (!canResignFirstResponder())
        return false;
    windowOf(this)->m_firstResponder = nullptr;
    return true;
}

bool UIResponder::isFirstResponder() const {
    const UIWindow* window = windowOf(this);
    return window && window->firstResponder() == this;
}

bool UIResponder::keyPressed(UIKey key, unsigned modifiers) {
    const Ref<UIResponder> next = nextResponder();
    return next && next->keyPressed(key, modifiers);
}

bool UIResponder::accessibilityPerformEscape() {
    const Ref<UIResponder> next = nextResponder();
    return next && next->accessibilityPerformEscape();
}

} // namespace zr
