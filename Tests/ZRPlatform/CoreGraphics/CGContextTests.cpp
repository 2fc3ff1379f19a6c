#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

using namespace zr;

namespace {

void expectRect(CGRect actual, CGRect expected) {
    EXPECT_NEAR(actual.origin.x, expected.origin.x, 1e-9);
    EXPECT_NEAR(actual.origin.y, expected.origin.y, 1e-9);
    EXPECT_NEAR(actual.size.width, expected.size.width, 1e-9);
    EXPECT_NEAR(actual.size.height, expected.size.height, 1e-9);
}

/// The square is filled exactly where the rectangle says, and nowhere else.
void expectOnly(const Canvas& canvas, NSUInteger size, CGRect rect, Pixel color) {
    for (NSUInteger y = 0; y < size; ++y) {
        for (NSUInteger x = 0; x < size; ++x) {
            const bool inside = CGRectContainsPoint(rect, {static_cast<CGFloat>(x), static_cast<CGFloat>(y)});
            ASSERT_EQ(canvas.at(x, y), inside ? color : kClear) << x << " " << y;
        }
    }
}

} // namespace

TEST(CGContext, FillsAlignedRectanglesExactly) {
    Canvas canvas(20, 20);
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextFillRect(canvas, CGRectMake(3, 4, 10, 5));
    expectOnly(canvas, 20, CGRectMake(3, 11, 10, 5), kRed);
}

TEST(CGContext, FillsExactlyInAScaledSpaceWithYDownwards) {
    Canvas canvas = Canvas::downwards(30, 30);
    CGContextScaleCTM(canvas, 3, 3);
    CGContextSetRGBFillColor(canvas, 0, 0, 1, 1);
    CGContextFillRect(canvas, CGRectMake(5, 6, -4, -5));
    expectOnly(canvas, 30, CGRectMake(3, 3, 12, 15), kBlue);
}

TEST(CGContext, CoversFractionsOfPixelsInProportion) {
    Canvas canvas(4, 4);
    CGContextFillRect(canvas, CGRectMake(1.25, 1, 1.5, 1));
    EXPECT_PIXEL_NEAR(canvas.at(1, 2), (Pixel{0, 0, 0, 191}), 2);
    EXPECT_PIXEL_NEAR(canvas.at(2, 2), (Pixel{0, 0, 0, 191}), 2);
    EXPECT_EQ(canvas.at(0, 2), kClear);
    EXPECT_EQ(canvas.at(1, 1), kClear);
}

TEST(CGContext, WithoutAntialiasingPixelsAreInOrOut) {
    Canvas canvas(20, 20);
    CGContextSetShouldAntialias(canvas, false);
    CGContextFillEllipseInRect(canvas, CGRectMake(1, 1, 17, 17));
    for (NSUInteger y = 0; y < 20; ++y) {
        for (NSUInteger x = 0; x < 20; ++x)
            EXPECT_TRUE(canvas.at(x, y) == kClear || canvas.at(x, y) == kBlack);
    }
    EXPECT_NEAR(canvas.coverage(), kPi * 8.5 * 8.5, 6);
}

TEST(CGContext, TransformStartsAsTheIdentityAndConcatenates) {
    Canvas canvas(4, 4);
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(canvas)));
    CGContextTranslateCTM(canvas, 10, 20);
    CGContextScaleCTM(canvas, 2, 3);
    CGContextRotateCTM(canvas, 0.5);
    CGAffineTransform expected = CGAffineTransformMakeTranslation(10, 20);
    expected = CGAffineTransformRotate(CGAffineTransformScale(expected, 2, 3), 0.5);
    EXPECT_EQ(CGContextGetCTM(canvas), expected);
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(nullptr)));
}

TEST(CGContext, RestoreBringsEverythingBackThatSaveKept) {
    Canvas canvas(10, 10);
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextSaveGState(canvas);
    CGContextSetRGBFillColor(canvas, 0, 1, 0, 1);
    CGContextSetAlpha(canvas, 0.5);
    CGContextTranslateCTM(canvas, 5, 5);
    CGContextSetBlendMode(canvas, kCGBlendModeClear);
    CGContextClipToRect(canvas, CGRectMake(0, 0, 1, 1));
    CGContextRestoreGState(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 10, 10));
    expectOnly(canvas, 10, CGRectMake(0, 0, 10, 10), kRed);
}

