#include <Tests/ZRPlatform/QuartzCore/CompositorTesting.h>

using namespace zr;
using namespace zr::testing;

namespace {

using CompositorDamage = CompositorTest;

} // namespace

TEST_F(CompositorDamage, TheFirstPictureIsPaintedWhole) {
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{0, 0, 200, 100}}));
}

TEST_F(CompositorDamage, NothingChangedIsNothingPainted) {
    compose();
    EXPECT_TRUE(compose().empty());
    EXPECT_EQ(compositor.paintedPixels(), 0);
}

TEST_F(CompositorDamage, AMovedLayerDamagesWhereItWasAndWhereItIs) {
    auto layer = box(CGRectMake(0, 0, 10, 10), color(0, 0, 0));
    root->addSublayer(layer);
    compose();
    layer->setPosition({55, 25});
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{0, 0, 20, 20}, {100, 40, 20, 20}}));
    EXPECT_EQ(pixel(5, 5), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(105, 45), 0xFF000000u);
}

TEST_F(CompositorDamage, AddedAndRemovedLayersDamageTheirOwnPixels) {
    compose();
    auto layer = box(CGRectMake(10, 10, 10, 10), color(0, 0, 0));
    root->addSublayer(layer);
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{20, 20, 20, 20}}));
    layer->removeFromSuperlayer();
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{20, 20, 20, 20}}));
    EXPECT_EQ(pixel(25, 25), 0xFFFFFFFFu);
}

TEST_F(CompositorDamage, AFadedParentDamagesItsWholeTreeOnly) {
    auto parent = box(CGRectMake(10, 10, 10, 10), nullptr);
    parent->addSublayer(box(CGRectMake(5, 5, 20, 20), color(0, 0, 0)));
    root->addSublayer(parent);
    compose();
    parent->setOpacity(0.5);
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{30, 30, 40, 40}}));
}

TEST_F(CompositorDamage, ReorderedSiblingsAreRepainted) {
    auto first = box(CGRectMake(0, 0, 20, 20), color(1, 0, 0));
    auto second = box(CGRectMake(10, 10, 20, 20), color(0, 0, 1));
    root->addSublayer(first);
    root->addSublayer(second);
    compose();
    EXPECT_EQ(pixel(30, 30), 0xFF0000FFu);
    root->addSublayer(first);
    compose();
    EXPECT_EQ(pixel(30, 30), 0xFFFF0000u);
}

TEST_F(CompositorDamage, WhatAnOpaqueLayerHidesDamagesAndStaysHidden) {
    auto below = box(CGRectMake(0, 0, 20, 20), color(1, 0, 0));
    root->addSublayer(below);
    root->addSublayer(box(CGRectMake(0, 0, 30, 30), color(0, 0, 1)));
    compose();
    below->setBackgroundColor(color(0, 1, 0));
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFF0000FFu);
}

TEST_F(CompositorDamage, ADamagedPictureEqualsOnePaintedWhole) {
    // Many layers in many states, changed at random: repainting in part gives what repainting everything gives.
    std::uint32_t seed = 12345;
    const auto random = [&](int n) {
        seed = seed * 1664525 + 1013904223;
        return int((seed >> 8) % n);
    };
    std::vector<Ref<CALayer>> layers{root};
    auto veil = box(CGRectMake(0, 0, 100, 50), color(0.3, 0.1, 0.2, 0.6));
    root->addSublayer(veil);
    layers.push_back(veil);
    for (int i = 0; i < 30; ++i) {
        auto layer = box(CGRectMake(random(80), random(40), random(40), random(30)),
                         color(random(2), random(2), random(2), random(3) ? 1 : 0.5));
        layers[random(int(layers.size()))]->addSublayer(layer);
        layers.push_back(layer);
    }
    for (int step = 0; step < 300; ++step) {
        CALayer* layer = layers[1 + random(int(layers.size()) - 1)];
        switch (random(10)) {
        case 0:
            layer->setPosition({CGFloat(random(100)), CGFloat(random(50)) + 0.25});
            break;
        case 1:
            layer->setOpacity(random(3) / 2.0f);
            break;
        case 2:
            layer->setCornerRadius(random(10));
            break;
        case 3:
            layer->setMasksToBounds(random(2));
            break;
        case 4:
            layer->setTransform(CATransform3DMakeRotation(random(4) * 0.4, 0, 0, 1));
            break;
        case 5:
            layer->setHidden(random(2));
            break;
        case 6:
            layer->setBorderWidth(random(3));
            break;
        case 7:
            layers[random(int(layers.size()))]->addSublayer(layer);
            break;
        case 8:
            layer->setContents(random(2) ? redAndBlue(8, 8) : nullptr);
            break;
        case 9:
            layer->setBackgroundColor(Ref<CGColor>::adopt(new CGColor(redAndBlue(6, 5).get())));
            break;
        }
        compose();
        Compositor whole(200, 100, 2);
        whole.compose({root.get()});
        for (int i = 0; i < 200 * 100; ++i)
            ASSERT_EQ(compositor.pixels()[i], whole.pixels()[i]) << "step " << step << ", pixel " << i;
    }
}
