#pragma once

#include <Tests/ZRPlatform/CoreGraphics/GeometryPrinting.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <utility>
#include <vector>

namespace zr {

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

/// Observes a key, and notes what the value was each time it was told.
template <class Value>
class KeyWatcher : public NSObject {
public:
    KeyWatcher(NSObject* object, const char* key, std::function<Value()> value) : m_value(std::move(value)) {
        object->addObserver_forKeyPath_options_context(this, key, 0, nullptr);
    }
    void observeValueForKeyPath_ofObject_change_context(const NSString&, NSObject*, const NSKeyValueChange&,
                                                        void*) override {
        values.push_back(m_value());
        if (onChange)
            onChange();
    }

    std::vector<Value> values;
    std::function<void()> onChange;

private:
    std::function<Value()> m_value;
};

/// Counts what a control sends for one kind of event.
class EventCounter : public NSObject {
public:
    EventCounter(UIControl* control, NSUInteger events) {
        control->addTarget_action_forControlEvents(this, selector<&EventCounter::happened>, events);
    }
    void happened() { ++count; }

    int count = 0;
};

/// An application's window of one colour, on the screen and key.
inline Ref<UIWindow> showWindow(UIColor* color) {
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->setBackgroundColor(color);
    window->makeKeyAndVisible();
    return window;
}

} // namespace zr::testing
