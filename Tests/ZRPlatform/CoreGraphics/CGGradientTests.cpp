#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

using namespace zr;

namespace {

constexpr CGGradientOptions kBefore = kCGGradientDrawsBeforeStartLocation;
constexpr CGGradientOptions kAfter = kCGGradientDrawsAfterEndLocation;
constexpr RGBAColor kFirst{1, 0.2, 0, 1};
constexpr RGBAColor kSecond{0, 0.8, 1, 1};

Ref<CGGradient> twoColours(RGBAColor a = kFirst, RGBAColor b = kSecond) {
    const CGFloat components[] = {a.red, a.green, a.blue, a.alpha, b.red, b.green, b.blue, b.alpha};
    return CGGradientCreateWithColorComponents(CGColorSpaceCreateDeviceRGB(), components, nullptr, 2);
}

/// The colour at `t` between two colours, blended before premultiplying.
Pixel blended(CGFloat t, RGBAColor a = kFirst, RGBAColor b = kSecond) {
    const CGFloat alpha = a.alpha + (b.alpha - a.alpha) * t;
    const auto byte = [&](CGFloat from, CGFloat to) {
        return static_cast<int>(std::lround(255 * alpha * (from + (to - from) * t)));
    };
    return {byte(a.red, b.red), byte(a.green, b.green), byte(a.blue, b.blue),
            static_cast<int>(std::lround(255 * alpha))};
}

} // namespace

TEST(CGGradient, SpacesColoursEvenlyWithoutLocations) {
    std::vector<Ref<CGColor>> colors;
    for (int i = 0; i < 3; ++i) {
        const CGFloat components[] = {i / 4.0, 1};
        colors.push_back(CGColorCreate(CGColorSpaceCreateDeviceGray(), components));
    }
    const auto gradient = CGGradientCreateWithColors(nullptr, colors, nullptr);
    ASSERT_EQ(gradient->stops().size(), 3u);
    EXPECT_EQ(gradient->stops()[0].location, 0);
    EXPECT_EQ(gradient->stops()[1].location, 0.5);
    EXPECT_EQ(gradient->stops()[2].location, 1);
    EXPECT_EQ(gradient->stops()[2].color, (RGBAColor{0.5, 0.5, 0.5, 1}));
    EXPECT_NEAR(gradient->colorAt(0.25).green, 0.125, 1e-12);
}

TEST(CGGradient, SortsAndClampsLocations) {
    const CGFloat components[] = {0.1, 1, 0.2, 1, 0.3, 1};
    const CGFloat locations[] = {2, 0.5, -1};
    const auto gradient = CGGradientCreateWithColorComponents(CGColorSpaceCreateDeviceGray(), components, locations, 3);
    EXPECT_EQ(gradient->stops()[0].location, 0);
    EXPECT_EQ(gradient->stops()[0].color.red, 0.3);
    EXPECT_EQ(gradient->stops()[2].location, 1);
    EXPECT_EQ(gradient->stops()[2].color.red, 0.1);
    EXPECT_EQ(gradient->colorAt(-5).red, 0.3);
    EXPECT_EQ(gradient->colorAt(5).red, 0.1);
}

TEST(CGGradient, NoColoursMakeNoGradient) {
    EXPECT_EQ(CGGradientCreateWithColors(nullptr, {}, nullptr), nullptr);
    EXPECT_EQ(CGGradientCreateWithColors(nullptr, {nullptr}, nullptr), nullptr);
    const CGFloat components[] = {0, 0, 0, 1};
    EXPECT_EQ(CGGradientCreateWithColorComponents(CGColorSpaceCreateDeviceRGB(), components, nullptr, 0), nullptr);
    EXPECT_EQ(CGGradientCreateWithColorComponents(nullptr, components, nullptr, 1), nullptr);
    EXPECT_EQ(CGGradientCreateWithColorComponents(CGColorSpaceCreateDeviceRGB(), nullptr, nullptr, 1), nullptr);
}

TEST(LinearGradient, IsLinearAtPixelCentresFromTheFirstColourAtTheTop) {
    Canvas canvas = Canvas::downwards(3, 100);
    CGContextDrawLinearGradient(canvas, twoColours(), {0, 0}, {0, 100}, 0);
    for (NSUInteger y = 0; y < 100; ++y)
        EXPECT_PIXEL_NEAR(canvas.at(1, y), blended((static_cast<CGFloat>(y) + 0.5) / 100), 1) << y;
}

