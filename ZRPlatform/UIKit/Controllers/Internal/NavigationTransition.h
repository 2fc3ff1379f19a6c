#pragma once

#include <ZRPlatform/UIKit/Controllers/Internal/ViewGlide.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr {

/// One screen of a navigation controller takes another's place. The navigation controller keeps it until the end.
class NavigationTransition : public NSObject {
public:
    /// Either screen may be nil.
    bool initWithController_from_to_isPush(UINavigationController* controller, UIViewController* from,
                                           UIViewController* to, bool isPush);

    void runAtOnce();
    void runAnimated();
    /// A pop that a finger carries: 0..1.
    void beginByHand();
    void carryTo(CGFloat progress);
    /// The finger lets go: the rest glides either way.
    void letGo(bool completes);
    /// The end, now: where it glides to; what a finger still holds goes back.
    void finish();

private:
    bool tellBeginning(bool animated);
    void putUpcoming(UINavigationController* controller);
    void setUpGlide();
    void turnRound();
    void glideOn(CGFloat progress, NSTimeInterval duration, UIViewAnimationCurve curve);
    void end();

    /// Nil once it is over.
    UINavigationController* m_controller = nullptr;
    Ref<UIViewController> m_from;
    Ref<UIViewController> m_to;
    bool m_isPush = true;
    bool m_isAnimated = false;
    bool m_isHeld = false;
    bool m_isGoingBack = false;
    Ref<ViewGlide> m_glide;
    /// Dims the lower screen.
    Ref<UIView> m_shade;
    std::vector<Ref<UIViewController>> m_entering;
    std::vector<Ref<UIViewController>> m_leaving;
};

} // namespace zr
