#include <Gallery/CommandLine.h>

#include <CLI/CLI.hpp>

#include <cstdio>

namespace zr::gallery {

namespace {

/// What `windowOptionsFromArguments` reads; here for the help, and so that they are known.
void addWindowOptions(CLI::App& app) {
    const auto add = [&app](const char* name, const char* type, const char* description) {
        app.add_option(name)->description(description)->type_name(type);
    };
    add("--device", "WxH@S", "Screen in points and pixels a point; 375x667@2 unless given");
    add("--system-version", "N.N", "What the device says it runs; 8.4 unless given");
    add("--slow", "N", "Slow motion: seconds that one of animations and timers takes");
    add("--show", "LIST",
        "Show how things work, with some of these: touches, borders (of layers), damage (what a frame repainted), "
        "times (of frames); separated by commas");
    add("--window-scale", "N", "Desktop pixels a point; what fits unless given");
    app.add_flag("--frame-log")->description("Report each frame of the window on standard error");
}

void addOptions(CLI::App& app, std::string& page, CommandLine& options) {
    app.add_flag("--list", options.list, "Print the names of the pages");
    app.add_option("--page", page, "Open this page and show its component")->type_name("NAME");
    addWindowOptions(app);
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

} // namespace

int fail(const std::string& message) {
    std::fprintf(stderr, "zr_gallery: %s\n", message.c_str());
    return 2;
}

ParsedCommandLine parseCommandLine(int argc, char** argv) {
    ParsedCommandLine parsed;
    CommandLine& options = parsed.options;
    std::string page;
    CLI::App app("Every component of the kit, live. Without arguments, a window with a list of pages opens.",
                 "zr_gallery");
    addOptions(app, page, options);
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
    std::string error;
    const auto window = windowOptionsFromArguments(argc, argv, error);
    if (!window) {
        parsed.exitCode = fail(error);
        return parsed;
    }
    options.window = *window;
    options.window.title = "Gallery";
    options.page = pageNamed(page);
    if (!page.empty() && !options.page)
        parsed.exitCode = fail("there is no page \"" + page + "\"; --list names them");
    return parsed;
}

} // namespace zr::gallery
