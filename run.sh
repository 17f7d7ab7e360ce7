#!/usr/bin/env bash
# Installs what is missing, builds the release and starts the demo host with the dialer.
#
#   ./run.sh             the demo on this desktop; without a display the scripted call
#   ./run.sh --headless  the scripted call on a display without a screen
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

case "${1:-}" in
  "" | --headless) ;;
  *) sed -n '2,5s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac

scripts/install-packages.sh build run
scripts/build.sh release orvane orvane-demo-host
bin="$PWD/build/release/bin"

if [[ "${1:-}" != --headless && -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  exec "$bin/orvane-demo-host"
fi

[[ "${1:-}" == --headless ]] || echo "No display here, so this is the scripted call."
out="$PWD/out/headless"
status=0
/usr/bin/python3 scripts/headless_call.py "$bin" "$out" || status=$?
echo "Pictures and transcript: $out"
exit "$status"
