#!/usr/bin/python3
"""A serial cable under Wine: runs a program while COM11 and COM12 are connected.

  tests/platform/serial/windows/serial_cable.py <command...>

Uses the prefix in WINEPREFIX. COM13 is a port with nothing at its other end. The program gives
orders at COM14, each confirmed by one character: "+" lays a new cable, "-" pulls it out.
"""
import os
import pathlib
import pty
import select
import subprocess
import sys
import tty

DEVICES = pathlib.Path(os.environ["WINEPREFIX"]) / "dosdevices"
CABLE = (11, 12)
UNCONNECTED = 13
ORDERS = 14
STEP_S = 0.1
BLOCK = 4096


class Port:
    """A pseudo terminal that Wine knows as COM<number>."""

    def __init__(self, number):
        self.link = DEVICES / f"com{number}"
        self.outer, self.inner = pty.openpty()
        tty.setraw(self.inner)
        os.set_blocking(self.outer, False)
        self.link.unlink(missing_ok=True)
        self.link.symlink_to(os.ttyname(self.inner))

    def read(self):
        try:
            return os.read(self.outer, BLOCK)
        except OSError:
            return b""

    def write(self, data):
        try:
            os.write(self.outer, data)
        except BlockingIOError:
            pass  # nobody reads there; a cable keeps nothing

    def remove(self):
        self.link.unlink(missing_ok=True)
        os.close(self.outer)
        os.close(self.inner)


class Machine:
    def __init__(self):
        self.fixed = {number: Port(number) for number in (UNCONNECTED, ORDERS)}
        self.cable = []

    def pull(self):
        for port in self.cable:
            port.remove()
        self.cable = []

    def obey(self, orders):
        for order in orders:
            self.pull()
            if order == ord("+"):
                self.cable = [Port(number) for number in CABLE]
            self.fixed[ORDERS].write(b"!")

    def turn(self):
        ends = {self.fixed[ORDERS].outer: None}
        for port, peer in zip(self.cable, reversed(self.cable)):
            ends[port.outer] = (port, peer)
        for ready in select.select(list(ends), [], [], STEP_S)[0]:
            if ends[ready]:
                port, peer = ends[ready]
                peer.write(port.read())
        # Last, because orders change the ends.
        self.obey(self.fixed[ORDERS].read())

    def close(self):
        self.pull()
        for port in self.fixed.values():
            port.remove()


def main():
    machine = Machine()
    program = subprocess.Popen(sys.argv[1:], env={**os.environ, "ORVANE_SERIAL_CABLE": "1"})
    try:
        while program.poll() is None:
            machine.turn()
    finally:
        machine.close()
    return program.returncode


if __name__ == "__main__":
    sys.exit(main())
