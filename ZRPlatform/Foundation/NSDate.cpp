#include <ZRPlatform/Foundation/NSDate.h>

#include <limits>

namespace zr {

namespace {

constexpr Nanoseconds kLatest = std::numeric_limits<Nanoseconds>::max();
constexpr Nanoseconds kEarliest = std::numeric_limits<Nanoseconds>::min();

Nanoseconds saturatedSum(Nanoseconds a, Nanoseconds b) {
    Nanoseconds sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        return a > 0 ? kLatest : kEarliest;
    return sum;
}

Nanoseconds saturatedDifference(Nanoseconds a, Nanoseconds b) {
    Nanoseconds difference = 0;
    if (__builtin_sub_overflow(a, b, &difference))
        return a > b ? kLatest : kEarliest;
    return difference;
}

Nanoseconds presentTime() {
    const Clock& clock = Clock::current();
    return clock.now() + clock.offsetToReferenceDate();
}

} // namespace

Ref<NSDate> NSDate::dateWithTime(Nanoseconds time) {
    auto date = make<NSDate>();
    date->m_time = time;
    return date;
}

Ref<NSDate> NSDate::date() { return dateWithTime(presentTime()); }

Ref<NSDate> NSDate::dateWithTimeIntervalSinceNow(NSTimeInterval seconds) {
    return dateWithTime(saturatedSum(presentTime(), nanosecondsFromSeconds(seconds)));
}

bool NSDate::initWithTimeIntervalSinceReferenceDate(NSTimeInterval seconds) {
    if (!NSObject::init())
        return false;
    m_time = nanosecondsFromSeconds(seconds);
    return true;
}

NSTimeInterval NSDate::timeIntervalSinceDate(const NSDate* other) const {
    return other ? secondsFromNanoseconds(saturatedDifference(m_time, other->m_time)) : 0;
}

NSTimeInterval NSDate::timeIntervalSinceNow() const {
    return secondsFromNanoseconds(saturatedDifference(m_time, presentTime()));
}

NSTimeInterval NSDate::timeIntervalSinceReferenceDate() const { return secondsFromNanoseconds(m_time); }

Ref<NSDate> NSDate::dateByAddingTimeInterval(NSTimeInterval seconds) const {
    return dateWithTime(saturatedSum(m_time, nanosecondsFromSeconds(seconds)));
}

NSComparisonResult NSDate::compare(const NSDate* other) const {
    if (!other || m_time == other->m_time)
        return NSOrderedSame;
    return m_time < other->m_time ? NSOrderedAscending : NSOrderedDescending;
}

bool NSDate::isEqual(const NSObject* other) const {
    const auto* date = dynamic_cast<const NSDate*>(other);
    return date && date->m_time == m_time;
}

} // namespace zr
