#include <ZRPlatform/UIKit/Lists/Internal/ScrollIndicators.h>

#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/UIKit/Lists/Internal/ScrollPhysics.h>
#include <ZRPlatform/UIKit/Lists/Internal/Scroller.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

namespace zr {

namespace {

constexpr CGFloat kThickness = 2.5;
/// From the edges of the view, and from the other bar.
constexpr CGFloat kMargin = 3;
constexpr NSTimeInterval kFadeDuration = 0.25;
constexpr const char* kFadeKey = "opacity";

Ref<CGColor> colorOf(UIScrollViewIndicatorStyle style) {
    const auto color = style == UIScrollViewIndicatorStyleWhite ? UIColor::colorWithWhite_alpha(1, 0.5)
                                                                : UIColor::colorWithWhite_alpha(0, 0.35);
    return color->cgColor();
}

Ref<CALayer> addBar(CALayer* superlayer) {
    auto bar = make<CALayer>();
    bar->setOpacity(0);
    bar->setCornerRadius(kThickness / 2);
    // In front of what is added to the content later, too.
    bar->setZPosition(1);
    superlayer->addSublayer(bar);
    return bar;
}

void fadeOut(CALayer* bar, NSTimeInterval delay) {
    if (!bar || bar->opacity() == 0)
        return;
    const auto animation = CABasicAnimation::animationWithKeyPath(kFadeKey);
    animation->setFromValue(1);
    animation->setDuration(kFadeDuration);
    if (delay > 0) {
        animation->setBeginTime(CACurrentMediaTime() + delay);
        animation->setFillMode(kCAFillModeBackwards);
    }
    bar->setOpacity(0);
    bar->addAnimation_forKey(animation, kFadeKey);
}

} // namespace

void ScrollIndicators::show() {
    m_isShown = true;
    for (CALayer* bar : {m_horizontal.get(), m_vertical.get()}) {
        if (bar)
            bar->removeAnimationForKey(kFadeKey);
    }
    update();
}

void ScrollIndicators::fade(NSTimeInterval delay) {
    if (!std::exchange(m_isShown, false))
        return;
    fadeOut(m_horizontal, delay);
    fadeOut(m_vertical, delay);
}

void ScrollIndicators::update() {
    const ScrollGeometry geometry = Scroller::of(&m_view).geometry();
    const bool scrollsAcross = horizontalScrollRange(geometry).length() > 0;
    const bool scrollsDown = verticalScrollRange(geometry).length() > 0;
    place(m_horizontal, scrollsAcross && m_view.showsHorizontalScrollIndicator(), horizontalFrame());
    place(m_vertical, scrollsDown && m_view.showsVerticalScrollIndicator(), verticalFrame());
}

/// A bar that fades goes with the content still.
void ScrollIndicators::place(Ref<CALayer>& bar, bool shows, CGRect frame) {
    if (!bar && !(shows && m_isShown))
        return;
    // Bars are not the content's: they take no part in animations of the view.
    CATransaction::beginWithoutActions();
    if (!bar)
        bar = addBar(m_view.layer());
    if (!shows)
        bar->removeAnimationForKey(kFadeKey);
    if (m_isShown || !shows)
        bar->setOpacity(shows ? 1 : 0);
    if (bar->opacity() > 0 || bar->hasAnimations()) {
        bar->setBackgroundColor(colorOf(m_view.indicatorStyle()));
        bar->setFrame(frame);
    }
    CATransaction::endWithoutActions();
}

CGRect ScrollIndicators::horizontalFrame() const {
    const ScrollGeometry geometry = Scroller::of(&m_view).geometry();
    const UIEdgeInsets insets = m_view.scrollIndicatorInsets();
    const CGRect bounds = m_view.bounds();
    const CGFloat corner = verticalScrollRange(geometry).length() > 0 ? kThickness + kMargin : 0;
    const CGFloat way = bounds.size.width - insets.left - insets.right - 2 * kMargin - corner;
    const IndicatorSpan span = indicatorSpan(way, bounds.size.width, horizontalScrollRange(geometry), bounds.origin.x);
    return {{bounds.origin.x + insets.left + kMargin + span.start,
             bounds.origin.y + bounds.size.height - insets.bottom - kMargin - kThickness},
            {span.length, span.length > 0 ? kThickness : 0}};
}

CGRect ScrollIndicators::verticalFrame() const {
    const ScrollGeometry geometry = Scroller::of(&m_view).geometry();
    const UIEdgeInsets insets = m_view.scrollIndicatorInsets();
    const CGRect bounds = m_view.bounds();
    const CGFloat corner = horizontalScrollRange(geometry).length() > 0 ? kThickness + kMargin : 0;
    const CGFloat way = bounds.size.height - insets.top - insets.bottom - 2 * kMargin - corner;
    const IndicatorSpan span = indicatorSpan(way, bounds.size.height, verticalScrollRange(geometry), bounds.origin.y);
    return {{bounds.origin.x + bounds.size.width - insets.right - kMargin - kThickness,
             bounds.origin.y + insets.top + kMargin + span.start},
            {span.length > 0 ? kThickness : 0, span.length}};
}

} // namespace zr
