#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

#include <ZRPlatform/UIKit/Images/UIBezierPath.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

namespace zr::tests {

namespace {

constexpr CGFloat kPi = std::numbers::pi_v<CGFloat>;
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

Ref<UIImage> drawn(CGSize size, CGFloat scale, const std::function<void()>& draw) {
    UIGraphicsBeginImageContextWithOptions(size, false, scale);
    UIColor::redColor()->setFill();
    UIColor::blueColor()->setStroke();
    draw();
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

/// The area that is painted, in points.
double paintedArea(const UIImage* image) {
    double sum = 0;
    const CGImage* bitmap = image->CGImage();
    for (NSUInteger y = 0; y < bitmap->height(); ++y) {
        for (NSUInteger x = 0; x < bitmap->width(); ++x)
            sum += pixelOf(bitmap, x, y).alpha;
    }
    return sum / 255 / (image->scale() * image->scale());
}

double filledArea(const UIBezierPath* path) {
    return paintedArea(drawn({100, 100}, 4, [&] { path->fill(); }));
}

double strokedArea(const UIBezierPath* path) {
    return paintedArea(drawn({100, 100}, 4, [&] { path->stroke(); }));
}

std::vector<CGPathElement> elementsOf(const UIBezierPath* path) { return path->cgPath()->elements(); }

CGPathElement moveTo(CGFloat x, CGFloat y) { return {kCGPathElementMoveToPoint, {{x, y}}}; }
CGPathElement lineTo(CGFloat x, CGFloat y) { return {kCGPathElementAddLineToPoint, {{x, y}}}; }
CGPathElement close() { return {kCGPathElementCloseSubpath, {}}; }

/// Twice the area its corners enclose: positive when clockwise, as y grows downwards.
CGFloat turning(const UIBezierPath* path) {
    CGFloat sum = 0;
    CGPoint last, start;
    for (const CGPathElement& element : elementsOf(path)) {
        const NSUInteger count = CGPathElementPointCount(element.type);
        const CGPoint point = count == 0 ? start : element.points[count - 1];
        if (element.type == kCGPathElementMoveToPoint)
            start = point;
        else
            sum += last.x * point.y - point.x * last.y;
        last = point;
    }
    return sum;
}

Ref<UIBezierPath> arc(CGPoint center, CGFloat radius, CGFloat start, CGFloat end, bool clockwise) {
    return UIBezierPath::bezierPathWithArcCenter_radius_startAngle_endAngle_clockwise(center, radius, start, end,
                                                                                      clockwise);
}

Ref<UIBezierPath> line(CGPoint from, CGPoint to) {
    auto path = UIBezierPath::bezierPath();
    path->moveToPoint(from);
    path->addLineToPoint(to);
    return path;
}

} // namespace

TEST(UIBezierPath, StartsEmptyWithAnOrdinaryLine) {
    const auto path = UIBezierPath::bezierPath();
    EXPECT_TRUE(path->isEmpty());
    EXPECT_TRUE(CGRectIsNull(path->bounds()));
    EXPECT_EQ(path->currentPoint(), CGPointZero);
    EXPECT_EQ(path->lineWidth(), 1);
    EXPECT_EQ(path->lineCapStyle(), kCGLineCapButt);
    EXPECT_EQ(path->lineJoinStyle(), kCGLineJoinMiter);
    EXPECT_EQ(path->miterLimit(), 10);
    EXPECT_FALSE(path->usesEvenOddFillRule());
    NSInteger count = -1;
    path->getLineDash_count_phase(nullptr, &count, nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(path->containsPoint({0, 0}));
}

TEST(UIBezierPath, LinesAndCurvesWithoutACurrentPointAreIgnored) {
    const auto path = UIBezierPath::bezierPath();
    path->addLineToPoint({1, 2});
    path->addCurveToPoint_controlPoint1_controlPoint2({1, 2}, {3, 4}, {5, 6});
    path->addQuadCurveToPoint_controlPoint({1, 2}, {3, 4});
    path->closePath();
    EXPECT_TRUE(path->isEmpty());
}

TEST(UIBezierPath, KeepsItsElementsInOrder) {
    const auto path = UIBezierPath::bezierPath();
    path->moveToPoint({1, 2});
    path->addLineToPoint({3, 4});
    path->addCurveToPoint_controlPoint1_controlPoint2({9, 10}, {5, 6}, {7, 8});
    path->addQuadCurveToPoint_controlPoint({13, 14}, {11, 12});
    EXPECT_EQ(path->currentPoint(), CGPointMake(13, 14));
    path->closePath();
    EXPECT_EQ(path->currentPoint(), CGPointMake(1, 2));
    const std::vector<CGPathElement> wanted = {moveTo(1, 2),
                                               lineTo(3, 4),
                                               {kCGPathElementAddCurveToPoint, {{5, 6}, {7, 8}, {9, 10}}},
                                               {kCGPathElementAddQuadCurveToPoint, {{11, 12}, {13, 14}}},
                                               close()};
    EXPECT_EQ(elementsOf(path), wanted);
    EXPECT_FALSE(path->isEmpty());
}

TEST(UIBezierPath, BoundsHoldTheControlPointsToo) {
    const auto path = line({10, 10}, {20, 10});
    path->addQuadCurveToPoint_controlPoint({30, 10}, {25, 60});
    EXPECT_EQ(path->bounds(), CGRectMake(10, 10, 20, 50));
}

TEST(UIBezierPath, RemovingAllPointsKeepsTheWayOfDrawing) {
    const auto path = line({1, 1}, {2, 2});
    path->setLineWidth(7);
    path->removeAllPoints();
    EXPECT_TRUE(path->isEmpty());
    EXPECT_EQ(path->lineWidth(), 7);
}

TEST(UIBezierPath, RectRunsClockwiseFromItsOrigin) {
    const auto path = UIBezierPath::bezierPathWithRect({{10, 20}, {30, 40}});
    const std::vector<CGPathElement> wanted = {moveTo(10, 20), lineTo(40, 20), lineTo(40, 60), lineTo(10, 60), close()};
    EXPECT_EQ(elementsOf(path), wanted);
}

TEST(UIBezierPath, OvalTouchesTheSides) {
    const auto path = UIBezierPath::bezierPathWithOvalInRect({{10, 20}, {60, 40}});
    EXPECT_NEAR(filledArea(path), kPi * 30 * 20, 1);
    EXPECT_GT(turning(path), 0);
    EXPECT_TRUE(path->containsPoint({10.5, 40}));
    EXPECT_FALSE(path->containsPoint({9.5, 40}));
    EXPECT_TRUE(path->containsPoint({40, 59.5}));
    EXPECT_FALSE(path->containsPoint({40, 60.5}));
}

TEST(UIBezierPath, RoundedRectLosesItsFourCorners) {
    const auto path = UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{10, 10}, {60, 40}}, 8);
    EXPECT_NEAR(filledArea(path), 60 * 40 - (4 - kPi) * 64, 0.5);
    EXPECT_GT(turning(path), 0);
    const auto tooRound = UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{10, 10}, {60, 40}}, 500);
    EXPECT_NEAR(filledArea(tooRound), kPi * 30 * 20, 1); // each radius is cut to half its own side
    for (const CGFloat radius : {CGFloat(0), CGFloat(-3)}) {
        const auto square = UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{10, 10}, {60, 40}}, radius);
        EXPECT_EQ(elementsOf(square), elementsOf(UIBezierPath::bezierPathWithRect({{10, 10}, {60, 40}})));
    }
}

