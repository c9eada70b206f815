# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=bash
# Shell functions that the scripts in the project's root share. The virtual display needs the
# packages of the group "run" and goes with the script; a function fail() is expected.

# The compiler cache and the desktop libraries want a home to write to.
ensure_home() { # project folder
    if [ -z "${HOME:-}" ] || [ ! -w "$HOME" ]; then
        export HOME=$1/build/home
        mkdir -p "$HOME"
    fi
}

display_folder=
started=()
clean_up() {
    for pid in "${started[@]}"; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    [ -z "$display_folder" ] || rm -rf "$display_folder"
}

wait_for() { # what condition...
    local what=$1 deadline=$((SECONDS + 15))
    shift
    until "$@"; do
        [ $SECONDS -lt $deadline ] || fail "$what did not start: $(tail -n 3 "$display_folder"/*.log)"
        sleep 0.05
    done
}

start_display() { # WIDTHxHEIGHT
    display_folder=$(mktemp -d)
    trap clean_up EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset \
        3>"$display_folder/number" >"$display_folder/Xvfb.log" 2>&1 &
    started+=($!)
    wait_for Xvfb test -s "$display_folder/number"
    DISPLAY=:$(cat "$display_folder/number")
    export DISPLAY
    unset WAYLAND_DISPLAY XAUTHORITY
    export QT_QPA_PLATFORM=xcb
    openbox --sm-disable >"$display_folder/openbox.log" 2>&1 &
    started=($! "${started[@]}")
    wait_for openbox has_window_manager
}

has_window_manager() {
    xprop -root _NET_CLIENT_LIST 2>/dev/null | grep -q 'window id'
}
