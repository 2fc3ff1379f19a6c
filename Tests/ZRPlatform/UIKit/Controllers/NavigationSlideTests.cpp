#include <Tests/ZRPlatform/UIKit/Controllers/DrawingTesting.h>
#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

constexpr double kTiny = 1e-4;

/// Counts how often it is drawn.
class DrawnScreen : public Screen {
public:
    class DrawnView : public UIView {
    public:
        void drawRect(CGRect) override { ++*times; }
        int* times = nullptr;
    };

    void loadView() override {
        auto view = make<DrawnView>(&UIView::initWithFrame, UIScreen::mainScreen()->bounds());
        view->times = &timesDrawn;
        setView(view);
    }

    int timesDrawn = 0;
};

class NavigationSlide : public Navigation {
protected:
    /// The red, green or blue of the screens at a point below the bar, dimmed or not.
    char seenAt(CGFloat x) {
        const FramePixel pixel = host.pixel({x, 400});
        return pixel.red > 200 ? 'A' : pixel.green > 100 ? 'B' : pixel.blue > 200 ? 'C' : '?';
    }
    /// Gives the screen a title and something of each kind to draw.
    void furnish(Screen* screen) {
        screen->setTitle(screen->name);
        auto label = make<UILabel>(&UILabel::initWithFrame, CGRectMake(10.25, 100, 200, 30));
        label->setText("A line of text");
        auto button = UIButton::buttonWithType(UIButtonTypeSystem);
        button->setFrame(CGRectMake(10, 150, 100, 44));
        button->setTitle_forState("Button", UIControlStateNormal);
        auto drawing = make<DrawnScreen::DrawnView>(&UIView::initWithFrame, CGRectMake(10, 200, 60, 60));
        drawing->times = &timesDrawn;
        for (UIView* view : {static_cast<UIView*>(label), static_cast<UIView*>(button), static_cast<UIView*>(drawing)})
            screen->view()->addSubview(view);
    }
    /// From the frame that follows `begin`, in which new screens are drawn, for `seconds`.
    void expectNothingDrawn(const char* movement, NSTimeInterval seconds, const std::function<void()>& begin) {
        SCOPED_TRACE(movement);
        begin();
        host.advance(0);
        const auto drawn = bitmapsIn(window);
        const int times = timesDrawn;
        const auto frames = host.framesComposed();
        ASSERT_GE(drawn.size(), 4u);
        for (NSTimeInterval time = 0; time < seconds; time += 1 / 60.0) {
            host.advance(1 / 60.0);
            ASSERT_EQ(bitmapsIn(window), drawn) << "after " << time;
        }
        EXPECT_GE(host.framesComposed(), frames + static_cast<int>(seconds * 60) - 1);
        EXPECT_EQ(timesDrawn, times);
        host.advance(1);
        EXPECT_EQ(timesDrawn, times);
    }

    int timesDrawn = 0;
};

} // namespace

TEST_F(NavigationSlide, ANewScreenComesFromTheRightInAThirdOfASecond) {
    show(navigation);
    navigation->pushViewController_animated(b, true);
    host.advance(0);
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(375, 0));
    EXPECT_EQ(seenOrigin(a->view()), CGPointMake(0, 0));
    EXPECT_EQ(seenAt(374), 'A');
    host.advance(0.175);
    EXPECT_NEAR(seenOrigin(b->view()).x, 187.5, kTiny);
    EXPECT_NEAR(seenOrigin(a->view()).x, -56.25, kTiny);
    EXPECT_EQ(seenAt(180), 'A');
    EXPECT_EQ(seenAt(195), 'B');
    host.advance(0.17);
    EXPECT_GT(seenOrigin(b->view()).x, 0);
    host.advance(0.005);
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_EQ(a->view()->superview(), nullptr);
    EXPECT_EQ(seenAt(1), 'B');
}

TEST_F(NavigationSlide, APopGoesTheSameWayBack) {
    show(navigation);
    pushAtOnce(b);
    navigation->popViewControllerAnimated(true);
    host.advance(0);
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_NEAR(seenOrigin(a->view()).x, -112.5, kTiny);
    host.advance(0.175);
    EXPECT_NEAR(seenOrigin(b->view()).x, 187.5, kTiny);
    EXPECT_NEAR(seenOrigin(a->view()).x, -56.25, kTiny);
    EXPECT_EQ(seenAt(180), 'A');
    EXPECT_EQ(seenAt(195), 'B');
    host.advance(0.175);
    EXPECT_EQ(seenOrigin(a->view()), CGPointMake(0, 0));
    EXPECT_EQ(b->view()->superview(), nullptr);
    EXPECT_EQ(b->view()->frame(), CGRectMake(0, 0, 375, 667));
}

TEST_F(NavigationSlide, TheLowerScreenIsDimmed) {
    a->color = UIColor::whiteColor();
    show(navigation);
    navigation->pushViewController_animated(b, true);
    host.advance(0.175);
    EXPECT_NEAR(host.pixel({100, 400}).red, 255 * 0.95, 1);
    host.advance(1);
    navigation->popViewControllerAnimated(true);
    host.advance(0.0001);
    EXPECT_NEAR(host.pixel({50, 400}).green, 255, 1) << "the upper one is not";
    host.advance(0.1749);
    EXPECT_NEAR(host.pixel({100, 400}).red, 255 * 0.95, 1);
    host.advance(1);
    EXPECT_EQ(host.pixel({100, 400}), (FramePixel{255, 255, 255}));
}

