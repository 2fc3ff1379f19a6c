#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>

#include <ZRPlatform/QuartzCore/Layers/LayerValues.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zr {

namespace {

/// A repeat count this large means for ever.
constexpr float kEndless = std::numeric_limits<float>::max();

bool fills(const NSString& mode, const char* side) {
    return mode.isEqualToString(side) || mode.isEqualToString(kCAFillModeBoth);
}

} // namespace

NSTimeInterval CACurrentMediaTime() { return secondsFromNanoseconds(Clock::current().now()); }

NSTimeInterval CAAnimation::endTime() const {
    const double runs = (m_repeatCount > 0 ? m_repeatCount : 1.0) * (m_autoreverses ? 2 : 1);
    if (m_repeatCount >= kEndless || !(m_speed > 0))
        return std::numeric_limits<double>::infinity();
    return m_beginTime + std::max(0.0, (m_duration * runs - m_timeOffset) / m_speed);
}

NSTimeInterval CAAnimation::nextChangeTime(NSTimeInterval time) const {
    if (!(m_speed > 0) || endTime() <= time)
        return std::numeric_limits<double>::infinity();
    return std::max(time, m_beginTime);
}

std::optional<CAAnimation::Progress> CAAnimation::progressAt(NSTimeInterval time) const {
    double runs = m_repeatCount > 0 ? m_repeatCount : 1.0;
    if (m_autoreverses)
        runs *= 2;
    const bool endless = m_repeatCount >= kEndless;
    double local = (time - m_beginTime) * m_speed + m_timeOffset;
    if (time < m_beginTime) {
        if (!fills(m_fillMode, kCAFillModeBackwards))
            return std::nullopt;
        local = m_timeOffset;
    }

    double run;
    if (!endless && local >= m_duration * runs) {
        if (!fills(m_fillMode, kCAFillModeForwards) && time >= endTime())
            return std::nullopt;
        run = runs;
    } else {
        run = m_duration > 0 ? std::max(0.0, local) / m_duration : 0;
    }

    // The end of the last run belongs to that run, not to the beginning of another.
    double index = std::floor(run);
    if (run == index && run >= runs && index > 0)
        --index;
    double linear = run - index;
    if (m_autoreverses && std::fmod(index, 2) == 1)
        linear = 1 - linear;
    const double eased = m_timingFunction ? m_timingFunction->valueAtTime(linear) : linear;
    return Progress{CGFloat(linear), CGFloat(eased), eased * m_duration};
}

void CAAnimation::copyTimingFrom(const CAAnimation& other) {
    m_beginTime = other.m_beginTime;
    m_duration = other.m_duration;
    m_timeOffset = other.m_timeOffset;
    m_speed = other.m_speed;
    m_repeatCount = other.m_repeatCount;
    m_autoreverses = other.m_autoreverses;
    m_removedOnCompletion = other.m_removedOnCompletion;
    m_fillMode = other.m_fillMode;
    m_timingFunction = other.m_timingFunction;
    m_delegate = other.m_delegate;
}

bool CAPropertyAnimation::initWithKeyPath(const NSString& keyPath) {
    m_keyPath = keyPath;
    return init();
}

Ref<CABasicAnimation> CABasicAnimation::animationWithKeyPath(const NSString& keyPath) {
    return make<CABasicAnimation>(&CABasicAnimation::initWithKeyPath, keyPath);
}

Ref<CAAnimation> CABasicAnimation::copy() const {
    auto other = animationWithKeyPath(keyPath());
    other->copyTimingFrom(*this);
    other->m_fromValue = m_fromValue;
    other->m_toValue = m_toValue;
    other->m_byValue = m_byValue;
    return other;
}

void CABasicAnimation::apply(LayerValues& values, NSTimeInterval time) const {
    const auto progress = progressAt(time);
    if (!progress)
        return;
    const NSValue current = layerValueForKeyPath(values, keyPath().utf8());
    NSValue from = m_fromValue, to = m_toValue;
    if (from.isNil())
        from = !to.isNil() && !m_byValue.isNil() ? addValues(to, m_byValue, -1) : current;
    if (to.isNil())
        to = m_byValue.isNil() ? current : addValues(from, m_byValue, 1);
    setLayerValueForKeyPath(values, keyPath().utf8(), interpolateValues(from, to, progress->eased));
}

