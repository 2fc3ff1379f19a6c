#include <Gallery/CommandLine.h>

#include <CLI/CLI.hpp>

#include <cstdio>

namespace zr::gallery {

namespace {

/// As given, before they are understood.
struct Arguments {
    std::string page;
    std::string device;
    std::string systemVersion;
    std::string show;
};

void addOptions(CLI::App& app, Arguments& arguments, CommandLine& options) {
    app.add_flag("--list", options.list, "Print the names of the pages");
    app.add_option("--page", arguments.page, "Open this page and show its component")->type_name("NAME");
    app.add_option("--device", arguments.device, "Screen in points and pixels a point; 375x667@2 unless given")
        ->type_name("WxH@S");
    app.add_option("--system-version", arguments.systemVersion, "What the device says it runs; 8.4 unless given")
        ->type_name("N.N");
    app.add_option("--slow", options.debugAids.slowMotion,
                   "Slow motion: seconds that one of animations and timers takes")
        ->check(CLI::Range(1, DebugAids::slowestMotion))
        ->type_name("N");
    app.add_option("--show", arguments.show,
                   "Show how things work, with some of these: touches, borders (of layers), damage (what a frame "
                   "repainted), times (of frames); separated by commas")
        ->type_name("LIST");
    app.add_option("--window-scale", options.windowScale, "Desktop pixels a point; what fits unless given")
        ->check(CLI::Range(0.5, 8.0))
        ->type_name("N");
    app.add_flag("--frame-log", options.frameLog, "Report each frame of the window on standard error");
    auto* render =
        app.add_option("--render", options.renderFolder,
                       "Without a window: render each page, or the one given, to FOLDER/NAME.png, and all of them to "
                       "FOLDER/contact-sheet.png");
    render->type_name("FOLDER");
    auto* script = app.add_option("--script", options.scriptPath, "Without a window: play this touch script");
    script->type_name("FILE")->excludes(render);
    auto* snapshot = app.add_option("--snapshot", options.snapshotPath,
                                    "Without a window: write the picture of the page, or of the list, to this file");
    snapshot->type_name("FILE.png")->excludes(render)->excludes(script);
    auto* overview = app.add_option("--overview", options.overviewPath,
                                    "Without a window: write the list and some of the pages side by side to this file");
    overview->type_name("FILE.png")->excludes(render)->excludes(script)->excludes(snapshot);
}

/// What is wrong with the arguments; empty when nothing is.
std::string understand(const Arguments& arguments, CommandLine& options) {
    if (!arguments.page.empty()) {
        options.page = pageNamed(arguments.page);
        if (!options.page)
            return "there is no page \"" + arguments.page + "\"; --list names them";
    }
    if (!arguments.device.empty()) {
        const auto profile = DeviceProfile::profileWithDescription(arguments.device);
        if (!profile)
            return "\"" + arguments.device + "\" is no device; write it like 375x667@2";
        options.profile = *profile;
    }
    if (!arguments.show.empty() && !options.debugAids.show(arguments.show))
        return "\"" + arguments.show + "\" cannot be shown; write it like touches,borders,damage,times";
    if (!arguments.systemVersion.empty()) {
        if (NSString(arguments.systemVersion).intValue() <= 0)
            return "\"" + arguments.systemVersion + "\" is no system version; write it like 8.4";
        options.profile.systemVersion = arguments.systemVersion;
    }
    return "";
}

} // namespace

int fail(const std::string& message) {
    std::fprintf(stderr, "zr_gallery: %s\n", message.c_str());
    return 2;
}

ParsedCommandLine parseCommandLine(int argc, char** argv) {
    ParsedCommandLine parsed;
    Arguments arguments;
    CLI::App app("Every component of the kit, live. Without arguments, a window with a list of pages opens.",
                 "zr_gallery");
    addOptions(app, arguments, parsed.options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::printf("%s", app.help().c_str());
        parsed.exitCode = 0;
        return parsed;
    } catch (const CLI::ParseError& error) {
        parsed.exitCode = fail(error.what());
        return parsed;
    }
    if (const std::string mistake = understand(arguments, parsed.options); !mistake.empty())
        parsed.exitCode = fail(mistake);
    return parsed;
}

} // namespace zr::gallery
