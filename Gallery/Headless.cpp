#include <Gallery/Headless.h>

#include <Gallery/ContactSheet.h>
#include <Gallery/GalleryApplication.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/Hosts/Headless/TouchScript.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace zr::gallery {

namespace {

void launch(HeadlessHost& host, const CommandLine& options, const Page* page) {
    host.application()->setDebugAids(options.window.debugAids);
    host.launch(make<GalleryApplication>(&GalleryApplication::initWithPage, page));
}

/// The screen at the page's time; the list for a null page.
Ref<CGImage> pictureOfPage(const CommandLine& options, const Page* page) {
    HeadlessHost host(options.window.profile);
    launch(host, options, page);
    host.advance(page ? page->pictureTime : 0);
    return host.snapshot();
}

/// False when the file cannot be written.
bool writePicture(CGImage* picture, const std::string& path) {
    const auto bytes = UIImagePNGRepresentation(UIImage::imageWithCGImage(picture));
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (bytes.empty() || !file)
        return false;
    std::printf("%s: %zu x %zu pixels\n", path.c_str(), picture->width(), picture->height());
    return true;
}

std::string cannotWrite(const std::string& path) { return path + " cannot be written"; }

int renderPage(const CommandLine& options) {
    const std::string path = options.renderFolder + "/" + options.page->name + ".png";
    if (!writePicture(pictureOfPage(options, options.page), path))
        return fail(cannotWrite(path));
    return 0;
}

} // namespace

int renderPages(const CommandLine& options) {
    std::error_code error;
    std::filesystem::create_directories(options.renderFolder, error);
    if (error)
        return fail("the folder " + options.renderFolder + " cannot be made: " + error.message());
    if (options.page)
        return renderPage(options);

    std::vector<ContactSheetEntry> entries{{"Gallery", "list", pictureOfPage(options, nullptr)}};
    for (const Page& page : allPages())
        entries.push_back({page.title, page.name, pictureOfPage(options, &page)});
    for (const ContactSheetEntry& entry : entries) {
        const std::string path = options.renderFolder + "/" + entry.name + ".png";
        if (!writePicture(entry.picture, path))
            return fail(cannotWrite(path));
    }
    const std::string path = options.renderFolder + "/contact-sheet.png";
    if (!writePicture(drawContactSheet(entries, options.window.profile.scale), path))
        return fail(cannotWrite(path));
    return 0;
}

int playScript(const CommandLine& options) {
    std::ifstream file(options.scriptPath, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file.is_open() || file.bad())
        return fail(options.scriptPath + " cannot be read");
    std::string error;
    const auto script = TouchScript::parse(text, error);
    if (!script)
        return fail(options.scriptPath + ": " + error);

    HeadlessHost host(options.window.profile);
    launch(host, options, options.page);
    if (!script->run(host, error))
        return fail(options.scriptPath + ": " + error);
    return 0;
}

int writeSnapshot(const CommandLine& options) {
    if (!writePicture(pictureOfPage(options, options.page), options.snapshotPath))
        return fail(cannotWrite(options.snapshotPath));
    return 0;
}

int writeOverview(const CommandLine& options) {
    std::vector<Ref<CGImage>> pictures{pictureOfPage(options, nullptr)};
    for (const char* name : {"alert-checkbox", "list-swipe", "hud-ring", "button-light", "switch"})
        pictures.push_back(pictureOfPage(options, pageNamed(name)));
    if (!writePicture(drawSideBySide(pictures), options.overviewPath))
        return fail(cannotWrite(options.overviewPath));
    return 0;
}

} // namespace zr::gallery
