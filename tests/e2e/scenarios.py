"""What the programs do together, told once for every system; run_scenarios plays it.

A scenario starts the dialer with a command line, does its steps, and ends the dialer by the host's
command. What counts is what stays: the outgoing calls that the journal has got, as company, digits
and whether the call was talked on, and that every program ended well.
"""
from typing import NamedTuple

from tests.harness.demo import CONTACT, CONTACT_DIGITS, CONTACT_ROW, START_COMMAND, dial_command

# The end of the number decides the course of a simulated call.
ANSWERED, BUSY, FAR_END_HANGS_UP = "0641 1", "0641 99901", "0641 99905"


class Send(NamedTuple):
    """The host sends the dialer a message."""
    message: str


class StartAgain(NamedTuple):
    """The dialer is started once more; this one ends by itself, and there is one window."""
    command_line: str


class PickContact(NamedTuple):
    """Enter in a row of the demo host, which has started the dialer."""
    row: int


class Type(NamedTuple):
    """Keys, with the dial window in front."""
    text: str


class Dial(NamedTuple):
    """Enter; then the journal has so many calls."""
    calls: int


class ChooseLine(NamedTuple):
    """The options are opened, the line is chosen and monitored, and the host hears of it."""
    line: str
    place: int  # in the list


class Drag(NamedTuple):
    """The window is taken by the program's name and let go elsewhere."""
    right: int
    down: int


class DoubleClickTitle(NamedTuple):
    """A double click on the program's name switches to the other view, and it is this one."""
    view: str  # "compact" or "full"


class LookAtHistory(NamedTuple):
    """Pictures of both tabs, of filtered calls and of none; the number field has the focus then."""


class HangUp(NamedTuple):
    """The call is answered, and Enter ends it."""


class FarEndHangsUp(NamedTuple):
    """The call ends by itself after a talk."""


class CloseBox(NamedTuple):
    """A message box with this title is closed, and with it the dialer."""
    title: str


class Terminate(NamedTuple):
    """The system ends the dialer in the middle of a talk, with a message box up."""


class Scenario(NamedTuple):
    name: str
    command_line: str
    steps: list
    calls: list
    line: str = "simulated"  # as the demo host calls it
    history: int = 0  # calls that the journal has before
    dark: bool = False  # the desktop
    telephony: bool = False  # only where the system's telephony can be played
    signals: bool = False  # only where programs are ended by signals


SCENARIOS = [
    Scenario("command-line", dial_command(FAR_END_HANGS_UP),
             [Dial(1), FarEndHangsUp()],
             [("Probe & Söhne", "064199905", True)]),
    Scenario("message", START_COMMAND,
             [Send(dial_command(ANSWERED)), Dial(1), HangUp()],
             [("Probe & Söhne", "06411", True)]),
    Scenario("busy", START_COMMAND,
             [Send(dial_command(BUSY)), Dial(1)],
             [("Probe & Söhne", "064199901", False)]),
    Scenario("typed", START_COMMAND,
             [Type(CONTACT_DIGITS), Dial(1), HangUp()],
             [(CONTACT, CONTACT_DIGITS, True)]),
    Scenario("terminated", START_COMMAND,
             [Send(dial_command(ANSWERED)), Dial(1), Terminate()],
             [("Probe & Söhne", "06411", True)], signals=True),
    # Only the user's number is handed over.
    Scenario("second-start", START_COMMAND,
             [Type("0641"), StartAgain(dial_command("089 1")), Type("99905"), Dial(1),
              FarEndHangsUp()],
             [("<Nicht gelistet>", "064199905", True)]),
    Scenario("not-by-the-host", "Hallo", [CloseBox("Programmstart nicht möglich!")], []),
    # Without a command line: the demo host has its own.
    Scenario("demo-host", "",
             [PickContact(CONTACT_ROW), Dial(1), HangUp()],
             [(CONTACT, CONTACT_DIGITS, True)]),
    Scenario("options", "",
             [ChooseLine("Simulierte Leitung 1", 0), Type(CONTACT_DIGITS), Dial(1), HangUp()],
             [(CONTACT, CONTACT_DIGITS, True)], line="unset"),
    Scenario("telephony", "",
             [ChooseLine("Telefonanlage Büro", 2), Type(CONTACT_DIGITS), Dial(1), HangUp()],
             [(CONTACT, CONTACT_DIGITS, True)], line="unset", telephony=True),
    Scenario("compact", "",
             [Drag(-60, 45), DoubleClickTitle("compact"), Type(CONTACT_DIGITS), Dial(1), HangUp(),
              DoubleClickTitle("full")],
             [(CONTACT, CONTACT_DIGITS, True)]),
    Scenario("history", "",
             [LookAtHistory(), Type(CONTACT_DIGITS), Dial(1), HangUp()],
             [(CONTACT, CONTACT_DIGITS, True)], history=600),
    Scenario("dark", "",
             [LookAtHistory(), Type(CONTACT_DIGITS), Dial(1), HangUp()],
             [(CONTACT, CONTACT_DIGITS, True)], history=600, dark=True),
]
