#include <Tests/ZRPlatform/UIKit/Hosts/HostFixtures.h>

#include <ZRPlatform/Hosts/Headless/TouchScript.h>

#include <gmock/gmock.h>

namespace zr::tests::hosts {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// Plays a script; what went wrong, or nothing.
std::string play(HeadlessHost& host, const std::string& text) {
    std::string error;
    const auto script = TouchScript::parse(text, error);
    if (script)
        script->run(host, error);
    return error;
}

struct Mistake {
    const char* script;
    const char* message;
    friend void PrintTo(const Mistake& mistake, std::ostream* stream) { *stream << mistake.message; }
};

class MistakenScript : public testing::TestWithParam<Mistake> {};

} // namespace

TEST(TouchScript, TouchesGoDownMoveAndUp) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TouchLog>(window, {{0, 0}, {300, 300}});
    EXPECT_EQ(play(host, "tap 10 20\ndown 30.5 40\nmove 50 60\nup\n\tdown 1 2\r\n  cancel"), "");
    EXPECT_THAT(view->lines, ElementsAre("began 10 20", "ended 10 20", "began 30.5 40", "moved 50 60", "ended 50 60",
                                         "began 1 2", "cancelled 1 2"));
    EXPECT_EQ(host.time(), 0);
}

TEST(TouchScript, WaitsAndSlowMovesLetTimePass) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TouchLog>(window, {{0, 0}, {300, 300}});
    EXPECT_EQ(play(host, "wait 0.25\ndown 0 0\nmove 100 0 0.5\nup"), "");
    EXPECT_EQ(host.time(), 0.75);
    EXPECT_EQ(view->moves.size(), 30u);
}

TEST(TouchScript, TextIsTypedToTheLetter) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TypedText>(window, {{0, 0}, {300, 300}});
    view->becomeFirstResponder();
    EXPECT_EQ(play(host, "type  a #中 "), "");
    EXPECT_THAT(view->pieces, ElementsAre(" ", "a", " ", "#", "中", " "));
}

TEST(TouchScript, KeysTakeModifiersInAnyOrder) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TypedText>(window, {{0, 0}, {300, 300}});
    view->becomeFirstResponder();
    EXPECT_EQ(play(host, "key return\nkey shift+left\nkey alt+control+shift+end\nkey control+a\nkey control+home"), "");
    EXPECT_THAT(view->pieces, ElementsAre("key 0 0", "key 5 1", "key 10 7", "<all>", "key 9 2"));
}

TEST(TouchScript, CommentsAndEmptyLinesDoNothing) {
    HeadlessHost host;
    EXPECT_EQ(play(host, "# wait 1\n\n   \n  #\nwait 0.5 # not 7\nrotate landscape-right#no\n"),
              "line 6: there is no orientation \"landscape-right#no\"");
    EXPECT_EQ(host.time(), 0) << "a script with a mistake is played";
    EXPECT_EQ(play(host, "# wait 1\n\n   \n  #\nwait 0.5 # not 7\nrotate landscape-right # yes\n"), "");
    EXPECT_EQ(host.time(), 0.5);
    EXPECT_EQ(host.application()->statusBarOrientation(), UIInterfaceOrientationLandscapeRight);
}

TEST(TouchScript, FilesAreWritten) {
    HeadlessHost host;
    const auto window = shownWindow();
    const std::string snapshot = outputFile("a picture.png");
    const std::string dump = outputFile("views.json");
    const std::string recording = outputFile("film.webp");
    const std::string unfinished = outputFile("unfinished.webp");
    EXPECT_EQ(play(host, "record " + recording + "\nsnapshot " + snapshot + " # one\nwait 0.1\nstop\ndump " + dump +
                             "\nrecord " + unfinished),
              "");
    EXPECT_THAT(contentsOfFile(snapshot), StartsWith("\x89PNG"));
    EXPECT_THAT(contentsOfFile(dump), HasSubstr("\"UIWindow\""));
    EXPECT_THAT(contentsOfFile(recording), StartsWith("RIFF"));
    EXPECT_THAT(contentsOfFile(unfinished), StartsWith("RIFF")) << "the end of the script does not end the recording";
    EXPECT_FALSE(host.isRecording());
}

