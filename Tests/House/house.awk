# The rules of the house, one message a breach:
#   - a file includes its own floor and those below; includes are written from the top, in angle brackets
#   - a third-party library is included in its own folder only, and named in no kit file and no public header
#   - the kit includes ZRPlatform/, ZRKitDynamic/ and the standard library
#   - an internal header is included by no public header, and by nothing outside its library
#   - a public header has namespace zr in a region of default visibility, but for declarations marked as not exported
#   - a public header declares classes before it names them, as that decides whether they are exported
#   - a header has #pragma once, a file at most 600 lines
# Internal is a header in a folder Internal/ or called *Internal.h, and CairoAccess.h; zr_shared_library in
# ZRPlatform/CMakeLists.txt agrees.

function breach(message) {
    print FILENAME ":" FNR ": " message
    breaches++
}

function floor_of(path) {
    sub(/^Tests\//, "", path)
    if (path ~ /^ZRPlatform\/(Foundation|Dispatch)\//) return 1
    if (path ~ /^ZRPlatform\/CoreGraphics\//) return 2
    if (path ~ /^ZRPlatform\/(QuartzCore|Accelerate)\//) return 3
    if (path ~ /^ZRPlatform\/CoreImage\//) return 4
    if (path ~ /^ZRPlatform\/(UIKit|Hosts)\//) return 5
    if (path ~ /^ZRPlatform\/[^\/]*\.h$/) return 5
    if (path ~ /^ZRKitDynamic\//) return 6
    if (path ~ /^ZRPlatform\//) return 0
    return 7
}

function library_of(path) {
    sub(/\/.*/, "", path)
    return path
}

function is_internal(path) {
    return path ~ /\/Internal\// || path ~ /Internal\.h$/ || path ~ /\/CairoAccess\.h$/
}

function is_standard(name) {
    return name ~ /^[a-z0-9_]+$/
}

function is_system(name) {
    return name ~ /^(sys|linux)\/[a-z_]+\.h$/ || name ~ /^(unistd|pthread|dlfcn|fcntl|poll|signal|time|cxxabi|execinfo)\.h$/
}

# The folders a third-party header may be included in; empty when the library is not one of ours.
function folders_of(name) {
    if (name ~ /^cairo/) return "^ZRPlatform/(CoreGraphics|UIKit/Text)/"
    if (name ~ /^(pango\/|fontconfig\/|harfbuzz\/|hb|ft2build)/) return "^ZRPlatform/UIKit/Text/"
    if (name ~ /^pixman/) return "^ZRPlatform/(QuartzCore/Composition|UIKit/Text)/"
    if (name ~ /^hwy\//) return "^ZRPlatform/Accelerate/"
    if (name ~ /^SDL/) return "^ZRPlatform/Hosts/Window/"
    if (name ~ /^gdk-pixbuf\//) return "^ZRPlatform/UIKit/Images/"
    if (name ~ /^(glib|gio|gobject|gmodule)/) return "^ZRPlatform/(Dispatch|UIKit/Text|UIKit/Images)/"
    if (name ~ /^webp\//) return "^ZRPlatform/Hosts/"
    if (name ~ /^nlohmann\//) return "^ZRPlatform/Hosts/"
    if (name ~ /^CLI\//) return "^Gallery/"
    return ""
}

function check_ours(name) {
    if (floor_of(name) == 0)
        breach(name " is on no floor")
    else if (floor_of(name) > floor)
        breach(name " is on a floor above")
    if (is_internal(name) && is_public)
        breach("public header includes the internal " name)
    if (is_internal(name) && floor < 7 && library_of(name) != library_of(path_tested))
        breach(name " is internal to " library_of(name))
    if (FILENAME ~ /^ZRPlatform\/UIKit\// && name ~ /^ZRPlatform\/Hosts\/.*\//)
        breach("UIKit knows hosts through their interface only, not " name)
}

function check_foreign(name,    folders) {
    if (is_standard(name))
        return
    # Tests and benchmarks may check against any library.
    if (FILENAME ~ /^(Tests|Benchmarks)\//)
        return
    if (FILENAME ~ /^ZRKitDynamic\//) {
        breach("the kit includes ZRPlatform/, ZRKitDynamic/ and the standard library, not " name)
        return
    }
    if (is_public)
        breach("public header includes " name)
    if (is_system(name))
        return
    folders = folders_of(name)
    if (folders == "")
        breach(name " is none of our libraries")
    else if (FILENAME !~ folders)
        breach(name " belongs in " folders)
}

function check_end_of_file() {
    if (previous ~ /\.h$/ && !has_pragma) {
        print previous ": header lacks #pragma once"
        breaches++
    }
    if (exports) {
        print previous ": lacks #pragma GCC visibility pop"
        breaches++
    }
    if (lines > 600) {
        print previous ": " lines " lines, more than 600"
        breaches++
    }
}

FNR == 1 {
    if (previous != "")
        check_end_of_file()
    previous = FILENAME
    has_pragma = 0
    exports = 0
    path_tested = FILENAME
    sub(/^Tests\//, "", path_tested)
    floor = floor_of(FILENAME)
    is_public = FILENAME ~ /^ZR.*\.h$/ && !is_internal(FILENAME)
    if (floor == 0)
        breach("on no floor")
}

{ lines = FNR }

/^#pragma once/ { has_pragma = 1 }

/^#pragma GCC visibility/ {
    exports = /push\(default\)/
    if (exports && !is_public)
        breach("public headers alone say what is exported")
}

is_public && /^namespace zr/ && !exports && !/\{ \/\/ not exported$/ {
    breach("public header does not export what it declares")
}

/^[ \t]*#[ \t]*include/ {
    if ($0 !~ /<[^>]*>/) {
        breach("includes are written from the top, in angle brackets")
        next
    }
    name = $0
    sub(/^[^<]*</, "", name)
    sub(/>.*$/, "", name)
    if (name ~ /^(ZRPlatform|ZRKitDynamic|Gallery|Tests|Benchmarks)\//)
        check_ours(name)
    else
        check_foreign(name)
    next
}

is_public && !/^[ \t]*(template|\/\/)/ && /[<(,][ \t]*(const )?(class|struct) [A-Z][A-Za-z0-9]*[ >*&]/ {
    breach("public header names a class that it has not declared")
}

is_public || FILENAME ~ /^ZRKitDynamic\// {
    code = " " $0
    sub(/\/\/.*/, "", code)
    if (code ~ /[^A-Za-z0-9_](cairo_|pango_|Pango[A-Z]|SDL_|pixman_|gdk_pixbuf_|GdkPixbuf|g_object_|GObject|GThread|GMain|Fc[A-Z]|hwy::|WebP[A-Z]|nlohmann)/)
        breach("names a third-party library")
}

END {
    if (previous != "")
        check_end_of_file()
    exit breaches > 0
}