TEST(CGContext, UnbalancedRestoreIsIgnored) {
    Canvas canvas(10, 10);
    CGContextClipToRect(canvas, CGRectMake(0, 0, 5, 5));
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextRestoreGState(canvas);
    CGContextRestoreGState(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 10, 10));
    expectOnly(canvas, 10, CGRectMake(0, 5, 5, 5), kRed);
}

TEST(CGContext, ThePathSurvivesSaveAndRestore) {
    Canvas canvas(10, 10);
    CGContextSaveGState(canvas);
    CGContextTranslateCTM(canvas, 2, 2);
    CGContextAddRect(canvas, CGRectMake(0, 0, 3, 3));
    CGContextRestoreGState(canvas);
    EXPECT_FALSE(CGContextIsPathEmpty(canvas));
    EXPECT_EQ(CGContextGetPathCurrentPoint(canvas), CGPointMake(2, 2));
    CGContextFillPath(canvas);
    expectOnly(canvas, 10, CGRectMake(2, 5, 3, 3), kBlack);
    EXPECT_TRUE(CGContextIsPathEmpty(canvas));
}

TEST(CGContext, ClipsIntersectAndNest) {
    Canvas canvas(20, 20);
    CGContextClipToRect(canvas, CGRectMake(2, 2, 10, 10));
    expectRect(CGContextGetClipBoundingBox(canvas), CGRectMake(2, 2, 10, 10));
    CGContextSaveGState(canvas);
    CGContextTranslateCTM(canvas, 6, 6);
    CGContextClipToRect(canvas, CGRectMake(0, 0, 10, 10));
    expectRect(CGContextGetClipBoundingBox(canvas), CGRectMake(0, 0, 6, 6));
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextFillRect(canvas, CGRectMake(-100, -100, 200, 200));
    CGContextRestoreGState(canvas);
    expectOnly(canvas, 20, CGRectMake(6, 8, 6, 6), kRed);
    expectRect(CGContextGetClipBoundingBox(canvas), CGRectMake(2, 2, 10, 10));
}

TEST(CGContext, AnEmptyClipLeavesNothing) {
    Canvas canvas(10, 10);
    CGContextSaveGState(canvas);
    CGContextClip(canvas);
    EXPECT_TRUE(CGRectIsEmpty(CGContextGetClipBoundingBox(canvas)));
    CGContextFillRect(canvas, CGRectMake(0, 0, 10, 10));
    EXPECT_TRUE(canvas.isBlank());
    CGContextRestoreGState(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(canvas.coverage(), 100);
}

TEST(CGContext, ClipFollowsShapesAndTheEvenOddRule) {
    Canvas canvas(30, 30);
    CGContextAddRect(canvas, CGRectMake(0, 0, 30, 30));
    CGContextAddEllipseInRect(canvas, CGRectMake(5, 5, 20, 20));
    CGContextEOClip(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 30, 30));
    EXPECT_NEAR(canvas.coverage(), 900 - kPi * 100, 0.5);
    EXPECT_EQ(canvas.at(15, 15), kClear);
}

TEST(CGContext, NestedRectanglesFillByWindingOrEvenOdd) {
    for (const bool evenOdd : {false, true}) {
        Canvas canvas(10, 10);
        CGContextAddRect(canvas, CGRectMake(0, 0, 10, 10));
        CGContextAddRect(canvas, CGRectMake(3, 3, 4, 4));
        CGContextDrawPath(canvas, evenOdd ? kCGPathEOFill : kCGPathFill);
        EXPECT_EQ(canvas.coverage(), evenOdd ? 84 : 100);
        EXPECT_EQ(canvas.at(5, 5), evenOdd ? kClear : kBlack);
    }
}

