#include <Tests/ZRKitDynamic/ZRProgressHUD/ProgressViewTesting.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>
#include <ZRPlatform/Foundation/NSLog.h>

#include <limits>

namespace zr::testing {

namespace {

const std::vector<NSString> kKeys = {"progressTintColor", "backgroundTintColor", "progress", "annular"};

/// Just before the framework version from which rings are thin.
const double kLastThickVersion = std::nextafter(847.2, 0);

/// Red outline or arc, blue disc or ring.
Ref<ZRRoundProgressView> makeView(float progress, bool annular = false, CGRect frame = CGRectMake(0, 0, 37, 37)) {
    auto view = make<ZRRoundProgressView>(&ZRRoundProgressView::initWithFrame, frame);
    view->setProgressTintColor(UIColor::redColor());
    view->setBackgroundTintColor(UIColor::blueColor());
    view->setAnnular(annular);
    view->setProgress(progress);
    return view;
}

/// The ink at a distance from the middle of a picture of 37 points, in a direction in degrees clockwise from twelve
/// o'clock.
std::string inkFrom(const UIImage* picture, double degrees, double distance) {
    const double angle = degrees * kPi / 180;
    return inkAt(picture, 18.5 + distance * std::sin(angle), 18.5 - distance * std::cos(angle));
}

/// How far the arc reaches: what lies past a full turn covers what is there already, and backwards is the long way
/// round.
double sweepOf(double progress) {
    const double sweep = 2 * kPi * progress;
    return sweep < 0 ? std::fmod(sweep, 2 * kPi) + 2 * kPi : std::min(sweep, 2 * kPi);
}

/// The part of a ring, with half of each cap outside either end. The caps must not meet.
double arcArea(double progress, double radius, double width, bool roundCaps) {
    const double sweep = sweepOf(progress);
    if (sweep == 0)
        return 0;
    const double outer = radius + width / 2, inner = radius - width / 2;
    const double part = sweep / 2 * (outer * outer - inner * inner);
    if (sweep == 2 * kPi)
        return part;
    return part + (roundCaps ? kPi * width * width / 4 : width * width);
}

} // namespace

// Construction and properties

TEST(ZRRoundProgressView, StartsSmallEmptyAndWhite) {
    const HeadlessHost host;
    const auto view = make<ZRRoundProgressView>();
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 37, 37));
    EXPECT_EQ(view->progress(), 0.0f);
    EXPECT_FALSE(view->isAnnular());
    EXPECT_EQ(rgba(view->progressTintColor()), (RGBAColor{1, 1, 1, 1}));
    EXPECT_EQ(rgba(view->backgroundTintColor()), (RGBAColor{1, 1, 1, 0.1}));
    EXPECT_TRUE(view->backgroundColor()->isEqual(UIColor::clearColor()));
    EXPECT_FALSE(view->isOpaque());
}

TEST(ZRRoundProgressView, TakesAFrame) {
    const HeadlessHost host;
    EXPECT_EQ(makeView(0, false, CGRectMake(3, 4, 50, 60))->frame(), CGRectMake(3, 4, 50, 60));
}

TEST(ZRRoundProgressView, KeepsProgressAsItIs) {
    const HeadlessHost host;
    const auto view = make<ZRRoundProgressView>();
    for (const float progress : {-0.5f, 0.3f, 1.75f}) {
        view->setProgress(progress);
        EXPECT_EQ(view->progress(), progress);
    }
}

TEST(ZRRoundProgressView, KeepsItsColors) {
    const HeadlessHost host;
    const auto view = make<ZRRoundProgressView>();
    auto color = UIColor::colorWithRed_green_blue_alpha(0.1, 0.2, 0.3, 0.4);
    const Weak<UIColor> weak(color);
    view->setProgressTintColor(color);
    view->setBackgroundTintColor(color);
    color = nullptr;
    EXPECT_TRUE(weak.lock());
    EXPECT_EQ(view->progressTintColor(), weak.lock().get());
    EXPECT_EQ(view->backgroundTintColor(), weak.lock().get());
    view->setProgressTintColor(nullptr);
    view->setBackgroundTintColor(nullptr);
    EXPECT_FALSE(view->progressTintColor());
    EXPECT_FALSE(weak.lock());
}

