#include <ZRPlatform/UIKit/Gestures/Internal/GestureDecisions.h>

#include <ZRPlatform/UIKit/Views/UIView.h>

#include <algorithm>

namespace zr {

// States

bool isOver(UIGestureRecognizerState state) {
    return state == UIGestureRecognizerStateEnded || state == UIGestureRecognizerStateCancelled ||
           state == UIGestureRecognizerStateFailed;
}

bool isActive(UIGestureRecognizerState state) {
    return state == UIGestureRecognizerStateBegan || state == UIGestureRecognizerStateChanged;
}

bool isRecognized(UIGestureRecognizerState state) { return isActive(state) || state == UIGestureRecognizerStateEnded; }

bool isState(NSInteger number) {
    return number >= UIGestureRecognizerStatePossible && number <= UIGestureRecognizerStateFailed;
}

bool isAllowed(UIGestureRecognizerState from, UIGestureRecognizerState to) {
    switch (from) {
    case UIGestureRecognizerStatePossible:
        return to != UIGestureRecognizerStatePossible && to != UIGestureRecognizerStateChanged;
    case UIGestureRecognizerStateBegan:
    case UIGestureRecognizerStateChanged:
        return to == UIGestureRecognizerStateChanged || to == UIGestureRecognizerStateEnded ||
               to == UIGestureRecognizerStateCancelled;
    default:
        return false;
    }
}

const char* nameOf(UIGestureRecognizerState state) {
    static constexpr const char* kNames[] = {"possible", "began", "changed", "ended", "cancelled", "failed"};
    return kNames[state];
}

// Touches

bool isDecided(const Contender& contender) {
    return isOver(contender.recognizer->state()) || contender.wouldBe == UIGestureRecognizerStateEnded ||
           contender.wouldEnd;
}

bool sharesTouch(const Contender& a, const Contender& b) {
    return std::any_of(a.touches.begin(), a.touches.end(), [&](const Ref<UITouch>& touch) {
        return std::find(b.touches.begin(), b.touches.end(), touch) != b.touches.end();
    });
}

TouchFate fateOf(const UITouch* touch) {
    TouchFate fate;
    for (const UIGestureRecognizer* recognizer : touch->gestureRecognizers()) {
        const bool isPossible = recognizer->state() == UIGestureRecognizerStatePossible;
        fate.isTaken |= isRecognized(recognizer->state()) && recognizer->cancelsTouchesInView();
        fate.holdsBegan |= isPossible && recognizer->delaysTouchesBegan();
        fate.holdsEnded |= isPossible && recognizer->delaysTouchesEnded();
    }
    return fate;
}

// Questions

namespace {

/// The answer of the recogniser's delegate, which is kept while it is asked; `otherwise` without a delegate.
template <class Question>
bool askDelegate(const UIGestureRecognizer* recognizer, bool otherwise, Question question) {
    UIGestureRecognizerDelegate* delegate = recognizer->delegate();
    if (!delegate)
        return otherwise;
    const Ref<NSObject> keep = dynamic_cast<NSObject*>(delegate);
    return question(delegate);
}

bool delegateAllowsBoth(UIGestureRecognizer* asked, UIGestureRecognizer* other) {
    return askDelegate(asked, false, [&](UIGestureRecognizerDelegate* delegate) {
        return delegate->gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(asked, other);
    });
}

/// The views through which the touches reached the recogniser, each once.
std::vector<Ref<UIView>> viewsOnTheWay(const Contender& contender) {
    std::vector<Ref<UIView>> views;
    const auto add = [&views](UIView* view) {
        if (std::find(views.begin(), views.end(), view) == views.end())
            views.push_back(view);
    };
    UIView* end = contender.recognizer->view();
    for (const auto& touch : contender.touches) {
        UIView* hit = touch->view();
        if (!end || !hit || !hit->isDescendantOfView(end))
            continue;
        for (UIView* view = hit; view != end; view = view->superview())
            add(view);
    }
    if (end)
        add(end);
    return views;
}

} // namespace

bool shouldReceive(UIGestureRecognizer* recognizer, UITouch* touch) {
    return askDelegate(recognizer, true, [&](UIGestureRecognizerDelegate* delegate) {
        return delegate->gestureRecognizer_shouldReceiveTouch(recognizer, touch);
    });
}

bool prevents(UIGestureRecognizer* recognizer, UIGestureRecognizer* other) {
    return recognizer->canPreventGestureRecognizer(other) && other->canBePreventedByGestureRecognizer(recognizer) &&
           !delegateAllowsBoth(recognizer, other) && !delegateAllowsBoth(other, recognizer);
}

bool shouldWaitFor(UIGestureRecognizer* recognizer, UIGestureRecognizer* other) {
    return recognizer->shouldRequireFailureOfGestureRecognizer(other) ||
           other->shouldBeRequiredToFailByGestureRecognizer(recognizer) ||
           askDelegate(recognizer, false,
                       [&](UIGestureRecognizerDelegate* delegate) {
                           return delegate->gestureRecognizer_shouldRequireFailureOfGestureRecognizer(recognizer,
                                                                                                      other);
                       }) ||
           askDelegate(other, false, [&](UIGestureRecognizerDelegate* delegate) {
               return delegate->gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer(other, recognizer);
           });
}

bool mayBegin(const Contender& contender) {
    UIGestureRecognizer* recognizer = contender.recognizer;
    for (const auto& view : viewsOnTheWay(contender)) {
        // A view that is the delegate answers both questions with one function.
        const auto* asDelegate = dynamic_cast<UIGestureRecognizerDelegate*>(view.get());
        const bool isDelegate = asDelegate && asDelegate == recognizer->delegate();
        if (!isDelegate && !view->gestureRecognizerShouldBegin(recognizer))
            return false;
    }
    return askDelegate(recognizer, true, [&](UIGestureRecognizerDelegate* delegate) {
        return delegate->gestureRecognizerShouldBegin(recognizer);
    });
}

} // namespace zr
