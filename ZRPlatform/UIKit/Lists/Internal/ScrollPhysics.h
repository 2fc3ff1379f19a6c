#pragma once

#include <ZRPlatform/UIKit/Lists/Internal/ScrollRange.h>

#include <limits>

namespace zr {

/// @name Beyond the ends
/// A pull is how far a finger has gone beyond an end, the shown way how far the content has followed. It never follows
/// as far as the visible length.
/// @{
CGFloat rubberBand(CGFloat pull, CGFloat length);
/// How much further the content goes for each point of the finger.
CGFloat rubberBandGive(CGFloat pull, CGFloat length);
/// The pull that shows so far; finite for any finite way.
CGFloat rubberBandPull(CGFloat shown, CGFloat length);
/// @}

/// Goes from one place to rest at another: target + (distance + slope t) e^(-pace t), t in seconds. With a slope of
/// minus pace times distance it is a critically damped spring let go of at rest; without a slope, velocity fades
/// evenly.
struct Approach {
    CGFloat target = 0;
    CGFloat distance = 0;
    CGFloat slope = 0;
    CGFloat pace = 1;

    /// Points a second, `pace` a second.
    static Approach fading(CGFloat start, CGFloat velocity, CGFloat pace);
    static Approach springing(CGFloat start, CGFloat velocity, CGFloat target, CGFloat pace);

    CGFloat positionAt(NSTimeInterval time) const;
    CGFloat velocityAt(NSTimeInterval time) const;
    /// After so long it is nearer to its target than `nearness`, for good.
    NSTimeInterval timeUntilWithin(CGFloat nearness) const;
};

/// How one coordinate of an offset comes to rest.
struct ScrollCourse {
    Approach first;
    /// Takes over at `turn`, the end that is reached before the first one has come to rest.
    Approach second;
    NSTimeInterval turn = std::numeric_limits<NSTimeInterval>::infinity();
    CGFloat target = 0;
    /// From then on it is at the target exactly.
    NSTimeInterval duration = 0;

    CGFloat positionAt(NSTimeInterval time) const;
    CGFloat velocityAt(NSTimeInterval time) const;
};

/// How much a velocity fades a second when `rate` of it is left after a millisecond.
CGFloat paceOfRate(CGFloat rate);
/// Where it comes to rest: on a whole pixel (`scale` a point), or at an end.
CGFloat coastTarget(CGFloat start, CGFloat velocity, CGFloat pace, const ScrollRange& range, CGFloat scale);
/// Fades out within the range; at an end it springs back, or stops there. From beyond an end it springs back, unless it
/// is fast enough to come to rest within the range.
ScrollCourse coast(CGFloat start, CGFloat velocity, CGFloat pace, const ScrollRange& range, bool bounces,
                   CGFloat scale);
/// Goes to `target` without passing it, if it is not moving away from it.
ScrollCourse settle(CGFloat start, CGFloat velocity, CGFloat target, CGFloat scale);
/// The page of that length to come to rest at: the nearest one, or the next one in the direction of a velocity (points
/// a second) that is fast enough. Any offset when pages have no length.
CGFloat pageTarget(CGFloat start, CGFloat velocity, CGFloat pageLength, const ScrollRange& range);

/// To the nearest of the pixels, `scale` a point.
CGFloat onWholePixel(CGFloat offset, CGFloat scale);

/// A scroll indicator along its way.
struct IndicatorSpan {
    CGFloat start = 0;
    CGFloat length = 0;
};
/// On a way of `wayLength`, for a visible length in a content that scrolls by `range`. Beyond the ends it is squeezed.
IndicatorSpan indicatorSpan(CGFloat wayLength, CGFloat visible, const ScrollRange& range, CGFloat offset);

} // namespace zr
