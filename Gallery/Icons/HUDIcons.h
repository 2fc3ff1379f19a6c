#pragma once

#include <Gallery/Icons/Icons.h>

#include <span>

namespace zr::icons {

/// Those of the pages about the progress HUD.
std::span<const Icon> hudIcons();

} // namespace zr::icons
