#include <Gallery/Look/StepSlider.h>

#include <Gallery/Look/Look.h>

#include <algorithm>
#include <cmath>

namespace zr::gallery {

namespace {

constexpr CGFloat kTrackHeight = 4;
constexpr CGFloat kKnobSide = 28;

Ref<UIView> makePart(UIColor* color, CGFloat height) {
    auto part = make<UIView>();
    part->setBackgroundColor(color);
    part->setOpaque(false);
    part->setUserInteractionEnabled(false);
    part->layer()->setCornerRadius(height / 2);
    return part;
}

} // namespace

bool StepSlider::initWithFrame_stepCount(CGRect frame, int stepCount) {
    if (!initWithFrame(frame))
        return false;
    setOpaque(false);
    m_stepCount = std::max(2, stepCount);
    m_track = makePart(Look::separatorColor(), kTrackHeight);
    m_filled = makePart(Look::green(), kTrackHeight);
    m_knob = makePart(UIColor::whiteColor(), kKnobSide);
    m_knob->layer()->setBorderWidth(Look::hairline());
    m_knob->layer()->setBorderColor(Look::detailColor()->cgColor());
    for (UIView* part : {m_track.get(), m_filled.get(), m_knob.get()})
        addSubview(part);
    return true;
}

void StepSlider::setStep(int step) {
    m_step = std::clamp(step, 0, m_stepCount - 1);
    setNeedsLayout();
}

void StepSlider::layoutSubviews() {
    const CGSize size = bounds().size;
    const CGFloat way = size.width - kKnobSide;
    const CGFloat left = Look::wholePixels(way * m_step / (m_stepCount - 1));
    const CGFloat y = (size.height - kTrackHeight) / 2;
    m_track->setFrame(CGRectMake(0, y, size.width, kTrackHeight));
    m_filled->setFrame(CGRectMake(0, y, left + kKnobSide / 2, kTrackHeight));
    m_knob->setFrame(CGRectMake(left, (size.height - kKnobSide) / 2, kKnobSide, kKnobSide));
}

void StepSlider::follow(const UITouch* touch) {
    const CGFloat way = bounds().size.width - kKnobSide;
    const CGFloat part = std::clamp<CGFloat>((touch->locationInView(this).x - kKnobSide / 2) / way, 0, 1);
    moveTo(static_cast<int>(std::lround(part * (m_stepCount - 1))));
}

void StepSlider::moveTo(int step) {
    const int before = m_step;
    setStep(step);
    if (m_step != before && m_action)
        m_action(m_step);
}

bool StepSlider::beginTrackingWithTouch_withEvent(UITouch* touch, UIEvent*) {
    follow(touch);
    return true;
}

bool StepSlider::continueTrackingWithTouch_withEvent(UITouch* touch, UIEvent*) {
    follow(touch);
    return true;
}

bool StepSlider::keyPressed(UIKey key, unsigned modifiers) {
    if (key != UIKey::Left && key != UIKey::Right)
        return UIControl::keyPressed(key, modifiers);
    moveTo(m_step + (key == UIKey::Left ? -1 : 1));
    return true;
}

} // namespace zr::gallery
