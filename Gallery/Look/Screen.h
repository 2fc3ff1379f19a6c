#pragma once

#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>

namespace zr::gallery {

/// The base of the gallery's screens: the kit's bar in the hue that was chosen, which it follows.
class Screen : public ZRTViewController {
public:
    bool initWithTitle(const NSString& title);
    ~Screen() override;

    void viewDidLoad() override;
    /// All, upside down too, so that components can be seen to turn.
    NSUInteger supportedInterfaceOrientations() const override { return UIInterfaceOrientationMaskAll; }

protected:
    /// What the bar leaves of the view.
    CGRect contentFrame();

private:
    void applyTheme();
};

} // namespace zr::gallery
