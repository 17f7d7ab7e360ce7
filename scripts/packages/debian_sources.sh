#!/usr/bin/env bash
# Where this system's apt has Debian from: a line for each of its parts.
#
#   scripts/packages/debian_sources.sh <format> [filter...]
#
# Format and filters are those of "apt-get indextargets".
set -euo pipefail

format="$1"
shift
list() {
  apt-get indextargets 'Created-By: Packages' 'Origin: Debian' "$@" --format "$format" | sort -u
}

found=$(list "$@")
# Images often come without the lists that tell where things are.
if [[ -z "$found" ]]; then
  as_root=()
  ((EUID == 0)) || as_root=(sudo)
  "${as_root[@]}" apt-get -qq update >&2
  found=$(list "$@")
fi
if [[ -z "$found" ]]; then
  echo "This system's apt knows no such part of Debian: $*" >&2
  exit 1
fi
printf '%s\n' "$found"
