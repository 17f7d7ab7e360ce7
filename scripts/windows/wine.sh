#!/usr/bin/env bash
# Runs a Windows program of a build under Wine, as ctest's emulator or by hand.
#
#   scripts/windows/wine.sh <program.exe> [argument...]
#
# ORVANE_WINE_FOLDER holds the settings of this Wine (its prefix) and the temporary files.
# ORVANE_DLL_PATH names the folders of the libraries, divided by ";". Wine keeps this system's QT_
# variables from its programs; those that begin with WINEQT_ reach them without the WINE.
set -euo pipefail

export WINEPREFIX="${ORVANE_WINE_FOLDER:?}/prefix" WINEDEBUG="${WINEDEBUG:--all}"
export WINEPATH="${ORVANE_DLL_PATH:-}"
# Nothing here is for .NET or HTML, whose absence a fresh prefix would want to talk about.
export WINEDLLOVERRIDES="mscoree,mshtml=;${WINEDLLOVERRIDES:-}"
exec wine "$@"
