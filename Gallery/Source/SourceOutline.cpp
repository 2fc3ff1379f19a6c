#include <Gallery/Source/SourceOutline.h>

#include <Gallery/Source/CodeText.h>

#include <algorithm>

namespace zr::gallery {

namespace {

bool isOpening(char c) { return c == '(' || c == '{' || c == '['; }
bool isClosing(char c) { return c == ')' || c == '}' || c == ']'; }

/// Behind the bracket that closes the one at `offset`; the end of the code when there is none.
std::size_t behindBrackets(std::string_view code, std::size_t offset) {
    int depth = 0;
    for (; offset < code.size(); ++offset) {
        if (isOpening(code[offset]))
            ++depth;
        else if (isClosing(code[offset]) && --depth == 0)
            return offset + 1;
    }
    return offset;
}

} // namespace

SourceOutline::SourceOutline(std::string_view text) : m_text(text), m_code(codeOnly(text)) {
    for (std::size_t start = 0; start < text.size();) {
        m_lineStarts.push_back(start);
        const std::size_t end = text.find('\n', start);
        start = end == std::string_view::npos ? text.size() : end + 1;
    }
    findDeclarations();
}

// Lines

std::size_t SourceOutline::lineAt(std::size_t offset) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(m_lineStarts, offset) - m_lineStarts.begin());
}

std::string_view SourceOutline::line(std::size_t number) const {
    const std::size_t start = m_lineStarts.at(number - 1);
    return m_text.substr(start, std::min(m_text.find('\n', start), m_text.size()) - start);
}

std::string_view SourceOutline::codeOfLine(std::size_t number) const {
    return std::string_view(m_code).substr(m_lineStarts.at(number - 1), line(number).size());
}

bool SourceOutline::isBlank(std::size_t number) const {
    return line(number).find_first_not_of(' ') == std::string_view::npos;
}

// Declarations

void SourceOutline::findDeclarations() {
    for (std::size_t number = 1; number <= lineCount(); ++number) {
        const std::string_view code = codeOfLine(number);
        const bool opensOrClosesNamespace = code.starts_with("namespace ") || code.starts_with("}");
        if (code.empty() || code.front() == ' ' || opensOrClosesNamespace)
            continue;
        const std::size_t start = m_lineStarts[number - 1];
        const std::size_t end = endOfDeclaration(start);
        const std::size_t last = lineAt(end - 1);
        m_declarations.push_back(
            {declaredName(std::string_view(m_code).substr(start, end - start)), {firstCommentLineAbove(number), last}});
        number = last;
    }
}

std::size_t SourceOutline::firstCommentLineAbove(std::size_t number) const {
    while (number > 1 && line(number - 1).starts_with("//"))
        --number;
    return number;
}

/// Behind the semicolon, or behind the body of a function.
std::size_t SourceOutline::endOfDeclaration(std::size_t start) const {
    std::size_t offset = start;
    while (offset < m_code.size()) {
        const char c = m_code[offset];
        if (c == ';')
            return offset + 1;
        if (!isOpening(c)) {
            ++offset;
            continue;
        }
        offset = behindBrackets(m_code, offset);
        const std::size_t next = m_code.find_first_not_of(" \n", offset);
        // Braces of an initialiser are followed by more of the same declaration.
        const bool goesOn =
            next != std::string::npos && std::string_view(";,{").find(m_code[next]) != std::string::npos;
        if (c == '{' && !goesOn)
            return offset;
    }
    return offset;
}

bool SourceOutline::declares(std::string_view name) const {
    return std::ranges::any_of(m_declarations, [&](const Declaration& each) { return each.name == name; });
}

std::optional<LineRange> SourceOutline::entryNamed(std::string_view name) const {
    const std::string element = "\"" + std::string(name) + "\",";
    for (std::size_t found = m_text.find(element); found != std::string_view::npos;
         found = m_text.find(element, found + 1)) {
        const std::size_t before = found == 0 ? std::string::npos : m_code.find_last_not_of(" \n", found - 1);
        if (before != std::string::npos && m_code[before] == '{')
            return LineRange{lineAt(before), lineAt(behindBrackets(m_code, before) - 1)};
    }
    return std::nullopt;
}

std::set<std::string> SourceOutline::identifiersIn(LineRange lines) const {
    std::set<std::string> all;
    for (std::size_t number = lines.first; number <= lines.last; ++number)
        all.merge(identifiersOf(codeOfLine(number)));
    return all;
}

} // namespace zr::gallery