TEST(ZRRoundProgressView, IsReachedByKeys) {
    const HeadlessHost host;
    const auto view = make<ZRRoundProgressView>();
    for (const char* setter : {"setProgressTintColor:", "setBackgroundTintColor:", "setProgress:", "setAnnular:"})
        EXPECT_TRUE(view->respondsToSelector(setter)) << setter;
    view->setValue_forKey(0.25, "progress");
    view->setValue_forKey(true, "annular");
    view->setValue_forKey(UIColor::redColor(), "progressTintColor");
    view->setValue_forKey(UIColor::blueColor(), "backgroundTintColor");
    EXPECT_EQ(view->progress(), 0.25f);
    EXPECT_TRUE(view->isAnnular());
    EXPECT_EQ(view->progressTintColor(), UIColor::redColor());
    EXPECT_EQ(view->backgroundTintColor(), UIColor::blueColor());
    EXPECT_TRUE(view->valueForKey("annular").boolValue());
    EXPECT_EQ(view->valueForKey("progress").floatValue(), 0.25f);
    EXPECT_TRUE(view->respondsToSelector("setAlpha:"));
}

// Observing itself

TEST(ZRRoundProgressView, ObservesItsFourProperties) {
    const HeadlessHost host;
    EXPECT_EQ(make<ZRRoundProgressView>()->observableKeypaths(), kKeys);
}

TEST(ZRRoundProgressView, EveryPropertyRedrawsAlsoWhenItStaysTheSame) {
    HeadlessHost host;
    expectEveryKeyRedraws<ZRRoundProgressView>(host, kKeys);
}

TEST(ZRRoundProgressView, AKeyOfADerivedClassRedrawsToo) {
    HeadlessHost host;
    expectEveryKeyRedraws<ZRRoundProgressView>(host, {"mood"});
}

TEST(ZRRoundProgressView, UnregisteringStopsRedrawing) {
    const HeadlessHost host;
    expectUnregisteringStopsRedrawing<ZRRoundProgressView>(kKeys);
}

TEST(ZRRoundProgressView, RedrawsWhateverItIsToldOf) {
    const HeadlessHost host;
    expectAnyChangeRedraws<ZRRoundProgressView>();
}

TEST(ZRRoundProgressView, AValueSetOnAnotherThreadMarksItThere) {
    const HeadlessHost host;
    expectNoHopBetweenThreads<ZRRoundProgressView>();
}

TEST(ZRRoundProgressView, GoesAwayWithTheLastReference) {
    const HeadlessHost host;
    expectGoesAwayWithTheLastReference<ZRRoundProgressView>();
}

// Pie

TEST(ZRRoundProgressView, PieIsADiscInATwoPointOutline) {
    const HeadlessHost host;
    const auto picture = pictureOf(makeView(0));
    for (int degrees = 0; degrees < 360; degrees += 15) {
        SCOPED_TRACE(degrees);
        EXPECT_EQ(inkFrom(picture, degrees, 0), "blue");
        EXPECT_EQ(inkFrom(picture, degrees, 15.3), "blue");
        EXPECT_EQ(inkFrom(picture, degrees, 15.7), "red"); // the outline lies over the disc
        EXPECT_EQ(inkFrom(picture, degrees, 17.3), "red");
        EXPECT_EQ(inkFrom(picture, degrees, 17.7), "nothing");
    }
}

TEST(ZRRoundProgressView, WedgeGrowsClockwiseFromTwelveOClock) {
    const HeadlessHost host;
    for (const float progress : {0.05f, 0.25f, 0.5f, 0.8f}) {
        const auto picture = pictureOf(makeView(progress));
        for (int degrees = 3; degrees < 360; degrees += 4) {
            SCOPED_TRACE(degrees);
            const bool inside = degrees < progress * 360;
            EXPECT_EQ(inkFrom(picture, degrees, 10), inside ? "white" : "blue") << progress;
            // It covers the inner half of the outline.
            EXPECT_EQ(inkFrom(picture, degrees, 16.3), inside ? "white" : "red") << progress;
            EXPECT_EQ(inkFrom(picture, degrees, 16.7), "red") << progress;
        }
    }
}

