#include <ZRPlatform/CoreGraphics/CGPath.h>

#include <Tests/ZRPlatform/CoreGraphics/Canvas.h>

using namespace zr;

namespace {

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

/// Points along the drawn line, `each` for every curve and line.
std::vector<CGPoint> walk(CGPathRef path, int each) {
    std::vector<CGPoint> points;
    CGPoint from;
    CGPathApplyWithBlock(path, [&](const CGPathElement& element) {
        const CGPoint* p = element.points;
        const NSUInteger count = CGPathElementPointCount(element.type);
        for (int i = 1; i <= each && count > 0 && element.type != kCGPathElementMoveToPoint; ++i) {
            const CGFloat t = static_cast<CGFloat>(i) / static_cast<CGFloat>(each);
            const CGFloat s = 1 - t;
            const auto mix = [&](CGFloat CGPoint::*axis) {
                if (count == 1)
                    return s * from.*axis + t * p[0].*axis;
                if (count == 2)
                    return s * s * from.*axis + 2 * s * t * p[0].*axis + t * t * p[1].*axis;
                return s * s * s * from.*axis + 3 * s * s * t * p[0].*axis + 3 * s * t * t * p[1].*axis +
                       t * t * t * p[2].*axis;
            };
            points.push_back({mix(&CGPoint::x), mix(&CGPoint::y)});
        }
        if (count > 0)
            from = p[count - 1];
    });
    return points;
}

std::vector<CGPathElementType> typesOf(CGPathRef path) {
    std::vector<CGPathElementType> types;
    CGPathApplyWithBlock(path, [&](const CGPathElement& element) { types.push_back(element.type); });
    return types;
}

CGFloat distance(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

void expectPoint(CGPoint actual, CGPoint expected, CGFloat tolerance = 1e-9) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

} // namespace

TEST(CGPath, KeepsTheStepsInOrder) {
    const auto path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, 1, 2);
    CGPathAddLineToPoint(path, nullptr, 3, 4);
    CGPathAddQuadCurveToPoint(path, nullptr, 5, 6, 7, 8);
    CGPathAddCurveToPoint(path, nullptr, 9, 10, 11, 12, 13, 14);
    EXPECT_EQ(CGPathGetCurrentPoint(path), CGPointMake(13, 14));
    CGPathCloseSubpath(path);
    EXPECT_EQ(CGPathGetCurrentPoint(path), CGPointMake(1, 2));
    const std::vector<CGPathElement> expected = {
        {kCGPathElementMoveToPoint, {{1, 2}}},
        {kCGPathElementAddLineToPoint, {{3, 4}}},
        {kCGPathElementAddQuadCurveToPoint, {{5, 6}, {7, 8}}},
        {kCGPathElementAddCurveToPoint, {{9, 10}, {11, 12}, {13, 14}}},
        {kCGPathElementCloseSubpath, {}},
    };
    EXPECT_EQ(path->elements(), expected);
}

TEST(CGPath, TransformsPointsAsTheyAreAdded) {
    const CGAffineTransform transform = CGAffineTransformMake(2, 0, 0, 3, 10, 20);
    const auto path = CGPathCreateMutable();
    CGPathMoveToPoint(path, &transform, 1, 1);
    CGPathAddLineToPoint(path, nullptr, 1, 1);
    EXPECT_EQ(path->elements()[0].points[0], CGPointMake(12, 23));
    EXPECT_EQ(path->elements()[1].points[0], CGPointMake(1, 1));
}

TEST(CGPath, ALineWithoutACurrentPointIsIgnored) {
    const auto path = CGPathCreateMutable();
    CGPathAddLineToPoint(path, nullptr, 3, 4);
    CGPathAddCurveToPoint(path, nullptr, 1, 1, 2, 2, 3, 3);
    CGPathAddArcToPoint(path, nullptr, 1, 1, 2, 2, 3);
    CGPathCloseSubpath(path);
    EXPECT_TRUE(CGPathIsEmpty(path));
    EXPECT_TRUE(path->isFinite());
}

