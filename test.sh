#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests.
#
#   ./test.sh [dev|sanitize]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

preset="${1:-dev}"
scripts/install-packages.sh build run
scripts/build.sh "$preset"
# The journal is written with care for power cuts; thousands of writes take minutes on a slow disk.
[[ -w /dev/shm ]] && export TMPDIR=/dev/shm
ctest --preset "$preset" --parallel "$(nproc)"
