#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#include <gtest/gtest.h>

using namespace zr;

namespace {

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

} // namespace

TEST(CGRect, EdgesOfANegativeSizeAreThoseOfTheStandardisedRectangle) {
    const CGRect rect = CGRectMake(10, 20, -4, -6);
    EXPECT_EQ(CGRectGetMinX(rect), 6);
    EXPECT_EQ(CGRectGetMaxX(rect), 10);
    EXPECT_EQ(CGRectGetMidX(rect), 8);
    EXPECT_EQ(CGRectGetMinY(rect), 14);
    EXPECT_EQ(CGRectGetMaxY(rect), 20);
    EXPECT_EQ(CGRectGetMidY(rect), 17);
    EXPECT_EQ(CGRectGetWidth(rect), 4);
    EXPECT_EQ(CGRectGetHeight(rect), 6);
    EXPECT_EQ(CGRectStandardize(rect), CGRectMake(6, 14, 4, 6));
    EXPECT_TRUE(CGRectEqualToRect(rect, CGRectMake(6, 14, 4, 6)));
    EXPECT_FALSE(CGRectEqualToRect(rect, CGRectMake(6, 14, 4, 7)));
}

TEST(CGRect, EmptyMeansNullOrWithoutArea) {
    EXPECT_TRUE(CGRectIsEmpty(CGRectNull));
    EXPECT_TRUE(CGRectIsEmpty(CGRectZero));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 2, 0, 5)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 2, kNaN, 5)));
    EXPECT_FALSE(CGRectIsEmpty(CGRectMake(1, 2, -3, 5)));
    EXPECT_TRUE(CGRectIsNull(CGRectNull));
    EXPECT_FALSE(CGRectIsNull(CGRectZero));
}

TEST(CGRect, FiniteMeansEveryNumber) {
    EXPECT_TRUE(CGRectIsFinite(CGRectMake(1, 2, 3, 4)));
    EXPECT_FALSE(CGRectIsFinite(CGRectMake(kNaN, 2, 3, 4)));
    EXPECT_FALSE(CGRectIsFinite(CGRectMake(1, -kInfinity, 3, 4)));
    EXPECT_FALSE(CGRectIsFinite(CGRectMake(1, 2, kInfinity, 4)));
    EXPECT_FALSE(CGRectIsFinite(CGRectMake(1, 2, 3, kNaN)));
    EXPECT_FALSE(CGRectIsFinite(CGRectNull));
}

TEST(CGRect, InsetMovesEverySideAndEndsInNull) {
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 10, 20), 2, 3), CGRectMake(2, 3, 6, 14));
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 10, 20), -2, -3), CGRectMake(-2, -3, 14, 26));
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, -10, -20), 1, 1), CGRectMake(1, 1, 8, 18));
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 10, 20), 5, 0), CGRectMake(5, 0, 0, 20));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectMake(0, 0, 10, 20), 6, 0)));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectNull, -5, -5)));
}

TEST(CGRect, OffsetMovesAndKeepsNull) {
    EXPECT_EQ(CGRectOffset(CGRectMake(1, 2, 3, 4), 10, -10), CGRectMake(11, -8, 3, 4));
    EXPECT_TRUE(CGRectIsNull(CGRectOffset(CGRectNull, 1, 1)));
}

TEST(CGRect, IntegralGrowsToWholeNumbers) {
    EXPECT_EQ(CGRectIntegral(CGRectMake(0.5, -0.5, 1, 1)), CGRectMake(0, -1, 2, 2));
    EXPECT_EQ(CGRectIntegral(CGRectMake(1, 2, 3, 4)), CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(CGRectIntegral(CGRectMake(2.25, 2.25, -1, -1)), CGRectMake(1, 1, 2, 2));
    EXPECT_TRUE(CGRectIsNull(CGRectIntegral(CGRectNull)));
}

TEST(CGRect, UnionIgnoresNullButNotEmpty) {
    EXPECT_EQ(CGRectUnion(CGRectMake(0, 0, 1, 1), CGRectMake(4, 5, 1, 1)), CGRectMake(0, 0, 5, 6));
    EXPECT_EQ(CGRectUnion(CGRectNull, CGRectMake(4, 5, 1, 1)), CGRectMake(4, 5, 1, 1));
    EXPECT_EQ(CGRectUnion(CGRectMake(4, 5, 1, 1), CGRectNull), CGRectMake(4, 5, 1, 1));
    EXPECT_EQ(CGRectUnion(CGRectMake(4, 5, 1, 1), CGRectZero), CGRectMake(0, 0, 5, 6));
    EXPECT_EQ(CGRectUnion(CGRectMake(5, 6, -1, -1), CGRectZero), CGRectMake(0, 0, 5, 6));
}

TEST(CGRect, IntersectionIsNullApartAndEmptyWhenTouching) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_EQ(CGRectIntersection(rect, CGRectMake(5, 6, 10, 10)), CGRectMake(5, 6, 5, 4));
    EXPECT_EQ(CGRectIntersection(rect, CGRectMake(15, 16, -10, -10)), CGRectMake(5, 6, 5, 4));
    EXPECT_EQ(CGRectIntersection(rect, CGRectMake(10, 0, 5, 5)), CGRectMake(10, 0, 0, 5));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(rect, CGRectMake(10.5, 0, 5, 5))));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(rect, CGRectNull)));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(CGRectMake(kNaN, 0, 5, 5), rect)));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(rect, CGRectMake(0, 0, 5, kNaN))));
}

TEST(CGRect, IntersectsNeedsMoreThanATouch) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_TRUE(CGRectIntersectsRect(rect, CGRectMake(9, 9, 5, 5)));
    EXPECT_TRUE(CGRectIntersectsRect(rect, CGRectMake(14, 14, -5, -5)));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(10, 0, 5, 5)));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(0, -5, 5, 5)));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectNull));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(0, kNaN, 5, 5)));
}

TEST(CGRect, ContainsLeftAndTopEdgesOnly) {
    const CGRect rect = CGRectMake(10, 20, 5, 5);
    EXPECT_TRUE(CGRectContainsPoint(rect, {10, 20}));
    EXPECT_TRUE(CGRectContainsPoint(rect, {14.5, 24.5}));
    EXPECT_FALSE(CGRectContainsPoint(rect, {15, 22}));
    EXPECT_FALSE(CGRectContainsPoint(rect, {12, 25}));
    EXPECT_FALSE(CGRectContainsPoint(rect, {kNaN, 22}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectNull, {kInfinity, kInfinity}));
    EXPECT_TRUE(CGRectContainsPoint(CGRectMake(15, 25, -5, -5), {10, 20}));
}

TEST(CGRect, ContainsRectCountsSharedEdges) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_TRUE(CGRectContainsRect(rect, rect));
    EXPECT_TRUE(CGRectContainsRect(rect, CGRectMake(10, 10, -10, -10)));
    EXPECT_FALSE(CGRectContainsRect(rect, CGRectMake(0, 0, 10, 10.5)));
    EXPECT_FALSE(CGRectContainsRect(rect, CGRectNull));
    EXPECT_FALSE(CGRectContainsRect(rect, CGRectMake(1, 1, kNaN, 1)));
}

TEST(CGRect, InfiniteSizesMeetEverythingOnTheirSide) {
    const CGRect halfPlane = CGRectMake(0, -1e300, kInfinity, 2e300);
    EXPECT_TRUE(CGRectIntersectsRect(halfPlane, CGRectMake(1e100, 5, 1, 1)));
    EXPECT_FALSE(CGRectIntersectsRect(halfPlane, CGRectMake(-2, 5, 1, 1)));
}