TEST(CGContext, FillingUsesThePathUp) {
    for (void (*fill)(CGContextRef) : {CGContextFillPath, CGContextEOFillPath}) {
        Canvas canvas(10, 10);
        CGContextAddRect(canvas, CGRectMake(0, 0, 10, 10));
        CGContextAddRect(canvas, CGRectMake(3, 3, 4, 4));
        fill(canvas);
        EXPECT_EQ(canvas.coverage(), fill == CGContextEOFillPath ? 84 : 100);
        CGContextClearRect(canvas, CGRectMake(0, 0, 10, 10));
        fill(canvas);
        EXPECT_TRUE(canvas.isBlank());
    }
}

TEST(CGContext, FillStrokeFillsThenStrokes) {
    Canvas canvas(10, 10);
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextSetRGBStrokeColor(canvas, 0, 0, 1, 1);
    CGContextSetLineWidth(canvas, 2);
    CGContextAddRect(canvas, CGRectMake(3, 3, 4, 4));
    CGContextDrawPath(canvas, kCGPathFillStroke);
    EXPECT_EQ(canvas.at(5, 5), kRed);
    EXPECT_EQ(canvas.at(3, 5), kBlue);
    EXPECT_EQ(canvas.at(2, 5), kBlue);
    EXPECT_EQ(canvas.at(1, 5), kClear);
}

TEST(CGContext, ClearRectMakesTransparentWhateverTheState) {
    Canvas canvas(6, 6);
    CGContextFillRect(canvas, CGRectMake(0, 0, 6, 6));
    CGContextSetAlpha(canvas, 0.2);
    CGContextSetBlendMode(canvas, kCGBlendModeMultiply);
    CGContextClearRect(canvas, CGRectMake(1, 1, 2, 2));
    EXPECT_EQ(canvas.coverage(), 32);
    EXPECT_EQ(canvas.at(1, 4), kClear);
}

TEST(CGContext, AlphaMultipliesColours) {
    Canvas canvas(2, 1);
    CGContextSetAlpha(canvas, 0.5);
    CGContextSetRGBFillColor(canvas, 1, 1, 1, 0.5);
    CGContextFillRect(canvas, CGRectMake(0, 0, 1, 1));
    EXPECT_PIXEL_NEAR(canvas.at(0, 0), (Pixel{64, 64, 64, 64}), 1);
}

TEST(CGContext, PatternsTileFromTheOriginOfTheSpace) {
    const auto tile = imageOf(2, 2, {kRed, kGreen, kBlue, kBlack});
    const auto pattern = Ref<CGColor>::adopt(new CGColor(tile.get()));
    const Pixel rows[2][2] = {{kRed, kGreen}, {kBlue, kBlack}};
    Canvas down = Canvas::downwards(9, 9);
    CGContextSetFillColorWithColor(down, pattern);
    CGContextTranslateCTM(down, 1, 1);
    CGContextFillRect(down, CGRectMake(-1, -1, 9, 9));
    for (NSUInteger y = 0; y < 9; ++y) {
        for (NSUInteger x = 0; x < 9; ++x)
            EXPECT_EQ(down.at(x, y), rows[(y + 1) % 2][(x + 1) % 2]) << x << " " << y;
    }
    Canvas up(9, 9);
    CGContextSetFillColorWithColor(up, pattern);
    CGContextFillRect(up, CGRectMake(0, 0, 9, 9));
    // The bottom row of tiles stands on the bottom edge.
    for (NSUInteger y = 0; y < 9; ++y) {
        for (NSUInteger x = 0; x < 9; ++x)
            EXPECT_EQ(up.at(x, y), rows[(y + 1) % 2][x % 2]) << x << " " << y;
    }
}

TEST(CGContext, PatternsFadeWithAlphaInFillsAndStrokes) {
    const auto tile = imageOf(1, 1, {kRed});
    const auto pattern = Ref<CGColor>::adopt(new CGColor(tile.get()));
    Canvas canvas(4, 2);
    CGContextSetAlpha(canvas, 0.5);
    CGContextSetFillColorWithColor(canvas, pattern);
    CGContextSetStrokeColorWithColor(canvas, pattern);
    CGContextFillRect(canvas, CGRectMake(0, 0, 2, 2));
    CGContextSetLineWidth(canvas, 2);
    CGContextMoveToPoint(canvas, 2, 1);
    CGContextAddLineToPoint(canvas, 4, 1);
    CGContextStrokePath(canvas);
    EXPECT_PIXEL_NEAR(canvas.at(0, 0), (Pixel{128, 0, 0, 128}), 1);
    EXPECT_PIXEL_NEAR(canvas.at(3, 0), (Pixel{128, 0, 0, 128}), 1);
}

