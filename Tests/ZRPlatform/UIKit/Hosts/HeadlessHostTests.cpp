#include <Tests/ZRPlatform/UIKit/Hosts/HostFixtures.h>

#include <ZRPlatform/Foundation/NSNotificationCenter.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>

#include <gmock/gmock.h>
#include <thread>

namespace zr::tests::hosts {

using testing::ElementsAre;
using testing::SizeIs;

namespace {

/// Writes down when something happened.
struct Diary {
    void note(const std::string& what) {
        std::ostringstream line;
        line << what << " " << secondsFromNanoseconds(Clock::current().now());
        lines.push_back(line.str());
    }
    Ref<NSTimer> timer(const std::string& what, NSTimeInterval interval, bool repeats = false) {
        return NSTimer::scheduledTimerWithTimeInterval_repeats_block(interval, repeats,
                                                                     [this, what](NSTimer*) { note(what); });
    }
    std::vector<std::string> lines;
};

class StartingDelegate : public UIApplicationDelegate {
public:
    bool applicationDidFinishLaunching(UIApplication* application) override {
        diary->push_back(application->delegate() == this ? "start" : "start without a delegate");
        return starts;
    }
    void applicationWillTerminate(UIApplication*) override { diary->push_back("end"); }

    std::vector<std::string>* diary = nullptr;
    bool starts = true;
};

class LaunchObserver : public NSObject {
public:
    void launched() { diary->push_back("told"); }

    std::vector<std::string>* diary = nullptr;
};

/// Frames of one fixed performance, at odd moments.
std::vector<std::string> performance() {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{10, 10}, {80, 60}}, UIColor::redColor());
    NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.15, true, [&](NSTimer*) {
        UIView::animateWithDuration_animations(0.2, [&] {
            view->setCenter({view->center().x + 33.3, view->center().y + 41.7});
            view->setAlpha(view->alpha() * 0.9);
        });
    });
    std::vector<std::string> frames;
    for (int i = 0; i < 8; ++i) {
        host.advance(0.0871);
        frames.push_back(bytesOf(*host.snapshot()));
    }
    return frames;
}

} // namespace

TEST(HeadlessHost, AdvancingFiresTimersInOrderEachAtItsExactTime) {
    HeadlessHost host;
    Diary diary;
    diary.timer("late", 0.3);
    diary.timer("early", 0.1);
    diary.timer("beat", 0.12, true);
    diary.timer("never", 0.31);
    host.advance(0.3);
    EXPECT_THAT(diary.lines, ElementsAre("early 0.1", "beat 0.12", "beat 0.24", "late 0.3"));
    EXPECT_EQ(host.time(), 0.3);
}

TEST(HeadlessHost, ATimerSetByATimerFiresWithinTheSameAdvance) {
    HeadlessHost host;
    Diary diary;
    NSTimer::scheduledTimerWithTimeInterval_repeats_block(0.1, false, [&](NSTimer*) { diary.timer("second", 0.1); });
    host.advance(0.25);
    EXPECT_THAT(diary.lines, ElementsAre("second 0.2"));
}

TEST(HeadlessHost, TenTenthsAreExactlyOneSecond) {
    HeadlessHost host;
    Diary diary;
    diary.timer("second", 1);
    for (int i = 0; i < 10; ++i)
        host.advance(0.1);
    EXPECT_EQ(host.time(), 1.0);
    EXPECT_THAT(diary.lines, SizeIs(1));
}

TEST(HeadlessHost, NegativeAndMissingTimesDoNotMoveTheClock) {
    HeadlessHost host;
    host.advance(0.5);
    host.advance(-1);
    host.advance(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(host.time(), 0.5);
}

TEST(HeadlessHost, NothingChangedComposesNoFrameHoweverLongItTakes) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{20, 30}, {10, 10}}, UIColor::redColor());
    host.advance(0);
    const std::int64_t frames = host.framesComposed();
    EXPECT_GT(frames, 0);
    host.advance(100);
    EXPECT_EQ(host.framesComposed(), frames);

    view->setBackgroundColor(UIColor::blueColor());
    host.advance(100);
    EXPECT_EQ(host.framesComposed(), frames + 1);
    EXPECT_THAT(host.damage(), ElementsAre(PixelRect{40, 60, 20, 20}));
}

