#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>

namespace zr::gallery {

/// A knob on a track with a few steps. A finger anywhere on it takes the knob to the nearest step and drags it on; with
/// the keyboard there, the left and right arrows take it to the step beside.
class StepSlider : public UIControl {
public:
    static constexpr CGFloat kHeight = 44;

    /// Steps 0 to `stepCount` - 1, at least 2. It stands at 0.
    bool initWithFrame_stepCount(CGRect frame, int stepCount);

    int step() const { return m_step; }
    /// Kept within the steps. Tells nobody.
    void setStep(int step);
    /// Runs when a finger or a key has changed the step.
    void setAction(std::function<void(int step)> action) { m_action = std::move(action); }

    void layoutSubviews() override;
    bool beginTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) override;
    bool continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent* event) override;
    bool keyPressed(UIKey key, unsigned modifiers) override;

private:
    void follow(const UITouch* touch);
    /// Where there is no such step, it stays.
    void moveTo(int step);

    Ref<UIView> m_track;
    Ref<UIView> m_filled;
    Ref<UIView> m_knob;
    std::function<void(int)> m_action;
    int m_stepCount = 2;
    int m_step = 0;
};

} // namespace zr::gallery
