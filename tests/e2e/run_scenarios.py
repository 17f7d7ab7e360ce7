#!/usr/bin/python3
"""Plays the scenarios with the programs of a build, on a display without a screen.

  tests/e2e/run_scenarios.py <folder of the programs> <folder for pictures>
  tests/e2e/run_scenarios.py <folder of the programs> <folder for pictures>
      --wine <program folder> <folders of libraries, divided by ":">

ORVANE_SCENARIOS may hold a pattern; others than the scenarios it fits are left out then.

With --wine the programs are for Windows. The program folder is copied alone into a fresh Wine prefix
and has to bring all libraries along; the host's programs get theirs from the folders named last.
"""
import fnmatch
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import time

PROJECT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "scripts"))

from headless_session import (Failed, end_processes, limit_time, run_in_session,  # noqa: E402
                              start_window_manager, wait_for)
import scenarios  # noqa: E402

TIME_LIMIT_S = 400
STEP_LIMIT_S = 30
KEY_LIMIT_S = 5
SETTLE_S = 0.2
FIRST_TALK_S = 3
LONGEST_TALK_S = 24
DIALER, HOST, OPTIONS = "TALMIX_BRISKO", "TALMIX_TRAY18", "Brisko :: Optionen"
# How often the tabulator key is pressed on the way from the number field.
TABS_TO_HISTORY, TABS_TO_OPTIONS = 4, 5
# And on the way back to it: from the history's list, its text filter and its tabs.
TABS_FROM_LIST, TABS_FROM_FILTER, TABS_FROM_DIRECTION = 3, 5, 11
COMPACT_HEIGHT = 66  # at most
TITLE = ("44", "8")  # where the program's name stands, in both views
# How long a button is held, and in how many steps a window is dragged.
CLICK_S, DRAG_STEPS = "0.1", 5
HOST_KEY = r"HKCU\Software\Nordel"
DARK_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"


class NativeSystem:
    def __init__(self, programs, root, environment):
        self.programs, self.root = programs, root
        self.environment = dict(environment, XDG_CONFIG_HOME=str(root / "config"),
                                XDG_RUNTIME_DIR=str(root / "run"))

    def start(self, name, *arguments, **options):
        return subprocess.Popen([self.programs / name, *arguments], env=self.environment, **options)

    def path(self, path):
        return str(path)

    def dialer(self):
        return str(self.programs / "orvane")

    def can_play(self, scenario):
        return not scenario.telephony

    def prepare(self, scenario):
        """The desktop is as the scenario wants it."""
        settings = self.root / "desktop"
        self.environment.update(XDG_CONFIG_DIRS=str(settings), XDG_CURRENT_DESKTOP="KDE",
                                KDE_SESSION_VERSION="5", QT_QPA_PLATFORMTHEME="kde")
        ground, text = (("42,46,50", "252,252,252") if scenario.dark else
                        ("239,240,241", "35,38,41"))
        settings.mkdir()
        (settings / "kdeglobals").write_text(
            "".join(f"[Colors:{kind}]\nBackgroundNormal={ground}\nForegroundNormal={text}\n"
                    for kind in ("Window", "View", "Button")))

    def end(self):
        pass


