#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <ZRPlatform/Foundation/NSLog.h>

#include <cmath>
#include <numbers>

using namespace zr;
using namespace zr::testing;

namespace {

using ZRProgressHUDRotation = HUDTest;

class CountingHUD : public ZRProgressHUD {
public:
    void setNeedsDisplay() override {
        ++displays;
        ZRProgressHUD::setNeedsDisplay();
    }
    int displays = 0;
};

/// Hears of something else, too.
class ListeningHUD : public ZRProgressHUD {
public:
    void otherNews(NSNotification*) { ++otherNewsCount; }
    int otherNewsCount = 0;
};

/// Whose windows keep their place while the device turns.
class ZRProgressHUDOldRotation : public HUDTest {
protected:
    ZRProgressHUDOldRotation() : HUDTest("7.1") {}

    void expectTurned(const ZRProgressHUD* hud, CGFloat angle, CGSize size) {
        const CGAffineTransform expected = CGAffineTransformMakeRotation(angle);
        EXPECT_NEAR(hud->transform().a, expected.a, 1e-9);
        EXPECT_NEAR(hud->transform().b, expected.b, 1e-9);
        EXPECT_NEAR(hud->transform().c, expected.c, 1e-9);
        EXPECT_NEAR(hud->transform().d, expected.d, 1e-9);
        EXPECT_NEAR(hud->bounds().size.width, size.width, 1e-9);
        EXPECT_NEAR(hud->bounds().size.height, size.height, 1e-9);
        EXPECT_EQ(hud->bounds().origin, CGPointZero);
        EXPECT_EQ(hud->center(), CGPointMake(160, 240));
    }
};

constexpr CGFloat kQuarter = std::numbers::pi / 2;

} // namespace

TEST_F(ZRProgressHUDRotation, FromVersion8TheFrameFollowsTheWindow) {
    const auto hud = addHUD();
    EXPECT_FALSE(hud->shouldPerformOrientationTransform());
    hud->show(false);
    host.advance(0);
    host.rotate(UIInterfaceOrientationLandscapeRight);
    window->setFrame(UIScreen::mainScreen()->bounds());
    host.advance(0);
    EXPECT_EQ(hud->frame(), CGRectMake(0, 0, 480, 320));
    EXPECT_EQ(hud->transform(), CGAffineTransformIdentity);
    EXPECT_EQ(hud->indicator()->frame(), CGRectMake(222, 142, 37, 37));
}

TEST_F(ZRProgressHUDRotation, TheNotificationGivesItTheBoundsOfItsSuperviewAndDrawsIt) {
    const auto hud = make<CountingHUD>(&ZRProgressHUD::initWithView, window);
    window->addSubview(hud);
    host.advance(0);
    hud->displays = 0;
    hud->setFrame(CGRectMake(1, 2, 320, 480));
    hud->statusBarOrientationDidChange(nullptr);
    EXPECT_EQ(hud->frame(), window->bounds());
    EXPECT_EQ(hud->displays, 1);
    hud->setFrame(CGRectMake(1, 2, 320, 480));
    NSNotificationCenter::defaultCenter()->postNotificationName_object(
        UIApplicationDidChangeStatusBarOrientationNotification, hud);
    EXPECT_EQ(hud->frame(), window->bounds());
}

TEST_F(ZRProgressHUDRotation, WithoutASuperviewNothingHappens) {
    const auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithFrame, CGRectMake(1, 2, 30, 40));
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(hud->frame(), CGRectMake(1, 2, 30, 40));
}

TEST_F(ZRProgressHUDRotation, UnregisteredItHearsNothing) {
    const auto hud = addHUD();
    hud->unregisterFromNotifications();
    hud->setFrame(CGRectMake(1, 2, 320, 480));
    NSNotificationCenter::defaultCenter()->postNotificationName_object(
        UIApplicationDidChangeStatusBarOrientationNotification, nullptr);
    EXPECT_EQ(hud->frame(), CGRectMake(1, 2, 320, 480));
    hud->registerForNotifications();
    NSNotificationCenter::defaultCenter()->postNotificationName_object(
        UIApplicationDidChangeStatusBarOrientationNotification, nullptr);
    EXPECT_EQ(hud->frame(), window->bounds());
}

TEST_F(ZRProgressHUDRotation, UnregistersForThisNewsOnly) {
    const auto hud = make<ListeningHUD>();
    NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(hud, selector<&ListeningHUD::otherNews>,
                                                                            "OtherNews", nullptr);
    hud->unregisterFromNotifications();
    NSNotificationCenter::defaultCenter()->postNotificationName_object("OtherNews", nullptr);
    EXPECT_EQ(hud->otherNewsCount, 1);
}

TEST_F(ZRProgressHUDRotation, TurnsItselfOnFrameworksBelow1129_15) {
    const auto hud = addHUD();
    setFoundationVersionNumber(std::nextafter(1129.15, 0));
    EXPECT_TRUE(hud->shouldPerformOrientationTransform());
    setFoundationVersionNumber(1129.15);
    EXPECT_FALSE(hud->shouldPerformOrientationTransform());
}

