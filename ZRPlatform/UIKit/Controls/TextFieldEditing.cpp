#include <ZRPlatform/UIKit/Controls/Internal/TextFieldEditing.h>

#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <algorithm>

namespace zr {

namespace {

bool isLineBreak(char16_t unit) {
    return (unit >= u'\n' && unit <= u'\r') || unit == u'\x85' || unit == u'\u2028' || unit == u'\u2029';
}

bool isWordSeparator(char16_t unit) {
    return unit <= u' ' || (unit < 0x80 && !std::isalnum(static_cast<unsigned char>(unit))) || unit == u'\u3000';
}

} // namespace

NSString TextFieldEditing::withoutLineBreaks(const NSString& text) {
    std::u16string units = text.utf16();
    if (std::erase_if(units, isLineBreak) == 0)
        return text.isNil() ? NSString("") : text;
    return NSString::stringWithUTF16(units);
}

void TextFieldEditing::setText(const NSString& text) {
    m_text = withoutLineBreaks(text);
    m_marked = {};
    m_anchor = m_caret = m_text.length();
}

NSRange TextFieldEditing::selectedRange() const {
    return {std::min(m_anchor, m_caret), std::max(m_anchor, m_caret) - std::min(m_anchor, m_caret)};
}

NSUInteger TextFieldEditing::snapped(NSUInteger index) const {
    if (index == 0 || index >= m_text.length())
        return std::min(index, m_text.length());
    const std::vector<NSUInteger> positions = TextEngine::current().caretPositions(m_text);
    return *std::prev(std::upper_bound(positions.begin(), positions.end(), index));
}

void TextFieldEditing::select(NSUInteger anchor, NSUInteger caret) {
    m_caret = snapped(caret);
    m_anchor = anchor == caret ? m_caret : snapped(anchor);
}

NSRange TextFieldEditing::wholeCharacters(NSRange range) const {
    const NSUInteger length = m_text.length();
    const NSUInteger location = std::min(range.location, length);
    const NSUInteger end = location + std::min(range.length, length - location);
    const NSUInteger first = snapped(location);
    NSUInteger last = snapped(end);
    if (last < end)
        last = next(last, false);
    return {first, last - first};
}

void TextFieldEditing::replace(NSRange range, const NSString& replacement) {
    m_text = m_text.stringByReplacingCharactersInRange_withString(range, replacement);
    m_marked = {};
    m_anchor = m_caret = std::min(range.location + replacement.length(), m_text.length());
}

void TextFieldEditing::setMarkedText(const NSString& text, NSRange selected) {
    const NSString composed = withoutLineBreaks(text);
    const NSUInteger location = replacedByTyping().location;
    replace(replacedByTyping(), composed);
    m_marked = {location, composed.length()};
    const NSUInteger first = std::min(selected.location, composed.length());
    const NSUInteger last = first + std::min(selected.length, composed.length() - first);
    m_anchor = location + first;
    m_caret = location + last;
}

NSUInteger TextFieldEditing::next(NSUInteger index, bool byWord) const {
    if (!byWord) {
        const std::vector<NSUInteger> positions = TextEngine::current().caretPositions(m_text);
        const auto found = std::upper_bound(positions.begin(), positions.end(), index);
        return found == positions.end() ? m_text.length() : *found;
    }
    const std::u16string units = m_text.utf16();
    while (index < units.size() && isWordSeparator(units[index]))
        ++index;
    while (index < units.size() && !isWordSeparator(units[index]))
        ++index;
    return snapped(index);
}

NSUInteger TextFieldEditing::previous(NSUInteger index, bool byWord) const {
    if (!byWord) {
        const std::vector<NSUInteger> positions = TextEngine::current().caretPositions(m_text);
        const auto found = std::lower_bound(positions.begin(), positions.end(), index);
        return found == positions.begin() ? 0 : *std::prev(found);
    }
    const std::u16string units = m_text.utf16();
    index = std::min<NSUInteger>(index, units.size());
    while (index > 0 && isWordSeparator(units[index - 1]))
        --index;
    while (index > 0 && !isWordSeparator(units[index - 1]))
        --index;
    return snapped(index);
}

} // namespace zr
