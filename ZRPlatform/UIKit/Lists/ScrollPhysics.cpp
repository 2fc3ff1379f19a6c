#include <ZRPlatform/UIKit/Lists/Internal/ScrollPhysics.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zr {

namespace {

/// What a content beyond its end yields to a finger, at first.
constexpr CGFloat kYield = 0.55;
/// The most of the visible length that is taken for a rubber band's way: the whole of it would be an endless pull.
constexpr CGFloat kFullestBand = 0.99;
/// A spring of stiffness 100 and mass 1, damped so that it just does not swing.
constexpr CGFloat kSpringPace = 10;
/// Points a second from which on a page is turned.
constexpr CGFloat kPageTurnVelocity = 200;
/// Seconds; what is less makes no difference.
constexpr NSTimeInterval kTimeStep = 1e-4;
/// Points; a shorter indicator is not seen, unless it is squeezed.
constexpr CGFloat kShortestIndicator = 36;
constexpr CGFloat kSqueezedIndicator = 8;

/// What cannot be told from the target.
CGFloat halfAPixel(CGFloat scale) { return CGFloat(0.5) / scale; }

/// When the fading motion passes `place`, which lies on its way.
NSTimeInterval timeAt(const Approach& fading, CGFloat start, CGFloat place) {
    if (start == place)
        return 0;
    return std::max(0.0, std::log(fading.distance / (place - fading.target)) / fading.pace);
}

ScrollCourse courseOf(const Approach& approach, CGFloat scale) {
    ScrollCourse course;
    course.first = approach;
    course.target = approach.target;
    course.duration = approach.timeUntilWithin(halfAPixel(scale));
    return course;
}

/// Fades until it reaches the end, and there swings once or stops.
ScrollCourse courseIntoEnd(const Approach& fading, CGFloat start, CGFloat end, bool bounces, CGFloat scale) {
    ScrollCourse course;
    course.first = fading;
    course.target = end;
    course.turn = timeAt(fading, start, end);
    const CGFloat velocity = bounces ? fading.velocityAt(course.turn) : 0;
    course.second = Approach::springing(end, velocity, end, kSpringPace);
    course.duration = course.turn + course.second.timeUntilWithin(halfAPixel(scale));
    return course;
}

} // namespace

// Beyond the ends

CGFloat rubberBand(CGFloat pull, CGFloat length) {
    return length > 0 ? (1 - 1 / (pull * kYield / length + 1)) * length : 0;
}

CGFloat rubberBandGive(CGFloat pull, CGFloat length) {
    if (!(length > 0))
        return 0;
    const CGFloat stretch = pull * kYield / length + 1;
    return kYield / (stretch * stretch);
}

CGFloat rubberBandPull(CGFloat shown, CGFloat length) {
    if (!(length > 0))
        return 0;
    shown = std::min(shown, length * kFullestBand);
    return shown * length / (kYield * (length - shown));
}

// Approaching

Approach Approach::fading(CGFloat start, CGFloat velocity, CGFloat pace) {
    return {start + velocity / pace, -velocity / pace, 0, pace};
}

Approach Approach::springing(CGFloat start, CGFloat velocity, CGFloat target, CGFloat pace) {
    return {target, start - target, velocity + pace * (start - target), pace};
}

CGFloat Approach::positionAt(NSTimeInterval time) const {
    return target + (distance + slope * time) * std::exp(-pace * time);
}

CGFloat Approach::velocityAt(NSTimeInterval time) const {
    return (slope - pace * (distance + slope * time)) * std::exp(-pace * time);
}