TEST(LinearGradient, IsLinearInAlphaToo) {
    constexpr RGBAColor from{1, 0.5, 0, 0.2};
    constexpr RGBAColor to{0, 0.5, 1, 0.9};
    Canvas canvas(64, 1);
    CGContextDrawLinearGradient(canvas, twoColours(from, to), {0, 0}, {64, 0}, 0);
    for (NSUInteger x = 0; x < 64; ++x)
        EXPECT_PIXEL_NEAR(canvas.at(x, 0), blended((static_cast<CGFloat>(x) + 0.5) / 64, from, to), 1) << x;
}

TEST(LinearGradient, RunsAlongItsLineInAnyDirection) {
    Canvas canvas(40, 40);
    CGContextDrawLinearGradient(canvas, twoColours(), {5, 10}, {35, 30}, kBefore | kAfter);
    for (NSUInteger y = 0; y < 40; y += 3) {
        for (NSUInteger x = 0; x < 40; x += 3) {
            const CGFloat px = static_cast<CGFloat>(x) + 0.5 - 5;
            const CGFloat py = 40 - (static_cast<CGFloat>(y) + 0.5) - 10;
            const CGFloat t = std::clamp((px * 30 + py * 20) / (30 * 30 + 20 * 20), 0.0, 1.0);
            EXPECT_PIXEL_NEAR(canvas.at(x, y), blended(t), 1) << x << " " << y;
        }
    }
}

TEST(LinearGradient, PaintsBeyondItsEndsOnlyWhenAsked) {
    for (CGGradientOptions options = 0; options < 4; ++options) {
        Canvas canvas(30, 1);
        CGContextDrawLinearGradient(canvas, twoColours(), {10, 0}, {20, 0}, options);
        const Pixel before = options & kBefore ? blended(0) : kClear;
        const Pixel after = options & kAfter ? blended(1) : kClear;
        for (NSUInteger x = 0; x < 10; ++x)
            EXPECT_EQ(canvas.at(x, 0), before) << options << " " << x;
        for (NSUInteger x = 10; x < 20; ++x)
            EXPECT_PIXEL_NEAR(canvas.at(x, 0), blended((static_cast<CGFloat>(x) + 0.5 - 10) / 10), 1) << options;
        for (NSUInteger x = 20; x < 30; ++x)
            EXPECT_EQ(canvas.at(x, 0), after) << options << " " << x;
    }
}

TEST(LinearGradient, FillsTheClipOnlyWithTheStatesAlpha) {
    Canvas canvas(10, 10);
    CGContextClipToRect(canvas, CGRectMake(2, 2, 4, 4));
    CGContextSetAlpha(canvas, 0.5);
    CGContextDrawLinearGradient(canvas, twoColours({1, 1, 1, 1}, {1, 1, 1, 1}), {0, 0}, {10, 0}, kBefore | kAfter);
    EXPECT_NEAR(canvas.coverage(), 16 * 0.5, 16 * 0.5 / 255);
    EXPECT_PIXEL_NEAR(canvas.at(3, 5), (Pixel{128, 128, 128, 128}), 1);
}

TEST(LinearGradient, WithoutLengthOrWithoutNumbersItPaintsNothing) {
    Canvas canvas(10, 10);
    CGContextDrawLinearGradient(canvas, twoColours(), {5, 5}, {5, 5}, kBefore | kAfter);
    CGContextDrawLinearGradient(canvas, twoColours(), {NAN, 5}, {5, 9}, kBefore | kAfter);
    CGContextDrawLinearGradient(canvas, nullptr, {0, 5}, {5, 9}, kBefore | kAfter);
    CGContextDrawLinearGradient(nullptr, twoColours(), {0, 5}, {5, 9}, kBefore | kAfter);
    EXPECT_TRUE(canvas.isBlank());
}

TEST(RadialGradient, IsLinearInTheDistanceFromTheCentre) {
    Canvas canvas(80, 80);
    CGContextDrawRadialGradient(canvas, twoColours(), {40, 40}, 10, {40, 40}, 35, kBefore | kAfter);
    for (NSUInteger y = 0; y < 80; y += 3) {
        for (NSUInteger x = 0; x < 80; x += 3) {
            const CGFloat radius = std::hypot(static_cast<CGFloat>(x) + 0.5 - 40, static_cast<CGFloat>(y) + 0.5 - 40);
            EXPECT_PIXEL_NEAR(canvas.at(x, y), blended(std::clamp((radius - 10) / 25, 0.0, 1.0)), 1) << x << " " << y;
        }
    }
}

