#!/usr/bin/python3
"""A new user's way through the options on a display without a screen: every line tried, one applied.

  scripts/headless_options.py <folder of the programs> <folder for pictures and transcript>

Starts the demo host with a simulated line, a modem and a SIP line of which none is set up, places a
test call through each with real pointer and key events, applies the SIP line and a speed-dial
entry, and calls. Exits with 0 only when the lines heard every call and its end, and the host was
notified. Whatever it started is ended when it leaves.
"""
import re
import subprocess

from headless_run import DIALER, Run, main
from headless_session import Failed, start_window_manager, wait_for

TIME_LIMIT_S = 110

HOST = "TALMIX_TRAY18"
OPTIONS = "Brisko :: Optionen"
TEST_NUMBER = "0301"
MARK_OFFSET = 10  # of a radio button's or check box's mark from its left edge
NAME, NUMBER = "Jäger & Söhne, Weiß", "217"


class Tour(Run):
    def control(self, name, *roles, window=OPTIONS):
        return wait_for(f"'{name}'", lambda: self.screen.find(window, name, *roles))

    def press(self, name, *roles, window=OPTIONS):
        self.screen.click(self.control(name, *(roles or ("push button", "check box")),
                                       window=window))

    def mark(self, name, role="radio button"):
        box = self.control(name, role).get_extents(self.screen.atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(box.x + MARK_OFFSET),
                        str(box.y + box.height // 2), "click", "1"], check=True)

    def fill(self, name, text):
        self.press(name, "text")
        subprocess.run(["xdotool", "key", "ctrl+a", "type", text], check=True)
        wait_for(f"{text} in '{name}'",
                 lambda: self.screen.text(self.control(name, "text")) == text)

    def progress(self):
        return self.screen.text(self.screen.find(OPTIONS, "Verlauf der Testwahl", "text"))

    def wait_for_progress(self, text):
        wait_for(f"'{text}' in the progress of the test call", lambda: text in self.progress())

    def wait_for_heard(self, pattern):
        wait_for(f"'{pattern}' at the other end",
                 lambda: self.heard() and re.fullmatch(pattern, self.heard()[-1]))

    def choose_line(self, beginning):
        def find():
            entries = self.screen.entries(self.screen.find(OPTIONS, "TAPI-Geräte", "list"))
            return next((node for node, name in entries if name.startswith(beginning)), None)
        self.screen.click(wait_for(f"the line {beginning}", find))

    def start(self):
        # Characters that the keyboard lacks are typed by changing it, too fast for the toolkit.
        subprocess.run(["setxkbmap", "de"], check=True)
        self.manager = start_window_manager()
        self.host = subprocess.Popen([str(self.programs / "orvane-demo-host"),
                                      "--root", str(self.root), "--line", "choice"])
        self.control("Kein CTI", "label", window=DIALER)
        self.press("Optionen", window=DIALER)
        self.wait_for_progress("<Bereit>")
        if self.screen.find(DIALER, "Rufnummer", "text"):
            raise Failed("the dial window shows beside the options")
        self.tell("Nothing is set up; the options are open and the dial window is hidden.")
        self.picture("1-deactivated.png")

    def try_lines(self):
        # The notice of the deactivation goes with the serial port only.
        self.mark("Serielle Schnittstelle")
        self.mark("TAPI-Gerät (z. B. ISDN-Karte)")
        self.fill("Testrufnummer", TEST_NUMBER)
        self.choose_line("Simulierte Leitung 1")
        self.press("Wählen...")
        self.wait_for_progress("*Verbindung hergestellt! - Handle, ID: ")
        self.picture("2-simulated-line.png")
        self.press("Auflegen")
        self.wait_for_progress("*Verbindung getrennt! - Handle, ID: ")
        self.tell("The simulated line was called and hung up.")

        self.mark("Serielle Schnittstelle")
        self.press("Wählen...")
        self.wait_for_heard(f"ATDT {TEST_NUMBER}")
        self.picture("3-modem.png")
        self.press("Auflegen")
        self.wait_for_heard("ATH0")
        self.tell("The modem was called and hung up.")

        self.mark("TAPI-Gerät (z. B. ISDN-Karte)")
        self.choose_line("sip:anna")
        self.press("Treiber-Information")
        self.press("Wählen...")
        self.wait_for_progress("*Verbindung hergestellt! - Handle, ID: ")
        self.wait_for_heard(f"INVITE sip:{TEST_NUMBER}@.*")
        self.picture("4-sip-line.png")
        self.press("Auflegen")
        self.wait_for_heard("BYE .*")
        self.tell("The SIP line was called and hung up.")

    def apply(self):
        self.mark("TAPI-Anrufmonitor", "check box")
        self.press("Kurzwahlspeicher", "page tab")
        self.fill("Rufnummer intern 8", NUMBER)
        self.fill("Kurzwahlbezeichnung intern 8", NAME)
        self.picture("5-speed-dial.png")
        self.press("Übernehmen")
        self.control("TAPI initialisiert", "label", window=DIALER)
        notification = wait_for("the notification", lambda: self.screen.text(self.screen.find(
            HOST, "Meldungen des Wählprogramms", "text")))
        if not re.search(r"TX:17~TAPI_ReInit~sip:anna@\S+$", notification):
            raise Failed(f"the host was told {notification}")
        self.picture("6-applied.png")
        self.tell("Applied; the host was told: " + notification.split("  ", 1)[1])

    def check_speed_dial(self):
        file = self.root / "host" / "Daten" / "User" / "17" / "res" / "Kurzwahl.dat"
        written = file.read_bytes()
        entry = f"{NAME}|{NUMBER}|¿".encode("cp1252")
        if written.count(b"|") != 32 or entry not in written or not written.endswith(b"||"):
            raise Failed(f"the speed-dial file holds {written}")
        self.tell("The speed-dial file holds the entry.")

    def call(self):
        self.press("Rufnummer", "text", window=DIALER)
        subprocess.run(["xdotool", "type", "--", "0691234"], check=True)
        self.press("Wählen", window=DIALER)
        self.wait_for_heard(r"INVITE sip:00?691234@.*")
        self.press("Auflegen", window=DIALER)
        self.wait_for_heard("(BYE|CANCEL) .*")
        self.tell("A call went through the line that was set up.")

    def play(self):
        self.start()
        self.try_lines()
        self.apply()
        self.check_speed_dial()
        self.call()


if __name__ == "__main__":
    main(Tour, __file__, __doc__, TIME_LIMIT_S)
