#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/QuartzCore/Layers/CALayer.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

using namespace zr;

namespace {

constexpr NSTimeInterval kNever = std::numeric_limits<double>::infinity();

/// A layer on the manual clock, with what a host would do between two moments.
class AnimationTest : public testing::Test {
protected:
    void SetUp() override { Clock::setCurrent(&m_clock); }
    void TearDown() override {
        NSRunLoop::mainRunLoop()->removeAll();
        Clock::setCurrent(nullptr);
    }

    void commit() { CATransaction::commit({layer.get()}); }
    void advanceTo(double seconds) {
        commit();
        const Nanoseconds target = nanosecondsFromSeconds(seconds);
        for (;;) {
            NSRunLoop::mainRunLoop()->runDue();
            const auto next = NSRunLoop::mainRunLoop()->nextDueTime();
            if (!next || *next > target)
                break;
            m_clock.advanceTo(*next);
        }
        m_clock.advanceTo(target);
        NSRunLoop::mainRunLoop()->runDue();
    }
    double opacity() const { return layer->presentationValues().opacity; }
    CGPoint position() const { return layer->presentationValues().position; }

    Ref<CABasicAnimation> fade(double from, double to, double duration) {
        auto animation = CABasicAnimation::animationWithKeyPath("opacity");
        animation->setFromValue(from);
        animation->setToValue(to);
        animation->setDuration(duration);
        return animation;
    }

    ManualClock m_clock;
    Ref<CALayer> layer = make<CALayer>();
};

class Listener : public NSObject, public CAAnimationDelegate {
public:
    void animationDidStart(CAAnimation*) override { started++; }
    void animationDidStop_finished(CAAnimation*, bool flag) override { (flag ? finished : cut)++; }
    int started = 0, finished = 0, cut = 0;
};

} // namespace

TEST_F(AnimationTest, BasicAnimationRunsFromOneValueToTheOther) {
    layer->addAnimation_forKey(fade(0, 1, 2), "fade");
    EXPECT_FLOAT_EQ(opacity(), 0);
    advanceTo(0.5);
    EXPECT_FLOAT_EQ(opacity(), 0.25);
    advanceTo(1.5);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
    EXPECT_FLOAT_EQ(layer->opacity(), 1);
}

TEST_F(AnimationTest, MissingEndsAreTheModelValue) {
    layer->setOpacity(0.5);
    auto animation = CABasicAnimation::animationWithKeyPath("opacity");
    animation->setFromValue(1.0);
    animation->setDuration(1);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(0.5);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
}

TEST_F(AnimationTest, ByValueIsRelative) {
    layer->setPosition({10, 20});
    auto animation = CABasicAnimation::animationWithKeyPath("position.x");
    animation->setByValue(100.0);
    animation->setDuration(1);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(0.5);
    EXPECT_EQ(position(), CGPointMake(60, 20));
}

TEST_F(AnimationTest, StartsAtTheCommitNotAtTheAdding) {
    layer->addAnimation_forKey(fade(0, 1, 1), "fade");
    m_clock.advanceTo(nanosecondsFromSeconds(5));
    commit();
    EXPECT_FLOAT_EQ(opacity(), 0);
    advanceTo(5.5);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
}

TEST_F(AnimationTest, IsRemovedAtItsEndAndSaysItFinished) {
    auto listener = make<Listener>();
    auto animation = fade(0, 0.5, 0.3);
    animation->setDelegate(listener);
    layer->addAnimation_forKey(animation, "fade");
    commit();
    EXPECT_EQ(listener->started, 1);
    advanceTo(0.299);
    EXPECT_EQ(listener->finished, 0);
    EXPECT_TRUE(layer->animationForKey("fade"));
    advanceTo(0.3);
    EXPECT_EQ(listener->finished, 1);
    EXPECT_FALSE(layer->animationForKey("fade"));
    EXPECT_FLOAT_EQ(opacity(), 1);
}

TEST_F(AnimationTest, FillForwardsHoldsTheEnd) {
    auto animation = fade(0, 0.5, 1);
    animation->setFillMode(kCAFillModeForwards);
    animation->setRemovedOnCompletion(false);
    layer->addAnimation_forKey(animation, "fade");
    advanceTo(10);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
    EXPECT_EQ(layer->nextChangeTime(), kNever);
    layer->removeAnimationForKey("fade");
    EXPECT_FLOAT_EQ(opacity(), 1);
}

