#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Glyphs.h>
#include <Gallery/Icons/Tile.h>

namespace zr::icons {

namespace {

// What the overlays themselves show

void drawToastImage(Pen& pen) {
    const CGPoint center{33.5, 33.5};
    pen.strokeArc(center, 30.5, 0, 360, 3, {255, 255, 255, 0.35});
    drawExchange(pen, center, 17, 4.5, kWhite);
}

void drawTipImage(Pen& pen) { drawBulb(pen, {30, 31}, 2.75, kWhite); }

// Toasts

void drawToast(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.fillRounded(CGRectMake(7, 5, 16, 20), 3, {20, 24, 22});
}

void drawStillToast(Pen& pen) {
    drawToast(pen);
    pen.strokeArc({15, 12}, 3.5, 0, 360, 1.5, kWhite);
    pen.fillRounded(CGRectMake(10, 19, 10, 2), 1, kWhite);
}

void drawSpinningToast(Pen& pen) {
    drawToast(pen);
    drawArcArrow(pen, {15, 12}, 3.5, 80, 330, 1.5, kWhite);
    pen.fillRounded(CGRectMake(10, 19, 10, 2), 1, kWhite);
}

void drawTextToast(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.fillRounded(CGRectMake(4, 10, 22, 10), 3, {20, 24, 22});
    pen.fillRounded(CGRectMake(8, 14, 14, 2), 1, kWhite);
}

void drawIconToast(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.fillRounded(CGRectMake(7, 7, 16, 16), 3, {20, 24, 22});
    drawExchange(pen, {15, 15}, 4.25, 1.5, kWhite);
}

void drawToastInView(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.strokeRounded(CGRectMake(6, 5, 18, 20), 3, 1.5, kWhite);
    pen.fillRounded(CGRectMake(11, 10, 8, 10), 2, kWhite);
}

// Tips alerts

/// A panel with a band of this height; 0 for none.
void drawTips(Pen& pen, double bandHeight, Ink band) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(6, 5, 18, 20), 3, kWhite);
    if (bandHeight > 0) {
        pen.fillRounded(CGRectMake(6, 5, 18, 6), 3, band);
        pen.fillRounded(CGRectMake(6, 8, 18, bandHeight - 3), 0, band);
    }
}

void drawLines(Pen& pen, double top, int count) {
    for (int i = 0; i < count; ++i)
        pen.fillRounded(CGRectMake(9, top + 2.5 * i, 12, 1), 0.5, kBlueHue.bottom);
}

constexpr Ink kBand{45, 167, 5};

void drawTipsWithImage(Pen& pen) {
    drawTips(pen, 10, kBand);
    pen.strokeArc({15, 10}, 2.5, 0, 360, 1.25, kWhite);
    drawLines(pen, 18, 2);
}

void drawTipsWithoutImage(Pen& pen) {
    drawTips(pen, 7, kOrangeHue.bottom);
    pen.fillRounded(CGRectMake(10, 8, 10, 1.5), 0.75, kWhite);
    drawLines(pen, 16, 2);
}

void drawTipsWithoutTitle(Pen& pen) {
    drawTips(pen, 0, kBand);
    drawLines(pen, 10, 3);
}

void drawTipsWithoutMessage(Pen& pen) {
    drawTips(pen, 13, kBand);
    pen.strokeArc({15, 10}, 2.5, 0, 360, 1.25, kWhite);
    pen.fillRounded(CGRectMake(10, 14.5, 10, 1.5), 0.75, kWhite);
}

void drawLongTips(Pen& pen) {
    drawTips(pen, 5, kBand);
    drawLines(pen, 13, 3);
    for (const double x : {10.0, 12.5, 15.0})
        pen.fillCircle({x, 21.5}, 0.75, kBlueHue.bottom);
}

void drawSizedTips(Pen& pen) {
    drawTile(pen, kBlueHue);
    pen.fillRounded(CGRectMake(8, 3, 14, 24), 2.5, kWhite);
    pen.fillRounded(CGRectMake(8, 3, 14, 5), 2.5, kBand);
    pen.fillRounded(CGRectMake(8, 6, 14, 3), 0, kBand);
    for (int i = 0; i < 5; ++i)
        pen.fillRounded(CGRectMake(10.5, 12 + 2.5 * i, 9, 1), 0.5, kBlueHue.bottom);
}

constexpr Icon kIcons[] = {
    {"toast_icon_daorudaochu", 67, 67, drawToastImage},
    {"gallery_tip", 60, 60, drawTipImage},
    {"icon_toast_still", 30, 30, drawStillToast},
    {"icon_toast_spinning", 30, 30, drawSpinningToast},
    {"icon_toast_no_icon", 30, 30, drawTextToast},
    {"icon_toast_no_text", 30, 30, drawIconToast},
    {"icon_toast_host_view", 30, 30, drawToastInView},
    {"icon_tips_image", 30, 30, drawTipsWithImage},
    {"icon_tips_no_image", 30, 30, drawTipsWithoutImage},
    {"icon_tips_no_title", 30, 30, drawTipsWithoutTitle},
    {"icon_tips_no_message", 30, 30, drawTipsWithoutMessage},
    {"icon_tips_long", 30, 30, drawLongTips},
    {"icon_tips_size", 30, 30, drawSizedTips},
};

} // namespace

std::span<const Icon> overlayIcons() { return kIcons; }

} // namespace zr::icons
