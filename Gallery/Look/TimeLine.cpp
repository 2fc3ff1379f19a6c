#include <Gallery/Look/TimeLine.h>

#include <Gallery/Look/Look.h>

#include <algorithm>

namespace zr::gallery {

namespace {

constexpr CGFloat kAxisLeft = 56;
constexpr CGFloat kAxisRight = 20;
constexpr CGFloat kFlagsTop = 8;
constexpr CGFloat kFlagHeight = 16;
constexpr CGFloat kLanesTop = 80;
constexpr CGFloat kLaneHeight = 22;
constexpr CGFloat kBarHeight = 14;
constexpr CGFloat kAxisTop = kLanesTop + 2 * kLaneHeight + 2;
constexpr CGFloat kTickHeight = 4;
constexpr NSTimeInterval kTick = 0.5;

Ref<UILabel> smallLabel(const NSString& text, UIColor* color, NSTextAlignment alignment = NSTextAlignmentLeft) {
    return Look::label(text, UIFont::systemFontOfSize(12), color, 1, alignment);
}

} // namespace

bool TimeLine::initWithFrame_lanes_duration(CGRect frame, const std::vector<NSString>& lanes, NSTimeInterval duration) {
    if (!initWithFrame(frame))
        return false;
    m_duration = duration;
    setBackgroundColor(UIColor::whiteColor());
    setOpaque(false);
    layer()->setCornerRadius(Look::kCornerRadius);
    layer()->setBorderWidth(Look::hairline());
    layer()->setBorderColor(Look::separatorColor()->cgColor());
    for (std::size_t i = 0; i < lanes.size(); ++i)
        addLane(lanes[i], kLanesTop + static_cast<CGFloat>(i) * kLaneHeight);
    addAxis();
    m_cursor = make<UIView>(&UIView::initWithFrame, CGRectMake(kAxisLeft - 0.5, kFlagsTop, 1, kAxisTop - kFlagsTop));
    m_cursor->setBackgroundColor(Look::cursorColor());
    addSubview(m_cursor);
    return true;
}

void TimeLine::addLane(const NSString& name, CGFloat y) {
    const auto label = smallLabel(name, Look::titleColor());
    label->setFrame(CGRectMake(12, y, kAxisLeft - 12, kLaneHeight));
    addSubview(label);
    const CGFloat inset = (kLaneHeight - kBarHeight) / 2;
    const auto track = make<UIView>(&UIView::initWithFrame, CGRectMake(kAxisLeft, y + inset, axisWidth(), kBarHeight));
    track->setBackgroundColor(Look::pageColor());
    addSubview(track);
    m_lanes.push_back({y + inset, 0, nullptr});
}

void TimeLine::addAxis() {
    addSubview(Look::line(CGRectMake(kAxisLeft, kAxisTop, axisWidth(), Look::hairline())));
    for (int i = 0; i * kTick <= m_duration; ++i) {
        const CGFloat x = xOfTime(i * kTick);
        addSubview(Look::line(CGRectMake(x, kAxisTop, Look::hairline(), kTickHeight)));
        const NSString text = NSString::stringWithFormat(i == 0 ? "%g s" : "%g", i * kTick);
        const auto label = smallLabel(text, Look::detailColor(), NSTextAlignmentCenter);
        label->setFrame(CGRectMake(x - 16, kAxisTop + kTickHeight, 32, kFlagHeight));
        addSubview(label);
    }
}

CGFloat TimeLine::axisWidth() const { return bounds().size.width - kAxisLeft - kAxisRight; }

CGFloat TimeLine::xOfTime(NSTimeInterval time) const {
    const CGFloat part = std::clamp(time / m_duration, 0.0, 1.0);
    return Look::wholePixels(kAxisLeft + part * axisWidth());
}

CGFloat TimeLine::presentX() const { return xOfTime(NSDate::date()->timeIntervalSinceDate(m_started)); }

NSTimeInterval TimeLine::secondsLeft() const {
    return std::max(0.0, m_duration - NSDate::date()->timeIntervalSinceDate(m_started));
}

void TimeLine::start() {
    for (const Ref<UIView>& marker : m_markers)
        marker->removeFromSuperview();
    m_markers.clear();
    m_markCount = 0;
    for (Lane& lane : m_lanes)
        lane.growingBar = nullptr;
    m_started = NSDate::date();
    m_cursor->layer()->removeAllAnimations();
    m_cursor->setFrame(CGRectMake(kAxisLeft - 0.5, kFlagsTop, 1, kAxisTop - kFlagsTop));
    UIView::animateWithDuration_delay_options_animations_completion(
        m_duration, 0, UIViewAnimationOptionCurveLinear,
        [this] { m_cursor->setFrame(CGRectOffset(m_cursor->frame(), axisWidth(), 0)); }, nullptr);
}

void TimeLine::addBelowCursor(UIView* view) {
    insertSubview_belowSubview(view, m_cursor);
    m_markers.push_back(view);
}

void TimeLine::mark(const NSString& name) {
    const CGFloat x = presentX();
    const CGFloat y = kFlagsTop + static_cast<CGFloat>(m_markCount++) * kFlagHeight;
    const auto pole = make<UIView>(&UIView::initWithFrame, CGRectMake(x, y, Look::hairline(), kAxisTop - y));
    pole->setBackgroundColor(Look::detailColor());
    addBelowCursor(pole);

    const auto flag = smallLabel(name, Look::titleColor());
    const CGFloat width = flag->sizeThatFits(CGSizeMake(1000, kFlagHeight)).width;
    // To the right of its pole, or to the left where there is no room.
    const bool fits = x + 5 + width <= bounds().size.width - 8;
    flag->setFrame(CGRectMake(fits ? x + 5 : x - 5 - width, y, width, kFlagHeight));
    // Neither the cursor nor poles of other flags run through the text.
    flag->setBackgroundColor(UIColor::whiteColor());
    addSubview(flag);
    m_markers.push_back(flag);
}

void TimeLine::beginBar(std::size_t index) {
    Lane& lane = m_lanes.at(index);
    endBar(index);
    lane.start = presentX();
    const CGFloat end = kAxisLeft + axisWidth();
    lane.growingBar = make<UIView>(&UIView::initWithFrame, CGRectMake(lane.start, lane.y, 0, kBarHeight));
    lane.growingBar->setBackgroundColor(index == 0 ? Look::detailColor() : Look::green());
    addBelowCursor(lane.growingBar);
    UIView::animateWithDuration_delay_options_animations_completion(
        secondsLeft(), 0, UIViewAnimationOptionCurveLinear,
        [&lane, end] { lane.growingBar->setFrame(CGRectMake(lane.start, lane.y, end - lane.start, kBarHeight)); },
        nullptr);
}

void TimeLine::endBar(std::size_t index) {
    Lane& lane = m_lanes.at(index);
    const Ref<UIView> bar = std::exchange(lane.growingBar, nullptr);
    if (!bar)
        return;
    bar->layer()->removeAllAnimations();
    bar->setFrame(CGRectMake(lane.start, lane.y, presentX() - lane.start, kBarHeight));
}

} // namespace zr::gallery
