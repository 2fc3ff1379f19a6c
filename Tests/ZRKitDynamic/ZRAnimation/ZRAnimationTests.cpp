#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRAnimation/TiltInternal.h>
#include <ZRKitDynamic/ZRAnimation/ZRAnimation.h>

#include <bit>
#include <cmath>
#include <limits>
#include <numbers>

namespace zr::testing {

namespace {

// 15 degrees.
const CGFloat kCosine = std::cos(std::numbers::pi_v<CGFloat> / 12);
const CGFloat kSine = std::sin(std::numbers::pi_v<CGFloat> / 12);

const CATransform3D* targetOf(const CAAnimation* stage) {
    return dynamic_cast<const CABasicAnimation*>(stage)->toValue().structure<CATransform3D>();
}

/// The parts of the tilt, as of any transform that is animated: scales along x and y, the angle about x, the height,
/// the perspective.
struct Tilt {
    double scaleX = 1, scaleY = 1, angle = 0, rise = 0, perspective = 0;

    Tilt mixedWith(const Tilt& other, double t) const {
        const auto mix = [t](double a, double b) { return a + (b - a) * t; };
        return {mix(scaleX, other.scaleX), mix(scaleY, other.scaleY), mix(angle, other.angle), mix(rise, other.rise),
                mix(perspective, other.perspective)};
    }
    /// Where the horizontal line at `y` shows; all places are measured from the layer's middle.
    double lineAt(double y) const {
        return (scaleY * y * std::cos(angle) + rise) / (1 + perspective * scaleY * y * std::sin(angle));
    }
    /// How wide a layer of width 1 is where it shows at the height `at`.
    double widthAt(double at) const {
        const double along = (at - rise) / (std::cos(angle) - at * perspective * std::sin(angle));
        return scaleX / (1 + perspective * along * std::sin(angle));
    }
};

/// The tilt scales after it turned, so that a layer's height is shortened by 0.95 cos 15 and its depth is sin 15.
const Tilt kTilted{0.95, std::hypot(0.95 * kCosine, kSine), std::atan2(kSine, 0.95 * kCosine), 0, -1.0 / 900};
const Tilt kUpright{};

Tilt receded(double scale) { return {scale, scale, 0, -40, kCosine * (-1.0 / 900)}; }

/// What a black layer of 120 x 80 points in the middle of a white screen of 200 x 200 looks like: its transform is
/// that of its middle, (100, 100).
class Animated : public ::testing::Test {
protected:
    Animated() {
        m_box->setFrame(CGRectMake(40, 60, 120, 80));
        m_box->setBackgroundColor(UIColor::blackColor());
        m_window->addSubview(m_box);
    }

    void add(CAAnimation* animation) {
        m_box->layer()->addAnimation_forKey(animation, "kit");
        m_host.advance(0);
    }
    /// Pixels' worth of black in a row or a column of the screen, and the middle of it.
    struct Span {
        double length = 0, middle = 0;
    };
    Span row(CGFloat y) {
        return span([&](CGFloat x) { return CGPointMake(x, y); });
    }
    Span column(CGFloat x) {
        return span([&](CGFloat y) { return CGPointMake(x, y); });
    }

    void expectTilt(const Tilt& tilt) {
        const double top = tilt.lineAt(-40), bottom = tilt.lineAt(40);
        EXPECT_NEAR(column(100).length, bottom - top, kTolerance);
        EXPECT_NEAR(column(100).middle, 100 + (bottom + top) / 2, kTolerance);
        for (const double at :
             {std::floor(top) + 4.5, std::floor((top + bottom) / 2) + 0.5, std::floor(bottom) - 3.5}) {
            EXPECT_NEAR(row(100 + at).length, 120 * tilt.widthAt(at), 2 * kTolerance) << at;
            EXPECT_NEAR(row(100 + at).middle, 100, kTolerance) << at;
        }
    }
    /// Pixels: a frame tells coverage in steps of 1/255.
    static constexpr double kTolerance = 0.02;

