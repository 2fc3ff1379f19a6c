#pragma once

#include <functional>

namespace zr::detail {

inline constexpr int kPriorityCount = 4;

/// Hands `block` over to the worker threads of the process. Of the blocks that wait, a worker takes the earliest of the
/// highest priority; `priority` is 0 (highest) to `kPriorityCount` - 1.
void runOnWorker(int priority, std::function<void()> block);

} // namespace zr::detail
