#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>
#include <ZRPlatform/CoreGraphics/CGDataProvider.h>

using namespace zr;

namespace {

Ref<CFData> dataOf(CGImage* image) { return CGDataProviderCopyData(CGImageGetDataProvider(image)); }

} // namespace

TEST(CGDataProvider, GivesACopyOfTheBitmapsBytes) {
    const auto image = imageOf(2, 2, {kRed, kGreen, kBlue, {10, 20, 30, 40}});
    const auto data = dataOf(image);
    ASSERT_TRUE(data);
    ASSERT_EQ(CFDataGetLength(data), 16);
    const std::vector<std::uint8_t> bytes(CFDataGetBytePtr(data), CFDataGetBytePtr(data) + 16);
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{0, 0, 255, 255, 0, 255, 0, 255, 255, 0, 0, 255, 30, 20, 10, 40}));
}

TEST(CGDataProvider, ChangesToTheCopyDoNotReachTheBitmap) {
    const auto image = imageOf(1, 1, {kRed});
    const auto data = dataOf(image);
    EXPECT_EQ(CFDataGetMutableBytePtr(data), CFDataGetBytePtr(data));
    CFDataGetMutableBytePtr(data)[2] = 7;
    EXPECT_EQ(CFDataGetBytePtr(data)[2], 7);
    EXPECT_EQ(pixelOf(image, 0, 0), kRed);
    EXPECT_EQ(CFDataGetBytePtr(dataOf(image))[2], 255);
}

TEST(CGDataProvider, OfAPartGoesFromItsFirstPixelToItsLast) {
    const auto whole = imageOf(3, 3, {kClear, kClear, kClear, kClear, kRed, kGreen, kBlack, kBlue, kClear});
    const auto part = CGImageCreateWithImageInRect(whole, CGRectMake(1, 1, 2, 2));
    const auto data = dataOf(part);
    ASSERT_EQ(CFDataGetLength(data), 12 + 8);
    EXPECT_EQ(CFDataGetBytePtr(data)[2], 255);      // red
    EXPECT_EQ(CFDataGetBytePtr(data)[4 + 1], 255);  // green
    EXPECT_EQ(CFDataGetBytePtr(data)[8 + 3], 255);  // black, which is between the part's rows
    EXPECT_EQ(CFDataGetBytePtr(data)[12 + 0], 255); // blue
}

TEST(CGDataProvider, KeepsThePixelsAlive) {
    Ref<CGDataProvider> provider;
    {
        const auto image = imageOf(1, 1, {kGreen});
        provider = CGImageGetDataProvider(image);
    }
    EXPECT_EQ(CFDataGetBytePtr(CGDataProviderCopyData(provider))[1], 255);
}

TEST(CGDataProvider, OfNothingIsNothing) {
    EXPECT_FALSE(CGImageGetDataProvider(nullptr));
    EXPECT_FALSE(CGDataProviderCopyData(nullptr));
    EXPECT_EQ(CFDataGetBytePtr(nullptr), nullptr);
    EXPECT_EQ(CFDataGetMutableBytePtr(nullptr), nullptr);
    EXPECT_EQ(CFDataGetLength(nullptr), 0);
    const auto empty = Ref<CGImage>::adopt(new CGImage(0, 0, 0, nullptr, true));
    ASSERT_TRUE(dataOf(empty));
    EXPECT_EQ(CFDataGetLength(dataOf(empty)), 0);
}

TEST(CGBitmapInfo, SaysHowThePixelsLie) {
    const auto plain = imageOf(1, 1, {kRed});
    EXPECT_EQ(CGImageGetBitmapInfo(plain), kCGBitmapByteOrder32Little | kCGImageAlphaPremultipliedFirst);
    const auto opaque = CGBitmapContextTakeImage(CGBitmapContextCreateForLayer(1, 1, true));
    EXPECT_EQ(CGImageGetBitmapInfo(opaque), kCGBitmapByteOrder32Little | kCGImageAlphaNoneSkipFirst);
    EXPECT_EQ(CGImageGetBitmapInfo(nullptr), 0u);
    // A context of that form over the bytes shows the image.
    const auto image = imageOf(2, 1, {kRed, {1, 2, 3, 4}});
    const auto data = dataOf(image);
    const auto context = CGBitmapContextCreate(CFDataGetMutableBytePtr(data), 2, 1, 8, CGImageGetBytesPerRow(image),
                                               CGColorSpaceCreateDeviceRGB(), CGImageGetBitmapInfo(image));
    const auto shown = CGBitmapContextCreateImage(context);
    EXPECT_EQ(pixelOf(shown, 0, 0), kRed);
    EXPECT_EQ(pixelOf(shown, 1, 0), (Pixel{1, 2, 3, 4}));
}
