"""The program without a pointer, and as assistive technology sees it.

  /usr/bin/python3 -m tests.e2e.headless_keyboard <folder of the programs>
    <folder for pictures and transcript>

Places and ends a call, picks a number from the call history, opens and leaves the options, switches
the view and back: by key events alone, finding each control by its name when it has the focus. In
every window each control that is named below is there in its role, and none that takes the focus
lacks a name. Whatever it started is ended when it leaves.
"""
from tests.harness import accessibility_tree as tree
from tests.harness import desktop, session
from tests.harness.demo import COMPACT_HEIGHT, DIALER, OPTIONS
from tests.harness.scripted_run import ScriptedRun
from tests.harness.waiting import Failed, wait_for

TIME_LIMIT_S = 110
LONGEST_TAB_ORDER = 50

NUMBER, DIGITS = "0641 1", "06411"

BUTTON, TOGGLE, TEXT = "push button", "check box", "text"
COMPACT = {TEXT: ["Rufnummer"],
           BUTTON: ["Vollansicht", "Schließen"],
           TOGGLE: ["Wählen"] + [f"Taste {key}" for key in [*range(10), "Stern", "Raute"]]}
PAD = {TEXT: ["Rufnummer"],
       BUTTON: ["Kompaktansicht", "Schließen", "Rufnummernfeld leeren", "Letzte gewählte Nummer",
                "Rufnummer aus Zwischenablage übernehmen", "Optionen"],
       TOGGLE: ["Anrufhistorie", *COMPACT[TOGGLE]],
       "combo box": ["Kurzwahlspeicher"],
       "frame": ["Anzeige, Tasten wählen die Rufnummer"],
       "list": ["Gesprächsverlauf"],
       "label": ["Bereit...", "Bitte wählen Sie...", "<Bereit>", "TAPI initialisiert"]}
HISTORY = {"page tab": ["Eingehende Telefonate", "Ausgehende Telefonate"],
           # A list box is named by what it shows.
           "combo box": ["Die letzten 600 Telefonate"],
           TOGGLE: ["Interne Gespräche", "Externe Gespräche", "Mit Rufnummer", "Ohne Rufnummer"],
           TEXT: ["Textfilter: Anrufe, in denen alle Wörter vorkommen"],
           BUTTON: ["Textfilter leeren"],
           "tree": ["Anrufliste"],
           "table column header": ["Zeitpunkt", "Rufnummer", "Firmeninfo", "Ort/Abteilung",
                                   "Personeninfo"]}
COMMUNICATION = {
    "page tab": ["Kommunikationseinstellungen", "Kurzwahlspeicher"],
    "panel": ["Telefonwahl", "Amtskennziffern", "Testwahl"],
    "radio button": ["Keine / deaktiviert", "Serielle Schnittstelle",
                     "TAPI-Gerät (z. B. ISDN-Karte)", "intern", "extern"],
    TOGGLE: ["TAPI-Anrufmonitor", "Wählen..."],
    "list": ["TAPI-Geräte"],
    TEXT: ["Amtskennziffer für interne Gespräche", "Amtskennziffer für externe Gespräche",
           "Angaben zum TAPI-Gerät", "Testrufnummer", "Verlauf der Testwahl"],
    BUTTON: ["Wählparameter", "Treibereinstellung", "Treiber-Information", "Liste aktualisieren",
             "Übernehmen", "Abbrechen"]}
SPEED_DIAL = {TEXT: [f"{what} {kind} {row}" for what in ("Rufnummer", "Kurzwahlbezeichnung")
                     for kind in ("intern", "extern") for row in range(1, 9)],
              BUTTON: ["Übernehmen", "Abbrechen"]}
# What takes the focus together with a control that has a name.
PARTS = ("list item", "page tab", "table cell", "tree item", "filler")