TEST(UIBezierPath, OnlyTheNamedCornersAreRounded) {
    struct {
        UIRectCorner corner;
        CGPoint place;
    } const corners[] = {{UIRectCornerTopLeft, {11, 11}},
                         {UIRectCornerTopRight, {69, 11}},
                         {UIRectCornerBottomLeft, {11, 49}},
                         {UIRectCornerBottomRight, {69, 49}}};
    for (NSUInteger mask = 0; mask < 16; ++mask) {
        const auto path =
            UIBezierPath::bezierPathWithRoundedRect_byRoundingCorners_cornerRadii({{10, 10}, {60, 40}}, mask, {12, 8});
        int rounded = 0;
        for (const auto& each : corners) {
            EXPECT_EQ(path->containsPoint(each.place), (mask & each.corner) == 0) << mask;
            rounded += (mask & each.corner) != 0;
        }
        EXPECT_NEAR(filledArea(path), 60 * 40 - rounded * (1 - kPi / 4) * 12 * 8, 0.5) << mask;
        EXPECT_GT(turning(path), 0);
        EXPECT_EQ(path->bounds(), CGRectMake(10, 10, 60, 40));
    }
}

TEST(UIBezierPath, ClockwiseArcGoesThroughIncreasingAngles) {
    const auto clockwise = arc({50, 50}, 40, 0, kPi / 2, true);
    EXPECT_EQ(clockwise->currentPoint(), CGPointMake(50, 90));
    clockwise->addLineToPoint({50, 50});
    EXPECT_NEAR(filledArea(clockwise), kPi * 1600 / 4, 1);
    clockwise->closePath();
    EXPECT_TRUE(clockwise->containsPoint({70, 70})); // below and to the right: y grows downwards

    const auto other = arc({50, 50}, 40, 0, kPi / 2, false);
    other->addLineToPoint({50, 50});
    other->closePath();
    EXPECT_NEAR(filledArea(other), kPi * 1600 * 3 / 4, 1);
    EXPECT_FALSE(other->containsPoint({70, 70}));
}

