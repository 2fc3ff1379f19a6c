#include <Tests/Gallery/GalleryProgram.h>
#include <Tests/Gallery/GalleryScreen.h>

#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <gmock/gmock.h>

namespace zr::test {

namespace {

using ::testing::HasSubstr;

/// The settings, with the rows for debugging in sight.
class DebugSettings : public ::testing::Test {
protected:
    DebugSettings() {
        screen.host.advance(0.5);
        screen.tapButton("Settings");
        screen.host.advance(0.5);
        screen.host.wheel({180, 400}, {0, 420});
        screen.host.advance(0.5);
    }
    ZRTableViewCell* row(const std::string& title) const {
        for (ZRTableViewCell* cell : screen.all<ZRTableViewCell>()) {
            if (cell->zrTextLabel()->text() == NSString(title))
                return cell;
        }
        return nullptr;
    }
    void tapSwitch(const std::string& title) {
        ASSERT_TRUE(row(title)) << title;
        screen.host.tap(GalleryScreen::middleOf(row(title)->zrAccessoryView()));
        screen.host.advance(0.5);
    }
    bool isChecked(const std::string& title) const { return row(title)->zrAccessoryType() == ZRAccessoryTypeCheckMark; }
    const DebugAids& aids() const { return screen.host.application()->debugAids(); }

    GalleryScreen screen{""};
};

} // namespace

TEST_F(DebugSettings, SlowMotionIsChosen) {
    EXPECT_TRUE(isChecked("1×"));
    screen.tapButton("1/10");
    EXPECT_EQ(aids().slowMotion, 10);
    const NSTimeInterval before = CACurrentMediaTime();
    screen.host.advance(5);
    EXPECT_NEAR(CACurrentMediaTime() - before, 0.5, 1e-9);
    EXPECT_TRUE(isChecked("1/10"));
    EXPECT_FALSE(isChecked("1×"));
    screen.tapButton("1/4");
    EXPECT_EQ(aids().slowMotion, 4);
    screen.tapButton("1×");
    EXPECT_EQ(aids().slowMotion, 1);
}

TEST_F(DebugSettings, EachSwitchShowsOneThing) {
    DebugAids expected;
    const std::pair<const char*, bool DebugAids::*> rows[] = {{"Touches", &DebugAids::showsTouches},
                                                              {"Layer borders", &DebugAids::showsLayerBorders},
                                                              {"Repainted areas", &DebugAids::showsDamage},
                                                              {"Frame times", &DebugAids::showsFrameTimes}};
    for (const auto& [title, aid] : rows) {
        tapSwitch(title);
        expected.*aid = true;
        EXPECT_EQ(aids(), expected) << title;
    }
    for (const auto& [title, aid] : rows) {
        tapSwitch(title);
        expected.*aid = false;
        EXPECT_EQ(aids(), expected) << title;
    }
}

TEST_F(DebugSettings, AreAsTheyWereLeft) {
    tapSwitch("Touches");
    screen.tapButton("1/4");
    screen.tapBack();
    screen.host.advance(4);
    screen.tapButton("Settings");
    screen.host.advance(4);
    screen.host.wheel({180, 400}, {0, 420});
    screen.host.advance(4);
    EXPECT_TRUE(isChecked("1/4"));
    EXPECT_TRUE(dynamic_cast<ZRSwitch*>(row("Touches")->zrAccessoryView())->isOn());
    EXPECT_FALSE(dynamic_cast<ZRSwitch*>(row("Frame times")->zrAccessoryView())->isOn());
}

TEST(DebugArguments, SlowMotionMakesPicturesEarlierOnes) {
    const TemporaryFolder folder;
    folder.write("fast.txt", "wait 0.05\nsnapshot " + folder.path("fast.png") + "\n");
    folder.write("slow.txt", "wait 0.5\nsnapshot " + folder.path("slow.png") + "\n");
    folder.write("same.txt", "wait 0.5\nsnapshot " + folder.path("same.png") + "\n");
    EXPECT_EQ(runGallery({"--page", "spin", "--script", folder.path("fast.txt")}).exitCode, 0);
    EXPECT_EQ(runGallery({"--page", "spin", "--slow", "10", "--script", folder.path("slow.txt")}).exitCode, 0);
    EXPECT_EQ(runGallery({"--page", "spin", "--script", folder.path("same.txt")}).exitCode, 0);
    EXPECT_EQ(folder.read("slow.png"), folder.read("fast.png"));
    EXPECT_NE(folder.read("slow.png"), folder.read("same.png"));
}

TEST(DebugArguments, WhatIsShownIsInPicturesButNotInDumps) {
    const TemporaryFolder folder;
    const auto run = [&](const std::string& show, const std::string& name) {
        folder.write("s.txt", "down 180 400\nwait 0.5\nsnapshot " + folder.path(name + ".png") + "\ndump " +
                                  folder.path(name + ".json") + "\n");
        std::vector<std::string> arguments = {"--page", "switch", "--script", folder.path("s.txt")};
        if (!show.empty())
            arguments.insert(arguments.end(), {"--show", show});
        const ProgramRun result = runGallery(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    };
    run("", "plain");
    ASSERT_FALSE(folder.read("plain.json").empty());
    for (const std::string show : {"touches", "borders", "damage", "times", "touches,borders,damage,times"}) {
        run(show, "shown");
        EXPECT_NE(folder.read("shown.png"), folder.read("plain.png")) << show;
        EXPECT_EQ(folder.read("shown.json"), folder.read("plain.json")) << show;
    }
}

TEST(DebugArguments, AreInTheHelp) {
    const std::string help = runGallery({"--help"}).output;
    EXPECT_THAT(help, HasSubstr("--slow"));
    EXPECT_THAT(help, HasSubstr("--show"));
    EXPECT_THAT(help, HasSubstr("touches, borders (of layers), damage"));
    EXPECT_THAT(runGallery({"--show", "nothing"}).errors, HasSubstr("\"nothing\""));
}

} // namespace zr::test
