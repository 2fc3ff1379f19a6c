#include <Tests/ZRPlatform/QuartzCore/CompositorTesting.h>

#include <algorithm>

namespace zr::testing {

namespace {

/// A screen that is shown frames, and of these only what has to be shown anew.
class CompositorMarkTest : public CompositorTest {
protected:
    void present() {
        for (const PixelRect& rect : compositor.shownDamage()) {
            for (int y = rect.y; y < rect.bottom(); ++y)
                std::copy_n(compositor.pixels() + y * 200 + rect.x, rect.width, screen.begin() + y * 200 + rect.x);
        }
    }
    bool isCurrent() const { return std::equal(screen.begin(), screen.end(), compositor.pixels()); }
    static Ref<CGImage> note() { return redAndBlue(20, 6); }

    std::vector<std::uint32_t> screen = std::vector<std::uint32_t>(200 * 100);
};

} // namespace

TEST_F(CompositorMarkTest, WithoutMarksWhatIsShownIsWhatIsPainted) {
    compose();
    EXPECT_EQ(compositor.shownDamage(), compositor.damage());
    compose();
    EXPECT_TRUE(compositor.shownDamage().empty());
}

TEST_F(CompositorMarkTest, AScreenThatShowsOnlyWhatChangedIsAlwaysCurrent) {
    const auto layer = box(CGRectMake(10, 10, 20, 20), color(0, 0, 1));
    root->addSublayer(layer);
    for (int step = 0; step < 40; ++step) {
        if (step % 5 != 4)
            layer->setPosition({static_cast<CGFloat>(10 + 7 * (step % 11)), static_cast<CGFloat>(5 + step)});
        const bool isMarked = step % 13 > 3;
        const bool changes = !compose().empty();
        if (isMarked && changes)
            compositor.showMarks({step % 3 != 0, step % 4 ? note() : nullptr});
        present();
        EXPECT_TRUE(isCurrent()) << step;
        if (step % 13 == 12)
            compositor.removeMarks();
    }
}

TEST_F(CompositorMarkTest, TintAndNoteAreNoDamage) {
    const auto layer = box(CGRectMake(10, 10, 20, 20), color(0, 0, 0));
    root->addSublayer(layer);
    compose();
    layer->setBackgroundColor(color(1, 1, 1));
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{20, 20, 40, 40}}));
    compositor.showMarks({true, note()});
    EXPECT_EQ(compositor.damage(), (std::vector<PixelRect>{{20, 20, 40, 40}}));
    EXPECT_EQ(pixel(30, 30), 0xFFFFBFFFu) << "a quarter of magenta over white";
    EXPECT_EQ(pixel(10, 10), 0xFFFFFFFFu);
    EXPECT_EQ(pixel(176, 4), 0xFFFF0000u);
    EXPECT_EQ(pixel(195, 9), 0xFF0000FFu);
    EXPECT_EQ(pixel(196, 4), 0xFFFFFFFFu);
    EXPECT_EQ(compositor.snapshot()->row(30)[30], 0xFFFFBFFFu);
    compositor.removeMarks();
    EXPECT_EQ(pixel(30, 30), 0xFFFFFFFFu);
    EXPECT_EQ(compose(), (std::vector<PixelRect>{{0, 0, 200, 100}}));
}

TEST_F(CompositorMarkTest, EdgesAreDamageWhereTheyComeAndGo) {
    const auto layer = box(CGRectMake(10, 10, 20, 20), color(0, 0, 0));
    root->addSublayer(layer);
    compose();
    const SceneAids borders{true, nullptr};
    EXPECT_FALSE(compositor.compose({root.get()}, borders).empty());
    EXPECT_TRUE(compositor.compose({root.get()}, borders).empty());
    EXPECT_GT(channel(pixel(20, 40), kRed), 200);
    EXPECT_EQ(pixel(21, 40), 0xFF000000u);
    EXPECT_FALSE(compositor.compose({root.get()}).empty());
    EXPECT_EQ(pixel(20, 40), 0xFF000000u);
}

} // namespace zr::testing
