"""Measures the dialer as its user meets it, and an empty window of the toolkit beside it.

  /usr/bin/python3 -m bench.bench <folder of the programs> <folder for the report>

Everything happens on a display without a screen, with real messages, clicks, a pseudo terminal for
the modem, and a telephone and a far end for the SIP line. Reports the median and the 99th
percentile; it judges nothing.
"""
import pathlib
import subprocess
import time

from bench.display import Display
from bench.far_ends import FarEnd, Modem
from bench.figures import ms, percentile, row
from tests.harness import accessibility_tree as tree
from tests.harness import session
from tests.harness.demo import START_COMMAND, dial_command
from tests.harness.scripted_run import ScriptedRun
from tests.harness.waiting import Failed, end_processes, wait_for

TIME_LIMIT_S = 900
STARTS = 30
MESSAGES = 100
CALL_TURNS, CALLS_EACH = 5, 6
SIP_CALLS = 15
HISTORY_CALLS = 600
HISTORY_OPENINGS = 30
QUIET_S = 20
# The blinking caret changes fewer bytes of the number field than this; a number changes more.
NUMBER_CHANGE_BYTES = 400

TEXT_FILTER = "Textfilter: Anrufe, in denen alle Wörter vorkommen"
NUMBERS = ("030 / 23125-101", "089 / 99998-410")


class Bench(ScriptedRun):
    transcript = "report.md"

    def __init__(self, folder, programs, out):
        super().__init__(folder, programs, out)
        self.programs, self.root = programs, self.demo.root
        self.display = Display()
        self.sip = None

    def row(self, what, values, form=ms):
        self.tell(row(what, values, form))

    def start(self, name, *arguments, accessible=False, **options):
        environment = dict(self.system.environment)
        if not accessible:
            del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        return super().start(name, *arguments, env=environment, **options)

    def start_sip(self):
        """Starts a telephone and a far end, and makes its line the dialer's."""
        folder = self.root / "line"
        # It takes its programs with it when its input ends, also when the bench dies.
        self.sip = subprocess.Popen([self.programs / "orvane-sip-demo", folder], text=True,
                                    stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        answer = self.sip.stdout.readline().split()
        if len(answer) != 2:
            raise Failed("the telephone for the SIP line did not start")
        self.system.environment["ORVANE_BARESIP_PORT"], line = answer
        for name, value in (("CTI", "2"), ("TapiBez", line)):
            self.demo.put_setting(name, value)
        return FarEnd(folder / "far_end.log")

    def start_dialer(self, **options):
        return self.start("orvane", START_COMMAND, **options)

    def start_visible_dialer(self):
        self.display.forget_events()
        dialer = self.start_dialer()
        self.display.wait_for_window()
        time.sleep(0.5)
        return dialer

    def places(self):
        """Where the number field and the dial button are."""
        dialer = self.start_dialer(accessible=True)
        places = tree.box(self.control("Rufnummer", "text")), tree.box(self.control("Wählen"))
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
        commands = {"empty": ["orvane-empty-window"], "dialer": ["orvane", START_COMMAND]}
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

    def hand_over(self, sender, number):
        """Hands a number to the dialer; when it was sent and when the dialer had handled it."""
        # No company, so that the call looks the contact up.
        sender.stdin.write(dial_command(number, company="", rest="||0|0") + "\n")
        sender.stdin.flush()
        sent, handled = sender.stdout.readline().split()
        return int(sent) / 1e9, int(handled) / 1e9

    def measure_messages(self, sender, field):
        area = (field.x, field.y, field.width, field.height)
        shown, handled_after = [], []
        for index in range(MESSAGES):
            before = self.display.pixels(*area)
            sent, handled = self.hand_over(sender, NUMBERS[index % 2])
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
        """Without and with the log for support, in turns."""
        seconds = {"0": [], "1": []}
        self.display.move(button)
        for _ in range(CALL_TURNS):
            for log, times in seconds.items():
                self.demo.put_setting("BriskoLog", log)
                dialer = self.start_visible_dialer()
                # The first call opens the databases for the first time.
                times += self.timed_calls(sender, modem, CALLS_EACH + 1)[1:]
                end_processes(dialer)
        self.demo.put_setting("BriskoLog", "0")
        log = pathlib.Path(self.system.environment["XDG_DATA_HOME"]) / "Orvane" / "Orvane.log"
        if log.read_text().count("ATDT") != CALL_TURNS * (CALLS_EACH + 1):
            raise Failed("the log for support was not on in every other turn")
        self.row("click on the dial button to ATDT on the wire", seconds["0"])
        self.row("the same with the log for support", seconds["1"])

    def timed_calls(self, sender, modem, calls):
        """Seconds from letting go of the dial button to the modem's hearing of each call."""
        seconds = []
        for index in range(calls):
            self.hand_over(sender, NUMBERS[index % 2])
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
        return seconds

    def measure_sip_calls(self, sender, far_end, button):
        area = (button.x, button.y, button.width, button.height)
        seconds, idle = [], None
        self.display.move(button)
        for index in range(SIP_CALLS + 1):
            self.hand_over(sender, NUMBERS[index % 2])
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
        table = self.demo.area_codes()
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

    def play(self):
        self.install(line="modem")
        modem = Modem(self.com_link())
        self.tell("| Measured | p50 | p99 |\n|---|---|---|")
        self.measure_classification()
        field, button = self.places()
        self.measure_start()
        dialer = self.start_visible_dialer()
        sender = self.start("orvane-message-sender", text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.measure_messages(sender, field)
        end_processes(dialer)
        self.measure_calls(sender, modem, button)
        dialer = self.start_visible_dialer()
        self.hand_over(sender, NUMBERS[0])
        self.measure_quiet(dialer, modem)
        end_processes(dialer)
        self.fill_journal()
        self.measure_history()
        far_end = self.start_sip()
        self.start_visible_dialer()
        self.measure_sip_calls(sender, far_end, button)

    def history_places(self):
        """The history's button before and while it is open, its list and its text filter."""
        dialer = self.start_dialer(accessible=True)
        closed = tree.box(self.control("Anrufhistorie"))
        self.click("Anrufhistorie")
        places = [tree.box(self.control(*what)) for what in (("Anrufliste", "tree"),
                                                             (TEXT_FILTER, "text"))]
        time.sleep(0.5)
        opened = tree.box(self.control("Anrufhistorie"))
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

        dialer = self.start_visible_dialer()
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

    def fill_journal(self):
        for journal in self.root.glob("host/Daten/User/*/res/TelList.fdb"):
            journal.unlink()
        self.install(line="modem", history=HISTORY_CALLS)

    def com_link(self):
        folder = self.root / "config" / "orvane"
        folder.mkdir(parents=True, exist_ok=True)
        return folder / "com1"

    def end(self):
        super().end()
        self.display.close()
        if self.sip:
            self.sip.communicate()


if __name__ == "__main__":
    session.main(lambda *words: Bench(*words).run(), __doc__, TIME_LIMIT_S)
