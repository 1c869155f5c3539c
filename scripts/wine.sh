# To be sourced, in the project's folder: Wine, which runs Windows programs on Linux. It writes only below build/wine:
# its "drive C:" and registry, its temporary files, and its home folder.
# shellcheck shell=bash

wine_folder=$PWD/build/wine
wine_prefix=$wine_folder/prefix
# The two libraries would ask for downloads; winemenubuilder would put entries into the desktop's menu.
wine_environment=(PATH="$PATH" LANG=C.UTF-8 HOME="$wine_folder/home" TMPDIR="$wine_folder/tmp"
  WINEPREFIX="$wine_prefix" WINEDEBUG=-all
  "WINEDLLOVERRIDES=mscoree,mshtml=;winemenubuilder.exe=d")

# in_wine COMMAND...: runs it without a display, until all processes that it started have ended. If one still ran, no
# window would be shown on a display that is started later.
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
  # The font of Windows' interface. Wine has it but does not find it, and Qt would use a serif font instead.
  ln -s /usr/share/wine/fonts/tahoma*.ttf "$wine_prefix/drive_c/windows/Fonts"
  # Without a display, windows can still be opened, but are not shown.
  in_wine wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d x11,null &>>"$wine_folder/log"
  touch "$wine_folder/made"
}

# windows_path FILE: its name in Wine, where Z: is the root folder.
windows_path() {
  local path
  path=$(realpath -m "$1")
  echo "Z:${path//\//\\}"
}
