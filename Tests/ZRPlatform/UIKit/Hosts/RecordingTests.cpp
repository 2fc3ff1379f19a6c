#include <Tests/ZRPlatform/UIKit/Hosts/HostFixtures.h>

#include <ZRPlatform/Hosts/Headless/TouchScript.h>

#include <gmock/gmock.h>
#include <webp/demux.h>

namespace zr::tests::hosts {

using testing::ElementsAre;

namespace {

struct Film {
    int width = 0;
    int height = 0;
    /// When each frame ends, in milliseconds.
    std::vector<int> ends;
    /// In the order of `bytesOf`.
    std::vector<std::string> frames;
};

Film readFilm(const std::string& path) {
    Film film;
    const std::string bytes = contentsOfFile(path);
    const WebPData data{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
    WebPAnimDecoderOptions options;
    WebPAnimDecoderOptionsInit(&options);
    options.color_mode = MODE_BGRA;
    const std::unique_ptr<WebPAnimDecoder, void (*)(WebPAnimDecoder*)> decoder(WebPAnimDecoderNew(&data, &options),
                                                                               WebPAnimDecoderDelete);
    if (!decoder)
        return film;
    WebPAnimInfo info;
    WebPAnimDecoderGetInfo(decoder.get(), &info);
    film.width = static_cast<int>(info.canvas_width);
    film.height = static_cast<int>(info.canvas_height);
    std::uint8_t* pixels = nullptr;
    int end = 0;
    while (WebPAnimDecoderHasMoreFrames(decoder.get()) && WebPAnimDecoderGetNext(decoder.get(), &pixels, &end)) {
        film.ends.push_back(end);
        film.frames.emplace_back(reinterpret_cast<const char*>(pixels),
                                 static_cast<std::size_t>(film.width) * film.height * 4);
    }
    return film;
}

DeviceProfile smallProfile() {
    DeviceProfile profile;
    profile.screenSize = {60, 40};
    profile.scale = 1;
    return profile;
}

} // namespace

TEST(Recording, HoldsTheFramesAtFixedStepsOfTheClock) {
    HeadlessHost host(smallProfile());
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {10, 10}}, UIColor::redColor());
    const std::string path = outputFile("film.webp");
    ASSERT_TRUE(host.startRecording(path, 10));
    UIView::animateWithDuration_delay_options_animations_completion(
        0.4, 0, UIViewAnimationOptionCurveLinear,
        [&] {
            view->setFrame({{40, 0}, {10, 10}});
        },
        nullptr);
    std::vector<std::string> expected{bytesOf(*host.snapshot())};
    for (int i = 0; i < 4; ++i) {
        host.advance(0.1);
        expected.push_back(bytesOf(*host.snapshot()));
    }
    ASSERT_TRUE(host.stopRecording());

    const Film film = readFilm(path);
    EXPECT_EQ(film.width, 60);
    EXPECT_EQ(film.height, 40);
    EXPECT_THAT(film.ends, ElementsAre(100, 200, 300, 400, 500));
    EXPECT_EQ(film.frames, expected);
}

TEST(Recording, ShowsTheChosenAreaOnly) {
    HeadlessHost host(smallProfile());
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {10, 10}}, UIColor::redColor());
    host.setPictureArea({{5, 5}, {20, 15}});
    const std::string path = outputFile("film.webp");
    ASSERT_TRUE(host.startRecording(path, 10));
    std::vector<std::string> expected{bytesOf(*host.snapshot())};
    host.advance(0.05);
    // Outside the area: no frame of its own.
    addView(window, {{30, 30}, {10, 10}}, UIColor::redColor());
    host.advance(0.1);
    view->setFrame({{5, 5}, {10, 10}});
    host.advance(0.1);
    expected.push_back(bytesOf(*host.snapshot()));
    ASSERT_TRUE(host.stopRecording());
    const Film film = readFilm(path);
    EXPECT_EQ(film.width, 20);
    EXPECT_EQ(film.height, 15);
    EXPECT_THAT(film.ends, ElementsAre(200, 300));
    EXPECT_EQ(film.frames, expected);
}

TEST(Recording, TakesAsManyFramesASecondAsAScriptSays) {
    HeadlessHost host(smallProfile());
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {10, 10}}, UIColor::redColor());
    const std::string path = outputFile("film.webp");
    std::string error;
    const auto script = TouchScript::parse("fps 4\nrecord " + path + "\nwait 1", error);
    ASSERT_TRUE(script) << error;
    UIView::animateWithDuration_animations(1, [&] { view->setFrame({{40, 0}, {10, 10}}); });
    ASSERT_TRUE(script->run(host, error)) << error;
    EXPECT_THAT(readFilm(path).ends, ElementsAre(250, 500, 750, 1000, 1250));
}

TEST(Recording, FramesLikeTheOneBeforeOnlyLengthenIt) {
    HeadlessHost host(smallProfile());
    const auto window = shownWindow();
    const std::string path = outputFile("film.webp");
    ASSERT_TRUE(host.startRecording(path));
    host.advance(0.5);
    window->setBackgroundColor(UIColor::blueColor());
    host.advance(1.5);
    ASSERT_TRUE(host.stopRecording());
    // The present frame was taken when the colour changed: it shows from the next one on.
    const Film film = readFilm(path);
    EXPECT_THAT(film.ends, ElementsAre(533, 2033));
}

TEST(Recording, OneAtATimeAndOnlyWhereItCanBeWritten) {
    HeadlessHost host(smallProfile());
    const auto window = shownWindow();
    EXPECT_FALSE(host.stopRecording());
    EXPECT_FALSE(host.startRecording(outputFile("missing") + "/film.webp"));
    EXPECT_FALSE(host.startRecording(outputFile("film.webp"), 0));
    EXPECT_FALSE(host.startRecording(outputFile("film.webp"), 121));
    EXPECT_TRUE(host.startRecording(outputFile("film.webp")));
    EXPECT_FALSE(host.startRecording(outputFile("other.webp")));
    EXPECT_TRUE(host.stopRecording());
    EXPECT_FALSE(host.isRecording());
}

TEST(Recording, TheEndOfTheHostWritesIt) {
    const std::string path = outputFile("film.webp");
    {
        HeadlessHost host(smallProfile());
        const auto window = shownWindow();
        ASSERT_TRUE(host.startRecording(path));
        host.advance(0.2);
    }
    EXPECT_EQ(readFilm(path).frames.size(), 1u);
}

TEST(Recording, GoesOnWhenTheScreenTurns) {
    HeadlessHost host(smallProfile());
    const auto window = shownWindow();
    const std::string path = outputFile("film.webp");
    ASSERT_TRUE(host.startRecording(path));
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    host.advance(0.2);
    ASSERT_TRUE(host.stopRecording());
    const Film film = readFilm(path);
    EXPECT_EQ(film.width, 60);
    ASSERT_EQ(film.frames.size(), 2u);
    EXPECT_EQ(film.frames[1].substr(39 * 4, 4), "\xff\xff\xff\xff");
    EXPECT_EQ(film.frames[1].substr(40 * 4, 4), std::string("\0\0\0\xff", 4));
}

} // namespace zr::tests::hosts
