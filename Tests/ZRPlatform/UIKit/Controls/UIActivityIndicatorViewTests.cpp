#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>
#include <Tests/ZRPlatform/UIKit/Hosts/HostFixtures.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/UIKit/Controls/UIActivityIndicatorView.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <set>

namespace zr::tests {

namespace {

constexpr FramePixel kBlackOnScreen{0, 0, 0}, kGrayOnScreen{128, 128, 128};
constexpr CGFloat kNotANumber = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr NSTimeInterval kStep = 1 / 12.0;

Ref<UIActivityIndicatorView> makeSpinner(UIActivityIndicatorViewStyle style) {
    return make<UIActivityIndicatorView>(&UIActivityIndicatorView::initWithActivityIndicatorStyle, style);
}

/// A place on the screen, so far from the middle and so many degrees clockwise from the top.
CGPoint around(CGPoint middle, CGFloat radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {middle.x + radius * static_cast<CGFloat>(std::sin(angle)),
            middle.y - radius * static_cast<CGFloat>(std::cos(angle))};
}

/// How many lit stretches a circle goes through, on black.
int finsOnCircle(HeadlessHost& host, CGPoint middle, CGFloat radius) {
    int fins = 0;
    for (int degrees = 0; degrees < 360; ++degrees) {
        const bool isLit = host.pixel(around(middle, radius, degrees)).red > 15;
        const bool wasLit = host.pixel(around(middle, radius, degrees - 1)).red > 15;
        fins += isLit && !wasLit ? 1 : 0;
    }
    return fins;
}

/// A running spinner of 37 x 37 points at (100, 50).
class Spinner : public OnScreen {
protected:
    Spinner() {
        spinner = place(makeSpinner(UIActivityIndicatorViewStyleWhiteLarge), {{100, 50}, {37, 37}});
        spinner->startAnimating();
        host.advance(0);
    }

    /// The middle of the fin so many places clockwise from the top.
    FramePixel fin(int place) { return host.pixel(around({118.5, 68.5}, 13.5, 30 * place)); }
    int brightFin() {
        int brightest = 0;
        for (int place = 1; place < 12; ++place)
            brightest = fin(place).red > fin(brightest).red ? place : brightest;
        return brightest;
    }
    std::string picture() { return hosts::bytesOf(*host.snapshot()); }
    /// Frames composed in so many seconds of a display of 60 frames a second.
    std::int64_t framesIn(int seconds) {
        const std::int64_t before = host.framesComposed();
        for (int i = 0; i < 60 * seconds; ++i)
            host.advance(1 / 60.0);
        return host.framesComposed() - before;
    }
    CGImageRef shownPicture() const { return spinner->subviews().front()->layer()->contents(); }

