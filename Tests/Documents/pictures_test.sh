#!/usr/bin/env bash
# pictures_test.sh GALLERY DOCS WORK: draws the documents' pictures twice, at the same time, and fails unless both runs
# wrote the same bytes, every script wrote a picture, in which something moves if it touches the screen, the documents have
# those pictures and no others, and none is larger than a page may load. Whether they are up to date, ./zr pictures --check tells.
set -euo pipefail
gallery=$1
docs=$2
work=$3

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

rm -rf "$work/first" "$work/second"
"$docs/Scripts/draw_pictures.sh" "$gallery" "$work/first" &
first=$!
"$docs/Scripts/draw_pictures.sh" "$gallery" "$work/second" || fail "the pictures cannot be drawn"
wait "$first" || fail "the pictures cannot be drawn"
diff -r "$work/first" "$work/second" || fail "a second run draws other pictures"

for script in "$docs"/Scripts/*.txt; do
    name=$(basename "$script" .txt)
    [[ -s $work/first/$name.png || -s $work/first/$name.webp ]] || fail "$script draws no $name.png and no $name.webp"
    # A finger that misses what it is meant for changes nothing.
    ! grep -qE '^(tap|down|type|wheel) ' "$script" || head -c 40 "$work/first/$name.webp" | grep -qa ANIM ||
        fail "nothing moves in what $script records"
done
diff <(ls "$work/first") <(ls "$docs/Images") ||
    fail "Docs/Images has other pictures than the scripts draw"
large=$(find "$work/first" ! -name contact-sheet.png ! -name overview.png -size +100k)
[[ -z $large ]] || fail "more than 100 kB: $large"
(($(du -sb "$docs/Images" | cut -f1) <= 3000000)) || fail "Docs/Images has more than 3 MB"
