#include <Tests/Gallery/GalleryProgram.h>

#include <Gallery/ContactSheet.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

using namespace zr;
using namespace zr::test;
using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

const std::vector<std::string> kPages = {"alert-default",
                                         "alert-plain",
                                         "alert-checkbox",
                                         "alert-progress",
                                         "alert-rotation",
                                         "alert-textfield",
                                         "alert-secure",
                                         "alert-one-button",
                                         "alert-two-buttons",
                                         "alert-no-button",
                                         "alert-button",
                                         "alert-host-view",
                                         "alert-long-latin",
                                         "alert-long-chinese",
                                         "alert-long-arabic",
                                         "alert-long-emoji",
                                         "alert-own",
                                         "alert-at-once",
                                         "toast-still",
                                         "toast-spinning",
                                         "toast-no-icon",
                                         "toast-no-text",
                                         "toast-host-view",
                                         "tips-image",
                                         "tips-no-image",
                                         "tips-no-title",
                                         "tips-no-message",
                                         "tips-long",
                                         "tips-size",
                                         "hud-spinner",
                                         "hud-pie",
                                         "hud-ring",
                                         "hud-bar",
                                         "hud-custom",
                                         "hud-text",
                                         "hud-label",
                                         "hud-details",
                                         "hud-fonts",
                                         "hud-long",
                                         "hud-chinese",
                                         "hud-arabic",
                                         "hud-emoji",
                                         "hud-square",
                                         "hud-min-size",
                                         "hud-offsets",
                                         "hud-color",
                                         "hud-opacity",
                                         "hud-dim",
                                         "hud-window",
                                         "hud-two",
                                         "hud-rotation",
                                         "hud-fade",
                                         "hud-shrink",
                                         "hud-grow",
                                         "hud-grace",
                                         "hud-min-show",
                                         "hud-completion",
                                         "hud-thread",
                                         "hud-queue",
                                         "progress-round",
                                         "progress-bar",
                                         "button-light",
                                         "button-color",
                                         "button-update",
                                         "label",
                                         "switch",
                                         "segments",
                                         "segments-disabled",
                                         "image-size",
                                         "image-gaussian",
                                         "image-box",
                                         "tilt",
                                         "spin",
                                         "bar-buttons",
                                         "bar-fade",
                                         "bar-hues",
                                         "bar-back",
                                         "bar-shadow",
                                         "screen-stack",
                                         "vertical-drag",
                                         "list-accessories",
                                         "list-texts",
                                         "list-own",
                                         "list-million",
                                         "list-settings",
                                         "list-swipe",
                                         "swipe-reset",
                                         "theme-colors",
                                         "color-parts",
                                         "gradients"};

std::size_t lineCount(const std::string& text) { return static_cast<std::size_t>(std::ranges::count(text, '\n')); }

/// How many different colours a picture has; counting ends beyond 100.
std::size_t colorCount(const CGImage* image) {
    std::set<std::uint32_t> colors;
    for (NSUInteger y = 0; y < image->height() && colors.size() <= 100; ++y)
        colors.insert(image->row(y), image->row(y) + image->width());
    return colors.size();
}

std::uint32_t pixelAt(const UIImage* image, NSUInteger x, NSUInteger y) { return image->CGImage()->row(y)[x]; }

/// All texts that show, window by window from the bottom.
void collectTexts(const json& view, std::vector<std::string>& texts) {
    if (view.value("hidden", false))
        return;
    if (view.contains("text") && view["text"].is_string())
        texts.push_back(view["text"]);
    for (const json& subview : view.value("subviews", json::array()))
        collectTexts(subview, texts);
}

/// Runs a script on a page and returns the texts on the screen at its end.
std::vector<std::string> textsAfter(const std::string& page, const std::string& script) {
    const TemporaryFolder folder;
    folder.write("script.txt", script + "dump " + folder.path("dump.json") + "\n");
    std::vector<std::string> arguments = {"--script", folder.path("script.txt")};
    if (!page.empty())
        arguments.insert(arguments.end(), {"--page", page});
    const ProgramRun run = runGallery(arguments);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const json dump = json::parse(folder.read("dump.json"), nullptr, false);
    EXPECT_FALSE(dump.is_discarded());
    std::vector<std::string> texts;
    if (dump.is_object()) {
        for (const json& window : dump["windows"])
            collectTexts(window, texts);
    }
    return texts;
}