TEST_F(AnimationTest, WithoutFillingTheModelShowsAfterTheEnd) {
    auto animation = fade(0, 0.5, 1);
    animation->setRemovedOnCompletion(false);
    layer->addAnimation_forKey(animation, "fade");
    advanceTo(1);
    EXPECT_FLOAT_EQ(opacity(), 1);
}

TEST_F(AnimationTest, FillBackwardsShowsTheStartBeforeTheBegin) {
    auto animation = fade(0.25, 0.5, 1);
    animation->setBeginTime(2);
    layer->addAnimation_forKey(animation, "plain");
    advanceTo(1);
    EXPECT_FLOAT_EQ(opacity(), 1);
    animation->setFillMode(kCAFillModeBackwards);
    layer->addAnimation_forKey(animation, "plain");
    advanceTo(1.5);
    EXPECT_FLOAT_EQ(opacity(), 0.25);
    advanceTo(2.5);
    EXPECT_FLOAT_EQ(opacity(), 0.375);
}

TEST_F(AnimationTest, RepeatsWithFractions) {
    auto animation = fade(0, 1, 1);
    animation->setRepeatCount(2.5);
    animation->setFillMode(kCAFillModeForwards);
    animation->setRemovedOnCompletion(false);
    layer->addAnimation_forKey(animation, "fade");
    advanceTo(1.25);
    EXPECT_FLOAT_EQ(opacity(), 0.25);
    advanceTo(2.25);
    EXPECT_FLOAT_EQ(opacity(), 0.25);
    advanceTo(9);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
}

TEST_F(AnimationTest, AutoreversesBackToTheStart) {
    auto animation = fade(0, 1, 1);
    animation->setAutoreverses(true);
    layer->addAnimation_forKey(animation, "fade");
    advanceTo(0.75);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
    advanceTo(1.25);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
    advanceTo(1.75);
    EXPECT_FLOAT_EQ(opacity(), 0.25);
    advanceTo(2);
    EXPECT_FALSE(layer->animationForKey("fade"));
}

TEST_F(AnimationTest, TheLargestRepeatCountNeverEnds) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("transform.rotation.z");
    animation->setValues({3.1415927f, -3.1415927f});
    animation->setDuration(0.5);
    animation->setRepeatCount(std::numeric_limits<float>::max());
    layer->addAnimation_forKey(animation, "transform");
    advanceTo(1000.125);
    EXPECT_EQ(layer->nextChangeTime(), 1000.125);
    const double angle = layer->presentationValues().transform.m12;
    EXPECT_NEAR(angle, std::sin(std::numbers::pi / 2), 1e-6);
}

TEST_F(AnimationTest, SpeedAndOffsetMapTheTime) {
    auto animation = fade(0, 1, 1);
    animation->setSpeed(2);
    layer->addAnimation_forKey(animation, "fade");
    advanceTo(0.25);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
    auto offset = fade(0, 1, 1);
    offset->setTimeOffset(0.5);
    layer->addAnimation_forKey(offset, "fade");
    commit();
    EXPECT_FLOAT_EQ(opacity(), 0.5);
}

TEST_F(AnimationTest, KeyframesAreEvenlySpaced) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("opacity");
    animation->setValues({0.0, 1.0, 0.5});
    animation->setDuration(2);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(0.5);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
    advanceTo(1);
    EXPECT_FLOAT_EQ(opacity(), 1);
    advanceTo(1.5);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
}

TEST_F(AnimationTest, KeyTimesPlaceTheValues) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("opacity");
    animation->setValues({0.0, 1.0, 0.5});
    animation->setKeyTimes({0, 0.8, 1});
    animation->setDuration(1);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(0.4);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
    advanceTo(0.9);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
}

TEST_F(AnimationTest, KeyframesHaveATimingFunctionASegment) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("position");
    animation->setKeyPath("opacity");
    animation->setValues({0.0, 1.0, 0.0});
    // The second segment has none.
    animation->setTimingFunctions({CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseIn)});
    animation->setDuration(2);
    layer->addAnimation_forKey(animation, "a");
    const double eased = CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseIn)->valueAtTime(0.5);
    ASSERT_LT(eased, 0.4);
    advanceTo(0.5);
    EXPECT_NEAR(opacity(), eased, 1e-6);
    advanceTo(1.5);
    EXPECT_NEAR(opacity(), 0.5, 1e-6);
}

