#include <Tests/ZRPlatform/Accelerate/BoxConvolveTesting.h>

#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <algorithm>
#include <array>
#include <utility>

using namespace zr;
using namespace zr::testing;

namespace {

constexpr std::array<vImage_Flags, 4> kEdgeStyles = {kvImageEdgeExtend, kvImageBackgroundColorFill,
                                                     kvImageTruncateKernel, kvImageCopyInPlace};
constexpr std::array<std::pair<std::size_t, std::size_t>, 9> kSizes = {
    {{1, 1}, {1, 9}, {9, 1}, {2, 3}, {4, 4}, {5, 17}, {16, 8}, {31, 30}, {67, 21}}};

void expectConvolution(Picture& source, Picture& destination, Kernel kernel, vImage_Flags flags, Place place = {}) {
    SCOPED_TRACE(::testing::Message() << source.width() << " x " << source.height() << ", kernel " << kernel.width
                                      << " x " << kernel.height << ", flags " << flags);
    ASSERT_EQ(convolve(source, destination, kernel, flags, place), kvImageNoError);
    ASSERT_EQ(destination, expected(source, destination, kernel, flags, place));
    ASSERT_TRUE(destination.hasItsGuards());
}

void expectConvolution(Picture& source, Kernel kernel, vImage_Flags flags) {
    Picture destination(source.width(), source.height());
    expectConvolution(source, destination, kernel, flags);
}

/// Restricts the vector instructions to one set while it lives.
class Instructions {
public:
    explicit Instructions(std::int64_t target) { choose(target); }
    ~Instructions() { choose(0); }
    Instructions(const Instructions&) = delete;
    Instructions& operator=(const Instructions&) = delete;

private:
    static void choose(std::int64_t targets) {
        hwy::SetSupportedTargetsForTest(targets);
        hwy::GetChosenTarget().DeInit();
    }
};

} // namespace

TEST(BoxConvolve, MeanOfThreeByThreePixelsByHand) {
    Picture source(3, 3);
    source.fillWith(0);
    for (std::size_t i = 0; i < 9; ++i)
        source.pixel(i % 3, i / 3)[2] = static_cast<std::uint8_t>(10 * (i + 1));
    Picture destination(3, 3);
    ASSERT_EQ(convolve(source, destination, {3, 3}, kvImageEdgeExtend), kvImageNoError);
    EXPECT_EQ(destination.pixel(1, 1)[2], 50);
    // 4 * 10 + 2 * 20 + 2 * 40 + 50 = 210
    EXPECT_EQ(destination.pixel(0, 0)[2], 23);
    // 20 + 2 * 30 + 50 + 2 * 60 + 80 + 2 * 90 = 510
    EXPECT_EQ(destination.pixel(2, 1)[2], 57);
    EXPECT_EQ(destination.pixel(1, 1)[1], 0);
}

TEST(BoxConvolve, EveryOddKernelUpTo99GivesTheWholeSumDividedOnce) {
    unsigned seed = 0;
    for (const auto& [width, height] : kSizes) {
        Picture noise(width, height);
        Picture extremes(width, height);
        noise.fillWithNoise(++seed);
        extremes.fillWithExtremes(++seed);
        for (std::uint32_t side = 1; side <= 99; side += 2) {
            ASSERT_NO_FATAL_FAILURE(expectConvolution(noise, {side, side}, kvImageEdgeExtend));
            ASSERT_NO_FATAL_FAILURE(expectConvolution(extremes, {side, 100 - side}, kvImageEdgeExtend));
        }
    }
}

TEST(BoxConvolve, KernelsBeyondTheImageGiveTheWholeSumDividedOnce) {
    const std::uint32_t sides[] = {1,    99,   127,   129,   131,   255,     257,        1023,       2895,
                                   2897, 4105, 32767, 32769, 65537, 1000001, 2147483647, 4294967295u};
    Picture noise(23, 14);
    Picture extremes(7, 18);
    noise.fillWithNoise(3);
    extremes.fillWithExtremes(4);
    for (const std::uint32_t width : sides) {
        for (const std::uint32_t height : sides) {
            ASSERT_NO_FATAL_FAILURE(expectConvolution(noise, {width, height}, kvImageEdgeExtend));
            ASSERT_NO_FATAL_FAILURE(expectConvolution(extremes, {width, height}, kvImageEdgeExtend));
        }
    }
}

