#!/usr/bin/python3
"""Runs a command on a display without a screen, with a window manager; its exit code.

  scripts/on_display.py <command> [argument...]
"""
import os
import subprocess
import sys

from headless_session import end_group, end_processes, start_display, start_window_manager


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    manager = None
    display, os.environ["DISPLAY"] = start_display()
    try:
        manager = start_window_manager()
        return subprocess.run(sys.argv[1:], check=False).returncode
    finally:
        end_processes(manager)
        end_group(display)


if __name__ == "__main__":
    sys.exit(main())