TEST(UIBezierPath, ATurnIsAFullCircleWhereverItStarts) {
    for (const bool clockwise : {true, false}) {
        for (int i = -40; i <= 40; ++i) {
            const CGFloat start = CGFloat(i) * CGFloat(0.37);
            for (const CGFloat turn : {2 * kPi, -2 * kPi, CGFloat(2 * std::numbers::pi_v<float>)}) {
                const auto path = arc({0, 0}, 10, start, start + turn, clockwise);
                const CGRect box = CGPathGetPathBoundingBox(path->cgPath());
                EXPECT_NEAR(box.size.width, 20, 1e-3) << start << ' ' << turn << ' ' << clockwise;
                EXPECT_NEAR(box.size.height, 20, 1e-3) << start << ' ' << turn << ' ' << clockwise;
                EXPECT_EQ(turning(path) > 0, clockwise);
            }
        }
    }
}

TEST(UIBezierPath, AnArcPastATurnIsACircleThatEndsWhereItShould) {
    for (const CGFloat turns : {CGFloat(1.25), CGFloat(2.25), CGFloat(7.25)}) {
        const auto path = arc({50, 50}, 40, -kPi / 2, -kPi / 2 + turns * 2 * kPi, true);
        EXPECT_NEAR(filledArea(path), kPi * 1600, 2) << turns;
        EXPECT_NEAR(path->currentPoint().x, 90, 1e-9) << turns;
        EXPECT_NEAR(path->currentPoint().y, 50, 1e-9) << turns;
    }
}

TEST(UIBezierPath, AnArcWhoseEndLiesBehindGoesTheLongWayRound) {
    const auto path = arc({50, 50}, 40, 0, -kPi / 2, true);
    path->addLineToPoint({50, 50});
    EXPECT_NEAR(filledArea(path), kPi * 1600 * 3 / 4, 1);
}

TEST(UIBezierPath, ALineLeadsToAnArc) {
    const auto path = UIBezierPath::bezierPath();
    path->moveToPoint({50, 50});
    path->addArcWithCenter_radius_startAngle_endAngle_clockwise({50, 50}, 40, 0, kPi / 2, true);
    EXPECT_EQ(elementsOf(path)[1], lineTo(90, 50));
    EXPECT_TRUE(arc({50, 50}, -1, 0, 1, true)->isEmpty());
}

TEST(UIBezierPath, AnArcOfNoLengthDrawsNothingWhateverItsCap) {
    for (const CGLineCap cap : {kCGLineCapButt, kCGLineCapRound, kCGLineCapSquare}) {
        const auto path = arc({50, 50}, 40, 1, 1, true);
        path->setLineWidth(10);
        path->setLineCapStyle(cap);
        EXPECT_EQ(strokedArea(path), 0) << cap;
    }
}

TEST(UIBezierPath, CopiesOfAPathAreTheirOwn) {
    const auto source = CGPathCreateMutable();
    CGPathMoveToPoint(source, nullptr, 1, 2);
    const auto path = UIBezierPath::bezierPathWithCGPath(source);
    CGPathAddLineToPoint(source, nullptr, 3, 4);
    EXPECT_EQ(elementsOf(path), std::vector{moveTo(1, 2)});

    path->setCGPath(source);
    EXPECT_EQ(elementsOf(path), (std::vector{moveTo(1, 2), lineTo(3, 4)}));
    path->addLineToPoint({5, 6});
    EXPECT_EQ(source->elements().size(), 2u);

    const Ref<CGPath> early = path->cgPath();
    path->addLineToPoint({7, 8});
    EXPECT_EQ(early->elements().size(), 3u);
    EXPECT_EQ(path->cgPath()->elements().size(), 4u);

    path->setCGPath(nullptr);
    EXPECT_TRUE(path->isEmpty());
    EXPECT_TRUE(UIBezierPath::bezierPathWithCGPath(nullptr)->isEmpty());
}

