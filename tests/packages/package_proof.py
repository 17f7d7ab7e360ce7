"""What proves a package, whatever the system: a call through the demo host, and what may not change."""
import hashlib
import pathlib
import sys

PROJECT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(PROJECT / "scripts"), str(PROJECT / "tests" / "e2e")]

from headless_session import Failed, end_processes  # noqa: E402
from run_scenarios import Play  # noqa: E402
import scenarios  # noqa: E402

CALL = next(s for s in scenarios.SCENARIOS if s.name == "demo-host")


def say(text):
    print(text, flush=True)


def digests(*files):
    return {file: hashlib.sha256(file.read_bytes()).hexdigest() for file in files}


def user_files(root):
    """The journal and the speed dial of the demo's user."""
    folder = root / "host" / "Daten" / "User" / str(scenarios.USER) / "res"
    return folder / "TelList.fdb", folder / "Kurzwahl.dat"


def install_host(system, root, out):
    Play(system, root, out, CALL).install()


def call(system, root, out, name):
    """The demo host starts the dialer, and a simulated call goes into the journal."""
    play = Play(system, root, out, CALL._replace(name=name))
    try:
        play.run()
    finally:
        end_processes(*reversed(play.running))
    say(f"{name}: the call is in the journal")


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
