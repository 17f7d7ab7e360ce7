"""One scripted call on a display without a screen: the demo host's command, real clicks, hang-up.

  /usr/bin/python3 -m tests.e2e.headless_call <folder of the programs>
    <folder for pictures and transcript> <line>

The line is simulated, modem or sip. Starts everything it needs (display, window manager, session
bus, demo host with dialer and line) and clicks with real pointer events. Exits with 0 only when the
line heard the right digits and the hang-up, the journal holds the call, and the log for support
tells it without saying whose. Whatever it started is ended when it leaves.
"""
import pathlib
import re
import time

from tests.harness import accessibility_tree as tree
from tests.harness import desktop, session
from tests.harness.demo import CONTACT, CONTACT_DIGITS, CONTACT_NUMBER, DIALER, HOST
from tests.harness.scripted_run import ScriptedRun
from tests.harness.waiting import Failed, wait_for

TIME_LIMIT_S = 100

# Known by the area-code table alone.
AREA_CODE = "06021"
PLACE = "Aschaffenburg"
DIALED = "0" + CONTACT_DIGITS  # with the outside-line access code
DIAL_COLUMN = 4  # of the demo host's table

# What is heard at the other end of each line, by patterns, and how the progress log begins its last
# line in the call and after it.
COURSES = {
    "modem": (["AT", f"ATDT {DIALED}", "ATH0"], ">>> Wählen: " + DIALED, "Status: <OK>"),
    "simulated": ([], "Verbunden um ", "Gesprächsdauer: "),
    "sip": ([f"INVITE sip:{DIALED}@.*", "BYE .*"], "Verbunden um ", "Gesprächsdauer: "),
}
TALK_S = 1.5  # long enough for a duration to tell

# What the log tells on the way of a call; the last three digits are in the open.
LOG_HEAD = r"Orvane \d+\.\d+\.\d+, .+ \(.+\), Qt \d+\.\d+\.\d+, gestartet mit TX:17"
MASKED = r"\*[* /-]*" + CONTACT_DIGITS[-3:]
LINE_STEPS = (rf"Leitung #0 wählt {MASKED}", "verbunden", "Auflegen", "trennen", "getrennt", "beendet")
LOG_STEPS = {
    "modem": (r"COM1 öffnen \(", r"AT senden \(", r"empfangen: \d+ Zeichen", rf"ATDT {MASKED} senden \(",
              "Auflegen", r"ATH0 senden \(", "COM1 schließen"),
    "simulated": LINE_STEPS,
    "sip": LINE_STEPS,
}


class Call(ScriptedRun):
    def __init__(self, folder, programs, out, line):
        super().__init__(folder, programs, out)
        self.line = line
        self.expected, self.in_call, self.ended = COURSES[line]

    def begin(self):
        self.demo.put_setting("BriskoLog", 1)
        self.host = self.start_demo_host(line=self.line)
        for caption in (HOST, DIALER):
            wait_for(f"the window {caption}", lambda: tree.window(caption))
        self.tell("Demo host and dialer are running.")

    def type_number(self):
        self.click("Rufnummer", "text")
        desktop.type_text(AREA_CODE)
        self.control(PLACE, "label")
        self.tell(f"Typed {AREA_CODE}: {PLACE}")

    def send_dial(self):
        cells = wait_for("the contacts", lambda: tree.entries(tree.find(HOST, "Kontakte", "table")))
        names = [text for _, text in cells]
        tree.click(cells[names.index(CONTACT) + DIAL_COLUMN][0])
        wait_for("the number in the dial window", lambda: self.number() == CONTACT_NUMBER)
        self.tell(f"Host command: {CONTACT}, {CONTACT_NUMBER}")
        self.picture("1-host-command")

    def tell_progress(self, title):
        self.tell(f"\nProgress log {title}:")
        for line in self.progress_lines():
            self.tell("  " + line)

    def dial(self):
        self.click("Wählen")
        self.wait_for_progress(self.in_call)
        before_hang_up = max(len(self.expected) - 1, 0)
        wait_for("the digits at the other end", lambda: len(self.demo.heard()) >= before_hang_up)
        time.sleep(TALK_S)
        self.picture("2-in-call")
        self.tell_progress("in the call")

    def hang_up(self):
        self.click("Auflegen")
        self.wait_for_progress(self.ended)
        wait_for("the end at the other end", lambda: len(self.demo.heard()) >= len(self.expected))
        self.control("Wählen")
        self.picture("3-hung-up")
        self.tell_progress("after it")

    def check_line(self):
        self.tell(f"\nHeard on the line ({self.line}):")
        heard = self.demo.heard()
        for line in heard:
            self.tell("  " + line)
        right = len(heard) == len(self.expected) and all(
            re.fullmatch(pattern, line) for pattern, line in zip(self.expected, heard))
        if not right:
            raise Failed(f"the line heard {heard} instead of {self.expected}")

    def check_journal(self):
        # Times are days since 1899-12-30.
        rows = self.demo.read_journal("SELECT *, datetime(Zeit + 2415018.5) AS Zeitpunkt FROM o")
        self.tell("\nJournal, outgoing calls:")
        for row in rows:
            self.tell("  " + ", ".join(f"{name}={row[name]}" for name in row.keys()))
        if [(row["Firma"], row["Nr"], row["Ext"]) for row in rows] != [(CONTACT, CONTACT_DIGITS, -1)]:
            raise Failed("the journal does not hold exactly this call")
        # A modem does not tell when the call ends, so its row gets no duration.
        if bool(rows[0]["Dauer"]) == (self.line == "modem"):
            raise Failed("the journal's duration is wrong")

    def check_log(self):
        folder = pathlib.Path(self.system.environment["XDG_DATA_HOME"]) / "Orvane"
        log = (folder / "Orvane.log").read_text()
        self.tell("\nLog for support:\n" + log)
        self.check_steps(log)
        self.check_secrecy(log)

    def check_steps(self, log):
        place = 0
        for step in (rf"\A.*{LOG_HEAD}\n", rf"empfangen: TX:17~Dial~1\|{MASKED}\|…\|…\|…\|",
                     rf"Wählen: {MASKED} \(extern\)", *LOG_STEPS[self.line], r"\|KillMySelf\|",
                     r"Ende\n\Z"):
            found = re.compile(step).search(log, place)
            if not found:
                raise Failed(f"the log does not tell '{step}' in its place")
            place = found.end()

    def check_secrecy(self, log):
        names, numbers = self.demo.contacts()
        digits = re.sub(r"[ /-]", "", log)
        told = [name for name in names if name in log] + [number for number in numbers if number in digits]
        if told or len(names) < 15 or len(numbers) < 15:
            raise Failed(f"the log tells {told} of {len(names)} names and {len(numbers)} numbers")

    def play(self):
        self.begin()
        self.type_number()
        self.send_dial()
        self.dial()
        self.hang_up()
        self.close_host(self.host)
        self.tell("\nThe dialer ended by the host's command.")
        self.check_line()
        self.check_journal()
        self.check_log()
        self.tell("\nThe call happened as it should.")


if __name__ == "__main__":
    session.main(lambda *words: Call(*words).run(), __doc__, TIME_LIMIT_S,
                 fits=lambda words: len(words) == 3 and words[2] in COURSES)
