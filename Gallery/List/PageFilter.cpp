#include <Gallery/List/PageFilter.h>

#include <algorithm>
#include <sstream>

namespace zr::gallery {

namespace {

/// Titles and names are English, so letters beyond ASCII may stay as they are.
std::string inSmallLetters(std::string_view text) {
    std::string small(text);
    for (char& c : small) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return small;
}

std::vector<std::string> wordsOf(std::string_view search) {
    std::istringstream stream(inSmallLetters(search));
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

bool matches(const Page& page, const std::vector<std::string>& words) {
    // A word found across the break would be found in neither.
    const std::string text = inSmallLetters(page.title) + "\n" + page.name;
    return std::ranges::all_of(words, [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

} // namespace

std::vector<FamilyPages> familiesMatching(std::string_view search) {
    const std::vector<std::string> words = wordsOf(search);
    std::vector<FamilyPages> families;
    for (const Page& page : allPages()) {
        if (!matches(page, words))
            continue;
        if (families.empty() || std::string_view(families.back().name) != page.family)
            families.push_back({page.family, {}});
        families.back().pages.push_back(&page);
    }
    return families;
}

} // namespace zr::gallery
