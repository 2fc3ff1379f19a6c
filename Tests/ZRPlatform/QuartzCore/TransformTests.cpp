#include <ZRPlatform/QuartzCore/Layers/CATransform3D.h>
#include <ZRPlatform/QuartzCore/Layers/Homography.h>

#include <gtest/gtest.h>

#include <array>
#include <numbers>

using namespace zr;

namespace {

void expectNear(const CATransform3D& a, const CATransform3D& b, double tolerance = 1e-9) {
    const auto* x = &a.m11;
    const auto* y = &b.m11;
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(x[i], y[i], tolerance) << "number " << i;
}

} // namespace

TEST(CATransform3D, ScaleHappensBeforeTheTransformItIsAppliedTo) {
    const auto t = CATransform3DScale(CATransform3DMakeTranslation(10, 20, 30), 2, 3, 4);
    EXPECT_EQ(t.m11, 2);
    EXPECT_EQ(t.m22, 3);
    EXPECT_EQ(t.m33, 4);
    EXPECT_EQ(t.m41, 10);
    EXPECT_EQ(t.m42, 20);
    EXPECT_EQ(t.m43, 30);
    const auto moved = CATransform3DTranslate(CATransform3DMakeScale(2, 3, 4), 1, 1, 1);
    EXPECT_EQ(moved.m41, 2);
    EXPECT_EQ(moved.m42, 3);
    EXPECT_EQ(moved.m43, 4);
}

TEST(CATransform3D, RotationAboutZTurnsXTowardsY) {
    const auto t = CATransform3DMakeRotation(std::numbers::pi / 6, 0, 0, 5);
    EXPECT_NEAR(t.m11, std::cos(std::numbers::pi / 6), 1e-12);
    EXPECT_NEAR(t.m12, 0.5, 1e-12);
    EXPECT_NEAR(t.m21, -0.5, 1e-12);
    EXPECT_EQ(t.m33, 1);
}

TEST(CATransform3D, RotationAboutXAndYFollowTheRightHand) {
    const auto x = CATransform3DMakeRotation(std::numbers::pi / 6, 1, 0, 0);
    EXPECT_NEAR(x.m23, 0.5, 1e-12);
    EXPECT_NEAR(x.m32, -0.5, 1e-12);
    const auto y = CATransform3DMakeRotation(std::numbers::pi / 6, 0, 1, 0);
    EXPECT_NEAR(y.m31, 0.5, 1e-12);
    EXPECT_NEAR(y.m13, -0.5, 1e-12);
}

TEST(CATransform3D, RotationAboutNoAxisIsTheIdentity) {
    EXPECT_TRUE(CATransform3DIsIdentity(CATransform3DMakeRotation(1, 0, 0, 0)));
}

TEST(CATransform3D, InverseUndoes) {
    auto t = CATransform3DMakeRotation(0.7, 1, 2, 3);
    t.m34 = -1.0 / 900;
    t = CATransform3DTranslate(CATransform3DScale(t, 2, 3, 4), 5, 6, 7);
    expectNear(CATransform3DConcat(t, CATransform3DInvert(t)), CATransform3DIdentity);
}

TEST(CATransform3D, SingularTransformIsItsOwnInverse) {
    const auto flat = CATransform3DMakeScale(0, 1, 1);
    EXPECT_EQ(CATransform3DInvert(flat), flat);
}

TEST(CATransform3D, AffinePartRoundTrips) {
    const CGAffineTransform affine{1, 2, 3, 4, 5, 6};
    const auto t = CATransform3DMakeAffineTransform(affine);
    EXPECT_TRUE(CATransform3DIsAffine(t));
    EXPECT_EQ(CATransform3DGetAffineTransform(t), affine);
    auto tilted = t;
    tilted.m34 = 0.1;
    EXPECT_FALSE(CATransform3DIsAffine(tilted));
    EXPECT_EQ(CATransform3DGetAffineTransform(tilted), CGAffineTransformIdentity);
}

