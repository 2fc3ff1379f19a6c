#include <Gallery/Icons/Glyphs.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zr::icons {

namespace {

constexpr double kDegree = std::numbers::pi / 180;

CGPoint pointOnCircle(CGPoint center, double radius, double degrees) {
    return CGPointMake(center.x + radius * std::cos(degrees * kDegree),
                       center.y + radius * std::sin(degrees * kDegree));
}

} // namespace

void drawArcArrow(Pen& pen, CGPoint center, double radius, double fromDegrees, double toDegrees, double lineWidth,
                  Ink ink) {
    pen.strokeArc(center, radius, std::min(fromDegrees, toDegrees), std::max(fromDegrees, toDegrees), lineWidth, ink);

    const CGPoint base = pointOnCircle(center, radius, toDegrees);
    // Turned in from the tangent, to where the circle has gone by the middle of the head.
    const double directionDegrees = fromDegrees < toDegrees ? toDegrees + 90 + 20 : toDegrees - 90 - 20;
    const CGPoint ahead = pointOnCircle(CGPointZero, 1, directionDegrees);
    const auto at = [&](double forward, double aside) {
        return CGPointMake(base.x + lineWidth * (ahead.x * forward - ahead.y * aside),
                           base.y + lineWidth * (ahead.y * forward + ahead.x * aside));
    };
    pen.fillPolygon({at(2.1, 0), at(-0.25, 1.45), at(-0.25, -1.45)}, ink);
}

void drawExchange(Pen& pen, CGPoint center, double radius, double lineWidth, Ink ink) {
    drawArcArrow(pen, center, radius, 200, 330, lineWidth, ink);
    drawArcArrow(pen, center, radius, 20, 150, lineWidth, ink);
}

void drawBulb(Pen& pen, CGPoint center, double unit, Ink ink) {
    const auto at = [&](double x, double y) { return CGPointMake(center.x + x * unit, center.y + y * unit); };
    const double line = 1.5 * unit;
    const CGPoint glass = at(0, -1.5);
    pen.strokeArc(glass, 5 * unit, 125, 415, line, ink);
    pen.strokeLines({pointOnCircle(glass, 5 * unit, 125), at(-2, 5)}, line, ink);
    pen.strokeLines({pointOnCircle(glass, 5 * unit, 55), at(2, 5)}, line, ink);
    pen.strokeLines({at(-2, 7), at(2, 7)}, line, ink);
    pen.strokeLines({at(-1, 9.25), at(1, 9.25)}, line, ink);
    for (const double degrees : {-150.0, -120.0, -90.0, -60.0, -30.0})
        pen.strokeLines({pointOnCircle(glass, 7.4 * unit, degrees), pointOnCircle(glass, 9 * unit, degrees)}, line,
                        ink);
}

} // namespace zr::icons
