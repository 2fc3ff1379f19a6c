#include <ZRPlatform/Accelerate/Internal/GaussianBlur.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <hwy/targets.h>
#include <thread>
#include <vector>

namespace zr::detail {

namespace {

/// What the exact result may differ by: rounding, and the error of the method.
constexpr double kTolerance = 0.7;

/// Four pictures in one, a channel each, that are hard to blur: a white pixel in the middle, noise, steps and a
/// checkerboard.
struct Picture {
    Picture(std::int64_t pictureWidth, std::int64_t pictureHeight) : width(pictureWidth), height(pictureHeight) {
        std::uint32_t noise = 12345;
        for (std::int64_t y = 0; y < height; ++y) {
            for (std::int64_t x = 0; x < width; ++x) {
                noise = noise * 1664525 + 1013904223;
                const bool values[] = {x == width / 2 && y == height / 2, (noise >> 24 & 1) != 0,
                                       x >= width / 3 && y >= height / 3, (x + y) % 2 != 0};
                for (const bool value : values)
                    bytes.push_back(value ? 255 : 0);
            }
        }
    }
    BlurSource source() const { return {bytes.data(), static_cast<std::size_t>(width) * 4, width, height}; }
    double value(std::int64_t x, std::int64_t y, std::size_t channel) const {
        return bytes[static_cast<std::size_t>(4 * (y * width + x)) + channel];
    }

    std::int64_t width;
    std::int64_t height;
    std::vector<std::uint8_t> bytes;
};

struct Blurred {
    Blurred(const Picture& picture, double sigma, std::int64_t left, std::int64_t top, std::int64_t blurredWidth,
            std::int64_t blurredHeight) :
        x(left),
        y(top), width(blurredWidth), height(blurredHeight), bytes(static_cast<std::size_t>(4 * width * height), 99) {
        const BlurTarget target{bytes.data(), static_cast<std::size_t>(width) * 4, width, height, x, y};
        EXPECT_TRUE(gaussianBlur(picture.source(), target, sigma));
    }
    /// All that can be seen of it.
    Blurred(const Picture& picture, double sigma) :
        Blurred(picture, sigma, static_cast<std::int64_t>(std::ceil(3 * sigma))) {}
    Blurred(const Picture& picture, double sigma, std::int64_t margin) :
        Blurred(picture, sigma, -margin, -margin, picture.width + 2 * margin, picture.height + 2 * margin) {}
    /// In the picture's grid.
    int value(std::int64_t column, std::int64_t row, std::size_t channel) const {
        return bytes[static_cast<std::size_t>(4 * ((row - y) * width + column - x)) + channel];
    }

    std::int64_t x, y, width, height;
    std::vector<std::uint8_t> bytes;
};

/// A Gaussian at whole numbers, without an end as far as doubles can tell, of sum 1.
class Bell {
public:
    explicit Bell(double sigma) : m_reach(static_cast<std::int64_t>(std::ceil(12 * sigma)) + 1) {
        for (std::int64_t i = 0; i <= m_reach; ++i) {
            m_weights.push_back(std::exp(-0.5 * static_cast<double>(i * i) / (sigma * sigma)));
            m_sum += (i == 0 ? 1 : 2) * m_weights.back();
        }
    }
    std::int64_t reach() const { return m_reach; }
    double at(std::int64_t distance) const { return m_weights[static_cast<std::size_t>(std::abs(distance))] / m_sum; }

private:
    std::int64_t m_reach;
    std::vector<double> m_weights;
    double m_sum = 0;
};

/// The largest difference from the exact result, at every `stride`-th pixel in both directions.
double largestError(const Picture& picture, const Blurred& blurred, double sigma, std::int64_t stride) {
    const Bell bell(sigma);
    double largest = 0;
    std::vector<double> column(static_cast<std::size_t>(4 * picture.height));
    for (std::int64_t x = blurred.x; x < blurred.x + blurred.width; x += stride) {
        std::fill(column.begin(), column.end(), 0);
        for (std::int64_t y = 0; y < picture.height; ++y) {
            for (std::int64_t i = std::max<std::int64_t>(x - bell.reach(), 0);
                 i <= std::min(x + bell.reach(), picture.width - 1); ++i) {
                for (std::size_t c = 0; c < 4; ++c)
                    column[static_cast<std::size_t>(4 * y) + c] += bell.at(i - x) * picture.value(i, y, c);
            }
        }
        for (std::int64_t y = blurred.y; y < blurred.y + blurred.height; y += stride) {
            double exact[4] = {};
            for (std::int64_t i = std::max<std::int64_t>(y - bell.reach(), 0);
                 i <= std::min(y + bell.reach(), picture.height - 1); ++i) {
                for (std::size_t c = 0; c < 4; ++c)
                    exact[c] += bell.at(i - y) * column[static_cast<std::size_t>(4 * i) + c];
            }
            for (std::size_t c = 0; c < 4; ++c)
                largest = std::max(largest, std::fabs(exact[c] - blurred.value(x, y, c)));
        }
    }
    return largest;
}

/// Makes the arithmetic use one instruction set until it is gone.
class OneTarget {
public:
    explicit OneTarget(std::int64_t target) {
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(target);
    }
    ~OneTarget() {
        hwy::SetSupportedTargetsForTest(0);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    }
};

} // namespace

TEST(GaussianBlur, IsExactForEveryRadiusAndHardPictures) {
    const Picture picture(83, 61);
    for (const double sigma :
         {0.01, 0.3, 0.5, 1.0, 2.0, 2.49, 2.5, 3.0, 3.74, 3.75, 5.0, 7.3, 10.0, 20.0, 50.0, 100.0}) {
        const std::int64_t stride = sigma <= 3 ? 1 : static_cast<std::int64_t>(sigma / 3) * 2 + 1;
        EXPECT_LE(largestError(picture, Blurred(picture, sigma), sigma, stride), kTolerance) << sigma;
    }
}

TEST(GaussianBlur, IsExactForEverySizeDownToOnePixel) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 2}, {2, 1}, {3, 2}, {1, 40}, {40, 1}, {7, 9}}) {
        const Picture picture(width, height);
        for (const double sigma : {0.3, 1.0, 2.6, 4.0, 9.0, 30.0})
            EXPECT_LE(largestError(picture, Blurred(picture, sigma), sigma, 1), kTolerance)
                << width << " x " << height << ", " << sigma;
    }
}

