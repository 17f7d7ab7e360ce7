#!/usr/bin/env bash
# Builds the Windows program on this machine, and tests it under Wine.
#
#   scripts/windows.sh build [x86_64|i686]
#   scripts/windows.sh test [x86_64|i686]
#   scripts/windows.sh package [x86_64|i686]
#   scripts/windows.sh prove [x86_64|i686]
#
# "package" makes a zip and an installer in out/packages; "prove" also installs, uses, upgrades and
# removes what they hold, under Wine. Testing and proving i686 needs root.
#
# The first time, it builds Qt and SQLite for Windows into ~/.cache/orvane.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() {
  sed -n '2,13s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

command="${1:-}"
arch="${2:-x86_64}"
case "$command" in
  build | test | package | prove) ;;
  *) usage ;;
esac
# What runs the programs of this architecture.
on=()
case "$arch" in
  x86_64) preset=windows ;;
  i686) preset=windows-i686 on=(scripts/windows/in_32bit.sh build/windows-i686) ;;
  *) usage ;;
esac

groups=(build windows)
[[ "$arch" == i686 ]] && groups+=(windows-i686)
if [[ "$command" == test || "$command" == prove ]]; then
  [[ "$arch" == i686 ]] && groups+=(prove) || groups+=(run wine)
fi
[[ "$command" == package || "$command" == prove ]] && groups+=(package-windows)
scripts/install-packages.sh "${groups[@]}"

qt=$(scripts/windows/qt.sh "$arch")
sqlite=$(scripts/windows/sqlite.sh "$arch")
# The data files are the same on every system and are made by programs of this one.
scripts/build.sh dev orvane_data
scripts/build.sh "$preset" "-DORVANE_WINDOWS_PREFIXES=$qt;$sqlite"
case "$command" in
  test) "${on[@]}" scripts/windows/test.sh "$preset" ;;
  package) scripts/windows/package.sh "$preset" "$arch" ;;
  prove)
    newer="$PWD/build/$preset/newer"
    scripts/windows/package.sh "$preset" "$arch" 9999.0.0 "$newer"
    scripts/windows/package.sh "$preset" "$arch"
    "${on[@]}" /usr/bin/python3 -m tests.packages.prove_windows "build/$preset" \
      "out/packages/proof-windows-$arch" out/packages/*-"$arch".zip \
      out/packages/*-"$arch"-Setup.exe "$newer"/*-Setup.exe
    ;;
esac
