#pragma once

#include <span>
#include <string_view>

namespace zr::gallery {

/// A file of the gallery's own sources, as it was when the gallery was built.
struct SourceFile {
    /// From the project's root on.
    std::string_view path;
    std::string_view text;
};

/// Those that make the pages, without what all pages stand on. The build writes this function.
std::span<const SourceFile> pageSourceFiles();

} // namespace zr::gallery
