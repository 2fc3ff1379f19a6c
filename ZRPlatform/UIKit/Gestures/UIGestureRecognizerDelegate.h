#pragma once

#pragma GCC visibility push(default)
namespace zr {

class UIGestureRecognizer;
class UITouch;

/// Has a say in what a recogniser sees, when it may begin, and how it gets along with others. It may remove, disable or
/// let go of any recogniser or view while it is asked.
class UIGestureRecognizerDelegate {
public:
    virtual ~UIGestureRecognizerDelegate() = default;

    /// Asked once, at the moment when the recogniser would begin or, a discrete one, be recognised; no lets it fail.
    virtual bool gestureRecognizerShouldBegin(UIGestureRecognizer*) { return true; }
    /// Asked when a finger goes down, before any recogniser sees it; no hides that touch from the recogniser. Not asked
    /// for one that would not see it anyway: one that is disabled, or that a delegate asked before has removed; one
    /// that has failed, ended or been cancelled and is not reset yet; one that waits for a failure, and has seen its
    /// own end.
    virtual bool gestureRecognizer_shouldReceiveTouch(UIGestureRecognizer*, UITouch*) { return true; }
    /// Whether both may be recognised from the same touches. One yes, this one's or the other's delegate's, is enough.
    /// Asked whenever either begins or is recognised; a later no keeps the second from it.
    virtual bool gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer(UIGestureRecognizer*,
                                                                                      UIGestureRecognizer*) {
        return false;
    }
    /// Whether the first has to wait until the other one has failed; asked when the first would begin, for each other
    /// one that has a touch in common with it.
    virtual bool gestureRecognizer_shouldRequireFailureOfGestureRecognizer(UIGestureRecognizer*, UIGestureRecognizer*) {
        return false;
    }
    /// The same, asked the other way round: whether the other one has to wait until the first has failed.
    virtual bool gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer*,
                                                                             UIGestureRecognizer*) {
        return false;
    }
};

} // namespace zr
#pragma GCC visibility pop
