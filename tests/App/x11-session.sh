# Sourced by the tray scripts that run inside xvfb-run: a throw-away home
# for the run, the background processes it ends on exit, the checks and a
# poll helper (e2e-checks.sh), and a window manager with a tray host.

work=$(mktemp -d)
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null; done
    wait 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

export HOME=$work/home XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
export XDG_RUNTIME_DIR=$work/run QT_QPA_PLATFORM=xcb
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset DBUS_SESSION_BUS_ADDRESS # the XEmbed tray, not a StatusNotifier host

source "$(dirname "${BASH_SOURCE[0]}")/e2e-checks.sh"

# start_tray_host: openbox, and trayer in the top-right corner; fails when
# the tray never appears.
start_tray_host() {
    openbox >"$work/openbox.log" 2>&1 &
    pids+=($!)
    trayer --edge top --align right --widthtype request --height 24 --transparent false \
        >"$work/trayer.log" 2>&1 &
    pids+=($!)
    wait_for 20 xdotool search --class trayer || { cat "$work/trayer.log"; return 1; }
}
