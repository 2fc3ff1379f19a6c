#include <Gallery/Look/ScrollBox.h>

#include <Gallery/Look/Look.h>

#include <algorithm>
#include <cmath>

namespace zr::gallery {

bool ScrollBox::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setClipsToBounds(true);
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    m_content = make<UIView>();
    addSubview(m_content);
    addGestureRecognizer(make<UIPanGestureRecognizer>(&UIPanGestureRecognizer::initWithTarget_action, this,
                                                      selector<&ScrollBox::panned>));
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

bool ScrollBox::gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) {
    const auto* pan = dynamic_cast<const UIPanGestureRecognizer*>(recognizer);
    if (!pan || pan->view() != this)
        return UIView::gestureRecognizerShouldBegin(recognizer);
    const CGPoint translation = pan->translationInView(this);
    return std::abs(translation.y) > std::abs(translation.x);
}

void ScrollBox::panned(UIPanGestureRecognizer* pan) {
    if (pan->state() == UIGestureRecognizerStateBegan)
        m_offsetAtStart = m_offset;
    setOffset(m_offsetAtStart - pan->translationInView(this).y);
}

} // namespace zr::gallery