TEST(UIBezierPath, ACopyDrawsTheSameWay) {
    const auto path = line({1, 2}, {3, 4});
    path->setLineWidth(3);
    path->setLineCapStyle(kCGLineCapRound);
    path->setLineJoinStyle(kCGLineJoinBevel);
    path->setMiterLimit(4);
    path->setUsesEvenOddFillRule(true);
    const CGFloat pattern[] = {5, 6, 7};
    path->setLineDash_count_phase(pattern, 3, 2);
    for (const auto& copy : {path->copy(), path->bezierPathByReversingPath()}) {
        EXPECT_EQ(copy->lineWidth(), 3);
        EXPECT_EQ(copy->lineCapStyle(), kCGLineCapRound);
        EXPECT_EQ(copy->lineJoinStyle(), kCGLineJoinBevel);
        EXPECT_EQ(copy->miterLimit(), 4);
        EXPECT_TRUE(copy->usesEvenOddFillRule());
        CGFloat lengths[3] = {};
        NSInteger count = 0;
        CGFloat phase = 0;
        copy->getLineDash_count_phase(lengths, &count, &phase);
        EXPECT_EQ(count, 3);
        EXPECT_TRUE(std::equal(lengths, lengths + 3, pattern));
        EXPECT_EQ(phase, 2);
    }
    const auto copy = path->copy();
    copy->addLineToPoint({9, 9});
    EXPECT_EQ(elementsOf(path), (std::vector{moveTo(1, 2), lineTo(3, 4)}));
    EXPECT_EQ(elementsOf(copy), (std::vector{moveTo(1, 2), lineTo(3, 4), lineTo(9, 9)}));
}

TEST(UIBezierPath, AppendingConnectsNothing) {
    const auto path = line({1, 1}, {2, 2});
    path->appendPath(line({5, 5}, {6, 6}));
    path->appendPath(nullptr);
    const std::vector<CGPathElement> wanted = {moveTo(1, 1), lineTo(2, 2), moveTo(5, 5), lineTo(6, 6)};
    EXPECT_EQ(elementsOf(path), wanted);
    path->appendPath(path);
    EXPECT_EQ(elementsOf(path).size(), 8u);
}

TEST(UIBezierPath, TransformsAllItsPoints) {
    const auto path = line({1, 2}, {3, 4});
    path->applyTransform(CGAffineTransformMake(2, 0, 0, 3, 10, 20));
    EXPECT_EQ(elementsOf(path), (std::vector{moveTo(12, 26), lineTo(16, 32)}));
    EXPECT_EQ(path->currentPoint(), CGPointMake(16, 32));
}

TEST(UIBezierPath, ReversingTurnsEverySubpathRound) {
    const auto path = UIBezierPath::bezierPath();
    path->moveToPoint({0, 0});
    path->addCurveToPoint_controlPoint1_controlPoint2({3, 3}, {1, 1}, {2, 2});
    path->addQuadCurveToPoint_controlPoint({5, 5}, {4, 4});
    path->moveToPoint({10, 0});
    path->addLineToPoint({20, 0});
    path->addLineToPoint({20, 10});
    path->closePath();
    path->addLineToPoint({30, 0}); // goes on from (10, 0)
    path->moveToPoint({7, 7});
    const std::vector<CGPathElement> wanted = {moveTo(5, 5),
                                               {kCGPathElementAddQuadCurveToPoint, {{4, 4}, {3, 3}}},
                                               {kCGPathElementAddCurveToPoint, {{2, 2}, {1, 1}, {0, 0}}},
                                               moveTo(20, 10),
                                               lineTo(20, 0),
                                               lineTo(10, 0),
                                               close(),
                                               moveTo(30, 0),
                                               lineTo(10, 0),
                                               moveTo(7, 7)};
    EXPECT_EQ(elementsOf(path->bezierPathByReversingPath()), wanted);
    const auto rect = UIBezierPath::bezierPathWithRect({{0, 0}, {4, 4}});
    EXPECT_LT(turning(rect->bezierPathByReversingPath()), 0);
}

