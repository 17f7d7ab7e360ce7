#!/usr/bin/env bash
# Installs what is missing, builds the release and starts the demo host with the dialer.
#
#   ./run.sh [--simulated | --modem | --sip] [--headless]
#
# The calls go through a simulated telephone line, through a modem on a serial port, or as real SIP
# calls to a far end on this machine. With --headless, or without a display, a script places the
# call on a display without a screen.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

line=simulated
headless=
for argument in "$@"; do
  case "$argument" in
    --simulated | --modem | --sip) line="${argument#--}" ;;
    --headless) headless=yes ;;
    *) sed -n '2,8s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
  esac
done

scripts/install-packages.sh build run
scripts/build.sh release orvane orvane-demo-host
bin="$PWD/build/release/bin"

if [[ -z "$headless" && -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  exec "$bin/orvane-demo-host" --line "$line" --history 120
fi

[[ -n "$headless" ]] || echo "No display here, so this is the scripted call."
out="$PWD/out/headless"
status=0
/usr/bin/python3 -m tests.e2e.headless_call "$bin" "$out" "$line" || status=$?
echo "Pictures and transcript: $out"
exit "$status"
