#!/usr/bin/env bash
# The tray application end to end on a real X server (run inside xvfb-run):
# a window manager, a tray host, the real `pictray`, keys and clicks from
# xdotool and the clipboard read back by xclip.
#
#   tray_e2e.sh PICTRAY XSHOT [SCREENSHOT_DIR]

set -u
PICTRAY=$1
XSHOT=$2
SHOTS=${3:-}

source "$(dirname "$0")/x11-session.sh"

clipboard() { xclip -selection clipboard -o 2>/dev/null; }
clear_clipboard() { printf 'cleared' | xclip -selection clipboard -i; }

start_tray_host || { echo "no tray host"; exit 1; }

"$PICTRAY" prefs set hasCompletedOnboarding true >/dev/null
"$PICTRAY" favorites add arrow-left heart star bolt >/dev/null

check "commands need a running instance" bash -c "! '$PICTRAY' toggle 2>/dev/null"

started=$(date +%s%N)
PICTRAY_TRACE_STARTUP=1 "$PICTRAY" >"$work/pictray.log" 2>&1 &
tray_pid=$!
pids+=($tray_pid)

if wait_for 20 bash -c "[ -n \"\$(xwininfo -root -tree | grep '(\"pictray\" \"Pictray\")')\" ]"; then
    docked=$(date +%s%N)
    pass "tray icon appears in trayer"
    echo "measure: exec to tray icon docked: $(((docked - started) / 1000000)) ms (polled every 0.1 s)"
else
    fail "tray icon appears in trayer"
fi
read -r icon_x icon_y icon_w icon_h <<<"$(tray_icon_geometry)"
echo "tray icon at ${icon_x:-?},${icon_y:-?} size ${icon_w:-?}x${icon_h:-?}"
check "tray icon sits in the top-right tray" \
    test "${icon_x:-0}" -gt 1400 -a "${icon_y:-99}" -lt 24
icon_cx=$((icon_x + icon_w / 2))
icon_cy=$((icon_y + icon_h / 2))
wait_for 30 "$PICTRAY" show --tab all
"$PICTRAY" toggle # closes the panel that show opened
grep 'pictray: startup' "$work/pictray.log" | sed 's/^/measure: /'
echo "measure: idle VmRSS $(awk '/VmRSS/ {print $2, $3}' /proc/$tray_pid/status)"

check "copy-last with nothing copied fails" bash -c "! '$PICTRAY' copy-last 2>/dev/null"

copy_favorite 2 heart && copy_favorite 3 star && copy_favorite 4 bolt # for the recent row
expected=$("$PICTRAY" export arrow-left)
clear_clipboard
copy_favorite 1 arrow-left
check "a favorite from the tray menu lands on the clipboard" test "$(clipboard)" == "$expected"
recents=$("$PICTRAY" recents | tr '\n' ' ')
check "the copies are recorded in the recents ($recents)" \
    test "$recents" == "arrow-left bolt star heart "

clear_clipboard
check "copy-last is sent to the running instance" "$PICTRAY" copy-last
check "copy-last copies the last icon again" test "$(clipboard)" == "$expected"

# The menu now has its recent row.
open_menu
if [ -n "$SHOTS" ]; then
    mkdir -p "$SHOTS"
    "$XSHOT" "$SHOTS/tray-menu.png" 1150 0 450 420 && echo "screenshot: $SHOTS/tray-menu.png"
fi
xdotool key Escape
wait_for 15 menu_hidden

check "toggle is sent to the running instance" "$PICTRAY" toggle
check "toggle again" "$PICTRAY" toggle

# Started again: the running one opens its settings and the new one leaves.
check "a second pictray exits at once" timeout 30 "$PICTRAY"
check "... and the settings window opens" wait_for 30 xdotool search --onlyvisible --name '^General$'
settings_window=$(xdotool search --onlyvisible --name '^General$' | head -1)
check "the first instance still runs" kill -0 "$tray_pid"

# --- The picker panel ---
# Typing goes to the panel only once it has the keyboard, which a busy
# machine gives it some frames after it shows.
panel_has_keyboard() { [ "$(xdotool getwindowfocus)" = "$(panel_window)" ]; }
# The shortcut toggles: a panel still closing after a copy would be closed
# again instead of opened, so wait for it to go first.
# When the panel goes, the window manager hands the keyboard back to the
# settings window; on a busy machine it may do so after the next panel has
# shown and take the keyboard from it, so wait for that hand-over first.
keyboard_handed_back() {
    local focus
    focus=$(xdotool getwindowfocus 2>/dev/null) || return 0
    [ "$focus" != "${panel:-}" ] && { [ -z "${settings_window:-}" ] || [ "$focus" = "$settings_window" ]; }
}
open_panel() {
    wait_for 15 no_panel
    [ -z "${panel:-}" ] || wait_for 15 keyboard_handed_back || true
    xdotool key ctrl+alt+i
    wait_for 15 panel_window || return 1
    wait_for 15 panel_has_keyboard || true # a gate for typing, not a check
}
check "the shortcut opens the panel" open_panel
panel=$(panel_window)
geometry "$panel"
echo "panel at $X,$Y size ${WIDTH}x$HEIGHT"
check "the panel lies under the tray icon" \
    test "$X" -le "$icon_cx" -a "$((X + WIDTH))" -ge "$icon_cx" -a "$Y" -ge "$icon_y"

clear_clipboard
xdotool type --delay 40 "arrow left"
xdotool key Return
wait_for 15 bash -c "[ \"\$(xclip -selection clipboard -o)\" != cleared ]"
check "Return copies the first result" test "$(clipboard)" == "$expected"

open_panel
xdotool type --delay 40 "zzz"
xdotool key Escape
check "the first Escape clears the search, the panel stays" wait_for 0 panel_window
xdotool key Escape
check "the second Escape closes the panel" wait_for 15 bash -c "! xwininfo -id $panel | grep -q IsViewable"

# (The running program keeps its own favorites: edit them only through it.)
open_panel
xdotool type --delay 40 "arrow right"
xdotool key ctrl+d
check "Ctrl+D makes the selection a favorite" \
    wait_for 15 bash -c "'$PICTRAY' favorites list | grep -qx arrow-right"
# Escape clears the search, then closes. On a loaded machine a key can reach
# the panel late, so the panel is closed one Escape at a time before the
# toggles below are tried.
for _ in 1 2 3; do
    xdotool key Escape
    wait_for 3 no_panel && break
done

"$PICTRAY" toggle
check "pictray toggle opens the panel" wait_for 15 panel_window
"$PICTRAY" toggle
check "pictray toggle closes it" wait_for 15 bash -c "! xwininfo -id $panel | grep -q IsViewable"

# Quit from the menu: the last item.
open_menu
xdotool key Up Return
check "Quit Pictray ends the program" wait_for 30 bash -c "! kill -0 $tray_pid"

if ((failures > 0)); then
    echo "--- pictray log"; cat "$work/pictray.log"
    echo "$failures check(s) failed"
    exit 1
fi
echo "all checks passed"
