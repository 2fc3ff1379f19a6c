#pragma once

#include <ZRPlatform/UIKit/Gestures/UIPanGestureRecognizer.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

namespace zr::gallery {

/// A window onto a taller view: dragging moves it up and down between its ends. A touch belongs to what is under the
/// finger until the finger has moved 10 points, up or down rather than across; then it is cancelled there and the
/// content follows.
class ScrollBox : public UIView {
public:
    bool initWithFrame(CGRect frame) override;

    /// What scrolls. Add views to it.
    UIView* content() const { return m_content; }
    /// Points; the box's own height counts when that is more.
    void setContentHeight(CGFloat height);
    CGFloat contentHeight() const;
    /// Points scrolled down, kept between 0 and the content's height less the box's.
    void setOffset(CGFloat offset);
    CGFloat offset() const { return m_offset; }

    /// The content is as wide as the box, and stays within its ends.
    void layoutSubviews() override;
    bool gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) override;

private:
    void panned(UIPanGestureRecognizer* pan);

    Ref<UIView> m_content;
    CGFloat m_contentHeight = 0;
    CGFloat m_offset = 0;
    CGFloat m_offsetAtStart = 0;
};

} // namespace zr::gallery
