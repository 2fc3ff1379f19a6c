#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Text/NSText.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// A font of a family, without a size.
struct FontFace {
    /// For example "Inter".
    NSString family;
    /// 100 (thin) to 900 (black).
    int weight = 400;
    /// Whether its letters are slanted.
    bool italic = false;
    friend bool operator==(const FontFace&, const FontFace&) = default;
};

/// Of a font of one point; the descender is negative.
struct FontMetrics {
    /// For example "Inter-Bold".
    NSString fontName;
    /// How far the font's line reaches above the baseline.
    CGFloat ascender = 0;
    /// How far it reaches below the baseline; negative.
    CGFloat descender = 0;
    /// How high capitals are.
    CGFloat capHeight = 0;
    /// How high small letters are, an x for example.
    CGFloat xHeight = 0;
};

/// What to lay out and in which room.
struct TextRequest {
    /// For a width or a height: as much as the text takes.
    static constexpr CGFloat unlimited = std::numeric_limits<CGFloat>::infinity();
    /// In bytes. A line that is longer is wider than any screen; in a limited width no more of it is laid out.
    static constexpr std::size_t longestLine = 16 * 1024;

    /// Nil and empty have no lines.
    NSString text;
    /// Nil has no lines.
    Ref<UIFont> font;
    /// Points. Lines are aligned in the width, or, when it is unlimited, in that of the widest line.
    CGFloat width = unlimited;
    /// Points. Only lines that lie whole within the height are laid out, but the first line always is.
    CGFloat height = unlimited;
    /// 0 is unlimited.
    NSUInteger lineLimit = 0;
    /// What happens to lines that are too wide.
    NSLineBreakMode lineBreakMode = NSLineBreakByWordWrapping;
    /// Where the lines lie in the width.
    NSTextAlignment alignment = NSTextAlignmentNatural;
};

/// One line of a layout. Points, from the layout's top left corner.
struct TextLine {
    /// UTF-16 code units of the text, without a line break. What an ellipsis stands for is included.
    NSRange range;
    /// Its left end.
    CGFloat x = 0;
    /// What its letters stand on, downwards from the layout's top.
    CGFloat baseline = 0;
    /// From its left end to its right one.
    CGFloat width = 0;
    /// How far it reaches above the baseline: as far as its font does, or more where the glyphs of another font that
    /// had to step in are taller.
    CGFloat ascent = 0;
    /// How far it reaches below the baseline, likewise; positive.
    CGFloat descent = 0;

    /// Its upper edge: the baseline less the ascent.
    CGFloat top() const { return baseline - ascent; }
    /// Its lower edge: the baseline and the descent.
    CGFloat bottom() const { return baseline + descent; }
    friend bool operator==(const TextLine&, const TextLine&) = default;
};

/// A text broken into lines and placed. Immutable; may be used on any thread.
///
/// Indices count UTF-16 code units of the text; those beyond its end mean its end.
class TextLayout {
public:
    virtual ~TextLayout() = default;

    /// The widest line's width and the sum of the lines' heights, not rounded. May be wider than the room where the
    /// text is clipped; what lies kilobytes beyond the room's edge is then not counted.
    CGSize size() const { return m_size; }
    /// From top to bottom.
    const std::vector<TextLine>& lines() const { return m_lines; }
    /// Whether part of the text is not shown, or is clipped.
    bool isTruncated() const { return m_truncated; }

    /// Draws with the context's fill colour (colour glyphs keep theirs), the layout's top left corner at `origin`.
    /// Baselines are put on whole pixels.
    virtual void drawAtPoint(CGContextRef context, CGPoint origin) const = 0;

    /// @name Places in the text
    /// A caret position lies between two characters as the reader sees them: never within an accented letter or a
    /// composed emoji. These are for layouts that are not truncated.
    /// @{
    /// The caret position nearest to the point.
    virtual NSUInteger indexAtPoint(CGPoint point) const = 0;
    /// The character under the point, or the one nearest to it: what a double tap is meant for.
    virtual NSUInteger characterAtPoint(CGPoint point) const = 0;
    /// Where the caret stands before the character at `index`: no width, the line's height.
    virtual CGRect caretRect(NSUInteger index) const = 0;
    /// One rectangle or more for every line that the range touches; more where the text changes its direction.
    virtual std::vector<CGRect> selectionRects(NSRange range) const = 0;
    /// The next caret position in reading order; at the end, the end.
    virtual NSUInteger nextIndex(NSUInteger index) const = 0;
    /// The caret position before it; at the beginning, the beginning.
    virtual NSUInteger previousIndex(NSUInteger index) const = 0;
    /// The caret position to the left, as the eye sees it.
    virtual NSUInteger indexLeftOf(NSUInteger index) const = 0;
    /// The caret position to the right, as the eye sees it.
    virtual NSUInteger indexRightOf(NSUInteger index) const = 0;
    /// The word at `index`; between words, what stands there: one character, or a run of white space.
    virtual NSRange wordAtIndex(NSUInteger index) const = 0;
    /// @}

protected:
    /// What `size` gives, filled by the engine.
    CGSize m_size;
    /// What `lines` gives, filled by the engine.
    std::vector<TextLine> m_lines;
    /// What `isTruncated` gives, filled by the engine.
    bool m_truncated = false;
};

/// Measures, breaks and draws text. The platform brings one; a host that has its own (a browser) may put it in its
/// place before anything is drawn. All of it may be called on any thread.
class TextEngine {
public:
    virtual ~TextEngine() = default;

    /// The engine in use; the platform's own unless another was set.
    static TextEngine& current();
    /// Puts an engine in its place; not kept. Null brings the platform's own back.
    static void setCurrent(TextEngine* engine);

    /// The measures of the font at a size of one point.
    virtual FontMetrics metrics(const FontFace& face) = 0;
    /// The font of a name; nothing when there is none. See `UIFont::fontWithName_size`.
    virtual std::optional<FontFace> faceNamed(const NSString& name) = 0;
    /// Never null. There are no lines when the text is nil or empty, the font nil or of size 0, or the room not above
    /// 0. Layouts asked for again soon are remembered.
    virtual std::shared_ptr<const TextLayout> layout(const TextRequest& request) = 0;
    /// Every caret position of the text, 0 and its length included.
    virtual std::vector<NSUInteger> caretPositions(const NSString& text) = 0;
};

} // namespace zr
#pragma GCC visibility pop
