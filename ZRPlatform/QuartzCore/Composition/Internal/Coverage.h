#pragma once

#include <ZRPlatform/QuartzCore/Composition/Compositor.h>

#include <cstdint>
#include <vector>

namespace zr {

/// How much of each pixel of an area a shape covers, 0..255: exact areas, not samples.
class Coverage {
public:
    /// Starts with an empty shape.
    void begin(PixelRect area);
    /// Adds a closed polygon, in pixels. A second one that runs the other way round is a hole.
    void addPolygon(const std::vector<CGPoint>& points);
    /// The rows, each `stride` bytes long, scaled by `opacity` (0..1). Valid until the next `begin`.
    const std::uint8_t* finish(float opacity);
    int stride() const { return m_stride; }

private:
    void addEdge(CGPoint from, CGPoint to);
    void addSpan(float* row, double x0, double x1, double height);

    PixelRect m_area;
    int m_stride = 0;
    std::vector<float> m_sums;
    std::vector<std::uint8_t> m_bytes;
};

/// The outline of a rectangle with rounded corners, clockwise (on a screen) or the other way round. `tolerance`: how
/// far, in the rectangle's unit, the outline may be from the true arcs.
std::vector<CGPoint> roundedRectOutline(CGRect rect, CGFloat radius, bool clockwise, CGFloat tolerance);

} // namespace zr
