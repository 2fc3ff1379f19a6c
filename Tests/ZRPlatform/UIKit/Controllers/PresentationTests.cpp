#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>

namespace zr::tests {

namespace {

class Presentations : public Navigation {
protected:
    Ref<Screen> m = makeScreen("M");
    Ref<Screen> n = makeScreen("N");

    void SetUp() override {
        Navigation::SetUp();
        m->color = UIColor::blueColor();
    }
    void present(UIViewController* presenter, UIViewController* presented, bool animated = false) {
        presenter->presentViewController_animated_completion(presented, animated, [this] { ++presentations; });
    }
    void dismiss(UIViewController* controller, bool animated = false) {
        controller->dismissViewControllerAnimated_completion(animated, [this] { ++dismissals; });
    }

    int presentations = 0;
    int dismissals = 0;
};

} // namespace

TEST_F(Presentations, OneComesFromBelowAndGoesTheSameWay) {
    showAlone(a);
    present(a, m, true);
    host.advance(0);
    EXPECT_EQ(seenOrigin(m->view()), CGPointMake(0, 667));
    EXPECT_EQ(host.pixel({100, 660}), (FramePixel{255, 0, 0}));
    host.advance(0.15);
    EXPECT_NEAR(seenOrigin(m->view()).y, 333.5, 1e-3);
    EXPECT_EQ(host.pixel({100, 320}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({100, 340}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(presentations, 0);
    host.advance(0.15);
    EXPECT_EQ(presentations, 1);
    EXPECT_EQ(seenOrigin(m->view()), CGPointMake(0, 0));
    EXPECT_EQ(a->view()->superview(), nullptr) << "nobody sees it";
    dismiss(a, true);
    host.advance(0.15);
    EXPECT_NEAR(seenOrigin(m->view()).y, 333.5, 1e-3);
    EXPECT_EQ(host.pixel({100, 320}), (FramePixel{255, 0, 0}));
    host.advance(0.15);
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(m->view()->superview(), nullptr);
    EXPECT_EQ(m->view()->frame(), CGRectMake(0, 0, 375, 667));
}

TEST_F(Presentations, OneMayDissolve) {
    showAlone(a);
    m->setModalTransitionStyle(UIModalTransitionStyleCrossDissolve);
    present(a, m, true);
    host.advance(0.15);
    EXPECT_NEAR(host.pixel({100, 300}).red, 127, 2);
    EXPECT_NEAR(host.pixel({100, 300}).blue, 127, 2);
    host.advance(0.15);
    EXPECT_EQ(host.pixel({100, 300}), (FramePixel{0, 0, 255}));
    dismiss(m, true);
    host.advance(0.15);
    EXPECT_NEAR(host.pixel({100, 300}).red, 127, 2);
    host.advance(0.15);
    EXPECT_EQ(m->view()->alpha(), 1);
}

TEST_F(Presentations, TouchesAreIgnoredWhileItMoves) {
    class Toucher : public UIView {
    public:
        void touchesBegan_withEvent(const TouchSet&, UIEvent*) override { ++touches; }
        int touches = 0;
    };
    auto below = make<Toucher>(), above = make<Toucher>();
    below->setFrame({{0, 0}, {375, 667}});
    above->setFrame({{0, 0}, {375, 667}});
    a->view()->addSubview(below);
    m->view()->addSubview(above);
    showAlone(a);
    present(a, m, true);
    host.advance(0.15);
    host.tap({100, 100});
    host.tap({100, 600});
    EXPECT_EQ(below->touches + above->touches, 0);
    host.advance(0.15);
    host.tap({100, 100});
    EXPECT_EQ(above->touches, 1);
}

TEST_F(Presentations, TheOutermostParentPresents) {
    show(navigation);
    present(a, m);
    EXPECT_EQ(m->presentingViewController(), navigation);
    EXPECT_EQ(navigation->presentedViewController(), m);
    EXPECT_EQ(a->presentedViewController(), m) << "one of those that contain it presents";
    EXPECT_EQ(navigation->visibleViewController(), m);
    EXPECT_EQ(m->nextResponder(), navigation);
    EXPECT_EQ(navigation->nextResponder(), window);
    dismiss(m);
    EXPECT_EQ(a->presentedViewController(), nullptr);
    EXPECT_EQ(m->presentingViewController(), nullptr);
    EXPECT_EQ(m->nextResponder(), nullptr);
    EXPECT_EQ(navigation->view()->superview(), window);
}

TEST_F(Presentations, ChildrenOfThePresentedOneDismissIt) {
    showAlone(a);
    auto inner = make<UINavigationController>(&UINavigationController::initWithRootViewController, b);
    present(a, inner);
    EXPECT_EQ(b->presentingViewController(), a);
    dismiss(b);
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(a->presentedViewController(), nullptr);
}

TEST_F(Presentations, WhatCannotBePresentedIsIgnored) {
    present(a, m);
    EXPECT_EQ(m->presentingViewController(), nullptr) << "not on the screen";
    show(navigation);
    present(a, nullptr);
    present(a, navigation);
    present(a, a);
    pushAtOnce(b);
    present(a, b);
    auto other = make<UIWindow>(&UIWindow::initWithFrame, CGRectMake(0, 0, 10, 10));
    other->setRootViewController(c);
    present(a, c);
    EXPECT_EQ(navigation->presentedViewController(), nullptr);
    present(a, m);
    present(a, n);
    present(navigation, n, true);
    EXPECT_EQ(presentations, 1);
    EXPECT_EQ(navigation->presentedViewController(), m);
    present(m, m);
    EXPECT_EQ(m->presentedViewController(), nullptr);
    present(m, n);
    EXPECT_EQ(presentations, 2);
}

TEST_F(Presentations, DismissingNothingIsDoneAtOnce) {
    showAlone(a);
    dismiss(a, true);
    EXPECT_EQ(dismissals, 1);
    present(a, m);
    dismiss(a, true);
    dismiss(a, true);
    EXPECT_EQ(dismissals, 3) << "the second one lets the first end";
    EXPECT_EQ(m->view()->superview(), nullptr);
    EXPECT_EQ(a->view()->superview(), window);
}

TEST_F(Presentations, ADoubleTapOnDismissTakesAwayOne) {
    showAlone(a);
    present(a, m);
    present(m, n);
    dismiss(n, true);
    dismiss(n, true);
    host.advance(1);
    EXPECT_EQ(a->presentedViewController(), m);
}

TEST_F(Presentations, AnyOfThoseThatGoTogetherEndsTheirGoing) {
    showAlone(a);
    present(a, m);
    present(m, n);
    dismiss(a, true);
    dismiss(n, true);
    EXPECT_EQ(dismissals, 2);
    EXPECT_EQ(a->presentedViewController(), nullptr);
    EXPECT_EQ(n->view()->superview(), nullptr);
}

TEST_F(Presentations, DismissingInTheMiddleTakesAwayWhatIsOnTop) {
    showAlone(a);
    present(a, m);
    present(m, n);
    dismiss(m);
    EXPECT_EQ(a->presentedViewController(), m);
    EXPECT_EQ(m->presentedViewController(), nullptr);
    EXPECT_EQ(n->view()->superview(), nullptr);
    EXPECT_EQ(m->view()->superview(), window);
}

TEST_F(Presentations, SeveralGoInOneMovementOfTheForemost) {
    showAlone(a);
    present(a, m);
    n->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    n->color = UIColor::greenColor();
    present(m, n);
    EXPECT_EQ(m->view()->superview(), window);
    dismiss(a, true);
    host.advance(0.15);
    EXPECT_EQ(m->view()->superview(), nullptr);
    EXPECT_EQ(host.pixel({100, 100}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({100, 500}), (FramePixel{0, 255, 0}));
    host.advance(0.15);
    EXPECT_EQ(a->presentedViewController(), nullptr);
    EXPECT_EQ(m->presentedViewController(), nullptr);
    EXPECT_EQ(window->subviews().size(), 1u);
}

TEST_F(Presentations, PresentedOnesAreReleasedWhenTheyAreGone) {
    showAlone(a);
    bool gone = false;
    m->onDestruction = [&] { gone = true; };
    present(a, m);
    m = nullptr;
    dismiss(a, true);
    EXPECT_FALSE(gone);
    host.advance(1);
    EXPECT_TRUE(gone);
}

TEST_F(Presentations, PresentedOnesGoWithTheRoot) {
    showAlone(a);
    int gone = 0;
    for (Screen* screen : {m.get(), n.get(), a.get()})
        screen->onDestruction = [&] { ++gone; };
    present(a, m);
    present(m, n, true);
    host.advance(0.1);
    m = nullptr;
    n = nullptr;
    news();
    window->setRootViewController(b);
    EXPECT_EQ(gone, 2);
    EXPECT_EQ(news(), (Log{"N did appear animated", "M did disappear animated", "N will disappear", "N did disappear",
                           "B will appear", "B did appear"}));
    EXPECT_EQ(window->subviews().size(), 1u);
    navigation = nullptr;
    a = nullptr;
    EXPECT_EQ(gone, 3);
    host.advance(1);
}

TEST_F(Presentations, PresentedOnesGoWithTheWindow) {
    showAlone(a);
    bool gone = false;
    m->onDestruction = [&] { gone = true; };
    present(a, m, true);
    host.advance(0.1);
    m = nullptr;
    window = nullptr;
    a = nullptr;
    navigation = nullptr;
    EXPECT_TRUE(gone);
    host.advance(1);
}

TEST_F(Presentations, APresenterThatGoesTakesWhatItPresentsAlong) {
    auto byHand = makeScreen("H");
    window->makeKeyAndVisible();
    window->addSubview(byHand->view());
    present(byHand, m);
    byHand = nullptr;
    EXPECT_EQ(m->view()->superview(), nullptr);
    EXPECT_EQ(m->presentingViewController(), nullptr);
    dismiss(m);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(Presentations, APresenterOfAPlaceOfItsOwnComesBackToIt) {
    auto byHand = makeScreen("H");
    byHand->view()->setFrame(CGRectMake(10, 20, 30, 40));
    window->makeKeyAndVisible();
    window->addSubview(byHand->view());
    present(byHand, m);
    EXPECT_EQ(m->view()->frame(), window->bounds());
    dismiss(byHand);
    EXPECT_EQ(byHand->view()->frame(), CGRectMake(10, 20, 30, 40));
}

TEST_F(Presentations, AChildMaySendItsParentAway) {
    showAlone(a);
    m->act = [&](const std::string& what) {
        if (what == "did appear")
            dismiss(m);
    };
    present(a, m);
    EXPECT_EQ(presentations, 1);
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(a->presentedViewController(), nullptr);
    EXPECT_EQ(news(), (Log{"A will disappear", "M will appear", "M did appear", "A did disappear", "M will disappear",
                           "A will appear", "A did appear", "M did disappear"}));
}

TEST_F(Presentations, OverlaysInFrontOfThePresenterStayInFrontOfThePresentedOne) {
    showAlone(a);
    auto overlay = make<UIView>();
    window->addSubview(overlay);
    present(a, m);
    EXPECT_EQ(window->subviews().front(), m->view());
    EXPECT_EQ(window->subviews().back(), overlay);
    dismiss(a);
    EXPECT_EQ(window->subviews().front(), a->view());
}

TEST_F(Presentations, TypingInThePresenterEndsWhenItIsCovered) {
    auto field = make<UITextField>(&UITextField::initWithFrame, CGRectMake(0, 100, 200, 30));
    a->view()->addSubview(field);
    showAlone(a);
    field->becomeFirstResponder();
    EXPECT_TRUE(field->isFirstResponder());
    present(a, m, true);
    host.advance(1);
    EXPECT_EQ(window->firstResponder(), nullptr);
}

} // namespace zr::tests