TEST(RadialGradient, InsideAndOutsideArePaintedOnlyWhenAsked) {
    for (const bool grows : {true, false}) {
        for (CGGradientOptions options = 0; options < 4; ++options) {
            Canvas canvas(80, 80);
            CGContextDrawRadialGradient(canvas, twoColours(), {40, 40}, grows ? 10 : 30, {40, 40}, grows ? 30 : 10,
                                        options);
            const Pixel before = options & kBefore ? blended(0) : kClear;
            const Pixel after = options & kAfter ? blended(1) : kClear;
            EXPECT_EQ(canvas.at(40, 40), grows ? before : after) << options;
            EXPECT_EQ(canvas.at(40, 48), grows ? before : after) << options;
            EXPECT_EQ(canvas.at(2, 2), grows ? after : before) << options;
            EXPECT_EQ(canvas.at(40, 8), grows ? after : before) << options;
            const CGFloat part = (std::hypot(0.5, 19.5) - 10) / 20;
            EXPECT_PIXEL_NEAR(canvas.at(40, 20), blended(grows ? part : 1 - part), 1) << options;
        }
    }
}

TEST(RadialGradient, RingWithoutExtendsHasItsArea) {
    Canvas canvas(100, 100);
    CGContextDrawRadialGradient(canvas, twoColours(), {50, 50}, 20, {50, 50}, 45, 0);
    EXPECT_NEAR(canvas.coverage(), kPi * (45 * 45 - 20 * 20), 2);
}

TEST(RadialGradient, ACylinderOfEqualCirclesGoesOnAsAsked) {
    // Two circles of radius 10 at 40 and 60: at the height of the centres, the front of circle t is at 40 + 20 t + 10.
    for (CGGradientOptions options = 0; options < 4; ++options) {
        Canvas canvas(100, 40);
        CGContextDrawRadialGradient(canvas, twoColours(), {40, 20}, 10, {60, 20}, 10, options);
        for (NSUInteger x = 0; x < 100; ++x) {
            // The circle with the largest parameter that reaches the pixel is seen, its back at x.
            const CGFloat dy = 0.5;
            const CGFloat half = std::sqrt(100 - dy * dy);
            const CGFloat tBack = (static_cast<CGFloat>(x) + 0.5 + half - 40) / 20;
            const CGFloat tFront = (static_cast<CGFloat>(x) + 0.5 - half - 40) / 20;
            const auto allowed = [&](CGFloat t) {
                return (t >= 0 || options & kBefore) && (t <= 1 || options & kAfter);
            };
            const Pixel pixel = canvas.at(x, 20);
            if (allowed(tBack))
                EXPECT_PIXEL_NEAR(pixel, blended(std::clamp(tBack, 0.0, 1.0)), 2) << options << " " << x;
            else if (allowed(tFront))
                EXPECT_PIXEL_NEAR(pixel, blended(std::clamp(tFront, 0.0, 1.0)), 2) << options << " " << x;
            else
                EXPECT_EQ(pixel, kClear) << options << " " << x;
        }
        EXPECT_EQ(canvas.at(50, 5), kClear);
    }
}

TEST(RadialGradient, AConeEndsAtItsTip) {
    Canvas canvas(100, 40);
    // Radius 5 at x 30 and 15 at x 60: the tip, of radius 0, is at x 15.
    CGContextDrawRadialGradient(canvas, twoColours(), {30, 20}, 5, {60, 20}, 15, kBefore);
    EXPECT_EQ(canvas.at(10, 20), kClear);
    EXPECT_PIXEL_NEAR(canvas.at(20, 20), blended(0), 1);
    EXPECT_EQ(canvas.at(90, 20), kClear);
}

TEST(RadialGradient, HopelessCirclesPaintNothing) {
    Canvas canvas(10, 10);
    const CGGradientOptions both = kBefore | kAfter;
    CGContextDrawRadialGradient(canvas, twoColours(), {5, 5}, -1, {5, 5}, 5, both);
    CGContextDrawRadialGradient(canvas, twoColours(), {5, 5}, 3, {5, 5}, 3, both);
    CGContextDrawRadialGradient(canvas, twoColours(), {5, 5}, 3, {5, 5}, INFINITY, both);
    CGContextDrawRadialGradient(canvas, twoColours(), {5, NAN}, 3, {5, 5}, 4, both);
    EXPECT_TRUE(canvas.isBlank());
}
