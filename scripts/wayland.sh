# Sourced by use_display in scripts/display.sh, for Wayland instead of X11. sway shows its screen on the virtual
# display, so mouse, keys and pictures are the same as for X11.
# shellcheck shell=bash disable=SC2034,SC2154

need sway wl-copy jq
out=$PWD/out/wayland

start_display() {
  local as_nobody=()
  start_xvfb
  # sway does not run as root.
  ((EUID != 0)) || as_nobody=(setpriv --pdeathsig KILL --reuid=nobody --regid=nogroup --clear-groups)
  mkdir -m 700 "$work/sway"
  cat >"$work/sway/config" <<'END'
output * resolution 1280x1024
bindsym Mod1+F4 kill
xwayland disable
default_border none
default_floating_border none
for_window [app_id=".*"] floating enable
for_window [title="^Partner$"] move position 0 0
exec echo "$WAYLAND_DISPLAY $SWAYSOCK" >"$XDG_RUNTIME_DIR/ready"
END
  ((EUID != 0)) || { chown -R nobody "$work/sway" && chmod 711 "$work"; }
  start "${as_nobody[@]}" env XDG_RUNTIME_DIR="$work/sway" WLR_BACKENDS=x11 WLR_RENDERER=pixman \
    DISPLAY="$DISPLAY" sway --config "$work/sway/config"
  sway_id=$!
  processes[sway]=$!
  await 'sway' grep -q . "$work/sway/ready"
  local socket
  read -r socket SWAYSOCK <"$work/sway/ready"
  export WAYLAND_DISPLAY=$work/sway/$socket SWAYSOCK
  environment+=(WAYLAND_DISPLAY="$WAYLAND_DISPLAY" QT_QPA_PLATFORM=wayland)
}

# windows FILTER VALUE: the output of this jq filter for sway's windows.
windows() { swaymsg -r -t get_tree | jq -er ".. | objects | select(.pid) | $1"; }

window_named() { windows "select(.name == \"$1\").id"; }
active_window() { windows 'select(.focused).id'; }
activate() { :; }
visible_windows() { windows .id; }
title_of() { windows "select(.id == $1).name"; }
place_of() { windows "select(.id == $1).rect | \"\\(.width)x\\(.height)+\\(.x)+\\(.y)\""; }
window_height() { windows "select(.id == $window).rect.height"; }

move_mouse() {
  local left top
  read -r left top < <(windows "select(.id == $window).rect | \"\\(.x) \\(.y)\"")
  xdotool mousemove $((left + $1)) $((top + $2))
}

copy() { wl-copy --type 'text/plain;charset=utf-8'; }
clipboard() { wl-paste --no-newline; }

picture_of_window() {
  move_mouse_away # it would be in the picture
  import -silent -window root -crop "$(place_of "$window")" ppm:-
}
