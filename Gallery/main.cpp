#include <Gallery/CommandLine.h>
#include <Gallery/GalleryApplication.h>
#include <Gallery/Headless.h>
#include <ZRPlatform/Hosts/Window/RunInWindow.h>

#include <cstdio>

using namespace zr;
using namespace zr::gallery;

namespace {

int listPages() {
    for (const Page& page : allPages())
        std::printf("%-20s %s\n", page.name, page.title);
    return 0;
}

int openWindow(const CommandLine& options) {
    WindowOptions windowOptions;
    windowOptions.profile = options.profile;
    windowOptions.title = "Gallery";
    windowOptions.windowScale = options.windowScale;
    windowOptions.frameLog = options.frameLog;
    return runInWindow(windowOptions, [&](UIApplication* application) {
        const auto gallery = make<GalleryApplication>(&GalleryApplication::initWithPage, options.page);
        application->setDelegate(gallery);
        return gallery->applicationDidFinishLaunching(application);
    });
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
    return openWindow(options);
}
