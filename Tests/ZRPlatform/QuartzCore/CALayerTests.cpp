#include <Tests/ZRPlatform/QuartzCore/CompositorTesting.h>

#include <cmath>
#include <numbers>
#include <string>

namespace zr::testing {

namespace {

Ref<CABasicAnimation> animationTo(const NSString& keyPath, const NSValue& value) {
    auto animation = CABasicAnimation::animationWithKeyPath(keyPath);
    animation->setToValue(value);
    animation->setDuration(2);
    return animation;
}

/// Where the layer is, or was put, half way to `value`.
LayerValues halfWay(CALayer* layer, ManualClock& clock, const NSString& keyPath, const NSValue& value) {
    layer->addAnimation_forKey(animationTo(keyPath, value), "it");
    CATransaction::commit({layer});
    clock.advanceTo(clock.now() + nanosecondsFromSeconds(1));
    const LayerValues values = layer->presentationValues();
    layer->removeAllAnimations();
    return values;
}

class CALayerOnAClock : public ::testing::Test {
protected:
    CALayerOnAClock() {
        Clock::setCurrent(&clock);
        layer->setBounds(CGRectMake(0, 0, 100, 50));
        layer->setPosition({200, 100});
    }
    ~CALayerOnAClock() override {
        NSRunLoop::mainRunLoop()->removeAll();
        Clock::setCurrent(nullptr);
    }

