#pragma once

#include <ZRPlatform/UIKit/Text/NSText.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#pragma GCC visibility push(default)
namespace zr {

/// Where the text goes when its font was shrunk: its baseline where that of the full size would be, its middle there,
/// or its top left corner there.
enum UIBaselineAdjustment : NSInteger {
    UIBaselineAdjustmentAlignBaselines = 0,
    UIBaselineAdjustmentAlignCenters = 1,
    UIBaselineAdjustmentNone = 2,
};

/// Text that is read only, in the middle of the bounds' height. It takes no touches and is not opaque unless told so.
/// Resizing draws it anew: its content mode is redraw.
class UILabel : public UIView {
public:
    UILabel();
    bool initWithFrame(CGRect frame) override;

    /// The text; nil, at first, shows nothing.
    const NSString& text() const { return m_text; }
    /// A text equal to the present one changes nothing.
    virtual void setText(const NSString& text);
    /// The system font of 17 points at first, and for nil.
    UIFont* font() const { return m_font; }
    virtual void setFont(UIFont* font);
    /// Black at first, and for nil.
    UIColor* textColor() const { return m_textColor; }
    virtual void setTextColor(UIColor* color);
    /// Left at first.
    NSTextAlignment textAlignment() const { return m_textAlignment; }
    virtual void setTextAlignment(NSTextAlignment alignment);
    /// Truncating the tail at first. With several lines, the last visible one is truncated.
    NSLineBreakMode lineBreakMode() const { return m_lineBreakMode; }
    virtual void setLineBreakMode(NSLineBreakMode mode);
    /// The most lines that are shown; 1 at first, 0 (or less) for as many as fit.
    NSInteger numberOfLines() const { return m_numberOfLines; }
    virtual void setNumberOfLines(NSInteger count);

    /// True at first. A disabled label's text is dimmed to half.
    bool isEnabled() const { return m_enabled; }
    virtual void setEnabled(bool enabled);
    /// Whether the text has the highlighted colour; false at first. The cell of a table sets it for its own.
    bool isHighlighted() const { return m_highlighted; }
    virtual void setHighlighted(bool highlighted);
    /// The text's colour while highlighted; nil, at first, for no difference.
    UIColor* highlightedTextColor() const { return m_highlightedTextColor; }
    virtual void setHighlightedTextColor(UIColor* color);
    /// The colour of the text's shadow; nil, at first, for none.
    UIColor* shadowColor() const { return m_shadowColor; }
    virtual void setShadowColor(UIColor* color);
    /// Where the shadow lies, in points to the right and down; (0, -1) at first: one point up.
    CGSize shadowOffset() const { return m_shadowOffset; }
    virtual void setShadowOffset(CGSize offset);

    /// @name Shrinking
    /// Only for labels of one line. The font is not made smaller than both limits allow; both are 0 at first.
    /// @{
    /// Whether a text that is too long shrinks before it is cut; false at first.
    bool adjustsFontSizeToFitWidth() const { return m_adjustsFontSizeToFitWidth; }
    virtual void setAdjustsFontSizeToFitWidth(bool adjusts);
    /// The smallest part of the font's size that it shrinks to, 0..1.
    CGFloat minimumScaleFactor() const { return m_minimumScaleFactor; }
    virtual void setMinimumScaleFactor(CGFloat factor);
    /// The smallest size that it shrinks to, in points.
    CGFloat minimumFontSize() const { return m_minimumFontSize; }
    virtual void setMinimumFontSize(CGFloat size);
    /// Where a text that was shrunk goes; baselines aligned at first.
    UIBaselineAdjustment baselineAdjustment() const { return m_baselineAdjustment; }
    virtual void setBaselineAdjustment(UIBaselineAdjustment adjustment);
    /// @}

    /// The size the text needs, in whole points. A label of one line needs its whole line, whatever the width given;
    /// one of several wraps within it. A width of 0 stands for `preferredMaxLayoutWidth`. The height given does not
    /// matter.
    CGSize sizeThatFits(CGSize size) const override;
    /// The width that `sizeThatFits` wraps within when it is given none, in points; 0, at first, is unlimited.
    CGFloat preferredMaxLayoutWidth() const { return m_preferredMaxLayoutWidth; }
    void setPreferredMaxLayoutWidth(CGFloat width) { m_preferredMaxLayoutWidth = width; }

    /// The room that the text takes of `bounds` with at most so many lines (0: no limit), at the top left of them. For
    /// overriding; `drawRect` does not ask for it.
    virtual CGRect textRectForBounds_limitedToNumberOfLines(CGRect bounds, NSInteger numberOfLines) const;
    /// Draws text and shadow into the current graphics context, in the middle of the height of `rect`. For overriding,
    /// with a smaller rectangle for insets. Nothing is drawn when the rectangle has no room or is not finite.
    virtual void drawTextInRect(CGRect rect);
    /// Draws with `drawTextInRect`, in all of the bounds.
    void drawRect(CGRect rect) override;

protected:
    const KeyTable& keyTable() const override;

private:
    Ref<UIFont> fontFittingWidth(CGFloat width) const;
    template <class T>
    void changeLook(T& field, const T& value);

    NSString m_text;
    Ref<UIFont> m_font;
    Ref<UIColor> m_textColor;
    Ref<UIColor> m_highlightedTextColor;
    Ref<UIColor> m_shadowColor;
    CGSize m_shadowOffset{0, -1};
    NSTextAlignment m_textAlignment = NSTextAlignmentLeft;
    NSLineBreakMode m_lineBreakMode = NSLineBreakByTruncatingTail;
    NSInteger m_numberOfLines = 1;
    CGFloat m_minimumScaleFactor = 0;
    CGFloat m_minimumFontSize = 0;
    CGFloat m_preferredMaxLayoutWidth = 0;
    UIBaselineAdjustment m_baselineAdjustment = UIBaselineAdjustmentAlignBaselines;
    bool m_enabled = true;
    bool m_highlighted = false;
    bool m_adjustsFontSizeToFitWidth = false;
};

} // namespace zr
#pragma GCC visibility pop
