#pragma once

#include <Gallery/Look/TapControl.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::gallery {

/// The coloured bar at the top of a screen: 20 points for the status bar, then 44 for a centred title and, on pages, a
/// button that leads back. Its colour is the theme registry's and follows `kChangeThemeNotification`.
class NavigationBar : public UIView {
public:
    bool initWithFrame_title(CGRect frame, const NSString& title);
    ~NavigationBar() override;

    /// Shows the button; `action` runs when it is tapped.
    void setBackTitle_action(const NSString& title, std::function<void()> action);

private:
    void applyTheme();

    Ref<UIView> m_statusBarArea;
    Ref<UILabel> m_title;
};

} // namespace zr::gallery