TEST_F(NavigationSlide, NothingIsDrawnMeanwhileAndNothingComposedAfterwards) {
    auto d = makeScreen<DrawnScreen>("D"), e = makeScreen<DrawnScreen>("E");
    show(navigation);
    pushAtOnce(d);
    navigation->pushViewController_animated(e, true);
    host.advance(0);
    EXPECT_EQ(d->timesDrawn, 1);
    EXPECT_EQ(e->timesDrawn, 1);
    const auto before = host.framesComposed();
    for (int i = 0; i < 21; ++i)
        host.advance(1 / 60.0);
    EXPECT_GE(host.framesComposed(), before + 20);
    navigation->popViewControllerAnimated(true);
    host.advance(1);
    EXPECT_EQ(d->timesDrawn, 1);
    EXPECT_EQ(e->timesDrawn, 1);
    const auto after = host.framesComposed();
    for (int i = 0; i < 60; ++i)
        host.advance(1 / 60.0);
    EXPECT_EQ(host.framesComposed(), after);
}

TEST_F(NavigationSlide, OnlyTheFirstFrameOfAMovementDraws) {
    auto presented = make<UINavigationController>(&UINavigationController::initWithRootViewController, c);
    for (Screen* screen : {a.get(), b.get(), c.get()})
        furnish(screen);
    show(navigation);
    const auto swipeTo = [&](CGFloat x) {
        host.touchDown({5, 300});
        host.touchMove({x, 300});
        host.advance(1); // no speed left
        host.touchUp();
    };
    const NSTimeInterval slide = 0.3;
    expectNothingDrawn("push", slide, [&] { navigation->pushViewController_animated(b, true); });
    expectNothingDrawn("pop", slide, [&] { navigation->popViewControllerAnimated(true); });
    pushAtOnce(b);
    expectNothingDrawn("swipe that does not pop", 0.1, [&] { swipeTo(155); });
    expectNothingDrawn("swipe that pops", 0.1, [&] { swipeTo(205); });
    expectNothingDrawn("presentation", 0.25,
                       [&] { navigation->presentViewController_animated_completion(presented, true, nullptr); });
    expectNothingDrawn("dismissal", 0.25, [&] { navigation->dismissViewControllerAnimated_completion(true, nullptr); });
}

TEST_F(NavigationSlide, NothingIsDrawnWhileAFingerCarriesAScreen) {
    for (Screen* screen : {a.get(), b.get()})
        furnish(screen);
    show(navigation);
    pushAtOnce(b);
    host.touchDown({5, 300});
    host.touchMove({20, 300});
    const auto drawn = bitmapsIn(window);
    for (int x = 25; x < 370; x += 5) {
        host.touchMove({CGFloat(x), 300}, 1 / 60.0);
        ASSERT_EQ(bitmapsIn(window), drawn) << x;
    }
    EXPECT_EQ(timesDrawn, 2);
    dynamic_cast<UILabel*>(b->view()->subviews()[0].get())->setText("Another text");
    host.advance(0);
    EXPECT_NE(bitmapsIn(window), drawn) << "what is drawn would be seen";
    host.touchCancel();
}

TEST_F(NavigationSlide, TouchesAreIgnoredMeanwhile) {
    class Counter : public NSObject {
    public:
        void tapped() { ++taps; }
        int taps = 0;
    };
    auto counter = make<Counter>();
    auto button = make<UIButton>(&UIButton::initWithFrame, CGRectMake(0, 0, 375, 667));
    button->addTarget_action_forControlEvents(counter, selector<&Counter::tapped>, UIControlEventTouchUpInside);
    b->view()->addSubview(button);
    show(navigation);
    navigation->pushViewController_animated(b, true);
    host.advance(0.3);
    host.tap({300, 300});
    host.tap({20, 42}); // where the back button is
    EXPECT_EQ(counter->taps, 0);
    EXPECT_EQ(navigation->topViewController(), b);
    host.advance(0.1);
    host.tap({300, 300});
    EXPECT_EQ(counter->taps, 1);
}

TEST_F(NavigationSlide, TheNextOneBeginsWhereTheFirstWouldHaveEnded) {
    show(navigation);
    navigation->pushViewController_animated(b, true);
    host.advance(0.1);
    navigation->pushViewController_animated(c, true);
    host.advance(0);
    EXPECT_EQ(a->view()->superview(), nullptr);
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_EQ(seenOrigin(c->view()), CGPointMake(375, 0));
    host.advance(0.35);
    EXPECT_EQ(b->view()->superview(), nullptr);
    EXPECT_EQ(seenOrigin(c->view()), CGPointMake(0, 0));
}

TEST_F(NavigationSlide, ItDoesNotMoveWhatAnAnimationBlockAroundItIsAbout) {
    show(navigation);
    UIView::animateWithDuration_animations(5, [&] { navigation->pushViewController_animated(b, false); });
    host.advance(0);
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_FALSE(b->view()->layer()->hasAnimations());
}

TEST_F(NavigationSlide, ScreensOfAnUnusualPlaceEndWhereTheyBelong) {
    b->view()->setFrame(CGRectMake(30, 40, 50, 60));
    show(navigation);
    navigation->pushViewController_animated(b, true);
    host.advance(1);
    EXPECT_EQ(b->view()->frame(), CGRectMake(0, 0, 375, 667));
}

} // namespace zr::tests