TEST(CGPath, NumbersThatAreNotFiniteMarkThePath) {
    const auto path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, 0, 0);
    CGPathAddLineToPoint(path, nullptr, 5, 5);
    CGPathAddLineToPoint(path, nullptr, kNaN, 5);
    EXPECT_FALSE(path->isFinite());
    EXPECT_EQ(CGPathGetBoundingBox(path), CGRectMake(0, 0, 5, 5));
    const auto copy = CGPathCreateCopy(path);
    EXPECT_FALSE(copy->isFinite());
    for (const CGRect rect : {CGRectMake(kNaN, 0, 1, 1), CGRectNull}) {
        EXPECT_FALSE(CGPathCreateWithRect(rect, nullptr)->isFinite());
        EXPECT_FALSE(CGPathCreateWithEllipseInRect(rect, nullptr)->isFinite());
        EXPECT_FALSE(CGPathCreateWithRoundedRect(rect, 1, 1, nullptr)->isFinite());
    }
    const auto arc = CGPathCreateMutable();
    CGPathAddArc(arc, nullptr, 0, 0, std::numeric_limits<CGFloat>::infinity(), 0, 1, false);
    EXPECT_FALSE(arc->isFinite());
}

TEST(CGPath, ArcStaysOnItsCircleBetweenItsAngles) {
    const auto path = CGPathCreateMutable();
    CGPathAddArc(path, nullptr, 10, 20, 100, 0.3, 2.9, false);
    expectPoint(path->elements().front().points[0], {10 + 100 * std::cos(0.3), 20 + 100 * std::sin(0.3)});
    expectPoint(path->currentPoint(), {10 + 100 * std::cos(2.9), 20 + 100 * std::sin(2.9)});
    for (const CGPoint point : walk(path, 16)) {
        EXPECT_NEAR(distance(point, {10, 20}), 100, 100 * 5e-6);
        const CGFloat angle = std::atan2(point.y - 20, point.x - 10);
        EXPECT_GT(angle, 0.3);
        EXPECT_LT(angle, 2.9 + 1e-9);
    }
}

TEST(CGPath, ClockwiseArcGoesThroughDecreasingAngles) {
    const auto down = CGPathCreateMutable();
    CGPathAddArc(down, nullptr, 0, 0, 1, kPi / 4, 3 * kPi / 4, true);
    // From 45 degrees down through -90 to 135: three quarters of a turn, past the bottom.
    expectPoint(CGPathGetPathBoundingBox(down).origin, {-1, -1}, 1e-5);
    EXPECT_NEAR(CGRectGetMaxY(CGPathGetPathBoundingBox(down)), std::sqrt(0.5), 1e-5);
    const auto up = CGPathCreateMutable();
    CGPathAddArc(up, nullptr, 0, 0, 1, kPi / 4, 3 * kPi / 4, false);
    EXPECT_NEAR(CGRectGetMinY(CGPathGetPathBoundingBox(up)), std::sqrt(0.5), 1e-5);
    EXPECT_NEAR(CGRectGetMaxY(CGPathGetPathBoundingBox(up)), 1, 1e-5);
}

TEST(CGPath, ArcOfEqualAnglesIsAPointAndOfAFullTurnACircle) {
    const auto none = CGPathCreateMutable();
    CGPathAddArc(none, nullptr, 0, 0, 5, 1, 1, false);
    EXPECT_EQ(typesOf(none), std::vector{kCGPathElementMoveToPoint});
    const auto full = CGPathCreateMutable();
    CGPathAddArc(full, nullptr, 0, 0, 5, 0, 2 * kPi, false);
    const CGRect box = CGPathGetPathBoundingBox(full);
    EXPECT_NEAR(box.origin.x, -5, 1e-4);
    EXPECT_NEAR(box.origin.y, -5, 1e-4);
    EXPECT_NEAR(box.size.width, 10, 1e-4);
    EXPECT_NEAR(box.size.height, 10, 1e-4);
}