TEST(CATransform3D, TakenApartAndPutTogetherIsTheSame) {
    CATransform3D t;
    t.m34 = -1.0 / 500;
    t = CATransform3DTranslate(t, 10, -20, 0);
    t = CATransform3DRotate(t, 0.5, 0.3, 0.7, 0.2);
    CATransform3D shear;
    shear.m21 = 0.25;
    t = CATransform3DConcat(shear, t);
    t = CATransform3DScale(t, 2, 0.5, 3);
    TransformParts parts;
    ASSERT_TRUE(decomposeTransform(t, parts));
    EXPECT_NEAR(parts.scale[0], 2, 1e-9);
    expectNear(composeTransform(parts), t);
}

TEST(CATransform3D, MirrorImagesRoundTripToo) {
    const auto t = CATransform3DScale(CATransform3DMakeRotation(0.2, 0, 0, 1), -2, 3, 1);
    TransformParts parts;
    ASSERT_TRUE(decomposeTransform(t, parts));
    expectNear(composeTransform(parts), t);
}

TEST(CATransform3D, HalfWayBetweenTwoRotationsIsHalfTheAngle) {
    const auto from = CATransform3DMakeRotation(0.2, 0, 0, 1);
    const auto to = CATransform3DMakeRotation(1.0, 0, 0, 1);
    expectNear(interpolateTransforms(from, to, 0.5), CATransform3DMakeRotation(0.6, 0, 0, 1));
}

TEST(CATransform3D, RotationsEitherWayAboutEveryAxisKeepTheirSense) {
    for (const double angle : {-1.0, 1.0, -2.5, 2.5}) {
        for (const auto& [x, y, z] : {std::array{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, -2, 3}}) {
            const auto turned = CATransform3DMakeRotation(angle, x, y, z);
            TransformParts parts;
            ASSERT_TRUE(decomposeTransform(turned, parts));
            expectNear(composeTransform(parts), turned);
            expectNear(interpolateTransforms(CATransform3DIdentity, turned, 0.5),
                       CATransform3DMakeRotation(angle / 2, x, y, z));
        }
    }
}

TEST(CATransform3D, ScalesInterpolateLinearly) {
    const auto t = interpolateTransforms(CATransform3DMakeScale(0.9, 0.9, 1), CATransform3DIdentity, 0.5);
    expectNear(t, CATransform3DMakeScale(0.95, 0.95, 1));
}

TEST(CATransform3D, SingularEndsInterpolateNumberByNumber) {
    const auto t = interpolateTransforms(CATransform3DMakeScale(0, 0, 1), CATransform3DIdentity, 0.25);
    expectNear(t, CATransform3DMakeScale(0.25, 0.25, 1));
}

TEST(Homography, PerspectiveDividesByTheThirdNumber) {
    CATransform3D t;
    t.m34 = -1.0 / 100;
    t = CATransform3DRotate(t, std::numbers::pi / 3, 0, 1, 0);
    // The point (10, 0, 0) turns to z = -10 sin 60 degrees, and is divided by 1 - z / 100.
    const auto point = Homography::fromTransform(t).apply({10, 0});
    ASSERT_TRUE(point);
    const double z = -10 * std::sin(std::numbers::pi / 3);
    EXPECT_NEAR(point->x, 10 * 0.5 / (1 - z / 100), 1e-9);
}

TEST(Homography, PointsBehindTheEyeAreNowhere) {
    CATransform3D t;
    t.m34 = -1.0 / 100;
    t = CATransform3DRotate(t, -std::numbers::pi / 2, 0, 1, 0);
    EXPECT_FALSE(Homography::fromTransform(t).apply({200, 0}));
    EXPECT_TRUE(CGRectIsNull(Homography::fromTransform(t).boundingBox(CGRectMake(0, 0, 200, 10))));
}

TEST(Homography, InverseTakesBack) {
    CATransform3D t;
    t.m34 = -1.0 / 300;
    t = CATransform3DTranslate(CATransform3DRotate(t, 0.4, 1, 0.5, 0), 20, 30, 0);
    const auto map = Homography::fromTransform(t);
    const auto inverse = map.inverse();
    ASSERT_TRUE(inverse);
    const auto there = map.apply({7, 9});
    const auto back = inverse->apply(*there);
    ASSERT_TRUE(back);
    EXPECT_NEAR(back->x, 7, 1e-9);
    EXPECT_NEAR(back->y, 9, 1e-9);
}
