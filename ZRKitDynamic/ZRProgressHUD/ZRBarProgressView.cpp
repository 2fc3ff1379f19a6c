#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <cmath>
#include <numbers>

namespace zr {

namespace {

constexpr CGFloat kPi = std::numbers::pi_v<CGFloat>;
constexpr CGFloat kLineWidth = 2;
/// From the view's edge to the middle of the track's outline, and to the pill.
constexpr CGFloat kTrackInset = 2;
constexpr CGFloat kPillInset = 4;

CGColorRef cgColorOf(const UIColor* color) { return color ? color->cgColor() : nullptr; }

/// Radii are kept in single precision, as the progress is.
float trackRadius(CGSize size) { return static_cast<float>(size.height / 2 - kTrackInset); }
float pillRadius(CGSize size) { return trackRadius(size) - static_cast<float>(kPillInset - kTrackInset); }

void addTrack(CGContextRef context, CGSize size) {
    const CGFloat radius = trackRadius(size);
    const CGFloat left = kTrackInset, right = size.width - kTrackInset;
    const CGFloat top = kTrackInset, bottom = size.height - kTrackInset;
    const CGFloat middle = size.height / 2;
    CGContextMoveToPoint(context, left, middle);
    CGContextAddArcToPoint(context, left, top, radius + kTrackInset, top, radius);
    CGContextAddLineToPoint(context, size.width - radius - kTrackInset, top);
    CGContextAddArcToPoint(context, right, top, right, middle, radius);
    CGContextAddArcToPoint(context, right, bottom, size.width - radius - kTrackInset, bottom, radius);
    CGContextAddLineToPoint(context, radius + kTrackInset, bottom);
    CGContextAddArcToPoint(context, left, bottom, left, middle, radius);
}

/// One half of the pill; both begin in the middle of its left end.
struct Half {
    /// The y of its outer edge.
    CGFloat edge;
    /// 1 above the middle, -1 below: the sign of angles that are counted from the right.
    CGFloat side;
};

void beginHalf(CGContextRef context, CGSize size, const Half& half) {
    const CGFloat radius = pillRadius(size);
    CGContextMoveToPoint(context, kPillInset, size.height / 2);
    CGContextAddArcToPoint(context, kPillInset, half.edge, radius + kPillInset, half.edge, radius);
}

void addStraightHalf(CGContextRef context, CGSize size, const Half& half, float amount) {
    beginHalf(context, size, half);
    CGContextAddLineToPoint(context, amount, half.edge);
    CGContextAddLineToPoint(context, amount, pillRadius(size) + kPillInset);
}

void addRightEndHalf(CGContextRef context, CGSize size, const Half& half, float amount) {
    const float radius = pillRadius(size);
    const CGPoint center{size.width - radius - kPillInset, size.height / 2};
    const float reach = static_cast<float>(amount - center.x);
    float angle = std::acos(reach / radius);
    if (std::isnan(angle)) // beyond the end
        angle = 0;
    beginHalf(context, size, half);
    CGContextAddLineToPoint(context, center.x, half.edge);
    CGContextAddArc(context, center.x, center.y, radius, half.side * kPi, -half.side * angle, half.side < 0);
    CGContextAddLineToPoint(context, amount, center.y);
}

void addLeftEndHalf(CGContextRef context, CGSize size, const Half& half) {
    beginHalf(context, size, half);
    CGContextAddLineToPoint(context, pillRadius(size) + kPillInset, size.height / 2);
}

void addHalf(CGContextRef context, CGSize size, const Half& half, float amount) {
    const CGFloat leftEnd = pillRadius(size) + kPillInset;
    const CGFloat rightEnd = size.width - pillRadius(size) - kPillInset;
    if (amount >= leftEnd && amount <= rightEnd)
        addStraightHalf(context, size, half, amount);
    else if (amount > leftEnd && amount > rightEnd)
        addRightEndHalf(context, size, half, amount);
    else if (amount > 0 && amount < leftEnd)
        addLeftEndHalf(context, size, half);
}

} // namespace

// Construction

bool ZRBarProgressView::init() { return initWithFrame(CGRectMake(0, 0, 120, 20)); }

bool ZRBarProgressView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    m_lineColor = UIColor::whiteColor();
    m_progressColor = UIColor::whiteColor();
    m_progressRemainingColor = UIColor::clearColor();
    setBackgroundColor(UIColor::clearColor());
    setOpaque(false);
    registerForKVO();
    return true;
}

ZRBarProgressView::~ZRBarProgressView() { ZRBarProgressView::unregisterFromKVO(); }

// Properties

const KeyTable& ZRBarProgressView::keyTable() const {
    using Self = ZRBarProgressView;
    static const KeyTable table(
        UIView::keyTable(),
        {key<&Self::progress, &Self::setProgress>("progress"), key<&Self::lineColor, &Self::setLineColor>("lineColor"),
         key<&Self::progressRemainingColor, &Self::setProgressRemainingColor>("progressRemainingColor"),
         key<&Self::progressColor, &Self::setProgressColor>("progressColor")});
    return table;
}

void ZRBarProgressView::setProgress(float progress) { setObservable(m_progress, progress, "progress"); }

void ZRBarProgressView::setLineColor(UIColor* color) { setObservable(m_lineColor, color, "lineColor"); }

void ZRBarProgressView::setProgressRemainingColor(UIColor* color) {
    setObservable(m_progressRemainingColor, color, "progressRemainingColor");
}

void ZRBarProgressView::setProgressColor(UIColor* color) { setObservable(m_progressColor, color, "progressColor"); }

// Observing itself

std::vector<NSString> ZRBarProgressView::observableKeypaths() const {
    return {"lineColor", "progressRemainingColor", "progressColor", "progress"};
}

void ZRBarProgressView::registerForKVO() {
    for (const NSString& keyPath : observableKeypaths())
        addObserver_forKeyPath_options_context(this, keyPath, NSKeyValueObservingOptionNew, nullptr);
}

void ZRBarProgressView::unregisterFromKVO() {
    for (const NSString& keyPath : observableKeypaths())
        removeObserver_forKeyPath(this, keyPath);
}

void ZRBarProgressView::observeValueForKeyPath_ofObject_change_context(const NSString&, NSObject*,
                                                                       const NSKeyValueChange&, void*) {
    setNeedsDisplay();
}

// Drawing

void ZRBarProgressView::drawRect(CGRect rect) {
    drawTrack(rect.size);
    drawPill(rect.size);
}

void ZRBarProgressView::drawTrack(CGSize size) const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetLineWidth(context, kLineWidth);
    CGContextSetStrokeColorWithColor(context, cgColorOf(lineColor()));
    CGContextSetFillColorWithColor(context, cgColorOf(progressRemainingColor()));
    addTrack(context, size);
    CGContextFillPath(context);
    addTrack(context, size);
    CGContextStrokePath(context);
}

void ZRBarProgressView::drawPill(CGSize size) const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetFillColorWithColor(context, cgColorOf(progressColor()));
    const auto amount = static_cast<float>(m_progress * size.width);
    addHalf(context, size, {kPillInset, 1}, amount);
    addHalf(context, size, {size.height - kPillInset, -1}, amount);
    CGContextFillPath(context);
}

} // namespace zr
