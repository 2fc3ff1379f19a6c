#include <Tests/ZRKitDynamic/ZRProgressHUD/HUDTesting.h>

#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>

using namespace zr;
using namespace zr::testing;

namespace {

using ZRProgressHUDShow = HUDTest;
using ZRProgressHUDHide = HUDTest;
using ZRProgressHUDDone = HUDTest;

constexpr NSTimeInterval kMoment = 1e-6;

/// Where ease-in-ease-out is, a fraction `time` of the way.
CGFloat easedAt(CGFloat time) {
    return CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseInEaseOut)->valueAtTime(time);
}

/// Counts how often it is drawn and how often it shows itself.
class CountingHUD : public ZRProgressHUD {
public:
    void setNeedsDisplay() override {
        ++displays;
        ZRProgressHUD::setNeedsDisplay();
    }
    void showUsingAnimation(bool animated) override {
        displaysBeforeShow = displays;
        ++shows;
        ZRProgressHUD::showUsingAnimation(animated);
    }

    int displays = 0;
    int displaysBeforeShow = 0;
    int shows = 0;
};

} // namespace

// Showing

TEST_F(ZRProgressHUDShow, WithoutAnimationItIsThereAtOnce) {
    const auto hud = addHUD();
    host.advance(2);
    hud->show(false);
    EXPECT_EQ(hud->alpha(), 1);
    EXPECT_EQ(seenAlpha(hud), 1);
    ASSERT_NE(hud->showStarted(), nullptr);
    EXPECT_EQ(hud->showStarted()->timeIntervalSinceDate(NSDate::date()), 0);
    EXPECT_FALSE(hud->layer()->hasAnimations());
}

TEST_F(ZRProgressHUDShow, FadesInWithinThreeTenthsOfASecond) {
    const auto hud = addHUD();
    hud->show(true);
    EXPECT_EQ(hud->alpha(), 1);
    EXPECT_EQ(seenAlpha(hud), 0);
    EXPECT_EQ(hud->showStarted()->timeIntervalSinceNow(), 0);
    host.advance(0.1);
    EXPECT_NEAR(seenAlpha(hud), easedAt(1 / 3.0), 1e-6);
    EXPECT_EQ(seenTransform(hud), CATransform3DIdentity);
    host.advance(0.2 - kMoment);
    EXPECT_TRUE(hud->layer()->hasAnimations());
    host.advance(kMoment);
    EXPECT_EQ(seenAlpha(hud), 1);
    EXPECT_FALSE(hud->layer()->hasAnimations());
}

TEST_F(ZRProgressHUDShow, AsksToBeDrawnFirst) {
    const auto hud = make<CountingHUD>();
    hud->displays = 0;
    hud->show(false);
    EXPECT_EQ(hud->displaysBeforeShow, 1);
}

