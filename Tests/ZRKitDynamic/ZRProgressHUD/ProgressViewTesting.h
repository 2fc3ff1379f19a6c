#pragma once

#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

#include <cmath>
#include <cstdint>
#include <numbers>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace zr::testing {

inline constexpr double kPi = std::numbers::pi;

/// What `drawRect` draws for `rect` into a clear bitmap as large as the view.
inline Ref<UIImage> pictureOf(UIView* view, CGFloat scale, CGRect rect) {
    UIGraphicsBeginImageContextWithOptions(view->bounds().size, false, scale);
    view->drawRect(rect);
    auto picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

inline Ref<UIImage> pictureOf(UIView* view, CGFloat scale = 16) { return pictureOf(view, scale, view->bounds()); }

/// The name of the plain colour at a point; of other colours the premultiplied alpha, red, green and blue in hex.
inline std::string inkAt(const UIImage* picture, CGFloat x, CGFloat y) {
    const CGImage* bitmap = picture->CGImage();
    const auto column = static_cast<NSUInteger>(x * picture->scale());
    const auto row = static_cast<NSUInteger>(y * picture->scale());
    if (x < 0 || y < 0 || column >= bitmap->width() || row >= bitmap->height())
        return "outside";
    const std::uint32_t pixel = bitmap->row(row)[column];
    switch (pixel) {
    case 0:
        return "nothing";
    case 0xFFFFFFFF:
        return "white";
    case 0xFFFF0000:
        return "red";
    case 0xFF00FF00:
        return "green";
    case 0xFF0000FF:
        return "blue";
    }
    std::ostringstream hex;
    hex << std::hex << pixel;
    return hex.str();
}

inline bool samePictures(const UIImage* a, const UIImage* b) {
    const CGImage *one = a->CGImage(), *other = b->CGImage();
    if (one->width() != other->width() || one->height() != other->height())
        return false;
    for (NSUInteger y = 0; y < one->height(); ++y) {
        if (!std::equal(one->row(y), one->row(y) + one->width(), other->row(y)))
            return false;
    }
    return true;
}

/// The area that is painted, in points, from the alpha of each pixel.
inline double paintedArea(const UIImage* picture) {
    double sum = 0;
    const CGImage* bitmap = picture->CGImage();
    for (NSUInteger y = 0; y < bitmap->height(); ++y) {
        for (NSUInteger x = 0; x < bitmap->width(); ++x)
            sum += bitmap->row(y)[x] >> 24;
    }
    return sum / 255 / (picture->scale() * picture->scale());
}

/// To half a percent; nothing where nothing is expected.
inline void expectArea(double painted, double expected, double progress) {
    if (expected == 0)
        EXPECT_EQ(painted, 0) << progress;
    else
        EXPECT_NEAR(painted, expected, expected * 0.005) << progress;
}

/// A view that notes what happens to it, with a key of its own.
template <class View>
class Watched : public View {
public:
    struct Told {
        NSString keyPath;
        NSObject* object;
        bool hasNew, hasOld;
        void* context;
    };

    int mood() const { return m_mood; }
    void setMood(int mood) { this->setObservable(m_mood, mood, "mood"); }

    std::vector<NSString> observableKeypaths() const override {
        auto keypaths = View::observableKeypaths();
        keypaths.push_back("mood");
        return keypaths;
    }
    void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                        const NSKeyValueChange& change, void* context) override {
        told.push_back({keyPath, object, !change.newValue.isNil(), !change.oldValue.isNil(), context});
        View::observeValueForKeyPath_ofObject_change_context(keyPath, object, change, context);
    }
    void setNeedsDisplay() override {
        ++timesAsked;
        asker = std::this_thread::get_id();
        View::setNeedsDisplay();
    }
    void drawRect(CGRect rect) override {
        ++timesDrawn;
        View::drawRect(rect);
    }

    std::vector<Told> told;
    int timesAsked = 0;
    int timesDrawn = 0;
    std::thread::id asker;

protected:
    const KeyTable& keyTable() const override {
        static const KeyTable table(View::keyTable(), {key<&Watched::mood, &Watched::setMood>("mood")});
        return table;
    }

private:
    int m_mood = 0;
};

/// Setting what each key holds already draws the view anew, once a frame, and tells it of the new value.
template <class View>
void expectEveryKeyRedraws(HeadlessHost& host, const std::vector<NSString>& keys) {
    const auto window = showWindow(UIColor::blackColor());
    const auto view = make<Watched<View>>();
    window->addSubview(view);
    host.advance(0);
    for (const NSString& key : keys) {
        SCOPED_TRACE(key.UTF8String());
        view->told.clear();
        const int timesDrawn = view->timesDrawn;
        view->setValue_forKey(view->valueForKey(key), key);
        ASSERT_EQ(view->told.size(), 1u);
        EXPECT_EQ(view->told[0].keyPath, key);
        EXPECT_EQ(view->told[0].object, view.get());
        EXPECT_TRUE(view->told[0].hasNew);
        EXPECT_FALSE(view->told[0].hasOld);
        EXPECT_EQ(view->told[0].context, nullptr);
        EXPECT_EQ(view->timesDrawn, timesDrawn);
        host.advance(0);
        EXPECT_EQ(view->timesDrawn, timesDrawn + 1);
        host.advance(0);
        EXPECT_EQ(view->timesDrawn, timesDrawn + 1);
    }
}

/// Nothing is drawn anew between unregistering and registering.
template <class View>
void expectUnregisteringStopsRedrawing(const std::vector<NSString>& keys) {
    const auto view = make<Watched<View>>();
    view->unregisterFromKVO();
    view->timesAsked = 0;
    for (const NSString& key : keys)
        view->setValue_forKey(view->valueForKey(key), key);
    EXPECT_EQ(view->timesAsked, 0);
    view->registerForKVO();
    for (const NSString& key : keys)
        view->setValue_forKey(view->valueForKey(key), key);
    EXPECT_EQ(view->timesAsked, static_cast<int>(keys.size()));
}

/// Whatever it is told of, the view draws itself anew.
template <class View>
void expectAnyChangeRedraws() {
    const auto view = make<Watched<View>>();
    view->timesAsked = 0;
    view->observeValueForKeyPath_ofObject_change_context("something else", nullptr, {}, nullptr);
    EXPECT_EQ(view->timesAsked, 1);
}

/// A value set on another thread marks the view there, at once.
template <class View>
void expectNoHopBetweenThreads() {
    const auto view = make<Watched<View>>();
    view->timesAsked = 0;
    std::thread::id setter;
    std::thread([&] {
        setter = std::this_thread::get_id();
        view->setProgress(0.5f);
        EXPECT_EQ(view->timesAsked, 1);
    }).join();
    EXPECT_EQ(view->asker, setter);
}

/// Observing itself does not keep a view alive.
template <class View>
void expectGoesAwayWithTheLastReference() {
    auto view = make<View>();
    const Weak<View> weak(view);
    view->setProgress(0.5f);
    EXPECT_TRUE(weak.lock());
    view = nullptr;
    EXPECT_FALSE(weak.lock());
}

} // namespace zr::testing
