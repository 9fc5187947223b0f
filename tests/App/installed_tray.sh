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
shows_picker() { wait_for 10 "$PICTRAY" show && wait_for 10 picker_shown; }

start_tray_host || { echo "FAIL: no tray host"; exit 1; }

"$PICTRAY" prefs set hasCompletedOnboarding true >/dev/null
"$PICTRAY" >"$work/pictray.log" 2>&1 &
pids+=($!)

check "the tray icon docks" wait_for 20 docked
check "pictray show opens the picker" shows_picker
if grep -Ei 'qml|cannot load|not installed' "$work/pictray.log"; then
    fail "the tray program's messages name a missing piece"
fi
"$PICTRAY" toggle >/dev/null 2>&1
((failures == 0))