TEST(CGPath, ATurnIsAFullCircleWhereverItStartsAndHoweverItIsRounded) {
    for (int i = -1000; i <= 1000; ++i) {
        const CGFloat start = CGFloat(i) * CGFloat(0.0123);
        for (const CGFloat turn : {2 * kPi, static_cast<CGFloat>(static_cast<float>(2 * kPi))}) {
            for (const bool clockwise : {false, true}) {
                for (const CGFloat end : {start + turn, start - turn}) {
                    const Ref<CGMutablePath> path = CGPathCreateMutable();
                    CGPathAddArc(path, nullptr, 0, 0, 5, start, end, clockwise);
                    EXPECT_NEAR(CGPathGetPathBoundingBox(path).size.width, 10, 1e-3) << start << ' ' << end;
                    EXPECT_NEAR(CGPathGetPathBoundingBox(path).size.height, 10, 1e-3) << start << ' ' << end;
                }
            }
        }
    }
}

TEST(CGPath, ALineLeadsToAnArc) {
    const auto path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, 0, 0);
    CGPathAddArc(path, nullptr, 10, 0, 5, kPi, 0, false);
    EXPECT_EQ(path->elements()[1].type, kCGPathElementAddLineToPoint);
    expectPoint(path->elements()[1].points[0], {5, 0});
    const auto negative = CGPathCreateMutable();
    CGPathAddArc(negative, nullptr, 10, 0, -5, 0, 1, false);
    EXPECT_TRUE(CGPathIsEmpty(negative));
}

// The centre is found here as the point at the radius' distance from both lines, by solving their two equations.
TEST(CGPath, ArcToPointTouchesBothLines) {
    struct Case {
        CGPoint from, corner, to;
        CGFloat radius;
    };
    const Case cases[] = {
        {{0, 0}, {100, 0}, {100, 100}, 20}, {{0, 0}, {100, 0}, {100, -100}, 20}, {{0, 0}, {100, 30}, {20, 90}, 15},
        {{0, 0}, {50, 10}, {0, 20}, 3},     {{3, 80}, {-40, -7}, {90, 4}, 12},   {{0, 0}, {100, 0}, {200, 5}, 40},
    };
    for (const Case& c : cases) {
        const auto path = CGPathCreateMutable();
        CGPathMoveToPoint(path, nullptr, c.from.x, c.from.y);
        CGPathAddArcToPoint(path, nullptr, c.corner.x, c.corner.y, c.to.x, c.to.y, c.radius);
        // A line n . p = n . corner with unit normal n, turned so that the other end is on its positive side.
        const auto normal = [&](CGPoint end, CGPoint other) {
            const CGFloat length = distance(end, c.corner);
            CGPoint n = {(end.y - c.corner.y) / length, -(end.x - c.corner.x) / length};
            if (n.x * (other.x - c.corner.x) + n.y * (other.y - c.corner.y) < 0)
                n = {-n.x, -n.y};
            return n;
        };
        const CGPoint n1 = normal(c.from, c.to);
        const CGPoint n2 = normal(c.to, c.from);
        const CGFloat d1 = n1.x * c.corner.x + n1.y * c.corner.y + c.radius;
        const CGFloat d2 = n2.x * c.corner.x + n2.y * c.corner.y + c.radius;
        const CGFloat determinant = n1.x * n2.y - n1.y * n2.x;
        const CGPoint center = {(d1 * n2.y - d2 * n1.y) / determinant, (n1.x * d2 - n2.x * d1) / determinant};
        const CGPoint touch1 = {center.x - n1.x * c.radius, center.y - n1.y * c.radius};
        const CGPoint touch2 = {center.x - n2.x * c.radius, center.y - n2.y * c.radius};

        ASSERT_GT(path->elements().size(), 2u);
        EXPECT_EQ(path->elements()[1].type, kCGPathElementAddLineToPoint);
        expectPoint(path->elements()[1].points[0], touch1, 1e-8);
        expectPoint(path->currentPoint(), touch2, 1e-8);
        const std::vector<CGPoint> points = walk(path, 8);
        for (std::size_t i = 8; i < points.size(); ++i) {
            EXPECT_NEAR(distance(points[i], center), c.radius, c.radius * 5e-6);
            // The short way round: the arc stays on the corner's side of the centre.
            EXPECT_LE(distance(points[i], c.corner), distance(touch1, c.corner) + 1e-6);
        }
    }
}

