#include <Tests/ZRPlatform/UIKit/Hosts/HostFixtures.h>

#include <ZRPlatform/UIKit/Application/DebugAids.h>
#include <ZRPlatform/UIKit/Application/Internal/FrameTimes.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::tests::hosts {

namespace {

constexpr FramePixel kBlack{0, 0, 0};

/// A white window with a black square of 40 points at (100, 100), and what helps to see it.
class DebugAidsTest : public testing::Test {
protected:
    DebugAidsTest() {
        window->setBackgroundColor(UIColor::whiteColor());
        host.advance(0);
    }

    void show(const char* names) {
        DebugAids aids;
        EXPECT_TRUE(names[0] == '\0' || aids.show(names));
        host.application()->setDebugAids(aids);
        host.advance(0);
    }
    std::string picture() { return bytesOf(*host.snapshot()); }

    HeadlessHost host{{.screenSize = {320, 480}, .scale = 2}};
    Ref<UIWindow> window = shownWindow();
    Ref<UIView> square = addView(window, {{100, 100}, {40, 40}}, UIColor::blackColor());
};

bool isReddish(FramePixel pixel) { return pixel.red > pixel.green + 50 && pixel.red > pixel.blue + 50; }
bool isBluish(FramePixel pixel) { return pixel.blue > pixel.red + 50 && pixel.blue > pixel.green + 50; }

} // namespace

// Names

TEST(DebugAids, AreSwitchedOnByName) {
    DebugAids aids;
    EXPECT_TRUE(aids.show("damage"));
    EXPECT_EQ(aids, (DebugAids{.showsDamage = true}));
    EXPECT_TRUE(aids.show("touches,times"));
    EXPECT_EQ(aids, (DebugAids{.showsTouches = true, .showsDamage = true, .showsFrameTimes = true}));
    EXPECT_TRUE(aids.show("borders"));
    EXPECT_TRUE(aids.showsLayerBorders);
}

TEST(DebugAids, AWrongNameChangesNothing) {
    for (const char* names : {"", ",", "touch", "touches,", "touches,nothing", "touches damage", "Touches"}) {
        DebugAids aids;
        EXPECT_FALSE(aids.show(names)) << names;
        EXPECT_EQ(aids, DebugAids()) << names;
    }
}

// Touches

TEST_F(DebugAidsTest, ACircleFollowsEachFingerAndFadesWhenItHasGone) {
    const std::string before = picture();
    show("touches");
    EXPECT_EQ(picture(), before);
    host.touchDown({50, 300}, 1);
    host.touchDown({250, 300}, 2);
    const FramePixel full = host.pixel({50, 300});
    EXPECT_TRUE(isBluish(full)) << full;
    EXPECT_EQ(host.pixel({250, 300}), full);
    EXPECT_EQ(host.pixel({50, 325}), kWhite);
    host.touchMove({50, 360}, 1);
    EXPECT_EQ(host.pixel({50, 300}), kWhite);
    EXPECT_EQ(host.pixel({50, 360}), full);
    host.touchUp(1);
    host.advance(0.15);
    const FramePixel half = host.pixel({50, 360});
    EXPECT_GT(half.red, full.red + 20);
    EXPECT_LT(half.red, 235);
    EXPECT_EQ(host.pixel({250, 300}), full) << "the other finger is still there";
    host.touchCancel(2);
    host.advance(0.31);
    EXPECT_EQ(picture(), before);
    const auto frames = host.framesComposed();
    host.advance(10);
    EXPECT_EQ(host.framesComposed(), frames);
}

TEST_F(DebugAidsTest, CirclesAreNeitherTouchedNorDumped) {
    const auto log = make<TouchLog>();
    log->setFrame(CGRectMake(200, 200, 100, 100));
    window->addSubview(log);
    host.touchDown({50, 300}, 1);
    const std::string dump = host.dump();
    host.touchUp(1);
    show("touches");
    host.touchDown({50, 300}, 1);
    EXPECT_EQ(host.dump(), dump);
    // A second finger where a circle lies already.
    host.touchDown({250, 250}, 2);
    host.touchMove({255, 250}, 2);
    host.touchUp(2);
    EXPECT_EQ(log->lines, (std::vector<std::string>{"began 250 250", "moved 255 250", "ended 255 250"}));
}

TEST_F(DebugAidsTest, CirclesAreAboveWindowsOfEveryLevel) {
    const auto high = shownWindow();
    high->setWindowLevel(5000);
    high->setBackgroundColor(UIColor::whiteColor());
    show("touches");
    host.touchDown({50, 300});
    EXPECT_TRUE(isBluish(host.pixel({50, 300})));
}

TEST_F(DebugAidsTest, CirclesGoAtOnceWhenTheyAreSwitchedOff) {
    const std::string before = picture();
    show("touches");
    host.touchDown({50, 300});
    EXPECT_NE(picture(), before);
    show("");
    EXPECT_EQ(picture(), before);
    host.touchUp();
    EXPECT_EQ(picture(), before);
}

// Borders