class KeyboardRun(ScriptedRun):
    def expect(self, caption, what, controls):
        def missing():
            shown = {(role, name) for role, name, _ in tree.showing(caption)}
            return [name for role, names in controls.items() for name in names
                    if (role, name) not in shown]
        try:
            wait_for(what, lambda: not missing())
        except Failed:
            raise Failed(f"{what}: not found in their roles: {missing()}")
        unnamed = [role for role, name, focusable in tree.showing(caption)
                   if focusable and not name and role not in PARTS]
        if unnamed:
            raise Failed(f"{what}: without a name: {unnamed}")
        self.tell(f"{what}: {sum(map(len, controls.values()))} controls found by name and role.")

    def focused(self, caption):
        """The name of the control with the focus; empty while there is none."""
        return tree.focused(caption, closed=("tree", "combo box", "list"), parts=PARTS)

    def wait_for_focus(self, name, caption=DIALER):
        wait_for(f"the focus on '{name}'", lambda: self.focused(caption) == name)

    def go_to(self, name, caption=DIALER, key="Tab"):
        """Walks along the tab order until the control has the focus."""
        at = self.focused(caption)
        for _ in range(LONGEST_TAB_ORDER):
            if at == name:
                return
            before = at
            desktop.press(key)
            at = wait_for(f"the focus to leave '{before}'", lambda: next(
                (now for now in [self.focused(caption)] if now != before), ""))
        raise Failed(f"the tab order does not lead to '{name}'")

    def begin(self):
        self.start_demo_host(history=3)
        self.expect(DIALER, "Dial window", PAD)
        desktop.activate(DIALER)
        self.wait_for_focus("Rufnummer")

    def call(self):
        desktop.type_text(NUMBER)
        wait_for("the number", lambda: self.number() == NUMBER)
        for dial, hang_up in (("Return", "Return"), ("alt+w", "alt+a")):
            desktop.press(dial)
            self.wait_for_progress("Verbunden um ")
            self.wait_for_focus("Auflegen")
            self.picture("1-in-call")
            desktop.press(hang_up)
            self.wait_for_progress("Gesprächsdauer: ")
            self.tell(f"A call was placed by {dial} and ended by {hang_up}.")

    def pick_from_history(self):
        self.go_to("Anrufhistorie")
        desktop.press("Return")
        self.expect(DIALER, "Call history", HISTORY)
        self.go_to("Anrufliste")
        self.picture("2-history")
        desktop.press("Home", "Down", "Return")
        # The newest call, below the heading of its day, as the journal writes it.
        wait_for("its number", lambda: self.number() == DIGITS)
        self.wait_for_focus("Rufnummer")
        self.tell("Picked from the history: " + self.number())

    def options(self):
        self.go_to("Optionen")
        desktop.press("Return")
        self.expect(OPTIONS, "Options", COMMUNICATION)
        self.wait_for_focus("TAPI-Gerät (z. B. ISDN-Karte)", OPTIONS)
        desktop.press("alt+s")
        self.expect(OPTIONS, "Speed-dial page", SPEED_DIAL)
        self.picture("3-options")
        desktop.press("Escape")
        wait_for("the dial window", lambda: not tree.window(OPTIONS)
                 and self.find("Rufnummer", TEXT))
        self.tell("The options were opened and left.")

    def views(self):
        window = desktop.windows(DIALER)[0]
        full = desktop.place(window)
        self.go_to("Kompaktansicht", key="shift+Tab")
        desktop.press("Return")
        self.expect(DIALER, "Compact view", COMPACT)
        screen = int(desktop.xdotool("getdisplaygeometry").split()[0])
        x, y, width, height = desktop.place(window)
        if (y, x, height <= COMPACT_HEIGHT) != (-1, (screen - width) // 2, True):
            raise Failed(f"the compact view is at {x},{y} and {width}x{height} large")
        self.go_to("Rufnummer")
        desktop.press("ctrl+a", "5")
        wait_for("the typed digit", lambda: self.number() == "5")
        self.go_to("Taste 7")
        desktop.press("Return")
        wait_for("the digit of the key", lambda: self.number() == "57")
        self.picture("4-compact")
        self.go_to("Vollansicht", key="shift+Tab")
        desktop.press("Return")
        self.expect(DIALER, "Call history in the full view", HISTORY)
        wait_for("the full view where it was", lambda: desktop.place(window) == full)
        self.tell("The view was switched and switched back.")

    def play(self):
        self.begin()
        self.call()
        self.pick_from_history()
        self.options()
        self.views()


if __name__ == "__main__":
    session.main(lambda *words: KeyboardRun(*words).run(), __doc__, TIME_LIMIT_S)
