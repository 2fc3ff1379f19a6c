#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

#include <ZRPlatform/CoreGraphics/CairoAccess.h>

#include <cairo.h>

using namespace zr;

namespace {

struct Color {
    double red, green, blue, alpha;
};

/// One pixel of `below` with `above` filled over it.
Pixel blend(CGBlendMode mode, Color below, Color above) {
    Canvas canvas(1, 1);
    CGContextSetRGBFillColor(canvas, below.red, below.green, below.blue, below.alpha);
    CGContextFillRect(canvas, CGRectMake(0, 0, 1, 1));
    CGContextSetBlendMode(canvas, mode);
    CGContextSetRGBFillColor(canvas, above.red, above.green, above.blue, above.alpha);
    CGContextFillRect(canvas, CGRectMake(0, 0, 1, 1));
    return canvas.at(0, 0);
}

Pixel premultiplied(double red, double green, double blue, double alpha) {
    const auto byte = [](double value) { return static_cast<int>(std::lround(value * 255)); };
    return {byte(red * alpha), byte(green * alpha), byte(blue * alpha), byte(alpha)};
}

constexpr Color kBelow{0.8, 0.4, 0.2, 1};
constexpr Color kAbove{0.3, 0.6, 0.9, 1};

double luminosity(Color c) { return 0.3 * c.red + 0.59 * c.green + 0.11 * c.blue; }
double least(Color c) { return std::min({c.red, c.green, c.blue}); }
double saturation(Color c) { return std::max({c.red, c.green, c.blue}) - least(c); }

Color mapped(Color c, auto map) { return {map(c.red), map(c.green), map(c.blue), c.alpha}; }

/// Its least part 0, its greatest one `wanted`, the middle one in proportion.
Color withSaturation(Color c, double wanted) {
    return mapped(c, [low = least(c), range = saturation(c), wanted](double x) { return (x - low) * wanted / range; });
}

/// Lighter or darker by the same in all parts, and nearer to grey where one would leave its range.
Color withLuminosity(Color c, double wanted) {
    c = mapped(c, [by = wanted - luminosity(c)](double x) { return x + by; });
    const double low = least(c), high = low + saturation(c);
    if (low < 0)
        c = mapped(c, [&](double x) { return wanted + (x - wanted) * wanted / (wanted - low); });
    if (high > 1)
        c = mapped(c, [&](double x) { return wanted + (x - wanted) * (1 - wanted) / (high - wanted); });
    return c;
}

} // namespace

TEST(CGBlendMode, OpaqueColoursFollowTheirFormulas) {
    const auto expect = [](CGBlendMode mode, auto formula) {
        const Pixel expected = premultiplied(formula(kBelow.red, kAbove.red), formula(kBelow.green, kAbove.green),
                                             formula(kBelow.blue, kAbove.blue), 1);
        EXPECT_PIXEL_NEAR(blend(mode, kBelow, kAbove), expected, 2) << mode;
    };
    const auto multiply = [](double d, double s) { return d * s; };
    const auto screen = [](double d, double s) { return d + s - d * s; };
    const auto hardLight = [&](double d, double s) { return s <= 0.5 ? multiply(d, 2 * s) : screen(d, 2 * s - 1); };
    expect(kCGBlendModeNormal, [](double, double s) { return s; });
    expect(kCGBlendModeMultiply, multiply);
    expect(kCGBlendModeScreen, screen);
    expect(kCGBlendModeOverlay, [&](double d, double s) { return hardLight(s, d); });
    expect(kCGBlendModeHardLight, hardLight);
    expect(kCGBlendModeSoftLight, [](double d, double s) {
        const double lit = d <= 0.25 ? ((16 * d - 12) * d + 4) * d : std::sqrt(d);
        return s <= 0.5 ? d - (1 - 2 * s) * d * (1 - d) : d + (2 * s - 1) * (lit - d);
    });
    expect(kCGBlendModeDarken, [](double d, double s) { return std::min(d, s); });
    expect(kCGBlendModeLighten, [](double d, double s) { return std::max(d, s); });
    expect(kCGBlendModeDifference, [](double d, double s) { return std::fabs(d - s); });
    expect(kCGBlendModeExclusion, [](double d, double s) { return d + s - 2 * d * s; });
    expect(kCGBlendModeColorDodge, [](double d, double s) { return std::min(1.0, d / (1 - s)); });
    expect(kCGBlendModeColorBurn, [](double d, double s) { return 1 - std::min(1.0, (1 - d) / s); });
    expect(kCGBlendModePlusLighter, [](double d, double s) { return std::min(1.0, d + s); });
}

