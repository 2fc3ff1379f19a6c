#pragma once

#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>

namespace zr {

class UIScrollView;

/// The drag of a scroll view: tells it of fingers going down and of their being gone, drags or not, and begins when it
/// wants the drag. It goes on working for its scroll view when it is attached to another view.
class ScrollPan : public UIPanGestureRecognizer {
public:
    bool initWithScrollView_action(UIScrollView* scrollView, SEL action);

    /// The views in the scroll view that know of the fingers.
    std::vector<Ref<UIView>> informedViews() const;

    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void reset() override;

protected:
    bool isDrag() const override;

private:
    bool letsViewKnow(UITouch* touch, UIEvent* event) override;

    Weak<UIScrollView> m_scrollView;
};

/// Holds touches back from the views in a scroll view until they have lasted for a while, or end. It is never
/// recognised.
class ContentTouchHold : public UIGestureRecognizer {
public:
    ~ContentTouchHold() override;
    bool initWithScrollView(UIScrollView* scrollView);

    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    void reset() override;

private:
    void stopTimer();

    Weak<UIScrollView> m_scrollView;
    Ref<NSTimer> m_timer;
};

} // namespace zr
