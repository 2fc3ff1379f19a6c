#pragma once

#include <ZRPlatform/UIKit/Controllers/UIViewController.h>

namespace zr {

/// What a container does to its children beyond what anybody may.
class ControllerAccess {
public:
    /// Puts the controller's view into `superview`, at `index`, or takes it out; its appearance is the caller's affair.
    static void putView(UIViewController* controller, UIView* superview, NSInteger index, CGRect frame);
    static void takeView(UIViewController* controller);
    /// Ends an appearance (a disappearance) if that is what is under way; laid out before it has appeared.
    static void endAppearing(UIViewController* controller);
    static void endDisappearing(UIViewController* controller);
    /// On the screen, and neither coming nor going.
    static bool hasAppeared(const UIViewController* controller);
    static bool isAppearing(const UIViewController* controller);
    /// Whether nothing keeps it from being a child: it has no parent, is not presented, and no window's root.
    static bool isFree(const UIViewController* controller);
    static void finishTransitions(UIViewController* controller) { controller->finishTransitions(); }
};

} // namespace zr