    Ref<UIActivityIndicatorView> spinner;
};

} // namespace

TEST(UIActivityIndicatorView, TheStyleGivesTheSize) {
    const std::pair<UIActivityIndicatorViewStyle, CGFloat> sides[] = {{UIActivityIndicatorViewStyleWhiteLarge, 37},
                                                                      {UIActivityIndicatorViewStyleWhite, 20},
                                                                      {UIActivityIndicatorViewStyleGray, 20}};
    for (const auto& [style, side] : sides) {
        const auto spinner = makeSpinner(style);
        EXPECT_EQ(spinner->activityIndicatorViewStyle(), style);
        EXPECT_EQ(spinner->frame(), CGRectMake(0, 0, side, side));
        EXPECT_EQ(spinner->sizeThatFits({300, 1}), (CGSize{side, side}));
    }
}

TEST(UIActivityIndicatorView, AFrameIsKeptAndTheStyleIsWhite) {
    const auto spinner = make<UIActivityIndicatorView>(&UIView::initWithFrame, CGRectMake(1, 2, 30, 40));
    EXPECT_EQ(spinner->frame(), CGRectMake(1, 2, 30, 40));
    EXPECT_EQ(spinner->activityIndicatorViewStyle(), UIActivityIndicatorViewStyleWhite);
    EXPECT_TRUE(spinner->color()->isEqual(UIColor::whiteColor()));
    spinner->sizeToFit();
    EXPECT_EQ(spinner->frame(), CGRectMake(1, 2, 20, 20));
}

TEST(UIActivityIndicatorView, WhatIsNoStyleIsWhite) {
    for (const NSInteger number : {-1, 3, 1000}) {
        const auto spinner = makeSpinner(static_cast<UIActivityIndicatorViewStyle>(number));
        EXPECT_EQ(spinner->activityIndicatorViewStyle(), UIActivityIndicatorViewStyleWhite);
        EXPECT_EQ(spinner->frame(), CGRectMake(0, 0, 20, 20));
    }
}

TEST(UIActivityIndicatorView, CanBeReadAndSetByKey) {
    const auto spinner = makeSpinner(UIActivityIndicatorViewStyleGray);
    EXPECT_FALSE(spinner->valueForKey("animating").boolValue());
    spinner->startAnimating();
    EXPECT_TRUE(spinner->valueForKey("animating").boolValue());
    spinner->setValue_forKey(Ref<UIColor>(UIColor::redColor()), "color");
    EXPECT_EQ(spinner->color(), UIColor::redColor());
    spinner->setValue_forKey(false, "hidesWhenStopped");
    EXPECT_FALSE(spinner->hidesWhenStopped());
    spinner->setValue_forKey(NSInteger{UIActivityIndicatorViewStyleWhiteLarge}, "activityIndicatorViewStyle");
    EXPECT_EQ(spinner->activityIndicatorViewStyle(), UIActivityIndicatorViewStyleWhiteLarge);
}

TEST(UIActivityIndicatorView, HasTwelveCrispFinsAtEveryScale) {
    for (const CGFloat scale : {1, 2, 3}) {
        HeadlessHost host({{320, 480}, scale, "8.4", UIInterfaceOrientationPortrait});
        auto window = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 320, 480));
        window->setBackgroundColor(UIColor::blackColor());
        window->makeKeyAndVisible();
        // On a plain screen, the middle of 25 points lies half a pixel off.
        const auto large = makeSpinner(UIActivityIndicatorViewStyleWhiteLarge);
        const auto small = make<UIActivityIndicatorView>(&UIView::initWithFrame, CGRectMake(50, 0, 25, 26));
        for (const auto& spinner : {large, small}) {
            window->addSubview(spinner);
            spinner->startAnimating();
        }
        EXPECT_EQ(finsOnCircle(host, {18.5, 18.5}, 13.5), 12) << scale;
        EXPECT_EQ(finsOnCircle(host, {scale == 1 ? 63 : 62.5, 13}, 8), 12) << scale;
        const CGFloat pixel = 1 / scale, inside = pixel / 2;
        const auto expectCrisp = [&](CGFloat left, CGFloat right, CGFloat y) {
            EXPECT_EQ(host.pixel({left - inside, y}), kBlackOnScreen) << scale;
            EXPECT_EQ(host.pixel({left + inside, y}), kWhiteOnScreen) << scale;
            EXPECT_EQ(host.pixel({right - inside, y}), kWhiteOnScreen) << scale;
            EXPECT_EQ(host.pixel({right + inside, y}), kBlackOnScreen) << scale;
        };
        expectCrisp(17, 20, 5);
        const CGFloat left = std::floor(61.5 * scale + 0.5) / scale;
        expectCrisp(left, left + 2, 5.5);
        // The fins reach to the edge, and none beyond it.
        EXPECT_NE(host.pixel({18.5, inside}), kBlackOnScreen) << scale;
        EXPECT_NE(host.pixel({37 - inside, 18.5}), kBlackOnScreen) << scale;
        EXPECT_EQ(host.pixel({37 + inside, 18.5}), kBlackOnScreen) << scale;
    }
}

