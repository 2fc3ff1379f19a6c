#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#pragma GCC visibility push(default)
namespace zr {

/// What happens to text that is wider than its place. The truncating modes wrap by words too, where there is room for
/// several lines; what does not fit the last of them is replaced by an ellipsis.
enum NSLineBreakMode : NSInteger {
    NSLineBreakByWordWrapping = 0,
    NSLineBreakByCharWrapping = 1,
    NSLineBreakByClipping = 2,
    NSLineBreakByTruncatingHead = 3,
    NSLineBreakByTruncatingTail = 4,
    NSLineBreakByTruncatingMiddle = 5,
};

/// Natural is left, or right for a paragraph that is read from right to left.
enum NSTextAlignment : NSInteger {
    NSTextAlignmentLeft = 0,
    NSTextAlignmentCenter = 1,
    NSTextAlignmentRight = 2,
    NSTextAlignmentJustified = 3,
    NSTextAlignmentNatural = 4,
};

} // namespace zr
#pragma GCC visibility pop
