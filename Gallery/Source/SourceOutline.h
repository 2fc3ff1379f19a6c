#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zr::gallery {

/// Lines of a file, counted from 1, the last one included.
struct LineRange {
    std::size_t first = 0;
    std::size_t last = 0;
    friend bool operator==(const LineRange&, const LineRange&) = default;
};

/// Something that a file declares outside of every function and class, along with the comment on it.
struct Declaration {
    /// That of the class for a member that is defined outside of it.
    std::string name;
    LineRange lines;
};

/// What stands where in a C++ file that is written in the project's own style: a declaration begins at the left edge,
/// and nothing else does but comments, directives, and the beginnings and ends of namespaces.
class SourceOutline {
public:
    /// `text`: outlives the outline.
    explicit SourceOutline(std::string_view text);

    const std::vector<Declaration>& declarations() const { return m_declarations; }
    bool declares(std::string_view name) const;
    /// The braces whose first element is `"name"`; nothing when there are none.
    std::optional<LineRange> entryNamed(std::string_view name) const;
    /// All identifiers in these lines.
    std::set<std::string> identifiersIn(LineRange lines) const;

    std::size_t lineCount() const { return m_lineStarts.size(); }
    /// Without its line feed.
    std::string_view line(std::size_t number) const;
    bool isBlank(std::size_t number) const;

private:
    std::string_view codeOfLine(std::size_t number) const;
    std::size_t lineAt(std::size_t offset) const;
    void findDeclarations();
    std::size_t firstCommentLineAbove(std::size_t number) const;
    std::size_t endOfDeclaration(std::size_t start) const;

    std::string_view m_text;
    /// The text with blanks for comments, directives and what quotation marks hold.
    std::string m_code;
    std::vector<std::size_t> m_lineStarts;
    std::vector<Declaration> m_declarations;
};

} // namespace zr::gallery
