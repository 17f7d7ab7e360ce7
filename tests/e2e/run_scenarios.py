"""Plays the scenarios with the programs of a build, on a display without a screen.

  /usr/bin/python3 -m tests.e2e.run_scenarios <folder of the programs> <folder for pictures>
    [--wine <program folder> <folders of libraries, divided by ":">]

ORVANE_SCENARIOS may hold a pattern; others than the scenarios it fits are left out then.

With --wine the programs are for Windows. The program folder is copied alone into a fresh Wine prefix
and has to bring all libraries along; the host's programs get theirs from the folders named last.
"""
import contextlib
import fnmatch
import os
import pathlib
import time

from tests.e2e.scenarios import SCENARIOS
from tests.harness import session
from tests.harness.native_system import NativeSystem
from tests.harness.scenario_run import ScenarioRun
from tests.harness.wine_system import WineSystem

TIME_LIMIT_S = 400


def make_system(programs, folder, wine):
    root, environment = folder / "demo", dict(os.environ, ORVANE_SIMULATED_LINES="1")
    if not wine:
        return NativeSystem(programs, root, environment)
    _, program, libraries = wine
    system = WineSystem(programs, root, environment, folder, libraries)
    system.put_program(pathlib.Path(program))
    return system


def play(folder, programs, out, *wine):
    chosen = os.environ.get("ORVANE_SCENARIOS", "*")
    code = 0
    with contextlib.closing(make_system(programs, folder, wine)) as system:
        for scenario in SCENARIOS:
            if not fnmatch.fnmatch(scenario.name, chosen) or not system.can_play(scenario):
                continue
            begin = time.monotonic()
            run = ScenarioRun(system, out, scenario, fresh=True)
            if run.run() == 0:
                run.tell(f"as it should ({time.monotonic() - begin:.1f} s)")
            else:
                code = 1
    return code


if __name__ == "__main__":
    session.main(play, __doc__, TIME_LIMIT_S, fits=lambda words: len(words) == 2 or (
        len(words) == 5 and words[2] == "--wine"))