TEST(CGContext, APatternWithoutAnImagePaintsNothing) {
    Canvas canvas(4, 4);
    CGContextSetFillColorWithColor(canvas, Ref<CGColor>::adopt(new CGColor(static_cast<CGImage*>(nullptr))));
    CGContextFillRect(canvas, CGRectMake(0, 0, 4, 4));
    EXPECT_TRUE(canvas.isBlank());
}

TEST(CGContext, NumbersThatAreNotFiniteDrawNothingAndLeaveTheContextSound) {
    Canvas canvas(10, 10);
    for (const CGFloat bad : {CGFloat(NAN), CGFloat(INFINITY), CGFloat(-INFINITY)}) {
        CGContextFillRect(canvas, CGRectMake(bad, 0, 5, 5));
        CGContextFillRect(canvas, CGRectMake(0, 0, 5, bad));
        CGContextFillEllipseInRect(canvas, CGRectMake(0, bad, 5, 5));
        CGContextStrokeRectWithWidth(canvas, CGRectMake(0, 0, 5, 5), bad);
        CGContextMoveToPoint(canvas, 0, 0);
        CGContextAddLineToPoint(canvas, bad, 5);
        CGContextAddLineToPoint(canvas, 5, 5);
        CGContextFillPath(canvas);
        CGContextAddArc(canvas, 5, 5, bad, 0, 1, 0);
        CGContextAddRect(canvas, CGRectMake(0, 0, 5, 5));
        CGContextStrokePath(canvas);
        CGContextTranslateCTM(canvas, bad, 0);
        CGContextScaleCTM(canvas, bad, 1);
        CGContextRotateCTM(canvas, bad);
        CGContextSetLineWidth(canvas, bad);
        CGContextSetMiterLimit(canvas, bad);
        CGContextSetAlpha(canvas, bad);
        CGContextSetRGBFillColor(canvas, bad, 0, 0, 1);
        const CGFloat dashes[] = {bad, 1};
        CGContextSetLineDash(canvas, 0, dashes, 2);
        CGContextSetLineDash(canvas, bad, nullptr, 0);
        CGContextSetShadow(canvas, {bad, 0}, 1);
    }
    EXPECT_TRUE(canvas.isBlank());
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(canvas)));
    CGContextFillRect(canvas, CGRectMake(2, 3, 4, 5));
    expectOnly(canvas, 10, CGRectMake(2, 2, 4, 5), kBlack);
}

TEST(CGContext, AFlattenedSpaceDrawsNothingUntilRestored) {
    Canvas canvas(10, 10);
    CGContextSaveGState(canvas);
    CGContextScaleCTM(canvas, 0, 1);
    CGContextFillRect(canvas, CGRectMake(0, 0, 5, 5));
    CGContextStrokeRect(canvas, CGRectMake(0, 0, 5, 5));
    CGContextDrawImage(canvas, CGRectMake(0, 0, 5, 5), imageOf(1, 1, {kRed}));
    EXPECT_TRUE(CGRectIsEmpty(CGContextGetClipBoundingBox(canvas)));
    EXPECT_TRUE(canvas.isBlank());
    CGContextRestoreGState(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 5, 5));
    EXPECT_EQ(canvas.coverage(), 25);
}

TEST(CGContext, HugeRectanglesCoverEverything) {
    Canvas canvas(10, 10);
    CGContextFillRect(canvas, CGRectMake(-1e30, -1e30, 2e30, 2e30));
    EXPECT_EQ(canvas.coverage(), 100);
    CGContextClearRect(canvas, CGRectMake(5, -1e12, 1e12, 2e12));
    EXPECT_EQ(canvas.coverage(), 50);
    CGContextClearRect(canvas, CGRectMake(1e12, 0, 10, 10));
    EXPECT_EQ(canvas.coverage(), 50);
}