TEST_F(Spinner, FadesBehindTheBrightFin) {
    EXPECT_EQ(fin(0), kWhiteOnScreen);
    EXPECT_EQ(fin(1), (FramePixel{51, 51, 51}));
    for (int place = 2; place < 12; ++place)
        EXPECT_NEAR(fin(place).red - fin(place - 1).red, 204 / 11.0, 1) << place;
    EXPECT_EQ(host.pixel({118.5, 68.5}), kBlackOnScreen);
}

TEST_F(Spinner, StepsClockwiseByAFinEveryTwelfthOfASecond) {
    std::set<std::string> pictures;
    for (int step = 0; step < 24; ++step) {
        host.advance(kStep * 0.1);
        EXPECT_EQ(brightFin(), step % 12);
        const std::string early = picture();
        host.advance(kStep * 0.8);
        EXPECT_EQ(picture(), early) << "it glides";
        pictures.insert(early);
        host.advance(kStep * 0.1);
    }
    EXPECT_EQ(pictures.size(), 12u);
}

TEST_F(Spinner, StepsAtTheExactMoment) {
    host.advance(0.25 - 1e-9);
    EXPECT_EQ(brightFin(), 2);
    host.advance(1e-9);
    EXPECT_EQ(brightFin(), 3);
}

TEST_F(Spinner, TurnsOnceASecond) {
    for (const NSTimeInterval moment : {0.0, 0.4}) {
        host.advance(moment);
        const std::string before = picture();
        host.advance(0.5);
        EXPECT_NE(picture(), before);
        host.advance(0.5);
        EXPECT_EQ(picture(), before);
    }
}

TEST_F(Spinner, ComposesNoFrameBetweenTwoSteps) {
    host.advance(kStep / 2); // off the display's beat
    EXPECT_EQ(framesIn(1), 12);
    const NSTimeInterval next = secondsFromNanoseconds(host.application()->nextFrameTime().value());
    EXPECT_NEAR(next, host.time() + kStep / 2, 1e-6);
}

TEST_F(Spinner, AStepRepaintsNothingButTheFins) {
    host.advance(kStep * 1.5);
    ASSERT_FALSE(host.damage().empty());
    for (const PixelRect& rect : host.damage())
        EXPECT_EQ(intersection(rect, {200, 100, 74, 74}), rect);
}

TEST_F(Spinner, IsIdleOnceStopped) {
    host.advance(kStep / 2);
    spinner->stopAnimating();
    EXPECT_FALSE(spinner->isAnimating());
    host.advance(0);
    EXPECT_EQ(framesIn(2), 0);
    EXPECT_FALSE(host.application()->nextFrameTime());
    EXPECT_FALSE(NSRunLoop::mainRunLoop()->nextDueTime());
    EXPECT_EQ(shownPicture(), nullptr);
}

TEST_F(Spinner, IsIdleWhereItCannotBeSeen) {
    host.advance(kStep / 2);
    const auto parent = place(make<UIView>(), {{0, 0}, {320, 480}});
    parent->addSubview(spinner);
    parent->setHidden(true);
    host.advance(0);
    EXPECT_EQ(framesIn(1), 0);
    parent->setHidden(false);
    host.advance(0);
    EXPECT_EQ(framesIn(1), 12);
}

TEST_F(Spinner, HidesWhileStoppedUnlessToldNotTo) {
    EXPECT_FALSE(spinner->isHidden());
    spinner->stopAnimating();
    EXPECT_TRUE(spinner->isHidden());
    EXPECT_EQ(finsOnCircle(host, {118.5, 68.5}, 13.5), 0);
    spinner->setHidesWhenStopped(false);
    EXPECT_FALSE(spinner->isHidden());
    EXPECT_EQ(finsOnCircle(host, {118.5, 68.5}, 13.5), 12);
    EXPECT_EQ(framesIn(1), 0);
    host.advance(0.3);
    EXPECT_EQ(brightFin(), 0);
    spinner->startAnimating();
    spinner->setHidesWhenStopped(true);
    EXPECT_FALSE(spinner->isHidden());
    spinner->stopAnimating();
    EXPECT_TRUE(spinner->isHidden());
    EXPECT_TRUE(makeSpinner(UIActivityIndicatorViewStyleGray)->isHidden());
}

