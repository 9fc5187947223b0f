#!/usr/bin/env bash
# The settings window end to end on a real X server, read and driven through
# the accessibility bus as a screen reader would (run inside xvfb-run and
# dbus-run-session): the controls of both tabs by role and name, a switch
# toggled, a new picker shortcut recorded, new icons fetched from a local
# server; and changes made in a terminal reaching the running program.
#
#   settings_e2e.sh PICTRAY XSHOT CATALOGUE AT_SPI_BUS_LAUNCHER

set -u
PICTRAY=$1
XSHOT=$2
CATALOGUE=$3
ATSPI_BUS_LAUNCHER=$4
HERE=$(dirname "$0")

session_bus=$DBUS_SESSION_BUS_ADDRESS
source "$HERE/x11-session.sh"
# This run's private bus has no StatusNotifier host, so the tray stays XEmbed.
export DBUS_SESSION_BUS_ADDRESS=$session_bus
# Qt speaks to the accessibility bus once a screen reader asks; here the
# test is the screen reader.
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
"$ATSPI_BUS_LAUNCHER" --launch-immediately >"$work/atspi.log" 2>&1 &
pids+=($!)
atspi() { /usr/bin/python3 "$HERE/atspi.py" "$@"; }
pref_is() { [ "$("$PICTRAY" prefs get "$1")" = "$2" ]; }

# A newer icon set on a local server, three outline icons smaller.
/usr/bin/python3 "$HERE/serve-release.py" "$CATALOGUE" 99.1.0 3 "$work/port" &
pids+=($!)
wait_for 20 test -s "$work/port" || { echo "the release server did not start"; exit 1; }
export PICTRAY_LATEST_URL=http://127.0.0.1:$(cat "$work/port")/latest
export PICTRAY_CDN_URL=http://127.0.0.1:$(cat "$work/port")

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

picker='push button:Shortcut: Control Alt I. Click to record a new one.@Open picker'
check "the General tab's controls, by role and name" atspi missing General \
    'page tab list:Settings' 'page tab:General' 'page tab:Copy' 'page tab:About' \
    'check box:Launch at login' 'check box:Automatically check for updates' \
    'check box:Show icon in tray' "$picker" \
    'push button:Shortcut: Control Alt C. Click to record a new one.@Copy last icon again' \
    'combo box:Picker position' 'combo box:After copying' 'page tab list:Appearance' \
    'check box:Keep last search when reopening' 'check box:Show category bar' \
    'label:Tabler Icons 3.51.0' 'push button:Check for New Icons' \
    'push button:Import favorites' 'push button:Export favorites' \
    'spin button:Number of recent icons to keep' 'push button:Clear recents'

atspi do General 'page tab:Copy' Press
check "the Copy tab shows, titled after it" atspi selected Copy 'page tab:Copy'
check "the Copy tab's controls, by role and name" atspi missing Copy \
    'combo box:Default format' 'page tab list:Default style' 'text:Default color' \
    'spin button:Default size' 'slider:Default stroke' 'check box:Optimize SVG' \
    'check box:Include width and height' 'check box:Use currentColor for Tailwind' \
    'check box:Add aria-hidden="true"' 'text:Class attribute' 'text:React component name' \
    'page tab list:React language' 'combo box:Vue style' 'text:Blade component prefix' \
    'check box:1×' 'check box:2×' 'check box:3×' 'page tab list:Background' \
    'spin button:Padding' 'combo box:Dragged icons arrive as'
atspi do Copy 'check box:Optimize SVG' Toggle
check "a switch toggled through the accessibility bus is stored" \
    wait_for 10 pref_is optimizeSVG false
atspi do Copy 'page tab:General' Press
atspi do General 'page tab:Light' Press
check "a segment chosen through the accessibility bus is stored" \
    wait_for 10 pref_is appearance light

atspi do General 'push button:Check for New Icons' Press
check "Check for New Icons installs the newer set and shows its version" \
    atspi missing General 'label:Tabler Icons 99.1.0' \
    'label:5,230 outline, 1,054 filled · stored on this computer' \
    'label:Updated to Tabler Icons 99.1.0.'
check "... which commands then read" bash -c "'$PICTRAY' info | grep -qx 'version: 99.1.0'"

# The "Open picker" recorder, clicked where the accessibility bus says it is.
read -r x y <<<"$(atspi center General "$picker")"
xdotool windowactivate --sync "$settings" 2>/dev/null
xdotool mousemove "${x:-0}" "${y:-0}" click 1
xdotool key ctrl+shift+k
check "the recorded shortcut is stored" wait_for 10 bash -c \
    "'$PICTRAY' prefs get pickerHotKey | grep -q '\"keyCode\":40'"
check "... and spoken by the recorder" atspi missing General \
    'push button:Shortcut: Control Shift K. Click to record a new one.@Open picker'
xdotool key Escape
check "Escape then closes the settings window" wait_for 10 bash -c \
    "! xdotool search --onlyvisible --name '^General$'"

xdotool key ctrl+shift+k
check "the new shortcut opens the picker" wait_for 15 panel_window
xdotool key ctrl+shift+k
check "... and closes it" wait_for 15 no_panel

# Were the old shortcut still live, it would open the picker and the new one
# close it again at once.
xdotool key ctrl+alt+i ctrl+shift+k
check "the old shortcut no longer opens the picker" wait_for 15 panel_window

# The panel's header, left of the search field: light now, dark once a
# terminal says so.
geometry "$(panel_window)"
body_luma() {
    local hex
    hex=$("$XSHOT" --pixel $((X + 6)) $((Y + 60)))
    echo $(((16#${hex:1:2} * 3 + 16#${hex:3:2} * 6 + 16#${hex:5:2}) / 10))
}
body_is_light() { (($(body_luma) > 160)); }
body_is_dark() { (($(body_luma) < 96)); }
check "the picker is light" wait_for 10 body_is_light
"$PICTRAY" prefs set appearance dark
check "prefs set appearance dark turns the open picker dark" wait_for 10 body_is_dark
xdotool key Escape Escape
wait_for 15 no_panel

# A favorite added in a terminal is in the tray menu without a restart.
read -r icon_x icon_y icon_w icon_h <<<"$(tray_icon_geometry)"
icon_cx=$((${icon_x:-0} + ${icon_w:-0} / 2))
icon_cy=$((${icon_y:-0} + ${icon_h:-0} / 2))
"$PICTRAY" favorites add rocket >/dev/null
check "favorites add reaches the tray menu's favorites" copy_favorite 1 rocket

if ((failures > 0)); then
    echo "--- pictray log"; cat "$work/pictray.log"
    exit 1
fi
