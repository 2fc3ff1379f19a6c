#pragma once

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <gtest/gtest.h>

#include <ostream>

namespace zr {

inline std::ostream& operator<<(std::ostream& stream, const CGPoint& point) {
    return stream << '(' << point.x << ", " << point.y << ')';
}

inline std::ostream& operator<<(std::ostream& stream, const CGSize& size) {
    return stream << size.width << " x " << size.height;
}

inline std::ostream& operator<<(std::ostream& stream, const CGRect& rect) {
    return stream << rect.origin << ' ' << rect.size;
}

inline std::ostream& operator<<(std::ostream& stream, const RGBAColor& color) {
    return stream << '(' << color.red * 255 << ", " << color.green * 255 << ", " << color.blue * 255 << ") alpha "
                  << color.alpha;
}

} // namespace zr

namespace zr::testing {

inline DeviceProfile device(CGFloat width, CGFloat height, CGFloat scale = 2, const NSString& version = "8.4") {
    DeviceProfile profile;
    profile.screenSize = CGSizeMake(width, height);
    profile.scale = scale;
    profile.systemVersion = version;
    return profile;
}

inline DeviceProfile deviceOfVersion(const NSString& version) { return device(375, 667, 2, version); }

/// The colour that a view, label or layer shows, not premultiplied; transparent black for nil and for patterns.
inline RGBAColor rgba(const UIColor* color) { return color ? color->cgColor()->rgba() : RGBAColor{}; }

/// Components 0..255.
inline RGBAColor rgb(int red, int green, int blue, CGFloat alpha = 1) {
    return {red / 255.0, green / 255.0, blue / 255.0, alpha};
}

inline const RGBAColor kClear{0, 0, 0, 0};

/// The first subview of class `T`; nil when there is none.
template <class T>
T* subviewOfClass(const UIView* view) {
    for (const Ref<UIView>& subview : view->subviews()) {
        if (auto* found = dynamic_cast<T*>(subview.get()))
            return found;
    }
    return nullptr;
}

/// The middle of a view on the screen, where a finger touches it.
inline CGPoint middleOnScreen(const UIView* view) {
    const CGRect bounds = view->bounds();
    return view->convertPoint_toView({CGRectGetMidX(bounds), CGRectGetMidY(bounds)}, nullptr);
}

/// An application's window of one colour, on the screen and key.
inline Ref<UIWindow> showWindow(UIColor* color) {
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->setBackgroundColor(color);
    window->makeKeyAndVisible();
    return window;
}

} // namespace zr::testing
