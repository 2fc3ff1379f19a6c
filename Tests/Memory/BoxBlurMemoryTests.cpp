#include <Tests/ZRKitDynamic/ZRImage/HelpTesting.h>

#include <Tests/ZRPlatform/CoreGraphics/MemoryLimit.h>
#include <Tests/ZRPlatform/Foundation/Recorder.h>
#include <ZRPlatform/Accelerate/Accelerate.h>

/// A sanitizer gives null, as the system does, where memory runs out, and gives back at once what is freed.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1:quarantine_size_mb=0"; }
extern "C" const char* __tsan_default_options() { return "allocator_may_return_null=1"; }

namespace zr::testing {

namespace {

constexpr NSUInteger kSide = 4096;
/// Bytes of the image, and of each of the two buffers.
constexpr rlim_t kImageBytes = kSide * kSide * 4;
constexpr Pixel kGray{200, 200, 200, 255};

const std::vector<std::string> kNoBuffer{"No pixelbuffer", "error from convolution -21772"};

Ref<UIImage> largeImage(NSUInteger width = kSide, NSUInteger height = kSide, CGFloat scale = 1) {
    const NSUInteger count = width * height * 4;
    const std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[count]);
    std::fill_n(pixels.get(), count, std::uint8_t{200});
    const auto bitmap = Ref<CGImage>::adopt(new CGImage(width, height, width * 4, pixels, true));
    return UIImage::imageWithCGImage_scale_orientation(bitmap, scale, UIImageOrientationUp);
}

/// Runs in a child process: blurs with so many bytes left, and exits with 0 when it logged `wantedLog` and the result
/// is as wanted.
template <class Check>
[[noreturn]] void blurWithin(rlim_t bytesLeft, const UIImage* image, double blur, const UIColor* tint,
                             const std::vector<std::string>& wantedLog, Check isWanted) {
    LogLines log;
    if (!leaveMemory(bytesLeft))
        std::_Exit(2);
    const auto blurred = zr_boxblurImageWithBlur_withTintColor(image, blur, tint);
    if (log.lines != wantedLog)
        std::_Exit(3);
    if (!blurred)
        std::_Exit(4);
    std::_Exit(isWanted(blurred.get()) ? 0 : 1);
}

/// A pixel a point, all of one colour as far as four corners tell.
auto isAll(Pixel color) {
    return [color](const UIImage* image) {
        const NSUInteger last = kSide - 1;
        return image->scale() == 1 && image->size() == CGSize{kSide, kSide} && pixelOf(image, 0, 0) == color &&
               pixelOf(image, last, 0) == color && pixelOf(image, 0, last) == color &&
               pixelOf(image, last, last) == color;
    };
}

bool isReduced(const UIImage* image, NSUInteger width, NSUInteger height) {
    const CGFloat scale = image->scale();
    return scale < 1 && widthOf(image) == static_cast<NSUInteger>(std::ceil(static_cast<CGFloat>(width) * scale)) &&
           heightOf(image) == static_cast<NSUInteger>(std::ceil(static_cast<CGFloat>(height) * scale));
}

const ::testing::ExitedWithCode kAsWanted(0);

} // namespace

TEST(BoxBlurMemory, WithEnoughItLogsNothing) {
    EXPECT_EXIT(blurWithin(kImageBytes * 4, largeImage(), 0.5, nullptr, {}, isAll(kGray)), kAsWanted, "");
}

TEST(BoxBlurMemory, WithoutTheSecondBufferItSaysSoAndIsBlackUnderTheTint) {
    // A picture and a half: a copy of the black one would be too much.
    constexpr rlim_t kLeft = kImageBytes * 3 / 2;
    EXPECT_EXIT(blurWithin(kLeft, largeImage(), 0.5, nullptr, kNoBuffer, isAll(kBlack)), kAsWanted, "");
    EXPECT_EXIT(blurWithin(kLeft, largeImage(), 0.5, UIColor::redColor(), kNoBuffer, isAll(kRed)), kAsWanted, "");
}

TEST(BoxBlurMemory, WithLessThanThePictureItHasFewerPixelsOfTheSameSize) {
    for (const rlim_t left : {kImageBytes / 2, kImageBytes / 20}) {
        const auto isBlack = [](const UIImage* image) {
            return isReduced(image, kSide, kSide) && image->size() == CGSize{kSide, kSide} &&
                   pixelOf(image, 0, 0) == kBlack && pixelOf(image, widthOf(image) - 1, 9) == kBlack;
        };
        EXPECT_EXIT(blurWithin(left, largeImage(), 0, nullptr, kNoBuffer, isBlack), kAsWanted, "") << left;
    }
}

TEST(BoxBlurMemory, SidesOfFewerPixelsAreRoundedUp) {
    const auto isRoundedUp = [](const UIImage* image) {
        const auto [width, height] = image->size();
        const CGFloat pixel = 1 / image->scale();
        return isReduced(image, 4111, 4201) && width >= 4111 && width < 4111 + pixel && height >= 4201 &&
               height < 4201 + pixel;
    };
    EXPECT_EXIT(blurWithin(kImageBytes / 2, largeImage(4111, 4201), 0, nullptr, kNoBuffer, isRoundedUp), kAsWanted, "");
}

TEST(BoxBlurMemory, TheTintCoversTheSamePartOfFewerPixels) {
    const auto isLowerLeftQuarterRed = [](const UIImage* image) {
        const NSUInteger half = widthOf(image) / 2, last = widthOf(image) - 1;
        return isReduced(image, kSide, kSide) && pixelOf(image, 0, last) == kRed &&
               pixelOf(image, half - 1, half) == kRed && pixelOf(image, half, half) == kBlack &&
               pixelOf(image, half - 1, half - 1) == kBlack && pixelOf(image, last, last) == kBlack;
    };
    EXPECT_EXIT(blurWithin(kImageBytes / 2, largeImage(kSide, kSide, 2), 0, UIColor::redColor(), kNoBuffer,
                           isLowerLeftQuarterRed),
                kAsWanted, "");
}

TEST(BoxBlurMemory, WithoutRoomToBlurInItLogsThatErrorOnceAndIsBlack) {
    constexpr std::uint32_t kBox = 21;
    constexpr NSUInteger kWidth = 32767, kHeight = 520;
    const vImage_Buffer shape{nullptr, kHeight, kWidth, kWidth * 4};
    const vImage_Error room = vImageBoxConvolve_ARGB8888(&shape, &shape, nullptr, 0, 0, kBox, kBox, nullptr,
                                                         kvImageEdgeExtend | kvImageGetTempBufferSize);
    ASSERT_GT(room, 1'000'000);
    EXPECT_EXIT(blurWithin(kWidth * kHeight * 8 + static_cast<rlim_t>(room) / 2, largeImage(kWidth, kHeight), 0.5,
                           nullptr, {"error from convolution -21771"},
                           [](const UIImage* image) {
                               return widthOf(image) == kWidth && pixelOf(image, 0, 0) == kBlack &&
                                      pixelOf(image, kWidth - 1, kHeight - 1) == kBlack;
                           }),
                kAsWanted, "");
}

} // namespace zr::testing
