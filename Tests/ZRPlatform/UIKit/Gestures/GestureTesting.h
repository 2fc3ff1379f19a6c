#pragma once

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace zr::tests {

using Log = std::vector<std::string>;

inline std::string stateName(UIGestureRecognizerState state) {
    static const char* const kNames[] = {"possible", "began", "changed", "ended", "cancelled", "failed"};
    return kNames[state];
}

/// Writes down what it is told of its touches.
class LoggingView : public UIView {
public:
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override { note("began", touches, event); }
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override { note("moved", touches, event); }
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override { note("ended", touches, event); }
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override {
        note("cancelled", touches, event);
    }
    bool gestureRecognizerShouldBegin(UIGestureRecognizer*) override {
        ++timesAsked;
        if (actOnQuestion)
            actOnQuestion();
        return allowsGestures;
    }

    Log* log = nullptr;
    std::string name;
    bool allowsGestures = true;
    std::function<void()> actOnQuestion;
    int timesAsked = 0;
    /// Where each message found the touch, now and before.
    std::vector<std::pair<CGPoint, CGPoint>> places;
    std::vector<UITouchPhase> phases;
    std::size_t touchesOfEvent = 0;
    std::function<void(const std::string& what)> act;

private:
    void note(const char* what, const TouchSet& touches, UIEvent* event) {
        log->push_back(name + " " + what);
        places.emplace_back(touches[0]->locationInView(nullptr), touches[0]->previousLocationInView(nullptr));
        phases.push_back(touches[0]->phase());
        touchesOfEvent = event->touchesForView(this).size();
        if (act)
            act(what);
    }
};

/// A target that writes down the state in which it finds its recogniser.
class Reporter : public NSObject {
public:
    void report(UIGestureRecognizer* recognizer) {
        log->push_back(name + " " + stateName(recognizer->state()));
        if (act)
            act(recognizer);
    }
    void ping() { log->push_back(name + " pinged"); }

    Log* log = nullptr;
    std::string name;
    std::function<void(UIGestureRecognizer*)> act;
};

/// Recognises a finger that has moved 10 points: it begins then and follows the finger, or, a discrete one, is
/// recognised then. Its answers about others can be set.
class Slide : public UIGestureRecognizer {
public:
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent*) override {
        seen.push_back("began");
        if (start.x < 0)
            start = touches[0]->locationInView(nullptr);
        ++fingers;
        if (onTouch)
            onTouch("began");
    }
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override {
        seen.push_back("moved");
        followed = event->touchesForGestureRecognizer(this).size();
        const CGPoint place = touches[0]->locationInView(nullptr);
        const bool isFar = std::hypot(place.x - start.x, place.y - start.y) >= threshold;
        if (state() == UIGestureRecognizerStatePossible && isFar)
            setState(isDiscrete ? UIGestureRecognizerStateEnded : UIGestureRecognizerStateBegan);
        else if (state() != UIGestureRecognizerStatePossible)
            setState(UIGestureRecognizerStateChanged);
        if (onTouch)
            onTouch("moved");
    }
    void touchesEnded_withEvent(const TouchSet&, UIEvent*) override {
        seen.push_back("ended");
        if (--fingers == 0)
            setState(state() == UIGestureRecognizerStatePossible && !isWaiting ? UIGestureRecognizerStateFailed
                                                                               : UIGestureRecognizerStateEnded);
        if (onTouch)
            onTouch("ended");
    }
    void touchesCancelled_withEvent(const TouchSet&, UIEvent*) override { seen.push_back("cancelled"); }
    void reset() override {
        ++resets;
        start = {-1, -1};
        fingers = 0;
    }
    bool canPreventGestureRecognizer(UIGestureRecognizer*) override { return canPrevent; }
    bool canBePreventedByGestureRecognizer(UIGestureRecognizer*) override { return canBePrevented; }
    bool shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer*) override { return requiresFailure; }
    bool shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer*) override { return isRequiredToFail; }

    /// Of the fingers that are down, as they came.
    const std::vector<Ref<UITouch>>& touchesSeen() const { return locatedTouches(); }

    bool isDiscrete = false;
    CGFloat threshold = 10;
    bool canPrevent = true, canBePrevented = true, requiresFailure = false, isRequiredToFail = false;
    /// Ends, rather than fails, when its finger goes up while it is still possible.
    bool isWaiting = false;
    CGPoint start{-1, -1};
    int fingers = 0;
    int resets = 0;
    std::size_t followed = 0;
    Log seen;
    std::function<void(const std::string& what)> onTouch;
};

/// A delegate whose answers can be set, and that counts the questions.
class Judge : public NSObject, public UIGestureRecognizerDelegate {
public:
    bool gestureRecognizerShouldBegin(UIGestureRecognizer*) override {
        ++timesAskedToBegin;
        if (act)
            act();
        return begins;
    }
    bool gestureRecognizer_shouldReceiveTouch(UIGestureRecognizer*, UITouch* touch) override {
        touchedViews.push_back(touch->view());
        if (actOnTouch)
            actOnTouch();
        return receives;
    }
    bool gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(UIGestureRecognizer*,
                                                                              UIGestureRecognizer*) override {
        if (actOnBoth)
            actOnBoth();
        return allowsBoth;
    }
    bool gestureRecognizer_shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer*,
                                                                   UIGestureRecognizer*) override {
        if (actOnRequirement)
            actOnRequirement();
        return requiresFailure;
    }
    bool gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer*,
                                                                     UIGestureRecognizer*) override {
        return isRequiredToFail;
    }

    bool begins = true, receives = true, allowsBoth = false, requiresFailure = false, isRequiredToFail = false;
    int timesAskedToBegin = 0;
    std::vector<UIView*> touchedViews;
    std::function<void()> act, actOnTouch, actOnBoth, actOnRequirement;
};

/// A view at (100, 100), 200 x 200 points, in a window, and a log that everything writes to.
class Gestures : public testing::Test {
protected:
    Gestures() { window->makeKeyAndVisible(); }

    Ref<LoggingView> addView(const std::string& name, CGRect frame, UIView* parent = nullptr) {
        auto added = make<LoggingView>(&LoggingView::initWithFrame, frame);
        added->log = &log;
        added->name = name;
        (parent ? parent : static_cast<UIView*>(window))->addSubview(added);
        return added;
    }
    Ref<Reporter> reporter(const std::string& name) {
        auto made = make<Reporter>();
        made->log = &log;
        made->name = name;
        reporters.push_back(made);
        return made;
    }
    /// Attached to the view, and reporting under the name.
    template <class T>
    Ref<T> attach(UIView* to, const std::string& name) {
        auto recognizer = make<T>(&T::initWithTarget_action, reporter(name), selector<&Reporter::report>);
        to->addGestureRecognizer(recognizer);
        return recognizer;
    }
    Ref<Judge> judge(UIGestureRecognizer* recognizer) {
        auto made = make<Judge>();
        recognizer->setDelegate(made);
        judges.push_back(made);
        return made;
    }
    /// What came since the last call.
    Log news() { return std::exchange(log, {}); }
    Reporter* reporterNamed(const std::string& name) {
        for (const auto& known : reporters) {
            if (known->name == name)
                return known;
        }
        return nullptr;
    }

    Log log;
    HeadlessHost host;
    std::vector<Ref<Reporter>> reporters;
    std::vector<Ref<Judge>> judges;
    Ref<UIWindow> window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    Ref<LoggingView> view = addView("view", CGRectMake(100, 100, 200, 200));
};

} // namespace zr::tests
