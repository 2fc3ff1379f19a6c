#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/Look/Landscape.h>
#include <Gallery/Look/StepSlider.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace zr;
using namespace zr::test;

namespace {

/// The page's picture.
Ref<UIImage> shownImage(const GalleryScreen& screen) {
    for (UIImageView* view : screen.all<UIImageView>()) {
        if (view->contentMode() == UIViewContentModeScaleAspectFit)
            return view->image();
    }
    return nullptr;
}

gallery::StepSlider* slider(const GalleryScreen& screen) { return screen.all<gallery::StepSlider>().at(0); }

/// Red, green, blue, of a bitmap's pixel.
std::uint32_t colorAt(const UIImage* image, NSUInteger x, NSUInteger y) {
    return image->CGImage()->row(y)[x] & 0xFFFFFF;
}

const CALayer* cardOf(const GalleryScreen& screen) { return screen.all<gallery::Landscape>().at(0)->layer(); }

CATransform3D seenTransform(const GalleryScreen& screen) { return cardOf(screen)->presentationValues().transform; }

} // namespace

TEST(ImagePages, EachButtonShowsWhatItsOperationMakes) {
    GalleryScreen screen("image-size");
    EXPECT_TRUE(screen.shows("300 x 200 points, 600 x 400 pixels"));
    const struct {
        const char* button;
        const char* caption;
    } steps[] = {
        {"rectImage", "200 x 200 points, 200 x 200 pixels"},   {"subImageWithRect", "90 x 90 points, 180 x 180 pixels"},
        {"scaleToSize", "120 x 200 points, 120 x 200 pixels"}, {"setFuzzyPhoto", "240 x 160 points, 240 x 160 pixels"},
        {"Original", "300 x 200 points, 600 x 400 pixels"},
    };
    for (const auto& step : steps) {
        screen.tapButton(step.button);
        EXPECT_TRUE(screen.shows(step.caption)) << step.button;
    }
}

TEST(ImagePages, TheSlidersStepIsTheGaussiansRadius) {
    GalleryScreen screen("image-gaussian");
    EXPECT_TRUE(screen.shows("648 x 448 points, 648 x 448 pixels")) << "radius 8: 24 more on every side";
    const CGPoint start = GalleryScreen::middleOf(slider(screen));
    screen.host.touchDown(start);
    EXPECT_EQ(slider(screen)->step(), 10);
    EXPECT_TRUE(screen.shows("720 x 520 points, 720 x 520 pixels"));
    screen.host.touchMove({0, start.y + 60}, 0.2);
    screen.host.touchUp();
    EXPECT_EQ(slider(screen)->step(), 0);
    EXPECT_TRUE(screen.shows("600 x 400 points, 600 x 400 pixels"));
    screen.tapButton("Square");
    EXPECT_TRUE(screen.shows("200 x 200 points, 200 x 200 pixels"));
    screen.tapButton("Tall");
    EXPECT_TRUE(screen.shows("100 x 200 points, 100 x 200 pixels"));
    screen.tapButton("Whole");
    EXPECT_TRUE(screen.shows("600 x 400 points, 600 x 400 pixels"));
}

TEST(ImagePages, TheTintCoversAQuarterOfAPictureOfScaleTwo) {
    GalleryScreen screen("image-box");
    EXPECT_NE(colorAt(shownImage(screen), 10, 390), 0x00C340u);
    screen.tapButton("Opaque");
    EXPECT_EQ(colorAt(shownImage(screen), 10, 390), 0x00C340u);
    EXPECT_EQ(colorAt(shownImage(screen), 299, 200), 0x00C340u);
    EXPECT_NE(colorAt(shownImage(screen), 300, 200), 0x00C340u);
    EXPECT_NE(colorAt(shownImage(screen), 299, 199), 0x00C340u);
    screen.tapButton("No tint");
    EXPECT_NE(colorAt(shownImage(screen), 10, 390), 0x00C340u);
}

TEST(ImagePages, AMoreBlurredPictureHasASofterEdge) {
    GalleryScreen screen("image-box");
    // Across the sun's rim, whose middle is at (468, 96).
    const auto steepness = [&] {
        int steepest = 0;
        for (NSUInteger x = 480; x < 540; ++x) {
            const int left = static_cast<int>(colorAt(shownImage(screen), x, 96) & 0xFF);
            const int right = static_cast<int>(colorAt(shownImage(screen), x + 1, 96) & 0xFF);
            steepest = std::max(steepest, std::abs(left - right));
        }
        return steepest;
    };
    slider(screen)->setStep(0);
    const CGPoint left = slider(screen)->convertPoint_toView({20, 22}, nullptr);
    const CGPoint right = slider(screen)->convertPoint_toView({330, 22}, nullptr);
    screen.host.tap(right);
    const int soft = steepness();
    screen.host.tap(left);
    EXPECT_GT(steepness(), 5 * soft);
}

TEST(AnimationPages, ACardTiltsAndRecedesAndComesBackWithoutAJump) {
    GalleryScreen screen("tilt");
    screen.host.advance(0.3);
    EXPECT_NEAR(seenTransform(screen).m22, 0.95 * std::cos(15 * M_PI / 180), 1e-6) << "leaning back";
    screen.host.advance(0.3);
    EXPECT_NEAR(seenTransform(screen).m11, 0.8, 1e-6);
    EXPECT_NEAR(seenTransform(screen).m42, -40, 1e-6);
    screen.host.advance(10);
    EXPECT_NEAR(seenTransform(screen).m11, 0.8, 1e-6) << "it holds its end";
    screen.tapButton("Backward");
    EXPECT_NEAR(seenTransform(screen).m11, 0.8, 1e-6);
    screen.host.advance(0.61);
    EXPECT_TRUE(CATransform3DIsIdentity(seenTransform(screen)));
    screen.tapButton("Forward");
    EXPECT_TRUE(CATransform3DIsIdentity(seenTransform(screen)));
    screen.host.advance(0.6);
    EXPECT_NEAR(seenTransform(screen).m11, 0.8, 1e-6);
}

TEST(AnimationPages, ACardSpinsUntilItIsStopped) {
    GalleryScreen screen("spin");
    screen.tapButton("1");
    screen.host.advance(0.25);
    // From half a turn, a quarter against the clock.
    EXPECT_NEAR(seenTransform(screen).m12, 1, 1e-6);
    screen.host.advance(100.25);
    EXPECT_NEAR(seenTransform(screen).m11, 1, 1e-5);
    screen.tapButton("Stop");
    EXPECT_FALSE(cardOf(screen)->hasAnimations());
}
