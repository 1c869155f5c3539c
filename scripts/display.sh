# To be sourced, in the project's folder: a virtual display, the program on it, and what a user does and sees there.
#
#   use_display wayland    # without this line, X11
#   use_program PROGRAM    # a Linux program, or an .exe, which then runs under Wine
#   start_display
#   start_program; click browse; answer_dialog FILE; close_program press alt+F4
#
# The program sees nothing of the caller's desktop: display, home folder and settings are its own. They are removed when
# the script ends, even after an error. If a step fails, the message says which, and a picture of the screen is left.
# shellcheck shell=bash disable=SC2034,SC2317,SC2329

example=examples/stations.txt
patience=${CELESTRIX_PATIENCE:-120} # seconds for each step: a slow machine must not look like a broken program

# The window's content at scale 1, as in window/layout.cpp. The menu bar is above it; its height depends on the font.
content_height=426
declare -A places=([browse]='60 390' [palm]='190 390' [pocket_pc]='300 390' [save]='446 390' [field]='200 200')
field_text='30 91 436 255' # left, top, width, height
scale=1

unset DISPLAY WAYLAND_DISPLAY # the caller's
work=$(mktemp -d /tmp/celestrix.XXXXXX) # not in TMPDIR: the names of sockets must be short and without spaces
folder="$work/Sätze von heute" # its name has spaces and a letter beyond ASCII
display_id=
program_id=
declare -A processes=() # by name: those that must not end before the script
out=$PWD/out
end_system() { :; } # ends what else must end with the script
skipped=77 # the status of a test that lacks a tool

# need COMMAND...: ends the script if one of these commands or files is missing.
need() {
  local tool
  for tool; do
    [[ -e $tool ]] || command -v "$tool" >/dev/null || { echo "SKIPPED: no $tool on this machine" && exit $skipped; }
  done
}

# ---- What differs between the systems

use_display() { if [[ $1 == wayland ]]; then source scripts/wayland.sh; fi; }

use_program() {
  program=$(realpath -e "$1")
  if [[ $program == *.exe ]]; then use_wine; else use_linux; fi
  mkdir -p "$out" "$folder" "$work/home/.config" "$work/runtime"
  chmod 700 "$work/runtime"
  cp "$example" "$folder/stations.txt"
}

use_linux() {
  # "disabled:" keeps libraries from starting a message bus that would outlive the display.
  environment=(PATH="$PATH" LANG=C.UTF-8 HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config"
    XDG_RUNTIME_DIR="$work/runtime" DBUS_SESSION_BUS_ADDRESS=disabled:)
  launcher=()
  preference=$work/home/.config/CelestrixSatellite.prefs
  select_all=(ctrl+a)
  name_for_program() { echo "$1"; }
  end_session() { kill -TERM "$program_id"; }
  may_be_ended_by() { false; } # whether this command may make it exit with a status other than 0
}

use_wine() {
  source scripts/wine.sh
  make_wine_prefix
  environment=("${wine_environment[@]}")
  # shellcheck disable=SC2016 # Without the shell in between, bash would report that wine was killed.
  launcher=(sh -c 'wine "$0"; exit')
  out=$PWD/out/windows
  preference=$wine_prefix/drive_c/users/$(id -un)/AppData/Roaming/CelestrixSatellite.prefs
  select_all=(Home shift+End) # the name field of the system's dialogs knows no Ctrl+A
  name_for_program() { windows_path "$1"; }
  end_session() { start wine wineboot --end-session; }
  may_be_ended_by() { [[ $1 == end_session ]]; } # it does not wait for the programs that it has asked to end
  end_system() { env -i "${environment[@]}" wineserver -k; }
}

# ---- What runs

