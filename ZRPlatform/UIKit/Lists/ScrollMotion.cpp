#include <ZRPlatform/UIKit/Lists/Internal/ScrollMotion.h>

#include <algorithm>

namespace zr {

namespace {

constexpr NSTimeInterval kEasedDuration = 0.3;

/// 0 at 0 and 1 at 1, where it stands still; from 0..1.
CGFloat easedProgress(CGFloat part) { return part * part * (3 - 2 * part); }
CGFloat easedSpeed(CGFloat part) { return 6 * part * (1 - part); }

} // namespace

CGPoint CoastingMotion::positionAt(NSTimeInterval time) const { return {m_x.positionAt(time), m_y.positionAt(time)}; }
CGPoint CoastingMotion::velocityAt(NSTimeInterval time) const { return {m_x.velocityAt(time), m_y.velocityAt(time)}; }
NSTimeInterval CoastingMotion::duration() const { return std::max(m_x.duration, m_y.duration); }

CGPoint EasedMotion::positionAt(NSTimeInterval time) const {
    if (time >= kEasedDuration)
        return m_target;
    const CGFloat progress = easedProgress(time / kEasedDuration);
    return {m_start.x + (m_target.x - m_start.x) * progress, m_start.y + (m_target.y - m_start.y) * progress};
}

CGPoint EasedMotion::velocityAt(NSTimeInterval time) const {
    if (time >= kEasedDuration)
        return CGPointZero;
    const CGFloat speed = easedSpeed(time / kEasedDuration) / kEasedDuration;
    return {(m_target.x - m_start.x) * speed, (m_target.y - m_start.y) * speed};
}

NSTimeInterval EasedMotion::duration() const { return kEasedDuration; }

} // namespace zr
