#include <Tests/ZRPlatform/CoreGraphics/MemoryLimit.h>
#include <Tests/ZRPlatform/CoreImage/PictureTesting.h>

/// A sanitizer gives null, as the system does, where memory runs out.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }
extern "C" const char* __tsan_default_options() { return "allocator_may_return_null=1"; }

namespace zr {

namespace {

constexpr NSUInteger kSide = 4096;
constexpr rlim_t kImageBytes = kSide * kSide * 4;

/// Blurred by way of a coarse picture that takes as much memory as the result.
constexpr double kRadius = 3;

/// Made without anything beside it that would leave free memory behind.
Ref<CIImage> largeBlur() {
    const std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[kImageBytes]);
    std::fill_n(pixels.get(), kImageBytes, std::uint8_t{200});
    return blurred(Ref<CGImage>::adopt(new CGImage(kSide, kSide, kSide * 4, pixels, true)), kRadius);
}

/// Blurs a large picture with so many bytes left, and exits with 0 for a result, 1 for none.
[[noreturn]] void blurWithin(rlim_t bytesLeft, CIImage* image) {
    if (!leaveMemory(bytesLeft))
        std::_Exit(2);
    std::_Exit(drawn(image, CGRectMake(0, 0, kSide, kSide)) ? 0 : 1);
}

} // namespace

TEST(CIContextMemory, WithoutRoomForTheResultItIsNil) {
    const auto image = largeBlur();
    EXPECT_EXIT(blurWithin(kImageBytes / 2, image), ::testing::ExitedWithCode(1), "");
}

TEST(CIContextMemory, WithRoomForTheResultButNotToBlurInItIsNil) {
    const auto image = largeBlur();
    EXPECT_EXIT(blurWithin(kImageBytes + kImageBytes / 8, image), ::testing::ExitedWithCode(1), "");
}

TEST(CIContextMemory, WithEnoughThereIsAResult) {
    const auto image = largeBlur();
    EXPECT_EXIT(blurWithin(kImageBytes * 16, image), ::testing::ExitedWithCode(0), "");
}

} // namespace zr
