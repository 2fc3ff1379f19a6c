#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zr {

/// A text as the text engine reads it, and the way between its bytes and the UTF-16 code units that callers count.
class TextIndices {
public:
    /// `text` is well-formed UTF-8. Zero bytes, which end a text for Pango, become U+FFFD.
    explicit TextIndices(const std::string& text);

    const std::string& text() const { return m_text; }
    /// In UTF-16 code units.
    NSUInteger length() const { return m_byteOfUnit.empty() ? m_text.size() : m_byteOfUnit.size() - 1; }
    /// Beyond the end is the end; within a surrogate pair is its beginning.
    std::size_t byteAtUTF16(NSUInteger index) const;
    /// `byte` is where a character begins; beyond the end is the end.
    NSUInteger utf16AtByte(std::size_t byte) const;

private:
    std::string m_text;
    /// Both empty for plain ASCII, where the two ways of counting agree.
    std::vector<std::uint32_t> m_byteOfUnit;
    std::vector<std::uint32_t> m_unitOfByte;
};

} // namespace zr
