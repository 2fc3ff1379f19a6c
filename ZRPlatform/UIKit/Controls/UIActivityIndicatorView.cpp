#include <ZRPlatform/UIKit/Controls/UIActivityIndicatorView.h>

#include <ZRPlatform/CoreGraphics/CGPath.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Views/Internal/ViewDrawing.h>

#include <algorithm>
#include <array>
#include <limits>
#include <numbers>
#include <vector>

namespace zr {

namespace {

constexpr int kFinCount = 12;
constexpr NSTimeInterval kTurnDuration = 1;
constexpr CGFloat kFaintestFin = CGFloat(0.2);
constexpr const char* kAnimationKey = "UIActivityIndicatorAnimation";

/// Points. The fins reach from the edge inwards. Their widths go with their sides, even with even and odd with odd, so
/// that the upright fins end on whole pixels at every scale.
struct Shape {
    CGFloat side;
    CGFloat finWidth;
    CGFloat finLength;
    bool isGray;
};

constexpr std::array<Shape, 3> kShapes{{{37, 3, 10, false}, {20, 2, 5, false}, {20, 2, 5, true}}};

const Shape& shapeOf(UIActivityIndicatorViewStyle style) { return kShapes[static_cast<std::size_t>(style)]; }

/// How bright a fin is that the bright one left so many steps ago.
CGFloat finAlpha(int stepsAgo) { return 1 - (1 - kFaintestFin) * static_cast<CGFloat>(stepsAgo) / (kFinCount - 1); }

using Fins = std::array<Ref<CGPath>, kFinCount>;

/// Clockwise from the top.
Fins makeFins(const Shape& shape) {
    const CGRect fin{{-shape.finWidth / 2, -shape.side / 2}, {shape.finWidth, shape.finLength}};
    const CGAffineTransform middle = CGAffineTransformMakeTranslation(shape.side / 2, shape.side / 2);
    Fins fins;
    for (int place = 0; place < kFinCount; ++place) {
        const auto angle = static_cast<CGFloat>(2 * std::numbers::pi * place / kFinCount);
        const CGAffineTransform turned = CGAffineTransformRotate(middle, angle);
        fins[place] = CGPathCreateWithRoundedRect(fin, shape.finWidth / 2, shape.finWidth / 2, &turned);
    }
    return fins;
}

/// The bright fin is `step` places clockwise from the top.
void drawFins(const Fins& fins, CGColorRef color, int step) {
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetFillColorWithColor(context, color);
    for (int place = 0; place < kFinCount; ++place) {
        CGContextSetAlpha(context, finAlpha((step - place + kFinCount) % kFinCount));
        CGContextAddPath(context, fins[place]);
        CGContextFillPath(context);
    }
}

} // namespace

/// One for each step of a turn. Spinners that look alike share them for as long as one of them shows.
struct UIActivityIndicatorView::Pictures {
    CGFloat side;
    CGFloat scale;
    Ref<CGColor> color;
    std::array<Ref<CGImage>, kFinCount> steps;

    static std::shared_ptr<const Pictures> make(const Shape& shape, CGFloat scale, CGColorRef color) {
        const auto pictures = std::make_shared<Pictures>(Pictures{shape.side, scale, color, {}});
        const CGRect bounds{{0, 0}, {shape.side, shape.side}};
        const Fins fins = makeFins(shape);
        for (int step = 0; step < kFinCount; ++step)
            pictures->steps[step] = drawIntoBitmap(bounds, scale, [&](CGRect) { drawFins(fins, color, step); });
        return pictures;
    }

    static std::shared_ptr<const Pictures> shared(const Shape& shape, CGFloat scale, CGColorRef color) {
        static std::vector<std::weak_ptr<const Pictures>> drawn;
        std::erase_if(drawn, [](const auto& pictures) { return pictures.expired(); });
        for (const auto& weak : drawn) {
            const auto pictures = weak.lock();
            if (pictures && pictures->side == shape.side && pictures->scale == scale &&
                CGColorEqualToColor(pictures->color, color))
                return pictures;
        }
        const auto pictures = make(shape, scale, color);
        drawn.push_back(pictures);
        return pictures;
    }
};

bool UIActivityIndicatorView::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    setOpaque(false);
    m_fins = make<UIView>();
    m_fins->setUserInteractionEnabled(false);
    addSubview(m_fins);
    setHidden(true);
    setColor(nullptr);
    return true;
}

