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
# Wine's server and what belongs to it would go on for a while.
trap 'wineserver -k 2>/dev/null || true' EXIT
# The tests run at once, so none of them can make the prefix.
scripts/windows/wine_prefix.sh "$wine_folder"
# The journal is written with care for power cuts; thousands of writes take minutes on a slow disk.
[[ -w /dev/shm ]] && export TMPDIR=/dev/shm
# Without a window manager Wine waits for seconds whenever a window is hidden.
/usr/bin/python3 -m tests.e2e.on_display ctest --preset "$preset" --parallel "$(nproc)" "$@"
