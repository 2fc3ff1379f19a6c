#include <ZRPlatform/UIKit/Application/Internal/TouchMarks.h>

#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>

namespace zr {

namespace {

constexpr CGFloat kDiameter = 44;
constexpr NSTimeInterval kFade = 0.3;

Ref<CALayer> makeCircle() {
    auto circle = make<CALayer>();
    circle->setBounds(CGRectMake(0, 0, kDiameter, kDiameter));
    circle->setCornerRadius(kDiameter / 2);
    circle->setBackgroundColor(UIColor::colorWithRed_green_blue_alpha(0.2, 0.45, 1, 0.4)->cgColor());
    circle->setBorderWidth(1.5);
    circle->setBorderColor(UIColor::colorWithWhite_alpha(1, 0.7)->cgColor());
    return circle;
}

} // namespace

TouchMarks::TouchMarks() : m_root(make<CALayer>()) {}

void TouchMarks::show(std::int64_t finger, CGPoint location) {
    Ref<CALayer>& circle = m_circles[finger];
    if (!circle) {
        circle = makeCircle();
        m_root->addSublayer(circle);
    }
    circle->setPosition(location);
}

void TouchMarks::fadeOut(std::int64_t finger) {
    const auto found = m_circles.find(finger);
    if (found == m_circles.end())
        return;
    const Ref<CALayer> circle = found->second;
    m_circles.erase(found);
    const auto fade = CABasicAnimation::animationWithKeyPath("opacity");
    fade->setFromValue(1.0);
    fade->setToValue(0.0);
    fade->setDuration(kFade);
    circle->setOpacity(0);
    circle->addAnimation_forKey(fade, "fade");
    NSTimer::scheduledTimerWithTimeInterval_repeats_block(kFade, false,
                                                          [circle](NSTimer*) { circle->removeFromSuperlayer(); });
}

} // namespace zr
