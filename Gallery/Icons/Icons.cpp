#include <Gallery/Icons/Icons.h>

#include <Gallery/Icons/Glyphs.h>
#include <Gallery/Icons/Tile.h>

namespace zr::icons {

namespace {

constexpr Ink kGreen{0, 195, 64};
constexpr Ink kGrey{193, 198, 195};

/// An alert panel with a title and a message line, without its buttons.
void drawPanel(Pen& pen, Ink detail) {
    pen.fillRounded(CGRectMake(6, 7, 18, 16), 3, kWhite);
    pen.fillRounded(CGRectMake(10, 10, 10, 2), 1, detail);
}

void drawMessageLine(Pen& pen, Ink detail) { pen.fillRounded(CGRectMake(9, 14, 12, 1), 0.5, detail); }

void drawButtonLine(Pen& pen, Ink detail) { pen.fillRounded(CGRectMake(6, 17, 18, 1), 0, detail); }

void drawField(Pen& pen) { pen.fillRounded(CGRectMake(5, 10, 20, 10), 3, kWhite); }

void drawButtonDivider(Pen& pen, Ink detail) {
    const double width = pen.wholePixels(1);
    pen.fillRounded(CGRectMake(pen.wholePixels(15 - width / 2), 18, width, 5), 0, detail);
}

void drawDefaultAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    drawPanel(pen, kGreenHue.bottom);
    drawMessageLine(pen, kGreenHue.bottom);
    drawButtonLine(pen, kGreenHue.bottom);
    drawButtonDivider(pen, kGreenHue.bottom);
}

void drawPlainAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    drawPanel(pen, kGreenHue.bottom);
    drawMessageLine(pen, kGreenHue.bottom);
    pen.fillRounded(CGRectMake(9, 17, 12, 1), 0.5, kGreenHue.bottom);
    pen.fillRounded(CGRectMake(11, 20, 8, 1), 0.5, kGreenHue.bottom);
}

void drawCheckBoxAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.fillRounded(CGRectMake(7, 7, 16, 16), 4, kWhite);
    pen.strokeLines({{10.5, 15}, {13.75, 18.25}, {19.5, 11.5}}, 2.25, kGreenHue.bottom);
}

void drawProgressAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    pen.fillRounded(CGRectMake(5, 12, 20, 6), 3, {255, 255, 255, 0.45});
    pen.fillRounded(CGRectMake(5, 12, 13, 6), 3, kWhite);
}

void drawRotationAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    drawArcArrow(pen, {15, 15}, 7, 230, -28, 2, kWhite);
}

void drawTextFieldAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    drawField(pen);
    pen.fillRounded(CGRectMake(8, 14, 6, 2), 1, kGreenHue.bottom);
    pen.fillRounded(CGRectMake(16, 12, 1, 6), 0.5, kGreenHue.bottom);
}

void drawSecureAlert(Pen& pen) {
    drawTile(pen, kGreenHue);
    drawField(pen);
    for (const double x : {9.5, 14.5, 19.5})
        pen.fillCircle({x, 15}, 1.5, kGreenHue.bottom);
}

void drawOneButtonAlert(Pen& pen) {
    drawTile(pen, kOrangeHue);
    drawPanel(pen, kOrangeHue.bottom);
    drawButtonLine(pen, kOrangeHue.bottom);
    pen.fillRounded(CGRectMake(12, 20, 6, 1), 0.5, kOrangeHue.bottom);
}

void drawTwoButtonAlert(Pen& pen) {
    drawTile(pen, kOrangeHue);
    drawPanel(pen, kOrangeHue.bottom);
    drawButtonLine(pen, kOrangeHue.bottom);
    drawButtonDivider(pen, kOrangeHue.bottom);
    pen.fillRounded(CGRectMake(8, 20, 5, 1), 0.5, kOrangeHue.bottom);
    pen.fillRounded(CGRectMake(17, 20, 5, 1), 0.5, kOrangeHue.bottom);
}

void drawNoButtonAlert(Pen& pen) {
    drawTile(pen, kOrangeHue);
    pen.fillRounded(CGRectMake(6, 9, 18, 12), 3, kWhite);
    pen.fillRounded(CGRectMake(10, 12, 10, 2), 1, kOrangeHue.bottom);
    pen.fillRounded(CGRectMake(9, 17, 12, 1), 0.5, kOrangeHue.bottom);
}

void drawHostViewAlert(Pen& pen) {
    drawTile(pen, kOrangeHue);
    pen.strokeRounded(CGRectMake(6, 5, 18, 20), 3, 1.5, kWhite);
    pen.fillRounded(CGRectMake(10, 11, 10, 8), 2, kWhite);
}

void drawLatin(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.strokeLines({{8.5, 21.5}, {15, 8}, {21.5, 21.5}}, 2.25, kWhite);
    pen.strokeLines({{11, 17}, {19, 17}}, 2, kWhite);
}

void drawChinese(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.strokeLines({{14.5, 7}, {15.5, 9}}, 2, kWhite);
    pen.strokeLines({{7.5, 11}, {22.5, 11}}, 2, kWhite);
    pen.strokeCurve({{19, 11}, {17.5, 16.5}, {13.5, 20.5}, {8, 22.5}}, 2, kWhite);
    pen.strokeCurve({{11, 11}, {12.5, 16.5}, {16.5, 20.5}, {22, 22.5}}, 2, kWhite);
}

