#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#include <cmath>
#include <limits>

#pragma GCC visibility push(default)
namespace zr {

/// A length or coordinate: 64-bit on 64-bit builds, 32-bit on 32-bit ones.
#if INTPTR_MAX == INT64_MAX
using CGFloat = double;
#else
using CGFloat = float;
#endif

/// A place: x to the right, y downwards in views and upwards in device space.
struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;
    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

/// A width and a height; either may be negative.
struct CGSize {
    CGFloat width = 0;
    CGFloat height = 0;
    friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// Origin and size. Negative sizes are allowed: every function below reads the rectangle as if standardised.
struct CGRect {
    CGPoint origin;
    CGSize size;
    friend bool operator==(const CGRect&, const CGRect&) = default;
};

/// All numbers are 0.
inline constexpr CGPoint CGPointZero{};
/// All numbers are 0.
inline constexpr CGSize CGSizeZero{};
/// All numbers are 0.
inline constexpr CGRect CGRectZero{};
/// "No rectangle": the intersection of rectangles that do not meet.
inline constexpr CGRect CGRectNull{{std::numeric_limits<CGFloat>::infinity(), std::numeric_limits<CGFloat>::infinity()},
                                   {0, 0}};

/// Of numbers taken as they are.
inline constexpr CGPoint CGPointMake(CGFloat x, CGFloat y) { return {x, y}; }
/// Of numbers taken as they are.
inline constexpr CGSize CGSizeMake(CGFloat width, CGFloat height) { return {width, height}; }
/// Of numbers taken as they are.
inline constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

/// Number by number, exactly.
inline bool CGPointEqualToPoint(CGPoint a, CGPoint b) { return a == b; }
inline bool CGSizeEqualToSize(CGSize a, CGSize b) { return a == b; }

/// Edges, middles and sides of the rectangle as if standardised: sides are never negative.
inline CGFloat CGRectGetMinX(CGRect rect) { return std::fmin(rect.origin.x, rect.origin.x + rect.size.width); }
inline CGFloat CGRectGetMidX(CGRect rect) { return rect.origin.x + rect.size.width * CGFloat(0.5); }
inline CGFloat CGRectGetMaxX(CGRect rect) { return std::fmax(rect.origin.x, rect.origin.x + rect.size.width); }
inline CGFloat CGRectGetMinY(CGRect rect) { return std::fmin(rect.origin.y, rect.origin.y + rect.size.height); }
inline CGFloat CGRectGetMidY(CGRect rect) { return rect.origin.y + rect.size.height * CGFloat(0.5); }
inline CGFloat CGRectGetMaxY(CGRect rect) { return std::fmax(rect.origin.y, rect.origin.y + rect.size.height); }
inline CGFloat CGRectGetWidth(CGRect rect) { return std::fabs(rect.size.width); }
inline CGFloat CGRectGetHeight(CGRect rect) { return std::fabs(rect.size.height); }

/// The same rectangle with sizes that are not negative.
CGRect CGRectStandardize(CGRect rect);
/// Whether this is `CGRectNull`.
bool CGRectIsNull(CGRect rect);
/// Null, or of no width or no height. (A negative size is not empty: it is standardised first.)
bool CGRectIsEmpty(CGRect rect);
/// Whether every number is finite.
bool CGRectIsFinite(CGRect rect);
bool CGRectEqualToRect(CGRect a, CGRect b);
/// Moved in by (dx, dy) on each side; out for negative values. `CGRectNull` when nothing is left.
CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy);
CGRect CGRectOffset(CGRect rect, CGFloat dx, CGFloat dy);
/// The smallest rectangle with whole-number edges around this one.
CGRect CGRectIntegral(CGRect rect);
/// The smallest rectangle around both; a null one adds nothing.
CGRect CGRectUnion(CGRect a, CGRect b);
/// `CGRectNull` when they do not meet; an empty rectangle when they only touch.
CGRect CGRectIntersection(CGRect a, CGRect b);
bool CGRectIntersectsRect(CGRect a, CGRect b);
/// Left and top edges count as inside, right and bottom ones do not.
bool CGRectContainsPoint(CGRect rect, CGPoint point);
bool CGRectContainsRect(CGRect outer, CGRect inner);

} // namespace zr
#pragma GCC visibility pop