TEST_F(ZRProgressHUDShow, ShrinksFromOneAndAHalfTimesItsSize) {
    const auto hud = addHUD();
    hud->setAnimationType(ZRProgressHUDAnimationShrink);
    hud->show(true);
    EXPECT_EQ(hud->transform(), CGAffineTransformIdentity);
    EXPECT_EQ(seenTransform(hud).m11, 1.5);
    host.advance(0.15);
    EXPECT_NEAR(seenTransform(hud).m11, 1.25, 1e-6);
    EXPECT_NEAR(seenTransform(hud).m22, 1.25, 1e-6);
    EXPECT_NEAR(seenAlpha(hud), 0.5, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(seenTransform(hud), CATransform3DIdentity);
    EXPECT_EQ(seenAlpha(hud), 1);
}

TEST_F(ZRProgressHUDShow, GrowsFromHalfItsSize) {
    const auto hud = addHUD();
    hud->setAnimationType(ZRProgressHUDAnimationGrow);
    hud->show(true);
    EXPECT_EQ(seenTransform(hud).m11, 0.5);
    host.advance(0.15);
    EXPECT_NEAR(seenTransform(hud).m11, 0.75, 1e-6);
    EXPECT_NEAR(seenTransform(hud).m22, 0.75, 1e-6);
    EXPECT_NEAR(seenAlpha(hud), 0.5, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(seenTransform(hud), CATransform3DIdentity);
}

TEST_F(ZRProgressHUDShow, WithoutAnimationTheTypeChangesNothing) {
    const auto hud = addHUD();
    hud->setTransform(CGAffineTransformMakeScale(2, 2));
    for (const int type : {ZRProgressHUDAnimationShrink, ZRProgressHUDAnimationGrow}) {
        hud->setAnimationType(type);
        hud->show(false);
        EXPECT_EQ(hud->transform(), CGAffineTransformMakeScale(2, 2));
    }
}

TEST_F(ZRProgressHUDShow, UnknownAnimationTypesFade) {
    for (const int type : {5, -1, 3}) {
        const auto hud = addHUD();
        hud->setAnimationType(type);
        hud->show(true);
        host.advance(0.15);
        EXPECT_NEAR(seenAlpha(hud), 0.5, 1e-6) << type;
        EXPECT_EQ(seenTransform(hud), CATransform3DIdentity) << type;
        host.advance(0.15);
        hud->hide(true);
        host.advance(0.15);
        EXPECT_NEAR(seenAlpha(hud), 0.51, 1e-6) << type;
        EXPECT_EQ(seenTransform(hud), CATransform3DIdentity) << type;
        hud->removeFromSuperview();
    }
}

TEST_F(ZRProgressHUDShow, NothingIsToldWhenTheShowHasEnded) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->show(true);
    host.advance(1);
    EXPECT_EQ(delegate.count, 0);
    EXPECT_EQ(hud->alpha(), 1);
}

// Grace time

TEST_F(ZRProgressHUDShow, WithAGraceTimeAndNoTaskItNeverAppears) {
    const auto hud = addHUD();
    hud->setGraceTime(0.5f);
    hud->show(true);
    ASSERT_NE(hud->graceTimer(), nullptr);
    EXPECT_EQ(hud->graceTimer()->timeInterval(), 0.5);
    EXPECT_TRUE(hud->graceTimer()->userInfo().isNil());
    host.advance(10);
    EXPECT_FALSE(hud->graceTimer()->isValid());
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->showStarted(), nullptr);
}

TEST_F(ZRProgressHUDShow, WithATaskItAppearsWhenTheGraceTimeIsOver) {
    const auto hud = make<CountingHUD>();
    window->addSubview(hud);
    hud->setGraceTime(0.5f);
    hud->setTaskInProgress(true);
    host.advance(0);
    hud->displays = 0;
    hud->show(true);
    EXPECT_EQ(hud->displays, 0);
    host.advance(0.5 - kMoment);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->shows, 0);
    host.advance(kMoment);
    EXPECT_EQ(hud->shows, 1);
    EXPECT_EQ(hud->displaysBeforeShow, 1);
    EXPECT_EQ(seenAlpha(hud), 0);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(hud), 0.5, 1e-6);
    EXPECT_EQ(hud->showStarted()->timeIntervalSinceNow(), -0.15);
    host.advance(5);
    EXPECT_EQ(hud->shows, 1);
}

TEST_F(ZRProgressHUDShow, TheGraceTimerKeepsToTheLastFlag) {
    const auto hud = addHUD();
    hud->setGraceTime(0.5f);
    hud->setTaskInProgress(true);
    hud->show(true);
    host.advance(0.2);
    hud->show(false);
    host.advance(0.3);
    EXPECT_EQ(seenAlpha(hud), 1); // the first timer, without animation as the second show asked
}

TEST_F(ZRProgressHUDShow, HidingDoesNotStopTheGraceTimer) {
    const auto hud = addHUD();
    hud->setGraceTime(0.5f);
    hud->setTaskInProgress(true);
    hud->show(false);
    host.advance(0.2);
    hud->hide(false);
    EXPECT_TRUE(hud->graceTimer()->isValid());
    host.advance(0.3);
    EXPECT_EQ(hud->alpha(), 1);
}

TEST_F(ZRProgressHUDShow, ATaskOverBeforeTheGraceTimeIsNeverSeen) {
    const auto hud = addHUD();
    hud->setGraceTime(0.5f);
    hud->setTaskInProgress(true);
    hud->show(true);
    host.advance(0.2);
    hud->setTaskInProgress(false);
    host.advance(1);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->showStarted(), nullptr);
}

// Hiding

TEST_F(ZRProgressHUDHide, WithoutAnimationItIsGoneAtOnce) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->show(false);
    hud->hide(false);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->showStarted(), nullptr);
    EXPECT_EQ(delegate.count, 1);
    EXPECT_TRUE(hud->isFinished());
}