TEST(CGPath, ArcToPointFollowsTheTransform) {
    const CGAffineTransform transform = CGAffineTransformMake(2, 0, 0, -2, 5, 50);
    const auto straight = CGPathCreateMutable();
    CGPathMoveToPoint(straight, nullptr, 0, 0);
    CGPathAddArcToPoint(straight, nullptr, 10, 0, 10, 10, 4);
    const auto placed = CGPathCreateMutable();
    CGPathMoveToPoint(placed, &transform, 0, 0);
    CGPathAddArcToPoint(placed, &transform, 10, 0, 10, 10, 4);
    ASSERT_EQ(placed->elements().size(), straight->elements().size());
    expectPoint(placed->elements()[1].points[0], {5 + 2 * 6, 50});
    expectPoint(placed->currentPoint(), {5 + 2 * 10, 50 - 2 * 4});
}

TEST(CGPath, DegenerateArcToPointIsALine) {
    const CGPoint seconds[] = {{20, 0}, {10, 0}, {5, 0}};
    for (const CGPoint second : seconds) {
        const auto path = CGPathCreateMutable();
        CGPathMoveToPoint(path, nullptr, 0, 0);
        CGPathAddArcToPoint(path, nullptr, 10, 0, second.x, second.y, 4);
        EXPECT_EQ(typesOf(path), (std::vector{kCGPathElementMoveToPoint, kCGPathElementAddLineToPoint}));
        EXPECT_EQ(path->currentPoint(), CGPointMake(10, 0));
    }
    const auto path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, 10, 0);
    CGPathAddArcToPoint(path, nullptr, 10, 0, 10, 10, 4);
    CGPathAddArcToPoint(path, nullptr, 20, 0, 20, 10, 0);
    EXPECT_EQ(typesOf(path),
              (std::vector{kCGPathElementMoveToPoint, kCGPathElementAddLineToPoint, kCGPathElementAddLineToPoint}));
    EXPECT_EQ(path->currentPoint(), CGPointMake(20, 0));
}

TEST(CGPath, EllipseStaysOnItsEquation) {
    const auto path = CGPathCreateWithEllipseInRect(CGRectMake(10, 20, 200, 60), nullptr);
    for (const CGPoint point : walk(path, 16))
        EXPECT_NEAR(std::hypot((point.x - 110) / 100, (point.y - 50) / 30), 1, 5e-6);
    EXPECT_EQ(path->elements().back().type, kCGPathElementCloseSubpath);
}

TEST(CGPath, RoundedRectHasEllipticCornersAndStraightSides) {
    const auto path = CGPathCreateWithRoundedRect(CGRectMake(0, 0, 100, 50), 10, 5, nullptr);
    int onSides = 0;
    for (const CGPoint point : walk(path, 8)) {
        const CGFloat dx = std::max({10 - point.x, point.x - 90, CGFloat(0)}) / 10;
        const CGFloat dy = std::max({5 - point.y, point.y - 45, CGFloat(0)}) / 5;
        EXPECT_NEAR(std::hypot(dx, dy), 1, 1e-5);
        onSides += dx == 0 || dy == 0;
    }
    EXPECT_GT(onSides, 20);
    // Too large radii are cut to a stadium: the middle of the left side is still on the outline.
    const auto pill = CGPathCreateWithRoundedRect(CGRectMake(0, 0, 100, 50), 25, 400, nullptr);
    EXPECT_EQ(CGPathGetPathBoundingBox(pill), CGRectMake(0, 0, 100, 50));
    EXPECT_FALSE(CGPathContainsPoint(pill, nullptr, {2, 2}, false));
    EXPECT_TRUE(CGPathContainsPoint(pill, nullptr, {0.5, 25}, false));
    EXPECT_EQ(CGPathCreateWithRoundedRect(CGRectMake(0, 0, 4, 4), 0, 2, nullptr)->elements().size(), 5u);
}

