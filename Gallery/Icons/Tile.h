#pragma once

#include <Gallery/Icons/Pen.h>

namespace zr::icons {

inline constexpr Ink kWhite{255, 255, 255};

/// Two inks of one hue, top and bottom of a gradient.
struct Hue {
    Ink top, bottom;
};
/// The kit's hues are those of its background gradients.
inline constexpr Hue kGreenHue{{0, 195, 64}, {0, 187, 61}};
inline constexpr Hue kRedHue{{255, 87, 48}, {224, 72, 37}};
inline constexpr Hue kOrangeHue{{253, 131, 0}, {229, 119, 0}};
inline constexpr Hue kSlateHue{{93, 103, 97}, {78, 87, 82}};
inline constexpr Hue kBlueHue{{36, 138, 230}, {26, 116, 202}};

/// The ground of the row icons: 30 x 30 points. A white glyph keeps to the middle 20 x 20.
inline void drawTile(Pen& pen, Hue hue) { pen.fillRoundedGradient(CGRectMake(0, 0, 30, 30), 7, hue.top, hue.bottom); }

} // namespace zr::icons
