#!/usr/bin/env bash
# draw_pictures.sh GALLERY FOLDER: draws the documents' pictures with that gallery program: a contact sheet of all pages,
# an overview, and what each script beside this file asks for on the page that it is named after. The clock of a script is a manual
# one, so a second run writes the same bytes. What would be a large picture is a recording in which nothing moves: that one is a third
# as large. Its edges run between the texts of the page, lest one of them is cut.
set -euo pipefail
gallery=$(realpath "$1")
folder=$2
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

mkdir -p "$folder"
cd "$folder"
for script in "$scripts"/*.txt; do
    page=$(basename "$script" .txt)
    "$gallery" --page "$page" --script "$script"
done

pages=$(mktemp -d)
trap 'rm -rf "$pages"' EXIT
# Half a pixel a point: the sheet is for looking over.
"$gallery" --device 375x667@0.5 --render "$pages" >"$pages/log"
mv "$pages/contact-sheet.png" .
"$gallery" --overview overview.png >"$pages/log"