    ManualClock clock;
    Ref<CALayer> layer = make<CALayer>();
};

} // namespace

TEST(CALayer, TheAnchorPointIsWhereThePositionIs) {
    auto layer = make<CALayer>();
    layer->setBounds(CGRectMake(0, 0, 100, 50));
    layer->setPosition({200, 100});
    EXPECT_EQ(layer->frame(), CGRectMake(150, 75, 100, 50));
    layer->setAnchorPoint({0, 1});
    EXPECT_EQ(layer->frame(), CGRectMake(200, 50, 100, 50));
    EXPECT_EQ(layer->position(), CGPointMake(200, 100));
}

TEST(CALayer, TheSublayerTransformGoesAroundTheAnchorPoint) {
    auto layer = make<CALayer>();
    layer->setBounds(CGRectMake(0, 0, 100, 100));
    layer->setPosition({50, 50});
    auto sublayer = box(CGRectMake(0, 0, 20, 10), color(1, 0, 0));
    layer->addSublayer(sublayer);
    EXPECT_EQ(sublayer->convertPoint_toLayer({0, 0}, nullptr), CGPointMake(0, 0));
    layer->setSublayerTransform(CATransform3DMakeScale(0.5, 0.5, 1));
    EXPECT_EQ(sublayer->convertPoint_toLayer({0, 0}, nullptr), CGPointMake(25, 25));
    EXPECT_EQ(sublayer->convertPoint_fromLayer({35, 30}, nullptr), CGPointMake(20, 10));
    layer->setAnchorPoint({0, 0});
    layer->setPosition({0, 0});
    EXPECT_EQ(sublayer->convertPoint_toLayer({20, 10}, nullptr), CGPointMake(10, 5));
}

TEST_F(CompositorTest, TheSublayerTransformIsSeen) {
    auto group = make<CALayer>();
    group->setFrame(CGRectMake(0, 0, 20, 20));
    auto sublayer = box(CGRectMake(0, 0, 20, 20), color(1, 0, 0));
    group->addSublayer(sublayer);
    root->addSublayer(group);
    compose();
    const std::uint32_t red = pixel(1, 1);
    EXPECT_EQ(pixel(38, 38), red) << "two pixels a point";
    group->setSublayerTransform(CATransform3DMakeScale(0.5, 0.5, 1));
    compose();
    EXPECT_NE(pixel(8, 8), red);
    EXPECT_EQ(pixel(11, 11), red);
    EXPECT_EQ(pixel(28, 28), red);
    EXPECT_NE(pixel(31, 31), red);
}

TEST_F(CALayerOnAClock, ThePresentationLayerIsACopyOfWhatShows) {
    layer->setOpaque(true);
    layer->setContentsScale(2);
    layer->setContentsGravity(kCAGravityCenter);
    layer->addSublayer(make<CALayer>());
    layer->addAnimation_forKey(animationTo("position.x", 300.0), "move");
    CATransaction::commit({layer.get()});
    clock.advanceTo(nanosecondsFromSeconds(1));
    const Ref<CALayer> shown = layer->presentationLayer();
    EXPECT_EQ(shown->position(), CGPointMake(250, 100));
    EXPECT_EQ(shown->bounds(), CGRectMake(0, 0, 100, 50));
    EXPECT_TRUE(shown->isOpaque());
    EXPECT_EQ(shown->contentsScale(), 2);
    EXPECT_EQ(shown->contentsGravity(), kCAGravityCenter);
    EXPECT_TRUE(shown->sublayers().empty());
    EXPECT_FALSE(shown->hasAnimations());
    EXPECT_EQ(layer->position(), CGPointMake(200, 100));
}

TEST_F(CALayerOnAClock, PartsOfAPlaceAndASizeHaveNames) {
    EXPECT_EQ(layer->valueForLayerKeyPath("position.x").doubleValue(), 200);
    EXPECT_EQ(layer->valueForLayerKeyPath("position.y").doubleValue(), 100);
    EXPECT_EQ(layer->valueForLayerKeyPath("bounds.size.width").doubleValue(), 100);
    EXPECT_EQ(layer->valueForLayerKeyPath("bounds.origin.y").doubleValue(), 0);
    EXPECT_EQ(*layer->valueForLayerKeyPath("bounds.size").structure<CGSize>(), CGSizeMake(100, 50));
    EXPECT_EQ(*layer->valueForLayerKeyPath("bounds.origin").structure<CGPoint>(), CGPointZero);
    EXPECT_EQ(*layer->valueForLayerKeyPath("position").structure<CGPoint>(), CGPointMake(200, 100));
    for (const char* unknown : {"position.z", "bounds.size.depth", "bounds.middle", "place", "opacity.x",
                                "transform.rotation.w", "transform.shear"})
        EXPECT_TRUE(layer->valueForLayerKeyPath(unknown).isNil()) << unknown;
}

TEST_F(CALayerOnAClock, PartsOfAPlaceAndASizeAreAnimated) {
    EXPECT_EQ(halfWay(layer, clock, "position.y", 200.0).position, CGPointMake(200, 150));
    EXPECT_EQ(halfWay(layer, clock, "bounds.size.width", 200.0).bounds, CGRectMake(0, 0, 150, 50));
    EXPECT_EQ(halfWay(layer, clock, "bounds.size", NSValue::valueWithStructure(CGSizeMake(200, 100))).bounds,
              CGRectMake(0, 0, 150, 75));
    EXPECT_EQ(halfWay(layer, clock, "bounds.origin", NSValue::valueWithStructure(CGPointMake(10, 20))).bounds,
              CGRectMake(5, 10, 100, 50));
    EXPECT_EQ(halfWay(layer, clock, "anchorPoint.x", 1.0).anchorPoint, CGPointMake(0.75, 0.5));
}

TEST_F(CALayerOnAClock, PartsOfATransformHaveNames) {
    CATransform3D transform = CATransform3DMakeTranslation(3, 4, 5);
    transform = CATransform3DRotate(transform, 0.5, 0, 0, 1);
    transform = CATransform3DScale(transform, 2, 3, 4);
    layer->setTransform(transform);
    EXPECT_NEAR(layer->valueForLayerKeyPath("transform.translation.x").doubleValue(), 3, 1e-9);
    EXPECT_NEAR(layer->valueForLayerKeyPath("transform.translation.z").doubleValue(), 5, 1e-9);
    const NSValue translation = layer->valueForLayerKeyPath("transform.translation");
    const auto* moved = translation.structure<CGSize>();
    ASSERT_TRUE(moved);
    EXPECT_NEAR(moved->width, 3, 1e-9);
    EXPECT_NEAR(moved->height, 4, 1e-9);
    EXPECT_NEAR(layer->valueForLayerKeyPath("transform.rotation").doubleValue(), 0.5, 1e-9);
    EXPECT_NEAR(layer->valueForLayerKeyPath("transform.rotation.z").doubleValue(), 0.5, 1e-9);
    EXPECT_NEAR(layer->valueForLayerKeyPath("transform.scale.y").doubleValue(), 3, 1e-9);
    EXPECT_NEAR(layer->valueForLayerKeyPath("transform.scale").doubleValue(), 3, 1e-9) << "their mean";
}

TEST_F(CALayerOnAClock, PartsOfATransformAreAnimatedAndLeaveTheOthersAlone) {
    layer->setTransform(CATransform3DMakeScale(2, 2, 1));
    const CATransform3D moved = halfWay(layer, clock, "transform.translation.y", 10.0).transform;
    EXPECT_NEAR(moved.m42, 5, 1e-9);
    EXPECT_NEAR(moved.m11, 2, 1e-9);
    const CATransform3D wider = halfWay(layer, clock, "transform.scale.x", 4.0).transform;
    EXPECT_NEAR(wider.m11, 3, 1e-9);
    EXPECT_NEAR(wider.m22, 2, 1e-9);
    const CATransform3D shifted =
        halfWay(layer, clock, "transform.translation", NSValue::valueWithStructure(CGSizeMake(4, 8))).transform;
    EXPECT_NEAR(shifted.m41, 2, 1e-9);
    EXPECT_NEAR(shifted.m42, 4, 1e-9);
    const CATransform3D turned = halfWay(layer, clock, "transform.rotation", std::numbers::pi).transform;
    EXPECT_NEAR(turned.m11, 0, 1e-9);
    EXPECT_NEAR(turned.m12, 2, 1e-9);
}

TEST(CALayer, PropertiesAreReachedByTheirKeys) {
    auto layer = make<CALayer>();
    layer->setValue_forKey(NSValue::valueWithStructure(CGPointMake(3, 4)), "position");
    EXPECT_EQ(layer->position(), CGPointMake(3, 4));
    layer->setValue_forKey(0.5, "opacity");
    EXPECT_EQ(layer->opacity(), 0.5);
    layer->setValue_forKey(true, "hidden");
    EXPECT_TRUE(layer->isHidden());
    EXPECT_TRUE(layer->valueForKey("hidden").boolValue());
    EXPECT_EQ(layer->valueForKey("opacity").doubleValue(), 0.5);
}

} // namespace zr::testing
