#pragma once

#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>

#pragma GCC visibility push(default)
namespace zr {

/// Ready-made layer animations. Each is a new object for the caller to add to a layer, under a key of its choosing:
///
///     layer->addAnimation_forKey(ZRAnimation::animationGroupForward_duration_scale(true, 0.6, 0.8), "recede");
class ZRAnimation : public NSObject {
public:
    /// Turns the layer about its middle for ever, from half a turn to minus half a turn (counter-clockwise on the
    /// screen). `duration`: seconds a turn; without a positive one it stands still, half a turn round. It goes with the
    /// platform's defaults otherwise: linear, and dropped by the layer at its end, which never comes.
    static Ref<CAKeyframeAnimation> animationForRotation(double duration);

    /// Tilts the layer back by 15 degrees in perspective at 0.95 of its size, then settles it: `forward`, 40 points
    /// higher and scaled by `scale`; backward, as it was without any transform, whatever the scale. Each of the two
    /// stages takes half of `duration` (seconds; one that is not positive counts as 0: the end shows at once).
    ///
    /// What it settles at shows until the animation is removed; the layer's own transform stays what it was. A scale
    /// that is not finite leaves nothing to see of the layer from the second stage on.
    static Ref<CAAnimationGroup> animationGroupForward_duration_scale(bool forward, double duration, CGFloat scale);
};

} // namespace zr
#pragma GCC visibility pop
