#!/usr/bin/python3
"""Pictures of every state of the windows, from the real programs on a display without a screen.

  scripts/pictures.py <folder of the programs> <folder for the pictures> [<scheme>-<percent> ...]
  scripts/pictures.py <folder of the programs> <folder for the pictures> docs

Schemes are light and dark, as the desktop's colours ask for; without a choice, both are taken at
100, 150 and 200 percent, each into a folder of its own. With "docs", a chosen few become the
pictures of the README and the guide. Whatever was started is ended at the end.
"""
import os
import pathlib
import re
import subprocess
import sys
import time

from headless_session import (Failed, Screen, end_processes, limit_time, run_in_session,
                              start_window_manager, wait_for)

TIME_LIMIT_S = 100
MARGIN = 12  # around the windows, in pixels at 100 percent

HOST, DIALER, OPTIONS = "TALMIX_TRAY18", "TALMIX_BRISKO", "Brisko :: Optionen"
REFUSAL = "Ausführung nicht möglich!"
NUMBER = "069 / 90009-217"

# The desktop's colours as KDE stores them: ground and text of windows, of fields.
SCHEMES = {
    "light": ("239,240,241", "35,38,41", "255,255,255", "35,38,41"),
    "dark": ("42,46,50", "252,252,252", "27,30,32", "252,252,252"),
}
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


def set_up_desktop(folder, scheme):
    """The settings lie where the system's do; the demo host has its own place for the user's."""
    folder.mkdir()
    os.environ["XDG_CONFIG_DIRS"] = str(folder)
    ground, text, field, field_text = SCHEMES[scheme]
    (folder / "kdeglobals").write_text(
        "[General]\nfont=Noto Sans,9,-1,5,50,0,0,0,0,0\n"
        f"[Colors:Window]\nBackgroundNormal={ground}\nForegroundNormal={text}\n"
        f"[Colors:View]\nBackgroundNormal={field}\nForegroundNormal={field_text}\n"
        f"[Colors:Button]\nBackgroundNormal={ground}\nForegroundNormal={text}\n")


