# To be sourced, in the project's folder: what the tests of the packages share. $work is a folder for what they make.
# shellcheck shell=bash disable=SC2154

fail() {
  echo "${0##*/}: $*" >&2
  exit 1
}

# quietly COMMAND...: shows the command's output only if it fails.
quietly() { "$@" &>"$work/log" || fail "failed: $*"$'\n'"$(<"$work/log")"; }

# pack_again PRESET FOLDER: makes the preset's packages in FOLDER, from a copy of the sources with other times.
pack_again() {
  local copy=$2/elsewhere
  mkdir -p "$copy/build"
  tar -c --exclude=./build --exclude=./dist --exclude=./out --exclude=./.git . | tar -xm -C "$copy"
  ln -s "$PWD/build/windows-qt" "$copy/build"
  (cd "$copy" && cmake --preset "$1" && cmake --build --preset "$1" --target packed &&
    cpack --config "build/$1/CPackConfig.cmake" -B "$2")
}
