#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <gtest/gtest.h>

using namespace zr;

namespace {

class UIViewAnimationTest : public testing::Test {
protected:
    HeadlessHost host;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<UIView> view = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 100, 100));
    std::vector<bool> completions;

    void SetUp() override {
        window->makeKeyAndVisible();
        view->setBackgroundColor(UIColor::redColor());
        window->addSubview(view);
        host.advance(0);
    }
    LayerValues seen() const { return view->layer()->presentationValues(); }
    std::function<void(bool)> completion() {
        return [this](bool finished) { completions.push_back(finished); };
    }
    std::function<void()> fadeTo(double alpha) {
        return [this, alpha] { view->setAlpha(alpha); };
    }
};

class StopListener : public NSObject {
public:
    void stopped(const NSString& name, bool finished, void* context) {
        lastName = name;
        lastFinished = finished;
        lastContext = context;
        ++count;
    }
    void willStart(const NSString&, void*) { ++starts; }
    NSString lastName;
    bool lastFinished = false;
    void* lastContext = nullptr;
    int count = 0;
    int starts = 0;
};

} // namespace

TEST_F(UIViewAnimationTest, TheModelChangesAtOnceAndThePresentationOverTime) {
    UIView::animateWithDuration_animations_completion(0.3, fadeTo(0), completion());
    EXPECT_EQ(view->alpha(), 0);
    EXPECT_FLOAT_EQ(seen().opacity, 1);
    host.advance(0.15);
    EXPECT_NEAR(seen().opacity, 0.5, 1e-6);
    host.advance(0.149);
    EXPECT_TRUE(completions.empty());
    host.advance(0.001);
    EXPECT_EQ(completions, std::vector<bool>{true});
    EXPECT_FLOAT_EQ(seen().opacity, 0);
}

TEST_F(UIViewAnimationTest, EasesInAndOutUnlessToldOtherwise) {
    UIView::animateWithDuration_animations(1, fadeTo(0));
    host.advance(0.1);
    EXPECT_GT(seen().opacity, 0.95);
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDuration(1);
    UIView::setAnimationCurve(UIViewAnimationCurveLinear);
    view->setCenter({150, 50});
    UIView::commitAnimations();
    host.advance(0.25);
    EXPECT_NEAR(seen().position.x, 75, 1e-9);
}

TEST_F(UIViewAnimationTest, FrameCenterBoundsTransformAndBackgroundAreAnimated) {
    UIView::animateWithDuration_animations(1, [this] {
        view->setFrame(CGRectMake(100, 0, 200, 100));
        view->setTransform(CGAffineTransformMakeScale(2, 2));
        view->setBackgroundColor(UIColor::blueColor());
    });
    host.advance(0.5);
    const LayerValues values = seen();
    EXPECT_NEAR(values.position.x, 125, 1e-9);
    EXPECT_NEAR(values.bounds.size.width, 150, 1e-9);
    EXPECT_NEAR(values.transform.m11, 1.5, 1e-9);
    EXPECT_NEAR(values.backgroundColor->rgba().red, 0.5, 1e-9);
    EXPECT_NEAR(values.backgroundColor->rgba().blue, 0.5, 1e-9);
}

TEST_F(UIViewAnimationTest, ZeroDurationSetsAtOnceAndCompletesInTheNextTurn) {
    UIView::animateWithDuration_animations_completion(0, fadeTo(0.5), completion());
    EXPECT_FLOAT_EQ(seen().opacity, 0.5);
    EXPECT_FALSE(view->layer()->hasAnimations());
    EXPECT_TRUE(completions.empty());
    host.advance(0);
    EXPECT_EQ(completions, std::vector<bool>{true});
}

TEST_F(UIViewAnimationTest, ZeroDurationEndsWhatRuns) {
    UIView::animateWithDuration_animations_completion(1, fadeTo(0), completion());
    host.advance(0.5);
    UIView::animateWithDuration_animations_completion(0, fadeTo(0.75), completion());
    EXPECT_EQ(seen().opacity, 0.75f);
    EXPECT_FALSE(view->layer()->hasAnimations());
    host.advance(0);
    EXPECT_EQ(completions, (std::vector<bool>{false, true}));
}