TEST_F(Spinner, LeavesHiddenToItsOwnerWhenItDoesNotHide) {
    spinner->setHidesWhenStopped(false);
    spinner->stopAnimating();
    EXPECT_FALSE(spinner->isHidden());
    spinner->setHidden(true);
    spinner->startAnimating();
    EXPECT_TRUE(spinner->isHidden());
    EXPECT_TRUE(spinner->isAnimating());
    spinner->setHidden(false);
    host.advance(kStep * 1.5);
    EXPECT_EQ(brightFin(), 1);
}

TEST_F(Spinner, ShowsWhenUnhiddenByHandWhileStopped) {
    spinner->stopAnimating();
    spinner->setHidden(false);
    EXPECT_EQ(finsOnCircle(host, {118.5, 68.5}, 13.5), 12);
}

TEST_F(Spinner, StartsFromTheTopmostFinAgain) {
    host.advance(0.3);
    spinner->startAnimating(); // it runs already
    EXPECT_EQ(brightFin(), 3);
    spinner->stopAnimating();
    host.advance(0.3);
    spinner->startAnimating();
    EXPECT_EQ(brightFin(), 0);
    host.advance(kStep * 1.5);
    EXPECT_EQ(brightFin(), 1);
}

TEST_F(Spinner, GoesOnByTheClockWhileOutOfTheWindow) {
    host.advance(kStep / 2);
    spinner->removeFromSuperview();
    host.advance(0);
    EXPECT_EQ(finsOnCircle(host, {118.5, 68.5}, 13.5), 0);
    EXPECT_EQ(framesIn(1), 0);
    host.advance(kStep * 3);
    EXPECT_TRUE(spinner->isAnimating());
    window->addSubview(spinner);
    EXPECT_EQ(brightFin(), 3);
    EXPECT_EQ(framesIn(1), 12);
    EXPECT_EQ(brightFin(), 3);
}

TEST_F(Spinner, MayBeStartedOutOfTheWindow) {
    const auto other = makeSpinner(UIActivityIndicatorViewStyleWhiteLarge);
    other->startAnimating();
    host.advance(kStep * 2.5);
    spinner->removeFromSuperview();
    place(other, {{100, 50}, {37, 37}});
    EXPECT_EQ(brightFin(), 2);
}

TEST_F(Spinner, TakesAColourAndWithNilItsOwnAgain) {
    host.advance(kStep * 4.5);
    spinner->setColor(UIColor::redColor());
    EXPECT_EQ(fin(4), kRedOnScreen); // the same fin goes on
    EXPECT_EQ(fin(5), (FramePixel{51, 0, 0}));
    host.advance(kStep);
    EXPECT_EQ(fin(5), kRedOnScreen);
    spinner->setColor(nullptr);
    EXPECT_EQ(spinner->color(), UIColor::whiteColor());
    EXPECT_EQ(fin(5), kWhiteOnScreen);
    spinner->setColor(UIColor::redColor()->colorWithAlphaComponent(0));
    EXPECT_EQ(fin(5), kBlackOnScreen);
}

