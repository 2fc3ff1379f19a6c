#!/usr/bin/env bash
# house_test.sh FOLDER: in a tree of FOLDER, keeps every rule once and breaks every rule once, and expects house.sh to
# find no more and no less.
set -euo pipefail
house=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/house.sh
tree=$1
failures=0

fresh_tree() {
    rm -rf "$tree"
    mkdir -p "$tree"
}

source_file() { # PATH LINE…
    mkdir -p "$tree/$(dirname "$1")"
    printf '%s\n' "${@:2}" >"$tree/$1"
}

report() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

broken() { # MESSAGE PATH LINE…
    local message=$1 output
    fresh_tree
    shift
    source_file "$@"
    if output=$(bash "$house" "$tree"); then
        report "not found: $message"
    elif [[ $output != "$1:"*"$message"* || $(wc -l <<<"$output") != 1 ]]; then
        report "expected \"$message\" in $1, found \"$output\""
    fi
}

fresh_tree
source_file ZRPlatform/Foundation/A.h '#pragma once' '#include <vector>' '#include <ZRPlatform/Dispatch/B.h>'
source_file ZRPlatform/Foundation/E.h '#pragma once' 'namespace zr { // not exported' 'class I;' '}' \
    '#pragma GCC visibility push(default)' 'namespace zr {' 'class E;' '}' '#pragma GCC visibility pop'
source_file ZRPlatform/Foundation/Internal/I.h '#pragma once' 'namespace zr {' 'class I {};' '}'
source_file ZRPlatform/CoreGraphics/CairoAccess.h '#pragma once' '#include <cairo.h>' 'cairo_t* cairo();'
source_file ZRPlatform/UIKit/Text/Internal/Layout.h '#pragma once' '#include <pango/pangocairo.h>'
source_file ZRPlatform/UIKit/Text/T.cpp '#include <ZRPlatform/CoreGraphics/CairoAccess.h>' 'PangoLayout* layout();'
source_file ZRPlatform/UIKit/Views/V.cpp '#include <ZRPlatform/Hosts/Host.h>' '#include <unistd.h>'
source_file ZRPlatform/Hosts/Window/W.cpp '#include <SDL2/SDL.h>' '#include <ZRPlatform/UIKit/UIKit.h>'
source_file ZRKitDynamic/ZRView/K.h '#pragma once' '#include <ZRPlatform/UIKit/UIKit.h>' '// not cairo_t'
source_file Gallery/G.cpp '#include <CLI/CLI.hpp>' '#include <ZRKitDynamic/ZRView/K.h>'
source_file Tests/ZRPlatform/UIKit/U.cpp '#include <gtest/gtest.h>' '#include <ZRPlatform/UIKit/Text/Internal/Layout.h>'
if ! output=$(bash "$house" "$tree"); then
    report "found in a tree without a breach: $output"
fi

once='#pragma once'
broken "is on a floor above" ZRPlatform/Foundation/A.cpp '#include <ZRPlatform/CoreGraphics/C.h>'
broken "is on a floor above" ZRPlatform/CoreImage/A.cpp '#include <ZRPlatform/UIKit/UIKit.h>'
broken "is on a floor above" ZRPlatform/UIKit/Views/A.cpp '#include <ZRKitDynamic/ZRView/K.h>'
broken "is on a floor above" Tests/ZRPlatform/QuartzCore/A.cpp '#include <ZRPlatform/UIKit/UIKit.h>'
broken "is on a floor above" ZRKitDynamic/ZRView/A.cpp '#include <Gallery/G.h>'
broken "on no floor" ZRPlatform/Attic/A.cpp 'int a;'
broken "is on no floor" ZRPlatform/UIKit/Views/A.cpp '#include <ZRPlatform/Attic/A.h>'
broken "written from the top" ZRPlatform/Foundation/A.cpp '#include "A.h"'
broken "the kit includes" ZRKitDynamic/ZRView/A.cpp '#include <cairo.h>'
broken "the kit includes" ZRKitDynamic/ZRView/A.cpp '#include <unistd.h>'
broken "belongs in" ZRPlatform/QuartzCore/Layers/A.cpp '#include <cairo.h>'
broken "belongs in" ZRPlatform/Hosts/Headless/A.cpp '#include <SDL2/SDL.h>'
broken "belongs in" ZRPlatform/Foundation/A.cpp '#include <glib.h>'
broken "none of our libraries" ZRPlatform/UIKit/Views/A.cpp '#include <gtk/gtk.h>'
broken "public header includes" ZRPlatform/UIKit/Text/A.h "$once" '#include <pango/pango.h>'
broken "names a third-party library" ZRPlatform/UIKit/Text/A.h "$once" 'struct PangoLayout;'
broken "names a third-party library" ZRKitDynamic/ZRView/A.cpp 'SDL_Quit();'
broken "includes the internal" ZRPlatform/UIKit/Text/A.h "$once" '#include <ZRPlatform/UIKit/Text/Internal/L.h>'
broken "is internal to ZRPlatform" ZRKitDynamic/ZRView/A.cpp '#include <ZRPlatform/CoreGraphics/CairoAccess.h>'
broken "through their interface only" ZRPlatform/UIKit/Views/A.cpp '#include <ZRPlatform/Hosts/Window/WindowHost.h>'
broken "does not export" ZRPlatform/Foundation/A.h "$once" 'namespace zr {' 'int a;' '}'
broken "lacks #pragma GCC visibility pop" ZRPlatform/Foundation/A.h "$once" '#pragma GCC visibility push(default)' 'namespace zr {'
broken "has not declared" ZRPlatform/Foundation/A.h "$once" '#pragma GCC visibility push(default)' 'namespace zr {' \
    'std::unique_ptr<class I> i;' '}' '#pragma GCC visibility pop'
broken "public headers alone" ZRPlatform/Foundation/Internal/A.h "$once" '#pragma GCC visibility push(default)' 'namespace zr {' \
    '}' '#pragma GCC visibility pop'
broken "lacks #pragma once" ZRPlatform/Foundation/A.h 'int a;'
mapfile -t long < <(seq -f '// %g' 601)
broken "more than 600" ZRPlatform/Foundation/A.cpp "${long[@]}"

fresh_tree
if bash "$house" "$tree" >/dev/null 2>&1; then
    report "a tree without sources passes"
fi
[[ $failures == 0 ]]
