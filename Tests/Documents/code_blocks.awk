# code_blocks.awk -v output=FILE DOCUMENT…: writes a C++ source of all the C++ blocks of these documents.
#
# A block stands at namespace scope, in a namespace that it shares with the blocks after it, up to the next block with a
# main function or the end of the document: a test goes with the application above it. An HTML comment right before a
# block puts it somewhere else:
#
#     <!-- in a function: UIView* view, NSString text -->    the body of a function with these parameters
#     <!-- in a class: UIViewController -->                  members of a class that is derived from that one
#
# A main function that starts an application is not called; a test launches the application without a screen instead.
# Any other main function is called. Touch scripts, in blocks called "touch-script", are parsed. What the compiler says
# names the line of the document.

function begin_document() {
    programs = 0
    marker = ""
    inside = 0
    title = FILENAME
    gsub(/[^A-Za-z0-9]+/, "_", title)
}

function place() { return title "_" programs }

# The code without its includes, which go to the top of the source.
function take_includes(code,    lines, count, i, rest) {
    count = split(code, lines, "\n")
    rest = ""
    for (i = 1; i < count; i++) {
        if (lines[i] ~ /^#include /) {
            if (!(lines[i] in included)) {
                included[lines[i]] = 1
                includes = includes lines[i] "\n"
            }
            rest = rest "\n"
        } else
            rest = rest lines[i] "\n"
    }
    return rest
}

function add(text) { body = body text "\n" }

function add_code(code) {
    add("#line " start " \"" FILENAME "\"")
    body = body code
    add("#line 1 \"after " FILENAME ":" start "\"")
}

# A test that runs the program of the block that was just added.
function add_run(code,    application) {
    add("TEST(Documents, " title "_line_" start ") {")
    if (match(code, /UIApplicationMain<[A-Za-z_0-9]+>/)) {
        application = substr(code, RSTART + 18, RLENGTH - 19)
        add("    zr::HeadlessHost host;")
        add("    const auto application = zr::make<" place() "::" application ">();")
        add("    ASSERT_TRUE(host.launch(application));")
        add("    host.advance(2);")
        add("    EXPECT_GT(host.framesComposed(), 0);")
    } else
        add("    EXPECT_EQ(" place() "::main(), 0);")
    add("}")
}

# What the comment says behind its colon.
function stated(    text) {
    text = substr(marker, index(marker, ":") + 1)
    sub(/^ /, "", text)
    return text
}

function add_cpp(code,    is_program) {
    is_program = code ~ /(^|\n)int main\(/
    if (is_program)
        programs++
    code = take_includes(code)
    add("namespace " place() " {")
    add("using namespace zr;")
    if (marker ~ /^in a function:/)
        add("void fragment_" start "(" stated() ") {")
    else if (marker ~ /^in a class:/)
        add("class Fragment_" start " : public " stated() " {\npublic:")
    add_code(code)
    if (marker ~ /^in a function:/)
        add("}")
    else if (marker ~ /^in a class:/)
        add("};")
    add("}")
    if (is_program)
        add_run(code)
    blocks++
}

function add_script(code) {
    add("TEST(Documents, " title "_line_" start ") {")
    add("    std::string error;")
    add("    EXPECT_TRUE(zr::TouchScript::parse(R\"script(" code ")script\", error)) << \"" FILENAME ":" start ": \" << error;")
    add("}")
    blocks++
}

FNR == 1 { begin_document() }

/^```/ {
    if (!inside) {
        language = substr($0, 4)
        start = FNR + 1
        code = ""
    } else if (language == "cpp")
        add_cpp(code)
    else if (language == "touch-script")
        add_script(code)
    if (inside)
        marker = ""
    inside = !inside
    next
}

inside {
    code = code $0 "\n"
    next
}

/^<!-- in a (function|class):.* -->$/ {
    marker = substr($0, 6, length($0) - 9)
    next
}

# A comment counts for the block right after it.
{ marker = "" }

END {
    if (!blocks) {
        print "the documents have no code" >"/dev/stderr"
        exit 1
    }
    print "#include <ZRKitDynamic/ZRKitDynamic.h>" >output
    print "#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>" >output
    print "#include <ZRPlatform/Hosts/Headless/TouchScript.h>" >output
    print "#include <ZRPlatform/UIKit/UIKit.h>" >output
    print "#include <gtest/gtest.h>" >output
    printf "%s%s", includes, body >output
}
