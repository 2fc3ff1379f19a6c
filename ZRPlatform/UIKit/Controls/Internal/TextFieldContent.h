#pragma once

#include <ZRPlatform/UIKit/Text/TextEngine.h>

namespace zr {

/// How a field's text looks on one line: as it is, or as bullets when it is secret. The layout's indices count what is
/// shown; the functions here take and give indices of the text itself.
struct TextFieldContent {
    /// A truncated one shows as much of the beginning as fits `width`, with an ellipsis; else the line is as long as it
    /// is.
    TextFieldContent(const NSString& text, bool secret, UIFont* font, CGFloat width, bool truncates);

    CGSize size() const { return layout->size(); }
    /// From the left end of the line.
    CGFloat caretX(NSUInteger index) const { return layout->caretRect(shown(index)).origin.x; }
    std::vector<CGRect> selectionRects(NSRange range) const;
    NSUInteger indexAtPoint(CGPoint point) const { return real(layout->indexAtPoint(point)); }
    NSRange wordAtPoint(CGPoint point) const;
    NSUInteger indexLeftOf(NSUInteger index) const { return real(layout->indexLeftOf(shown(index))); }
    NSUInteger indexRightOf(NSUInteger index) const { return real(layout->indexRightOf(shown(index))); }

    std::shared_ptr<const TextLayout> layout;

private:
    NSUInteger shown(NSUInteger index) const;
    NSUInteger real(NSUInteger index) const;

    /// Where each bullet's character begins, and the end; empty for text that is not secret.
    std::vector<NSUInteger> m_positions;
};

} // namespace zr
