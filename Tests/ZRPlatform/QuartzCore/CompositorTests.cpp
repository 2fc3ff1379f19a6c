#include <Tests/ZRPlatform/QuartzCore/CompositorTesting.h>

using namespace zr;
using namespace zr::testing;

TEST_F(CompositorTest, BackgroundFillsTheFrameAtTheScreensScale) {
    root->addSublayer(box(CGRectMake(10, 5, 20, 10), color(0, 195 / 255.0, 64 / 255.0)));
    compose();
    EXPECT_EQ(pixel(20, 10), 0xFF00C340u);
    EXPECT_EQ(pixel(59, 29), 0xFF00C340u);
    EXPECT_EQ(pixel(19, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(60, 29), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(59, 30), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, NothingIsBlack) {
    root->setBackgroundColor(nullptr);
    compose();
    EXPECT_EQ(pixel(3, 3), 0xFF000000u);
}

TEST_F(CompositorTest, ColoursBeyondTheirRangeAreCut) {
    root->setBackgroundColor(color(300 / 255.0, -1, 0.5));
    compose();
    EXPECT_EQ(pixel(3, 3), 0xFFFF0080u);
}

TEST_F(CompositorTest, TranslucentLayersMix) {
    root->addSublayer(box(CGRectMake(0, 0, 100, 50), color(0, 0, 0, 0.45)));
    compose();
    EXPECT_NEAR(channel(pixel(50, 50), kRed), std::lround(255 * 0.55), 1);
}

TEST_F(CompositorTest, OpacityFadesALayerAndItsSublayersAsOnePicture) {
    auto parent = box(CGRectMake(0, 0, 40, 40), color(1, 0, 0));
    parent->addSublayer(box(CGRectMake(0, 0, 20, 40), color(0, 0, 1)));
    parent->setOpacity(0.5);
    root->addSublayer(parent);
    compose();
    // Where blue covers red, no red shines through.
    EXPECT_NEAR(channel(pixel(10, 10), kRed), 128, 1);
    EXPECT_NEAR(channel(pixel(10, 10), kBlue), 255, 1);
    EXPECT_NEAR(channel(pixel(60, 10), kRed), 255, 1);
    EXPECT_NEAR(channel(pixel(60, 10), kBlue), 128, 1);
}

TEST_F(CompositorTest, GroupsWithinGroupsMultiply) {
    auto outer = box(CGRectMake(0, 0, 40, 40), nullptr);
    auto inner = box(CGRectMake(0, 0, 40, 40), nullptr);
    inner->addSublayer(box(CGRectMake(0, 0, 40, 40), color(0, 0, 0)));
    inner->setOpacity(0.5);
    outer->addSublayer(inner);
    outer->setOpacity(0.5);
    root->addSublayer(outer);
    compose();
    EXPECT_NEAR(channel(pixel(10, 10), kGreen), 191, 1);
}

TEST_F(CompositorTest, HiddenAndTransparentLayersLeaveOutWhatIsBelowThemInTheTree) {
    auto parent = box(CGRectMake(0, 0, 40, 40), color(1, 0, 0));
    parent->addSublayer(box(CGRectMake(0, 0, 20, 40), color(0, 0, 1)));
    root->addSublayer(parent);
    parent->setHidden(true);
    compose();
    EXPECT_EQ(pixel(10, 10), 0xFFFFFFFFu);
    parent->setHidden(false);
    parent->setOpacity(0);
    compose();
    EXPECT_EQ(pixel(10, 10), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, RoundedCornersCoverTheAreaOfTheirArcs) {
    auto layer = box(CGRectMake(10, 5, 40, 40), color(0, 0, 0));
    layer->setCornerRadius(12);
    root->addSublayer(layer);
    compose();
    const double covered = blackPixels();
    const double radius = 24;
    const double expected = 80 * 80 - (4 - std::numbers::pi) * radius * radius;
    EXPECT_NEAR(covered, expected, expected * 0.001);
    EXPECT_EQ(pixel(20, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(60, 10), 0xFF000000u);
    EXPECT_EQ(pixel(20, 50), 0xFF000000u);
}

TEST_F(CompositorTest, CornerRadiusAboveHalfTheSideMakesAPill) {
    auto layer = box(CGRectMake(10, 10, 40, 20), color(0, 0, 0));
    layer->setCornerRadius(1000);
    root->addSublayer(layer);
    compose();
    const double covered = blackPixels();
    EXPECT_NEAR(covered, 40 * 40 + std::numbers::pi * 400, 8);
}

TEST_F(CompositorTest, MaskingCutsSublayersToTheRoundedBounds) {
    auto parent = box(CGRectMake(10, 5, 40, 40), color(0, 1, 0));
    parent->setCornerRadius(12);
    parent->setMasksToBounds(true);
    parent->addSublayer(box(CGRectMake(-20, -20, 100, 100), color(0, 0, 0)));
    root->addSublayer(parent);
    compose();
    EXPECT_EQ(pixel(60, 50), 0xFF000000u);
    EXPECT_EQ(pixel(20, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(110, 50), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(60, 4), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, MaskingWithoutARadiusCutsStraight) {
    auto parent = box(CGRectMake(10, 5, 40, 40), nullptr);
    parent->setMasksToBounds(true);
    parent->addSublayer(box(CGRectMake(-20, -20, 100, 100), color(0, 0, 0)));
    root->addSublayer(parent);
    compose();
    EXPECT_EQ(pixel(20, 10), 0xFF000000u);
    EXPECT_EQ(pixel(19, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(99, 89), 0xFF000000u);
    EXPECT_EQ(pixel(100, 89), 0xFFFFFFFFu);
    parent->setMasksToBounds(false);
    compose();
    EXPECT_EQ(pixel(19, 10), 0xFF000000u);
}

TEST_F(CompositorTest, BorderLiesInsideTheBoundsOverTheSublayers) {
    auto layer = box(CGRectMake(10, 5, 40, 40), color(0, 1, 0));
    layer->setBorderWidth(0.5);
    layer->setBorderColor(color(1, 0, 0));
    layer->addSublayer(box(CGRectMake(0, 0, 40, 40), color(0, 0, 1)));
    root->addSublayer(layer);
    compose();
    EXPECT_EQ(pixel(20, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(99, 50), 0xFFFF0000u);
    EXPECT_EQ(pixel(21, 11), 0xFF0000FFu);
    EXPECT_EQ(pixel(19, 10), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, HairlinesAreAWholePixelOnAThreefoldScreen) {
    Compositor threefold(300, 150, 3);
    auto layer = box(CGRectMake(10, 5, 40, 40), nullptr);
    layer->setBorderWidth(0.4);
    layer->setBorderColor(color(0, 0, 0));
    root->addSublayer(layer);
    threefold.compose({root.get()});
    const auto at = [&](int x, int y) { return threefold.pixels()[y * 300 + x]; };
    EXPECT_EQ(at(60, 15), 0xFF000000u);
    EXPECT_EQ(at(60, 16), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, WhatStandsStillBetweenPixelsIsMovedToTheNearest) {
    root->addSublayer(box(CGRectMake(10.3, 5.2, 20, 10), color(0, 0, 0)));
    compose();
    EXPECT_EQ(pixel(21, 10), 0xFF000000u);
    EXPECT_EQ(pixel(20, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(60, 29), 0xFF000000u);
    EXPECT_EQ(pixel(61, 29), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, WhatMovesCoversPixelsInPart) {
    auto layer = box(CGRectMake(10, 5, 20, 10), color(0, 0, 0));
    root->addSublayer(layer);
    moveByAQuarterPixel(layer);
    EXPECT_NEAR(channel(pixel(20, 15), kRed), 64, 1);
    EXPECT_EQ(pixel(21, 15), 0xFF000000u);
    EXPECT_NEAR(channel(pixel(60, 15), kRed), 191, 1);
    EXPECT_EQ(compositor.nextChangeTime(), 0.125);
}

TEST_F(CompositorTest, OfTwoScreensThatSlideEachShowsOnItsSide) {
    auto lower = box(CGRectMake(0, 0, 100, 50), color(1, 0, 0));
    lower->addSublayer(box(CGRectMake(0, 10, 100, 10), color(0, 1, 0)));
    auto upper = box(CGRectMake(50, 0, 100, 50), color(0, 0, 1));
    upper->addSublayer(box(CGRectMake(10, 10, 10, 10), color(1, 1, 1)));
    root->addSublayer(lower);
    root->addSublayer(upper);
    root->addSublayer(box(CGRectMake(45, 30, 10, 10), color(0, 0, 0)));
    moveByAQuarterPixel(upper);
    // The screens, the pixel between them, what lies on the upper one, and what lies across both.
    EXPECT_EQ(pixel(99, 0), 0xFFFF0000u);
    EXPECT_EQ(pixel(99, 20), 0xFF00FF00u);
    EXPECT_NEAR(channel(pixel(100, 0), kRed), 64, 1);
    EXPECT_NEAR(channel(pixel(100, 0), kBlue), 191, 1);
    EXPECT_NEAR(channel(pixel(100, 20), kGreen), 64, 1);
    EXPECT_EQ(pixel(101, 0), 0xFF0000FFu);
    EXPECT_EQ(pixel(101, 20), 0xFF0000FFu);
    EXPECT_EQ(pixel(199, 99), 0xFF0000FFu);
    EXPECT_EQ(pixel(125, 25), 0xFFFFFFFFu);
    for (const int x : {90, 99, 100, 101, 109})
        EXPECT_EQ(pixel(x, 70), 0xFF000000u) << x;
    EXPECT_EQ(pixel(110, 70), 0xFF0000FFu);
}

TEST_F(CompositorTest, APictureThatMovesIsCutAtItsEdgesOnly) {
    auto layer = box(CGRectMake(10, 5, 40, 20), nullptr);
    layer->setContents(redAndBlue(80, 40));
    root->addSublayer(layer);
    moveByAQuarterPixel(layer);
    for (const int y : {10, 30, 49}) {
        EXPECT_NEAR(channel(pixel(20, y), kGreen), 64, 1) << "a quarter of white";
        EXPECT_EQ(channel(pixel(20, y), kRed), 255);
        EXPECT_EQ(pixel(21, y), 0xFFFF0000u);
        EXPECT_EQ(pixel(59, y), 0xFFFF0000u);
        EXPECT_NEAR(channel(pixel(60, y), kRed), 64, 2);
        EXPECT_EQ(pixel(61, y), 0xFF0000FFu);
        EXPECT_EQ(pixel(99, y), 0xFF0000FFu);
        EXPECT_NEAR(channel(pixel(100, y), kRed), 191, 1);
    }
    EXPECT_EQ(pixel(50, 9), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(50, 50), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, APatternThatMovesIsCutAtItsEdgesOnly) {
    auto layer = box(CGRectMake(10, 5, 40, 20), Ref<CGColor>::adopt(new CGColor(redAndBlue(10, 4).get())));
    root->addSublayer(layer);
    moveByAQuarterPixel(layer);
    for (const int y : {10, 30, 49}) {
        EXPECT_NEAR(channel(pixel(20, y), kGreen), 64, 1) << "a quarter of white";
        EXPECT_EQ(pixel(21, y), 0xFFFF0000u);
        EXPECT_EQ(pixel(31, y), 0xFF0000FFu);
        EXPECT_EQ(pixel(99, y), 0xFF0000FFu);
        EXPECT_NEAR(channel(pixel(100, y), kGreen), 191, 1) << "of the next tile";
    }
    EXPECT_EQ(pixel(50, 9), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(50, 50), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, ContentsOfTheScreensScaleAreCopiedPixelByPixel) {
    auto layer = box(CGRectMake(10, 5, 10, 5), nullptr);
    layer->setContents(redAndBlue(20, 10));
    layer->setContentsScale(2);
    root->addSublayer(layer);
    compose();
    EXPECT_EQ(pixel(29, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(30, 10), 0xFF0000FFu);
    EXPECT_EQ(pixel(39, 19), 0xFF0000FFu);
    EXPECT_EQ(pixel(40, 19), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, ContentsStretchToTheBoundsWithHardOuterEdges) {
    auto layer = box(CGRectMake(10, 5, 40, 20), nullptr);
    layer->setContents(redAndBlue(4, 2));
    root->addSublayer(layer);
    compose();
    EXPECT_EQ(pixel(20, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(99, 49), 0xFF0000FFu);
    EXPECT_EQ(pixel(19, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(100, 49), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, GravityPlacesContentsThatDoNotResize) {
    auto layer = box(CGRectMake(10, 5, 40, 40), nullptr);
    layer->setContents(redAndBlue(20, 20));
    layer->setContentsScale(2);
    root->addSublayer(layer);
    struct Case {
        const char* gravity;
        int x, y;
    };
    // The image is 10 points wide, 30 less than the bounds.
    for (const Case& c : {Case{kCAGravityCenter, 50, 40},
                          {kCAGravityTopLeft, 20, 10},
                          {kCAGravityBottomRight, 80, 70},
                          {kCAGravityTop, 50, 10},
                          {kCAGravityLeft, 20, 40}}) {
        layer->setContentsGravity(c.gravity);
        compose();
        EXPECT_EQ(pixel(c.x, c.y), 0xFFFF0000u) << c.gravity;
        EXPECT_EQ(pixel(c.x + 19, c.y + 19), 0xFF0000FFu) << c.gravity;
        EXPECT_EQ(pixel(c.x - 1, c.y), 0xFFFFFFFFu) << c.gravity;
        EXPECT_EQ(pixel(c.x + 20, c.y), 0xFFFFFFFFu) << c.gravity;
    }
}

TEST_F(CompositorTest, AspectGravitiesKeepTheProportions) {
    auto layer = box(CGRectMake(0, 0, 40, 20), nullptr);
    layer->setContents(redAndBlue(10, 10));
    layer->setContentsGravity(kCAGravityResizeAspect);
    root->addSublayer(layer);
    compose();
    EXPECT_EQ(pixel(19, 20), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(20, 20), 0xFFFF0000u);
    EXPECT_EQ(pixel(59, 20), 0xFF0000FFu);
    EXPECT_EQ(pixel(60, 20), 0xFFFFFFFFu);
    layer->setContentsGravity(kCAGravityResizeAspectFill);
    compose();
    EXPECT_EQ(pixel(0, 20), 0xFFFF0000u);
    EXPECT_EQ(pixel(79, 20), 0xFF0000FFu);
}

TEST_F(CompositorTest, ContentsCenterKeepsTheRimsSize) {
    auto layer = box(CGRectMake(0, 0, 50, 10), nullptr);
    // Four pixels wide: one red and one blue of them keep their size, at one pixel a point.
    layer->setContents(redAndBlue(4, 4));
    layer->setContentsCenter(CGRectMake(0.5, 0, 0.25, 1));
    root->addSublayer(layer);
    compose();
    EXPECT_EQ(pixel(2, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(5, 10), 0xFF0000FFu);
    EXPECT_EQ(pixel(90, 10), 0xFF0000FFu);
}

TEST_F(CompositorTest, PatternsTileFromTheLayersOrigin) {
    auto pattern = Ref<CGColor>::adopt(new CGColor(redAndBlue(10, 4).get()));
    root->addSublayer(box(CGRectMake(3, 0, 40, 20), pattern));
    compose();
    EXPECT_EQ(pixel(6, 0), 0xFFFF0000u);
    EXPECT_EQ(pixel(15, 0), 0xFFFF0000u);
    EXPECT_EQ(pixel(16, 0), 0xFF0000FFu);
    EXPECT_EQ(pixel(25, 0), 0xFF0000FFu);
    EXPECT_EQ(pixel(26, 39), 0xFFFF0000u);
    EXPECT_EQ(pixel(5, 0), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, APatternsTilesGoOnToTheLeftAndAboveTheOrigin) {
    auto pattern = Ref<CGColor>::adopt(new CGColor(redAndBlue(10, 4).get()));
    auto layer = box(CGRectMake(10, 5, 60, 30), pattern);
    layer->setBounds(CGRectMake(-7, -3, 60, 30));
    root->addSublayer(layer);
    compose();
    // Points -7 to -5 are 3 to 5 of the tile before: two of red, then blue up to the origin, two pixels a point.
    EXPECT_EQ(pixel(20, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(23, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(24, 10), 0xFF0000FFu);
    EXPECT_EQ(pixel(33, 69), 0xFF0000FFu);
    EXPECT_EQ(pixel(34, 69), 0xFFFF0000u);
    EXPECT_EQ(pixel(139, 69), 0xFFFF0000u);
    EXPECT_EQ(pixel(140, 69), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, AFadedPatternOfBandsMixesWithWhatIsBelow) {
    auto pattern = Ref<CGColor>::adopt(new CGColor(redAndBlue(10, 4).get()));
    auto layer = box(CGRectMake(0, 0, 40, 20), pattern);
    layer->setOpacity(0.5f);
    root->addSublayer(layer);
    compose();
    EXPECT_NEAR(channel(pixel(0, 0), kGreen), 128, 1);
    EXPECT_EQ(channel(pixel(0, 0), kRed), 255);
    EXPECT_NEAR(channel(pixel(12, 0), kRed), 128, 1);
}

TEST_F(CompositorTest, AFadedScreenLooksTheSameAroundAndBesideWhatLiesOnIt) {
    // A veil over everything and a small panel on it, faded together; the veil's pixels tell nothing of the panel.
    for (const float opacity : {0.02f, 0.3f, 0.5f, 0.77f, 0.99f}) {
        auto group = box(CGRectMake(0, 0, 100, 50), nullptr);
        group->addSublayer(box(CGRectMake(0, 0, 100, 50), color(0.2, 0.4, 0.1, 0.6)));
        auto panel = box(CGRectMake(30, 10, 40, 30), color(1, 1, 0));
        panel->setCornerRadius(10);
        panel->setMasksToBounds(true);
        panel->addSublayer(box(CGRectMake(0, 0, 40, 10), color(0, 0, 1)));
        group->addSublayer(panel);
        group->setOpacity(opacity);
        root->addSublayer(group);
        compose();
        const double veil = 0.6 * opacity;
        EXPECT_NEAR(channel(pixel(0, 0), kRed), 255 * (1 - veil + veil * 0.2), 1.5);
        EXPECT_NEAR(channel(pixel(0, 0), kGreen), 255 * (1 - veil + veil * 0.4), 1.5);
        // The panel's own corner shows the veil as well, and is put together with the panel.
        EXPECT_EQ(pixel(60, 20), pixel(0, 0));
        EXPECT_EQ(pixel(199, 99), pixel(0, 0));
        EXPECT_NEAR(channel(pixel(100, 70), kBlue), 255 * (1 - opacity), 1);
        EXPECT_NEAR(channel(pixel(100, 30), kRed), 255 * (1 - opacity), 1);
        group->removeFromSuperlayer();
    }
}

TEST_F(CompositorTest, RotatedLayersCoverTheirArea) {
    auto layer = box(CGRectMake(30, 5, 40, 40), color(0, 0, 0));
    layer->setTransform(CATransform3DMakeRotation(std::numbers::pi / 4, 0, 0, 1));
    layer->setBounds(CGRectMake(0, 0, 20, 20));
    root->addSublayer(layer);
    compose();
    const double covered = blackPixels();
    EXPECT_NEAR(covered, 1600, 2);
    EXPECT_EQ(pixel(100, 50), 0xFF000000u);
    EXPECT_EQ(pixel(100 - 24, 50 - 24), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(100, 50 - 24), 0xFF000000u);
}

TEST_F(CompositorTest, PerspectiveNarrowsTheFarSide) {
    auto layer = box(CGRectMake(25, 0, 50, 50), color(0, 0, 0));
    CATransform3D t;
    t.m34 = -1.0 / 100;
    // The upper edge leans away from the eye.
    layer->setTransform(CATransform3DRotate(t, std::numbers::pi / 6, 1, 0, 0));
    root->addSublayer(layer);
    compose();
    const auto widthAt = [&](double y) {
        // Solve for the point of the layer that is seen at height y below the centre, in points.
        const double s = std::sin(std::numbers::pi / 6), c = std::cos(std::numbers::pi / 6);
        const double v = y / (c + y * s / 100);
        return 50 / (1 - v * s / 100) * 2;
    };
    for (int row : {20, 50, 80}) {
        int width = 0;
        for (int x = 0; x < 200; ++x)
            width += channel(pixel(x, row), kRed) < 128;
        EXPECT_NEAR(width, widthAt((row + 0.5 - 50) / 2), 1.5) << row;
    }
}

TEST_F(CompositorTest, ContentsFollowAPerspectiveTransform) {
    auto layer = box(CGRectMake(25, 0, 50, 50), nullptr);
    layer->setContents(redAndBlue(100, 100));
    CATransform3D t;
    t.m34 = -1.0 / 100;
    layer->setTransform(CATransform3DRotate(t, std::numbers::pi / 4, 0, 1, 0));
    root->addSublayer(layer);
    compose();
    // The middle stays in the middle; red lies on the left.
    EXPECT_EQ(channel(pixel(97, 50), kRed), 255);
    EXPECT_EQ(channel(pixel(97, 50), kBlue), 0);
    EXPECT_EQ(channel(pixel(103, 50), kBlue), 255);
    EXPECT_EQ(channel(pixel(103, 50), kRed), 0);
}

TEST_F(CompositorTest, HigherZPositionsAreInFront) {
    auto front = box(CGRectMake(0, 0, 20, 20), color(1, 0, 0));
    root->addSublayer(front);
    root->addSublayer(box(CGRectMake(0, 0, 20, 20), color(0, 0, 1)));
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFF0000FFu);
    front->setZPosition(1);
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFFFF0000u);
}

TEST_F(CompositorTest, HugeAndUndefinedFramesDrawNothing) {
    root->addSublayer(box(CGRectMake(NAN, 0, 20, 20), color(1, 0, 0)));
    root->addSublayer(box(CGRectMake(0, 0, INFINITY, 20), color(1, 0, 0)));
    auto turned = box(CGRectMake(0, 0, 20, 20), color(1, 0, 0));
    CATransform3D undefined;
    undefined.m11 = NAN;
    turned->setTransform(undefined);
    root->addSublayer(turned);
    auto vast = box(CGRectMake(-1e300, -1e300, 2e300, 2e300), color(0, 0, 1));
    vast->setCornerRadius(NAN);
    vast->setBorderWidth(INFINITY);
    root->addSublayer(vast);
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFF0000FFu);
}

// Damage

TEST_F(CompositorTest, ASquashedCircleIsAnEllipse) {
    auto layer = box(CGRectMake(30, 5, 40, 40), color(0, 0, 0));
    layer->setCornerRadius(20);
    layer->setTransform(CATransform3DMakeScale(1, 0.25, 1));
    root->addSublayer(layer);
    compose();
    const double covered = blackPixels();
    EXPECT_NEAR(covered, std::numbers::pi * 40 * 10, 10);
    EXPECT_EQ(pixel(100, 50), 0xFF000000u);
    EXPECT_EQ(pixel(63, 43), 0xFFFFFFFFu);
}

TEST_F(CompositorTest, AHeightThatIsNoNumberCountsAsZero) {
    const double heights[] = {1, std::nan(""), 0};
    for (int i = 0; i < 3; ++i) {
        const auto layer = box(CGRectMake(0, 0, 20, 20), color(i == 0, i == 1, i == 2));
        layer->setZPosition(heights[i]);
        root->addSublayer(layer);
    }
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFFFF0000u);
    root->sublayers().front()->removeFromSuperlayer();
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFF0000FFu);
}

TEST_F(CompositorTest, AnimatedHeightsReorder) {
    auto low = box(CGRectMake(0, 0, 20, 20), color(1, 0, 0));
    root->addSublayer(low);
    root->addSublayer(box(CGRectMake(0, 0, 20, 20), color(0, 0, 1)));
    auto rise = CABasicAnimation::animationWithKeyPath("zPosition");
    rise->setFromValue(-1.0);
    rise->setToValue(1.0);
    rise->setDuration(1);
    low->addAnimation_forKey(rise, "rise");
    compose();
    EXPECT_EQ(pixel(5, 5), 0xFF0000FFu);
    m_clock.advanceTo(nanosecondsFromSeconds(0.75));
    compositor.compose({root.get()});
    EXPECT_EQ(pixel(5, 5), 0xFFFF0000u);
}

TEST_F(CompositorTest, AnOddPartOfAnImageReachesItsLastPixels) {
    auto layer = box(CGRectMake(0, 0, 50, 10), nullptr);
    layer->setContents(redAndBlue(10, 2));
    // From 2.5 to 7.5: as much red as blue.
    layer->setContentsRect(CGRectMake(0.25, 0, 0.5, 1));
    root->addSublayer(layer);
    compose();
    EXPECT_EQ(pixel(1, 10), 0xFFFF0000u);
    EXPECT_EQ(pixel(98, 10), 0xFF0000FFu);
    EXPECT_GT(channel(pixel(45, 10), kRed), 128);
    EXPECT_GT(channel(pixel(55, 10), kBlue), 128);
}
