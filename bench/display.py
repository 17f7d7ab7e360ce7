"""The display as a measurement needs it: at once."""
import subprocess
import time

from Xlib import X, display, error

from tests.harness.waiting import Failed, end_processes


class Display:
    """The X display: windows that appear, pixels, and one xdotool that stays ready to click."""

    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()
        self.tool = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True)

    def pixels(self, x, y, width, height):
        return self.root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data

    def forget_events(self):
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()

    def wait_for_window(self):
        """Returns when a window has been mapped and its middle is painted."""
        end = time.monotonic() + 20
        while time.monotonic() < end:
            if not self.display.pending_events():
                time.sleep(0.0002)
                continue
            event = self.display.next_event()
            if event.type != X.MapNotify:
                continue
            try:
                box = event.window.get_geometry()
            except error.BadDrawable:
                continue  # gone again; Wine has such windows
            if box.width < 200:
                continue
            middle = (box.x + box.width // 2, box.y + box.height // 2)
            while not any(self.pixels(*middle, 1, 1)[:3]):
                if time.monotonic() > end:
                    break
                time.sleep(0.0002)
            return
        raise Failed("no window appeared")

    def move(self, box):
        self.command(f"mousemove {box.x + box.width // 2} {box.y + box.height // 2}")

    def command(self, text):
        self.tool.stdin.write(text + "\n")
        self.tool.stdin.flush()

    def close(self):
        end_processes(self.tool)