TEST_F(ZRProgressHUDHide, FadesOutToNextToNothingAndThenIsDone) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->show(false);
    host.advance(1);
    hud->hide(true);
    EXPECT_EQ(hud->alpha(), 0.02f);
    EXPECT_EQ(hud->showStarted(), nullptr);
    EXPECT_EQ(seenAlpha(hud), 1);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(hud), 0.51, 1e-6);
    EXPECT_EQ(seenTransform(hud), CATransform3DIdentity);
    host.advance(0.15 - kMoment);
    EXPECT_EQ(delegate.count, 0);
    EXPECT_FALSE(hud->isFinished());
    EXPECT_NEAR(seenAlpha(hud), 0.02, 1e-3);
    host.advance(kMoment);
    EXPECT_EQ(delegate.count, 1);
    EXPECT_EQ(delegate.last, hud);
    EXPECT_TRUE(hud->isFinished());
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->superview(), window);
}

TEST_F(ZRProgressHUDHide, ShrinksToHalfItsSize) {
    const auto hud = addHUD();
    hud->setAnimationType(ZRProgressHUDAnimationShrink);
    hud->show(false);
    hud->hide(true);
    EXPECT_EQ(seenTransform(hud).m11, 1);
    host.advance(0.15);
    EXPECT_NEAR(seenTransform(hud).m11, 0.75, 1e-6);
    host.advance(0.15);
    // Nobody takes the scale back before the next show.
    EXPECT_EQ(hud->transform(), CGAffineTransformMakeScale(0.5, 0.5));
    hud->setAnimationType(ZRProgressHUDAnimationFade);
    hud->show(true);
    EXPECT_EQ(hud->transform(), CGAffineTransformMakeScale(0.5, 0.5));
    hud->setAnimationType(ZRProgressHUDAnimationGrow);
    hud->show(true);
    EXPECT_EQ(hud->transform(), CGAffineTransformIdentity);
}

TEST_F(ZRProgressHUDHide, GrowsToOneAndAHalfTimesItsSize) {
    const auto hud = addHUD();
    hud->setAnimationType(ZRProgressHUDAnimationGrow);
    hud->show(false);
    hud->hide(true);
    host.advance(0.15);
    EXPECT_NEAR(seenTransform(hud).m11, 1.25, 1e-6);
    EXPECT_NEAR(seenTransform(hud).m22, 1.25, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(hud->transform(), CGAffineTransformMakeScale(1.5, 1.5));
}

TEST_F(ZRProgressHUDHide, AHUDThatWasNeverShownIsDoneAtOnce) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->hide(true);
    EXPECT_EQ(delegate.count, 1);
    EXPECT_FALSE(hud->layer()->hasAnimations());
    hud->show(false);
    hud->hide(true);
    hud->hide(true); // which is hiding already
    EXPECT_EQ(delegate.count, 2);
    host.advance(1);
    EXPECT_EQ(delegate.count, 3); // the first hide has its end, too
}

TEST_F(ZRProgressHUDHide, AShowDoesNotUndoAHideThatIsRunning) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->show(false);
    hud->hide(true);
    host.advance(0.1);
    hud->show(true);
    host.advance(1);
    EXPECT_EQ(delegate.count, 1);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_NE(hud->showStarted(), nullptr);
}

TEST_F(ZRProgressHUDHide, DuringTheShowGoesOnFromWhatIsSeen) {
    const auto hud = addHUD();
    hud->show(true);
    host.advance(0.15);
    hud->hide(true);
    EXPECT_NEAR(seenAlpha(hud), 0.5, 1e-6);
    host.advance(0.15);
    EXPECT_NEAR(seenAlpha(hud), 0.26, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_TRUE(hud->isFinished());
}

// Minimum show time

TEST_F(ZRProgressHUDHide, WaitsForTheRestOfTheMinimumShowTime) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->setMinShowTime(1);
    hud->show(false);
    host.advance(0.3);
    hud->hide(true);
    ASSERT_NE(hud->minShowTimer(), nullptr);
    EXPECT_EQ(hud->minShowTimer()->timeInterval(), 0.7);
    EXPECT_NE(hud->showStarted(), nullptr);
    host.advance(0.7 - kMoment);
    EXPECT_EQ(hud->alpha(), 1);
    EXPECT_NE(hud->showStarted(), nullptr);
    host.advance(kMoment);
    EXPECT_EQ(hud->alpha(), 0.02f);
    EXPECT_EQ(hud->showStarted(), nullptr);
    EXPECT_EQ(seenAlpha(hud), 1);
    host.advance(0.3 - kMoment);
    EXPECT_EQ(delegate.count, 0);
    host.advance(kMoment);
    EXPECT_EQ(delegate.count, 1);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_FALSE(hud->minShowTimer()->isValid());
    host.advance(5);
    EXPECT_EQ(delegate.count, 1);
}

