#!/usr/bin/python3
"""One scripted call on a display without a screen: the demo host's command, real clicks, hang-up.

  scripts/headless_call.py <folder of the programs> <folder for pictures and transcript>

Starts everything it needs (display, window manager, session bus, demo host with dialer and modem
simulator) and clicks with real pointer events. Exits with 0 only when the modem heard the right
digits and the hang-up, and the journal holds the call. Whatever it started is ended when it leaves.
"""
import pathlib
import sqlite3
import subprocess
import sys

from headless_session import (STEP_LIMIT_S, Failed, Screen, end_processes, limit_time,
                              run_in_session, start_window_manager, wait_for)

TIME_LIMIT_S = 100

COMPANY = "Muster & Söhne GmbH"
WRITTEN_NUMBER = "069 / 90009-217"
DIGITS = "06990009217"
DIALED = "0" + DIGITS  # with the outside-line access code
USER = 17
DIAL_COLUMN = 4  # of the demo host's table

HOST = "TALMIX_TRAY18"
DIALER = "TALMIX_BRISKO"


class Call:
    def __init__(self, programs, out, folder):
        self.programs, self.out, self.root = programs, out, folder / "demo"
        self.screen = Screen()
        self.lines = []
        self.manager = self.host = None

    def tell(self, line=""):
        print(line, flush=True)
        self.lines.append(line)

    def picture(self, name):
        subprocess.run(["import", "-window", "root", str(self.out / name)], check=True)

    def modem_lines(self):
        log = self.root / "modem.log"
        return log.read_text().splitlines() if log.exists() else []

    def heard(self, command):
        return any(line.endswith("< " + command) for line in self.modem_lines())

    def progress_lines(self):
        log = self.screen.find(DIALER, "Gesprächsverlauf", "list")
        return [text for _, text in self.screen.entries(log)]

    def number(self):
        return self.screen.text(self.screen.find(DIALER, "Rufnummer", "text"))

    def start(self):
        self.manager = start_window_manager()
        self.host = subprocess.Popen([str(self.programs / "orvane-demo-host"),
                                      "--root", str(self.root)])
        wait_for("the demo host's window", lambda: self.screen.window(HOST))
        wait_for("the dial window", lambda: self.screen.window(DIALER))
        self.tell("Demo host and dialer are running.")

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

    def dial(self):
        self.screen.click(self.dial_button("Wählen"))
        wait_for("ATDT at the modem", lambda: self.heard("ATDT " + DIALED))
        wait_for("the progress log", lambda: ">>> Wählen: " + DIALED in self.progress_lines())
        self.picture("2-in-call.png")

    def hang_up(self):
        self.screen.click(self.dial_button("Auflegen"))
        wait_for("ATH0 at the modem", lambda: self.heard("ATH0"))
        wait_for("the end in the progress log", lambda: "Status: <OK>" in self.progress_lines())
        self.dial_button("Wählen")
        self.picture("3-hung-up.png")
        self.tell("\nProgress log:")
        for line in self.progress_lines():
            self.tell("  " + line)

    def close(self):
        subprocess.run(["xdotool", "search", "--name", HOST, "windowactivate", "--sync",
                        "key", "alt+F4"], check=True)
        if self.host.wait(STEP_LIMIT_S) != 0:
            raise Failed("the dialer did not end by the host's command")
        self.tell("\nThe dialer ended by the host's command.")

    def check_modem(self):
        self.tell("\nModem:")
        for line in self.modem_lines():
            self.tell("  " + line)
        commands = [line.split("< ", 1)[1] for line in self.modem_lines() if "< " in line]
        expected = ["AT", "ATDT " + DIALED, "ATH0"]
        if commands != expected:
            raise Failed(f"the modem heard {commands} instead of {expected}")

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

    def run(self):
        try:
            self.start()
            self.send_dial()
            self.dial()
            self.hang_up()
            self.close()
            self.check_modem()
            self.check_journal()
            self.tell("\nThe call happened as it should.")
            return 0
        except (Failed, OSError, subprocess.SubprocessError, ValueError, sqlite3.Error) as error:
            self.tell(f"\nFAILED: {error}")
            for line in self.modem_lines():
                self.tell("  modem: " + line)
            (self.out / "accessibility-tree.txt").write_text(self.screen.dump())
            subprocess.run(["import", "-window", "root", str(self.out / "failed.png")], check=False)
            return 1
        finally:
            (self.out / "transcript.txt").write_text("\n".join(self.lines) + "\n")
            end_processes(self.host, self.manager)


def main():
    inside = sys.argv[1:2] == ["--inside"]
    # The inner limit comes first, so that a call that hangs can still say where.
    limit_time(TIME_LIMIT_S - 10 if inside else TIME_LIMIT_S)
    paths = [pathlib.Path(text).resolve() for text in sys.argv[2 if inside else 1:]]
    if len(paths) != (3 if inside else 2):
        sys.exit(__doc__)
    if inside:
        return Call(*paths).run()
    return run_in_session(__file__, paths, out=paths[1])


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failed as failure:
        sys.exit(f"headless call: {failure}")
