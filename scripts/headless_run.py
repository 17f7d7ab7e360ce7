"""A scripted use of the demo host and the dialer, in a session of its own: what all such scripts share.

A script derives from Run, does its steps in `play`, and calls main.
"""
import pathlib
import sqlite3
import subprocess
import sys

from headless_session import (Failed, Screen, end_processes, limit_time, run_in_session, wait_for)

DIALER = "TALMIX_BRISKO"
# The inner limit comes first, so that a step that hangs can still say where.
INNER_LEAD_S = 10


class Run:
    """Programs from one folder; transcript and pictures go to another, the demo to a third."""

    def __init__(self, programs, out, folder):
        self.programs, self.out, self.root = programs, out, folder / "demo"
        self.screen = Screen()
        self.lines = []
        self.manager = self.host = None

    def play(self):
        raise NotImplementedError

    def tell(self, line=""):
        print(line, flush=True)
        self.lines.append(line)

    def picture(self, name):
        subprocess.run(["import", "-window", "root", str(self.out / name)], check=True)

    def heard(self):
        """What reached the line."""
        log = self.root / "line.log"
        lines = log.read_text().splitlines() if log.exists() else []
        return [line[2:] for line in lines if line.startswith("< ")]

    def progress_lines(self):
        log = self.screen.find(DIALER, "Gesprächsverlauf", "list")
        return [text for _, text in self.screen.entries(log)]

    def wait_for_last_progress(self, beginning):
        def last():
            lines = self.progress_lines()
            return bool(lines) and lines[-1].startswith(beginning)
        wait_for(f"'{beginning}' in the progress log", last)

    def number(self):
        return self.screen.text(self.screen.find(DIALER, "Rufnummer", "text"))

    def run(self):
        """Plays; the exit code."""
        try:
            self.play()
            return 0
        except (Failed, OSError, subprocess.SubprocessError, ValueError, sqlite3.Error) as error:
            self.tell(f"FAILED: {error}")
            for line in self.heard():
                self.tell("  heard: " + line)
            (self.out / "accessibility-tree.txt").write_text(self.screen.dump())
            self.picture("failed.png")
            return 1
        finally:
            (self.out / "transcript.txt").write_text("\n".join(self.lines) + "\n")
            end_processes(self.host, self.manager)


def main(kind, script, usage, limit_s, choices=None):
    """Runs a script's kind of Run in a session; ends the process.

    The arguments are the folder of the programs, the folder for what comes out, and one of the
    choices where there are any."""
    inside = sys.argv[1:2] == ["--inside"]
    arguments = sys.argv[2 if inside else 1:]
    count = 3 if choices else 2
    if len(arguments) != count + inside or (choices and arguments[2] not in choices):
        sys.exit(usage)
    arguments[:2] = (pathlib.Path(text).resolve() for text in arguments[:2])
    try:
        limit_time(limit_s - INNER_LEAD_S if inside else limit_s)
        if inside:
            sys.exit(kind(*arguments[:2], pathlib.Path(arguments[-1]), *arguments[2:-1]).run())
        sys.exit(run_in_session(script, arguments, out=arguments[1]))
    except Failed as failure:
        sys.exit(f"{pathlib.Path(script).stem}: {failure}")
