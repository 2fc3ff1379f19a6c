#include <Gallery/Look/ScrollBox.h>

#include <Gallery/Look/Look.h>

#include <algorithm>
#include <cmath>

namespace zr::gallery {

namespace {
constexpr CGFloat kDragThreshold = 10;
} // namespace

bool ScrollBox::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setClipsToBounds(true);
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    m_content = make<UIView>();
    addSubview(m_content);
    setContentHeight(0);
    return true;
}

void ScrollBox::setContentHeight(CGFloat height) {
    m_contentHeight = height;
    setOffset(m_offset);
}

CGFloat ScrollBox::contentHeight() const { return std::max(m_contentHeight, bounds().size.height); }

void ScrollBox::setOffset(CGFloat offset) {
    m_offset = std::clamp(offset, CGFloat(0), contentHeight() - bounds().size.height);
    // Whole pixels keep text and lines as crisp as they are at rest.
    const CGFloat y = -Look::wholePixels(m_offset);
    m_content->setFrame(CGRectMake(0, y, bounds().size.width, contentHeight()));
}

void ScrollBox::layoutSubviews() { setOffset(m_offset); }

UIView* ScrollBox::hitTest_withEvent(CGPoint point, UIEvent* event) {
    return UIView::hitTest_withEvent(point, event) ? this : nullptr;
}

Ref<UIControl> ScrollBox::controlAt(CGPoint point, UIEvent* event) {
    for (UIView* view = UIView::hitTest_withEvent(point, event); view && view != this; view = view->superview()) {
        if (auto* control = dynamic_cast<UIControl*>(view))
            return control;
    }
    return nullptr;
}

void ScrollBox::touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) {
    const CGPoint point = touches.front()->locationInView(this);
    m_touchStart = point.y;
    m_offsetAtStart = m_offset;
    m_dragging = false;
    m_touchedControl = controlAt(point, event);
    if (m_touchedControl)
        m_touchedControl->touchesBegan_withEvent(touches, event);
}

void ScrollBox::beginDragging(const TouchSet& touches, UIEvent* event) {
    m_dragging = true;
    if (const auto control = std::exchange(m_touchedControl, nullptr))
        control->touchesCancelled_withEvent(touches, event);
}

void ScrollBox::touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) {
    const CGFloat moved = touches.front()->locationInView(this).y - m_touchStart;
    if (!m_dragging && std::abs(moved) > kDragThreshold)
        beginDragging(touches, event);
    if (m_dragging)
        setOffset(m_offsetAtStart - moved);
    else if (m_touchedControl)
        m_touchedControl->touchesMoved_withEvent(touches, event);
}

void ScrollBox::touchesEnded_withEvent(const TouchSet& touches, UIEvent* event) {
    m_dragging = false;
    if (const auto control = std::exchange(m_touchedControl, nullptr))
        control->touchesEnded_withEvent(touches, event);
}

void ScrollBox::touchesCancelled_withEvent(const TouchSet& touches, UIEvent* event) {
    m_dragging = false;
    if (const auto control = std::exchange(m_touchedControl, nullptr))
        control->touchesCancelled_withEvent(touches, event);
}

} // namespace zr::gallery
