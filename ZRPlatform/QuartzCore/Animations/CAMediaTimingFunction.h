#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>

#pragma GCC visibility push(default)
namespace zr {

/// The same pace all the way.
inline constexpr const char* kCAMediaTimingFunctionLinear = "linear";
/// Begins slowly.
inline constexpr const char* kCAMediaTimingFunctionEaseIn = "easeIn";
/// Ends slowly.
inline constexpr const char* kCAMediaTimingFunctionEaseOut = "easeOut";
/// Begins and ends slowly.
inline constexpr const char* kCAMediaTimingFunctionEaseInEaseOut = "easeInEaseOut";
/// Soon at full speed, and ends slowly.
inline constexpr const char* kCAMediaTimingFunctionDefault = "default";

/// A pace: a cubic Bézier curve from (0, 0) to (1, 1), time across and progress up.
class CAMediaTimingFunction : public NSObject {
public:
    /// One of the paces above; linear for an unknown name.
    static Ref<CAMediaTimingFunction> functionWithName(const NSString& name);
    /// The two inner control points; x values are cut to 0..1.
    bool initWithControlPoints(CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2);

    /// Progress at `time`, both 0..1.
    CGFloat valueAtTime(CGFloat time) const;

private:
    CGPoint m_first{0, 0};
    CGPoint m_second{1, 1};
};

} // namespace zr
#pragma GCC visibility pop
