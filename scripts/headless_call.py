#!/usr/bin/python3
"""One scripted call on a display without a screen: the demo host's command, real clicks, hang-up.

  scripts/headless_call.py <folder of the programs> <folder for pictures and transcript> <line>

The line is simulated, modem or sip. Starts everything it needs (display, window manager, session
bus, demo host with dialer and line) and clicks with real pointer events. Exits with 0 only when the
line heard the right digits and the hang-up, and the journal holds the call. Whatever it started is
ended when it leaves.
"""
import re
import sqlite3
import subprocess
import time

from headless_run import DIALER, Run, main
from headless_session import Failed, start_window_manager, wait_for

TIME_LIMIT_S = 100

# Known by the area-code table alone.
AREA_CODE = "06021"
PLACE = "Aschaffenburg"
COMPANY = "Muster & Söhne GmbH"
WRITTEN_NUMBER = "069 / 90009-217"
DIGITS = "06990009217"
DIALED = "0" + DIGITS  # with the outside-line access code
USER = 17
DIAL_COLUMN = 4  # of the demo host's table

# What is heard at the other end of each line, by patterns, and how the progress log begins its last
# line in the call and after it.
COURSES = {
    "modem": (["AT", f"ATDT {DIALED}", "ATH0"], ">>> Wählen: " + DIALED, "Status: <OK>"),
    "simulated": ([], "Verbunden um ", "Gesprächsdauer: "),
    "sip": ([f"INVITE sip:{DIALED}@.*", "BYE .*"], "Verbunden um ", "Gesprächsdauer: "),
}
TALK_S = 1.5  # long enough for a duration to tell

HOST = "TALMIX_TRAY18"


class Call(Run):
    def __init__(self, programs, out, folder, line):
        super().__init__(programs, out, folder)
        self.line = line
        self.expected, self.in_call, self.ended = COURSES[line]

    def start(self):
        self.manager = start_window_manager()
        self.host = subprocess.Popen([str(self.programs / "orvane-demo-host"),
                                      "--root", str(self.root), "--line", self.line])
        wait_for("the demo host's window", lambda: self.screen.window(HOST))
        wait_for("the dial window", lambda: self.screen.window(DIALER))
        self.tell("Demo host and dialer are running.")

    def type_number(self):
        self.screen.click(self.screen.find(DIALER, "Rufnummer", "text"))
        subprocess.run(["xdotool", "type", AREA_CODE], check=True)
        wait_for(f"{PLACE} in the dial window", lambda: self.screen.find(DIALER, PLACE, "label"))
        self.tell(f"Typed {AREA_CODE}: {PLACE}")

    def send_dial(self):
        cells = wait_for("the contacts", lambda: self.screen.entries(
            self.screen.find(HOST, "Kontakte", "table")))
        names = [text for _, text in cells]
        self.screen.click(cells[names.index(COMPANY) + DIAL_COLUMN][0])
        wait_for("the number in the dial window", lambda: self.number() == WRITTEN_NUMBER)
        self.tell(f"Host command: {COMPANY}, {WRITTEN_NUMBER}")
        self.picture("1-host-command.png")

    def dial_button(self, caption):
        # A button that stays pressed counts as a check box.
        return wait_for(f"the button '{caption}'", lambda: self.screen.find(
            DIALER, caption, "check box", "push button"))

    def log_ends_with(self, beginning):
        lines = self.progress_lines()
        return bool(lines) and lines[-1].startswith(beginning)

    def tell_progress(self, title):
        self.tell(f"\nProgress log {title}:")
        for line in self.progress_lines():
            self.tell("  " + line)

    def dial(self):
        self.screen.click(self.dial_button("Wählen"))
        wait_for("the call in the progress log", lambda: self.log_ends_with(self.in_call))
        before_hang_up = max(len(self.expected) - 1, 0)
        wait_for("the digits at the other end", lambda: len(self.heard()) >= before_hang_up)
        time.sleep(TALK_S)
        self.picture("2-in-call.png")
        self.tell_progress("in the call")

    def hang_up(self):
        self.screen.click(self.dial_button("Auflegen"))
        wait_for("the end in the progress log", lambda: self.log_ends_with(self.ended))
        wait_for("the end at the other end", lambda: len(self.heard()) >= len(self.expected))
        self.dial_button("Wählen")
        self.picture("3-hung-up.png")
        self.tell_progress("after it")

    def press_close(self):
        subprocess.run(["xdotool", "search", "--name", HOST, "windowactivate", "--sync",
                        "key", "alt+F4"],
                       check=False)
        try:
            self.host.wait(2)
        except subprocess.TimeoutExpired:
            pass
        return self.host.poll() is not None

    def close(self):
        # The window manager drops a key that comes while it moves the focus; then it comes again.
        wait_for("the demo host's end", self.press_close)
        if self.host.returncode != 0:
            raise Failed("the dialer did not end by the host's command")
        self.tell("\nThe dialer ended by the host's command.")

    def check_line(self):
        self.tell(f"\nHeard on the line ({self.line}):")
        heard = self.heard()
        for line in heard:
            self.tell("  " + line)
        right = len(heard) == len(self.expected) and all(
            re.fullmatch(pattern, line) for pattern, line in zip(self.expected, heard))
        if not right:
            raise Failed(f"the line heard {heard} instead of {self.expected}")

    def check_journal(self):
        file = self.root / "host" / "Daten" / "User" / str(USER) / "res" / "TelList.fdb"
        with sqlite3.connect(f"file:{file}?mode=ro", uri=True) as journal:
            journal.row_factory = sqlite3.Row
            # Times are days since 1899-12-30.
            rows = [dict(row) for row in journal.execute(
                "SELECT *, datetime(Zeit + 2415018.5) AS Zeitpunkt FROM o")]
        self.tell("\nJournal, outgoing calls:")
        for row in rows:
            self.tell("  " + ", ".join(f"{name}={value}" for name, value in row.items()))
        if [(row["Firma"], row["Nr"], row["Ext"]) for row in rows] != [(COMPANY, DIGITS, -1)]:
            raise Failed("the journal does not hold exactly this call")
        # A modem does not tell when the call ends, so its row gets no duration.
        if bool(rows[0]["Dauer"]) == (self.line == "modem"):
            raise Failed("the journal's duration is wrong")

    def play(self):
        self.start()
        self.type_number()
        self.send_dial()
        self.dial()
        self.hang_up()
        self.close()
        self.check_line()
        self.check_journal()
        self.tell("\nThe call happened as it should.")


if __name__ == "__main__":
    main(Call, __file__, __doc__, TIME_LIMIT_S, choices=COURSES)
