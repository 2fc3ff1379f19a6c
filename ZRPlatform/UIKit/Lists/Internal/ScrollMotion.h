#pragma once

#include <ZRPlatform/UIKit/Lists/Internal/ScrollPhysics.h>

namespace zr {

/// How an offset moves by itself, as a function of the seconds since it began. Looked at more or less often, it takes
/// the same way.
class ScrollMotion {
public:
    virtual ~ScrollMotion() = default;
    /// The target exactly, from `duration` on.
    virtual CGPoint positionAt(NSTimeInterval time) const = 0;
    /// Points a second.
    virtual CGPoint velocityAt(NSTimeInterval time) const = 0;
    virtual NSTimeInterval duration() const = 0;
    virtual CGPoint target() const = 0;
};

/// After a finger: each coordinate on a course of its own.
class CoastingMotion : public ScrollMotion {
public:
    CoastingMotion(const ScrollCourse& x, const ScrollCourse& y) : m_x(x), m_y(y) {}
    CGPoint positionAt(NSTimeInterval time) const override;
    CGPoint velocityAt(NSTimeInterval time) const override;
    NSTimeInterval duration() const override;
    CGPoint target() const override { return {m_x.target, m_y.target}; }

private:
    ScrollCourse m_x;
    ScrollCourse m_y;
};

/// By code: begins and ends gently, straight to the target.
class EasedMotion : public ScrollMotion {
public:
    EasedMotion(CGPoint start, CGPoint target) : m_start(start), m_target(target) {}
    CGPoint positionAt(NSTimeInterval time) const override;
    CGPoint velocityAt(NSTimeInterval time) const override;
    NSTimeInterval duration() const override;
    CGPoint target() const override { return m_target; }

private:
    CGPoint m_start;
    CGPoint m_target;
};

} // namespace zr
