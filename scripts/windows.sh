#!/usr/bin/env bash
# Builds the Windows program on this machine, and tests it under Wine.
#
#   scripts/windows.sh build [x86_64|i686]
#   scripts/windows.sh test
#   scripts/windows.sh package [x86_64|i686]
#   scripts/windows.sh prove
#
# "package" makes a zip and an installer in out/packages; "prove" also installs, uses, upgrades and
# removes what they hold, under Wine.
#
# The first time, it builds Qt and SQLite for Windows into ~/.cache/orvane.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() {
  sed -n '2,12s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

command="${1:-}"
arch="${2:-x86_64}"
case "$command $arch" in
  "build x86_64" | "test x86_64" | "package x86_64" | "prove x86_64") preset=windows ;;
  "build i686" | "package i686") preset=windows-i686 ;;
  *) usage ;;
esac

groups=(build windows)
[[ "$arch" == i686 ]] && groups+=(windows-i686)
[[ "$command" == test || "$command" == prove ]] && groups+=(run wine)
[[ "$command" == package || "$command" == prove ]] && groups+=(package-windows)
scripts/install-packages.sh "${groups[@]}"

qt=$(scripts/windows/qt.sh "$arch")
sqlite=$(scripts/windows/sqlite.sh "$arch")
# The data files are the same on every system and are made by programs of this one.
scripts/build.sh dev orvane_data
scripts/build.sh "$preset" "-DORVANE_WINDOWS_PREFIXES=$qt;$sqlite"
case "$command" in
  test) scripts/windows/test.sh "$preset" ;;
  package) scripts/windows/package.sh "$preset" "$arch" ;;
  prove)
    newer="$PWD/build/$preset/newer"
    scripts/windows/package.sh "$preset" "$arch" 9999.0.0 "$newer"
    scripts/windows/package.sh "$preset" "$arch"
    /usr/bin/python3 tests/packages/prove_windows.py out/packages/*-"$arch".zip \
      out/packages/*-"$arch"-Setup.exe "$newer"/*-Setup.exe "build/$preset" out/packages/proof-windows
    ;;
esac
