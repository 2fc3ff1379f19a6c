#include <Gallery/Source/PageSource.h>

#include <Gallery/Source/SourceFile.h>

#include <algorithm>
#include <set>
#include <utility>

namespace zr::gallery {

namespace {

struct OutlinedFile {
    std::string_view path;
    SourceOutline outline;

    bool isHeader() const { return path.ends_with(".h"); }
    std::string_view stem() const { return path.substr(0, path.rfind('.')); }
};

/// Read once, when the first source is asked for.
const std::vector<OutlinedFile>& outlinedFiles() {
    static const std::vector<OutlinedFile> all = [] {
        std::vector<OutlinedFile> files;
        for (const SourceFile& file : pageSourceFiles())
            files.push_back({file.path, SourceOutline(file.text)});
        return files;
    }();
    return all;
}

/// Lines of one file that are shown.
struct Excerpt {
    const OutlinedFile* file;
    std::vector<bool> isShown;
};

/// Follows the names that code uses to where they are declared.
class Collector {
public:
    void add(const OutlinedFile& file, LineRange lines) {
        std::vector<bool>& isShown = excerptOf(file).isShown;
        for (std::size_t line = lines.first; line <= lines.last; ++line)
            isShown[line] = true;
        for (const std::string& name : file.outline.identifiersIn(lines))
            follow(file, name);
    }
    const std::vector<Excerpt>& excerpts() const { return m_excerpts; }

private:
    Excerpt& excerptOf(const OutlinedFile& file) {
        const auto found = std::ranges::find(m_excerpts, &file, &Excerpt::file);
        if (found != m_excerpts.end())
            return *found;
        m_excerpts.push_back({&file, std::vector<bool>(file.outline.lineCount() + 1)});
        return m_excerpts.back();
    }

    /// To the file's own declaration, else to a header's and to what its source file defines of it.
    void follow(const OutlinedFile& user, const std::string& name) {
        if (user.outline.declares(name))
            return addDeclarations(user, name);
        for (const OutlinedFile& file : outlinedFiles()) {
            if (file.isHeader() && file.outline.declares(name))
                addDeclarations(file, name);
        }
    }

    void addDeclarations(const OutlinedFile& where, const std::string& name) {
        if (!m_followed.emplace(where.stem(), name).second)
            return;
        for (const OutlinedFile& file : outlinedFiles()) {
            if (file.stem() != where.stem())
                continue;
            for (const Declaration& declaration : file.outline.declarations()) {
                if (declaration.name == name)
                    add(file, declaration.lines);
            }
        }
    }

    std::vector<Excerpt> m_excerpts;
    std::set<std::pair<std::string_view, std::string>> m_followed;
};

SourceSection sectionOf(const OutlinedFile& file, LineRange lines) {
    SourceSection section{file.path, lines, {}};
    for (std::size_t line = lines.first; line <= lines.last; ++line)
        section.text.push_back(file.outline.line(line));
    return section;
}

bool areBlank(const SourceOutline& outline, std::size_t first, std::size_t end) {
    for (std::size_t line = first; line < end; ++line) {
        if (!outline.isBlank(line))
            return false;
    }
    return true;
}

/// What is shown of a file; blank lines do not part it.
std::vector<SourceSection> sectionsOf(const Excerpt& excerpt) {
    const SourceOutline& outline = excerpt.file->outline;
    std::vector<LineRange> ranges;
    for (std::size_t line = 1; line <= outline.lineCount(); ++line) {
        if (!excerpt.isShown[line])
            continue;
        if (!ranges.empty() && areBlank(outline, ranges.back().last + 1, line))
            ranges.back().last = line;
        else
            ranges.push_back({line, line});
    }
    std::vector<SourceSection> sections;
    for (const LineRange& range : ranges)
        sections.push_back(sectionOf(*excerpt.file, range));
    return sections;
}

} // namespace

std::vector<SourceSection> sourceOfPage(std::string_view name) {
    std::vector<SourceSection> sections;
    for (const OutlinedFile& file : outlinedFiles()) {
        const auto entry = file.outline.entryNamed(name);
        if (!entry)
            continue;
        Collector collector;
        collector.add(file, *entry);
        for (const Excerpt& excerpt : collector.excerpts()) {
            const auto more = sectionsOf(excerpt);
            sections.insert(sections.end(), more.begin(), more.end());
        }
        // The entry says what the page is made with, but stands at the end of its file.
        const auto first = std::ranges::find_if(sections, [&](const SourceSection& section) {
            return section.lines.first <= entry->first && entry->last <= section.lines.last;
        });
        std::rotate(sections.begin(), first, first + 1);
        break;
    }
    return sections;
}

} // namespace zr::gallery