TEST_F(AnimationTest, DiscreteKeyframesJump) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("opacity");
    animation->setValues({0.0, 0.5});
    animation->setCalculationMode(kCAAnimationDiscrete);
    animation->setDuration(1);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(0.49);
    EXPECT_FLOAT_EQ(opacity(), 0);
    advanceTo(0.5);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
}

TEST_F(AnimationTest, DiscreteKeyframesChangeNothingBetweenTheirSteps) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("opacity");
    animation->setValues({0.0, 0.5, 1.0});
    animation->setKeyTimes({0, 0.5, 0.75, 1});
    animation->setCalculationMode(kCAAnimationDiscrete);
    animation->setDuration(1);
    animation->setSpeed(0.5f);
    animation->setRepeatCount(3);
    layer->addAnimation_forKey(animation, "a");
    EXPECT_EQ(layer->nextChangeTime(), 0); // it has not started
    const std::pair<double, double> nextChanges[] = {{0, 1}, {0.99, 1}, {1, 1.5}, {1.75, 2}, {2, 3}, {5.75, 6}};
    for (const auto& [time, next] : nextChanges) {
        advanceTo(time);
        EXPECT_DOUBLE_EQ(layer->nextChangeTime(), next) << time;
    }
    advanceTo(6);
    EXPECT_EQ(layer->nextChangeTime(), kNever);
}

TEST_F(AnimationTest, WhatIsYetToBeginOrStandsStillChangesNothing) {
    auto later = fade(0, 1, 1);
    later->setBeginTime(2);
    layer->addAnimation_forKey(later, "later");
    auto still = fade(0, 1, 1);
    still->setSpeed(0);
    layer->addAnimation_forKey(still, "still");
    advanceTo(0.5);
    EXPECT_EQ(layer->nextChangeTime(), 2);
    advanceTo(2.5);
    EXPECT_EQ(layer->nextChangeTime(), 2.5);
    advanceTo(3);
    EXPECT_EQ(layer->nextChangeTime(), kNever);
}

TEST_F(AnimationTest, PacedKeyframesMoveEvenly) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("position");
    animation->setValues({NSValue::valueWithStructure(CGPointMake(0, 0)),
                          NSValue::valueWithStructure(CGPointMake(30, 0)),
                          NSValue::valueWithStructure(CGPointMake(40, 0))});
    animation->setCalculationMode(kCAAnimationPaced);
    animation->setDuration(4);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(2);
    EXPECT_NEAR(position().x, 20, 1e-9);
}

TEST_F(AnimationTest, GroupsRunTheirStagesInTheirOwnTime) {
    auto first = fade(1, 0.5, 0.3);
    first->setFillMode(kCAFillModeForwards);
    auto second = fade(0.5, 0, 0.3);
    second->setBeginTime(0.3);
    second->setFillMode(kCAFillModeForwards);
    auto group = make<CAAnimationGroup>();
    group->setAnimations({first, second});
    group->setDuration(0.6);
    group->setFillMode(kCAFillModeForwards);
    group->setRemovedOnCompletion(false);
    m_clock.advanceTo(nanosecondsFromSeconds(7));
    layer->addAnimation_forKey(group, "stages");
    advanceTo(7.15);
    EXPECT_FLOAT_EQ(opacity(), 0.75);
    advanceTo(7.45);
    EXPECT_FLOAT_EQ(opacity(), 0.25);
    advanceTo(8);
    EXPECT_FLOAT_EQ(opacity(), 0);
}

TEST_F(AnimationTest, GroupCutsItsChildrenOff) {
    auto child = fade(0, 1, 2);
    auto group = make<CAAnimationGroup>();
    group->setAnimations({child});
    group->setDuration(1);
    group->setFillMode(kCAFillModeForwards);
    group->setRemovedOnCompletion(false);
    layer->addAnimation_forKey(group, "g");
    advanceTo(5);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
}

TEST_F(AnimationTest, ASecondAnimationUnderTheSameKeyReplacesTheFirst) {
    auto listener = make<Listener>();
    auto first = fade(0, 0, 5);
    first->setDelegate(listener);
    layer->addAnimation_forKey(first, "fade");
    commit();
    layer->addAnimation_forKey(fade(0.5, 0.5, 5), "fade");
    EXPECT_EQ(listener->cut, 1);
    EXPECT_EQ(listener->finished, 0);
    EXPECT_EQ(layer->animationKeys().size(), 1u);
    EXPECT_FLOAT_EQ(opacity(), 0.5);
}

