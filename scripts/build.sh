#!/usr/bin/env bash
# Configures and builds one preset; quiet unless something fails.
#
#   scripts/build.sh <preset> [-D<option>...] [target...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

preset="$1"
shift
options=()
targets=()
for argument in "$@"; do
  case "$argument" in
    -D*) options+=("$argument") ;;
    *) targets+=("$argument") ;;
  esac
done

mkdir -p build
log="build/configure-$preset.log"
if ! cmake --preset "$preset" "${options[@]}" >"$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
cmake --build --preset "$preset" ${targets:+--target "${targets[@]}"}
