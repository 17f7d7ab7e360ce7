"""Installs the Debian packages into a system made for it, uses, upgrades and removes them.

  /usr/bin/python3 -m tests.packages.prove_debian <folder with the packages> <folder for pictures>

Needs to be root.
"""
import contextlib
import os
import pathlib
import shutil
import subprocess

from tests.harness import session
from tests.harness.waiting import Failed
from tests.packages.package_proof import (call, digests, expect_gone, expect_same, install_host, say,
                                          user_files)

TIME_LIMIT_S = 1500
PROJECT = pathlib.Path(__file__).resolve().parents[2]
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
        self.root = folder / "home" / USER / "demo"
        self.environment = {
            "PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LANG": "C.UTF-8", "HOME": f"/home/{USER}",
            "DISPLAY": os.environ["DISPLAY"], "QT_QPA_PLATFORM": "xcb", "ORVANE_SIMULATED_LINES": "1"}

    def make(self):
        if os.geteuid() != 0:
            raise Failed("a Debian system can only be made by root")
        # Packages come from where this machine has them.
        mirror = run(PROJECT / "scripts" / "packages" / "debian_mirror.sh", RELEASE).strip()
        run("debootstrap", "--variant=minbase", RELEASE, self.folder, mirror)
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

    def close(self):
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
        home = self.folder / "home" / USER
        run("chown", "-R", "--reference", home, home)
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


def prove(folder, source, out):
    packages = [next(source.glob(f"{name}_*.deb")) for name in PACKAGES]
    with contextlib.closing(DebianSystem(folder / "debian")) as system:
        say("Making a Debian system")
        system.make()
        system.install(packages)
        install_host(system, out)
        call(system, out, "installed")

        before = digests(*user_files(system))
        system.install([newer(package, folder) for package in packages])
        expect_same(before, "the upgrade")
        call(system, out, "upgraded")

        before = digests(*user_files(system))
        system.apt("purge", *PACKAGES)
        expect_same(before, "the removal")
        expect_gone(system.files_named_like_the_program(), "the removal")
    return 0


if __name__ == "__main__":
    session.main(prove, __doc__, TIME_LIMIT_S)