TEST_F(AnimationTest, AddingCopies) {
    auto animation = fade(0, 0, 5);
    layer->addAnimation_forKey(animation, "fade");
    animation->setToValue(1.0);
    animation->setFromValue(1.0);
    EXPECT_FLOAT_EQ(opacity(), 0);
}

TEST_F(AnimationTest, ALayerThatGoesTellsThatItsAnimationsDidNotFinish) {
    auto listener = make<Listener>();
    auto animation = fade(0, 1, 5);
    animation->setDelegate(listener);
    layer->addAnimation_forKey(animation, "fade");
    commit();
    layer = nullptr;
    EXPECT_EQ(listener->cut, 1);
}

TEST_F(AnimationTest, UnknownKeyPathsChangeNothing) {
    auto animation = CABasicAnimation::animationWithKeyPath("flavour.x");
    animation->setToValue(1.0);
    layer->addAnimation_forKey(animation, "a");
    advanceTo(0.1);
    EXPECT_FLOAT_EQ(opacity(), 1);
}

TEST(CAMediaTimingFunction, NamedCurvesPassThroughTheirPoints) {
    const auto ease = CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseInEaseOut);
    EXPECT_NEAR(ease->valueAtTime(0.5), 0.5, 1e-12);
    EXPECT_EQ(ease->valueAtTime(0), 0);
    EXPECT_EQ(ease->valueAtTime(1), 1);
    // The curve at s = 0.25: x = 3 * 0.75^2 * 0.25 * 0.42 + 3 * 0.75 * 0.0625 * 0.58 + 0.015625.
    const double x = 3 * 0.5625 * 0.25 * 0.42 + 3 * 0.75 * 0.0625 * 0.58 + 0.015625;
    const double y = 3 * 0.75 * 0.0625 + 0.015625;
    EXPECT_NEAR(ease->valueAtTime(x), y, 1e-9);
    const auto in = CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseIn);
    const auto out = CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseOut);
    EXPECT_LT(in->valueAtTime(0.3), 0.3);
    EXPECT_GT(out->valueAtTime(0.3), 0.3);
    EXPECT_NEAR(in->valueAtTime(0.3), 1 - out->valueAtTime(0.7), 1e-9);
    EXPECT_EQ(CAMediaTimingFunction::functionWithName("no such")->valueAtTime(0.3), CGFloat(0.3));
}

TEST(LayerValues, KeyPathsReachIntoStructures) {
    LayerValues values;
    values.bounds = CGRectMake(1, 2, 3, 4);
    EXPECT_EQ(layerValueForKeyPath(values, "bounds.size.width").doubleValue(), 3);
    EXPECT_TRUE(setLayerValueForKeyPath(values, "bounds.origin.y", 9.0));
    EXPECT_EQ(values.bounds, CGRectMake(1, 9, 3, 4));
    EXPECT_TRUE(layerValueForKeyPath(values, "bounds.size.depth").isNil());
    EXPECT_FALSE(setLayerValueForKeyPath(values, "nothing", 1.0));
}

TEST(LayerValues, TransformPartsAreSetOneByOne) {
    LayerValues values;
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform.scale", 2.0));
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform.rotation.z", 0.5));
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform.translation.x", 7.0));
    EXPECT_NEAR(layerValueForKeyPath(values, "transform.scale.x").doubleValue(), 2, 1e-9);
    EXPECT_NEAR(layerValueForKeyPath(values, "transform.rotation").doubleValue(), 0.5, 1e-9);
    EXPECT_NEAR(values.transform.m41, 7, 1e-9);
    EXPECT_NEAR(values.transform.m11, 2 * std::cos(0.5), 1e-9);
    EXPECT_NEAR(values.transform.m12, 2 * std::sin(0.5), 1e-9);
}

