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
    /// From left to right.
    CGFloat x = 0;
    /// Downwards in views, upwards in device space.
    CGFloat y = 0;
    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

/// A width and a height; either may be negative.
struct CGSize {
    /// Along x.
    CGFloat width = 0;
    /// Along y.
    CGFloat height = 0;
    friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// Origin and size. Negative sizes are allowed: every function below reads the rectangle as if standardised.
struct CGRect {
    /// The corner that the size starts from: of the least x and y, where the size is not negative.
    CGPoint origin;
    /// How far it reaches from there.
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

/// The place at (x, y).
inline constexpr CGPoint CGPointMake(CGFloat x, CGFloat y) { return {x, y}; }
/// Of numbers taken as they are, negative ones too.
inline constexpr CGSize CGSizeMake(CGFloat width, CGFloat height) { return {width, height}; }
/// Of numbers taken as they are, negative sizes too.
inline constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

/// Number by number, exactly.
inline bool CGPointEqualToPoint(CGPoint a, CGPoint b) { return a == b; }
/// Number by number, exactly.
inline bool CGSizeEqualToSize(CGSize a, CGSize b) { return a == b; }

/// The left edge, the lesser x, whatever the sign of the width.
inline CGFloat CGRectGetMinX(CGRect rect) { return std::fmin(rect.origin.x, rect.origin.x + rect.size.width); }
/// Half way between the left and the right edge.
inline CGFloat CGRectGetMidX(CGRect rect) { return rect.origin.x + rect.size.width * CGFloat(0.5); }
/// The right edge, the greater x.
inline CGFloat CGRectGetMaxX(CGRect rect) { return std::fmax(rect.origin.x, rect.origin.x + rect.size.width); }
/// The edge of the lesser y: the top in views.
inline CGFloat CGRectGetMinY(CGRect rect) { return std::fmin(rect.origin.y, rect.origin.y + rect.size.height); }
/// Half way between the top and the bottom edge.
inline CGFloat CGRectGetMidY(CGRect rect) { return rect.origin.y + rect.size.height * CGFloat(0.5); }
/// The edge of the greater y: the bottom in views.
inline CGFloat CGRectGetMaxY(CGRect rect) { return std::fmax(rect.origin.y, rect.origin.y + rect.size.height); }
/// Never negative.
inline CGFloat CGRectGetWidth(CGRect rect) { return std::fabs(rect.size.width); }
/// Never negative.
inline CGFloat CGRectGetHeight(CGRect rect) { return std::fabs(rect.size.height); }

/// The same rectangle with sizes that are not negative.
CGRect CGRectStandardize(CGRect rect);
/// Whether this is `CGRectNull`.
bool CGRectIsNull(CGRect rect);
/// Null, or of no width or no height. (A negative size is not empty: it is standardised first.)
bool CGRectIsEmpty(CGRect rect);
/// Whether every number is finite.
bool CGRectIsFinite(CGRect rect);
/// Whether they are the same once standardised, exactly.
bool CGRectEqualToRect(CGRect a, CGRect b);
/// Moved in by (dx, dy) on each side; out for negative values. `CGRectNull` when nothing is left.
CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy);
/// Moved by (dx, dy), and standardised. `CGRectNull` stays null.
CGRect CGRectOffset(CGRect rect, CGFloat dx, CGFloat dy);
/// The smallest rectangle with whole-number edges around this one.
CGRect CGRectIntegral(CGRect rect);
/// The smallest rectangle around both; a null one adds nothing.
CGRect CGRectUnion(CGRect a, CGRect b);
/// `CGRectNull` when they do not meet; an empty rectangle when they only touch.
CGRect CGRectIntersection(CGRect a, CGRect b);
/// Whether they have more in common than an edge. Never for null, or where a number is none.
bool CGRectIntersectsRect(CGRect a, CGRect b);
/// Left and top edges count as inside, right and bottom ones do not.
bool CGRectContainsPoint(CGRect rect, CGPoint point);
/// Whether the inner one reaches over no edge of the outer; an equal one is inside. Never for null, or where a number
/// is none.
bool CGRectContainsRect(CGRect outer, CGRect inner);

} // namespace zr
#pragma GCC visibility pop