    HeadlessHost m_host{device(200, 200, 1)};
    Ref<UIWindow> m_window = showWindow(UIColor::whiteColor());
    Ref<UIView> m_box = make<UIView>(&UIView::initWithFrame, CGRectZero);

private:
    template <class PointAt>
    Span span(PointAt pointAt) {
        Span result;
        double moment = 0;
        for (int i = 0; i < 200; ++i) {
            const double black = 1 - m_host.pixel(pointAt(i + 0.5)).red / 255.0;
            result.length += black;
            moment += black * (i + 0.5);
        }
        result.middle = result.length > 0 ? moment / result.length : 0;
        return result;
    }
};

} // namespace

// Matrices

TEST(ZRAnimationTilt, PerspectiveIsComputedInThePrecisionOfTransforms) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(kTiltPerspective<double>), 0xBF523456789ABCDFu);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(kTiltPerspective<float>), 0xBA91A2B4u);
}

TEST(ZRAnimationTilt, TiltedTurnsBy15DegreesThenShrinksThenIsSeenInPerspective) {
    const CATransform3D t = tiltedTransform();
    const CGFloat m34 = CGFloat(-1) / 900, shrunk = 0.95;
    EXPECT_EQ(t.m11, shrunk);
    EXPECT_EQ(t.m22, kCosine * shrunk);
    EXPECT_EQ(t.m23, kSine);
    EXPECT_EQ(t.m24, kSine * m34);
    EXPECT_EQ(t.m32, -kSine * shrunk);
    EXPECT_EQ(t.m33, kCosine);
    EXPECT_EQ(t.m34, kCosine * m34);
    EXPECT_EQ(t.m44, 1);
    for (const CGFloat zero : {t.m12, t.m13, t.m14, t.m21, t.m31, t.m41, t.m42, t.m43})
        EXPECT_EQ(zero, 0);
    EXPECT_NEAR(t.m34, -0.00107325, 1e-8);
    EXPECT_NEAR(t.m24, -0.000287577, 1e-9);
}

TEST(ZRAnimationTilt, RecededKeepsThePerspectiveOfTheTiltedAndRisesUnscaled) {
    CATransform3D wanted;
    wanted.m11 = wanted.m22 = 0.8;
    wanted.m34 = tiltedTransform().m34;
    wanted.m42 = -40;
    EXPECT_EQ(recededTransform(0.8), wanted);
}

// The group

TEST(ZRAnimationGroup, ForwardTiltsThenRecedes) {
    const auto group = ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8);
    ASSERT_TRUE(group);
    EXPECT_EQ(group->duration(), 0.6);
    EXPECT_EQ(group->beginTime(), 0);
    EXPECT_EQ(group->fillMode(), kCAFillModeForwards);
    EXPECT_FALSE(group->isRemovedOnCompletion());
    EXPECT_FALSE(group->timingFunction());
    EXPECT_EQ(group->repeatCount(), 0);
    ASSERT_EQ(group->animations().size(), 2u);
    for (const auto& animation : group->animations()) {
        const auto* stage = dynamic_cast<const CABasicAnimation*>(animation.get());
        ASSERT_TRUE(stage);
        EXPECT_EQ(stage->keyPath(), "transform");
        EXPECT_EQ(stage->duration(), 0.3);
        EXPECT_EQ(stage->fillMode(), kCAFillModeForwards);
        EXPECT_FALSE(stage->isRemovedOnCompletion());
        EXPECT_TRUE(stage->fromValue().isNil());
        EXPECT_TRUE(stage->byValue().isNil());
    }
    const CAAnimation* tilt = group->animations()[0];
    const CAAnimation* recede = group->animations()[1];
    EXPECT_EQ(tilt->beginTime(), 0);
    EXPECT_EQ(recede->beginTime(), 0.3);
    ASSERT_TRUE(tilt->timingFunction());
    const auto easeOut = CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseOut);
    for (const CGFloat time : {0.1, 0.3, 0.5, 0.8})
        EXPECT_EQ(tilt->timingFunction()->valueAtTime(time), easeOut->valueAtTime(time));
    EXPECT_FALSE(recede->timingFunction());
    EXPECT_EQ(*targetOf(tilt), tiltedTransform());
    EXPECT_EQ(*targetOf(recede), recededTransform(0.8));
}

