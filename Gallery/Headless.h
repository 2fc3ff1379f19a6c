#pragma once

#include <Gallery/CommandLine.h>

namespace zr::gallery {

/// What the program does without a window. Each prints a line for every file it writes, and returns the exit code.
/// @{
int renderPages(const CommandLine& options);
int playScript(const CommandLine& options);
int writeSnapshot(const CommandLine& options);
int writeOverview(const CommandLine& options);
/// @}

} // namespace zr::gallery
