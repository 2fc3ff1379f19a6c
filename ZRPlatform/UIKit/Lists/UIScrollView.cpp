#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollRange.h>

#include <algorithm>

namespace zr {

UIScrollView::UIScrollView() = default;
UIScrollView::~UIScrollView() = default;

bool UIScrollView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setClipsToBounds(true);
    return true;
}

const KeyTable& UIScrollView::keyTable() const {
    static const KeyTable table(
        UIView::keyTable(), {key<&UIScrollView::contentOffset, &UIScrollView::setContentOffset>("contentOffset"),
                             key<&UIScrollView::contentSize, &UIScrollView::setContentSize>("contentSize"),
                             key<&UIScrollView::contentInset, &UIScrollView::setContentInset>("contentInset"),
                             key<&UIScrollView::isScrollEnabled, &UIScrollView::setScrollEnabled>("scrollEnabled"),
                             key<&UIScrollView::bounces, &UIScrollView::setBounces>("bounces"),
                             key<&UIScrollView::isPagingEnabled, &UIScrollView::setPagingEnabled>("pagingEnabled")});
    return table;
}

// Content

namespace {

ScrollGeometry geometryOf(const UIScrollView& view) {
    return {view.bounds().size, view.contentSize(), view.contentInset()};
}

} // namespace

void UIScrollView::setContentOffset(CGPoint offset) {
    if (isFinite(offset))
        setBounds({offset, bounds().size});
}

void UIScrollView::setContentOffset_animated(CGPoint offset, bool) { setContentOffset(offset); }

void UIScrollView::setContentSize(CGSize size) {
    if (!isFinite(size))
        return;
    m_contentSize = {std::max<CGFloat>(size.width, 0), std::max<CGFloat>(size.height, 0)};
    contentChanged();
}

void UIScrollView::setContentInset(UIEdgeInsets inset) {
    if (!isFinite(inset))
        return;
    m_contentInset = inset;
    contentChanged();
}

void UIScrollView::scrollRectToVisible_animated(CGRect rect, bool animated) {
    if (CGRectIsFinite(rect))
        setContentOffset_animated(offsetShowing(geometryOf(*this), contentOffset(), rect), animated);
}

void UIScrollView::setFrame(CGRect frame) {
    if (!CGRectIsFinite(frame))
        return;
    const CGSize before = bounds().size;
    UIView::setFrame(frame);
    if (!(bounds().size == before))
        contentChanged();
}

void UIScrollView::setBounds(CGRect newBounds) {
    if (!CGRectIsFinite(newBounds))
        return;
    const CGRect before = bounds();
    UIView::setBounds(newBounds);
    if (!(bounds().origin == before.origin))
        offsetChanged(before.origin);
    if (!(bounds().size == before.size))
        contentChanged();
}

void UIScrollView::offsetChanged(CGPoint) {
    setNeedsLayout();
    const Ref<UIScrollView> keep = this;
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (UIScrollViewDelegate* told = delegate())
        told->scrollViewDidScroll(this);
}

/// Other ends: what lies beyond them is brought back.
void UIScrollView::contentChanged() { setContentOffset(nearestRest(geometryOf(*this), contentOffset())); }

// What a finger may do

void UIScrollView::setScrollEnabled(bool enabled) { m_scrollEnabled = enabled; }

void UIScrollView::setDecelerationRate(CGFloat rate) {
    if (rate > 0 && rate < 1)
        m_decelerationRate = rate;
}

UIPanGestureRecognizer* UIScrollView::panGestureRecognizer() const { return nullptr; }
bool UIScrollView::isTracking() const { return false; }
bool UIScrollView::isDragging() const { return false; }
bool UIScrollView::isDecelerating() const { return false; }

void UIScrollView::setDelaysContentTouches(bool delays) { m_delaysContentTouches = delays; }

bool UIScrollView::touchesShouldBegin_withEvent_inContentView(const TouchSet&, UIEvent*, UIView*) { return true; }
bool UIScrollView::touchesShouldCancelInContentView(UIView*) { return true; }

// Scroll indicators

void UIScrollView::setShowsHorizontalScrollIndicator(bool shows) { m_showsHorizontalIndicator = shows; }
void UIScrollView::setShowsVerticalScrollIndicator(bool shows) { m_showsVerticalIndicator = shows; }
void UIScrollView::setScrollIndicatorInsets(UIEdgeInsets insets) { m_indicatorInsets = insets; }
void UIScrollView::setIndicatorStyle(UIScrollViewIndicatorStyle style) { m_indicatorStyle = style; }
void UIScrollView::flashScrollIndicators() {}

} // namespace zr
