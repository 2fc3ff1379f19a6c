#!/usr/bin/env bash
# outside_application.sh BUILD WORK ROOT: installs BUILD into a fresh prefix under WORK, moves the prefix, and builds and
# runs an application against it, once through find_package and once through pkg-config; then builds the
# application and the test of each document that shows one with its CMakeLists.txt, as it shows them: the first C++ block
# is the application, the second one its test. CMAKE and CXX name the tools.
set -euo pipefail
build=$1
work=$2
root=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$here/building.sh"

# block LANGUAGE NUMBER: that code block of the document.
block() {
    awk -v fence="\`\`\`$1" -v number="$2" '
        $0 == "```" { inside = 0 }
        inside { print }
        $0 == fence { inside = ++count == number }' "$document"
}

rm -rf "$work/application" "$work/headers" "$work/shown"
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

mapfile -t documents < <(grep -lx '```cmake' "$root"/README.md "$root"/Docs/*.md)
((${#documents[@]})) || fail "no document shows an application"
for document in "${documents[@]}"; do
    name=$(basename "$document" .md)
    echo "-- the application and the test of $name"
    shown=$work/shown/$name
    mkdir -p "$shown"
    block cpp 1 >"$shown/main.cpp"
    block cmake 1 >"$shown/CMakeLists.txt"
    {
        sed '/^int main/d' "$shown/main.cpp"
        block cpp 2
    } >"$shown/test.cpp"
    build_with_cmake "$shown" "$shown/build" "$prefix"
    build_with_pkg_config "$shown/main.cpp" "$shown/app" "$prefix"
    build_with_pkg_config "$shown/test.cpp" "$shown/test" "$prefix" -lgtest -lgtest_main
    cd "$shown"
    quietly run_with_libraries "$prefix" ./test || fail "the test of $name does not pass"
    [[ -s screen.png ]] || fail "the test of $name wrote no picture"
done
