#!/usr/bin/env bash
# alert_test.sh PROGRAM click|keys: AlertWindow in a real window, typed into, and its button pressed with the mouse or with
# the keyboard alone.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"
start_desktop 1280x1500
scale=2
start_program "$1"
expect 'ready [0-9]+ [0-9]+'
read -r _ x y <<<"$line"

# The screen behind is dimmed: white under black of 0.45.
expect_pixel 10 10 8c8c8c
type_text "Summer 26"
expect "text Summer 26"
case $2 in
click) click "$x" "$y" ;;
keys)
    # Over the cancel button.
    press Tab
    press Tab
    press Return
    ;;
esac
expect "clicked 1"
expect gone
expect_pixel 10 10 ffffff
