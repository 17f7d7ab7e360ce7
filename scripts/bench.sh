#!/usr/bin/env bash
# Builds the release and measures it; the report is in out/bench.
#
#   scripts/bench.sh            everything about the native program
#   scripts/bench.sh --windows  the Windows program's size and start under Wine, beside the native one
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/install-packages.sh build run bench
if [[ "${1:-}" == --windows ]]; then
  scripts/install-packages.sh wine
  scripts/windows.sh build
  scripts/build.sh release orvane orvane-demo-host orvane-message-sender
  /usr/bin/python3 -m bench.windows_start build/release/bin build/windows out/bench
  exit
fi
scripts/build.sh release -DORVANE_BENCH=ON orvane orvane-demo-host orvane-empty-window \
  orvane-message-sender orvane-bench-classification orvane-sip-demo
scripts/build.sh release orvane-bench-lookup
# Empties the folder, so it comes first.
/usr/bin/python3 -m bench.bench "$PWD/build/release/bin" "$PWD/out/bench"
/usr/bin/python3 -m bench.lookup "$PWD/build/release/bin" "$PWD/out/bench/lookup.md"
