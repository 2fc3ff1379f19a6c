#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>

#include <ostream>

namespace zr {

inline std::ostream& operator<<(std::ostream& stream, const CGPoint& point) {
    return stream << '(' << point.x << ", " << point.y << ')';
}

inline std::ostream& operator<<(std::ostream& stream, const CGSize& size) {
    return stream << size.width << " x " << size.height;
}

inline std::ostream& operator<<(std::ostream& stream, const CGRect& rect) {
    return stream << rect.origin << ' ' << rect.size;
}

} // namespace zr
