#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Controls/UIProgressView.h>

#include <limits>

namespace zr::tests {

namespace {

class ProgressView : public OnScreen {
protected:
    explicit ProgressView(const NSString& systemVersion = "8.4") : OnScreen(systemVersion) {
        bar = place(make<UIProgressView>(), {{20, 100}, {200, 20}});
        bar->setProgressTintColor(UIColor::redColor());
        bar->setTrackTintColor(UIColor::blueColor());
    }

    /// Where the filled part ends on the screen, in points.
    CGFloat end() {
        for (CGFloat x = 21; x < 219; x += 0.5) {
            if (host.pixel({x, 101}) != kRedOnScreen)
                return x;
        }
        return 220;
    }

    Ref<UIProgressView> bar;
};

class OldProgressView : public ProgressView {
protected:
    OldProgressView() : ProgressView("6.1") {}
};

} // namespace

TEST_F(ProgressView, IsTwoPointsHighWhateverTheFrame) {
    EXPECT_EQ(bar->frame(), CGRectMake(20, 100, 200, 2));
    bar->setFrame({{1, 2}, {30, 0}});
    EXPECT_EQ(bar->frame(), CGRectMake(1, 2, 30, 2));
    bar->setBounds({{0, 0}, {50, 50}});
    EXPECT_EQ(bar->bounds(), CGRectMake(0, 0, 50, 2));
    EXPECT_EQ(bar->sizeThatFits({70, 70}), (CGSize{70, 2}));
    EXPECT_EQ(make<UIProgressView>()->frame(), CGRectMake(0, 0, 0, 2));
    EXPECT_EQ(make<UIProgressView>(&UIProgressView::initWithProgressViewStyle, UIProgressViewStyleBar)->frame(),
              CGRectMake(0, 0, 0, 2));
    bar->setTransform(CGAffineTransformMakeScale(1, 3));
    bar->setFrame({{0, 0}, {50, 50}});
    EXPECT_EQ(bar->bounds().size.height, 2);
}

TEST_F(OldProgressView, IsNinePointsHighBeforeVersion7) {
    EXPECT_EQ(bar->frame(), CGRectMake(20, 100, 200, 9));
    EXPECT_EQ(bar->sizeThatFits({70, 70}), (CGSize{70, 9}));
}

TEST_F(ProgressView, StaysThatHighWhenItsParentGrows) {
    auto parent = place(make<UIView>(), {{0, 0}, {100, 100}});
    parent->addSubview(bar);
    bar->setFrame({{10, 10}, {80, 2}});
    bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    parent->setFrame({{0, 0}, {200, 200}});
    EXPECT_EQ(bar->frame(), CGRectMake(10, 10, 180, 2));
}

TEST_F(ProgressView, ProgressIsClamped) {
    const std::pair<float, float> values[] = {{0.25f, 0.25f},
                                              {-0.05f, 0.0f},
                                              {1.5f, 1.0f},
                                              {std::numeric_limits<float>::quiet_NaN(), 0.0f},
                                              {std::numeric_limits<float>::infinity(), 1.0f}};
    for (const auto& [given, kept] : values) {
        bar->setProgress(0.5f);
        bar->setProgress(given);
        EXPECT_EQ(bar->progress(), kept);
        bar->setProgress_animated(given, true);
        EXPECT_EQ(bar->progress(), kept);
    }
    bar->setValue_forKey(0.75, "progress");
    EXPECT_EQ(bar->progress(), 0.75f);
}

TEST_F(ProgressView, FillsFromTheLeft) {
    bar->setProgress(0.5f);
    EXPECT_EQ(end(), 119.5); // the round end's last pixel is not all red
    EXPECT_EQ(host.pixel({120, 101}), kBlueOnScreen);
    EXPECT_EQ(host.pixel({217, 101}), kBlueOnScreen);
    EXPECT_EQ(host.pixel({120, 103}), (FramePixel{0, 0, 0}));
    bar->setProgress(0);
    EXPECT_EQ(host.pixel({22, 101}), kBlueOnScreen);
    bar->setProgress(1);
    EXPECT_EQ(host.pixel({217, 101}), kRedOnScreen);
}

TEST_F(OldProgressView, HasRoundEnds) {
    bar->setProgress(1);
    EXPECT_EQ(host.pixel({20, 100}), (FramePixel{0, 0, 0}));
    EXPECT_EQ(host.pixel({219.5, 108.5}), (FramePixel{0, 0, 0}));
    EXPECT_EQ(host.pixel({21, 104}), kRedOnScreen);
    EXPECT_EQ(host.pixel({218, 104}), kRedOnScreen);
}

TEST_F(ProgressView, SlidesWhenAnimated) {
    bar->setProgress(0.2f);
    host.advance(0);
    const CGFloat start = end();
    bar->setProgress_animated(0.8f, true);
    EXPECT_EQ(bar->progress(), 0.8f);
    host.advance(0);
    EXPECT_EQ(end(), start);
    host.advance(0.125);
    EXPECT_NEAR(end(), start + 60, 1);
    host.advance(0.1);
    EXPECT_LT(end(), start + 119.5);
    host.advance(0.025);
    EXPECT_EQ(end(), start + 120);
    EXPECT_TRUE(bar->subviews().back()->layer()->animationKeys().empty());
}

TEST_F(ProgressView, JumpsWhenNot) {
    bar->setProgress(0.2f);
    host.advance(0);
    bar->setProgress(0.8f);
    EXPECT_EQ(end(), 179.5);
    EXPECT_TRUE(bar->subviews().back()->layer()->animationKeys().empty());
}

TEST_F(ProgressView, FollowsAChangeOfWidth) {
    bar->setProgress(0.5f);
    bar->setFrame({{20, 100}, {100, 2}});
    EXPECT_EQ(end(), 69.5);
}

TEST_F(ProgressView, WithoutColoursOfItsOwnTintOnGray) {
    bar->setProgressTintColor(nullptr);
    bar->setTrackTintColor(nullptr);
    bar->setProgress(0.5f);
    EXPECT_EQ(host.pixel({60, 101}), (FramePixel{0, 122, 255}));
    EXPECT_EQ(host.pixel({180, 101}), (FramePixel{184, 184, 184}));
    bar->setTintColor(UIColor::greenColor());
    EXPECT_EQ(host.pixel({60, 101}), kGreenOnScreen);
}

TEST_F(ProgressView, ANotANumberFrameDrawsNothing) {
    bar->setProgress(0.5f);
    bar->setFrame({{std::numeric_limits<CGFloat>::quiet_NaN(), 100}, {200, 20}});
    EXPECT_EQ(host.pixel({60, 101}), (FramePixel{0, 0, 0}));
}

} // namespace zr::tests
