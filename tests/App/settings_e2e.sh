#!/usr/bin/env bash
# The settings window end to end on a real X server (run inside xvfb-run): a
# new picker shortcut recorded with xdotool takes over from the old one at once.
#
#   settings_e2e.sh PICTRAY

set -u
PICTRAY=$1

failures=0
check() { # check DESCRIPTION COMMAND...
    local what=$1; shift
    if "$@"; then echo "PASS: $what"; else echo "FAIL: $what"; failures=$((failures + 1)); fi
}
source "$(dirname "$0")/x11-session.sh"

start_tray_host || { echo "no tray host"; exit 1; }
"$PICTRAY" prefs set hasCompletedOnboarding true >/dev/null
"$PICTRAY" >"$work/pictray.log" 2>&1 &
pids+=($!)
wait_for 30 "$PICTRAY" show --tab all
"$PICTRAY" toggle # closes the panel that show opened

# Starting Pictray again opens the settings window of the running one.
"$PICTRAY"
check "the settings window opens" wait_for 30 xdotool search --onlyvisible --name '^General$'
settings=$(xdotool search --onlyvisible --name '^General$' | head -1)

# The picker panel: a visible Pictray window at least as large as its minimum.
picker_shown() {
    local w size
    for w in $(xdotool search --onlyvisible --name '^Pictray$'); do
        size=$(xdotool getwindowgeometry "$w" | awk '/Geometry/ {print $2}')
        [ "${size%x*}" -ge 700 ] && return 0
    done
    return 1
}
picker_hidden() { ! picker_shown; }

# The "Open picker" field, as laid out at the window's default size.
xdotool windowactivate --sync "$settings" 2>/dev/null
xdotool mousemove --window "$settings" 362 292 click 1
xdotool key ctrl+shift+k
check "the recorded shortcut is stored" wait_for 10 bash -c \
    "'$PICTRAY' prefs get pickerHotKey | grep -q '\"keyCode\":40'"
xdotool key Escape
check "Escape then closes the settings window" wait_for 10 bash -c \
    "! xdotool search --onlyvisible --name '^General$'"

xdotool key ctrl+shift+k
check "the new shortcut opens the picker" wait_for 15 picker_shown
xdotool key ctrl+shift+k
check "... and closes it" wait_for 15 picker_hidden

# Were the old shortcut still live, it would open the picker and the new one
# close it again at once.
xdotool key ctrl+alt+i ctrl+shift+k
check "the old shortcut no longer opens the picker" wait_for 15 picker_shown
"$PICTRAY" prefs get pickerHotKey >/dev/null
check "... and the picker stays open" picker_shown

exit $((failures > 0))
