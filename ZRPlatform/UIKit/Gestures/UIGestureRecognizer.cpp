#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Gestures/Internal/GestureArbiter.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <algorithm>

namespace zr {

UIGestureRecognizer::~UIGestureRecognizer() = default;

bool UIGestureRecognizer::init() { return initWithTarget_action(nullptr, nullptr); }

bool UIGestureRecognizer::initWithTarget_action(NSObject* target, SEL action) {
    if (!NSObject::init())
        return false;
    addTarget_action(target, action);
    return true;
}

const KeyTable& UIGestureRecognizer::keyTable() const {
    static const KeyTable table(
        NSObject::keyTable(),
        {key<&UIGestureRecognizer::isEnabled, &UIGestureRecognizer::setEnabled>("enabled"),
         key<&UIGestureRecognizer::cancelsTouchesInView, &UIGestureRecognizer::setCancelsTouchesInView>(
             "cancelsTouchesInView"),
         key<&UIGestureRecognizer::delaysTouchesBegan, &UIGestureRecognizer::setDelaysTouchesBegan>(
             "delaysTouchesBegan"),
         key<&UIGestureRecognizer::delaysTouchesEnded, &UIGestureRecognizer::setDelaysTouchesEnded>(
             "delaysTouchesEnded"),
         key<&UIGestureRecognizer::state>("state"), key<&UIGestureRecognizer::view>("view"),
         key<&UIGestureRecognizer::numberOfTouches>("numberOfTouches")});
    return table;
}

// Target and action

void UIGestureRecognizer::addTarget_action(NSObject* target, SEL action) {
    if (!target || !action)
        return;
    std::erase_if(m_targetActions, [](const TargetAction& entry) { return !entry.target; });
    const TargetAction added{target, action};
    if (std::find(m_targetActions.begin(), m_targetActions.end(), added) == m_targetActions.end())
        m_targetActions.push_back(added);
}

void UIGestureRecognizer::removeTarget_action(NSObject* target, SEL action) {
    std::erase_if(m_targetActions, [&](const TargetAction& entry) {
        return (!target || entry.target.get() == target) && (!action || entry.action == action);
    });
}

void UIGestureRecognizer::sendActions() {
    const Ref<UIGestureRecognizer> keep = this;
    const NSValue arguments[] = {this};
    const auto entries = m_targetActions; // an action may add and remove targets
    for (const TargetAction& entry : entries) {
        const Ref<NSObject> target = entry.target.lock();
        if (target && std::find(m_targetActions.begin(), m_targetActions.end(), entry) != m_targetActions.end())
            entry.action.send(target, arguments);
    }
}

// State

void UIGestureRecognizer::setState(UIGestureRecognizerState state) {
    if (GestureArbiter* arbiter = GestureArbiter::shared())
        arbiter->changeState(this, state);
}

void UIGestureRecognizer::setEnabled(bool enabled) {
    m_enabled = enabled;
    GestureArbiter* arbiter = GestureArbiter::shared();
    if (!enabled && arbiter)
        arbiter->withdraw(this);
}

// Touches

CGPoint UIGestureRecognizer::locationInView(const UIView* view) const {
    const auto& touches = locatedTouches();
    if (touches.empty())
        return m_lastTouch ? m_lastTouch->locationInView(view) : CGPointZero;
    CGPoint sum;
    for (const auto& touch : touches) {
        const CGPoint location = touch->locationInView(view);
        sum = {sum.x + location.x, sum.y + location.y};
    }
    const auto count = static_cast<CGFloat>(touches.size());
    return {sum.x / count, sum.y / count};
}

CGPoint UIGestureRecognizer::locationOfTouch_inView(NSUInteger index, const UIView* view) const {
    const auto& touches = locatedTouches();
    return index < touches.size() ? touches[index]->locationInView(view) : CGPointZero;
}

void UIGestureRecognizer::ignoreTouch_forEvent(UITouch* touch, UIEvent*) {
    GestureArbiter* arbiter = GestureArbiter::shared();
    if (touch && arbiter)
        arbiter->ignoreTouch(touch, this);
}

void UIGestureRecognizer::touchesBegan_withEvent(const TouchSet&, UIEvent*) {}
void UIGestureRecognizer::touchesMoved_withEvent(const TouchSet&, UIEvent*) {}
void UIGestureRecognizer::touchesEnded_withEvent(const TouchSet&, UIEvent*) {}
void UIGestureRecognizer::touchesCancelled_withEvent(const TouchSet&, UIEvent*) {}

// Others

void UIGestureRecognizer::requireGestureRecognizerToFail(UIGestureRecognizer* other) {
    if (!other || other == this)
        return;
    std::erase_if(m_failureRequirements, [other](const auto& known) { return !known.get() || known.get() == other; });
    m_failureRequirements.push_back(other);
}

bool UIGestureRecognizer::canPreventGestureRecognizer(UIGestureRecognizer*) { return true; }
bool UIGestureRecognizer::canBePreventedByGestureRecognizer(UIGestureRecognizer*) { return true; }
bool UIGestureRecognizer::shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer*) { return false; }
bool UIGestureRecognizer::shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer*) { return false; }

} // namespace zr
