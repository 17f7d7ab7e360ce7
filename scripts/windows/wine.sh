#!/usr/bin/env bash
# Runs a Windows program of a build under Wine, as ctest's emulator or by hand.
#
#   scripts/windows/wine.sh <wine folder> <folders of libraries, divided by ":"> <program> [arg...]
#
# The wine folder holds this Wine's settings (its prefix). Wine keeps this system's TMP and QT_
# variables from its programs; with WINE before the name they reach them.
set -euo pipefail

export WINEPREFIX="$1/prefix" WINEDEBUG="${WINEDEBUG:--all}" LC_ALL=C.UTF-8
mkdir -p "$WINEPREFIX"
libraries="Z:${2//:/;Z:}"
export WINEPATH="${libraries//\//\\}"
# A crash ends the program at once, and nobody asks for .NET or HTML.
export WINEDLLOVERRIDES="winedbg.exe,mscoree,mshtml=${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"
if [[ -n "${TMPDIR:-}" ]]; then
  export WINETMP="Z:${TMPDIR//\//\\}" WINETEMP="Z:${TMPDIR//\//\\}"
fi
shift 2
exec wine "$@"
