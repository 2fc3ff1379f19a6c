#pragma once

#include <ZRPlatform/Foundation/NSString.h>

namespace zr {

/// The text of a field, what is selected in it, and what an input method is composing: the arithmetic of editing,
/// without anything that shows. Indices count UTF-16 code units and never fall within a character as the reader sees
/// it.
class TextFieldEditing {
public:
    const NSString& text() const { return m_text; }
    /// Line breaks are left out; nil becomes empty. The caret goes to the end.
    void setText(const NSString& text);
    static NSString withoutLineBreaks(const NSString& text);

    /// Where the caret is: the end of the selection that moves.
    NSUInteger caret() const { return m_caret; }
    NSRange selectedRange() const;
    /// Both are moved to the character's beginning when they fall within one.
    void select(NSUInteger anchor, NSUInteger caret);
    void moveCaret(NSUInteger caret, bool extendSelection) { select(extendSelection ? m_anchor : caret, caret); }
    /// Cut to the text and widened to whole characters.
    NSRange wholeCharacters(NSRange range) const;

    NSRange markedRange() const { return m_marked; }
    bool isComposing() const { return m_marked.length > 0; }
    /// What typing replaces: what is being composed, else the selection.
    NSRange replacedByTyping() const { return isComposing() ? m_marked : selectedRange(); }

    /// Ends composing. The caret goes behind the replacement.
    void replace(NSRange range, const NSString& replacement);
    /// `selected` lies within `text`. An empty text takes away what was being composed.
    void setMarkedText(const NSString& text, NSRange selected);
    /// What was being composed stays as text.
    void unmark() { m_marked = {}; }

    /// The next or previous character, or the edge of a word, in reading order.
    NSUInteger next(NSUInteger index, bool byWord) const;
    NSUInteger previous(NSUInteger index, bool byWord) const;

private:
    NSUInteger snapped(NSUInteger index) const;

    NSString m_text = "";
    NSUInteger m_anchor = 0;
    NSUInteger m_caret = 0;
    NSRange m_marked;
};

} // namespace zr
