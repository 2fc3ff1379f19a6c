#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>

#include <ZRKitDynamic/SystemVersionInternal.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRPlatform/Dispatch/Dispatch.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

namespace zr {

namespace {

struct RGB {
    std::int32_t red, green, blue;
};

enum class Area { NavigationBar, Screen };

struct Gradient {
    RGB top, bottom;
    Area area;
};

/// In the order of `ZRColorInstance::ThemeColor`. The bars are gradients too, of one colour, so that every theme colour
/// is of the same kind.
constexpr Gradient kGradients[] = {
    {{0, 195, 64}, {0, 195, 64}, Area::NavigationBar},   {{0, 195, 64}, {0, 187, 61}, Area::Screen},
    {{255, 87, 48}, {255, 87, 48}, Area::NavigationBar}, {{255, 87, 48}, {224, 72, 37}, Area::Screen},
    {{253, 131, 0}, {253, 131, 0}, Area::NavigationBar}, {{253, 131, 0}, {229, 119, 0}, Area::Screen},
};

CGSize sizeOf(Area area) {
    const CGSize screen = UIScreen::mainScreen()->bounds().size;
    if (area == Area::Screen)
        return screen;
    return CGSizeMake(screen.width, systemVersionSortsFrom7() ? 64 : 44);
}

Ref<UIColor> opaqueColor(const RGB& color) {
    return ZRColor::zrColorWithRed_green_blue_alpha(color.red, color.green, color.blue, 1);
}

} // namespace

ZRColorInstance* ZRColorInstance::Instance() {
    static dispatch_once_t once;
    static ZRColorInstance* instance;
    dispatch_once(&once, [] { instance = new ZRColorInstance; });
    return instance;
}

UIColor* ZRColorInstance::color(ThemeColor themeColor) {
    static_assert(std::size(kGradients) == ThemeColorCount);
    Ref<UIColor>& cached = m_colors[themeColor];
    if (!cached) {
        const Gradient& gradient = kGradients[themeColor];
        cached = ZRColor::shadowColorFromColors_size({opaqueColor(gradient.top), opaqueColor(gradient.bottom)},
                                                     sizeOf(gradient.area));
    }
    return cached;
}

} // namespace zr
