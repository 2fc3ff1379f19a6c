#pragma once

#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>

#include <functional>

namespace zr::testing {

/// A screen of 320 x 480 points with a white window, and a HUD in it that nothing shows yet.
class HUDTest : public ::testing::Test {
protected:
    explicit HUDTest(const NSString& version = "8.4") : host(device(320, 480, 2, version)) {}

    /// The end takes what a failed test may have left in the window.
    void TearDown() override {
        for (const Ref<UIView>& view : std::vector(window->subviews()))
            view->removeFromSuperview();
    }

    /// A HUD that stays in the window when it hides.
    Ref<ZRProgressHUD> addHUD() {
        auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithView, window);
        window->addSubview(hud);
        return hud;
    }

    HeadlessHost host;
    Ref<UIWindow> window = showWindow(UIColor::whiteColor());
};

/// Counts how often it is told, and of whom last.
class HUDDelegate : public NSObject, public ZRProgressHUDDelegate {
public:
    void hudWasHidden(ZRProgressHUD* hud) override {
        ++count;
        last = hud;
        if (onHidden)
            onHidden();
    }

    int count = 0;
    ZRProgressHUD* last = nullptr;
    std::function<void()> onHidden;
};

inline CGFloat seenAlpha(const UIView* view) { return view->layer()->presentationValues().opacity; }

inline CATransform3D seenTransform(const UIView* view) { return view->layer()->presentationValues().transform; }

/// The main label and the details label, in the order they were made.
inline UILabel* labelOf(const ZRProgressHUD* hud) { return dynamic_cast<UILabel*>(hud->subviews().at(0).get()); }
inline UILabel* detailsLabelOf(const ZRProgressHUD* hud) { return dynamic_cast<UILabel*>(hud->subviews().at(1).get()); }

} // namespace zr::testing
