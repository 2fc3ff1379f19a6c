#!/usr/bin/env bash
# outside_application.sh BUILD WORK README: installs BUILD into a fresh prefix under WORK, moves the prefix, and builds and
# runs an application against it, once through find_package and once through pkg-config; then builds the application and
# the test that README shows, as it shows them. CMAKE and CXX name the tools.
set -euo pipefail
build=$1
work=$2
readme=$3
source=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/Application

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

expect_output() { # PROGRAM
    local output
    output=$("$1")
    [[ $output == "checkbox_1_normal.png" ]] || fail "$1 printed \"$output\""
}

# block LANGUAGE NUMBER: that code block of README.
block() {
    awk -v fence="\`\`\`$1" -v number="$2" '
        $0 == "```" { inside = 0 }
        inside { print }
        $0 == fence { inside = ++count == number }' "$readme"
}

rm -rf "$work/fresh" "$work/prefix" "$work/application" "$work/headers" "$work/readme"
"$CMAKE" --install "$build" --prefix "$work/fresh" >"$work/install.log"
# Whatever remembers where it was installed does not work from here on.
mv "$work/fresh" "$work/prefix"
prefix=$work/prefix

echo "-- public headers: complete, and without any other library's"
cd "$prefix/include"
internal=$(find . -path '*/Internal/*' -o -name '*Internal.h' -o -name CairoAccess.h)
[[ -z $internal ]] || fail "internal headers are installed: $internal"
mkdir "$work/headers"
find ZRPlatform ZRKitDynamic -name '*.h' | sort | sed 's/.*/#include <&>/' >"$work/headers/all.cpp"
[[ -s $work/headers/all.cpp ]] || fail "no header is installed"
"$CXX" -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I"$prefix/include" "$work/headers/all.cpp"

echo "-- find_package"
"$CMAKE" -S "$source" -B "$work/application" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON >"$work/configure.log"
"$CMAKE" --build "$work/application" >"$work/build.log" || {
    cat "$work/build.log"
    fail "the application does not build through find_package"
}
expect_output "$work/application/application"

echo "-- pkg-config"
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name ZRKitDynamic.pc)")
export PKG_CONFIG_PATH
read -r -a flags <<<"$(pkg-config --cflags --libs ZRKitDynamic)"
"$CXX" -std=c++20 "$source/main.cpp" -o "$work/application/with_pkg_config" "${flags[@]}"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir ZRKitDynamic) expect_output "$work/application/with_pkg_config"

echo "-- the README's application and its test"
mkdir "$work/readme"
block cpp 1 >"$work/readme/main.cpp"
block cmake 1 >"$work/readme/CMakeLists.txt"
{
    sed '/^int main/d' "$work/readme/main.cpp"
    block cpp 2
} >"$work/readme/test.cpp"
"$CMAKE" -S "$work/readme" -B "$work/readme/build" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON >"$work/configure.log"
"$CMAKE" --build "$work/readme/build" >"$work/build.log" || {
    cat "$work/build.log"
    fail "the README's application does not build"
}
"$CXX" -std=c++20 "$work/readme/main.cpp" -o "$work/readme/app" "${flags[@]}"
"$CXX" -std=c++20 "$work/readme/test.cpp" -o "$work/readme/test" "${flags[@]}" -lgtest -lgtest_main
cd "$work/readme"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir ZRKitDynamic) ./test >"$work/test.log" || {
    cat "$work/test.log"
    fail "the README's test does not pass"
}
[[ -s screen.png ]] || fail "the README's test wrote no picture"
