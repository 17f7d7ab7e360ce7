#!/usr/bin/env bash
# Makes the zip and the installer from a finished Windows build, in out/packages.
#
#   scripts/windows/package.sh <preset> <x86_64|i686> [<version> <folder>]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
source scripts/packages/version.sh

preset="$1"
arch="$2"
build="$PWD/build/$preset"
# The proof upgrades to the same program as a newer version.
version="${3:-$(project_version)}"
out="${4:-$PWD/out/packages}"
name="Orvane-$version-Windows-$arch"
case "$arch" in
  x86_64) target=amd64-unicode ;;
  i686) target=x86-unicode ;;
esac

folder="$build/packages/$name"
rm -rf "$build/packages"
mkdir -p "$folder/Vorlagen" "$folder/Lizenzen" "$folder/Handbuch" "$out"
cp -r "$build/program/." "$folder"
cp "$build/data/VPB.rgt" "$build/data/TelList.fdb" "$folder/Vorlagen"
cp docs/licences.md docs/licences/* "$folder/Lizenzen"
cp docs/handbuch.md docs/changelog.md "$folder/Handbuch"

# Notepad and the installer's own functions read this form everywhere.
list="$build/packages/files.txt"
(cd "$folder" && find . -mindepth 1 -depth -printf '%P\r\n' | tr / '\\') |
  iconv -f UTF-8 -t UTF-16LE >"$list"

rm -f "$out/$name.zip" "$out/$name-Setup.exe"
(cd "$folder/.." && cmake -E tar cf "$out/$name.zip" --format=zip "$name")
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DTARGET=$target" "-DPROGRAM=$folder" \
  "-DFILE_LIST=$list" "-DICON=$build/data/orvane.ico" "-DOUTPUT=$out/$name-Setup.exe" \
  packaging/windows/orvane.nsi
(cd "$out" && du -h "$name.zip" "$name-Setup.exe")
