# To be sourced after scripts/display.sh: its display, hand and eye for Wayland, with a sway that shows nothing.
# shellcheck shell=bash

need sway wl-copy grim

start_display() {
  local as_nobody=() socket
  # sway refuses root.
  ((EUID != 0)) || as_nobody=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
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
  start "${as_nobody[@]}" env XDG_RUNTIME_DIR="$work/sway" WLR_BACKENDS=headless WLR_RENDERER=pixman \
    WLR_LIBINPUT_NO_DEVICES=1 sway --config "$work/sway/config"
  display_id=$!
  await 'sway' grep -q . "$work/sway/ready"
  read -r socket SWAYSOCK <"$work/sway/ready"
  export WAYLAND_DISPLAY=$work/sway/$socket SWAYSOCK
  environment+=(WAYLAND_DISPLAY="$WAYLAND_DISPLAY" QT_QPA_PLATFORM=wayland)
  talk_to tests/desktop/wayland_hand.py
}

hand() {
  local line
  echo "$*" >&"$to_helper"
  while read -r line <&"$from_helper" && [[ -n $line ]]; do echo "$line"; done
}

window_named() { hand windows | sed -n "s/ .* $1\$//p" | grep .; }
active_window() { hand windows | sed -n 's/^\([0-9]*\) 1 .*/\1/p' | grep .; }
activate() { :; }
visible_windows() { hand windows | cut -d ' ' -f 1; }
title_of() { hand windows | sed -n "s/^$1 . [0-9 -]* //p"; }
place_of() { hand windows | sed -n "s/^$1 . //p"; } # left, top, width, height, and the title
window_height() { place_of "$window" | cut -d ' ' -f 4; }

press() { hand press "$@"; }
move_mouse() {
  local left top
  read -r left top _ < <(place_of "$window")
  hand move $((left + $1)) $((top + $2))
}
move_mouse_away() { hand move 1279 1023; }
mouse_button() { hand button "$1"; }

put_into_clipboard() { wl-copy --type 'text/plain;charset=utf-8'; }
clipboard() { wl-paste --no-newline; }

picture_of_window() {
  local left top width height
  read -r left top width height _ < <(place_of "$window")
  move_mouse_away # it would be in the picture
  grim -t ppm -g "$left,$top ${width}x$height" -
}
picture_of_screen() { grim "$1"; }
