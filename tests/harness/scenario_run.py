"""A run that plays a scenario: by keys and the pointer alone, so on every system.

What counts is what the journal has got in the end; nothing is asked of the windows but where they
are.
"""
import shutil
import subprocess
import time

from tests.harness import desktop
from tests.harness.demo import (COMPACT_HEIGHT, DIALER, END_COMMAND, HOST, OPTIONS,
                                UNKNOWN_COMMAND, UNKNOWN_COMMAND_BOX, USER)
from tests.harness.run import KEY_LIMIT_S, Run
from tests.harness.waiting import Failed, wait_for

FIRST_TALK_S = 3
ANSWER_S = 6  # in which every call is answered
LONGEST_TALK_S = 24
# How often the tabulator key is pressed on the way from the number field.
TABS_TO_HISTORY, TABS_TO_OPTIONS = 4, 5
# And on the way back to it: from the history's list, its text filter and its tabs.
TABS_FROM_LIST, TABS_FROM_FILTER, TABS_FROM_DIRECTION = 3, 5, 11
TITLE = ("44", "8")  # where the program's name stands, in both views
# How long a button is held, and in how many steps a window is dragged.
CLICK_S, DRAG_STEPS = "0.1", 5


def mouse(window, *steps):
    """Does the steps with the pointer on the program's name."""
    desktop.xdotool("mousemove", "--window", window, *TITLE, *steps)


