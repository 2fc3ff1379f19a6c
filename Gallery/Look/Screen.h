#pragma once

#include <ZRKitDynamic/ZRTNavigationController/ZRTTableViewController.h>

namespace zr::gallery {

/// What the gallery adds to a screen of the kit: a title from the start, and the hue that was chosen for the bar, which
/// it follows.
template <class KitScreen>
class ScreenOf : public KitScreen {
public:
    bool initWithTitle(const NSString& title);
    ~ScreenOf() override;

    void viewDidLoad() override;
    /// All, upside down too, so that components can be seen to turn.
    NSUInteger supportedInterfaceOrientations() const override { return UIInterfaceOrientationMaskAll; }

private:
    void applyTheme();
};

extern template class ScreenOf<ZRTViewController>;
extern template class ScreenOf<ZRTTableViewController>;

using Screen = ScreenOf<ZRTViewController>;
using TableScreen = ScreenOf<ZRTTableViewController>;

} // namespace zr::gallery
