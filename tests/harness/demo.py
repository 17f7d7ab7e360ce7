"""What the demo host and the dialer show, understand and keep."""
import contextlib
import sqlite3

HOST, DIALER, OPTIONS = "TALMIX_TRAY18", "TALMIX_BRISKO", "Brisko :: Optionen"
COMPACT_HEIGHT = 66  # of the dial window, at most
USER = 17
START_COMMAND = f"TX:{USER}"
END_COMMAND = f"{START_COMMAND}~Dial~0|KillMySelf|"
UNKNOWN_COMMAND, UNKNOWN_COMMAND_BOX = f"{START_COMMAND}~Wahl~x", "Fehler 87117"

# One of the demo host's contacts.
CONTACT = "Muster & Söhne GmbH"
CONTACT_ROW = 2
CONTACT_NUMBER = "069 / 90009-217"
CONTACT_DIGITS = "06990009217"


def dial_command(number, company="Probe & Söhne", rest="Meier, Eva|Gießen|1|2"):
    """The host's command with a number, as it stands behind the program's name and in messages."""
    return f"{START_COMMAND}~Dial~1|{number}|{company}|{rest}"


def read(database, query, *values):
    with contextlib.closing(sqlite3.connect(f"file:{database}?mode=ro", uri=True)) as connection:
        connection.row_factory = sqlite3.Row
        return connection.execute(query, values).fetchall()


class Demo:
    """What is in the folder of a demo."""

    def __init__(self, root):
        self.root = root

    def user_file(self, name, user=USER):
        return self.root / "host" / "Daten" / "User" / str(user) / "res" / name

    def journal(self, user=USER):
        return self.user_file("TelList.fdb", user)

    def speed_dial(self):
        return self.user_file("Kurzwahl.dat")

    def put_setting(self, name, value):
        """Stores a value of the host's key; the installation leaves it alone if it is not its own."""
        file = self.root / "config" / "Nordel" / "registry.ini"
        key = rf"SOFTWARE\Nordel\Talmix18\{name}="
        lines = file.read_text().splitlines() if file.exists() else ["[HKEY_CURRENT_USER]"]
        kept = [line for line in lines if not line.lower().startswith(key.lower())]
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("\n".join([*kept, f'{key}"{value}"', ""]))

    def area_codes(self):
        return self.root / "host" / "res" / "VPB.rgt"

    def read_journal(self, query, *values):
        return read(self.journal(), query, *values)

    def contacts(self):
        """What the contacts are known by: names, places, and numbers from the area code on."""
        file = self.root / "host" / "Daten" / "CONTACT.FDB"
        names = read(file, "SELECT Firma1, Ort FROM Adressen UNION SELECT VName, NName FROM AdrDetail")
        numbers = read(file, "SELECT RawZentrTel FROM Adressen UNION SELECT RawTel1 FROM AdrDetail"
                             " UNION SELECT RawHandy FROM AdrDetail")
        return ([text for row in names for text in row if text],
                [number.removeprefix("49") for number, in numbers if number])

    def log(self, name):
        file = self.root / name
        return file.read_text().splitlines() if file.exists() else []

    def heard(self):
        """What reached the line."""
        return [line[2:] for line in self.log("line.log") if line.startswith("< ")]

    def messages(self):
        """What host and dialer have told each other."""
        return self.log("messages.log")

    def forget_messages(self):
        (self.root / "messages.log").unlink(missing_ok=True)
