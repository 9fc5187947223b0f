#!/usr/bin/env bash
# The tray program of an installed Pictray starts from the installed files
# alone: its icon docks in a tray and `pictray show` opens the picker, whose
# views load without a QML error. Run it inside xvfb-run.
#
#   installed_tray.sh PICTRAY

set -u
PICTRAY=$1

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
unset DBUS_SESSION_BUS_ADDRESS

# wait_for SECONDS COMMAND...: polls until the command succeeds.
wait_for() {
    local deadline=$((SECONDS + $1)); shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS >= deadline)) && return 1
        read -rt 0.1 <> <(:) || true
    done
}
docked() { xwininfo -root -tree | grep -q '("pictray" "Pictray")'; }
picker_shown() { [ -n "$(xdotool search --onlyvisible --name '^Pictray$')" ]; }

openbox >/dev/null 2>&1 &
pids+=($!)
trayer --edge top --align right --widthtype request --height 24 >/dev/null 2>&1 &
pids+=($!)
wait_for 20 xdotool search --class trayer || { echo "FAIL: no tray host"; exit 1; }

"$PICTRAY" prefs set hasCompletedOnboarding true >/dev/null
"$PICTRAY" >"$work/pictray.log" 2>&1 &
pids+=($!)

status=0
if wait_for 20 docked; then echo "PASS: the tray icon docks"; else echo "FAIL: the tray icon docks"; status=1; fi
if wait_for 10 "$PICTRAY" show && wait_for 10 picker_shown; then
    echo "PASS: pictray show opens the picker"
else
    echo "FAIL: pictray show opens the picker"; status=1
fi
if grep -Ei 'qml|cannot load|not installed' "$work/pictray.log"; then
    echo "FAIL: the tray program's messages name a missing piece"; status=1
fi
"$PICTRAY" toggle >/dev/null 2>&1
exit $status