TEST_F(UIViewAnimationTest, ABlockThatChangesNothingCompletesInTheNextTurn) {
    UIView::animateWithDuration_animations_completion(5, fadeTo(1), completion());
    EXPECT_TRUE(completions.empty());
    host.advance(0);
    EXPECT_EQ(completions, std::vector<bool>{true});
}

TEST_F(UIViewAnimationTest, LaterChangesInOneBlockStartFromEarlierOnes) {
    UIView::animateWithDuration_animations_completion(
        0.3,
        [this] {
            for (double scale : {0.9, 1.1, 0.9, 1.0})
                view->setTransform(CGAffineTransformMakeScale(scale, scale));
        },
        completion());
    host.advance(0);
    EXPECT_NEAR(seen().transform.m11, 0.9, 1e-9);
    host.advance(0.15);
    EXPECT_NEAR(seen().transform.m11, 0.95, 1e-9);
    host.advance(0.15);
    EXPECT_EQ(seen().transform.m11, 1);
    EXPECT_EQ(completions, std::vector<bool>{true});
}

TEST_F(UIViewAnimationTest, AnInterruptedAnimationGoesOnFromWhatIsSeen) {
    UIView::animateWithDuration_animations_completion(1, fadeTo(0), completion());
    host.advance(0.5);
    UIView::animateWithDuration_animations_completion(1, fadeTo(1), completion());
    EXPECT_NEAR(seen().opacity, 0.5, 1e-6);
    EXPECT_TRUE(completions.empty());
    host.advance(0);
    EXPECT_EQ(completions, std::vector<bool>{false});
    host.advance(0.5);
    EXPECT_NEAR(seen().opacity, 0.75, 1e-6);
    host.advance(0.5);
    EXPECT_EQ(completions, (std::vector<bool>{false, true}));
    EXPECT_FLOAT_EQ(seen().opacity, 1);
}

TEST_F(UIViewAnimationTest, DelayHoldsTheStart) {
    UIView::animateWithDuration_delay_options_animations_completion(1, 0.5, UIViewAnimationOptionCurveLinear, fadeTo(0),
                                                                    completion());
    host.advance(0.5);
    EXPECT_FLOAT_EQ(seen().opacity, 1);
    host.advance(0.25);
    EXPECT_NEAR(seen().opacity, 0.75, 1e-6);
    host.advance(0.75);
    EXPECT_EQ(completions, std::vector<bool>{true});
}

TEST_F(UIViewAnimationTest, ADelayOfTheOldFormHoldsTheStart) {
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDuration(1);
    UIView::setAnimationCurve(UIViewAnimationCurveLinear);
    UIView::setAnimationDelay(0.5);
    view->setCenter({150, 50});
    UIView::commitAnimations();
    EXPECT_EQ(view->center().x, 150);
    host.advance(0.5);
    EXPECT_NEAR(seen().position.x, 50, 1e-9);
    host.advance(0.25);
    EXPECT_NEAR(seen().position.x, 75, 1e-9);
    host.advance(0.75);
    EXPECT_EQ(seen().position.x, 150);
}

TEST_F(UIViewAnimationTest, RepeatsAndComesBackAsOftenAsTold) {
    const auto listener = make<StopListener>();
    UIView::beginAnimations_context("swing", nullptr);
    UIView::setAnimationDuration(1);
    UIView::setAnimationCurve(UIViewAnimationCurveLinear);
    UIView::setAnimationRepeatCount(1.5f);
    UIView::setAnimationRepeatAutoreverses(true);
    UIView::setAnimationDelegate(listener);
    UIView::setAnimationDidStopSelector(selector<&StopListener::stopped>);
    view->setCenter({150, 50});
    UIView::commitAnimations();
    const auto expectAfter = [this](NSTimeInterval seconds, CGFloat x) {
        host.advance(seconds);
        EXPECT_NEAR(seen().position.x, x, 1e-6);
    };
    expectAfter(0.75, 125);
    expectAfter(0.5, 125); // on its way back
    expectAfter(0.5, 75);
    expectAfter(0.5, 75); // there again
    EXPECT_EQ(listener->count, 0);
    expectAfter(0.75, 150);
    EXPECT_EQ(listener->count, 1);
    EXPECT_TRUE(listener->lastFinished);
}

