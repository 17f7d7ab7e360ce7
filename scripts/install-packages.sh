#!/usr/bin/env bash
# Installs the Debian 12 packages that this project needs, and only those that are missing.
#
#   scripts/install-packages.sh [build] [run] [lint] [bench] [windows] [windows-i686] [wine]
#                              [wine-i686] [package] [package-windows] [prove]
#
# Without arguments: build and run. Says nothing when there is nothing to do.
set -euo pipefail

packages_build=(cmake ninja-build g++ ccache pkg-config qt6-base-dev qt6-serialport-dev
  libsqlite3-dev mdbtools-dev unixodbc-dev libgtest-dev libxcb1-dev libphonenumber-dev libprotobuf-dev libicu-dev)
# A display without a screen, a window manager, real clicks, screenshots, and the accessibility tree
# by which the scripted call finds the dial window's controls. A compositor for the pictures, where
# the windows' corners are smooth. A telephone and a far end for real
# calls. The driver for the database server, and a server for the tests.
packages_run=(xvfb openbox xcompmgr xdotool imagemagick x11-utils fonts-noto-core qt6-translations-l10n
  dbus-daemon at-spi2-core gir1.2-atspi-2.0 python3 python3-gi baresip sip-tester
  tdsodbc odbc-postgresql postgresql)
packages_lint=(clang-format clang-tidy)
# Reads pixels of the display while it measures; the tools of the plain engines.
packages_bench=(python3-xlib sqlite3 mdbtools)
# The cross compiler, and what turns Debian's source packages of the libraries into libraries.
packages_windows=(g++-mingw-w64-x86-64-posix qt6-base-dev-tools qt6-translations-l10n dpkg-dev
  xz-utils googletest)
packages_windows_i686=(g++-mingw-w64-i686-posix)
# The fonts are those that Windows programs ask for.
packages_wine=(wine wine64 fonts-wine)
# For a 32-bit system, which runs the tests of a build that was made elsewhere. Wine's ODBC stands on
# the one of the system.
packages_wine_i686=(wine wine32 fonts-wine cmake libodbc2)
# The package builders of both systems.
packages_package=(debhelper dpkg-dev lintian)
packages_package_windows=(nsis)
# Makes a Debian system to install packages into.
packages_prove=(debootstrap)

wanted=()
for group in "${@:-build run}"; do
  for name in $group; do
    case "$name" in
      build) wanted+=("${packages_build[@]}") ;;
      run) wanted+=("${packages_run[@]}") ;;
      lint) wanted+=("${packages_lint[@]}") ;;
      bench) wanted+=("${packages_bench[@]}") ;;
      windows) wanted+=("${packages_windows[@]}") ;;
      windows-i686) wanted+=("${packages_windows_i686[@]}") ;;
      wine) wanted+=("${packages_wine[@]}") ;;
      wine-i686) wanted+=("${packages_wine_i686[@]}") ;;
      package) wanted+=("${packages_package[@]}") ;;
      package-windows) wanted+=("${packages_package_windows[@]}") ;;
      prove) wanted+=("${packages_prove[@]}") ;;
      *) echo "install-packages.sh: unknown group '$name'" >&2; exit 2 ;;
    esac
  done
done

# dpkg-query fails when it does not know one of the names; it still lists the others.
installed() {
  { dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null || true; } |
    sed -n 's/^installed //p'
}

missing=()
have=" $(installed | tr '\n' ' ') "
for package in "${wanted[@]}"; do
  [[ "$have" == *" $package "* ]] || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

as_root=()
if [[ $EUID -ne 0 ]]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages, and neither root nor sudo to install them: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

echo "Installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update -qq &&
       "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
         apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  tail -n 15 "$log" >&2
  echo "These packages could not be installed: ${missing[*]}" >&2
  exit 1
fi