TEST(HeadlessHost, AnAnimationWithoutDurationCompletesBeforeTheNextFrame) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {50, 50}}, UIColor::whiteColor());
    host.advance(0);
    const std::int64_t frames = host.framesComposed();
    std::int64_t framesAtCompletion = -1;
    UIView::animateWithDuration_animations_completion(
        0, [&] { view->setBackgroundColor(UIColor::redColor()); },
        [&](bool) {
            framesAtCompletion = host.framesComposed();
            view->setBackgroundColor(UIColor::blueColor());
        });
    EXPECT_EQ(framesAtCompletion, -1);
    host.advance(0);
    EXPECT_EQ(framesAtCompletion, frames);
    EXPECT_EQ(host.framesComposed(), frames + 1);
    EXPECT_EQ(host.pixel({25, 25}), kBlue);
}

TEST(HeadlessHost, TwoRunsGiveTheSameFramesByteForByte) {
    const auto first = performance();
    EXPECT_EQ(first, performance());
    EXPECT_NE(first.front(), first.back());
}

TEST(HeadlessHost, AnimationsShowTheMomentOfTheClock) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {20, 20}}, UIColor::redColor());
    host.advance(0);
    UIView::animateWithDuration_delay_options_animations_completion(
        1, 0, UIViewAnimationOptionCurveLinear,
        [&] {
            view->setFrame({{200, 0}, {20, 20}});
        },
        nullptr);
    host.advance(0.5);
    EXPECT_EQ(host.pixel({110, 10}), kRed);
    EXPECT_EQ(host.pixel({10, 10}), kWhite);
    host.advance(0.5);
    EXPECT_EQ(host.pixel({210, 10}), kRed);
    EXPECT_EQ(host.pixel({110, 10}), kWhite);
}

TEST(HeadlessHost, WaitUntilRunsWhatAThreadHandsOverWhileTheClockStands) {
    HeadlessHost host;
    Diary diary;
    diary.timer("timer", 0.01);
    bool arrived = false;
    std::thread worker([&] { NSRunLoop::mainRunLoop()->performBlock([&] { arrived = true; }); });
    EXPECT_TRUE(host.waitUntil([&] { return arrived; }));
    worker.join();
    EXPECT_TRUE(arrived);
    EXPECT_EQ(host.time(), 0);
    EXPECT_TRUE(diary.lines.empty());
}

TEST(HeadlessHost, WaitUntilGivesUpWhenTheRealTimeHasPassed) {
    HeadlessHost host;
    EXPECT_FALSE(host.waitUntil([] { return false; }, 0.01));
    EXPECT_FALSE(host.waitUntil(nullptr, 0.01));
}

TEST(HeadlessHost, ATapGoesDownAndUpWhereItIs) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TouchLog>(window, {{0, 0}, {100, 100}});
    host.tap({40, 60});
    EXPECT_THAT(view->lines, ElementsAre("began 40 60", "ended 40 60"));
}

TEST(HeadlessHost, AMoveOverTimeComesInSixtiethsAndEndsExactlyAtItsTarget) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TouchLog>(window, {{0, 0}, {300, 300}});
    host.touchDown({10, 10});
    host.touchMove({110, 60}, 0.1);
    EXPECT_EQ(host.time(), 0.1);
    ASSERT_THAT(view->moves, SizeIs(6));
    for (std::size_t i = 0; i < 6; ++i) {
        const double fraction = (static_cast<double>(i) + 1) / 6;
        EXPECT_NEAR(view->moves[i].first, 0.1 * fraction, 1e-9);
        EXPECT_NEAR(view->moves[i].second.x, 10 + 100 * fraction, 1e-4);
        EXPECT_NEAR(view->moves[i].second.y, 10 + 50 * fraction, 1e-4);
    }
    EXPECT_EQ(view->moves.back().second, (CGPoint{110, 60}));
}

