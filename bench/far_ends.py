"""What hears the calls at the other end of a line, and when."""
import datetime
import os
import pty
import re
import select
import time
import tty

from tests.harness.waiting import Failed


class Modem:
    """A pseudo terminal that answers AT at once."""

    def __init__(self, link):
        self.master, slave = pty.openpty()
        tty.setraw(slave)
        link.unlink(missing_ok=True)
        link.symlink_to(os.ttyname(slave))
        self.slave = slave  # kept open, so that the master never sees the end of the line
        self.received = b""

    def wait_for(self, command):
        """The moment at which a whole command that begins so has arrived."""
        end = time.monotonic() + 10
        while time.monotonic() < end:
            if select.select([self.master], [], [], 0.1)[0]:
                self.received += os.read(self.master, 4096)
                now = time.monotonic()
            while b"\r" in self.received:
                line, self.received = self.received.split(b"\r", 1)
                if line == b"AT":
                    os.write(self.master, b"\r\nOK\r\n")
                if line.startswith(command):
                    return now
        raise Failed(f"the modem never heard {command!r}")


class FarEnd:
    """The messages that the far end of the SIP calls has received, by its log."""

    HEAD = re.compile(r"^-+ (\S+ \S+)\nUDP message received .*\n\n([A-Z]+) sip:", re.MULTILINE)

    def __init__(self, log):
        self.log = log
        self.seen = 0

    def wait_for(self, method):
        """The moment, by the wall clock, at which a request that came since the last one arrived."""
        end = time.monotonic() + 10
        while time.monotonic() < end:
            text = self.log.read_text() if self.log.exists() else ""
            for head in self.HEAD.finditer(text, self.seen):
                self.seen = head.end()
                if head[2] == method:
                    return datetime.datetime.fromisoformat(head[1]).timestamp()
            time.sleep(0.005)
        raise Failed(f"the far end never received {method}")
