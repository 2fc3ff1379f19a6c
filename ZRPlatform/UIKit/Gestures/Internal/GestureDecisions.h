#pragma once

#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>

namespace zr {

/// A recogniser from its first touch to its reset, and how far it has come.
struct Contender {
    Ref<UIGestureRecognizer> recognizer;
    /// Every touch since the last reset but those it ignored.
    std::vector<Ref<UITouch>> touches;
    /// What it becomes if those it waits for fail; possible when it does not wait.
    UIGestureRecognizerState wouldBe = UIGestureRecognizerStatePossible;
    /// It would begin, and has seen its end since.
    bool wouldEnd = false;
    std::vector<Weak<UIGestureRecognizer>> waitsFor;
    /// Its targets are yet to be told of its state.
    bool hasNews = false;
    bool hasToldBeginning = false;
};

/// What becomes of a touch on its way to its view.
struct TouchFate {
    bool isTaken = false;
    bool holdsBegan = false;
    bool holdsEnded = false;
};

/// Ended, cancelled or failed.
bool isOver(UIGestureRecognizerState state);
/// Began or changed.
bool isActive(UIGestureRecognizerState state);
/// Began, changed or ended.
bool isRecognized(UIGestureRecognizerState state);
/// Whether the number stands for a state at all.
bool isState(NSInteger number);
bool isAllowed(UIGestureRecognizerState from, UIGestureRecognizerState to);
/// For logs; of a state that is one.
const char* nameOf(UIGestureRecognizerState state);

/// Whether it waits, or need wait no more, with nothing left to see.
bool isDecided(const Contender& contender);
bool sharesTouch(const Contender& a, const Contender& b);
/// What its recognisers, in the states they have, make of the touch.
TouchFate fateOf(const UITouch* touch);

/// @name Questions to recognisers, delegates and views
/// Whoever is asked may change anything meanwhile.
/// @{
bool shouldReceive(UIGestureRecognizer* recognizer, UITouch* touch);
/// Whether the one, recognised, makes the other one fail.
bool prevents(UIGestureRecognizer* recognizer, UIGestureRecognizer* other);
/// Whether the one may not be recognised before the other one has failed.
bool shouldWaitFor(UIGestureRecognizer* recognizer, UIGestureRecognizer* other);
/// The views from each one hit up to the recogniser's own are asked, then the delegate.
bool mayBegin(const Contender& contender);
/// @}

} // namespace zr
