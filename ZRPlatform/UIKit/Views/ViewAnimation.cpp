#include <ZRPlatform/UIKit/Views/Internal/ViewAnimation.h>

#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace zr {

namespace {

std::vector<Ref<ViewAnimation>>& openBlocks() {
    static auto* blocks = new std::vector<Ref<ViewAnimation>>;
    return *blocks;
}

bool g_animationsEnabled = true;

constexpr std::string_view kAnimatedKeys[] = {"position", "bounds",          "transform",
                                              "opacity",  "backgroundColor", "borderColor"};

const char* timingName(UIViewAnimationCurve curve) {
    switch (curve) {
    case UIViewAnimationCurveEaseIn:
        return kCAMediaTimingFunctionEaseIn;
    case UIViewAnimationCurveEaseOut:
        return kCAMediaTimingFunctionEaseOut;
    case UIViewAnimationCurveLinear:
        return kCAMediaTimingFunctionLinear;
    case UIViewAnimationCurveEaseInOut:
        break;
    }
    return kCAMediaTimingFunctionEaseInEaseOut;
}

} // namespace

ViewAnimation* ViewAnimation::current() { return openBlocks().empty() ? nullptr : openBlocks().back().get(); }

void ViewAnimation::begin(Ref<ViewAnimation> animation) { openBlocks().push_back(std::move(animation)); }

void ViewAnimation::commitCurrent() {
    if (openBlocks().empty())
        return;
    const Ref<ViewAnimation> animation = openBlocks().back();
    openBlocks().pop_back();
    animation->m_open = false;
    animation->m_finished = true;
    if (animation->m_running > 0) {
        animation->m_self = animation;
        return;
    }
    NSRunLoop::mainRunLoop()->performBlock([animation] { animation->allStopped(); });
}

Ref<CAAnimation> ViewAnimation::animationForChange(CALayer* layer, const char* key) {
    const bool animated = std::find(std::begin(kAnimatedKeys), std::end(kAnimatedKeys), key) != std::end(kAnimatedKeys);
    if (!animated || !g_animationsEnabled)
        return nullptr;
    if (!(duration > 0)) {
        // At once means that nothing goes on under way to what was wanted before.
        layer->removeAnimationForKey(key);
        return nullptr;
    }
    // What is seen is where the change starts; a second change in one block starts where the first one ends.
    const CAAnimation* running = layer->animationForKey(key);
    const bool changedBefore = running && running->delegate().get() == this;
    auto animation = CABasicAnimation::animationWithKeyPath(key);
    NSValue from = layerValueForKeyPath(changedBefore ? layer->modelValues() : layer->presentationValues(), key);
    // No colour at all looks clear; no value at all would mean "from where it ends".
    if (from.isNil())
        from = UIColor::clearColor()->cgColor();
    animation->setFromValue(from);
    animation->setDuration(duration);
    animation->setRepeatCount(repeatCount);
    animation->setAutoreverses(autoreverses);
    animation->setTimingFunction(CAMediaTimingFunction::functionWithName(timingName(curve)));
    if (delay > 0) {
        animation->setBeginTime(CACurrentMediaTime() + delay);
        animation->setFillMode(kCAFillModeBackwards);
    }
    animation->setDelegate(Ref<ViewAnimation>(this));
    ++m_running;
    return animation;
}

void ViewAnimation::animationDidStart(CAAnimation*) {
    if (std::exchange(m_started, true) || !willStartSelector)
        return;
    const NSValue arguments[] = {name, NSValue::valueWithPointer(context)};
    willStartSelector.send(delegate, arguments);
}

void ViewAnimation::animationDidStop_finished(CAAnimation*, bool finished) {
    m_finished = m_finished && finished;
    if (--m_running > 0 || m_open)
        return;
    const Ref<ViewAnimation> self = std::exchange(m_self, nullptr);
    if (finished) {
        allStopped();
        return;
    }
    // Cut off in the middle of somebody's change: tell once that is over.
    NSRunLoop::mainRunLoop()->performBlock([self = Ref<ViewAnimation>(this)] { self->allStopped(); });
}

void ViewAnimation::allStopped() {
    if (const auto done = std::exchange(completion, nullptr))
        done(m_finished);
    if (didStopSelector) {
        const NSValue arguments[] = {name, NSNumber::numberWithBool(m_finished), NSValue::valueWithPointer(context)};
        didStopSelector.send(delegate, arguments);
    }
    delegate = nullptr;
}

// UIView's interface to it

Ref<CAAnimation> UIView::actionForLayer_forKey(CALayer* layer, const char* key) {
    ViewAnimation* animation = ViewAnimation::current();
    return animation ? animation->animationForChange(layer, key) : nullptr;
}

void UIView::beginAnimations_context(const NSString& animationID, void* context) {
    auto animation = make<ViewAnimation>();
    animation->name = animationID;
    animation->context = context;
    ViewAnimation::begin(animation);
}

void UIView::commitAnimations() { ViewAnimation::commitCurrent(); }

void UIView::setAnimationDuration(NSTimeInterval duration) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->duration = duration;
}

void UIView::setAnimationDelay(NSTimeInterval delay) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->delay = delay;
}

void UIView::setAnimationCurve(UIViewAnimationCurve curve) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->curve = curve;
}

void UIView::setAnimationRepeatCount(float count) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->repeatCount = count;
}

void UIView::setAnimationRepeatAutoreverses(bool flag) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->autoreverses = flag;
}

void UIView::setAnimationDelegate(NSObject* delegate) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->delegate = delegate;
}

void UIView::setAnimationDidStopSelector(SEL selector) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->didStopSelector = selector;
}

void UIView::setAnimationWillStartSelector(SEL selector) {
    if (ViewAnimation* animation = ViewAnimation::current())
        animation->willStartSelector = selector;
}

void UIView::setAnimationsEnabled(bool enabled) { g_animationsEnabled = enabled; }
bool UIView::areAnimationsEnabled() { return g_animationsEnabled; }

void UIView::performWithoutAnimation(const std::function<void()>& actions) {
    const bool enabled = std::exchange(g_animationsEnabled, false);
    if (actions)
        actions();
    g_animationsEnabled = enabled;
}

void UIView::animateWithDuration_animations(NSTimeInterval duration, const std::function<void()>& animations) {
    animateWithDuration_delay_options_animations_completion(duration, 0, 0, animations, nullptr);
}

void UIView::animateWithDuration_animations_completion(NSTimeInterval duration, const std::function<void()>& animations,
                                                       std::function<void(bool)> completion) {
    animateWithDuration_delay_options_animations_completion(duration, 0, 0, animations, std::move(completion));
}

void UIView::animateWithDuration_delay_options_animations_completion(NSTimeInterval duration, NSTimeInterval delay,
                                                                     NSUInteger options,
                                                                     const std::function<void()>& animations,
                                                                     std::function<void(bool)> completion) {
    auto animation = make<ViewAnimation>();
    animation->duration = duration;
    animation->delay = delay;
    animation->curve = static_cast<UIViewAnimationCurve>((options >> 16) & 3);
    if (options & UIViewAnimationOptionRepeat)
        animation->repeatCount = std::numeric_limits<float>::max();
    animation->autoreverses = options & UIViewAnimationOptionAutoreverse;
    animation->completion = std::move(completion);
    ViewAnimation::begin(animation);
    if (animations)
        animations();
    ViewAnimation::commitCurrent();
}

} // namespace zr
