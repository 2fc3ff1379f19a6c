#pragma once

#include <ZRPlatform/UIKit/Text/Internal/TextIndices.h>
#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <pango/pangocairo.h>

namespace zr {

/// A text layout made of Pango's lines. All but the last visible line of a truncated text come from one Pango layout;
/// that last line is laid out on its own, from where it begins.
class PangoTextLayout final : public TextLayout {
public:
    /// Without lines; the caret in it is `lineHeight` high.
    explicit PangoTextLayout(CGFloat lineHeight);
    /// The request has text, a font and room. The Pango mutex must be held.
    explicit PangoTextLayout(const TextRequest& request);
    PangoTextLayout(const PangoTextLayout&) = delete;
    PangoTextLayout& operator=(const PangoTextLayout&) = delete;
    ~PangoTextLayout() override;

    void drawAtPoint(CGContextRef context, CGPoint origin) const override;
    NSUInteger indexAtPoint(CGPoint point) const override;
    NSUInteger characterAtPoint(CGPoint point) const override;
    CGRect caretRect(NSUInteger index) const override;
    std::vector<CGRect> selectionRects(NSRange range) const override;
    NSUInteger nextIndex(NSUInteger index) const override;
    NSUInteger previousIndex(NSUInteger index) const override;
    NSUInteger indexLeftOf(NSUInteger index) const override;
    NSUInteger indexRightOf(NSUInteger index) const override;
    NSRange wordAtIndex(NSUInteger index) const override;

private:
    /// Where a line's bytes are: Pango counts them from the beginning of its own layout.
    struct PangoLine {
        PangoLayoutLine* line;
        std::size_t offset;
    };

    PangoLayout* makeLayout(const TextRequest& request, const std::string& text);
    PangoLayout* makeBrokenLayout(const TextRequest& request);
    void layOutLines(const TextRequest& request);
    void layOutLastLine(const TextRequest& request, std::size_t start);
    void addLine(const TextRequest& request, PangoLayoutLine* line, std::size_t offset);
    void removeLastLine();
    void placeLines(const TextRequest& request);
    std::size_t lineOfByte(std::size_t byte) const;
    std::size_t lineAtHeight(CGFloat y) const;
    /// The first byte of the character under the point, and how many bytes it has when its second half is meant.
    std::size_t byteAtPoint(CGPoint point, bool nearestEdge) const;
    NSUInteger moveVisually(NSUInteger index, int direction) const;

    TextIndices m_indices;
    CGFloat m_fontLineHeight = 0;
    PangoFont* m_font = nullptr;
    std::vector<PangoLayout*> m_layouts;
    std::vector<PangoLine> m_pangoLines;
};

} // namespace zr
