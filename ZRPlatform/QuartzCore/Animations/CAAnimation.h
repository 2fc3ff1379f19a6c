#pragma once

#include <ZRPlatform/Foundation/Clock.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/Weak.h>
#include <ZRPlatform/QuartzCore/Animations/CAMediaTimingFunction.h>

#include <optional>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class CAAnimation;
struct LayerValues;

/// Shows only from its begin to its end.
inline constexpr const char* kCAFillModeRemoved = "removed";
/// Goes on showing its end, while the layer has it.
inline constexpr const char* kCAFillModeForwards = "forwards";
/// Shows its first moment before its begin, too.
inline constexpr const char* kCAFillModeBackwards = "backwards";
/// Forwards and backwards.
inline constexpr const char* kCAFillModeBoth = "both";

/// The present in seconds, on the current clock: what `beginTime` is measured in.
NSTimeInterval CACurrentMediaTime();

/// Told when an animation starts and stops.
class CAAnimationDelegate {
public:
    virtual ~CAAnimationDelegate() = default;
    /// The animation starts; told as the first frame after it was added is made.
    virtual void animationDidStart(CAAnimation*) {}
    /// The animation has stopped. `finished`: it ran to its end, rather than being removed or replaced.
    virtual void animationDidStop_finished(CAAnimation*, bool /*finished*/) {}
};

/// A change of a layer over time. Adding it to a layer copies it; the copy runs from the next frame on, unless
/// `beginTime` says otherwise.
class CAAnimation : public NSObject {
public:
    /// Seconds: in a group, from the group's begin; on a layer, by `CACurrentMediaTime`, where 0 means "when added".
    NSTimeInterval beginTime() const { return m_beginTime; }
    void setBeginTime(NSTimeInterval time) { m_beginTime = time; }
    /// Seconds of one run; 0.25 unless set. Negative durations count as 0.
    NSTimeInterval duration() const { return m_duration; }
    void setDuration(NSTimeInterval duration) { m_duration = duration > 0 ? duration : 0; }
    /// Local seconds a second of the parent; 1 at first. 0 stands still.
    float speed() const { return m_speed; }
    void setSpeed(float speed) { m_speed = speed; }
    /// Local seconds already passed at the begin; 0 at first.
    NSTimeInterval timeOffset() const { return m_timeOffset; }
    void setTimeOffset(NSTimeInterval offset) { m_timeOffset = offset; }
    /// How many runs there are, fractions allowed; 0, at first, counts as 1. The largest float repeats for ever.
    float repeatCount() const { return m_repeatCount; }
    void setRepeatCount(float count) { m_repeatCount = count; }
    /// Whether each run goes back again, which takes as long once more.
    bool autoreverses() const { return m_autoreverses; }
    void setAutoreverses(bool flag) { m_autoreverses = flag; }
    /// What shows before the begin (backwards, both) and after the end (forwards, both). Unknown names count as
    /// removed.
    const NSString& fillMode() const { return m_fillMode; }
    void setFillMode(const NSString& mode) { m_fillMode = mode; }
    /// Whether the layer drops the animation at its end; true unless set.
    bool isRemovedOnCompletion() const { return m_removedOnCompletion; }
    void setRemovedOnCompletion(bool flag) { m_removedOnCompletion = flag; }
    /// The pace of each run; kept. Nil, at first, is linear.
    CAMediaTimingFunction* timingFunction() const { return m_timingFunction; }
    void setTimingFunction(CAMediaTimingFunction* function) { m_timingFunction = function; }
    /// Told of start and stop; not kept. Nil at first.
    Delegate<CAAnimationDelegate> delegate() const { return m_delegate; }
    void setDelegate(Delegate<CAAnimationDelegate> delegate) { m_delegate = delegate; }

    /// An animation of the same class with the same properties; a layer adds a copy.
    virtual Ref<CAAnimation> copy() const = 0;
    /// Changes `values` to what shows at `time`, in seconds of the parent's time.
    virtual void apply(LayerValues& values, NSTimeInterval time) const = 0;
    /// When the animation ends, in the parent's seconds; infinite for one that repeats for ever or stands still.
    NSTimeInterval endTime() const;
    /// The first moment from `time` on at which something else may show than just before, in the parent's seconds:
    /// `time` itself while the animation glides, infinite once it changes nothing any more.
    virtual NSTimeInterval nextChangeTime(NSTimeInterval time) const;

protected:
    /// A moment within one run.
    struct Progress {
        /// 0..1, before the timing function.
        CGFloat linear;
        /// The same after it.
        CGFloat eased;
        /// Local seconds within the run.
        NSTimeInterval time;
    };
    /// How far the animation is at this time; nothing when it does not show.
    std::optional<Progress> progressAt(NSTimeInterval time) const;
    /// Takes over everything that this class has; for `copy`.
    void copyTimingFrom(const CAAnimation& other);

private:
    NSTimeInterval m_beginTime = 0;
    NSTimeInterval m_duration = 0.25;
    NSTimeInterval m_timeOffset = 0;
    float m_speed = 1;
    float m_repeatCount = 0;
    bool m_autoreverses = false;
    bool m_removedOnCompletion = true;
    NSString m_fillMode = kCAFillModeRemoved;
    Ref<CAMediaTimingFunction> m_timingFunction;
    Delegate<CAAnimationDelegate> m_delegate;
};

