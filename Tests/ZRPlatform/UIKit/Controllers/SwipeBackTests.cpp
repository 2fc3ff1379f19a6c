#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

class SwipeBack : public Navigation {
protected:
    void SetUp() override {
        Navigation::SetUp();
        show(navigation);
        pushAtOnce(b);
        logEverything();
    }
};

} // namespace

TEST_F(SwipeBack, TheScreensFollowTheFinger) {
    host.touchDown({5, 300});
    host.touchMove({14, 300});
    EXPECT_EQ(seenOrigin(b->view()).x, 0);
    host.touchMove({80, 300});
    EXPECT_EQ(seenOrigin(b->view()).x, 75);
    EXPECT_NEAR(seenOrigin(a->view()).x, -112.5 + 22.5, 1e-3);
    host.advance(5);
    EXPECT_EQ(seenOrigin(b->view()).x, 75) << "held, for as long as the finger rests";
    const auto frames = host.framesComposed();
    host.advance(1);
    EXPECT_EQ(host.framesComposed(), frames);
    host.touchMove({2, 300});
    EXPECT_EQ(seenOrigin(b->view()).x, 0) << "not further than its place";
    host.touchUp();
}

TEST_F(SwipeBack, LetGoBeyondTheHalfItPops) {
    host.touchDown({5, 300});
    host.touchMove({205, 300}, 1.0);
    host.advance(1); // no speed left
    EXPECT_EQ(news(),
              (Log{"B will move out", "B will disappear animated", "A will appear animated", "will show A animated"}));
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    host.touchUp();
    EXPECT_EQ(news(), (Log{}));
    host.advance(0.35 * 0.4);
    EXPECT_EQ(news(), (Log{}));
    host.advance(0.35 * 0.1);
    EXPECT_EQ(news(),
              (Log{"B did disappear animated", "A did appear animated", "B did move out", "did show A animated"}));
    EXPECT_EQ(b->view()->superview(), nullptr);
    EXPECT_EQ(seenOrigin(a->view()), CGPointMake(0, 0));
    EXPECT_EQ(b->navigationController(), nullptr);
}

TEST_F(SwipeBack, LetGoBeforeTheHalfItStays) {
    host.touchDown({5, 300});
    host.touchMove({155, 300}, 1.0);
    host.advance(1);
    news();
    host.touchUp();
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    EXPECT_EQ(news(), (Log{"A will disappear animated", "B will appear animated"}));
    host.advance(0.35);
    EXPECT_EQ(news(), (Log{"A did disappear animated", "B did appear animated", "B did move in"}));
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_EQ(a->view()->superview(), nullptr);
    EXPECT_EQ(b->navigationController(), navigation);
    navigation->popViewControllerAnimated(false);
    EXPECT_EQ(news(), (Log{"B will move out", "B will disappear", "A will appear", "will show A", "B did disappear",
                           "A did appear", "B did move out", "did show A"}));
}

TEST_F(SwipeBack, SpeedDecidesAgainstTheHalf) {
    host.touchDown({5, 300});
    host.touchMove({105, 300}, 0.2); // 500 points a second
    host.touchUp();
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    host.advance(1);
    pushAtOnce(b);
    host.touchDown({5, 300});
    host.touchMove({305, 300}, 0.3);
    host.touchMove({255, 300}, 0.1); // 500 back
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
}

TEST_F(SwipeBack, ACancelledTouchLetsTheScreenStay) {
    host.touchDown({5, 300});
    host.touchMove({305, 300}, 0.3);
    host.touchCancel();
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
}

TEST_F(SwipeBack, OnlyTheEdgeAndOnlyInwards) {
    host.touchDown({21, 300});
    host.touchMove({300, 300}, 0.1);
    host.touchUp();
    host.touchDown({5, 300});
    host.touchMove({12, 400}, 0.1);
    host.touchMove({300, 400}, 0.1);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(news(), (Log{}));
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    host.touchDown({20, 300});
    host.touchMove({300, 300}, 0.1);
    host.touchUp();
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
}