TEST(BoxConvolve, TheLargestSumsFit) {
    Picture white(40, 5);
    white.fillWith(255);
    for (const std::uint32_t side : {127u, 129u, 255u, 257u, 259u, 2895u, 2897u, 32767u, 4294967295u}) {
        Picture destination(40, 5);
        ASSERT_EQ(convolve(white, destination, {side, side}, kvImageEdgeExtend), kvImageNoError);
        EXPECT_EQ(destination, white) << side;
    }
}

TEST(BoxConvolve, TheLargestColumnSumsFit) {
    Picture white(40, 5);
    white.fillWith(255);
    for (std::uint32_t height = 121; height <= 271; height += 2) {
        Picture destination(40, 5);
        ASSERT_EQ(convolve(white, destination, {3, height}, kvImageEdgeExtend), kvImageNoError);
        EXPECT_EQ(destination, white) << height;
    }
}

TEST(BoxConvolve, TheLargestRowSumsFit) {
    Picture white(9001, 2);
    white.fillWith(255);
    for (const Kernel kernel : {Kernel{18001, 3}, Kernel{18003, 1000001}}) {
        Picture destination(9001, 2);
        ASSERT_EQ(convolve(white, destination, kernel, kvImageEdgeExtend), kvImageNoError);
        EXPECT_EQ(destination, white) << kernel.height;
    }
}

TEST(BoxConvolve, TheLargestChangesFromAPixelToTheNextFit) {
    // Every second column is white and every other black, so that whole columns of 255 enter as others of 0 leave; and
    // one whose first half is white.
    Picture stripes(300, 3);
    Picture halves(300, 3);
    for (std::size_t x = 0; x < 300; ++x) {
        for (std::size_t y = 0; y < 3; ++y) {
            std::fill_n(stripes.pixel(x, y), 4, x % 2 == 0 ? std::uint8_t{255} : std::uint8_t{0});
            std::fill_n(halves.pixel(x, y), 4, x < 150 ? std::uint8_t{255} : std::uint8_t{0});
        }
    }
    // Areas around 2^23, 2^30, 2^31 and 2^32.
    for (const std::uint32_t width : {3u, 25u, 101u, 253u, 255u, 257u}) {
        for (const std::uint64_t area : {1ull << 23, 1ull << 30, 1ull << 31, 1ull << 32}) {
            const auto height = static_cast<std::uint32_t>(area / width) | 1;
            for (const std::uint32_t side : {height - 2, height, height + 2}) {
                ASSERT_NO_FATAL_FAILURE(expectConvolution(stripes, {width, side}, kvImageEdgeExtend));
                ASSERT_NO_FATAL_FAILURE(expectConvolution(halves, {width, side}, kvImageEdgeExtend));
            }
        }
    }
}

TEST(BoxConvolve, LargeKernelsOnLargerImages) {
    // Larger than what the kernel reaches from any pixel, so that it enters, crosses and leaves the image.
    Picture wide(1500, 3);
    Picture high(5, 1200);
    wide.fillWithNoise(5);
    high.fillWithNoise(6);
    for (const Kernel kernel : {Kernel{301, 3}, Kernel{999, 9001}, Kernel{1001, 8381}, Kernel{2001, 20001}})
        ASSERT_NO_FATAL_FAILURE(expectConvolution(wide, kernel, kvImageEdgeExtend));
    for (const Kernel kernel : {Kernel{3, 301}, Kernel{9001, 999}, Kernel{20001, 1001}})
        ASSERT_NO_FATAL_FAILURE(expectConvolution(high, kernel, kvImageEdgeExtend));
}

TEST(BoxConvolve, EveryEdgeStyleCountsWhatItSays) {
    unsigned seed = 40;
    for (const auto& [width, height] : kSizes) {
        Picture source(width, height);
        source.fillWithNoise(++seed);
        for (const vImage_Flags style : kEdgeStyles) {
            for (const std::uint32_t side : {1u, 3u, 5u, 9u, 17u, 31u, 65u, 131u, 3001u, 40001u, 4294967295u}) {
                ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {side, 7}, style));
                ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {9, side}, style));
                ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {side, side}, style | kvImageLeaveAlphaUnchanged));
            }
        }
    }
}

