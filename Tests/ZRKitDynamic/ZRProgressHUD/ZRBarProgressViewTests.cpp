#include <Tests/ZRKitDynamic/ZRProgressHUD/ProgressViewTesting.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>

#include <limits>

namespace zr::testing {

namespace {

const std::vector<NSString> kKeys = {"lineColor", "progressRemainingColor", "progressColor", "progress"};

/// Red outline, blue inside, green pill.
Ref<ZRBarProgressView> makeBar(float progress, CGSize size = CGSizeMake(120, 20)) {
    auto bar = make<ZRBarProgressView>(&ZRBarProgressView::initWithFrame, CGRectMake(0, 0, size.width, size.height));
    bar->setLineColor(UIColor::redColor());
    bar->setProgressRemainingColor(UIColor::blueColor());
    bar->setProgressColor(UIColor::greenColor());
    bar->setProgress(progress);
    return bar;
}

/// A pill of height 2 r between x = 4 and width - 4, cut off at progress * width, but never inside its left end.
double pillArea(CGSize size, double progress) {
    const double r = size.height / 2 - 4;
    const double leftEnd = 4 + r, rightEnd = size.width - 4 - r;
    const double amount = progress * size.width;
    if (amount <= 0)
        return 0;
    const double leftCap = kPi * r * r / 2;
    if (amount < leftEnd)
        return leftCap;
    if (amount <= rightEnd)
        return leftCap + (amount - leftEnd) * 2 * r;
    // The half disc less the segment beyond the cut.
    const double cut = std::min(amount - rightEnd, r);
    const double segment = r * r * std::acos(cut / r) - cut * std::sqrt(r * r - cut * cut);
    return leftCap + (rightEnd - leftEnd) * 2 * r + kPi * r * r / 2 - segment;
}

} // namespace

// Construction and properties

TEST(ZRBarProgressView, StartsEmptyWithAWhiteOutline) {
    const HeadlessHost host;
    const auto bar = make<ZRBarProgressView>();
    EXPECT_EQ(bar->frame(), CGRectMake(0, 0, 120, 20));
    EXPECT_EQ(bar->progress(), 0.0f);
    EXPECT_TRUE(bar->lineColor()->isEqual(UIColor::whiteColor()));
    EXPECT_TRUE(bar->progressColor()->isEqual(UIColor::whiteColor()));
    EXPECT_TRUE(bar->progressRemainingColor()->isEqual(UIColor::clearColor()));
    EXPECT_TRUE(bar->backgroundColor()->isEqual(UIColor::clearColor()));
    EXPECT_FALSE(bar->isOpaque());
}

TEST(ZRBarProgressView, TakesAFrame) {
    const HeadlessHost host;
    const auto bar = make<ZRBarProgressView>(&ZRBarProgressView::initWithFrame, CGRectMake(3, 4, 50, 30));
    EXPECT_EQ(bar->frame(), CGRectMake(3, 4, 50, 30));
}

TEST(ZRBarProgressView, KeepsProgressAsItIs) {
    const HeadlessHost host;
    const auto bar = make<ZRBarProgressView>();
    for (const float progress : {-0.5f, 0.3f, 1.75f}) {
        bar->setProgress(progress);
        EXPECT_EQ(bar->progress(), progress);
    }
}

TEST(ZRBarProgressView, KeepsItsColors) {
    const HeadlessHost host;
    const auto bar = make<ZRBarProgressView>();
    auto color = UIColor::colorWithRed_green_blue_alpha(0.1, 0.2, 0.3, 0.4);
    const Weak<UIColor> weak(color);
    bar->setLineColor(color);
    bar->setProgressColor(color);
    bar->setProgressRemainingColor(color);
    color = nullptr;
    ASSERT_TRUE(weak.lock());
    EXPECT_EQ(bar->lineColor(), weak.lock().get());
    EXPECT_EQ(bar->progressColor(), weak.lock().get());
    EXPECT_EQ(bar->progressRemainingColor(), weak.lock().get());
    bar->setLineColor(nullptr);
    bar->setProgressColor(nullptr);
    bar->setProgressRemainingColor(nullptr);
    EXPECT_FALSE(bar->lineColor());
    EXPECT_FALSE(weak.lock());
}

TEST(ZRBarProgressView, IsReachedByKeys) {
    const HeadlessHost host;
    const auto bar = make<ZRBarProgressView>();
    for (const char* setter : {"setLineColor:", "setProgressRemainingColor:", "setProgressColor:", "setProgress:"})
        EXPECT_TRUE(bar->respondsToSelector(setter)) << setter;
    bar->setValue_forKey(0.25, "progress");
    bar->setValue_forKey(UIColor::redColor(), "lineColor");
    bar->setValue_forKey(UIColor::blueColor(), "progressRemainingColor");
    bar->setValue_forKey(UIColor::greenColor(), "progressColor");
    EXPECT_EQ(bar->progress(), 0.25f);
    EXPECT_EQ(bar->lineColor(), UIColor::redColor());
    EXPECT_EQ(bar->progressRemainingColor(), UIColor::blueColor());
    EXPECT_EQ(bar->progressColor(), UIColor::greenColor());
    EXPECT_EQ(bar->valueForKey("progress").floatValue(), 0.25f);
    EXPECT_TRUE(bar->respondsToSelector("setAlpha:"));
}

// Observing itself

TEST(ZRBarProgressView, ObservesItsFourProperties) {
    const HeadlessHost host;
    EXPECT_EQ(make<ZRBarProgressView>()->observableKeypaths(), kKeys);
}

TEST(ZRBarProgressView, EveryPropertyRedrawsAlsoWhenItStaysTheSame) {
    HeadlessHost host;
    expectEveryKeyRedraws<ZRBarProgressView>(host, kKeys);
}

TEST(ZRBarProgressView, AKeyOfADerivedClassRedrawsToo) {
    HeadlessHost host;
    expectEveryKeyRedraws<ZRBarProgressView>(host, {"mood"});
}

TEST(ZRBarProgressView, UnregisteringStopsRedrawing) {
    const HeadlessHost host;
    expectUnregisteringStopsRedrawing<ZRBarProgressView>(kKeys);
}

TEST(ZRBarProgressView, RedrawsWhateverItIsToldOf) {
    const HeadlessHost host;
    expectAnyChangeRedraws<ZRBarProgressView>();
}

TEST(ZRBarProgressView, AValueSetOnAnotherThreadMarksItThere) {
    const HeadlessHost host;
    expectNoHopBetweenThreads<ZRBarProgressView>();
}

TEST(ZRBarProgressView, GoesAwayWithTheLastReference) {
    const HeadlessHost host;
    expectGoesAwayWithTheLastReference<ZRBarProgressView>();
}

// Track

TEST(ZRBarProgressView, TrackIsAnOutlinedCapsule) {
    const HeadlessHost host;
    const auto picture = pictureOf(makeBar(0));
    for (const double x : {11.0, 30.0, 60.0, 109.0}) {
        for (const bool fromBelow : {false, true}) {
            const auto ink = [&](double y) { return inkAt(picture, x, fromBelow ? 20 - y : y); };
            EXPECT_EQ(ink(0.8), "nothing") << x;
            EXPECT_EQ(ink(1.2), "red") << x;
            EXPECT_EQ(ink(2.8), "red") << x;
            EXPECT_EQ(ink(3.2), "blue") << x;
            EXPECT_EQ(ink(9.9), "blue") << x;
        }
    }
    // Half circles of radius 8 around (10, 10) and (110, 10).
    for (int degrees = 0; degrees <= 180; degrees += 10) {
        SCOPED_TRACE(degrees);
        const double x = std::sin(degrees * kPi / 180), y = std::cos(degrees * kPi / 180);
        for (const double side : {-1, 1}) {
            const auto ink = [&](double radius) {
                return inkAt(picture, (side < 0 ? 10 : 110) + side * x * radius, 10 + y * radius);
            };
            EXPECT_EQ(ink(6.8), "blue");
            EXPECT_EQ(ink(7.2), "red");
            EXPECT_EQ(ink(8.8), "red");
            EXPECT_EQ(ink(9.2), "nothing");
        }
    }
}

TEST(ZRBarProgressView, OutlineLiesOverTheInsideWhichReachesItsMiddle) {
    const HeadlessHost host;
    const auto bar = makeBar(0);
    bar->setLineColor(UIColor::colorWithRed_green_blue_alpha(1, 0, 0, 0.6));
    const auto picture = pictureOf(bar);
    EXPECT_EQ(inkAt(picture, 60, 1.5), "99990000");
    EXPECT_EQ(inkAt(picture, 60, 2.5), "ff990066");
    EXPECT_EQ(inkAt(picture, 1.5, 9.5), "99990000");
    EXPECT_EQ(inkAt(picture, 2.5, 9.5), "ff990066");
}

TEST(ZRBarProgressView, TrackAreas) {
    const HeadlessHost host;
    for (const CGSize size : {CGSizeMake(120, 20), CGSizeMake(200, 31), CGSizeMake(64, 24.5)}) {
        SCOPED_TRACE(size.width);
        const double radius = size.height / 2 - 2, straight = size.width - 4 - 2 * radius;
        const auto bar = makeBar(0, size);
        bar->setLineColor(UIColor::clearColor());
        expectArea(paintedArea(pictureOf(bar)), kPi * radius * radius + straight * 2 * radius, 0);
        bar->setLineColor(UIColor::redColor());
        bar->setProgressRemainingColor(UIColor::clearColor());
        expectArea(paintedArea(pictureOf(bar)), (2 * kPi * radius + 2 * straight) * 2, 0);
    }
}

// Pill

TEST(ZRBarProgressView, InTheMiddleThePillIsRoundOnTheLeftAndStraightOnTheRight) {
    const HeadlessHost host;
    const auto picture = pictureOf(makeBar(0.5));
    for (const bool fromBelow : {false, true}) {
        const auto ink = [&](double x, double y) { return inkAt(picture, x, fromBelow ? 20 - y : y); };
        EXPECT_EQ(ink(30, 3.8), "blue"); // a gap of one point inside the outline
        EXPECT_EQ(ink(30, 4.2), "green");
        EXPECT_EQ(ink(30, 9.9), "green");
        EXPECT_EQ(ink(59.8, 4.2), "green");
        EXPECT_EQ(ink(59.8, 9.9), "green");
        EXPECT_EQ(ink(60.2, 4.2), "blue");
        EXPECT_EQ(ink(60.2, 9.9), "blue");
        EXPECT_EQ(ink(3.8, 9.9), "blue");
        EXPECT_EQ(ink(4.2, 9.9), "green");
        for (int degrees = 5; degrees < 90; degrees += 10) {
            const double x = std::sin(degrees * kPi / 180), y = std::cos(degrees * kPi / 180);
            EXPECT_EQ(ink(10 - x * 5.8, 10 - y * 5.8), "green") << degrees;
            EXPECT_EQ(ink(10 - x * 6.2, 10 - y * 6.2), "blue") << degrees;
        }
    }
}

TEST(ZRBarProgressView, PillEndsAtTheAmountBetweenTheCaps) {
    const HeadlessHost host;
    for (const float amount : {10.0f, 25.0f, 77.0f, 110.0f}) {
        const auto picture = pictureOf(makeBar(amount / 120));
        for (const double y : {4.2, 9.9, 10.1, 15.8}) {
            EXPECT_EQ(inkAt(picture, amount - 0.2, y), "green") << amount;
            EXPECT_EQ(inkAt(picture, amount + 0.2, y), "blue") << amount;
        }
    }
}

TEST(ZRBarProgressView, AnyAmountInTheLeftCapFillsAllOfIt) {
    const HeadlessHost host;
    const auto whole = pictureOf(makeBar(0.05f));
    for (const double y : {4.2, 9.9, 10.1, 15.8}) {
        EXPECT_EQ(inkAt(whole, 9.8, y), "green");
        EXPECT_EQ(inkAt(whole, 10.2, y), "blue");
    }
    EXPECT_EQ(inkAt(whole, 4.2, 9.9), "green");
    EXPECT_EQ(inkAt(whole, 5.5, 5.5), "blue");
    EXPECT_EQ(inkAt(whole, 5.5, 14.5), "blue");
    for (const float progress : {1e-6f, 0.001f, 0.0833f})
        EXPECT_TRUE(samePictures(pictureOf(makeBar(progress)), whole)) << progress;
}

TEST(ZRBarProgressView, InTheRightCapThePillIsRoundAndCutOffAtTheAmount) {
    const HeadlessHost host;
    for (const float amount : {111.0f, 113.0f, 114.0f, 115.5f}) {
        SCOPED_TRACE(amount);
        const auto picture = pictureOf(makeBar(amount / 120));
        for (double x = 104.5; x < 116; x += 0.5) {
            const double dx = x - 110;
            const double height = std::sqrt(36 - dx * dx);
            for (const double side : {-1, 1}) {
                // To the left of the middle of the cap the pill has its full height.
                const double edge = dx < 0 ? 6 : height;
                const bool inside = x < static_cast<double>(amount) - 0.1;
                const bool beyond = x > static_cast<double>(amount) + 0.1;
                if (inside || beyond) {
                    EXPECT_EQ(inkAt(picture, x, 10 + side * 0.1), inside ? "green" : "blue") << x;
                    EXPECT_EQ(inkAt(picture, x, 10 + side * (edge - 0.2)), inside ? "green" : "blue") << x;
                }
                EXPECT_NE(inkAt(picture, x, 10 + side * (edge + 0.2)), "green") << x;
            }
        }
    }
}

TEST(ZRBarProgressView, AWholePillIsRoundOnBothSides) {
    const HeadlessHost host;
    const auto whole = pictureOf(makeBar(1));
    for (int degrees = 5; degrees < 180; degrees += 10) {
        const double x = std::sin(degrees * kPi / 180), y = std::cos(degrees * kPi / 180);
        EXPECT_EQ(inkAt(whole, 110 + x * 5.8, 10 - y * 5.8), "green") << degrees;
        EXPECT_EQ(inkAt(whole, 110 + x * 6.2, 10 - y * 6.2), "blue") << degrees;
        EXPECT_EQ(inkAt(whole, 10 - x * 5.8, 10 - y * 5.8), "green") << degrees;
        EXPECT_EQ(inkAt(whole, 10 - x * 6.2, 10 - y * 6.2), "blue") << degrees;
    }
    EXPECT_EQ(inkAt(whole, 116.5, 10), "blue");
    EXPECT_EQ(inkAt(whole, 118, 10), "red");
}

TEST(ZRBarProgressView, WithoutProgressThereIsOnlyTheTrack) {
    const HeadlessHost host;
    const auto track = makeBar(0.5);
    track->setProgressColor(UIColor::clearColor());
    for (const float progress : {0.0f, -0.001f, -3.0f})
        EXPECT_TRUE(samePictures(pictureOf(makeBar(progress)), pictureOf(track))) << progress;
}

TEST(ZRBarProgressView, PillAreas) {
    const HeadlessHost host;
    for (const CGSize size : {CGSizeMake(120, 20), CGSizeMake(200, 31), CGSizeMake(64, 24.5)}) {
        SCOPED_TRACE(size.width);
        const auto bar = makeBar(0, size);
        bar->setLineColor(UIColor::clearColor());
        bar->setProgressRemainingColor(UIColor::clearColor());
        const double border = size.height / 2 / size.width;
        for (const double exact : {-1.0,
                                   -0.1,
                                   0.0,
                                   1e-5,
                                   border / 2,
                                   border * 0.999,
                                   border,
                                   border * 1.001,
                                   0.3,
                                   0.5,
                                   0.8,
                                   1 - border * 1.001,
                                   1 - border,
                                   1 - border * 0.999,
                                   1 - border * 0.8,
                                   1 - border * 0.5,
                                   1 - 4 / size.width,
                                   1.0,
                                   1.01,
                                   2.0,
                                   100.0}) {
            const auto progress = static_cast<float>(exact);
            bar->setProgress(progress);
            expectArea(paintedArea(pictureOf(bar)), pillArea(size, double(progress)), exact);
        }
    }
}

// All of it

TEST(ZRBarProgressView, DrawsABarOfTheRectanglesSizeAtTheOrigin) {
    const HeadlessHost host;
    const auto bar = makeBar(0.5);
    EXPECT_TRUE(samePictures(pictureOf(bar), pictureOf(bar, 16, CGRectMake(7, 3, 120, 20))));
    const auto small = pictureOf(bar, 16, CGRectMake(0, 0, 60, 16));
    EXPECT_EQ(inkAt(small, 58, 8), "red");
    EXPECT_EQ(inkAt(small, 30, 14), "red");
    EXPECT_EQ(inkAt(small, 29.8, 8), "green");
    EXPECT_EQ(inkAt(small, 30.2, 8), "blue");
    EXPECT_EQ(inkAt(small, 60.5, 8), "nothing");
}

TEST(ZRBarProgressView, ShowsOnTheScreenWhatItIsSetTo) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::blackColor());
    const auto bar = make<ZRBarProgressView>();
    bar->setFrame(CGRectMake(100, 200, 120, 20));
    window->addSubview(bar);
    const auto pixel = [&](CGFloat x, CGFloat y) { return host.pixel({100 + x, 200 + y}); };
    const FramePixel white{255, 255, 255}, black{0, 0, 0}, red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255};

    EXPECT_EQ(pixel(60, 2), white);
    EXPECT_EQ(pixel(30, 10), black);
    bar->setProgress(0.5);
    EXPECT_EQ(pixel(30, 10), white);
    EXPECT_EQ(pixel(90, 10), black);
    EXPECT_EQ(pixel(30, 3.25), black);
    bar->setLineColor(UIColor::redColor());
    EXPECT_EQ(pixel(60, 2), red);
    bar->setProgressRemainingColor(UIColor::blueColor());
    EXPECT_EQ(pixel(90, 10), blue);
    bar->setProgressColor(UIColor::greenColor());
    EXPECT_EQ(pixel(30, 10), green);
    bar->setProgress(1);
    EXPECT_EQ(pixel(90, 10), green);
    bar->setProgress(0);
    EXPECT_EQ(pixel(30, 10), blue);
}

