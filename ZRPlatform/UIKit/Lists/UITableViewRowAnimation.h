#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#pragma GCC visibility push(default)
namespace zr {

/// How a row that is inserted comes, and how one that is deleted goes: the other way.
enum UITableViewRowAnimation : NSInteger {
    UITableViewRowAnimationFade,
    /// In from the right, out to the right; and so on.
    UITableViewRowAnimationRight,
    UITableViewRowAnimationLeft,
    UITableViewRowAnimationTop,
    UITableViewRowAnimationBottom,
    /// At once.
    UITableViewRowAnimationNone,
    /// Opens from the middle of its place, and closes there.
    UITableViewRowAnimationMiddle,
    /// The list chooses: fade.
    UITableViewRowAnimationAutomatic = 100,
};

} // namespace zr
#pragma GCC visibility pop
