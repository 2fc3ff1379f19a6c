#include <Gallery/CommandLine.h>
#include <Gallery/GalleryApplication.h>
#include <Gallery/Headless.h>
#include <Gallery/Settings/SettingsScreen.h>

#include <cstdio>
#include <string>
#include <unistd.h>
#include <vector>

using namespace zr;
using namespace zr::gallery;

namespace {

int listPages() {
    for (const Page& page : allPages())
        std::printf("%-20s %s\n", page.name, page.title);
    return 0;
}

/// The arguments that open such a window.
std::vector<std::string> argumentsFor(const WindowOptions& options) {
    const DeviceProfile& profile = options.profile;
    char device[64];
    std::snprintf(device, sizeof device, "%gx%g@%g", profile.screenSize.width, profile.screenSize.height,
                  profile.scale);
    std::vector<std::string> arguments = {"zr_gallery", "--device", device, "--system-version",
                                          profile.systemVersion.UTF8String()};
    if (options.windowScale)
        arguments.insert(arguments.end(), {"--window-scale", std::to_string(*options.windowScale)});
    if (options.frameLog)
        arguments.push_back("--frame-log");
    arguments.insert(arguments.end(), {"--slow", std::to_string(options.debugAids.slowMotion)});
    std::string shown;
    for (const DebugAidName& aid : kDebugAidNames) {
        if (options.debugAids.*(aid.shows))
            shown += (shown.empty() ? "" : ",") + std::string(aid.name);
    }
    if (!shown.empty())
        arguments.insert(arguments.end(), {"--show", shown});
    return arguments;
}

/// Starts the program anew in the place of this one, as a device is chosen at the start of a program.
int reopen(const CommandLine& options) {
    std::vector<std::string> arguments = argumentsFor(options.window);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execv("/proc/self/exe", pointers.data());
    return fail("the gallery cannot be opened anew");
}

int openWindow(const CommandLine& options) {
    std::optional<CommandLine> next;
    const int status = runInWindow(options.window, [&](UIApplication* application) {
        const auto gallery = make<GalleryApplication>(&GalleryApplication::initWithPage, options.page);
        SettingsScreen::setReopenAction([&next, &options, application](const DeviceProfile& profile) {
            next = options;
            next->window.profile = profile;
            next->window.debugAids = application->debugAids();
            application->host()->close();
        });
        return application->launch(gallery);
    });
    return next ? reopen(*next) : status;
}

} // namespace

int main(int argc, char** argv) {
    const auto [options, exitCode] = parseCommandLine(argc, argv);
    if (exitCode)
        return *exitCode;
    if (options.list)
        return listPages();
    if (!options.renderFolder.empty())
        return renderPages(options);
    if (!options.scriptPath.empty())
        return playScript(options);
    if (!options.snapshotPath.empty())
        return writeSnapshot(options);
    if (!options.overviewPath.empty())
        return writeOverview(options);
    return openWindow(options);
}
