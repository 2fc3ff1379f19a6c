#pragma once

#include <ZRPlatform/UIKit/Controls/UIControl.h>

namespace zr::gallery {

/// A window onto a taller view: dragging moves it up and down between its ends. A touch belongs to the control under
/// the finger until the finger has moved 10 points; then that control's touch is cancelled and the content follows.
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
    UIView* hitTest_withEvent(CGPoint point, UIEvent* event) override;
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) override;

private:
    Ref<UIControl> controlAt(CGPoint point, UIEvent* event);
    void beginDragging(const TouchSet& touches, UIEvent* event);

    Ref<UIView> m_content;
    Ref<UIControl> m_touchedControl;
    CGFloat m_contentHeight = 0;
    CGFloat m_offset = 0;
    CGFloat m_touchStart = 0;
    CGFloat m_offsetAtStart = 0;
    bool m_dragging = false;
};

} // namespace zr::gallery
