#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/Views/UIWindow.h>

#include <gtest/gtest.h>

using namespace zr;

namespace {

class UIWindowTest : public testing::Test {
protected:
    HeadlessHost host;

    Ref<UIWindow> makeWindow(UIColor* color, UIWindowLevel level = UIWindowLevelNormal) {
        auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        window->setBackgroundColor(color);
        window->setWindowLevel(level);
        return window;
    }
    std::vector<UIWindow*> shown() { return host.application()->windows(); }
};

class Typist : public UIView {
public:
    bool canBecomeFirstResponder() const override { return true; }
    bool canResignFirstResponder() const override { return !stubborn; }
    bool stubborn = false;
};

} // namespace

TEST_F(UIWindowTest, IsHiddenUntilItIsMadeVisible) {
    auto window = makeWindow(UIColor::redColor());
    EXPECT_TRUE(window->isHidden());
    EXPECT_TRUE(shown().empty());
    window->makeKeyAndVisible();
    EXPECT_FALSE(window->isHidden());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(host.pixel({1, 1}), (FramePixel{255, 0, 0}));
}

TEST_F(UIWindowTest, LevelsComeBeforeTheOrderOfShowing) {
    auto alert = makeWindow(UIColor::redColor(), UIWindowLevelAlert - 1);
    auto first = makeWindow(UIColor::blueColor()), second = makeWindow(UIColor::greenColor());
    alert->makeKeyAndVisible();
    first->makeKeyAndVisible();
    second->makeKeyAndVisible();
    EXPECT_EQ(shown(), (std::vector<UIWindow*>{first, second, alert}));
    first->makeKeyAndVisible();
    EXPECT_EQ(shown(), (std::vector<UIWindow*>{second, first, alert}));
    second->setWindowLevel(3000);
    EXPECT_EQ(shown(), (std::vector<UIWindow*>{first, alert, second}));
    EXPECT_EQ(host.pixel({1, 1}), (FramePixel{0, 255, 0}));
}

TEST_F(UIWindowTest, TheFormerKeyWindowIsKeyAgainWhenAnotherResigns) {
    auto main = makeWindow(UIColor::redColor()), alert = makeWindow(UIColor::blueColor(), UIWindowLevelAlert);
    main->makeKeyAndVisible();
    alert->makeKeyAndVisible();
    alert->becomeKeyWindow();
    EXPECT_TRUE(alert->isKeyWindow());
    EXPECT_FALSE(main->isKeyWindow());
    alert->resignKeyWindow();
    EXPECT_TRUE(main->isKeyWindow());
    alert->resignKeyWindow();
    EXPECT_TRUE(main->isKeyWindow());
    alert->becomeKeyWindow();
    EXPECT_TRUE(alert->isKeyWindow());
    EXPECT_FALSE(main->isKeyWindow());
    const auto unseen = makeWindow(UIColor::greenColor());
    unseen->becomeKeyWindow();
    EXPECT_TRUE(unseen->isKeyWindow());
    EXPECT_TRUE(unseen->isHidden());
}

TEST_F(UIWindowTest, AWindowWhoseLastReferenceGoesLeavesTheScreen) {
    auto main = makeWindow(UIColor::redColor()), alert = makeWindow(UIColor::blueColor(), UIWindowLevelAlert);
    main->makeKeyAndVisible();
    alert->makeKeyAndVisible();
    alert = nullptr;
    EXPECT_EQ(shown(), std::vector<UIWindow*>{main});
    EXPECT_TRUE(main->isKeyWindow());
    EXPECT_EQ(host.pixel({1, 1}), (FramePixel{255, 0, 0}));
}

TEST_F(UIWindowTest, HidingTakesTheKeyAway) {
    auto main = makeWindow(UIColor::redColor()), other = makeWindow(UIColor::blueColor());
    main->makeKeyAndVisible();
    other->makeKeyAndVisible();
    other->setHidden(true);
    EXPECT_TRUE(main->isKeyWindow());
    main->setHidden(true);
    EXPECT_EQ(host.application()->keyWindow(), nullptr);
}

TEST_F(UIWindowTest, ChangesOfTheKeyWindowArePosted) {
    class Listener : public NSObject {
    public:
        void became(NSNotification*) { ++becameKey; }
        void resigned(NSNotification*) { ++resignedKey; }
        int becameKey = 0, resignedKey = 0;
    };
    auto listener = make<Listener>();
    auto* center = NSNotificationCenter::defaultCenter();
    center->addObserver_selector_name_object(listener, selector<&Listener::became>, UIWindowDidBecomeKeyNotification,
                                             nullptr);
    center->addObserver_selector_name_object(listener, selector<&Listener::resigned>, UIWindowDidResignKeyNotification,
                                             nullptr);
    auto first = makeWindow(nullptr), second = makeWindow(nullptr);
    first->makeKeyAndVisible();
    EXPECT_EQ(listener->becameKey, 1);
    second->makeKeyAndVisible();
    second->becomeKeyWindow();
    EXPECT_EQ(listener->becameKey, 2);
    EXPECT_EQ(listener->resignedKey, 1);
    second->resignKeyWindow();
    EXPECT_EQ(listener->becameKey, 3);
    EXPECT_EQ(listener->resignedKey, 2);
}