TEST_F(SwipeBack, WhereThereIsNoBackButtonThereIsNoSwipe) {
    const auto swipe = [&] {
        host.touchDown({5, 300});
        host.touchMove({300, 300}, 0.1);
        host.touchUp();
        host.advance(1);
        const bool popped = navigation->viewControllers() == Stack{a};
        if (popped)
            pushAtOnce(b);
        return popped;
    };
    b->navigationItem()->setHidesBackButton(true);
    EXPECT_FALSE(swipe());
    b->navigationItem()->setHidesBackButton(false);
    b->navigationItem()->setLeftBarButtonItem(make<UIBarButtonItem>());
    EXPECT_FALSE(swipe());
    b->navigationItem()->setLeftBarButtonItem(nullptr);
    navigation->setNavigationBarHidden(true);
    EXPECT_FALSE(swipe());
    navigation->setNavigationBarHidden(false);
    navigation->navigationBar()->setHidden(true);
    EXPECT_TRUE(swipe());
    navigation->popViewControllerAnimated(false);
    news();
    host.touchDown({5, 300});
    host.touchMove({300, 300}, 0.1);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a})) << "the last screen stays";
    EXPECT_EQ(news(), (Log{}));
}

TEST_F(SwipeBack, ADelegateThatAllowsTheSwipeOnTheLastScreenHarmsNothing) {
    navigation->popViewControllerAnimated(false);
    news();
    navigation->interactivePopGestureRecognizer()->setDelegate(nullptr);
    host.touchDown({5, 300});
    host.touchMove({300, 300}, 0.1);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(news(), (Log{}));
    navigation->pushViewController_animated(c, true);
    host.touchDown({5, 300}); // in the middle of a slide
    host.touchMove({300, 300}, 0.1);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, c}));
    EXPECT_EQ(seenOrigin(c->view()), CGPointMake(0, 0));
}

TEST_F(SwipeBack, APushWhileTheFingerHoldsLetsTheScreenStayFirst) {
    host.touchDown({5, 300});
    host.touchMove({305, 300}, 0.3);
    news();
    navigation->pushViewController_animated(c, true);
    EXPECT_EQ(news(), (Log{"A will disappear animated", "B will appear animated", "A did disappear animated",
                           "B did appear animated", "B did move in", "C will move in", "B will disappear animated",
                           "C will appear animated", "will show C animated"}));
    host.touchMove({100, 300});
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b, c}));
    EXPECT_EQ(seenOrigin(c->view()), CGPointMake(0, 0));
    EXPECT_EQ(news(),
              (Log{"B did disappear animated", "C did appear animated", "C did move in", "did show C animated"}));
    host.touchDown({5, 300});
    host.touchMove({305, 300}, 0.1);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b})) << "the next finger works again";
}

TEST_F(SwipeBack, AWindowThatHidesMeanwhileFindsTheScreenInItsPlace) {
    host.touchDown({5, 300});
    host.touchMove({305, 300}, 0.3);
    window->setHidden(true);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a, b}));
    host.touchUp();
    window->setHidden(false);
    host.advance(1);
    EXPECT_EQ(seenOrigin(b->view()), CGPointMake(0, 0));
    EXPECT_EQ(a->view()->superview(), nullptr);
}

TEST_F(SwipeBack, ItTakesTheTouchFromTheButtonBelow) {
    auto button = make<UIButton>(&UIButton::initWithFrame, CGRectMake(0, 200, 375, 300));
    b->view()->addSubview(button);
    host.touchDown({5, 300});
    EXPECT_TRUE(button->isTracking());
    host.touchMove({50, 300});
    EXPECT_FALSE(button->isTracking());
    host.touchCancel();
}

TEST_F(SwipeBack, ADragOfTheScreensOwnWaitsForTheEdge) {
    auto pan = make<UIPanGestureRecognizer>();
    b->view()->addGestureRecognizer(pan);
    host.touchDown({5, 300});
    host.touchMove({50, 300});
    EXPECT_EQ(pan->state(), UIGestureRecognizerStateFailed);
    EXPECT_EQ(seenOrigin(b->view()).x, 45);
    host.touchCancel();
    host.advance(1);
    host.touchDown({5, 300});
    host.touchMove({5, 340});
    EXPECT_EQ(pan->state(), UIGestureRecognizerStateBegan) << "along the edge";
    host.touchUp();
    host.touchDown({100, 300});
    host.touchMove({140, 300});
    EXPECT_EQ(pan->state(), UIGestureRecognizerStateBegan) << "elsewhere";
    host.touchUp();
}

} // namespace zr::tests
