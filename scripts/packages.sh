# To be sourced, in the project's folder: the Debian packages that ./run and ./test need, and their installation.
# shellcheck shell=bash disable=SC2034

# To build the program: what debian/control names, except what only makes the package.
mapfile -t build_packages < <(sed -n '/^Build-Depends:/,/^[^ ]/{/debhelper/d; s/^ \([^ ,]*\).*/\1/p}' debian/control)
build_packages+=(g++)
# To run it: a font, without which no text is drawn, and Wayland. From Debian 14 on, the Wayland plugin is in Qt's own
# packages, but not what it needs to show windows.
run_packages=(qt6-wayland fonts-dejavu-core)
# To try the program for Windows: Wine, with a font. Debian 14 has none.
wine_packages=(wine wine64 fonts-wine)
if [[ $(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release 2>/dev/null) == forky ]]; then wine_packages=(); fi
# To run it where there is no display: a virtual one, a window manager, mouse and keys, properties of windows,
# clipboard, pictures.
headless_packages=(xvfb openbox xdotool x11-utils xclip imagemagick)
# To make a release, in addition to those for the build.
release_packages=(build-essential debhelper)
# For the tests: the fuzzer, the checks of style, of the Debian package and of its content; a Wayland display with its
# clipboard and pictures, another program to drag from and to, and desktops' dialogs.
test_packages=(clang libclang-rt-dev clang-format clang-tidy shellcheck
  desktop-file-utils appstream man-db "${release_packages[@]}" lintian
  sway wl-clipboard jq python3-gi gir1.2-gtk-3.0
  qt6-gtk-platformtheme qt6-xdgdesktopportal-platformtheme dbus-daemon)

# For Windows: the compiler, the tools that unpack and build Qt's source, and those that make and check the packages.
windows_packages=(g++-mingw-w64-x86-64-posix dpkg-dev perl xz-utils nsis zip unzip)

# install_missing PACKAGE...: installs those that are not installed. If none is missing, it needs neither the network
# nor root.
install_missing() {
  local installed package missing=()
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null) || true
  for package in "$@"; do
    grep -qxF "$package installed" <<<"$installed" || missing+=("$package")
  done
  if ((${#missing[@]} == 0)); then return; fi
  if ! command -v apt-get >/dev/null; then
    echo "This system has no apt, so nothing is installed. What is needed, by its names in Debian: ${missing[*]}"
    return
  fi

  local as_root=()
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  # One command, so that a password is asked for once. An update that fails because a repository is out of reach does
  # not stop it: the installation may succeed all the same. A machine that has just started may be busy with its own
  # updates, hence the wait for the lock.
  # shellcheck disable=SC2016
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c \
    'apt-get update; exec apt-get -o DPkg::Lock::Timeout=300 install -y --no-install-recommends "$@"' \
    sh "${missing[@]}"
}
