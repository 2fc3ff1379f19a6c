#!/usr/bin/env bash
# new_application.sh BUILD WORK ZR: makes an application with ZR, builds it with the kit that BUILD installs, and runs its
# test; and tries names that are none. CMAKE and CXX name the tools.
set -euo pipefail
build=$1
work=$2
zr=$3
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/building.sh"

# expect_refusal MESSAGE ARGUMENT…: with these ZR makes nothing, and says why.
expect_refusal() {
    local message=$1 output status=0 before
    shift
    before=$(find . | sort)
    output=$("$zr" new "$@" 2>&1) || status=$?
    ((status == 2)) || fail "new $* ends with status $status"
    [[ $output == *"$message"* ]] || fail "new $* says \"$output\""
    [[ $(find . | sort) == "$before" ]] || fail "new $* has made files"
}

rm -rf "$work"
mkdir -p "$work/desk"
install_kit "$build" "$work"
cd "$work/desk"

echo "-- a new application"
quietly "$zr" new Tasks
[[ $(grep -rIl '@' Tasks || true) == "" ]] || fail "a place is left empty: $(grep -rI '@' Tasks)"
build_with_cmake Tasks Tasks/build "$work/prefix"
[[ -s Tasks/build/Resources/icon_title_back@2x.png ]] || fail "the images of the kit are not beside the program"
[[ -x Tasks/build/Tasks ]] || fail "the program is not called Tasks"
quietly ctest --test-dir Tasks/build --no-tests=error --output-on-failure || fail "the new application's test does not pass"
for picture in list alert "done"; do
    [[ -s Tasks/build/$picture.png ]] || fail "the test of the new application wrote no picture of the $picture"
done

echo "-- in another folder"
quietly "$zr" new my-tasks "deep/folder of mine"
build_with_cmake "deep/folder of mine" "deep/folder of mine/build" "$work/prefix"
[[ -x "deep/folder of mine/build/my-tasks" ]] || fail "the program is not called my-tasks"

echo "-- the line it prints, where the kit is built and not installed"
mkdir -p ../checkout/{build/release,Gallery}
cp -R "$zr" "$(dirname "$zr")/Templates" ../checkout
cp -R "$(dirname "$zr")/Gallery/Resources" ../checkout/Gallery
cp "$build"/ZRKitDynamic*.cmake ../checkout/build/release
line=$(../checkout/zr new "../own folder/beginner" 2>&1 | tail -n 1)
[[ $line == cd*"build/beginner" ]] || fail "new says \"$line\""
quietly bash -c "${line%&&*}" || fail "what new says does not work: $line"

echo "-- names that are none"
expect_refusal "no name for a program" ""
expect_refusal "no name for a program" "a/2b"
expect_refusal "no name for a program" ".."
expect_refusal "no name for a program" "/"
expect_refusal "no name for a program" "2tasks"
expect_refusal "no name for a program" "two tasks"
expect_refusal "no name for a program" "größe"
expect_refusal "no name for a program" "--help-me"
expect_refusal "no name for a program" "a/b" fine
expect_refusal "is there already" Tasks
expect_refusal "is there already" Fine Tasks
expect_refusal "the folder has no name" Fine ""
expect_refusal "give the application's folder"
expect_refusal "give the application's folder" One two three