void drawArabic(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.strokeCurve({{18.5, 8.5}, {15.5, 6}, {11.5, 8}, {12, 10.5}, {12.3, 12.2}, {14, 13}, {18.5, 12}}, 2, kWhite);
    pen.strokeCurve({{18.5, 12}, {12, 12.8}, {9.5, 16}, {10, 19}, {10.6, 22.6}, {15, 24.2}, {20, 22}}, 2, kWhite);
}

void drawEmoji(Pen& pen) {
    drawTile(pen, kSlateHue);
    pen.fillCircle({15, 15}, 9, kWhite);
    pen.fillCircle({12, 13}, 1.5, kSlateHue.bottom);
    pen.fillCircle({18, 13}, 1.5, kSlateHue.bottom);
    pen.strokeArc({15, 15.5}, 4.5, 20, 160, 1.5, kSlateHue.bottom);
}

void drawThemeColors(Pen& pen) {
    pen.fillRounded(CGRectMake(0, 0, 30, 30), 7, kWhite);
    pen.strokeRounded(CGRectMake(0, 0, 30, 30), 7, 1, {215, 217, 215});
    pen.fillCircle({15, 10.5}, 4.5, kGreenHue.top);
    pen.fillCircle({9.5, 19.5}, 4.5, kRedHue.top);
    pen.fillCircle({20.5, 19.5}, 4.5, kOrangeHue.top);
}

void drawCheckBoxNormal(Pen& pen) { pen.strokeRounded(CGRectMake(5, 5, 20, 20), 4, 1.5, kGrey); }

void drawCheckBoxPress(Pen& pen) {
    pen.fillRounded(CGRectMake(5, 5, 20, 20), 4, kGreen);
    pen.strokeLines({{9.5, 15}, {13.25, 18.75}, {20.5, 10.75}}, 2.25, kWhite);
}

void drawSpinner(Pen& pen) { drawArcArrow(pen, {20, 20}, 13.5, 230, -28, 4, kGreen); }

/// An alert panel with a ticked box on the kit's green.
void drawApplication(Pen& pen) {
    pen.fillRoundedGradient(CGRectMake(0, 0, 120, 120), 27, {36, 212, 96}, {0, 176, 57});
    pen.fillRounded(CGRectMake(20, 26, 80, 72), 10, {0, 120, 40, 0.25});
    pen.fillRounded(CGRectMake(20, 23, 80, 72), 10, {250, 250, 250});
    pen.fillRounded(CGRectMake(38, 34, 44, 6), 3, {55, 63, 58});
    pen.fillRounded(CGRectMake(32, 48, 18, 18), 5, kGreen);
    pen.strokeLines({{36.5, 57}, {39.75, 60.25}, {45.5, 53.75}}, 2.5, kWhite);
    pen.fillRounded(CGRectMake(56, 55, 32, 4), 2, kGrey);
    const double hairline = pen.wholePixels(1);
    pen.fillRounded(CGRectMake(20, 74, 80, hairline), 0, {215, 217, 215});
    pen.fillRounded(CGRectMake(60 - hairline / 2, 74, hairline, 21), 0, {215, 217, 215});
    pen.fillRounded(CGRectMake(32, 83, 16, 4), 2, {134, 141, 137});
    pen.fillRounded(CGRectMake(72, 83, 16, 4), 2, kGreen);
}

constexpr Icon kIcons[] = {
    {"checkbox_1_normal", 30, 30, drawCheckBoxNormal},
    {"checkbox_1_press", 30, 30, drawCheckBoxPress},
    {"gallery_spinner", 40, 40, drawSpinner},
    {"icon_alert_default", 30, 30, drawDefaultAlert},
    {"icon_alert_plain", 30, 30, drawPlainAlert},
    {"icon_alert_checkbox", 30, 30, drawCheckBoxAlert},
    {"icon_alert_progress", 30, 30, drawProgressAlert},
    {"icon_alert_rotation", 30, 30, drawRotationAlert},
    {"icon_alert_textfield", 30, 30, drawTextFieldAlert},
    {"icon_alert_secure", 30, 30, drawSecureAlert},
    {"icon_alert_one_button", 30, 30, drawOneButtonAlert},
    {"icon_alert_two_buttons", 30, 30, drawTwoButtonAlert},
    {"icon_alert_no_button", 30, 30, drawNoButtonAlert},
    {"icon_alert_host_view", 30, 30, drawHostViewAlert},
    {"icon_text_latin", 30, 30, drawLatin},
    {"icon_text_chinese", 30, 30, drawChinese},
    {"icon_text_arabic", 30, 30, drawArabic},
    {"icon_text_emoji", 30, 30, drawEmoji},
    {"icon_theme_colors", 30, 30, drawThemeColors},
    {"application", 120, 120, drawApplication},
};

} // namespace

std::vector<Icon> allIcons() {
    std::vector<Icon> icons(std::begin(kIcons), std::end(kIcons));
    for (const auto more : {overlayIcons(), hudIcons(), controlIcons(), imageIcons(), screenIcons(), listIcons()})
        icons.insert(icons.end(), more.begin(), more.end());
    return icons;
}

} // namespace zr::icons
