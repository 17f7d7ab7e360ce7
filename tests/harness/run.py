"""A use of the programs in a system, whichever it is and however their windows are driven."""
import sqlite3
import subprocess

from tests.harness import accessibility_tree, desktop
from tests.harness.demo import DIALER, HOST, Demo
from tests.harness.waiting import STEP_LIMIT_S, Failed, end_processes, wait_for

KEY_LIMIT_S = 5


class Run:
    """What is derived from it does its steps in `play`.

    The demo is where the system has it. Pictures and transcript go to the folder `out`; the names
    of the pictures begin with that of the run, if it has one."""

    name = ""
    transcript = "transcript.txt"

    def __init__(self, system, out):
        self.system, self.out, self.demo = system, out, Demo(system.root)
        self.running = []

    def play(self):
        raise NotImplementedError

    def run(self):
        """Plays; the exit code."""
        try:
            self.play()
            return 0
        except (Failed, OSError, subprocess.SubprocessError, ValueError, sqlite3.Error) as error:
            self.tell(f"FAILED, {error}")
            self.keep_evidence()
            return 1
        finally:
            self.end()

    def tell(self, line=""):
        print(line, flush=True)
        with (self.out / self.transcript).open("a") as transcript:
            transcript.write(line + "\n")

    def file(self, what, ending):
        return self.out / ("-".join(part for part in (self.name, what) if part) + ending)

    def picture(self, what=""):
        desktop.let_settle()
        desktop.take_picture(self.file(what, ".png"))

    def keep_evidence(self):
        for line in self.demo.heard():
            self.tell("  heard: " + line)
        tree = accessibility_tree.dump()
        if tree:
            self.file("accessibility-tree", ".txt").write_text(tree)
        desktop.take_picture(self.file("failed", ".png"))

    def start(self, name, *arguments, **options):
        process = self.system.start(name, *arguments, **options)
        self.running.append(process)
        return process

    def start_demo_host(self, *options, line="simulated", history=0):
        return self.start("orvane-demo-host", "--root", self.system.path(self.system.root),
                          "--dialer", self.system.dialer(), "--line", line,
                          "--history", str(history), *options)

    def install(self, **what):
        """What the host has is in the demo's folder; what is there already stays."""
        self.ends_well("the installation", self.start_demo_host("--install-only", **what))

    def send(self, message):
        """Sends the dialer a message; whether it was taken."""
        sender = self.start("orvane-message-sender", text=True, stdin=subprocess.PIPE,
                            stdout=subprocess.DEVNULL)
        sender.communicate(message + "\n", STEP_LIMIT_S)
        return sender.returncode == 0

    def ends_well(self, what, process):
        wait_for(f"the end of {what}", lambda: process.poll() is not None)
        if process.returncode != 0:
            raise Failed(f"{what} ended with {process.returncode}")

    def close_host(self, host):
        """Closes the demo host's window; it ends the dialer and then itself."""
        def ended():
            # The window manager drops a key that comes while it moves the focus; then it comes again.
            if desktop.windows(HOST):
                desktop.activate(HOST)
                desktop.press("alt+F4")
            try:
                return host.wait(KEY_LIMIT_S) is not None
            except subprocess.TimeoutExpired:
                return False
        wait_for("the demo host's end", ended)
        self.ends_well("the demo host", host)

    def end(self):
        end_processes(*reversed(self.running))
        # A dialer that was started by the host would take part in the next run.
        for window in desktop.windows(DIALER):
            desktop.xdotool("windowkill", window, check=False)
