#!/usr/bin/env bash
# The tray program of an installed Pictray starts from the installed files
# alone: its icon docks in a tray and `pictray show` opens the picker, whose
# views load without a QML error. Run it inside xvfb-run.
#
#   installed_tray.sh PICTRAY

set -u
PICTRAY=$1

source "$(dirname "$0")/x11-session.sh"

docked() { xwininfo -root -tree | grep -q '("pictray" "Pictray")'; }
picker_shown() { [ -n "$(xdotool search --onlyvisible --name '^Pictray$')" ]; }

start_tray_host || { echo "FAIL: no tray host"; exit 1; }

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
