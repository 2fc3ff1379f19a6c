# To be sourced, with the program CloseWindow in $closer: an X server without a screen, one program on it, a mouse and a
# keyboard, and what the program says.
# Nothing waits by the clock: each step waits for a line, a window or an end, with a limit.

limit=30 # seconds for anything to happen
scale=1  # desktop pixels a point, for click and pixel
work=$(mktemp -d)
server=
program=
heard=()

fail() {
    echo "FAILED: $*"
    ((${#heard[@]} == 0)) || printf '  the program said: %s\n' "${heard[@]}"
    exit 1
}

clean_up() {
    [[ -z $program ]] || kill -KILL "$program" || true
    [[ -z $server ]] || kill "$server" || true
    wait $program $server || true
    rm -rf "$work"
}
trap 'clean_up 2>/dev/null' EXIT

# start_desktop WIDTHxHEIGHT, in pixels.
start_desktop() {
    local number
    mkfifo "$work/display"
    Xvfb -displayfd 5 -screen 0 "$1x24" -fbdir "$work" -nolisten tcp 5>"$work/display" 2>"$work/server.log" &
    server=$!
    read -r -t $limit number <"$work/display" || fail "no X server: $(cat "$work/server.log")"
    export DISPLAY=:$number SDL_VIDEODRIVER=x11
    unset WAYLAND_DISPLAY XMODIFIERS
}

# start_program PROGRAM ARGUMENT…: its two outputs are heard as one; returns when its window is on the screen.
start_program() {
    mkfifo "$work/output"
    "$@" >"$work/output" 2>&1 &
    program=$!
    exec {output}<"$work/output"
    window=$(timeout $limit xdotool search --sync --onlyvisible --pid "$program" 2>/dev/null | head -n 1) ||
        fail "no window: $(timeout 1 cat <&"$output")"
    measure_window
    xdotool windowfocus "$window"
}

# The window's place and size as they are now: X, Y, WIDTH, HEIGHT.
measure_window() { eval "$(xdotool getwindowgeometry --shell "$window")"; }

# hear SECONDS: the next line, in $line.
hear() {
    IFS= read -r -t "$1" -u "$output" line || return 1
    heard+=("$line")
}

# expect REGEX: waits for a line that matches as a whole.
expect() {
    local deadline=$((SECONDS + limit))
    while ((SECONDS < deadline)) && hear $((deadline - SECONDS)); do
        [[ ! $line =~ ^($1)$ ]] || return 0
    done
    fail "it did not say \"$1\""
}

# Waits until nothing is said for half a second.
expect_rest() {
    local deadline=$((SECONDS + limit))
    while hear 0.5; do
        ((SECONDS < deadline)) || fail "it does not come to rest"
    done
}

# expect_silence SECONDS: not one line.
expect_silence() { ! hear "$1" || fail "it said \"$line\" while nothing happened"; }

# expect_end STATUS: the program ends by itself.
expect_end() {
    local status=0
    while hear $limit; do :; done
    wait "$program" || status=$?
    program=
    ((status == $1)) || fail "it ended with $status instead of $1"
}

# pixel X Y, in points of the window: what the screen shows there, in $colour, as rrggbb. The server keeps its screen in
# a file: a header of 4-byte numbers, most significant byte first, then a colour table of 12-byte entries, then the rows.
pixel() {
    local file=$work/Xvfb_screen0 header bytes
    read -r -a header <<<"$(od -A n -t u4 --endian=big -v -N 80 -w80 "$file")"
    read -r -a bytes <<<"$(od -A n -t x1 -N 4 \
        -j $((header[0] + header[19] * 12 + (Y + $2 * scale) * header[12] + (X + $1 * scale) * 4)) "$file")"
    colour=${bytes[2]}${bytes[1]}${bytes[0]}
}

# expect_pixel X Y RRGGBB: waits until the screen shows that colour there, looking again at each line the program says.
expect_pixel() {
    local deadline=$((SECONDS + limit))
    pixel "$1" "$2"
    while [[ $colour != "$3" ]]; do
        ((SECONDS < deadline)) && hear $((deadline - SECONDS)) || fail "the pixel at $1 $2 is $colour instead of $3"
        pixel "$1" "$2"
    done
}

# click X Y, in points of the window.
click() { xdotool mousemove --window "$window" $(($1 * scale)) $(($2 * scale)) click 1; }
# turn_wheel X Y BUTTON: by one notch; button 4 is up, 5 down, 6 left, 7 right.
turn_wheel() { xdotool mousemove --window "$window" $(($1 * scale)) $(($2 * scale)) click "$3"; }
press() { xdotool key "$1"; }
type_text() { xdotool type --delay 1 "$1"; }
terminate() { kill -TERM "$program"; }
close_window() { "$closer" "$window"; }