TEST(UIBezierPath, OnlyClosedSubpathsContainPoints) {
    const auto path = line({10, 10}, {30, 10});
    path->addLineToPoint({30, 30});
    EXPECT_FALSE(path->containsPoint({25, 15}));
    path->closePath();
    EXPECT_TRUE(path->containsPoint({25, 15}));
    EXPECT_FALSE(path->containsPoint({15, 25}));
}

TEST(UIBezierPath, TheFillRuleDecidesAboutHoles) {
    const auto path = UIBezierPath::bezierPathWithRect({{10, 10}, {60, 60}});
    path->appendPath(UIBezierPath::bezierPathWithRect({{30, 30}, {20, 20}}));
    EXPECT_TRUE(path->containsPoint({40, 40}));
    EXPECT_DOUBLE_EQ(filledArea(path), 3600);
    path->setUsesEvenOddFillRule(true);
    EXPECT_FALSE(path->containsPoint({40, 40}));
    EXPECT_TRUE(path->containsPoint({20, 20}));
    EXPECT_DOUBLE_EQ(filledArea(path), 3200);
    // A hole that runs the other way is one under both rules.
    const auto ring = UIBezierPath::bezierPathWithRect({{10, 10}, {60, 60}});
    ring->appendPath(UIBezierPath::bezierPathWithRect({{30, 30}, {20, 20}})->bezierPathByReversingPath());
    EXPECT_FALSE(ring->containsPoint({40, 40}));
    EXPECT_DOUBLE_EQ(filledArea(ring), 3200);
}

TEST(UIBezierPath, FillsAndStrokesInTheContextsColors) {
    const auto path = UIBezierPath::bezierPathWithRect({{2, 2}, {6, 6}});
    path->setLineWidth(2);
    const auto image = drawn({10, 10}, 1, [&] {
        path->fill();
        path->stroke();
    });
    EXPECT_EQ(pixelOf(image, 0, 0), kNothing);
    EXPECT_EQ(pixelOf(image, 1, 1), kBlue);
    EXPECT_EQ(pixelOf(image, 2, 5), kBlue);
    EXPECT_EQ(pixelOf(image, 5, 5), kRed);
}

TEST(UIBezierPath, FillClosesOpenSubpaths) {
    const auto path = line({10, 10}, {50, 10});
    path->addLineToPoint({50, 50});
    EXPECT_NEAR(filledArea(path), 800, 0.5);
    EXPECT_NEAR(strokedArea(path), 80, 0.1); // two lines, no third one
}

TEST(UIBezierPath, CapsGoBeyondTheEnds) {
    const auto path = line({30, 50}, {70, 50});
    path->setLineWidth(10);
    EXPECT_NEAR(strokedArea(path), 400, 0.1);
    path->setLineCapStyle(kCGLineCapSquare);
    EXPECT_NEAR(strokedArea(path), 500, 0.1);
    path->setLineCapStyle(kCGLineCapRound);
    EXPECT_NEAR(strokedArea(path), 400 + kPi * 25, 0.5);
}

TEST(UIBezierPath, JoinsFillTheOuterCorner) {
    const auto path = line({20, 20}, {60, 20});
    path->addLineToPoint({60, 60});
    path->setLineWidth(10);
    const double straight = 2 * 400 - 25; // the inner corner belongs to both lines
    EXPECT_NEAR(strokedArea(path), straight + 25, 0.2);
    path->setLineJoinStyle(kCGLineJoinBevel);
    EXPECT_NEAR(strokedArea(path), straight + 12.5, 0.2);
    path->setLineJoinStyle(kCGLineJoinRound);
    EXPECT_NEAR(strokedArea(path), straight + kPi * 25 / 4, 0.2);
    path->setLineJoinStyle(kCGLineJoinMiter);
    path->setMiterLimit(1.4); // a right angle's mitre is 1.414 widths long
    EXPECT_NEAR(strokedArea(path), straight + 12.5, 0.2);
    path->setMiterLimit(1.42);
    EXPECT_NEAR(strokedArea(path), straight + 25, 0.2);
}

