#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Glyphs.h>
#include <Gallery/Icons/Tile.h>

namespace zr::icons {

namespace {

constexpr Ink kGreen{0, 195, 64};
constexpr Ink kGrey{193, 198, 195};
constexpr Ink kFaint{255, 255, 255, 0.5};

// What the kit's rows show at their right.

void drawLoading(Pen& pen) { drawArcArrow(pen, {11, 11}, 8, 230, -28, 2.25, kGreen); }
void drawCheck(Pen& pen) { pen.strokeLines({{1.5, 7.5}, {5.5, 11.5}, {14.5, 1.5}}, 2, kGreen); }
void drawListIcon(Pen& pen) { pen.strokeLines({{1.5, 1.5}, {6.5, 6.5}, {1.5, 11.5}}, 2, kGrey); }

// What the gallery gives them to show.

void drawStar(Pen& pen) {
    pen.fillPolygon({{11, 1.5},
                     {13.9, 7.6},
                     {20.5, 8.5},
                     {15.7, 13.1},
                     {16.9, 19.7},
                     {11, 16.5},
                     {5.1, 19.7},
                     {6.3, 13.1},
                     {1.5, 8.5},
                     {8.1, 7.6}},
                    kOrangeHue.top);
}

void drawAdd(Pen& pen) {
    pen.fillCircle({11, 11}, 10, kGreen);
    pen.fillRounded(CGRectMake(6, 10, 10, 2), 1, kWhite);
    pen.fillRounded(CGRectMake(10, 6, 2, 10), 1, kWhite);
}

// Pages

void drawAccessories(Pen& pen) {
    drawTile(pen, kBlueHue);
    for (const double y : {7.0, 13.5, 20.0})
        pen.fillRounded(CGRectMake(5, y, 12, 3), 1.5, kFaint);
    pen.fillCircle({22.5, 8.5}, 2.5, kWhite);
    pen.strokeLines({{20, 15}, {21.75, 16.75}, {25, 13}}, 1.5, kWhite);
    pen.strokeLines({{21.5, 19}, {24, 21.5}, {21.5, 24}}, 1.5, kWhite);
}

void drawTexts(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(5, 8, 6, 6), 1.5, kWhite);
    pen.fillRounded(CGRectMake(13.5, 8, 11.5, 3), 1.5, kWhite);
    pen.fillRounded(CGRectMake(13.5, 13.5, 9, 2), 1, kFaint);
    pen.fillRounded(CGRectMake(13.5, 17.5, 11, 2), 1, kFaint);
    pen.fillRounded(CGRectMake(13.5, 21.5, 6, 2), 1, kFaint);
}

void drawMillion(Pen& pen) {
    drawTile(pen, kBlueHue);
    double y = 4;
    for (const double height : {3.0, 5.0, 2.0, 4.0}) {
        pen.fillRounded(CGRectMake(5, y, 20, height), 1, kWhite);
        y += height + 1.5;
    }
    pen.fillRounded(CGRectMake(5, y, 20, 2), 1, kFaint);
}

void drawSettings(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(5, 6, 20, 8), 2, kWhite);
    pen.fillRounded(CGRectMake(5, 16.5, 20, 8), 2, kWhite);
    pen.fillRounded(CGRectMake(17, 8, 6.5, 4), 2, kGreen);
    pen.strokeRounded(CGRectMake(18.5, 18.5, 4, 4), 1, 1, kBlueHue.bottom);
}

/// A row that has moved aside, and what is behind it.
void drawListSwipe(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(5, 6, 20, 4), 1.5, kFaint);
    pen.fillRounded(CGRectMake(5, 12.5, 11, 5), 1.5, kWhite);
    pen.fillRounded(CGRectMake(18, 12.5, 7, 5), 1.5, kRedHue.top);
    pen.fillRounded(CGRectMake(5, 20, 20, 4), 1.5, kFaint);
}

constexpr Icon kIcons[] = {
    {"icon_list_loading", 22, 22, drawLoading},   {"icon_list_check", 16, 13, drawCheck},
    {"list_icon_1", 8, 13, drawListIcon},         {"icon_list_star", 22, 22, drawStar},
    {"icon_list_add", 22, 22, drawAdd},           {"icon_list_accessories", 30, 30, drawAccessories},
    {"icon_list_texts", 30, 30, drawTexts},       {"icon_list_million", 30, 30, drawMillion},
    {"icon_list_settings", 30, 30, drawSettings}, {"icon_list_swipe", 30, 30, drawListSwipe},
};

} // namespace

std::span<const Icon> listIcons() { return kIcons; }

} // namespace zr::icons
