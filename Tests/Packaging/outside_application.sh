#!/usr/bin/env bash
# outside_application.sh BUILD WORK README: installs BUILD into a fresh prefix under WORK, moves the prefix, and builds and
# runs an application against it, once through find_package and once through pkg-config; then builds the application and
# the test that README shows, as it shows them. CMAKE and CXX name the tools.
set -euo pipefail
build=$1
work=$2
readme=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$here/building.sh"

# block LANGUAGE NUMBER: that code block of README.
block() {
    awk -v fence="\`\`\`$1" -v number="$2" '
        $0 == "```" { inside = 0 }
        inside { print }
        $0 == fence { inside = ++count == number }' "$readme"
}

rm -rf "$work/application" "$work/headers" "$work/readme"
install_kit "$build" "$work"
prefix=$work/prefix

echo "-- public headers: complete, and without any other library's"
cd "$prefix/include"
internal=$(find . -path '*/Internal/*' -o -name '*Internal.h' -o -name CairoAccess.h)
[[ -z $internal ]] || fail "internal headers are installed: $internal"
mkdir "$work/headers"
find ZRPlatform ZRKitDynamic -name '*.h' | sort | sed 's/.*/#include <&>/' >"$work/headers/all.cpp"
[[ -s $work/headers/all.cpp ]] || fail "no header is installed"
"$CXX" -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I"$prefix/include" "$work/headers/all.cpp"

echo "-- versions of the libraries"
version=$(pkg-config --modversion "$(find "$prefix" -name ZRKitDynamic.pc)")
for library in ZRPlatform ZRKitDynamic; do
    file=$(find "$prefix" -name "lib$library.so.$version" -type f)
    [[ -n $file ]] || fail "lib$library.so.$version is not installed"
    name=lib$library.so.${version%.*}
    [[ $(readelf -d "$file") == *"soname: [$name]"* ]] || fail "$file does not call itself $name"
    for link in "$name" "lib$library.so"; do
        [[ $(realpath "${file%/*}/$link") == "$file" ]] || fail "$link does not lead to $file"
    done
done

echo "-- the gallery"
[[ $("$prefix/bin/zr_gallery" --list) == *alert-default* ]] || fail "the installed gallery does not list its pages"
quietly "$prefix/bin/zr_gallery" --page alert-default --snapshot "$work/gallery.png" || fail "the installed gallery draws nothing"

echo "-- find_package"
build_with_cmake "$here/Application" "$work/application" "$prefix"
expect_output "$work/application/application"

echo "-- pkg-config"
build_with_pkg_config "$here/Application/main.cpp" "$work/application/with_pkg_config" "$prefix"
expect_output run_with_libraries "$prefix" "$work/application/with_pkg_config"

echo "-- the README's application and its test"
mkdir "$work/readme"
block cpp 1 >"$work/readme/main.cpp"
block cmake 1 >"$work/readme/CMakeLists.txt"
{
    sed '/^int main/d' "$work/readme/main.cpp"
    block cpp 2
} >"$work/readme/test.cpp"
build_with_cmake "$work/readme" "$work/readme/build" "$prefix"
build_with_pkg_config "$work/readme/main.cpp" "$work/readme/app" "$prefix"
build_with_pkg_config "$work/readme/test.cpp" "$work/readme/test" "$prefix" -lgtest -lgtest_main
cd "$work/readme"
quietly run_with_libraries "$prefix" ./test || fail "the README's test does not pass"
[[ -s screen.png ]] || fail "the README's test wrote no picture"
