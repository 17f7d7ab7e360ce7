"""Pictures of every state of the windows, from the real programs on a display without a screen.

  /usr/bin/python3 -m scripts.pictures <folder of the programs> <folder for the pictures>
    [<scheme>-<percent> ... | docs]

Schemes are light and dark, as the desktop's colours ask for; without a choice, both are taken at
100, 150 and 200 percent, each into a folder of its own. With "docs", a chosen few become the
pictures of the README and the guide. Whatever was started is ended at the end.
"""
import pathlib
import re
import subprocess
import time

from tests.harness import accessibility_tree as tree
from tests.harness import desktop, session
from tests.harness.demo import CONTACT_NUMBER, DIALER, HOST, OPTIONS
from tests.harness.native_system import SCHEMES
from tests.harness.scripted_run import ScriptedRun
from tests.harness.waiting import limit_time, wait_for

TIME_LIMIT_S = 100
REST_S = 0.4
COMPOSITOR_S = 0.5
MARGIN = 12  # around the windows, in pixels at 100 percent

REFUSAL = "Ausführung nicht möglich!"
PERCENTS = (100, 150, 200)

DOCUMENTS = pathlib.Path(__file__).resolve().parents[1] / "docs" / "images"
CHOSEN = {
    "idle": "light-100/01-idle", "number": "light-100/02-number", "call": "light-100/04-in-call",
    "call-dark": "dark-100/04-in-call", "refused": "light-100/05-refused",
    "speed-dial": "light-100/07-speed-dial", "history": "light-100/08-history-outgoing",
    "history-filtered": "light-100/10-history-filtered",
    "options": "light-100/12-options-communication",
    "options-speed-dial": "light-100/13-options-speed-dial", "compact": "light-100/14-compact",
}


class Album(ScriptedRun):
    def __init__(self, folder, programs, out):
        super().__init__(folder, programs, out)
        self.scheme, percent = out.name.split("-")
        self.scale = int(percent) / 100

    def boxes(self):
        """Places of all windows of the dialer, menus and lists included."""
        for window in desktop.xdotool("search", "--onlyvisible", "--pid", self.dialer).split():
            shape = subprocess.run(["xwininfo", "-id", window], capture_output=True, text=True)
            x, y, width, height = (int(found) for found in re.findall(
                r"(?:Absolute upper-left [XY]|Width|Height): +(-?\d+)", shape.stdout))
            if min(width, height) > MARGIN:
                yield x, y, x + width, y + height

    def picture(self, name):
        # What moves comes to rest.
        time.sleep(REST_S)
        left, top, right, bottom = zip(*self.boxes())
        margin = int(MARGIN * self.scale)
        x, y = max(min(left) - margin, 0), max(min(top) - margin, 0)
        area = f"{max(right) + margin - x}x{max(bottom) + margin - y}+{x}+{y}"
        desktop.take_picture(self.file(name, ".png"), "-crop", area, "+repage")

    def begin(self):
        self.system.set_up_desktop(self.scheme)
        self.running.append(subprocess.Popen("xcompmgr"))
        time.sleep(COMPOSITOR_S)
        self.start_demo_host(history=40)
        self.control("TAPI initialisiert", "label")
        desktop.xdotool("windowminimize", desktop.wait_for_window(HOST))
        self.dialer = desktop.xdotool("getwindowpid", desktop.wait_for_window(DIALER)).strip()
        self.click("Rufnummer", "text")
        desktop.press("Escape")

    def call(self):
        self.picture("01-idle")
        desktop.type_text(CONTACT_NUMBER)
        self.picture("02-number")
        self.click("Wählen")
        self.wait_for_progress(">>> Wählen")
        self.picture("03-ringing")
        self.wait_for_progress("Verbunden um ")
        self.picture("04-in-call")
        self.click("Optionen")
        wait_for("the refusal", lambda: tree.window(REFUSAL))
        self.picture("05-refused")
        desktop.press("Escape")
        wait_for("the refusal's end", lambda: not tree.window(REFUSAL))
        self.click("Auflegen")
        self.wait_for_progress("Gesprächsdauer: ")
        self.picture("06-after-the-call")

    def speed_dial(self):
        self.click("Kurzwahlspeicher", "combo box")
        self.picture("07-speed-dial")
        desktop.press("Escape")

    def history(self):
        self.click("Anrufhistorie")
        self.click("Ausgehende Telefonate", "page tab")
        self.picture("08-history-outgoing")
        self.click("Eingehende Telefonate", "page tab")
        self.picture("09-history-incoming")
        self.click("Ausgehende Telefonate", "page tab")
        self.click("Textfilter: Anrufe, in denen alle Wörter vorkommen", "text")
        desktop.type_text("muster")
        self.picture("10-history-filtered")
        desktop.type_text("xyz")
        self.picture("11-history-empty")
        self.click("Textfilter leeren")
        self.click("Anrufhistorie")

    def options(self):
        self.click("Optionen")
        self.control("Übernehmen", "push button", window=OPTIONS)
        self.picture("12-options-communication")
        self.click("Kurzwahlspeicher", "page tab", window=OPTIONS)
        self.picture("13-options-speed-dial")
        self.click("Abbrechen", window=OPTIONS)

    def compact(self):
        self.click("Kompaktansicht")
        self.control("Vollansicht", "push button")
        self.picture("14-compact")

    def play(self):
        self.begin()
        self.call()
        self.speed_dial()
        self.history()
        self.options()
        self.compact()


def renew_documents(pictures):
    for name, source in CHOSEN.items():
        subprocess.run(["convert", str(pictures / f"{source}.png"), "-trim", "+repage", "+dither",
                        "-colors", "96", "-strip", "-define", "png:compression-level=9",
                        str(DOCUMENTS / f"{name}.png")], check=True)


def take_all(programs, out, *choice):
    variants = choice or [f"{scheme}-{percent}" for percent in PERCENTS for scheme in SCHEMES]
    if choice == ("docs",):
        variants = sorted({source.split("/")[0] for source in CHOSEN.values()})
    result = 0
    for variant in variants:
        limit_time(TIME_LIMIT_S)
        scale = int(variant.split("-")[1]) / 100
        result |= session.run_in_session([programs, out / variant], out / variant, scale,
                                         QT_SCALE_FACTOR=str(scale))
    if choice == ("docs",) and result == 0:
        renew_documents(out)
    return result


if __name__ == "__main__":
    session.main(lambda *words: Album(*words).run(), __doc__, TIME_LIMIT_S,
                 fits=lambda words: len(words) >= 2, start=take_all)
