"""Waiting for what programs are to bring about, and ending them."""
import os
import signal
import subprocess
import time

STEP_LIMIT_S = 30
END_LIMIT_S = 10
POLL_S = 0.05


class Failed(Exception):
    """What a program was to bring about did not happen."""


def limit_time(seconds):
    """Ends this program with Failed after this time, and when it is interrupted."""

    def end(signum, _frame):
        raise Failed("time limit reached" if signum == signal.SIGALRM else "interrupted")

    for signum in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT):
        signal.signal(signum, end)
    signal.alarm(seconds)


def take_time():
    """Lifts the limit, for tidying up."""
    signal.alarm(0)


def wait_for(what, get, seconds=STEP_LIMIT_S):
    """The first value of get() that counts as true."""
    end = time.monotonic() + seconds
    while True:
        value = get()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"waited in vain for {what}")
        time.sleep(POLL_S)


def end_processes(*processes):
    for process in processes:
        if process is not None and process.poll() is None:
            process.terminate()
            try:
                process.wait(END_LIMIT_S)
            except subprocess.TimeoutExpired:
                process.kill()


def end_group(process):
    """Ends a process that leads its own group, and what it started."""
    for sig in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, sig)
        except ProcessLookupError:
            return
        try:
            process.wait(END_LIMIT_S)
        except subprocess.TimeoutExpired:
            continue
        if sig == signal.SIGTERM:
            time.sleep(0.2)
