"""Measures the Windows program under Wine beside the native one: folder size and start.

  /usr/bin/python3 -m bench.windows_start <folder of the native programs> <build folder for Windows>
    <folder for the report>

Both starts are from the same display, in turns; Wine's server runs already, as it does on a desktop
that is in use. Reports the median and the 99th percentile; it judges nothing.
"""
import contextlib
import os
import pathlib
import sys
import time

from bench.display import Display
from bench.figures import row
from tests.harness.demo import END_COMMAND, START_COMMAND
from tests.harness.native_system import NativeSystem
from tests.harness.run import Run
from tests.harness.virtual_display import virtual_display
from tests.harness.waiting import limit_time
from tests.harness.wine_system import WineSystem

TIME_LIMIT_S = 300
STARTS = 15
# Wine gives a window its place before the program has painted it.
SETTLE_S = 0.3


def timed_start(run, display):
    display.forget_events()
    begin = time.monotonic()
    process = run.start("orvane", START_COMMAND)
    display.wait_for_window()
    seconds = time.monotonic() - begin
    time.sleep(SETTLE_S)
    run.send(END_COMMAND)
    run.ends_well("the dialer", process)
    return seconds


def folder_size(folder):
    return sum(file.stat().st_size for file in folder.rglob("*") if file.is_file())


def measure(systems, display, out):
    runs = {name: Run(system, out) for name, system in systems.items()}
    for run in runs.values():
        run.install()
        timed_start(run, display)
    seconds = {name: [] for name in runs}
    for _ in range(STARTS):
        for name, run in runs.items():
            seconds[name].append(timed_start(run, display))
    return [row(f"start to visible window, {name}", values) for name, values in seconds.items()]


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    native, windows, out = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    out.mkdir(parents=True, exist_ok=True)
    limit_time(TIME_LIMIT_S)
    with virtual_display() as (folder, environment):
        os.environ["DISPLAY"] = environment["DISPLAY"]
        libraries = (windows / "library_folders").read_text().strip()
        program = windows / "program"
        wine = WineSystem(windows / "bin", folder / "wine-demo", environment, folder, libraries)
        with contextlib.closing(wine), contextlib.closing(Display()) as display:
            wine.put_program(program)
            lines = ["| Measured | p50 | p99 |", "|---|---|---|",
                     f"| program folder for Windows | {folder_size(program) / 1e6:.1f} MB | |",
                     *measure({"native": NativeSystem(native, folder / "demo", environment),
                               "Windows under Wine": wine}, display, out)]
    print("\n".join(lines))
    (out / "windows.md").write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
