#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Glyphs.h>
#include <Gallery/Icons/Tile.h>

namespace zr::icons {

namespace {

// Image processing

void drawCrop(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.strokeLines({{10, 5}, {10, 20}, {25, 20}}, 2, kWhite);
    pen.strokeLines({{5, 10}, {20, 10}, {20, 25}}, 2, kWhite);
}

void drawGaussian(Pen& pen) {
    drawTile(pen, kBlueHue);
    for (const double radius : {10.0, 8.5, 7.0, 5.5, 4.0})
        pen.fillCircle({15, 15}, radius, {255, 255, 255, 0.3});
    pen.fillCircle({15, 15}, 2.5, kWhite);
}

void drawBox(Pen& pen) {
    drawTile(pen, kBlueHue);
    for (const double half : {10.0, 7.5, 5.0})
        pen.fillRounded(CGRectMake(15 - half, 15 - half, 2 * half, 2 * half), 1, {255, 255, 255, 0.4});
}

// Stock animations

void drawTilt(Pen& pen) {
    drawTile(pen, kRedHue);
    pen.fillPolygon({{8.5, 7.5}, {21.5, 7.5}, {24.5, 22.5}, {5.5, 22.5}}, {255, 255, 255, 0.45});
    pen.strokeLines({{8.5, 7.5}, {21.5, 7.5}, {24.5, 22.5}, {5.5, 22.5}, {8.5, 7.5}}, 1.5, kWhite);
}

void drawSpin(Pen& pen) {
    drawTile(pen, kRedHue);
    drawArcArrow(pen, {15, 15}, 7.5, 290, 10, 2, kWhite);
    pen.fillCircle({15, 15}, 2, kWhite);
}

constexpr Icon kIcons[] = {
    {"icon_image_size", 30, 30, drawCrop}, {"icon_image_gaussian", 30, 30, drawGaussian},
    {"icon_image_box", 30, 30, drawBox},   {"icon_tilt", 30, 30, drawTilt},
    {"icon_spin", 30, 30, drawSpin},
};

} // namespace

std::span<const Icon> imageIcons() { return kIcons; }

} // namespace zr::icons
