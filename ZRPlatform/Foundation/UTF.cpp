#include <ZRPlatform/Foundation/Internal/UTF.h>

#include <cstdint>
#include <cstdio>

namespace zr::detail {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr char32_t kReplacementScalar = 0xFFFD;

/// The well-formed sequences that begin with a byte: how long they are, and the range of the second byte, which is
/// where overlong forms, surrogates and numbers beyond U+10FFFF are kept out.
struct Lead {
    std::size_t length;
    std::uint8_t secondMinimum;
    std::uint8_t secondMaximum;
};

constexpr Lead leadOf(std::uint8_t byte) {
    if (byte < 0x80)
        return {1, 0, 0};
    if (byte < 0xC2)
        return {0, 0, 0};
    if (byte < 0xE0)
        return {2, 0x80, 0xBF};
    if (byte == 0xE0)
        return {3, 0xA0, 0xBF};
    if (byte == 0xED)
        return {3, 0x80, 0x9F};
    if (byte < 0xF0)
        return {3, 0x80, 0xBF};
    if (byte == 0xF0)
        return {4, 0x90, 0xBF};
    if (byte < 0xF4)
        return {4, 0x80, 0xBF};
    if (byte == 0xF4)
        return {4, 0x80, 0x8F};
    return {0, 0, 0};
}

/// The bytes at `start` that begin a well-formed sequence: all of it, or the part before it breaks off.
std::size_t matchingBytes(std::string_view text, std::size_t start, const Lead& lead) {
    std::size_t count = 1;
    while (count < lead.length && start + count < text.size()) {
        const auto byte = static_cast<std::uint8_t>(text[start + count]);
        const bool fits = count == 1 ? byte >= lead.secondMinimum && byte <= lead.secondMaximum : (byte & 0xC0) == 0x80;
        if (!fits)
            break;
        ++count;
    }
    return count;
}

void appendScalar(std::string& text, char32_t scalar) {
    const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (scalar < 0x80) {
        append(scalar);
        return;
    }
    if (scalar < 0x800) {
        append(0xC0 | scalar >> 6);
    } else {
        if (scalar < 0x10000) {
            append(0xE0 | scalar >> 12);
        } else {
            append(0xF0 | scalar >> 18);
            append(0x80 | (scalar >> 12 & 0x3F));
        }
        append(0x80 | (scalar >> 6 & 0x3F));
    }
    append(0x80 | (scalar & 0x3F));
}

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

} // namespace

std::string wellFormedUTF8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Lead lead = leadOf(static_cast<std::uint8_t>(text[i]));
        const std::size_t count = matchingBytes(text, i, lead);
        if (count == lead.length)
            result += text.substr(i, count);
        else
            result += kReplacement;
        i += count;
    }
    return result;
}

std::u16string utf16FromUTF8(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const auto byte = static_cast<std::uint8_t>(text[i]);
        const std::size_t length = leadOf(byte).length;
        char32_t scalar = length == 1 ? byte : byte & (0x7F >> length);
        for (std::size_t k = 1; k < length; ++k)
            scalar = scalar << 6 | (static_cast<std::uint8_t>(text[i + k]) & 0x3F);
        if (scalar < 0x10000) {
            result += static_cast<char16_t>(scalar);
        } else {
            result += static_cast<char16_t>(0xD7C0 + (scalar >> 10));
            result += static_cast<char16_t>(0xDC00 + (scalar & 0x3FF));
        }
        i += length;
    }
    return result;
}

std::size_t utf16Length(std::string_view text) {
    std::size_t length = 0;
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if ((byte & 0xC0) != 0x80)
            length += byte >= 0xF0 ? 2 : 1;
    }
    return length;
}

bool isInsidePair(std::u16string_view text, std::size_t index) {
    return index > 0 && index < text.size() && isHighSurrogate(text[index - 1]) && isLowSurrogate(text[index]);
}

std::string utf8FromUTF16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t scalar = text[i];
        if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            scalar = 0x10000 + ((scalar - 0xD800) << 10) + (text[i + 1] - 0xDC00u);
            ++i;
        } else if (isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
            scalar = kReplacementScalar;
        }
        appendScalar(result, scalar);
    }
    return result;
}

std::string formatted(const char* format, std::va_list arguments) {
    std::va_list copy;
    va_copy(copy, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (length <= 0)
        return {};
    std::string text(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

} // namespace zr::detail
