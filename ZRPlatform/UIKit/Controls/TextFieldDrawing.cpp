#include <ZRPlatform/CoreGraphics/CGPath.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldContent.h>
#include <ZRPlatform/UIKit/Controls/Internal/TextFieldEditing.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

constexpr CGFloat kCornerRadius = 5;
constexpr CGFloat kRoundedBorderGray = 0.8;
constexpr CGFloat kPlaceholderGray = 0.78;
constexpr CGFloat kPlaceholderAlpha = 1;
constexpr CGFloat kSelectionAlpha = 0.25;
constexpr CGFloat kDisabledAlpha = 0.5;
constexpr CGFloat kMarkDistance = 2; // of the line under marked text from the baseline
constexpr CGFloat kMarkHeight = 1;
constexpr CGFloat kClearDisc = 14;
constexpr CGFloat kClearCross = 5; // from arm to arm

void strokeRoundedRect(CGContextRef context, CGRect rect, CGFloat radius, CGPathDrawingMode mode) {
    const Ref<CGPath> path = CGPathCreateWithRoundedRect(rect, radius, radius, nullptr);
    CGContextAddPath(context, path);
    CGContextDrawPath(context, mode);
}

} // namespace

void UITextField::drawRect(CGRect) {
    CGContextRef context = UIGraphicsGetCurrentContext();
    if (!context || !CGRectIsFinite(bounds()))
        return;
    CGContextSaveGState(context);
    drawBorder(context);
    CGContextRestoreGState(context);
    CGContextSaveGState(context);
    if (m_model->text().length() == 0)
        drawPlaceholder(context);
    else
        drawText(context);
    CGContextRestoreGState(context);
    if (showsClearButton())
        drawClearButton(context);
}

void UITextField::drawBorder(CGContextRef context) const {
    const CGRect rect = borderRectForBounds(bounds());
    const CGFloat hairline = 1 / std::max<CGFloat>(contentScaleFactor(), 1);
    switch (m_borderStyle) {
    case UITextBorderStyleLine:
        CGContextSetGrayStrokeColor(context, 0, 1);
        CGContextStrokeRectWithWidth(context, CGRectInset(rect, 0.5, 0.5), 1);
        break;
    case UITextBorderStyleBezel:
        CGContextSetGrayStrokeColor(context, 0.75, 1);
        CGContextStrokeRectWithWidth(context, CGRectInset(rect, 0.5, 0.5), 1);
        CGContextSetGrayFillColor(context, 0.5, 1); // the shade under the upper edge
        CGContextFillRect(context, CGRectMake(rect.origin.x, rect.origin.y, rect.size.width, 1));
        break;
    case UITextBorderStyleRoundedRect:
        CGContextSetGrayFillColor(context, 1, isEnabled() ? 1 : kDisabledAlpha);
        CGContextSetGrayStrokeColor(context, kRoundedBorderGray, 1);
        CGContextSetLineWidth(context, hairline);
        strokeRoundedRect(context, CGRectInset(rect, hairline / 2, hairline / 2), kCornerRadius, kCGPathFillStroke);
        break;
    default:
        break;
    }
}

void UITextField::drawText(CGContextRef context) const {
    const TextFieldContent line = content();
    if (line.layout->lines().empty())
        return;
    const CGRect rect = visibleTextRect();
    const CGPoint origin = textOrigin(line);
    if (line.size().width > rect.size.width)
        CGContextClipToRect(context,
                            CGRectMake(rect.origin.x, bounds().origin.y, rect.size.width, bounds().size.height));
    const NSRange selected = m_model->selectedRange();
    if (m_editing && selected.length > 0) {
        tintColor()->colorWithAlphaComponent(kSelectionAlpha)->setFill();
        for (const CGRect& part : line.selectionRects(selected))
            CGContextFillRect(context, CGRectOffset(part, origin.x, origin.y));
    }
    m_textColor->setFill();
    if (!isEnabled())
        CGContextSetAlpha(context, kDisabledAlpha);
    line.layout->drawAtPoint(context, origin);
    const CGFloat baseline = std::round(origin.y + line.layout->lines().front().baseline);
    for (const CGRect& part : line.selectionRects(m_model->markedRange()))
        CGContextFillRect(context,
                          CGRectMake(origin.x + part.origin.x, baseline + kMarkDistance, part.size.width, kMarkHeight));
}

void UITextField::drawPlaceholder(CGContextRef context) const {
    const CGRect rect = placeholderRectForBounds(bounds());
    const CGFloat height = m_font->lineHeight();
    const CGFloat y = topOfLine(height, rect);
    CGContextSetGrayFillColor(context, kPlaceholderGray, kPlaceholderAlpha);
    drawInRect_withFont_lineBreakMode_alignment(m_placeholder, CGRectMake(rect.origin.x, y, rect.size.width, height),
                                                m_font, NSLineBreakByTruncatingTail, m_textAlignment);
}

void UITextField::drawClearButton(CGContextRef context) const {
    const CGRect rect = clearButtonRectForBounds(bounds());
    const CGPoint middle{CGRectGetMidX(rect), CGRectGetMidY(rect)};
    const CGFloat arm = kClearCross / 2;
    CGContextSaveGState(context);
    CGContextSetGrayFillColor(context, m_clearButtonPressed ? 0.45 : 0.7, 1);
    CGContextFillEllipseInRect(
        context, CGRectMake(middle.x - kClearDisc / 2, middle.y - kClearDisc / 2, kClearDisc, kClearDisc));
    CGContextSetGrayStrokeColor(context, 1, 1);
    CGContextSetLineWidth(context, 1);
    CGContextMoveToPoint(context, middle.x - arm, middle.y - arm);
    CGContextAddLineToPoint(context, middle.x + arm, middle.y + arm);
    CGContextMoveToPoint(context, middle.x + arm, middle.y - arm);
    CGContextAddLineToPoint(context, middle.x - arm, middle.y + arm);
    CGContextStrokePath(context);
    CGContextRestoreGState(context);
}

} // namespace zr
