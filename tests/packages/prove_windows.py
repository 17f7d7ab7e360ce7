#!/usr/bin/python3
"""Starts the Windows program from its zip under Wine; then installs, uses, upgrades and removes it in silence.

  tests/packages/prove_windows.py <zip> <installer> <newer installer> <build folder>
    <folder for pictures>
"""
import contextlib
import os
import pathlib
import shutil
import subprocess
import sys

from package_proof import call, digests, expect_gone, expect_same, install_host, say, user_files
from headless_session import Failed, end_processes, limit_time, run_in_session, start_window_manager, wait_for
from run_scenarios import WineSystem

TIME_LIMIT_S = 600
INSTALLER_LIMIT_S = 120
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvane"
PROGRAM_FOLDER = ("AppData", "Local", "Programs", "Orvane")
OTHER_USER = "18"


class InstalledSystem(WineSystem):
    """A fresh Wine prefix, into which the installer puts the program."""

    def __init__(self, build, root, folder):
        super().__init__(build / "bin", root, dict(os.environ, ORVANE_SIMULATED_LINES="1"), folder,
                         (build / "library_folders").read_text().strip())
        # Debian's Wine names the prefix's user after this system's.
        self.user_folder = next(path for path in (self.drive / "users").iterdir()
                                if path.name != "Public")
        self.program_folder = self.user_folder.joinpath(*PROGRAM_FOLDER)
        self.used_folder = self.program_folder

    def dialer(self):
        return "\\".join(("C:", *self.used_folder.relative_to(self.drive).parts, "orvane.exe"))

    def run(self, *words):
        done = subprocess.run(self.command("", *words), env=self.environment, capture_output=True,
                              timeout=INSTALLER_LIMIT_S, check=False)
        return done.returncode

    @contextlib.contextmanager
    def unpacked(self, archive):
        """The program is what the zip holds, in a folder of the user's."""
        folder = self.user_folder / "Telefon & Mehr"
        shutil.unpack_archive(archive, folder)
        self.used_folder = folder / archive.stem
        yield
        self.used_folder = self.program_folder
        shutil.rmtree(folder)

    def install(self, installer):
        if self.run(installer, "/S") != 0:
            raise Failed(f"{installer.name} failed")

    def is_registered(self):
        return self.run("reg", "query", UNINSTALL_KEY) == 0

    def uninstall(self):
        # It goes on as a copy of itself.
        self.run(self.program_folder / "Deinstallieren.exe", "/S")
        wait_for("the end of the uninstaller", lambda: not self.is_registered(), INSTALLER_LIMIT_S)
        wait_for("the program folder's end", lambda: not self.program_folder.exists())

    def files(self):
        """All that users and programs have, without what is temporary."""
        return {path for folder in ("users", "Program Files", "ProgramData")
                for path in (self.drive / folder).rglob("*") if "Temp" not in path.parts}


def prove(archive, installer, newer, build, out, folder):
    root = folder / "demo"
    manager = start_window_manager()
    system = None
    try:
        system = InstalledSystem(build, root, folder)
        install_host(system, root, out)
        with system.unpacked(archive):
            call(system, root, out, "unpacked")
        before = system.files()
        area_codes = root / "host" / "res" / "VPB.rgt"
        area_codes.unlink()
        other_user = root / "host" / "Daten" / "User" / OTHER_USER
        other_user.mkdir()

        system.install(installer)
        if not area_codes.exists() or not (other_user / "res" / "TelList.fdb").exists():
            raise Failed("the host did not get its area codes and journals")
        say("the host has its area codes and journals")
        call(system, root, out, "installed")

        kept = digests(*user_files(root))
        system.install(newer)
        expect_same(kept, "the upgrade")
        call(system, root, out, "upgraded")

        kept = digests(*user_files(root))
        system.uninstall()
        expect_same(kept, "the removal")
        expect_gone(sorted(system.files() - before) + [file for file in (area_codes,) if file.exists()],
                    "the removal")
    finally:
        if system:
            system.end()
        end_processes(manager)


def main():
    inside = sys.argv[1:2] == ["--inside"]
    limit_time(TIME_LIMIT_S - 10 if inside else TIME_LIMIT_S)
    arguments = [pathlib.Path(argument).resolve() for argument in sys.argv[2 if inside else 1:]]
    if inside:
        return prove(*arguments)
    if len(arguments) != 5:
        sys.exit(__doc__)
    shutil.rmtree(arguments[4], ignore_errors=True)
    return run_in_session(__file__, arguments, out=arguments[4])


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failed as failure:
        say(f"proof: FAILED, {failure}")
        sys.exit(1)
