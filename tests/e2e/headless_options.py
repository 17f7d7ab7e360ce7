"""A new user's way through the options on a display without a screen: every line tried, one applied.

  /usr/bin/python3 -m tests.e2e.headless_options <folder of the programs>
    <folder for pictures and transcript>

Starts the demo host with a simulated line, a modem and a SIP line of which none is set up, places a
test call through each with real pointer and key events, applies the SIP line and a speed-dial
entry, and calls. Exits with 0 only when the lines heard every call and its end, and the host was
notified. Whatever it started is ended when it leaves.
"""
import re
import subprocess

from tests.harness import accessibility_tree as tree
from tests.harness import desktop, session
from tests.harness.demo import DIALER, HOST, OPTIONS, USER
from tests.harness.scripted_run import ScriptedRun
from tests.harness.waiting import Failed, wait_for

TIME_LIMIT_S = 110

TEST_NUMBER = "0301"
MARK_OFFSET = 10  # of a radio button's or check box's mark from its left edge
NAME, NUMBER = "Jäger & Söhne, Weiß", "217"


class Tour(ScriptedRun):
    window = OPTIONS

    def mark(self, name, role="radio button"):
        tree.click(self.control(name, role), from_left=MARK_OFFSET)

    def fill(self, name, text):
        self.click(name, "text")
        desktop.press("ctrl+a")
        desktop.type_text(text)
        wait_for(f"{text} in '{name}'", lambda: tree.text(self.control(name, "text")) == text)

    def wait_for_test_progress(self, text):
        wait_for(f"'{text}' in the progress of the test call",
                 lambda: text in tree.text(self.find("Verlauf der Testwahl", "text")))

    def choose_line(self, beginning):
        def find():
            lines = tree.entries(self.find("TAPI-Geräte", "list"))
            return next((node for node, name in lines if name.startswith(beginning)), None)
        tree.click(wait_for(f"the line {beginning}", find))

    def begin(self):
        # Characters that the keyboard lacks are typed by changing it, too fast for the toolkit.
        subprocess.run(["setxkbmap", "de"], check=True)
        self.start_demo_host(line="choice")
        self.control("Kein CTI", "label", window=DIALER)
        self.click("Optionen", window=DIALER)
        self.wait_for_test_progress("<Bereit>")
        if self.find("Rufnummer", "text", window=DIALER):
            raise Failed("the dial window shows beside the options")
        self.tell("Nothing is set up; the options are open and the dial window is hidden.")
        self.picture("1-deactivated")

    def try_lines(self):
        # The notice of the deactivation goes with the serial port only.
        self.mark("Serielle Schnittstelle")
        self.mark("TAPI-Gerät (z. B. ISDN-Karte)")
        self.fill("Testrufnummer", TEST_NUMBER)
        self.choose_line("Simulierte Leitung 1")
        self.click("Wählen...")
        self.wait_for_test_progress("*Verbindung hergestellt! - Handle, ID: ")
        self.picture("2-simulated-line")
        self.click("Auflegen")
        self.wait_for_test_progress("*Verbindung getrennt! - Handle, ID: ")
        self.tell("The simulated line was called and hung up.")

        self.mark("Serielle Schnittstelle")
        self.click("Wählen...")
        self.wait_for_heard(f"ATDT {TEST_NUMBER}")
        self.picture("3-modem")
        self.click("Auflegen")
        self.wait_for_heard("ATH0")
        self.tell("The modem was called and hung up.")

        self.mark("TAPI-Gerät (z. B. ISDN-Karte)")
        self.choose_line("sip:anna")
        self.click("Treiber-Information")
        self.click("Wählen...")
        self.wait_for_test_progress("*Verbindung hergestellt! - Handle, ID: ")
        self.wait_for_heard(f"INVITE sip:{TEST_NUMBER}@.*")
        self.picture("4-sip-line")
        self.click("Auflegen")
        self.wait_for_heard("BYE .*")
        self.tell("The SIP line was called and hung up.")

    def apply(self):
        self.mark("TAPI-Anrufmonitor", "check box")
        self.click("Kurzwahlspeicher", "page tab")
        self.fill("Rufnummer intern 8", NUMBER)
        self.fill("Kurzwahlbezeichnung intern 8", NAME)
        self.picture("5-speed-dial")
        self.click("Übernehmen")
        self.control("TAPI initialisiert", "label", window=DIALER)
        notification = wait_for("the notification", lambda: tree.text(
            self.find("Meldungen des Wählprogramms", "text", window=HOST)))
        if not re.search(rf"TX:{USER}~TAPI_ReInit~sip:anna@\S+$", notification):
            raise Failed(f"the host was told {notification}")
        self.picture("6-applied")
        self.tell("Applied; the host was told: " + notification.split("  ", 1)[1])

    def check_speed_dial(self):
        written = self.demo.speed_dial().read_bytes()
        entry = f"{NAME}|{NUMBER}|¿".encode("cp1252")
        if written.count(b"|") != 32 or entry not in written or not written.endswith(b"||"):
            raise Failed(f"the speed-dial file holds {written}")
        self.tell("The speed-dial file holds the entry.")

    def call(self):
        self.click("Rufnummer", "text", window=DIALER)
        desktop.type_text("0691234")
        self.click("Wählen", window=DIALER)
        self.wait_for_heard(r"INVITE sip:00?691234@.*")
        self.click("Auflegen", window=DIALER)
        self.wait_for_heard("(BYE|CANCEL) .*")
        self.tell("A call went through the line that was set up.")

    def play(self):
        self.begin()
        self.try_lines()
        self.apply()
        self.check_speed_dial()
        self.call()


if __name__ == "__main__":
    session.main(lambda *words: Tour(*words).run(), __doc__, TIME_LIMIT_S)
