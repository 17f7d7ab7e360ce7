#!/usr/bin/env bash
# Builds the Windows program on this machine, and tests it under Wine.
#
#   scripts/windows.sh build [x86_64|i686]
#   scripts/windows.sh test
#
# The first time, it builds Qt and SQLite for Windows into ~/.cache/orvane.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() {
  sed -n '2,7s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

command="${1:-}"
arch="${2:-x86_64}"
case "$command $arch" in
  "build x86_64" | "test x86_64") preset=windows ;;
  "build i686") preset=windows-i686 ;;
  *) usage ;;
esac

groups=(build windows)
[[ "$arch" == i686 ]] && groups+=(windows-i686)
[[ "$command" == test ]] && groups+=(run wine)
scripts/install-packages.sh "${groups[@]}"

qt=$(scripts/windows/qt.sh "$arch")
sqlite=$(scripts/windows/sqlite.sh "$arch")
# The data files are the same on every system and are made by programs of this one.
scripts/build.sh dev orvane_data
scripts/build.sh "$preset" "-DORVANE_WINDOWS_PREFIXES=$qt;$sqlite"
[[ "$command" == build ]] || scripts/windows/test.sh "$preset"
