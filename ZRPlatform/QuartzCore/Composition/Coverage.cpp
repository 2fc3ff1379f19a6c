#include <ZRPlatform/QuartzCore/Composition/Internal/Coverage.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace zr {

// Every edge adds, to each row it crosses, the area between it and the right border, as differences from pixel to
// pixel; summing up a row from the left then gives the covered area of each pixel.

void Coverage::begin(PixelRect area) {
    m_area = area;
    m_stride = (area.width + 3) / 4 * 4;
    m_sums.assign(static_cast<std::size_t>(area.width + 2) * area.height, 0);
}

void Coverage::addPolygon(const std::vector<CGPoint>& points) {
    for (std::size_t i = 0; i < points.size(); ++i)
        addEdge(points[i], points[(i + 1) % points.size()]);
}

void Coverage::addEdge(CGPoint from, CGPoint to) {
    double x0 = from.x - m_area.x, y0 = from.y - m_area.y;
    double x1 = to.x - m_area.x, y1 = to.y - m_area.y;
    if (y0 == y1)
        return;
    const double direction = y0 < y1 ? 1 : -1;
    if (direction < 0) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const double slope = (x1 - x0) / (y1 - y0);
    const int firstRow = static_cast<int>(std::clamp<double>(std::floor(y0), 0, m_area.height));
    const int lastRow = static_cast<int>(std::clamp<double>(std::ceil(y1), 0, m_area.height));
    for (int row = firstRow; row < lastRow; ++row) {
        const double top = std::max<double>(row, y0), bottom = std::min<double>(row + 1, y1);
        addSpan(&m_sums[static_cast<std::size_t>(row) * (m_area.width + 2)], x0 + (top - y0) * slope,
                x0 + (bottom - y0) * slope, (bottom - top) * direction);
    }
}

/// The part of an edge inside one row. Beyond the area's left and right borders only its height counts.
void Coverage::addSpan(float* row, double x0, double x1, double height) {
    if (x0 > x1)
        std::swap(x0, x1);
    const double width = m_area.width;
    for (double border : {0.0, width}) {
        if (x0 < border && x1 > border) {
            const double part = height * (border - x0) / (x1 - x0);
            addSpan(row, x0, border, part);
            addSpan(row, border, x1, height - part);
            return;
        }
    }
    x0 = std::clamp(x0, 0.0, width);
    x1 = std::clamp(x1, 0.0, width);
    const int first = static_cast<int>(x0);
    const int last = static_cast<int>(x1);
    if (first == last) {
        const double right = 1 - ((x0 + x1) / 2 - first);
        row[first] += static_cast<float>(height * right);
        row[first + 1] += static_cast<float>(height * (1 - right));
        return;
    }
    // The covered area of each pixel the span crosses, as a difference from the pixel before it.
    const double perPixel = height / (x1 - x0);
    double before = 0;
    for (int x = first; x <= last; ++x) {
        const double from = std::max<double>(x, x0), to = std::min<double>(x + 1, x1);
        const double crossed = perPixel * (to - from);
        const double passed = perPixel * (from - x0);
        const double area = passed + crossed * (1 - ((from + to) / 2 - x));
        row[x] += static_cast<float>(area - before);
        before = area;
    }
    row[last + 1] += static_cast<float>(height - before);
}

const std::uint8_t* Coverage::finish(float opacity) {
    m_bytes.resize(static_cast<std::size_t>(m_stride) * m_area.height);
    const float full = 255 * opacity;
    // Above one half by more than the sums' rounding errors, so that half of 255 always goes the same way.
    const float half = 0.5f + 1.0f / 512;
    for (int y = 0; y < m_area.height; ++y) {
        const float* sums = &m_sums[static_cast<std::size_t>(y) * (m_area.width + 2)];
        std::uint8_t* bytes = &m_bytes[static_cast<std::size_t>(y) * m_stride];
        float sum = 0;
        for (int x = 0; x < m_area.width;) {
            sum += sums[x];
            const auto byte = static_cast<std::uint8_t>(std::min(std::fabs(sum), 1.0f) * full + half);
            // Between two edges nothing changes.
            const int start = x++;
            while (x < m_area.width && sums[x] == 0)
                ++x;
            std::memset(bytes + start, byte, x - start);
        }
    }
    return m_bytes.data();
}

std::vector<CGPoint> roundedRectOutline(CGRect rect, CGFloat radius, bool clockwise, CGFloat tolerance) {
    const CGFloat left = rect.origin.x, top = rect.origin.y;
    const CGFloat right = left + rect.size.width, bottom = top + rect.size.height;
    std::vector<CGPoint> points;
    if (!(radius > 0)) {
        points = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    } else {
        // A chord over the angle a is radius * (1 - cos(a / 2)) away from its arc.
        const double quarter = std::numbers::pi / 2;
        const double step = 2 * std::acos(std::max(0.0, 1 - tolerance / std::max<double>(radius, tolerance)));
        const int steps = std::clamp(static_cast<int>(std::ceil(quarter / std::max(step, 1e-3))), 2, 64);
        const CGPoint centers[] = {{right - radius, top + radius},
                                   {right - radius, bottom - radius},
                                   {left + radius, bottom - radius},
                                   {left + radius, top + radius}};
        for (int corner = 0; corner < 4; ++corner) {
            for (int i = 0; i <= steps; ++i) {
                const double angle = (corner - 1 + double(i) / steps) * quarter;
                points.push_back({CGFloat(centers[corner].x + radius * std::cos(angle)),
                                  CGFloat(centers[corner].y + radius * std::sin(angle))});
            }
        }
    }
    if (!clockwise)
        std::reverse(points.begin(), points.end());
    return points;
}

} // namespace zr
