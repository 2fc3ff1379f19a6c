#pragma once

#include <Gallery/Pages/Page.h>

#include <string_view>
#include <vector>

namespace zr::gallery {

/// A section of the list.
struct FamilyPages {
    const char* name;
    std::vector<const Page*> pages;
};

/// The pages, by family and in their order, whose title and name together contain every word of `search`, whatever its
/// capitals. A family without such a page is left out; a search without words finds all.
std::vector<FamilyPages> familiesMatching(std::string_view search);

} // namespace zr::gallery