/// An animation of one value of the layer, named by its key path: "opacity", "position.x", "transform.rotation.z".
class CAPropertyAnimation : public CAAnimation {
public:
    /// `keyPath`: of the layer's value that it changes.
    bool initWithKeyPath(const NSString& keyPath);
    /// Names the layer's value that is animated; an unknown one animates nothing.
    const NSString& keyPath() const { return m_keyPath; }
    void setKeyPath(const NSString& keyPath) { m_keyPath = keyPath; }

private:
    NSString m_keyPath;
};

/// From one value to another. A nil `fromValue` starts at the layer's value below this animation, a nil `toValue` ends
/// there. With `byValue`, the missing end is that far away.
class CABasicAnimation : public CAPropertyAnimation {
public:
    /// An animation of this value of the layer's. It has no values of its own, and stands still until it has one.
    static Ref<CABasicAnimation> animationWithKeyPath(const NSString& keyPath);
    /// Where it starts, boxed as the key path's value is. Nil at first.
    const NSValue& fromValue() const { return m_fromValue; }
    void setFromValue(const NSValue& value) { m_fromValue = value; }
    /// Where it ends. Nil at first.
    const NSValue& toValue() const { return m_toValue; }
    void setToValue(const NSValue& value) { m_toValue = value; }
    /// How far it goes, for a missing end. Nil at first.
    const NSValue& byValue() const { return m_byValue; }
    void setByValue(const NSValue& value) { m_byValue = value; }

    Ref<CAAnimation> copy() const override;
    void apply(LayerValues& values, NSTimeInterval time) const override;

private:
    NSValue m_fromValue;
    NSValue m_toValue;
    NSValue m_byValue;
};

/// Glides from value to value.
inline constexpr const char* kCAAnimationLinear = "linear";
/// Jumps from value to value.
inline constexpr const char* kCAAnimationDiscrete = "discrete";
/// Glides at one speed all the way; `keyTimes` do not count.
inline constexpr const char* kCAAnimationPaced = "paced";

/// Through a list of values, evenly spaced in time unless `keyTimes` says otherwise.
class CAKeyframeAnimation : public CAPropertyAnimation {
public:
    /// An animation of this value of the layer's. It has no values of its own, and changes nothing until it has some.
    static Ref<CAKeyframeAnimation> animationWithKeyPath(const NSString& keyPath);
    /// What it goes through, each boxed as the key path's value is. None at first.
    const std::vector<NSValue>& values() const { return m_values; }
    void setValues(std::vector<NSValue> values) { m_values = std::move(values); }
    /// Fractions 0..1, rising, one a value (one more for discrete); ignored when their count does not fit.
    const std::vector<CGFloat>& keyTimes() const { return m_keyTimes; }
    void setKeyTimes(std::vector<CGFloat> times) { m_keyTimes = std::move(times); }
    /// The pace from each value to the next; missing ones are linear.
    const std::vector<Ref<CAMediaTimingFunction>>& timingFunctions() const { return m_timingFunctions; }
    void setTimingFunctions(std::vector<Ref<CAMediaTimingFunction>> functions) {
        m_timingFunctions = std::move(functions);
    }
    /// One of the three names above; linear at first, and for another name.
    const NSString& calculationMode() const { return m_calculationMode; }
    void setCalculationMode(const NSString& mode) { m_calculationMode = mode; }

    Ref<CAAnimation> copy() const override;
    void apply(LayerValues& values, NSTimeInterval time) const override;
    /// A discrete one without timing function changes at its steps only.
    NSTimeInterval nextChangeTime(NSTimeInterval time) const override;

private:
    std::vector<NSValue> m_values;
    std::vector<CGFloat> m_keyTimes;
    std::vector<Ref<CAMediaTimingFunction>> m_timingFunctions;
    NSString m_calculationMode = kCAAnimationLinear;
};

/// Several animations at once, cut off at the group's duration. The children's delegates are not told.
class CAAnimationGroup : public CAAnimation {
public:
    /// Kept. Each begins with the group, or its `beginTime` later.
    const std::vector<Ref<CAAnimation>>& animations() const { return m_animations; }
    void setAnimations(std::vector<Ref<CAAnimation>> animations) { m_animations = std::move(animations); }

    Ref<CAAnimation> copy() const override;
    void apply(LayerValues& values, NSTimeInterval time) const override;

private:
    std::vector<Ref<CAAnimation>> m_animations;
};

} // namespace zr
#pragma GCC visibility pop