TEST_F(ZRProgressHUDOldRotation, IsDrawnAnewWhenItTurns) {
    const auto hud = make<CountingHUD>(&ZRProgressHUD::initWithView, window);
    window->addSubview(hud);
    host.advance(0);
    hud->displays = 0;
    hud->setTransformForCurrentOrientation(false);
    EXPECT_EQ(hud->displays, 1);
}

TEST_F(ZRProgressHUDOldRotation, BeforeVersion8AHUDInAWindowTurnsItself) {
    const auto hud = addHUD();
    EXPECT_TRUE(hud->shouldPerformOrientationTransform());
    expectTurned(hud, 0, {320, 480});
    host.rotate(UIInterfaceOrientationLandscapeRight);
    expectTurned(hud, kQuarter, {480, 320});
    host.rotate(UIInterfaceOrientationPortraitUpsideDown);
    expectTurned(hud, 2 * kQuarter, {320, 480});
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    expectTurned(hud, -kQuarter, {480, 320});
    host.rotate(UIInterfaceOrientationPortrait);
    expectTurned(hud, 0, {320, 480});
}

TEST_F(ZRProgressHUDOldRotation, TheTurnTakesThreeTenthsOfASecond) {
    const auto hud = addHUD();
    hud->show(false);
    host.advance(0);
    host.rotate(UIInterfaceOrientationLandscapeRight);
    EXPECT_EQ(seenTransform(hud).m11, 1);
    host.advance(0.15);
    EXPECT_NEAR(seenTransform(hud).m12, std::sin(kQuarter / 2), 1e-6);
    EXPECT_TRUE(hud->layer()->hasAnimations());
    host.advance(0.15);
    EXPECT_NEAR(seenTransform(hud).m12, 1, 1e-9);
    EXPECT_FALSE(hud->layer()->hasAnimations());
}

TEST_F(ZRProgressHUDOldRotation, AHUDThatIsAddedIsTurnedAtOnce) {
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    const auto hud = addHUD();
    EXPECT_FALSE(hud->layer()->hasAnimations());
    expectTurned(hud, -kQuarter, {480, 320});
    // Laid out, it still covers the window, and what is in it lies across.
    host.advance(0);
    expectTurned(hud, -kQuarter, {480, 320});
    EXPECT_EQ(hud->indicator()->frame(), CGRectMake(222, 142, 37, 37));
}

TEST_F(ZRProgressHUDOldRotation, ScalesComeOnTopOfTheTurn) {
    host.rotate(UIInterfaceOrientationLandscapeRight);
    const auto hud = addHUD();
    hud->setAnimationType(ZRProgressHUDAnimationGrow);
    hud->show(true);
    EXPECT_NEAR(seenTransform(hud).m12, 0.5, 1e-9);
    EXPECT_NEAR(seenTransform(hud).m11, 0, 1e-9);
    expectTurned(hud, kQuarter, {480, 320});
    host.advance(0.3);
    hud->hide(true);
    EXPECT_NEAR(hud->transform().b, 1.5, 1e-9);
    EXPECT_NEAR(hud->transform().c, -1.5, 1e-9);
    host.advance(0.3);
    hud->setAnimationType(ZRProgressHUDAnimationShrink);
    hud->show(true);
    EXPECT_NEAR(seenTransform(hud).m12, 1.5, 1e-9);
    host.advance(0.3);
    hud->hide(true);
    EXPECT_NEAR(hud->transform().b, 0.5, 1e-9);
}

TEST_F(ZRProgressHUDOldRotation, AHUDInAnotherViewLeavesTurningToThatView) {
    const auto view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 200, 100));
    window->addSubview(view);
    const auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithView, view);
    EXPECT_FALSE(hud->shouldPerformOrientationTransform()); // in none
    view->addSubview(hud);
    EXPECT_FALSE(hud->shouldPerformOrientationTransform());
    view->setFrame(CGRectMake(0, 0, 300, 50));
    host.rotate(UIInterfaceOrientationLandscapeRight);
    EXPECT_EQ(hud->transform(), CGAffineTransformIdentity);
    EXPECT_EQ(hud->frame(), CGRectMake(0, 0, 300, 50));
}

TEST_F(ZRProgressHUDOldRotation, WithoutASuperviewItTurnsItsOwnBounds) {
    const auto hud = make<ZRProgressHUD>(&ZRProgressHUD::initWithFrame, CGRectMake(0, 0, 30, 40));
    host.rotate(UIInterfaceOrientationLandscapeRight);
    hud->setTransformForCurrentOrientation(false);
    EXPECT_EQ(hud->bounds(), CGRectMake(0, 0, 40, 30));
    EXPECT_NEAR(hud->transform().b, 1, 1e-9);
}
