#!/usr/bin/python3
"""Measures the dialer as its user meets it, and an empty window of the toolkit beside it.

  bench/bench.py <folder of the programs> <folder for the report>

Everything happens on a display without a screen, with real messages, clicks, a pseudo terminal for
the modem, and a telephone and a far end for the SIP line. Reports the median and the 99th
percentile; it judges nothing.
"""
import datetime
import os
import pathlib
import pty
import re
import select
import subprocess
import sys
import time
import tty

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "scripts"))

from headless_session import (Failed, Screen, end_processes, limit_time, run_in_session,  # noqa: E402
                              start_window_manager, wait_for)

TIME_LIMIT_S = 900
STARTS = 30
MESSAGES = 100
CALLS = 30
SIP_CALLS = 15
HISTORY_CALLS = 600
HISTORY_OPENINGS = 30
QUIET_S = 20
# The blinking caret changes fewer bytes of the number field than this; a number changes more.
NUMBER_CHANGE_BYTES = 400

DIALER = "TALMIX_BRISKO"
TEXT_FILTER = "Textfilter: Anrufe, in denen alle Wörter vorkommen"
NUMBERS = ("030 / 23125-101", "089 / 99998-410")


def percentile(values, share):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, round(share * (len(ordered) - 1)))]


def ms(value):
    return f"{value * 1e3:.1f} ms"


