#pragma once

#include <cstddef>
#include <functional>

namespace zr::detail {

/// Calls `body` for 0..`count` - 1, each once, in any order, and returns when all have returned. The calling thread
/// works too, and alone when `isLarge` is false: to wake others for a little work costs more than it saves.
void parallelLoop(std::size_t count, bool isLarge, const std::function<void(std::size_t)>& body);

} // namespace zr::detail