class WineSystem:
    """A fresh Wine prefix, to which put_program brings the dialer's folder."""

    def __init__(self, programs, root, environment, folder, libraries):
        self.programs, self.root, self.environment = programs, root, environment
        self.wine, self.libraries = folder / "wine", libraries
        self.drive = self.wine / "prefix" / "drive_c"
        self.program_folder = self.drive / "Orvane"
        self.telephony_library = programs.parent / "tests" / "scripted_tapi32.dll"
        subprocess.run([PROJECT / "scripts" / "windows" / "wine_prefix.sh", self.wine],
                       env=environment, check=True)

    def put_program(self, folder):
        shutil.copytree(folder, self.program_folder)

    def command(self, libraries, *arguments):
        return [PROJECT / "scripts" / "windows" / "wine.sh", self.wine, libraries, *arguments]

    def server(self, option):
        environment = dict(self.environment, WINEPREFIX=str(self.wine / "prefix"))
        subprocess.run(["wineserver", option], env=environment, check=False)

    def start(self, name, *arguments, **options):
        own = name == "orvane"
        folder = self.program_folder if own else self.programs
        # Without blanks in an argument, none is put into quotes.
        words = [word for argument in arguments for word in (argument.split(" ") if own else [argument])]
        return subprocess.Popen(
            self.command("" if own else self.libraries, folder / f"{name}.exe", *words),
            env=self.environment, **options)

    def path(self, path):
        return "Z:" + str(path).replace("/", "\\")

    def dialer(self):
        return "C:\\Orvane\\orvane.exe"

    def reg(self, verb, *words):
        subprocess.run(self.command("", "reg", verb, *words, "/f"), env=self.environment,
                       check=verb != "delete", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def can_play(self, scenario):
        return True

    def prepare(self, scenario):
        """The desktop and the telephony are as the scenario wants them, and nothing is set up."""
        self.reg("delete", HOST_KEY)
        self.reg("add", DARK_KEY, "/v", "AppsUseLightTheme", "/t", "REG_DWORD", "/d",
                 "0" if scenario.dark else "1")
        if scenario.telephony:
            shutil.copy(self.telephony_library, self.drive / "windows" / "system32" / "tapi32.dll")
        self.environment["WINEDLLOVERRIDES"] = f"tapi32={'n' if scenario.telephony else 'b'}"

    def end(self):
        self.server("-k")


def windows(name):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{name}"],
                           capture_output=True, text=True).stdout
    return found.split()


def let_settle():
    """Returns once the screen has not changed for a moment."""
    def shot():
        return subprocess.run(["import", "-window", "root", "ppm:-"], check=True,
                              capture_output=True).stdout
    pictures = [b"", shot()]

    def unchanged():
        time.sleep(SETTLE_S)
        pictures[:] = [pictures[-1], shot()]
        return pictures[0] == pictures[1]
    wait_for("an idle screen", unchanged, STEP_LIMIT_S)


def press(*keys):
    for key in keys:
        subprocess.run(["xdotool", "key", key], check=True)


def place(window):
    """The left and upper edge of a window, and its height."""
    lines = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], check=True,
                           capture_output=True, text=True).stdout.split()
    geometry = dict(line.split("=") for line in lines)
    return tuple(int(geometry[name]) for name in ("X", "Y", "HEIGHT"))


def mouse(window, *steps):
    """Does the steps with the pointer on the program's name."""
    subprocess.run(["xdotool", "mousemove", "--window", window, *TITLE, *steps], check=True)