TEST_F(UIWindowTest, EachWindowKeepsItsFirstResponder) {
    auto main = makeWindow(nullptr), alert = makeWindow(nullptr, UIWindowLevelAlert);
    auto a = make<Typist>(), b = make<Typist>();
    main->addSubview(a);
    alert->addSubview(b);
    EXPECT_FALSE(make<Typist>()->becomeFirstResponder());
    main->makeKeyAndVisible();
    EXPECT_TRUE(a->becomeFirstResponder());
    EXPECT_EQ(host.application()->firstResponder(), a.get());
    alert->makeKeyAndVisible();
    EXPECT_EQ(host.application()->firstResponder(), nullptr);
    EXPECT_TRUE(b->becomeFirstResponder());
    EXPECT_TRUE(a->isFirstResponder());
    EXPECT_EQ(host.application()->firstResponder(), b.get());
    alert = nullptr;
    EXPECT_EQ(host.application()->firstResponder(), a.get());
}

TEST_F(UIWindowTest, AResponderThatWillNotResignStaysFirst) {
    auto window = makeWindow(nullptr);
    auto a = make<Typist>(), b = make<Typist>();
    window->addSubview(a);
    window->addSubview(b);
    window->makeKeyAndVisible();
    EXPECT_TRUE(a->becomeFirstResponder());
    a->stubborn = true;
    EXPECT_FALSE(b->becomeFirstResponder());
    EXPECT_FALSE(a->resignFirstResponder());
    EXPECT_TRUE(a->isFirstResponder());
    a->stubborn = false;
    EXPECT_TRUE(b->becomeFirstResponder());
    EXPECT_FALSE(a->isFirstResponder());
    b->removeFromSuperview();
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST(UIApplication, ItsEndTakesTheViewsOffTheShownWindows) {
    /// Keeps the view it is shown in, as an overlay does.
    class Overlay : public UIView {
    public:
        Ref<UIView> place;
    };
    Weak<Overlay> inWindow, inView;
    {
        HeadlessHost host;
        auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
        auto first = make<Overlay>(), second = make<Overlay>();
        auto place = make<UIView>();
        window->addSubview(place);
        window->addSubview(first);
        place->addSubview(second);
        first->place = window;
        second->place = place;
        window->makeKeyAndVisible();
        inWindow = first;
        inView = second;
    }
    EXPECT_EQ(inWindow.get(), nullptr);
    EXPECT_EQ(inView.get(), nullptr);
}

TEST_F(UIWindowTest, AHiddenKeyWindowThatGoesGivesTheKeyBack) {
    auto main = makeWindow(nullptr), hidden = makeWindow(nullptr);
    main->makeKeyAndVisible();
    hidden->makeKeyWindow();
    EXPECT_TRUE(hidden->isKeyWindow());
    hidden = nullptr;
    EXPECT_TRUE(main->isKeyWindow());
}

TEST_F(UIWindowTest, EndEditingAsksUnlessItIsForced) {
    auto window = makeWindow(nullptr);
    auto typist = make<Typist>();
    window->addSubview(typist);
    window->makeKeyAndVisible();
    typist->becomeFirstResponder();
    typist->stubborn = true;
    EXPECT_FALSE(window->endEditing(false));
    EXPECT_TRUE(typist->isFirstResponder());
    EXPECT_TRUE(window->endEditing(true));
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UIWindowTest, AStubbornResponderCannotStayInAWindowItLeaves) {
    auto window = makeWindow(nullptr);
    auto typist = make<Typist>();
    window->addSubview(typist);
    window->makeKeyAndVisible();
    typist->becomeFirstResponder();
    typist->stubborn = true;
    typist->removeFromSuperview();
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UIWindowTest, ATurnedScreenIsPaintedAlsoBehindASmallerWindow) {
    auto window = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 100, 100));
    window->setBackgroundColor(UIColor::redColor());
    window->makeKeyAndVisible();
    host.advance(0);
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(host.pixel({10, 10}), (FramePixel{255, 0, 0}));
}

TEST_F(UIWindowTest, AViewThatLeavesWhileItsTreeMovesInIsNowhere) {
    class Leaver : public UIView {
    public:
        void didMoveToWindow() override {
            if (window())
                superview()->removeFromSuperview();
        }
    };
    auto window = makeWindow(nullptr);
    auto parent = make<UIView>(), later = make<UIView>();
    auto leaver = make<Leaver>();
    parent->addSubview(leaver);
    parent->addSubview(later);
    window->addSubview(parent);
    EXPECT_EQ(parent->window(), nullptr);
    EXPECT_EQ(leaver->window(), nullptr);
    EXPECT_EQ(later->window(), nullptr);
}