TEST(ZRAnimationGroup, BackwardTiltsThenGoesBackWhateverTheScale) {
    for (const CGFloat scale : {0.8, 2.0, 0.0, std::nan("")}) {
        const auto group = ZRAnimation::animationGroupForward_duration_scale(false, 0.5, scale);
        ASSERT_EQ(group->animations().size(), 2u);
        EXPECT_EQ(*targetOf(group->animations()[0]), tiltedTransform());
        EXPECT_TRUE(CATransform3DIsIdentity(*targetOf(group->animations()[1])));
        EXPECT_EQ(group->animations()[1]->beginTime(), 0.25);
        EXPECT_EQ(group->duration(), 0.5);
    }
}

TEST(ZRAnimationGroup, WithoutADurationTheStagesHaveNone) {
    for (const double duration : {0.0, -1.0, std::nan("")}) {
        const auto group = ZRAnimation::animationGroupForward_duration_scale(true, duration, 0.8);
        EXPECT_EQ(group->duration(), 0) << duration;
        for (const auto& stage : group->animations()) {
            EXPECT_EQ(stage->duration(), 0) << duration;
            EXPECT_EQ(stage->beginTime(), 0) << duration;
        }
    }
}

TEST(ZRAnimationGroup, EachIsANewObject) {
    const auto first = ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8);
    const auto second = ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8);
    EXPECT_NE(first.get(), second.get());
    EXPECT_NE(first->animations()[0].get(), second->animations()[0].get());
    EXPECT_NE(ZRAnimation::animationForRotation(1).get(), ZRAnimation::animationForRotation(1).get());
}

// On the screen

TEST_F(Animated, ForwardPlaysItsTwoStagesAndHoldsTheEnd) {
    add(ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8));
    expectTilt(kUpright);
    m_host.advance(0.15);
    const double eased = CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseOut)->valueAtTime(0.5);
    EXPECT_GT(eased, 0.6);
    expectTilt(kUpright.mixedWith(kTilted, eased));
    m_host.advance(0.15);
    expectTilt(kTilted);
    m_host.advance(0.15);
    expectTilt(kTilted.mixedWith(receded(0.8), 0.5));
    m_host.advance(0.15);
    expectTilt(receded(0.8));
    m_host.advance(100);
    expectTilt(receded(0.8));
    EXPECT_TRUE(m_box->layer()->animationForKey("kit"));
    EXPECT_TRUE(CATransform3DIsIdentity(m_box->layer()->transform()));
}

TEST_F(Animated, TheTopOfATiltedLayerLiesFartherAway) {
    add(ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8));
    m_host.advance(0.3);
    // A corner by hand: 40 points above the middle, turned by 15 degrees and shrunk, 10.35 points behind the screen.
    const double depth = 40 * kSine, height = 0.95 * 40 * kCosine;
    EXPECT_NEAR(column(100).length, height / (1 + depth / 900) + height / (1 - depth / 900), kTolerance);
    EXPECT_NEAR(row(64.5).length, 0.95 * 120 / (1 + depth / 900), 0.3);
    EXPECT_LT(row(64.5).length, row(135.5).length - 2);
}

TEST_F(Animated, NothingIsDrawnAnyMoreOnceItHolds) {
    add(ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8));
    m_host.advance(0.7);
    const auto frames = m_host.framesComposed();
    m_host.advance(10);
    EXPECT_EQ(m_host.framesComposed(), frames);
}

TEST_F(Animated, RemovedItShowsTheLayerAsItIs) {
    add(ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8));
    m_host.advance(1);
    m_box->layer()->removeAnimationForKey("kit");
    expectTilt(kUpright);
}

TEST_F(Animated, BackwardComesBackThroughTheSameTilt) {
    m_box->layer()->setTransform(recededTransform(0.8));
    add(ZRAnimation::animationGroupForward_duration_scale(false, 0.6, 0.8));
    expectTilt(receded(0.8));
    m_host.advance(0.3);
    expectTilt(kTilted);
    m_host.advance(0.15);
    expectTilt(kTilted.mixedWith(kUpright, 0.5));
    m_host.advance(0.15);
    expectTilt(kUpright);
    m_host.advance(5);
    expectTilt(kUpright);
    EXPECT_EQ(m_box->layer()->transform(), recededTransform(0.8));
}

