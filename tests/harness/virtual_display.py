"""A display without a screen, and an environment in which nothing is the user's."""
import contextlib
import os
import pathlib
import shutil
import subprocess
import tempfile

from tests.harness.waiting import Failed, end_group, end_processes, take_time, wait_for

SCREEN_SIZE = (1360, 920)


def start_display(scale):
    width, height = (int(side * scale) for side in SCREEN_SIZE)
    read_end, write_end = os.pipe()
    # Without -noreset the display starts anew when its last client leaves, and whoever is just
    # connecting is thrown out.
    display = subprocess.Popen(
        ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
         "-noreset"],
        pass_fds=[write_end], start_new_session=True,
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as pipe:
        number = pipe.readline().strip()
    if not number:
        raise Failed("Xvfb did not start")
    return display, ":" + number


def start_window_manager(environment):
    manager = subprocess.Popen(["openbox"], env=environment, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    wait_for("the window manager", lambda: "window id" in subprocess.run(
        ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=environment, capture_output=True,
        text=True).stdout)
    return manager


def private_environment(folder, display):
    environment = {name: value for name, value in os.environ.items()
                   if not name.startswith(("XDG_", "QT_", "DBUS_", "WAYLAND_", "AT_SPI_"))}
    for name in ("CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "RUNTIME_DIR"):
        path = folder / name.lower()
        path.mkdir(mode=0o700)
        environment["XDG_" + name] = str(path)
    environment.update(DISPLAY=display, LANG="C.UTF-8", LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
                       QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0")
    return environment


@contextlib.contextmanager
def virtual_display(scale=1.0):
    """A display with a window manager: a folder for this time, and the environment for programs."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="orvane-"))
    display = manager = None
    try:
        display, name = start_display(scale)
        environment = private_environment(folder, name)
        manager = start_window_manager(environment)
        yield folder, environment
    finally:
        take_time()
        end_processes(manager)
        if display:
            end_group(display)
        shutil.rmtree(folder, ignore_errors=True)
