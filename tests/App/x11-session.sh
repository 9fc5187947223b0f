# Sourced by the tray scripts that run inside xvfb-run: a throw-away home
# for the run, the background processes it ends on exit, the checks and a
# poll helper (e2e-checks.sh), a window manager with a tray host, and ways to
# find the tray icon, its menu and the picker panel.

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

# The tray icon: an XEmbed client window of class pictray inside trayer.
tray_icon_geometry() {
    xwininfo -root -tree | awk '/\("pictray" "Pictray"\)/ && $0 ~ /22x22|24x24|16x16|20x20/ {
        split($NF, a, "+"); split($(NF-1), s, "+"); split(s[1], wh, "x");
        print a[2], a[3], wh[1], wh[2]; exit }'
}

# The tray menu: a visible window of pictray's (found by class: the menu has
# no plain name) larger than the heads-up message and the tray icon, smaller
# than the settings, onboarding and picker windows.
menu_shown() {
    local w
    for w in $(xdotool search --onlyvisible --class pictray); do
        read -r width height <<<"$(xwininfo -id "$w" |
            awk '/Width:/ {w = $2} /Height:/ {h = $2} END {print w, h}')"
        ((width >= 150 && width < 450 && height >= 100 && height < 480)) && return 0
    done
    return 1
}
menu_hidden() { ! menu_shown; }
# A busy machine may take the first click for nothing: click again until the
# menu shows.
open_menu() {
    local attempt
    for attempt in 1 2 3; do
        xdotool mousemove "$icon_cx" "$icon_cy" click 3
        wait_for 15 menu_shown && return 0
        echo "the menu did not show (attempt $attempt)"
        xdotool key Escape
    done
    return 1
}

last_recent_is() { [ "$("$PICTRAY" recents | head -1)" == "$1" ]; }

# Copies through the tray menu: Favorites > NAME, in the default format, and
# waits until the copy is recorded. The recent row, once there, takes one step
# of the arrow keys. Keys sent before the menu took the keyboard are lost:
# then it opens the menu again.
copy_favorite() { # copy_favorite POSITION-IN-FAVORITES NAME
    local keys=(Down Down) attempt
    [ -n "$("$PICTRAY" recents)" ] && keys+=(Down)
    keys+=(Right)
    for ((i = 1; i < $1; i++)); do keys+=(Down); done
    for attempt in 1 2 3; do
        open_menu || return 1
        xdotool key "${keys[@]}" Return
        wait_for 15 last_recent_is "$2" && return 0
        echo "the copy of $2 was not recorded (attempt $attempt)"
        xdotool key Escape Escape
        wait_for 15 menu_hidden
    done
    return 1
}

# geometry ID: sets X, Y (absolute), WIDTH and HEIGHT from xwininfo.
geometry() {
    # Without a window xwininfo would wait for one to be clicked.
    [[ -n $1 ]] || { X=0 Y=0 WIDTH=0 HEIGHT=0; return 1; }
    eval "$(xwininfo -id "$1" | awk -F: '
        /Absolute upper-left X/ {print "X=" $2+0} /Absolute upper-left Y/ {print "Y=" $2+0}
        /Width/ {print "WIDTH=" $2+0} /Height/ {print "HEIGHT=" $2+0}')"
}
panel_window() { # the visible Pictray window as large as the panel
    for w in $(xdotool search --onlyvisible --name '^Pictray$'); do
        geometry "$w"
        if [ "$WIDTH" -ge 780 ] && [ "$HEIGHT" -ge 730 ]; then echo "$w"; return 0; fi
    done
    return 1
}
no_panel() { ! panel_window; }