TEST_F(ZRProgressHUDHide, AfterTheMinimumShowTimeItHidesAtOnce) {
    const auto hud = addHUD();
    hud->setMinShowTime(1);
    hud->show(false);
    host.advance(1);
    hud->hide(false);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(hud->minShowTimer(), nullptr);
}

TEST_F(ZRProgressHUDHide, TheMinimumShowTimeCountsFromTheEndOfTheGraceTime) {
    const auto hud = addHUD();
    hud->setGraceTime(0.5f);
    hud->setMinShowTime(1);
    hud->setTaskInProgress(true);
    hud->show(false);
    host.advance(1.25);
    hud->hide(false);
    EXPECT_EQ(hud->minShowTimer()->timeInterval(), 0.25);
    host.advance(0.25);
    EXPECT_EQ(hud->alpha(), 0);
}

TEST_F(ZRProgressHUDHide, AMinimumShowTimeDoesNotHoldWhatWasNotShown) {
    const auto hud = addHUD();
    hud->setMinShowTime(1);
    hud->hide(true);
    EXPECT_TRUE(hud->isFinished());
    EXPECT_EQ(hud->minShowTimer(), nullptr);
}

TEST_F(ZRProgressHUDHide, ASecondHideReplacesTheTimerButDoesNotStopTheFirst) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->setMinShowTime(1);
    hud->show(false);
    host.advance(0.25);
    hud->hide(true);
    const Ref<NSTimer> first = hud->minShowTimer();
    host.advance(0.25);
    hud->hide(false);
    EXPECT_NE(hud->minShowTimer(), first);
    EXPECT_TRUE(first->isValid());
    EXPECT_EQ(hud->minShowTimer()->timeInterval(), 0.5);
    host.advance(0.5);
    // Both are due now. Each hides, without animation as the last hide asked.
    EXPECT_EQ(delegate.count, 2);
    EXPECT_EQ(hud->alpha(), 0);
}

// Delayed hide

TEST_F(ZRProgressHUDHide, AfterADelay) {
    const auto hud = addHUD();
    hud->show(false);
    hud->hide_afterDelay(true, 2);
    host.advance(2 - kMoment);
    EXPECT_EQ(hud->alpha(), 1);
    host.advance(kMoment);
    EXPECT_EQ(hud->alpha(), 0.02f);
    host.advance(0.3);
    EXPECT_EQ(hud->alpha(), 0);
}

TEST_F(ZRProgressHUDHide, AfterADelayTakesTheFlagOfItsCaller) {
    const auto hud = addHUD();
    hud->show(true);
    hud->hide_afterDelay(false, 2);
    host.advance(2);
    EXPECT_TRUE(hud->isFinished());
    EXPECT_EQ(hud->alpha(), 0);
}

TEST_F(ZRProgressHUDHide, DelayedTakesABoxedFlag) {
    const auto hud = addHUD();
    hud->show(false);
    hud->hideDelayed(NSNumber::numberWithBool(true));
    EXPECT_FALSE(hud->isFinished());
    host.advance(1);
    hud->show(false);
    hud->hideDelayed(NSNumber::numberWithBool(false));
    EXPECT_EQ(hud->alpha(), 0);
}

TEST_F(ZRProgressHUDHide, AnEarlierHideCancelsTheDelayedOne) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->show(false);
    hud->hide_afterDelay(false, 2);
    host.advance(1);
    hud->hide(false);
    EXPECT_EQ(delegate.count, 1);
    hud->show(false);
    host.advance(5);
    EXPECT_EQ(hud->alpha(), 1);
    EXPECT_EQ(delegate.count, 1);
}

// Done

TEST_F(ZRProgressHUDDone, TellsTheBlockOnceAndThenTheDelegate) {
    std::vector<std::string> told;
    HUDDelegate delegate;
    delegate.onHidden = [&] { told.push_back("delegate"); };
    const auto hud = addHUD();
    hud->setRemoveFromSuperViewOnHide(true);
    hud->setDelegate(&delegate);
    hud->setCompletionBlock([&] {
        told.push_back("block");
        EXPECT_EQ(hud->alpha(), 0);
        EXPECT_EQ(hud->superview(), nullptr);
        EXPECT_TRUE(hud->isFinished());
    });
    hud->show(false);
    hud->hide(false);
    EXPECT_EQ(told, (std::vector<std::string>{"block", "delegate"}));
    EXPECT_FALSE(hud->completionBlock());
    window->addSubview(hud);
    hud->show(false);
    hud->hide(false);
    EXPECT_EQ(told, (std::vector<std::string>{"block", "delegate", "delegate"}));
}

