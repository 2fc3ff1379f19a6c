#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Images/UIBezierPath.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>

#include <numbers>

namespace zr {

namespace {

/// In single precision it is a little too large, which closes the full circle for certain.
constexpr float kPi = std::numbers::pi_v<float>;
constexpr CGFloat kTwelveOClock = -kPi / 2;
constexpr CGFloat kFullTurn = 2 * kPi;

constexpr CGFloat kPieInset = 2;
constexpr CGFloat kPieLineWidth = 2;

struct ArcStyle {
    CGFloat lineWidth;
    CGLineCap cap;
};

ArcStyle arcStyle() {
    constexpr double kFirstVersionOfThinRings = 847.2;
    return NSFoundationVersionNumber() < kFirstVersionOfThinRings ? ArcStyle{5, kCGLineCapRound}
                                                                  : ArcStyle{2, kCGLineCapSquare};
}

CGFloat endAngle(float progress) { return CGFloat(2 * progress * kPi) + kTwelveOClock; }

void strokeArc(CGPoint center, CGFloat radius, CGFloat end, const ArcStyle& style, const UIColor* color) {
    const auto path = UIBezierPath::bezierPath();
    path->setLineWidth(style.lineWidth);
    path->setLineCapStyle(style.cap);
    path->addArcWithCenter_radius_startAngle_endAngle_clockwise(center, radius, kTwelveOClock, end, true);
    if (color)
        color->set();
    path->stroke();
}

} // namespace

// Construction

bool ZRRoundProgressView::init() { return initWithFrame(CGRectMake(0, 0, 37, 37)); }

bool ZRRoundProgressView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setBackgroundColor(UIColor::clearColor());
    setOpaque(false);
    m_progressTintColor = make<UIColor>(&UIColor::initWithWhite_alpha, CGFloat(1), CGFloat(1));
    m_backgroundTintColor = make<UIColor>(&UIColor::initWithWhite_alpha, CGFloat(1), CGFloat(0.1));
    registerForKVO();
    return true;
}

ZRRoundProgressView::~ZRRoundProgressView() { ZRRoundProgressView::unregisterFromKVO(); }

// Properties

const KeyTable& ZRRoundProgressView::keyTable() const {
    using Self = ZRRoundProgressView;
    static const KeyTable table(UIView::keyTable(),
                                {key<&Self::progress, &Self::setProgress>("progress"),
                                 key<&Self::progressTintColor, &Self::setProgressTintColor>("progressTintColor"),
                                 key<&Self::backgroundTintColor, &Self::setBackgroundTintColor>("backgroundTintColor"),
                                 key<&Self::isAnnular, &Self::setAnnular>("annular")});
    return table;
}

void ZRRoundProgressView::setProgress(float progress) { setObservable(m_progress, progress, "progress"); }

void ZRRoundProgressView::setProgressTintColor(UIColor* color) {
    setObservable(m_progressTintColor, color, "progressTintColor");
}

void ZRRoundProgressView::setBackgroundTintColor(UIColor* color) {
    setObservable(m_backgroundTintColor, color, "backgroundTintColor");
}

void ZRRoundProgressView::setAnnular(bool annular) { setObservable(m_annular, annular, "annular"); }

// Observing itself

std::vector<NSString> ZRRoundProgressView::observableKeypaths() const {
    return {"progressTintColor", "backgroundTintColor", "progress", "annular"};
}

void ZRRoundProgressView::registerForKVO() {
    for (const NSString& keyPath : observableKeypaths())
        addObserver_forKeyPath_options_context(this, keyPath, NSKeyValueObservingOptionNew, nullptr);
}

void ZRRoundProgressView::unregisterFromKVO() {
    for (const NSString& keyPath : observableKeypaths())
        removeObserver_forKeyPath(this, keyPath);
}

void ZRRoundProgressView::observeValueForKeyPath_ofObject_change_context(const NSString&, NSObject*,
                                                                         const NSKeyValueChange&, void*) {
    setNeedsDisplay();
}

// Drawing

void ZRRoundProgressView::drawRect(CGRect) {
    if (m_annular)
        drawRing();
    else
        drawPie();
}

void ZRRoundProgressView::drawPie() const {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    if (const Ref<UIColor> tint = progressTintColor())
        tint->setStroke();
    if (const Ref<UIColor> tint = backgroundTintColor())
        tint->setFill();
    CGContextSetLineWidth(context, kPieLineWidth);
    const CGRect circle = CGRectInset(bounds(), kPieInset, kPieInset);
    CGContextFillEllipseInRect(context, circle);
    CGContextStrokeEllipseInRect(context, circle);

    const auto [width, height] = bounds().size;
    CGContextSetRGBFillColor(context, 1, 1, 1, 1);
    CGContextMoveToPoint(context, width / 2, height / 2);
    CGContextAddArc(context, width / 2, height / 2, (width - 2 * kPieInset) / 2, kTwelveOClock, endAngle(m_progress),
                    0);
    CGContextClosePath(context);
    CGContextFillPath(context);
}

void ZRRoundProgressView::drawRing() const {
    const ArcStyle style = arcStyle();
    const auto [width, height] = bounds().size;
    const CGPoint center{width / 2, height / 2};
    const CGFloat radius = (width - style.lineWidth) / 2;
    strokeArc(center, radius, kTwelveOClock + kFullTurn, {style.lineWidth, kCGLineCapButt}, backgroundTintColor());
    strokeArc(center, radius, endAngle(m_progress), style, progressTintColor());
}

} // namespace zr