TEST_F(UIViewAnimationTest, CurvesBeginAndEndAsTold) {
    const auto seenAfterAQuarter = [this](UIViewAnimationCurve curve) {
        view->setCenter({50, 50});
        UIView::beginAnimations_context(nullptr, nullptr);
        UIView::setAnimationDuration(1);
        UIView::setAnimationCurve(curve);
        view->setCenter({150, 50});
        UIView::commitAnimations();
        host.advance(0.25);
        const CGFloat x = seen().position.x;
        host.advance(1);
        return x;
    };
    const CGFloat linear = seenAfterAQuarter(UIViewAnimationCurveLinear);
    EXPECT_NEAR(linear, 75, 1e-9);
    EXPECT_LT(seenAfterAQuarter(UIViewAnimationCurveEaseIn), linear);
    EXPECT_LT(seenAfterAQuarter(UIViewAnimationCurveEaseInOut), linear);
    EXPECT_GT(seenAfterAQuarter(UIViewAnimationCurveEaseOut), linear);
    EXPECT_NE(seenAfterAQuarter(UIViewAnimationCurveEaseIn), seenAfterAQuarter(UIViewAnimationCurveEaseInOut));
}

TEST_F(UIViewAnimationTest, RepeatingForEverNeverCompletes) {
    UIView::animateWithDuration_delay_options_animations_completion(
        1, 0, UIViewAnimationOptionRepeat | UIViewAnimationOptionAutoreverse | UIViewAnimationOptionCurveLinear,
        fadeTo(0), completion());
    host.advance(101.25);
    EXPECT_NEAR(seen().opacity, 0.25, 1e-6);
    EXPECT_TRUE(completions.empty());
    EXPECT_TRUE(host.application()->needsFrame());
}

TEST_F(UIViewAnimationTest, DidStopSelectorHearsNameFlagAndContext) {
    auto listener = make<StopListener>();
    int context = 0;
    UIView::beginAnimations_context("fade", &context);
    UIView::setAnimationDuration(0.3);
    UIView::setAnimationDelegate(listener);
    UIView::setAnimationDidStopSelector(selector<&StopListener::stopped>);
    UIView::setAnimationWillStartSelector(selector<&StopListener::willStart>);
    view->setAlpha(0);
    view->setCenter({0, 0});
    UIView::commitAnimations();
    host.advance(0.29);
    EXPECT_EQ(listener->starts, 1);
    EXPECT_EQ(listener->count, 0);
    host.advance(0.01);
    EXPECT_EQ(listener->count, 1);
    EXPECT_EQ(listener->lastName, NSString("fade"));
    EXPECT_TRUE(listener->lastFinished);
    EXPECT_EQ(listener->lastContext, &context);
}

