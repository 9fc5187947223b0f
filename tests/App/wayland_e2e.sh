#!/usr/bin/env bash
# The tray application end to end in a Wayland session: headless sway, a
# private session bus with stand-ins for the desktop portal and a
# StatusNotifierWatcher (wayland_fakes.py), keys typed with wtype, the
# clipboard read with wl-paste, screenshots taken with grim, the settings
# window read through the accessibility bus.
#
#   wayland_e2e.sh PICTRAY AT_SPI_BUS_LAUNCHER [SCREENSHOT_DIR]
#
# Started as root (as CI runs), it runs itself as the unprivileged user
# `nobody`: sway refuses root, and the runtime folder must be the user's.

set -u
PICTRAY=$1
ATSPI_BUS_LAUNCHER=$2
SHOTS=${3:-}
here=$(cd "$(dirname "$0")" && pwd)

if [ -z "${PICTRAY_WAYLAND_WORK:-}" ]; then
    work=$(mktemp -d)
    chmod 755 "$work"
    # The program is copied where the user can reach it (a build folder
    # under a private home is out of its reach).
    mkdir -p "$work/bin" "$work/shots"
    cp "$PICTRAY" "$(dirname "$PICTRAY")"/libpictray-tray.so "$work/bin/"
    as_user=()
    if [ "$(id -u)" -eq 0 ]; then
        chown -R nobody:nogroup "$work"
        as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups --reset-env --)
    fi
    "${as_user[@]}" env PICTRAY_WAYLAND_WORK="$work" PATH="/usr/bin:/bin:/usr/sbin" \
        dbus-run-session -- bash "$here/wayland_e2e.sh" "$work/bin/pictray" "$ATSPI_BUS_LAUNCHER" \
        "$work/shots"
    status=$?
    if [ -n "$SHOTS" ] && compgen -G "$work/shots/*.png" >/dev/null; then
        mkdir -p "$SHOTS" && cp "$work"/shots/*.png "$SHOTS/"
    fi
    rm -rf "$work"
    exit $status
fi

# --- As the user, on the private bus ---
work=$PICTRAY_WAYLAND_WORK
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null; done
    wait 2>/dev/null
}
trap cleanup EXIT

source "$here/e2e-checks.sh"

export HOME=$work/home XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
export XDG_RUNTIME_DIR=$work/run
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset DISPLAY QT_QPA_PLATFORM XDG_SESSION_TYPE

cat >"$work/sway.conf" <<'CONF'
xwayland disable
output HEADLESS-1 mode 1600x1000
CONF
WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_LIBINPUT_NO_DEVICES=1 \
    sway --config "$work/sway.conf" >"$work/sway.log" 2>&1 &
pids+=($!)
sway_pid=$!
wayland_socket() { compgen -G "$XDG_RUNTIME_DIR/wayland-[0-9]" | head -1; }
if ! wait_for 30 wayland_socket || ! wait_for 30 compgen -G "$XDG_RUNTIME_DIR/sway-ipc.*.sock"; then
    echo "sway did not start"; cat "$work/sway.log"; exit 1
fi
WAYLAND_DISPLAY=$(basename "$(wayland_socket)")
SWAYSOCK=$(compgen -G "$XDG_RUNTIME_DIR/sway-ipc.*.sock" | head -1)
export WAYLAND_DISPLAY SWAYSOCK

# A headless seat has no keyboard: each wtype brings one and takes it away
# again, and a seat that loses its last keyboard takes the focus from the
# panel, which then closes. One wtype that waits keeps a keyboard there.
wtype -s 3600000 &
pids+=($!)

portal_log=$work/portal.log
watcher_log=$work/watcher.log
/usr/bin/python3 "$here/wayland_fakes.py" portal "$portal_log" &
pids+=($!)
wait_for 15 grep -q ready "$portal_log" || { echo "the fake portal did not start"; exit 1; }
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
"$ATSPI_BUS_LAUNCHER" --launch-immediately >"$work/atspi.log" 2>&1 &
pids+=($!)
atspi() { /usr/bin/python3 "$here/atspi.py" "$@"; }

clipboard() { wl-paste --no-newline 2>/dev/null; }
clipboard_is() { [ "$(clipboard)" = "$1" ]; }
clear_clipboard() { printf 'cleared' | wl-copy; }
trigger() { dbus-send --session --type=method_call --dest=org.freedesktop.portal.Desktop /org/freedesktop/portal/desktop app.pictray.Test.Trigger "string:$1"; }
binds() { grep -c '^BindShortcuts' "$portal_log"; }

"$PICTRAY" prefs set hasCompletedOnboarding true >/dev/null
"$PICTRAY" favorites add arrow-left heart >/dev/null

start_pictray() {
    "$PICTRAY" >>"$work/pictray.log" 2>&1 &
    tray_pid=$!
    pids+=($tray_pid)
    wait_for 30 "$PICTRAY" show --tab all && "$PICTRAY" toggle >/dev/null
}
lists() { grep -c '^ListShortcuts' "$portal_log"; }

# First start: the portal binds both shortcuts with the stored combinations.
if ! start_pictray; then
    fail "pictray starts under sway"
    cat "$work/pictray.log"; exit 1
fi
pass "pictray starts under sway"
check "it lists the desktop's shortcuts" wait_for 30 bash -c "[ \$(grep -c '^ListShortcuts' '$portal_log') -ge 1 ]"
check "it binds the missing ones with the stored keys" \
    wait_for 30 grep -q '^BindShortcuts copyLast=CTRL+ALT+c picker=CTRL+ALT+i$' "$portal_log"

# A watcher that comes after the start still gets the icon.
/usr/bin/python3 "$here/wayland_fakes.py" watcher "$watcher_log" &
pids+=($!)
check "the tray icon registers with a watcher that came late" \
    wait_for 30 grep -q '^RegisterStatusNotifierItem' "$watcher_log"
item=$(awk '/^RegisterStatusNotifierItem/ {print $2; exit}' "$watcher_log")

# The panel: a floating, centred window of pictray's.
panel_node() {
    swaymsg -t get_tree | /usr/bin/python3 -c '
import json, sys
def walk(node, floating=False):
    yield node, floating
    for child in node.get("nodes", []):
        yield from walk(child, floating)
    for child in node.get("floating_nodes", []):
        yield from walk(child, True)
for node, floating in walk(json.load(sys.stdin)):
    if node.get("app_id") == "app.pictray.Pictray" and node.get("visible") and node["rect"]["width"] > 500:
        r = node["rect"]
        print(int(floating), int(node.get("focused")), r["x"], r["y"], r["width"], r["height"])
        sys.exit(0)
sys.exit(1)'
}
no_panel() { ! panel_node; }
panel_focused() { [ "$(panel_node | cut -d' ' -f2)" = 1 ]; }

trigger picker
check "Activated(picker) opens the panel" wait_for 30 panel_node
read -r floating focused px py pw ph <<<"$(panel_node)"
echo "panel: floating=$floating focused=$focused at $px,$py size ${pw}x$ph"
check "the panel floats" test "${floating:-0}" = 1
check "the panel is centred" test "$((px + pw / 2))" -ge 790 -a "$((px + pw / 2))" -le 810
check "the panel has the keyboard" wait_for 15 panel_focused

expected=$("$PICTRAY" export arrow-left)
clear_clipboard
# The picker is drawn a few frames after the keys: shoot until two shots in
# a row agree and differ from the one before typing.
shoot() { grim -g "$((px - 40)),$((py - 40)) $((pw + 80))x$((ph + 80))" "$1"; }
drawn_anew() {
    shoot "$work/shot-b.png" && ! cmp -s "$work/shot-before.png" "$work/shot-b.png" &&
        cmp -s "$work/shot-a.png" "$work/shot-b.png" || { mv "$work/shot-b.png" "$work/shot-a.png"; false; }
}
shoot "$work/shot-before.png"
wtype "arrow left"
if [ -n "$SHOTS" ] && wait_for 15 drawn_anew; then
    cp "$work/shot-b.png" "$SHOTS/wayland-picker.png" && echo "screenshot: $SHOTS/wayland-picker.png"
fi
check "typing keeps the panel open" wait_for 0 panel_node
wtype -k Return
check "Return copies what export prints" wait_for 15 clipboard_is "$expected"

clear_clipboard
trigger copyLast
# A copy clears the clipboard first: wait for the whole text.
check "Activated(copyLast) copies the last icon again, exactly" wait_for 15 clipboard_is "$expected"

clear_clipboard
check "pictray copy-last is answered" "$PICTRAY" copy-last
check "pictray copy-last puts the last icon on the clipboard, exactly" \
    wait_for 15 clipboard_is "$expected"

# A PNG copy: Ctrl+2 copies at 2x, 48 pixels for the default 24.
wait_for 15 no_panel
trigger picker
wait_for 30 panel_node && wait_for 15 panel_focused
wtype "heart"
clear_clipboard
wtype -M ctrl -k 2 -m ctrl
wait_for 15 bash -c "wl-paste --list-types | grep -qx image/png"
wl-paste --type image/png >"$work/copy.png" 2>/dev/null
size=$(/usr/bin/python3 -c 'import struct,sys; d=open(sys.argv[1],"rb").read(24); print(*struct.unpack(">II", d[16:24])) if d[:8]==b"\x89PNG\r\n\x1a\n" else print("none")' "$work/copy.png")
check "a PNG copy has its exact size (got $size)" test "$size" = "48 48"

# Close and paste: the portal lends a keyboard once the user agrees, and
# Ctrl+V goes to the window the panel gave the keyboard back to.
"$PICTRAY" prefs set afterCopy closeAndPaste >/dev/null
ctrl_v='Keysym 65507 1 Keysym 118 1 Keysym 118 0 Keysym 65507 0 '
count() { grep -c "^$1" "$portal_log"; }
copy_and_paste() {
    wait_for 15 no_panel
    trigger picker
    wait_for 30 panel_node && wait_for 15 panel_focused
    wtype "$1"
    wtype -k Return
}
copy_and_paste heart
check "the first paste asks for a lasting consent" \
    wait_for 15 grep -q '^SelectDevices types=1 persist=2 token=-$' "$portal_log"
keysyms_are() { [ "$(grep '^Keysym' "$portal_log" | tr '\n' ' ')" = "$1" ]; }
check "... and sends Ctrl+V once it is given" wait_for 15 keysyms_are "$ctrl_v"
copy_and_paste rocket
check "a second paste reuses the session" wait_for 15 keysyms_are "$ctrl_v$ctrl_v"
check "... without asking again" test "$(count 'Start')" = 1

# The tray icon's Activate toggles the picker.
wait_for 15 no_panel
dbus-send --session --type=method_call --dest="$item" /StatusNotifierItem org.kde.StatusNotifierItem.Activate int32:0 int32:0
check "the tray icon's Activate opens the picker" wait_for 30 panel_node
dbus-send --session --type=method_call --dest="$item" /StatusNotifierItem org.kde.StatusNotifierItem.Activate int32:0 int32:0
check "... and closes it" wait_for 30 no_panel

# Second start: the desktop already has both, so nothing is bound again.
"$PICTRAY" toggle >/dev/null # let it quit through its own request queue
kill "$tray_pid"
wait "$tray_pid" 2>/dev/null
check "a second start" start_pictray
check "it lists again" wait_for 30 bash -c "[ \$(grep -c '^ListShortcuts' '$portal_log') -ge 2 ]"
check "the portal saw one BindShortcuts over two starts" test "$(binds)" = 1

copy_and_paste heart
check "after a restart the kept token restores the consent" \
    wait_for 15 grep -q '^Start restored$' "$portal_log"
check "... so the user was asked once in all" test "$(count 'Start asked')" = 1
check "... and the paste goes through" wait_for 15 keysyms_are "$ctrl_v$ctrl_v$ctrl_v"

# The user ends the session and refuses the next: copies go on, and
# Pictray stops asking.
dbus-send --session --type=method_call --dest=org.freedesktop.portal.Desktop /org/freedesktop/portal/desktop app.pictray.Test.Refuse
clear_clipboard
copy_and_paste rocket
check "a refused consent" wait_for 15 grep -q '^Start refused$' "$portal_log"
check "... still copies" wait_for 15 clipboard_is "$("$PICTRAY" export rocket)"
copy_and_paste heart
wait_for 15 no_panel
check "... and is not asked again" test "$(count 'Start')" = 3
check "... nor pasted" test "$(count 'Keysym')" = 12

# The settings: the desktop's keys in place of the recorders, its own
# shortcut dialog a button away, and why nothing is pasted.
"$PICTRAY"
check "the settings window opens" atspi missing General \
    "label:Your desktop runs it with CTRL+ALT+i; change it in the desktop's keyboard settings."
[ -n "$SHOTS" ] && grim "$SHOTS/wayland-settings.png"
no_recorder() { ! atspi missing General 'push button:Shortcut: Control Alt I. Click to record a new one.@Open picker' >/dev/null; }
check "... without a recorder" no_recorder
check "... says why nothing is pasted" atspi missing General \
    "label:You did not let Pictray type into other windows, so “Close and paste” only copies. Pictray asks again when it restarts."
atspi do General "push button:Change…@Opens the desktop's shortcut settings for Open picker" Press
check "Change… opens the desktop's shortcut settings" wait_for 15 grep -q '^ConfigureShortcuts$' "$portal_log"

if ((failures > 0)); then
    echo "--- pictray log"; cat "$work/pictray.log"
    echo "--- portal log"; cat "$portal_log"
    echo "$failures check(s) failed"
    exit 1
fi
echo "all checks passed"