TEST(TouchScript, PicturesShowThePartThatIsCropped) {
    HeadlessHost host;
    const auto window = shownWindow();
    EXPECT_EQ(play(host, "crop 10 20.5 100 50"), "");
    EXPECT_EQ(host.snapshot()->width(), 200u);
    EXPECT_EQ(host.snapshot()->height(), 100u);
    EXPECT_EQ(play(host, "crop"), "");
    EXPECT_EQ(host.snapshot()->width(), 750u);
    const std::string nothing = outputFile("nothing.png");
    EXPECT_EQ(play(host, "crop 400 0 10 10\nsnapshot " + nothing), "line 2: \"" + nothing + "\" cannot be written");
}

TEST(TouchScript, AnImpossibleLineStopsTheScript) {
    HeadlessHost host;
    const auto window = shownWindow();
    EXPECT_EQ(play(host, "wait 1\n\nup\nwait 1"), "line 3: no finger is down");
    EXPECT_EQ(host.time(), 1);
    EXPECT_EQ(play(host, "move 1 2"), "line 1: no finger is down");
    EXPECT_EQ(play(host, "cancel"), "line 1: no finger is down");
    EXPECT_EQ(play(host, "down 1 1\ndown 2 2"), "line 2: the finger is down already");
    EXPECT_EQ(play(host, "tap 2 2"), "line 1: the finger is down already");
    EXPECT_EQ(play(host, "type lost"), "line 1: nothing on the screen takes text");
    EXPECT_EQ(play(host, "stop"), "line 1: no recording runs");
    const std::string nowhere = outputFile("nowhere") + "/file";
    for (const std::string word : {"snapshot", "dump", "record"})
        EXPECT_EQ(play(host, word + " " + nowhere), "line 1: \"" + nowhere + "\" cannot be written");
}

TEST_P(MistakenScript, IsRefusedWithItsLine) {
    std::string error;
    EXPECT_FALSE(TouchScript::parse(GetParam().script, error));
    EXPECT_EQ(error, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    TouchScript, MistakenScript,
    testing::Values(
        Mistake{"wait 1\n\nhop 3 4\n", "line 3: there is no command \"hop\""},
        Mistake{"TAP 1 2", "line 1: there is no command \"TAP\""}, Mistake{"tap 1", "line 1: \"tap\" needs X and Y"},
        Mistake{"tap 1 2 3", "line 1: \"tap\" needs X and Y"},
        Mistake{"tap 1 2pt", "line 1: \"2pt\" is not a number from -100000 to 100000"},
        Mistake{"tap nan 2", "line 1: \"nan\" is not a number from -100000 to 100000"},
        Mistake{"down 1 inf", "line 1: \"inf\" is not a number from -100000 to 100000"},
        Mistake{"down 1e9 1", "line 1: \"1e9\" is not a number from -100000 to 100000"},
        Mistake{"move 1 2 -1", "line 1: \"-1\" is not a number from 0 to 3600"},
        Mistake{"move 1", "line 1: \"move\" needs X, Y and perhaps seconds"},
        Mistake{"up 1", "line 1: \"up\" needs nothing after it"}, Mistake{"wait", "line 1: \"wait\" needs seconds"},
        Mistake{"wait 3601", "line 1: \"3601\" is not a number from 0 to 3600"},
        Mistake{"type", "line 1: \"type\" needs a text"}, Mistake{"key", "line 1: \"key\" needs the name of a key"},
        Mistake{"key f1", "line 1: there is no key \"f1\""},
        Mistake{"key control+q", "line 1: there is no key \"control+q\""},
        Mistake{"key shift+a", "line 1: there is no key \"shift+a\""},
        Mistake{"rotate left", "line 1: there is no orientation \"left\""},
        Mistake{"fps 0", "line 1: \"0\" is not a number from 1 to 120"},
        Mistake{"fps", "line 1: \"fps\" needs frames a second"},
        Mistake{"crop 1 2 3", "line 1: \"crop\" needs X, Y, width and height, or nothing after it"},
        Mistake{"crop 1 2 0 4", "line 1: \"0\" is not a number from 1 to 100000"},
        Mistake{"snapshot # no file", "line 1: \"snapshot\" needs a file"},
        Mistake{"stop now", "line 1: \"stop\" needs nothing after it"}));

} // namespace zr::tests::hosts