clean_up() {
  local status=$? process
  ((status == 0 || status == skipped)) || explain_failure >&2
  exec 2>/dev/null # hides the shell's messages about killed processes
  unset 'processes[The display]'
  for process in "$program_id" "${processes[@]}"; do
    [[ -z $process ]] || kill -KILL "$process" || true
  done
  end_system
  # The window manager ends with the display. The display gets SIGTERM: it has files of its own to remove.
  [[ -z $display_id ]] || kill -TERM "$display_id" || true
  wait
  rm -rf "${work:?}"
  exit "$status"
}
trap clean_up EXIT
trap 'exit 1' HUP INT TERM
need Xvfb openbox xdotool xclip import convert setpriv

promise= # what is being checked, in words
fail() {
  echo "$*" >&2
  exit 1
}

explain_failure() {
  local picture=${0##*/}
  picture=$out/${picture%.*}.failure.png
  echo "${0##*/} failed${promise:+. Broken: $promise}"
  ended_processes
  [[ ! -s $work/log ]] || tail -n 20 "$work/log"
  if [[ -v DISPLAY ]] && picture_of_screen "$picture"; then echo "The screen: $picture"; fi
}

# await WHAT COMMAND...: repeats the command until it succeeds.
await() {
  local what=$1 end=$((SECONDS + patience))
  shift
  until "$@" 2>/dev/null; do
    require_processes "$what"
    ((SECONDS < end)) || fail "expected: $what; not in $patience seconds"
    sleep 0.1
  done
}

# require_processes WHAT: fails if one has ended, because WHAT would then never come.
require_processes() { [[ -z $(ended_processes) ]] || fail "expected: $1"; }
ended_processes() {
  local name
  for name in "${!processes[@]}"; do
    kill -0 "${processes[$name]}" 2>/dev/null || echo "$name has ended."
  done
}

# Runs a command in the background, in an environment of its own, and sets $! to its process number. It ends with the
# script, even if that is killed.
start() { setpriv --pdeathsig KILL env -i "${environment[@]}" "$@" &>>"$work/log" & }

# start_program [NAME=VALUE...]: with these variables in its environment.
start_program() {
  start "$@" "${launcher[@]}" "$program"
  program_id=$!
  processes[The program]=$!
  await 'the window' find_window
  await 'the window has the keyboard focus' is_active
}

# close_program COMMAND...: closes it by this command, and waits for its end.
close_program() {
  local status=0
  unset 'processes[The program]'
  "$@"
  await 'the end of the program' has_ended
  wait "$program_id" 2>/dev/null || status=$?
  program_id=
  ((status == 0)) || may_be_ended_by "$1" || fail "expected: the program ends as it should; actual: status $status"
}
has_ended() { ! kill -0 "$program_id" 2>/dev/null; }

keeps() { [[ $(<"$preference") == "$1" ]] || fail "expected: $preference holds $1; actual: $(<"$preference")"; }

# ---- The display: X11

start_display() {
  start_xvfb
  environment+=(DISPLAY="$DISPLAY")
  # openbox announces itself on the display before it is ready, and may never show a window that is opened in between.
  # It runs the command when it is ready.
  start openbox --startup "touch '$work/ready'"
  await 'the window manager' test -e "$work/ready"
}

start_xvfb() {
  # Keys do not repeat: on a slow machine none would be released in time.
  setpriv --pdeathsig TERM Xvfb -r -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$work/display" &>>"$work/log" &
  display_id=$!
  processes[The display]=$!
  await 'the virtual display' grep -q . "$work/display"
  DISPLAY=:$(<"$work/display")
  export DISPLAY
}

window_named() { xdotool search --onlyvisible --name "^$1$"; }
active_window() { xdotool getactivewindow; }
activate() { xdotool windowactivate "$window"; }
visible_windows() { xdotool search --onlyvisible --name .; }
title_of() { xdotool getwindowname "$1"; }
window_height() { xdotool getwindowgeometry --shell "$window" | sed -n 's/^HEIGHT=//p'; }

press() { xdotool key "$@"; }
move_mouse() { xdotool mousemove --window "$window" "$1" "$2"; }
move_mouse_away() { xdotool mousemove 1279 1023; }
mouse_button() { xdotool "mouse$1" 1; } # down, up

copy() { xclip -selection clipboard &>>"$work/log"; } # from the standard input
clipboard() { xclip -selection clipboard -o; }

picture_of_window() { timeout 20 import -silent -window "$window" ppm:-; }
picture_of_screen() { timeout 20 import -silent -window root "$1"; }

# ---- What the user does and sees

find_window() { window=$(window_named 'Celestrix Satellite Encoder'); }
is_active() { [[ $(active_window) == "$window" ]]; }

# Sets menu_bar to its height. bash goes on after an error in an arithmetic expression, so its operands must be there.
measure_menu_bar() {
  local height
  height=$(window_height) || return
  menu_bar=$((height / scale - content_height))
}

# point LEFT TOP: moves the mouse to this point of the window's content.
point() {
  measure_menu_bar || return
  move_mouse $(($1 * scale)) $((($2 + menu_bar) * scale))
}

# click PLACE: a name in `places`.
click() {
  # shellcheck disable=SC2086
  point ${places[$1]}
  mouse_button down
  mouse_button up
}

# Puts the standard input into the clipboard. xclip ends before the clipboard has the text.
put_into_clipboard() {
  cat >"$work/put"
  copy <"$work/put"
  await 'the text in the clipboard' clipboard_is_put
}
clipboard_is_put() { clipboard | cmp -s - "$work/put"; }

# choose_file PATH: in the dialog that a click has opened.
choose_file() {
  await 'a dialog' has_dialog
  # Pasted, because not every keyboard has every letter.
  name_for_program "$1" | tr -d '\n' | put_into_clipboard
  press "${select_all[@]}" ctrl+v Return
}

# answer_dialog PATH [replace]: chooses the file, agrees to replace it, and waits for the dialog's end.
answer_dialog() {
  choose_file "$1"
  if [[ ${2:-} == replace ]]; then
    await 'the question whether to replace the file' has_question
    await 'the end of the question' agrees
  fi
  await 'the end of the dialog' is_back
}

dismiss_dialog() {
  await 'a dialog' has_dialog
  press Escape
  await 'the end of the dialog' is_back
}

has_dialog() { dialog=$(active_window) && [[ $dialog != "$window" ]]; }
# Under Wine, a window that has gone may still count as the active one; it has no title then.
has_question() {
  local now && now=$(active_window) && [[ $now != "$dialog" && $now != "$window" ]] && title_of "$now" >/dev/null
}
# On a busy machine the keys may go to the dialog below the question, and are pressed again.
agrees() { ! has_question || { press alt+y && sleep 0.3 && ! has_question; }; }
# After two dialogs have ended at once, or one under Wine, it can be that no window has the focus.
is_back() { [[ $(visible_windows) == "$window" ]] && activate && is_active; }

browse_example() {
  click browse
  answer_dialog "$folder/stations.txt"
  await 'a text in the field' shows_text
}

is_empty() { ! shows_text; }
shows_text() {
  local left top width height
  read -r left top width height <<<"$field_text"
  measure_menu_bar || return
  top=$((top + menu_bar))
  local part=$((width * scale))x$((height * scale))+$((left * scale))+$((top * scale))
  local colors
  colors=$(picture_of_window | convert ppm:- -crop "$part" -format %k info:) && ((colors > 1))
}

# take_picture FILE: of the window.
take_picture() {
  move_mouse_away # so that no button is highlighted
  await 'a window that stands still' stands_still
  convert "$work/now.ppm" -define png:exclude-chunks=date,time "$1"
}
stands_still() {
  picture_of_window >"$work/before.ppm"
  sleep 0.2
  picture_of_window >"$work/now.ppm"
  cmp -s "$work/before.ppm" "$work/now.ppm"
}
