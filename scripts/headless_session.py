"""A display without a screen for scripts: what runs on it is seen through the accessibility tree.

A script calls run_in_session, which starts a display and a session bus and runs the script again
inside them; there it uses Screen. Whatever was started is ended when the script leaves.
"""
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

STEP_LIMIT_S = 20
SCREEN_SIZE = "1360x920"


class Failed(Exception):
    """What a script was to bring about did not happen."""


def limit_time(seconds):
    """Ends the script with Failed after this time, and when it is interrupted."""

    def end(signum, _frame):
        raise Failed("time limit reached" if signum == signal.SIGALRM else "interrupted")

    for signum in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT):
        signal.signal(signum, end)
    signal.alarm(seconds)


def wait_for(what, get, seconds=STEP_LIMIT_S):
    """The first value of get() that counts as true."""
    end = time.monotonic() + seconds
    while True:
        value = get()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"waited in vain for {what}")
        time.sleep(0.05)


def end_group(process):
    """Ends a process that leads its own group, and what it started."""
    for sig in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, sig)
        except ProcessLookupError:
            return
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            continue
        if sig == signal.SIGTERM:
            time.sleep(0.2)


def start_display(size=SCREEN_SIZE):
    read_end, write_end = os.pipe()
    # Without -noreset the display starts anew when its last client leaves, and whoever is just
    # connecting is thrown out.
    display = subprocess.Popen(
        ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{size}x24", "-nolisten", "tcp",
         "-noreset"],
        pass_fds=[write_end], start_new_session=True,
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as pipe:
        number = pipe.readline().strip()
    if not number:
        raise Failed("Xvfb did not start")
    return display, ":" + number


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


def run_in_session(script, arguments, out, size=SCREEN_SIZE, **settings):
    """Runs `script --inside <arguments> <empty folder>` in a session of its own; its exit code.

    What the programs of the session say goes to session.log in the folder `out`, which is empty
    before. The display has the size; the settings are put into the environment."""
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    folder = pathlib.Path(tempfile.mkdtemp(prefix="orvane-"))
    display = session = None
    try:
        display, name = start_display(size)
        with (out / "session.log").open("w") as log:
            session = subprocess.Popen(
                ["dbus-run-session", "--", sys.executable, script, "--inside",
                 *map(str, arguments), str(folder)],
                env=dict(private_environment(folder, name), **settings),
                start_new_session=True, stderr=log)
        code = session.wait()
        if code != 0:
            print(f"What the programs said is in {out / 'session.log'}.", file=sys.stderr)
        return code
    finally:
        signal.alarm(0)
        for process in (session, display):
            if process is not None:
                end_group(process)
        shutil.rmtree(folder, ignore_errors=True)


def start_window_manager():
    manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for("the window manager", lambda: "window id" in subprocess.run(
        ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True).stdout)
    return manager


def end_processes(*processes):
    for process in processes:
        if process is not None and process.poll() is None:
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()


def descendants(node, closed=()):
    """All nodes below this one; what is inside of the roles in `closed` is left out."""
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child
            if child.get_role_name() not in closed:
                yield from descendants(child, closed)


class Screen:
    """The windows as assistive technology sees them, and a pointer.

    The toolkit tells places in its own pixels; a scale says how many of the display one has."""

    def __init__(self, scale=1.0):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.atspi = Atspi
        self.scale = scale
        self.gone = GLib.Error  # raised by nodes whose window has closed meanwhile

    def windows(self):
        desktop = self.atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            for place in range(program.get_child_count() if program else 0):
                yield program.get_child_at_index(place)

    def window(self, caption):
        try:
            return next((w for w in self.windows() if w and w.get_name().startswith(caption)), None)
        except self.gone:
            return None

    def find(self, caption, name, *roles):
        """The first showing control of a window with this name and one of the roles."""
        try:
            window = self.window(caption)
            for node in descendants(window) if window else ():
                if (node.get_name() == name and node.get_role_name() in roles
                        and node.get_state_set().contains(self.atspi.StateType.SHOWING)):
                    return node
        except self.gone:
            pass
        return None

    def text(self, node):
        """The content of a text control; empty when there is none."""
        try:
            return self.atspi.Text.get_text(node.get_text_iface(), 0, -1) if node else ""
        except self.gone:
            return ""

    def entries(self, node):
        """The lines of a list or the cells of a table, and their texts."""
        try:
            return [(child, child.get_name()) for child in descendants(node)
                    if child.get_role_name() in ("list item", "table cell")] if node else []
        except self.gone:
            return []

    def click(self, node):
        box = node.get_extents(self.atspi.CoordType.SCREEN)
        x = int((box.x + box.width / 2) * self.scale)
        y = int((box.y + box.height / 2) * self.scale)
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True)

    def dump(self):
        lines = []

        def add(node, depth):
            lines.append("  " * depth + f"{node.get_role_name()} '{node.get_name()}'")
            for index in range(node.get_child_count()):
                child = node.get_child_at_index(index)
                if child is not None:
                    add(child, depth + 1)

        try:
            add(self.atspi.get_desktop(0), 0)
        except self.gone:
            lines.append("(a window closed)")
        return "\n".join(lines)
