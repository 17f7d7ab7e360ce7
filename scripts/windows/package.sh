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
cp -r LICENSE docs/licences.md docs/licences "$folder/Lizenzen"
# Debian's own pages on the packages whose sources the shipped libraries and the installer are built
# from.
for part in libqt6core6 qt6-translations-l10n mingw-w64-common gcc-mingw-w64-base nsis; do
  cp "/usr/share/doc/$part/copyright" "$folder/Lizenzen/$part.txt"
done
cp -r docs/handbuch.md docs/datenbanken.md docs/sip-lines.md docs/wartungsprotokoll.md \
  docs/measurements.md docs/changelog.md docs/images "$folder/Handbuch"

# Notepad and the installer's own functions read this form everywhere.
list="$build/packages/files.txt"
{ printf '%s\r\n' "Orvane: Diese Dateien entfernt die Deinstallation."
  (cd "$folder" && find . -mindepth 1 -depth -printf '%P\r\n' | tr / '\\'); } |
  iconv -f UTF-8 -t UTF-16LE >"$list"

rm -f "$out"/Orvane-*-Windows-"$arch".zip "$out"/Orvane-*-Windows-"$arch"-Setup.exe
(cd "$folder/.." && cmake -E tar cf "$out/$name.zip" --format=zip "$name")
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DTARGET=$target" "-DPROGRAM=$folder" \
  "-DFILE_LIST=$list" "-DICON=$build/data/orvane.ico" "-DOUTPUT=$out/$name-Setup.exe" \
  packaging/windows/orvane.nsi
(cd "$out" && du -h "$name.zip" "$name-Setup.exe")