Ref<CAKeyframeAnimation> CAKeyframeAnimation::animationWithKeyPath(const NSString& keyPath) {
    return make<CAKeyframeAnimation>(&CAKeyframeAnimation::initWithKeyPath, keyPath);
}

Ref<CAAnimation> CAKeyframeAnimation::copy() const {
    auto other = animationWithKeyPath(keyPath());
    other->copyTimingFrom(*this);
    other->m_values = m_values;
    other->m_keyTimes = m_keyTimes;
    other->m_timingFunctions = m_timingFunctions;
    other->m_calculationMode = m_calculationMode;
    return other;
}

namespace {

/// How far apart two values are, for an even pace.
CGFloat distanceBetween(const NSValue& a, const NSValue& b) {
    if (const auto* first = a.structure<CGPoint>(), *second = b.structure<CGPoint>(); first && second)
        return std::hypot(second->x - first->x, second->y - first->y);
    return std::fabs(b.doubleValue() - a.doubleValue());
}

/// The moment at which each value is reached, 0..1.
std::vector<CGFloat> keyTimesFor(const std::vector<NSValue>& values, const std::vector<CGFloat>& given, bool discrete,
                                 bool paced) {
    const std::size_t count = values.size() + (discrete ? 1 : 0);
    if (!paced && given.size() == count && std::is_sorted(given.begin(), given.end()))
        return given;
    std::vector<CGFloat> times(count, 0);
    if (paced) {
        for (std::size_t i = 1; i < count; ++i)
            times[i] = times[i - 1] + distanceBetween(values[i - 1], values[i]);
    }
    const bool even = !(times.back() > 0);
    for (std::size_t i = 0; i < count; ++i)
        times[i] = even ? CGFloat(i) / std::max<std::size_t>(count - 1, 1) : times[i] / times.back();
    return times;
}

} // namespace

void CAKeyframeAnimation::apply(LayerValues& values, NSTimeInterval time) const {
    const auto progress = progressAt(time);
    if (!progress || m_values.empty())
        return;
    const bool discrete = m_calculationMode.isEqualToString(kCAAnimationDiscrete);
    const bool paced = m_calculationMode.isEqualToString(kCAAnimationPaced);
    const auto times = keyTimesFor(m_values, m_keyTimes, discrete, paced);
    const auto next = std::upper_bound(times.begin(), times.end(), progress->eased);
    const std::size_t segment = std::clamp<std::ptrdiff_t>(next - times.begin() - 1, 0, m_values.size() - 1);

    NSValue value = m_values[segment];
    if (!discrete && segment + 1 < m_values.size()) {
        const CGFloat length = times[segment + 1] - times[segment];
        CGFloat fraction = length > 0 ? (progress->eased - times[segment]) / length : 1;
        if (segment < m_timingFunctions.size() && m_timingFunctions[segment])
            fraction = m_timingFunctions[segment]->valueAtTime(fraction);
        value = interpolateValues(value, m_values[segment + 1], fraction);
    }
    setLayerValueForKeyPath(values, keyPath().utf8(), value);
}

NSTimeInterval CAKeyframeAnimation::nextChangeTime(NSTimeInterval time) const {
    const NSTimeInterval next = CAPropertyAnimation::nextChangeTime(time);
    const bool steps = m_calculationMode.isEqualToString(kCAAnimationDiscrete) && !autoreverses() && !timingFunction();
    const auto progress = progressAt(time);
    if (next != time || !steps || !progress || m_values.empty())
        return next;
    const auto times = keyTimesFor(m_values, m_keyTimes, true, false);
    const auto step = std::upper_bound(times.begin(), times.end(), progress->linear);
    const double left = (step == times.end() ? 1.0 : *step) - progress->linear;
    return time + left * duration() / speed();
}

Ref<CAAnimation> CAAnimationGroup::copy() const {
    auto other = make<CAAnimationGroup>();
    other->copyTimingFrom(*this);
    for (const auto& animation : m_animations) {
        if (animation)
            other->m_animations.push_back(animation->copy());
    }
    return other;
}

void CAAnimationGroup::apply(LayerValues& values, NSTimeInterval time) const {
    const auto progress = progressAt(time);
    if (!progress)
        return;
    for (const auto& animation : m_animations)
        animation->apply(values, progress->time);
}

} // namespace zr
