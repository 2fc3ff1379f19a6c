#include <ZRKitDynamic/ZRAnimation/ZRAnimation.h>

#include <ZRKitDynamic/ZRAnimation/TiltInternal.h>

#include <limits>
#include <numbers>

namespace zr {

namespace {

constexpr CGFloat kTiltAngle = 15 * std::numbers::pi_v<CGFloat> / 180;
constexpr CGFloat kTiltScale = 0.95;
constexpr CGFloat kRise = 40;

void holdEnd(CAAnimation* animation) {
    animation->setFillMode(kCAFillModeForwards);
    animation->setRemovedOnCompletion(false);
}

/// From whatever the layer shows by then.
Ref<CABasicAnimation> stageTo(const CATransform3D& transform) {
    const auto stage = CABasicAnimation::animationWithKeyPath("transform");
    stage->setToValue(NSValue::valueWithStructure(transform));
    holdEnd(stage);
    return stage;
}

} // namespace

CATransform3D tiltedTransform() {
    CATransform3D transform = CATransform3DIdentity;
    transform.m34 = kTiltPerspective<CGFloat>;
    transform = CATransform3DScale(transform, kTiltScale, kTiltScale, 1);
    return CATransform3DRotate(transform, kTiltAngle, 1, 0, 0);
}

CATransform3D recededTransform(CGFloat scale) {
    CATransform3D transform = CATransform3DIdentity;
    transform.m34 = tiltedTransform().m34;
    transform = CATransform3DTranslate(transform, 0, -kRise, 0);
    return CATransform3DScale(transform, scale, scale, 1);
}

Ref<CAKeyframeAnimation> ZRAnimation::animationForRotation(double duration) {
    auto rotation = CAKeyframeAnimation::animationWithKeyPath("transform.rotation.z");
    rotation->setValues({std::numbers::pi_v<float>, -std::numbers::pi_v<float>});
    rotation->setDuration(duration);
    rotation->setRepeatCount(std::numeric_limits<float>::max());
    return rotation;
}

Ref<CAAnimationGroup> ZRAnimation::animationGroupForward_duration_scale(bool forward, double duration, CGFloat scale) {
    const auto tilt = stageTo(tiltedTransform());
    tilt->setDuration(duration * 0.5);
    tilt->setTimingFunction(CAMediaTimingFunction::functionWithName(kCAMediaTimingFunctionEaseOut));

    const auto settle = stageTo(forward ? recededTransform(scale) : CATransform3DIdentity);
    settle->setBeginTime(tilt->duration());
    settle->setDuration(tilt->duration());

    auto group = make<CAAnimationGroup>();
    holdEnd(group);
    group->setDuration(tilt->duration() * 2);
    group->setAnimations({tilt, settle});
    return group;
}

} // namespace zr
