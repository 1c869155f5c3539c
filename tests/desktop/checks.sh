# To be sourced: what the tests of the desktop share. Changes to the project's folder.
# shellcheck shell=bash disable=SC2034,SC2164

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
source scripts/display.sh

promise() { promise=$1; }

# same WHAT EXPECTED ACTUAL: fails if the two files differ, and shows the first lines that do.
same() {
  cmp -s "$2" "$3" || fail "$1: expected (<) and actual (>):"$'\n'"$(diff -a "$2" "$3" | head -n 6 | cat -A)"
}

# field_holds FILE: copies the whole field until it has the text of the file.
field_holds() {
  local end=$((SECONDS + patience))
  click field
  put_into_clipboard <<<'nothing was copied'
  until clipboard >"$work/copied.txt" 2>/dev/null && cmp -s "$1" "$work/copied.txt"; do
    require_processes "the text of $1 in the field"
    ((SECONDS < end)) || same 'the text in the field' "$1" "$work/copied.txt"
    press ctrl+a ctrl+c
    sleep 1 # a copy that comes late would get into the clipboard of a later step
  done
}

has_alert() { has_dialog && [[ $(title_of "$dialog") == "$(title_of "$window")" ]]; }

# Reads the alert that comes, and closes it.
close_alert() {
  await 'an alert' has_alert
  press Return
  await 'the end of the alert' is_back
}