TEST(HeadlessHost, FingersThatAreNotDownDoNothingAndThoseThatAreDoNotGoDownAgain) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TouchLog>(window, {{0, 0}, {100, 100}});
    host.touchMove({5, 5});
    host.touchUp();
    host.touchCancel();
    EXPECT_TRUE(view->lines.empty());
    host.touchDown({1, 1});
    host.touchDown({2, 2});
    host.tap({3, 3});
    EXPECT_TRUE(host.isTouching());
    host.touchCancel();
    EXPECT_FALSE(host.isTouching());
    EXPECT_THAT(view->lines, ElementsAre("began 1 1", "cancelled 1 1"));
}

TEST(HeadlessHost, TextIsTypedCharacterByCharacterAndALineFeedIsTheReturnKey) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TypedText>(window, {{0, 0}, {100, 100}});
    EXPECT_FALSE(host.typeText("lost"));
    view->becomeFirstResponder();
    EXPECT_TRUE(host.typeText("aé中😀\n"));
    EXPECT_TRUE(host.setMarkedText("にほ"));
    EXPECT_TRUE(host.pressKey(UIKey::Left, UIKeyModifierShift));
    EXPECT_THAT(view->pieces, ElementsAre("a", "é", "中", "😀", "key 0 0", "marked にほ 2", "key 5 1"));
}

TEST(HeadlessHost, TheClipboardIsKeptInMemory) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TypedText>(window, {{0, 0}, {100, 100}});
    view->becomeFirstResponder();
    EXPECT_TRUE(host.clipboardText().isNil());
    EXPECT_FALSE(host.clipboardKey('v'));
    EXPECT_TRUE(host.clipboardKey('c'));
    EXPECT_EQ(host.clipboardText(), "selected");
    host.setClipboardText("other");
    EXPECT_TRUE(host.clipboardKey('v'));
    EXPECT_THAT(view->pieces, ElementsAre("other"));
}

TEST(HeadlessHost, ATextFieldThatIsTappedHasTheFocusAndItsCaretIsKnown) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto field = addView<UITextField>(window, {{50, 100}, {200, 40}});
    EXPECT_FALSE(host.isTextInputActive());
    host.tap({100, 120});
    EXPECT_TRUE(host.isTextInputActive());
    const CGFloat caret = host.caretRect().origin.x;
    EXPECT_TRUE(CGRectContainsRect(field->frame(), host.caretRect()));
    EXPECT_TRUE(host.typeText("wide"));
    EXPECT_EQ(field->text(), "wide");
    EXPECT_GT(host.caretRect().origin.x, caret);
    field->resignFirstResponder();
    EXPECT_FALSE(host.isTextInputActive());
}

TEST(HeadlessHost, RotatingTurnsTheScreenAndItsFrames) {
    HeadlessHost host;
    const auto window = shownWindow();
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(UIScreen::mainScreen()->bounds(), (CGRect{{0, 0}, {667, 375}}));
    const auto frame = host.snapshot();
    EXPECT_EQ(frame->width(), 1334u);
    EXPECT_EQ(frame->height(), 750u);
    EXPECT_EQ(host.pixel({660, 10}), kWhite);
}

TEST(HeadlessHost, PixelsOutsideTheScreenAreBlack) {
    HeadlessHost host;
    const auto window = shownWindow();
    EXPECT_EQ(host.pixel({0, 0}), kWhite);
    EXPECT_EQ(host.pixel({374.9, 666.9}), kWhite);
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    for (const CGPoint outside : {CGPoint{-0.1, 5}, CGPoint{375, 5}, CGPoint{5, 667}, CGPoint{nan, 5}})
        EXPECT_EQ(host.pixel(outside), FramePixel()) << outside.x << " " << outside.y;
}

TEST(HeadlessHost, SnapshotsAreWrittenAsPNG) {
    DeviceProfile profile;
    profile.screenSize = {30, 20};
    profile.scale = 3;
    HeadlessHost host(profile);
    const auto window = shownWindow();
    addView(window, {{0, 0}, {10, 10}}, UIColor::redColor());
    const std::string path = outputFile("screen.png");
    ASSERT_TRUE(host.writeSnapshot(path));
    const auto image = UIImage::imageWithContentsOfFile(path);
    ASSERT_TRUE(image);
    EXPECT_EQ(bytesOf(*image->CGImage()), bytesOf(*host.snapshot()));
    EXPECT_EQ(image->CGImage()->width(), 90u);
    EXPECT_FALSE(host.writeSnapshot(outputFile("missing") + "/screen.png"));
}

