#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

#include <array>
#include <cstring>

using namespace zr;

namespace {

using Bytes = std::array<int, 4>;

/// The bytes that one pixel of this colour leaves in memory of the given form.
Bytes bytesOf(CGBitmapInfo info, RGBAColor color, std::uint8_t before = 0) {
    alignas(4) std::uint8_t memory[4] = {before, before, before, before};
    const auto context = CGBitmapContextCreate(memory, 1, 1, 8, 4, CGColorSpaceCreateDeviceRGB(), info);
    EXPECT_NE(context, nullptr);
    CGContextSetRGBFillColor(context, color.red, color.green, color.blue, color.alpha);
    CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    return {memory[0], memory[1], memory[2], memory[3]};
}

constexpr RGBAColor kTeal{0, 195 / 255.0, 64 / 255.0, 1};

bool isSupported(NSUInteger bits, CGColorSpaceRef space, CGBitmapInfo info) {
    return CGBitmapContextCreate(nullptr, 4, 4, bits, 0, space, info) != nullptr;
}

} // namespace

TEST(CGBitmapContext, PutsEachComponentWhereTheFormSays) {
    EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedLast, kTeal), (Bytes{0, 195, 64, 255}));
    EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big, kTeal), (Bytes{0, 195, 64, 255}));
    EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Little, kTeal), (Bytes{255, 64, 195, 0}));
    EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedFirst, kTeal), (Bytes{255, 0, 195, 64}));
    EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Big, kTeal), (Bytes{255, 0, 195, 64}));
    EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little, kTeal), (Bytes{64, 195, 0, 255}));
}

TEST(CGBitmapContext, SkippedAlphaLeavesTheColoursInPlace) {
    const Bytes last = bytesOf(kCGImageAlphaNoneSkipLast, kTeal);
    EXPECT_EQ((std::array{last[0], last[1], last[2]}), (std::array{0, 195, 64}));
    const Bytes first = bytesOf(kCGImageAlphaNoneSkipFirst, kTeal);
    EXPECT_EQ((std::array{first[1], first[2], first[3]}), (std::array{0, 195, 64}));
    const Bytes native = bytesOf(kCGImageAlphaNoneSkipFirst | kCGBitmapByteOrder32Little, kTeal);
    EXPECT_EQ((std::array{native[0], native[1], native[2]}), (std::array{64, 195, 0}));
}

TEST(CGBitmapContext, EveryByteValueSurvives) {
    for (int value = 0; value < 256; ++value) {
        const RGBAColor color{value / 255.0, (255 - value) / 255.0, value / 255.0, 1};
        EXPECT_EQ(bytesOf(kCGImageAlphaPremultipliedLast, color), (Bytes{value, 255 - value, value, 255}));
    }
}

TEST(CGBitmapContext, StoresColoursPremultiplied) {
    const Bytes half = bytesOf(kCGImageAlphaPremultipliedLast, {1, 0.5, 0, 0.5});
    EXPECT_NEAR(half[0], 127.5, 1);
    EXPECT_NEAR(half[1], 63.75, 1);
    EXPECT_EQ(half[2], 0);
    EXPECT_NEAR(half[3], 127.5, 1);
    EXPECT_EQ(half[0], half[3]);
}

TEST(CGBitmapContext, DrawsOverWhatTheCallersMemoryHolds) {
    // Half black over 200 leaves half of it.
    const Bytes bytes = bytesOf(kCGImageAlphaNoneSkipLast, {0, 0, 0, 0.5}, 200);
    EXPECT_NEAR(bytes[0], 100, 1);
    const Bytes reversed = bytesOf(kCGImageAlphaNoneSkipFirst, {0, 0, 0, 0.5}, 200);
    EXPECT_NEAR(reversed[3], 100, 1);
}

TEST(CGBitmapContext, TheFirstRowIsTheTop) {
    std::uint8_t memory[2 * 8] = {};
    const auto context =
        CGBitmapContextCreate(memory, 1, 2, 8, 8, CGColorSpaceCreateDeviceRGB(), kCGImageAlphaPremultipliedLast);
    CGContextSetRGBFillColor(context, 1, 1, 1, 1);
    CGContextFillRect(context, CGRectMake(0, 1, 1, 1));
    EXPECT_EQ(memory[0], 255);
    EXPECT_EQ(memory[8], 0);
}

TEST(CGBitmapContext, GreyIsWeighedFromTheColours) {
    std::uint8_t memory[3] = {100, 100, 100};
    const auto context = CGBitmapContextCreate(memory, 3, 1, 8, 3, CGColorSpaceCreateDeviceGray(), kCGImageAlphaNone);
    ASSERT_NE(context, nullptr);
    CGContextSetGrayFillColor(context, 77 / 255.0, 1);
    CGContextFillRect(context, CGRectMake(0, 0, 1, 1));
    CGContextSetRGBFillColor(context, 1, 0, 0, 1);
    CGContextFillRect(context, CGRectMake(1, 0, 1, 1));
    EXPECT_EQ(memory[0], 77);
    EXPECT_EQ(memory[1], 76);
    EXPECT_EQ(memory[2], 100);
    const auto image = CGBitmapContextCreateImage(context);
    EXPECT_EQ(pixelOf(image, 0, 0), (Pixel{77, 77, 77, 255}));
    EXPECT_TRUE(image->isOpaque());
}

