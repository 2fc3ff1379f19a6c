#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>

namespace zr::testing {

namespace {

const RGBAColor kOff = rgb(228, 228, 228);
const RGBAColor kOn = rgb(0, 195, 64);

/// A switch at (100, 200), and what it sent.
class ZRSwitchTest : public ::testing::Test {
protected:
    class Listener : public NSObject {
    public:
        void changed(NSObject* sender) {
            ++count;
            isOn = dynamic_cast<ZRSwitch*>(sender)->isOn();
            if (onChange)
                onChange();
        }
        int count = 0;
        bool isOn = false;
        std::function<void()> onChange;
    };

    void SetUp() override {
        control->addTarget_action_forControlEvents(&listener, selector<&Listener::changed>, UIControlEventValueChanged);
        window->addSubview(control);
        host.advance(0);
    }

    UIView* knob() const { return control->subviews().at(0); }
    CGRect seenKnob() const { return knob()->layer()->presentationValues().frame(); }
    RGBAColor seenTrack() const { return control->layer()->presentationValues().backgroundColor->rgba(); }
    RGBAColor seenBorder() const { return control->layer()->presentationValues().borderColor->rgba(); }
    static CGPoint at(CGFloat x) { return {100 + x, 215}; }
    /// At rest in a state, and nothing moves.
    void expectAtRest(bool on) {
        EXPECT_EQ(control->isOn(), on);
        EXPECT_EQ(knob()->frame(), CGRectMake(on ? 20.5 : 1.5, 1.5, 28, 28));
        EXPECT_EQ(seenKnob(), knob()->frame());
        EXPECT_EQ(rgba(control->backgroundColor()), on ? kOn : kOff);
        EXPECT_EQ(control->layer()->borderColor()->rgba(), on ? kOn : kOff);
    }
    /// Makes the switch animate from now on, and stay as it is.
    void makeAnimated() { control->setOn_animated(control->isOn(), true); }

