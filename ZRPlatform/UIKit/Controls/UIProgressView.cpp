#include <ZRPlatform/UIKit/Controls/UIProgressView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

#include <algorithm>

namespace zr {

namespace {

constexpr NSTimeInterval kSlideDuration = 0.25;
constexpr CGFloat kTrackWhite = CGFloat(0.72);

CGFloat barHeight() { return UIDevice::currentDevice()->systemVersion().intValue() >= 7 ? 2 : 9; }

float clampedProgress(float progress) { return progress > 0 ? std::min(progress, 1.0f) : 0; }

Ref<UIView> makePart(CGFloat height) {
    auto part = make<UIView>();
    part->setUserInteractionEnabled(false);
    part->layer()->setCornerRadius(height / 2);
    return part;
}

} // namespace

bool UIProgressView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    m_track = makePart(barHeight());
    m_bar = makePart(barHeight());
    addSubview(m_track);
    addSubview(m_bar);
    applyColors();
    setFrame(frame);
    return true;
}

bool UIProgressView::initWithProgressViewStyle(UIProgressViewStyle style) {
    if (!initWithFrame(CGRectZero))
        return false;
    setProgressViewStyle(style);
    return true;
}

const KeyTable& UIProgressView::keyTable() const {
    static const KeyTable table(
        UIView::keyTable(),
        {key<&UIProgressView::progress, &UIProgressView::setProgress>("progress"),
         key<&UIProgressView::progressTintColor, &UIProgressView::setProgressTintColor>("progressTintColor"),
         key<&UIProgressView::trackTintColor, &UIProgressView::setTrackTintColor>("trackTintColor")});
    return table;
}

// Progress

void UIProgressView::setProgress(float progress) { setProgress_animated(progress, false); }

void UIProgressView::setProgress_animated(float progress, bool animated) {
    layoutIfNeeded(); // the slide starts from where the bar belongs by now
    setObservable(m_progress, clampedProgress(progress), "progress");
    if (!animated) {
        m_bar->setFrame(barFrame());
        return;
    }
    animateWithDuration_animations(kSlideDuration, [this] { m_bar->setFrame(barFrame()); });
}

// Look

void UIProgressView::setProgressTintColor(UIColor* color) {
    m_progressTintColor = color;
    applyColors();
}

void UIProgressView::setTrackTintColor(UIColor* color) {
    m_trackTintColor = color;
    applyColors();
}

void UIProgressView::tintColorDidChange() { applyColors(); }

void UIProgressView::applyColors() {
    const Ref<UIColor> track = m_trackTintColor ? m_trackTintColor : UIColor::colorWithWhite_alpha(kTrackWhite, 1);
    m_track->setBackgroundColor(track);
    m_bar->setBackgroundColor(m_progressTintColor ? m_progressTintColor.get() : tintColor());
}

// Layout

CGRect UIProgressView::barFrame() const {
    const auto [width, height] = bounds().size;
    return {{0, 0}, {width * static_cast<CGFloat>(m_progress), height}};
}

void UIProgressView::setFrame(CGRect frame) {
    const CGFloat height = barHeight();
    if (CGAffineTransformIsIdentity(transform()))
        frame.size.height = height;
    UIView::setFrame(frame);
    if (bounds().size.height != height)
        setBounds(bounds());
}

void UIProgressView::setBounds(CGRect bounds) {
    bounds.size.height = barHeight();
    UIView::setBounds(bounds);
}

CGSize UIProgressView::sizeThatFits(CGSize size) const { return {size.width, barHeight()}; }

void UIProgressView::layoutSubviews() {
    m_track->setFrame({{0, 0}, bounds().size});
    m_bar->setFrame(barFrame());
}

} // namespace zr