TEST(CGBlendMode, HueSaturationAndLuminosityAreTakenFromOneOrTheOther) {
    const auto expect = [](CGBlendMode mode, Color color) {
        EXPECT_PIXEL_NEAR(blend(mode, kBelow, kAbove), premultiplied(color.red, color.green, color.blue, 1), 2) << mode;
    };
    expect(kCGBlendModeHue, withLuminosity(withSaturation(kAbove, saturation(kBelow)), luminosity(kBelow)));
    expect(kCGBlendModeSaturation, withLuminosity(withSaturation(kBelow, saturation(kAbove)), luminosity(kBelow)));
    expect(kCGBlendModeColor, withLuminosity(kAbove, luminosity(kBelow)));
    expect(kCGBlendModeLuminosity, withLuminosity(kBelow, luminosity(kAbove)));
}

TEST(CGBlendMode, CompositionFollowsTheAlphas) {
    constexpr Color below{1, 0, 0, 0.6};
    constexpr Color above{0, 0, 1, 0.5};
    // Coverage of S and D in the result, by the mode's two factors.
    const auto expect = [&](CGBlendMode mode, double ofSource, double ofDestination) {
        const double s = 0.5 * ofSource;
        const double d = 0.6 * ofDestination;
        const auto byte = [](double value) { return static_cast<int>(std::lround(255 * value)); };
        EXPECT_PIXEL_NEAR(blend(mode, below, above), (Pixel{byte(d), 0, byte(s), byte(s + d)}), 2) << mode;
    };
    expect(kCGBlendModeNormal, 1, 0.5);
    expect(kCGBlendModeClear, 0, 0);
    expect(kCGBlendModeCopy, 1, 0);
    expect(kCGBlendModeSourceIn, 0.6, 0);
    expect(kCGBlendModeSourceOut, 0.4, 0);
    expect(kCGBlendModeSourceAtop, 0.6, 0.5);
    expect(kCGBlendModeDestinationOver, 0.4, 1);
    expect(kCGBlendModeDestinationIn, 0, 0.5);
    expect(kCGBlendModeDestinationOut, 0, 0.5);
    expect(kCGBlendModeDestinationAtop, 0.4, 0.5);
    expect(kCGBlendModeXOR, 0.4, 0.5);
}

TEST(CGBlendMode, FillsActInsideTheirShapeOnly) {
    const CGBlendMode modes[] = {kCGBlendModeSourceIn,        kCGBlendModeSourceOut, kCGBlendModeDestinationIn,
                                 kCGBlendModeDestinationAtop, kCGBlendModeCopy,      kCGBlendModeClear};
    for (const CGBlendMode mode : modes) {
        Canvas canvas(4, 1);
        CGContextFillRect(canvas, CGRectMake(0, 0, 4, 1));
        CGContextSetBlendMode(canvas, mode);
        CGContextSetRGBFillColor(canvas, 0, 0, 0, 0);
        CGContextFillRect(canvas, CGRectMake(1, 0, 1, 1));
        EXPECT_EQ(canvas.at(0, 0), kBlack) << mode;
        EXPECT_EQ(canvas.at(1, 0), kClear) << mode;
        EXPECT_EQ(canvas.at(2, 0), kBlack) << mode;
    }
}

TEST(CGShadow, FallsAtItsOffsetWhateverTheTransform) {
    Canvas canvas(20, 20);
    CGContextScaleCTM(canvas, 2, 2);
    const CGFloat blue[] = {0, 0, 1, 1};
    CGContextSetShadowWithColor(canvas, {4, -3}, 0, CGColorCreate(CGColorSpaceCreateDeviceRGB(), blue));
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextFillRect(canvas, CGRectMake(2, 5, 3, 3));
    // The square is at 4..10, 10..16 from the bottom; the shadow 4 to the right and 3 down.
    for (NSUInteger y = 0; y < 20; ++y) {
        for (NSUInteger x = 0; x < 20; ++x) {
            const bool drawn = x >= 4 && x < 10 && y >= 4 && y < 10;
            const bool shaded = x >= 8 && x < 14 && y >= 7 && y < 13;
            EXPECT_EQ(canvas.at(x, y), drawn ? kRed : shaded ? kBlue : kClear) << x << " " << y;
        }
    }
    CGContextSetShadowWithColor(canvas, {4, -3}, 0, nullptr);
    CGContextClearRect(canvas, CGRectMake(0, 0, 20, 20));
    CGContextFillRect(canvas, CGRectMake(2, 5, 3, 3));
    EXPECT_EQ(canvas.coverage(), 36);
}