    HeadlessHost host;
    Ref<UIWindow> window = showWindow(UIColor::whiteColor());
    Ref<ZRSwitch> control = make<ZRSwitch>(&ZRSwitch::initWithFrame, CGRectMake(100, 200, 10, 10));
    Listener listener;
};

} // namespace

TEST_F(ZRSwitchTest, HasItsOwnSize) {
    for (const CGSize& size : {CGSize{100, 100}, {0, 0}, {50, 31}})
        EXPECT_EQ(make<ZRSwitch>(&ZRSwitch::initWithFrame, CGRectMake(10, 20, size.width, size.height))->frame(),
                  CGRectMake(10, 20, 50, 31));
    EXPECT_EQ(make<ZRSwitch>()->frame(), CGRectMake(0, 0, 50, 31));
}

TEST_F(ZRSwitchTest, IsOffAtFirst) {
    expectAtRest(false);
    EXPECT_EQ(control->layer()->cornerRadius(), 15.5);
    EXPECT_EQ(control->layer()->borderWidth(), 1.5);
    EXPECT_TRUE(control->clipsToBounds());
    EXPECT_EQ(knob()->layer()->cornerRadius(), 14);
    EXPECT_EQ(rgba(knob()->backgroundColor()), rgb(255, 255, 255));
    EXPECT_EQ(knob()->center(), CGPointMake(15.5, 15.5));
}

TEST_F(ZRSwitchTest, IsPaintedAsARoundedTrackWithARoundKnob) {
    EXPECT_EQ(host.pixel({140, 215}), (FramePixel{228, 228, 228}));
    EXPECT_EQ(host.pixel({115, 215}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({100, 200}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({100.5, 215}), (FramePixel{228, 228, 228}));
    control->setOn_animated(true, false);
    EXPECT_EQ(host.pixel({110, 215}), (FramePixel{0, 195, 64}));
    EXPECT_EQ(host.pixel({134, 215}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({149, 215}), (FramePixel{0, 195, 64}));
}

// By code

TEST_F(ZRSwitchTest, SetByCodeWithoutAnimationIsThereAtOnce) {
    control->setOn_animated(true, false);
    expectAtRest(true);
    control->setOn_animated(false, false);
    expectAtRest(false);
    EXPECT_EQ(listener.count, 0);
}

TEST_F(ZRSwitchTest, SetByCodeWithAnimationMovesAndColoursIn400Milliseconds) {
    control->setOn(true);
    EXPECT_TRUE(control->isOn());
    EXPECT_EQ(knob()->center().x, 34.5);
    EXPECT_EQ(seenKnob(), CGRectMake(1.5, 1.5, 28, 28));
    EXPECT_EQ(seenTrack(), kOff);
    host.advance(0.2);
    EXPECT_NEAR(seenKnob().origin.x, 11, 1e-6);
    EXPECT_NEAR(seenTrack().red * 255, 114, 1e-3);
    EXPECT_NEAR(seenBorder().red * 255, 114, 1e-3);
    host.advance(0.2 - 1e-6);
    EXPECT_TRUE(knob()->layer()->hasAnimations());
    EXPECT_TRUE(control->layer()->hasAnimations());
    host.advance(1e-6);
    EXPECT_FALSE(knob()->layer()->hasAnimations());
    EXPECT_FALSE(control->layer()->hasAnimations());
    expectAtRest(true);
    EXPECT_EQ(listener.count, 0);
}

TEST_F(ZRSwitchTest, SetToWhatItIsSendsAndMovesNothing) {
    control->setOn(false);
    expectAtRest(false);
    control->setOn_animated(true, false);
    control->setOn(true);
    host.advance(1);
    expectAtRest(true);
    EXPECT_EQ(listener.count, 0);
}

TEST_F(ZRSwitchTest, SetToWhatItIsShrinksAStretchedKnob) {
    host.touchDown(at(15));
    ASSERT_EQ(knob()->frame().size.width, 38);
    control->setOn_animated(false, false);
    EXPECT_EQ(knob()->frame(), CGRectMake(1.5, 1.5, 28, 28));
    EXPECT_EQ(rgba(control->backgroundColor()), kOff);
}

TEST_F(ZRSwitchTest, ObserversAreToldOfEachSetting) {
    KeyWatcher<bool> watcher(control, "on", [this] { return control->isOn(); });
    control->setOn_animated(true, false);
    control->setOn(true);
    host.tap(at(35));
    EXPECT_EQ(watcher.values, (std::vector<bool>{true, true, false}));
}

TEST_F(ZRSwitchTest, MayBeDroppedByWhomObservesIt) {
    auto lone = make<ZRSwitch>();
    ZRSwitch* plain = lone;
    const Weak<ZRSwitch> weak = lone;
    KeyWatcher<bool> watcher(lone, "on", [plain] { return plain->isOn(); });
    watcher.onChange = [&] { lone = nullptr; };
    plain->setOn(true);
    EXPECT_EQ(weak, nullptr);
}

TEST_F(ZRSwitchTest, OnIsAKey) {
    control->setValue_forKey(true, "on");
    EXPECT_TRUE(control->isOn());
    EXPECT_TRUE(control->valueForKey("on").boolValue());
}

// Taps

TEST_F(ZRSwitchTest, ATapOnSwitchesAndSendsOneEvent) {
    host.touchDown(at(15));
    EXPECT_EQ(knob()->frame(), CGRectMake(1.5, 1.5, 38, 28));
    EXPECT_EQ(seenKnob(), knob()->frame()); // no animation has been asked for as yet
    EXPECT_EQ(listener.count, 0);
    host.touchUp();
    EXPECT_EQ(listener.count, 1);
    EXPECT_TRUE(listener.isOn);
    EXPECT_TRUE(control->isOn());
    EXPECT_EQ(knob()->frame(), CGRectMake(20.5, 1.5, 28, 28));
    EXPECT_EQ(seenKnob(), CGRectMake(1.5, 1.5, 38, 28)); // this one moves: the tap has asked for it
    host.advance(0.4);
    expectAtRest(true);
    host.tap(at(15));
    host.advance(0.4);
    EXPECT_EQ(listener.count, 2);
    expectAtRest(false);
}

TEST_F(ZRSwitchTest, StretchesIn300MillisecondsOnceASetWasAnimated) {
    makeAnimated();
    host.touchDown(at(15));
    EXPECT_EQ(knob()->frame().size.width, 38);
    EXPECT_EQ(seenKnob().size.width, 28);
    host.advance(0.15);
    EXPECT_NEAR(seenKnob().size.width, 33, 1e-6);
    EXPECT_NEAR(seenKnob().origin.x, 1.5, 1e-6);
    host.advance(0.15);
    EXPECT_EQ(seenKnob(), CGRectMake(1.5, 1.5, 38, 28));
    EXPECT_FALSE(knob()->layer()->hasAnimations());
    control->setOn_animated(false, false); // and no more once a set was not
    host.touchUp();
    host.advance(1);
    control->setOn_animated(false, false);
    host.touchDown(at(15));
    EXPECT_EQ(seenKnob().size.width, 38);
}

TEST_F(ZRSwitchTest, ShrinksIn300MillisecondsWhenASetWasAnimated) {
    makeAnimated();
    host.touchDown(at(15));
    host.advance(1);
    control->setOn(false); // it is off already: only the knob's width changes
    host.advance(0.15);
    EXPECT_NEAR(seenKnob().size.width, 33, 1e-6);
    host.advance(0.15);
    EXPECT_FALSE(knob()->layer()->hasAnimations());
    expectAtRest(false);
}

TEST_F(ZRSwitchTest, IsAControlThatTracksItsTouch) {
    EventCounter down(control, UIControlEventTouchDown), drag(control, UIControlEventTouchDragInside);
    EventCounter up(control, UIControlEventTouchUpInside), cancel(control, UIControlEventTouchCancel);
    host.touchDown(at(15));
    EXPECT_EQ(down.count, 1);
    EXPECT_TRUE(control->isTracking());
    EXPECT_TRUE(control->isHighlighted());
    host.touchMove(at(20));
    EXPECT_EQ(drag.count, 1);
    host.touchUp();
    EXPECT_EQ(up.count, 1);
    EXPECT_FALSE(control->isTracking());
    host.touchDown(at(15));
    host.touchCancel();
    EXPECT_EQ(cancel.count, 1);
    EXPECT_FALSE(control->isTracking());
}

TEST_F(ZRSwitchTest, AnOnKnobStretchesBeyondTheRightEdgeAndIsCutThere) {
    control->setOn_animated(true, false);
    host.touchDown(at(35));
    EXPECT_EQ(knob()->frame(), CGRectMake(20.5, 1.5, 38, 28));
    EXPECT_EQ(host.pixel({152, 215}), (FramePixel{255, 255, 255})); // the window
    // The border lies over the knob; at the very edge a little of the window shows.
    EXPECT_EQ(host.pixel({149, 215}), (FramePixel{0, 195, 64}));
}

TEST_F(ZRSwitchTest, AStretchedKnobShrinksFromTheRightOnTheOnSide) {
    control->setOn_animated(true, false);
    control->reSizeCirCleWithHighLight_fromRight(true, true);
    control->reSizeCirCleWithHighLight_fromRight(true, true); // which moves left, being wider than 28
    EXPECT_EQ(knob()->frame(), CGRectMake(10.5, 1.5, 38, 28));
    control->reSizeCirCleWithHighLight_fromRight(false, true);
    EXPECT_EQ(knob()->frame(), CGRectMake(20.5, 1.5, 28, 28)); // its right edge stays at 48.5
    control->reSizeCirCleWithHighLight_fromRight(false, true);
    EXPECT_EQ(knob()->frame(), CGRectMake(20.5, 1.5, 28, 28));
    control->reSizeCirCleWithHighLight_fromRight(true, false);
    control->reSizeCirCleWithHighLight_fromRight(false, false);
    EXPECT_EQ(knob()->frame(), CGRectMake(20.5, 1.5, 28, 28));
}

TEST_F(ZRSwitchTest, MovesAStretchedKnobNoFartherThanItCanGo) {
    const auto movedTo = [this](CGFloat x) {
        control->moveCircleViewToPoint(x);
        EXPECT_EQ(knob()->center().y, 15.5);
        return knob()->center().x;
    };
    EXPECT_EQ(movedTo(15.5), 15.5);
    EXPECT_EQ(movedTo(34.5), 34.5);
    EXPECT_EQ(movedTo(14.5), 14.5);
    EXPECT_EQ(movedTo(14), 20.5);
    EXPECT_EQ(movedTo(35.5), 35.5);
    EXPECT_EQ(movedTo(36), 29.5);
    control->reSizeCirCleWithHighLight_fromRight(true, false);
    EXPECT_EQ(movedTo(15.5), 20.5);
    EXPECT_EQ(movedTo(34.5), 29.5);
    EXPECT_EQ(movedTo(25), 25);
    EXPECT_EQ(movedTo(19), 20.5);
    EXPECT_EQ(movedTo(19.5), 19.5);
    EXPECT_EQ(movedTo(31), 29.5);
    EXPECT_EQ(movedTo(30.5), 30.5);
}

TEST_F(ZRSwitchTest, ShowsAStateWithoutBeingInIt) {
    control->moveCircleViewWithStatus(true);
    EXPECT_FALSE(control->isOn());
    EXPECT_EQ(knob()->center().x, 34.5);
    EXPECT_EQ(rgba(control->backgroundColor()), kOn);
    EXPECT_EQ(control->layer()->borderColor()->rgba(), kOn);
    control->moveCircleViewWithStatus(false);
    expectAtRest(false);
}

// Drags

TEST_F(ZRSwitchTest, OnlyAFingerBeyond10And40TakesTheKnobAlong) {
    const struct {
        CGFloat x;
        bool moves;
        bool on;
    } places[] = {{10, false, false}, {9.9, true, false}, {40, false, false}, {40.1, true, true}, {25, false, false}};
    for (const auto& place : places) {
        const auto other = make<ZRSwitch>(&ZRSwitch::initWithFrame, CGRectMake(100, 300, 0, 0));
        other->setOn_animated(!place.on, false);
        window->addSubview(other);
        host.touchDown({125, 315});
        const CGPoint before = other->subviews()[0]->center();
        host.touchMove({100 + place.x, 315});
        EXPECT_EQ(other->subviews()[0]->center() != before, place.moves) << place.x;
        EXPECT_EQ(other->isOn(), !place.on) << place.x; // nothing counts before the finger goes
        EXPECT_EQ(rgba(other->backgroundColor()), place.moves == place.on ? kOn : kOff) << place.x;
        host.touchUp();
        EXPECT_EQ(other->isOn(), place.on) << place.x; // a drag to there, or else a tap
        other->removeFromSuperview();
    }
}

TEST_F(ZRSwitchTest, ADragShowsTheEndAtOnceAndCommitsItInTheEnd) {
    host.touchDown(at(15));
    host.touchMove(at(45));
    EXPECT_FALSE(control->isOn());
    EXPECT_EQ(knob()->center().x, 29.5); // where a stretched knob ends
    EXPECT_EQ(rgba(control->backgroundColor()), kOn);
    EXPECT_EQ(listener.count, 0);
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(listener.count, 1);
    expectAtRest(true);
}

TEST_F(ZRSwitchTest, ADragFarOutsideCountsAsWell) {
    host.touchDown(at(15));
    host.touchMove({330, 500});
    host.touchUp();
    EXPECT_TRUE(control->isOn());
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSwitchTest, ADragThereAndBackSendsNothing) {
    control->setOn_animated(true, false);
    host.touchDown(at(35));
    host.touchMove(at(5));
    EXPECT_EQ(rgba(control->backgroundColor()), kOff);
    EXPECT_EQ(knob()->center().x, 20.5);
    host.touchMove(at(45));
    host.touchUp();
    host.advance(1);
    EXPECT_EQ(listener.count, 0);
    expectAtRest(true);
}

TEST_F(ZRSwitchTest, TheEndOfADragIsAnimated) {
    host.touchDown(at(15));
    host.touchMove(at(45));
    const CGRect dragged = seenKnob(); // at once: no set was animated before
    EXPECT_EQ(dragged, knob()->frame());
    host.touchUp();
    EXPECT_EQ(seenKnob(), dragged);
    EXPECT_NE(seenKnob(), knob()->frame());
    host.advance(0.4);
    expectAtRest(true);
}

TEST_F(ZRSwitchTest, ACancelledDragIsADrag) {
    control->setOn_animated(true, false);
    host.touchDown(at(35));
    host.touchMove(at(5));
    host.touchMove(at(45));
    host.touchCancel();
    host.advance(1);
    EXPECT_EQ(listener.count, 0);
    expectAtRest(true);
}

TEST_F(ZRSwitchTest, ADragInTheMiddleIsATap) {
    host.touchDown(at(15));
    host.touchMove(at(30));
    host.touchMove(at(12));
    host.touchUp();
    host.advance(1);
    expectAtRest(true);
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSwitchTest, ANewTouchForgetsTheDragBefore) {
    host.touchDown(at(15));
    host.touchMove(at(45));
    host.touchUp();
    host.advance(1);
    host.tap(at(35));
    host.advance(1);
    expectAtRest(false);
    EXPECT_EQ(listener.count, 2);
}

TEST_F(ZRSwitchTest, ACancelledTouchToggles) {
    host.touchDown(at(15));
    host.touchCancel();
    host.advance(1);
    EXPECT_EQ(listener.count, 1);
    expectAtRest(true);
    host.touchDown(at(35));
    host.touchMove(at(5));
    host.touchCancel();
    host.advance(1);
    EXPECT_EQ(listener.count, 2);
    expectAtRest(false);
}

// What may go wrong

TEST_F(ZRSwitchTest, ADisabledSwitchLeavesTouchesAlone) {
    control->setEnabled(false);
    host.tap(at(15));
    host.touchDown(at(15));
    EXPECT_EQ(knob()->frame().size.width, 28);
    host.touchMove(at(45));
    host.touchCancel();
    expectAtRest(false);
    EXPECT_EQ(listener.count, 0);
    control->setOn_animated(true, false); // code may still set it
    expectAtRest(true);
}

TEST_F(ZRSwitchTest, DisabledDuringATouchRestsWhereItWas) {
    host.touchDown(at(15));
    host.touchMove(at(45));
    control->setEnabled(false);
    host.advance(1);
    expectAtRest(false);
    host.touchUp();
    expectAtRest(false);
    EXPECT_EQ(listener.count, 0);
    control->setEnabled(true);
    host.tap(at(15));
    host.advance(1);
    expectAtRest(true);
}

TEST_F(ZRSwitchTest, DisabledAfterCodeHasSetItDuringADragItRestsAsItIs) {
    host.touchDown(at(15));
    control->setOn_animated(false, false); // takes the knob back, though the finger is down
    host.touchMove(at(45));
    control->setEnabled(false);
    host.advance(1);
    expectAtRest(false);
    host.touchUp();
    host.advance(1);
    expectAtRest(false);
}

TEST_F(ZRSwitchTest, ATouchCountsOnlyIfItWasEnabledAllTheWay) {
    control->setEnabled(false);
    host.touchDown(at(15));
    control->setEnabled(true);
    host.touchMove(at(45));
    host.touchUp();
    expectAtRest(false);
    // Neither does a touch in which it was disabled for a moment.
    host.touchDown(at(15));
    host.touchMove(at(45));
    control->setEnabled(false);
    control->setEnabled(true);
    host.touchMove(at(46));
    host.touchUp();
    host.advance(1);
    expectAtRest(false);
    EXPECT_EQ(listener.count, 0);
    host.tap(at(15));
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSwitchTest, RemovedDuringADragItTakesOverWhatShows) {
    host.touchDown(at(15));
    host.touchMove(at(45));
    control->removeFromSuperview();
    EXPECT_TRUE(control->isOn());
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSwitchTest, ResizedToNothingDuringItsTouchItTogglesAllTheSame) {
    host.touchDown(at(15));
    control->setFrame(CGRectMake(100, 200, 0, 0));
    host.touchUp();
    host.snapshot();
    EXPECT_TRUE(control->isOn());
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSwitchTest, RemovedDuringATouchTogglesAsCancelledOnesDo) {
    host.touchDown(at(15));
    control->removeFromSuperview();
    EXPECT_EQ(listener.count, 1);
    host.touchUp();
    EXPECT_EQ(listener.count, 1);
    EXPECT_TRUE(control->isOn());
}

TEST_F(ZRSwitchTest, MayBeDroppedByWhomItTells) {
    const Weak<ZRSwitch> weak = control;
    listener.onChange = [this] {
        control->removeFromSuperview();
        control = nullptr;
    };
    host.tap(at(15));
    host.advance(1);
    EXPECT_EQ(weak, nullptr);
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSwitchTest, ResizedToNothingShowsNothing) {
    control->setFrame(CGRectMake(100, 200, 0, 0));
    host.tap({100, 200});
    host.snapshot();
    EXPECT_EQ(listener.count, 0);
    EXPECT_FALSE(control->isOn());
}

TEST_F(ZRSwitchTest, AnInterruptedMoveGoesOnFromWhatIsSeen) {
    control->setOn(true);
    host.advance(0.2);
    control->setOn(false);
    EXPECT_NEAR(seenKnob().origin.x, 11, 1e-6);
    EXPECT_NEAR(seenTrack().red * 255, 114, 1e-3);
    host.advance(0.2);
    EXPECT_NEAR(seenKnob().origin.x, 6.25, 1e-6);
    host.advance(0.2);
    expectAtRest(false);
}

} // namespace zr::testing
