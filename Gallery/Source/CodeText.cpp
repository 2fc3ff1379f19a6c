#include <Gallery/Source/CodeText.h>

#include <cctype>
#include <vector>

namespace zr::gallery {

namespace {

bool isWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

/// Reads C++ from its beginning to its end, and copies only what is code.
class CodeReader {
public:
    explicit CodeReader(std::string_view text) : m_text(text) {}

    std::string read() {
        while (m_offset < m_text.size()) {
            const std::string_view rest = m_text.substr(m_offset);
            if (rest.starts_with("//") || (rest.front() == '#' && isAtLineStart()))
                blankUntil(m_text.find('\n', m_offset));
            else if (rest.starts_with("/*"))
                blankUntil(behind(m_text.find("*/", m_offset + 2), 2));
            else if (rest.front() == '"' || (rest.front() == '\'' && !isInNumber()))
                blankUntil(endOfQuotation());
            else
                m_code += m_text[m_offset++];
        }
        return m_code;
    }

private:
    static std::size_t behind(std::size_t found, std::size_t length) {
        return found == std::string_view::npos ? found : found + length;
    }
    bool isAtLineStart() const { return m_offset == 0 || m_text[m_offset - 1] == '\n'; }
    bool isInNumber() const { return m_offset > 0 && isWordCharacter(m_text[m_offset - 1]); }
    std::size_t endOfQuotation() const {
        const char mark = m_text[m_offset];
        std::size_t end = m_offset + 1;
        while (end < m_text.size() && m_text[end] != mark)
            end += m_text[end] == '\\' ? 2 : 1;
        return end + 1;
    }
    void blankUntil(std::size_t end) {
        for (; m_offset < m_text.size() && m_offset < end; ++m_offset)
            m_code += m_text[m_offset] == '\n' ? '\n' : ' ';
    }

    std::string_view m_text;
    std::size_t m_offset = 0;
    std::string m_code;
};

/// The words and signs of code, one after the other.
class Tokens {
public:
    explicit Tokens(std::string_view code) : m_code(code) {}

    /// Empty at the end. Two colons are one sign.
    std::string_view next() {
        m_offset = std::min(m_code.find_first_not_of(" \n", m_offset), m_code.size());
        std::size_t end = m_offset;
        while (end < m_code.size() && isWordCharacter(m_code[end]))
            ++end;
        if (end == m_offset)
            end += m_code.substr(m_offset).starts_with("::") ? 2 : m_offset < m_code.size();
        const std::string_view token = m_code.substr(m_offset, end - m_offset);
        m_offset = end;
        return token;
    }
    /// What a "<" that was just read opens.
    void skipAngles() {
        for (int depth = 1; depth > 0;) {
            const std::string_view token = next();
            if (token.empty())
                return;
            depth += token == "<" ? 1 : token == ">" ? -1 : 0;
        }
    }

private:
    std::string_view m_code;
    std::size_t m_offset = 0;
};

bool isWord(std::string_view token) { return !token.empty() && isWordCharacter(token.front()); }

bool isTypeKeyword(std::string_view token) {
    return token == "class" || token == "struct" || token == "enum" || token == "union";
}

} // namespace

std::string codeOnly(std::string_view text) { return CodeReader(text).read(); }

std::set<std::string> identifiersOf(std::string_view code) {
    std::set<std::string> all;
    Tokens tokens(code);
    for (std::string_view token = tokens.next(); !token.empty(); token = tokens.next()) {
        if (isWord(token) && !std::isdigit(static_cast<unsigned char>(token.front())))
            all.emplace(token);
    }
    return all;
}

std::string declaredName(std::string_view code) {
    Tokens tokens(code);
    bool isType = false;
    // The last name so far, part by part.
    std::vector<std::string_view> name;
    bool isQualified = false;
    for (std::string_view token = tokens.next(); !token.empty(); token = tokens.next()) {
        if (token == "<") {
            tokens.skipAngles();
        } else if (isTypeKeyword(token)) {
            isType = true;
        } else if (token == "::") {
            isQualified = true;
        } else if (isWord(token)) {
            if (!isQualified)
                name.clear();
            name.push_back(token);
            isQualified = false;
            if (isType)
                break;
        } else if (std::string_view("({[=;:").find(token) != std::string_view::npos) {
            break;
        }
    }
    if (name.empty())
        return "";
    return std::string(name.size() > 1 ? name[name.size() - 2] : name.back());
}

} // namespace zr::gallery
