#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollIndicators.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollRecognizers.h>
#include <ZRPlatform/UIKit/Lists/Internal/Scroller.h>

#include <algorithm>

namespace zr {

UIScrollView::UIScrollView() :
    m_scroller(std::make_unique<Scroller>(*this)), m_indicators(std::make_unique<ScrollIndicators>(*this)) {}

UIScrollView::~UIScrollView() = default;

bool UIScrollView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setClipsToBounds(true);
    m_pan = make<ScrollPan>(&ScrollPan::initWithScrollView_action, this, selector<&UIScrollView::panned>);
    m_pan->setDelegate(this);
    m_touchHold = make<ContentTouchHold>(&ContentTouchHold::initWithScrollView, this);
    addGestureRecognizer(m_touchHold);
    addGestureRecognizer(m_pan);
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

void UIScrollView::setContentOffset(CGPoint offset) {
    if (isFinite(offset))
        setBounds({offset, bounds().size});
}

void UIScrollView::setContentOffset_animated(CGPoint offset, bool animated) {
    if (isFinite(offset))
        m_scroller->scrollTo(offset, animated);
}

void UIScrollView::setContentSize(CGSize size) {
    size = {std::max<CGFloat>(size.width, 0), std::max<CGFloat>(size.height, 0)};
    if (!isFinite(size) || size == m_contentSize)
        return;
    const Ref<UIScrollView> keep = this;
    setObservable(m_contentSize, size, "contentSize");
    geometryChanged();
}

void UIScrollView::setContentInset(UIEdgeInsets inset) {
    if (!isFinite(inset) || inset == m_contentInset)
        return;
    const Ref<UIScrollView> keep = this;
    setObservable(m_contentInset, inset, "contentInset");
    geometryChanged();
}

void UIScrollView::scrollRectToVisible_animated(CGRect rect, bool animated) {
    if (CGRectIsFinite(rect))
        setContentOffset_animated(offsetShowing(m_scroller->geometry(), contentOffset(), rect), animated);
}

void UIScrollView::setFrame(CGRect frame) {
    if (!CGRectIsFinite(frame))
        return;
    const Ref<UIScrollView> keep = this;
    const CGSize before = bounds().size;
    UIView::setFrame(frame);
    if (!(bounds().size == before))
        geometryChanged();
}

void UIScrollView::setBounds(CGRect newBounds) {
    if (!CGRectIsFinite(newBounds))
        return;
    const Ref<UIScrollView> keep = this;
    const CGRect before = bounds();
    UIView::setBounds(newBounds);
    const bool isResized = !(bounds().size == before.size);
    if (!(bounds().origin == before.origin))
        offsetChanged(before.origin);
    if (isResized)
        geometryChanged();
}

void UIScrollView::offsetChanged(CGPoint before) {
    setNeedsLayout();
    m_indicators->update();
    m_scroller->offsetChanged();
    didChangeValueForKey("contentOffset", NSValue::valueWithStructure(before));
    const Ref<NSObject> keepDelegate = m_delegate.object();
    if (UIScrollViewDelegate* told = delegate())
        told->scrollViewDidScroll(this);
}

/// Other ends: what lies beyond them is brought back.
void UIScrollView::geometryChanged() {
    m_scroller->geometryChanged();
    m_indicators->update();
}

void UIScrollView::willMoveToWindow(UIWindow* window) {
    UIView::willMoveToWindow(window);
    m_scroller->windowChanges();
}

// What a finger may do

void UIScrollView::setScrollEnabled(bool enabled) {
    const Ref<UIScrollView> keep = this; // a drag that ends is told of
    m_scrollEnabled = enabled;
    m_pan->setEnabled(enabled);
    m_touchHold->setEnabled(enabled);
}

void UIScrollView::setDecelerationRate(CGFloat rate) {
    if (rate > 0 && rate < 1)
        m_decelerationRate = rate;
}

UIPanGestureRecognizer* UIScrollView::panGestureRecognizer() const { return m_pan; }
bool UIScrollView::isTracking() const { return m_scroller->isTracking(); }
bool UIScrollView::isDragging() const { return m_scroller->isDragging(); }
bool UIScrollView::isDecelerating() const { return m_scroller->isDecelerating(); }
void UIScrollView::panned(UIPanGestureRecognizer* pan) { m_scroller->panned(pan); }

// Touches of the content

bool UIScrollView::touchesShouldBegin_withEvent_inContentView(const TouchSet&, UIEvent*, UIView*) { return true; }
bool UIScrollView::touchesShouldCancelInContentView(UIView*) { return true; }

bool UIScrollView::gestureRecognizerShouldBegin(UIGestureRecognizer* recognizer) {
    if (recognizer != m_pan)
        return UIView::gestureRecognizerShouldBegin(recognizer);
    const auto views = m_pan->informedViews();
    return std::all_of(views.begin(), views.end(), [this](const Ref<UIView>& view) {
        return m_canCancelContentTouches && touchesShouldCancelInContentView(view);
    });
}

// Scroll indicators

void UIScrollView::setShowsHorizontalScrollIndicator(bool shows) {
    m_showsHorizontalIndicator = shows;
    m_indicators->update();
}

void UIScrollView::setShowsVerticalScrollIndicator(bool shows) {
    m_showsVerticalIndicator = shows;
    m_indicators->update();
}

void UIScrollView::setScrollIndicatorInsets(UIEdgeInsets insets) {
    if (!isFinite(insets))
        return;
    m_indicatorInsets = insets;
    m_indicators->update();
}

void UIScrollView::setIndicatorStyle(UIScrollViewIndicatorStyle style) {
    m_indicatorStyle = style;
    m_indicators->update();
}

void UIScrollView::flashScrollIndicators() { m_scroller->flashIndicators(); }

} // namespace zr
