#!/usr/bin/env bash
# Builds SQLite for Windows, as a static library, from the Debian source package of the installed
# one. Prints the folder it is installed in.
#
#   scripts/windows/sqlite.sh <x86_64|i686>
set -euo pipefail
source "$(dirname "$(readlink -f "$0")")/common.sh"

arch="$1"
version=$(installed_version libsqlite3-dev)
options=(-O2 -DSQLITE_THREADSAFE=1 -DSQLITE_OMIT_LOAD_EXTENSION -DSQLITE_ENABLE_COLUMN_METADATA)

target=$(cached_folder sqlite "$version" "$arch" "${options[@]}")
if [[ ! -d "$target" ]]; then
  echo "Building SQLite $version for Windows ($arch)." >&2
  compiler=$(windows_compiler "$arch")
  work=$(build_folder "$target")
  trap 'rm -rf "$work"' EXIT
  fetch_source sqlite3 "$version" "$work"
  # The one big source file is made by the package's own build; any system's configuration does.
  mkdir "$work/build" "$work/stage" "$work/stage/include" "$work/stage/lib"
  cd "$work/build"
  logged "$work/configure.log" ../source/configure --disable-tcl
  logged "$work/generate.log" make sqlite3.c
  logged "$work/build.log" "$compiler-gcc-posix" "${options[@]}" -c sqlite3.c -o sqlite3.o
  "$compiler-ar" rcs "$work/stage/lib/libsqlite3.a" sqlite3.o
  cp sqlite3.h "$work/stage/include"
  cd /
  put_in_place "$work/stage" "$target"
fi
echo "$target"
