"""Starts the Windows program from its zip under Wine; then installs, uses, upgrades and removes it.

  /usr/bin/python3 -m tests.packages.prove_windows <build folder> <folder for pictures>
    <zip> <installer> <newer installer>
"""
import contextlib
import os
import pathlib
import shutil
import subprocess

from tests.harness import session
from tests.harness.demo import Demo
from tests.harness.waiting import Failed, wait_for
from tests.harness.wine_system import WineSystem
from tests.packages.package_proof import (call, digests, expect_gone, expect_same, install_host, say,
                                          user_files)

TIME_LIMIT_S = 600
INSTALLER_LIMIT_S = 120
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvane"
PROGRAM_FOLDER = ("AppData", "Local", "Programs", "Orvane")
OTHER_USER = "18"


class InstalledSystem(WineSystem):
    """A fresh Wine prefix, into which the installer puts the program."""

    def __init__(self, build, folder):
        super().__init__(build / "bin", folder / "demo", dict(os.environ, ORVANE_SIMULATED_LINES="1"),
                         folder, (build / "library_folders").read_text().strip())
        # Debian's Wine names the prefix's user after this system's.
        self.user_folder = next(path for path in (self.drive / "users").iterdir()
                                if path.name != "Public")
        self.program_folder = self.user_folder.joinpath(*PROGRAM_FOLDER)
        self.used_folder = self.program_folder

    def dialer(self):
        return "\\".join(("C:", *self.used_folder.relative_to(self.drive).parts, "orvane.exe"))

    def finished(self, *words):
        return subprocess.run(self.command("", *words), env=self.environment, capture_output=True,
                              timeout=INSTALLER_LIMIT_S, check=False)

    def run(self, *words):
        return self.finished(*words).returncode

    def output(self, *words):
        return self.finished(*words).stdout.decode("utf-8", "replace")

    @contextlib.contextmanager
    def unpacked(self, archive):
        """The program is what the zip holds, in a folder of the user's."""
        folder = self.user_folder / "Telefon & Mehr"
        shutil.unpack_archive(archive, folder)
        self.used_folder = folder / archive.stem
        yield
        self.used_folder = self.program_folder
        shutil.rmtree(folder)

    def install(self, installer, *words):
        if self.run(installer, "/S", *words) != 0:
            raise Failed(f"{installer.name} failed")
        version = installer.name.split("-")[1]
        if version not in self.output("reg", "query", UNINSTALL_KEY, "/v", "DisplayVersion"):
            raise Failed(f"version {version} is not the registered one")

    def refuses_a_used_folder(self, installer):
        """A list of names in a folder of the user's is not one of what may go."""
        folder = self.drive / "Meins"
        folder.mkdir()
        letter = folder / "Brief.txt"
        letter.write_text("Lieber Hans")
        for name in ("Dateien.txt", "Orvane-Dateien.txt"):
            (folder / name).write_text("Brief.txt\r\nBrief.txt\r\n", encoding="utf-16-le")
        if self.run(installer, "/S", "/D=C:\\Meins") == 0 or sorted(
                path.name for path in folder.iterdir()) != ["Brief.txt", "Dateien.txt", "Orvane-Dateien.txt"]:
            raise Failed("the installer went into a folder that is in use")
        shutil.rmtree(folder)

    def survives_a_copy_that_fails(self, installer):
        """What could not be copied is said, and the same installer can do it once it can."""
        in_the_way = self.program_folder / "Lizenzen" / "licences.md"
        in_the_way.unlink()
        (in_the_way / "Ordner").mkdir(parents=True)
        if self.run(installer, "/S") == 0:
            raise Failed("the installer did not notice that a file was not copied")
        shutil.rmtree(in_the_way)
        self.install(installer)
        if not in_the_way.is_file():
            raise Failed("the repeated installation left a file out")

    def moves(self, installer):
        """The program goes to another folder; what is the user's stays behind."""
        self.install(installer, "/D=C:\\Anderswo")
        left = [path.name for path in self.program_folder.rglob("*")]
        if left != ["Notiz.txt"]:
            raise Failed(f"the former folder holds {left}, not just the user's note")
        self.program_folder = self.used_folder = self.drive / "Anderswo"

    def claims(self, file):
        """The installed version takes the file for its own."""
        with (self.program_folder / "Orvane-Dateien.txt").open("ab") as names:
            name = str(file.relative_to(self.program_folder)).replace("/", "\\")
            names.write(f"{name}\r\n".encode("utf-16-le"))

    def is_registered(self):
        return self.run("reg", "query", UNINSTALL_KEY) == 0

    def uninstall(self):
        # It goes on as a copy of itself.
        self.run(self.program_folder / "Deinstallieren.exe", "/S")
        wait_for("the end of the uninstaller", lambda: not self.is_registered(), INSTALLER_LIMIT_S)

    def files(self):
        """All that users and programs have, without what is temporary."""
        return {path for folder in ("users", "Program Files", "ProgramData", "Anderswo")
                for path in (self.drive / folder).rglob("*") if "Temp" not in path.parts}


def prove(folder, build, out, *files):
    archive, installer, newer = (pathlib.Path(file).resolve() for file in files)
    with contextlib.closing(InstalledSystem(build, folder)) as system:
        demo = Demo(system.root)
        install_host(system, out)
        with system.unpacked(archive):
            call(system, out, "unpacked")
        before = system.files()
        area_codes = demo.area_codes()
        area_codes.unlink()
        other_journal = demo.journal(OTHER_USER)
        other_journal.parent.parent.mkdir()

        system.refuses_a_used_folder(installer)
        system.install(installer)
        if not area_codes.exists() or not other_journal.exists():
            raise Failed("the host did not get its area codes and journals")
        say("the host has its area codes and journals")
        call(system, out, "installed")

        note = system.program_folder / "Notiz.txt"
        note.write_text("vom Benutzer")
        stale = system.program_folder / "Handbuch" / "alt.md"
        stale.write_text("bis zur vorigen Version")
        system.claims(stale)
        kept = digests(note, *user_files(system))
        system.install(newer)
        if stale.exists():
            raise Failed("the upgrade left a file of the former version")
        expect_same(kept, "the upgrade")
        call(system, out, "upgraded")

        # The demo host has put its own in the place of the table, which is not to be taken away.
        system.install(newer)
        if not area_codes.exists():
            raise Failed("the host's own area codes were removed")
        area_codes.unlink()
        system.install(newer)

        system.survives_a_copy_that_fails(newer)
        system.moves(newer)
        second = system.program_folder / "Notiz.txt"
        second.write_text("auch vom Benutzer")
        kept = digests(note, second, *user_files(system))
        system.uninstall()
        expect_same(kept, "the removal")
        notes = {path for file in (note, second) for path in (file, *file.parents)}
        expect_gone(sorted(system.files() - before - notes) +
                    [file for file in (area_codes,) if file.exists()], "the removal")
    return 0


if __name__ == "__main__":
    session.main(prove, __doc__, TIME_LIMIT_S, fits=lambda words: len(words) == 5)
