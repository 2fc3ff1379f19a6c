#pragma once

#include <Gallery/Pages/Page.h>
#include <ZRPlatform/Hosts/Window/RunInWindow.h>

#include <optional>
#include <string>

namespace zr::gallery {

/// What the program was asked to do.
struct CommandLine {
    /// What every application takes; profile and debugging aids without a window too.
    WindowOptions window;
    /// Null: the list.
    const Page* page = nullptr;
    bool list = false;
    /// Folder and files; empty when not asked for. At most one of the four is given.
    std::string renderFolder;
    std::string scriptPath;
    std::string snapshotPath;
    std::string overviewPath;
};

/// The parsed arguments, or the program's exit code: 0 once the help was printed, 2 for arguments that make no sense,
/// which one line on standard error then explains.
struct ParsedCommandLine {
    CommandLine options;
    std::optional<int> exitCode;
};

ParsedCommandLine parseCommandLine(int argc, char** argv);

/// Prints one line on standard error and returns the exit code that goes with it.
int fail(const std::string& message);

} // namespace zr::gallery
