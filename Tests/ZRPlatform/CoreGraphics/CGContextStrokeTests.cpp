#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

using namespace zr;

namespace {

void strokeLine(CGContextRef context, CGPoint from, CGPoint to) {
    CGContextMoveToPoint(context, from.x, from.y);
    CGContextAddLineToPoint(context, to.x, to.y);
    CGContextStrokePath(context);
}

/// The area of a right-angled corner of two strokes, 10 wide and 20 long along their middle.
double cornerArea(CGLineJoin join, CGFloat miterLimit = 10) {
    Canvas canvas(60, 60);
    CGContextSetLineWidth(canvas, 10);
    CGContextSetLineJoin(canvas, join);
    CGContextSetMiterLimit(canvas, miterLimit);
    CGContextMoveToPoint(canvas, 10, 20);
    CGContextAddLineToPoint(canvas, 30, 20);
    CGContextAddLineToPoint(canvas, 30, 40);
    CGContextStrokePath(canvas);
    return canvas.coverage();
}

} // namespace

TEST(CGContextStroke, CapsAddTheirAreas) {
    const CGLineCap caps[] = {kCGLineCapButt, kCGLineCapRound, kCGLineCapSquare};
    const double areas[] = {200, 200 + kPi * 25, 200 + 100};
    for (int i = 0; i < 3; ++i) {
        Canvas canvas(50, 30);
        CGContextSetLineWidth(canvas, 10);
        CGContextSetLineCap(canvas, caps[i]);
        strokeLine(canvas, {15, 15}, {35, 15});
        EXPECT_NEAR(canvas.coverage(), areas[i], 0.3) << caps[i];
        EXPECT_EQ(canvas.at(12, 14), caps[i] == kCGLineCapButt ? kClear : kBlack);
        EXPECT_EQ(canvas.at(10, 10), caps[i] == kCGLineCapSquare ? kBlack : kClear);
    }
}

TEST(CGContextStroke, JoinsFillTheirCorner) {
    // Without the corner's outer square of 5 x 5, the two bars cover 25 * 10 + 25 * 10 - 10 * 10 + 5 * 5.
    const double bars = 2 * 200 - 25;
    EXPECT_NEAR(cornerArea(kCGLineJoinMiter), bars + 25, 0.3);
    EXPECT_NEAR(cornerArea(kCGLineJoinRound), bars + kPi * 25 / 4, 0.3);
    EXPECT_NEAR(cornerArea(kCGLineJoinBevel), bars + 12.5, 0.3);
    // A right angle's mitre is the square root of 2 line widths long.
    EXPECT_NEAR(cornerArea(kCGLineJoinMiter, 1.40), bars + 12.5, 0.3);
    EXPECT_NEAR(cornerArea(kCGLineJoinMiter, 1.43), bars + 25, 0.3);
}

TEST(CGContextStroke, DashesAlternateFromThePhase) {
    Canvas canvas(40, 4);
    const CGFloat dashes[] = {4, 2};
    CGContextSetLineDash(canvas, 1, dashes, 2);
    CGContextSetLineWidth(canvas, 2);
    strokeLine(canvas, {0, 2}, {40, 2});
    for (NSUInteger x = 0; x < 40; ++x)
        EXPECT_EQ(canvas.at(x, 1), (x + 1) % 6 < 4 ? kBlack : kClear) << x;
    CGContextSetLineDash(canvas, 0, nullptr, 0);
    strokeLine(canvas, {0, 2}, {40, 2});
    EXPECT_EQ(canvas.coverage(), 80);
}

TEST(CGContextStroke, ImpossibleDashesAreIgnored) {
    Canvas canvas(10, 2);
    const CGFloat zeros[] = {0, 0};
    const CGFloat negative[] = {3, -1};
    CGContextSetLineDash(canvas, 0, zeros, 2);
    CGContextSetLineDash(canvas, 0, negative, 2);
    CGContextSetLineWidth(canvas, 2);
    strokeLine(canvas, {0, 1}, {10, 1});
    EXPECT_EQ(canvas.coverage(), 20);
}

TEST(CGContextStroke, ThePenFollowsTheTransform) {
    Canvas canvas(40, 40);
    CGContextScaleCTM(canvas, 4, 1);
    CGContextSetLineWidth(canvas, 2);
    strokeLine(canvas, {5, 0}, {5, 40});
    EXPECT_NEAR(canvas.coverage(), 8 * 40, 0.1);
    Canvas other(40, 40);
    CGContextSetLineWidth(other, 2);
    CGContextScaleCTM(other, 4, 1);
    strokeLine(other, {0, 5}, {10, 5});
    EXPECT_NEAR(other.coverage(), 2 * 40, 0.1);
}

