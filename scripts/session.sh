# shellcheck shell=bash
# The virtual desktop of scripts/virtual-session, which sources this.

# The folder in which everything lives, the session's home too.
session=
declare -A processes=()

# start NAME COMMAND...: runs the command in the background, its messages in NAME.log.
start() {
    local name=$1
    shift
    "$@" >"$session/$name.log" 2>&1 &
    processes[$name]=$!
}

has_ended() {
    ! kill -0 "${processes[$1]}" 2>/dev/null
}

take_down() {
    local status=$? name
    trap - EXIT
    # The program first, so that it ends by its normal path; what was started over the bus dies with bus and screen.
    for name in program thunar editor galculator terminal tray picom openbox bus screen; do
        if [[ -n ${processes[$name]:-} ]] && ! has_ended "$name"; then
            kill "${processes[$name]}" 2>/dev/null || true
            wait_until 5 has_ended "$name" || kill -KILL "${processes[$name]}" 2>/dev/null || true
        fi
    done
    wait
    rm -rf "$session"
    exit "$status"
}

make_home() {
    session=$(mktemp -d "${TMPDIR:-/tmp}/quillary-XXXXXX")
    # The file manager shows this name in its title.
    export HOME=$session/home
    export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_CACHE_HOME=$HOME/.cache
    export XDG_RUNTIME_DIR=$session/run
    export LC_ALL=C.UTF-8 NO_AT_BRIDGE=1 GTK_USE_PORTAL=0 GSETTINGS_BACKEND=memory QT_QPA_PLATFORM=xcb
    unset WAYLAND_DISPLAY XAUTHORITY DBUS_SESSION_BUS_ADDRESS XDG_SESSION_TYPE
    mkdir -p "$HOME"/{Desktop,Documents,Downloads,Music,Pictures,Videos} "$XDG_DATA_HOME" "$XDG_CACHE_HOME" \
        "$XDG_CONFIG_HOME"/{gtk-3.0,Quillary} "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
    printf '[Settings]\ngtk-icon-theme-name=Papirus\ngtk-theme-name=Adwaita\ngtk-font-name=Inter 10\ngtk-cursor-blink=0\n' \
        >"$XDG_CONFIG_HOME/gtk-3.0/settings.ini"
    # The file manager warns of the root account in a bar, which says nothing about the program shown.
    cat >"$XDG_CONFIG_HOME/gtk-3.0/gtk.css" <<'CSS'
infobar, infobar * {
    min-height: 0; margin: 0; padding: 0; border: 0; font-size: 0; color: transparent; background: none;
}
CSS
    printf 'Buy bread\nCall Ada\nPlant the plum tree\n' >"$HOME/Documents/Notes.txt"
    settings >"$XDG_CONFIG_HOME/Quillary/settings.json"
}

# LEFT has a dock that was customised; RIGHT is connected for the first time and starts with the desktop's usual
# applications. A screen without a serial number is known by the 32-bit FNV-1a of its name.
settings() {
    local apps=/usr/share/applications
    cat <<JSON
{
  "onboarded": true,
  "docks": [
    { "screenKey": "$(fnv1a LEFT)", "screenName": "LEFT", "magnification": "big", "iconSize": 52,
      "items": ["$apps/thunar.desktop", "$apps/l3afpad.desktop", "$apps/galculator.desktop",
                "$apps/debian-xterm.desktop", "$HOME/Documents", "$HOME/Downloads", "$HOME/Pictures"] }
  ]
}
JSON
}

