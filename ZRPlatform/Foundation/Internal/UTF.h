#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>

namespace zr::detail {

/// `text` with every ill-formed sequence replaced by U+FFFD, one for each maximal subpart: the longest start of a
/// well-formed sequence, or else a single byte.
std::string wellFormedUTF8(std::string_view text);
/// The texts given to and taken from these are well-formed UTF-8.
/// @{
std::u16string utf16FromUTF8(std::string_view text);
std::size_t utf16Length(std::string_view text);
/// @}
/// Whether `index` is between the two halves of a surrogate pair.
bool isInsidePair(std::u16string_view text, std::size_t index);
/// A surrogate without its partner becomes U+FFFD.
std::string utf8FromUTF16(std::u16string_view text);

/// printf's output; empty when the arguments cannot be written.
std::string formatted(const char* format, std::va_list arguments);

} // namespace zr::detail
