#pragma once

#include <ZRPlatform/Foundation/SEL.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr {

/// The changes between a begin and a commit: their common timing, and who is told when the last of them has stopped.
class ViewAnimation : public NSObject, public CAAnimationDelegate {
public:
    NSString name;
    void* context = nullptr;
    NSTimeInterval duration = 0.2;
    NSTimeInterval delay = 0;
    UIViewAnimationCurve curve = UIViewAnimationCurveEaseInOut;
    float repeatCount = 0;
    bool autoreverses = false;
    Ref<NSObject> delegate;
    SEL didStopSelector;
    SEL willStartSelector;
    std::function<void(bool)> completion;

    /// The innermost block that is open; null outside of blocks.
    static ViewAnimation* current();
    static void begin(Ref<ViewAnimation> animation);
    static void commitCurrent();

    /// The animation for a change of `key`, from what is seen now; nil when the change is to happen at once.
    Ref<CAAnimation> animationForChange(CALayer* layer, const char* key);

    void animationDidStart(CAAnimation* animation) override;
    void animationDidStop_finished(CAAnimation* animation, bool finished) override;

private:
    void allStopped();

    int m_running = 0;
    bool m_open = true;
    bool m_started = false;
    bool m_finished = true;
    /// Alive until the last animation has stopped.
    Ref<ViewAnimation> m_self;
};

} // namespace zr
