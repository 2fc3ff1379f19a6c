#include <Tests/ZRPlatform/UIKit/Lists/ScrollTesting.h>

namespace zr::tests {

namespace {

constexpr FramePixel kWhite{255, 255, 255};
/// Black of 0.35 on white.
constexpr FramePixel kBar{166, 166, 166};

/// On white, so that the bars of the scroll view can be told from it: it ends at x 250 and y 500, so that the bars are
/// 244.5 to 247 points from the left and 494.5 to 497 from the top.
class ScrollBars : public Scrolling {
protected:
    ScrollBars() {
        window->setBackgroundColor(UIColor::whiteColor());
        host.advance(0);
    }
    FramePixel vertical(CGFloat y) { return host.pixel({246, y}); }
    FramePixel horizontal(CGFloat x) { return host.pixel({x, 496}); }
};

} // namespace

TEST_F(ScrollBars, TheyShowWhileTheContentMovesAndFadeAtRest) {
    EXPECT_EQ(vertical(110), kWhite);
    EXPECT_TRUE(view->subviews().empty());
    host.touchDown({150, 300});
    EXPECT_EQ(vertical(110), kWhite);
    host.touchMove({150, 290});
    EXPECT_EQ(vertical(110), kBar);
    EXPECT_EQ(horizontal(60), kBar);
    EXPECT_TRUE(view->subviews().empty()) << "they are none of the content's views";
    host.advance(5);
    EXPECT_EQ(vertical(110), kBar) << "for as long as the finger drags";
    host.touchUp();
    host.advance(0.125);
    const FramePixel fading = vertical(110);
    EXPECT_GT(fading.red, kBar.red);
    EXPECT_LT(fading.red, 255);
    host.advance(0.125);
    EXPECT_EQ(vertical(110), kWhite);
    const std::int64_t frames = host.framesComposed();
    host.advance(5);
    EXPECT_EQ(host.framesComposed(), frames);
}

TEST_F(ScrollBars, TheirPlaceAndLengthAreThoseOfWhatShows) {
    host.touchDown({150, 300});
    host.touchMove({150, 290});
    // The way is 400 less 3 at each end and 5.5 for the other bar: 388.5; the half of that shows.
    EXPECT_EQ(vertical(106), kBar);
    EXPECT_EQ(vertical(102), kWhite);
    EXPECT_EQ(vertical(296), kBar);
    EXPECT_EQ(vertical(298.5), kWhite);
    host.touchMove({150, 90});
    EXPECT_EQ(view->contentOffset(), CGPointMake(0, 200));
    EXPECT_EQ(vertical(198), kWhite);
    EXPECT_EQ(vertical(202), kBar);
    EXPECT_EQ(vertical(393), kBar);
    EXPECT_EQ(vertical(396), kWhite);
}

TEST_F(ScrollBars, TheirInsetsMoveThem) {
    view->setScrollIndicatorInsets(UIEdgeInsetsMake(50, 0, 0, 10));
    host.touchDown({150, 300});
    host.touchMove({150, 290});
    EXPECT_EQ(vertical(200), kWhite);
    EXPECT_EQ(host.pixel({236, 152}), kWhite);
    EXPECT_EQ(host.pixel({236, 160}), kBar);
}

TEST_F(ScrollBars, TheyCanBeLeftOut) {
    view->setShowsVerticalScrollIndicator(false);
    host.touchDown({150, 300});
    host.touchMove({150, 290});
    EXPECT_EQ(vertical(110), kWhite);
    EXPECT_EQ(horizontal(60), kBar);
    view->setShowsVerticalScrollIndicator(true);
    view->setShowsHorizontalScrollIndicator(false);
    EXPECT_EQ(vertical(110), kBar);
    EXPECT_EQ(horizontal(60), kWhite);
}

TEST_F(ScrollBars, TheyDoNotShowWhereThereIsNothingToScroll) {
    view->setContentSize(CGSizeMake(200, 800));
    host.touchDown({150, 300});
    host.touchMove({150, 290});
    EXPECT_EQ(vertical(110), kBar);
    EXPECT_EQ(horizontal(60), kWhite);
    view->setContentSize(CGSizeMake(200, 100));
    EXPECT_EQ(vertical(110), kWhite);
}

TEST_F(ScrollBars, AFlashShowsThemForAMoment) {
    view->flashScrollIndicators();
    EXPECT_EQ(vertical(110), kBar);
    const std::int64_t frames = host.framesComposed();
    host.advance(0.4);
    EXPECT_EQ(vertical(110), kBar);
    EXPECT_EQ(host.framesComposed(), frames) << "nothing changes while they only show";
    host.advance(0.35);
    EXPECT_EQ(vertical(110), kWhite);
}

TEST_F(ScrollBars, AFlashWhileItMovesLastsUntilItIsAtRest) {
    drag({150, 450}, {0, -60});
    view->flashScrollIndicators();
    host.advance(2);
    EXPECT_NE(vertical(200), kWhite);
}

TEST_F(ScrollBars, StyleColoursThem) {
    view->setBackgroundColor(UIColor::blackColor());
    view->setIndicatorStyle(UIScrollViewIndicatorStyleWhite);
    view->flashScrollIndicators();
    EXPECT_EQ(vertical(110), (FramePixel{128, 128, 128}));
}

TEST_F(ScrollBars, TheyLieInFrontOfContentThatIsAddedLater) {
    view->flashScrollIndicators();
    const auto content = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 400, 800));
    content->setBackgroundColor(UIColor::whiteColor());
    view->addSubview(content);
    EXPECT_EQ(vertical(110), kBar);
}

TEST_F(ScrollBars, TheyShowDuringAnAnimatedChangeAndFadeAfterIt) {
    view->setContentOffset_animated(CGPointMake(0, 10), true);
    EXPECT_EQ(vertical(150), kBar);
    host.advance(0.3);
    host.advance(0.25);
    EXPECT_EQ(vertical(150), kWhite);
}

} // namespace zr::tests
