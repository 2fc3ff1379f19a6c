#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Tile.h>

namespace zr::icons {

namespace {

void drawLightButtons(Pen& pen) {
    pen.fillRounded(CGRectMake(0, 0, 30, 30), 7, kWhite);
    pen.strokeRounded(CGRectMake(0, 0, 30, 30), 7, 1, {215, 217, 215});
    pen.fillRounded(CGRectMake(5, 6, 20, 7), 3.5, kGreenHue.bottom);
    pen.strokeRounded(CGRectMake(5, 17, 20, 7), 3.5, 1.25, kGreenHue.bottom);
}

void drawColoredButtons(Pen& pen) {
    drawTile(pen, kOrangeHue);
    pen.fillRounded(CGRectMake(5, 6, 20, 7), 3.5, kWhite);
    pen.strokeRounded(CGRectMake(5, 17, 20, 7), 3.5, 1.25, kWhite);
}

void drawSwitch(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.strokeRounded(CGRectMake(4, 8, 22, 14), 7, 1.5, kWhite);
    pen.fillCircle({19, 15}, 4.75, kWhite);
}

void drawSegments(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.strokeRounded(CGRectMake(3, 10, 24, 10), 5, 1.25, kWhite);
    pen.fillRounded(CGRectMake(3, 10, 8, 10), 4.5, kWhite);
    pen.fillRounded(CGRectMake(8, 10, 3, 10), 0, kWhite);
    pen.fillRounded(CGRectMake(18.5, 10, 1, 10), 0, kWhite);
}

constexpr Icon kIcons[] = {
    {"icon_button_light", 30, 30, drawLightButtons},
    {"icon_button_color", 30, 30, drawColoredButtons},
    {"icon_switch", 30, 30, drawSwitch},
    {"icon_segments", 30, 30, drawSegments},
};

} // namespace

std::span<const Icon> controlIcons() { return kIcons; }

} // namespace zr::icons
