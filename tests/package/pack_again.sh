# To be sourced, in the project's folder: a second build of what is given to people, for a comparison with the first.
# shellcheck shell=bash

# pack_again PRESET FOLDER: makes the preset's packages in FOLDER, elsewhere, later, and from files with other times.
pack_again() {
  local copy=$2/elsewhere
  mkdir -p "$copy/build"
  tar -c --exclude=./build --exclude=./dist --exclude=./out --exclude=./.git . | tar -xm -C "$copy"
  ln -s "$PWD/build/windows-qt" "$copy/build"
  (cd "$copy" && cmake --preset "$1" && cmake --build --preset "$1" --target packed &&
    cpack --config "build/$1/CPackConfig.cmake" -B "$2")
}