TEST(ZRRoundProgressView, WholePieIsAWhiteDisc) {
    const HeadlessHost host;
    const auto picture = pictureOf(makeView(1));
    for (int degrees = 0; degrees < 360; degrees += 3) {
        SCOPED_TRACE(degrees);
        for (double distance = 0; distance < 16.4; distance += 1.3)
            EXPECT_EQ(inkFrom(picture, degrees, distance), "white");
        EXPECT_EQ(inkFrom(picture, degrees, 16.7), "red");
    }
}

TEST(ZRRoundProgressView, PastAFullTurnThePieStaysFull) {
    const HeadlessHost host;
    for (const float progress : {1.1f, 1.5f, 2.0f, 3.3f}) {
        const auto picture = pictureOf(makeView(progress));
        for (int degrees = 0; degrees < 360; degrees += 10)
            EXPECT_EQ(inkFrom(picture, degrees, 16.2), "white") << progress << " " << degrees;
    }
}

TEST(ZRRoundProgressView, DiscFitsBothSidesButTheWedgeTheWidth) {
    const HeadlessHost host;
    const auto tall = pictureOf(makeView(1, false, CGRectMake(0, 0, 37, 61)));
    EXPECT_EQ(inkAt(tall, 18.5, 2), "red");
    EXPECT_EQ(inkAt(tall, 18.5, 59), "red");
    EXPECT_EQ(inkAt(tall, 18.5, 5), "blue");
    EXPECT_EQ(inkAt(tall, 18.5, 30.5 - 16.3), "white");
    EXPECT_EQ(inkAt(tall, 18.5, 30.5 - 16.7), "blue");
    const auto wide = pictureOf(makeView(1, false, CGRectMake(0, 0, 61, 37)));
    EXPECT_EQ(inkAt(wide, 30.5, 0.1), "white"); // cut off by the view
    EXPECT_EQ(inkAt(wide, 30.5 + 28.3, 18.5), "white");
    EXPECT_EQ(inkAt(wide, 30.5 + 28.7, 18.5), "red");
}

TEST(ZRRoundProgressView, PieAreas) {
    const HeadlessHost host;
    const auto view = makeView(0);
    view->setProgressTintColor(UIColor::clearColor());
    expectArea(paintedArea(pictureOf(view)), kPi * 16.5 * 16.5, 0);
    view->setBackgroundTintColor(UIColor::clearColor());
    for (const float progress :
         {-1.25f, -0.75f, -0.25f, 0.0f, 0.001f, 0.1f, 0.25f, 0.5f, 0.75f, 0.999f, 1.0f, 1.25f, 2.0f, 3.5f}) {
        view->setProgress(progress);
        expectArea(paintedArea(pictureOf(view)), sweepOf(double(progress)) / 2 * 16.5 * 16.5, double(progress));
    }
    view->setProgress(0);
    view->setProgressTintColor(UIColor::greenColor());
    expectArea(paintedArea(pictureOf(view)), kPi * (17.5 * 17.5 - 15.5 * 15.5), 0);
}

// Ring

TEST(ZRRoundProgressView, RingIsThinWithSquareCapsFromFrameworkVersion847Point2) {
    struct {
        const char* system;
        double framework;
    } const versions[] = {{"6.1", 993.00}, {"7.0", 1047.20}, {"7.0", 847.2}};
    for (const auto& version : versions) {
        SCOPED_TRACE(version.framework);
        const HeadlessHost host(deviceOfVersion(version.system));
        if (version.framework == 847.2)
            setFoundationVersionNumber(version.framework);
        ASSERT_EQ(NSFoundationVersionNumber(), version.framework);
        const auto picture = pictureOf(makeView(0.25, true));
        for (int degrees = 10; degrees < 350; degrees += 10) {
            SCOPED_TRACE(degrees);
            if (degrees >= 80 && degrees <= 100)
                continue; // the cap
            const std::string ink = degrees < 90 ? "red" : "blue";
            EXPECT_EQ(inkFrom(picture, degrees, 16.3), "nothing");
            EXPECT_EQ(inkFrom(picture, degrees, 16.7), ink);
            EXPECT_EQ(inkFrom(picture, degrees, 18.3), ink);
        }
        // A square of 1 x 2 points before the start, and one behind the end.
        EXPECT_EQ(inkAt(picture, 18.5 - 0.9, 0.2), "red");
        EXPECT_EQ(inkAt(picture, 18.5 - 0.9, 1.8), "red");
        EXPECT_EQ(inkAt(picture, 18.5 - 1.1, 1), "blue");
        EXPECT_EQ(inkAt(picture, 35.2, 18.5 + 0.9), "red");
        EXPECT_EQ(inkAt(picture, 36.8, 18.5 + 0.9), "red");
        EXPECT_EQ(inkAt(picture, 36, 18.5 + 1.1), "blue");
    }
}

