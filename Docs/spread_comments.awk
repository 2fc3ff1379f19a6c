# spread_comments.awk HEADER: prints the header for the API reference, with the comments that its reader takes as read.
#
# In the headers one comment speaks for all that stands below it, up to a blank line or the next comment; a property is
# explained at its getter or at its setter; what a group says in its heading holds for everything in it, and what is said
# of a structure for its fields. Doxygen takes a comment for one declaration only. Lines keep their numbers.

{ lines[NR] = $0 }

# What overrides takes over the words of what it overrides, which Doxygen sees to.
function is_override(number,    i) {
    for (i = number; i <= NR && lines[i] !~ /[;{]/; i++)
        if (lines[i] ~ / override/)
            return 1
    return lines[i] ~ / override/
}

# A comment's first paragraph, without the slashes; the lines from `first` to `last`.
function paragraph(first, last,    i, text, words) {
    words = ""
    for (i = first; i <= last; i++) {
        text = lines[i]
        sub(/^ *\/\/\/ ?/, "", text)
        if (text ~ /^@/)
            continue
        if (text == "" && words != "")
            break
        words = words (words == "" ? "" : " ") text
    }
    return words
}

# The name that a declaration gives to a function, or nothing.
function name_of(line,    text) {
    text = line
    sub(/^ *((virtual|static|inline|constexpr|explicit) )*/, "", text)
    if (!match(text, /[A-Za-z_~][A-Za-z_0-9]*\(/))
        return ""
    return substr(text, RSTART, RLENGTH - 1)
}

# The beginning or the end of a group.
function is_bracket(line) { return line ~ /^ *\/\/\/ *@[{}] *$/ }

# Several fields of one type: "CGFloat x = 0, y = 0;".
function is_row_of_fields(line) { return line ~ /^    [A-Za-z_:0-9]+ [a-z0-9]+( = [0-9]+)?, [a-z][^()]*;$/ }

# The same as one declaration each, each with the words.
function spread(line, words,    type, count, fields, i, result) {
    sub(/^ */, "", line)
    sub(/;$/, "", line)
    type = substr(line, 1, index(line, " "))
    count = split(substr(line, length(type) + 1), fields, ", ")
    result = "   "
    for (i = 1; i <= count; i++)
        result = result " /** " words " */ " type fields[i] ";"
    return result
}

# What a group is called, for one that says nothing else.
function title_of(line) {
    sub(/^ *\/\/\/ @name /, "", line)
    return line "."
}

function is_comment(line) { return line ~ /^ *\/\/\// }

function begins_declaration(number,    line) {
    line = lines[number]
    if (line !~ /^(    )?[A-Za-z~]/ || line ~ /^ *(friend|using|return|public|protected|private|requires|namespace)/)
        return 0
    if (line ~ /^(class|struct|enum|union|template|extern)/)
        return 0
    return lines[number - 1] !~ /^ *template </ && lines[number - 1] !~ /[,(]$/
}

function has_own_words(number) { return is_comment(lines[number - 1]) && !is_bracket(lines[number - 1]) }

function type_of(line,    text) {
    text = line
    sub(/^ *((virtual|static|inline|constexpr|explicit) )*/, "", text)
    return substr(text, 1, index(text, name_of(line)) - 1)
}

function first_word(name) {
    return match(name, /^[A-Za-z][a-z]*/) ? substr(name, 1, RLENGTH) : name
}

# Whether what is said of one declaration can be meant for another one below it: values of one type, or actions whose
# names begin alike.
function are_alike(line, other) {
    if (first_word(name_of(line)) == first_word(name_of(other)))
        return 1
    return type_of(line) == type_of(other) && type_of(line) !~ /^(void|bool) /
}

# The getter's name for a setter's, the setter's for a getter's.
function other_half(name,    rest) {
    if (name ~ /^set[A-Z]/) {
        rest = substr(name, 4)
        return tolower(substr(rest, 1, 1)) substr(rest, 2)
    }
    sub(/^is/, "", name)
    return "set" toupper(substr(name, 1, 1)) substr(name, 2)
}

# Remembers what is said of each name, class by class, and what each run and each group say.
function collect(    i, first, words, run, group, depth) {
    for (i = 1; i <= NR; i++) {
        if (lines[i] ~ /^(class|struct|enum|}|namespace)/) {
            class_words[++class_number] = lines[i] ~ /^struct/ ? run : ""
            run = ""
        }
        class_of[i] = class_number
        if (is_comment(lines[i])) {
            first = i
            while (!is_bracket(lines[i]) && is_comment(lines[i + 1]) && !is_bracket(lines[i + 1]))
                i++
            class_of[i] = class_number
            words = paragraph(first, i)
            run = words
            if (lines[first] ~ /\/\/\/ @name/) {
                group = words == "" ? title_of(lines[first]) : words
                run = ""
            } else if (lines[first] ~ /@}/)
                group = ""
            continue
        }
        if (lines[i] ~ /^ *$/ || lines[i] ~ /^}/ || lines[i] ~ /^[a-z]+:$/)
            run = ""
        if (lines[i] ~ /^}/)
            group = ""
        group_of[i] = group
        run_of[i] = run
        if (begins_declaration(i) && has_own_words(i))
            speaker = lines[i]
        else if (begins_declaration(i) && !are_alike(speaker, lines[i]))
            run_of[i] = ""
        if (begins_declaration(i) && has_own_words(i))
            said[class_number, name_of(lines[i])] = run
    }
}

function words_for(number,    name, words) {
    if (is_override(number))
        return ""
    name = name_of(lines[number])
    words = said[class_of[number], other_half(name)]
    if (words == "" && name ~ /^set[A-Z]/)
        words = said[class_of[number], "is" substr(name, 4)]
    if (words == "")
        words = run_of[number]
    if (words == "")
        words = group_of[number]
    return words == "" ? class_words[class_of[number]] : words
}

END {
    collect()
    for (i = 1; i <= NR; i++) {
        words = ""
        if (is_row_of_fields(lines[i]))
            lines[i] = spread(lines[i], has_own_words(i) ? run_of[i] : class_words[class_of[i]])
        else if (begins_declaration(i) && !has_own_words(i))
            words = words_for(i)
        if (lines[i] ~ /friend .* = default;/)
            words = "Part by part."
        else if (lines[i] ~ /^using [A-Za-z]+Ref = .*\*;/ && !has_own_words(i))
            words = "Borrowed; null is nil."
        else if (lines[i] ~ /^ *(friend |ZR_[A-Z_]+ )*std::ostream& operator<</)
            words = "For logs and tests."
        if (words != "")
            sub(/^ */, "&/** " escaped(words) " */ ", lines[i])
        # What follows a bracket would be taken for the group's.
        if (is_bracket(lines[i]))
            sub(/\/\/\/ *@[{}]/, lines[i] ~ /{/ ? "/** @{ */" : "/** @} */", lines[i])
        print lines[i]
    }
}

# For the replacement of sub().
function escaped(text) {
    gsub(/\\/, "\\\\\\\\", text)
    gsub(/&/, "\\\\&", text)
    return text
}
