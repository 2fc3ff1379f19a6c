#include <ZRKitDynamic/ZRView/ZRShadowAnimationView.h>

namespace zr {

bool ZRShadowAnimationView::initWithFrame(CGRect frame) {
    if (!UIImageView::initWithFrame(frame))
        return false;
    setEndView(make<UIImageView>(&UIImageView::initWithFrame, CGRectZero));
    m_endView->setAlpha(0);
    addSubview(m_endView);
    return true;
}

void ZRShadowAnimationView::setBackgroundColor(UIColor* color) { UIImageView::setBackgroundColor(color); }

void ZRShadowAnimationView::beginAnimationFromColor_toColor_duration(UIColor* fromColor, UIColor* toColor,
                                                                     double duration) {
    if (!toColor)
        return;
    UIColor* coverColor = m_endView ? m_endView->backgroundColor() : nullptr;
    if (backgroundColor() == fromColor && coverColor == toColor)
        return;
    if (m_endView) {
        m_endView->setBackgroundColor(fromColor ? fromColor : backgroundColor());
        m_endView->setAlpha(1);
    }
    setBackgroundColor(toColor);
    if (m_endView)
        animateWithDuration_animations_completion(
            duration, [this] { m_endView->setAlpha(0); }, nullptr);
}

void ZRShadowAnimationView::layoutSubviews() {
    UIImageView::layoutSubviews();
    if (m_endView)
        m_endView->setFrame(bounds());
}

} // namespace zr