TEST_F(ZRProgressHUDDone, ABlockSetByTheBlockIsLetGoUnrun) {
    // The property is cleared after the block has run, whatever it holds by then.
    int runs = 0;
    const auto hud = addHUD();
    hud->setCompletionBlock([&] { hud->setCompletionBlock([&] { ++runs; }); });
    hud->hide(false);
    EXPECT_FALSE(hud->completionBlock());
    hud->hide(false);
    EXPECT_EQ(runs, 0);
}

TEST_F(ZRProgressHUDDone, ABlockThatHidesAgainRunsOnce) {
    int runs = 0;
    const auto hud = addHUD();
    hud->setCompletionBlock([&] {
        ++runs;
        hud->hide(false);
    });
    hud->hide(false);
    EXPECT_EQ(runs, 1);
}

TEST_F(ZRProgressHUDDone, AShowFromTheBlockIsForgottenAsTheBeginningOfOne) {
    // What the hide forgets in the end is the beginning of whatever show there was.
    const auto hud = addHUD();
    hud->show(false);
    hud->setCompletionBlock([&] { hud->show(false); });
    hud->hide(false);
    EXPECT_EQ(hud->alpha(), 1);
    EXPECT_EQ(hud->showStarted(), nullptr);
}

TEST_F(ZRProgressHUDDone, ADelayedHideThatTheBlockAsksForIsKept) {
    HUDDelegate delegate;
    const auto hud = addHUD();
    hud->setDelegate(&delegate);
    hud->setCompletionBlock([&] {
        hud->show(false);
        hud->hide_afterDelay(false, 1);
    });
    hud->hide(false);
    EXPECT_EQ(delegate.count, 1);
    host.advance(1);
    EXPECT_EQ(delegate.count, 2);
}

TEST_F(ZRProgressHUDDone, StaysInTheViewUnlessToldToLeave) {
    const auto hud = addHUD();
    hud->show(true);
    host.advance(1);
    hud->hide(true);
    host.advance(1);
    EXPECT_EQ(hud->superview(), window);
    hud->setRemoveFromSuperViewOnHide(true);
    hud->show(true);
    host.advance(1);
    hud->hide(true);
    host.advance(0.3);
    EXPECT_EQ(hud->superview(), nullptr);
}

TEST_F(ZRProgressHUDDone, MayDropTheLastReferenceToTheHUD) {
    Weak<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(window, false).get();
    ASSERT_NE(hud, nullptr);
    int told = 0;
    hud->setCompletionBlock([&] { ++told; });
    ZRProgressHUD::hideHUDForView_animated(window, false);
    EXPECT_EQ(told, 1);
    host.advance(0);
    EXPECT_EQ(hud, nullptr);
}

TEST_F(ZRProgressHUDDone, ADelegateThatIsGoneIsNotTold) {
    const auto hud = addHUD();
    hud->show(false);
    {
        HUDDelegate delegate;
        hud->setDelegate(&delegate);
    }
    hud->hide(false);
    EXPECT_EQ(hud->delegate().get(), nullptr);
    EXPECT_TRUE(hud->isFinished());
}

TEST_F(ZRProgressHUDDone, ADelegateMayDropItselfAndTheHUD) {
    auto delegate = make<HUDDelegate>();
    Weak<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(window, false).get();
    hud->setDelegate(delegate.get());
    delegate->onHidden = [&] { delegate = nullptr; };
    hud->hide(true);
    host.advance(1);
    EXPECT_EQ(delegate, nullptr);
    EXPECT_EQ(hud, nullptr);
}

TEST_F(ZRProgressHUDDone, AHUDDroppedWhileItAnimatesLeavesNothing) {
    Weak<ZRProgressHUD> hud = ZRProgressHUD::showHUDAddedTo_animated(window, true).get();
    host.advance(0.1);
    hud->hide(true);
    host.advance(0.1);
    hud->removeFromSuperview();
    host.advance(1);
    EXPECT_EQ(hud, nullptr);
}

TEST_F(ZRProgressHUDDone, NoFrameIsComposedAfterTheHide) {
    const auto hud = addHUD();
    hud->show(true);
    host.advance(1);
    hud->hide(true);
    host.advance(1);
    const auto before = host.framesComposed();
    host.advance(60);
    EXPECT_EQ(host.framesComposed(), before); // the spinner goes on turning, unseen
}
