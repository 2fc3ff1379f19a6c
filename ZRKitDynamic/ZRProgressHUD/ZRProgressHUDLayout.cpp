#include <ZRKitDynamic/ZRProgressHUD/ZRBarProgressView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRRoundProgressView.h>

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/UIKit/Controls/UIActivityIndicatorView.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zr {

namespace {

/// Between two things that lie one upon the other in the box.
constexpr CGFloat kPadding = 4;

} // namespace

// Labels and indicator

void ZRProgressHUD::setupLabels() {
    m_label = make<UILabel>(&UILabel::initWithFrame, bounds());
    m_label->setAdjustsFontSizeToFitWidth(false);
    m_label->setTextAlignment(NSTextAlignmentCenter);
    m_label->setOpaque(false);
    m_label->setBackgroundColor(UIColor::clearColor());
    m_label->setTextColor(labelColor());
    m_label->setFont(labelFont());
    m_label->setText(labelText());
    addSubview(m_label);

    m_detailsLabel = make<UILabel>(&UILabel::initWithFrame, bounds());
    m_detailsLabel->setFont(detailsLabelFont());
    m_detailsLabel->setAdjustsFontSizeToFitWidth(false);
    m_detailsLabel->setTextAlignment(NSTextAlignmentCenter);
    m_detailsLabel->setOpaque(false);
    m_detailsLabel->setBackgroundColor(UIColor::clearColor());
    m_detailsLabel->setTextColor(detailsLabelColor());
    m_detailsLabel->setNumberOfLines(0);
    m_detailsLabel->setText(detailsLabelText());
    addSubview(m_detailsLabel);
}

void ZRProgressHUD::replaceIndicator(UIView* newIndicator) {
    if (const Ref<UIView> former = indicator())
        former->removeFromSuperview();
    setIndicator(newIndicator);
}

void ZRProgressHUD::updateIndicators() {
    const int wanted = mode();
    const Ref<UIView> present = indicator();
    switch (wanted) {
    case ZRProgressHUDModeSpinner: {
        auto spinner = dynamicCast<UIActivityIndicatorView>(present);
        if (!spinner) {
            spinner = make<UIActivityIndicatorView>(&UIActivityIndicatorView::initWithActivityIndicatorStyle,
                                                    UIActivityIndicatorViewStyleWhiteLarge);
            replaceIndicator(spinner);
            spinner->startAnimating();
            addSubview(spinner);
        }
        spinner->setColor(activityIndicatorColor());
        break;
    }
    case ZRProgressHUDModePie:
    case ZRProgressHUDModeRing: {
        auto round = dynamicCast<ZRRoundProgressView>(present);
        if (!round) {
            round = make<ZRRoundProgressView>();
            replaceIndicator(round);
            addSubview(round);
        }
        // Nobody makes a pie of a ring again.
        if (wanted == ZRProgressHUDModeRing)
            round->setAnnular(true);
        break;
    }
    case ZRProgressHUDModeBar: {
        // Always a fresh one, which starts at 0.
        const auto bar = make<ZRBarProgressView>();
        replaceIndicator(bar);
        addSubview(bar);
        break;
    }
    case ZRProgressHUDModeCustomView:
        if (const Ref<UIView> custom = customView(); custom != present) {
            replaceIndicator(custom);
            if (custom)
                addSubview(custom);
        }
        break;
    case ZRProgressHUDModeTextOnly:
        replaceIndicator(nullptr);
        break;
    default:
        break;
    }
}

// Layout

void ZRProgressHUD::layoutSubviews() {
    UIView::layoutSubviews();
    if (superview())
        setFrame(superview()->bounds());
    const CGSize room = bounds().size;
    const CGFloat margin = m_margin, maxWidth = room.width - 4 * margin;
    const Ref<UIView> shown = indicator();

    CGSize total;
    CGSize indicatorSize = shown ? shown->bounds().size : CGSizeZero;
    indicatorSize.width = std::min(indicatorSize.width, maxWidth);
    total.width = std::max(total.width, indicatorSize.width);
    total.height += indicatorSize.height;

    CGSize labelSize;
    if (m_label->text().length() > 0)
        labelSize = sizeWithFont(m_label->text(), m_label->font());
    labelSize.width = std::min(labelSize.width, maxWidth);
    total.width = std::max(total.width, labelSize.width);
    total.height += labelSize.height;
    if (labelSize.height > 0 && indicatorSize.height > 0)
        total.height += kPadding;

    CGSize detailsSize;
    const CGSize remaining{maxWidth, room.height - total.height - kPadding - 4 * margin};
    if (m_detailsLabel->text().length() > 0)
        detailsSize = sizeWithFont_constrainedToSize_lineBreakMode(m_detailsLabel->text(), m_detailsLabel->font(),
                                                                   remaining, m_detailsLabel->lineBreakMode());
    total.width = std::max(total.width, detailsSize.width);
    total.height += detailsSize.height;
    if (detailsSize.height > 0 && (indicatorSize.height > 0 || labelSize.height > 0))
        total.height += kPadding;

    total.width += 2 * margin;
    total.height += 2 * margin;

    const CGFloat xOffset = m_xOffset;
    CGFloat y = std::round((room.height - total.height) / 2) + margin + m_yOffset;
    const auto place = [&](CGSize size) {
        return CGRectMake(std::round((room.width - size.width) / 2) + xOffset, y, size.width, size.height);
    };
    if (shown)
        shown->setFrame(place(indicatorSize));
    y += indicatorSize.height;
    if (labelSize.height > 0 && indicatorSize.height > 0)
        y += kPadding;
    m_label->setFrame(place(labelSize));
    y += labelSize.height;
    if (detailsSize.height > 0 && (indicatorSize.height > 0 || labelSize.height > 0))
        y += kPadding;
    m_detailsLabel->setFrame(place(detailsSize));

    // The contents keep their places: the box grows around them.
    if (isSquare()) {
        const CGFloat side = std::max(total.width, total.height);
        if (side <= room.width - 2 * margin)
            total.width = side;
        if (side <= room.height - 2 * margin)
            total.height = side;
    }
    const CGSize least = minSize();
    m_size = CGSizeMake(std::max(total.width, least.width), std::max(total.height, least.height));
}

// Drawing

void ZRProgressHUD::drawRect(CGRect) {
    const CGContextRef context = UIGraphicsGetCurrentContext();
    UIGraphicsPushContext(context);
    if (dimBackground())
        drawDimming(context);

    if (const Ref<UIColor> fill = color())
        CGContextSetFillColorWithColor(context, fill->cgColor());
    else
        CGContextSetGrayFillColor(context, 0, opacity());

    const CGSize all = bounds().size, box = size();
    const CGRect rect = CGRectMake(std::round((all.width - box.width) / 2) + m_xOffset,
                                   std::round((all.height - box.height) / 2) + m_yOffset, box.width, box.height);
    const CGFloat radius = m_cornerRadius;
    const CGFloat left = CGRectGetMinX(rect), right = CGRectGetMaxX(rect);
    const CGFloat top = CGRectGetMinY(rect), bottom = CGRectGetMaxY(rect);
    constexpr float kHalfTurn = std::numbers::pi_v<float>;
    CGContextBeginPath(context);
    CGContextMoveToPoint(context, left + radius, top);
    CGContextAddArc(context, right - radius, top + radius, radius, 3 * kHalfTurn / 2, 0, 0);
    CGContextAddArc(context, right - radius, bottom - radius, radius, 0, kHalfTurn / 2, 0);
    CGContextAddArc(context, left + radius, bottom - radius, radius, kHalfTurn / 2, kHalfTurn, 0);
    CGContextAddArc(context, left + radius, top + radius, radius, kHalfTurn, 3 * kHalfTurn / 2, 0);
    CGContextClosePath(context);
    CGContextFillPath(context);
    UIGraphicsPopContext();
}

void ZRProgressHUD::drawDimming(CGContextRef context) const {
    const CGFloat locations[] = {0, 1};
    const CGFloat components[] = {0, 0, 0, 0, 0, 0, 0, 0.75};
    const Ref<CGGradient> gradient =
        CGGradientCreateWithColorComponents(CGColorSpaceCreateDeviceRGB(), components, locations, 2);
    const CGSize all = bounds().size;
    const CGPoint center = CGPointMake(all.width / 2, all.height / 2);
    const float radius = std::min(static_cast<float>(all.width), static_cast<float>(all.height));
    CGContextDrawRadialGradient(context, gradient, center, 0, center, radius, kCGGradientDrawsAfterEndLocation);
}

} // namespace zr
