#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Foundation/NSObject.h>

#pragma GCC visibility push(default)
namespace zr {

/// A moment, exact to the nanosecond, on the current clock. With a manual clock, time 0 is 1 January 2001.
class NSDate : public NSObject {
public:
    /// Now.
    static Ref<NSDate> date();
    /// `seconds` from now; may be negative.
    static Ref<NSDate> dateWithTimeIntervalSinceNow(NSTimeInterval seconds);
    /// `seconds` from 1 January 2001; may be negative.
    bool initWithTimeIntervalSinceReferenceDate(NSTimeInterval seconds);

    /// Seconds from `other` to this date; 0 when `other` is nil.
    NSTimeInterval timeIntervalSinceDate(const NSDate* other) const;
    /// Seconds from now to this date; negative when it is past.
    NSTimeInterval timeIntervalSinceNow() const;
    /// Seconds since 1 January 2001.
    NSTimeInterval timeIntervalSinceReferenceDate() const;
    /// `seconds` later, or earlier when negative.
    Ref<NSDate> dateByAddingTimeInterval(NSTimeInterval seconds) const;
    /// Which of the two comes first.
    NSComparisonResult compare(const NSDate* other) const;

    /// Whether it is the same moment.
    bool isEqual(const NSObject* other) const override;

private:
    static Ref<NSDate> dateWithTime(Nanoseconds time);

    Nanoseconds m_time = 0; // since 1 January 2001
};

} // namespace zr
#pragma GCC visibility pop