TEST(CGBitmapContext, RefusesWhatItCannotDraw) {
    const auto rgb = CGColorSpaceCreateDeviceRGB();
    const auto gray = CGColorSpaceCreateDeviceGray();
    EXPECT_TRUE(isSupported(8, rgb, kCGImageAlphaPremultipliedLast));
    EXPECT_FALSE(isSupported(8, rgb, kCGImageAlphaNone));
    EXPECT_FALSE(isSupported(8, rgb, kCGImageAlphaLast));
    EXPECT_FALSE(isSupported(8, rgb, kCGImageAlphaFirst));
    EXPECT_FALSE(isSupported(8, rgb, kCGImageAlphaOnly));
    EXPECT_FALSE(isSupported(16, rgb, kCGImageAlphaPremultipliedLast));
    EXPECT_FALSE(isSupported(8, rgb, kCGImageAlphaPremultipliedLast | 1 << 12));
    EXPECT_FALSE(isSupported(8, rgb, kCGImageAlphaPremultipliedLast | 1 << 8));
    EXPECT_FALSE(isSupported(8, gray, kCGImageAlphaPremultipliedLast));
    EXPECT_TRUE(isSupported(8, gray, kCGImageAlphaNone));
    EXPECT_FALSE(isSupported(8, nullptr, kCGImageAlphaPremultipliedLast));
}

TEST(CGBitmapContext, RefusesSizesThatDoNotFit) {
    const auto rgb = CGColorSpaceCreateDeviceRGB();
    const auto create = [&](NSUInteger width, NSUInteger height, NSUInteger bytesPerRow) {
        return CGBitmapContextCreate(nullptr, width, height, 8, bytesPerRow, rgb, kCGImageAlphaPremultipliedLast);
    };
    EXPECT_EQ(create(0, 4, 0), nullptr);
    EXPECT_EQ(create(4, 0, 0), nullptr);
    EXPECT_EQ(create(32768, 1, 0), nullptr);
    EXPECT_EQ(create(1, 32768, 0), nullptr);
    EXPECT_NE(create(32767, 1, 0), nullptr);
    EXPECT_EQ(create(4, 4, 15), nullptr);
    EXPECT_EQ(create(4, 4, 18), nullptr);
    EXPECT_EQ(create(4, 4, std::numeric_limits<NSUInteger>::max() / 2), nullptr);
    const auto wide = create(4, 4, 32);
    ASSERT_NE(wide, nullptr);
    EXPECT_EQ(CGBitmapContextGetBytesPerRow(wide), 32u);
    alignas(4) std::uint8_t memory[8] = {};
    EXPECT_EQ(CGBitmapContextCreate(memory + 1, 1, 1, 8, 4, rgb, kCGImageAlphaPremultipliedLast), nullptr);
}

TEST(CGBitmapContext, TellsItsMeasures) {
    std::uint8_t memory[3 * 2 * 4] = {};
    const CGBitmapInfo info = kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little;
    const auto context = CGBitmapContextCreate(memory, 3, 2, 8, 12, CGColorSpaceCreateDeviceRGB(), info);
    EXPECT_EQ(CGBitmapContextGetData(context), memory);
    EXPECT_EQ(CGBitmapContextGetWidth(context), 3u);
    EXPECT_EQ(CGBitmapContextGetHeight(context), 2u);
    EXPECT_EQ(CGBitmapContextGetBytesPerRow(context), 12u);
    EXPECT_EQ(CGBitmapContextGetBitmapInfo(context), info);
    EXPECT_EQ(CGBitmapContextGetAlphaInfo(context), kCGImageAlphaPremultipliedFirst);
    EXPECT_EQ(CGBitmapContextGetData(nullptr), nullptr);
    EXPECT_EQ(CGBitmapContextGetWidth(nullptr), 0u);
    EXPECT_EQ(CGBitmapContextCreateImage(nullptr), nullptr);
}

TEST(CGBitmapContext, ItsImageIsASnapshotInThePlatformsForm) {
    const CGBitmapInfo infos[] = {kCGImageAlphaPremultipliedLast,
                                  kCGImageAlphaPremultipliedFirst,
                                  kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Little,
                                  kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little,
                                  kCGImageAlphaNoneSkipLast,
                                  kCGImageAlphaNoneSkipFirst};
    for (const CGBitmapInfo info : infos) {
        const auto context = CGBitmapContextCreate(nullptr, 2, 2, 8, 0, CGColorSpaceCreateDeviceRGB(), info);
        CGContextSetRGBFillColor(context, 0, 195 / 255.0, 64 / 255.0, 1);
        CGContextFillRect(context, CGRectMake(0, 1, 1, 1));
        const auto image = CGBitmapContextCreateImage(context);
        CGContextSetRGBFillColor(context, 1, 1, 1, 1);
        CGContextFillRect(context, CGRectMake(0, 0, 2, 2));
        EXPECT_EQ(pixelOf(image, 0, 0), (Pixel{0, 195, 64, 255})) << info;
        const bool opaque = (info & kCGBitmapAlphaInfoMask) >= kCGImageAlphaNoneSkipLast;
        EXPECT_EQ(pixelOf(image, 1, 1), opaque ? kBlack : kClear) << info;
        EXPECT_EQ(image->isOpaque(), opaque);
    }
}

