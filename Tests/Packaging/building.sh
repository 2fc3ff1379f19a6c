# Sourced by the tests of what is installed. CMAKE and CXX name the tools.

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# quietly COMMAND…: what it says is shown only if it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 || status=$?
    ((status == 0)) || cat "$log" >&2
    rm -f "$log"
    return "$status"
}

# install_kit BUILD WORK: installs BUILD into WORK/prefix, by way of another folder: whatever remembers where it was
# installed does not work afterwards.
install_kit() {
    rm -rf "$2/fresh" "$2/prefix"
    quietly "$CMAKE" --install "$1" --prefix "$2/fresh" || fail "installing $1"
    mv "$2/fresh" "$2/prefix"
}

# build_with_cmake SOURCE BUILD PREFIX: builds what finds the kit under PREFIX through find_package.
build_with_cmake() {
    quietly "$CMAKE" -S "$1" -B "$2" -DCMAKE_PREFIX_PATH="$3" -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON ||
        fail "configuring $1"
    quietly "$CMAKE" --build "$2" || fail "building $1 through find_package"
}

# build_with_pkg_config SOURCE PROGRAM PREFIX [FLAG…]: builds one file with the kit under PREFIX.
build_with_pkg_config() {
    local source=$1 program=$2 prefix=$3 flags
    shift 3
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name ZRKitDynamic.pc)")
    export PKG_CONFIG_PATH
    read -r -a flags <<<"$(pkg-config --cflags --libs ZRKitDynamic)"
    quietly "$CXX" -std=c++20 "$source" -o "$program" "${flags[@]}" "$@" || fail "building $source through pkg-config"
}

# run_with_libraries PREFIX PROGRAM [ARGUMENT…]: lets the loader look for libraries there.
run_with_libraries() {
    local libraries
    libraries=$(dirname "$(find "$1" -name 'libZRKitDynamic.so.*' -type f)")
    shift
    LD_LIBRARY_PATH=$libraries "$@"
}

# expect_output COMMAND…: that of the program in Application/.
expect_output() {
    local output
    output=$("$@")
    [[ $output == "green: rgb(0, 191, 63)" ]] || fail "$* printed \"$output\""
}