TEST(UIBezierPath, DashesAndTheirPhase) {
    const auto path = line({0, 50}, {100, 50});
    path->setLineWidth(10);
    const CGFloat pattern[] = {10, 30};
    path->setLineDash_count_phase(pattern, 2, 5);
    // Five points of the first dash, then 35..45 and 75..85.
    const auto image = drawn({100, 100}, 1, [&] { path->stroke(); });
    for (NSUInteger x = 0; x < 100; ++x) {
        const bool inked = x < 5 || (x >= 35 && x < 45) || (x >= 75 && x < 85);
        EXPECT_EQ(pixelOf(image, x, 50), inked ? kBlue : kNothing) << x;
    }
    const CGFloat bad[] = {-1, 5}, zero[] = {0, 0};
    path->setLineDash_count_phase(bad, 2, 0);
    path->setLineDash_count_phase(zero, 2, 0);
    path->setLineDash_count_phase(pattern, 2, kNaN);
    CGFloat phase = 0;
    path->getLineDash_count_phase(nullptr, nullptr, &phase);
    EXPECT_EQ(phase, 5);
    EXPECT_NEAR(strokedArea(path), 250, 0.1);
    path->setLineDash_count_phase(nullptr, 0, 0);
    EXPECT_NEAR(strokedArea(path), 1000, 0.1);
}

TEST(UIBezierPath, AWidthOfZeroIsOnePixel) {
    const auto path = line({10, 10.125}, {90, 10.125});
    path->setLineWidth(0);
    EXPECT_NEAR(strokedArea(path), 80 * 0.25, 0.1);
    path->setLineWidth(-1);
    path->setLineWidth(kNaN);
    EXPECT_EQ(path->lineWidth(), 0);
    path->setMiterLimit(kNaN);
    EXPECT_EQ(path->miterLimit(), 10);
}

TEST(UIBezierPath, TheContextsOwnLineDoesNotCount) {
    const auto path = line({30, 50}, {70, 50});
    path->setLineWidth(10);
    const CGFloat dashes[] = {1, 1};
    const auto image = drawn({100, 100}, 4, [&] {
        const CGContextRef context = UIGraphicsGetCurrentContext();
        CGContextSetLineWidth(context, 50);
        CGContextSetLineCap(context, kCGLineCapSquare);
        CGContextSetLineDash(context, 0, dashes, 2);
        path->stroke();
    });
    EXPECT_NEAR(paintedArea(image), 400, 0.1);
}

TEST(UIBezierPath, DrawingLeavesTheContextAsItWas) {
    const auto path = UIBezierPath::bezierPathWithRect({{2, 2}, {6, 6}});
    path->setLineWidth(4);
    path->setLineCapStyle(kCGLineCapRound);
    path->setLineJoinStyle(kCGLineJoinRound);
    path->setMiterLimit(3);
    const CGFloat dashes[] = {2, 1};
    path->setLineDash_count_phase(dashes, 2, 1);
    const auto image = drawn({20, 10}, 1, [&] {
        const CGContextRef context = UIGraphicsGetCurrentContext();
        CGContextMoveToPoint(context, 12, 2);
        CGContextAddLineToPoint(context, 18, 2);
        CGContextAddLineToPoint(context, 18, 8);
        CGContextAddLineToPoint(context, 12, 8);
        const std::vector<CGPathElement> current = context->path().elements();
        path->fill();
        path->stroke();
        path->fillWithBlendMode_alpha(kCGBlendModeCopy, 0.5);
        path->strokeWithBlendMode_alpha(kCGBlendModeClear, 0.5);
        EXPECT_EQ(context->path().elements(), current);
        EXPECT_EQ(CGContextGetPathCurrentPoint(context), CGPointMake(12, 8));
        const CGGraphicsState& state = context->state();
        EXPECT_EQ(state.lineWidth, 1);
        EXPECT_EQ(state.lineCap, kCGLineCapButt);
        EXPECT_EQ(state.lineJoin, kCGLineJoinMiter);
        EXPECT_EQ(state.miterLimit, 10);
        EXPECT_TRUE(state.dashLengths.empty());
        EXPECT_EQ(state.alpha, 1);
        EXPECT_EQ(state.blendMode, kCGBlendModeNormal);
        CGContextFillPath(context);
    });
    EXPECT_EQ(pixelOf(image, 15, 5), kRed);
    EXPECT_EQ(pixelOf(image, 10, 5), kNothing);
}

