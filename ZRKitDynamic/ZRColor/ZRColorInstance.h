#pragma once

#include <ZRPlatform/UIKit/Images/UIColor.h>

#include <array>

#pragma GCC visibility push(default)
namespace zr {

/// The notification that an application posts when it has changed its theme. The kit neither posts nor observes it.
inline constexpr const char* kChangeThemeNotification = "kChangeThemeNotification";

/// The theme colours of the process: a navigation bar and a full-screen background in each of three hues. All six are
/// patterns of one pixel a point; the bars are of one colour, the backgrounds darken downwards.
///
/// Each is made when first read, for the screen size and system version of that moment, and kept. Main thread only, but
/// for `Instance`.
class ZRColorInstance : public NSObject {
public:
    /// The one instance. It lives as long as the process.
    static ZRColorInstance* Instance();

    /// The green bar. Each bar colour is as wide as the screen, and 64 points high, or 44 where the system version
    /// sorts before "7.0".
    UIColor* navigationBarShadowColor() { return color(NavigationBarGreen); }
    /// The green background. Each background is as large as the screen.
    UIColor* backgroundShadowColor_green() { return color(BackgroundGreen); }
    /// The red bar, of the same size as the green one.
    UIColor* navigationBarShadowColor_red() { return color(NavigationBarRed); }
    /// The red background, as large as the screen.
    UIColor* backgroundShadowColor_red() { return color(BackgroundRed); }
    /// The orange bar, of the same size as the green one.
    UIColor* navigationBarShadowColor_orange() { return color(NavigationBarOrange); }
    /// The orange background, as large as the screen.
    UIColor* backgroundShadowColor_orange() { return color(BackgroundOrange); }

    /// Nobody owns the instance: these count nothing.
    NSObject* retain() override { return this; }
    /// As for `retain`.
    void release() override {}

private:
    enum ThemeColor {
        NavigationBarGreen,
        BackgroundGreen,
        NavigationBarRed,
        BackgroundRed,
        NavigationBarOrange,
        BackgroundOrange,
        ThemeColorCount,
    };

    ZRColorInstance() = default;

    UIColor* color(ThemeColor themeColor);

    std::array<Ref<UIColor>, ThemeColorCount> m_colors;
};

} // namespace zr
#pragma GCC visibility pop