TEST(GaussianBlur, IsExactAcrossTheSeamsOfItsParts) {
    // Wider and taller than what is worked on at a time, and shared out.
    const Picture wide(1100, 130), tall(60, 1700);
    for (const double sigma : {0.7, 2.6, 12.0}) {
        EXPECT_LE(largestError(wide, Blurred(wide, sigma), sigma, 5), kTolerance) << sigma;
        EXPECT_LE(largestError(tall, Blurred(tall, sigma), sigma, 5), kTolerance) << sigma;
    }
}

TEST(GaussianBlur, EveryInstructionSetGivesTheResult) {
    const Picture picture(45, 37);
    std::size_t targets = 0;
    for (std::int64_t left = hwy::SupportedTargets(); left != 0; left &= left - 1) {
        const OneTarget only(left & -left);
        ++targets;
        for (const double sigma : {0.8, 3.0, 8.0})
            EXPECT_LE(largestError(picture, Blurred(picture, sigma), sigma, 1), kTolerance)
                << hwy::TargetName(left & -left) << ", " << sigma;
    }
    EXPECT_GE(targets, 1u);
}

TEST(GaussianBlur, WhiteStaysWhiteAndNothingStaysNothing) {
    Picture picture(200, 40);
    std::fill(picture.bytes.begin(), picture.bytes.end(), std::uint8_t{255});
    for (const double sigma : {0.5, 2.0, 4.0}) {
        const Blurred blurred(picture, sigma, 100, 20, 1, 1);
        EXPECT_EQ(blurred.value(100, 20, 0), 255) << sigma;
    }
    std::fill(picture.bytes.begin(), picture.bytes.end(), std::uint8_t{0});
    for (const double sigma : {0.5, 5.0}) {
        const Blurred blurred(picture, sigma);
        EXPECT_EQ(std::count(blurred.bytes.begin(), blurred.bytes.end(), 0),
                  static_cast<std::ptrdiff_t>(blurred.bytes.size()));
    }
}

TEST(GaussianBlur, ColoursStayWithinTheirAlpha) {
    Picture picture(50, 50);
    for (std::size_t i = 0; i < picture.bytes.size(); i += 4) {
        for (std::size_t c = 0; c < 3; ++c)
            picture.bytes[i + c] = std::min(picture.bytes[i + c], picture.bytes[i + 3]);
    }
    for (const double sigma : {0.6, 1.0, 2.6, 6.0}) {
        const Blurred blurred(picture, sigma);
        for (std::size_t i = 0; i < blurred.bytes.size(); i += 4) {
            for (std::size_t c = 0; c < 3; ++c)
                ASSERT_LE(blurred.bytes[i + c], blurred.bytes[i + 3]) << sigma;
        }
    }
}

