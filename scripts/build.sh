#!/usr/bin/env bash
# Configures and builds one preset; quiet unless something fails.
#
#   scripts/build.sh <preset> [target...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

preset="$1"
shift
mkdir -p build
log="build/configure-$preset.log"
if ! cmake --preset "$preset" >"$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
cmake --build --preset "$preset" ${1:+--target "$@"}