TEST(ZRRoundProgressView, RingIsThickWithRoundCapsBefore) {
    const HeadlessHost host;
    setFoundationVersionNumber(kLastThickVersion);
    const auto picture = pictureOf(makeView(0.25, true));
    for (int degrees = 10; degrees < 350; degrees += 10) {
        SCOPED_TRACE(degrees);
        if (degrees >= 80 && degrees <= 100)
            continue; // the cap
        const std::string ink = degrees < 90 ? "red" : "blue";
        EXPECT_EQ(inkFrom(picture, degrees, 13.3), "nothing");
        EXPECT_EQ(inkFrom(picture, degrees, 13.7), ink);
        EXPECT_EQ(inkFrom(picture, degrees, 18.3), ink);
    }
    // Half discs of radius 2.5.
    EXPECT_EQ(inkAt(picture, 18.5 - 2.3, 2.5), "red");
    EXPECT_EQ(inkAt(picture, 18.5 - 2.3, 0.8), "blue");
    EXPECT_EQ(inkAt(picture, 18.5 - 2.3, 4.2), "blue");
    EXPECT_EQ(inkAt(picture, 34.5, 18.5 + 2.3), "red");
    EXPECT_EQ(inkAt(picture, 32.8, 18.5 + 2.3), "blue");
}

TEST(ZRRoundProgressView, BackgroundRingHasNoCaps) {
    const HeadlessHost host;
    const auto view = makeView(0, true);
    // A square cap would stand out of the circle by 0.024 points.
    const auto picture = pictureOf(view, 64);
    for (const double x : {18.5 - 0.95, 18.5 + 0.95}) {
        EXPECT_EQ(inkAt(picture, x, 0), "nothing");
        EXPECT_EQ(inkAt(picture, x, 0.1), "blue");
    }
}

TEST(ZRRoundProgressView, RingWithoutProgressIsTheBackgroundAlone) {
    const HeadlessHost host;
    for (const double version : {993.00, kLastThickVersion}) {
        setFoundationVersionNumber(version);
        const auto view = makeView(0, true);
        const auto picture = pictureOf(view);
        for (int degrees = 0; degrees < 360; degrees += 3)
            EXPECT_EQ(inkFrom(picture, degrees, 17.5), "blue") << degrees;
        view->setProgressTintColor(UIColor::clearColor());
        EXPECT_TRUE(samePictures(picture, pictureOf(view)));
    }
}

TEST(ZRRoundProgressView, WholeRingShowsNoBackground) {
    const HeadlessHost host;
    for (const double version : {993.00, kLastThickVersion}) {
        setFoundationVersionNumber(version);
        for (const float progress : {1.0f, 1.3f, 2.0f, 2.6f}) {
            const auto picture = pictureOf(makeView(progress, true));
            for (int degrees = 0; degrees < 360; degrees += 3) {
                EXPECT_EQ(inkFrom(picture, degrees, 16.8), "red") << progress << " " << degrees;
                EXPECT_EQ(inkFrom(picture, degrees, 18.2), "red") << progress << " " << degrees;
            }
        }
    }
}

TEST(ZRRoundProgressView, RingFitsTheWidth) {
    const HeadlessHost host;
    const auto tall = pictureOf(makeView(0.5, true, CGRectMake(0, 0, 37, 61)));
    EXPECT_EQ(inkAt(tall, 18.5, 30.5 + 17.5), "red");
    EXPECT_EQ(inkAt(tall, 18.5, 30.5 + 18.7), "nothing");
    EXPECT_EQ(inkAt(tall, 1, 30.5), "blue");
    const auto wide = pictureOf(makeView(0.5, true, CGRectMake(0, 0, 61, 37)));
    EXPECT_EQ(inkAt(wide, 60, 18.5), "red");
    EXPECT_EQ(inkAt(wide, 1, 18.5), "blue");
    EXPECT_EQ(inkAt(wide, 30.5, 0.1), "nothing"); // its top is above the view
}

