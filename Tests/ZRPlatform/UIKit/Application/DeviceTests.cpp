#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>

#include <gtest/gtest.h>

using namespace zr;

TEST(DeviceProfile, IsReadFromItsDescription) {
    const auto profile = DeviceProfile::profileWithDescription("320x568@2");
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->screenSize, CGSizeMake(320, 568));
    EXPECT_EQ(profile->scale, 2);
    EXPECT_EQ(DeviceProfile::profileWithDescription("100.5x20@1.5")->scale, 1.5);
    for (const char* wrong : {"", "320", "320x568", "320x568@", "320x568@2x", "0x10@2", "-5x10@2", "20000x10@2",
                              "10x10@9", "nanxnan@2", "infx10@1"})
        EXPECT_FALSE(DeviceProfile::profileWithDescription(wrong)) << wrong;
    EXPECT_FALSE(DeviceProfile::profileWithDescription(nullptr));
}

TEST(DeviceProfile, TheFrameworkNumberFollowsTheSystemVersion) {
    const auto number = [](const char* version) {
        DeviceProfile profile;
        profile.systemVersion = version;
        return profile.foundationVersionNumber();
    };
    EXPECT_EQ(number("6.1"), 993.00);
    EXPECT_EQ(number("7.0"), 1047.20);
    EXPECT_EQ(number("7.1"), 1047.25);
    EXPECT_EQ(number("8.0"), 1140.11);
    EXPECT_EQ(number("8.4"), 1144.17);
    EXPECT_EQ(number("9.3"), 1240.1);
    EXPECT_EQ(number("10.3"), 1280.25);
    DeviceProfile old;
    old.systemVersion = "6.1";
    HeadlessHost host(old);
    EXPECT_EQ(NSFoundationVersionNumber(), 993.00);
}

TEST(UIScreen, BoundsAndScaleAreTheProfiles) {
    DeviceProfile profile = *DeviceProfile::profileWithDescription("414x736@3");
    HeadlessHost host(profile);
    EXPECT_EQ(UIScreen::mainScreen()->bounds(), CGRectMake(0, 0, 414, 736));
    EXPECT_EQ(UIScreen::mainScreen()->scale(), 3);
    EXPECT_EQ(host.application()->compositor().width(), 1242);
    EXPECT_EQ(host.application()->compositor().height(), 2208);
}

TEST(UIScreen, FollowsTheOrientationFromVersionEightOn) {
    DeviceProfile profile;
    HeadlessHost host(profile);
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->makeKeyAndVisible();
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(UIScreen::mainScreen()->bounds(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(window->frame(), CGRectMake(0, 0, 667, 375));
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationLandscapeLeft);
}

TEST(UIScreen, KeepsItsPortraitBoundsBeforeVersionEight) {
    DeviceProfile profile;
    profile.systemVersion = "7.1";
    HeadlessHost host(profile);
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(UIScreen::mainScreen()->bounds(), CGRectMake(0, 0, 375, 667));
}

TEST(UIApplication, IdleComposesNoFrames) {
    HeadlessHost host;
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->makeKeyAndVisible();
    host.advance(0);
    const auto frames = host.framesComposed();
    host.advance(3600);
    EXPECT_EQ(host.framesComposed(), frames);
    EXPECT_FALSE(host.application()->needsFrame());
}