TEST_F(DebugAidsTest, EveryLayerHasALineOfAPixelAlongItsEdge) {
    const std::string before = picture(), dump = host.dump();
    show("borders");
    EXPECT_TRUE(isReddish(host.pixel({100, 120})));
    EXPECT_EQ(host.pixel({100.5, 120}), kBlack);
    EXPECT_EQ(host.pixel({99.5, 120}), kWhite);
    EXPECT_TRUE(isReddish(host.pixel({139.5, 120})));
    EXPECT_TRUE(isReddish(host.pixel({120, 100})));
    EXPECT_TRUE(isReddish(host.pixel({0, 200}))) << "the window's own";
    EXPECT_EQ(host.dump(), dump);
    show("");
    EXPECT_EQ(picture(), before);
}

TEST_F(DebugAidsTest, ALayerThatShowsNothingHasAnEdgeAndABitmapABlueOne) {
    const auto empty = addView(window, {{20, 300}, {60, 60}}, nullptr);
    const auto label = make<UILabel>(&UILabel::initWithFrame, CGRectMake(200, 300, 80, 40));
    label->setText("text");
    window->addSubview(label);
    const auto hidden = addView(window, {{20, 400}, {60, 60}}, UIColor::blackColor());
    hidden->setHidden(true);
    show("borders");
    EXPECT_TRUE(isReddish(host.pixel({20, 330})));
    EXPECT_TRUE(isBluish(host.pixel({200, 320})));
    EXPECT_EQ(host.pixel({20, 430}), kWhite);
}

TEST_F(DebugAidsTest, EdgesMoveWithTheirLayersAndLeaveNothingBehind) {
    const auto inner = addView(square, {{10, 10}, {10, 10}}, nullptr);
    show("borders");
    for (int step = 0; step < 20; ++step) {
        square->setCenter({static_cast<CGFloat>(120 + 7.3 * step), 120});
        square->setTransform(CGAffineTransformMakeRotation(static_cast<CGFloat>(0.1 * step)));
        if (step == 10)
            inner->removeFromSuperview();
        const std::string moved = picture();
        host.application()->setDebugAids(host.application()->debugAids());
        EXPECT_EQ(picture(), moved) << step;
    }
}

// Damage

TEST_F(DebugAidsTest, WhatTheLastFrameRepaintedIsTinted) {
    show("damage");
    host.advance(0);
    const FramePixel tintedWhite = host.pixel({10, 10});
    EXPECT_NE(tintedWhite, kWhite) << "everything, as the aid was switched on";
    square->setBackgroundColor(UIColor::whiteColor());
    EXPECT_EQ(host.pixel({120, 120}), tintedWhite);
    EXPECT_EQ(host.pixel({99, 120}), kWhite);
    EXPECT_EQ(host.damage(), (std::vector<PixelRect>{{200, 200, 80, 80}}));
    const auto frames = host.framesComposed();
    host.advance(5);
    EXPECT_EQ(host.framesComposed(), frames);
    EXPECT_EQ(host.pixel({120, 120}), tintedWhite) << "until the next frame";
    const auto other = addView(window, {{200, 300}, {10, 10}}, UIColor::whiteColor());
    EXPECT_EQ(host.pixel({120, 120}), kWhite);
    EXPECT_EQ(host.pixel({205, 305}), tintedWhite);
    EXPECT_EQ(host.damage(), (std::vector<PixelRect>{{400, 600, 20, 20}}));
    show("");
    EXPECT_EQ(host.pixel({205, 305}), kWhite);
}

// Frame times

TEST(FrameTimes, AreTheLastOneAndTheWorstOfSixty) {
    FrameTimes times;
    EXPECT_EQ(times.last(), 0);
    EXPECT_EQ(times.worst(), 0);
    times.add(30);
    times.add(2);
    EXPECT_EQ(times.last(), 2);
    EXPECT_EQ(times.worst(), 30);
    for (int i = 0; i < 58; ++i)
        times.add(1);
    EXPECT_EQ(times.worst(), 30);
    times.add(1);
    EXPECT_EQ(times.worst(), 2);
}

TEST_F(DebugAidsTest, FrameTimesShowInTheCornerAndMakeNoFrames) {
    const auto before = host.snapshot();
    show("times");
    const auto after = host.snapshot();
    PixelRect changed;
    for (int y = 0; y < 960; ++y) {
        for (int x = 0; x < 640; ++x) {
            if (before->row(static_cast<NSUInteger>(y))[x] != after->row(static_cast<NSUInteger>(y))[x])
                changed = unionOf(changed, {x, y, 1, 1});
        }
    }
    EXPECT_EQ(changed, (PixelRect{640 - 4 - 232, 4, 232, 32}));
    const auto frames = host.framesComposed();
    host.advance(10);
    EXPECT_EQ(host.framesComposed(), frames);
    show("");
    EXPECT_EQ(bytesOf(*host.snapshot()), bytesOf(*before));
}

TEST_F(DebugAidsTest, AllTogetherSurviveATurnOfTheScreen) {
    show("touches,borders,damage,times");
    host.touchDown({50, 300});
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    host.advance(1);
    host.touchUp();
    host.advance(1);
    const auto picture = host.snapshot();
    EXPECT_EQ(picture->width(), 960u);
    EXPECT_NE(host.pixel({420, 17}), kWhite) << "the note's edge, below whatever its text says";
}

} // namespace zr::tests::hosts
