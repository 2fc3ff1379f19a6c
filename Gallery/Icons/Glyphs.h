#pragma once

#include <Gallery/Icons/Pen.h>

namespace zr::icons {

/// An arc with round ends and an arrow's head at the end it runs to. Degrees, 0 to the right, growing clockwise as
/// seen; `fromDegrees` below `toDegrees` runs clockwise, above it the other way.
void drawArcArrow(Pen& pen, CGPoint center, double radius, double fromDegrees, double toDegrees, double lineWidth,
                  Ink ink);
/// Two arrows that chase each other clockwise.
void drawExchange(Pen& pen, CGPoint center, double radius, double lineWidth, Ink ink);
/// A bulb that shines. `unit`: a twentieth of its height.
void drawBulb(Pen& pen, CGPoint center, double unit, Ink ink);

} // namespace zr::icons
