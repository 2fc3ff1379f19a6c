#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Tile.h>

namespace zr::icons {

namespace {

constexpr Ink kFaint{255, 255, 255, 0.4};

void drawArrowBack(Pen& pen, Ink ink) { pen.strokeLines({{10, 2}, {2, 10.5}, {10, 19}}, 2.5, ink); }
void drawBack(Pen& pen) { drawArrowBack(pen, kWhite); }
void drawBackPressed(Pen& pen) { drawArrowBack(pen, kFaint); }

void drawMenu(Pen& pen) {
    for (const double y : {3.0, 9.0, 15.0})
        pen.fillRounded(CGRectMake(0, y, 20, 2), 1, kWhite);
}

void drawPlus(Pen& pen) {
    pen.fillRounded(CGRectMake(0, 8, 18, 2), 1, kWhite);
    pen.fillRounded(CGRectMake(8, 0, 2, 18), 1, kWhite);
}

void drawSearch(Pen& pen) {
    constexpr Ink grey{154, 160, 156};
    pen.strokeArc({6.25, 6.25}, 4.75, 0, 360, 1.5, grey);
    pen.strokeLines({{9.75, 9.75}, {13.75, 13.75}}, 1.5, grey);
}

/// A screen whose bar is filled with `bar`.
void drawScreen(Pen& pen, CGRect frame, Ink bar) {
    pen.fillRounded(frame, 3, kWhite);
    pen.fillRounded(CGRectMake(frame.origin.x + 1.5, frame.origin.y + 1.5, frame.size.width - 3, 5), 1.5, bar);
}

void drawBarButtons(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.fillRounded(CGRectMake(4, 10, 22, 10), 2.5, kWhite);
    pen.strokeLines({{8.5, 12.5}, {6.5, 15}, {8.5, 17.5}}, 1.5, kGreenHue.bottom);
    pen.fillRounded(CGRectMake(18, 14, 5.5, 2), 1, kGreenHue.bottom);
}

void drawBarFade(Pen& pen) {
    drawTile(pen, kGreenHue);
    drawScreen(pen, CGRectMake(6, 5, 18, 20), {0, 191, 62, 0.45});
}

void drawBarHues(Pen& pen) {
    pen.fillRounded(CGRectMake(0, 0, 30, 30), 7, kWhite);
    pen.strokeRounded(CGRectMake(0, 0, 30, 30), 7, 1, {215, 217, 215});
    pen.fillRounded(CGRectMake(5, 6, 20, 5), 1.5, kGreenHue.top);
    pen.fillRounded(CGRectMake(5, 12.5, 20, 5), 1.5, kRedHue.top);
    pen.fillRounded(CGRectMake(5, 19, 20, 5), 1.5, kOrangeHue.top);
}

void drawVerticalDrag(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.strokeLines({{15, 5}, {15, 25}}, 2, kWhite);
    pen.strokeLines({{10.5, 9.5}, {15, 5}, {19.5, 9.5}}, 2, kWhite);
    pen.strokeLines({{10.5, 20.5}, {15, 25}, {19.5, 20.5}}, 2, kWhite);
}

void drawStack(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(5, 6, 13, 18), 2.5, {255, 255, 255, 0.5});
    drawScreen(pen, CGRectMake(12, 6, 13, 18), kBlueHue.bottom);
}

constexpr Icon kIcons[] = {
    {"icon_title_back", 12, 21, drawBack},
    {"icon_title_back_press", 12, 21, drawBackPressed},
    {"gallery_menu", 20, 20, drawMenu},
    {"gallery_plus", 18, 18, drawPlus},
    {"gallery_search", 15, 15, drawSearch},
    {"icon_bar_buttons", 30, 30, drawBarButtons},
    {"icon_bar_fade", 30, 30, drawBarFade},
    {"icon_bar_hues", 30, 30, drawBarHues},
    {"icon_vertical_drag", 30, 30, drawVerticalDrag},
    {"icon_stack", 30, 30, drawStack},
};

} // namespace

std::span<const Icon> screenIcons() { return kIcons; }

} // namespace zr::icons