class Display:
    """The X display: windows that appear, pixels, and one xdotool that stays ready to click."""

    def __init__(self):
        from Xlib import X, display
        self.x = X
        self.display = display.Display()
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()
        self.tool = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True)

    def pixels(self, x, y, width, height):
        return self.root.get_image(x, y, width, height, self.x.ZPixmap, 0xFFFFFFFF).data

    def forget_events(self):
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()

    def wait_for_window(self):
        """Returns when a window has been mapped and its middle is painted."""
        end = time.monotonic() + 20
        while time.monotonic() < end:
            if not self.display.pending_events():
                time.sleep(0.0002)
                continue
            event = self.display.next_event()
            if event.type != self.x.MapNotify:
                continue
            box = event.window.get_geometry()
            if box.width < 200:
                continue
            middle = (box.x + box.width // 2, box.y + box.height // 2)
            while not any(self.pixels(*middle, 1, 1)[:3]):
                if time.monotonic() > end:
                    break
                time.sleep(0.0002)
            return
        raise Failed("no window appeared")

    def move(self, box):
        self.command(f"mousemove {box.x + box.width // 2} {box.y + box.height // 2}")

    def command(self, text):
        self.tool.stdin.write(text + "\n")
        self.tool.stdin.flush()


class Modem:
    """A pseudo terminal that answers AT at once."""

    def __init__(self, link):
        self.master, slave = pty.openpty()
        tty.setraw(slave)
        link.unlink(missing_ok=True)
        link.symlink_to(os.ttyname(slave))
        self.slave = slave  # kept open, so that the master never sees the end of the line
        self.received = b""

    def wait_for(self, command):
        """The moment at which a whole command that begins so has arrived."""
        end = time.monotonic() + 10
        while time.monotonic() < end:
            if select.select([self.master], [], [], 0.1)[0]:
                self.received += os.read(self.master, 4096)
                now = time.monotonic()
            while b"\r" in self.received:
                line, self.received = self.received.split(b"\r", 1)
                if line == b"AT":
                    os.write(self.master, b"\r\nOK\r\n")
                if line.startswith(command):
                    return now
        raise Failed(f"the modem never heard {command!r}")


class FarEnd:
    """The messages that the far end of the SIP calls has received, by its log."""

    HEAD = re.compile(r"^-+ (\S+ \S+)\nUDP message received .*\n\n([A-Z]+) sip:", re.MULTILINE)

    def __init__(self, log):
        self.log = log
        self.seen = 0

    def wait_for(self, method):
        """The moment, by the wall clock, at which a request that came since the last one arrived."""
        end = time.monotonic() + 10
        while time.monotonic() < end:
            text = self.log.read_text() if self.log.exists() else ""
            for head in self.HEAD.finditer(text, self.seen):
                self.seen = head.end()
                if head[2] == method:
                    return datetime.datetime.fromisoformat(head[1]).timestamp()
            time.sleep(0.005)
        raise Failed(f"the far end never received {method}")


class Bench:
    def __init__(self, programs, out, folder):
        self.programs, self.out, self.root = programs, out, folder / "demo"
        self.display = Display()
        self.lines = []
        self.running = []
        self.sip = None
        self.environment = dict(os.environ, XDG_CONFIG_HOME=str(self.root / "config"),
                                XDG_RUNTIME_DIR=str(self.root / "run"))

    def tell(self, line=""):
        print(line, flush=True)
        self.lines.append(line)

    def row(self, what, values, form=ms):
        self.tell(f"| {what} | {form(percentile(values, 0.5))} | {form(percentile(values, 0.99))} |")

    def start(self, *command, accessible=False, **options):
        environment = dict(self.environment)
        if not accessible:
            del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        process = subprocess.Popen(command, env=environment, **options)
        self.running.append(process)
        return process

    def start_sip(self):
        """Starts a telephone and a far end, and makes its line the dialer's."""
        folder = self.root / "line"
        # It takes its programs with it when its input ends, also when the bench dies.
        self.sip = subprocess.Popen([self.programs / "orvane-sip-demo", folder], text=True,
                                    stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        answer = self.sip.stdout.readline().split()
        if len(answer) != 2:
            raise Failed("the telephone for the SIP line did not start")
        self.environment["ORVANE_BARESIP_PORT"], line = answer
        registry = self.root / "config" / "Nordel" / "registry.ini"
        text = registry.read_text()
        for name, value in (("CTI", "2"), ("TapiBez", line)):
            text, count = re.subn(rf"(?m)^(.*\\{name}=).*$", rf'\g<1>"{value}"', text)
            if count != 1:
                raise Failed(f"the installation has no setting {name}")
        registry.write_text(text)
        return FarEnd(folder / "far_end.log")

    def start_dialer(self, **options):
        return self.start(self.programs / "orvane", "TX:17", **options)

    def places(self):
        """Where the number field and the dial button are."""
        dialer = self.start_dialer(accessible=True)
        screen = Screen()

        def box(name, *roles):
            node = wait_for(name, lambda: screen.find(DIALER, name, *roles))
            return node.get_extents(screen.atspi.CoordType.SCREEN)

        places = box("Rufnummer", "text"), box("Wählen", "check box", "push button")
        end_processes(dialer)
        return places

    def timed_start(self, *command):
        """Seconds to the painted window, and its proportional memory in MiB."""
        self.display.forget_events()
        begin = time.monotonic()
        process = self.start(*command)
        self.display.wait_for_window()
        seconds = time.monotonic() - begin
        time.sleep(0.3)
        rollup = pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text()
        pss = next(int(line.split()[1]) for line in rollup.splitlines() if line.startswith("Pss:"))
        end_processes(process)
        return seconds, pss / 1024

    def measure_start(self):
        commands = {"empty": [self.programs / "orvane-empty-window"],
                    "dialer": [self.programs / "orvane", "TX:17"]}
        for command in commands.values():
            self.timed_start(*command)
        results = {name: [] for name in commands}
        for _ in range(STARTS):
            for name, command in commands.items():
                results[name].append(self.timed_start(*command))
        seconds = {name: [pair[0] for pair in pairs] for name, pairs in results.items()}
        memory = {name: [pair[1] for pair in pairs] for name, pairs in results.items()}

        def mib(value):
            return f"{value:.1f} MiB"

        self.row("start to visible window, empty window", seconds["empty"])
        self.row("start to visible window, dialer", seconds["dialer"])
        self.row("memory (PSS), empty window", memory["empty"], mib)
        self.row("memory (PSS), dialer", memory["dialer"], mib)
        for what, values in (("start", seconds), ("memory", memory)):
            ratio = percentile(values["dialer"], 0.5) / percentile(values["empty"], 0.5)
            self.tell(f"| {what}, dialer to empty window | {ratio:.2f} | |")

    def send(self, sender, number):
        """Hands a number to the dialer; when it was sent and when the dialer had handled it."""
        # No company, so that the call looks the contact up.
        sender.stdin.write(f"TX:17~Dial~1|{number}||||0|0\n")
        sender.stdin.flush()
        sent, handled = sender.stdout.readline().split()
        return int(sent) / 1e9, int(handled) / 1e9

    def measure_messages(self, sender, field):
        area = (field.x, field.y, field.width, field.height)
        shown, handled_after = [], []
        for index in range(MESSAGES):
            before = self.display.pixels(*area)
            sent, handled = self.send(sender, NUMBERS[index % 2])
            end = time.monotonic() + 5
            while sum(a != b for a, b in zip(before, self.display.pixels(*area))) \
                    < NUMBER_CHANGE_BYTES:
                if time.monotonic() > end:
                    raise Failed("the number did not appear")
            shown.append(time.monotonic() - sent)
            handled_after.append(handled - sent)
            time.sleep(0.02)
        self.row("host's message to handled", handled_after)
        self.row("host's message to number on the screen", shown)

    def measure_calls(self, sender, modem, button):
        seconds = []
        self.display.move(button)
        for index in range(CALLS + 1):
            self.send(sender, NUMBERS[index % 2])
            time.sleep(0.1)
            # The button acts when it is let go.
            self.display.command("mousedown 1")
            time.sleep(0.05)
            begin = time.monotonic()
            self.display.command("mouseup 1")
            seconds.append(modem.wait_for(b"ATDT ") - begin)
            time.sleep(0.1)
            self.display.command("click 1")
            modem.wait_for(b"ATH0")
            time.sleep(0.1)
        # The first call opens the databases for the first time.
        self.row("click on the dial button to ATDT on the wire", seconds[1:])

    def measure_sip_calls(self, sender, far_end, button):
        area = (button.x, button.y, button.width, button.height)
        seconds, idle = [], None
        self.display.move(button)
        for index in range(SIP_CALLS + 1):
            self.send(sender, NUMBERS[index % 2])
            time.sleep(0.1)
            self.display.command("mousedown 1")
            time.sleep(0.05)
            # The far end's log has the time of the wall clock.
            begin = time.time()
            self.display.command("mouseup 1")
            seconds.append(far_end.wait_for("INVITE") - begin)
            far_end.wait_for("ACK")
            time.sleep(0.1)
            self.display.command("click 1")
            far_end.wait_for("BYE")
            # The button keeps the focus after the first call and then looks so after every call.
            if idle is None:
                time.sleep(1)
                idle = self.display.pixels(*area)
            wait_for("the end of the call", lambda: self.display.pixels(*area) == idle)
            time.sleep(0.1)
        self.row("click on the dial button to INVITE on the wire", seconds[1:])

    def processor_share(self, dialer):
        def nanoseconds():
            threads = pathlib.Path(f"/proc/{dialer.pid}/task").glob("*/schedstat")
            return sum(int(thread.read_text().split()[0]) for thread in threads)

        before, begin = nanoseconds(), time.monotonic()
        time.sleep(QUIET_S)
        return (nanoseconds() - before) / 1e9 / (time.monotonic() - begin)

    def measure_quiet(self, dialer, modem):
        self.tell(f"| processor time, idle | {self.processor_share(dialer):.3%} | |")
        self.display.command("click 1")
        modem.wait_for(b"ATDT ")
        time.sleep(1)
        self.tell(f"| processor time, while the line is held | {self.processor_share(dialer):.3%} | |")
        self.display.command("click 1")
        modem.wait_for(b"ATH0")

    def measure_classification(self):
        table = self.root / "host" / "res" / "VPB.rgt"
        output = subprocess.run([self.programs / "orvane-bench-classification", table], text=True,
                                check=True, stdout=subprocess.PIPE).stdout
        pairs = [line.split() for line in output.splitlines()]
        dialer, engine = ([int(time_ns) / 1e9 for time_ns in times] for times in zip(*pairs))

        def precise(value):
            return f"{value * 1e3:.3f} ms"

        self.row("classification of a key, table opened and closed", dialer, precise)
        self.row("the same question to the plain engine", engine, precise)
        ratio = percentile(dialer, 0.5) / percentile(engine, 0.5)
        self.tell(f"| classification, dialer to plain engine | {ratio:.2f} | |")

    def run(self):
        self.running.append(start_window_manager())
        self.install()
        modem = Modem(self.com_link())
        self.tell("| Measured | p50 | p99 |\n|---|---|---|")
        self.measure_classification()
        field, button = self.places()
        self.measure_start()
        dialer = self.start_dialer()
        self.display.wait_for_window()
        time.sleep(0.5)
        sender = self.start(self.programs / "orvane-message-sender", text=True,
                            stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.measure_messages(sender, field)
        self.measure_calls(sender, modem, button)
        self.measure_quiet(dialer, modem)
        end_processes(dialer)
        self.fill_journal()
        self.measure_history()
        far_end = self.start_sip()
        self.display.forget_events()
        self.start_dialer()
        self.display.wait_for_window()
        time.sleep(0.5)
        self.measure_sip_calls(sender, far_end, button)

    def history_places(self):
        """The history's button before and while it is open, its text filter and its list."""
        dialer = self.start_dialer(accessible=True)
        screen = Screen()

        def box(name, *roles):
            node = wait_for(name, lambda: screen.find(DIALER, name, *roles))
            return node, node.get_extents(screen.atspi.CoordType.SCREEN)

        button = ("Anrufhistorie", "check box", "push button")
        node, closed = box(*button)
        screen.click(node)
        places = box("Anrufliste", "tree")[1], box(TEXT_FILTER, "text")[1]
        time.sleep(0.5)
        opened = box(*button)[1]
        end_processes(dialer)
        return closed, opened, *places

    def seconds_until(self, what, act, done):
        begin = time.monotonic()
        act()
        while not done():
            if time.monotonic() > begin + 5:
                raise Failed(f"waited in vain for {what}")
        return time.monotonic() - begin

    def measure_history(self):
        closed, opened, calls, field = self.history_places()
        # The rows in the middle, without the scroll bar.
        area = (calls.x + 20, calls.y + calls.height // 2, calls.width // 2, 100)

        def shown():
            return self.display.pixels(*area)

        self.display.forget_events()
        dialer = self.start_dialer()
        self.display.wait_for_window()
        time.sleep(0.5)
        # The window moves to make room when the history opens for the first time.
        self.display.move(closed)
        self.display.command("click 1")
        time.sleep(1)
        self.display.move(opened)
        self.measure_opening(shown)
        self.measure_text_filter(field, shown)
        end_processes(dialer)

    def measure_opening(self, shown):
        full, seconds = shown(), []
        for _ in range(HISTORY_OPENINGS):
            self.display.command("click 1")
            wait_for("the end of the history", lambda: shown() != full)
            time.sleep(0.1)
            self.display.command("mousedown 1")
            time.sleep(0.05)
            seconds.append(self.seconds_until("the history",
                                              lambda: self.display.command("mouseup 1"),
                                              lambda: shown() == full))
            time.sleep(0.1)
        self.row(f"click to the painted history of {HISTORY_CALLS} calls", seconds)

    def measure_text_filter(self, field, shown):
        self.display.move(field)
        self.display.command("click 1")
        time.sleep(0.3)
        seconds = []
        for _ in range(HISTORY_OPENINGS):
            # Each of these keys leaves other calls.
            for key in ("k", "r", "BackSpace", "BackSpace"):
                before = shown()
                seconds.append(self.seconds_until("the filtered calls",
                                                  lambda: self.display.command(f"key {key}"),
                                                  lambda: shown() != before))
                time.sleep(0.05)
        self.row("key in the text filter to the painted calls", seconds)

    def install(self, *options):
        subprocess.run([self.programs / "orvane-demo-host", "--root", self.root, "--line", "modem",
                        "--install-only", *options],
                       check=True)

    def fill_journal(self):
        for journal in self.root.glob("host/Daten/User/*/res/TelList.fdb"):
            journal.unlink()
        self.install("--history", str(HISTORY_CALLS))

    def com_link(self):
        folder = self.root / "config" / "orvane"
        folder.mkdir(parents=True, exist_ok=True)
        return folder / "com1"

    def end(self):
        (self.out / "report.md").write_text("\n".join(self.lines) + "\n")
        end_processes(*reversed(self.running), self.display.tool)
        if self.sip:
            self.sip.communicate()


def main():
    inside = sys.argv[1:2] == ["--inside"]
    limit_time(TIME_LIMIT_S)
    paths = [pathlib.Path(text).resolve() for text in sys.argv[2 if inside else 1:]]
    if len(paths) != (3 if inside else 2):
        sys.exit(__doc__)
    if not inside:
        return run_in_session(__file__, paths, out=paths[1])
    bench = Bench(*paths)
    try:
        bench.run()
    finally:
        bench.end()
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failed as failure:
        sys.exit(f"bench: {failure}")