NSTimeInterval Approach::timeUntilWithin(CGFloat nearness) const {
    if (slope == 0)
        return std::abs(distance) > nearness ? std::log(std::abs(distance) / nearness) / pace : 0;
    // By then each of the two parts is within half of it, as t e^(-pace t) is at most 2 / (e pace) e^(-pace t / 2).
    const CGFloat ofDistance = 2 * std::abs(distance) / nearness;
    const CGFloat ofSlope = 4 * std::abs(slope) / (nearness * pace * std::numbers::e_v<CGFloat>);
    NSTimeInterval late = std::max({0.0, std::log(ofDistance) / pace, 2 * std::log(ofSlope) / pace});
    // From its last turning point on it only comes nearer.
    NSTimeInterval early = std::clamp(1 / pace - distance / slope, 0.0, late);
    while (late - early > kTimeStep) {
        const NSTimeInterval middle = (early + late) / 2;
        (std::abs(positionAt(middle) - target) > nearness ? early : late) = middle;
    }
    return late;
}

// Courses

CGFloat ScrollCourse::positionAt(NSTimeInterval time) const {
    if (time >= duration)
        return target;
    return time < turn ? first.positionAt(time) : second.positionAt(time - turn);
}

CGFloat ScrollCourse::velocityAt(NSTimeInterval time) const {
    if (time >= duration)
        return 0;
    return time < turn ? first.velocityAt(time) : second.velocityAt(time - turn);
}

CGFloat paceOfRate(CGFloat rate) { return -1000 * std::log(rate); }

CGFloat coastTarget(CGFloat start, CGFloat velocity, CGFloat pace, const ScrollRange& range, CGFloat scale) {
    return range.nearest(velocity == 0 ? start : onWholePixel(start + velocity / pace, scale));
}

ScrollCourse coast(CGFloat start, CGFloat velocity, CGFloat pace, const ScrollRange& range, bool bounces,
                   CGFloat scale) {
    const Approach fading = Approach::fading(start, velocity, pace);
    const CGFloat target = coastTarget(start, velocity, pace, range, scale);
    if (range.contains(fading.target))
        return courseOf({target, start - target, 0, pace}, scale);
    const bool isBeyondThatEnd = start != target && (start < target) == (fading.target < target);
    return isBeyondThatEnd ? courseOf(Approach::springing(start, velocity, target, kSpringPace), scale)
                           : courseIntoEnd(fading, start, target, bounces, scale);
}

ScrollCourse settle(CGFloat start, CGFloat velocity, CGFloat target, CGFloat scale) {
    const CGFloat way = target - start;
    const bool isOnItsWay = way != 0 && velocity / way > 0;
    const CGFloat pace = isOnItsWay ? std::max(kSpringPace, velocity / way) : kSpringPace;
    return courseOf(Approach::springing(start, velocity, target, pace), scale);
}

CGFloat pageTarget(CGFloat start, CGFloat velocity, CGFloat pageLength, const ScrollRange& range) {
    if (!(pageLength > 0))
        return range.nearest(start);
    const CGFloat pages = start / pageLength;
    CGFloat page = std::round(pages);
    if (velocity >= kPageTurnVelocity)
        page = std::floor(pages) + 1;
    else if (velocity <= -kPageTurnVelocity)
        page = std::ceil(pages) - 1;
    return range.nearest(page * pageLength);
}

CGFloat onWholePixel(CGFloat offset, CGFloat scale) { return std::floor(offset * scale + CGFloat(0.5)) / scale; }

// Indicators

IndicatorSpan indicatorSpan(CGFloat wayLength, CGFloat visible, const ScrollRange& range, CGFloat offset) {
    if (!(wayLength > 0) || !(visible > 0))
        return {};
    const CGFloat part = visible / (visible + range.length());
    const CGFloat full = std::min(std::max(wayLength * part, kShortestIndicator), wayLength);
    const CGFloat beyond = std::abs(offset - range.nearest(offset));
    const CGFloat length = std::max(full - beyond, std::min(kSqueezedIndicator, full));
    const CGFloat progress =
        range.length() > 0 ? (range.nearest(offset) - range.first) / range.length() : (offset > range.first ? 1 : 0);
    return {(wayLength - length) * progress, length};
}

} // namespace zr
