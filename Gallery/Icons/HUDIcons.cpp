#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Tile.h>

#include <cmath>
#include <numbers>

namespace zr::icons {

namespace {

constexpr Ink kFaint{255, 255, 255, 0.45};
constexpr double kDegree = std::numbers::pi / 180;

CGPoint pointOnCircle(CGPoint center, double radius, double degrees) {
    return CGPointMake(center.x + radius * std::cos(degrees * kDegree),
                       center.y + radius * std::sin(degrees * kDegree));
}

// Indicators

void drawSpinner(Pen& pen) {
    drawTile(pen, kBlueHue);
    for (int fin = 0; fin < 8; ++fin) {
        const double degrees = fin * 45 - 90;
        const Ink ink{255, 255, 255, 1 - fin * 0.1};
        pen.strokeLines({pointOnCircle({15, 15}, 5, degrees), pointOnCircle({15, 15}, 8.75, degrees)}, 2, ink);
    }
}

void drawPie(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.strokeArc({15, 15}, 9, 0, 360, 1.5, kWhite);
    std::vector<CGPoint> wedge{{15, 15}};
    for (int degrees = -90; degrees <= 45; degrees += 5)
        wedge.push_back(pointOnCircle({15, 15}, 6.5, degrees));
    pen.fillPolygon(wedge, kWhite);
}

void drawRing(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.strokeArc({15, 15}, 8, 0, 360, 3, kFaint);
    pen.strokeArc({15, 15}, 8, -90, 135, 3, kWhite);
}

void drawBar(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.strokeRounded(CGRectMake(4, 11, 22, 8), 4, 1.5, kWhite);
    pen.fillRounded(CGRectMake(7, 14, 10, 2), 1, kWhite);
}

void drawBattery(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.strokeRounded(CGRectMake(5, 10, 18, 10), 3, 1.5, kWhite);
    pen.fillRounded(CGRectMake(24, 13, 2, 4), 1, kWhite);
    pen.fillRounded(CGRectMake(8, 13, 8, 4), 1, kWhite);
}

void drawTextOnly(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(5, 9, 20, 12), 3, kWhite);
    pen.fillRounded(CGRectMake(9, 14, 12, 2), 1, kBlueHue.bottom);
}

// Texts

void drawLabel(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.strokeArc({15, 11}, 4, -60, 230, 1.5, kWhite);
    pen.fillRounded(CGRectMake(7, 19, 16, 3), 1.5, kWhite);
}

void drawDetails(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.fillRounded(CGRectMake(7, 9, 16, 3), 1.5, kWhite);
    pen.fillRounded(CGRectMake(6, 15, 18, 2), 1, {255, 255, 255, 0.7});
    pen.fillRounded(CGRectMake(9, 19, 12, 2), 1, {255, 255, 255, 0.7});
}

void drawLongText(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.fillRounded(CGRectMake(5, 8, 12, 3), 1.5, kWhite);
    for (const double x : {20.0, 22.5, 25.0})
        pen.fillCircle({x, 10}, 0.9, kWhite);
    for (const double y : {14.0, 17.5, 21.0})
        pen.fillRounded(CGRectMake(5, y, 20, 1.5), 0.75, {255, 255, 255, 0.7});
}

// Box and place

/// A screen with a box in it.
void drawScreen(Pen& pen, CGRect box) {
    drawTile(pen, kGreenHue);
    pen.strokeRounded(CGRectMake(6, 4, 18, 22), 3, 1.5, kWhite);
    pen.fillRounded(box, 2, kWhite);
}

void drawSquare(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.fillRounded(CGRectMake(7, 7, 16, 16), 3, kWhite);
    pen.fillCircle({15, 13}, 2.5, kGreenHue.bottom);
    pen.fillRounded(CGRectMake(10, 18, 10, 1.5), 0.75, kGreenHue.bottom);
}

void drawMinimumSize(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.strokeRounded(CGRectMake(4, 7, 22, 16), 3, 1.5, kWhite);
    pen.fillRounded(CGRectMake(10, 12, 10, 6), 2, kWhite);
}

void drawOffsets(Pen& pen) { drawScreen(pen, CGRectMake(14, 8, 7, 6)); }

void drawColor(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.fillRounded(CGRectMake(6, 7, 18, 16), 5, {250, 242, 219});
    pen.fillCircle({15, 13}, 3, kRedHue.bottom);
    pen.fillRounded(CGRectMake(10, 18, 10, 1.5), 0.75, {26, 92, 56});
}

void drawDimming(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.fillRounded(CGRectMake(5, 4, 20, 22), 3, {0, 60, 20, 0.6});
    pen.fillCircle({15, 15}, 9, {255, 255, 255, 0.25});
    pen.fillCircle({15, 15}, 6.5, {255, 255, 255, 0.3});
    pen.fillRounded(CGRectMake(11.5, 12, 7, 6), 2, kWhite);
}

void drawTwo(Pen& pen) {
    drawTile(pen, kGreenHue);
    for (const double y : {4.0, 16.0}) {
        pen.strokeRounded(CGRectMake(6, y, 18, 10), 2.5, 1.5, kWhite);
        pen.fillRounded(CGRectMake(12, y + 3, 6, 4), 1, kWhite);
    }
}

void drawTurnedDevice(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.strokeRounded(CGRectMake(5, 12, 20, 12), 3, 1.5, kWhite);
    pen.fillRounded(CGRectMake(12, 16, 6, 4), 1, kWhite);
    pen.strokeCurve({{7, 9}, {9, 5.5}, {14, 4.5}, {17.5, 6}}, 1.5, kWhite);
    pen.fillPolygon({{21, 8}, {16.2, 8.2}, {18.6, 4}}, kWhite);
}

// Coming and going

/// The box at three moments, the last one solid.
void drawMoments(Pen& pen, double first, double second, double third) {
    drawTile(pen, kRedHue);
    const double sides[] = {first, second, third};
    const double alphas[] = {0.3, 0.45, 1};
    for (int i = 0; i < 3; ++i) {
        const double side = sides[i];
        pen.fillRounded(CGRectMake(15 - side / 2, 15 - side / 2, side, side), side / 5, {255, 255, 255, alphas[i]});
    }
}

void drawFade(Pen& pen) {
    drawTile(pen, kRedHue);
    const double alphas[] = {0.25, 0.55, 1};
    for (int i = 0; i < 3; ++i)
        pen.fillRounded(CGRectMake(5 + i * 5, 11 - i * 1.0, 10, 10), 2.5, {255, 255, 255, alphas[i]});
}

void drawShrink(Pen& pen) { drawMoments(pen, 22, 16, 10); }

void drawGrow(Pen& pen) {
    drawTile(pen, kRedHue);
    pen.fillRounded(CGRectMake(5, 5, 20, 20), 4, kWhite);
    pen.strokeRounded(CGRectMake(8, 8, 14, 14), 3, 1, {224, 72, 37, 0.55});
    pen.strokeRounded(CGRectMake(11, 11, 8, 8), 2, 1, {224, 72, 37, 0.85});
}

/// A clock whose hands stand at a quarter past twelve, its face filled up to there or from there on.
void drawClock(Pen& pen, int fromDegrees, int toDegrees) {
    drawTile(pen, kRedHue);
    std::vector<CGPoint> wedge{{15, 15}};
    for (int degrees = fromDegrees; degrees <= toDegrees; degrees += 5)
        wedge.push_back(pointOnCircle({15, 15}, 8, degrees));
    pen.fillPolygon(wedge, kFaint);
    pen.strokeArc({15, 15}, 9, 0, 360, 1.75, kWhite);
    pen.strokeLines({{15, 9.5}, {15, 15}, {19, 15}}, 1.75, kWhite);
}

void drawGraceTime(Pen& pen) { drawClock(pen, -90, 0); }

void drawMinimumTime(Pen& pen) { drawClock(pen, 0, 270); }

// Tasks

void drawThread(Pen& pen) {
    drawTile(pen, kOrangeHue);
    pen.strokeLines({{10, 6}, {10, 24}}, 2, kFaint);
    pen.strokeCurve({{10, 7}, {10, 11}, {20, 8.5}, {20, 12.5}}, 2, kWhite);
    pen.strokeLines({{20, 12.5}, {20, 17.5}}, 2, kWhite);
    pen.strokeCurve({{20, 17.5}, {20, 21.5}, {10, 19}, {10, 23}}, 2, kWhite);
    pen.fillCircle({10, 7}, 2, kWhite);
    pen.fillCircle({10, 23}, 2, kWhite);
}

void drawQueue(Pen& pen) {
    drawTile(pen, kOrangeHue);
    const double alphas[] = {1, 0.7, 0.45};
    for (int i = 0; i < 3; ++i)
        pen.fillRounded(CGRectMake(6, 6 + i * 6.5, 18, 5), 1.5, {255, 255, 255, alphas[i]});
}

constexpr Icon kIcons[] = {
    {"icon_hud_spinner", 30, 30, drawSpinner},
    {"icon_hud_pie", 30, 30, drawPie},
    {"icon_hud_ring", 30, 30, drawRing},
    {"icon_hud_bar", 30, 30, drawBar},
    {"icon_hud_custom", 30, 30, drawBattery},
    {"icon_hud_text", 30, 30, drawTextOnly},
    {"icon_hud_label", 30, 30, drawLabel},
    {"icon_hud_details", 30, 30, drawDetails},
    {"icon_hud_long", 30, 30, drawLongText},
    {"icon_hud_square", 30, 30, drawSquare},
    {"icon_hud_min_size", 30, 30, drawMinimumSize},
    {"icon_hud_offsets", 30, 30, drawOffsets},
    {"icon_hud_color", 30, 30, drawColor},
    {"icon_hud_dim", 30, 30, drawDimming},
    {"icon_hud_two", 30, 30, drawTwo},
    {"icon_hud_rotation", 30, 30, drawTurnedDevice},
    {"icon_hud_fade", 30, 30, drawFade},
    {"icon_hud_shrink", 30, 30, drawShrink},
    {"icon_hud_grow", 30, 30, drawGrow},
    {"icon_hud_grace", 30, 30, drawGraceTime},
    {"icon_hud_min_show", 30, 30, drawMinimumTime},
    {"icon_hud_thread", 30, 30, drawThread},
    {"icon_hud_queue", 30, 30, drawQueue},
};

} // namespace

std::span<const Icon> hudIcons() { return kIcons; }

} // namespace zr::icons