TEST(CGBitmapContext, ALayersImageIsTakenWithoutACopy) {
    const auto context = CGBitmapContextCreateForLayer(3, 2, false);
    CGContextSetRGBFillColor(context, 1, 0, 0, 1);
    CGContextFillRect(context, CGRectMake(0, 1, 1, 1));
    const void* memory = CGBitmapContextGetData(context);
    const auto image = CGBitmapContextTakeImage(context);
    EXPECT_EQ(image->pixels(), memory);
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(pixelOf(image, 1, 0), kClear);
    EXPECT_FALSE(image->isOpaque());

    EXPECT_EQ(CGBitmapContextGetData(context), nullptr);
    EXPECT_EQ(CGBitmapContextGetWidth(context), 0u);
    CGContextSaveGState(context);
    CGContextClipToRect(context, CGRectMake(0, 0, 3, 2));
    CGContextBeginTransparencyLayer(context);
    CGContextFillRect(context, CGRectMake(0, 0, 3, 2));
    CGContextDrawImage(context, CGRectMake(0, 0, 3, 2), image);
    CGContextEndTransparencyLayer(context);
    CGContextRestoreGState(context);
    EXPECT_TRUE(CGRectIsEmpty(CGContextGetClipBoundingBox(context)));
    EXPECT_EQ(pixelOf(image, 1, 0), kClear);
    EXPECT_EQ(CGBitmapContextTakeImage(context), nullptr);
    EXPECT_EQ(CGBitmapContextCreateImage(context), nullptr);
}

TEST(CGBitmapContext, AnOpaqueLayerIsBlackAndStaysOpaque) {
    const auto context = CGBitmapContextCreateForLayer(4, 1, true);
    CGContextSetRGBFillColor(context, 1, 1, 1, 0.5);
    CGContextFillRect(context, CGRectMake(1, 0, 1, 1));
    CGContextSetRGBFillColor(context, 1, 1, 1, 1);
    CGContextFillRect(context, CGRectMake(2, 0, 2, 1));
    CGContextClearRect(context, CGRectMake(3, 0, 1, 1));
    const auto image = CGBitmapContextTakeImage(context);
    EXPECT_TRUE(image->isOpaque());
    EXPECT_EQ(pixelOf(image, 0, 0), kBlack);
    EXPECT_PIXEL_NEAR(pixelOf(image, 1, 0), (Pixel{128, 128, 128, 255}), 1);
    EXPECT_EQ(pixelOf(image, 1, 0).alpha, 255);
    EXPECT_EQ(pixelOf(image, 2, 0), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(pixelOf(image, 3, 0), kBlack);
}

TEST(CGBitmapContext, TakingFromTheCallersMemoryCopies) {
    std::uint8_t memory[4] = {1, 2, 3, 255};
    const auto context =
        CGBitmapContextCreate(memory, 1, 1, 8, 4, CGColorSpaceCreateDeviceRGB(), kCGImageAlphaPremultipliedLast);
    const auto image = CGBitmapContextTakeImage(context);
    memory[0] = 99;
    EXPECT_EQ(pixelOf(image, 0, 0), (Pixel{1, 2, 3, 255}));
    EXPECT_EQ(CGBitmapContextGetData(context), nullptr);
}

TEST(CGBitmapContext, ExchangedColoursReachImagesPatternsGradientsAndBack) {
    const auto context =
        CGBitmapContextCreate(nullptr, 4, 1, 8, 0, CGColorSpaceCreateDeviceRGB(), kCGImageAlphaPremultipliedLast);
    const auto tile = imageOf(1, 1, {Pixel{200, 100, 50, 255}});
    CGContextDrawImage(context, CGRectMake(0, 0, 1, 1), tile);
    CGContextSetFillColorWithColor(context, Ref<CGColor>::adopt(new CGColor(tile.get())));
    CGContextFillRect(context, CGRectMake(1, 0, 1, 1));
    CGContextClipToRect(context, CGRectMake(2, 0, 1, 1));
    const CGFloat components[] = {200 / 255.0, 100 / 255.0, 50 / 255.0, 1};
    const auto gradient = CGGradientCreateWithColorComponents(CGColorSpaceCreateDeviceRGB(), components, nullptr, 1);
    CGContextDrawLinearGradient(context, gradient, {0, 0}, {4, 0}, 3);
    const auto* data = static_cast<const std::uint8_t*>(CGBitmapContextGetData(context));
    for (int x = 0; x < 3; ++x) {
        EXPECT_EQ(data[4 * x], 200) << x;
        EXPECT_EQ(data[4 * x + 1], 100) << x;
        EXPECT_EQ(data[4 * x + 2], 50) << x;
    }
}