TEST(ZRBarProgressView, NilColorsDrawInTheColorThatIsSet) {
    const HeadlessHost host;
    const auto bar = makeBar(0.5);
    bar->setProgressColor(nullptr);
    bar->setLineColor(nullptr);
    const auto picture = pictureOf(bar);
    EXPECT_EQ(inkAt(picture, 60, 2), "ff000000");
    EXPECT_EQ(inkAt(picture, 30, 10), "blue");
}

TEST(ZRBarProgressView, ProgressThatIsNoNumberDrawsNoPill) {
    const HeadlessHost host;
    const auto track = pictureOf(makeBar(0));
    for (const float progress : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                                 -std::numeric_limits<float>::infinity()})
        EXPECT_TRUE(samePictures(pictureOf(makeBar(progress)), track)) << progress;
}

TEST(ZRBarProgressView, AnySizeCanBeDrawn) {
    const HeadlessHost host;
    const auto bar = makeBar(0.5);
    for (const CGFloat width : {0.0, 1.0, 6.0, 9.0, 300.0}) {
        for (const CGFloat height : {0.0, 1.0, 4.0, 8.0, 9.0, 300.0}) {
            bar->setFrame(CGRectMake(0, 0, width, height));
            for (const float progress : {0.01f, 0.5f, 1.0f}) {
                bar->setProgress(progress);
                EXPECT_EQ(pictureOf(bar, 1) != nullptr, width > 0 && height > 0);
            }
        }
    }
}

} // namespace zr::testing
