#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <algorithm>
#include <utility>

namespace zr {

namespace {

bool isUp(const UITouch* touch) {
    return touch->phase() == UITouchPhaseEnded || touch->phase() == UITouchPhaseCancelled;
}

void eraseRecognizer(std::vector<Weak<UIGestureRecognizer>>& recognizers, const UIGestureRecognizer* recognizer) {
    std::erase_if(recognizers, [recognizer](const auto& r) { return !r.get() || r.get() == recognizer; });
}

} // namespace

GestureArbiter* GestureArbiter::shared() {
    const UIApplication* application = UIApplication::sharedApplication();
    return application ? application->m_gestures.get() : nullptr;
}

/// A recogniser that outlives the application is as it was before its first touch.
GestureArbiter::~GestureArbiter() {
    for (const auto& contender : m_contenders) {
        contender->recognizer->m_touches.clear();
        contender->recognizer->m_state = UIGestureRecognizerStatePossible;
        contender->recognizer->reset();
    }
}

// Who is there

GestureArbiter::Tracked GestureArbiter::trackedTouch(const UITouch* touch) const {
    const auto found =
        std::find_if(m_touches.begin(), m_touches.end(), [touch](const Tracked& t) { return t->touch.get() == touch; });
    return found != m_touches.end() ? *found : nullptr;
}

GestureArbiter::Candidate GestureArbiter::contenderOf(const UIGestureRecognizer* recognizer) const {
    const auto found = std::find_if(m_contenders.begin(), m_contenders.end(),
                                    [recognizer](const Candidate& c) { return c->recognizer.get() == recognizer; });
    return found != m_contenders.end() ? *found : nullptr;
}

GestureArbiter::Candidate GestureArbiter::enter(UIGestureRecognizer* recognizer) {
    if (Candidate known = contenderOf(recognizer))
        return known;
    auto contender = std::make_shared<Contender>();
    contender->recognizer = recognizer;
    m_contenders.push_back(contender);
    return contender;
}

bool GestureArbiter::isFollowed(const UITouch* touch) const { return !touch->gestureRecognizers().empty(); }

bool GestureArbiter::isKnownToView(const UITouch* touch) const {
    const Tracked tracked = trackedTouch(touch);
    return tracked && tracked->delivery.isKnownToView();
}

bool GestureArbiter::hasFingerDown(const Contender& contender) const {
    return std::any_of(m_touches.begin(), m_touches.end(), [&](const Tracked& tracked) {
        return !tracked->isUp && tracked->touch->isSeenBy(contender.recognizer);
    });
}

// A touch

void GestureArbiter::touchChanged(UITouch* touch, UIEvent* event) {
    if (touch->phase() == UITouchPhaseBegan)
        offerTouch(touch);
    const Tracked tracked = trackedTouch(touch);
    if (!tracked) {
        TouchDelivery::sendToView(touch, event);
        return;
    }
    const Turn turn(*this);
    tracked->isUp = isUp(touch);
    show(touch, event);
    tracked->delivery.push(event);
}

void GestureArbiter::touchIsOver(UITouch* touch, UIEvent* event) {
    const Tracked tracked = trackedTouch(touch);
    if (!tracked || tracked->isUp)
        return;
    touch->m_now.phase = UITouchPhaseCancelled;
    touchChanged(touch, event);
}

/// Asked before and after a delegate, which may change anything, for its own recogniser and for those after it.
bool GestureArbiter::canFollow(const UIGestureRecognizer* recognizer, const UIView* view, const UITouch* touch) const {
    const Candidate known = contenderOf(recognizer);
    return recognizer->view() == view && recognizer->isEnabled() && !(known && isDecided(*known)) && !isUp(touch);
}

/// Finds the recognisers that will follow the touch, all of them before any is shown it.
void GestureArbiter::offerTouch(UITouch* touch) {
    std::vector<std::pair<const UIView*, Ref<UIGestureRecognizer>>> onTheWay;
    for (const UIView* view = touch->view(); view; view = view->superview()) {
        for (const auto& recognizer : view->gestureRecognizers())
            onTheWay.emplace_back(view, recognizer);
    }
    if (onTheWay.empty())
        return;
    // From the first question on: if a delegate puts an end to the touch, the view has never heard of it.
    m_touches.push_back(std::make_shared<TrackedTouch>(touch));
    for (const auto& [view, recognizer] : onTheWay) {
        if (!canFollow(recognizer, view, touch) || !shouldReceive(recognizer, touch) ||
            !canFollow(recognizer, view, touch))
            continue;
        enter(recognizer)->touches.push_back(touch);
        recognizer->m_touches.push_back(touch);
        touch->m_gestureRecognizers.push_back(recognizer);
    }
    if (!isFollowed(touch))
        std::erase(m_touches, trackedTouch(touch));
}

void GestureArbiter::show(UITouch* touch, UIEvent* event) {
    const TouchSet changed{touch};
    const auto watching = touch->m_gestureRecognizers;
    for (const auto& weak : watching) {
        const Ref<UIGestureRecognizer> recognizer = weak.lock();
        const Candidate contender = contenderOf(recognizer);
        if (!contender || isDecided(*contender) || !touch->isSeenBy(recognizer))
            continue;
        switch (touch->phase()) {
        case UITouchPhaseBegan:
            recognizer->touchesBegan_withEvent(changed, event);
            break;
        case UITouchPhaseMoved:
            recognizer->touchesMoved_withEvent(changed, event);
            break;
        case UITouchPhaseEnded:
            recognizer->touchesEnded_withEvent(changed, event);
            break;
        case UITouchPhaseCancelled:
            recognizer->touchesCancelled_withEvent(changed, event);
            if (!hasFingerDown(*contender))
                stop(*contender);
            break;
        case UITouchPhaseStationary:
            break;
        }
    }
}

void GestureArbiter::ignoreTouch(UITouch* touch, UIGestureRecognizer* recognizer) {
    const Candidate contender = contenderOf(recognizer);
    if (!contender)
        return;
    const Turn turn(*this);
    eraseRecognizer(touch->m_gestureRecognizers, recognizer);
    std::erase(contender->touches, touch);
    std::erase(recognizer->m_touches, touch);
}

void GestureArbiter::viewLeaves(const UIView* view) {
    if (m_contenders.empty() && m_touches.empty())
        return;
    const Turn turn(*this);
    const auto contenders = m_contenders;
    for (const auto& contender : contenders) {
        const UIView* watched = contender->recognizer->view();
        if (watched && watched->isDescendantOfView(view))
            withdraw(contender->recognizer);
    }
    const auto touches = m_touches;
    for (const auto& tracked : touches) {
        const UIView* touched = tracked->touch->view();
        if (touched && touched->isDescendantOfView(view))
            tracked->delivery.cancel();
    }
}

void GestureArbiter::withdraw(UIGestureRecognizer* recognizer) {
    const Candidate contender = contenderOf(recognizer);
    if (!contender)
        return;
    const Turn turn(*this);
    for (const auto& tracked : m_touches)
        eraseRecognizer(tracked->touch->m_gestureRecognizers, recognizer);
    stop(*contender);
    // Whoever was told that it began is told of its end while it still has its view; nobody is told of anything later.
    if (std::exchange(contender->hasNews, false) && contender->hasToldBeginning)
        recognizer->sendActions();
}

// A state

void GestureArbiter::changeState(UIGestureRecognizer* recognizer, UIGestureRecognizerState state) {
    const Ref<UIGestureRecognizer> keep = recognizer;
    const Turn turn(*this);
    if (!isState(state)) {
        NSLog("%s cannot become %td, which is no state", recognizer->description().UTF8String(),
              static_cast<NSInteger>(state));
        return;
    }
    const UIGestureRecognizerState present = recognizer->m_state;
    const Candidate known = contenderOf(recognizer);
    if (known && known->wouldBe != UIGestureRecognizerStatePossible) {
        changeWouldBe(*known, state);
        return;
    }
    if (!isAllowed(present, state)) {
        // A subclass does not know that it was refused or prevented, and may go on as if it had begun.
        const bool wasEnded = present == UIGestureRecognizerStateFailed || present == UIGestureRecognizerStateCancelled;
        if (!wasEnded && !(isOver(present) && state == present))
            NSLog("%s cannot go from %s to %s", recognizer->description().UTF8String(), nameOf(present), nameOf(state));
        return;
    }
    const Candidate contender = enter(recognizer);
    if (present != UIGestureRecognizerStatePossible)
        advance(*contender, state);
    else if (isRecognized(state))
        attempt(contender, state);
    else
        fail(*contender);
}

void GestureArbiter::changeWouldBe(Contender& contender, UIGestureRecognizerState state) {
    if (state == UIGestureRecognizerStateFailed || state == UIGestureRecognizerStateCancelled)
        fail(contender);
    else if (state == UIGestureRecognizerStateEnded && contender.wouldBe == UIGestureRecognizerStateBegan)
        contender.wouldEnd = true;
}

/// The recogniser would leave possible: now, never, or when those it waits for have failed.
void GestureArbiter::attempt(const Candidate& contender, UIGestureRecognizerState state) {
    findRequirements(*contender);
    if (contender->recognizer->m_state != UIGestureRecognizerStatePossible)
        return; // somebody who was asked has stopped it
    switch (requirementsOf(*contender)) {
    case Requirements::Met:
        begin(contender, state);
        break;
    case Requirements::Open:
        contender->wouldBe = state;
        m_isUnsettled = true;
        break;
    case Requirements::Broken:
        fail(*contender);
        break;
    }
}

void GestureArbiter::begin(const Candidate& contender, UIGestureRecognizerState state) {
    UIGestureRecognizer* recognizer = contender->recognizer;
    const bool isRefused = isExcluded(contender) || !mayBegin(*contender);
    if (recognizer->m_state != UIGestureRecognizerStatePossible)
        return; // somebody who was asked has stopped it
    if (isRefused) {
        fail(*contender);
        return;
    }
    recognizer->m_state = state;
    contender->hasNews = true;
    m_isUnsettled = true;
    preventOthers(contender);
}

void GestureArbiter::advance(Contender& contender, UIGestureRecognizerState state) {
    UIGestureRecognizer* recognizer = contender.recognizer;
    if (recognizer->m_state == UIGestureRecognizerStateBegan && contender.hasNews) {
        // One message an event, and the first is that it began; but its end needs one of its own.
        if (state == UIGestureRecognizerStateChanged)
            return;
        tell(contender);
        if (recognizer->m_state != UIGestureRecognizerStateBegan)
            return;
    }
    recognizer->m_state = state;
    contender.hasNews = true;
    m_isUnsettled = true;
}

/// Not by its own doing.
void GestureArbiter::stop(Contender& contender) {
    if (isOver(contender.recognizer->m_state))
        return;
    if (contender.hasToldBeginning)
        advance(contender, UIGestureRecognizerStateCancelled);
    else
        fail(contender);
}

void GestureArbiter::fail(Contender& contender) {
    contender.recognizer->m_state = UIGestureRecognizerStateFailed;
    contender.wouldBe = UIGestureRecognizerStatePossible;
    contender.wouldEnd = false;
    contender.hasNews = false;
    m_isUnsettled = true;
}

/// Whether another one was faster.
bool GestureArbiter::isExcluded(const Candidate& contender) const {
    const auto contenders = m_contenders;
    return std::any_of(contenders.begin(), contenders.end(), [&](const Candidate& other) {
        return other != contender && isRecognized(other->recognizer->m_state) && sharesTouch(*other, *contender) &&
               prevents(other->recognizer, contender->recognizer);
    });
}

void GestureArbiter::preventOthers(const Candidate& contender) {
    const UIGestureRecognizerState state = contender->recognizer->m_state;
    const auto contenders = m_contenders;
    for (const auto& other : contenders) {
        if (other == contender || isOver(other->recognizer->m_state) || !sharesTouch(*contender, *other))
            continue;
        const bool isPrevented = prevents(contender->recognizer, other->recognizer);
        if (contender->recognizer->m_state != state)
            return; // somebody who was asked has stopped it
        if (isPrevented)
            stop(*other);
    }
}

// Waiting for others to fail

void GestureArbiter::findRequirements(Contender& contender) const {
    UIGestureRecognizer* recognizer = contender.recognizer;
    contender.waitsFor.clear();
    const auto contenders = m_contenders;
    for (const auto& other : contenders) {
        UIGestureRecognizer* rival = other->recognizer;
        if (rival == recognizer)
            continue;
        const auto& asked = recognizer->m_failureRequirements;
        const bool isAsked =
            std::any_of(asked.begin(), asked.end(), [rival](const auto& required) { return required.get() == rival; });
        if (isAsked || (sharesTouch(contender, *other) && shouldWaitFor(recognizer, rival)))
            contender.waitsFor.push_back(rival);
    }
}

GestureArbiter::Requirements GestureArbiter::requirementsOf(const Contender& contender) const {
    auto result = Requirements::Met;
    for (const auto& rival : contender.waitsFor) {
        const Candidate other = contenderOf(rival.get());
        if (!other)
            continue;
        if (isRecognized(other->recognizer->m_state))
            return Requirements::Broken;
        if (!isOver(other->recognizer->m_state) && !isWaitingFor(*other, contender.recognizer))
            result = Requirements::Open;
    }
    return result;
}

/// Directly or through others: those who wait for each other in a ring would wait for ever.
bool GestureArbiter::isWaitingFor(const Contender& contender, const UIGestureRecognizer* other,
                                  std::size_t depth) const {
    if (contender.wouldBe == UIGestureRecognizerStatePossible || depth > m_contenders.size())
        return false;
    return std::any_of(contender.waitsFor.begin(), contender.waitsFor.end(), [&](const auto& rival) {
        const Candidate next = contenderOf(rival.get());
        return next && (rival.get() == other || isWaitingFor(*next, other, depth + 1));
    });
}

// Settling

void GestureArbiter::settle() {
    do {
        m_isUnsettled = false;
        while (settleWaiting()) {
        }
        takeTouches();
        tellTargets();
        deliver();
        forgetFingersGone();
        resetDecided();
    } while (m_isUnsettled);
}

/// Whether one of those that wait has come to its decision.
bool GestureArbiter::settleWaiting() {
    for (const auto& contender : m_contenders) {
        if (contender->wouldBe == UIGestureRecognizerStatePossible)
            continue;
        const Requirements requirements = requirementsOf(*contender);
        if (requirements == Requirements::Open)
            continue;
        const Candidate decided = contender; // what follows may change the list
        const UIGestureRecognizerState state = std::exchange(decided->wouldBe, UIGestureRecognizerStatePossible);
        const bool ends = std::exchange(decided->wouldEnd, false);
        if (requirements == Requirements::Broken)
            fail(*decided);
        else
            begin(decided, state);
        if (ends && decided->recognizer->m_state == UIGestureRecognizerStateBegan)
            advance(*decided, UIGestureRecognizerStateEnded);
        return true;
    }
    return false;
}

/// Views lose the touches of what was recognised before its targets are told, so that these find the views at rest.
void GestureArbiter::takeTouches() {
    const auto touches = m_touches;
    for (const auto& tracked : touches) {
        if (fateOf(tracked->touch).isTaken)
            tracked->delivery.cancel();
    }
}

void GestureArbiter::tell(Contender& contender) {
    takeTouches();
    if (!std::exchange(contender.hasNews, false))
        return;
    contender.hasToldBeginning |= isActive(contender.recognizer->m_state);
    contender.recognizer->sendActions();
}

void GestureArbiter::tellTargets() {
    const auto contenders = m_contenders;
    for (const auto& contender : contenders) {
        if (contender->hasNews)
            tell(*contender);
    }
}

void GestureArbiter::deliver() {
    const auto touches = m_touches;
    for (const auto& tracked : touches) {
        const TouchFate fate = fateOf(tracked->touch);
        if (fate.isTaken)
            tracked->delivery.cancel();
        else
            tracked->delivery.send(fate.holdsBegan, fate.holdsEnded);
    }
}

void GestureArbiter::forgetFingersGone() {
    for (const auto& tracked : m_touches) {
        if (!tracked->isUp)
            continue;
        for (UIGestureRecognizer* recognizer : tracked->touch->gestureRecognizers()) {
            if (std::erase(recognizer->m_touches, tracked->touch) > 0)
                recognizer->m_lastTouch = tracked->touch;
        }
    }
    std::erase_if(m_touches, [](const Tracked& tracked) { return tracked->isUp && tracked->delivery.isEmpty(); });
}

void GestureArbiter::resetDecided() {
    const auto contenders = m_contenders;
    for (const auto& contender : contenders) {
        UIGestureRecognizer* recognizer = contender->recognizer;
        const bool isUnused = recognizer->m_state == UIGestureRecognizerStatePossible &&
                              contender->wouldBe == UIGestureRecognizerStatePossible && contender->touches.empty();
        const bool isDone = isOver(recognizer->m_state) && !contender->hasNews && !hasFingerDown(*contender);
        if (!isUnused && !isDone)
            continue;
        if (isDone)
            recognizer->reset();
        std::erase(m_contenders, contender);
        for (const auto& touch : contender->touches)
            eraseRecognizer(touch->m_gestureRecognizers, recognizer);
        recognizer->m_touches.clear();
        recognizer->m_lastTouch = nullptr;
        recognizer->m_state = UIGestureRecognizerStatePossible;
        m_isUnsettled = true;
    }
}

} // namespace zr
