#include <ZRPlatform/Hosts/Window/RunInWindow.h>

#include <gtest/gtest.h>

namespace zr::tests::hosts {

namespace {

std::optional<WindowOptions> read(std::vector<const char*> arguments, std::string* error = nullptr) {
    arguments.insert(arguments.begin(), "/opt/bin/program");
    std::string message;
    auto options = windowOptionsFromArguments(static_cast<int>(arguments.size()), arguments.data(), message);
    EXPECT_EQ(options.has_value(), message.empty());
    if (error)
        *error = message;
    return options;
}

std::string mistakeIn(std::vector<const char*> arguments) {
    std::string error;
    read(std::move(arguments), &error);
    return error;
}

/// How a message ends that tells what was given.
std::string instead(const std::string& value) { return ", not \"" + value + "\""; }

} // namespace

TEST(WindowOptions, WithoutArgumentsAreTheDefaultDeviceAndTheProgramsName) {
    const auto options = read({});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->profile.screenSize, (CGSize{375, 667}));
    EXPECT_EQ(options->profile.systemVersion, "8.4");
    EXPECT_EQ(options->title, "program");
    EXPECT_FALSE(options->windowScale);
    EXPECT_FALSE(options->frameLog);
    std::string error;
    EXPECT_TRUE(windowOptionsFromArguments(0, nullptr, error));
}

TEST(WindowOptions, AreReadInBothForms) {
    const auto options = read({"--device", "320x568@3", "--system-version=7.0", "--window-scale=1.5", "--frame-log"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->profile.screenSize, (CGSize{320, 568}));
    EXPECT_EQ(options->profile.scale, 3);
    EXPECT_EQ(options->profile.systemVersion, "7.0");
    EXPECT_EQ(options->windowScale, 1.5);
    EXPECT_TRUE(options->frameLog);
}

TEST(WindowOptions, SwitchDebugAidsOn) {
    EXPECT_EQ(read({})->debugAids, DebugAids());
    const auto options = read({"--slow", "10", "--show=touches,times"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->debugAids, (DebugAids{.slowMotion = 10, .showsTouches = true, .showsFrameTimes = true}));
    for (const char* factor : {"0", "-4", "1.5", "4x", "", "1001", "99999999999"})
        EXPECT_EQ(mistakeIn({"--slow", factor}), "--slow needs a whole number from 1 to 1000" + instead(factor));
    for (const char* names : {"", "touch", "touches,"})
        EXPECT_EQ(mistakeIn({"--show", names}), "--show needs some of touches,borders,damage,times" + instead(names));
}

TEST(WindowOptions, TheOrderDoesNotMatter) {
    const auto options = read({"--system-version", "6.1", "--device=320x480@2"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->profile.systemVersion, "6.1");
    EXPECT_EQ(options->profile.screenSize, (CGSize{320, 480}));
}

TEST(WindowOptions, LeaveOtherArgumentsToTheApplication) {
    EXPECT_TRUE(read({"--page", "alert", "--devices", "7", "file", "--frame-logs", "--"}));
    EXPECT_FALSE(read({"--frame-logs"})->frameLog);
}

TEST(WindowOptions, SayWhatIsMissingOrWrong) {
    const std::string device = "--device needs a screen such as 375x667@2";
    EXPECT_EQ(mistakeIn({"--device"}), device);
    EXPECT_EQ(mistakeIn({"--device", "375"}), device + instead("375"));
    EXPECT_EQ(mistakeIn({"--device=0x0@2"}), device + instead("0x0@2"));
    const std::string version = "--system-version needs a version such as 8.4";
    EXPECT_EQ(mistakeIn({"--system-version"}), version);
    EXPECT_EQ(mistakeIn({"--system-version", "new"}), version + instead("new"));
    const std::string scale = "--window-scale needs a number from 0.5 to 8";
    for (const char* value : {"", "0.4", "9", "2x", "nan", "-1"})
        EXPECT_EQ(mistakeIn({"--window-scale", value}), scale + instead(value));
}

} // namespace zr::tests::hosts
