#!/usr/bin/env bash
# exported_symbols.sh SOURCE LIBRARY…: what the libraries export is in namespace zr and declared in a public header, and
# a public class is exported with what makes it known at run time, and with its operators.
set -euo pipefail
source=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

report() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

headers() { # FIND-TEST…
    find "$source/ZRPlatform" "$source/ZRKitDynamic" -name '*.h' "$@" -print0
}

# Of headers: the classes that are defined at the left margin.
classes() {
    sed -nE 's/^(class|struct) ([A-Za-z0-9_]+)( final)?( :[^:].*)?( \{|\{)$/\2/p' | sort -u
}

# Of symbols: "SYMBOL NAME", the name being that of the class, or of the function or constant outside of classes; no line
# for operators outside of classes and for what is not in namespace zr.
names() {
    awk '{
        name = $1
        if (!sub(/^_Z(GV)?Z?(T[CISTVHW]|T[chv].*_)?NK?[OR]?2zr(6detail)?/, "", name) || !match(name, /^[0-9]+/))
            next
        print $1, substr(name, RLENGTH + 1, substr(name, 1, RLENGTH))
    }'
}

internal=(\( -path '*/Internal/*' -o -name '*Internal.h' -o -name CairoAccess.h \))
headers "${internal[@]}" | xargs -0 cat | classes >"$work/internal"
headers ! "${internal[@]}" | xargs -0 cat | sed 's,//.*,,' >"$work/text"
classes <"$work/text" >"$work/public"
grep -oE '[A-Za-z0-9_]+' "$work/text" | sort -u | comm -23 - "$work/internal" >"$work/words"
for list in internal public words; do
    [[ -s $work/$list ]] || report "found no $list names in the headers"
done

for library; do
    nm -D --defined-only "$library" | awk '{ print $3 }' | sort -u >"$work/exported"
    [[ -s $work/exported ]] || report "$library exports nothing"
    grep -vE '^_Z(GV)?Z?(T[CISTVHW]|T[chv].*_)?NK?[OR]?2zr' "$work/exported" | c++filt >"$work/foreign" || true
    [[ ! -s $work/foreign ]] || report "$library exports what is not in namespace zr: $(head -n 5 "$work/foreign")"

    names <"$work/exported" | awk 'NR == FNR { known[$1] = 1; next } !($2 in known) { print $1 }' "$work/words" - |
        c++filt >"$work/undeclared"
    [[ ! -s $work/undeclared ]] ||
        report "$library exports what no public header declares: $(head -n 5 "$work/undeclared")"

    # Whatever the library has for public classes, exported or not.
    nm --defined-only "$library" | awk '$3 ~ /^_ZT[ISV]N2zr/ { print $3 }' | sort -u >"$work/known"
    names <"$work/known" | awk '
        NR == FNR { public[$1] = 1; next }
        $2 in public && $1 ~ "2zr(6detail)?[0-9]+" $2 "E$" { print $1 }' "$work/public" - | sort >"$work/needed"
    [[ -s $work/needed ]] || report "$library has no public class with virtual functions"
    comm -23 "$work/needed" "$work/exported" | c++filt >"$work/missing"
    [[ ! -s $work/missing ]] || report "$library does not export $(head -n 5 "$work/missing")"

    # Those that are declared as a friend only are hidden with g++.
    nm --defined-only "$library" | awk '$3 ~ /^_ZN2zr[a-z][a-zA-Z]E[^.]*$/ { print $3 }' | sort -u | comm -23 - "$work/exported" |
        c++filt | grep -vwFf "$work/internal" >"$work/operators" || true
    [[ ! -s $work/operators ]] || report "$library does not export $(head -n 5 "$work/operators")"
done
[[ $failures == 0 ]]
