#!/usr/bin/env bash
# Runs the tests of a Windows build under Wine, on a display without a screen.
#
#   scripts/windows/test.sh <preset> [ctest option...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."

preset="$1"
shift
wine_folder="$PWD/build/$preset/wine"
export WINEPREFIX="$wine_folder/prefix"
display=
finish() {
  wineserver -k 2>/dev/null || true
  [[ -z "$display" ]] || kill "$display" 2>/dev/null || true
}
trap finish EXIT

exec {number}< <(exec Xvfb -displayfd 1 -screen 0 1360x920x24 -nolisten tcp -noreset 2>/dev/null)
display=$!
read -r DISPLAY <&"$number" || { echo "Xvfb did not start." >&2; exit 1; }
export DISPLAY=":$DISPLAY"

# The tests run at once, so none of them can make the prefix.
scripts/windows/wine_prefix.sh "$wine_folder"
# The journal is written with care for power cuts; thousands of writes take minutes on a slow disk.
[[ -w /dev/shm ]] && export TMPDIR=/dev/shm
ctest --preset "$preset" --parallel "$(nproc)" "$@"
