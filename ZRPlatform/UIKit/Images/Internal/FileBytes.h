#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zr {

/// The bytes of a file, or a part of them.
using FileBytes = std::span<const std::uint8_t>;

inline bool startsWith(FileBytes bytes, std::string_view text, std::size_t offset = 0) {
    return bytes.size() >= offset + text.size() &&
           std::equal(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

/// Four bytes from `offset`, which must be there.
inline std::uint32_t bigEndian32(FileBytes bytes, std::size_t offset) {
    return std::uint32_t{bytes[offset]} << 24 | std::uint32_t{bytes[offset + 1]} << 16 |
           std::uint32_t{bytes[offset + 2]} << 8 | bytes[offset + 3];
}

inline std::uint32_t littleEndian32(FileBytes bytes, std::size_t offset) {
    return std::uint32_t{bytes[offset + 3]} << 24 | std::uint32_t{bytes[offset + 2]} << 16 |
           std::uint32_t{bytes[offset + 1]} << 8 | bytes[offset];
}

} // namespace zr
