# spread_comments.awk HEADER: prints the header for the API reference, with the comments that its reader takes as read.
#
# Doxygen takes a comment for one declaration only. In the headers one comment also speaks for what says the same again:
# - the setter of a property whose getter it explains, or the other way round;
# - overloads, constants of one type and fields of one type that stand below it, no comment and no blank line between.
# Nothing else gets words that it does not have, not from what merely stands above it nor from the heading of its group:
# it has to be explained itself. What overrides has the words of what it overrides, which Doxygen sees to. Lines keep
# their numbers.

{ lines[NR] = $0 }

function is_override(number,    i) {
    for (i = number; i < NR && lines[i] !~ /[;{]/; i++)
        if (lines[i] ~ / override/)
            return 1
    return lines[i] ~ / override/
}

function is_comment(line) { return line ~ /^ *\/\/\// }

# The beginning or the end of a group.
function is_bracket(line) { return line ~ /^ *\/\/\/ *@[{}] *$/ }

function has_own_words(number) { return is_comment(lines[number - 1]) && !is_bracket(lines[number - 1]) }

# The first paragraph of the comment that ends at the line, without the slashes.
function paragraph(last,    first, i, text, words) {
    for (first = last; is_comment(lines[first - 1]) && !is_bracket(lines[first - 1]); first--)
        ;
    words = ""
    for (i = first; i <= last; i++) {
        text = lines[i]
        sub(/^ *\/\/\/ ?/, "", text)
        if (text == "" && words != "")
            break
        words = words (words == "" ? "" : " ") text
    }
    return words
}

# The declaration without what stands before its type and without the arguments of templates, which may look like calls.
function stripped(line) {
    sub(/^ *((virtual|static|inline|constexpr|explicit) )*/, "", line)
    while (sub(/<[^<>]*>/, "", line))
        ;
    return line
}

# The name that a declaration gives to a function, or nothing.
function function_name(line) {
    line = stripped(line)
    return match(line, /[A-Za-z_~][A-Za-z_0-9]*\(/) ? substr(line, RSTART, RLENGTH - 1) : ""
}

# The type of a field or of a constant, or nothing.
function value_type(line) {
    line = stripped(line)
    sub(/ *[={;].*/, "", line)
    return line ~ /\(/ || !sub(/[A-Za-z_0-9]+$/, "", line) ? "" : line
}

function begins_declaration(number,    line) {
    line = lines[number]
    if (line !~ /^(    )?[A-Za-z~]/ || line ~ /^ *(friend|using|return|public|protected|private|requires|namespace)/)
        return 0
    if (line ~ /^(class|struct|enum|union|template|extern)/ || line ~ / = (default|delete);/)
        return 0
    return lines[number - 1] !~ /^ *template </ && lines[number - 1] !~ /[,(]$/
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

# Whether what is said above one declaration is meant for another one below it: the same function, or the same kind of
# value.
function are_alike(line, other,    name) {
    name = function_name(line)
    if (name != "" || function_name(other) != "")
        return name == function_name(other)
    return value_type(line) != "" && value_type(line) == value_type(other)
}

# Remembers what is said of each function, class by class, and for each line what is said for it from above.
function collect(    i, words, speaker) {
    for (i = 1; i <= NR; i++) {
        if (lines[i] ~ /^(class|struct|enum|}|namespace)/)
            class_number++
        class_of[i] = class_number
        if (lines[i] ~ /^ *$/ || is_comment(lines[i]))
            speaker = ""
        if (!begins_declaration(i))
            continue
        if (has_own_words(i)) {
            speaker = lines[i]
            words = paragraph(i - 1)
            said[class_number, function_name(speaker)] = words
        } else if (speaker != "" && are_alike(speaker, lines[i]))
            from_above[i] = words
    }
}

function words_for(number,    name) {
    if (is_override(number))
        return ""
    name = function_name(lines[number])
    if (name == "" || from_above[number] != "")
        return from_above[number]
    if ((class_of[number], other_half(name)) in said)
        return said[class_of[number], other_half(name)]
    return name ~ /^set[A-Z]/ ? said[class_of[number], "is" substr(name, 4)] : ""
}

# Several fields of one type: "CGFloat x = 0, y = 0;".
function is_row_of_fields(line) { return line ~ /^    [A-Za-z_:0-9]+ [a-z0-9]+( = [0-9]+)?, [a-z][^()]*;$/ }

# The same as one declaration each. The first has the words already.
function spread(line, words,    type, count, fields, i, result) {
    sub(/^ */, "", line)
    sub(/;$/, "", line)
    type = substr(line, 1, index(line, " "))
    count = split(substr(line, length(type) + 1), fields, ", ")
    result = "    " type fields[1] ";"
    for (i = 2; i <= count; i++)
        result = result " /** " words " */ " type fields[i] ";"
    return result
}

# For the replacement of sub().
function escaped(text) {
    gsub(/\\/, "\\\\\\\\", text)
    gsub(/&/, "\\\\&", text)
    return text
}

END {
    collect()
    for (i = 1; i <= NR; i++) {
        words = ""
        if (is_row_of_fields(lines[i]) && has_own_words(i))
            lines[i] = spread(lines[i], paragraph(i - 1))
        else if (begins_declaration(i) && !has_own_words(i))
            words = words_for(i)
        if (lines[i] ~ /friend .* = default;/)
            words = "Whether all parts are equal."
        else if (lines[i] ~ /^using [A-Za-z]+Ref = .*\*;/ && !has_own_words(i))
            words = "A pointer that owns nothing; null is nil."
        else if (lines[i] ~ /^ *(friend |ZR_[A-Z_]+ )*std::ostream& operator<</)
            words = "Writes the value in words, for logs and tests."
        if (words != "")
            sub(/^ */, "&/** " escaped(words) " */ ", lines[i])
        # What follows a bracket would be taken for the group's.
        if (is_bracket(lines[i]))
            sub(/\/\/\/ *@[{}]/, lines[i] ~ /{/ ? "/** @{ */" : "/** @} */", lines[i])
        print lines[i]
    }
}
