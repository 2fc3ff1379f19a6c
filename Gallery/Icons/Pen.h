#pragma once

#include <ZRPlatform/CoreGraphics/CoreGraphics.h>

#include <vector>

namespace zr::icons {

/// Colour components 0..255.
struct Ink {
    int red, green, blue;
    double alpha = 1;
};

/// Draws one picture at one scale. Lengths are points from the top left corner, y downwards; shapes are moved and
/// widened to whole pixels where that keeps an edge crisp.
class Pen {
public:
    /// Points, and pixels a point.
    Pen(double width, double height, int scale);

    double width() const { return m_width; }
    double height() const { return m_height; }
    /// The width nearest to `points` that is a whole number of pixels, at least one.
    double wholePixels(double points) const;

    void fillRounded(CGRect rect, double radius, Ink ink);
    /// From the first ink at the top to the second one at the bottom.
    void fillRoundedGradient(CGRect rect, double radius, Ink top, Ink bottom);
    /// The line lies inside `rect`, its outer edge on the rectangle's.
    void strokeRounded(CGRect rect, double radius, double lineWidth, Ink ink);
    void fillCircle(CGPoint center, double radius, Ink ink);
    /// Joined lines with round ends.
    void strokeLines(const std::vector<CGPoint>& points, double lineWidth, Ink ink);
    void fillPolygon(const std::vector<CGPoint>& points, Ink ink);
    /// Degrees, 0 to the right, growing clockwise as seen; round ends.
    void strokeArc(CGPoint center, double radius, double fromDegrees, double toDegrees, double lineWidth, Ink ink);
    /// Cubic curves: a start, then three points for each curve. Round ends.
    void strokeCurve(const std::vector<CGPoint>& points, double lineWidth, Ink ink);

    Ref<CGImage> image() const;

private:
    void setFill(Ink ink);
    void setStroke(Ink ink, double lineWidth);
    void addRounded(CGRect rect, double radius);

    double m_width;
    double m_height;
    int m_scale;
    Ref<CGContext> m_context;
};

} // namespace zr::icons
