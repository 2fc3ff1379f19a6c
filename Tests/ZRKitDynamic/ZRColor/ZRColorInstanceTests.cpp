#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>

#include <algorithm>
#include <array>
#include <latch>
#include <thread>
#include <vector>

// The instance and its colours live as long as the process, so each test that depends on a device is a process's first
// and only user of them.

namespace zr::testing {

namespace {

using Getter = UIColor* (ZRColorInstance::*)();

constexpr Getter kBars[] = {&ZRColorInstance::navigationBarShadowColor, &ZRColorInstance::navigationBarShadowColor_red,
                            &ZRColorInstance::navigationBarShadowColor_orange};
constexpr Getter kBackgrounds[] = {&ZRColorInstance::backgroundShadowColor_green,
                                   &ZRColorInstance::backgroundShadowColor_red,
                                   &ZRColorInstance::backgroundShadowColor_orange};

CGImageRef tileOf(Getter getter) {
    UIColor* color = (ZRColorInstance::Instance()->*getter)();
    return color ? color->cgColor()->pattern() : nullptr;
}

CGSize tileSize(Getter getter) {
    return CGSizeMake(static_cast<CGFloat>(CGImageGetWidth(tileOf(getter))),
                      static_cast<CGFloat>(CGImageGetHeight(tileOf(getter))));
}

FramePixel tilePixel(Getter getter, NSUInteger x, NSUInteger y) {
    const std::uint32_t pixel = tileOf(getter)->row(y)[x];
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

void expectBars(CGSize size) {
    for (const Getter bar : kBars)
        EXPECT_EQ(tileSize(bar), size);
}

void expectEnds(Getter getter, FramePixel top, FramePixel bottom) {
    ASSERT_TRUE(tileOf(getter));
    const NSUInteger lastColumn = tileOf(getter)->width() - 1;
    const NSUInteger lastRow = tileOf(getter)->height() - 1;
    EXPECT_EQ(tilePixel(getter, 0, 0), top);
    EXPECT_EQ(tilePixel(getter, lastColumn, 0), top);
    EXPECT_EQ(tilePixel(getter, 0, lastRow), bottom);
    EXPECT_EQ(tilePixel(getter, lastColumn, lastRow), bottom);
}

} // namespace

TEST(ZRColorInstance, IsOneAndCountsNoReferences) {
    ZRColorInstance* instance = ZRColorInstance::Instance();
    ASSERT_TRUE(instance);
    EXPECT_EQ(ZRColorInstance::Instance(), instance);
    const NSUInteger count = instance->retainCount();
    EXPECT_EQ(instance->retain(), instance);
    EXPECT_EQ(instance->retainCount(), count);
    for (int i = 0; i < 5; ++i)
        instance->release();
    EXPECT_EQ(instance->retainCount(), count);
    EXPECT_EQ(ZRColorInstance::Instance(), instance);
}

TEST(ZRColorInstance, IsTheSameForThreadsThatAskAtOnce) {
    std::array<ZRColorInstance*, 8> seen{};
    std::latch start(static_cast<std::ptrdiff_t>(seen.size()));
    std::vector<std::thread> threads;
    for (ZRColorInstance*& slot : seen)
        threads.emplace_back([&slot, &start] {
            start.arrive_and_wait();
            slot = ZRColorInstance::Instance();
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const ZRColorInstance* instance : seen)
        EXPECT_EQ(instance, ZRColorInstance::Instance());
}

TEST(ZRColorInstance, KeepsEachColorOnceMade) {
    const HeadlessHost host;
    std::vector<UIColor*> colors;
    for (const Getter getter : {kBars[0], kBars[1], kBars[2], kBackgrounds[0], kBackgrounds[1], kBackgrounds[2]}) {
        colors.push_back((ZRColorInstance::Instance()->*getter)());
        EXPECT_TRUE(colors.back());
        EXPECT_EQ((ZRColorInstance::Instance()->*getter)(), colors.back());
    }
    std::sort(colors.begin(), colors.end());
    EXPECT_EQ(std::unique(colors.begin(), colors.end()), colors.end());
}

TEST(ZRColorInstance, BarsAre44HighOnVersion6) {
    const HeadlessHost host(deviceOfVersion("6.1"));
    expectBars(CGSizeMake(375, 44));
}

TEST(ZRColorInstance, BarsAre64HighOnVersion7) {
    const HeadlessHost host(deviceOfVersion("7.0"));
    expectBars(CGSizeMake(375, 64));
}

TEST(ZRColorInstance, BarsAre64HighOnVersion8) {
    const HeadlessHost host(deviceOfVersion("8.4"));
    expectBars(CGSizeMake(375, 64));
}

TEST(ZRColorInstance, BarsAre44HighOnVersion10WhichSortsBefore7) {
    const HeadlessHost host(deviceOfVersion("10.0"));
    expectBars(CGSizeMake(375, 44));
}

TEST(ZRColorInstance, TilesHaveOnePixelAPointWhateverTheScreensScale) {
    const HeadlessHost host(device(414, 736, 3));
    expectBars(CGSizeMake(414, 64));
    for (const Getter background : kBackgrounds)
        EXPECT_EQ(tileSize(background), CGSizeMake(414, 736));
}

TEST(ZRColorInstance, BarsAreOfOneColor) {
    const HeadlessHost host;
    expectEnds(kBars[0], {0, 195, 64}, {0, 195, 64});
    expectEnds(kBars[1], {255, 87, 48}, {255, 87, 48});
    expectEnds(kBars[2], {253, 131, 0}, {253, 131, 0});
    EXPECT_EQ(tilePixel(kBars[0], 187, 32), (FramePixel{0, 195, 64}));
}

TEST(ZRColorInstance, BackgroundsDarkenDownwards) {
    const HeadlessHost host;
    expectEnds(kBackgrounds[0], {0, 195, 64}, {0, 187, 61});
    expectEnds(kBackgrounds[1], {255, 87, 48}, {224, 72, 37});
    expectEnds(kBackgrounds[2], {253, 131, 0}, {229, 119, 0});
}

TEST(ZRColorInstance, ALaterTurnOfTheDeviceRebuildsNothing) {
    HeadlessHost host;
    UIColor* upright = ZRColorInstance::Instance()->backgroundShadowColor_red();
    host.rotate(UIInterfaceOrientationLandscapeRight);
    EXPECT_EQ(ZRColorInstance::Instance()->backgroundShadowColor_red(), upright);
    EXPECT_EQ(tileSize(kBackgrounds[1]), CGSizeMake(375, 667));
    // Made only now, this one is for the screen as it stands.
    EXPECT_EQ(tileSize(kBackgrounds[2]), CGSizeMake(667, 375));
}

TEST(ZRColorInstance, ShowsOnTheScreen) {
    HeadlessHost host;
    const auto window = showWindow(ZRColorInstance::Instance()->backgroundShadowColor_orange());
    const auto bar = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 375, 64));
    bar->setBackgroundColor(ZRColorInstance::Instance()->navigationBarShadowColor());
    window->addSubview(bar);
    EXPECT_EQ(host.pixel({0, 0}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({374, 63}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({374, 666}), (FramePixel{229, 119, 0}));
}

TEST(ZRColorInstance, NotificationIsItsOwnName) {
    EXPECT_EQ(NSString(kChangeThemeNotification), NSString("kChangeThemeNotification"));
}

} // namespace zr::testing
