#include <ZRPlatform/CoreGraphics/CGAffineTransform.h>

#include <gtest/gtest.h>

#include <array>
#include <numbers>

using namespace zr;

namespace {

constexpr CGFloat kPi = std::numbers::pi_v<CGFloat>;

/// Row vectors times 3 x 3 matrices, the textbook way.
using Matrix = std::array<std::array<CGFloat, 3>, 3>;

Matrix matrixOf(CGAffineTransform t) { return {{{t.a, t.b, 0}, {t.c, t.d, 0}, {t.tx, t.ty, 1}}}; }

Matrix product(const Matrix& left, const Matrix& right) {
    Matrix result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t k = 0; k < 3; ++k)
                result[row][column] += left[row][k] * right[k][column];
        }
    }
    return result;
}

void expectNear(CGAffineTransform t, const Matrix& expected) {
    const Matrix actual = matrixOf(t);
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            EXPECT_NEAR(actual[row][column], expected[row][column], 1e-12) << row << " " << column;
    }
}

constexpr CGAffineTransform kSkewed{2, 0.5, -1, 3, 7, -11};

} // namespace

TEST(CGAffineTransform, ConcatIsTheMatrixProductOfFirstAndSecond) {
    const CGAffineTransform other = CGAffineTransformMake(0.25, -2, 1.5, 4, -3, 5);
    expectNear(CGAffineTransformConcat(kSkewed, other), product(matrixOf(kSkewed), matrixOf(other)));
}

TEST(CGAffineTransform, TranslateScaleAndRotateComeBeforeTheTransform) {
    const CGFloat angle = 0.7;
    const Matrix move = {{{1, 0, 0}, {0, 1, 0}, {4, -5, 1}}};
    const Matrix scale = {{{4, 0, 0}, {0, -5, 0}, {0, 0, 1}}};
    const Matrix turn = {{{std::cos(angle), std::sin(angle), 0}, {-std::sin(angle), std::cos(angle), 0}, {0, 0, 1}}};
    expectNear(CGAffineTransformTranslate(kSkewed, 4, -5), product(move, matrixOf(kSkewed)));
    expectNear(CGAffineTransformScale(kSkewed, 4, -5), product(scale, matrixOf(kSkewed)));
    expectNear(CGAffineTransformRotate(kSkewed, angle), product(turn, matrixOf(kSkewed)));
}

TEST(CGAffineTransform, MakersGiveTheirMatrices) {
    expectNear(CGAffineTransformMakeTranslation(3, 4), {{{1, 0, 0}, {0, 1, 0}, {3, 4, 1}}});
    expectNear(CGAffineTransformMakeScale(3, 4), {{{3, 0, 0}, {0, 4, 0}, {0, 0, 1}}});
    expectNear(CGAffineTransformMakeRotation(kPi / 2), {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}});
}

TEST(CGAffineTransform, PositiveRotationTurnsXTowardsY) {
    const CGPoint turned = CGPointApplyAffineTransform({1, 0}, CGAffineTransformMakeRotation(kPi / 2));
    EXPECT_NEAR(turned.x, 0, 1e-15);
    EXPECT_NEAR(turned.y, 1, 1e-15);
}

TEST(CGAffineTransform, InverseUndoes) {
    expectNear(CGAffineTransformConcat(kSkewed, CGAffineTransformInvert(kSkewed)), matrixOf(CGAffineTransformIdentity));
    const CGPoint there = CGPointApplyAffineTransform({3, 9}, kSkewed);
    const CGPoint back = CGPointApplyAffineTransform(there, CGAffineTransformInvert(kSkewed));
    EXPECT_NEAR(back.x, 3, 1e-12);
    EXPECT_NEAR(back.y, 9, 1e-12);
}

TEST(CGAffineTransform, WithoutAnInverseItComesBackAsItIs) {
    const CGAffineTransform flat = CGAffineTransformMake(1, 2, 2, 4, 5, 6);
    EXPECT_EQ(CGAffineTransformInvert(flat), flat);
    const CGAffineTransform nowhere = CGAffineTransformMakeScale(std::numeric_limits<CGFloat>::infinity(), 1);
    EXPECT_TRUE(CGAffineTransformEqualToTransform(CGAffineTransformInvert(nowhere), nowhere));
}

TEST(CGAffineTransform, IdentityIsRecognised) {
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGAffineTransformIdentity));
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGAffineTransformMakeScale(1, 1)));
    EXPECT_FALSE(CGAffineTransformIsIdentity(CGAffineTransformMakeTranslation(0, 1)));
}

TEST(CGAffineTransform, SizesDoNotMove) {
    EXPECT_EQ(CGSizeApplyAffineTransform({10, 20}, kSkewed), CGSizeMake(2 * 10 - 20, 0.5 * 10 + 3 * 20));
}

TEST(CGAffineTransform, ARectangleBecomesTheBoxAroundItsCorners) {
    const CGRect box = CGRectApplyAffineTransform(CGRectMake(-1, -1, 2, 2), CGAffineTransformMakeRotation(kPi / 4));
    EXPECT_NEAR(box.origin.x, -std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(box.origin.y, -std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(box.size.width, 2 * std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(box.size.height, 2 * std::sqrt(2.0), 1e-12);
    EXPECT_EQ(CGRectApplyAffineTransform(CGRectMake(1, 2, 3, 4), CGAffineTransformMakeScale(-2, 1)),
              CGRectMake(-8, 2, 6, 4));
    EXPECT_TRUE(CGRectIsNull(CGRectApplyAffineTransform(CGRectNull, CGAffineTransformMakeScale(-2, 1))));
}