TEST_F(Spinner, AStyleSetLaterGivesItsSizeAndColour) {
    spinner->setColor(UIColor::redColor());
    host.advance(kStep * 3.5);
    spinner->setActivityIndicatorViewStyle(UIActivityIndicatorViewStyleGray);
    EXPECT_EQ(spinner->frame(), CGRectMake(100, 50, 20, 20));
    EXPECT_EQ(spinner->color(), UIColor::grayColor());
    EXPECT_EQ(host.pixel(around({110, 60}, 7.5, 90)), kGrayOnScreen);
    EXPECT_EQ(finsOnCircle(host, {110, 60}, 7.5), 12);
    EXPECT_EQ(host.pixel({135, 68.5}), kBlackOnScreen);
    spinner->setActivityIndicatorViewStyle(static_cast<UIActivityIndicatorViewStyle>(7));
    EXPECT_EQ(spinner->activityIndicatorViewStyle(), UIActivityIndicatorViewStyleWhite);
    EXPECT_EQ(host.pixel(around({110, 60}, 7.5, 90)), kWhiteOnScreen);
}

TEST_F(Spinner, AStyleThatSuitsTheFrameMovesTheFinsToo) {
    spinner->setFrame({{100, 50}, {20, 20}});
    EXPECT_EQ(finsOnCircle(host, {110, 60}, 13.5), 12);
    spinner->setActivityIndicatorViewStyle(UIActivityIndicatorViewStyleWhite);
    EXPECT_EQ(finsOnCircle(host, {110, 60}, 13.5), 0);
    EXPECT_EQ(finsOnCircle(host, {110, 60}, 7.5), 12);
}

TEST_F(Spinner, LiesInTheMiddleOfAnyFrame) {
    spinner->setFrame({{100, 50}, {137, 97}});
    EXPECT_EQ(finsOnCircle(host, {168.5, 98.5}, 13.5), 12);
    spinner->setFrame({{200, 200}, {0, 0}});
    EXPECT_EQ(finsOnCircle(host, {200, 200}, 13.5), 12);
    spinner->setFrame({{100, 50}, {7, 7}});
    EXPECT_EQ(finsOnCircle(host, {103.5, 53.5}, 13.5), 12);
}

TEST_F(Spinner, ANotANumberFrameDrawsNothing) {
    const std::string running = picture();
    for (const CGRect& frame : {CGRectMake(kNotANumber, 50, 37, 37), CGRectMake(100, 50, kNotANumber, 37)}) {
        spinner->setFrame(frame);
        EXPECT_EQ(finsOnCircle(host, {118.5, 68.5}, 13.5), 0);
        spinner->setActivityIndicatorViewStyle(UIActivityIndicatorViewStyleWhiteLarge);
        host.advance(1);
    }
    spinner->setFrame({{100, 50}, {37, 37}});
    EXPECT_EQ(picture(), running);
}

TEST_F(Spinner, ThoseThatLookAlikeShareTheirPictures) {
    const auto other = makeSpinner(UIActivityIndicatorViewStyleWhiteLarge);
    const auto pictureOf = [](UIView* view) { return view->subviews().front()->layer()->contents(); };
    EXPECT_EQ(pictureOf(other), nullptr);
    other->startAnimating();
    EXPECT_EQ(pictureOf(other), shownPicture());
    other->setColor(UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 1));
    spinner->setColor(UIColor::redColor());
    EXPECT_EQ(pictureOf(other), shownPicture());
    other->setColor(UIColor::blueColor());
    EXPECT_NE(pictureOf(other), shownPicture());
    other->setActivityIndicatorViewStyle(UIActivityIndicatorViewStyleGray);
    other->setColor(UIColor::redColor());
    EXPECT_NE(pictureOf(other), shownPicture());
    spinner->setActivityIndicatorViewStyle(UIActivityIndicatorViewStyleWhite);
    spinner->setColor(UIColor::redColor());
    EXPECT_EQ(pictureOf(other), shownPicture());
    EXPECT_EQ(spinner->layer()->contents(), nullptr); // nothing of its own is drawn
}

TEST_F(Spinner, NothingKeepsOneThatRuns) {
    const Weak<UIActivityIndicatorView> weak = spinner;
    spinner->removeFromSuperview();
    spinner = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(finsOnCircle(host, {118.5, 68.5}, 13.5), 0);
}

} // namespace zr::tests
