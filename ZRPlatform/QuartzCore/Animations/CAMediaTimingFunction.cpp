#include <ZRPlatform/QuartzCore/Animations/CAMediaTimingFunction.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zr {

namespace {

struct NamedCurve {
    const char* name;
    CGFloat x1, y1, x2, y2;
};

constexpr NamedCurve kCurves[] = {
    {kCAMediaTimingFunctionLinear, 0, 0, 1, 1},          {kCAMediaTimingFunctionEaseIn, 0.42, 0, 1, 1},
    {kCAMediaTimingFunctionEaseOut, 0, 0, 0.58, 1},      {kCAMediaTimingFunctionEaseInEaseOut, 0.42, 0, 0.58, 1},
    {kCAMediaTimingFunctionDefault, 0.25, 0.1, 0.25, 1},
};

/// One coordinate of the curve from 0 to 1 with inner control values a and b.
CGFloat bezier(CGFloat a, CGFloat b, CGFloat s) {
    const CGFloat r = 1 - s;
    return 3 * r * r * s * a + 3 * r * s * s * b + s * s * s;
}

CGFloat bezierSlope(CGFloat a, CGFloat b, CGFloat s) {
    const CGFloat r = 1 - s;
    return 3 * r * r * a + 6 * r * s * (b - a) + 3 * s * s * (1 - b);
}

} // namespace

Ref<CAMediaTimingFunction> CAMediaTimingFunction::functionWithName(const NSString& name) {
    const auto* curve = std::find_if(std::begin(kCurves), std::end(kCurves),
                                     [&](const NamedCurve& c) { return name.isEqualToString(c.name); });
    if (curve == std::end(kCurves))
        curve = kCurves;
    return make<CAMediaTimingFunction>(&CAMediaTimingFunction::initWithControlPoints, curve->x1, curve->y1, curve->x2,
                                       curve->y2);
}

bool CAMediaTimingFunction::initWithControlPoints(CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2) {
    m_first = {std::clamp<CGFloat>(x1, 0, 1), y1};
    m_second = {std::clamp<CGFloat>(x2, 0, 1), y2};
    return init();
}

CGFloat CAMediaTimingFunction::valueAtTime(CGFloat time) const {
    if (!(time > 0))
        return 0;
    if (time >= 1)
        return 1;
    if (m_first.x == m_first.y && m_second.x == m_second.y)
        return time;
    // Newton's method, kept inside a shrinking bracket so that a flat stretch cannot throw it out.
    CGFloat low = 0, high = 1, s = time;
    for (int i = 0; i < 50; ++i) {
        const CGFloat error = bezier(m_first.x, m_second.x, s) - time;
        if (std::fabs(error) < 1e-12)
            break;
        (error > 0 ? high : low) = s;
        const CGFloat slope = bezierSlope(m_first.x, m_second.x, s);
        const CGFloat next = s - error / slope;
        s = next > low && next < high ? next : (low + high) / 2;
    }
    return bezier(m_first.y, m_second.y, s);
}

} // namespace zr
