#!/usr/bin/env bash
# Prints the address from which this system's apt has a release of Debian.
#
#   scripts/packages/debian_mirror.sh <release>
set -euo pipefail

"$(dirname "$(readlink -f "$0")")/debian_sources.sh" '$(REPO_URI)' "Codename: $1" 'Component: main' |
  sed -n 1p
