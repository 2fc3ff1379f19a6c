#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#pragma GCC visibility push(default)
namespace zr {

/// A signed integer as wide as a pointer.
using NSInteger = std::ptrdiff_t;
/// An unsigned integer as wide as a pointer.
using NSUInteger = std::size_t;
/// A length of time in seconds.
using NSTimeInterval = double;

/// "Not found", where a position is asked for.
inline constexpr NSInteger NSNotFound = std::numeric_limits<NSInteger>::max();

/// Whether the first comes before the second, with it, or after it.
enum NSComparisonResult : NSInteger { NSOrderedAscending = -1, NSOrderedSame = 0, NSOrderedDescending = 1 };

/// A run of UTF-16 code units in a string: first index and count.
struct NSRange {
    /// The first index.
    NSUInteger location = 0;
    /// How many there are.
    NSUInteger length = 0;

    friend bool operator==(const NSRange&, const NSRange&) = default;
};

/// Of the first index and the count.
inline constexpr NSRange NSMakeRange(NSUInteger location, NSUInteger length) { return {location, length}; }
/// The first index behind the range.
inline constexpr NSUInteger NSMaxRange(NSRange range) { return range.location + range.length; }

} // namespace zr
#pragma GCC visibility pop
