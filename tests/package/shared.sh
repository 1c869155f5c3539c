# To be sourced, in the project's folder: what the tests of the packages share. $work is a folder for what they make.
# shellcheck shell=bash disable=SC2154

fail() {
  echo "${0##*/}: $*" >&2
  exit 1
}

# need COMMAND...: skips the test where one of these is missing.
need() {
  local tool
  for tool; do
    command -v "$tool" >/dev/null || { echo "SKIPPED: no $tool on this machine" && exit 77; }
  done
}

# quietly COMMAND...: shows the command's output only if it fails.
quietly() { "$@" &>"$work/log" || fail "failed: $*"$'\n'"$(<"$work/log")"; }