TEST(BoxConvolve, TruncatedMeansHalfWayRoundUp) {
    Picture source(2, 1);
    source.fillWith(0);
    source.pixel(1, 0)[3] = 1;
    Picture destination(2, 1);
    ASSERT_EQ(convolve(source, destination, {3, 1}, kvImageTruncateKernel), kvImageNoError);
    EXPECT_EQ(destination.pixel(0, 0)[3], 1);
    EXPECT_EQ(destination.pixel(1, 0)[3], 1);
    EXPECT_EQ(destination.pixel(1, 0)[2], 0);
}

TEST(BoxConvolve, PartsOfTheSourceSeeWhatIsAroundThem) {
    Picture source(29, 19);
    source.fillWithNoise(77);
    for (const vImage_Flags style : kEdgeStyles) {
        for (const std::uint32_t side : {1u, 3u, 11u, 35u, 129u, 5001u, 65537u, 4000001u}) {
            for (const Place place : {Place{0, 0}, Place{3, 2}, Place{11, 0}, Place{28, 18}, Place{20, 13}}) {
                Picture part(std::min<std::size_t>(9, 29 - place.x), std::min<std::size_t>(6, 19 - place.y), 0);
                ASSERT_NO_FATAL_FAILURE(expectConvolution(source, part, {side, 13}, style, place));
                ASSERT_NO_FATAL_FAILURE(expectConvolution(source, part, {5, side}, style, place));
            }
        }
    }
}

TEST(BoxConvolve, FirstByteIsTheSourcesWhenAlphaIsLeftUnchanged) {
    Picture source(12, 5);
    source.fillWithNoise(8);
    Picture destination(12, 5);
    ASSERT_EQ(convolve(source, destination, {5, 5}, kvImageEdgeExtend | kvImageLeaveAlphaUnchanged), kvImageNoError);
    Picture all(12, 5);
    ASSERT_EQ(convolve(source, all, {5, 5}, kvImageEdgeExtend), kvImageNoError);
    EXPECT_EQ(destination.pixel(7, 3)[0], source.pixel(7, 3)[0]);
    EXPECT_NE(destination.pixel(7, 3)[0], all.pixel(7, 3)[0]);
    EXPECT_EQ(destination.pixel(7, 3)[1], all.pixel(7, 3)[1]);
}

TEST(BoxConvolve, SourceIsNotTouched) {
    Picture source(50, 20);
    source.fillWithNoise(9);
    const Picture before = source;
    Picture destination(50, 20);
    for (const vImage_Flags style : kEdgeStyles)
        ASSERT_EQ(convolve(source, destination, {9, 11}, style), kvImageNoError);
    EXPECT_EQ(source, before);
    EXPECT_TRUE(source.hasItsGuards());
}

TEST(BoxConvolve, AllInstructionSetsOfThisMachineGiveTheSameBytes) {
    Picture source(71, 26);
    source.fillWithNoise(10);
    int count = 0;
    for (std::int64_t rest = hwy::SupportedTargets(); rest != 0; rest &= rest - 1) {
        const std::int64_t target = rest & -rest;
        const Instructions instructions(target);
        SCOPED_TRACE(hwy::TargetName(target));
        // Where these are not compiled in, there is one fallback without vectors.
        ASSERT_TRUE(detail::boxVectorTarget() == target || detail::boxVectorTarget() == HWY_STATIC_TARGET);
        count += detail::boxVectorTarget() == target ? 1 : 0;
        for (std::uint32_t side = 1; side <= 99; side += 14) {
            ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {side, side}, kvImageEdgeExtend));
            ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {side, 9}, kvImageBackgroundColorFill));
        }
        for (const std::uint32_t side :
             {127u, 255u, 257u, 259u, 141u, 143u, 1001u, 2895u, 2897u, 32767u, 46341u, 65537u}) {
            ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {side, side}, kvImageEdgeExtend));
            ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {15, side}, kvImageEdgeExtend));
            ASSERT_NO_FATAL_FAILURE(expectConvolution(source, {side, side}, kvImageBackgroundColorFill));
        }
    }
    EXPECT_GE(count, 1);
}
