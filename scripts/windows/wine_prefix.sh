#!/usr/bin/env bash
# Makes a fresh Wine prefix for wine.sh, unless a whole one is there.
#
#   scripts/windows/wine_prefix.sh <wine folder>
set -euo pipefail

folder="$1"
export WINEPREFIX="$folder/prefix"
[[ -f "$folder/ready" ]] && exit 0
rm -rf "$WINEPREFIX"
mkdir -p "$folder"
if ! "$(dirname "$(readlink -f "$0")")/wine.sh" "$folder" / wineboot --init \
  >"$folder/wineboot.log" 2>&1; then
  cat "$folder/wineboot.log" >&2
  exit 1
fi
# The prefix is whole only when the server has written it down.
wineserver -w
# Debian's Wine does not look where its fonts are, and programs get the next best one.
for font in /usr/share/wine/fonts/tahoma{,bd}.ttf; do
  /usr/bin/python3 "$(dirname "$(readlink -f "$0")")/smooth_font.py" "$font" \
    "$WINEPREFIX/drive_c/windows/Fonts/$(basename "$font")"
done
touch "$folder/ready"