TEST(LayerValues, ATransformMayBeGivenAsAFlatOne) {
    LayerValues values;
    const auto turned = CGAffineTransformMakeRotation(1);
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform", NSValue::valueWithStructure(turned)));
    EXPECT_EQ(values.transform, CATransform3DMakeAffineTransform(turned));
    EXPECT_FALSE(setLayerValueForKeyPath(values, "transform", 2.0));
    const auto middle = interpolateValues(NSValue::valueWithStructure(CGAffineTransformMakeTranslation(10, 0)),
                                          NSValue::valueWithStructure(CATransform3DMakeTranslation(20, 8, 0)), 0.5);
    EXPECT_EQ(*middle.structure<CATransform3D>(), CATransform3DMakeTranslation(15, 4, 0));
}

TEST(LayerValues, WhatWasScaledToNothingCanGrowAgainWhereItIs) {
    LayerValues values;
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform.translation", NSValue::valueWithStructure(CGSize{5, 6})));
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform.scale", 0.0));
    EXPECT_EQ(layerValueForKeyPath(values, "transform.scale.y").doubleValue(), 0);
    EXPECT_EQ(*layerValueForKeyPath(values, "transform.translation").structure<CGSize>(), CGSizeMake(5, 6));
    EXPECT_TRUE(setLayerValueForKeyPath(values, "transform.scale", 2.0));
    const auto expected = CATransform3DConcat(CATransform3DMakeScale(2, 2, 2), CATransform3DMakeTranslation(5, 6, 0));
    EXPECT_EQ(values.transform, expected);
}

TEST(LayerValues, ColoursFadeThroughTheirComponents) {
    const CGFloat red[] = {1, 0, 0, 1}, blue[] = {0, 0, 1, 0.5};
    const auto space = CGColorSpaceCreateDeviceRGB();
    const auto middle = interpolateValues(CGColorCreate(space, red), CGColorCreate(space, blue), 0.5);
    const auto color = middle.as<CGColor*>()->rgba();
    EXPECT_EQ(color, (RGBAColor{0.5, 0, 0.5, 0.75}));
    const auto fromNothing = interpolateValues(NSValue(), CGColorCreate(space, red), 0.25);
    EXPECT_EQ(fromNothing.as<CGColor*>()->rgba(), (RGBAColor{1, 0, 0, 0.25}));
}

TEST_F(AnimationTest, ALayerMayBeAnimatedAnewWhenItIsToldOfTheEnd) {
    /// Starts over whenever it is stopped, as long as it may.
    class Restarter : public NSObject, public CAAnimationDelegate {
    public:
        void animationDidStop_finished(CAAnimation* animation, bool) override {
            if (++stops < 100)
                layer->addAnimation_forKey(animation, "again");
        }
        CALayer* layer = nullptr;
        int stops = 0;
    };
    auto restarter = make<Restarter>();
    restarter->layer = layer;
    auto animation = fade(0, 1, 5);
    animation->setDelegate(restarter);
    layer->addAnimation_forKey(animation, "again");
    commit();
    layer->removeAllAnimations();
    EXPECT_EQ(restarter->stops, 1);
    EXPECT_EQ(layer->animationKeys().size(), 1u);
    restarter->stops = 100;
}

TEST_F(AnimationTest, WithoutAKeyNothingIsReplacedOrRemoved) {
    layer->addAnimation_forKey(fade(0, 1, 1), nullptr);
    layer->addAnimation_forKey(fade(0, 0.5, 1), nullptr);
    layer->removeAnimationForKey(nullptr);
    EXPECT_EQ(layer->keyedAnimations().size(), 2u);
    layer->addAnimation_forKey(fade(0, 1, 1), "");
    layer->removeAnimationForKey("");
    EXPECT_EQ(layer->keyedAnimations().size(), 2u);
}

TEST_F(AnimationTest, AStoppedAnimationLeavesNothingToWaitFor) {
    layer->addAnimation_forKey(fade(0, 1, 1e6), "long");
    commit();
    layer->removeAnimationForKey("long");
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextDueTime());
}

TEST_F(AnimationTest, OnlyPlacesAndSizesMove) {
    layer->addAnimation_forKey(fade(0, 1, 1), "fade");
    EXPECT_EQ(layer->nextChangeTime(), 0);
    EXPECT_FALSE(layer->isMoving());
    auto move = CABasicAnimation::animationWithKeyPath("position.x");
    move->setDuration(1);
    auto group = make<CAAnimationGroup>();
    group->setAnimations({fade(0, 1, 1), move});
    layer->addAnimation_forKey(group, "group");
    EXPECT_TRUE(layer->isMoving());
}