class Album:
    def __init__(self, programs, out, folder):
        self.programs, self.out, self.root = programs, out, folder / "demo"
        self.scheme, percent = out.name.split("-")
        self.scale = int(percent) / 100
        self.screen = Screen(self.scale)
        self.started = []

    def run_beside(self, *command):
        self.started.insert(0, subprocess.Popen(command))

    def boxes(self):
        """Places of all windows of the dialer, menus and lists included."""
        ids = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", self.dialer],
                             capture_output=True, text=True).stdout.split()
        for window in ids:
            shape = subprocess.run(["xwininfo", "-id", window], capture_output=True, text=True)
            x, y, width, height = (int(found) for found in re.findall(
                r"(?:Absolute upper-left [XY]|Width|Height): +(-?\d+)", shape.stdout))
            if min(width, height) > MARGIN:
                yield x, y, x + width, y + height

    def picture(self, name):
        # What moves comes to rest.
        time.sleep(0.4)
        left, top, right, bottom = zip(*self.boxes())
        margin = int(MARGIN * self.scale)
        x, y = max(min(left) - margin, 0), max(min(top) - margin, 0)
        area = f"{max(right) + margin - x}x{max(bottom) + margin - y}+{x}+{y}"
        subprocess.run(["import", "-window", "root", "-crop", area, "+repage",
                        str(self.out / f"{name}.png")], check=True)

    def control(self, name, *roles, window=DIALER):
        return wait_for(f"'{name}'", lambda: self.screen.find(window, name, *roles))

    def press(self, name, *roles, window=DIALER):
        self.screen.click(self.control(name, *(roles or ("push button", "check box")),
                                       window=window))

    def keys(self, *keys):
        subprocess.run(["xdotool", "key", *keys], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--", text], check=True)

    def wait_for_progress(self, beginning):
        def last():
            log = self.screen.find(DIALER, "Gesprächsverlauf", "list")
            lines = [text for _, text in self.screen.entries(log)]
            return bool(lines) and lines[-1].startswith(beginning)
        wait_for(f"'{beginning}' in the progress log", last)

    def start(self):
        set_up_desktop(self.root.parent / "desktop", self.scheme)
        self.started.append(start_window_manager())
        self.run_beside("xcompmgr")
        time.sleep(0.5)
        self.run_beside(str(self.programs / "orvane-demo-host"), "--root", str(self.root),
                        "--history", "40")
        self.control("TAPI initialisiert", "label")
        subprocess.run(["xdotool", "search", "--name", HOST, "windowminimize"], check=True)
        self.dialer = subprocess.run(
            ["xdotool", "search", "--name", DIALER, "getwindowpid"],
            capture_output=True, text=True, check=True).stdout.split()[0]
        self.press("Rufnummer", "text")
        self.keys("Escape")

    def call(self):
        self.picture("01-idle")
        self.type(NUMBER)
        self.picture("02-number")
        self.press("Wählen")
        self.wait_for_progress(">>> Wählen")
        self.picture("03-ringing")
        self.wait_for_progress("Verbunden um ")
        self.picture("04-in-call")
        self.press("Optionen")
        wait_for("the refusal", lambda: self.screen.window(REFUSAL))
        self.picture("05-refused")
        self.keys("Escape")
        wait_for("the refusal's end", lambda: not self.screen.window(REFUSAL))
        self.press("Auflegen")
        self.wait_for_progress("Gesprächsdauer: ")
        self.picture("06-after-the-call")

    def speed_dial(self):
        self.press("Kurzwahlspeicher", "combo box")
        self.picture("07-speed-dial")
        self.keys("Escape")

    def history(self):
        self.press("Anrufhistorie")
        self.press("Ausgehende Telefonate", "page tab")
        self.picture("08-history-outgoing")
        self.press("Eingehende Telefonate", "page tab")
        self.picture("09-history-incoming")
        self.press("Ausgehende Telefonate", "page tab")
        self.press("Textfilter: Anrufe, in denen alle Wörter vorkommen", "text")
        self.type("muster")
        self.picture("10-history-filtered")
        self.type("xyz")
        self.picture("11-history-empty")
        self.press("Textfilter leeren")
        self.press("Anrufhistorie")

    def options(self):
        self.press("Optionen")
        self.control("Übernehmen", "push button", window=OPTIONS)
        self.picture("12-options-communication")
        self.press("Kurzwahlspeicher", "page tab", window=OPTIONS)
        self.picture("13-options-speed-dial")
        self.press("Abbrechen", window=OPTIONS)

    def compact(self):
        self.press("Kompaktansicht")
        self.control("Vollansicht", "push button")
        self.picture("14-compact")

    def run(self):
        try:
            self.start()
            self.call()
            self.speed_dial()
            self.history()
            self.options()
            self.compact()
            return 0
        except (Failed, OSError, subprocess.SubprocessError, ValueError) as error:
            print(f"{self.out.name}: {error}", file=sys.stderr)
            (self.out / "accessibility-tree.txt").write_text(self.screen.dump())
            subprocess.run(["import", "-window", "root", str(self.out / "failed.png")], check=False)
            return 1
        finally:
            end_processes(*self.started)


def renew_documents(pictures):
    for name, source in CHOSEN.items():
        subprocess.run(["convert", str(pictures / f"{source}.png"), "-trim", "+repage", "+dither",
                        "-colors", "96", "-strip", "-define", "png:compression-level=9",
                        str(DOCUMENTS / f"{name}.png")], check=True)


def main():
    limit_time(TIME_LIMIT_S)
    if sys.argv[1:2] == ["--inside"]:
        return Album(*map(pathlib.Path, sys.argv[2:])).run()
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    programs, out = (pathlib.Path(text).resolve() for text in sys.argv[1:3])
    choice = sys.argv[3:] or [f"{scheme}-{percent}" for percent in PERCENTS for scheme in SCHEMES]
    for_documents = choice == ["docs"]
    if for_documents:
        choice = sorted({source.split("/")[0] for source in CHOSEN.values()})
    result = 0
    for variant in choice:
        limit_time(TIME_LIMIT_S)
        scale = int(variant.split("-")[1]) / 100
        result |= run_in_session(
            __file__, [programs, out / variant], out=out / variant,
            size=f"{int(1360 * scale)}x{int(920 * scale)}", QT_SCALE_FACTOR=str(scale),
            QT_QPA_PLATFORMTHEME="kde", XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")
    if for_documents and result == 0:
        renew_documents(out)
    return result


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failed as failure:
        sys.exit(f"pictures: {failure}")