/// The script line that taps the right one of the buttons along the bottom edge of the page's alert.
std::string tapOnRightButton(const std::string& page) {
    const TemporaryFolder folder;
    folder.write("find.txt", "wait 0.5\ndump " + folder.path("dump.json") + "\n");
    EXPECT_EQ(runGallery({"--page", page, "--script", folder.path("find.txt")}).exitCode, 0);
    const json alert = json::parse(folder.read("dump.json"))["windows"].back()["subviews"][0];
    const std::vector<double> panel = alert["subviews"][1]["frame"];
    return "tap " + std::to_string(panel[0] + panel[2] - 30) + " " + std::to_string(panel[1] + panel[3] - 20) + "\n";
}

bool contains(const std::vector<std::string>& texts, const std::string& text) {
    return std::ranges::find(texts, text) != texts.end();
}

} // namespace

TEST(Gallery, ListNamesEveryPage) { EXPECT_EQ(listedPages(), kPages); }

TEST(Gallery, RenderWritesThePagesTheListAndTheContactSheet) {
    const TemporaryFolder folder;
    const ProgramRun run = runGallery({"--render", folder.path("pictures")});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    std::vector<std::string> names = kPages;
    names.push_back("list");
    EXPECT_EQ(lineCount(run.output), names.size() + 1);
    for (const std::string& name : names) {
        const std::string path = folder.path("pictures/" + name + ".png");
        EXPECT_THAT(run.output, HasSubstr(path));
        const Ref<UIImage> picture = UIImage::imageWithContentsOfFile(path);
        ASSERT_TRUE(picture) << name;
        const bool lies = name == "hud-rotation";
        EXPECT_EQ(picture->CGImage()->width(), lies ? 1334u : 750u) << name;
        EXPECT_EQ(picture->CGImage()->height(), lies ? 750u : 1334u) << name;
        EXPECT_GE(colorCount(picture->CGImage()), 50u) << name;
    }
    const Ref<UIImage> sheet = UIImage::imageWithContentsOfFile(folder.path("pictures/contact-sheet.png"));
    ASSERT_TRUE(sheet);
    EXPECT_GT(sheet->CGImage()->width(), 2000u);
    EXPECT_GE(colorCount(sheet->CGImage()), 50u);
}

TEST(Gallery, TheContactSheetOfTheLargestScreenCanBeDrawn) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(9, 16), true, 1);
    const Ref<UIImage> picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    const std::vector<gallery::ContactSheetEntry> entries(kPages.size() + 1, {"Title", "name", picture->CGImage()});
    EXPECT_TRUE(gallery::drawContactSheet(entries, 3));
}

TEST(Gallery, AnOverviewShowsTheListAndFivePages) {
    const TemporaryFolder folder;
    ASSERT_EQ(runGallery({"--overview", folder.path("overview.png")}).exitCode, 0);
    const Ref<UIImage> overview = UIImage::imageWithContentsOfFile(folder.path("overview.png"));
    ASSERT_TRUE(overview);
    EXPECT_EQ(overview->CGImage()->width(), 1470u);
    EXPECT_EQ(overview->CGImage()->height(), 420u);
    // The bars: the second one lies under the dimmed screen of an alert. Between the screens there is the ground.
    EXPECT_EQ(pixelAt(overview, 122, 14), 0xff00c340u);
    EXPECT_LT(pixelAt(overview, 367, 14), 0xff00a040u);
    EXPECT_EQ(pixelAt(overview, 1347, 14), 0xff00c340u);
    EXPECT_EQ(pixelAt(overview, 245, 200), pixelAt(overview, 2, 2));
    EXPECT_EQ(runGallery({"--overview", folder.path("no/such/folder/o.png")}).exitCode, 2);
}

TEST(Gallery, RenderingTwiceGivesTheSamePictures) {
    const TemporaryFolder folder;
    for (const char* name : {"alert-progress", "alert-rotation", "toast-spinning", "hud-spinner", "hud-shrink",
                             "hud-grace", "hud-thread", "hud-queue"}) {
        ASSERT_EQ(runGallery({"--render", folder.path("a"), "--page", name}).exitCode, 0);
        ASSERT_EQ(runGallery({"--render", folder.path("b"), "--page", name}).exitCode, 0);
        const std::string first = folder.read(std::string("a/") + name + ".png");
        EXPECT_FALSE(first.empty());
        EXPECT_TRUE(first == folder.read(std::string("b/") + name + ".png")) << name;
    }
}