TEST(HeadlessHost, PicturesShowTheChosenAreaInWholePixels) {
    HeadlessHost host;
    const auto window = shownWindow();
    addView(window, {{10, 10}, {20, 30}}, UIColor::redColor());
    host.setPictureArea({{10, 10}, {20, 30}});
    const auto exact = host.snapshot();
    ASSERT_TRUE(exact);
    EXPECT_EQ(exact->width(), 40u);
    EXPECT_EQ(exact->height(), 60u);
    EXPECT_EQ(exact->row(0)[0], 0xffff0000u);
    EXPECT_EQ(exact->row(59)[39], 0xffff0000u);
    EXPECT_EQ(host.pixel({15, 15}), (FramePixel{255, 0, 0})) << "pixels are asked for on the screen";
    host.setPictureArea({{10.2, 10}, {20, 1000}});
    const auto widened = host.snapshot();
    ASSERT_TRUE(widened);
    EXPECT_EQ(widened->width(), 41u);
    EXPECT_EQ(widened->height(), 1314u) << "it ends where the screen does";
    host.setPictureArea({{375, 0}, {10, 10}});
    EXPECT_FALSE(host.snapshot());
    EXPECT_FALSE(host.writeSnapshot(outputFile("nothing.png")));
    host.setPictureArea(CGRectNull);
    EXPECT_EQ(host.snapshot()->width(), 750u);
}

TEST(HeadlessHost, LaunchingStartsTheDelegateAndTheEndTellsIt) {
    std::vector<std::string> diary;
    const auto delegate = make<StartingDelegate>();
    delegate->diary = &diary;
    {
        HeadlessHost host;
        EXPECT_TRUE(host.launch(delegate));
        EXPECT_THAT(diary, ElementsAre("start"));
    }
    EXPECT_THAT(diary, ElementsAre("start", "end"));
    HeadlessHost host;
    delegate->starts = false;
    EXPECT_FALSE(host.launch(delegate));
    EXPECT_FALSE(host.launch(nullptr));
}

TEST(HeadlessHost, WhoeverWaitsForTheLaunchIsToldOnceTheDelegateHasStarted) {
    std::vector<std::string> diary;
    const auto delegate = make<StartingDelegate>();
    delegate->diary = &diary;
    const auto observer = make<LaunchObserver>();
    observer->diary = &diary;
    NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(
        observer, selector<&LaunchObserver::launched>, UIApplicationDidFinishLaunchingNotification, nullptr);
    HeadlessHost host;
    delegate->starts = false;
    host.launch(delegate);
    delegate->starts = true;
    host.launch(delegate);
    EXPECT_THAT(diary, ElementsAre("start", "start", "told"));
}

TEST(HeadlessHost, AnApplicationThatClosesItselfIsSeen) {
    HeadlessHost host;
    EXPECT_FALSE(host.isClosed());
    UIApplication::sharedApplication()->host()->close();
    EXPECT_TRUE(host.isClosed());
}

TEST(HeadlessHost, AHostLeavesNothingToTheNextOne) {
    Diary diary;
    DeviceProfile profile;
    profile.systemVersion = "6.1";
    for (int run = 0; run < 3; ++run) {
        HeadlessHost host(profile);
        EXPECT_EQ(host.time(), 0);
        EXPECT_EQ(UIApplication::sharedApplication(), host.application());
        EXPECT_THAT(host.application()->windows(), SizeIs(0));
        const auto window = shownWindow();
        host.advance(1);
        EXPECT_EQ(host.framesComposed(), 1);
        diary.timer("left over", 0.5);
        NSRunLoop::mainRunLoop()->performBlock([&] { diary.note("left over"); });
    }
    EXPECT_EQ(UIApplication::sharedApplication(), nullptr);
    EXPECT_EQ(UIDevice::currentDevice()->systemVersion(), "8.4");
    EXPECT_TRUE(diary.lines.empty());
    const Nanoseconds now = Clock::current().now();
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->waitForWork(0.001));
    EXPECT_GT(Clock::current().now(), now) << "the clock is not the real one again";
}

} // namespace zr::tests::hosts
