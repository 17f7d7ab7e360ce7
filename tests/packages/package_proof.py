"""What proves a package, whatever the system: a call through the demo host, and what may not change."""
import hashlib

from tests.e2e.scenarios import SCENARIOS
from tests.harness.demo import Demo
from tests.harness.scenario_run import ScenarioRun
from tests.harness.waiting import Failed

CALL = next(scenario for scenario in SCENARIOS if scenario.name == "demo-host")


def say(text):
    print(text, flush=True)


def digests(*files):
    return {file: hashlib.sha256(file.read_bytes()).hexdigest() for file in files}


def user_files(system):
    """The journal and the speed dial of the demo's user."""
    demo = Demo(system.root)
    return demo.journal(), demo.speed_dial()


def install_host(system, out):
    ScenarioRun(system, out, CALL).install()


def call(system, out, name):
    """The demo host starts the dialer, and a simulated call goes into the journal."""
    run = ScenarioRun(system, out, CALL._replace(name=name))
    if run.run() != 0:
        raise Failed(f"there was no call, {name}")
    run.tell("the call is in the journal")


def expect_same(before, what):
    changed = [str(file) for file in before if not file.exists() or digests(file)[file] != before[file]]
    if changed:
        raise Failed(f"{what} changed {', '.join(changed)}")
    say(f"{what} left the user's data alone")


def expect_gone(files, what):
    left = [str(file) for file in files]
    if left:
        raise Failed(f"{what} left {', '.join(left)}")
    say(f"{what} left nothing else")