TEST_F(UIViewAnimationTest, TheDelegateIsHeldUntilTheAnimationHasStopped) {
    auto listener = make<StopListener>();
    const Weak<StopListener> weak = listener;
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDelegate(listener);
    view->setAlpha(0);
    UIView::commitAnimations();
    listener = nullptr;
    host.advance(0.1);
    EXPECT_NE(weak.get(), nullptr);
    host.advance(0.1);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(UIViewAnimationTest, BlocksNest) {
    auto other = make<UIView>();
    window->addSubview(other);
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDuration(1);
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDuration(2);
    other->setAlpha(0);
    UIView::commitAnimations();
    view->setAlpha(0);
    UIView::commitAnimations();
    host.advance(1);
    EXPECT_FALSE(view->layer()->hasAnimations());
    EXPECT_TRUE(other->layer()->hasAnimations());
    host.advance(1);
    EXPECT_FALSE(other->layer()->hasAnimations());
}

TEST_F(UIViewAnimationTest, WithoutAnimationNothingIsAnimated) {
    UIView::animateWithDuration_animations(1, [this] { UIView::performWithoutAnimation(fadeTo(0.5)); });
    EXPECT_FALSE(view->layer()->hasAnimations());
    EXPECT_TRUE(UIView::areAnimationsEnabled());
}

TEST_F(UIViewAnimationTest, SwitchedOffChangesAreAtOnceAndStillComplete) {
    UIView::setAnimationsEnabled(false);
    EXPECT_FALSE(UIView::areAnimationsEnabled());
    UIView::animateWithDuration_animations_completion(1, fadeTo(0), completion());
    EXPECT_FLOAT_EQ(seen().opacity, 0);
    UIView::performWithoutAnimation([] {});
    EXPECT_FALSE(UIView::areAnimationsEnabled());
    host.advance(0);
    EXPECT_EQ(completions, std::vector<bool>{true});
    UIView::setAnimationsEnabled(true);
    UIView::animateWithDuration_animations(1, fadeTo(1));
    EXPECT_FLOAT_EQ(seen().opacity, 0);
}

TEST_F(UIViewAnimationTest, AViewThatGoesCompletesUnfinished) {
    UIView::animateWithDuration_animations_completion(1, fadeTo(0), completion());
    host.advance(0.5);
    view->removeFromSuperview();
    view = nullptr;
    host.advance(0);
    EXPECT_EQ(completions, std::vector<bool>{false});
}

TEST_F(UIViewAnimationTest, StrayCommitsAndSettingsAreIgnored) {
    UIView::commitAnimations();
    UIView::setAnimationDuration(3);
    UIView::setAnimationCurve(UIViewAnimationCurveLinear);
    view->setAlpha(0.5);
    EXPECT_FALSE(view->layer()->hasAnimations());
}

TEST_F(UIViewAnimationTest, AFrameOfAnAnimationRepaintsOnlyWhatMoves) {
    UIView::animateWithDuration_animations(1, [this] { view->setCenter({60, 50}); });
    host.advance(0.5);
    for (const PixelRect& rect : host.damage())
        EXPECT_TRUE(intersection(rect, {0, 0, 220, 200}) == rect);
    EXPECT_FALSE(host.damage().empty());
}

TEST_F(UIViewAnimationTest, AFadeInFromNothingIsShownFrameByFrame) {
    view->setAlpha(0);
    host.advance(0);
    UIView::animateWithDuration_animations(1, fadeTo(1));
    host.advance(0);
    EXPECT_TRUE(host.application()->needsFrame());
    host.advance(0.5);
    EXPECT_NEAR(host.pixel({10, 10}).red, 128, 1);
}

TEST_F(UIViewAnimationTest, ABackgroundFadesInFromNoColour) {
    view->setBackgroundColor(nullptr);
    host.advance(0);
    UIView::animateWithDuration_animations(1, [this] { view->setBackgroundColor(UIColor::redColor()); });
    host.advance(0.5);
    EXPECT_NEAR(seen().backgroundColor->rgba().alpha, 0.5, 1e-9);
    EXPECT_EQ(seen().backgroundColor->rgba().red, 1);
}

TEST_F(UIViewAnimationTest, WhatAStartAsksForIsShownInTheNextFrame) {
    class Starter : public NSObject {
    public:
        void started(const NSString&, void*) { view->setBackgroundColor(UIColor::blueColor()); }
        UIView* view = nullptr;
    };
    auto starter = make<Starter>();
    starter->view = view;
    auto other = make<UIView>();
    window->addSubview(other);
    UIView::beginAnimations_context(nullptr, nullptr);
    UIView::setAnimationDelegate(starter);
    UIView::setAnimationWillStartSelector(selector<&Starter::started>);
    other->setAlpha(0);
    UIView::commitAnimations();
    host.advance(0);
    EXPECT_EQ(host.pixel({10, 10}), (FramePixel{0, 0, 255}));
}
