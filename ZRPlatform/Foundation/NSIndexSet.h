#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#include <set>

#pragma GCC visibility push(default)
namespace zr {

/// Indices, each once, in ascending order: the sections that a change of a list is about.
using NSIndexSet = std::set<NSInteger>;

} // namespace zr
#pragma GCC visibility pop