TEST(Gallery, AnAlertDimsThePageBelowIt) {
    const TemporaryFolder folder;
    ASSERT_EQ(runGallery({"--snapshot", folder.path("a.png"), "--page", "alert-default"}).exitCode, 0);
    ASSERT_EQ(runGallery({"--snapshot", folder.path("l.png")}).exitCode, 0);
    const auto alert = UIImage::imageWithContentsOfFile(folder.path("a.png"));
    const auto list = UIImage::imageWithContentsOfFile(folder.path("l.png"));
    ASSERT_TRUE(alert && list);
    EXPECT_EQ(pixelAt(list, 4, 4), 0xFF00C340u) << "the bar is (0, 195, 64)";
    EXPECT_EQ(pixelAt(alert, 4, 4), 0xFF006B23u) << "black at 0.45 over it";
}

TEST(Gallery, TheDeviceChoosesThePicturesSize) {
    const TemporaryFolder folder;
    const std::string path = folder.path("p.png");
    ASSERT_EQ(runGallery({"--snapshot", path, "--device", "320x568@3"}).exitCode, 0);
    const auto picture = UIImage::imageWithContentsOfFile(path);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->CGImage()->width(), 960u);
    EXPECT_EQ(picture->CGImage()->height(), 1704u);
}

TEST(Gallery, TheBarIsLowerOnSystemsThatSortBeforeVersionSeven) {
    const TemporaryFolder folder;
    const std::string path = folder.path("p.png");
    for (const auto& [version, edge] : {std::pair("6.1", 88), {"10.3", 88}, {"8.4", 128}}) {
        ASSERT_EQ(runGallery({"--snapshot", path, "--system-version", version}).exitCode, 0);
        const auto picture = UIImage::imageWithContentsOfFile(path);
        ASSERT_TRUE(picture);
        EXPECT_EQ(pixelAt(picture, 4, static_cast<NSUInteger>(edge - 1)), 0xFF00C340u) << version;
        EXPECT_EQ(pixelAt(picture, 4, static_cast<NSUInteger>(edge)), 0xFFF8F8F8u) << version;
    }
}

TEST(Gallery, ATapOnARowSlidesItsPageInAndBackLeadsToTheList) {
    // The first row lies below the bar of 64, the search field's 52 and a heading of 40, and is 56 high.
    const std::string open = "tap 180 184\nwait 0.5\n";
    EXPECT_TRUE(contains(textsAfter("", open), "Show alert"));
    const auto texts = textsAfter("", open + "tap 30 42\nwait 0.5\n");
    EXPECT_FALSE(contains(texts, "Show alert"));
    EXPECT_TRUE(contains(texts, "Secure field"));
}

TEST(Gallery, DraggingTheListOpensNothingAndBringsTheLastRowsUp) {
    const auto texts = textsAfter("", "down 180 600\nmove 180 -4000 0.3\nup\nwait 0.5\n");
    EXPECT_FALSE(contains(texts, "Show alert"));
    // Once the list has sprung back to its end, the last row ends 32 points above the screen's bottom.
    EXPECT_TRUE(contains(textsAfter("", "down 180 600\nmove 180 -4000 0.3\nup\nwait 3\ntap 180 607\nwait 0.5\n"),
                         "AN IMAGE OF THREE COLOURS"));
}

TEST(Gallery, ATapOnAHueGivesItToTheBars) {
    const TemporaryFolder folder;
    folder.write("script.txt", "tap 187 260\nsnapshot " + folder.path("page.png") + "\ntap 30 42\nwait 0.5\nsnapshot " +
                                   folder.path("list.png") + "\n");
    const ProgramRun run = runGallery({"--page", "theme-colors", "--script", folder.path("script.txt")});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    for (const char* name : {"page.png", "list.png"}) {
        const auto picture = UIImage::imageWithContentsOfFile(folder.path(name));
        ASSERT_TRUE(picture) << name;
        EXPECT_EQ(pixelAt(picture, 4, 4), 0xFFFF5730u) << name;
    }
}

