#pragma once

#include <ZRPlatform/UIKit/Controllers/Internal/ViewGlide.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>

namespace zr {

/// One controller over another, from its coming to its going. The presenter keeps it, and it keeps what is presented.
class Presentation : public NSObject {
public:
    bool initWithPresenter_presented(UIViewController* presenter, UIViewController* presented);

    /// Nil once it is gone.
    UIViewController* presenter() const { return m_presenter; }
    UIViewController* presented() const { return m_presented; }
    bool isComing() const { return m_phase == Phase::Coming; }
    bool isGoing() const { return m_phase == Phase::Going; }

    void present(bool animated, std::function<void()> completion);
    /// With whatever is presented on top.
    void dismiss(bool animated, std::function<void()> completion);
    /// Ends what glides, here and on top.
    void finish();
    /// The same, from the lowest of those that go together.
    void finishAll();
    /// What is presented leaves the screen at once, and the presenter does not come back for it.
    void takeAway();

private:
    enum class Phase { Coming, There, Going };

    void putPresenterBack(UIWindow* window);
    void glide(UIViewController* foremost, bool isComing, void (Presentation::*done)());
    void endGlide();
    void hasCome();
    void hasGone();
    std::vector<Ref<UIViewController>> stack() const;
    static void unlink(const std::vector<Ref<UIViewController>>& stack);

    UIViewController* m_presenter = nullptr;
    Ref<UIViewController> m_presented;
    Phase m_phase = Phase::Coming;
    /// The presenter disappears, and whether its view is taken out of the window meanwhile.
    bool m_hidesPresenter = true;
    bool m_tookPresenter = false;
    CGRect m_presenterFrame;
    /// Takes the touches while the views glide.
    Ref<UIView> m_shield;
    Ref<ViewGlide> m_glide;
    void (Presentation::*m_done)() = nullptr;
    std::function<void()> m_completion;
};

} // namespace zr
