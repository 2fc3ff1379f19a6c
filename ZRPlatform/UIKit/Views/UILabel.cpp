#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <algorithm>
#include <cmath>

namespace zr {

namespace {

/// Shrinking never goes below this, in points, whatever the limits.
constexpr CGFloat kSmallestFontSize = 1;
constexpr CGFloat kDisabledAlpha = 0.5;

TextRequest oneLineRequest(const NSString& text, UIFont* font, CGFloat width) {
    TextRequest request{text, font, width};
    request.lineLimit = 1;
    request.lineBreakMode = NSLineBreakByClipping;
    return request;
}

/// The baseline of the first line, from the top of a room of this height in which the layout is centred.
CGFloat centredBaseline(const TextLayout& layout, CGFloat height) {
    return (height - layout.size().height) / 2 + layout.lines().front().baseline;
}

/// Where a layout with a shrunk font goes in a room of this height, as an offset of its top; `full` is the layout with
/// the font as it was set.
CGFloat shrunkTop(const TextLayout& shrunk, const TextLayout& full, CGFloat height, UIBaselineAdjustment adjustment) {
    switch (adjustment) {
    case UIBaselineAdjustmentAlignBaselines:
        return centredBaseline(full, height) - shrunk.lines().front().baseline;
    case UIBaselineAdjustmentNone:
        return (height - full.size().height) / 2;
    default:
        return (height - shrunk.size().height) / 2;
    }
}

bool hasRoom(CGRect rect) { return CGRectIsFinite(rect) && rect.size.width > 0 && rect.size.height > 0; }

} // namespace

UILabel::UILabel() = default;

bool UILabel::initWithFrame(CGRect frame) {
    if (!UIView::initWithFrame(frame))
        return false;
    m_font = UIFont::systemFontOfSize(UIFont::labelFontSize());
    m_textColor = UIColor::blackColor();
    setContentMode(UIViewContentModeRedraw);
    setOpaque(false);
    setUserInteractionEnabled(false);
    return true;
}

template <class T>
void UILabel::changeLook(T& field, const T& value) {
    if (field == value)
        return;
    field = value;
    setNeedsDisplay();
}

void UILabel::setText(const NSString& text) {
    const bool changed = !(m_text == text);
    setObservable(m_text, text, "text");
    if (changed)
        setNeedsDisplay();
}

void UILabel::setFont(UIFont* font) {
    const Ref<UIFont> wanted = font ? Ref<UIFont>(font) : UIFont::systemFontOfSize(UIFont::labelFontSize());
    if (m_font && m_font->isEqual(wanted))
        return;
    m_font = wanted;
    setNeedsDisplay();
}

void UILabel::setTextColor(UIColor* color) {
    changeLook(m_textColor, Ref<UIColor>(color ? color : UIColor::blackColor()));
}

void UILabel::setHighlightedTextColor(UIColor* color) { changeLook(m_highlightedTextColor, Ref<UIColor>(color)); }
void UILabel::setShadowColor(UIColor* color) { changeLook(m_shadowColor, Ref<UIColor>(color)); }
void UILabel::setShadowOffset(CGSize offset) { changeLook(m_shadowOffset, offset); }
void UILabel::setTextAlignment(NSTextAlignment alignment) { changeLook(m_textAlignment, alignment); }
void UILabel::setLineBreakMode(NSLineBreakMode mode) { changeLook(m_lineBreakMode, mode); }
void UILabel::setNumberOfLines(NSInteger count) { changeLook(m_numberOfLines, std::max<NSInteger>(count, 0)); }
void UILabel::setEnabled(bool enabled) { changeLook(m_enabled, enabled); }
void UILabel::setHighlighted(bool highlighted) { changeLook(m_highlighted, highlighted); }
void UILabel::setAdjustsFontSizeToFitWidth(bool adjusts) { changeLook(m_adjustsFontSizeToFitWidth, adjusts); }
void UILabel::setMinimumScaleFactor(CGFloat factor) { changeLook(m_minimumScaleFactor, factor); }
void UILabel::setMinimumFontSize(CGFloat size) { changeLook(m_minimumFontSize, size); }
void UILabel::setBaselineAdjustment(UIBaselineAdjustment adjustment) { changeLook(m_baselineAdjustment, adjustment); }

CGSize UILabel::sizeThatFits(CGSize size) const {
    CGFloat width = size.width > 0 ? size.width : m_preferredMaxLayoutWidth;
    if (m_numberOfLines == 1 || !(width > 0))
        width = TextRequest::unlimited;
    const CGRect room = CGRectMake(0, 0, width, TextRequest::unlimited);
    return textRectForBounds_limitedToNumberOfLines(room, m_numberOfLines).size;
}

CGRect UILabel::textRectForBounds_limitedToNumberOfLines(CGRect bounds, NSInteger numberOfLines) const {
    TextRequest request{m_text, m_font, bounds.size.width, bounds.size.height};
    request.lineLimit = static_cast<NSUInteger>(std::max<NSInteger>(numberOfLines, 0));
    request.lineBreakMode = m_lineBreakMode;
    const auto layout = TextEngine::current().layout(request);
    if (layout->lines().empty())
        return {bounds.origin, CGSizeZero};
    return {bounds.origin,
            {std::min(std::ceil(layout->size().width), bounds.size.width),
             std::min(std::ceil(layout->size().height), bounds.size.height)}};
}

Ref<UIFont> UILabel::fontFittingWidth(CGFloat width) const {
    if (!m_adjustsFontSizeToFitWidth || m_numberOfLines != 1)
        return m_font;
    const CGFloat natural = TextEngine::current().layout(oneLineRequest(m_text, m_font, width))->size().width;
    if (natural <= width)
        return m_font;
    const CGFloat smallest =
        std::max({kSmallestFontSize, m_minimumFontSize, m_minimumScaleFactor * m_font->pointSize()});
    // Widths grow in proportion to the size. Rounded down to a quarter of a point, so that labels nearly as wide do not
    // each need glyphs of their own.
    const CGFloat fitting = std::floor(m_font->pointSize() * width / natural * 4) / 4;
    return m_font->fontWithSize(std::min(m_font->pointSize(), std::max(smallest, fitting)));
}

void UILabel::drawTextInRect(CGRect rect) {
    if (!hasRoom(rect))
        return;
    const Ref<UIFont> font = fontFittingWidth(rect.size.width);
    TextRequest request{m_text, font, rect.size.width, rect.size.height};
    request.lineLimit = static_cast<NSUInteger>(m_numberOfLines);
    request.lineBreakMode = m_lineBreakMode;
    request.alignment = m_textAlignment;
    const auto layout = TextEngine::current().layout(request);
    CGContextRef context = UIGraphicsGetCurrentContext();
    if (layout->lines().empty() || !context)
        return;
    CGPoint origin{rect.origin.x, rect.origin.y + (rect.size.height - layout->size().height) / 2};
    if (font->pointSize() < m_font->pointSize()) {
        const auto full = TextEngine::current().layout(oneLineRequest(m_text, m_font, rect.size.width));
        origin.y = rect.origin.y + shrunkTop(*layout, *full, rect.size.height, m_baselineAdjustment);
    }
    CGContextSaveGState(context);
    if (m_shadowColor) {
        m_shadowColor->setFill();
        layout->drawAtPoint(context, {origin.x + m_shadowOffset.width, origin.y + m_shadowOffset.height});
    }
    UIColor* color = m_highlighted && m_highlightedTextColor ? m_highlightedTextColor : m_textColor;
    color->setFill();
    if (!m_enabled)
        CGContextSetAlpha(context, kDisabledAlpha);
    layout->drawAtPoint(context, origin);
    CGContextRestoreGState(context);
}

void UILabel::drawRect(CGRect) { drawTextInRect(bounds()); }

const KeyTable& UILabel::keyTable() const {
    static const KeyTable table(
        UIView::keyTable(),
        {
            key<&UILabel::text, &UILabel::setText>("text"),
            key<&UILabel::font, &UILabel::setFont>("font"),
            key<&UILabel::textColor, &UILabel::setTextColor>("textColor"),
            key<&UILabel::textAlignment, &UILabel::setTextAlignment>("textAlignment"),
            key<&UILabel::lineBreakMode, &UILabel::setLineBreakMode>("lineBreakMode"),
            key<&UILabel::numberOfLines, &UILabel::setNumberOfLines>("numberOfLines"),
            key<&UILabel::isEnabled, &UILabel::setEnabled>("enabled"),
            key<&UILabel::isHighlighted, &UILabel::setHighlighted>("highlighted"),
            key<&UILabel::highlightedTextColor, &UILabel::setHighlightedTextColor>("highlightedTextColor"),
            key<&UILabel::shadowColor, &UILabel::setShadowColor>("shadowColor"),
            key<&UILabel::shadowOffset, &UILabel::setShadowOffset>("shadowOffset"),
            key<&UILabel::adjustsFontSizeToFitWidth, &UILabel::setAdjustsFontSizeToFitWidth>(
                "adjustsFontSizeToFitWidth"),
            key<&UILabel::minimumScaleFactor, &UILabel::setMinimumScaleFactor>("minimumScaleFactor"),
            key<&UILabel::minimumFontSize, &UILabel::setMinimumFontSize>("minimumFontSize"),
            key<&UILabel::baselineAdjustment, &UILabel::setBaselineAdjustment>("baselineAdjustment"),
            key<&UILabel::preferredMaxLayoutWidth, &UILabel::setPreferredMaxLayoutWidth>("preferredMaxLayoutWidth"),
        });
    return table;
}

} // namespace zr
