# To be sourced, in the project's folder: Wine, which runs Windows programs here. All it writes is below build/wine:
# its "drive C:" and registry, its temporary files, and what it takes for the home folder.
# shellcheck shell=bash

wine_folder=$PWD/build/wine
wine_prefix=$wine_folder/prefix
# The two libraries would ask for downloads; winemenubuilder would put
# Windows' menu entries into the desktop's menu.
wine_environment=(PATH="$PATH" LANG=C.UTF-8 HOME="$wine_folder/home" TMPDIR="$wine_folder/tmp"
  WINEPREFIX="$wine_prefix" WINEDEBUG=-all
  "WINEDLLOVERRIDES=mscoree,mshtml=;winemenubuilder.exe=d")

# in_wine COMMAND...: without a display, until all that it started has ended. What still ran would keep windows
# from a display that comes later.
in_wine() {
  local status=0
  env -i "${wine_environment[@]}" "$@" || status=$?
  env -i "${wine_environment[@]}" wineserver -w
  return $status
}

# Takes 10 seconds and 700 MB, once.
make_wine_prefix() {
  if [[ -f $wine_folder/made ]]; then return; fi
  rm -rf "${wine_folder:?}"
  mkdir -p "$wine_folder/home" "$wine_folder/tmp"
  in_wine wineboot --init &>"$wine_folder/log"
  # The font of Windows' interface. Wine has one that it does not find, and the toolkit would take a serif font for it.
  ln -s /usr/share/wine/fonts/tahoma*.ttf "$wine_prefix/drive_c/windows/Fonts"
  # Where there is no display, windows are there and not to be seen.
  in_wine wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d x11,null &>>"$wine_folder/log"
  touch "$wine_folder/made"
}

# windows_path FILE: its name in Wine, where Z: is the root folder.
windows_path() {
  local path
  path=$(realpath -m "$1")
  echo "Z:${path//\//\\}"
}
