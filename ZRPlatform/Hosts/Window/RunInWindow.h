#pragma once

#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <functional>
#include <optional>
#include <string>

#pragma GCC visibility push(default)
namespace zr {

/// How an application shows in a window of the desktop.
struct WindowOptions {
    /// The device that the application is to believe it runs on.
    DeviceProfile profile;
    /// The window's, in its title bar.
    NSString title;
    /// What is on from the start.
    DebugAids debugAids;
    /// Desktop pixels a point, 0.5..8. Nothing chooses the profile's scale when such a window fits on the desktop, else
    /// the largest whole or half number that does. The application draws at this very scale, whatever the profile says:
    /// one pixel of the frame is one pixel of the desktop, so what shows is always sharp.
    std::optional<double> windowScale;
    /// Writes what the loop does to standard error: a line for each frame ("frame 3: 1200 pixels") and each time it
    /// wakes ("wake-up 7"), and at the end "frames 3, wake-ups 7". An application at rest writes nothing.
    bool frameLog = false;
};

/// Reads `--device 320x568@2`, `--system-version 7.0`, `--window-scale 1.5`, `--frame-log`, and for debugging `--slow
/// 4` and `--show touches,borders,damage,times` (see `DebugAids`) from a command line, each also as
/// `--device=320x568@2`, and leaves everything else to the application. The title is the program's name. Nothing when a
/// value is missing or wrong: `error` is then one line that says so.
std::optional<WindowOptions> windowOptionsFromArguments(int argc, const char* const* argv, std::string& error);

/// Opens a window of the profile's size and makes the application object, calls `start`, in which the application shows
/// its own windows, and runs until the window is closed. The mouse's left button is a finger, and so are fingers.
/// Returns the program's exit code: 1, with a line on standard error, when no window can be opened or `start` returned
/// false. Main thread only.
int runInWindow(const WindowOptions& options, const std::function<bool(UIApplication*)>& start);

} // namespace zr
#pragma GCC visibility pop
