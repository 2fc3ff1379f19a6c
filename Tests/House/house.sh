#!/usr/bin/env bash
# house.sh ROOT: names every source file under ROOT that breaks a rule of the house, and fails if there is one.
# The rules are in house.awk.
set -euo pipefail
rules=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/house.awk
cd "$1"
folders=()
for folder in ZRPlatform ZRKitDynamic Gallery Tests Benchmarks; do
    [[ ! -d $folder ]] || folders+=("$folder")
done
files=$(mktemp)
trap 'rm -f "$files"' EXIT
find "${folders[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z >"$files"
[[ -s $files ]] || {
    echo "no sources under $1"
    exit 1
}
xargs -0 awk -f "$rules" <"$files"
