#pragma once

#include <Gallery/Source/SourceOutline.h>

#include <string_view>
#include <vector>

namespace zr::gallery {

/// Lines that follow one another in a file.
struct SourceSection {
    /// From the project's root on.
    std::string_view path;
    LineRange lines;
    /// One element a line.
    std::vector<std::string_view> text;
};

/// The code that makes the page of this name: first its entry among the pages, then whatever of the pages' own files
/// that entry uses, and so on, file by file. Empty when there is no such entry.
std::vector<SourceSection> sourceOfPage(std::string_view name);

} // namespace zr::gallery