class ScenarioRun(Run):
    """Plays on the host installation that is there, unless a fresh one is asked for."""

    def __init__(self, system, out, scenario, fresh=False):
        super().__init__(system, out)
        self.scenario, self.name, self.fresh = scenario, scenario.name, fresh
        self.first = None
        self.retried = 0
        # The latest call that was in the journal before.
        self.last_before = 0

    def tell(self, line=""):
        super().tell(f"{self.name}: {line}")

    def calls(self):
        rows = self.demo.read_journal("SELECT Firma, Nr, Dauer FROM o WHERE ID > ? ORDER BY ID",
                                      self.last_before)
        return [(company or "", digits, bool(duration)) for company, digits, duration in rows]

    def talked(self):
        calls = self.calls()
        return bool(calls) and calls[-1][2]

    def install(self):
        shutil.rmtree(self.system.root, ignore_errors=True)
        self.system.prepare(self.scenario)
        super().install(line=self.scenario.line, history=self.scenario.history)

    def play(self):
        if self.fresh:
            self.install()
        self.demo.forget_messages()
        self.last_before = self.demo.read_journal("SELECT COALESCE(MAX(ID), 0) FROM o")[0][0]
        self.begin()
        for step in self.scenario.steps:
            getattr(self, "do_" + type(step).__name__)(*step)
        if self.first.poll() is None:
            self.close()
        self.ends_well("the first program", self.first)
        calls = self.calls()[self.retried:]
        if calls != self.scenario.calls:
            raise Failed(f"the journal has {calls} instead of {self.scenario.calls}")

    def begin(self):
        if self.scenario.command_line:
            self.first = self.start("orvane", self.scenario.command_line)
        else:
            self.first = self.start_demo_host(line=self.scenario.line,
                                              history=self.scenario.history)

    def close(self):
        if self.scenario.command_line:
            # A dialer that ends may be gone before it has answered.
            self.send(END_COMMAND)
        else:
            self.close_host(self.first)

    def do_Send(self, message):
        desktop.wait_for_window(DIALER)
        if not self.send(message):
            raise Failed(f"the dialer did not take {message}")

    def do_StartAgain(self, command_line):
        self.ends_well("the second dialer", self.start("orvane", command_line))
        if len(desktop.windows(DIALER)) != 1:
            raise Failed("there is not one dial window")

    def do_PickContact(self, row):
        desktop.wait_for_window(DIALER)
        self.front_and_ready(HOST)
        desktop.press("ctrl+Home", *["Down"] * row, "Return")
        wait_for("the host's message", self.demo.messages)

    # A window that has just come up may not have the number yet, nor get the first key.
    def front_and_ready(self, caption=DIALER):
        window = desktop.activate(caption)
        desktop.let_settle()
        return window

    def press_from_number(self, tabs, *keys):
        self.front_and_ready()
        desktop.press(*["Tab"] * tabs, *keys)

    # A first choice is refused until a device of another kind was looked at.
    def do_ChooseLine(self, line, place):
        self.press_from_number(TABS_TO_OPTIONS, "Return")
        self.front_and_ready(OPTIONS)
        desktop.press("alt+l", "alt+t")
        desktop.let_settle()
        desktop.press("alt+m", "alt+x", "Tab", "Home", *["Down"] * place)
        self.picture("chosen")
        desktop.press("alt+b")
        notification = f"< TX:{USER}~TAPI_ReInit~{line}"
        wait_for("the notification", lambda: notification in self.demo.messages())
        desktop.wait_for_window(DIALER)

    def do_Drag(self, right, down):
        window = self.front_and_ready()
        x, y, *size = desktop.place(window)
        steps = [word for _ in range(DRAG_STEPS) for word in (
            "mousemove_relative", "--", str(right // DRAG_STEPS), str(down // DRAG_STEPS),
            "sleep", CLICK_S)]
        mouse(window, "mousedown", "1", "sleep", CLICK_S, *steps, "mouseup", "1")
        wait_for("the window where it was let go",
                 lambda: desktop.place(window) == (x + right, y + down, *size))

    def do_DoubleClickTitle(self, view):
        window = self.front_and_ready()

        def shown():
            return "compact" if desktop.place(window)[3] <= COMPACT_HEIGHT else "full"
        if shown() == view:
            raise Failed(f"the {view} view is there already")
        mouse(window, *["mousedown", "1", "sleep", CLICK_S, "mouseup", "1", "sleep", CLICK_S] * 2)
        wait_for(f"the {view} view", lambda: shown() == view)
        self.picture(view)

    def do_LookAtHistory(self):
        self.press_from_number(TABS_TO_HISTORY, "Return")
        self.picture("outgoing")
        desktop.press(*["shift+Tab"] * (TABS_TO_HISTORY + TABS_FROM_DIRECTION), "Left")
        self.picture("incoming")
        desktop.press(*["shift+Tab"] * (TABS_FROM_FILTER - TABS_FROM_LIST), *"muster")
        self.picture("filtered")
        desktop.press(*"xyz")
        self.picture("empty")
        desktop.press("ctrl+a", "Delete",
                      *["shift+Tab"] * (TABS_FROM_DIRECTION - TABS_FROM_FILTER), "Right",
                      *["Tab"] * (TABS_FROM_LIST + TABS_TO_HISTORY), "Return",
                      *["shift+Tab"] * TABS_TO_HISTORY)

    def do_Type(self, text):
        self.front_and_ready()
        desktop.type_text(text)

    def do_Dial(self, calls):
        self.front_and_ready()

        def dialed():
            desktop.activate(DIALER)
            desktop.press("Return")
            try:
                return wait_for("the call", lambda: len(self.calls()) == calls, KEY_LIMIT_S)
            except Failed:
                return False
        wait_for("the call in the journal", dialed)
        self.picture()

    def do_HangUp(self):
        # Nothing outside of the window tells that the call was answered; one that was hung up too
        # early is made again.
        talk = FIRST_TALK_S
        while True:
            time.sleep(talk)
            desktop.press("Return")
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
        wait_for("the duration in the journal", self.talked)

    def do_Terminate(self):
        time.sleep(ANSWER_S)
        sender = self.start("orvane-message-sender", text=True, stdin=subprocess.PIPE,
                            stdout=subprocess.DEVNULL)
        sender.stdin.write(UNKNOWN_COMMAND + "\n")
        sender.stdin.flush()
        desktop.wait_for_window(UNKNOWN_COMMAND_BOX)
        self.first.terminate()
        self.ends_well("the dialer", self.first)

    def do_CloseBox(self, title):
        desktop.activate(title)
        self.picture()
        desktop.press("Return")
        self.ends_well("the dialer without a window", self.first)
