#!/usr/bin/env bash
# Builds the release and measures it; the report is in out/bench/report.md.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/install-packages.sh build run bench
scripts/build.sh release -DORVANE_BENCH=ON orvane orvane-demo-host orvane-empty-window \
  orvane-message-sender orvane-bench-classification orvane-sip-demo
/usr/bin/python3 bench/bench.py "$PWD/build/release/bin" "$PWD/out/bench"
