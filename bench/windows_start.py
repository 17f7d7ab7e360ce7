#!/usr/bin/python3
"""Measures the Windows program under Wine beside the native one: folder size and start.

  bench/windows_start.py <folder of the native programs> <build folder for Windows> <folder for the report>

Both starts are from the same display, in turns; Wine's server runs already, as it does on a desktop
that is in use. Reports the median and the 99th percentile; it judges nothing.
"""
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PROJECT = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(PROJECT / "scripts"), str(PROJECT / "tests" / "e2e")]

from bench import Display, ms, percentile  # noqa: E402
from headless_session import (end_group, end_processes, limit_time, private_environment,  # noqa: E402
                              start_display, start_window_manager)
from run_scenarios import NativeSystem, WineSystem  # noqa: E402

TIME_LIMIT_S = 300
STARTS = 15
# Wine gives a window its place before the program has painted it.
SETTLE_S = 0.3


def timed_start(system, display):
    display.forget_events()
    begin = time.monotonic()
    process = system.start("orvane", "TX:17")
    display.wait_for_window()
    seconds = time.monotonic() - begin
    time.sleep(SETTLE_S)
    sender = system.start("orvane-message-sender", text=True, stdin=subprocess.PIPE,
                          stdout=subprocess.DEVNULL)
    sender.communicate("TX:17~Dial~0|KillMySelf|\n", 10)
    process.wait(10)
    return seconds


def folder_size(folder):
    return sum(file.stat().st_size for file in folder.rglob("*") if file.is_file())


def measure(systems, display):
    for system in systems.values():
        (system.root / "run").mkdir(mode=0o700, parents=True)
        system.start("orvane-demo-host", "--root", system.path(system.root),
                     "--install-only").wait(60)
        timed_start(system, display)
    seconds = {name: [] for name in systems}
    for _ in range(STARTS):
        for name, system in systems.items():
            seconds[name].append(timed_start(system, display))
    return [f"| start to visible window, {name} | {ms(percentile(values, 0.5))} "
            f"| {ms(percentile(values, 0.99))} |" for name, values in seconds.items()]


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    native, windows, out = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    out.mkdir(parents=True, exist_ok=True)
    limit_time(TIME_LIMIT_S)
    folder = pathlib.Path(tempfile.mkdtemp(prefix="orvane-"))
    server = manager = wine = None
    try:
        server, os.environ["DISPLAY"] = start_display()
        manager = start_window_manager()
        environment = private_environment(folder, os.environ["DISPLAY"])
        libraries = (windows / "library_folders").read_text().strip()
        program = windows / "program"
        wine = WineSystem(windows / "bin", folder / "wine-demo", environment, folder, libraries)
        wine.put_program(program)
        systems = {"native": NativeSystem(native, folder / "demo", environment), "Windows under Wine": wine}
        lines = ["| Measured | p50 | p99 |", "|---|---|---|",
                 f"| program folder for Windows | {folder_size(program) / 1e6:.1f} MB | |",
                 *measure(systems, Display())]
        print("\n".join(lines))
        (out / "windows.md").write_text("\n".join(lines) + "\n")
    finally:
        signal.alarm(0)
        if wine:
            wine.end()
        end_processes(manager)
        if server:
            end_group(server)
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