TEST(CGContextStroke, RectangleWithWidthLeavesTheLineWidthAlone) {
    Canvas canvas(20, 20);
    CGContextSetLineWidth(canvas, 2);
    CGContextStrokeRectWithWidth(canvas, CGRectMake(5, 5, 10, 10), 4);
    EXPECT_EQ(canvas.coverage(), 14 * 14 - 6 * 6);
    CGContextClearRect(canvas, CGRectMake(0, 0, 20, 20));
    CGContextStrokeRect(canvas, CGRectMake(5, 5, 10, 10));
    EXPECT_EQ(canvas.coverage(), 12 * 12 - 8 * 8);
}

TEST(CGContextStroke, NegativeWidthIsIgnored) {
    Canvas canvas(20, 20);
    CGContextSetLineWidth(canvas, 2);
    CGContextSetLineWidth(canvas, -5);
    strokeLine(canvas, {0, 10}, {20, 10});
    EXPECT_EQ(canvas.coverage(), 40);
}

TEST(CGContextStroke, EllipseHasTheAreaOfItsRing) {
    Canvas canvas(60, 60);
    CGContextSetLineWidth(canvas, 4);
    CGContextStrokeEllipseInRect(canvas, CGRectMake(10, 10, 40, 40));
    EXPECT_NEAR(canvas.coverage(), kPi * (22 * 22 - 18 * 18), 0.6);
}

TEST(CGContextArc, CoverageIsThatOfTheDisc) {
    Canvas canvas(200, 200);
    CGContextAddArc(canvas, 100, 100, 90, 0, 2 * kPi, 0);
    CGContextFillPath(canvas);
    EXPECT_NEAR(canvas.coverage(), kPi * 90 * 90, 3);
    // Each pixel against a fine count of the points of its square that lie in the disc.
    constexpr int kGrid = 32;
    for (NSUInteger y = 0; y < 200; y += 7) {
        for (NSUInteger x = 0; x < 200; ++x) {
            int inside = 0;
            for (int i = 0; i < kGrid * kGrid; ++i) {
                const double px = static_cast<double>(x) + (i % kGrid + 0.5) / kGrid - 100;
                const double py = static_cast<double>(y) + (i / kGrid + 0.5) / kGrid - 100;
                inside += px * px + py * py < 90 * 90;
            }
            EXPECT_NEAR(canvas.at(x, y).alpha, 255.0 * inside / (kGrid * kGrid), 10) << x << " " << y;
        }
    }
}

TEST(CGContextArc, ClockwiseIsThroughDecreasingAnglesInUserSpace) {
    for (const int clockwise : {0, 1}) {
        for (const bool downwards : {false, true}) {
            Canvas canvas = downwards ? Canvas::downwards(40, 40) : Canvas(40, 40);
            CGContextMoveToPoint(canvas, 20, 20);
            CGContextAddArc(canvas, 20, 20, 16, 0, kPi / 2, clockwise);
            CGContextFillPath(canvas);
            const double quarter = kPi * 16 * 16 / 4;
            EXPECT_NEAR(canvas.coverage(), clockwise ? 3 * quarter : quarter, 0.6);
            // The quarter of growing x and y: above the middle on the screen where y grows upwards.
            EXPECT_EQ(canvas.at(25, downwards ? 25 : 14), clockwise ? kClear : kBlack);
        }
    }
}

TEST(CGContextArc, ArcToPointRoundsACorner) {
    Canvas canvas = Canvas::downwards(60, 60);
    CGContextMoveToPoint(canvas, 10, 10);
    CGContextAddArcToPoint(canvas, 50, 10, 50, 50, 20);
    CGContextAddLineToPoint(canvas, 50, 50);
    CGContextAddLineToPoint(canvas, 10, 50);
    CGContextClosePath(canvas);
    CGContextFillPath(canvas);
    // The square without what a quarter circle of radius 20 leaves of its corner.
    EXPECT_NEAR(canvas.coverage(), 1600 - (400 - kPi * 100), 0.5);
    EXPECT_EQ(canvas.at(48, 11), kClear);
    EXPECT_EQ(canvas.at(11, 11), kBlack);
}

TEST(CGContextArc, CurvesFillTheirAreas) {
    Canvas canvas(60, 60);
    CGContextMoveToPoint(canvas, 10, 10);
    CGContextAddQuadCurveToPoint(canvas, 30, 50, 50, 10);
    CGContextFillPath(canvas);
    // A parabola's segment is two thirds of its triangle.
    EXPECT_NEAR(canvas.coverage(), 2.0 / 3 * (40 * 40 / 2), 0.8);
    Canvas cubic(60, 60);
    CGContextMoveToPoint(cubic, 10, 10);
    CGContextAddCurveToPoint(cubic, 10, 40, 50, 40, 50, 10);
    CGContextFillPath(cubic);
    // Green's theorem over the cubic with control heights 0, 30, 30, 0 and x 10, 10, 50, 50: 3 h / 5 on a base of 40.
    EXPECT_NEAR(cubic.coverage(), 40 * 30 * 0.6, 0.8);
}
