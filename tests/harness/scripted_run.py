"""A run that finds the controls in the accessibility tree, by what they are called."""
import re

from tests.harness import accessibility_tree as tree
from tests.harness.demo import DIALER
from tests.harness.native_system import NativeSystem
from tests.harness.run import Run
from tests.harness.waiting import wait_for

# A button that stays pressed counts as a check box.
BUTTONS = ("push button", "check box")


class ScriptedRun(Run):
    """Looks for controls in its `window` unless another is named."""

    window = DIALER
    scale = 1.0  # pixels of the display for one of the toolkit

    def __init__(self, folder, programs, out):
        super().__init__(NativeSystem(programs, folder / "demo"), out)

    def find(self, name, *roles, window=None):
        return tree.find(window or self.window, name, *(roles or BUTTONS))

    def control(self, name, *roles, window=None):
        return wait_for(f"'{name}'", lambda: self.find(name, *roles, window=window))

    def click(self, name, *roles, window=None):
        tree.click(self.control(name, *roles, window=window), scale=self.scale)

    def number(self):
        return tree.text(tree.find(DIALER, "Rufnummer", "text"))

    def progress_lines(self):
        return [text for _, text in tree.entries(tree.find(DIALER, "Gesprächsverlauf", "list"))]

    def wait_for_progress(self, beginning):
        wait_for(f"'{beginning}' in the progress log",
                 lambda: "".join(self.progress_lines()[-1:]).startswith(beginning))

    def wait_for_heard(self, pattern):
        wait_for(f"'{pattern}' at the other end",
                 lambda: re.fullmatch(pattern, "".join(self.demo.heard()[-1:])))
