# shellcheck shell=bash
# SPDX-License-Identifier: Apache-2.0
# Functions that the scripts in the project's root share. A script that sources this file must define
# fail(). start_display needs the packages of the group "run".

# Sets HOME if it is missing or read-only; ccache and the desktop libraries write there.
ensure_home() { # PROJECT-FOLDER
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

# Fails the script if the condition, a command, does not become true.
wait_for() { # PROGRAM CONDITION...
    local what=$1 deadline=$((SECONDS + 15))
    shift
    until "$@"; do
        [ $SECONDS -lt $deadline ] || fail "$what did not start: $(tail -n 3 "$display_folder"/*.log)"
        sleep 0.05
    done
}

# Starts a virtual display with a window manager. Both end with the script, as do the processes that it
# adds to "started".
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
