#!/usr/bin/env bash
# debian_packages.sh ZR WORK: makes the Debian packages with ZR, looks at what they say and hold, installs them into a root of
# their own under WORK, builds and runs an application with what is there, and removes them again. CMAKE and CXX name the
# tools.
set -euo pipefail
zr=$1
work=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$here/building.sh"
root=$work/root

# Files are to be root's, also where the tests are not run by it.
as_root=(env)
((EUID == 0)) || as_root=(fakeroot)

in_root() { # DPKG-ARGUMENT…
    PATH=$PATH:/usr/sbin:/sbin quietly "${as_root[@]}" dpkg --root="$root" --log=/dev/null --force-depends "$@" ||
        fail "dpkg $*"
}

# What there is in the root, but for the package manager's own notes.
list_root() {
    (cd "$root" && find . -path ./var/lib/dpkg -prune -o -print | sort)
}

expect_field() { # PACKAGE FIELD PATTERN…
    local package=$1 field=$2 value pattern
    value=$(dpkg-deb --field "${packages[$package]}" "$field")
    shift 2
    for pattern; do
        # shellcheck disable=SC2053 # a pattern it is
        [[ $value == $pattern ]] || fail "$package has \"$field: $value\", not $pattern"
    done
}

expect_file() { # PACKAGE MODE PATTERN: such a file, of root, is in the package.
    grep -qE "^$2 root/root .* \./$3( -> .*)?$" "$work/$1.contents" || fail "$1 has no $2 $3"
}

expect_no_file() { # PACKAGE PATTERN
    ! grep -E " \./$2( -> .*)?$" "$work/$1.contents" || fail "this does not belong in $1"
}

rm -rf "$work"
mkdir -p "$root"/var/lib/dpkg/{info,updates}
touch "$root"/var/lib/dpkg/{status,available}

echo "-- what the packages are"
declare -A packages
quietly "$zr" package || fail "making the packages"
for file in "$(dirname "$zr")"/build/package/*.deb; do
    packages[$(dpkg-deb --field "$file" Package)]=$file
done
development=libzrkitdynamic-dev
gallery=zrkitdynamic-gallery
version=$(dpkg-deb --field "${packages[$development]}" Version)
library=libzrkitdynamic${version%.*}
[[ ${#packages[@]} == 3 && ${packages[$library]:-} && ${packages[$gallery]:-} ]] || fail "the packages are ${!packages[*]}"

expect_field "$library" Section libs
expect_field "$library" Depends '*libc6 (>= *' '*libcairo2 (>= *' '*libpango-1.0-0 (>= *' '*libsdl2-2.0-0 (>= *'
expect_field "$library" Recommends '*fonts-inter*' '*fonts-noto-color-emoji*'
expect_field "$development" Section libdevel
expect_field "$development" Depends "$library (= $version)"
expect_field "$gallery" Section x11
expect_field "$gallery" Depends "*$library (>= $version)*"
for package in "$library" "$development" "$gallery"; do
    expect_field "$package" Architecture "$(dpkg --print-architecture)"
    expect_field "$package" Maintainer '?* <?*@?*>'
    expect_field "$package" Description 'phone-style views, overlays and controls - *'
done

echo "-- what they hold"
ordinary='drwxr-xr-x root/root .*/|-rw-r--r-- root/root .*|-rwxr-xr-x root/root .* \./usr/bin/.*|lrwxrwxrwx root/root .*'
for package in "${!packages[@]}"; do
    dpkg-deb --contents "${packages[$package]}" >"$work/$package.contents"
    expect_file "$package" -rw-r--r-- "usr/share/doc/$package/copyright"
    expect_file "$package" -rw-r--r-- "usr/share/doc/$package/changelog.gz"
    dpkg-deb --fsys-tarfile "${packages[$package]}" | tar -xO "./usr/share/doc/$package/copyright" >"$work/copyright"
    while read -r line; do
        grep -qF "${line#Copyright (c) }" "$work/copyright" || fail "the copyright of $package lacks \"$line\""
    done < <(tail -n +2 "$(dirname "$zr")/LICENSE")
    other=$(grep -vE "^($ordinary)$" "$work/$package.contents" || true)
    [[ -z $other ]] || fail "$package has files of other modes: $other"
done
for name in ZRPlatform ZRKitDynamic; do
    expect_file "$library" -rw-r--r-- "usr/lib/[^/]+/lib$name\.so\.$version"
    expect_file "$library" lrwxrwxrwx "usr/lib/[^/]+/lib$name\.so\.${version%.*}"
    expect_file "$development" lrwxrwxrwx "usr/lib/[^/]+/lib$name\.so"
    expect_file "$development" -rw-r--r-- "usr/lib/[^/]+/pkgconfig/$name\.pc"
done
expect_file "$development" -rw-r--r-- usr/include/ZRKitDynamic/ZRKitDynamic.h
expect_file "$development" -rw-r--r-- 'usr/lib/[^/]+/cmake/ZRKitDynamic/ZRKitDynamicConfig.cmake'
expect_file "$gallery" -rwxr-xr-x usr/bin/zr_gallery
expect_file "$gallery" -rw-r--r-- usr/share/zr_gallery/application.png
expect_no_file "$library" 'usr/(include|bin)/[^ ]*'
expect_no_file "$development" 'usr/(bin/[^ ]*|lib/[^ ]*\.so\.[^ ]*)'
triggers=$(dpkg-deb --ctrl-tarfile "${packages[$library]}" | tar -xO ./triggers)
[[ $triggers == "activate-noawait ldconfig" ]] || fail "the loader's cache is not told of the libraries"

echo "-- installed"
empty=$(list_root)
in_root --install "${packages[@]}"
for package in "${!packages[@]}"; do
    [[ $(dpkg-query --admindir="$root/var/lib/dpkg" -W -f '${db:Status-Status}' "$package") == installed ]] ||
        fail "$package is not installed"
done
for file in "$root"/usr/bin/zr_gallery "$root"/usr/lib/*/libZR*.so."$version"; do
    sections=$(readelf -S "$file")
    [[ $sections != *.debug_info* ]] || fail "$file is not stripped"
    [[ $(readelf -d "$file") != *RUNPATH* ]] || fail "$file looks for libraries in a folder of its own"
done
run_with_libraries "$root/usr" "$root/usr/bin/zr_gallery" --list >"$work/pages"
grep -q '^alert-default ' "$work/pages" || fail "the gallery does not list its pages"
quietly run_with_libraries "$root/usr" "$root/usr/bin/zr_gallery" --page alert-default --snapshot "$work/gallery.png" ||
    fail "the gallery draws nothing"

build_with_cmake "$here/Application" "$work/application" "$root/usr"
expect_output "$work/application/application"
build_with_pkg_config "$here/Application/main.cpp" "$work/application/with_pkg_config" "$root/usr"
expect_output run_with_libraries "$root/usr" "$work/application/with_pkg_config"

echo "-- removed"
[[ $(list_root) != "$empty" ]] || fail "nothing was installed"
in_root --purge "${!packages[@]}"
[[ $(list_root) == "$empty" ]] || fail "this is left: $(diff <(echo "$empty") <(list_root) || true)"
