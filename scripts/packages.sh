# To be sourced: the Debian packages that ./run and ./test need, and their installation.
# shellcheck shell=bash disable=SC2034

# To build the program.
build_packages=(g++ cmake ninja-build qt6-base-dev)
# To run it: Wayland, and a font, without which no text is drawn.
run_packages=(qt6-wayland fonts-dejavu-core)
# To run it where there is no display: one in memory, a window manager, mouse and keys, pictures.
headless_packages=(xvfb openbox xdotool imagemagick)
# For the tests: benchmarks, the fuzzer, and the checks of the Debian package and of what it holds.
test_packages=(libbenchmark-dev clang libclang-rt-dev
  desktop-file-utils appstream man-db dpkg-dev file lintian)

# install_missing PACKAGE...: installs those that are not there. Where none is missing it needs neither
# network nor rights.
install_missing() {
  if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system, so nothing is installed. What is needed, by its names there: $*"
    return
  fi

  local installed package missing=()
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null) || true
  for package in "$@"; do
    grep -qxF "$package installed" <<<"$installed" || missing+=("$package")
  done
  if ((${#missing[@]} == 0)); then return; fi

  local as_root=()
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  # A repository out of reach stops nothing here: whether it matters shows in the installation.
  "${as_root[@]}" apt-get -q update || true
  # A machine that has just started may be busy with its own updates, hence the wait for the lock.
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq -o DPkg::Lock::Timeout=300 install -y --no-install-recommends "${missing[@]}"
}