TEST(CGShadow, IsMeasuredInBaseSpace) {
    Canvas canvas = Canvas::downwards(20, 20);
    CGContextScaleCTM(canvas, 2, 2);
    CGContextSetBaseCTM(canvas, CGContextGetCTM(canvas));
    CGContextSetShadowWithColor(canvas, {0, 3}, 0,
                                CGColorCreate(CGColorSpaceCreateDeviceGray(), std::array{1.0, 1.0}.data()));
    CGContextFillRect(canvas, CGRectMake(1, 1, 2, 2));
    EXPECT_EQ(canvas.at(3, 3), kBlack);
    EXPECT_EQ(canvas.at(3, 7), kClear);
    EXPECT_EQ(canvas.at(3, 8), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(canvas.at(3, 11), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(canvas.at(3, 12), kClear);
}

TEST(CGShadow, SoftensAnEdgeByAGaussianOfHalfTheBlur) {
    Canvas canvas(80, 9);
    CGContextSetShadowWithColor(canvas, {100, 0}, 10,
                                CGColorCreate(CGColorSpaceCreateDeviceGray(), std::array{0.0, 1.0}.data()));
    // A half plane, itself outside on the left, whose edge's shadow lies at 40.
    CGContextFillRect(canvas, CGRectMake(-200, -100, 140, 300));
    for (NSUInteger x = 0; x < 80; ++x) {
        const double distance = static_cast<double>(x) + 0.5 - 40;
        const double expected = 255 * 0.5 * std::erfc(distance / 5 / std::sqrt(2.0));
        EXPECT_NEAR(canvas.at(x, 4).alpha, expected, 2.5) << x;
    }
}

TEST(CGShadow, LiesUnderALayerAsAWhole) {
    Canvas canvas(20, 4);
    CGContextSetShadowWithColor(canvas, {6, 0}, 0,
                                CGColorCreate(CGColorSpaceCreateDeviceGray(), std::array{1.0, 1.0}.data()));
    CGContextBeginTransparencyLayer(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 4, 4));
    CGContextFillRect(canvas, CGRectMake(4, 0, 4, 4));
    CGContextEndTransparencyLayer(canvas);
    EXPECT_EQ(canvas.at(7, 0), kBlack);
    EXPECT_EQ(canvas.at(8, 0), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(canvas.at(13, 0), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(canvas.at(14, 0), kClear);
}

TEST(CairoAccess, ComesWithTransformClipAndColour) {
    const auto context =
        CGBitmapContextCreate(nullptr, 8, 8, 8, 0, CGColorSpaceCreateDeviceRGB(), kCGImageAlphaPremultipliedLast);
    CGContextClipToRect(context, CGRectMake(0, 0, 8, 4));
    CGContextTranslateCTM(context, 2, 2);
    CGContextSetRGBFillColor(context, 1, 0, 0, 1);
    cairo_t* cairo = cairoOf(context);
    ASSERT_NE(cairo, nullptr);
    applyFillColor(context);
    cairo_rectangle(cairo, 0, 0, 2, 6);
    cairo_fill(cairo);
    applyColor(context, {0, 0, 1, 1});
    cairo_rectangle(cairo, 2, 0, 2, 6);
    cairo_fill(cairo);
    cairoDone(context);
    const auto image = CGBitmapContextCreateImage(context);
    EXPECT_EQ(pixelOf(image, 2, 5), kRed);
    EXPECT_EQ(pixelOf(image, 4, 5), kBlue);
    EXPECT_EQ(pixelOf(image, 1, 5), kClear);
    EXPECT_EQ(pixelOf(image, 2, 6), kClear);
    EXPECT_EQ(pixelOf(image, 2, 3), kClear);
}

TEST(CairoAccess, IsNullWithoutAnythingToDrawOn) {
    EXPECT_EQ(cairoOf(nullptr), nullptr);
    applyFillColor(nullptr);
    applyColor(nullptr, {});
    cairoDone(nullptr);
    Canvas canvas(2, 2);
    CGContextScaleCTM(canvas, 0, 0);
    EXPECT_EQ(cairoOf(canvas), nullptr);
    const auto taken = CGBitmapContextCreateForLayer(2, 2, false);
    CGBitmapContextTakeImage(taken);
    EXPECT_EQ(cairoOf(taken), nullptr);
}
