"""The windows of the display by their captions, keys, the pointer, and pictures."""
import subprocess
import time

from tests.harness.waiting import wait_for

SETTLE_S = 0.2
TYPING_DELAY_MS = 40


def xdotool(*words, check=True):
    """What the tool answers."""
    return subprocess.run(["xdotool", *map(str, words)], check=check, stdout=subprocess.PIPE,
                          text=True).stdout


def windows(caption):
    """The visible windows whose captions begin so."""
    return xdotool("search", "--onlyvisible", "--name", f"^{caption}", check=False).split()


def wait_for_window(caption):
    return wait_for(f"the window {caption}", lambda: windows(caption))[0]


def activate(caption):
    """Brings a window to the front when it is there; returns it."""
    window = wait_for_window(caption)
    xdotool("windowactivate", "--sync", window)
    return window


def place(window):
    """The left and upper edge of a window, its width and its height."""
    lines = xdotool("getwindowgeometry", "--shell", window).split()
    geometry = dict(line.split("=") for line in lines)
    return tuple(int(geometry[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


def press(*keys):
    for key in keys:
        xdotool("key", key)


def type_text(text):
    xdotool("type", "--delay", TYPING_DELAY_MS, "--", text)


def click(x, y):
    xdotool("mousemove", x, y, "click", 1)


def take_picture(file, *options):
    subprocess.run(["import", "-window", "root", *options, file], check=True)


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
    wait_for("an idle screen", unchanged)
