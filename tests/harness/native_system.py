"""This system, with programs for it."""
import os
import subprocess

# The desktop's colours as KDE stores them: ground and text of windows, of fields.
SCHEMES = {
    "light": ("239,240,241", "35,38,41", "255,255,255", "35,38,41"),
    "dark": ("42,46,50", "252,252,252", "27,30,32", "252,252,252"),
}


class NativeSystem:
    """Programs from one folder, and a demo in another."""

    def __init__(self, programs, root, environment=os.environ):
        self.programs, self.root = programs, root
        # Where the demo host keeps them, so that a dialer without it finds the same.
        self.runtime = root / "run"
        self.environment = dict(environment, XDG_CONFIG_HOME=str(root / "config"),
                                XDG_RUNTIME_DIR=str(self.runtime))

    def start(self, name, *arguments, **options):
        self.runtime.mkdir(mode=0o700, parents=True, exist_ok=True)
        return subprocess.Popen([self.programs / name, *arguments],
                                **{"env": self.environment, **options})

    def path(self, path):
        return str(path)

    def dialer(self):
        return str(self.programs / "orvane")

    def can_play(self, scenario):
        return not scenario.telephony

    def prepare(self, scenario):
        """The desktop is as the scenario wants it."""
        self.set_up_desktop("dark" if scenario.dark else "light")

    def set_up_desktop(self, scheme):
        settings = self.root / "desktop"
        self.environment.update(XDG_CONFIG_DIRS=str(settings), XDG_CURRENT_DESKTOP="KDE",
                                KDE_SESSION_VERSION="5", QT_QPA_PLATFORMTHEME="kde")
        ground, text, field, field_text = SCHEMES[scheme]
        settings.mkdir(parents=True)
        (settings / "kdeglobals").write_text(
            "[General]\nfont=Noto Sans,9,-1,5,50,0,0,0,0,0\n"
            f"[Colors:Window]\nBackgroundNormal={ground}\nForegroundNormal={text}\n"
            f"[Colors:View]\nBackgroundNormal={field}\nForegroundNormal={field_text}\n"
            f"[Colors:Button]\nBackgroundNormal={ground}\nForegroundNormal={text}\n")

    def close(self):
        pass
