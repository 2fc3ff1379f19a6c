#include "App.h"

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>

#include <gtest/gtest.h>

using namespace zr;

/// The application on a screen that nobody sees, with a clock that moves as asked.
class AppTest : public testing::Test {
protected:
    AppTest() {
        EXPECT_TRUE(host.launch(app));
        host.advance(0.5);
    }

    /// Touches the screen and waits for what that sets in motion.
    void tap(CGPoint point) {
        host.tap(point);
        host.advance(0.5);
    }
    bool shows(const std::string& text) { return host.dump().find('"' + text + '"') != std::string::npos; }

    HeadlessHost host;
    Ref<App> app = make<App>();
};

constexpr CGPoint kFirstRow{100, 89}, kSecondRow{100, 139}, kNotYet{120, 367}, kDone{255, 367};

TEST_F(AppTest, TakesARowOffTheListThatIsDone) {
    EXPECT_TRUE(shows("Call the dentist"));
    host.writeSnapshot("list.png");
    tap(kSecondRow);
    EXPECT_TRUE(shows("Not yet"));
    host.writeSnapshot("alert.png");
    tap(kDone);
    EXPECT_FALSE(shows("Not yet"));
    EXPECT_FALSE(shows("Call the dentist"));
    EXPECT_TRUE(shows("Return the books"));
}

TEST_F(AppTest, KeepsARowThatIsNotDone) {
    tap(kSecondRow);
    tap(kNotYet);
    EXPECT_FALSE(shows("Not yet"));
    EXPECT_TRUE(shows("Call the dentist"));
}

TEST_F(AppTest, SaysWhenAllIsDone) {
    EXPECT_FALSE(shows("All done"));
    for (int row = 0; row < 4; ++row) {
        tap(kFirstRow);
        tap(kDone);
    }
    EXPECT_TRUE(shows("All done"));
    host.writeSnapshot("done.png");
}