TEST(CGPath, BoxesWithAndWithoutControlPoints) {
    const auto path = CGPathCreateMutable();
    EXPECT_TRUE(CGRectIsNull(CGPathGetBoundingBox(path)));
    EXPECT_TRUE(CGRectIsNull(CGPathGetPathBoundingBox(path)));
    CGPathMoveToPoint(path, nullptr, 0, 0);
    CGPathAddQuadCurveToPoint(path, nullptr, 5, 10, 10, 0);
    EXPECT_EQ(CGPathGetBoundingBox(path), CGRectMake(0, 0, 10, 10));
    // A parabola reaches half the height of its control point.
    EXPECT_NEAR(CGPathGetPathBoundingBox(path).size.height, 5, 1e-12);
    const auto cubic = CGPathCreateMutable();
    CGPathMoveToPoint(cubic, nullptr, 0, 0);
    CGPathAddCurveToPoint(cubic, nullptr, 0, 8, 10, 8, 10, 0);
    EXPECT_NEAR(CGPathGetPathBoundingBox(cubic).size.height, 6, 1e-12);
    EXPECT_NEAR(CGPathGetPathBoundingBox(cubic).size.width, 10, 1e-12);
}

TEST(CGPath, ContainsByWindingOrByCrossings) {
    const auto path = CGPathCreateMutable();
    CGPathAddRect(path, nullptr, CGRectMake(0, 0, 30, 30));
    CGPathAddRect(path, nullptr, CGRectMake(10, 10, 10, 10));
    EXPECT_TRUE(CGPathContainsPoint(path, nullptr, {15, 15}, false));
    EXPECT_FALSE(CGPathContainsPoint(path, nullptr, {15, 15}, true));
    EXPECT_TRUE(CGPathContainsPoint(path, nullptr, {5, 15}, true));
    EXPECT_FALSE(CGPathContainsPoint(path, nullptr, {35, 15}, false));
    const CGAffineTransform move = CGAffineTransformMakeTranslation(-20, 0);
    EXPECT_TRUE(CGPathContainsPoint(path, &move, {35, 15}, false));
    EXPECT_FALSE(CGPathContainsPoint(nullptr, nullptr, {0, 0}, false));
}

TEST(CGPath, ContainsFollowsCurvesClosely) {
    const auto circle = CGPathCreateWithEllipseInRect(CGRectMake(-10, -10, 20, 20), nullptr);
    for (int degree = 0; degree < 360; degree += 7) {
        const CGFloat angle = static_cast<CGFloat>(degree) * kPi / 180;
        EXPECT_TRUE(CGPathContainsPoint(circle, nullptr, {9.999 * std::cos(angle), 9.999 * std::sin(angle)}, false));
        EXPECT_FALSE(CGPathContainsPoint(circle, nullptr, {10.001 * std::cos(angle), 10.001 * std::sin(angle)}, false));
    }
}

TEST(CGPath, OpenSubpathsCountAsClosedWhenAskedForAPoint) {
    const auto path = CGPathCreateMutable();
    const CGPoint corners[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    CGPathAddLines(path, nullptr, corners, 4);
    CGPathMoveToPoint(path, nullptr, 50, 50);
    EXPECT_TRUE(CGPathContainsPoint(path, nullptr, {5, 5}, false));
    EXPECT_FALSE(CGPathContainsPoint(path, nullptr, {-5, 5}, false));
    EXPECT_FALSE(CGPathContainsPoint(path, nullptr, {20, 5}, false));
}

TEST(CGPath, CopiesAreIndependentAndEqual) {
    const auto path = CGPathCreateMutable();
    CGPathAddRect(path, nullptr, CGRectMake(0, 0, 1, 1));
    const auto copy = CGPathCreateMutableCopy(path);
    EXPECT_TRUE(CGPathEqualToPath(path, copy));
    CGPathAddLineToPoint(copy, nullptr, 5, 5);
    EXPECT_FALSE(CGPathEqualToPath(path, copy));
    EXPECT_EQ(path->elements().size(), 5u);
    CGPathAddPath(path, nullptr, path);
    EXPECT_EQ(path->elements().size(), 10u);
    const CGAffineTransform twice = CGAffineTransformMakeScale(2, 2);
    EXPECT_EQ(CGPathGetBoundingBox(CGPathCreateCopyByTransformingPath(path, &twice)), CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(CGPathCreateCopy(nullptr), nullptr);
    EXPECT_FALSE(CGPathEqualToPath(path, nullptr));
    EXPECT_TRUE(CGPathIsEmpty(nullptr));
}
