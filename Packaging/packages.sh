#!/usr/bin/env bash
# packages.sh BUILD FOLDER [FONT…]: makes Debian packages of what BUILD, configured for the prefix /usr, has built, in
# FOLDER, and writes their names. The library recommends the packages FONT. DEBFULLNAME and DEBEMAIL name the maintainer.
set -euo pipefail
build=$(realpath "$1")
mkdir -p "$2"
folder=$(realpath "$2")
rm -f "$folder"/*.deb
shift 2
fonts=$(printf '%s, ' "$@")
fonts=${fonts%, }
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# What is installed must not depend on who builds it.
umask 022

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' "$build/CMakeCache.txt")
abi=${version%.*}
library=libzrkitdynamic$abi
maintainer="${DEBFULLNAME:-The ZRKitDynamic authors} <${DEBEMAIL:-authors@zrkitdynamic.invalid}>"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The tools look for what they describe in a folder debian/ where they run.
cd "$work"
mkdir debian
sed "s/@ABI@/$abi/; s/@MAINTAINER@/$maintainer/" "$root/Packaging/control" >debian/control
cat >debian/changelog <<END
zrkitdynamic ($version) unstable; urgency=medium

  * Version $version; what changed is told in changelog.gz.

 -- $maintainer  $(date -R -u -r "$root/CHANGELOG.md")
END
{
    cat <<'END'
Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: ZRKitDynamic

Files: *
END
    sed -n 's/^Copyright (c) /Copyright: /p' "$root/LICENSE"
    echo "License: Expat"
    sed -n '/^Permission/,$ { s/^$/./; s/^/ /; p }' "$root/LICENSE"
} >debian/copyright

# stage PACKAGE COMPONENT: installs the component into the package's own tree, with its documents.
stage() {
    local tree=debian/$1 documents=debian/$1/usr/share/doc/$1
    DESTDIR=$work/$tree cmake --install "$build" --component "$2" --strip >install.log
    mkdir -p "$documents" "$tree/DEBIAN"
    cp debian/copyright "$documents"
    gzip -9n <"$root/CHANGELOG.md" >"$documents/changelog.gz"
}

# finish PACKAGE [FILE…]: packs what is staged. What these libraries and programs need the package depends on.
finish() {
    local package=$1 tree=debian/$1
    shift
    : >substvars
    (($# == 0)) || dpkg-shlibdeps -Tsubstvars "-Sdebian/$library" "-x$package" "$@"
    dpkg-gencontrol "-p$package" "-P$tree" -Tsubstvars "-Vfonts:Recommends=$fonts" 2>gencontrol.log || {
        cat gencontrol.log >&2
        return 1
    }
    (cd "$tree" && find . -path ./DEBIAN -prune -o -type f -printf '%P\0' | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
    dpkg-deb --root-owner-group --build "$tree" "$folder" >build.log
    # The name is chosen by dpkg-deb.
    sed -n "s/.* in '\(.*\)'\.$/\1/p" build.log
}

stage "$library" library
stage libzrkitdynamic-dev development
stage zrkitdynamic-gallery gallery

# Who links with the libraries depends on their package; the loader's cache is to know where they are.
libraries=("debian/$library"/usr/lib/*/libZR*.so."$version")
for file in "${libraries[@]}"; do
    name=${file##*/}
    echo "${name%.so.*} $abi $library (>= $version)"
done >"debian/$library/DEBIAN/shlibs"
echo "activate-noawait ldconfig" >"debian/$library/DEBIAN/triggers"

finish "$library" "${libraries[@]}"
finish libzrkitdynamic-dev
finish zrkitdynamic-gallery debian/zrkitdynamic-gallery/usr/bin/*