class Play:
    """One scenario."""

    def __init__(self, system, root, out, scenario):
        self.system, self.root, self.out, self.scenario = system, root, out, scenario
        self.running = []
        self.main = None
        self.retried = 0
        # The latest call that was in the journal before.
        self.last_before = 0

    def start(self, name, *arguments, **options):
        process = self.system.start(name, *arguments, **options)
        self.running.append(process)
        return process

    def ends_well(self, what, process):
        wait_for(f"the end of {what}", lambda: process.poll() is not None, STEP_LIMIT_S)
        if process.returncode != 0:
            raise Failed(f"{what} ended with {process.returncode}")

    def front(self, name):
        window = wait_for(f"the window {name}", lambda: windows(name), STEP_LIMIT_S)[0]
        subprocess.run(["xdotool", "windowactivate", "--sync", window], check=True)

    def read_journal(self, query, *values):
        file = self.root / "host" / "Daten" / "User" / str(scenarios.USER) / "res" / "TelList.fdb"
        with sqlite3.connect(f"file:{file}?mode=ro", uri=True) as journal:
            return journal.execute(query, values).fetchall()

    def calls(self):
        rows = self.read_journal("SELECT Firma, Nr, Dauer FROM o WHERE ID > ? ORDER BY ID",
                                 self.last_before)
        return [(company or "", digits, bool(duration)) for company, digits, duration in rows]

    def talked(self):
        calls = self.calls()
        return bool(calls) and calls[-1][2]

    def messages(self):
        file = self.root / "messages.log"
        return file.read_text().splitlines() if file.exists() else []

    def picture(self, what=""):
        let_settle()
        file = self.out / f"{self.scenario.name}{what}.png"
        subprocess.run(["import", "-window", "root", file], check=True)

    def demo_host(self, *arguments):
        return self.start("orvane-demo-host", "--root", self.system.path(self.root),
                          "--line", self.scenario.line, "--history", str(self.scenario.history),
                          *arguments)

    def install(self):
        shutil.rmtree(self.root, ignore_errors=True)
        (self.root / "run").mkdir(mode=0o700, parents=True)
        self.system.prepare(self.scenario)
        self.ends_well("the installation", self.demo_host("--install-only"))

    def run(self):
        """Plays on the host installation that is there, whose journal may have calls already."""
        (self.root / "messages.log").unlink(missing_ok=True)
        self.last_before = self.read_journal("SELECT COALESCE(MAX(ID), 0) FROM o")[0][0]
        if self.scenario.command_line:
            self.main = self.start("orvane", self.scenario.command_line)
        else:
            self.main = self.demo_host("--dialer", self.system.dialer())
        for step in self.scenario.steps:
            getattr(self, "do_" + type(step).__name__)(*step)
        if self.main.poll() is None:
            self.close()
        self.ends_well("the first program", self.main)
        calls = self.calls()[self.retried:]
        if calls != self.scenario.calls:
            raise Failed(f"the journal has {calls} instead of {self.scenario.calls}")

    def close(self):
        if self.scenario.command_line:
            self.send(scenarios.END_COMMAND)
            return
        self.front(HOST)
        press("alt+F4")

    def send(self, message):
        wait_for("the dial window", lambda: windows(DIALER), STEP_LIMIT_S)
        sender = self.start("orvane-message-sender", text=True, stdin=subprocess.PIPE,
                            stdout=subprocess.DEVNULL)
        sender.communicate(message + "\n", STEP_LIMIT_S)
        # A dialer that ends may be gone before it has answered.
        if sender.returncode != 0 and message != scenarios.END_COMMAND:
            raise Failed(f"the dialer did not take {message}")

    do_Send = send

    def do_StartAgain(self, command_line):
        self.ends_well("the second dialer", self.start("orvane", command_line))
        if len(windows(DIALER)) != 1:
            raise Failed("there is not one dial window")

    def do_PickContact(self, row):
        wait_for("the dial window", lambda: windows(DIALER), STEP_LIMIT_S)
        self.front_and_ready(HOST)
        press("ctrl+Home", *["Down"] * row, "Return")
        wait_for("the host's message", self.messages, STEP_LIMIT_S)

    # A window that has just come up may not have the number yet, nor get the first key.
    def front_and_ready(self, name=DIALER):
        self.front(name)
        let_settle()

    def press_from_number(self, tabs, *keys):
        self.front_and_ready()
        press(*["Tab"] * tabs, *keys)

    # A first choice is refused until a device of another kind was looked at.
    def do_ChooseLine(self, line, place):
        self.press_from_number(TABS_TO_OPTIONS, "Return")
        self.front(OPTIONS)
        let_settle()
        press("alt+l", "alt+t")
        let_settle()
        press("alt+m", "alt+x", "Tab", "Home", *["Down"] * place)
        self.picture("-chosen")
        press("alt+b")
        notification = f"< TX:{scenarios.USER}~TAPI_ReInit~{line}"
        wait_for("the notification", lambda: notification in self.messages(), STEP_LIMIT_S)
        wait_for("the dial window", lambda: windows(DIALER), STEP_LIMIT_S)

    def do_Drag(self, right, down):
        self.front_and_ready()
        window = windows(DIALER)[0]
        before = place(window)
        steps = [word for _ in range(DRAG_STEPS) for word in (
            "mousemove_relative", "--", str(right // DRAG_STEPS), str(down // DRAG_STEPS),
            "sleep", CLICK_S)]
        mouse(window, "mousedown", "1", "sleep", CLICK_S, *steps, "mouseup", "1")
        wait_for("the window where it was let go", lambda: place(window) == (
            before[0] + right, before[1] + down, before[2]), STEP_LIMIT_S)

    def do_DoubleClickTitle(self, view):
        self.front_and_ready()
        window = windows(DIALER)[0]

        def shown():
            return "compact" if place(window)[2] <= COMPACT_HEIGHT else "full"
        if shown() == view:
            raise Failed(f"the {view} view is there already")
        mouse(window, *["mousedown", "1", "sleep", CLICK_S, "mouseup", "1", "sleep", CLICK_S] * 2)
        wait_for(f"the {view} view", lambda: shown() == view, STEP_LIMIT_S)
        self.picture(f"-{view}")

    def do_LookAtHistory(self):
        self.press_from_number(TABS_TO_HISTORY, "Return")
        self.picture("-outgoing")
        press(*["shift+Tab"] * (TABS_TO_HISTORY + TABS_FROM_DIRECTION), "Left")
        self.picture("-incoming")
        press(*["shift+Tab"] * (TABS_FROM_FILTER - TABS_FROM_LIST), *"muster")
        self.picture("-filtered")
        press(*"xyz")
        self.picture("-empty")
        press("ctrl+a", "Delete",
              *["shift+Tab"] * (TABS_FROM_DIRECTION - TABS_FROM_FILTER), "Right",
              *["Tab"] * (TABS_FROM_LIST + TABS_TO_HISTORY), "Return",
              *["shift+Tab"] * TABS_TO_HISTORY)

    def do_Type(self, text):
        self.front_and_ready()
        subprocess.run(["xdotool", "type", "--delay", "40", text], check=True)

    def do_Dial(self, calls):
        self.front_and_ready()

        def dialed():
            self.front(DIALER)
            press("Return")
            try:
                return wait_for("the call", lambda: len(self.calls()) == calls, KEY_LIMIT_S)
            except Failed:
                return False
        wait_for("the call in the journal", dialed, STEP_LIMIT_S)
        self.picture()

    def do_HangUp(self):
        # Nothing outside of the window tells that the call was answered; one that was hung up too
        # early is made again.
        talk = FIRST_TALK_S
        while True:
            time.sleep(talk)
            press("Return")
            try:
                wait_for("the duration in the journal", self.talked, FIRST_TALK_S)
                return
            except Failed:
                talk *= 2
                if talk > LONGEST_TALK_S:
                    raise
            self.retried += 1
            self.do_Dial(self.retried + 1)

    def do_FarEndHangsUp(self):
        wait_for("the duration in the journal", self.talked, STEP_LIMIT_S)

    def do_CloseBox(self, title):
        self.front(title)
        self.picture()
        press("Return")
        self.ends_well("the dialer without a window", self.main)


def play_all(system, root, out):
    failures = 0
    chosen = os.environ.get("ORVANE_SCENARIOS", "*")
    for scenario in scenarios.SCENARIOS:
        if not fnmatch.fnmatch(scenario.name, chosen) or not system.can_play(scenario):
            continue
        play = Play(system, root, out, scenario)
        begin = time.monotonic()
        try:
            play.install()
            play.run()
            print(f"{scenario.name}: as it should ({time.monotonic() - begin:.1f} s)", flush=True)
        except (Failed, OSError, subprocess.SubprocessError, sqlite3.Error) as failure:
            failures += 1
            print(f"{scenario.name}: FAILED, {failure}", flush=True)
            subprocess.run(["import", "-window", "root", out / f"{scenario.name}-failed.png"],
                           check=False)
        finally:
            end_processes(*reversed(play.running))
            # A dialer that was started by the host would take part in the next scenario.
            for window in windows(DIALER):
                subprocess.run(["xdotool", "windowkill", window], check=False)
    return failures


def play_inside(arguments, folder):
    programs, out = pathlib.Path(arguments[0]), pathlib.Path(arguments[1])
    root = folder / "demo"
    environment = dict(os.environ, ORVANE_SIMULATED_LINES="1")
    manager = start_window_manager()
    system = None
    try:
        if len(arguments) == 2:
            system = NativeSystem(programs, root, environment)
        else:
            system = WineSystem(programs, root, environment, folder, arguments[4])
            system.put_program(pathlib.Path(arguments[3]))
        return 1 if play_all(system, root, out) else 0
    finally:
        if system:
            system.end()
        end_processes(manager)


def main():
    inside = sys.argv[1:2] == ["--inside"]
    # The inner limit comes first, so that a scenario that hangs can still say where.
    limit_time(TIME_LIMIT_S - 10 if inside else TIME_LIMIT_S)
    if inside:
        return play_inside(sys.argv[2:-1], pathlib.Path(sys.argv[-1]))
    arguments = sys.argv[1:]
    if len(arguments) not in (2, 5) or (len(arguments) == 5 and arguments[2] != "--wine"):
        sys.exit(__doc__)
    arguments[:2] = (pathlib.Path(argument).resolve() for argument in arguments[:2])
    return run_in_session(__file__, arguments, out=arguments[1])


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failed as failure:
        sys.exit(f"scenarios: {failure}")