TEST_F(Animated, WithoutADurationTheEndShowsAtOnceAndStays) {
    add(ZRAnimation::animationGroupForward_duration_scale(true, 0, 0.8));
    expectTilt(receded(0.8));
    m_host.advance(1);
    expectTilt(receded(0.8));
}

TEST_F(Animated, AScaleThatIsNotFiniteLeavesNothingToSeeFromTheSecondStageOn) {
    constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
    for (const CGFloat scale : {std::nan(""), kInfinity, -kInfinity}) {
        add(ZRAnimation::animationGroupForward_duration_scale(true, 0.5, scale));
        m_host.advance(0.25);
        expectTilt(kTilted);
        for (const double seconds : {0.0625, 0.0625, 0.0625, 0.5625}) {
            m_host.advance(seconds);
            for (CGFloat y = 0.5; y < 200; ++y)
                ASSERT_EQ(row(y).length, 0) << scale;
        }
    }
}

TEST_F(Animated, AScaleOfNothingLeavesNothingToSeeAtTheEnd) {
    add(ZRAnimation::animationGroupForward_duration_scale(true, 0.5, 0));
    m_host.advance(0.25);
    expectTilt(kTilted);
    m_host.advance(0.5);
    for (CGFloat y = 0.5; y < 200; ++y)
        ASSERT_EQ(row(y).length, 0);
}

// Rotation

TEST(ZRAnimationRotation, TurnsFromHalfATurnToMinusHalfATurnForEver) {
    const auto rotation = ZRAnimation::animationForRotation(1.5);
    ASSERT_TRUE(rotation);
    EXPECT_EQ(rotation->keyPath(), "transform.rotation.z");
    ASSERT_EQ(rotation->values().size(), 2u);
    EXPECT_EQ(rotation->values()[0].floatValue(), 3.1415927f);
    EXPECT_EQ(rotation->values()[1].floatValue(), -3.1415927f);
    EXPECT_EQ(rotation->values()[0].doubleValue(), 3.1415927410125732);
    EXPECT_EQ(rotation->duration(), 1.5);
    EXPECT_EQ(rotation->repeatCount(), 3.4028235e38f);
    EXPECT_TRUE(rotation->isRemovedOnCompletion());
    EXPECT_EQ(rotation->fillMode(), kCAFillModeRemoved);
    EXPECT_FALSE(rotation->timingFunction());
}

namespace {

/// Instead of the box a short bar right of its middle, which tells where it points.
class Turned : public Animated {
protected:
    Turned() {
        m_box->setBackgroundColor(UIColor::clearColor());
        m_hand->setBackgroundColor(UIColor::blackColor());
        m_box->addSubview(m_hand);
    }
    bool isAt(CGFloat x, CGFloat y) { return m_host.pixel({x, y}) == FramePixel{0, 0, 0}; }

private:
    Ref<UIView> m_hand = make<UIView>(&UIView::initWithFrame, CGRectMake(90, 35, 30, 10));
};

} // namespace

TEST_F(Turned, RotationTurnsCounterClockwiseOnceInItsDuration) {
    add(ZRAnimation::animationForRotation(1));
    EXPECT_TRUE(isAt(55, 100)); // half a turn: left
    m_host.advance(0.25);
    EXPECT_TRUE(isAt(100, 145)); // below
    m_host.advance(0.25);
    EXPECT_TRUE(isAt(145, 100)); // right
    m_host.advance(0.25);
    EXPECT_TRUE(isAt(100, 55)); // above
    m_host.advance(0.25);
    EXPECT_TRUE(isAt(55, 100));
    EXPECT_FALSE(isAt(145, 100));
    m_host.advance(1000.75);
    EXPECT_TRUE(isAt(100, 55));
}

TEST_F(Turned, RotationWithoutADurationStandsStillHalfATurnRound) {
    for (const double duration : {0.0, -1.0, std::nan("")}) {
        m_host.advance(0);
        EXPECT_TRUE(isAt(145, 100)) << duration;
        add(ZRAnimation::animationForRotation(duration));
        for (const double seconds : {0.0, 0.3, 1000.0}) {
            m_host.advance(seconds);
            EXPECT_TRUE(isAt(55, 100)) << duration;
            EXPECT_FALSE(isAt(145, 100)) << duration;
        }
        m_box->layer()->removeAllAnimations();
    }
}

} // namespace zr::testing