TEST(Gallery, LeavingAPageTakesTheAlertInItsHostViewAlong) {
    const std::string open = "wait 0.5\n";
    EXPECT_TRUE(contains(textsAfter("alert-host-view", open), "Reload map?"));
    EXPECT_FALSE(contains(textsAfter("alert-host-view", open + "tap 30 42\nwait 0.5\n"), "Reload map?"));
}

TEST(Gallery, TheLogShowsWhatTheDelegateWasTold) {
    const auto texts = textsAfter("alert-default", "wait 0.5\n" + tapOnRightButton("alert-default") + "wait 0.5\n");
    EXPECT_TRUE(contains(texts, "zrTAlertView_clickedButtonAtIndex: 1"));
    EXPECT_FALSE(contains(texts, "Delete photo?"));
}

TEST(Gallery, AFullProgressBarDismissesItsAlert) {
    EXPECT_TRUE(contains(textsAfter("alert-progress", "wait 1\n"), "40 % of 24 MB"));
    const auto texts = textsAfter("alert-progress", "wait 4\n");
    EXPECT_TRUE(
        contains(texts, "zrTAlertViewCancelButtonClicked\nzrTAlertView_clickedButtonAtIndex: 0\nprogress: 100"));
    EXPECT_FALSE(contains(texts, "Downloading"));
}

TEST(Gallery, AnAlertWithoutButtonsGoesByItselfOrWhenTouched) {
    EXPECT_TRUE(contains(textsAfter("alert-no-button", "wait 3.9\n"), "One moment"));
    EXPECT_FALSE(contains(textsAfter("alert-no-button", "wait 4.5\n"), "One moment"));
    EXPECT_FALSE(contains(textsAfter("alert-no-button", "wait 1\ntap 100 600\nwait 0.5\n"), "One moment"));
}

TEST(Gallery, TypedTextIsReported) {
    const std::string script = "wait 0.5\ntype Lakes\n" + tapOnRightButton("alert-textfield") + "wait 0.5\n";
    EXPECT_TRUE(
        contains(textsAfter("alert-textfield", script), "zrTAlertView_clickedButtonAtIndex: 1\ntextField: “Lakes”"));
}

TEST(Gallery, ASecretIsNotWrittenIntoTheLog) {
    const std::string script = "wait 0.5\ntype Lakes\n" + tapOnRightButton("alert-secure") + "wait 0.5\n";
    EXPECT_TRUE(contains(textsAfter("alert-secure", script),
                         "zrTAlertView_clickedButtonAtIndex: 1\ntextField: 5 secret characters"));
}

TEST(Gallery, MistakesInTheArgumentsAreOneLineAndExitCodeTwo) {
    const TemporaryFolder folder;
    folder.write("bad.txt", "tap 10\n");
    const std::vector<std::vector<std::string>> mistakes = {
        {"--page", "no-such-page"},
        {"--device", "320"},
        {"--system-version", "new"},
        {"--no-such-option"},
        {"--slow", "0"},
        {"--slow", "1.5"},
        {"--show", "touches,nothing"},
        {"--page"},
        {"--script", folder.path("missing.txt")},
        {"--script", folder.path("bad.txt")},
        {"--render", "/dev/null/folder"},
        {"--snapshot", folder.path("no/such/folder/p.png")},
        {"--render", folder.path("r"), "--script", folder.path("bad.txt")},
    };
    for (const auto& arguments : mistakes) {
        const ProgramRun run = runGallery(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments.front();
        EXPECT_EQ(lineCount(run.errors), 1u) << run.errors;
        EXPECT_EQ(run.errors.rfind("zr_gallery: ", 0), 0u) << run.errors;
        EXPECT_EQ(run.output, "");
    }
}

TEST(Gallery, AMistakeNamesWhatIsWrong) {
    EXPECT_THAT(runGallery({"--page", "no-such-page"}).errors, HasSubstr("\"no-such-page\""));
    EXPECT_THAT(runGallery({"--device", "320"}).errors, HasSubstr("\"320\""));
    const TemporaryFolder folder;
    folder.write("bad.txt", "wait 1\ntap 10\n");
    EXPECT_THAT(runGallery({"--script", folder.path("bad.txt")}).errors, HasSubstr("line 2"));
}
