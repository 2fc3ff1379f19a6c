#!/usr/bin/env bash
# window_test.sh TEST PROBE CLOSER: one test of WindowProbe in a real window; CLOSER asks windows to close.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"
probe=$2
closer=$3

# start_probe [ARGUMENT…]: twice the size of the default device fits on this desktop.
start_probe() {
    start_desktop 1280x1500
    scale=2
    start_program "$probe" --frame-log "$@"
    expect 'frame .*'
    measure_window
}

# expect_refusal ENVIRONMENT…: one line on standard error, and 1.
expect_refusal() {
    local status=0 said
    said=$(env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER "$@" "$probe" 2>&1 >/dev/null) || status=$?
    [[ $status == 1 && $said == "No window can be opened: "* && $(wc -l <<<"$said") == 1 ]] ||
        fail "with display \"$*\" it said \"$said\" and ended with $status"
}

NeedsADisplay() {
    expect_refusal
    expect_refusal DISPLAY=:nowhere
}

FitsTheDesktop() {
    start_desktop 800x750
    start_program "$probe" --frame-log
    expect 'frame .*'
    measure_window
    [[ $WIDTH == 375 && $HEIGHT == 667 ]] || fail "the window is $WIDTH x $HEIGHT on a small desktop"
    expect_pixel 60 105 ff0000
    click 150 130
    expect button
    close_window
    expect_end 0
    rm "$work/output"

    start_program "$probe" --window-scale=1.5 --device 320x480@2 --frame-log
    expect 'frame .*'
    measure_window
    [[ $WIDTH == 480 && $HEIGHT == 720 ]] || fail "the window is $WIDTH x $HEIGHT at scale 1.5"
    [[ $X == 160 && $Y == 15 ]] || fail "the window is at $X, $Y, not in the middle of the desktop"
}

ShowsFramesAndTakesClicksAndText() {
    start_probe
    [[ $WIDTH == 750 && $HEIGHT == 1334 ]] || fail "the window is $WIDTH x $HEIGHT"
    expect_pixel 60 105 ff0000
    expect_pixel 10 10 ffffff
    expect_pixel 60 310 000000
    click 150 130
    expect button
    expect thread
    expect lit
    expect_pixel 60 310 00ff00

    click 150 220
    type_text "Hello 7"
    expect "text Hello 7"
    press BackSpace
    expect "text Hello "
    press ctrl+a
    press ctrl+x
    expect "text "
    press ctrl+v
    press ctrl+v
    expect "text Hello Hello "
}

# A notch is 50 points; the window sleeps again once the indicators have gone.
ScrollsWithWheels() {
    start_probe
    turn_wheel 150 500 5
    expect 'scrolled 0 50'
    turn_wheel 150 500 5
    expect 'scrolled 0 100'
    turn_wheel 150 500 4
    expect 'scrolled 0 50'
    turn_wheel 150 500 7
    expect 'scrolled 50 50'
    xdotool keydown shift
    turn_wheel 150 500 5
    expect 'scrolled 100 50'
    xdotool keyup shift
    expect_rest
    expect_silence 2
}

# Sleeps, lights up at a click, and sleeps again.
expect_sleep_around_a_click() {
    expect_rest
    expect_silence 2
    click 150 130
    expect lit
    expect_rest
    expect_silence 2
}

SleepsWhenNothingMoves() {
    start_probe
    expect_sleep_around_a_click
}

# The circle under the finger fades, and takes the marks of the frames along.
SleepsWithDebugAidsToo() {
    start_probe --slow 3 --show touches,borders,damage,times
    expect_sleep_around_a_click
}

EndsWhenItsWindowCloses() {
    start_probe
    close_window
    expect end
    expect 'frames [1-9][0-9]*, wake-ups [1-9][0-9]*'
    expect_end 0
}

EndsWhenItIsTerminated() {
    start_probe
    expect_rest
    terminate
    expect end
    expect_end 0
}

"$1"