TEST(CGContext, TransparencyLayersArePutDownAsOne) {
    Canvas canvas(6, 1);
    CGContextSetRGBFillColor(canvas, 1, 0, 0, 1);
    CGContextSetAlpha(canvas, 0.5);
    CGContextBeginTransparencyLayer(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 4, 1));
    CGContextSetRGBFillColor(canvas, 0, 0, 1, 1);
    CGContextFillRect(canvas, CGRectMake(2, 0, 4, 1));
    CGContextSaveGState(canvas);
    CGContextSaveGState(canvas);
    CGContextEndTransparencyLayer(canvas);
    // Where both lie, only the upper one is seen.
    EXPECT_PIXEL_NEAR(canvas.at(1, 0), (Pixel{128, 0, 0, 128}), 1);
    EXPECT_PIXEL_NEAR(canvas.at(3, 0), (Pixel{0, 0, 128, 128}), 1);
    CGContextSetAlpha(canvas, 1);
    CGContextFillRect(canvas, CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(canvas.at(0, 0), kRed);
}

TEST(CGContext, RestoreDoesNotReachOutOfALayerNorEndWithoutOne) {
    Canvas canvas(4, 4);
    CGContextEndTransparencyLayer(canvas);
    CGContextSaveGState(canvas);
    CGContextClipToRect(canvas, CGRectMake(0, 0, 2, 2));
    CGContextBeginTransparencyLayer(canvas);
    CGContextRestoreGState(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 4, 4));
    CGContextEndTransparencyLayer(canvas);
    EXPECT_EQ(canvas.coverage(), 4);
    CGContextRestoreGState(canvas);
    CGContextFillRect(canvas, CGRectMake(0, 0, 4, 4));
    EXPECT_EQ(canvas.coverage(), 16);
}

TEST(CGContext, NilIsTolerated) {
    CGContextSaveGState(nullptr);
    CGContextRestoreGState(nullptr);
    CGContextConcatCTM(nullptr, {});
    CGContextSetLineWidth(nullptr, 1);
    CGContextSetRGBFillColor(nullptr, 1, 1, 1, 1);
    CGContextSetAlpha(nullptr, 1);
    CGContextSetShadow(nullptr, {1, 1}, 1);
    CGContextMoveToPoint(nullptr, 0, 0);
    CGContextAddArcToPoint(nullptr, 0, 0, 1, 1, 1);
    CGContextAddPath(nullptr, nullptr);
    CGContextFillRect(nullptr, CGRectMake(0, 0, 1, 1));
    CGContextClearRect(nullptr, CGRectMake(0, 0, 1, 1));
    CGContextStrokeRectWithWidth(nullptr, CGRectMake(0, 0, 1, 1), 1);
    CGContextClip(nullptr);
    CGContextBeginTransparencyLayer(nullptr);
    CGContextEndTransparencyLayer(nullptr);
    EXPECT_TRUE(CGContextIsPathEmpty(nullptr));
    EXPECT_EQ(CGContextGetPathCurrentPoint(nullptr), CGPointZero);
    EXPECT_TRUE(CGRectIsEmpty(CGContextGetClipBoundingBox(nullptr)));
    Canvas canvas(2, 2);
    CGContextSetFillColorWithColor(canvas, nullptr);
    CGContextAddPath(canvas, nullptr);
    CGContextFillRect(canvas, CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(canvas.at(0, 0), kBlack);
}

TEST(CGContext, LinesThroughPointsAreAPathOfTheirOwn) {
    Canvas canvas(20, 20);
    CGContextScaleCTM(canvas, 2, 2);
    CGContextMoveToPoint(canvas, 9, 9);
    const CGPoint corners[] = {{1, 1}, {5, 1}, {5, 3}, {1, 3}};
    CGContextAddLines(canvas, corners, 4);
    CGContextAddLines(canvas, corners, 0);
    CGContextFillPath(canvas);
    EXPECT_EQ(canvas.coverage(), 8 * 4) << "it begins at the first of them";
    EXPECT_EQ(canvas.at(2, 17), kBlack);
    EXPECT_EQ(canvas.at(9, 14), kBlack);
}
