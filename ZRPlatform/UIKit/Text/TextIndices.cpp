#include <ZRPlatform/UIKit/Text/Internal/TextIndices.h>

#include <algorithm>

namespace zr {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::size_t bytesOfCharacter(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead < 0xE0)
        return 2;
    return lead < 0xF0 ? 3 : 4;
}

} // namespace

TextIndices::TextIndices(const std::string& text) {
    m_text.reserve(text.size());
    bool isASCII = true;
    for (const char byte : text) {
        isASCII = isASCII && static_cast<signed char>(byte) > 0;
        if (byte == '\0')
            m_text += kReplacement;
        else
            m_text += byte;
    }
    if (isASCII)
        return;
    m_unitOfByte.resize(m_text.size() + 1);
    for (std::size_t byte = 0; byte < m_text.size();) {
        const std::size_t count = bytesOfCharacter(static_cast<unsigned char>(m_text[byte]));
        for (std::size_t i = 0; i < count && byte + i < m_text.size(); ++i)
            m_unitOfByte[byte + i] = static_cast<std::uint32_t>(m_byteOfUnit.size());
        m_byteOfUnit.insert(m_byteOfUnit.end(), count == 4 ? 2 : 1, static_cast<std::uint32_t>(byte));
        byte += count;
    }
    m_unitOfByte[m_text.size()] = static_cast<std::uint32_t>(m_byteOfUnit.size());
    m_byteOfUnit.push_back(static_cast<std::uint32_t>(m_text.size()));
}

std::size_t TextIndices::byteAtUTF16(NSUInteger index) const {
    index = std::min(index, length());
    return m_byteOfUnit.empty() ? index : m_byteOfUnit[index];
}

NSUInteger TextIndices::utf16AtByte(std::size_t byte) const {
    byte = std::min(byte, m_text.size());
    return m_unitOfByte.empty() ? byte : m_unitOfByte[byte];
}

} // namespace zr
