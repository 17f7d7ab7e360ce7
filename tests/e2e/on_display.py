"""Runs a command on a display without a screen, with a window manager; its exit code.

  /usr/bin/python3 -m tests.e2e.on_display <command> [argument...]
"""
import os
import subprocess
import sys

from tests.harness.virtual_display import virtual_display


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    with virtual_display() as (_, environment):
        # All but the display is the caller's.
        return subprocess.run(sys.argv[1:], env=dict(os.environ, DISPLAY=environment["DISPLAY"]),
                              check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
