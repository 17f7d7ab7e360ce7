"""A program that plays with others on a display without a screen, in a session of its own.

Such a program calls main. It is run once more inside of the session; whatever was started is ended
when it leaves.
"""
import pathlib
import shutil
import subprocess
import sys

from tests.harness.virtual_display import virtual_display
from tests.harness.waiting import Failed, end_group, limit_time, take_time

# The inner limit comes first, so that a step that hangs can still say where.
INNER_LEAD_S = 10


def program():
    return sys.modules["__main__"].__spec__.name


def run_in_session(words, out, scale=1.0, **settings):
    """Runs this program in a session with these words of its command line; its exit code.

    What the programs of the session say goes to session.log in the folder `out`, which is empty
    before. The settings are put into the environment."""
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    with virtual_display(scale) as (folder, environment), (out / "session.log").open("w") as log:
        session = subprocess.Popen(
            ["dbus-run-session", "--", sys.executable, "-m", program(), "--inside", str(folder),
             *map(str, words)],
            env={**environment, **settings}, start_new_session=True, stderr=log)
        try:
            code = session.wait()
        finally:
            take_time()
            end_group(session)
    if code != 0:
        print(f"What the programs said is in {out / 'session.log'}.", file=sys.stderr)
    return code


def run_once(programs, out, *words):
    return run_in_session([programs, out, *words], out)


def main(play, usage, limit_s, fits=lambda words: len(words) == 2, start=run_once):
    """Plays in a session, and ends this program.

    Two folders begin the command line: where the programs are and where to put what comes out;
    `fits` tells whether all of its words are right. `start` gets them and runs this program in
    sessions; in each, `play` gets them behind a folder for what nobody keeps. Both return the exit
    code."""
    inside = sys.argv[1:2] == ["--inside"]
    words = sys.argv[3 if inside else 1:]
    if not fits(words):
        sys.exit(usage)
    words[:2] = (pathlib.Path(word).resolve() for word in words[:2])
    try:
        limit_time(limit_s - INNER_LEAD_S if inside else limit_s)
        sys.exit(play(pathlib.Path(sys.argv[2]), *words) if inside else start(*words))
    except Failed as failure:
        # What goes to the error output inside of a session is in its log only.
        print(f"{program().rpartition('.')[2]}: {failure}", flush=True)
        sys.exit(1)