TEST(ZRRoundProgressView, RingAreas) {
    const HeadlessHost host;
    for (const bool thick : {false, true}) {
        SCOPED_TRACE(thick);
        setFoundationVersionNumber(thick ? kLastThickVersion : 993.00);
        const double width = thick ? 5 : 2;
        const double radius = (37 - width) / 2;
        const auto view = makeView(0, true);
        expectArea(paintedArea(pictureOf(view)), 2 * kPi * radius * width, 0);
        view->setBackgroundTintColor(UIColor::clearColor());
        for (const float progress :
             {-1.25f, -0.75f, -0.25f, 0.0f, 0.001f, 0.1f, 0.25f, 0.5f, 0.75f, 0.9f, 1.0f, 1.25f, 2.0f, 3.5f}) {
            view->setProgress(progress);
            expectArea(paintedArea(pictureOf(view)), arcArea(double(progress), radius, width, thick), double(progress));
        }
    }
}

// Both

TEST(ZRRoundProgressView, DrawsTheWholeViewWhateverItIsAskedFor) {
    const HeadlessHost host;
    for (const bool annular : {false, true}) {
        const auto view = makeView(0.4f, annular);
        EXPECT_TRUE(samePictures(pictureOf(view), pictureOf(view, 16, CGRectMake(3, 5, 7, 2))));
    }
}

TEST(ZRRoundProgressView, ShowsOnTheScreenWhatItIsSetTo) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::blackColor());
    const auto view = make<ZRRoundProgressView>();
    view->setFrame(CGRectMake(100, 200, 37, 37));
    window->addSubview(view);
    const auto pixel = [&](CGFloat x, CGFloat y) { return host.pixel({100 + x, 200 + y}); };
    const FramePixel white{255, 255, 255}, black{0, 0, 0}, red{255, 0, 0}, blue{0, 0, 255};

    const FramePixel faint = pixel(18.5, 10);
    EXPECT_NEAR(faint.red, 25.5, 1);
    EXPECT_EQ(faint.red, faint.blue);
    EXPECT_EQ(pixel(18.5, 2), white);
    EXPECT_EQ(pixel(0.5, 0.5), black);

    view->setProgress(0.5);
    EXPECT_EQ(pixel(25, 18.5), white);
    EXPECT_EQ(pixel(12, 18.5), faint);
    view->setBackgroundTintColor(UIColor::blueColor());
    EXPECT_EQ(pixel(12, 18.5), blue);
    view->setProgressTintColor(UIColor::redColor());
    EXPECT_EQ(pixel(2, 18.5), red);
    view->setAnnular(true);
    EXPECT_EQ(pixel(25, 18.5), black);
    EXPECT_EQ(pixel(36, 18.5), red);
    EXPECT_EQ(pixel(1, 18.5), blue);
    view->setAnnular(false);
    EXPECT_EQ(pixel(25, 18.5), white);
}

TEST(ZRRoundProgressView, NilColorsDrawInTheColorThatIsSet) {
    const HeadlessHost host;
    const auto view = makeView(0.5, true);
    view->setProgressTintColor(nullptr);
    const auto ring = pictureOf(view);
    EXPECT_EQ(inkFrom(ring, 90, 17.5), "blue");
    view->setAnnular(false);
    view->setBackgroundTintColor(nullptr);
    const auto pie = pictureOf(view);
    EXPECT_EQ(inkFrom(pie, 270, 10), "ff000000");
    EXPECT_EQ(inkFrom(pie, 270, 16.7), "ff000000");
    EXPECT_EQ(inkFrom(pie, 90, 10), "white");
}

TEST(ZRRoundProgressView, ProgressThatIsNoNumberDrawsNoProgress) {
    const HeadlessHost host;
    for (const float progress : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                                 -std::numeric_limits<float>::max()}) {
        for (const bool annular : {false, true})
            EXPECT_TRUE(samePictures(pictureOf(makeView(progress, annular)), pictureOf(makeView(0, annular))));
    }
}

TEST(ZRRoundProgressView, TooSmallForACircleDrawsNone) {
    const HeadlessHost host;
    for (const bool annular : {false, true}) {
        const auto view = makeView(0.5, annular, CGRectMake(0, 0, 1, 1));
        EXPECT_EQ(paintedArea(pictureOf(view)), 0);
        view->setFrame(CGRectZero);
        view->drawRect(view->bounds());
    }
}

} // namespace zr::testing