bool UIActivityIndicatorView::initWithActivityIndicatorStyle(UIActivityIndicatorViewStyle style) {
    if (!initWithFrame(CGRectZero))
        return false;
    setActivityIndicatorViewStyle(style);
    return true;
}

const KeyTable& UIActivityIndicatorView::keyTable() const {
    using Self = UIActivityIndicatorView;
    static const KeyTable table(
        UIView::keyTable(),
        {key<&Self::activityIndicatorViewStyle, &Self::setActivityIndicatorViewStyle>("activityIndicatorViewStyle"),
         key<&Self::color, &Self::setColor>("color"),
         key<&Self::hidesWhenStopped, &Self::setHidesWhenStopped>("hidesWhenStopped"),
         key<&Self::isAnimating>("animating")});
    return table;
}

// Look

void UIActivityIndicatorView::setActivityIndicatorViewStyle(UIActivityIndicatorViewStyle style) {
    const bool isStyle = style >= 0 && static_cast<std::size_t>(style) < kShapes.size();
    setObservable(m_style, isStyle ? style : UIActivityIndicatorViewStyleWhite, "activityIndicatorViewStyle");
    setColor(nullptr);
    sizeToFit();
    setNeedsLayout();
}

void UIActivityIndicatorView::setColor(UIColor* color) {
    UIColor* styleColor = shapeOf(m_style).isGray ? UIColor::grayColor() : UIColor::whiteColor();
    setObservable(m_color, color ? color : styleColor, "color");
    renewFins();
}

void UIActivityIndicatorView::setHidden(bool hidden) {
    UIView::setHidden(hidden);
    renewFins();
}

void UIActivityIndicatorView::setHidesWhenStopped(bool hides) {
    setObservable(m_hidesWhenStopped, hides, "hidesWhenStopped");
    if (!m_animating)
        setHidden(hides);
}

/// What shows nothing holds no pictures.
void UIActivityIndicatorView::renewFins() {
    CALayer* layer = m_fins->layer();
    const bool shows = m_animating || !isHidden();
    m_pictures = shows ? Pictures::shared(shapeOf(m_style), layer->contentsScale(), m_color->cgColor()) : nullptr;
    layer->setContents(shows ? m_pictures->steps.front() : nullptr);
    if (m_animating)
        spin();
}

// Animation

void UIActivityIndicatorView::startAnimating() {
    if (m_animating)
        return;
    m_startTime = CACurrentMediaTime();
    setObservable(m_animating, true, "animating");
    if (m_hidesWhenStopped)
        setHidden(false);
    else
        renewFins();
}

void UIActivityIndicatorView::stopAnimating() {
    if (!m_animating)
        return;
    m_fins->layer()->removeAnimationForKey(kAnimationKey);
    setObservable(m_animating, false, "animating");
    if (m_hidesWhenStopped)
        setHidden(true);
    else
        renewFins();
}

/// Pictures that are replaced on the way go on at the fin that is bright by now.
void UIActivityIndicatorView::spin() {
    auto animation = CAKeyframeAnimation::animationWithKeyPath("contents");
    animation->setValues({m_pictures->steps.begin(), m_pictures->steps.end()});
    animation->setCalculationMode(kCAAnimationDiscrete);
    animation->setDuration(kTurnDuration);
    animation->setRepeatCount(std::numeric_limits<float>::max());
    animation->setBeginTime(CACurrentMediaTime());
    animation->setTimeOffset(CACurrentMediaTime() - m_startTime);
    m_fins->layer()->addAnimation_forKey(animation, kAnimationKey);
}

// Layout

CGSize UIActivityIndicatorView::sizeThatFits(CGSize) const {
    const CGFloat side = shapeOf(m_style).side;
    return {side, side};
}

void UIActivityIndicatorView::layoutSubviews() {
    const CGFloat side = shapeOf(m_style).side;
    m_fins->setFrame({{CGRectGetMidX(bounds()) - side / 2, CGRectGetMidY(bounds()) - side / 2}, {side, side}});
}

} // namespace zr
