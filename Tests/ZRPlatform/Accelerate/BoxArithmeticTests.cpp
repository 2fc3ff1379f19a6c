#include <ZRPlatform/Accelerate/Internal/BoxConvolution.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

using namespace zr::detail;

namespace {

std::uint64_t quotient(const BoxReciprocal& reciprocal, std::uint64_t sum) {
    return sum * reciprocal.factor >> (32 + reciprocal.shift);
}

/// Quotients only grow with the sum: they are right everywhere when they are right on both sides of every step.
::testing::AssertionResult dividesExactly(std::uint32_t area) {
    const BoxReciprocal reciprocal(area);
    const std::uint64_t greatest = std::uint64_t{255} * area + area / 2;
    for (std::uint64_t step = 1; step <= 255; ++step) {
        if (quotient(reciprocal, step * area) != step || quotient(reciprocal, step * area - 1) != step - 1)
            return ::testing::AssertionFailure() << step << " * " << area;
    }
    if (quotient(reciprocal, greatest) != 255 || quotient(reciprocal, 0) != 0)
        return ::testing::AssertionFailure() << "ends of " << area;
    // The product is made of 32-bit numbers.
    if (greatest > 0xFFFFFFFF)
        return ::testing::AssertionFailure() << greatest << " is too large";
    return ::testing::AssertionSuccess();
}

} // namespace

TEST(BoxReciprocal, DividesEverySumOfEveryAreaOfSquareKernelsExactly) {
    for (std::uint32_t side = 3; std::uint64_t{side} * side < kBoxReciprocalAreaEnd; side += 2)
        ASSERT_TRUE(dividesExactly(side * side));
}

TEST(BoxReciprocal, DividesEverySumOfTheSmallestAndOfTheLargestAreasExactly) {
    for (std::uint32_t area = 3; area < 20001; area += 2)
        ASSERT_TRUE(dividesExactly(area));
    const auto end = static_cast<std::uint32_t>(kBoxReciprocalAreaEnd);
    for (std::uint32_t area = end - 20001; area < end; area += 2)
        ASSERT_TRUE(dividesExactly(area));
}

TEST(BoxReciprocal, DividesEverySumBelowTheGreatestOfSmallAreas) {
    for (std::uint32_t area = 3; area < 256; area += 2) {
        const BoxReciprocal reciprocal(area);
        for (std::uint64_t sum = 0; sum <= 255 * area + area / 2; ++sum)
            ASSERT_EQ(quotient(reciprocal, sum), sum / area) << sum << " / " << area;
    }
}

TEST(BoxArithmetic, InverseOfAnOddNumberTimesItIsOneInSixteenBits) {
    for (std::uint64_t odd = 1; odd < 65536; odd += 2)
        ASSERT_EQ(static_cast<std::uint16_t>(inverseOf(odd) * odd), 1) << odd;
    EXPECT_EQ(static_cast<std::uint16_t>(inverseOf(0xFFFFFFFFFFFFFFFF) * 0xFFFF), 1);
}

TEST(BoxSpan, SharesPlacesOutBetweenBeforeOnAndBehind) {
    const auto parts = [](std::int64_t begin, std::int64_t count, std::int64_t size) {
        const BoxSpan span = spanOf(begin, count, size);
        return std::array{span.below, span.first, span.inside, span.above};
    };
    EXPECT_EQ(parts(-3, 5, 10), (std::array<std::int64_t, 4>{3, 0, 2, 0}));
    EXPECT_EQ(parts(8, 5, 10), (std::array<std::int64_t, 4>{0, 8, 2, 3}));
    EXPECT_EQ(parts(-3, 20, 10), (std::array<std::int64_t, 4>{3, 0, 10, 7}));
    EXPECT_EQ(parts(2, 3, 10), (std::array<std::int64_t, 4>{0, 2, 3, 0}));
    EXPECT_EQ(parts(-1, 1, 10), (std::array<std::int64_t, 4>{1, 0, 0, 0}));
}

TEST(BoxArithmetic, EveryWayGivesTheSameBytes) {
    constexpr std::int64_t kWidth = 300;
    constexpr std::int64_t kHeight = 9;
    std::vector<std::uint8_t> source(4 * kWidth * kHeight);
    std::minstd_rand random(4);
    std::generate(source.begin(), source.end(), [&] { return static_cast<std::uint8_t>(random() >> 9); });
    BoxConvolution convolution;
    convolution.source = source.data();
    convolution.sourceRowBytes = convolution.destinationRowBytes = 4 * kWidth;
    convolution.width = convolution.destinationWidth = kWidth;
    convolution.height = convolution.destinationHeight = kHeight;
    convolution.kernelWidth = 255;
    convolution.kernelHeight = 11;
    ASSERT_EQ(arithmeticOf(convolution), BoxArithmetic::Short);
    const auto make = [&](auto convolveWay) {
        std::vector<std::uint8_t> destination(source.size());
        std::vector<std::byte> memory(1 << 20);
        void* workspace = memory.data();
        std::size_t space = memory.size();
        std::align(kBoxAlignment, 1 << 19, workspace, space);
        convolution.destination = destination.data();
        convolveWay(static_cast<std::byte*>(workspace));
        return destination;
    };
    const auto reference =
        make([&](std::byte* workspace) { convolveRowsOfAnySize(convolution, workspace, 0, kHeight); });
    for (const BoxArithmetic way : {BoxArithmetic::Short, BoxArithmetic::Long, BoxArithmetic::Remainder}) {
        EXPECT_EQ(make([&](std::byte* workspace) { convolveRowsWithVectors(convolution, way, workspace, 0, kHeight); }),
                  reference);
    }
}