fnv1a() {
    local hash=2166136261 i code
    for ((i = 0; i < ${#1}; ++i)); do
        printf -v code '%d' "'${1:i:1}"
        hash=$(((hash ^ code) * 16777619 & 0xffffffff))
    done
    printf '%s\n' "$hash"
}

# start_server SIZE: the server finds a free display number and writes it when clients may connect.
start_server() {
    : >"$session/display"
    start screen Xvfb -displayfd 3 -screen 0 "$1x24" -noreset -nolisten tcp 3>"$session/display"
    wait_until 20 test -s "$session/display" || fail "no virtual screen: $(cat "$session/screen.log")"
    DISPLAY=:$(<"$session/display")
    export DISPLAY
}

start_screen() {
    start_server 2400x800
    xrandr --setmonitor '*LEFT' 1280/320x800/200+0+0 screen >/dev/null
    xrandr --setmonitor RIGHT 1120/280x800/200+1280+0 none >/dev/null
}

start_desktop() {
    : >"$session/bus"
    start bus dbus-daemon --session --nofork --nopidfile --print-address=3 3>"$session/bus"
    wait_until 10 test -s "$session/bus" || fail "no session bus: $(cat "$session/bus.log")"
    DBUS_SESSION_BUS_ADDRESS=$(<"$session/bus")
    export DBUS_SESSION_BUS_ADDRESS

    start openbox openbox
    wait_until 10 window_manager_runs
    wallpaper
    start picom picom --config /dev/null --backend xrender --shadow --shadow-radius 14 --shadow-opacity 0.4 \
        --shadow-offset-x -14 --shadow-offset-y -10 --shadow-exclude "window_type = 'dock'"
    wait_until 10 compositor_runs
}

# A status bar at the top right of LEFT, for the program's symbol.
start_tray() {
    cat >"$session/tint2rc" <<'CONF'
background_id = 0
rounded = 6
border_width = 0
background_color = #1d2130 75
panel_items = SC
panel_monitor = 1
panel_position = top right horizontal
panel_size = 110 28
panel_margin = 8 8
panel_padding = 8 2 8
panel_background_id = 1
panel_layer = normal
strut_policy = none
systray_padding = 0 2 6
systray_icon_size = 20
time1_format = %H:%M
time1_font = Inter 10
clock_font_color = #e8ebf2 100
CONF
    start tray tint2 -c "$session/tint2rc"
}

window_manager_runs() {
    [[ $(xprop -root _NET_SUPPORTING_WM_CHECK) == *'window id'* ]]
}

compositor_runs() {
    [[ $(xwininfo -root -tree) == *'"picom"'* ]]
}

wallpaper() {
    convert -size 240x80 xc: -sparse-color Shepards \
        '0,0 #1d2b53 120,0 #3a4f8f 239,0 #6b4c8a 60,40 #2f6d8c 180,35 #c06c84 0,79 #14323f 120,79 #f2a488 239,79 #3b2a56' \
        -resize "$(xdotool getdisplaygeometry | tr " " x)!" -blur 0x20 "$session/wallpaper.png"
    hsetroot -root -cover "$session/wallpaper.png" >/dev/null
}

start_applications() {
    start thunar thunar "$HOME"
    start editor l3afpad "$HOME/Documents/Notes.txt"
    start galculator galculator
    start terminal xterm -fa 'DejaVu Sans Mono' -fs 11 -bg '#1e2430' -fg '#d8dee9' -T Terminal \
        -e sh -c 'cd; ls -gGh; PS1="\$ " exec sh'
    place Thunar 90 70 760 470
    place L3afpad 640 330 520 330
    place Galculator 2000 70
    place XTerm 1380 250 560 330
}

# place CLASS X Y [WIDTH HEIGHT]: waits for the window, then moves, sizes and raises it.
place() {
    local window=
    wait_until 20 find_window "$1" || return 0 # the docks can be shown without it
    xdotool windowmove "$window" "$2" "$3"
    if (($# > 3)); then
        xdotool windowsize "$window" "$4" "$5"
    fi
    xdotool windowraise "$window"
}

# Sets the caller's $window. xdotool fails when any window closes while it searches, so ask again then.
find_window() {
    window=$(xdotool search --onlyvisible --class "^$1\$" 2>/dev/null | tail -n 1) && [[ -n $window ]]
}
