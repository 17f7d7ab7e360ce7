#!/usr/bin/python3
"""Installs the Debian packages into a system made for it, uses, upgrades and removes them.

  tests/packages/prove_debian.py <folder with the packages>
"""
import os
import pathlib
import shutil
import subprocess
import sys

from package_proof import (call, digests, expect_gone, expect_same, install_host, say, user_files)
from headless_session import Failed, limit_time, run_in_session, start_window_manager, end_processes

TIME_LIMIT_S = 1500
RELEASE = "bookworm"
USER = "eva"
NEWER = "9999"
PACKAGES = ("orvane", "orvane-demo-host")


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise Failed(f"{' '.join(map(str, command))}:\n{(done.stdout + done.stderr)[-2000:]}")
    return done.stdout


class DebianSystem:
    """A minimal Debian system in a folder, in which a user works."""

    def __init__(self, folder):
        self.folder = folder
        self.environment = {
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LANG": "C.UTF-8", "HOME": f"/home/{USER}",
            "DISPLAY": os.environ["DISPLAY"], "QT_QPA_PLATFORM": "xcb", "ORVANE_SIMULATED_LINES": "1"}

    def make(self):
        run("debootstrap", "--variant=minbase", RELEASE, self.folder)
        # Packages come from where this machine has them.
        for name in ("sources.list", "sources.list.d", "apt.conf.d", "trusted.gpg.d", "keyrings"):
            source, target = pathlib.Path("/etc/apt") / name, self.folder / "etc/apt" / name
            if source.is_dir():
                shutil.copytree(source, target, dirs_exist_ok=True)
            elif source.exists():
                shutil.copy(source, target)
        shutil.copy("/etc/resolv.conf", self.folder / "etc/resolv.conf")
        run("mount", "-t", "proc", "proc", self.folder / "proc")
        self.root_runs("useradd", "--create-home", USER)
        self.apt("update")

    def leave(self):
        subprocess.run(["umount", self.folder / "proc"], check=False, capture_output=True)

    def root_runs(self, *command):
        return run("chroot", self.folder, *command,
                   env=dict(self.environment, HOME="/root", DEBIAN_FRONTEND="noninteractive"))

    def apt(self, *words):
        return self.root_runs("apt-get", "-qq", "-y", "--no-install-recommends", *words)

    def install(self, packages):
        for package in packages:
            shutil.copy(package, self.folder / "tmp")
        self.apt("install", *(f"/tmp/{package.name}" for package in packages))
        for package in packages:
            (self.folder / "tmp" / package.name).unlink()

    def path(self, path):
        return "/" + str(path.relative_to(self.folder))

    def files_named_like_the_program(self):
        """All over the system, but for what the user has and what the package system notes."""
        return [path for folder in self.folder.iterdir() if folder.name not in ("home", "proc")
                for path in sorted(folder.rglob("*[oO]rvane*"))
                if not path.is_relative_to(self.folder / "var" / "log")]

    def start(self, name, *arguments, **options):
        root = self.folder / "home" / USER
        run("chown", "-R", "--reference", root, root)
        return subprocess.Popen(["chroot", f"--userspec={USER}", self.folder, f"/usr/bin/{name}",
                                 *arguments], env=self.environment, **options)

    def dialer(self):
        return "/usr/bin/orvane"

    def prepare(self, scenario):
        """The desktop of a new user will do."""


def newer(package, folder):
    """The same package with a higher version."""
    content = folder / "content"
    run("dpkg-deb", "-R", package, content)
    control = content / "DEBIAN" / "control"
    text = control.read_text()
    version = run("dpkg-deb", "-f", package, "Version").strip()
    control.write_text(text.replace(version, NEWER))
    result = folder / package.name.replace(version, NEWER)
    run("dpkg-deb", "--root-owner-group", "-b", content, result)
    shutil.rmtree(content)
    return result


def prove(packages, out, folder):
    system = DebianSystem(folder / "debian")
    manager = start_window_manager()
    try:
        say("Making a Debian system")
        system.make()
        demo = system.folder / "home" / USER / "demo"
        system.install(packages)
        install_host(system, demo, out)
        call(system, demo, out, "installed")

        before = digests(*user_files(demo))
        system.install([newer(package, folder) for package in packages])
        expect_same(before, "the upgrade")
        call(system, demo, out, "upgraded")

        before = digests(*user_files(demo))
        system.apt("purge", *PACKAGES)
        expect_same(before, "the removal")
        expect_gone(system.files_named_like_the_program(), "the removal")
    finally:
        end_processes(manager)
        system.leave()


def main():
    inside = sys.argv[1:2] == ["--inside"]
    limit_time(TIME_LIMIT_S - 10 if inside else TIME_LIMIT_S)
    arguments = [pathlib.Path(argument).resolve() for argument in sys.argv[2 if inside else 1:]]
    if inside:
        packages = [next(arguments[0].glob(f"{name}_*.deb")) for name in PACKAGES]
        return prove(packages, arguments[1], arguments[2])
    if len(arguments) != 1:
        sys.exit(__doc__)
    if os.geteuid() != 0:
        sys.exit("A Debian system can only be made by root.")
    return run_in_session(__file__, [arguments[0], arguments[0] / "proof"],
                          out=arguments[0] / "proof")


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failed as failure:
        say(f"proof: FAILED, {failure}")
        sys.exit(1)