TEST(GaussianBlur, APartIsThatOfTheWhole) {
    const Picture picture(400, 300);
    for (const double sigma : {1.3, 7.0, 33.0}) {
        const Blurred whole(picture, sigma);
        for (const auto& [x, y] : {std::pair{-3, -2}, {100, 77}, {391, 295}}) {
            const Blurred part(picture, sigma, x, y, 13, 9);
            for (std::int64_t row = y; row < y + 9; ++row) {
                for (std::int64_t column = x; column < x + 13; ++column) {
                    for (std::size_t c = 0; c < 4; ++c)
                        ASSERT_EQ(part.value(column, row, c), whole.value(column, row, c)) << sigma;
                }
            }
        }
    }
}

TEST(GaussianBlur, ASourceCutDownToItsReachGivesTheSame) {
    const Picture picture(500, 4);
    for (const double sigma : {1.0, 6.0, 20.0}) {
        const std::int64_t reach = blurReach(sigma), step = blurStep(sigma);
        const std::int64_t x = 300, cut = (x - reach) / step * step;
        ASSERT_GT(cut, 0);
        const Blurred whole(picture, sigma, x, 0, 1, 4);
        const BlurSource source{picture.bytes.data() + 4 * cut, 500 * 4, x + reach + 1 - cut, 4};
        std::uint8_t pixels[16] = {};
        ASSERT_TRUE(gaussianBlur(source, {pixels, 4, 1, 4, x - cut, 0}, sigma));
        EXPECT_TRUE(std::equal(whole.bytes.begin(), whole.bytes.end(), pixels)) << sigma;
    }
}

TEST(GaussianBlur, RowsMayBeFartherApartAndWhatLiesBetweenIsLeftAlone) {
    const Picture picture(30, 20);
    std::vector<std::uint8_t> spaced(20 * 200, 77);
    for (std::size_t y = 0; y < 20; ++y)
        std::copy_n(picture.bytes.data() + y * 120, 120, spaced.data() + y * 200);
    for (const double sigma : {1.0, 5.0}) {
        const Blurred wanted(picture, sigma, 0, 0, 30, 20);
        std::vector<std::uint8_t> result(20 * 160, 55);
        ASSERT_TRUE(gaussianBlur({spaced.data(), 200, 30, 20}, {result.data(), 160, 30, 20, 0, 0}, sigma));
        for (std::size_t y = 0; y < 20; ++y) {
            EXPECT_TRUE(
                std::equal(result.data() + y * 160, result.data() + y * 160 + 120, wanted.bytes.data() + y * 120));
            for (std::size_t i = 120; i < 160; ++i)
                ASSERT_EQ(result[y * 160 + i], 55);
        }
    }
}

TEST(GaussianBlur, FarFromTheSourceThereIsNothing) {
    const Picture picture(20, 20);
    for (const double sigma : {1.0, 50.0, kLargestSigma}) {
        for (const std::int64_t far : {std::int64_t{-1} << 30, std::int64_t{1} << 30}) {
            const Blurred blurred(picture, sigma, far, far, 3, 3);
            EXPECT_EQ(std::count(blurred.bytes.begin(), blurred.bytes.end(), 0), 36) << sigma;
        }
    }
}

TEST(GaussianBlur, TheLargestRadiusIsExactToo) {
    Picture square(2'000, 2'000);
    std::fill(square.bytes.begin(), square.bytes.end(), std::uint8_t{255});
    const Blurred middle(square, kLargestSigma, 1'000, 1'000, 1, 1);
    const double share = std::erf(1'000 / (kLargestSigma * std::sqrt(2.0)));
    EXPECT_NEAR(middle.value(1'000, 1'000, 0), 255 * share * share, kTolerance);
}

TEST(GaussianBlur, WithoutMemoryItSaysSo) {
    const Picture picture(2, 2);
    std::uint8_t pixel[4];
    const std::int64_t endless = std::int64_t{1} << 30;
    EXPECT_FALSE(gaussianBlur(picture.source(), {pixel, 4, endless, endless, 0, 0}, 100));
}

TEST(GaussianBlur, MayBeUsedOnSeveralThreadsAtOnce) {
    const Picture picture(400, 300);
    const Blurred wanted(picture, 9);
    std::vector<std::thread> threads;
    std::vector<std::vector<std::uint8_t>> results(4);
    for (auto& result : results)
        threads.emplace_back([&] { result = Blurred(picture, 9).bytes; });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& result : results)
        EXPECT_EQ(result, wanted.bytes);
}

} // namespace zr::detail
