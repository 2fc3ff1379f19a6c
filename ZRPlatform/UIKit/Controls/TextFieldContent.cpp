#include <ZRPlatform/UIKit/Controls/Internal/TextFieldContent.h>

#include <algorithm>
#include <string>

namespace zr {

namespace {

constexpr const char* kBullet = "\xE2\x80\xA2";

NSString bullets(std::size_t count) {
    std::string text;
    for (; count > 0; --count)
        text += kBullet;
    return text;
}

} // namespace

TextFieldContent::TextFieldContent(const NSString& text, bool secret, UIFont* font, CGFloat width, bool truncates) {
    TextRequest request{text, font};
    if (secret && text.length() > 0) {
        m_positions = TextEngine::current().caretPositions(text);
        request.text = bullets(m_positions.size() - 1);
    }
    request.lineLimit = 1;
    request.lineBreakMode = truncates ? NSLineBreakByTruncatingTail : NSLineBreakByClipping;
    request.width = truncates ? width : TextRequest::unlimited;
    // Where the line goes is the field's business: here it begins at 0.
    request.alignment = NSTextAlignmentLeft;
    layout = TextEngine::current().layout(request);
}

std::vector<CGRect> TextFieldContent::selectionRects(NSRange range) const {
    const NSUInteger first = shown(range.location);
    return layout->selectionRects({first, shown(NSMaxRange(range)) - first});
}

NSRange TextFieldContent::wordAtPoint(CGPoint point) const {
    if (!m_positions.empty())
        return {0, m_positions.back()}; // where the words of a secret are is secret too
    return layout->wordAtIndex(layout->characterAtPoint(point));
}

NSUInteger TextFieldContent::shown(NSUInteger index) const {
    if (m_positions.empty())
        return index;
    const auto found = std::lower_bound(m_positions.begin(), m_positions.end(), index);
    return static_cast<NSUInteger>(found - m_positions.begin());
}

NSUInteger TextFieldContent::real(NSUInteger index) const {
    return m_positions.empty() ? index : m_positions[std::min(index, m_positions.size() - 1)];
}

} // namespace zr
