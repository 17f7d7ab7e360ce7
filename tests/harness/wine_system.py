"""Wine, with programs for Windows."""
import pathlib
import shutil
import subprocess

PROJECT = pathlib.Path(__file__).resolve().parents[2]
HOST_KEY = r"HKCU\Software\Nordel"
DARK_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"


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
        return not scenario.signals

    def prepare(self, scenario):
        """The desktop and the telephony are as the scenario wants them, and nothing is set up."""
        self.reg("delete", HOST_KEY)
        self.reg("add", DARK_KEY, "/v", "AppsUseLightTheme", "/t", "REG_DWORD", "/d",
                 "0" if scenario.dark else "1")
        if scenario.telephony:
            shutil.copy(self.telephony_library, self.drive / "windows" / "system32" / "tapi32.dll")
        self.environment["WINEDLLOVERRIDES"] = f"tapi32={'n' if scenario.telephony else 'b'}"

    def close(self):
        environment = dict(self.environment, WINEPREFIX=str(self.wine / "prefix"))
        subprocess.run(["wineserver", "-k"], env=environment, check=False)