TEST(UIBezierPath, BlendModeAndAlphaStandInForTheContexts) {
    const auto path = UIBezierPath::bezierPathWithRect({{2, 2}, {6, 6}});
    path->setLineWidth(2);
    const auto image = drawn({10, 10}, 1, [&] {
        CGContextSetAlpha(UIGraphicsGetCurrentContext(), CGFloat(0.1));
        path->fillWithBlendMode_alpha(kCGBlendModeNormal, CGFloat(0.6));
        path->strokeWithBlendMode_alpha(kCGBlendModeCopy, CGFloat(0.2));
    });
    EXPECT_EQ(pixelOf(image, 5, 5), (Pixel{153, 0, 0, 153}));
    EXPECT_EQ(pixelOf(image, 2, 5), (Pixel{0, 0, 51, 51}));
    const auto clamped = drawn({10, 10}, 1, [&] { path->fillWithBlendMode_alpha(kCGBlendModeNormal, 9); });
    EXPECT_EQ(pixelOf(clamped, 5, 5), kRed);
    const auto clear = drawn({10, 10}, 1, [&] {
        path->fill();
        path->fillWithBlendMode_alpha(kCGBlendModeClear, 1);
    });
    EXPECT_EQ(pixelOf(clear, 5, 5), kNothing);
}

TEST(UIBezierPath, ClipsUntilTheStateIsRestored) {
    const auto ring = UIBezierPath::bezierPathWithRect({{0, 0}, {8, 8}});
    ring->appendPath(UIBezierPath::bezierPathWithRect({{2, 2}, {4, 4}}));
    for (const bool evenOdd : {false, true}) {
        ring->setUsesEvenOddFillRule(evenOdd);
        const auto image = drawn({10, 10}, 1, [&] {
            CGContextSaveGState(UIGraphicsGetCurrentContext());
            ring->addClip();
            UIRectFill({{0, 0}, {10, 9}});
            CGContextRestoreGState(UIGraphicsGetCurrentContext());
            UIRectFill({{0, 9}, {10, 1}});
        });
        EXPECT_EQ(pixelOf(image, 1, 1), kRed);
        EXPECT_EQ(pixelOf(image, 4, 4), evenOdd ? kNothing : kRed);
        EXPECT_EQ(pixelOf(image, 9, 4), kNothing);
        EXPECT_EQ(pixelOf(image, 9, 9), kRed);
    }
    const auto nothing = drawn({10, 10}, 1, [] {
        UIBezierPath::bezierPath()->addClip();
        UIRectFill({{0, 0}, {10, 10}});
    });
    EXPECT_EQ(paintedArea(nothing), 0);
}

TEST(UIBezierPath, NumbersThatAreNotFiniteDrawNothing) {
    const CGRect badRect{{0, 0}, {kNaN, 10}};
    const Ref<UIBezierPath> paths[] = {UIBezierPath::bezierPathWithRect(badRect),
                                       UIBezierPath::bezierPathWithOvalInRect(badRect),
                                       UIBezierPath::bezierPathWithRoundedRect_cornerRadius(badRect, 3),
                                       UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{0, 0}, {9, 9}}, kNaN),
                                       arc({50, 50}, 10, 0, kNaN, true),
                                       line({0, 0}, {kNaN, 5})};
    for (const auto& path : paths) {
        path->addLineToPoint({70, 80});
        EXPECT_EQ(filledArea(path), 0);
        EXPECT_EQ(strokedArea(path), 0);
        EXPECT_EQ(strokedArea(path->copy()), 0);
        EXPECT_EQ(strokedArea(path->bezierPathByReversingPath()), 0);
        path->removeAllPoints();
        path->appendPath(line({0, 50}, {100, 50}));
        EXPECT_NEAR(strokedArea(path), 100, 0.1);
    }
}

TEST(UIBezierPath, DrawsNowhereWithoutAContext) {
    const auto path = line({0, 0}, {10, 10});
    ASSERT_FALSE(UIGraphicsGetCurrentContext());
    path->fill();
    path->stroke();
    path->fillWithBlendMode_alpha(kCGBlendModeNormal, 1);
    path->strokeWithBlendMode_alpha(kCGBlendModeNormal, 1);
    path->addClip();
    path->setLineWidth(0);
    path->stroke();
    EXPECT_EQ(elementsOf(path), (std::vector{moveTo(0, 0), lineTo(10, 10)}));
}

} // namespace zr::tests
